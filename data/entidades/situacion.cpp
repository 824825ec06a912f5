#include "situacion.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Situacion::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& ap,
                       int nivel_1, int nivel_2, int nivel_3, const QString& titulo,
                       const QString& cuentas, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Situacion,
                 {codigo_empresa, ap, nivel_1, nivel_2, nivel_3, titulo, cuentas}, ultimo_usuario);
    });
}

void Situacion::Update(Conexion& conexion, const QString& codigo_empresa, const QString& ap,
                       int nivel_1, int nivel_2, int nivel_3, const QString& titulo,
                       const QString& cuentas, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Situacion,
                   {codigo_empresa, ap, nivel_1, nivel_2, nivel_3, titulo, cuentas},
                   ultimo_usuario);
    });
}

void Situacion::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& ap,
                       int nivel_1, int nivel_2, int nivel_3) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(
            QStringLiteral("DELETE FROM Situacion WHERE ") +
            condicionClave(esquema::Situacion, {codigo_empresa, ap, nivel_1, nivel_2, nivel_3}));
    });
}

Recordset Situacion::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor) {
    return getList(conexion, esquema::Situacion, condicion, orden, cursor);
}
