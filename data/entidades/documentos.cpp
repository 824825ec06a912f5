#include "documentos.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Documentos::Insert(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_documento, const QString& descripcion,
                        const QString& partida, const QString& iva, const QString& cartera,
                        const QString& numeracion, const QString& identificador,
                        const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Documentos,
                 {codigo_empresa, codigo_documento, descripcion, partida, iva, cartera, numeracion,
                  identificador},
                 ultimo_usuario);
    });
}

void Documentos::Update(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_documento, const QString& descripcion,
                        const QString& partida, const QString& iva, const QString& cartera,
                        const QString& numeracion, const QString& identificador,
                        const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Documentos,
                   {codigo_empresa, codigo_documento, descripcion, partida, iva, cartera,
                    numeracion, identificador},
                   ultimo_usuario);
    });
}

void Documentos::Delete(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_documento) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Documentos WHERE ") +
                         condicionClave(esquema::Documentos, {codigo_empresa, codigo_documento}));
    });
}

Recordset Documentos::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                              Cursor cursor) {
    return getList(conexion, esquema::Documentos, condicion, orden, cursor);
}
