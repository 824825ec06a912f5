#include "cuentas.h"

#include "data/almacen/sql.h"

using namespace entidad;

void cuentas::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                     const QString& descripcion, const QString& pases, int nivel,
                     const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Cuentas, {codigo_empresa, cuenta, descripcion, pases, nivel},
                 ultimo_usuario);
    });
}

void cuentas::Update(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                     const QString& descripcion, const QString& pases, int nivel,
                     const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Cuentas, {codigo_empresa, cuenta, descripcion, pases, nivel},
                   ultimo_usuario);
    });
}

void cuentas::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Cuentas WHERE ") +
                         condicionClave(esquema::Cuentas, {codigo_empresa, cuenta}));
    });
}

Recordset cuentas::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                           Cursor cursor) {
    return getList(conexion, esquema::Cuentas, condicion, orden, cursor);
}
