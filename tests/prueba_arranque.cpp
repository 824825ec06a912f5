// The first steps of a run: a first start creates the main store and fills its menu; any
// failure of a store shows "Error al abrir la conexión." once and ends the run, never a crash.
#include "comun/almacen_prueba.h"
#include "data/almacen/programa.h"
#include "data/almacen/sql.h"
#include "data/contrasenas.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"
#include "forms/msgbox.h"
#include "session/principal.h"

#include <QFile>
#include <QtTest>

namespace {

class VentanasDePrueba : public VentanasSesion {
public:
    bool aceptar = true;
    int logins = 0, principales = 0;
    bool login() override {
        ++logins;
        return aceptar;
    }
    void mostrarPrincipal() override { ++principales; }
};

struct Arranque {
    int resultado = 0;
    QStringList mensajes;
    VentanasDePrueba ventanas;
};

Arranque arrancar(bool aceptarLogin = true) {
    Arranque a;
    a.ventanas.aceptar = aceptarLogin;
    auto anterior = establecerManejadorMensajes([&](const QString& texto, Icono icono) {
        a.mensajes << texto + (icono == Icono::Critico ? QStringLiteral(" [crítico]") : QString());
        return Respuesta::Aceptar;
    });
    a.resultado = Main(a.ventanas);
    establecerManejadorMensajes(anterior);
    return a;
}

const QString kError = QStringLiteral("Error al abrir la conexión. [crítico]");

}  // namespace

class PruebaArranque : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() { CREAR_ALMACEN(almacen); }
    void init() {
        almacen->nuevo();
        almacen->cerrar();
    }
    void cleanup() {
        almacen->escribir("Sistema.udl", "Provider=SQLite;Data Source=Dades/Sistema.db;Mode=Read");
        almacen->escribir("Saldeva.udl", almacen->descripcionPrincipal());
        almacen->cerrar();
    }

    void primerArranque() {
        Arranque a = arrancar();
        QCOMPARE(a.mensajes, QStringList());
        QCOMPARE(a.resultado, 0);
        QCOMPARE(a.ventanas.logins, 1);
        QCOMPARE(a.ventanas.principales, 1);
        QCOMPARE(mantenimiento_usuario, QStringLiteral("CUSTODIOS"));
        QCOMPARE(mantenimiento_contrasena, QStringLiteral("CUSTODIOS"));
        Conexion plantilla("File name=Sistema.udl");
        const int enPlantilla = plantilla.open("SELECT COUNT(*) FROM sysMenus").value(0).toInt();
        QVERIFY(enPlantilla > 30);
        QCOMPARE(filas("Menus"), enPlantilla);
        QCOMPARE(filas("Menus", "activo = 1"), enPlantilla);
        QCOMPARE(filas("Menus", "administrador <> 0 AND formulario = 'frmEmpresas'"), 1);
        // Every table is there, empty.
        for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Principal))
            if (t->nombre != "Menus")
                QCOMPARE(filas(QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size()))),
                         0);
        for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Temporal))
            sesion_temporal->open("SELECT * FROM " +
                                  QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size())));
    }

    void carpetaVaciaCreaElAlmacen() {
        if (AlmacenPrueba::postgres()) QSKIP("a new store file is SQLite's case");
        QFile::remove(almacen->carpeta() + "/Dades/Saldeva.db");
        almacen->escribir("Saldeva.udl", "Provider=SQLite;Data Source=Dades/Nuevo.db");
        Arranque a = arrancar();
        QCOMPARE(a.mensajes, QStringList());
        QVERIFY(QFile::exists(almacen->carpeta() + "/Dades/Nuevo.db"));
        QVERIFY(filas("Menus") > 30);
        QFile::remove(almacen->carpeta() + "/Dades/Nuevo.db");
    }

    void menuLlenoNoSeCopia() {
        arrancar();
        sesion_conexion->execute("DELETE FROM Menus WHERE item_menu <> '001000000000'");
        almacen->cerrar();
        Arranque a = arrancar();
        QCOMPARE(a.mensajes, QStringList());
        QCOMPARE(filas("Menus"), 1);
    }

    // A store written by an older version keeps passwords as text: its first start here leaves
    // only hashes, its users log in with the same passwords, and later starts change nothing.
    void contrasenasAntiguasSeCifran() {
        arrancar();
        const QStringList claves{"CLAVE", "L'HOSPITALET", "CLAVE"};
        for (int i = 0; i < claves.size(); ++i) {
            const QString u = QStringLiteral("U%1").arg(i);
            sesion_conexion->execute("INSERT INTO Usuarios (codigo_usuario, contraseña) VALUES ('" +
                                     u + "', " + sqlTexto(claves[i]) + ")");
            sesion_conexion->execute(
                "INSERT INTO UsuariosDelegaciones (codigo_usuario, codigo_empresa, "
                "codigo_delegacion, activo) VALUES ('" +
                u + "', 'EMP', 'EMP', 1)");
        }
        almacen->cerrar();
        QCOMPARE(arrancar().mensajes, QStringList());
        QStringList guardadas;
        for (Recordset rs = sesion_conexion->open("SELECT contraseña FROM Usuarios ORDER BY 1");
             !rs.eof(); rs.moveNext())
            guardadas << rs.value(0).toString();
        QCOMPARE(guardadas.size(), 3);
        for (const QString& g : guardadas) QVERIFY2(contrasenas::esCifrada(g), qPrintable(g));
        QVERIFY(guardadas[0] != guardadas[2]);  // salted: the same password, two hashes
        for (int i = 0; i < claves.size(); ++i) {
            const QString u = QStringLiteral("U%1").arg(i);
            QVERIFY(
                UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "EMP", "EMP", u, claves[i]));
            QVERIFY(!UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "EMP", "EMP", u,
                                                          "' OR 'A'='A"));
        }
        almacen->cerrar();
        arrancar();
        QCOMPARE(filas("Usuarios", "contraseña = " + sqlTexto(guardadas[0])), 1);
    }

    void loginCanceladoTerminaSinMensaje() {
        Arranque a = arrancar(false);
        QCOMPARE(a.mensajes, QStringList());
        QCOMPARE(a.resultado, 0);
        QCOMPARE(a.ventanas.principales, 0);
    }

    void fallosDeArranque_data() {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QString>("contenido");
        QTest::addColumn<bool>("menuVacio");
        QTest::newRow("missing Sistema.udl with an empty Menus") << "Sistema.udl"
                                                                 << "" << true;
        QTest::newRow("template file missing")
            << "Sistema.udl"
            << "Provider=SQLite;Data Source=Dades/NoHay.db;Mode=Read" << true;
        QTest::newRow("garbage Saldeva.udl") << "Saldeva.udl"
                                             << "\x01\x02 no es una conexión" << false;
        QTest::newRow("unknown provider")
            << "Saldeva.udl"
            << "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=x.mdb" << false;
        QTest::newRow("store folder missing")
            << "Saldeva.udl"
            << "Provider=SQLite;Data Source=NoHay/Saldeva.db" << false;
        QTest::newRow("unreachable PostgreSQL")
            << "Saldeva.udl"
            << "Provider=PostgreSQL;Host=127.0.0.1;Port=1;Database=saldeva;User ID=x" << false;
        QTest::newRow("missing Temporal.udl") << "Temporal.udl"
                                              << "" << false;
    }
    void fallosDeArranque() {
        QFETCH(QString, archivo);
        QFETCH(QString, contenido);
        QFETCH(bool, menuVacio);
        if (!menuVacio) arrancar();  // a filled Menus: the template is not needed
        almacen->cerrar();
        const QString ruta = almacen->carpeta() + u'/' + archivo;
        const QByteArray original = [&] {
            QFile f(ruta);
            return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        }();
        if (contenido.isEmpty())
            QFile::remove(ruta);
        else
            almacen->escribir(archivo, contenido);

        Arranque a = arrancar();
        QCOMPARE(a.mensajes, QStringList({kError}));
        QVERIFY(a.resultado != 0);
        QCOMPARE(a.ventanas.logins, 0);
        QVERIFY(!sesion_conexion);

        QFile f(ruta);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(original);
    }
};

QTEST_MAIN(PruebaArranque)
#include "prueba_arranque.moc"
