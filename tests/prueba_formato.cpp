// Numbers and dates as the screens and the SQL show them: the figures a bookkeeper reads and
// the texts that the store compares.
#include "data/almacen/error.h"
#include "data/auxiliar.h"
#include "data/formato.h"

#include <QtTest>
#include <cmath>

class PruebaFormato : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void format_data() {
        QTest::addColumn<double>("valor");
        QTest::addColumn<QString>("patron");
        QTest::addColumn<QString>("texto");
        QTest::newRow("decimal comma") << 121.0 << "0.00"
                                       << "121,00";
        QTest::newRow("exact half up") << 0.125 << "0.00"
                                       << "0,13";
        QTest::newRow("exact half away from zero") << -0.125 << "0.00"
                                                   << "-0,13";
        QTest::newRow("exact half at 2.5") << 2.5 << "0"
                                           << "3";
        QTest::newRow("below half in binary: 2.675") << 2.675 << "0.00"
                                                     << "2,67";
        QTest::newRow("above half in binary: 1.005") << 1.005 << "0.00"
                                                     << "1,00";
        QTest::newRow("0.1+0.2") << 0.1 + 0.2 << "0.00"
                                 << "0,30";
        QTest::newRow("carry into units") << 9.5 << "0"
                                          << "10";
        QTest::newRow("99.995 is above half in binary") << 99.995 << "0.00"
                                                        << "100,00";
        QTest::newRow("exact half 9.875") << 9.875 << "0.00"
                                          << "9,88";
        QTest::newRow("tiny negative is zero") << -0.001 << "0.00"
                                               << "0,00";
        QTest::newRow("residue") << 5.6843418860808e-14 << "0.00"
                                 << "0,00";
        QTest::newRow("large amount") << 1234567.891 << "0.00"
                                      << "1234567,89";
        QTest::newRow("whole format") << 30.5 << "0"
                                      << "31";
        QTest::newRow("negative whole") << -1.5 << "0"
                                        << "-2";
        // Whole cents take a shorter road than halves; both must agree with the rule above.
        QTest::newRow("negative cents") << -1234.56 << "0.00"
                                        << "-1234,56";
        QTest::newRow("negative zero") << -0.0 << "0.00"
                                       << "0,00";
        QTest::newRow("cents of a sum") << 0.1 * 3 << "0.00"
                                        << "0,30";
        QTest::newRow("cents at four decimals") << 12.34 << "0.0000"
                                                << "12,3400";
        QTest::newRow("beyond the short road") << 1e14 << "0.00"
                                               << "100000000000000,00";
        QTest::newRow("near a half, not at it") << 0.0049999 << "0.00"
                                                << "0,00";
    }
    void format() {
        QFETCH(double, valor);
        QFETCH(QString, patron);
        QFETCH(QString, texto);
        QCOMPARE(formato::Format(valor, patron), texto);
    }

    // The split of an invoice: a tax is the base times the rate, a half cent up, and a base
    // comes back out of the gross amount the same way.
    void cuotas_data() {
        QTest::addColumn<double>("base");
        QTest::addColumn<double>("pct");
        QTest::addColumn<QString>("cuota");
        QTest::newRow("21 % of 100") << 100.0 << 21.0 << "21,00";
        QTest::newRow("VAT of 899,28") << 899.28 << 21.0 << "188,85";
        QTest::newRow("surcharge 5,2") << 899.28 << 5.2 << "46,76";
        QTest::newRow("withholding 15") << 899.28 << 15.0 << "134,89";
        QTest::newRow("half cent goes up") << 0.50 << 21.0 << "0,11";
        QTest::newRow("half cent of a negative base") << -0.50 << 21.0 << "-0,11";
        QTest::newRow("tobacco surcharge 1,75") << 10.0 << 1.75 << "0,18";
        QTest::newRow("exempt") << 1234.56 << 0.0 << "0,00";
        QTest::newRow("large base") << 12345678.91 << 21.0 << "2592592,57";
    }
    void cuotas() {
        QFETCH(double, base);
        QFETCH(double, pct);
        QFETCH(QString, cuota);
        QCOMPARE(formato::Cuota(base, pct), cuota);
    }

    void basesDeTotal_data() {
        QTest::addColumn<double>("total");
        QTest::addColumn<double>("divisor");
        QTest::addColumn<QString>("base");
        QTest::newRow("121 at 21 %") << 121.0 << 121.0 << "100,00";
        QTest::newRow("VAT, surcharge and withholding") << 1000.0 << 111.2 << "899,28";
        QTest::newRow("no taxes") << 57.33 << 100.0 << "57,33";
        QTest::newRow("a credit note") << -121.0 << 121.0 << "-100,00";
        QTest::newRow("half cent goes up") << 0.01 << 200.0 << "0,01";
    }
    void basesDeTotal() {
        QFETCH(double, total);
        QFETCH(double, divisor);
        QFETCH(QString, base);
        QCOMPARE(formato::BaseDeTotal(total, divisor), base);
    }

    // A withholding of 100 % or more leaves nothing to divide by: a failure, not a figure.
    void divisorNulo() {
        QVERIFY_THROWS_EXCEPTION(Error, formato::BaseDeTotal(100, 0));
        QVERIFY_THROWS_EXCEPTION(Error, formato::BaseDeTotal(100, -15));
    }

    void textoDouble_data() {
        QTest::addColumn<double>("valor");
        QTest::addColumn<QString>("texto");
        QTest::newRow("whole") << 100.0 << "100";
        QTest::newRow("zero") << 0.0 << "0";
        QTest::newRow("cents") << 121.21 << "121.21";
        QTest::newRow("negative") << -0.5 << "-0.5";
        QTest::newRow("0.1+0.2 at 15 digits") << 0.1 + 0.2 << "0.3";
        QTest::newRow("residue 5.7e-14") << 5.6843418860808e-14 << "5.6843418860808E-14";
        QTest::newRow("difference of sums") << (0.1 + 0.7) * 10 - 8 << "-8.88178419700125E-16";
        QTest::newRow("small but fixed") << 0.0001 << "0.0001";
        QTest::newRow("small exponent") << 0.00001 << "1E-05";
        QTest::newRow("large exponent") << 1e15 << "1E+15";
        QTest::newRow("fourteen digits") << 12345678901234.0 << "12345678901234";
    }
    void textoDouble() {
        QFETCH(double, valor);
        QFETCH(QString, texto);
        QCOMPARE(formato::textoDouble(valor), texto);
    }

    void leerNumero_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<double>("valor");
        QTest::newRow("comma") << "121,5" << true << 121.5;
        QTest::newRow("point") << "121.5" << true << 121.5;
        QTest::newRow("blanks and sign") << "  -3 " << true << -3.0;
        QTest::newRow("leading mark") << ",5" << true << 0.5;
        QTest::newRow("thousands, Spanish") << "1.210,00" << true << 1210.0;
        QTest::newRow("thousands, English") << "1,210.00" << true << 1210.0;
        QTest::newRow("millions") << "-1.234.567,8" << true << -1234567.8;
        QTest::newRow("point alone is decimal") << "1.210" << true << 1.21;
        QTest::newRow("mixed group marks") << "1,234.567,89" << false << 0.0;
        QTest::newRow("group of two") << "1.21,00" << false << 0.0;
        QTest::newRow("decimal mark twice") << "1.210.00" << false << 0.0;
        QTest::newRow("letters") << "12a" << false << 0.0;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("two marks") << "1,2,3" << false << 0.0;
        QTest::newRow("a residue as shown") << "5,6843418860808E-14" << true << 5.6843418860808e-14;
        QTest::newRow("exponent without digits") << "5E" << false << 0.0;
    }
    void leerNumero() {
        QFETCH(QString, texto);
        QFETCH(bool, valido);
        QFETCH(double, valor);
        const auto leido = formato::leerNumero(texto);
        QCOMPARE(leido.has_value(), valido);
        if (valido) QCOMPARE(*leido, valor);
    }

    // Amounts are whole cents: a fraction of a cent would be stored while every book rounds it.
    void leerImporte_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<double>("valor");
        QTest::newRow("cents") << "100,55" << true << 100.55;
        QTest::newRow("fraction of a cent") << "100,555" << false << 0.0;
        QTest::newRow("trailing zero") << "100,550" << true << 100.55;
        QTest::newRow("Spanish thousands") << "1.210,00" << true << 1210.0;
        QTest::newRow("negative") << "-0,01" << true << -0.01;
        QTest::newRow("exponent, whole") << "1E3" << true << 1000.0;
        QTest::newRow("residue") << "5,6843418860808E-14" << false << 0.0;
        QTest::newRow("too large") << "1e308" << false << 0.0;
        QTest::newRow("text") << "NaN" << false << 0.0;
    }
    void leerImporte() {
        QFETCH(QString, texto);
        QFETCH(bool, valido);
        QFETCH(double, valor);
        const auto leido = formato::leerImporte(texto);
        QCOMPARE(leido.has_value(), valido);
        if (valido) QCOMPARE(*leido, valor);
    }

    void val_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<double>("valor");
        QTest::newRow("number then letter") << "12345678Z" << 12345678.0;
        QTest::newRow("stops at letter") << "123A5678Z" << 123.0;
        QTest::newRow("exponent") << "1234E5Z" << 123400000.0;
        QTest::newRow("point") << "12.345.678-Z" << 12.345;
        QTest::newRow("nothing") << "ABC" << 0.0;
    }
    void val() {
        QFETCH(QString, texto);
        QFETCH(double, valor);
        QCOMPARE(formato::Val(texto), valor);
    }

    void fechas_data() {
        QTest::addColumn<QString>("pantalla");
        QTest::addColumn<QString>("almacen");
        QTest::newRow("plain") << "31/01/2026"
                               << "20260131";
        QTest::newRow("short day and month") << "1/2/2026"
                                             << "20260201";
        QTest::newRow("dashes") << "01-02-2026"
                                << "20260201";
        QTest::newRow("two-digit year") << "15/06/07"
                                        << "20070615";
        QTest::newRow("31 February") << "31/02/2006"
                                     << "";
        QTest::newRow("29 February of a leap year") << "29/02/2024"
                                                    << "20240229";
        QTest::newRow("29 February otherwise") << "29/02/2023"
                                               << "";
        QTest::newRow("not a date") << "hoy"
                                    << "";
        QTest::newRow("stored form is no screen date") << "20260131"
                                                       << "";
    }
    void fechas() {
        QFETCH(QString, pantalla);
        QFETCH(QString, almacen);
        QCOMPARE(Auxiliar::sDate(pantalla), almacen);
        QCOMPARE(Auxiliar::sDate(QDate(2026, 3, 4)), QStringLiteral("20260304"));
    }

    void dDate_data() {
        QTest::addColumn<QString>("almacen");
        QTest::addColumn<QString>("pantalla");
        QTest::newRow("date") << "20260131"
                              << "31/01/2026";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("short text keeps empty pieces") << "2026"
                                                       << "//2026";
        QTest::newRow("no validation") << "20261345"
                                       << "45/13/2026";
    }
    void dDate() {
        QFETCH(QString, almacen);
        QFETCH(QString, pantalla);
        QCOMPARE(Auxiliar::dDate(almacen), pantalla);
    }

    void sumar_data() {
        QTest::addColumn<QDate>("fecha");
        QTest::addColumn<int>("intervalo");
        QTest::addColumn<int>("cantidad");
        QTest::addColumn<QDate>("resultado");
        const int anios = int(formato::Intervalo::Anios), meses = int(formato::Intervalo::Meses),
                  dias = int(formato::Intervalo::Dias);
        QTest::newRow("29 Feb + 1 year") << QDate(2024, 2, 29) << anios << 1 << QDate(2025, 2, 28);
        QTest::newRow("29 Feb - 1 year") << QDate(2024, 2, 29) << anios << -1 << QDate(2023, 2, 28);
        QTest::newRow("31 Jan + 1 month") << QDate(2026, 1, 31) << meses << 1 << QDate(2026, 2, 28);
        QTest::newRow("30 days across a year")
            << QDate(2026, 12, 15) << dias << 30 << QDate(2027, 1, 14);
    }
    void sumar() {
        QFETCH(QDate, fecha);
        QFETCH(int, intervalo);
        QFETCH(int, cantidad);
        QFETCH(QDate, resultado);
        QCOMPARE(formato::sumar(fecha, formato::Intervalo(intervalo), cantidad), resultado);
    }
};

QTEST_GUILESS_MAIN(PruebaFormato)
#include "prueba_formato.moc"
