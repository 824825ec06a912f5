// Invoices and collections at several workstations at once, through the entry form's own
// portfolio code: an invoice stores the due items CarteraAlta proposes from its customer's
// payment method, with the entry; a collection selects the pending items as the selection
// dialog does, marks a few of them closed, and saves its bank line, one "GC" line per item and
// the closing of those items in one transaction. Two workstations that mark the same item race
// to close it: the store lets one close it, the other's whole entry is refused
// (EfectoYaCerrado) and it selects again, keeping its entry's number as the form keeps the
// entry on screen.
//
// How the count tells an item closed twice. The store keeps of an item only its last closing
// (state and closing entry), so a second closing would overwrite the first and leave no trace
// there. It does leave one in the journal: each closing writes a "GC" line carrying the item's
// concept and its customer's account, and an invoice's items are named "Vto. n. <invoice
// number>", with invoice numbers handed out once by their series, so concept and account name
// one item. Counting the "GC" lines of each item therefore counts its closings: more than one is
// an item closed more than once. The same walk checks that the journal and the items agree: a
// closed item has exactly one line and it belongs to the entry recorded as its closing, a
// pending one has none, and no line names an item that does not exist; each disagreement
// counts as "incoherente". An entry that lacks some of its lines (each notes their number in its
// reference) is counted by the main count as partial.

#include "grabador_cartera.h"

#include "data/almacen/error.h"
#include "data/auxiliar.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/documentos.h"
#include "data/entidades/formaspago.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/irpf.h"
#include "data/entidades/numeracion.h"
#include "data/entidades/personal.h"
#include "data/global.h"
#include "portfolio/seleccion.h"
#include "posting/carteraapunte.h"
#include "posting/catalogo.h"
#include "posting/grabacion.h"

#include <QDate>
#include <QHash>
#include <QRandomGenerator>
#include <QThread>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace grabador {

namespace {

const QString kUsuario = QStringLiteral("GRABADOR");
const QString kVentas = QStringLiteral("70000001");
const QString kBanco = QStringLiteral("57200001");
constexpr int kClientes = 12;

QString cuentaCliente(int i) {
    return QStringLiteral("430001%1").arg(i + 1, 2, 10, QChar(u'0'));
}

QString numeroTomado(const char* prefijo, const char* serie) {
    const QString n = SiguienteNumero(kEmpresa, kEjercicio, QLatin1StringView(serie));
    if (n.isEmpty())
        throw Error(1, QStringLiteral("La serie %1 no existe: ejecute preparar.").arg(serie));
    return QLatin1StringView(prefijo) + n;
}

}  // namespace

CobroPropuesto proponerCobro(CarteraGestion& gestion, QRandomGenerator& azar,
                             const QString& numero) {
    const int ventana = int(std::min<qsizetype>(gestion.efectos().size(), 10));
    for (int i = 0, marcas = 1 + int(azar.bounded(3)); i < marcas; ++i) {
        const int fila = int(azar.bounded(ventana));
        if (gestion.efectos()[fila].marca == u"P") gestion.Marcar(fila);
    }
    CobroPropuesto cobro;
    qint64 centimos = 0;
    QString ultimoVto;
    for (const EfectoMarcado& e : gestion.efectos()) {
        if (e.marca != u"C") continue;
        ++cobro.marcados;
        centimos += std::llround(e.efecto.importe * 100);
        ultimoVto = std::max(ultimoVto, e.efecto.fechaVto);
    }
    cobro.fecha = Auxiliar::dDate(ultimoVto);
    cobro.lineas.AnadirLinea(0, cobro.fecha, kBanco, double(centimos) / 100, 0,
                             QStringLiteral("Cobro ") + numero, QStringLiteral("P"));
    gestion.GenerarLineasGestion(cobro.lineas, cobro.fecha, QStringLiteral("D"));
    return cobro;
}

void prepararCartera(Conexion& c) {
    numeracion::Insert(c, kEmpresa, kEjercicio, "FAC", 6, 1, "Facturas emitidas", kUsuario);
    numeracion::Insert(c, kEmpresa, kEjercicio, "COB", 6, 1, "Cobros", kUsuario);
    Documentos::Insert(c, kEmpresa, "FAC", "Factura emitida", "D", "N", "A", "FAC", "F", kUsuario);
    Documentos::Insert(c, kEmpresa, "COB", "Cobro", "D", "N", "C", "COB", "C", kUsuario);
    // The customers' VAT and, for half of them (professionals' fees), a withholding.
    Impuestos::Insert(c, kEmpresa, "V21", "47700001", 21, {}, 0, "IVA repercutido 21 %", "V",
                      kUsuario);
    cuentas::Insert(c, kEmpresa, "47300001", "Retenciones y pagos a cuenta", "S", 8, kUsuario);
    irpf::Insert(c, kEmpresa, "P15", "47300001", 15, "Profesionales 15 %", kUsuario);
    FormasPago::Insert(c, kEmpresa, "30-60-90", "A 30, 60 y 90 días", "30", 33.33, "60", 33.33,
                       "90", 33.34, {}, 0, kUsuario);
    FormasPago::Insert(c, kEmpresa, "30-60", "A 30 y 60 días", "30", 50, "60", 50, {}, 0, {}, 0,
                       kUsuario);
    for (int i = 0; i < kClientes; ++i) {
        const QString codigo = QStringLiteral("C%1").arg(i + 1, 2, 10, QChar(u'0'));
        const QString nombre = QStringLiteral("Cliente %1, S.L.").arg(i + 1);
        Personal::Insert(c, kEmpresa, codigo, nombre, {}, {}, {}, {}, {}, QStringLiteral("España"),
                         {}, {}, {}, kUsuario);
        cuentas::Insert(c, kEmpresa, cuentaCliente(i), nombre, "S", 8, kUsuario);
        acrdeu::Insert(c, kEmpresa, cuentaCliente(i), codigo, "CLI", "NAC", "V21",
                       i % 2 ? "30-60" : "30-60-90", 0, 0, i % 2 ? "P15" : "", kVentas, kUsuario);
    }
    // The entity class writes a payment day as a number; these customers have none.
    c.execute(QStringLiteral("UPDATE Acrdeu SET primer_dia = NULL WHERE codigo_empresa = 'B'"));
}

void facturar(Conexion& c, int cuantas, quint32 semilla) {
    QRandomGenerator azar(semilla);
    CatalogoAlmacen catalogo(c, kEmpresa);
    for (int i = 0; i < cuantas; ++i) {
        const QString cuenta = cuentaCliente(int(azar.bounded(kClientes)));
        const std::optional<TerceroCuenta> cliente = catalogo.tercero(cuenta);
        const std::optional<FormaPago> forma =
            cliente ? catalogo.formaPago(cliente->formaPago) : std::nullopt;
        if (!forma)
            throw Error(1, QStringLiteral("El cliente %1 no tiene forma de pago.").arg(cuenta));
        const QDate dia = QDate(kEjercicio, 1, 1).addDays(azar.bounded(365));
        const QString fecha = dia.toString(QStringLiteral("dd/MM/yyyy"));
        const double importe = double(1000 + azar.bounded(300000)) / 100;
        const QString numero = numeroTomado("F", "FAC");

        LineasAsiento lineas;
        lineas.AnadirLinea(0, fecha, cuenta, importe, 0, QStringLiteral("Factura ") + numero,
                           QStringLiteral("P"));
        lineas.AnadirLinea(0, fecha, kVentas, 0, importe, QStringLiteral("Factura ") + numero,
                           QStringLiteral("CP"));
        CarteraAlta alta;
        alta.Proponer(cliente->formaPago, *forma, cliente->primerDia, dia, importe,
                      QStringLiteral("D"), numero);
        GrabarAsiento(
            c, {"GEN", "FAC", numero, fecha, fecha, QStringLiteral("L=%1").arg(lineas.cuantas())},
            lineas, sesion_usuario, [&](Conexion& k) {
                alta.InsertarCartera(k, kEmpresa, kEmpresa, QStringLiteral("FAC"), numero, cliente,
                                     sesion_usuario);
            });
        std::printf("%s\n", qPrintable(numero));
        std::fflush(stdout);
    }
}

void cobrar(Conexion& c, int cuantos, quint32 semilla) {
    QRandomGenerator azar(semilla);
    int cobros = 0, efectos = 0, rechazos = 0, vacias = 0;
    QString numero;  // taken and not yet stored
    while (cobros < cuantos) {
        const QList<EfectoSeleccionado> pendientes =
            SeleccionarEfectos(c, kEmpresa, kEmpresa, QStringLiteral("C"), {});
        if (pendientes.isEmpty()) {
            // Invoices may still be coming from other workstations: a second of nothing ends it.
            if (++vacias > 20) break;
            QThread::msleep(50);
            continue;
        }
        vacias = 0;
        CarteraGestion gestion;
        gestion.Poner(pendientes);
        if (numero.isEmpty()) numero = numeroTomado("C", "COB");
        const CobroPropuesto cobro = proponerCobro(gestion, azar, numero);
        const QString& fecha = cobro.fecha;
        const LineasAsiento& lineas = cobro.lineas;
        try {
            GrabarAsiento(
                c,
                {"GEN", "COB", numero, fecha, fecha, QStringLiteral("L=%1").arg(lineas.cuantas())},
                lineas, sesion_usuario, [&](Conexion& k) {
                    gestion.CerrarEfectos(k, kEmpresa, kEmpresa, fecha, QStringLiteral("COB"),
                                          numero, sesion_usuario);
                });
        } catch (const EfectoYaCerrado&) {
            ++rechazos;  // another workstation closed one of them first: select again
            continue;
        }
        std::printf("%s\n", qPrintable(numero));
        std::fflush(stdout);
        numero.clear();
        ++cobros;
        efectos += cobro.marcados;
    }
    if (!numero.isEmpty())
        DevolverNumero(kEmpresa, kEjercicio, QStringLiteral("COB"), numero.mid(1).toInt());
    std::printf("cobros %d efectos %d rechazos %d\n", cobros, efectos, rechazos);
}

void contarCartera(Conexion& c) {
    const QString empresa = QStringLiteral("codigo_empresa = 'B'");
    QHash<QString, QString> cuentas;  // of each third party
    for (Recordset rs = acrdeu::GetList(c, empresa, {}); !rs.eof(); rs.moveNext())
        cuentas.insert(NzTexto(rs["codigo"]), NzTexto(rs["cuenta"]));

    // Item (concept and account) -> the entries whose "GC" lines name it.
    QHash<QString, QStringList> cierres;
    for (Recordset rs = Auxiliar::GetListExt(c, "Apuntes",
                                             "codigo_documento, numero_documento, cuenta, concepto",
                                             empresa + " AND tipo = 'GC'", {}, {}, {});
         !rs.eof(); rs.moveNext())
        cierres[NzTexto(rs["concepto"]) + u'\n' + NzTexto(rs["cuenta"])].append(
            NzTexto(rs["codigo_documento"]) + u'/' + NzTexto(rs["numero_documento"]));

    int vencimientos = 0, cerrados = 0, dobles = 0, incoherentes = 0;
    for (Recordset rs = Auxiliar::GetListExt(c, "Cartera",
                                             "codigo_personal, concepto, estado, "
                                             "codigo_documento_cierre, numero_documento_cierre",
                                             empresa, {}, {}, {});
         !rs.eof(); rs.moveNext()) {
        ++vencimientos;
        const QString clave =
            NzTexto(rs["concepto"]) + u'\n' + cuentas.value(NzTexto(rs["codigo_personal"]));
        // Taken out, so that what remains at the end are lines of no item, and so that a second
        // item of the same name, which would make the count unsound, finds none and shows.
        const QStringList lineas = cierres.take(clave);
        const bool cerrado = NzTexto(rs["estado"]) == u"C";
        if (cerrado) ++cerrados;
        if (lineas.size() > 1) ++dobles;
        const QString cierre =
            NzTexto(rs["codigo_documento_cierre"]) + u'/' + NzTexto(rs["numero_documento_cierre"]);
        if (cerrado ? (lineas.isEmpty() || (lineas.size() == 1 && lineas.front() != cierre))
                    : !lineas.isEmpty())
            ++incoherentes;
    }
    for (const QStringList& sueltas : std::as_const(cierres)) incoherentes += int(sueltas.size());
    if (vencimientos > 0)
        std::printf("vencimientos %d cerrados %d cerrados_mas_de_una_vez %d incoherentes %d\n",
                    vencimientos, cerrados, dobles, incoherentes);
}

}  // namespace grabador
