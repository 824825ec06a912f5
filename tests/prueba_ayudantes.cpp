// The small helpers that every form leans on: delimited lists (the lookups' parameters and
// Listas.ini), the dot of account codes, the message table and the settings files.
#include "data/global.h"
#include "data/inifunc.h"
#include "data/mensajes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class PruebaAyudantes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void getParam_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("posicion");
        QTest::addColumn<QString>("separador");
        QTest::addColumn<QString>("campo");
        QTest::newRow("second") << "a|b|c|" << 2 << "|"
                                << "b";
        QTest::newRow("beyond the last field") << "a;b" << 3 << ";"
                                               << "";
        QTest::newRow("blanks trimmed, default separator") << " a |b|" << 1 << ""
                                                           << "a";
        QTest::newRow("last without separator") << "a|b" << 2 << "|"
                                                << "b";
        QTest::newRow("empty field") << "a||c|" << 2 << "|"
                                     << "";
        QTest::newRow("position 0") << "a|b|" << 0 << "|"
                                    << "";
        QTest::newRow("empty text") << "" << 1 << "|"
                                    << "";
        QTest::newRow("semicolon inside a pipe list") << "cuenta;80;|titulo;;|" << 1 << "|"
                                                      << "cuenta;80;";
    }
    void getParam() {
        QFETCH(QString, texto);
        QFETCH(int, posicion);
        QFETCH(QString, separador);
        QFETCH(QString, campo);
        QCOMPARE(GetParam(texto, posicion, separador), campo);
        QCOMPARE(separador.isEmpty(), false);  // an empty separator becomes "|"
    }

    void setParam_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<int>("posicion");
        QTest::addColumn<QString>("resultado");
        QTest::newRow("empty text") << ""
                                    << "x" << 3 << "||x|";
        QTest::newRow("beyond the end") << "a|b|"
                                        << "x" << 4 << "a|b||x|";
        QTest::newRow("just after the end") << "a|b|"
                                            << "x" << 3 << "a|b|x|";
        QTest::newRow("first") << "a|b|"
                               << "x" << 1 << "x|b|";
        QTest::newRow("middle") << "a|b|c|"
                                << "x" << 2 << "a|x|c|";
        QTest::newRow("last without separator") << "a|b"
                                                << "x" << 2 << "a|bx|";
        QTest::newRow("window handles") << ""
                                        << "1234" << 1 << "1234|";
    }
    void setParam() {
        QFETCH(QString, texto);
        QFETCH(QString, valor);
        QFETCH(int, posicion);
        QFETCH(QString, resultado);
        QString separador;
        QCOMPARE(SetParam(texto, valor, posicion, separador), resultado);
        QCOMPARE(separador, QStringLiteral("|"));
    }
    void setParamPrimerCampoSinSeparador() {
        QString separador = QStringLiteral("|");
        QVERIFY_THROWS_EXCEPTION(
            Error, SetParam(QStringLiteral("abc"), QStringLiteral("x"), 1, separador));
    }

    void expandirCuenta_data() {
        QTest::addColumn<QString>("cuenta");
        QTest::addColumn<int>("digitos");
        QTest::addColumn<QString>("expandida");
        QTest::newRow("dot in the middle") << "43.1" << 8 << "43000001";
        QTest::newRow("dot at the end") << "4." << 8 << "40000000";
        QTest::newRow("dot at the start") << ".1" << 4 << "0001";
        QTest::newRow("no dot") << "43" << 8 << "43";
        QTest::newRow("two dots") << "4.3.1" << 8 << "4.3.1";
        QTest::newRow("one zero for the dot") << "430." << 4 << "4300";
        QTest::newRow("too long already") << "430.1" << 4 << "430.1";
        QTest::newRow("single character") << "." << 8 << ".";
        QTest::newRow("full length") << "5720.1" << 12 << "572000000001";
    }
    void expandirCuenta() {
        QFETCH(QString, cuenta);
        QFETCH(int, digitos);
        QFETCH(QString, expandida);
        QCOMPARE(ExpandirCuenta(cuenta, digitos), expandida);
    }

    void buscarEnArray() {
        const QStringList items = {QStringLiteral("001000000000"), QStringLiteral("Abc"),
                                   QStringLiteral("Abc")};
        QCOMPARE(BuscarEnArray(items, QStringLiteral("001000000000")), 1);
        QCOMPARE(BuscarEnArray(items, QStringLiteral("Abc")), 2);
        QCOMPARE(BuscarEnArray(items, QStringLiteral("ABC")), -1);
    }

    void nz() {
        QCOMPARE(Nz(QVariant(), QStringLiteral("d")).toString(), QStringLiteral("d"));
        QCOMPARE(Nz(QString(), QStringLiteral("d")).toString(), QStringLiteral("d"));
        QCOMPARE(Nz(0, 7).toInt(), 0);  // a numeric 0 is a value
        QCOMPARE(Nz(QVariant(QMetaType(QMetaType::Double))).toString(), QString());
    }

    void mensajes_data() {
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("texto");
        QTest::newRow("required") << 1000 << "El campo es obligatorio.";
        QTest::newRow("misprint kept") << 1028 << "Es asiento no está cuadrado.";
        QTest::newRow("last numbered")
            << 1048 << "No se puede abrir un ejercicio si el siguiente está cerrado.";
        QTest::newRow("nothing to print")
            << 9000 << "No hay datos que cumplan los criterios de selección para imprimir.";
        QTest::newRow("9999") << 9999 << "Error no definido.";
        QTest::newRow("gap") << 1049 << "Error no definido.";
    }
    void mensajes() {
        QFETCH(int, codigo);
        QFETCH(QString, texto);
        QCOMPARE(MensajeError(codigo), texto);
    }

    // Listas.ini keeps SQL with commas, semicolons, quotes and braces; Saldeva.ini keeps the
    // geometry of each window. Writing one key must leave every other line as it was.
    void ini() {
        QTemporaryDir dir;
        const QString archivo = dir.filePath(QStringLiteral("Listas.ini"));
        QCOMPARE(GetIni(archivo, QStringLiteral("CUENTAS"), QStringLiteral("Form"),
                        QStringLiteral("def")),
                 QStringLiteral("def"));
        const QString donde = QStringLiteral("codigo_empresa = '{@empresa}' AND pases = 'S', x; y");
        SetIni(archivo, QStringLiteral("CUENTAS"), QStringLiteral("Where"), donde);
        SetIni(archivo, QStringLiteral("CUENTAS"), QStringLiteral("Fields"),
               QStringLiteral("cuenta;80;|descripcion;;|"));
        SetIni(archivo, QStringLiteral("DIARIOS"), QStringLiteral("Form"),
               QStringLiteral("10;20;300;400;"));
        SetIni(archivo, QStringLiteral("cuentas"), QStringLiteral("WHERE"),
               donde + QStringLiteral(" AND 1 = 1"));
        QCOMPARE(GetIni(archivo, QStringLiteral("Cuentas"), QStringLiteral("where")),
                 donde + QStringLiteral(" AND 1 = 1"));
        QCOMPARE(GetIni(archivo, QStringLiteral("CUENTAS"), QStringLiteral("Fields")),
                 QStringLiteral("cuenta;80;|descripcion;;|"));
        QCOMPARE(GetIni(archivo, QStringLiteral("DIARIOS"), QStringLiteral("Form")),
                 QStringLiteral("10;20;300;400;"));
        QCOMPARE(GetIni(archivo, QStringLiteral("DIARIOS"), QStringLiteral("Fields"),
                        QStringLiteral("-")),
                 QStringLiteral("-"));

        QString conSalto = QStringLiteral("uno\ndos");
        SetIni(archivo, QStringLiteral("X"), QStringLiteral("k"), conSalto);
        QCOMPARE(conSalto, QStringLiteral("uno dos"));
        QCOMPARE(GetIni(archivo, QStringLiteral("X"), QStringLiteral("k")),
                 QStringLiteral("uno dos"));
        QCOMPARE(GetIni(archivo, QStringLiteral("DIARIOS"), QStringLiteral("Form")),
                 QStringLiteral("10;20;300;400;"));

        SetIni(archivo, QStringLiteral("X"), QStringLiteral("largo"), QString(400, u'a'));
        QCOMPARE(GetIni(archivo, QStringLiteral("X"), QStringLiteral("largo")).size(), 255);

        // A list kept in Latin-1 by a Windows editor reads with its accents; writing another
        // key puts back every other line byte for byte, bytes that are no text and bare line
        // ends included, instead of turning them into replacement characters.
        const QString latin = dir.filePath(QStringLiteral("Latin.ini"));
        const QByteArray antes = "[CUENTAS]\r\nHeader=Descripci\xf3n|\r\n\x01\xfe\xff\n";
        QFile f(latin);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(antes);
        f.close();
        QCOMPARE(GetIni(latin, QStringLiteral("CUENTAS"), QStringLiteral("Header")),
                 QStringLiteral("Descripción|"));
        SetIni(latin, QStringLiteral("CUENTAS"), QStringLiteral("Order"), QStringLiteral("cuenta"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), antes + "Order=cuenta\r\n");
    }
};

QTEST_GUILESS_MAIN(PruebaAyudantes)
#include "prueba_ayudantes.moc"
