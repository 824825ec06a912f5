// The system's SQL is written in the Jet dialect; these are the statements that would fail
// or mean something else on SQLite and PostgreSQL if the translation slipped. The statements
// are also run against real stores by the store tests.
#include "data/almacen/dialecto.h"
#include "data/almacen/error.h"
#include "data/almacen/programa.h"
#include "data/almacen/sql.h"
#include "data/almacen/udl.h"

#include <QtTest>

class PruebaDialecto : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void traducir_data() {
        QTest::addColumn<QString>("jet");
        QTest::addColumn<QString>("traducida");
        QTest::newRow("plain statement unchanged")
            << "SELECT * FROM Cuentas WHERE codigo_empresa = 'E' ORDER BY cuenta"
            << "SELECT * FROM Cuentas WHERE codigo_empresa = 'E' ORDER BY cuenta";
        QTest::newRow("delete through a join")
            << "DELETE RegistroIVA.* FROM Apuntes INNER JOIN RegistroIVA ON "
               "RegistroIVA.codigo_empresa = "
               "Apuntes.codigo_empresa AND RegistroIVA.numero_apunte = Apuntes.numero_apunte WHERE "
               "Apuntes.codigo_empresa = 'E' AND Apuntes.fecha_apunte >='20260101'"
            << "DELETE FROM RegistroIVA WHERE EXISTS (SELECT 1 FROM Apuntes WHERE "
               "RegistroIVA.codigo_empresa = "
               "Apuntes.codigo_empresa AND RegistroIVA.numero_apunte = Apuntes.numero_apunte AND "
               "(Apuntes.codigo_empresa = 'E' AND Apuntes.fecha_apunte >='20260101'))";
        QTest::newRow("LEFT of a lookup")
            << "SELECT cuenta FROM CUENTAS WHERE LEFT(CUENTAS.cuenta, 2) = '43'"
            << "SELECT cuenta FROM CUENTAS WHERE SUBSTR(CUENTAS.cuenta, 1, 2) = '43'";
        QTest::newRow("LEFT twice with grouping")
            << "SELECT LEFT(cuenta,3) as cuenta, SUM(debe) as debe FROM SumasSaldos GROUP BY "
               "LEFT(cuenta,3)"
            << "SELECT SUBSTR(cuenta, 1,3) as cuenta, SUM(debe) as debe FROM SumasSaldos GROUP BY "
               "SUBSTR(cuenta, 1,3)";
        QTest::newRow("LEFT JOIN untouched") << "SELECT a.x FROM a LEFT JOIN b ON a.x = b.x"
                                             << "SELECT a.x FROM a LEFT JOIN b ON a.x = b.x";
        QTest::newRow("constants dropped from GROUP BY")
            << "SELECT codigo_empresa, codigo_delegacion, '20260101', 'ADMIN' FROM Delegaciones "
               "GROUP BY "
               "'PEPE', codigo_empresa, codigo_delegacion, 0, '20260101', 'ADMIN'"
            << "SELECT codigo_empresa, codigo_delegacion, '20260101', 'ADMIN' FROM Delegaciones "
               "GROUP BY "
               "codigo_empresa, codigo_delegacion";
        QTest::newRow("GROUP BY before HAVING and ORDER BY")
            << "SELECT cuenta, SUM(debe-haber) AS saldo FROM Apuntes GROUP BY cuenta HAVING "
               "SUM(debe-haber) <> 0 ORDER BY cuenta"
            << "SELECT cuenta, SUM(debe-haber) AS saldo FROM Apuntes GROUP BY cuenta HAVING "
               "SUM(debe-haber) <> 0 ORDER BY cuenta";
        QTest::newRow("beginning of an account: a range beside the LIKE")
            << "SELECT * FROM Cuentas WHERE codigo_empresa = 'E' AND cuenta LIKE '43%' ORDER BY "
               "cuenta"
            << "SELECT * FROM Cuentas WHERE codigo_empresa = 'E' AND (cuenta >= '43' AND cuenta < "
               "'44' AND cuenta LIKE '43%') ORDER BY cuenta";
        QTest::newRow("last digit 9, qualified column, in parentheses")
            << "SELECT a.cuenta FROM Apuntes a WHERE (a.cuenta like '4309%' OR a.cuenta LIKE '6%')"
            << "SELECT a.cuenta FROM Apuntes a WHERE ((a.cuenta >= '4309' AND a.cuenta < '430:' "
               "AND a.cuenta like '4309%') OR (a.cuenta >= '6' AND a.cuenta < '7' AND a.cuenta "
               "LIKE '6%'))";
        QTest::newRow("the next character an apostrophe, quoted")
            << "SELECT 1 FROM t WHERE c LIKE '4&%'"
            << "SELECT 1 FROM t WHERE (c >= '4&' AND c < '4''' AND c LIKE '4&%')";
        for (const char* igual :
             {"SELECT 1 FROM t WHERE codigo_documento LIKE 'FA%'",  // letters: case apart
              "SELECT 1 FROM t WHERE cuenta LIKE '4_0%'",           // wildcard inside
              "SELECT 1 FROM t WHERE cuenta LIKE '43'",             // no beginning
              "SELECT 1 FROM t WHERE cuenta NOT LIKE '43%'",
              "SELECT 1 FROM t WHERE cuenta LIKE '43%' ESCAPE '!'",
              "SELECT 1 FROM t WHERE x || cuenta LIKE '43%'",  // LIKE of the whole sum
              "SELECT 1 FROM t WHERE cuenta LIKE '4''%'",
              "SELECT 1 FROM t WHERE concepto = 'WHERE cuenta LIKE ''43%'''"})
            QTest::addRow("LIKE left alone: %s", igual) << igual << igual;
        QTest::newRow("SQL-looking text inside a value is data")
            << "SELECT * FROM Personal WHERE nombre = 'LEFT(x, 2) GROUP BY 1, ''a'''"
            << "SELECT * FROM Personal WHERE nombre = 'LEFT(x, 2) GROUP BY 1, ''a'''";
    }
    void traducir() {
        QFETCH(QString, jet);
        QFETCH(QString, traducida);
        QCOMPARE(Dialecto(Proveedor::SQLite).traducir(jet), traducida);
        QCOMPARE(Dialecto(Proveedor::PostgreSQL).traducir(jet), traducida);
    }

    void comillas_data() {
        QTest::addColumn<QString>("valor");
        QTest::addColumn<QString>("literal");
        QTest::newRow("plain") << "430"
                               << "'430'";
        QTest::newRow("apostrophe") << "L'Hospitalet"
                                    << "'L''Hospitalet'";
        QTest::newRow("injection") << "' OR 'A'='A"
                                   << "''' OR ''A''=''A'";
        QTest::newRow("empty") << ""
                               << "''";
    }
    void comillas() {
        QFETCH(QString, valor);
        QFETCH(QString, literal);
        QCOMPARE(sqlTexto(valor), literal);
        // The literal is one token: nothing of the value is left outside it.
        QCOMPARE(mascaraLiterales(sqlTexto(valor)),
                 u'\'' + QString(literal.size() - 2, u'_') + u'\'');
    }

    void descripciones() {
        programa::establecerCarpeta(QStringLiteral("/opt/saldeva"));
        const DescripcionAlmacen s = leerDescripcion(
            QStringLiteral("Provider=SQLite;Data Source=Dades/Saldeva.db;Mode=Read"));
        QCOMPARE(s.proveedor, Proveedor::SQLite);
        QCOMPARE(s.fuente, QStringLiteral("/opt/saldeva/Dades/Saldeva.db"));
        QVERIFY(s.soloLectura);
        const DescripcionAlmacen p = leerDescripcion(QStringLiteral(
            "[oledb]\n; comentario\nProvider=PostgreSQL;Host=db;Port=5433;Database=conta;User "
            "ID=u;Password=p;x"));
        QCOMPARE(p.proveedor, Proveedor::PostgreSQL);
        QCOMPARE(p.servidor, QStringLiteral("db"));
        QCOMPARE(p.puerto, 5433);
        QCOMPARE(p.fuente, QStringLiteral("conta"));
        QCOMPARE(p.contrasena, QStringLiteral("p"));
        for (const char* mala :
             {"Provider=Jet;Data Source=x.mdb", "basura sin sentido", "Provider=SQLite",
              "Provider=PostgreSQL;Port=abc;Database=x", "File name=NoExiste.udl"})
            QVERIFY_THROWS_EXCEPTION(Error, leerDescripcion(QString::fromUtf8(mala)));
    }
};

QTEST_GUILESS_MAIN(PruebaDialecto)
#include "prueba_dialecto.moc"
