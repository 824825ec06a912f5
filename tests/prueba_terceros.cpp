// The tax and third-party tables through their forms: each form's whole round (insert, modify,
// filter, delete), the checks of its fields and the refusals of its saves with their messages;
// the exact hundred of a payment method; the defaults and names of an account's role; and the
// starting rows a new company is offered.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/formaspago.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/irpf.h"
#include "data/entidades/personal.h"
#include "data/entidades/registroiva.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "setup/formularios_empresa.h"
#include "setup/habituales.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolBar>
#include <QtTest>

namespace {

QString m(int codigo) {
    return MensajeError(codigo);
}

// What every test starts from: a customer account, a third party, a VAT type, a payment
// method and a withholding; the account 43000002 already tied to the third party C1, and a
// VAT type and a third party that the VAT register names.
void datosBase() {
    crearEmpresaPrueba();
    sesionEmp();
    Conexion& c = *sesion_conexion;
    cuentas::Insert(c, "EMP", "43000001", "Ferretería Pérez", "S", 8, "PRUEBA");
    cuentas::Insert(c, "EMP", "43000002", "Ferretería Pérez, segunda", "S", 8, "PRUEBA");
    Personal::Insert(c, "EMP", "C1", "Ferretería Pérez, S.L.", "B12345674", "", "", "", "", "", "",
                     "", "", "PRUEBA");
    Personal::Insert(c, "EMP", "C2", "Otro cliente", "12345678Z", "", "", "", "", "", "", "", "",
                     "PRUEBA");
    Impuestos::Insert(c, "EMP", "V21", "47700000", 21, "", 0, "IVA 21 %", "V", "PRUEBA");
    Impuestos::Insert(c, "EMP", "USADO", "47700000", 10, "", 0, "IVA 10 %", "V", "PRUEBA");
    FormasPago::Insert(c, "EMP", "30", "A 30 días", "30", 100, "0", 0, "0", 0, "0", 0, "PRUEBA");
    irpf::Insert(c, "EMP", "P15", "47500000", 15, "Profesionales", "PRUEBA");
    acrdeu::Insert(c, "EMP", "43000002", "C1", "CLI", "NAC", "V21", "30", 0, 0, "", "", "PRUEBA");
    RegistroIva::Insert(c, "EMP", "EMP", "FV", "FV00001", 1, "V", "CLI", "C2", "USADO", 100, 10, 10,
                        0, 0, "PRUEBA");
}

void guardar(FormularioMantenimiento* f, QKeySequence tecla, const QList<int>& opciones = {}) {
    for (int o : opciones) f->opt(o)->click();
    f->txt(0)->setFocus();
    pulsar(tecla);
}

}  // namespace

class PruebaTerceros : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaTerceros() : PruebaFormularios(registrarFormulariosEmpresa, {}) {}

private Q_SLOTS:

    // Each form from the keyboard: a new row, a change of the row loaded by its code, a filter
    // by a field, and a delete with its question; the store holds what the screen said.
    void recorrido_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QStringList>("alta");
        QTest::addColumn<QList<int>>("opciones");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("trasAlta");
        QTest::addColumn<QStringList>("cambio");
        QTest::addColumn<QString>("trasCambio");
        QTest::addColumn<QStringList>("filtro");
        QTest::addColumn<int>("filtradas");
        QTest::addColumn<QStringList>("clave");
        QTest::addColumn<QString>("pregunta");
        // A new VAT type loses its surcharge account; the change stores it, and loading the
        // row chose the type's option again.
        QTest::newRow("frmImpuestos")
            << "frmImpuestos"
            << QStringList{"0=G21", "1=477.", "2=21", "3=477.", "4=5,2", "5=General con recargo"}
            << QList<int>{1} << "Impuestos"
            << "impuesto = 'G21' AND cta_iva = '47700000' AND pct_iva = 21 AND cta_re IS NULL "
               "AND pct_re = 5.2 AND tipo = 'V'"
            << QStringList{"0=G21", "3=477.", "5=General"}
            << "impuesto = 'G21' AND cta_re = '47700000' AND descripcion = 'General' AND "
               "tipo = 'V'"
            << QStringList{"4=5,2"} << 1 << QStringList{"0=G21"}
            << "¿Desea eliminar el impuesto G21?";
        QTest::newRow("frmIrpf") << "frmIrpf"
                                 << QStringList{"0=P7", "1=475.", "2=7", "3=Nueva actividad"}
                                 << QList<int>() << "Irpf"
                                 << "codigo = 'P7' AND cuenta = '47500000' AND pct_irpf = 7"
                                 << QStringList{"0=P7", "2=7,5"}
                                 << "codigo = 'P7' AND pct_irpf = 7.5 AND descripcion = "
                                    "'Nueva actividad'"
                                 << QStringList{"2=7.5"} << 1 << QStringList{"0=P7"}
                                 << "¿Desea eliminar el Irpf P7?";
        // Empty due dates are stored as "0" and 0.
        QTest::newRow("frmFormasPago")
            << "frmFormasPago"
            << QStringList{"0=30-60", "1=A 30 y 60 días", "2=30", "3=50", "4=60", "5=50"}
            << QList<int>() << "FormasPagos"
            << "codigo_pago = '30-60' AND vto1 = '30' AND pct1 = 50 AND vto2 = '60' AND "
               "pct2 = 50 AND vto3 = '0' AND pct3 = 0 AND vto4 = '0' AND pct4 = 0"
            << QStringList{"0=30-60", "1=Aplazado"}
            << "codigo_pago = '30-60' AND descripcion = 'Aplazado' AND pct2 = 50"
            << QStringList{"1=Aplazado"} << 1 << QStringList{"0=30-60"}
            << "¿Desea eliminar la forma de pago 30-60?";
        // A NIF typed without its letter is stored without it.
        QTest::newRow("frmPersonal")
            << "frmPersonal" << QStringList{"0=P2",       "1=Ferretería L'Hospitalet",
                                            "2=12345678", "3=Calle Mayor 1",
                                            "4=València", "5=46001"}
            << QList<int>() << "Personal"
            << "codigo = 'P2' AND nif = '12345678' AND nombre = 'Ferretería L''Hospitalet'"
            << QStringList{"0=P2", "2=x1234567L"}
            << "codigo = 'P2' AND nif = 'x1234567L' AND cp = '46001'" << QStringList{"4=València"}
            << 1 << QStringList{"0=P2"} << "¿Desea eliminar el codigo P2?";
        QTest::newRow("frmAcrdeu")
            << "frmAcrdeu"
            << QStringList{"0=43.1", "1=C1", "2=V21", "3=30", "4=", "5=2,5", "6=P15", "7=700."}
            << QList<int>{1, 5} << "Acrdeu"
            << "cuenta = '43000001' AND codigo = 'C1' AND tipo = 'PRO' AND nacionalidad = 'COM' "
               "AND primer_dia = 0 AND descuento = 2.5 AND irpf = 'P15' AND contrapartida = "
               "'70000000'"
            << QStringList{"0=43.1", "1=C1", "4=31"}
            << "cuenta = '43000001' AND primer_dia = 31 AND tipo = 'PRO' AND nacionalidad = 'COM'"
            << QStringList{"2=V21"} << 1 << QStringList{"0=43.1", "1=C1"}
            << "¿Desea eliminar los datos 43000001/C1?";
    }
    void recorrido() {
        QFETCH(QString, nombre);
        QFETCH(QStringList, alta);
        QFETCH(QList<int>, opciones);
        QFETCH(QString, tabla);
        QFETCH(QString, trasAlta);
        QFETCH(QStringList, cambio);
        QFETCH(QString, trasCambio);
        QFETCH(QStringList, filtro);
        QFETCH(int, filtradas);
        QFETCH(QStringList, clave);
        QFETCH(QString, pregunta);
        datosBase();
        const int antes = filas(tabla);
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        Buzon buzon;
        rellenar(f, alta);
        guardar(f, kInsertar, opciones);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas(tabla, trasAlta), 1);
        QCOMPARE(f->lista()->filas(), 1);
        QCOMPARE(f->txt(0)->text(), QString());

        rellenar(f, cambio);
        guardar(f, kModificar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas(tabla, trasCambio), 1);
        QCOMPARE(filas(tabla), antes + 1);

        // Filtering a cleared Acrdeu form asks for national customers: the supplier is found
        // by its options, not by the cleared ones.
        rellenar(f, filtro);
        if (nombre == "frmAcrdeu") f->opt(1)->click(), f->opt(5)->click();
        guardar(f, kFiltrar);
        QCOMPARE(f->lista()->filas(), filtradas);

        pulsar(kCancelar);
        rellenar(f, clave);
        buzon.respuestas << Respuesta::No << Respuesta::Si;
        guardar(f, kBorrar);
        QCOMPARE(filas(tabla), antes + 1);
        rellenar(f, clave);
        guardar(f, kBorrar);
        QCOMPARE(buzon.textos, QStringList({pregunta, pregunta}));
        QCOMPARE(filas(tabla), antes);
        QCOMPARE(f->lista()->filas(), filtradas - 1);
    }

    // Leaving a field runs its check: a refusal shows its message and keeps the focus; a code
    // that is found shows its name beside the field.
    void comprobaciones_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("nombreVisto");
        const QString bien;
        QTest::newRow("VAT account heading") << "frmImpuestos" << 1 << "430" << bien << bien;
        QTest::newRow("VAT account unknown") << "frmImpuestos" << 1 << "999" << m(1001) << bien;
        QTest::newRow("VAT rate text") << "frmImpuestos" << 2 << "veinte" << m(1024) << bien;
        QTest::newRow("VAT rate 16,5") << "frmImpuestos" << 2 << "16,5" << bien << bien;
        QTest::newRow("RE account unknown") << "frmImpuestos" << 3 << "4.7" << m(1001) << bien;
        QTest::newRow("RE rate text") << "frmImpuestos" << 4 << "1,4%" << m(1024) << bien;
        QTest::newRow("IRPF account heading") << "frmIrpf" << 1 << "430" << m(1001) << bien;
        QTest::newRow("IRPF account posting") << "frmIrpf" << 1 << "475." << bien << bien;
        QTest::newRow("IRPF rate text") << "frmIrpf" << 2 << "15 %" << m(1024) << bien;
        QTest::newRow("NIF wrong letter") << "frmPersonal" << 2 << "12345678A" << m(1006) << bien;
        QTest::newRow("NIF lower-case letter")
            << "frmPersonal" << 2 << "12345678z" << m(1006) << bien;
        QTest::newRow("NIE lower-case x") << "frmPersonal" << 2 << "x1234567L" << bien << bien;
        QTest::newRow("CIF") << "frmPersonal" << 2 << "B12345674" << bien << bien;
        QTest::newRow("NIF too big") << "frmPersonal" << 2 << "12345678901"
                                     << "6 - Desbordamiento" << bien;
        QTest::newRow("role account heading") << "frmAcrdeu" << 0 << "430" << m(1001) << bien;
        QTest::newRow("role account named")
            << "frmAcrdeu" << 0 << "43.1" << bien << "Ferretería Pérez";
        QTest::newRow("third party missing") << "frmAcrdeu" << 1 << "ZZ" << m(1020) << bien;
        QTest::newRow("third party named")
            << "frmAcrdeu" << 1 << "C1" << bien << "Ferretería Pérez, S.L.";
        QTest::newRow("VAT type missing") << "frmAcrdeu" << 2 << "V99" << m(1020) << bien;
        QTest::newRow("payment method missing") << "frmAcrdeu" << 3 << "90" << m(1020) << bien;
        QTest::newRow("withholding missing") << "frmAcrdeu" << 6 << "P99" << m(1020) << bien;
        QTest::newRow("counterpart heading") << "frmAcrdeu" << 7 << "700" << m(1001) << bien;
    }
    void comprobaciones() {
        QFETCH(QString, nombre);
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        QFETCH(QString, nombreVisto);
        datosBase();
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        comprobarSalida(f, indice, texto, mensaje);
        if (f->des(indice)) QCOMPARE(f->des(indice)->text(), nombreVisto);
    }

    // The refusals of a save, each with its form's message, and nothing written.
    void alGuardar_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QKeySequence>("tecla");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("mensaje");
        const QStringList tipo{"1=477.", "2=21", "5=Tipo"};
        QTest::newRow("VAT type exists")
            << "frmImpuestos" << QStringList{"0=V21"} + tipo << kInsertar << "Impuestos" << m(9999);
        QTest::newRow("VAT type missing")
            << "frmImpuestos" << QStringList{"0=V7"} + tipo << kModificar << "Impuestos" << m(9999);
        QTest::newRow("VAT type in the register, changed")
            << "frmImpuestos" << QStringList{"0=USADO", "5=Otro"} << kModificar << "Impuestos"
            << m(1035);
        QTest::newRow("VAT type in the register, deleted")
            << "frmImpuestos" << QStringList{"0=USADO"} << kBorrar << "Impuestos" << m(1035);
        QTest::newRow("VAT description required")
            << "frmImpuestos" << QStringList{"0=V7", "1=477.", "2=7"} << kInsertar << "Impuestos"
            << m(1000);
        QTest::newRow("withholding exists")
            << "frmIrpf" << QStringList{"0=P15", "1=475.", "2=15", "3=P"} << kInsertar << "Irpf"
            << m(9999);
        QTest::newRow("withholding rate required")
            << "frmIrpf" << QStringList{"0=P1", "1=475.", "3=P"} << kInsertar << "Irpf" << m(1000);
        QTest::newRow("payment method exists")
            << "frmFormasPago" << QStringList{"0=30", "1=x", "2=30", "3=100"} << kInsertar
            << "FormasPagos" << m(1013);
        QTest::newRow("payment method missing")
            << "frmFormasPago" << QStringList{"0=60", "1=x", "2=60", "3=100"} << kModificar
            << "FormasPagos" << m(1014);
        QTest::newRow("third party exists")
            << "frmPersonal" << QStringList{"0=C1", "1=x", "2=12345678Z"} << kInsertar << "Personal"
            << m(1019);
        QTest::newRow("third party missing")
            << "frmPersonal" << QStringList{"0=C9", "1=x", "2=12345678Z"} << kModificar
            << "Personal" << m(1020);
        QTest::newRow("third party in the register")
            << "frmPersonal" << QStringList{"0=C2"} << kBorrar << "Personal" << m(1035);
        const QStringList rol{"2=V21", "3=30"};
        QTest::newRow("account taken by another third party")
            << "frmAcrdeu" << QStringList{"0=43.2", "1=C2"} + rol << kInsertar << "Acrdeu"
            << m(1017);
        QTest::newRow("role missing") << "frmAcrdeu" << QStringList{"0=43.1", "1=C1"} + rol
                                      << kModificar << "Acrdeu" << m(1018);
        QTest::newRow("role day not a number")
            << "frmAcrdeu" << QStringList{"0=43.1", "1=C1"} + rol + QStringList{"4=quince"}
            << kInsertar << "Acrdeu" << m(1004);
        QTest::newRow("role discount not a number")
            << "frmAcrdeu" << QStringList{"0=43.1", "1=C1"} + rol + QStringList{"5=2 %"}
            << kInsertar << "Acrdeu" << m(1004);
        QTest::newRow("role day beyond 16 bits")
            << "frmAcrdeu" << QStringList{"0=43.1", "1=C1"} + rol + QStringList{"4=40000"}
            << kInsertar << "Acrdeu"
            << "6 - Desbordamiento";
        QTest::newRow("role VAT type required")
            << "frmAcrdeu" << QStringList{"0=43.1", "1=C1", "3=30"} << kInsertar << "Acrdeu"
            << m(1000);
    }
    void alGuardar() {
        QFETCH(QString, nombre);
        QFETCH(QStringList, campos);
        QFETCH(QKeySequence, tecla);
        QFETCH(QString, tabla);
        QFETCH(QString, mensaje);
        datosBase();
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        rellenar(f, campos);
        f->txt(0)->setFocus();
        comprobarRechazo(tecla, tabla, mensaje);
        if (tecla == kModificar && nombre == "frmImpuestos")
            QCOMPARE(filas(tabla, "impuesto = 'USADO' AND descripcion = 'IVA 10 %'"), 1);
    }

    // A surcharge account without its rate is emptied and the save refused; saved again, the
    // type has no surcharge.
    void recargoSinPorcentaje() {
        datosBase();
        FormularioMantenimiento* f = abrirMantenimiento("frmImpuestos");
        rellenar(f, {"0=V5", "1=477.", "2=5", "3=477.", "5=Superreducido"});
        Buzon buzon;
        guardar(f, kInsertar);
        QCOMPARE(buzon.textos, QStringList(m(1008)));
        QCOMPARE(f->txt(3)->text(), QString());
        QCOMPARE(filas("Impuestos", "impuesto = 'V5'"), 0);
        guardar(f, kInsertar);
        QCOMPARE(buzon.textos.size(), 1);
        QCOMPARE(filas("Impuestos", "impuesto = 'V5' AND pct_re = 0 AND tipo = 'C'"), 1);
    }

    // The percentages of a payment method must add up to exactly 100 as floating point, with
    // no rounding; the first due date is required, days and percentage go in pairs, and what
    // is not a number stops the save with a message.
    void porcentajes_data() {
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QStringList>("mensajes");
        QTest::addColumn<int>("foco");
        QTest::addColumn<QString>("guardado");
        const QStringList nada;
        QTest::newRow("100") << QStringList{"2=0", "3=100"} << nada << -1 << "pct1 = 100";
        QTest::newRow("50 and 50") << QStringList{"2=30", "3=50", "4=60", "5=50"} << nada << -1
                                   << "vto2 = '60' AND pct2 = 50";
        QTest::newRow("33,33 33,33 33,34")
            << QStringList{"2=30", "3=33,33", "4=60", "5=33,33", "6=90", "7=33,34"} << nada << -1
            << "pct3 = 33.34 AND vto4 = '0'";
        QTest::newRow("days with 0 percent") << QStringList{"2=30", "3=100", "4=60", "5=0"} << nada
                                             << -1 << "vto2 = '60' AND pct2 = 0";
        QTest::newRow("99,99") << QStringList{"2=30", "3=99,99"} << QStringList(m(1010)) << -1
                               << "";
        QTest::newRow("100,01") << QStringList{"2=30", "3=100.01"} << QStringList(m(1010)) << -1
                                << "";
        // Exactly 100 in decimals, 100.00000000000001 when added as binary floating point.
        QTest::newRow("0,01 64,04 35,95")
            << QStringList{"2=30", "3=0,01", "4=60", "5=64,04", "6=90", "7=35,95"}
            << QStringList(m(1010)) << -1 << "";
        QTest::newRow("last pair alone")
            << QStringList{"8=90", "9=100"} << QStringList(m(1000)) << 2 << "";
        QTest::newRow("days without percentage")
            << QStringList{"2=30", "3=50", "4=60"} << QStringList(m(1008)) << 5 << "";
        QTest::newRow("second percentage without days")
            << QStringList{"2=30", "3=50", "5=50"} << QStringList(m(1009)) << 6 << "";
        QTest::newRow("fourth percentage without days")
            << QStringList{"2=30", "3=50", "4=60", "5=25", "6=90", "7=24", "9=1"}
            << QStringList{m(1009), "340 - No existe el elemento 10 de la matriz de controles"}
            << -1 << "";
        QTest::newRow("percentage not a number")
            << QStringList{"2=30", "3=cien"} << QStringList("13 - No coinciden los tipos") << -1
            << "";
        QTest::newRow("third percentage not a number")
            << QStringList{"2=30", "3=50", "4=60", "5=25", "6=90", "7=25 %"}
            << QStringList("13 - No coinciden los tipos") << -1 << "";
    }
    void porcentajes() {
        QFETCH(QStringList, campos);
        QFETCH(QStringList, mensajes);
        QFETCH(int, foco);
        QFETCH(QString, guardado);
        datosBase();
        FormularioMantenimiento* f = abrirMantenimiento("frmFormasPago");
        rellenar(f, QStringList{"0=F", "1=Prueba"} + campos);
        Buzon buzon;
        guardar(f, kInsertar);
        QCOMPARE(buzon.textos, mensajes);
        if (!mensajes.isEmpty()) QCOMPARE(buzon.iconos.value(0), Icono::Critico);
        if (foco >= 0) QTRY_COMPARE(QApplication::focusWidget(), f->txt(foco));
        if (guardado.isEmpty())
            QCOMPARE(filas("FormasPagos", "codigo_pago = 'F'"), 0);
        else
            QCOMPARE(filas("FormasPagos", "codigo_pago = 'F' AND " + guardado), 1);
    }

    // An account's role on screen: the cleared form's defaults, the formats of day and
    // discount on leaving, the row loaded by account and third party with its options and
    // names, and a row of the list whose payment method was deleted.
    void rolDeUnaCuenta() {
        datosBase();
        FormularioMantenimiento* f = abrirMantenimiento("frmAcrdeu");
        QCOMPARE(f->txt(4)->text(), QStringLiteral("0"));
        QCOMPARE(f->txt(5)->text(), QStringLiteral("0,00"));
        QVERIFY(f->opt(0)->isChecked() && f->opt(4)->isChecked());
        Buzon buzon;
        teclear(f->txt(4), "");
        QCOMPARE(f->txt(4)->text(), QStringLiteral("0"));
        teclear(f->txt(5), "2,5");
        QCOMPARE(f->txt(5)->text(), QStringLiteral("2,50"));

        // The options take lupa away from the field that had one.
        f->txt(1)->setFocus();
        QVERIFY(Boton(f->barra(), claves::lupa)->isEnabled());
        f->opt(2)->setFocus();
        QVERIFY(!Boton(f->barra(), claves::lupa)->isEnabled());

        // Saved with the discount emptied and not left: 0, shown by its pattern in the list.
        rellenar(f, {"0=43.1", "1=C1", "2=V21", "3=30", "4=31", "7=700."});
        escribir(f->txt(5), "");
        guardar(f, kInsertar, {3, 6});
        QCOMPARE(filas("Acrdeu",
                       "cuenta = '43000001' AND tipo = 'ACR' AND nacionalidad = 'EXT' "
                       "AND primer_dia = 31 AND descuento = 0"),
                 1);
        QCOMPARE(f->lista()->texto(0, 7), QStringLiteral("0,00"));
        rellenar(f, {"0=43.1", "1=C1"});
        QVERIFY(f->opt(3)->isChecked() && f->opt(6)->isChecked());
        QCOMPARE(f->txt(3)->text(), QStringLiteral("30"));
        QCOMPARE(f->txt(5)->text(), QStringLiteral("0,00"));
        QCOMPARE(f->des(0)->text(), QStringLiteral("Ferretería Pérez"));
        QCOMPARE(f->des(1)->text(), QStringLiteral("Ferretería Pérez, S.L."));
        QCOMPARE(f->des(7)->text(), QStringLiteral("Ventas de mercaderías"));

        // The same account with another third party is a change that finds no row.
        rellenar(f, {"1=C2"});
        guardar(f, kModificar);
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().startsWith(QString::number(errores::kUpdate)),
                 qPrintable(buzon.ultimo()));
        QCOMPARE(filas("Acrdeu", "codigo = 'C2'"), 0);

        buzon.vaciar();
        pulsar(kCancelar);
        FormasPago::Delete(*sesion_conexion, "EMP", "30");
        pulsar(kListar);
        QCOMPARE(f->lista()->filas(), 2);
        emit f->lista()->itemActivated(f->lista()->topLevelItem(0), 0);
        QCOMPARE(buzon.textos, QStringList(m(1020)));
        QCOMPARE(f->txt(0)->text(), QStringLiteral("43000001"));
        QCOMPARE(f->des(1)->text(), QStringLiteral("Ferretería Pérez, S.L."));
        QTRY_COMPARE(QApplication::focusWidget(), f->txt(3));
    }

    // The starting rows: added once, each passing its own form's checks, with the
    // subaccounts they post to; a code the company already has is left as it is.
    void habitualesDeUnaEmpresaNueva() {
        crearEmpresaPrueba();
        sesionEmp();
        Conexion& c = *sesion_conexion;
        Impuestos::Insert(c, "EMP", "V21", "47700000", 20, "", 0, "Propio", "V", "PRUEBA");
        QCOMPARE(habituales::Impuestos(c, "EMP", 8, "ANA"), 11);
        QCOMPARE(habituales::Retenciones(c, "EMP", 8, "ANA"), 3);
        QCOMPARE(habituales::FormasPago(c, "EMP", "ANA"), 4);
        QCOMPARE(habituales::Impuestos(c, "EMP", 8, "ANA"), 0);
        QCOMPARE(filas("Impuestos", "impuesto = 'V21' AND pct_iva = 20"), 1);
        QCOMPARE(filas("Impuestos",
                       "impuesto = 'V10R' AND cta_iva = '47700010' AND pct_iva = 10 "
                       "AND cta_re = '47700014' AND pct_re = 1.4 AND tipo = 'V'"),
                 1);
        QCOMPARE(filas("Impuestos", "impuesto = 'CEX' AND cta_iva = '47200000' AND pct_iva = 0"),
                 1);
        QCOMPARE(filas("Cuentas",
                       "cuenta IN ('47200021', '47700052', '47510015', '47510019') "
                       "AND pases = 'S' AND nivel = 8"),
                 4);

        for (const char* nombre : {"frmImpuestos", "frmIrpf", "frmFormasPago"}) {
            FormularioMantenimiento* f = abrirMantenimiento(nombre);
            guardar(f, kListar);
            const int n = f->lista()->filas();
            QVERIFY2(n >= 3, nombre);
            Buzon buzon;
            for (int i = 0; i < n; ++i) {
                rellenar(f, {"0=" + f->lista()->texto(i, 0)});
                guardar(f, kModificar);
            }
            QVERIFY2(buzon.textos.isEmpty(), qPrintable(buzon.textos.join('\n')));
        }
    }

    // The button of a form offers the rows to the session's company: asked, added, told,
    // listed; offered again, nothing is missing.
    void botonHabituales() {
        crearEmpresaPrueba();
        sesionEmp();
        FormularioMantenimiento* f = abrirMantenimiento("frmFormasPago");
        auto* boton = f->barra()->findChild<QAction*>("habituales");
        QVERIFY(boton);
        Buzon buzon;
        buzon.respuestas << Respuesta::No << Respuesta::Si << Respuesta::Si << Respuesta::Si;
        boton->trigger();
        QCOMPARE(filas("FormasPagos"), 0);
        boton->trigger();
        QCOMPARE(buzon.ultimo(), QStringLiteral("Se han añadido 4 formas de pago."));
        QCOMPARE(f->lista()->filas(), 4);
        boton->trigger();
        QCOMPARE(buzon.ultimo(), QStringLiteral("No faltaba ninguna de las habituales."));
        QCOMPARE(filas("FormasPagos"), 4);
        sesion_conexion->execute("DELETE FROM FormasPagos WHERE codigo_pago = 'CON'");
        boton->trigger();
        QCOMPARE(buzon.ultimo(), QStringLiteral("Se ha añadido 1 forma de pago."));
    }

    void cuentaDeUnTipo_data() {
        QTest::addColumn<QString>("grupo");
        QTest::addColumn<QString>("subcuenta");
        QTest::addColumn<int>("digitos");
        QTest::addColumn<QString>("cuenta");
        QTest::newRow("8 digits") << "477"
                                  << "21" << 8 << "47700021";
        QTest::newRow("withholding") << "4751"
                                     << "7" << 8 << "47510007";
        QTest::newRow("just long enough") << "4751"
                                          << "15" << 7 << "4751015";
        QTest::newRow("too short") << "4751"
                                   << "15" << 6 << "475000";
        QTest::newRow("group's own") << "472"
                                     << "" << 10 << "4720000000";
    }
    void cuentaDeUnTipo() {
        QFETCH(QString, grupo);
        QFETCH(QString, subcuenta);
        QFETCH(int, digitos);
        QFETCH(QString, cuenta);
        QCOMPARE(habituales::Cuenta(grupo, subcuenta, digitos), cuenta);
    }
};

QTEST_MAIN(PruebaTerceros)
#include "prueba_terceros.moc"
