// Numbers of a series are handed out once: in order, zero-padded, and never twice even when
// several workstations draw from the same series at the same moment.
#include "comun/almacen_prueba.h"
#include "data/arranque.h"
#include "data/entidades/numeracion.h"
#include "data/global.h"

#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QtTest>
#include <atomic>

namespace {

// Where the relay cuts the session's connection to the server.
enum class Corte {
    Ninguno,
    TrasCommit,     // the server has committed and answered; the answer never arrives
    AntesDeCommit,  // the COMMIT never reaches the server
    Rechazar,       // the server is away: every new connection closes at once
};

// A TCP relay between the session and the test server, in a thread of its own (the client
// library waits for its answers on this one).
class Relevo : public QThread {
public:
    Relevo(QString servidor, quint16 puerto) : servidor_(std::move(servidor)), puerto_(puerto) {}
    ~Relevo() override {
        quit();
        wait();
    }
    quint16 escuchar() {
        start();
        listo_.acquire();
        return propio_;
    }
    std::atomic<Corte> corte{Corte::Ninguno};

protected:
    void run() override {
        QTcpServer escucha;
        escucha.listen(QHostAddress::LocalHost);
        propio_ = escucha.serverPort();
        QObject::connect(&escucha, &QTcpServer::newConnection, [&] {
            while (QTcpSocket* cliente = escucha.nextPendingConnection()) unir(cliente);
        });
        listo_.release();
        exec();
    }

private:
    void unir(QTcpSocket* cliente) {
        if (corte == Corte::Rechazar) {
            cliente->abort();
            cliente->deleteLater();
            return;
        }
        auto* destino = new QTcpSocket(cliente);
        destino->connectToHost(servidor_, puerto_);
        destino->waitForConnected(5000);
        auto cortar = [cliente, destino] {
            destino->abort();
            cliente->abort();
            cliente->deleteLater();
        };
        auto esperandoRespuesta = std::make_shared<bool>(false);
        QObject::connect(cliente, &QTcpSocket::readyRead, cliente, [=, this] {
            const QByteArray datos = cliente->readAll();
            if (datos.contains(QByteArrayView("COMMIT\0", 7))) {
                const Corte c = corte.exchange(Corte::Ninguno);
                if (c == Corte::AntesDeCommit) return cortar();
                if (c == Corte::TrasCommit) *esperandoRespuesta = true;
            }
            destino->write(datos);
        });
        QObject::connect(destino, &QTcpSocket::readyRead, cliente, [=] {
            const QByteArray datos = destino->readAll();
            if (*esperandoRespuesta) return cortar();
            cliente->write(datos);
        });
        QObject::connect(cliente, &QTcpSocket::disconnected, cliente, [=] {
            destino->disconnectFromHost();
            cliente->deleteLater();
        });
        QObject::connect(destino, &QTcpSocket::disconnected, cliente, [=] { cortar(); });
    }

    QString servidor_;
    quint16 puerto_;
    quint16 propio_ = 0;
    QSemaphore listo_;
};

}  // namespace

Q_DECLARE_METATYPE(Corte)

class PruebaNumeracion : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() { CREAR_ALMACEN(almacen); }
    void init() {
        almacen->nuevo();
        sesion_usuario = QStringLiteral("ANA");
    }

    void siguiente_data() {
        QTest::addColumn<int>("longitud");
        QTest::addColumn<int>("numero");
        QTest::addColumn<QString>("primero");
        QTest::addColumn<QString>("segundo");
        QTest::newRow("padded") << 7 << 42 << "0000042"
                                << "0000043";
        QTest::newRow("wider than its length keeps all digits") << 5 << 123456 << "123456"
                                                                << "123457";
        QTest::newRow("crossing the length") << 2 << 99 << "99"
                                             << "100";
        QTest::newRow("no padding") << 0 << 1 << "1"
                                    << "2";
    }
    void siguiente() {
        QFETCH(int, longitud);
        QFETCH(int, numero);
        QFETCH(QString, primero);
        QFETCH(QString, segundo);
        numeracion::Insert(*sesion_conexion, "E", 2026, "FAC", longitud, numero, "Facturas", "X");
        QCOMPARE(SiguienteNumero("E", 2026, "FAC"), primero);
        QCOMPARE(SiguienteNumero("E", 2026, "FAC"), segundo);
        Recordset rs = numeracion::GetList(*sesion_conexion, {}, {});
        QCOMPARE(rs["numero"].toInt(), numero + 2);
        QCOMPARE(rs["longitud"].toInt(), longitud);
        QCOMPARE(rs["descripcion"].toString(), QStringLiteral("Facturas"));
        QCOMPARE(rs["ultimo_usuario"].toString(), QStringLiteral("ANA"));
    }

    void serieInexistente() {
        numeracion::Insert(*sesion_conexion, "E", 2025, "FAC", 5, 1, "Otro año", "X");
        QCOMPARE(SiguienteNumero("E", 2026, "FAC"), QString());
        QCOMPARE(SiguienteNumero("E", 2025, "FAC'"), QString());
    }

    // Inside the entry form's transaction a number drawn and then rolled back is not lost.
    void dentroDeUnaTransaccion() {
        numeracion::Insert(*sesion_conexion, "E", 2026, "FAC", 3, 1, "Facturas", "X");
        {
            Transaccion t(*sesion_conexion);
            QCOMPARE(SiguienteNumero("E", 2026, "FAC"), QStringLiteral("001"));
        }
        QCOMPARE(SiguienteNumero("E", 2026, "FAC"), QStringLiteral("001"));
    }

    // The connection to the server lost while a drawing commits: whether the server committed
    // it or not, the next drawing gives that number, and the series moves on from it, so no
    // number is skipped or given twice. A server still away in between changes nothing.
    void conexionPerdidaAlConfirmar_data() {
        QTest::addColumn<Corte>("corte");
        QTest::addColumn<bool>("sigueCaido");
        QTest::newRow("committed, answer lost") << Corte::TrasCommit << false;
        QTest::newRow("committed, server still away") << Corte::TrasCommit << true;
        QTest::newRow("never committed") << Corte::AntesDeCommit << false;
    }
    void conexionPerdidaAlConfirmar() {
        if (!AlmacenPrueba::postgres())
            QSKIP("a commit on a file of this machine is never in doubt");
        QFETCH(Corte, corte);
        QFETCH(bool, sigueCaido);
        numeracion::Insert(*sesion_conexion, "E", 2026, "FAC", 3, 7, "Facturas", "X");
        const QString descripcion = almacen->descripcionPrincipal();
        const auto m = QRegularExpression("Host=([^;]+);Port=(\\d+)").match(descripcion);
        QVERIFY(m.hasMatch());
        Relevo relevo(m.captured(1), quint16(m.captured(2).toUInt()));
        const quint16 puerto = relevo.escuchar();
        std::unique_ptr<Conexion> directa = std::move(sesion_conexion);
        const auto alTerminar = qScopeGuard([&] { sesion_conexion = std::move(directa); });
        sesion_conexion = std::make_unique<Conexion>(
            QString(descripcion)
                .replace("Port=" + m.captured(2), "Port=" + QString::number(puerto)));
        const auto serie = [&] {
            return directa->open("SELECT numero FROM Numeraciones").value(0).toInt();
        };

        relevo.corte = corte;
        QVERIFY_THROWS_EXCEPTION(Error, SiguienteNumero("E", 2026, "FAC"));
        QVERIFY(sesion_conexion->perdida());
        QCOMPARE(relevo.corte.load(), Corte::Ninguno);  // the cut did happen at the COMMIT
        QCOMPARE(serie(), corte == Corte::TrasCommit ? 8 : 7);
        if (sigueCaido) {
            relevo.corte = Corte::Rechazar;
            QVERIFY_THROWS_EXCEPTION(Error, SiguienteNumero("E", 2026, "FAC"));
            relevo.corte = Corte::Ninguno;
        }
        QCOMPARE(SiguienteNumero("E", 2026, "FAC"), QStringLiteral("007"));
        QCOMPARE(SiguienteNumero("E", 2026, "FAC"), QStringLiteral("008"));
        QCOMPARE(serie(), 9);
    }

    // Several workstations at once: every number exactly once, none skipped.
    void variosPuestosALaVez() {
        const int puestos = 5, cada = 40;
        numeracion::Insert(*sesion_conexion, "E", 2026, "FAC", 6, 1, "Facturas", "X");
        cerrarAlmacenes();  // the processes are the only writers
        QList<QProcess*> procesos;
        for (int i = 0; i < puestos; ++i) {
            auto* p = new QProcess(this);
            p->start(QStringLiteral(NUMERADOR),
                     {almacen->carpeta(), "E", "2026", "FAC", QString::number(cada)});
            procesos << p;
        }
        QList<int> numeros;
        for (QProcess* p : procesos) {
            QVERIFY(p->waitForFinished(120000));
            QVERIFY2(p->exitCode() == 0, p->readAllStandardError().constData());
            for (const QByteArray& linea : p->readAllStandardOutput().split('\n'))
                if (!linea.isEmpty()) numeros << linea.toInt();
            delete p;
        }
        std::sort(numeros.begin(), numeros.end());
        QCOMPARE(numeros.size(), puestos * cada);
        for (int i = 0; i < numeros.size(); ++i) QCOMPARE(numeros[i], i + 1);
    }
};

QTEST_MAIN(PruebaNumeracion)
#include "prueba_numeracion.moc"
