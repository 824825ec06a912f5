// Tax identifiers as a screen judges them: what passes and each way of being refused, with the
// deliberate leniencies that a later change must not tighten or loosen unnoticed.
#include "data/almacen/error.h"
#include "forms/nif.h"

#include <QtTest>

class PruebaNif : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void veredicto_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valido");
        // Real identifiers of each kind.
        QTest::newRow("DNI") << "12345678Z" << true;
        QTest::newRow("DNI with zeros") << "00000023T" << true;
        QTest::newRow("NIE X") << "X1234567L" << true;
        QTest::newRow("NIE x lower case") << "x1234567L" << true;
        QTest::newRow("CIF company") << "B12345674" << true;
        QTest::newRow("CIF public body (letter control)") << "P0801900B" << true;
        QTest::newRow("CIF foreign entity (letter control)") << "N0032484H" << true;
        QTest::newRow("CIF with hyphen, nine as typed") << "B-1234567" << true;
        // Separators inside a NIF; digits alone get their letter.
        QTest::newRow("NIF with hyphen") << "12345678-Z" << true;
        QTest::newRow("NIF with blank and slash") << "1234 5678/Z" << true;
        QTest::newRow("digits alone") << "12345678" << true;
        QTest::newRow("one digit") << "1" << true;
        QTest::newRow("X and the letter of 0") << "XT" << true;
        // Only the shape of a CIF is judged: its control character is never computed.
        QTest::newRow("CIF with a wrong control") << "B12345670" << true;
        QTest::newRow("nine separators") << "---------" << true;
        // Each way of being wrong.
        QTest::newRow("wrong letter") << "12345678A" << false;
        QTest::newRow("letter in lower case") << "12345678z" << false;
        QTest::newRow("NIE wrong letter") << "X1234567T" << false;
        QTest::newRow("NIE opening Y unknown") << "Y1234567X" << false;
        QTest::newRow("blank in front") << " 12345678Z" << false;
        QTest::newRow("points are no separators") << "12.345.678-Z" << false;
        QTest::newRow("ends in a separator") << "12345678-" << false;
        QTest::newRow("CIF too short") << "B1234567" << false;
        QTest::newRow("CIF lower case letter") << "a12345678" << false;
        QTest::newRow("organisation letter I unknown") << "I12345678" << false;
        QTest::newRow("organisation letter J unknown") << "J12345678" << false;
        QTest::newRow("organisation letter U unknown") << "U12345678" << false;
        QTest::newRow("X alone") << "X" << false;
        QTest::newRow("empty") << "" << false;
    }
    void veredicto() {
        QFETCH(QString, texto);
        QFETCH(bool, valido);
        QCOMPARE(nif::NifValido(texto), valido);
    }

    // A NIF typed without its letter passes and gets it, on the argument only.
    void letraAnadida() {
        QString sinLetra = QStringLiteral("12345678");
        QVERIFY(nif::ComprobarNif(sinLetra));
        QCOMPARE(sinLetra, QStringLiteral("12345678Z"));
        const QString tecleado = QStringLiteral("12345678");
        QVERIFY(nif::NifValido(tecleado));
        QCOMPARE(tecleado, QStringLiteral("12345678"));
        QCOMPARE(nif::CalcularLetraNif(QStringLiteral("abc")), QString());
        // The leading number is read permissively: an exponent counts.
        QCOMPARE(nif::CalcularLetraNif(QStringLiteral("1234E5Z")), nif::LetraControl(123400000));
    }

    // Beyond a 32-bit number the letter cannot be computed: a failure, not a verdict.
    void numeroDemasiadoGrande() {
        try {
            nif::NifValido(QStringLiteral("12345678901"));
            QFAIL("no failure");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), 6);
        }
        QCOMPARE(nif::CalcularLetraNif(QStringLiteral("2147483647")),
                 nif::LetraControl(2147483647));
    }
};

QTEST_MAIN(PruebaNif)
#include "prueba_nif.moc"
