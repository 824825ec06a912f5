#include "formaspago.h"

#include "data/almacen/sql.h"

using namespace entidad;

void FormasPago::Insert(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_pago, const QString& descripcion, const QString& vto1,
                        double pct1, const QString& vto2, double pct2, const QString& vto3,
                        double pct3, const QString& vto4, double pct4,
                        const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::FormasPagos,
                 {codigo_empresa, codigo_pago, descripcion, vto1, pct1, vto2, pct2, vto3, pct3,
                  vto4, pct4},
                 ultimo_usuario);
    });
}

void FormasPago::Update(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_pago, const QString& descripcion, const QString& vto1,
                        double pct1, const QString& vto2, double pct2, const QString& vto3,
                        double pct3, const QString& vto4, double pct4,
                        const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::FormasPagos,
                   {codigo_empresa, codigo_pago, descripcion, vto1, pct1, vto2, pct2, vto3, pct3,
                    vto4, pct4},
                   ultimo_usuario);
    });
}

void FormasPago::Delete(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_pago) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM FormasPagos WHERE ") +
                         condicionClave(esquema::FormasPagos, {codigo_empresa, codigo_pago}));
    });
}

Recordset FormasPago::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                              Cursor cursor) {
    return getList(conexion, esquema::FormasPagos, condicion, orden, cursor);
}
