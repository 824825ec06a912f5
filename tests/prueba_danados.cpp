// Damaged files of the program's folder: a store cut short or full of garbage, settings files
// that are not settings, report layouts missing or broken, no icons. Each says so once, in
// one box, writes nothing over what the user had, and the program goes on where it can.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/informe_prueba.h"
#include "comun/sesion_prueba.h"
#include "data/almacen/programa.h"
#include "data/arranque.h"
#include "data/entidades/apuntes.h"
#include "data/global.h"
#include "data/inifunc.h"
#include "forms/barra.h"
#include "forms/formulario.h"
#include "forms/formularios.h"
#include "reports/forminforme.h"
#include "reports/formularios_informes.h"
#include "session/frmmain.h"
#include "session/frmmenu.h"
#include "session/principal.h"
#include "session/sesion.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>

namespace {

QByteArray leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void grabar(const QString& ruta, const QByteArray& bytes) {
    QFile f(ruta);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

// The same bytes on every run, so that a failure can be looked at again.
QByteArray basura(qsizetype n, quint32 semilla = 7) {
    QRandomGenerator g(semilla);
    QByteArray b(n, Qt::Uninitialized);
    for (char& c : b) c = char(g.bounded(256));
    return b;
}

// The start-up with stand-in windows: what it said, and whether it went as far as the login.
struct Arranque {
    int resultado = 0;
    QStringList mensajes;
    int logins = 0;
};

class SinVentanas : public VentanasSesion {
public:
    int* logins;
    explicit SinVentanas(int* n) : logins(n) {}
    bool login() override { return ++*logins, false; }
    void mostrarPrincipal() override {}
};

Arranque arrancar() {
    Arranque a;
    Buzon buzon;
    SinVentanas ventanas(&a.logins);
    a.resultado = Main(ventanas);
    for (qsizetype i = 0; i < buzon.textos.size(); ++i)
        a.mensajes << buzon.textos[i] + (buzon.iconos[i] == Icono::Critico ? " [crítico]" : "");
    return a;
}

const QString kConexion = QStringLiteral("Error al abrir la conexión.");
const QString kSinLista = QStringLiteral("No existe una lista asociada.");

// Qt's own warnings while it lives, but for the offscreen platform's about what it cannot do.
struct Avisos {
    Avisos() {
        previo =
            qInstallMessageHandler([](QtMsgType t, const QMessageLogContext&, const QString& s) {
                if (t != QtDebugMsg && !s.startsWith("This plugin does not support")) textos() << s;
            });
        textos().clear();
    }
    ~Avisos() { qInstallMessageHandler(previo); }
    static QStringList& textos() {
        static QStringList t;
        return t;
    }
    QtMessageHandler previo;
};

// The account statement's form, opened as the menu does.
FormularioInforme* abrirInforme() {
    auto* f = qobject_cast<FormularioInforme*>(formularios::abrir("frmExtractos"));
    if (f) activar(f->ventana());
    return f;
}

// Two entries of this year on accounts the new company's chart has, in the session of EMP.
void crearLibro() {
    sesionEmp();
    const QString anio = QString::number(sesion_ejercicio);
    sesion_fecha_inicial = anio + "0101";
    sesion_fecha_final = anio + "1231";
    const QString fecha = "10/01/" + anio;
    for (const auto& [numero, cuenta, debe, haber] :
         {std::tuple{1, "43000000", 121.0, 0.0}, std::tuple{2, "70000000", 0.0, 121.0}})
        Apuntes::Insert(*sesion_conexion, "EMP", "EMP", "AS", "0000001", numero, "GEN", fecha,
                        fecha, "", cuenta, "Venta", debe, haber, "P", "", "PRUEBA");
}

enum class Corte { Mitad, Cien, Basura, Vacio };

}  // namespace

Q_DECLARE_METATYPE(Corte)

class PruebaDanados : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
    QByteArray extracto;  // the statement's layout as delivered
    QString ruta(const QString& relativa) const { return almacen->carpeta() + u'/' + relativa; }

private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosSesion();
        registrarFormulariosInformes();
        extracto = leer(ruta("Reports/Extracto.rpt"));
    }
    void init() {
        almacen->nuevo();
        SincronizarMenus();
        crearEmpresaPrueba();
    }
    void cleanup() {
        for (Formulario* f : formularios::abiertos()) delete f->ventana();
        if (principal()) delete principal();
        olvidarPrincipal();
        almacen->escribir("Saldeva.udl", almacen->descripcionPrincipal());
        almacen->escribir("Temporal.udl", "Provider=SQLite;Data Source=Dades/Temporales.db");
        for (const char* archivo : {"Saldeva.ini", "Listas.ini"}) QFile::remove(ruta(archivo));
        QDir(ruta("icons16")).removeRecursively();
        grabar(ruta("Reports/Extracto.rpt"), extracto);
    }
    void cleanupTestCase() { almacen.reset(); }

    // A store file cut short or overwritten: SQLite would take an empty file for a new store
    // and write the schema into it; the start-up must not open a damaged one at all, but name
    // it and end, leaving every byte of it for whoever can recover it.
    void almacenDanado_data() {
        QTest::addColumn<QString>("udl");
        QTest::addColumn<Corte>("corte");
        QTest::newRow("store cut to half its size") << "Saldeva.udl" << Corte::Mitad;
        QTest::newRow("store cut to 100 bytes") << "Saldeva.udl" << Corte::Cien;
        QTest::newRow("store of random bytes") << "Saldeva.udl" << Corte::Basura;
        QTest::newRow("store file empty") << "Saldeva.udl" << Corte::Vacio;
        QTest::newRow("temporary store cut to half") << "Temporal.udl" << Corte::Mitad;
        QTest::newRow("temporary store of random bytes") << "Temporal.udl" << Corte::Basura;
    }
    void almacenDanado() {
        QFETCH(QString, udl);
        QFETCH(Corte, corte);
        almacen->cerrar();
        // A sound SQLite store of the main schema, closed: its header tells its true size.
        const QString archivo = ruta("Dades/Danado.db");
        QFile::remove(archivo);
        Conexion(QStringLiteral("Provider=SQLite;Data Source=") + archivo)
            .asegurarEsquema(esquema::Almacen::Principal);
        const QByteArray sano = leer(archivo);
        QVERIFY(sano.size() > 8192);
        QVERIFY(!QFile::exists(archivo + "-wal"));
        QByteArray danado;
        QString defecto;
        const QString total = QString::number(sano.size());
        switch (corte) {
            case Corte::Mitad:
                danado = sano.left(sano.size() / 2);
                defecto = "está incompleto: tiene " + QString::number(danado.size()) +
                          " bytes de los " + total + " que debe tener";
                break;
            case Corte::Cien:
                danado = sano.left(100);
                defecto = "está incompleto: tiene 100 bytes de los " + total + " que debe tener";
                break;
            case Corte::Basura:
                danado = basura(sano.size());
                defecto = "no es un almacén de datos";
                break;
            case Corte::Vacio:
                defecto = "está vacío";
                break;
        }
        grabar(archivo, danado);
        almacen->escribir(udl, "Provider=SQLite;Data Source=Dades/Danado.db");

        const Arranque a = arrancar();
        QCOMPARE(a.mensajes, QStringList(kConexion + "\n\nEl archivo «" + archivo + "» " + defecto +
                                         ". No se ha modificado. [crítico]"));
        QCOMPARE(a.resultado, 1);
        QCOMPARE(a.logins, 0);
        QVERIFY(!sesion_conexion && !sesion_temporal);
        QCOMPARE(leer(archivo), danado);
        for (const char* lateral : {"-wal", "-shm", "-journal"})
            QVERIFY2(!QFile::exists(archivo + lateral), lateral);
    }

    // A power cut while the store copies its log into the file leaves a file whose header
    // already counts pages that are still only in the log: SQLite takes them from there, and
    // the start-up must not report such a file as cut short.
    void almacenCortadoConSuRegistro() {
        almacen->cerrar();
        const QString vivo = ruta("Dades/Vivo.db"), copia = ruta("Dades/Copia.db");
        for (const QString& f : {vivo, copia, vivo + "-wal", copia + "-wal"}) QFile::remove(f);
        {
            Conexion c(QStringLiteral("Provider=SQLite;Data Source=") + vivo);
            c.execute("PRAGMA wal_autocheckpoint = 0");
            c.asegurarEsquema(esquema::Almacen::Principal);
            c.execute("PRAGMA wal_checkpoint");
            const qint64 antes = QFileInfo(vivo).size();
            for (int i = 0; i < 400; ++i)
                c.insertar("Menus", {"item_menu", "descripcion", "activo"},
                           {QString::number(i), QString(200, u'x'), 1});
            // Copied into the file, still whole in the log: the file cut where it ended
            // before is the file a cut in the middle of that copy leaves.
            c.execute("PRAGMA wal_checkpoint");
            QVERIFY(QFileInfo(vivo).size() > antes);
            grabar(copia, leer(vivo).left(antes));
            QVERIFY(QFile::copy(vivo + "-wal", copia + "-wal"));
        }
        almacen->escribir("Saldeva.udl", "Provider=SQLite;Data Source=Dades/Copia.db");
        const Arranque a = arrancar();
        QCOMPARE(a.mensajes, QStringList());
        QCOMPARE(a.logins, 1);
        QCOMPARE(Conexion("Provider=SQLite;Data Source=" + copia)
                     .open("SELECT COUNT(*) FROM Menus")
                     .value(0)
                     .toInt(),
                 400);
    }

    // Settings files that are not settings: the forms go on with their defaults. Saldeva.ini
    // only places windows, so it says nothing, and a form's geometry is written back on
    // closing, as always, after what the file held; a lookup without a usable list in
    // Listas.ini says so once, naming the file when it is not text, and writes nothing.
    void ajustesDanados_data() {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QByteArray>("contenido");
        QTest::addColumn<QByteArray>("conservado");  // what the file still begins with
        QTest::addColumn<QString>("mensaje");        // of F10 on an account (Listas.ini)
        const QByteArray enorme = QByteArray(4 << 20, 'x') + "\r\n";
        const QByteArray ceros(4096, '\0');
        QTest::newRow("Saldeva.ini of random bytes")
            << "Saldeva.ini" << basura(4096) << basura(4096) << QString();
        QTest::newRow("Saldeva.ini of zeros") << "Saldeva.ini" << ceros << ceros << QString();
        QTest::newRow("Saldeva.ini with a line of 4 MiB")
            << "Saldeva.ini" << enorme << enorme << QString();
        const QByteArray sinCierre = "[frmExtractos\r\nLeft=9000\r\nWidth=30\r\n";
        QTest::newRow("Saldeva.ini section without its bracket")
            << "Saldeva.ini" << sinCierre << sinCierre << QString();
        QTest::newRow("Saldeva.ini values out of all measure")
            << "Saldeva.ini"
            << QByteArray(
                   "; ventanas\r\n[frmExtractos]\r\nLeft=-9e99\r\nTop=zz\r\n"
                   "Width=99999999999\r\nHeight=1e300\r\n")
            << QByteArray("; ventanas\r\n[frmExtractos]\r\n") << QString();

        const QString danado = "\n\nEl archivo «" + ruta("Listas.ini") +
                               "» está dañado: contiene datos que no son texto.";
        QTest::newRow("Listas.ini of random bytes")
            << "Listas.ini" << basura(4096) << basura(4096) << kSinLista + danado;
        QTest::newRow("Listas.ini of zeros")
            << "Listas.ini" << ceros << ceros << kSinLista + danado;
        const QByteArray listas = leer(SALDEVA_RECURSOS_DIR "/programa/Listas.ini");
        QTest::newRow("Listas.ini with a line of 4 MiB before its lists")
            << "Listas.ini" << enorme + listas << enorme + listas.left(listas.indexOf("[CUENTAS]"))
            << QString();
        const QByteArray seccion =
            "[CUENTAS\r\nForm=1200;900;7200;5400;\r\nHeader=Cuenta|\r\n"
            "Fields=cuenta;1500;|\r\n";
        QTest::newRow("Listas.ini section without its bracket")
            << "Listas.ini" << seccion << seccion << kSinLista;
        const QByteArray cortada = "[CUENTAS]\r\nForm=1200;900;7200;5400;\r\nHeader=Cuenta|Descrip";
        QTest::newRow("Listas.ini list cut short")
            << "Listas.ini" << cortada << cortada
            << kSinLista + "\n\nLa sección [CUENTAS] de «" + ruta("Listas.ini") +
                   "» no indica las columnas de la lista (Header y Fields).";
    }
    void ajustesDanados() {
        QFETCH(QString, archivo);
        QFETCH(QByteArray, contenido);
        QFETCH(QByteArray, conservado);
        QFETCH(QString, mensaje);
        sesionEmp();
        // The window's place with no Saldeva.ini at all.
        const QRect porDefecto = [] {
            FormularioInforme* f = abrirInforme();
            const QRect g = f->ventana()->geometry();
            delete f->ventana();
            return g;
        }();
        QFile::remove(ruta("Saldeva.ini"));
        grabar(ruta(archivo), contenido);

        Buzon buzon;
        FormularioInforme* f = abrirInforme();
        QVERIFY(f);
        QCOMPARE(f->ventana()->geometry(), porDefecto);
        if (archivo == "Listas.ini") {
            f->txt(1)->setFocus();
            QTest::keyClick(f->txt(1), Qt::Key_F10);
            QCOMPARE(buzon.textos, mensaje.isEmpty() ? QStringList() : QStringList(mensaje));
            Formulario* lupa = formularios::buscar("frmLupa");
            QCOMPARE(bool(lupa), mensaje.isEmpty());
            if (lupa) {
                QCOMPARE(lupa->findChild<QTreeWidget*>()->topLevelItemCount(), filas("Cuentas"));
                lupa->ventana()->close();  // it writes its place and widths, as always
                activar(f->ventana());
            } else {
                QCOMPARE(leer(ruta(archivo)), contenido);
            }
        }
        // The form goes on: an account is expanded on leaving its field, silently.
        buzon.vaciar();
        teclear(f->txt(1), "43.1");
        QCOMPARE(f->txt(1)->text(), QStringLiteral("43000001"));
        QCOMPARE(buzon.textos, QStringList());
        const int ancho = f->ventana()->width();
        f->ventana()->close();
        QCOMPARE(buzon.textos, QStringList());
        QVERIFY(leer(ruta(archivo)).startsWith(conservado));
        QCOMPARE(GetIni(ruta("Saldeva.ini"), "frmExtractos", "Width"), QString::number(ancho * 15));
    }

    // A layout missing or broken: printing that report says so once, naming the file, and
    // opens nothing; the same form prints once the file is back, and other reports print.
    void informeDanado_data() {
        QTest::addColumn<QByteArray>("contenido");  // empty: the file is gone
        QTest::addColumn<QString>("motivo");        // the whole text, or how it begins
        const QString rpt = ruta("Reports/Extracto.rpt");
        const QByteArray sano = leer(rpt);
        QTest::newRow("layout missing")
            << QByteArray() << "No se puede abrir el informe \"" + rpt + "\".\n";
        QTest::newRow("layout of random bytes")
            << basura(sano.size())
            << rpt + ": no es un diseño de informe, contiene datos que no son texto.\n";
        // The message points at the line where the file now ends.
        const QByteArray mitad = sano.left(sano.size() / 2);
        QTest::newRow("layout cut to half its size")
            << mitad << rpt + ", línea " + QString::number(mitad.count('\n') + 1) + ": ";
        QTest::newRow("layout in another format, cut short")
            << QByteArray("<?xml version=\"1.0\"?>\n<informe titulo=\"Extracto\">\n  <banda ")
            << rpt + ", línea 1: no se entiende \"<?xml\".\n";
        QTest::newRow("expression nested beyond reason")
            << "banda detalle 4\ncampo 0 0 10 4 " + QByteArray(200000, '(') + "debe\n"
            << rpt + ", línea 2: Expresión \"" + QString(40, u'(') + "…\": demasiado anidada.\n";
    }
    void informeDanado() {
        QFETCH(QByteArray, contenido);
        QFETCH(QString, motivo);
        crearLibro();
        const QString rpt = ruta("Reports/Extracto.rpt");
        const QByteArray sano = leer(rpt);
        if (contenido.isEmpty())
            QFile::remove(rpt);
        else
            grabar(rpt, contenido);

        Peticion peticion;
        Buzon buzon;
        FormularioInforme* f = abrirInforme();
        Boton(f->barra(), claves::imprimir)->trigger();
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.textos[0].startsWith("-2147220502 - Error en Execute. " + motivo),
                 qPrintable(buzon.textos[0]));
        QVERIFY(buzon.textos[0].endsWith(".\n"));
        QCOMPARE(peticion.trabajos.size(), 0);
        QCOMPARE(leer(rpt), contenido);

        // The journal book prints meanwhile; the statement does once its layout is back.
        auto* diario = qobject_cast<FormularioInforme*>(formularios::abrir("frmLibroDiario"));
        activar(diario->ventana());
        Boton(diario->barra(), claves::imprimir)->trigger();
        grabar(rpt, sano);
        activar(f->ventana());
        Boton(f->barra(), claves::imprimir)->trigger();
        QCOMPARE(buzon.textos.size(), 1);
        QCOMPARE(peticion.trabajos.size(), 2);
        QVERIFY(peticion.trabajos[0].archivo.endsWith("/Reports/LibroDiario.rpt"));
        QCOMPARE(peticion.trabajos[1].archivo, rpt);
    }

    // Without its icons, or with icons that are no images, the program starts and works with
    // the buttons' names: no message and no warning.
    void sinIconos_data() {
        QTest::addColumn<bool>("basuraEnIconos");
        QTest::newRow("icons16 missing") << false;
        QTest::newRow("icons of random bytes") << true;
    }
    void sinIconos() {
        QFETCH(bool, basuraEnIconos);
        if (basuraEnIconos) {
            QDir().mkpath(ruta("icons16"));
            for (const QString& clave : CargarIconos().keys())
                grabar(ruta("icons16/" + clave + ".ico"), basura(1078, qHash(clave)));
        }
        almacen->cerrar();
        Avisos avisos;
        Buzon buzon;
        responderLogin(entrarComoMantenimiento);
        VentanasPrograma ventanas;
        QCOMPARE(Main(ventanas), 0);
        QVERIFY(principal() && principal()->isVisible() && menu());
        abrir("Usuarios");
        Formulario* f = formularios::buscar("frmUsuarios");
        QVERIFY(f);
        const QList<QAction*> botones = f->findChild<QToolBar*>()->actions();
        QVERIFY(botones.size() > 8);
        for (const QAction* b : botones)
            QVERIFY(b->isSeparator() || (b->icon().pixmap(16).isNull() && !b->text().isEmpty()));
        activar(f->ventana());
        pulsar(kListar);
        QVERIFY(f->findChild<QTreeWidget*>()->topLevelItemCount() > 0);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(Avisos::textos(), QStringList());
    }
};

QTEST_MAIN(PruebaDanados)
#include "prueba_danados.moc"
