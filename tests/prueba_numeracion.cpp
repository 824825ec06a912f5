// Numbers of a series are handed out once: in order, zero-padded, and never twice even when
// several workstations draw from the same series at the same moment.
#include "comun/almacen_prueba.h"
#include "data/arranque.h"
#include "data/entidades/numeracion.h"
#include "data/global.h"

#include <QProcess>
#include <QtTest>

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
