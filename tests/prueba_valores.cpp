// Whatever a user types is data: an apostrophe, an attempt to change a statement, a very long
// text, an emoji or a NUL character. And the store answers the system's SQL the same way on
// both stores: trailing blanks, LEFT, constants in GROUP BY, lookups that see only what is
// committed.
#include "comun/almacen_prueba.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/delegaciones.h"
#include "data/entidades/personal.h"
#include "data/entidades/usuarios.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"

#include <QtTest>

namespace {
const QString U = QStringLiteral("PRUEBA");

void tercero(const QString& codigo, const QString& nombre) {
    Personal::Insert(*sesion_conexion, "E", codigo, nombre, "12345678Z", "", "", "", "", "", "", "",
                     "", U);
}
}  // namespace

class PruebaValores : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() { CREAR_ALMACEN(almacen); }
    void init() { almacen->nuevo(); }

    void apostrofes_data() {
        QTest::addColumn<QString>("texto");
        QTest::newRow("town") << "L'Hospitalet de Llobregat";
        QTest::newRow("several") << "D'Alòs i l'Hereu ''";
        QTest::newRow("ends in one") << "Cal Pep'";
        QTest::newRow("statement breaker") << "x'); DELETE FROM Personal; --";
    }
    void apostrofes() {
        QFETCH(QString, texto);
        tercero("C1", texto);
        tercero(texto, "Otro");
        tercero("C3", "Tercero");
        // Stored, found by the lookup and by a filter, and deleted by its code.
        QCOMPARE(Auxiliar::vBuscarCampo("Personal", "codigo", "nombre = " + sqlTexto(texto), "#")
                     .toString(),
                 QStringLiteral("C1"));
        Recordset filtro = Personal::GetList(
            *sesion_conexion, "codigo_empresa = 'E' and nombre = " + sqlTexto(texto), {});
        QCOMPARE(filtro.recordCount(), 1);
        QCOMPARE(filtro["nombre"].toString(), texto);
        Personal::Update(*sesion_conexion, "E", texto, "Cambiado", "X", "", "", "", "", "", "", "",
                         "", U);
        QCOMPARE(
            Auxiliar::vBuscarCampo("Personal", "nombre", "codigo = " + sqlTexto(texto)).toString(),
            QStringLiteral("Cambiado"));
        Personal::Delete(*sesion_conexion, "E", texto);
        QCOMPARE(filas("Personal"), 2);
    }

    // A password that would make the condition always true logs nobody in.
    void inyeccionEnElLogin_data() {
        QTest::addColumn<QString>("usuario");
        QTest::addColumn<QString>("clave");
        QTest::newRow("password or true") << "ANA"
                                          << "' OR 'A'='A";
        QTest::newRow("user or true") << "' OR 'A'='A"
                                      << "x";
        QTest::newRow("comment out the rest") << "ANA' --"
                                              << "x";
        QTest::newRow("company closes the quote") << "ANA"
                                                  << "CLAVE') OR ('1'='1";
    }
    void inyeccionEnElLogin() {
        QFETCH(QString, usuario);
        QFETCH(QString, clave);
        Delegaciones::Insert(*sesion_conexion, "E", "E", "Central", "", "", "", "", "", "", "", "",
                             U, false);
        Usuarios::Insert(*sesion_conexion, "", "", "ANA", "CLAVE", U, false);
        UsuariosDelegaciones::Update(*sesion_conexion, "ANA", "E", "E", -1, U);
        QVERIFY(UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "E", "E", "ANA", "CLAVE"));
        QVERIFY(!UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "E", "E", usuario, clave));
        QVERIFY(!UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "E' OR 'A'='A", "E",
                                                      usuario, clave));
        QVERIFY(!UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "E", "E", "ana",
                                                      "CLAVE"));  // case counts
    }

    void valoresExtremos_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("admitido");
        QTest::newRow("10 kB") << QString(10240, u'x') << true;
        QTest::newRow("emoji") << QStringLiteral("Frutería 🍊 Ñandú €") << true;
        QTest::newRow("line breaks and tabs") << QStringLiteral("uno\r\ndos\tres") << true;
        QTest::newRow("NUL") << QStringLiteral("antes") + QChar(u'\0') + QStringLiteral("después")
                             << false;
    }
    void valoresExtremos() {
        QFETCH(QString, texto);
        QFETCH(bool, admitido);
        try {
            tercero("C1", texto);
            QVERIFY2(admitido, "a NUL character was stored");
            QCOMPARE(Personal::GetList(*sesion_conexion, {}, {})["nombre"].toString(), texto);
            QCOMPARE(
                Auxiliar::vBuscarCampo("Personal", "codigo", "nombre = " + sqlTexto(texto), "#")
                    .toString(),
                QStringLiteral("C1"));
        } catch (const Error& e) {
            QVERIFY2(!admitido, qPrintable(e.descripcion()));
            QCOMPARE(e.numero(), errores::kInsert);
            QVERIFY2(e.descripcion().contains(QStringLiteral("NUL")), qPrintable(e.descripcion()));
            QCOMPARE(filas("Personal"), 0);
        }
        // A NUL in a condition is refused too, never cut short.
        if (!admitido)
            QVERIFY_THROWS_EXCEPTION(
                Error, Personal::GetList(*sesion_conexion, "nombre = " + sqlTexto(texto), {}));
    }

    void blancosFinalesNoCuentan() {
        tercero("C1", "Nombre");
        QCOMPARE(filas("Personal", "codigo = 'C1   '"), 1);
        QCOMPARE(filas("Personal", "codigo_empresa = 'E ' AND codigo = 'C1'"), 1);
        tercero("C2 ", "Con blanco");
        QCOMPARE(filas("Personal", "codigo = 'C2'"), 1);
        // ... and the blank itself is kept.
        QCOMPARE(Personal::GetList(*sesion_conexion, "codigo = 'C2'", {})["codigo"].toString(),
                 QStringLiteral("C2 "));
    }

    void sqlDelSistema() {
        Conexion& c = *sesion_conexion;
        for (const char* cta : {"43000001", "43000002", "40000000", "57200000"})
            cuentas::Insert(c, "E", QString::fromLatin1(cta), "Cuenta", "S", 8, U);
        QCOMPARE(filas("Cuentas", "LEFT(Cuentas.cuenta, 2) = '43'"), 2);
        Recordset grupos = c.open(
            "SELECT LEFT(cuenta,3) as cuenta, COUNT(*) as n FROM Cuentas GROUP BY LEFT(cuenta,3) "
            "ORDER BY 1");
        QCOMPARE(grupos.recordCount(), 3);
        QCOMPARE(grupos["cuenta"].toString(), QStringLiteral("400"));
        Recordset constantes = c.open(
            "SELECT codigo_empresa, '20260101', 'X' FROM Cuentas GROUP BY 'Y', codigo_empresa, 0, "
            "'20260101'");
        QCOMPARE(constantes.recordCount(), 1);
        QCOMPARE(filas("Cuentas", "cuenta LIKE '43%'"), 2);
        QCOMPARE(filas("Cuentas", "cuenta BETWEEN '40000000' AND '43000001'"), 2);
        Recordset suma = Auxiliar::GetListExt(c, "Cuentas", "codigo_empresa, COUNT(*) as n",
                                              "nivel = 8", "codigo_empresa", "", "codigo_empresa");
        QCOMPARE(suma["n"].toInt(), 4);
    }

    void busquedaDeUnValor() {
        cuentas::Insert(*sesion_conexion, "E", "43000001", "Clientes", "S", 8, U);
        // A qualified field read by its alias; a missing row or a Null gives the default.
        QCOMPARE(Auxiliar::vBuscarCampo("Cuentas", "Cuentas.descripcion AS descripcion",
                                        "cuenta = '43000001'")
                     .toString(),
                 QStringLiteral("Clientes"));
        QCOMPARE(Auxiliar::vBuscarCampo("Cuentas", "descripcion", "cuenta = 'X'", "#").toString(),
                 QStringLiteral("#"));
        QVERIFY(!Auxiliar::vBuscarCampo("Cuentas", "descripcion", "cuenta = 'X'").isValid());
        QCOMPARE(
            Auxiliar::vBuscarCampo("Cuentas", "SUM(nivel) AS total", "cuenta = 'X'", 0).toInt(), 0);

        // The lookup's own connection sees only what is committed.
        sesion_conexion->beginTrans();
        cuentas::Insert(*sesion_conexion, "E", "57200000", "Bancos", "S", 8, U);
        QCOMPARE(
            Auxiliar::vBuscarCampo("Cuentas", "descripcion", "cuenta = '57200000'", "#").toString(),
            QStringLiteral("#"));
        sesion_conexion->commitTrans();
        QCOMPARE(
            Auxiliar::vBuscarCampo("Cuentas", "descripcion", "cuenta = '57200000'", "#").toString(),
            QStringLiteral("Bancos"));
    }

    void importesExactos() {
        const double importes[] = {0.1, 121.21, 1e-14, 5.6843418860808e-14, 1234567.89, -0.01};
        int n = 1;
        for (double importe : importes)
            Apuntes::Insert(*sesion_conexion, "E", "E", "FAC", "F1", n++, "G", "01/02/2026",
                            "01/02/2026", "", "43000000", "", importe, 0, "P", "", U);
        Recordset rs = Apuntes::GetList(*sesion_conexion, {}, "numero_apunte");
        for (double importe : importes) {
            QCOMPARE(rs["debe"].toDouble(), importe);
            QCOMPARE(rs["haber"].toDouble(), 0.0);
            rs.moveNext();
        }
    }

    // A long read walked row by row while other statements run on the same connection, past
    // the size of one batch of the server's cursor.
    void lecturaLargaConOtrasConsultas() {
        const int total = 4321;
        {
            Transaccion t(*sesion_conexion);
            for (int i = 1; i <= total; ++i)
                cuentas::Insert(*sesion_conexion, "E",
                                QStringLiteral("4300%1").arg(i, 4, 10, QChar(u'0')), "Cliente", "S",
                                8, U);
            t.commit();
        }
        Recordset rs = cuentas::GetList(*sesion_conexion, "codigo_empresa = 'E'", "cuenta",
                                        Cursor::Secuencial);
        int vistas = 0;
        QString anterior;
        for (; !rs.eof(); rs.moveNext()) {
            const QString cuenta = rs["cuenta"].toString();
            QVERIFY(cuenta > anterior);
            anterior = cuenta;
            if (++vistas % 1000 == 0) QCOMPARE(filas("Cuentas", "cuenta = " + sqlTexto(cuenta)), 1);
        }
        QCOMPARE(vistas, total);
        QCOMPARE(rs.recordCount(), total);
    }

    void transaccionesAnidadas() {
        Conexion& c = *sesion_conexion;
        Transaccion exterior(c);
        tercero("C1", "Queda");
        {
            Transaccion interior(c);
            tercero("C2", "Se deshace");
        }  // not committed: only the inner work is undone
        QCOMPARE(filas("Personal"), 1);
        exterior.commit();
        QCOMPARE(Auxiliar::vBuscarCampo("Personal", "nombre", "codigo = 'C1'", "#").toString(),
                 QStringLiteral("Queda"));
    }
};

QTEST_MAIN(PruebaValores)
#include "prueba_valores.moc"
