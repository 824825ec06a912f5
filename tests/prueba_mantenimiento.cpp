// The maintenance engine driven through real forms: frmUsuarios as a user works it from the
// keyboard, a company form on the same engine, field checks, and the lookups of Listas.ini.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "data/almacen/programa.h"
#include "data/almacen/sql.h"
#include "data/contrasenas.h"
#include "data/entidades/diarios.h"
#include "data/global.h"
#include "data/inifunc.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/lupa.h"
#include "forms/mantenimiento.h"
#include "session/frmusuarios.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QToolBar>
#include <QtTest>

namespace {

using namespace mantenimiento;

QStringList codigos(const ListaClaves* lista) {
    QStringList c;
    for (int i = 0; i < lista->filas(); ++i) c << lista->texto(i, 0);
    return c;
}

QString contrasena(const QString& usuario) {
    Recordset r = sesion_conexion->open("SELECT contraseña FROM Usuarios WHERE codigo_usuario = " +
                                        sqlTexto(usuario));
    return r.eof() ? QStringLiteral("(no existe)") : r.value(0).toString();
}

// Whether the user's stored password is that text, through its hash.
bool claveEs(const QString& usuario, const QString& texto) {
    return contrasenas::comprobar(contrasena(usuario), texto);
}

// A company table on the engine: journals, with a check on the description and the code's
// lookup.
Declaracion diarios() {
    Declaracion d;
    d.nombre = d.titulo = d.sufijo = d.tabla = QStringLiteral("Diarios");
    d.nombre.prepend("frm");
    d.alcance = Alcance::Empresa;
    d.orden = "codigo_diario";
    d.campos = {
        {.etiqueta = "&Diario:",
         .columna = "codigo_diario",
         .obligatorio = true,
         .lupa = "DIARIOS.codigo_diario"},
        {.etiqueta = "D&escripción:", .columna = "descripcion", .comprobar = [](const QString& t) {
             return t.startsWith(u' ') ? QStringLiteral("Sin blancos delante.") : QString();
         }}};
    d.columnas = {{"Diario", "codigo_diario"}, {"Descripción", "descripcion"}};
    d.pregunta = [](const QString& c) { return "¿Borrar " + c + "?"; };
    d.insertar = [](const QStringList& v) {
        Diarios::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        Diarios::Update(*sesion_conexion, sesion_empresa, v[0], v[1], sesion_usuario);
    };
    d.borrar = [](const QString& c) { Diarios::Delete(*sesion_conexion, sesion_empresa, c); };
    d.listar = [](const QString& c, const QString& o) {
        return Diarios::GetList(*sesion_conexion, c, o);
    };
    return d;
}

}  // namespace

class PruebaMantenimiento : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
    QString listas;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        formularios::registrar("frmDiarios", [] { return new FormularioMantenimiento(diarios()); });
    }
    void init() {
        almacen->nuevo();
        crearEmpresaPrueba();
        listas = programa::ruta("Listas.ini");
        QFile::remove(listas);
        QVERIFY(QFile::copy(SALDEVA_RECURSOS_DIR "/programa/Listas.ini", listas));
        QFile::setPermissions(listas, QFile::ReadOwner | QFile::WriteOwner);
        sesion_usuario = "CUSTODIOS";
        sesion_empresa = sesion_delegacion = QString();
        sesion_ejercicio = 0;
    }
    void cleanup() {
        for (Formulario* f : formularios::abiertos()) delete f->ventana();
    }
    void cleanupTestCase() { almacen.reset(); }

    void usuariosDeParteAParte() {
        Buzon buzon;
        auto* f = nuevoFrmUsuarios();
        formularios::mostrar(f);
        activar(f);
        QCOMPARE(f->windowTitle(), QStringLiteral("Usuarios"));
        QCOMPARE(f->txt(1)->accessibleName(), QStringLiteral("Contraseña"));
        QCOMPARE(f->lista()->filas(), 0);  // nothing is read until asked
        pulsar(kListar);
        QCOMPARE(codigos(f->lista()), QStringList{"ANA"});

        // Insert; the fields empty and the focus back on the code.
        teclear(f->txt(0), "BEA");
        escribir(f->txt(1), "SECRETA");
        QCOMPARE(f->txt(1)->echoMode(), QLineEdit::Password);
        pulsar(kInsertar);
        QVERIFY(claveEs("BEA", "SECRETA"));
        QVERIFY(!contrasena("BEA").contains("SECRETA"));
        QCOMPARE(codigos(f->lista()), QStringList({"ANA", "BEA"}));
        QCOMPARE(f->lista()->columnCount(), 1);  // no password column
        QCOMPARE(f->txt(0)->text(), QString());
        QCOMPARE(QApplication::focusWidget(), f->txt(0));
        QCOMPARE(filas("UsuariosDelegaciones", "codigo_usuario = 'BEA' AND activo = 0"), 2);

        // Leaving the code loads its row; inserting it again is refused and the fields stay.
        teclear(f->txt(0), "BEA");
        QCOMPARE(f->txt(1)->text(), QString());  // the stored password is never shown
        escribir(f->txt(1), "OTRA");
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList("Error no definido."));
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Critico});
        QCOMPARE(f->txt(0)->text(), QStringLiteral("BEA"));

        // Modify, and modify of a code that is not there.
        escribir(f->txt(1), "NUEVA");
        pulsar(kModificar);
        QVERIFY(claveEs("BEA", "NUEVA"));
        // Modified with the password left blank, the user keeps it.
        teclear(f->txt(0), "BEA");
        pulsar(kModificar);
        QVERIFY(claveEs("BEA", "NUEVA"));
        buzon.vaciar();
        teclear(f->txt(0), "NADIE");
        QCOMPARE(f->txt(1)->text(), QString());  // an unknown code empties the password
        escribir(f->txt(1), "X");
        pulsar(kModificar);
        QCOMPARE(buzon.textos, QStringList("Error no definido."));
        QCOMPARE(contrasena("NADIE"), QStringLiteral("(no existe)"));

        // Filter by equality on the fields typed; never by the password, kept only as a hash.
        pulsar(kCancelar);
        escribir(f->txt(0), "ANA");
        escribir(f->txt(1), "NUEVA");
        pulsar(kFiltrar);
        QCOMPARE(codigos(f->lista()), QStringList{"ANA"});
        pulsar(kCancelar);
        pulsar(kFiltrar);
        QCOMPARE(codigos(f->lista()), QStringList({"ANA", "BEA"}));

        // A record outside the filtered list is still modified; then the list says it lacks
        // the row, and the fields stay.
        escribir(f->txt(0), "ANA");
        pulsar(kFiltrar);
        buzon.vaciar();
        teclear(f->txt(0), "BEA");
        escribir(f->txt(1), "OTRA");
        pulsar(kModificar);
        QVERIFY(claveEs("BEA", "OTRA"));
        QCOMPARE(buzon.textos, QStringList("35601 - Elemento no encontrado"));
        QCOMPARE(f->txt(0)->text(), QStringLiteral("BEA"));
        escribir(f->txt(1), "NUEVA");
        pulsar(kModificar);
        pulsar(kListar);

        // Delete asks; No keeps the user, Yes removes it from the store and the list.
        buzon.vaciar();
        teclear(f->txt(0), "BEA");
        pulsar(kBorrar);
        QCOMPARE(buzon.textos, QStringList("¿Desea eliminar el usuario BEA?"));
        QVERIFY(claveEs("BEA", "NUEVA"));
        QCOMPARE(f->txt(0)->text(), QString());
        buzon.respuestas << Respuesta::Si;
        teclear(f->txt(0), "BEA");
        pulsar(kBorrar);
        QCOMPARE(contrasena("BEA"), QStringLiteral("(no existe)"));
        QCOMPARE(filas("UsuariosDelegaciones", "codigo_usuario = 'BEA'"), 0);
        QCOMPARE(codigos(f->lista()), QStringList{"ANA"});

        // Enter on a list row loads it.
        f->lista()->setFocus();
        f->lista()->setCurrentItem(f->lista()->topLevelItem(0));
        escribir(f->txt(1), "RESTO");
        f->lista()->setFocus();
        QTest::keyClick(f->lista(), Qt::Key_Return);
        QCOMPARE(f->txt(0)->text(), QStringLiteral("ANA"));
        QCOMPARE(f->txt(1)->text(), QString());
    }

    void obligatorios_data() {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<QString>("clave");
        QTest::addColumn<int>("vacio");
        QTest::newRow("code empty") << ""
                                    << "X" << 0;
        QTest::newRow("password empty") << "EVA"
                                        << "" << 1;
    }
    void obligatorios() {
        QFETCH(QString, codigo);
        QFETCH(QString, clave);
        QFETCH(int, vacio);
        Buzon buzon;
        auto* f = nuevoFrmUsuarios();
        formularios::mostrar(f);
        activar(f);
        escribir(f->txt(0), codigo);
        escribir(f->txt(1), clave);
        // A blank password is required to insert; on modify it keeps the stored one.
        const QList<QKeySequence> teclas =
            clave.isEmpty() ? QList{kInsertar} : QList{kInsertar, kModificar};
        for (const QKeySequence& tecla : teclas) {
            buzon.vaciar();
            pulsar(tecla);
            QCOMPARE(buzon.textos, QStringList(MensajeError(1000)));
            QCOMPARE(QApplication::focusWidget(), f->txt(vacio));
        }
        QCOMPARE(filas("Usuarios"), 1);
    }

    void apostrofeEsUnDato() {
        auto* f = nuevoFrmUsuarios();
        formularios::mostrar(f);
        activar(f);
        teclear(f->txt(0), "O'BRIEN");
        escribir(f->txt(1), "L'HOSPITALET");
        pulsar(kInsertar);
        QVERIFY(claveEs("O'BRIEN", "L'HOSPITALET"));
        escribir(f->txt(0), "O'BRIEN");
        pulsar(kFiltrar);
        QCOMPARE(codigos(f->lista()), QStringList{"O'BRIEN"});
    }

    // A company form: refused without a company; with one, it lists only the company's rows;
    // a failed field check keeps the focus in the field and writes nothing.
    void formularioDeEmpresa() {
        Buzon buzon;
        QVERIFY(!formularios::abrir("frmDiarios"));
        QCOMPARE(buzon.textos, QStringList("No se ha especificado la empresa."));
        QVERIFY(!formularios::buscar("frmDiarios"));

        Diarios::Insert(*sesion_conexion, "OTRA", "D1", "De otra empresa", "PRUEBA");
        sesion_empresa = "EMP";
        auto* f = static_cast<FormularioMantenimiento*>(formularios::abrir("FRMDIARIOS"));
        QVERIFY(f);
        activar(f);
        buzon.vaciar();
        teclear(f->txt(0), "D1");
        escribir(f->txt(1), " Ventas");
        salir(f->txt(1));
        QTRY_COMPARE(QApplication::focusWidget(), f->txt(1));
        QCOMPARE(buzon.textos, QStringList("Sin blancos delante."));
        // Nor is it written when the key is pressed without leaving the field.
        buzon.vaciar();
        escribir(f->txt(1), " Compras");
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList("Sin blancos delante."));
        QCOMPARE(filas("Diarios", "codigo_empresa = 'EMP'"), 0);
        escribir(f->txt(1), "Ventas");
        salir(f->txt(1));
        pulsar(kInsertar);
        QCOMPARE(filas("Diarios", "codigo_empresa = 'EMP' AND codigo_diario = 'D1'"), 1);
        pulsar(kListar);
        QCOMPARE(codigos(f->lista()), QStringList{"D1"});
        QCOMPARE(f->lista()->texto(0, 1), QStringLiteral("Ventas"));
    }

    // F10 in a tagged field opens its list narrowed to what the field holds; Enter writes the
    // code back and closes the list, which leaves its place and widths in Listas.ini.
    void lupaRellenaElCampo() {
        SetIni(listas, "USUARIOS", "Form", "1500;1200;6000;4500;");
        SetIni(listas, "USUARIOS", "Header", "Código|Contraseña|");
        SetIni(listas, "USUARIOS", "Fields", "codigo_usuario;1800;|contraseña;;|");
        SetIni(listas, "USUARIOS", "Order", "codigo_usuario");
        crearUsuario("ANTONIO", "X");
        crearUsuario("BEA", "Y");
        auto* f = nuevoFrmUsuarios();
        formularios::mostrar(f);
        f->txt(0)->setProperty("Tag", "USUARIOS.codigo_usuario");
        activar(f);
        escribir(f->txt(0), "AN");
        QVERIFY(Boton(f->barra(), claves::lupa)->isEnabled());
        QTest::keyClick(f->txt(0), Qt::Key_F10);
        auto* lupa = qobject_cast<frmLupa*>(formularios::buscar("frmLupa"));
        QVERIFY(lupa);
        QCOMPARE(lupa->windowTitle(), QStringLiteral("Consulta"));
        QCOMPARE(lupa->consulta(),
                 QStringLiteral("SELECT codigo_usuario, contraseña FROM USUARIOS WHERE "
                                "LEFT(USUARIOS.codigo_usuario, 2) = 'AN' ORDER BY codigo_usuario"));
        QCOMPARE(codigos(lupa->lista()), QStringList({"ANA", "ANTONIO"}));
        QCOMPARE(lupa->lista()->columnWidth(0), 120);
        lupa->lista()->setColumnWidth(0, 90);
        lupa->lista()->setCurrentItem(lupa->lista()->topLevelItem(1));
        QTest::keyClick(lupa->lista(), Qt::Key_Return);
        QTRY_VERIFY(!formularios::buscar("frmLupa"));
        QCOMPARE(f->txt(0)->text(), QStringLiteral("ANTONIO"));
        QVERIFY(
            GetIni(listas, "USUARIOS", "Fields").startsWith("codigo_usuario;1350;|contraseña;"));
        QVERIFY(GetIni(listas, "USUARIOS", "Form").endsWith(";"));
    }

    void listaSinDefinicion() {
        Buzon buzon;
        QWidget ventana;
        auto* campo = new QLineEdit(&ventana);
        campo->setProperty("Tag", "NOHAY.codigo");
        activar(&ventana);
        campo->setFocus();
        MostrarLupa(&ventana);
        QCOMPARE(buzon.textos, QStringList("No existe una lista asociada."));
        QVERIFY(!formularios::buscar("frmLupa"));
    }

    // Every list delivered in Listas.ini reads from the store as written, for the session's
    // company and year, narrowed or not.
    void listasEntregadas_data() {
        QTest::addColumn<QString>("tag");
        for (const char* tag :
             {"CUENTAS.cuenta", "DELEGACIONES.codigo_delegacion", "DIARIOS.codigo_diario",
              "DOCUMENTOS.codigo_documento", "FORMASPAGOS.codigo_pago", "IMPUESTOS.impuesto",
              "IRPF.codigo", "NUMERACIONES.numeracion", "PERSONAL.codigo"})
            QTest::newRow(tag) << tag;
    }
    void listasEntregadas() {
        QFETCH(QString, tag);
        sesion_empresa = sesion_delegacion = "EMP";
        sesion_ejercicio = QDate::currentDate().year();
        Buzon buzon;
        QWidget ventana;
        auto* campo = new QLineEdit(&ventana);
        campo->setProperty("Tag", tag);
        activar(&ventana);
        for (const QString& texto : {QString(), QStringLiteral("E")}) {
            campo->setText(texto);
            campo->setFocus();
            MostrarLupa(&ventana);
            QCOMPARE(buzon.textos, QStringList());
            auto* lupa = qobject_cast<frmLupa*>(formularios::buscar("frmLupa"));
            QVERIFY(lupa);
            QVERIFY(lupa->consulta().contains("codigo_empresa = 'EMP'"));
            QVERIFY(lupa->lista()->columnCount() >= 2);
            lupa->descargar();
            QTRY_VERIFY(!formularios::buscar("frmLupa"));
        }
        // The delegaciones list shows the company's two branches.
        if (tag.startsWith("DELEGACIONES")) {
            campo->clear();
            MostrarLupa(&ventana);
            auto* lupa = qobject_cast<frmLupa*>(formularios::buscar("frmLupa"));
            QCOMPARE(codigos(lupa->lista()), QStringList({"EMP", "SUR"}));
            lupa->descargar();
        }
    }
};

QTEST_MAIN(PruebaMantenimiento)
#include "prueba_mantenimiento.moc"
