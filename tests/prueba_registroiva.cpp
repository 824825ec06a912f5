// The VAT register by hand: a new row must stand for a VAT line of a posted entry of the
// session's branch, the refusals of its saves keep the fields, the amounts follow the rates on
// leaving (a half cent goes up), empty rates are stored as 0, the delete asks first, the filter
// keeps its surcharge quirk, and a stored row selects its options, "Inversión" included.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/personal.h"
#include "data/entidades/registroiva.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "portfolio/formularios_cartera.h"

#include <QApplication>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSet>
#include <QtTest>

namespace {

QString m(int codigo) {
    return MensajeError(codigo);
}

const QStringList kClaveIva{"0=FV", "1=FV00027", "2=3"};

// On top of the entries' fixtures: the VAT types V21 (sale, VAT account 47700001), S21
// (purchase) and I21 (investment goods), both on 47200001; the third parties C1 and C2; and the
// entry FV FV00027 of the branch: 43000001 debit 121, 70000001 credit 100, and the VAT line 3,
// 47700001 credit 21.
void datosBase() {
    prepararAsientos();
    Conexion& c = *sesion_conexion;
    cuentas::Insert(c, "EMP", "47200001", "IVA soportado", "S", 8, "PRUEBA");
    Impuestos::Insert(c, "EMP", "V21", "47700001", 21, "", 5.2, "IVA repercutido 21 %", "V",
                      "PRUEBA");
    Impuestos::Insert(c, "EMP", "S21", "47200001", 21, "", 0, "IVA soportado 21 %", "C", "PRUEBA");
    Impuestos::Insert(c, "EMP", "I21", "47200001", 21, "", 0, "IVA bienes de inversión", "I",
                      "PRUEBA");
    Personal::Insert(c, "EMP", "C1", "Ferretería Pérez, S.L.", "B12345674", "", "", "", "", "", "",
                     "", "", "PRUEBA");
    Personal::Insert(c, "EMP", "C2", "Otro cliente", "12345678Z", "", "", "", "", "", "", "", "",
                     "PRUEBA");
    const QDate hoy = QDate::currentDate();
    const struct {
        int numero;
        const char* cuenta;
        double debe, haber;
        const char* tipo;
    } lineas[] = {
        {1, "43000001", 121, 0, "P"}, {2, "70000001", 0, 100, "CP"}, {3, "47700001", 0, 21, "IVA"}};
    for (const auto& l : lineas)
        Apuntes::Insert(c, "EMP", "EMP", "FV", "FV00027", l.numero, "GEN", hoy, hoy, "", l.cuenta,
                        "Factura", l.debe, l.haber, l.tipo, "", "PRUEBA");
}

void fila(const QString& delegacion, const QString& documento, const QString& numero, int apunte,
          const QString& tipo, const QString& rol, const QString& personal, double base,
          double pctre, double re) {
    RegistroIva::Insert(*sesion_conexion, "EMP", delegacion, documento, numero, apunte, tipo, rol,
                        personal, "V21", base, 21, base * 0.21, pctre, re, "PRUEBA");
}

void pulsarDesde(FormularioMantenimiento* f, QKeySequence tecla) {
    f->txt(0)->setFocus();
    pulsar(tecla);
}

// The rows of the list, each as its texts joined by "|".
QStringList filasDe(const ListaClaves* lista) {
    QStringList t;
    for (int i = 0; i < lista->filas(); ++i) {
        QStringList celdas;
        for (int c = 0; c < lista->columnCount(); ++c) celdas << lista->texto(i, c);
        t << celdas.join(u'|');
    }
    return t;
}

QStringList clavesDe(const ListaClaves* lista) {
    QStringList t;
    for (int i = 0; i < lista->filas(); ++i) t << ListaClaves::clave(lista->topLevelItem(i));
    return t;
}

// The caption of the button of the group that is on, without its accelerator.
QString elegida(FormularioMantenimiento* f, int primero, int cuantos) {
    for (int i = primero; i < primero + cuantos; ++i)
        if (f->opt(i)->isChecked()) return f->opt(i)->text().remove(u'&');
    return {};
}

enum class Antes { Nada, FilaGuardada, CuentaCambiada, OtraDelegacion };

}  // namespace

Q_DECLARE_METATYPE(Antes)
Q_DECLARE_METATYPE(Respuesta)

class PruebaRegistroIva : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaRegistroIva() : PruebaFormularios(registrarFormulariosCartera, datosBase) {}

private Q_SLOTS:

    // The VAT line of an entry, typed from the keyboard: the tax chooses the kind of tax, the
    // rate computes the VAT, the row is stored for the branch and shows in the list as listing
    // shows it afterwards.
    void altaDeUnaLineaDeIva() {
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        Buzon buzon;
        rellenar(f, kClaveIva + QStringList{"3=C1", "4=V21", "5=100", "6=21", "8=5,2"});
        QCOMPARE(elegida(f, 0, 3), QStringLiteral("Venta"));
        QCOMPARE(f->des(3)->text(), QStringLiteral("Ferretería Pérez, S.L."));
        QCOMPARE(f->des(4)->text(), QStringLiteral("IVA repercutido 21 %"));
        QCOMPARE(f->txt(7)->text(), QStringLiteral("21,00"));
        QCOMPARE(f->txt(9)->text(), QStringLiteral("5,20"));
        f->opt(4)->click();  // Proveedor
        pulsarDesde(f, kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("RegistroIva",
                       "codigo_empresa = 'EMP' AND codigo_delegacion = 'EMP' AND "
                       "codigo_documento = 'FV' AND numero_documento = 'FV00027' AND "
                       "numero_apunte = 3 AND tipo = 'V' AND tipo_acrdeu = 'PRO' AND "
                       "codigo_personal = 'C1' AND impuesto = 'V21' AND base = 100 AND "
                       "pctiva = 21 AND iva = 21 AND pctre = 5.2 AND re = 5.2"),
                 1);
        QCOMPARE(f->txt(0)->text(), QString());
        const QStringList alta = filasDe(f->lista());
        QCOMPARE(alta, QStringList("FV|FV00027|3|V|PRO|C1|V21|100,00|21|21,00|5,2|5,20"));
        QCOMPARE(clavesDe(f->lista()), QStringList("KFVFV000273"));
        pulsar(kListar);
        QCOMPARE(filasDe(f->lista()), alta);
        QCOMPARE(clavesDe(f->lista()), QStringList("KFVFV000273"));
    }

    // Each refusal says exactly its message, writes nothing and keeps the fields; a required
    // field left empty takes the focus, the first of them in order.
    void rechazos_data() {
        QTest::addColumn<Antes>("antes");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QKeySequence>("tecla");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<int>("foco");
        const QStringList importes{"4=V21", "5=100", "6=21"};
        QTest::newRow("key exists")
            << Antes::FilaGuardada << kClaveIva + importes << kInsertar << m(1041) << -1;
        QTest::newRow("line to another account")
            << Antes::Nada << QStringList{"0=FV", "1=FV00027", "2=2"} + importes << kInsertar
            << m(1043) << -1;
        QTest::newRow("line not in the journal")
            << Antes::Nada << QStringList{"0=FV", "1=FV00027", "2=9"} + importes << kInsertar
            << m(1043) << -1;
        QTest::newRow("VAT line whose tax changed account")
            << Antes::CuentaCambiada << kClaveIva + importes << kInsertar << m(1043) << -1;
        QTest::newRow("VAT line of another branch")
            << Antes::OtraDelegacion << kClaveIva + importes << kInsertar << m(1043) << -1;
        QTest::newRow("modify a missing key")
            << Antes::Nada << kClaveIva + importes << kModificar << m(1042) << -1;
        QTest::newRow("line not a number")
            << Antes::Nada << QStringList{"0=FV", "1=FV00027", "2=tres"} << kInsertar
            << "13 - No coinciden los tipos" << -1;
        QTest::newRow("filter by a line that is not a number")
            << Antes::FilaGuardada << QStringList{"2=3 or 1 = 1"} << kFiltrar
            << "13 - No coinciden los tipos" << -1;
        QTest::newRow("document empty")
            << Antes::Nada << QStringList{"1=FV00027", "2=3"} << kInsertar << m(1000) << 0;
        QTest::newRow("number empty")
            << Antes::Nada << QStringList{"0=FV", "2=3"} << kInsertar << m(1000) << 1;
        QTest::newRow("line empty")
            << Antes::Nada << QStringList{"0=FV", "1=FV00027"} << kModificar << m(1000) << 2;
        QTest::newRow("all empty")
            << Antes::Nada << QStringList{"5=100"} << kInsertar << m(1000) << 0;
    }
    void rechazos() {
        QFETCH(Antes, antes);
        QFETCH(QStringList, campos);
        QFETCH(QKeySequence, tecla);
        QFETCH(QString, mensaje);
        QFETCH(int, foco);
        if (antes == Antes::FilaGuardada)
            fila("EMP", "FV", "FV00027", 3, "V", "CLI", "C1", 10, 0, 0);
        if (antes == Antes::CuentaCambiada)
            Impuestos::Update(*sesion_conexion, "EMP", "V21", "47200001", 21, "", 5.2,
                              "IVA repercutido 21 %", "V", "PRUEBA");
        if (antes == Antes::OtraDelegacion) sesion_delegacion = "SUR";
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        rellenar(f, campos);
        QStringList tecleado;
        for (int i = 0; i < 10; ++i) tecleado << f->txt(i)->text();
        f->txt(campos.value(0).section(u'=', 0, 0).toInt())->setFocus();
        comprobarRechazo(tecla, "RegistroIva", mensaje);
        if (foco >= 0) QTRY_COMPARE(QApplication::focusWidget(), f->txt(foco));
        for (int i = 0; i < 5; ++i) QCOMPARE(f->txt(i)->text(), tecleado[i]);
        if (tecla == kFiltrar) QCOMPARE(f->lista()->filas(), 0);
    }

    // The amounts follow base and rates when one of the five fields is left, and only then;
    // an amount typed by hand stands while a rate is missing.
    void recalculo_data() {
        QTest::addColumn<QStringList>("campos");  // the last one typed and left apart
        QTest::addColumn<QString>("iva");
        QTest::addColumn<QString>("recargo");
        QTest::newRow("VAT of a base") << QStringList{"5=100", "6=21"} << "21,00"
                                       << "";
        QTest::newRow("half cent goes up") << QStringList{"5=0,50", "6=21"} << "0,11"
                                           << "";
        QTest::newRow("surcharge of a base") << QStringList{"5=100", "8=5,2"} << ""
                                             << "5,20";
        QTest::newRow("rate changed") << QStringList{"5=200", "6=21", "6=10"} << "20,00"
                                      << "";
        QTest::newRow("base changed, both follow")
            << QStringList{"5=100", "6=21", "8=5,2", "5=50"} << "10,50"
            << "2,60";
        QTest::newRow("VAT typed by hand is recomputed")
            << QStringList{"5=100", "6=21", "7=99"} << "21,00"
            << "";
        QTest::newRow("VAT typed by hand without a rate") << QStringList{"5=100", "7=15"} << "15"
                                                          << "";
        QTest::newRow("rate without a base") << QStringList{"7=3", "6=21"} << "3"
                                             << "";
    }
    void recalculo() {
        QFETCH(QStringList, campos);
        QFETCH(QString, iva);
        QFETCH(QString, recargo);
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        Buzon buzon;
        rellenar(f, campos.mid(0, campos.size() - 1));
        const QString ultimo = campos.last();
        QLineEdit* campo = f->txt(ultimo.section(u'=', 0, 0).toInt());
        const QString ivaAntes = f->txt(7)->text(), recargoAntes = f->txt(9)->text();
        escribir(campo, ultimo.section(u'=', 1));
        if (campo != f->txt(7)) QCOMPARE(f->txt(7)->text(), ivaAntes);
        QCOMPARE(f->txt(9)->text(), recargoAntes);
        salir(campo);
        QCOMPARE(f->txt(7)->text(), iva);
        QCOMPARE(f->txt(9)->text(), recargo);
        QCOMPARE(buzon.textos, QStringList());
    }

    // A base without rates: the empty rates and amounts are stored as 0.
    void porcentajesVaciosComoCero() {
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        Buzon buzon;
        rellenar(f, kClaveIva + QStringList{"5=100"});
        pulsarDesde(f, kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("RegistroIva",
                       "base = 100 AND pctiva = 0 AND iva = 0 AND pctre = 0 AND re = 0 AND "
                       "tipo = 'C' AND tipo_acrdeu = 'CLI'"),
                 1);
        QCOMPARE(filasDe(f->lista()), QStringList("FV|FV00027|3|C|CLI|||100,00|0|0,00|0|0,00"));
    }

    // A stored row loaded by its key (typed, or chosen in the list) shows its amounts by the
    // pattern, the names of its codes and its options; a row of type "I" shows "Inversión".
    void opcionesDeUnaFila_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("rol");
        QTest::addColumn<bool>("desdeLista");
        QTest::addColumn<QString>("tipoVisto");
        QTest::addColumn<QString>("rolVisto");
        QTest::newRow("purchase of a supplier") << "C"
                                                << "PRO" << false << "Compra"
                                                << "Proveedor";
        QTest::newRow("sale to a debtor") << "V"
                                          << "DEU" << true << "Venta"
                                          << "Deudor";
        QTest::newRow("investment of a creditor") << "I"
                                                  << "ACR" << false << "Inversión"
                                                  << "Acreedor";
        QTest::newRow("investment from the list") << "I"
                                                  << "CLI" << true << "Inversión"
                                                  << "Cliente";
    }
    void opcionesDeUnaFila() {
        QFETCH(QString, tipo);
        QFETCH(QString, rol);
        QFETCH(bool, desdeLista);
        QFETCH(QString, tipoVisto);
        QFETCH(QString, rolVisto);
        fila("EMP", "FV", "FV00027", 3, tipo, rol, "C1", 100, 5.2, 5.2);
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        Buzon buzon;
        // The form opens on the first buttons; the row must move them.
        f->opt(tipoVisto == "Compra" ? 1 : 0)->click();
        f->opt(rolVisto == "Cliente" ? 4 : 3)->click();
        if (desdeLista) {
            pulsarDesde(f, kListar);
            QCOMPARE(f->lista()->filas(), 1);
            f->lista()->setFocus();
            f->lista()->setCurrentItem(f->lista()->topLevelItem(0));
            QTest::keyClick(f->lista(), Qt::Key_Return);
        } else {
            rellenar(f, kClaveIva);
        }
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(f->txt(2)->text(), QStringLiteral("3"));
        QCOMPARE(f->txt(3)->text(), QStringLiteral("C1"));
        QCOMPARE(f->des(3)->text(), QStringLiteral("Ferretería Pérez, S.L."));
        QCOMPARE(f->des(4)->text(), QStringLiteral("IVA repercutido 21 %"));
        QStringList importes;
        for (int i = 5; i < 10; ++i) importes << f->txt(i)->text();
        QCOMPARE(importes, (QStringList{"100,00", "21", "21,00", "5,2", "5,20"}));
        QCOMPARE(elegida(f, 0, 3), tipoVisto);
        QCOMPARE(elegida(f, 3, 4), rolVisto);
    }

    // Leaving the tax selects the kind of tax of its type.
    void tipoDelImpuesto_data() {
        QTest::addColumn<QString>("impuesto");
        QTest::addColumn<QString>("visto");
        QTest::newRow("sale") << "V21"
                              << "Venta";
        QTest::newRow("purchase") << "S21"
                                  << "Compra";
        QTest::newRow("investment") << "I21"
                                    << "Inversión";
    }
    void tipoDelImpuesto() {
        QFETCH(QString, impuesto);
        QFETCH(QString, visto);
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        f->opt(visto == "Venta" ? 0 : 1)->click();
        comprobarSalida(f, 4, impuesto, QString());
        QCOMPARE(elegida(f, 0, 3), visto);
    }

    // The checks on leaving a field: unknown codes are "Error no definido.", amounts must be
    // numbers of whole cents and rates numbers.
    void comprobaciones_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        const QString bien;
        QTest::newRow("third party unknown") << 3 << "ZZ" << m(9999);
        QTest::newRow("third party known") << 3 << "C2" << bien;
        QTest::newRow("tax unknown") << 4 << "X99" << m(9999);
        QTest::newRow("base not a number") << 5 << "cien" << m(1004);
        QTest::newRow("base with a fraction of a cent") << 5 << "100,005" << m(1004);
        QTest::newRow("base with thousands") << 5 << "1.210,50" << bien;
        QTest::newRow("VAT rate with its sign") << 6 << "21 %" << m(1004);
        QTest::newRow("VAT rate with decimals") << 6 << "10,5" << bien;
        QTest::newRow("VAT not a number") << 7 << "x" << m(1004);
        QTest::newRow("surcharge rate not a number") << 8 << "y" << m(1004);
        QTest::newRow("surcharge with a fraction of a cent") << 9 << "1,001" << m(1004);
    }
    void comprobaciones() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        comprobarSalida(f, indice, texto, mensaje);
    }

    // The delete asks its question about the document; Yes removes the row from the store and
    // the list and empties the form, No keeps everything; without the row nothing happens.
    void borrar_data() {
        QTest::addColumn<bool>("guardada");
        QTest::addColumn<Respuesta>("respuesta");
        QTest::newRow("yes") << true << Respuesta::Si;
        QTest::newRow("no") << true << Respuesta::No;
        QTest::newRow("no such row") << false << Respuesta::Si;
    }
    void borrar() {
        QFETCH(bool, guardada);
        QFETCH(Respuesta, respuesta);
        if (guardada) fila("EMP", "FV", "FV00027", 3, "V", "CLI", "C1", 100, 0, 0);
        fila("EMP", "FV", "FV00027", 1, "V", "CLI", "C1", 50, 0, 0);
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        pulsarDesde(f, kListar);
        const int listadas = f->lista()->filas();
        rellenar(f, kClaveIva);
        Buzon buzon;
        buzon.respuestas << respuesta;
        pulsarDesde(f, kBorrar);
        QCOMPARE(buzon.textos, guardada ? QStringList("¿Desea eliminar el registro del documento "
                                                      "FV/FV00027?")
                                        : QStringList());
        const bool borrada = guardada && respuesta == Respuesta::Si;
        QCOMPARE(filas("RegistroIva", "numero_apunte = 3"), guardada && !borrada ? 1 : 0);
        QCOMPARE(filas("RegistroIva", "numero_apunte = 1"), 1);
        QCOMPARE(f->lista()->filas(), borrada ? listadas - 1 : listadas);
        QCOMPARE(f->lista()->contiene("KFVFV000273"), guardada && !borrada);
        QCOMPARE(f->txt(0)->text(), borrada ? QString() : QStringLiteral("FV"));
    }

    // The filter asks for every filled field and for both groups of buttons, within the
    // session's company and branch; "%Recargo:" is compared with the surcharge amount.
    void filtrar_data() {
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QList<int>>("opciones");
        QTest::addColumn<QStringList>("claves");
        QTest::newRow("only the buttons")
            << QStringList() << QList<int>{1} << QStringList{"KFVFV000273", "KFVFV000283"};
        QTest::newRow("the buttons as the form opens")
            << QStringList() << QList<int>() << QStringList{"KFRFR000011"};
        QTest::newRow("document number")
            << QStringList{"1=FV00028"} << QList<int>{1} << QStringList{"KFVFV000283"};
        QTest::newRow("third party, not in another branch")
            << QStringList{"3=C1"} << QList<int>{1} << QStringList{"KFVFV000273"};
        QTest::newRow("line and role")
            << QStringList{"2=2"} << QList<int>{0, 4} << QStringList{"KFRFR000012"};
        QTest::newRow("base with decimals")
            << QStringList{"5=50,00"} << QList<int>{1} << QStringList{"KFVFV000283"};
        QTest::newRow("surcharge rate compared with the amount")
            << QStringList{"8=0,5"} << QList<int>{1} << QStringList{"KFVFV000283"};
        QTest::newRow("surcharge rate not compared with the rate")
            << QStringList{"8=1"} << QList<int>{1} << QStringList();
        QTest::newRow("surcharge amount")
            << QStringList{"9=5,2"} << QList<int>{1} << QStringList{"KFVFV000273"};
    }
    void filtrar() {
        QFETCH(QStringList, campos);
        QFETCH(QList<int>, opciones);
        QFETCH(QStringList, claves);
        fila("EMP", "FV", "FV00027", 3, "V", "CLI", "C1", 100, 5.2, 5.2);
        fila("EMP", "FV", "FV00028", 3, "V", "CLI", "C2", 50, 1, 0.5);
        fila("EMP", "FR", "FR00001", 1, "C", "CLI", "C2", 200, 0, 0);
        fila("EMP", "FR", "FR00001", 2, "C", "PRO", "C2", 200, 0, 0);
        fila("SUR", "FV", "FV00027", 3, "V", "CLI", "C1", 100, 5.2, 5.2);
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        Buzon buzon;
        rellenar(f, campos);
        for (int o : opciones) f->opt(o)->click();
        pulsarDesde(f, kFiltrar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(clavesDe(f->lista()), claves);
    }

    // The form is worked from the keyboard: every field and button has a name and its own
    // accelerator, and a label's accelerator leads to its field.
    void teclado() {
        FormularioMantenimiento* f = abrirMantenimiento("frmRegistroIva");
        QVERIFY(f);
        QSet<QChar> teclas;
        const auto tecla = [&](const QString& texto) {
            const qsizetype i = texto.indexOf(u'&');
            QVERIFY2(i >= 0 && i + 1 < texto.size(), qPrintable(texto));
            const QChar c = texto.at(i + 1).toLower();
            QVERIFY2(!teclas.contains(c), qPrintable(texto));
            teclas.insert(c);
        };
        for (int i = 0; i < 10; ++i) {
            tecla(f->lbl(i)->text());
            QCOMPARE(f->lbl(i)->buddy(), f->txt(i));
            QVERIFY(!f->txt(i)->accessibleName().isEmpty());
        }
        for (int i = 0; i < 7; ++i) {
            tecla(f->opt(i)->text());
            QVERIFY(!f->opt(i)->accessibleName().isEmpty());
        }
        for (int i : {3, 4}) QVERIFY(!f->des(i)->accessibleName().isEmpty());
        QVERIFY(!f->lista()->accessibleName().isEmpty());
        QCOMPARE(f->findChild<QRadioButton*>("opt_tip(3)"), f->opt(6));
    }

    // Without a branch in session the register does not open.
    void sinDelegacion() {
        sesion_delegacion.clear();
        Buzon buzon;
        QVERIFY(!formularios::abrir("frmRegistroIva"));
        QCOMPARE(buzon.textos, QStringList("No se ha especificado la empresa o delegación."));
    }
};

QTEST_MAIN(PruebaRegistroIva)
#include "prueba_registroiva.moc"
