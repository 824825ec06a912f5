#include "personal.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Personal::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                      const QString& nombre, const QString& nif, const QString& direccion,
                      const QString& poblacion, const QString& cp, const QString& provincia,
                      const QString& pais, const QString& telefono, const QString& fax,
                      const QString& email, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Personal,
                 {codigo_empresa, codigo, nombre, nif, direccion, poblacion, cp, provincia, pais,
                  telefono, fax, email},
                 ultimo_usuario);
    });
}

void Personal::Update(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                      const QString& nombre, const QString& nif, const QString& direccion,
                      const QString& poblacion, const QString& cp, const QString& provincia,
                      const QString& pais, const QString& telefono, const QString& fax,
                      const QString& email, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Personal,
                   {codigo_empresa, codigo, nombre, nif, direccion, poblacion, cp, provincia, pais,
                    telefono, fax, email},
                   ultimo_usuario);
    });
}

void Personal::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& codigo) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Personal WHERE ") +
                         condicionClave(esquema::Personal, {codigo_empresa, codigo}));
    });
}

Recordset Personal::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                            Cursor cursor) {
    return getList(conexion, esquema::Personal, condicion, orden, cursor);
}
