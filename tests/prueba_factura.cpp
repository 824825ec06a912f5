// Invoices typed on the entry form as a bookkeeper types them: one gross amount on the first
// tab, the split the tax tab proposes from the third party, the lines it generates, the
// counterpart from the third party's role, and the register rows stored with the entry, all of
// it or nothing; the stored invoice shown back by its number.
#include "comun/almacen_prueba.h"
#include "comun/apunte_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "comun/sesion_prueba.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/documentos.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/irpf.h"
#include "data/entidades/registroirpf.h"
#include "data/entidades/registroiva.h"
#include "data/global.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "posting/formularios_asientos.h"
#include "posting/frmapunte.h"

#include <QApplication>
#include <QDate>
#include <QLineEdit>
#include <QtTest>

namespace {

const QString kAnio = QString::number(QDate::currentDate().year());

// On top of the entries' company: a purchase document FC (main line on the credit side) and a
// sale document FS (debit side), both with VAT and without portfolio; a professional who
// invoices with VAT 21 % and withholding 15 %, and a shop that pays VAT with surcharge.
void prepararFacturas() {
    prepararAsientos();
    Conexion& c = *sesion_conexion;
    Documentos::Insert(c, "EMP", "FC", "Factura de compra", "H", "S", "N", "FAC", "FC", "PRUEBA");
    Documentos::Insert(c, "EMP", "FS", "Factura de venta", "D", "S", "N", "FAC", "FS", "PRUEBA");
    for (const char* cuenta :
         {"41000001", "62300001", "47200021", "47510001", "43000002", "47700052"})
        cuentas::Insert(c, "EMP", cuenta, QStringLiteral("Subcuenta %1").arg(cuenta), "S", 8,
                        "PRUEBA");
    Impuestos::Insert(c, "EMP", "C21", "47200021", 21, "", 0, "IVA soportado 21 %", "C", "PRUEBA");
    Impuestos::Insert(c, "EMP", "V21R", "47700001", 21, "", 0, "IVA 21 % con recargo", "V",
                      "PRUEBA");
    Impuestos::Update(c, "EMP", "V21R", "47700001", 21, "47700052", 5.2, "IVA 21 % con recargo",
                      "V", "PRUEBA");
    irpf::Insert(c, "EMP", "I15", "47510001", 15, "Profesionales 15 %", "PRUEBA");
    acrdeu::Insert(c, "EMP", "41000001", "A1", "ACR", "NAC", "C21", "CON", 0, 0, "I15", "62300001",
                   "PRUEBA");
    acrdeu::Insert(c, "EMP", "43000002", "C2", "CLI", "NAC", "V21R", "CON", 0, 0, "", "70000001",
                   "PRUEBA");
}

// The first tab of an invoice, as typed.
void cabecera(frmApunte* f, const QString& documento, const QString& cuenta,
              const QString& importe) {
    teclear(f->txt(0), "gen");
    teclear(f->txt(1), documento);
    teclear(f->txt(2), "0");
    teclear(f->txt(3), "15/03/" + kAnio);
    teclear(f->txt(4), "14/03/" + kAnio);
    teclear(f->txt(5), cuenta);
    teclear(f->txt(6), importe);
    teclear(f->txt(7), "F-123");
    teclear(f->txt(8), "Factura F-123");
}

// A row of the grid on the screen, "base|type|%VAT|VAT|%RE|RE|withholding|%|amount".
QString filaEnPantalla(const frmApunte* f, int fila) {
    QStringList t;
    for (int i = 9 * fila; i < 9 * fila + 9; ++i) t << f->txt(i)->text();
    return t.join('|');
}

QString totalesEnPantalla(const frmApunte* f) {
    return QStringList{f->txt(45)->text(), f->txt(46)->text(), f->txt(47)->text(),
                       f->txt(48)->text()}
        .join('|');
}

// The register rows of the store, "line|type|third party|tax|base|%|amount|%|amount".
QStringList registrosIva() {
    QStringList t;
    Recordset rs = RegistroIva::GetList(*sesion_conexion, {}, "numero_documento, numero_apunte");
    for (; !rs.eof(); rs.moveNext())
        t << QStringList{rs["numero_apunte"].toString(),
                         rs["tipo"].toString(),
                         rs["tipo_acrdeu"].toString() + '/' + rs["codigo_personal"].toString(),
                         rs["impuesto"].toString(),
                         QString::number(rs["base"].toDouble()),
                         QString::number(rs["pctiva"].toDouble()),
                         QString::number(rs["iva"].toDouble()),
                         QString::number(rs["pctre"].toDouble()),
                         QString::number(rs["re"].toDouble())}
                 .join('|');
    return t;
}

QStringList registrosIrpf() {
    QStringList t;
    Recordset rs = RegistroIrpf::GetList(*sesion_conexion, {}, "numero_documento, numero_apunte");
    for (; !rs.eof(); rs.moveNext())
        t << QStringList{rs["numero_apunte"].toString(),
                         rs["tipo_acrdeu"].toString() + '/' + rs["codigo_personal"].toString(),
                         rs["codigo_irpf"].toString(),
                         QString::number(rs["base"].toDouble()),
                         QString::number(rs["pctirpf"].toDouble()),
                         QString::number(rs["irpf"].toDouble())}
                 .join('|');
    return t;
}

}  // namespace

class PruebaFactura : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaFactura() : PruebaFormularios(registrarFormulariosAsientos, prepararFacturas) {}

private Q_SLOTS:

    // A gross amount typed once: the tax tab splits it, leaving the tab makes the lines, the
    // counterpart comes from the third party's role, F2 stores the lines and exactly one row
    // of each register that hangs from them; the invoice typed back shows its grid read-only.
    void facturaDesdeElTeclado_data() {
        QTest::addColumn<QString>("documento");
        QTest::addColumn<QString>("cuenta");
        QTest::addColumn<QString>("importe");
        QTest::addColumn<QString>("fila1");
        QTest::addColumn<QStringList>("lineas");
        QTest::addColumn<QStringList>("iva");
        QTest::addColumn<QStringList>("irpf");
        QTest::addColumn<QString>("mostrada");
        QTest::newRow("a purchase with VAT and withholding")
            << "fc"
            << "41.1"
            << "1000"
            << "943,40|C21|21,00|198,11|0,00|0,00|I15|15,00|141,51"
            << QStringList{"1|41000001|0|1000|P", "2|47200021|198.11|0|IVA",
                           "3|47510001|0|141.51|IRPF", "4|62300001|943.4|0|CP"}
            << QStringList{"2|C|ACR/A1|C21|943.4|21|198.11|0|0"}
            << QStringList{"3|ACR/A1|I15|943.4|15|141.51"}
            << "943,4|C21|21|198,11|0|0,00|I15|15|141,51";
        QTest::newRow("a sale with surcharge")
            << "fs"
            << "43.2"
            << "1.262,00"
            << "1000,00|V21R|21,00|210,00|5,20|52,00|||"
            << QStringList{"1|43000002|1262|0|P", "2|47700001|0|210|IVA", "3|47700052|0|52|RE",
                           "4|70000001|0|1000|CP"}
            << QStringList{"2|V|CLI/C2|V21R|1000|21|210|5.2|52"} << QStringList{}
            << "1000|V21R|21|210,00|5,2|52,00|||";
    }
    void facturaDesdeElTeclado() {
        QFETCH(QString, documento);
        QFETCH(QString, cuenta);
        QFETCH(QString, importe);
        QFETCH(QString, fila1);
        QFETCH(QStringList, lineas);
        QFETCH(QStringList, iva);
        QFETCH(QStringList, irpf);
        QFETCH(QString, mostrada);
        Buzon buzon;
        frmApunte* f = abrirApunte();
        QVERIFY(f);
        cabecera(f, documento, cuenta, importe);

        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 2);
        QCOMPARE(f->marco(), 1);
        QCOMPARE(QApplication::focusWidget(), f->txt(9));
        QCOMPARE(filaEnPantalla(f, 1), fila1);
        for (int i = 2; i <= 4; ++i) QCOMPARE(filaEnPantalla(f, i), QString(8, '|'));

        // Through the whole grid with Tab, changing nothing: the amounts stand (the empty
        // withholding total of a proposal then shows as 0,00).
        const QString totales = totalesEnPantalla(f).section('|', 0, 2);
        for (int i = 9; i <= 44; ++i) {
            QCOMPARE(QApplication::focusWidget(), f->txt(i));
            salir(f->txt(i));
        }
        QCOMPARE(totalesEnPantalla(f).section('|', 0, 2), totales);

        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));  // the counterpart balanced it
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(lineasGuardadas(), lineas);
        QCOMPARE(registrosIva(), iva);
        QCOMPARE(registrosIrpf(), irpf);

        // Typed back by its number: the grid filled from the registers, nothing editable.
        teclear(f->txt(1), documento);
        teclear(f->txt(2), documento.toUpper() + "00027");
        QVERIFY(f->mostrando());
        QCOMPARE(f->ListViewApunte()->filas(), lineas.size());
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 2);
        QCOMPARE(filaEnPantalla(f, 1), mostrada);
        QVERIFY(!f->txt(9)->isEnabled());
        pulsar(kSiguiente);
        QCOMPARE(f->ListViewApunte()->filas(), lineas.size());  // the stored lines, untouched
        QCOMPARE(buzon.textos, QStringList());
    }

    // Rows typed by hand on the keyboard, codes in lower case; the lines follow them; a
    // changed main amount brings back a fresh proposal and its lines.
    void filasAMano() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "fs", "43.2", "1262");
        pulsar(kSiguiente);
        escribir(f->txt(18), "200");
        salir(f->txt(18));
        escribir(f->txt(19), "c21");
        salir(f->txt(19));
        QCOMPARE(filaEnPantalla(f, 2), QStringLiteral("200,00|C21|21|42,00|0|0,00|||"));
        QCOMPARE(totalesEnPantalla(f), QStringLiteral("1200,00|252,00|52,00|0,00"));
        // The VAT of row 2 corrected by hand stands and counts.
        f->txt(21)->setFocus();
        escribir(f->txt(21), "42,01");
        salir(f->txt(21));
        QCOMPARE(totalesEnPantalla(f), QStringLiteral("1200,00|252,01|52,00|0,00"));
        pulsar(kSiguiente);
        QCOMPARE(lineasEnPantalla(f),
                 (QStringList{"0000001 43000002 1262 0 P", "0000002 47700001 0 210 IVA",
                              "0000003 47700052 0 52 RE", "0000004 47200021 0 42,01 IVA",
                              "0000005 70000001 0 957,99 CP"}));

        // Back to the first tab: a new amount replaces the grid and, on leaving the tax tab,
        // its lines; the counterpart made stays, and the third party's, read again with the
        // amount, balances the entry once more.
        pulsar(kAnterior);
        pulsar(kAnterior);
        QCOMPARE(f->pestana(), 1);
        teclear(f->txt(6), "126,2");
        pulsar(kSiguiente);
        QCOMPARE(filaEnPantalla(f, 1), QStringLiteral("100,00|V21R|21,00|21,00|5,20|5,20|||"));
        QCOMPARE(filaEnPantalla(f, 2), QString(8, '|'));
        pulsar(kSiguiente);
        QCOMPARE(lineasEnPantalla(f),
                 (QStringList{"0000001 43000002 126,2 0 P", "0000002 47700001 0 21 IVA",
                              "0000003 47700052 0 5,2 RE", "0000004 70000001 857,99 0 CP",
                              "0000005 70000001 0 957,99 CP"}));
        QCOMPARE(buzon.textos, QStringList());
    }

    // Whole or nothing: a register row the store refuses, or one whose line was never made,
    // leaves no line and no row; the entry stays on the screen, to be corrected and stored.
    void todoONada_data() {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<bool>("sinTipo");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("the VAT register refuses") << "RegistroIva" << false << "fallo provocado";
        QTest::newRow("the withholding register refuses")
            << "RegistroIrpf" << false << "fallo provocado";
        QTest::newRow("a withholding without a VAT type")
            << "" << true
            << "No se puede grabar el asiento: la retención I15 de la fila 1 del IVA no tiene su "
               "línea de IRPF (la fila necesita un tipo de IVA y la retención, su cuenta).";
    }
    void todoONada() {
        QFETCH(QString, tabla);
        QFETCH(bool, sinTipo);
        QFETCH(QString, mensaje);
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "fc", "41.1", "1000");
        pulsar(kSiguiente);
        if (sinTipo) {
            f->txt(10)->setFocus();
            escribir(f->txt(10), "");
            salir(f->txt(10));
        }
        pulsar(kSiguiente);
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));
        const int enPantalla = f->ListViewApunte()->filas();
        {
            std::unique_ptr<FalloProvocado> fallo;
            if (!tabla.isEmpty())
                fallo = std::make_unique<FalloProvocado>(tabla == "RegistroIva" ? 2 : 3, tabla);
            pulsar(kInsertar);
        }
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().contains(mensaje), qPrintable(buzon.ultimo()));
        QCOMPARE(lineasGuardadas(), QStringList());
        QCOMPARE(registrosIva(), QStringList());
        QCOMPARE(registrosIrpf(), QStringList());
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->ListViewApunte()->filas(), enPantalla);
        QCOMPARE(f->txt(2)->text(), QStringLiteral("FC00027"));
        if (sinTipo) return;
        // The store takes it once it no longer refuses.
        buzon.vaciar();
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(lineasGuardadas().size(), 4);
        QCOMPARE(registrosIva().size(), 1);
        QCOMPARE(registrosIrpf().size(), 1);
    }

    // The grid's fields refuse what is not an amount or a known type, with the focus kept.
    void camposRechazados_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("a base of a fraction of a cent") << 18 << "10,005"
                                                        << "El formato no es valido.";
        QTest::newRow("an unknown VAT type") << 19 << "x99"
                                             << "Código de documento inexistente.";
        QTest::newRow("an unknown withholding") << 24 << "x99"
                                                << "Código de documento inexistente.";
    }
    void camposRechazados() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "fc", "41.1", "1000");
        pulsar(kSiguiente);
        f->txt(indice)->setFocus();
        escribir(f->txt(indice), texto);
        salir(f->txt(indice));
        QCOMPARE(buzon.textos, QStringList{mensaje});
        QCOMPARE(QApplication::focusWidget(), f->txt(indice));
        // Nor can the tab be left with it.
        buzon.vaciar();
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 2);
        QCOMPARE(buzon.textos, QStringList{mensaje});
    }
};

QTEST_MAIN(PruebaFactura)
#include "prueba_factura.moc"
