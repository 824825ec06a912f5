// The split of an invoice on the tax grid, without a window or a store: the proposal from the
// third party with its base worked back from the gross amount, the rows typed and corrected by
// hand, and the lines the grid gives the entry, on their sides and under numbers that hold.
#include "data/almacen/error.h"
#include "posting/lineas.h"
#include "posting/rejillaiva.h"

#include <QHash>
#include <QtTest>

namespace {

// The company's tables as the grid reads them.
class CatalogoFijo : public CatalogoImpuestos {
public:
    QHash<QString, TerceroCuenta> terceros{
        {"43000001", {"CLI", "C1", "V21", "", "70000001"}},
        {"41000001", {"ACR", "A1", "R52", "I15", "62300001"}},
        {"43000002", {"CLI", "C2", "EX", "", "70000001"}},
        {"43000003", {"CLI", "C3", "ZZ", "", "70000001"}},
        {"43000004", {"CLI", "C4", "", "", "70000001"}},
    };
    QHash<QString, TipoIva> impuestos{
        {"V21", {21.0, 0.0, "47700021", "", "V"}},
        {"V10", {10.0, 0.0, "47700010", "", "V"}},
        {"R52", {21.0, 5.2, "47700021", "47710052", "V"}},
        {"EX", {0.0, 0.0, "47700000", "", "V"}},
        {"SINPCT", {std::nullopt, std::nullopt, "47700099", "", "V"}},
    };
    QHash<QString, TipoIrpf> retenciones{{"I15", {15.0, "47510015"}}, {"SINCTA", {19.0, ""}}};

    std::optional<TerceroCuenta> tercero(const QString& cuenta) override {
        return terceros.contains(cuenta) ? std::optional(terceros[cuenta]) : std::nullopt;
    }
    std::optional<TipoIva> impuesto(const QString& codigo) override {
        return impuestos.contains(codigo) ? std::optional(impuestos[codigo]) : std::nullopt;
    }
    std::optional<TipoIrpf> irpf(const QString& codigo) override {
        return retenciones.contains(codigo) ? std::optional(retenciones[codigo]) : std::nullopt;
    }
    std::optional<FormaPago> formaPago(const QString&) override { return std::nullopt; }
};

// A row of the grid as "base|type|%VAT|VAT|%RE|RE|withholding|%|amount".
QString fila(const RejillaIva& r, int i) {
    QStringList t;
    for (int c = 9 * i; c < 9 * i + 9; ++c) t << r.txt(c);
    return t.join('|');
}

QString totales(const RejillaIva& r) {
    return QStringList{r.txt(45), r.txt(46), r.txt(47), r.txt(48)}.join('|');
}

QStringList lineas(const LineasAsiento& l) {
    QStringList t;
    for (const LineaApunte& x : l.lineas())
        t << QStringLiteral("%1 %2 %3 %4 %5")
                 .arg(x.numero)
                 .arg(x.cuenta)
                 .arg(x.debe)
                 .arg(x.haber)
                 .arg(x.tipo);
    return t;
}

}  // namespace

class PruebaRejilla : public QObject {
    Q_OBJECT
    CatalogoFijo catalogo;

    // The grid of an invoice as proposed for `cuenta` and `importe`.
    RejillaIva propuesta(const QString& cuenta, const QString& importe) {
        RejillaIva r(catalogo);
        r.Proponer(catalogo.tercero(cuenta), importe);
        return r;
    }

private Q_SLOTS:
    // The first row comes from the third party; the base is the gross amount less its taxes,
    // and the taxes are worked on the rounded base.
    void propuestas_data() {
        QTest::addColumn<QString>("cuenta");
        QTest::addColumn<QString>("importe");
        QTest::addColumn<QString>("fila1");
        QTest::addColumn<QString>("suma");
        QTest::newRow("121 at 21 %") << "43000001"
                                     << "121"
                                     << "100,00|V21|21,00|21,00|0,00|0,00|||"
                                     << "100,00|21,00|0,00|";
        QTest::newRow("VAT, surcharge and withholding")
            << "41000001"
            << "1000,00"
            << "899,28|R52|21,00|188,85|5,20|46,76|I15|15,00|134,89"
            << "899,28|188,85|46,76|134,89";
        QTest::newRow("a Spanish thousands mark") << "43000001"
                                                  << "1.210,00"
                                                  << "1000,00|V21|21,00|210,00|0,00|0,00|||"
                                                  << "1000,00|210,00|0,00|";
        QTest::newRow("a credit note") << "43000001"
                                       << "-121"
                                       << "-100,00|V21|21,00|-21,00|0,00|0,00|||"
                                       << "-100,00|-21,00|0,00|";
        QTest::newRow("exempt at 0 %") << "43000002"
                                       << "500"
                                       << "500,00|EX|0,00|0,00|0,00|0,00|||"
                                       << "500,00|0,00|0,00|";
        QTest::newRow("no third party: the whole amount is the base") << "57200001"
                                                                      << "57,33"
                                                                      << "57,33||||||||"
                                                                      << "57,33|||";
        QTest::newRow("a third party's type gone from the table") << "43000003"
                                                                  << "121"
                                                                  << "121,00|ZZ|||||||"
                                                                  << "121,00|||";
        QTest::newRow("a third party without a type") << "43000004"
                                                      << "80"
                                                      << "80,00||||||||"
                                                      << "80,00|||";
    }
    void propuestas() {
        QFETCH(QString, cuenta);
        QFETCH(QString, importe);
        QFETCH(QString, fila1);
        QFETCH(QString, suma);
        const RejillaIva r = propuesta(cuenta, importe);
        QCOMPARE(fila(r, 1), fila1);
        QCOMPARE(totales(r), suma);
        for (int i = 2; i <= 4; ++i) QCOMPARE(fila(r, i), QString(8, '|'));  // never proposed
    }

    // VAT and surcharge go to the side opposite the main line, the withholding to its side.
    void lados_data() {
        QTest::addColumn<QString>("partida");
        QTest::addColumn<QStringList>("esperadas");
        QTest::newRow("main line on the debit side")
            << "D"
            << QStringList{"1 41000001 1000 0 P", "2 47700021 0 188.85 IVA",
                           "3 47710052 0 46.76 RE", "4 47510015 134.89 0 IRPF"};
        QTest::newRow("main line on the credit side")
            << "H"
            << QStringList{"1 41000001 0 1000 P", "2 47700021 188.85 0 IVA",
                           "3 47710052 46.76 0 RE", "4 47510015 0 134.89 IRPF"};
    }
    void lados() {
        QFETCH(QString, partida);
        QFETCH(QStringList, esperadas);
        RejillaIva r = propuesta("41000001", "1000");
        LineasAsiento l;
        const bool debe = partida == "D";
        l.AnadirLinea(0, "", "41000001", debe ? 1000 : 0, debe ? 0 : 1000, "", "P");
        r.GenerarLineasIva(l, "", "", partida);
        QCOMPARE(lineas(l), esperadas);
        QCOMPARE(QStringList(r.oculto.begin(), r.oculto.begin() + 3), (QStringList{"2", "3", "4"}));
        // With the counterpart, base plus taxes balance the gross amount to the cent.
        l.AnadirLinea(0, "", "62300001", debe ? 0 : 899.28, debe ? 899.28 : 0, "", "CP");
        QCOMPARE(qRound64(l.saldo() * 100), 0);
    }

    // Leaving the tab again gives each line back its number, whatever came in between; a line
    // that goes away frees its number, and nothing later clashes with it.
    void numerosQueSeMantienen() {
        RejillaIva r = propuesta("41000001", "1000");
        LineasAsiento l;
        l.AnadirLinea(0, "", "41000001", 1000, 0, "", "P");
        r.GenerarLineasIva(l, "", "", "D");
        l.AnadirLinea(0, "", "62300001", 0, 899.28, "", "CP");  // number 5
        r.GenerarLineasIva(l, "", "", "D");
        QCOMPARE(lineas(l), (QStringList{"1 41000001 1000 0 P", "2 47700021 0 188.85 IVA",
                                         "3 47710052 0 46.76 RE", "4 47510015 134.89 0 IRPF",
                                         "5 62300001 0 899.28 CP"}));

        // The type taken away: no lines, no numbers; a counterpart takes the lowest free one.
        r.ponerTxt(10, "");
        r.GenerarLineasIva(l, "", "", "D");
        QCOMPARE(r.oculto[0] + r.oculto[1] + r.oculto[2], QString());
        l.AnadirLinea(0, "", "57200001", 0, 1, "", "CP");
        QVERIFY(l.tiene(2));
        r.ponerTxt(10, "R52");
        r.BuscarImpuesto(10);
        r.GenerarLineasIva(l, "", "", "D");
        QSet<int> numeros;
        for (const LineaApunte& x : l.lineas()) numeros.insert(x.numero);
        QCOMPARE(numeros.size(), 6);
        for (int k = 0; k < 3; ++k) QVERIFY(l.tiene(r.oculto[k].toInt()));
    }

    // Rows typed and corrected by hand: a row follows its base and its types; an amount
    // corrected by hand counts in the totals and stays until its base changes.
    void trabajoAMano() {
        RejillaIva r = propuesta("43000001", "121");
        // A second rate on row 2, the base first and the type after.
        r.ponerTxt(18, "50");
        r.RecalcularFila(18);
        QCOMPARE(fila(r, 2), QStringLiteral("50,00||||||||"));
        r.ponerTxt(19, "V10");
        r.BuscarImpuesto(19);
        QCOMPARE(fila(r, 2), QStringLiteral("50,00|V10|10|5,00|0|0,00|||"));
        QCOMPARE(totales(r), QStringLiteral("150,00|26,00|0,00|0,00"));

        // The VAT of row 1 corrected by a cent.
        r.ponerTxt(12, "21,01");
        r.SumarIva();
        QCOMPARE(totales(r), QStringLiteral("150,00|26,01|0,00|0,00"));
        r.ponerTxt(19, "V10");
        r.BuscarImpuesto(19);  // another row's type read again keeps the correction
        QCOMPARE(r.txt(12), QStringLiteral("21,01"));
        r.ponerTxt(9, "100");
        r.RecalcularFila(9);  // its base left again: the correction goes
        QCOMPARE(r.txt(12), QStringLiteral("21,00"));

        // A withholding typed on row 2 follows its base.
        r.ponerTxt(24, "I15");
        r.BuscarIrpf(24);
        QCOMPARE(r.txt(26), QStringLiteral("7,50"));
        QCOMPARE(totales(r), QStringLiteral("150,00|26,00|0,00|7,50"));

        // A base emptied clears its row; the totals wait for the next recalculation.
        r.ponerTxt(18, "");
        r.RecalcularFila(18);
        QCOMPARE(fila(r, 2), QString(8, '|'));
        QCOMPARE(totales(r), QStringLiteral("150,00|26,00|0,00|7,50"));
        r.RecalcularFila(9);
        QCOMPARE(totales(r), QStringLiteral("100,00|21,00|0,00|0,00"));

        // A type not found empties the row's figures and accounts.
        r.ponerTxt(10, "NADA");
        r.BuscarImpuesto(10);
        QCOMPARE(fila(r, 1), QStringLiteral("100,00|NADA|||||||"));
        QCOMPARE(r.ctaIVA[0], QString());

        // A fresh proposal drops all of it.
        r.ponerTxt(27, "10");
        r.Proponer(catalogo.tercero("43000001"), "242");
        QCOMPARE(fila(r, 1), QStringLiteral("200,00|V21|21,00|42,00|0,00|0,00|||"));
        QCOMPARE(fila(r, 3), QString(8, '|'));
    }

    // A base with no type makes no line; a withholding on a row with no VAT type makes none
    // either, and the row's numbers stay empty.
    void filasSinLinea() {
        RejillaIva r(catalogo);
        r.ponerTxt(9, "100");
        r.ponerTxt(15, "I15");
        r.BuscarIrpf(15);
        r.RecalcularFila(9);
        LineasAsiento l;
        l.AnadirLinea(0, "", "43000001", 100, 0, "", "P");
        r.GenerarLineasIva(l, "", "", "D");
        QCOMPARE(l.cuantas(), 1);
        for (const QString& n : r.oculto) QCOMPARE(n, QString());
    }

    // A line that would have no amount is refused, naming the row, and the entry's lines stay
    // as they were.
    void importeQueFalta() {
        RejillaIva r = propuesta("43000001", "121");
        LineasAsiento l;
        l.AnadirLinea(0, "", "43000001", 121, 0, "", "P");
        r.GenerarLineasIva(l, "", "", "D");
        const QStringList antes = lineas(l);
        r.ponerTxt(19, "SINPCT");
        r.BuscarImpuesto(19);  // an account and no percentage: the row has no VAT amount
        try {
            r.GenerarLineasIva(l, "", "", "D");
            QFAIL("refused");
        } catch (const Error& e) {
            QCOMPARE(e.descripcion(), QStringLiteral("La fila 2 del IVA no tiene un importe de "
                                                     "IVA válido."));
        }
        QCOMPARE(lineas(l), antes);
    }

    // The checks of the grid's fields on leaving them.
    void validaciones_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("mensaje");
        QTest::addColumn<QString>("queda");
        QTest::newRow("a base") << 9 << "100,5" << 0 << "100,5";
        QTest::newRow("a base of a fraction of a cent") << 18 << "100,555" << 1004 << "100,555";
        QTest::newRow("a VAT amount not a number") << 12 << "doce" << 1004 << "doce";
        QTest::newRow("a surcharge amount") << 32 << "1.210,50" << 0 << "1.210,50";
        QTest::newRow("a withholding amount") << 44 << "x" << 1004 << "x";
        QTest::newRow("a VAT type in lower case") << 19 << "v21" << 0 << "V21";
        QTest::newRow("an unknown VAT type") << 28 << "v99" << 1003 << "V99";
        QTest::newRow("a withholding type") << 15 << "i15" << 0 << "I15";
        QTest::newRow("an unknown withholding type") << 42 << "i99" << 1003 << "I99";
        QTest::newRow("a percentage is not checked") << 11 << "mucho" << 0 << "mucho";
        QTest::newRow("empty passes") << 10 << "" << 0 << "";
    }
    void validaciones() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(int, mensaje);
        QFETCH(QString, queda);
        RejillaIva r(catalogo);
        QCOMPARE(r.ValidarImpuestos(indice, texto), mensaje);
        QCOMPARE(texto, queda);
    }
};

QTEST_GUILESS_MAIN(PruebaRejilla)
#include "prueba_rejilla.moc"
