// The menu rights editor: how one change on an item spreads over the tree, that a save is
// whole or nothing, the form's refusals and boxes, and what the user's next login shows.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/sesion_prueba.h"
#include "data/arranque.h"
#include "data/entidades/menususuarios.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"
#include "forms/barra.h"
#include "forms/formularios.h"
#include "session/derechosmenu.h"
#include "session/frmmain.h"
#include "session/frmmenu.h"
#include "session/frmmenususuarios.h"
#include "session/sesion.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>

namespace {

// One save on the rows of ANA in the twin branch: "item=letters" before and after, by item.
struct Propagacion {
    const char* nombre;
    QString antes, item, texto, despues;
};
// 002008 is a folder of three leaves; 005 holds the folders 005004 and 005005.
const QString f8 = "002008000000=V 002008001000=V 002008002000=V 002008003000=V";
const QString r5 = "005001000000=V 005002000000=V 005003000000=V ";
const QString s5 = " 005005000000=V 005005001000=V 005005002000=V 005006000000=V 005007000000=V";
const Propagacion kPropagaciones[] = {
    {"L on a leaf", "", "001001000000", "L", "001001000000=L"},
    {"new letters replace the old", "001001000000=IEB", "001001000000", "L", "001001000000=L"},
    {"V on a folder hides its branch", "", "002008000000", "V", f8},
    {"I on a folder goes to its leaves only", "002008000000=B", "002008000000", "I",
     "002008000000=B 002008001000=I 002008002000=I 002008003000=I"},
    {"V on the last visible leaf hides its folder", "002009001000=V", "002009002000", "V",
     "002009000000=V 002009001000=V 002009002000=V"},
    {"and its top folder", "", "003001000000", "V", "003000000000=V 003001000000=V"},
    {"and each folder up its branch", r5 + "005004001000=V" + s5, "005004002000", "V",
     "005000000000=V " + r5 + "005004000000=V 005004001000=V 005004002000=V" + s5},
    {"clearing a leaf lifts its folders", "002000000000=L " + f8, "002008002000", "",
     "002008001000=V 002008003000=V"},
    {"clearing a folder lifts its branch", "002001000000=L " + f8, "002008000000", "",
     "002001000000=L"},
};

// A save in the editor, then ANA's login into `entrada`: the menu's items that are missing
// ("|" between them) and the buttons of the users' form that are off.
struct Entrada {
    const char *nombre, *delegacion, *item, *casillas, *entrada, *ausentes, *apagados;
};
const Entrada kEntradas[] = {
    {"L on a leaf", "EMP", "Usuarios", "L", "EMP", "", "listar"},
    {"I, E and B on a leaf", "EMP", "Usuarios", "IEB", "EMP", "", "insertar modificar borrar"},
    {"I on the leaf's folder", "EMP", "Usuarios y permisos", "I", "EMP", "", "insertar"},
    {"V on a folder", "EMP", "Usuarios y permisos", "V", "EMP",
     "Usuarios y permisos|Usuarios|Grupos de usuarios|Permisos por opción de menú", ""},
    {"V on the only leaf of a folder", "EMP", "Entrada de apuntes", "V", "EMP",
     "Contabilidad|Entrada de apuntes", ""},
    {"rights of another branch", "SUR", "Usuarios", "V", "EMP", "", ""},
    {"rights of the branch entered", "SUR", "Usuarios", "L", "SUR", "", "listar"},
};

QString filasDe(const QString& usuario, const QString& delegacion) {
    QStringList t;
    Recordset rs = MenusUsuarios::GetList(
        *sesion_conexion,
        QString("codigo_usuario = '%1' AND codigo_empresa = 'EMP' AND codigo_delegacion = '%2'")
            .arg(usuario, delegacion),
        "item_menu");
    for (; !rs.eof(); rs.moveNext())
        t << rs["item_menu"].toString() + '=' + rs["restricciones"].toString();
    return t.join(' ');
}

void poner(const QString& delegacion, const QString& filas) {
    for (const QString& f : filas.split(' ', Qt::SkipEmptyParts))
        MenusUsuarios::Insert(*sesion_conexion, "ANA", "EMP", delegacion, f.section('=', 0, 0),
                              f.section('=', 1), "PRUEBA");
}

// Chooses a code in a box, as a click on it does.
void elegir(QComboBox* caja, const QString& texto) {
    const int i = caja->findText(texto);
    QVERIFY2(i >= 0, qPrintable(texto));
    caja->setCurrentIndex(i);
    emit caja->activated(i);
}

void seleccionar(frmMenusUsuarios* f, const QString& texto) {
    const auto hallados =
        f->TreeViewMenu()->findItems(texto, Qt::MatchExactly | Qt::MatchRecursive);
    QVERIFY2(!hallados.isEmpty(), qPrintable(texto));
    f->TreeViewMenu()->setCurrentItem(hallados.first());
}

}  // namespace

class PruebaMenusUsuarios : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;

    // The editor opened from the menu of the maintenance login, with ANA of the branch chosen.
    frmMenusUsuarios* abrirEditor(const QString& delegacion) {
        sesion_usuario = "CUSTODIOS";
        sesion_empresa = sesion_delegacion = QString();
        VentanasPrograma().mostrarPrincipal();
        abrir("Permisos por opción de menú");
        auto* f = qobject_cast<frmMenusUsuarios*>(formularios::buscar("frmMenusUsuarios"));
        if (!f) return nullptr;
        elegir(f->cmbEmpresas(), "EMP");
        elegir(f->cmbDelegaciones(), delegacion);
        elegir(f->cmbUsuarios(), "ANA");
        return f;
    }

private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosSesion();
        mantenimiento_usuario = mantenimiento_contrasena = "CUSTODIOS";
    }
    void init() {
        almacen->nuevo();
        SincronizarMenus();
        crearEmpresaPrueba();
        UsuariosDelegaciones::Update(*sesion_conexion, "ANA", "EMP", "SUR", -1, "PRUEBA");
        sesion_usuario = "CUSTODIOS";
    }
    void cleanup() {
        if (principal()) delete principal();
        olvidarPrincipal();
    }
    void cleanupTestCase() { almacen.reset(); }

    // The rows of the whole tree after one save, and the letters the editor holds the same as
    // the store's. The other branch is left alone.
    void propagacion_data() {
        QTest::addColumn<int>("caso");
        for (int i = 0; i < int(std::size(kPropagaciones)); ++i)
            QTest::newRow(kPropagaciones[i].nombre) << i;
    }
    void propagacion() {
        QFETCH(int, caso);
        const Propagacion& c = kPropagaciones[caso];
        poner("EMP", c.antes);
        poner("SUR", "001001000000=IEB");
        DerechosMenu d;
        d.leerMenu(*sesion_conexion);
        d.cargar(*sesion_conexion, "ANA", "EMP", "EMP");
        d.guardar(*sesion_conexion, "ANA", "EMP", "EMP", c.item, c.texto, "CUSTODIOS");
        QCOMPARE(filasDe("ANA", "EMP"), c.despues);
        QStringList enMemoria;
        for (qsizetype i = 0; i < d.items().size(); ++i)
            if (!d.restricciones()[i].isEmpty())
                enMemoria << d.items()[i] + '=' + d.restricciones()[i];
        QCOMPARE(enMemoria.join(' '), c.despues);
        QCOMPARE(filasDe("ANA", "SUR"), QStringLiteral("001001000000=IEB"));
    }

    // A store failure at any row of a save leaves every row as it was, and is shown; the
    // editor keeps the store's letters, so the same save goes through once the store takes it.
    void todoONada_data() {
        QTest::addColumn<QString>("rechazado");
        QTest::newRow("first row") << "001000000000";
        QTest::newRow("a row in the middle") << "001002000000";
        QTest::newRow("last row") << "001003000000";
    }
    void todoONada() {
        QFETCH(QString, rechazado);
        poner("EMP", "001001000000=L");
        frmMenusUsuarios* f = abrirEditor("EMP");
        QVERIFY(f);
        seleccionar(f, "Usuarios y permisos");
        f->chk_opcion(0)->click();
        {
            FalloProvocado fallo("RestriccionesUsuariosMenus", "INSERT",
                                 "NEW.item_menu = '" + rechazado + "'");
            Buzon buzon;
            f->cmdValidar()->click();
            QCOMPARE(buzon.iconos, QList<Icono>{Icono::Critico});
            QVERIFY2(buzon.ultimo().contains("fallo provocado"), qPrintable(buzon.ultimo()));
        }
        QCOMPARE(filasDe("ANA", "EMP"), QStringLiteral("001001000000=L"));
        QCOMPARE(f->derechos().restriccionesDe("001001000000"), QStringLiteral("L"));
        QVERIFY(f->cmdValidar()->isEnabled());
        f->cmdValidar()->click();
        QCOMPARE(filasDe("ANA", "EMP"),
                 QStringLiteral("001000000000=V 001001000000=V 001002000000=V 001003000000=V"));
        QVERIFY(!f->cmdValidar()->isEnabled());
    }

    // The two refusals of cmdValidar, each leaving the focus where the missing choice is made;
    // the boxes of an item, "Visibilidad" standing alone; and a save made with the keyboard.
    void avisosYTeclado() {
        poner("EMP", "001001000000=IE 001002000000=V");
        frmMenusUsuarios f;
        activar(&f);
        QCOMPARE(f.windowTitle(), QStringLiteral("Menus/Usuarios"));
        QVERIFY(!f.cmdValidar()->isEnabled());
        Buzon buzon;
        elegir(f.cmbEmpresas(), "EMP");
        QCOMPARE(f.cmbDelegaciones()->currentText(), QStringLiteral("EMP"));
        elegir(f.cmbUsuarios(), "ANA");
        QVERIFY(f.cmdValidar()->isEnabled());
        f.cmdValidar()->click();
        QCOMPARE(buzon.textos, QStringList("No se ha especificado la opción de menú"));
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Exclamacion});
        QTRY_COMPARE(QApplication::focusWidget(), f.TreeViewMenu());

        // A box ticked shows its letter, a box switched off "#".
        const auto casillas = [&f] {
            QString t;
            for (int i = 0; i < 5; ++i)
                t +=
                    f.chk_opcion(i)->isChecked() ? "VIEBL"[i] : "-#"[!f.chk_opcion(i)->isEnabled()];
            return t;
        };
        seleccionar(&f, "Usuarios");
        QCOMPARE(casillas(), QStringLiteral("-IE--"));
        f.chk_opcion(0)->click();
        QCOMPARE(casillas(), QStringLiteral("V####"));
        f.chk_opcion(0)->click();
        QCOMPARE(casillas(), QStringLiteral("-----"));
        seleccionar(&f, "Grupos de usuarios");
        QCOMPARE(casillas(), QStringLiteral("V####"));

        // Choosing the company again leaves no user chosen.
        buzon.vaciar();
        elegir(f.cmbEmpresas(), "EMP");
        f.cmdValidar()->click();
        QCOMPARE(buzon.textos, QStringList("No se ha especificado el usuario."));
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Exclamacion});
        QTRY_COMPARE(QApplication::focusWidget(), f.cmbUsuarios());

        // From there the keyboard alone: the user, the item above, Inserción off, Listados on,
        // and the button.
        for (Qt::Key k :
             {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Up, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space,
              Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Space})
            QTest::keyClick(QApplication::focusWidget(), k);
        QCOMPARE(buzon.textos.size(), 1);
        QCOMPARE(filasDe("ANA", "EMP"), QStringLiteral("001001000000=EL 001002000000=V"));
        QVERIFY(!f.cmdValidar()->isEnabled());
        QCOMPARE(QApplication::focusWidget(), f.TreeViewMenu());
    }

    // The tree and the buttons of ANA's next login after a save in the editor; the stamp of
    // the rows written is the editing user's.
    void siguienteLogin_data() {
        QTest::addColumn<int>("caso");
        for (int i = 0; i < int(std::size(kEntradas)); ++i) QTest::newRow(kEntradas[i].nombre) << i;
    }
    void siguienteLogin() {
        QFETCH(int, caso);
        const Entrada& c = kEntradas[caso];
        frmMenusUsuarios* f = abrirEditor(c.delegacion);
        QVERIFY(f);
        seleccionar(f, QString::fromUtf8(c.item));
        for (const QChar l : QString(c.casillas))
            f->chk_opcion(int(QString("VIEBL").indexOf(l)))->click();
        f->cmdValidar()->click();
        QVERIFY(filas("RestriccionesUsuariosMenus") > 0);
        QCOMPARE(filas("RestriccionesUsuariosMenus", "ultimo_usuario <> 'CUSTODIOS'"), 0);

        responderLogin(entrarComo("ANA", "CLAVE", "EMP", c.entrada));
        CambiarSesion();
        QCOMPARE(sesion_delegacion, QString(c.entrada));
        const QStringList ausentes = QString::fromUtf8(c.ausentes).split('|', Qt::SkipEmptyParts);
        int vistos = 0;
        for (QTreeWidgetItemIterator it(menu()->TreeViewMenu()); *it; ++it) ++vistos;
        QCOMPARE(vistos, filas("Menus", "activo <> 0") - ausentes.size());
        for (const QString& a : ausentes) QVERIFY2(!nodo(a), qPrintable(a));
        if (ausentes.contains("Usuarios")) return;
        abrir("Usuarios");
        QToolBar* barra = formularios::buscar("frmUsuarios")->barra();
        QStringList apagados;
        // imprimir is left out: the maintenance forms never offer it.
        for (const QString& k :
             {claves::insertar, claves::modificar, claves::borrar, claves::listar})
            if (!Boton(barra, k)->isEnabled()) apagados << k;
        QCOMPARE(apagados.join(' '), QString(c.apagados));
    }

    // The maintenance login reads no rights, not even rows written under its own name.
    void mantenimientoSinRestricciones() {
        DerechosMenu d;
        d.leerMenu(*sesion_conexion);
        d.guardar(*sesion_conexion, "CUSTODIOS", "", "", "001000000000", "V", "PRUEBA");
        QCOMPARE(filas("RestriccionesUsuariosMenus", "codigo_usuario = 'CUSTODIOS'"), 4);
        sesion_empresa = sesion_delegacion = QString();
        VentanasPrograma().mostrarPrincipal();
        QVERIFY(nodo("Usuarios y permisos"));
        QVERIFY(nodo("Permisos por opción de menú"));
    }
};

QTEST_MAIN(PruebaMenusUsuarios)
#include "prueba_menususuarios.moc"
