// What hangs from what: the cascades delete exactly their tables' rows and nothing of another
// company or branch; provisioning is whole or nothing; a failure half-way through a cascade or
// an entry's deletion leaves the store as it was.
#include "comun/almacen_prueba.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cartera.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/delegaciones.h"
#include "data/entidades/diarios.h"
#include "data/entidades/ejercicios.h"
#include "data/entidades/empresas.h"
#include "data/entidades/menususuarios.h"
#include "data/entidades/numeracion.h"
#include "data/entidades/personal.h"
#include "data/entidades/registroirpf.h"
#include "data/entidades/registroiva.h"
#include "data/entidades/usuarios.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"

#include <QtTest>

namespace {

const QString U = QStringLiteral("PRUEBA");

// An entry of two lines with a due date, a VAT row and a withholding row on its lines.
void asiento(const QString& empresa, const QString& delegacion, const QString& numero,
             const QString& fecha) {
    Conexion& c = *sesion_conexion;
    Apuntes::Insert(c, empresa, delegacion, "FAC", numero, 1, "G", fecha, fecha, "", "43000000",
                    "Venta", 121, 0, "P", "", U);
    Apuntes::Insert(c, empresa, delegacion, "FAC", numero, 2, "G", fecha, fecha, "", "47700000",
                    "IVA", 0, 21, "IVA", "", U);
    Apuntes::Insert(c, empresa, delegacion, "FAC", numero, 3, "G", fecha, fecha, "", "47510000",
                    "IRPF", 0, 15, "IRPF", "", U);
    cartera::Insert(c, empresa, delegacion, "FAC", numero, 1, fecha, "CLI", "C1", "Vto", "C", "P",
                    121, "", "", "", U);
    RegistroIva::Insert(c, empresa, delegacion, "FAC", numero, 2, "V", "CLI", "C1", "G21", 100, 21,
                        21, 0, 0, U);
    RegistroIrpf::Insert(c, empresa, delegacion, "FAC", numero, 3, "CLI", "C1", "P15", 100, 15, 15,
                         U);
}

// Every row of every table of the main store, as text: what "the store as it was" means.
QStringList fotografia() {
    QStringList filas;
    for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Principal)) {
        const QString tabla = QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size()));
        for (Recordset rs = sesion_conexion->open(QStringLiteral("SELECT * FROM ") + tabla);
             !rs.eof(); rs.moveNext()) {
            QStringList valores{tabla};
            for (int i = 0; i < rs.fieldCount(); ++i) valores << rs.value(i).toString();
            filas << valores.join(u'|');
        }
    }
    filas.sort();
    return filas;
}

void rellenarPlantilla(AlmacenPrueba& almacen) {
    auto p = almacen.plantilla();
    p->execute("DELETE FROM sysPlanContable");
    p->execute(
        "INSERT INTO sysPlanContable (cuenta, titulo, nivel) VALUES ('4', 'Acreedores y deudores', "
        "1), "
        "('43', 'Clientes', 2), ('430', 'Clientes', 3), ('572', 'Bancos', 3)");
    p->execute("DELETE FROM sysSituacion");
    p->execute(
        "INSERT INTO sysSituacion (ap, nivel_1, nivel_2, nivel_3, titulo, cuentas) VALUES ('A', 2, "
        "3, 0, 'Deudores', '430, 440')");
    p->execute("DELETE FROM sysPergan");
    p->execute(
        "INSERT INTO sysPergan (dh, nivel_1, nivel_2, nivel_3, nivel_4, titulo, cuentas) VALUES "
        "('H', 1, 1, 0, 0, 'Ventas', '700')");
}

void empresa(const QString& codigo, int digitos = 8) {
    Empresas::Insert(*sesion_conexion, codigo, "B12345678", "Empresa " + codigo, "Calle Mayor 1",
                     "08001", "Barcelona", "Barcelona", "España", "930000000", "",
                     "info@example.com", digitos, U, false);
}

}  // namespace

class PruebaCascadas : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        rellenarPlantilla(*almacen);
    }
    void init() { almacen->nuevo(); }

    void provisionDeUnaEmpresa() {
        Usuarios::Insert(*sesion_conexion, "", "", "ANA", "CLAVE", U, false);
        empresa("E1");
        const int anio = QDate::currentDate().year();
        QCOMPARE(filas("Delegaciones", "codigo_empresa = 'E1' AND codigo_delegacion = 'E1'"), 1);
        Recordset ej = Ejercicios::GetList(*sesion_conexion, "codigo_empresa = 'E1'", {});
        QCOMPARE(ej["ejercicio"].toInt(), anio);
        QCOMPARE(ej["fecha_inicial"].toString(), QString::number(anio) + "0101");
        QCOMPARE(ej["final_bloqueo"].toString(), QString::number(anio) + "1231");
        QCOMPARE(ej["regularizado"].toString(), QStringLiteral("N"));
        Recordset cta = cuentas::GetList(*sesion_conexion, "codigo_empresa = 'E1'", "cuenta");
        QStringList cuentas;
        for (; !cta.eof(); cta.moveNext())
            cuentas << cta["cuenta"].toString() + u'/' + cta["pases"].toString() + u'/' +
                           cta["nivel"].toString();
        QCOMPARE(cuentas, QStringList({"4/N/1", "43/N/2", "430/N/3", "43000000/S/8", "572/N/3",
                                       "57200000/S/8"}));
        QCOMPARE(filas("Situacion", "codigo_empresa = 'E1' AND cuentas = '430, 440'"), 1);
        QCOMPARE(filas("Pergan", "codigo_empresa = 'E1' AND dh = 'H'"), 1);
        // The new branch is known to every user and open to none.
        QCOMPARE(filas("UsuariosDelegaciones",
                       "codigo_usuario = 'ANA' AND codigo_delegacion = 'E1' AND activo = 0"),
                 1);
    }

    void provisionEsTodoONada_data() {
        QTest::addColumn<int>("digitos");
        QTest::newRow("3 digits repeats each key") << 3;
        QTest::newRow("2 digits cannot pad") << 2;
    }
    void provisionEsTodoONada() {
        QFETCH(int, digitos);
        Usuarios::Insert(*sesion_conexion, "", "", "ANA", "CLAVE", U, false);
        const QStringList antes = fotografia();
        try {
            empresa("E3", digitos);
            QFAIL("provisioning succeeded");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), errores::kInsert);
            QVERIFY2(e.descripcion().startsWith("Error en Insert.\r\n"),
                     qPrintable(e.descripcion()));
            QVERIFY2(e.descripcion().count("\r\n") >= 2, qPrintable(e.descripcion()));
        }
        QCOMPARE(fotografia(), antes);
    }

    void plantillaAusenteNoDejaNada() {
        almacen->escribir("Sistema.udl", "Provider=SQLite;Data Source=Dades/NoExiste.db;Mode=Read");
        try {
            empresa("E4");
            QFAIL("provisioning without a template succeeded");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), errores::kInsert);
        }
        almacen->escribir("Sistema.udl", "Provider=SQLite;Data Source=Dades/Sistema.db;Mode=Read");
        QCOMPARE(filas("Empresas"), 0);
        QCOMPARE(filas("Delegaciones"), 0);
    }

    void borrarEmpresaSoloLaSuya() {
        Usuarios::Insert(*sesion_conexion, "", "", "ANA", "CLAVE", U, false);
        empresa("E1");
        const QStringList sinE1 = fotografia();
        empresa("E2");
        Delegaciones::Insert(*sesion_conexion, "E2", "NORTE", "Norte", "", "", "", "", "", "", "",
                             "", U, false);
        asiento("E2", "NORTE", "F1", "10/02/2026");
        Personal::Insert(*sesion_conexion, "E2", "C1", "Cliente", "12345678Z", "", "", "", "", "",
                         "", "", "", U);
        Diarios::Insert(*sesion_conexion, "E2", "G", "General", U);
        MenusUsuarios::Insert(*sesion_conexion, "ANA", "E2", "NORTE", "001000000000", "V", U);
        numeracion::Insert(*sesion_conexion, "E2", 2026, "FAC", 5, 1, "Facturas", U);
        Empresas::Delete(*sesion_conexion, "E2", false);
        // Users themselves belong to no company and stay.
        QCOMPARE(fotografia(), sinE1);
    }

    void borrarDelegacion() {
        Usuarios::Insert(*sesion_conexion, "", "", "ANA", "CLAVE", U, false);
        empresa("E1");
        asiento("E1", "E1", "F1", "10/02/2026");
        const QStringList sinNorte = fotografia();
        Delegaciones::Insert(*sesion_conexion, "E1", "NORTE", "Norte", "", "", "", "", "", "", "",
                             "", U, false);
        QCOMPARE(filas("UsuariosDelegaciones", "codigo_delegacion = 'NORTE' AND activo = 0"), 1);
        asiento("E1", "NORTE", "F1", "10/02/2026");
        MenusUsuarios::Insert(*sesion_conexion, "ANA", "E1", "NORTE", "001000000000", "V", U);
        Delegaciones::Delete(*sesion_conexion, "E1", "NORTE", false);
        QStringList despues = fotografia();
        QCOMPARE(despues, sinNorte);
    }

    void gemelaSigueALaEmpresa() {
        empresa("E1");
        Empresas::Update(*sesion_conexion, "E1", "B12345678", "Nueva Razón", "Gran Vía 2", "28013",
                         "Madrid", "Madrid", "España", "910000000", "", "", 8, U, false);
        Recordset d = Delegaciones::GetList(
            *sesion_conexion, "codigo_empresa = 'E1' AND codigo_delegacion = 'E1'", {});
        QCOMPARE(d["nombre"].toString(), QStringLiteral("Nueva Razón"));
        QCOMPARE(d["poblacion"].toString(), QStringLiteral("Madrid"));
        Delegaciones::Update(*sesion_conexion, "E1", "E1", "Otra", "Rambla 3", "08002", "Barcelona",
                             "Barcelona", "España", "", "", "correo@example.com", U, false);
        Recordset e = Empresas::GetList(*sesion_conexion, "codigo_empresa = 'E1'", {});
        QCOMPARE(e["nombre"].toString(), QStringLiteral("Otra"));
        QCOMPARE(e["correo"].toString(), QStringLiteral("correo@example.com"));
        QCOMPARE(e["nif"].toString(), QStringLiteral("B12345678"));
    }

    void usuarioNuevoEnTodasLasDelegaciones() {
        empresa("E1");
        empresa("E2");
        Delegaciones::Insert(*sesion_conexion, "E2", "SUR", "Sur", "", "", "", "", "", "", "", "",
                             U, false);
        Usuarios::Insert(*sesion_conexion, "E1", "E1", "LUIS", "X", U, false);
        QCOMPARE(filas("UsuariosDelegaciones", "codigo_usuario = 'LUIS' AND activo = 0"), 3);
        UsuariosDelegaciones::Update(*sesion_conexion, "LUIS", "E2", "SUR", -1, U);
        MenusUsuarios::Insert(*sesion_conexion, "LUIS", "E2", "SUR", "001000000000", "IE", U);
        QVERIFY(UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "E2", "SUR", "LUIS", "X"));
        QVERIFY(!UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, "E1", "E1", "LUIS", "X"));
        Usuarios::Delete(*sesion_conexion, "LUIS", false);
        QCOMPARE(filas("UsuariosDelegaciones", "codigo_usuario = 'LUIS'"), 0);
        QCOMPARE(filas("RestriccionesUsuariosMenus"), 0);
        QCOMPARE(filas("Usuarios"), 0);
    }

    void ejercicioNuevoLlevaSusSeries() {
        Conexion& c = *sesion_conexion;
        numeracion::Insert(c, "E1", 2026, "A", 5, 77, "Serie A", U);
        numeracion::Insert(c, "E1", 2026, "B", 6, 12, "Serie B", U);
        numeracion::Insert(c, "E1", 2027, "A", 3, 40, "Ya estaba", U);
        Ejercicios::Insert(c, "E1", 2027, "01/01/2027", "31/12/2027", "01/01/2027", "31/12/2027",
                           "N", "N", U, false);
        Recordset rs =
            numeracion::GetList(c, "codigo_empresa = 'E1' AND ejercicio = 2027", "numeracion");
        QCOMPARE(rs["numeracion"].toString(), QStringLiteral("A"));
        QCOMPARE(rs["numero"].toInt(), 40);  // a series already there stays as it is
        rs.moveNext();
        QCOMPARE(rs["numeracion"].toString(), QStringLiteral("B"));
        QCOMPARE(rs["numero"].toInt(), 1);
        QCOMPARE(rs["longitud"].toInt(), 6);
        QCOMPARE(rs["descripcion"].toString(), QStringLiteral("Serie B"));
        Ejercicios::Insert(c, "E1", 2030, "01/01/2030", "31/12/2030", "", "", "N", "N", U, false);
        QCOMPARE(filas("Numeraciones", "ejercicio = 2030"), 0);  // no year before it
    }

    void borrarEjercicio() {
        Conexion& c = *sesion_conexion;
        Ejercicios::Insert(c, "E1", 2026, "01/01/2026", "31/12/2026", "01/01/2026", "31/12/2026",
                           "N", "N", U, false);
        numeracion::Insert(c, "E1", 2026, "A", 5, 1, "Serie A", U);
        asiento("E1", "E1", "F1", "15/03/2026");
        asiento("E1", "NORTE", "F1", "15/03/2026");  // another branch: its entries stay
        asiento("E1", "E1", "F2", "15/03/2025");     // outside the year: stays
        Ejercicios::Delete(c, "E1", "E1", 2026, false);
        QCOMPARE(filas("Ejercicios"), 0);
        QCOMPARE(filas("Numeraciones"), 0);
        QCOMPARE(filas("Apuntes", "codigo_delegacion = 'E1' AND numero_documento = 'F1'"), 0);
        QCOMPARE(filas("Cartera", "codigo_delegacion = 'E1' AND numero_documento = 'F1'"), 0);
        QCOMPARE(filas("RegistroIva", "codigo_delegacion = 'E1' AND numero_documento = 'F1'"), 0);
        QCOMPARE(filas("RegistroIrpf", "codigo_delegacion = 'E1' AND numero_documento = 'F1'"), 0);
        QCOMPARE(filas("Apuntes"), 6);
        QCOMPARE(filas("Cartera"), 2);
        QCOMPARE(filas("RegistroIva"), 2);
        QCOMPARE(filas("RegistroIrpf"), 2);
    }

    void borrarAsiento_data() {
        QTest::addColumn<int>("linea");
        QTest::addColumn<int>("apuntes");
        QTest::addColumn<int>("vencimientos");
        QTest::addColumn<int>("iva");
        QTest::addColumn<int>("irpf");
        QTest::newRow("whole entry") << 0 << 3 << 1 << 1 << 1;
        QTest::newRow("line 1 takes its due date") << 1 << 5 << 1 << 2 << 2;
        QTest::newRow("line 2 takes its VAT row") << 2 << 5 << 2 << 1 << 2;
        QTest::newRow("line 3 takes its withholding") << 3 << 5 << 2 << 2 << 1;
    }
    void borrarAsiento() {
        QFETCH(int, linea);
        QFETCH(int, apuntes);
        QFETCH(int, vencimientos);
        QFETCH(int, iva);
        QFETCH(int, irpf);
        asiento("E1", "E1", "F1", "15/03/2026");
        asiento("E1", "E1", "F2", "16/03/2026");
        Apuntes::Delete(*sesion_conexion, "E1", "E1", "FAC", "F1", linea, false);
        QCOMPARE(filas("Apuntes"), apuntes);
        QCOMPARE(filas("Cartera"), vencimientos);
        QCOMPARE(filas("RegistroIva"), iva);
        QCOMPARE(filas("RegistroIrpf"), irpf);
        Apuntes::Delete(*sesion_conexion, "E1", "E1", "FAC", "NO-EXISTE", 0,
                        false);  // nothing to delete
    }

    // The last statement of each cascade fails: everything before it must be undone.
    void falloAMitadDeshaceTodo_data() {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("operacion");
        QTest::newRow("entry: its lines") << "Apuntes" << 0;
        QTest::newRow("entry: withholding rows") << "RegistroIrpf" << 0;
        QTest::newRow("company: Diarios") << "Diarios" << 1;
        QTest::newRow("branch: Delegaciones") << "Delegaciones" << 2;
        QTest::newRow("year: its lines") << "Apuntes" << 3;
        QTest::newRow("user: Usuarios") << "Usuarios" << 4;
    }
    void falloAMitadDeshaceTodo() {
        QFETCH(QString, tabla);
        QFETCH(int, operacion);
        Usuarios::Insert(*sesion_conexion, "", "", "ANA", "CLAVE", U, false);
        empresa("E1");
        Diarios::Insert(*sesion_conexion, "E1", "G", "General", U);
        asiento("E1", "E1", "F1", "15/03/" + QString::number(QDate::currentDate().year()));
        MenusUsuarios::Insert(*sesion_conexion, "ANA", "E1", "E1", "001000000000", "V", U);
        // A table that went missing makes its statement fail, on both stores alike.
        sesion_conexion->execute("ALTER TABLE " + tabla + " RENAME TO Apartada");
        const QStringList antes = [&] {
            sesion_conexion->execute("ALTER TABLE Apartada RENAME TO " + tabla);
            QStringList f = fotografia();
            sesion_conexion->execute("ALTER TABLE " + tabla + " RENAME TO Apartada");
            return f;
        }();
        try {
            switch (operacion) {
                case 0:
                    Apuntes::Delete(*sesion_conexion, "E1", "E1", "FAC", "F1", 0, false);
                    break;
                case 1:
                    Empresas::Delete(*sesion_conexion, "E1", false);
                    break;
                case 2:
                    Delegaciones::Delete(*sesion_conexion, "E1", "E1", false);
                    break;
                case 3:
                    Ejercicios::Delete(*sesion_conexion, "E1", "E1", QDate::currentDate().year(),
                                       false);
                    break;
                case 4:
                    Usuarios::Delete(*sesion_conexion, "ANA", false);
                    break;
            }
            QFAIL("the cascade did not fail");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), errores::kDelete);
        }
        sesion_conexion->execute("ALTER TABLE Apartada RENAME TO " + tabla);
        QCOMPARE(fotografia(), antes);
    }
};

QTEST_MAIN(PruebaCascadas)
#include "prueba_cascadas.moc"
