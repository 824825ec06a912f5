#include "impuestos.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Impuestos::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& impuesto,
                       const QString& cta_iva, double pct_iva, const QString& cta_re, double pct_re,
                       const QString& descripcion, const QString& tipo,
                       const QString& ultimo_usuario) {
    Q_UNUSED(cta_re);
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(
            conexion, esquema::Impuestos,
            {codigo_empresa, impuesto, cta_iva, pct_iva, std::nullopt, pct_re, descripcion, tipo},
            ultimo_usuario);
    });
}

void Impuestos::Update(Conexion& conexion, const QString& codigo_empresa, const QString& impuesto,
                       const QString& cta_iva, double pct_iva, const QString& cta_re, double pct_re,
                       const QString& descripcion, const QString& tipo,
                       const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Impuestos,
                   {codigo_empresa, impuesto, cta_iva, pct_iva, cta_re, pct_re, descripcion, tipo},
                   ultimo_usuario);
    });
}

void Impuestos::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& impuesto) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Impuestos WHERE ") +
                         condicionClave(esquema::Impuestos, {codigo_empresa, impuesto}));
    });
}

Recordset Impuestos::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor) {
    return getList(conexion, esquema::Impuestos, condicion, orden, cursor);
}
