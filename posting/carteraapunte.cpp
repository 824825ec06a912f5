#include "carteraapunte.h"

#include "data/almacen/error.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/cartera.h"
#include "data/formato.h"
#include "data/global.h"
#include "lineas.h"

#include <QSet>
#include <algorithm>
#include <cmath>

namespace {

constexpr qint32 kTiposNoCoinciden = 13;
constexpr qint32 kClaveRepetida = 35602;

QString fechaPantalla(const QDate& d) {
    return d.toString(QStringLiteral("dd/MM/yyyy"));
}

// A running total as its field shows it; an empty total stays empty, as nothing can be added
// to it.
void sumar(QString& total, double importe) {
    if (total.isEmpty()) return;
    total = textoPantalla(formato::leerNumero(total).value_or(0) + importe);
}

double importeDe(const QString& texto) {
    return formato::leerNumero(texto).value_or(0);
}

}  // namespace

// --- Opening due items -----------------------------------------------------------------------

QString CarteraAlta::clave(const QString& tipo, const QString& vencimiento) {
    return QStringLiteral("K") + tipo + Auxiliar::sDate(vencimiento);
}

QDate CarteraAlta::DiaDePago(QDate fecha, int primerDia) {
    const int dia = fecha.day();
    if (dia < primerDia) return fecha.addDays(primerDia - dia);
    return formato::sumar(fecha.addDays(dia - primerDia), formato::Intervalo::Meses, 1);
}

void CarteraAlta::Proponer(const QString& codigoPago, const FormaPago& forma,
                           std::optional<int> primerDia, const QDate& fechaDocumento,
                           double importe, const QString& partida, const QString& numeroDocumento) {
    limpiar();
    double total = 0;
    const QString tipo = partida == u"D" ? QStringLiteral("C") : QStringLiteral("P");
    for (int n = 1; n <= 4; ++n) {
        const QString& vto = forma.vto[size_t(n - 1)];
        if (vto.isEmpty()) continue;
        const std::optional<double> dias = formato::leerNumero(vto);
        const std::optional<double> pct = forma.pct[size_t(n - 1)];
        if (!dias || *dias != std::trunc(*dias) || !pct)
            throw Error(kTiposNoCoinciden,
                        QStringLiteral("La forma de pago %1 no tiene días y porcentaje válidos en "
                                       "el vencimiento %2: no se pueden proponer sus vencimientos.")
                            .arg(codigoPago)
                            .arg(n));
        QDate d = fechaDocumento.addDays(qint64(*dias));
        if (primerDia) d = DiaDePago(d, *primerDia);
        const double parte =
            formato::leerNumero(formato::Format(importe * (*pct / 100), QStringLiteral("0.00")))
                .value_or(0);
        total += parte;
        if (parte != 0 && std::any_of(efectos_.cbegin(), efectos_.cend(), [&](const auto& e) {
                return e.tipo == tipo && e.vencimiento == fechaPantalla(d);
            }))
            throw Error(kClaveRepetida,
                        QStringLiteral("La forma de pago %1 da dos vencimientos el %2: añada a "
                                       "mano los que falten.")
                            .arg(codigoPago, fechaPantalla(d)));
        if (parte != 0)
            efectos_.append({tipo, fechaPantalla(d), textoPantalla(parte),
                             QStringLiteral("Vto. %1. ").arg(n) + numeroDocumento});
        total_ = textoPantalla(total);
    }
}

int CarteraAlta::Anadir(const VencimientoAlta& v) {
    const QString k = clave(v.tipo, v.vencimiento);
    for (const VencimientoAlta& e : efectos_)
        if (clave(e.tipo, e.vencimiento) == k) return 9999;
    efectos_.append(v);
    sumar(total_, importeDe(v.importe));
    return 0;
}

VencimientoAlta CarteraAlta::Recuperar(int fila) {
    const VencimientoAlta v = efectos_.takeAt(fila);
    sumar(total_, -importeDe(v.importe));
    return v;
}

void CarteraAlta::Cargar(Conexion& conexion, const QString& empresa, const QString& delegacion,
                         const QString& documento, const QString& numeroDocumento) {
    limpiar();
    Recordset rs = cartera::GetList(
        conexion,
        QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
            QStringLiteral(" and codigo_delegacion = ") + sqlTexto(delegacion) +
            QStringLiteral(" and codigo_documento = ") + sqlTexto(documento) +
            QStringLiteral(" and numero_documento = ") + sqlTexto(numeroDocumento),
        QStringLiteral(
            "codigo_empresa, codigo_delegacion, codigo_documento, numero_documento, fecha_vto"));
    double total = 0;
    for (; !rs.eof(); rs.moveNext()) {
        const double importe = rs["importe"].toDouble();
        total += importe;
        efectos_.append({NzTexto(rs["tipo"]), Auxiliar::dDate(NzTexto(rs["fecha_vto"])),
                         textoPantalla(importe), NzTexto(rs["concepto"])});
    }
    total_ = formato::Format(total, QStringLiteral("0.00"));
}

void CarteraAlta::InsertarCartera(Conexion& conexion, const QString& empresa,
                                  const QString& delegacion, const QString& documento,
                                  const QString& numeroDocumento,
                                  const std::optional<TerceroCuenta>& tercero,
                                  const QString& usuario) const {
    for (const VencimientoAlta& v : efectos_)
        cartera::Insert(conexion, empresa, delegacion, documento, numeroDocumento, 1, v.vencimiento,
                        tercero ? tercero->tipo : QString(), tercero ? tercero->codigo : QString(),
                        v.descripcion, v.tipo, QStringLiteral("P"), importeDe(v.importe), QString(),
                        QString(), QString(), usuario);
}

void CarteraAlta::limpiar() {
    efectos_.clear();
    total_.clear();
}

// --- Closing due items -----------------------------------------------------------------------

// A new selection starts a new count. An item found twice (its third party has two accounts
// of the same role) is listed once, with the first account found.
void CarteraGestion::Poner(const QList<EfectoSeleccionado>& efectos) {
    limpiar();
    QSet<QString> vistos;
    for (const EfectoSeleccionado& e : efectos) {
        const QString clave = e.codigoDocumento + u'\n' + e.numeroDocumento + u'\n' + e.fechaVto;
        if (vistos.contains(clave)) continue;
        vistos.insert(clave);
        efectos_.append({e.estado, e});
    }
}

void CarteraGestion::Marcar(int fila) {
    if (efectos_.isEmpty()) return;
    if (total_.isEmpty()) total_ = QStringLiteral("0");
    EfectoMarcado& e = efectos_[fila];
    if (e.marca == u"P") {
        e.marca = QStringLiteral("C");
        sumar(total_, e.efecto.importe);
    } else if (e.marca == u"C") {
        e.marca = QStringLiteral("D");
    } else if (e.marca == u"D") {
        e.marca = QStringLiteral("P");
        sumar(total_, -e.efecto.importe);
    }
}

void CarteraGestion::TodosPendientes() {
    total_ = QStringLiteral("0");
    for (EfectoMarcado& e : efectos_) e.marca = QStringLiteral("P");
}

void CarteraGestion::TodosCancelados() {
    total_ = QStringLiteral("0");
    for (EfectoMarcado& e : efectos_) {
        e.marca = QStringLiteral("C");
        sumar(total_, e.efecto.importe);
    }
}

void CarteraGestion::GenerarLineasGestion(LineasAsiento& lineas, const QString& fecha,
                                          const QString& partida) const {
    if (efectos_.isEmpty()) return;
    lineas.BorrarLineasTipo(QStringLiteral("GC"));
    const bool alHaber = partida == u"D";
    for (const EfectoMarcado& e : efectos_) {
        if (e.marca != u"C") continue;
        const double importe = e.efecto.importe;
        lineas.AnadirLinea(0, fecha, e.efecto.cuenta, alHaber ? 0 : importe, alHaber ? importe : 0,
                           e.efecto.concepto, QStringLiteral("GC"));
    }
}

void CarteraGestion::CerrarEfectos(Conexion& conexion, const QString& empresa,
                                   const QString& delegacion, const QString& fechaCierre,
                                   const QString& documento, const QString& numeroDocumento,
                                   const QString& usuario) const {
    for (const EfectoMarcado& e : efectos_) {
        if (e.marca != u"C") continue;
        const EfectoSeleccionado& f = e.efecto;
        if (!cartera::Cerrar(conexion, empresa, delegacion, f.codigoDocumento, f.numeroDocumento, 1,
                             Auxiliar::dDate(f.fechaVto), fechaCierre, documento, numeroDocumento,
                             usuario))
            throw EfectoYaCerrado(f);
    }
}

void CarteraGestion::limpiar() {
    efectos_.clear();
    total_.clear();
}

EfectoYaCerrado::EfectoYaCerrado(const EfectoSeleccionado& efecto)
    : std::runtime_error(
          QStringLiteral("No se puede grabar el asiento: el vencimiento del %1 del "
                         "documento %2/%3 ya no está pendiente, otro asiento lo ha "
                         "cerrado mientras tanto. Vuelva a seleccionar los "
                         "efectos.")
              .arg(Auxiliar::dDate(efecto.fechaVto), efecto.codigoDocumento, efecto.numeroDocumento)
              .toStdString()),
      efecto_(efecto) {}

QString EfectoYaCerrado::mensaje() const {
    return QString::fromUtf8(what());
}
