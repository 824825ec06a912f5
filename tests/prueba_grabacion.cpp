// The entry without its window: the field checks and the final checks of the entry form, the
// whole-or-nothing save, the reading back of an entry as the form shows it, and numbers of a
// series shared by two workstations posting at once.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "data/arranque.h"
#include "data/entidades/apuntes.h"
#include "data/global.h"
#include "posting/documento.h"
#include "posting/grabacion.h"
#include "posting/validacion.h"

#include <QDate>
#include <QProcess>
#include <QtTest>

namespace {

const QString kAnio = QString::number(QDate::currentDate().year());

// An invoice of 1210.50 to a customer: the main line and two counterpart lines.
LineasAsiento factura() {
    LineasAsiento l;
    const QString fecha = "15/03/" + kAnio;
    l.AnadirLinea(0, fecha, "43000001", 1210.5, 0, "Factura 27", "P");
    l.AnadirLinea(0, fecha, "70000001", 0, 1000, "Ventas", "CP");
    l.AnadirLinea(0, fecha, "47700001", 0, 210.5, "IVA repercutido", "CP");
    return l;
}

CabeceraAsiento cabecera(const QString& numero = "FV00027") {
    return {"GEN", "FV", numero, "15/03/" + kAnio, "14/03/" + kAnio, "REF-1"};
}

}  // namespace

class PruebaGrabacion : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() { CREAR_ALMACEN(almacen); }
    void init() {
        almacen->nuevo();
        prepararAsientos();
    }
    void cleanupTestCase() { almacen.reset(); }

    void validarAsiento_data() {
        QTest::addColumn<QString>("fecha");
        QTest::addColumn<QString>("bloqueo");  // "inicio-final" as yyyymmdd, either may be empty
        QTest::addColumn<double>("saldo");
        QTest::addColumn<int>("mensaje");
        const QString a = kAnio, siguiente = QString::number(kAnio.toInt() + 1);
        QTest::newRow("last day of the year") << "31/12/" + a << "-" << 0.0 << 0;
        QTest::newRow("first day of the year") << "01/01/" + a << "-" << 0.0 << 0;
        QTest::newRow("day after the year") << "01/01/" + siguiente << "-" << 0.0 << 1027;
        QTest::newRow("not a date") << "31/02/" + a << "-" << 0.0 << 1027;
        QTest::newRow("inside the posting window")
            << "15/06/" + a << a + "0601-" + a + "0630" << 0.0 << 0;
        QTest::newRow("after the posting window")
            << "01/07/" + a << a + "0601-" + a + "0630" << 0.0 << 1029;
        QTest::newRow("before the posting window")
            << "31/05/" + a << a + "0601-" + a + "0630" << 0.0 << 1029;
        QTest::newRow("only the window's start set") << "31/05/" + a << a + "0601-" << 0.0 << 0;
        QTest::newRow("only the window's end set") << "01/07/" + a << "-" + a + "0630" << 0.0 << 0;
        QTest::newRow("out of the year wins over the window")
            << "01/01/" + siguiente << a + "0601-" + a + "0630" << 0.0 << 1027;
        QTest::newRow("unbalanced") << "15/06/" + a << "-" << 0.01 << 1028;
        QTest::newRow("residue 5.7e-14") << "15/06/" + a << "-" << (200.3 + 99.9) - 300.2 << 1028;
    }
    void validarAsiento() {
        QFETCH(QString, fecha);
        QFETCH(QString, bloqueo);
        QFETCH(double, saldo);
        QFETCH(int, mensaje);
        sesion_inicio_bloqueo = bloqueo.section('-', 0, 0);
        sesion_final_bloqueo = bloqueo.section('-', 1, 1);
        QCOMPARE(validacion::ValidarAsiento(fecha, saldo), mensaje);
    }

    void validarCampo_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("queda");
        QTest::addColumn<int>("mensaje");
        QTest::addColumn<QString>("descripcion");
        QTest::newRow("journal in lower case") << 0 << "gen"
                                               << "GEN" << 0 << "Diario general";
        QTest::newRow("unknown journal") << 0 << "xx"
                                         << "XX" << 1002 << "";
        QTest::newRow("document in lower case") << 1 << "fv"
                                                << "FV" << 0 << "";
        QTest::newRow("unknown document") << 1 << "ZZ"
                                          << "ZZ" << 1003 << "";
        QTest::newRow("number of the document's form") << 2 << "fv00031"
                                                       << "FV00031" << 0 << "";
        QTest::newRow("number too short") << 2 << "FV27"
                                          << "FV27" << 1026 << "";
        QTest::newRow("number of another prefix") << 2 << "AB00027"
                                                  << "AB00027" << 1026 << "";
        QTest::newRow("date") << 3 << "5/3/" + kAnio << "5/3/" + kAnio << 0 << "";
        QTest::newRow("no such day") << 4 << "30/02/" + kAnio << "30/02/" + kAnio << 1004 << "";
        QTest::newRow("account with a dot") << 5 << "43.1"
                                            << "43000001" << 0 << "Subcuenta 43000001";
        QTest::newRow("account without postings") << 5 << "430"
                                                  << "430" << 1001 << "";
        QTest::newRow("unknown account") << 5 << "439.9"
                                         << "43900009" << 1001 << "";
        QTest::newRow("negative amount") << 6 << "-12,5"
                                         << "-12,5" << 0 << "";
        QTest::newRow("amount with letters") << 6 << "12a"
                                             << "12a" << 1004 << "";
        QTest::newRow("counterpart account with a dot") << 54 << "70.1"
                                                        << "70000001" << 0 << "";
        QTest::newRow("counterpart account unknown") << 54 << "1"
                                                     << "1" << 1001 << "";
        QTest::newRow("counterpart credit not a number") << 56 << "1.2.3"
                                                         << "1.2.3" << 1004 << "";
    }
    void validarCampo() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, queda);
        QFETCH(int, mensaje);
        QFETCH(QString, descripcion);
        const DocumentoApunte fv = *CargarDocumento("FV");
        QString descrita;
        const int codigo = indice < 54
                               ? validacion::ValidarCabecera(indice, texto, "FV", fv, &descrita)
                               : validacion::ValidarContrapartida(indice, texto);
        QCOMPARE(codigo, mensaje);
        QCOMPARE(texto, queda);
        QCOMPARE(descrita, descripcion);
    }

    // "0" draws the next number of the document's series, once: an abandoned one is gone.
    void numeroNuevo() {
        const DocumentoApunte fv = *CargarDocumento("FV");
        QString primero = "0", segundo = "0";
        QCOMPARE(validacion::ValidarCabecera(2, primero, "FV", fv), 0);
        QCOMPARE(validacion::ValidarCabecera(2, segundo, "FV", fv), 0);
        QCOMPARE(primero, QStringLiteral("FV00027"));
        QCOMPARE(segundo, QStringLiteral("FV00028"));
    }

    void documento() {
        const DocumentoApunte fv = *CargarDocumento("FV");
        QCOMPARE(fv.partida + fv.numeracion + fv.cartera + fv.identificador,
                 QStringLiteral("DFACNFV"));
        QCOMPARE(fv.paginas(), (std::array<bool, 5>{false, true, false, false, true}));
        QCOMPARE(CargarDocumento("FR")->paginas(),
                 (std::array<bool, 5>{false, true, true, true, true}));
        QVERIFY(!CargarDocumento("ZZ"));
    }

    void grabarYLeer() {
        GrabarAsiento(*sesion_conexion, cabecera(), factura(), "ANA");
        QCOMPARE(lineasGuardadas(), (QStringList{"1|43000001|1210.5|0|P", "2|70000001|0|1000|CP",
                                                 "3|47700001|0|210.5|CP"}));
        Recordset rs = Apuntes::GetList(*sesion_conexion, "numero_apunte = 3", {});
        QCOMPARE(rs["fecha_apunte"].toString(), kAnio + "0315");
        QCOMPARE(rs["fecha_documento"].toString(), kAnio + "0314");
        QCOMPARE(rs["referencia"].toString() + rs["codigo_diario"].toString() +
                     rs["codigo_delegacion"].toString() + rs["ultimo_usuario"].toString(),
                 QStringLiteral("REF-1GENEMPANA"));

        const AsientoLeido a = LeerAsiento(*sesion_conexion, "FV", "FV00027");
        QVERIFY(a.encontrado);
        QCOMPARE(a.cabecera.fecha, "15/03/" + kAnio);
        QCOMPARE(a.cabecera.fechaDocumento, "14/03/" + kAnio);
        QCOMPARE(a.cuenta + a.concepto + a.cabecera.referencia,
                 QStringLiteral("43000001Factura 27REF-1"));
        QCOMPARE(a.debe, 1210.5);
        QCOMPARE(a.lineas.cuantas(), 3);
        QCOMPARE(a.lineas.saldo(), 0.0);
        QVERIFY(!LeerAsiento(*sesion_conexion, "FV", "FV00028").encontrado);
    }

    // Lines the form does not list (due items closed, year-end lines) stay out, and the
    // numbers close up.
    void leerSinLasLineasDeOtrosTipos() {
        for (const auto& [n, tipo] :
             QList<std::pair<int, QString>>{{1, "P"}, {2, "GC"}, {4, "CP"}, {5, "RC"}, {6, "RE"}})
            Apuntes::Insert(*sesion_conexion, "EMP", "EMP", "FV", "FV00040", n, "GEN",
                            "01/02/" + kAnio, "01/02/" + kAnio, "", "43000001", "", n, 0, tipo, "",
                            "ANA");
        const AsientoLeido a = LeerAsiento(*sesion_conexion, "FV", "FV00040");
        QStringList vistas;
        for (const LineaApunte& l : a.lineas.lineas())
            vistas << QString::number(l.numero) + l.tipo + QString::number(l.debe);
        QCOMPARE(vistas, (QStringList{"1P1", "2CP4", "3RE6"}));
    }

    // A failure in the middle of the save leaves nothing of the entry, whichever write fails.
    void todoONada_data() {
        QTest::addColumn<bool>("enLosDependientes");
        QTest::newRow("third line refused by the store") << false;
        QTest::newRow("register rows refused after the lines") << true;
    }
    void todoONada() {
        QFETCH(bool, enLosDependientes);
        {
            std::unique_ptr<FalloProvocado> fallo;
            if (!enLosDependientes) fallo = std::make_unique<FalloProvocado>(3);
            const auto dependientes = [&](Conexion& c) {
                if (enLosDependientes) c.execute("INSERT INTO TablaQueNoExiste (a) VALUES (1)");
            };
            QVERIFY_THROWS_EXCEPTION(
                Error, GrabarAsiento(*sesion_conexion, cabecera(), factura(), "ANA", dependientes));
            QVERIFY(!sesion_conexion->enTransaccion());
            QCOMPARE(lineasGuardadas(), QStringList());
        }
        // The same entry again, the store well, is stored whole.
        GrabarAsiento(*sesion_conexion, cabecera(), factura(), "ANA");
        QCOMPARE(lineasGuardadas().size(), 3);
    }

    // Two workstations on one series at once: every entry stored, no number twice, none lost.
    void dosPuestosALaVez() {
        const int cada = 30;
        cerrarAlmacenes();
        QProcess preparar;
        preparar.start(GRABADOR, {"preparar", almacen->carpeta()});
        QVERIFY(preparar.waitForFinished(60000));
        QVERIFY2(preparar.exitCode() == 0, preparar.readAllStandardError().constData());
        QList<QProcess*> puestos;
        for (int i = 0; i < 2; ++i) {
            auto* p = new QProcess(this);
            p->start(GRABADOR,
                     {"grabar", almacen->carpeta(), QString::number(cada), QString::number(i + 1)});
            puestos << p;
        }
        QStringList numeros;
        for (QProcess* p : puestos) {
            QVERIFY(p->waitForFinished(120000));
            QVERIFY2(p->exitCode() == 0, p->readAllStandardError().constData());
            numeros
                << QString::fromUtf8(p->readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
            delete p;
        }
        numeros.sort();
        QCOMPARE(numeros.size(), 2 * cada);
        for (int i = 0; i < numeros.size(); ++i)
            QCOMPARE(numeros[i], QStringLiteral("A%1").arg(i + 1, 6, 10, QLatin1Char('0')));
        QProcess contar;
        contar.start(GRABADOR, {"contar", almacen->carpeta()});
        QVERIFY(contar.waitForFinished(60000));
        QCOMPARE(contar.readAllStandardOutput().trimmed(),
                 QByteArray("asientos ") + QByteArray::number(2 * cada) + " parciales 0");
    }
};

QTEST_MAIN(PruebaGrabacion)
#include "prueba_grabacion.moc"
