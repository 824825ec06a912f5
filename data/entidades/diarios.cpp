#include "diarios.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Diarios::Insert(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_diario, const QString& descripcion,
                     const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Diarios, {codigo_empresa, codigo_diario, descripcion},
                 ultimo_usuario);
    });
}

void Diarios::Update(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_diario, const QString& descripcion,
                     const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Diarios, {codigo_empresa, codigo_diario, descripcion},
                   ultimo_usuario);
    });
}

void Diarios::Delete(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_diario) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Diarios WHERE ") +
                         condicionClave(esquema::Diarios, {codigo_empresa, codigo_diario}));
    });
}

Recordset Diarios::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                           Cursor cursor) {
    return getList(conexion, esquema::Diarios, condicion, orden, cursor);
}
