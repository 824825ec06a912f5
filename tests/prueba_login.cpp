// The login: its three states, who it lets in (user, password, branch, upper-casing), the
// session it loads, and the branches that frmUsuariosDelegaciones opens to a user.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "data/global.h"
#include "forms/lista.h"
#include "session/frmlogin.h"
#include "session/frmusuariosdelegaciones.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

namespace {

struct Intento {
    QString usuario, contrasena, empresa, delegacion;
};

// Types the four fields of the login as a user does, leaving each.
void rellenar(frmLogin& f, const Intento& i) {
    teclear(f.txt(0), i.usuario);
    teclear(f.txt(1), i.contrasena);
    teclear(f.cmb(0)->lineEdit(), i.empresa);
    teclear(f.cmb(1)->lineEdit(), i.delegacion);
}

bool acepta(const Intento& i) {
    frmLogin f;
    activar(&f);
    rellenar(f, i);
    return f.cmdOK()->isEnabled() && f.ListViewLogin()->filas() == 1;
}

QStringList textos(const QListWidget* lista) {
    QStringList t;
    for (int i = 0; i < lista->count(); ++i) t << lista->item(i)->text();
    return t;
}

}  // namespace

class PruebaLogin : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
    }
    void init() {
        almacen->nuevo();
        crearEmpresaPrueba();
        sesion_usuario.clear();
        sesion_empresa.clear();
        sesion_delegacion.clear();
        sesion_ejercicio = 0;
        mantenimiento_usuario = mantenimiento_contrasena = "CUSTODIOS";
    }
    void cleanupTestCase() { almacen.reset(); }

    void tresEstados() {
        Buzon buzon;
        frmLogin f;
        activar(&f);
        QCOMPARE(f.windowTitle(), QStringLiteral("Inicio de sesión"));
        QVERIFY(!f.cmdOK()->isEnabled());

        // The maintenance constant typed in lower case counts once the field is left.
        teclear(f.txt(0), "custodios");
        QCOMPARE(f.txt(0)->text(), QStringLiteral("CUSTODIOS"));
        escribir(f.txt(1), "custodios");
        QVERIFY(!f.cmdOK()->isEnabled());
        salir(f.txt(1));
        QVERIFY(f.cmdOK()->isEnabled());
        QCOMPARE(f.ListViewLogin()->filas(), 0);

        // Validated: a real user in a branch open to it lists the company's years.
        rellenar(f, {"ANA", "CLAVE", "EMP", "EMP"});
        QVERIFY(f.cmdOK()->isEnabled());
        QCOMPARE(f.ListViewLogin()->filas(), 1);
        QCOMPARE(f.ListViewLogin()->texto(0, 0), QString::number(QDate::currentDate().year()));

        // Any edit of user or password withdraws it.
        escribir(f.txt(1), "CLAV");
        QVERIFY(!f.cmdOK()->isEnabled());
        QCOMPARE(f.ListViewLogin()->filas(), 0);
        QCOMPARE(buzon.textos, QStringList());
    }

    // Who gets in, and what the login says when it cannot go on with its four fields filled.
    void validarUsuario_data() {
        QTest::addColumn<QString>("usuario");
        QTest::addColumn<QString>("contrasena");
        QTest::addColumn<QString>("empresa");
        QTest::addColumn<QString>("delegacion");
        QTest::addColumn<bool>("aceptado");
        QTest::addColumn<QString>("motivo");
        const QString claves = QStringLiteral("Usuario o contraseña incorrectos.");
        QTest::newRow("right password") << "ANA"
                                        << "CLAVE"
                                        << "EMP"
                                        << "EMP" << true << "";
        QTest::newRow("wrong password") << "ANA"
                                        << "CLAVES"
                                        << "EMP"
                                        << "EMP" << false << claves;
        QTest::newRow("unknown user") << "EVA"
                                      << "CLAVE"
                                      << "EMP"
                                      << "EMP" << false << claves;
        QTest::newRow("branch not allowed")
            << "ANA"
            << "CLAVE"
            << "EMP"
            << "SUR" << false
            << "El usuario ANA no tiene acceso a la delegación SUR de la empresa EMP (Usuarios "
               "y permisos → Grupos de usuarios).";
        QTest::newRow("unknown company") << "ANA"
                                         << "CLAVE"
                                         << "OTRA"
                                         << "EMP" << false << "No existe la empresa OTRA.";
        QTest::newRow("unknown branch")
            << "ANA"
            << "CLAVE"
            << "EMP"
            << "NORTE" << false << "La empresa EMP no tiene la delegación NORTE.";
        QTest::newRow("everything typed in lower case") << "ana"
                                                        << "clave"
                                                        << "emp"
                                                        << "emp" << true << "";
        QTest::newRow("user stored in lower case") << "luis"
                                                   << "CLAVE"
                                                   << "EMP"
                                                   << "EMP" << false << claves;
        QTest::newRow("password stored in lower case") << "PEPE"
                                                       << "secreto"
                                                       << "EMP"
                                                       << "EMP" << false << claves;
        QTest::newRow("apostrophe in the password") << "ANA"
                                                    << "' OR ''='"
                                                    << "EMP"
                                                    << "EMP" << false << claves;
        QTest::newRow("company without a year")
            << "ANA"
            << "CLAVE"
            << "EMP"
            << "EMP" << false << "La empresa EMP no tiene ningún ejercicio.";
    }
    void validarUsuario() {
        QFETCH(QString, usuario);
        QFETCH(QString, contrasena);
        QFETCH(QString, empresa);
        QFETCH(QString, delegacion);
        QFETCH(bool, aceptado);
        QFETCH(QString, motivo);
        crearUsuario("luis", "CLAVE", {"EMP"});
        crearUsuario("PEPE", "secreto", {"EMP"});
        if (QByteArray(QTest::currentDataTag()) == "company without a year")
            sesion_conexion->execute("DELETE FROM Ejercicios");
        Buzon buzon;
        frmLogin f;
        activar(&f);
        rellenar(f, {usuario, contrasena, empresa, delegacion});
        QCOMPARE(f.cmdOK()->isEnabled() && f.ListViewLogin()->filas() == 1, aceptado);
        QCOMPARE(f.lblMotivo()->text(), motivo);
        QCOMPARE(buzon.textos, QStringList());  // said on the dialog, never in a box
        // Correcting a field takes the reason away.
        escribir(f.txt(1), "X");
        QCOMPARE(f.lblMotivo()->text(), QString());
    }

    // The branch chosen from the box's list stays in the box, by keyboard and by mouse.
    void delegacionElegidaDeLaLista_data() {
        QTest::addColumn<bool>("conRaton");
        QTest::newRow("Enter") << false;
        QTest::newRow("mouse") << true;
    }
    void delegacionElegidaDeLaLista() {
        QFETCH(bool, conRaton);
        frmLogin f;
        activar(&f);
        teclear(f.txt(0), "ana");
        teclear(f.txt(1), "clave");
        teclear(f.cmb(0)->lineEdit(), "emp");
        QComboBox* caja = f.cmb(1);
        QTRY_VERIFY(caja->hasFocus());
        QCOMPARE(caja->count(), 2);  // EMP and SUR
        caja->showPopup();
        QAbstractItemView* vista = caja->view();
        QTRY_VERIFY(vista->isVisible());
        const QModelIndex primera = vista->model()->index(0, 0);
        vista->setCurrentIndex(primera);
        if (conRaton) {
            const QPoint punto = vista->visualRect(primera).center();
            QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, punto);
        } else {
            QTest::keyClick(vista, Qt::Key_Return);
        }
        QTRY_VERIFY(!vista->isVisible());
        QTRY_COMPARE(caja->currentText(), QStringLiteral("EMP"));
        salir(caja);
        QVERIFY(f.cmdOK()->isEnabled());
        QCOMPARE(f.ListViewLogin()->filas(), 1);
    }

    void aceptarCargaLaSesion() {
        frmLogin f;
        activar(&f);
        rellenar(f, {"ana", "clave", "emp", "emp"});
        f.cmdOK()->click();
        QVERIFY(f.login_aceptado);
        const int anio = QDate::currentDate().year();
        QCOMPARE(sesion_usuario, QStringLiteral("ANA"));
        QCOMPARE(sesion_empresa, QStringLiteral("EMP"));
        QCOMPARE(sesion_delegacion, QStringLiteral("EMP"));
        QCOMPARE(sesion_ejercicio, anio);
        QCOMPARE(sesion_digitos, 8);
        QCOMPARE(sesion_fecha_inicial, QString::number(anio) + "0101");
        QCOMPARE(sesion_fecha_final, QString::number(anio) + "1231");
    }

    void mantenimientoNoTocaLaSesion() {
        sesion_empresa = "ANTES";
        frmLogin f;
        activar(&f);
        teclear(f.txt(0), "CUSTODIOS");
        teclear(f.txt(1), "CUSTODIOS");
        f.cmdOK()->click();
        QVERIFY(f.login_aceptado);
        QCOMPARE(sesion_usuario, QStringLiteral("CUSTODIOS"));
        QCOMPARE(sesion_empresa, QStringLiteral("ANTES"));
        QCOMPARE(sesion_ejercicio, 0);
    }

    void cancelar() {
        frmLogin f;
        activar(&f);
        rellenar(f, {"ANA", "CLAVE", "EMP", "EMP"});
        f.cmdCancel()->click();
        QVERIFY(!f.login_aceptado);
        QCOMPARE(sesion_empresa, QString());
    }

    // A new user can enter nowhere; the branches moved to "con acceso" are exactly those the
    // login then accepts, and each move is in the store at once.
    void delegacionesDeUnUsuario() {
        sesion_usuario = "CUSTODIOS";
        crearUsuario("EVA", "CLAVE");
        frmUsuariosDelegaciones f;
        activar(&f);
        QCOMPARE(f.cmbEmpresas()->count(), 1);
        f.cmbEmpresas()->setCurrentIndex(0);
        f.elegirEmpresa(0);
        QCOMPARE(f.cmbDelegaciones()->count(), 2);
        for (int d = 0; d < 2; ++d) {
            f.cmbDelegaciones()->setCurrentIndex(d);
            f.elegirDelegacion(d);
            QVERIFY(textos(f.lstDisponibles()).contains("EVA"));
            QVERIFY(!textos(f.lstPermitidos()).contains("EVA"));
        }
        QVERIFY(!acepta({"EVA", "CLAVE", "EMP", "SUR"}));

        // SUR is selected: give EVA access with Enter on her row.
        const auto fila = f.lstDisponibles()->findItems("EVA", Qt::MatchExactly).value(0);
        f.lstDisponibles()->setCurrentItem(fila);
        QTest::keyClick(f.lstDisponibles(), Qt::Key_Return);
        QVERIFY(textos(f.lstPermitidos()).contains("EVA"));
        QCOMPARE(filas("UsuariosDelegaciones",
                       "codigo_usuario = 'EVA' AND codigo_delegacion = 'SUR' AND activo <> 0"),
                 1);
        QVERIFY(acepta({"EVA", "CLAVE", "EMP", "SUR"}));
        QVERIFY(!acepta({"EVA", "CLAVE", "EMP", "EMP"}));

        // All out of SUR, then all into the twin branch.
        f.descartarTodos();
        QCOMPARE(f.lstPermitidos()->count(), 0);
        f.cmbDelegaciones()->setCurrentIndex(0);
        f.elegirDelegacion(0);
        f.anadirTodos();
        QCOMPARE(f.lstDisponibles()->count(), 0);
        QCOMPARE(filas("UsuariosDelegaciones", "codigo_delegacion = 'SUR' AND activo <> 0"), 0);
        QVERIFY(!acepta({"EVA", "CLAVE", "EMP", "SUR"}));
        QVERIFY(acepta({"EVA", "CLAVE", "EMP", "EMP"}));
        QVERIFY(acepta({"ANA", "CLAVE", "EMP", "EMP"}));

        // A move without a selection has nothing to do.
        f.lstDisponibles()->clearSelection();
        f.anadir();
        QCOMPARE(f.lstPermitidos()->count(), 2);
    }
};

QTEST_MAIN(PruebaLogin)
#include "prueba_login.moc"
