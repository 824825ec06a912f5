// The portfolio tab's arithmetic without a window: the due dates an invoice proposes from its
// third party's payment method (shares rounded one by one, the payment day rule, unused
// slots), the items typed by hand and taken back, and the marks of a collection with their
// total and the lines they give.
#include "data/almacen/error.h"
#include "data/formato.h"
#include "posting/carteraapunte.h"
#include "posting/lineas.h"

#include <QtTest>

namespace {

FormaPago forma(const QStringList& dias, const QList<std::optional<double>>& pcts) {
    FormaPago f;
    for (int n = 0; n < 4; ++n) {
        f.vto[size_t(n)] = dias.value(n);
        f.pct[size_t(n)] = n < pcts.size() ? pcts[n] : std::nullopt;
    }
    return f;
}

QStringList textos(const CarteraAlta& c) {
    QStringList t;
    for (const VencimientoAlta& v : c.efectos())
        t << QStringList{v.tipo, v.vencimiento, v.importe, v.descripcion}.join('|');
    return t;
}

QStringList marcasDe(const CarteraGestion& g) {
    QStringList t;
    for (const EfectoMarcado& e : g.efectos()) t << e.marca;
    return t;
}

QStringList lineas(const LineasAsiento& l) {
    QStringList t;
    for (const LineaApunte& x : l.lineas())
        t << QStringLiteral("%1 %2 %3 %4 %5")
                 .arg(x.numero)
                 .arg(x.cuenta, textoPantalla(x.debe), textoPantalla(x.haber), x.tipo);
    return t;
}

EfectoSeleccionado efecto(const QString& numero, const QString& cuenta, double importe) {
    return {QStringLiteral("P"),
            QStringLiteral("FAC"),
            numero,
            QStringLiteral("20260331"),
            cuenta,
            importe,
            QStringLiteral("Vto. 1. ") + numero};
}

const QDate k1Marzo2006(2006, 3, 1);

}  // namespace

class PruebaVencimientos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void propuesta_data() {
        QTest::addColumn<QStringList>("dias");
        QTest::addColumn<QList<std::optional<double>>>("pcts");
        QTest::addColumn<QString>("importe");
        QTest::addColumn<QString>("partida");
        QTest::addColumn<int>("primerDia");  // 0: none
        QTest::addColumn<QStringList>("efectos");
        QTest::addColumn<QString>("total");
        using P = QList<std::optional<double>>;
        // Half of 100,01 is 50,005: each share rounds up, and the total shows the extra cent.
        QTest::newRow("30-60 al 50 %")
            << QStringList{"30", "60"} << P{50.0, 50.0} << "100,01"
            << "D" << 0
            << QStringList{"C|31/03/2006|50,01|Vto. 1. FV0001", "C|30/04/2006|50,01|Vto. 2. FV0001"}
            << "100,02";
        QTest::newRow("una compra, pago")
            << QStringList{"30"} << P{100.0} << "60,5"
            << "H" << 0 << QStringList{"P|31/03/2006|60,5|Vto. 1. FV0001"} << "60,5";
        // A slot of 0 % gives no item and the loop goes on; an empty slot is skipped.
        QTest::newRow("0 % y hueco")
            << QStringList{"30", "", "90"} << P{0.0, 50.0, 100.0} << "200"
            << "D" << 0 << QStringList{"C|30/05/2006|200|Vto. 3. FV0001"} << "200";
        QTest::newRow("al contado")
            << QStringList{"0"} << P{100.0} << "121"
            << "D" << 0 << QStringList{"C|01/03/2006|121|Vto. 1. FV0001"} << "121";
        // Day 15: the 31/03 is past it, so 16 days on and a month more; the 30/04 too.
        QTest::newRow("día de pago 15")
            << QStringList{"30", "60"} << P{50.0, 50.0} << "100"
            << "D" << 15
            << QStringList{"C|16/05/2006|50|Vto. 1. FV0001", "C|15/06/2006|50|Vto. 2. FV0001"}
            << "100";
        QTest::newRow("sin forma de pago") << QStringList{} << P{} << "100"
                                           << "D" << 0 << QStringList{} << "";
    }
    void propuesta() {
        QFETCH(QStringList, dias);
        QFETCH(QList<std::optional<double>>, pcts);
        QFETCH(QString, importe);
        QFETCH(QString, partida);
        QFETCH(int, primerDia);
        CarteraAlta c;
        c.Anadir({"C", "01/01/2006", "1", "a mano"});  // a proposal replaces what there was
        c.Proponer("3060", forma(dias, pcts),
                   primerDia ? std::optional<int>(primerDia) : std::nullopt, k1Marzo2006,
                   *formato::leerNumero(importe), partida, "FV0001");
        QTEST(textos(c), "efectos");
        QTEST(c.total(), "total");
    }

    void diaDePago_data() {
        QTest::addColumn<QDate>("fecha");
        QTest::addColumn<int>("dia");
        QTest::addColumn<QDate>("pago");
        QTest::newRow("antes del día") << QDate(2026, 3, 10) << 15 << QDate(2026, 3, 15);
        QTest::newRow("el mismo día") << QDate(2026, 3, 15) << 15 << QDate(2026, 4, 15);
        QTest::newRow("pasado el día") << QDate(2026, 1, 20) << 15 << QDate(2026, 2, 25);
        QTest::newRow("20 con día 10") << QDate(2026, 1, 20) << 10 << QDate(2026, 2, 28);
        QTest::newRow("a otro mes") << QDate(2026, 1, 25) << 10 << QDate(2026, 3, 9);
    }
    void diaDePago() {
        QFETCH(QDate, fecha);
        QFETCH(int, dia);
        QTEST(CarteraAlta::DiaDePago(fecha, dia), "pago");
    }

    // A used slot that cannot be computed stops the proposal with a message, never the program.
    void formaDePagoIncompleta_data() {
        QTest::addColumn<QStringList>("dias");
        QTest::addColumn<QList<std::optional<double>>>("pcts");
        using P = QList<std::optional<double>>;
        QTest::newRow("sin porcentaje") << QStringList{"30", "", "", "90"} << P{50.0};
        QTest::newRow("días que no son número") << QStringList{"treinta"} << P{100.0};
    }
    void formaDePagoIncompleta() {
        QFETCH(QStringList, dias);
        QFETCH(QList<std::optional<double>>, pcts);
        CarteraAlta c;
        try {
            c.Proponer("MAL", forma(dias, pcts), std::nullopt, k1Marzo2006, 100, "D", "FV1");
            QFAIL("propuesta sin error");
        } catch (const Error& e) {
            QVERIFY(e.descripcion().contains("La forma de pago MAL"));
        }
    }

    // By hand: one item of a type on a date; a double click takes it back into the fields.
    void aMano() {
        CarteraAlta c;
        c.Proponer("3060", forma({"30", "60"}, {50.0, 50.0}), std::nullopt, k1Marzo2006, 100.01,
                   "D", "FV0001");
        QCOMPARE(c.Anadir({"P", "15/05/2006", "10,5", "Gastos"}), 0);
        QCOMPARE(c.total(), "110,52");
        QCOMPARE(c.Anadir({"C", "31/03/2006", "3", "Repetido"}), 9999);
        QCOMPARE(c.efectos().size(), 3);
        QCOMPARE(c.total(), "110,52");
        QCOMPARE(CarteraAlta::clave("C", "31/03/2006"), "KC20060331");
        // The same date with another type is another item.
        QCOMPARE(c.Anadir({"P", "31/03/2006", "3", "Pago"}), 0);
        const VencimientoAlta v = c.Recuperar(0);
        QCOMPARE(v.vencimiento, "31/03/2006");
        QCOMPARE(v.importe, "50,01");
        QCOMPARE(c.total(), "63,51");
        QCOMPARE(c.efectos().size(), 3);
    }

    // Items added with no proposal made leave the total empty, as it cannot be added to.
    void sinPropuestaElTotalQuedaVacio() {
        CarteraAlta c;
        QCOMPARE(c.Anadir({"C", "31/03/2006", "3", ""}), 0);
        QCOMPARE(c.total(), QString());
        c.Recuperar(0);
        QCOMPARE(c.total(), QString());
    }

    void marcas_data() {
        QTest::addColumn<QList<int>>("clics");
        QTest::addColumn<QStringList>("esperadas");
        QTest::addColumn<QString>("total");
        QTest::newRow("uno cerrado") << QList<int>{0} << QStringList{"C", "P"} << "100";
        // "D" keeps its amount in the total; a third click takes it back out.
        QTest::newRow("dos clics") << QList<int>{0, 0} << QStringList{"D", "P"} << "100";
        QTest::newRow("tres clics") << QList<int>{0, 0, 0} << QStringList{"P", "P"} << "0";
        QTest::newRow("los dos") << QList<int>{0, 1} << QStringList{"C", "C"} << "150,25";
    }
    void marcas() {
        QFETCH(QList<int>, clics);
        CarteraGestion g;
        g.Poner({efecto("FV1", "43000001", 100), efecto("FV2", "43000002", 50.25)});
        QCOMPARE(g.total(), QString());
        for (int fila : clics) g.Marcar(fila);
        QTEST(marcasDe(g), "esperadas");
        QTEST(g.total(), "total");
    }

    void todos() {
        CarteraGestion g;
        g.Poner({efecto("FV1", "43000001", 100), efecto("FV2", "43000002", 50.25)});
        g.Marcar(0);
        g.TodosPendientes();
        QCOMPARE(marcasDe(g), (QStringList{"P", "P"}));
        QCOMPARE(g.total(), "0");
        g.TodosCancelados();
        QCOMPARE(marcasDe(g), (QStringList{"C", "C"}));
        QCOMPARE(g.total(), "150,25");
    }

    // A collection (main line on the debit) credits each customer; a payment debits each
    // supplier. Leaving the tab again makes the lines afresh; an empty list keeps them.
    void lineasDeGestion_data() {
        QTest::addColumn<QString>("partida");
        QTest::addColumn<QStringList>("esperadas");
        QTest::newRow("cobro") << "D" << QStringList{"1 57200001 100 0 P", "2 43000002 0 50,25 GC"};
        QTest::newRow("pago") << "H" << QStringList{"1 57200001 0 100 P", "2 43000002 50,25 0 GC"};
    }
    void lineasDeGestion() {
        QFETCH(QString, partida);
        LineasAsiento l;
        const bool debe = partida == "D";
        l.AnadirLinea(0, "01/04/2026", "57200001", debe ? 100 : 0, debe ? 0 : 100, "Banco", "P");
        CarteraGestion g;
        g.Poner({efecto("FV1", "43000001", 100), efecto("FV2", "43000002", 50.25)});
        g.Marcar(0);
        g.GenerarLineasGestion(l, "01/04/2026", partida);
        g.Marcar(0);  // "D": no line
        g.Marcar(1);
        g.GenerarLineasGestion(l, "01/04/2026", partida);
        QTEST(lineas(l), "esperadas");
        CarteraGestion vacia;
        vacia.GenerarLineasGestion(l, "01/04/2026", partida);
        QTEST(lineas(l), "esperadas");
    }
};

QTEST_MAIN(PruebaVencimientos)
#include "prueba_vencimientos.moc"
