// The lines of an entry being written: the numbers they receive and the order they keep,
// which the entry form relies on to put a regenerated line back in its place.
#include "data/almacen/error.h"
#include "forms/lista.h"
#include "posting/lineas.h"

#include <QtTest>

namespace {

// "1P 2CP 3CP": number and type of each line in list order.
QString vista(const LineasAsiento& l) {
    QStringList t;
    for (const LineaApunte& x : l.lineas()) t << QString::number(x.numero) + x.tipo;
    return t.join(' ');
}

// Applies "+tipo" (a line under the lowest free number), "+tipo@n" (under n), "-n" (takes
// line n out) and "~tipo" (removes that type) in order.
LineasAsiento aplicar(const QStringList& pasos) {
    LineasAsiento l;
    for (const QString& p : pasos) {
        if (p.startsWith('+')) {
            const QString tipo = p.mid(1).section('@', 0, 0);
            const int numero = p.contains('@') ? p.section('@', 1).toInt() : 0;
            l.AnadirLinea(numero, {}, {}, 1, 0, {}, tipo);
        } else if (p.startsWith('-')) {
            l.quitar(p.mid(1).toInt());
        } else {
            l.BorrarLineasTipo(p.mid(1));
        }
    }
    return l;
}

}  // namespace

class PruebaLineas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void numeros_data() {
        QTest::addColumn<QStringList>("pasos");
        QTest::addColumn<QString>("queda");
        QTest::newRow("in order") << QStringList{"+P", "+CP", "+CP"} << "1P 2CP 3CP";
        QTest::newRow("a removed line's number is taken again, in its place")
            << QStringList{"+P", "+CP", "+CP", "-2", "+RE"} << "1P 2RE 3CP";
        QTest::newRow("the main line regenerated keeps the first place")
            << QStringList{"+P", "+CP", "~P", "+P"} << "1P 2CP";
        QTest::newRow("regenerated, the main line takes the lowest free number")
            << QStringList{"+CP", "+P", "+CP", "-1", "~P", "+P"} << "1P 3CP";
        QTest::newRow("a number beyond the count is pulled down")
            << QStringList{"+P@7", "+CP@9"} << "1P 2CP";
        QTest::newRow("a number within the count goes to its position")
            << QStringList{"+P", "+CP", "-1", "+IVA@1"} << "1IVA 2CP";
        QTest::newRow("removing a type removes all its lines")
            << QStringList{"+P", "+IVA", "+CP", "+IVA", "~IVA"} << "1P 3CP";
    }
    void numeros() {
        QFETCH(QStringList, pasos);
        QFETCH(QString, queda);
        QCOMPARE(vista(aplicar(pasos)), queda);
    }

    void numerosRepetidosYAusentes() {
        LineasAsiento l = aplicar({"+P", "+CP"});
        try {
            l.AnadirLinea(2, {}, {}, 0, 0, {}, "CP");
            QFAIL("a number taken twice");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), errores::kClaveRepetida);
        }
        try {
            l.quitar(5);
            QFAIL("a missing line taken out");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), errores::kElementoNoEncontrado);
        }
        QCOMPARE(l.SiguienteLinea(), 3);
        QCOMPARE(LineasAsiento().SiguienteLinea(), 1);
    }

    // The totals are the plain sums in list order: what the balance field shows is what
    // decides whether the entry may be stored.
    void totales_data() {
        QTest::addColumn<QList<double>>("debe");
        QTest::addColumn<QList<double>>("haber");
        QTest::addColumn<QString>("saldo");
        QTest::newRow("balanced") << QList<double>{1210.5} << QList<double>{1000, 210.5} << "0";
        QTest::newRow("lack of credit") << QList<double>{100} << QList<double>{49.75} << "50,25";
        QTest::newRow("lack of debit") << QList<double>{0.1} << QList<double>{150.35} << "-150,25";
        QTest::newRow("residue of the sums")
            << QList<double>{200.3, 99.9} << QList<double>{300.2} << "5,6843418860808E-14";
    }
    void totales() {
        QFETCH(QList<double>, debe);
        QFETCH(QList<double>, haber);
        QFETCH(QString, saldo);
        LineasAsiento l;
        for (double d : debe) l.AnadirLinea(0, {}, {}, d, 0, {}, "CP");
        for (double h : haber) l.AnadirLinea(0, {}, {}, 0, h, {}, "CP");
        QCOMPARE(textoPantalla(l.saldo()), saldo);
    }
};

QTEST_MAIN(PruebaLineas)
#include "prueba_lineas.moc"
