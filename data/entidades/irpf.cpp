#include "irpf.h"

#include "data/almacen/sql.h"

using namespace entidad;

void irpf::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                  const QString& cuenta, double pct_irpf, const QString& descripcion,
                  const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Irpf, {codigo_empresa, codigo, cuenta, pct_irpf, descripcion},
                 ultimo_usuario);
    });
}

void irpf::Update(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                  const QString& cuenta, double pct_irpf, const QString& descripcion,
                  const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Irpf, {codigo_empresa, codigo, cuenta, pct_irpf, descripcion},
                   ultimo_usuario);
    });
}

void irpf::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& codigo) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Irpf WHERE ") +
                         condicionClave(esquema::Irpf, {codigo_empresa, codigo}));
    });
}

Recordset irpf::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                        Cursor cursor) {
    return getList(conexion, esquema::Irpf, condicion, orden, cursor);
}
