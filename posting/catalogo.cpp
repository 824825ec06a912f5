#include "catalogo.h"

#include "data/almacen/sql.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/formaspago.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/irpf.h"
#include "data/global.h"

namespace {

QString condicion(const QString& empresa, const char* columna, const QString& valor) {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) + QStringLiteral(" and ") +
           QLatin1StringView(columna) + QStringLiteral(" = ") + sqlTexto(valor);
}

std::optional<double> numero(const QVariant& valor) {
    if (valor.isNull() || !valor.isValid()) return std::nullopt;
    return valor.toDouble();
}

std::optional<TerceroCuenta> leerTercero(Conexion& c, const QString& empresa,
                                         const QString& cuenta) {
    // An account belongs to one third party at most; should the table hold more, the first
    // in code order speaks for it.
    Recordset rs = acrdeu::GetList(c, condicion(empresa, "cuenta", cuenta),
                                   QStringLiteral("codigo_empresa, cuenta, codigo"));
    if (rs.eof()) return std::nullopt;
    const QVariant dia = rs["primer_dia"];
    return TerceroCuenta{
        NzTexto(rs["tipo"]),
        NzTexto(rs["codigo"]),
        NzTexto(rs["impuesto"]),
        NzTexto(rs["irpf"]),
        NzTexto(rs["contrapartida"]),
        NzTexto(rs["forma_pago"]),
        dia.isNull() || !dia.isValid() ? std::nullopt : std::optional<int>(dia.toInt())};
}

std::optional<TipoIva> leerImpuesto(Conexion& c, const QString& empresa, const QString& codigo) {
    Recordset rs = Impuestos::GetList(c, condicion(empresa, "impuesto", codigo), {});
    if (rs.eof()) return std::nullopt;
    return TipoIva{numero(rs["pct_iva"]), numero(rs["pct_re"]), NzTexto(rs["cta_iva"]),
                   NzTexto(rs["cta_re"]), NzTexto(rs["tipo"])};
}

std::optional<TipoIrpf> leerIrpf(Conexion& c, const QString& empresa, const QString& codigo) {
    Recordset rs = irpf::GetList(c, condicion(empresa, "codigo", codigo), {});
    if (rs.eof()) return std::nullopt;
    return TipoIrpf{numero(rs["pct_irpf"]), NzTexto(rs["cuenta"])};
}

std::optional<FormaPago> leerFormaPago(Conexion& c, const QString& empresa, const QString& codigo) {
    Recordset rs = FormasPago::GetList(c, condicion(empresa, "codigo_pago", codigo), {});
    if (rs.eof()) return std::nullopt;
    FormaPago f;
    for (int n = 0; n < 4; ++n) {
        f.vto[size_t(n)] = NzTexto(rs[QStringLiteral("vto%1").arg(n + 1)]);
        f.pct[size_t(n)] = numero(rs[QStringLiteral("pct%1").arg(n + 1)]);
    }
    return f;
}

}  // namespace

std::optional<TerceroCuenta> CatalogoAlmacen::tercero(const QString& cuenta) {
    return leerTercero(conexion_, empresa_, cuenta);
}
std::optional<TipoIva> CatalogoAlmacen::impuesto(const QString& codigo) {
    return leerImpuesto(conexion_, empresa_, codigo);
}
std::optional<TipoIrpf> CatalogoAlmacen::irpf(const QString& codigo) {
    return leerIrpf(conexion_, empresa_, codigo);
}

std::optional<FormaPago> CatalogoAlmacen::formaPago(const QString& codigo) {
    return leerFormaPago(conexion_, empresa_, codigo);
}

std::optional<TerceroCuenta> CatalogoSesion::tercero(const QString& cuenta) {
    return leerTercero(*sesion_conexion, sesion_empresa, cuenta);
}
std::optional<TipoIva> CatalogoSesion::impuesto(const QString& codigo) {
    return leerImpuesto(*sesion_conexion, sesion_empresa, codigo);
}
std::optional<TipoIrpf> CatalogoSesion::irpf(const QString& codigo) {
    return leerIrpf(*sesion_conexion, sesion_empresa, codigo);
}
std::optional<FormaPago> CatalogoSesion::formaPago(const QString& codigo) {
    return leerFormaPago(*sesion_conexion, sesion_empresa, codigo);
}
