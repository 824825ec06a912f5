// A store that stops answering while an entry is on the screen: the SQLite file locked by
// another workstation past the wait, its disk full or read-only, the PostgreSQL server gone.
// Each F2 shows one clear message and writes nothing; the entry stays on the screen with its
// number, and once the store answers again the same F2 stores it once, without a restart.
#include "comun/almacen_prueba.h"
#include "comun/apunte_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/auxiliar.h"
#include "data/global.h"
#include "forms/formulario.h"
#include "posting/formularios_asientos.h"

#include <QApplication>
#include <QDate>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString kAnio = QString::number(QDate::currentDate().year());

// An invoice typed from the keyboard, its number drawn ("0") before anything goes wrong.
void teclearFactura(frmApunte* f) {
    teclear(f->txt(0), "gen");
    teclear(f->txt(1), "fv");
    teclear(f->txt(2), "0");
    teclear(f->txt(3), "15/03/" + kAnio);
    teclear(f->txt(4), "14/03/" + kAnio);
    teclear(f->txt(5), "43.1");
    teclear(f->txt(6), "1210");
    teclear(f->txt(7), "REF-1");
    teclear(f->txt(8), "Factura 27");
    pulsar(kSiguiente);
    for (const auto& [cuenta, haber] : {std::pair{"70.1", "1000"}, {"477.1", "210"}}) {
        teclear(f->txt(54), cuenta);
        teclear(f->txt(55), "");
        teclear(f->txt(56), haber);
        teclear(f->txt(57), "Contrapartida");
        QTest::keyClick(f->btnContrapartida(), Qt::Key_Return);
    }
}

// A disk of two megabytes of its own (tmpfs), to be filled up; only root can mount one.
class DiscoPequeno {
public:
    bool montar() {
        montado_ = dir_.isValid() && QProcess::execute("mount", {"-t", "tmpfs", "-o", "size=2m",
                                                                 "tmpfs", dir_.path()}) == 0;
        return montado_;
    }
    ~DiscoPequeno() {
        if (montado_) QProcess::execute("umount", {"-l", dir_.path()});
    }
    QString path() const { return dir_.path(); }

private:
    QTemporaryDir dir_;
    bool montado_ = false;
};

// What goes wrong, and how it is put right.
enum class Caida { Bloqueo, DiscoLleno, SoloLectura, Servidor };

// Lines of the store counted on a connection of its own, which the failure leaves alone.
int lineas(Conexion& c) {
    return c.open("SELECT COUNT(*) FROM Apuntes").value(0).toInt();
}

}  // namespace

Q_DECLARE_METATYPE(Caida)

class PruebaCaidas : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaCaidas() : PruebaFormularios(registrarFormulariosAsientos, prepararAsientos) {}

private Q_SLOTS:
    void f2TrasLaCaida_data() {
        QTest::addColumn<Caida>("caida");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("mientras");  // a second F2 while it lasts
        if (AlmacenPrueba::postgres()) {
            QTest::newRow("servidor caído")
                << Caida::Servidor << "Se ha perdido la conexión con el servidor"
                << "servidor de datos";
            return;
        }
        QTest::newRow("bloqueado por otro puesto") << Caida::Bloqueo << "ocupado por otro puesto"
                                                   << "ocupado por otro puesto";
        QTest::newRow("disco lleno") << Caida::DiscoLleno << "No queda espacio en el disco"
                                     << "No queda espacio en el disco";
        QTest::newRow("solo lectura") << Caida::SoloLectura << "es de solo lectura"
                                      << "es de solo lectura";
    }
    void f2TrasLaCaida() {
        QFETCH(Caida, caida);
        QFETCH(QString, mensaje);
        QFETCH(QString, mientras);
        // A short wait for another's lock, so that the locked case fails in a moment.
        QString descripcion = almacen->descripcionPrincipal() + ";Busy Timeout=300";
        DiscoPequeno disco;
        if (caida == Caida::DiscoLleno) {
            if (!disco.montar()) QSKIP("no small disk can be mounted here (needs root)");
            sesion_conexion.reset();
            QVERIFY(QFile::copy(almacen->carpeta() + "/Dades/Saldeva.db",
                                disco.path() + "/Saldeva.db"));
            descripcion = "Provider=SQLite;Data Source=" + disco.path() + "/Saldeva.db";
        }
        almacen->escribir("Saldeva.udl", descripcion);
        // Whatever the outcome, the folder's own store again for the next case.
        const auto alTerminar = qScopeGuard([&] {
            for (Formulario* abierto : formularios::abiertos()) delete abierto->ventana();
            sesion_conexion.reset();
            Auxiliar::cerrarConexiones();
            almacen->escribir("Saldeva.udl", almacen->descripcionPrincipal());
        });
        sesion_conexion = std::make_unique<Conexion>("File name=Saldeva.udl");
        Conexion otro(descripcion);
        const QString base = QRegularExpression("Database=(\\w+)")
                                 .match(almacen->descripcionPrincipal())
                                 .captured(1);
        // The server's own database, from which the test's one is closed and opened.
        std::unique_ptr<Conexion> administracion;
        const auto servidor = [&]() -> Conexion& {
            if (!administracion)
                administracion = std::make_unique<Conexion>(
                    QString(almacen->descripcionPrincipal()).replace(base, "postgres"));
            return *administracion;
        };

        Buzon buzon;
        frmApunte* f = abrirApunte();
        QVERIFY(f);
        teclearFactura(f);
        QCOMPARE(f->ListViewApunte()->filas(), 3);
        const QString numero = f->txt(2)->text();
        QVERIFY(!numero.isEmpty());
        QCOMPARE(buzon.textos, QStringList());

        const auto romper = [&] {
            switch (caida) {
                case Caida::Bloqueo:
                    otro.beginTrans();
                    break;  // BEGIN IMMEDIATE: its lock
                case Caida::DiscoLleno: {
                    // Whatever room the small disk has left, taken by another file.
                    QFile relleno(disco.path() + "/relleno");
                    QVERIFY(relleno.open(QIODevice::WriteOnly));
                    const QByteArray bloque(4096, 'x');
                    while (relleno.write(bloque) == bloque.size() && relleno.flush()) {
                    }
                    break;
                }
                case Caida::SoloLectura:
                    sesion_conexion->execute("PRAGMA query_only = 1");
                    break;
                case Caida::Servidor: {
                    // As a server gone: every connection of the session dropped, and no new one
                    // let in until it is back.
                    const QString propio = otro.open("SELECT pg_backend_pid()").value(0).toString();
                    servidor().execute("ALTER DATABASE " + base + " ALLOW_CONNECTIONS false");
                    servidor().open(
                        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '" +
                        base + "' AND pid <> " + propio);
                    break;
                }
            }
        };
        const auto arreglar = [&] {
            switch (caida) {
                case Caida::Bloqueo:
                    otro.rollbackTrans();
                    break;
                case Caida::DiscoLleno:
                    QFile::remove(disco.path() + "/relleno");
                    break;
                case Caida::SoloLectura:
                    sesion_conexion->execute("PRAGMA query_only = 0");
                    break;
                case Caida::Servidor:
                    servidor().execute("ALTER DATABASE " + base + " ALLOW_CONNECTIONS true");
                    break;
            }
        };

        romper();
        pulsar(kInsertar);
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().contains(mensaje), qPrintable(buzon.ultimo()));
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Critico});
        pulsar(kInsertar);
        QCOMPARE(buzon.textos.size(), 2);
        QVERIFY2(buzon.ultimo().contains(mientras), qPrintable(buzon.ultimo()));
        // Nothing written, the entry still on the screen with its number.
        if (caida != Caida::Bloqueo) QCOMPARE(lineas(otro), 0);
        QCOMPARE(f->ListViewApunte()->filas(), 3);
        QCOMPARE(f->txt(2)->text(), numero);

        arreglar();
        buzon.vaciar();
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(lineas(otro), 3);
        QCOMPARE(filas("Apuntes", "numero_documento = '" + numero + "'"), 3);
        QCOMPARE(f->ListViewApunte()->filas(), 0);  // ready for the next entry
    }
};

QTEST_MAIN(PruebaCaidas)
#include "prueba_caidas.moc"
