// A sale on 30-60 days and its collection, typed on the entry form as a bookkeeper does: the
// invoice proposes its due items from the customer's payment method, they are corrected by
// hand and stored with the entry; a collection selects them, marks them, makes its lines and
// closes them. A due item is closed once: when another workstation closed it first, the save is
// refused whole and the entry stays on screen.
#include "comun/almacen_prueba.h"
#include "comun/apunte_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/cartera.h"
#include "data/entidades/documentos.h"
#include "data/entidades/formaspago.h"
#include "data/entidades/personal.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "portfolio/formularios_cartera.h"
#include "portfolio/frmseleccioncartera.h"
#include "posting/formularios_asientos.h"
#include "posting/grabacion.h"

#include <QApplication>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

const QString kAnio = QString::number(QDate::currentDate().year());

QString fecha(const char* diaMes) {
    return QString::fromLatin1(diaMes) + '/' + kAnio;
}

// On top of the entries' company: the payment method 3060 (half at 30 days, half at 60), the
// customer C1 on 43000001 who pays by it with no payment day, the sale document FA that opens
// due items (no VAT tab) and the collection document CO that closes them, both numbered by the
// series FAC.
void prepararCobros() {
    prepararAsientos();
    Conexion& c = *sesion_conexion;
    FormasPago::Insert(c, "EMP", "3060", "30 y 60 días", "30", 50, "60", 50, "", 0, "", 0,
                       "PRUEBA");
    Personal::Insert(c, "EMP", "C1", "Ferretería L'Estany, S.L.", "B12345674", "", "", "", "", "",
                     "", "", "", "PRUEBA");
    acrdeu::Insert(c, "EMP", "43000001", "C1", "CLI", "NAC", "", "3060", 0, 0, "", "70000001",
                   "PRUEBA");
    c.execute("UPDATE Acrdeu SET primer_dia = NULL WHERE cuenta = '43000001'");
    Documentos::Insert(c, "EMP", "FA", "Factura con vencimientos", "D", "N", "A", "FAC", "FA",
                       "PRUEBA");
    Documentos::Insert(c, "EMP", "CO", "Cobro de clientes", "D", "N", "C", "FAC", "CO", "PRUEBA");
}

void cabecera(frmApunte* f, const QString& documento, const QString& dia, const QString& cuenta,
              const QString& importe, const QString& concepto) {
    teclear(f->txt(0), "gen");
    teclear(f->txt(1), documento);
    teclear(f->txt(2), "0");
    teclear(f->txt(3), dia);
    teclear(f->txt(4), dia);
    teclear(f->txt(5), cuenta);
    teclear(f->txt(6), importe);
    teclear(f->txt(7), QString());
    teclear(f->txt(8), concepto);
}

QStringList filasDe(const ListaClaves* l) {
    QStringList t;
    for (int i = 0; i < l->filas(); ++i) {
        QStringList c;
        for (int k = 0; k < l->columnCount(); ++k) c << l->texto(i, k);
        t << c.join('|');
    }
    return t;
}

// The due items of the store, "document number date type state amount third party concept
// closing".
QStringList vencimientos() {
    QStringList t;
    Recordset rs = cartera::GetList(*sesion_conexion, {}, "numero_documento, fecha_vto");
    for (; !rs.eof(); rs.moveNext())
        t << QStringList{rs["codigo_documento"].toString() + '/' +
                             rs["numero_documento"].toString() + '/' +
                             rs["numero_apunte"].toString(),
                         Auxiliar::dDate(rs["fecha_vto"].toString()),
                         rs["tipo"].toString() + rs["estado"].toString(),
                         QString::number(rs["importe"].toDouble()),
                         rs["tipo_acrdeu"].toString() + '/' + rs["codigo_personal"].toString(),
                         rs["concepto"].toString(),
                         Auxiliar::dDate(rs["fecha_cierre"].toString()) + ' ' +
                             rs["codigo_documento_cierre"].toString() + '/' +
                             rs["numero_documento_cierre"].toString()}
                 .join('|');
    return t;
}

void dobleClic(ListaClaves* lista, int fila) {
    emit lista->itemActivated(lista->topLevelItem(fila), 0);
}

// The selection dialog opened from the entry form, accepted with no bounds.
frmSeleccionCartera* seleccionar(frmApunte* f) {
    f->cmdSeleccion()->click();
    auto* d = qobject_cast<frmSeleccionCartera*>(formularios::buscar("frmSeleccionCartera"));
    if (d) d->Aceptar();
    activar(f->ventana());
    return d;
}

// The sale FA00027 of 100,01 on 01/03, as stored by the form.
void venta() {
    frmApunte* f = abrirApunte();
    cabecera(f, "fa", fecha("01/03"), "43.1", "100,01", "Venta a 30-60");
    pulsar(kSiguiente);
    pulsar(kSiguiente);
    pulsar(kInsertar);
}

}  // namespace

class PruebaCobros : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaCobros()
        : PruebaFormularios(
              [] {
                  registrarFormulariosAsientos();
                  registrarFormulariosCartera();
              },
              prepararCobros) {}

private Q_SLOTS:

    // The invoice: each half rounded on its own, so the items add up to a cent more than the
    // amount, and the total says so; an item by hand, taken back by a double click; a second
    // item on a type and date gives "Error no definido."; the items are stored pending with
    // the customer, and shown again with the stored invoice.
    void venta30y60() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "fa", fecha("01/03"), "43.1", "100,01", "Venta a 30-60");
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 3);
        QCOMPARE(f->marco(), 2);
        QCOMPARE(QApplication::focusWidget(), f->txt(49));
        const QStringList propuesta{"C|" + fecha("31/03") + "|50,01|Vto. 1. FA00027",
                                    "C|" + fecha("30/04") + "|50,01|Vto. 2. FA00027"};
        QCOMPARE(filasDe(f->ListViewAltaCartera()), propuesta);
        QCOMPARE(f->txt(53)->text(), QStringLiteral("100,02"));

        teclear(f->txt(49), "c");
        QCOMPARE(f->txt(49)->text(), QStringLiteral("C"));
        teclear(f->txt(50), fecha("15/05"));
        teclear(f->txt(51), "10");
        teclear(f->txt(52), "A mano");
        f->btnAltaVencimiento()->click();
        QCOMPARE(f->ListViewAltaCartera()->filas(), 3);
        QCOMPARE(f->txt(53)->text(), QStringLiteral("110,02"));
        QCOMPARE(f->txt(49)->text(), QString());
        dobleClic(f->ListViewAltaCartera(), 2);
        QCOMPARE(f->txt(50)->text(), fecha("15/05"));
        QCOMPARE(f->txt(51)->text(), QStringLiteral("10"));
        QCOMPARE(f->txt(53)->text(), QStringLiteral("100,02"));
        QCOMPARE(filasDe(f->ListViewAltaCartera()), propuesta);
        teclear(f->txt(50), fecha("31/03"));
        f->btnAltaVencimiento()->click();
        QCOMPARE(buzon.textos, QStringList{MensajeError(9999)});
        QCOMPARE(filasDe(f->ListViewAltaCartera()), propuesta);
        buzon.vaciar();
        for (const QString& malo :
             {QStringLiteral("X"), QStringLiteral("31/02/2026"), QStringLiteral("10,555")}) {
            const int i = malo == u"X" ? 49 : malo.contains('/') ? 50 : 51;
            escribir(f->txt(i), malo);
            salir(f->txt(i));
            QCOMPARE(QApplication::focusWidget(), f->txt(i));
            teclear(f->txt(i), QString());
        }
        QCOMPARE(buzon.textos,
                 (QStringList{MensajeError(1005), MensajeError(1004), MensajeError(1004)}));
        buzon.vaciar();

        pulsar(kSiguiente);
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        const QStringList guardados{
            "FA/FA00027/1|" + fecha("31/03") + "|CP|50.01|CLI/C1|Vto. 1. FA00027| /",
            "FA/FA00027/1|" + fecha("30/04") + "|CP|50.01|CLI/C1|Vto. 2. FA00027| /"};
        QCOMPARE(vencimientos(), guardados);

        teclear(f->txt(1), "fa");
        teclear(f->txt(2), "FA00027");
        QVERIFY(f->mostrando());
        pulsar(kSiguiente);
        QCOMPARE(f->marco(), 2);
        QCOMPARE(filasDe(f->ListViewAltaCartera()), propuesta);
        QCOMPARE(f->txt(53)->text(), QStringLiteral("100,02"));
        QVERIFY(!f->txt(49)->isEnabled());
        QVERIFY(!f->btnAltaVencimiento()->isEnabled());
    }

    // The collection: the selection lists the pending items; the marks go round P, C, D; all
    // pending then all closed gives the sum; leaving the tab makes a "GC" line per closed item;
    // saving closes them with the entry's date, document and number, and they are not offered
    // again.
    void cobroDeLosDosVencimientos() {
        Buzon buzon;
        venta();
        QCOMPARE(buzon.textos, QStringList());
        frmApunte* f = abrirApunte();
        cabecera(f, "co", fecha("10/04"), "57200001", "100,02", "Cobro FA00027");
        pulsar(kSiguiente);
        QCOMPARE(f->marco(), 4);
        QCOMPARE(QApplication::focusWidget(), f->cmdSeleccion());
        frmSeleccionCartera* d = seleccionar(f);
        QVERIFY(d);
        QCOMPARE(buzon.textos, QStringList());
        const QString uno = "|FA|FA00027|" + fecha("31/03") + "|43000001|50,01|Vto. 1. FA00027";
        const QString dos = "|FA|FA00027|" + fecha("30/04") + "|43000001|50,01|Vto. 2. FA00027";
        QCOMPARE(filasDe(f->ListViewGestionCartera()), (QStringList{"P" + uno, "P" + dos}));

        const std::pair<const char*, const char*> ciclo[] = {
            {"C", "50,01"}, {"D", "50,01"}, {"P", "0"}, {"C", "50,01"}};
        for (const auto& [marca, total] : ciclo) {
            dobleClic(f->ListViewGestionCartera(), 0);
            QCOMPARE(f->ListViewGestionCartera()->texto(0, 0), QString::fromLatin1(marca));
            QCOMPARE(f->txt(61)->text(), QString::fromLatin1(total));
        }
        f->cmdPendientes()->click();
        QCOMPARE(filasDe(f->ListViewGestionCartera()), (QStringList{"P" + uno, "P" + dos}));
        QCOMPARE(f->txt(61)->text(), QStringLiteral("0"));
        f->cmdCancelar()->click();
        QCOMPARE(filasDe(f->ListViewGestionCartera()), (QStringList{"C" + uno, "C" + dos}));
        QCOMPARE(f->txt(61)->text(), QStringLiteral("100,02"));

        pulsar(kSiguiente);
        QCOMPARE(lineasEnPantalla(f),
                 (QStringList{"0000001 57200001 100,02 0 P", "0000002 43000001 0 50,01 GC",
                              "0000003 43000001 0 50,01 GC"}));
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        const QString cierre = fecha("10/04") + " CO/CO00028";
        QCOMPARE(
            vencimientos(),
            (QStringList{
                "FA/FA00027/1|" + fecha("31/03") + "|CC|50.01|CLI/C1|Vto. 1. FA00027|" + cierre,
                "FA/FA00027/1|" + fecha("30/04") + "|CC|50.01|CLI/C1|Vto. 2. FA00027|" + cierre}));
        QCOMPARE(filas("Apuntes", "numero_documento = 'CO00028' AND tipo = 'GC'"), 2);

        cabecera(f, "co", fecha("11/04"), "57200001", "1", "Otro cobro");
        pulsar(kSiguiente);
        seleccionar(f);
        QCOMPARE(f->ListViewGestionCartera()->filas(), 0);
    }

    // Another workstation collects the second item between this one's selection and its save:
    // the save is refused naming the item, nothing of the entry is written (the first item,
    // closed inside the same transaction, is pending again), and the entry stays on screen to
    // be corrected with a new selection.
    void unVencimientoSeCierraUnaVez() {
        Buzon buzon;
        venta();
        QCOMPARE(buzon.textos, QStringList());
        frmApunte* f = abrirApunte();
        cabecera(f, "co", fecha("10/04"), "57200001", "100,02", "Cobro FA00027");
        pulsar(kSiguiente);
        seleccionar(f);
        f->cmdCancelar()->click();
        pulsar(kSiguiente);

        {
            Conexion otro(almacen->descripcionPrincipal());
            CarteraGestion g;
            g.Poner(SeleccionarEfectos(otro, "EMP", "EMP", "C", {}));
            QCOMPARE(g.efectos().size(), 2);
            g.Marcar(1);
            LineasAsiento lineas;
            lineas.AnadirLinea(0, fecha("09/04"), "57200001", 50.01, 0, "Cobro", "P");
            g.GenerarLineasGestion(lineas, fecha("09/04"), "D");
            GrabarAsiento(otro, {"GEN", "CO", "CO99999", fecha("09/04"), fecha("09/04"), {}},
                          lineas, "OTRO", [&](Conexion& c) {
                              g.CerrarEfectos(c, "EMP", "EMP", fecha("09/04"), "CO", "CO99999",
                                              "OTRO");
                          });
        }
        const QStringList antes = vencimientos();
        const int lineasAntes = filas("Apuntes");
        pulsar(kInsertar);
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().contains("el vencimiento del " + fecha("30/04") +
                                         " del documento FA/FA00027 ya no está pendiente"),
                 qPrintable(buzon.ultimo()));
        QCOMPARE(vencimientos(), antes);
        QVERIFY(vencimientos().first().contains("|CP|"));
        QCOMPARE(filas("Apuntes"), lineasAntes);
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->ListViewApunte()->filas(), 3);

        // A new selection offers the item still pending; the entry corrected saves.
        buzon.vaciar();
        pulsar(kAnterior);
        pulsar(kAnterior);
        teclear(f->txt(6), "50,01");
        pulsar(kSiguiente);
        seleccionar(f);
        QCOMPARE(f->ListViewGestionCartera()->filas(), 1);
        f->cmdCancelar()->click();
        pulsar(kSiguiente);
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("Cartera", "estado = 'C' AND numero_documento_cierre = 'CO00028'"), 1);
        QCOMPARE(filas("Cartera", "estado = 'C' AND numero_documento_cierre = 'CO99999'"), 1);
    }
};

QTEST_MAIN(PruebaCobros)
#include "prueba_cobros.moc"
