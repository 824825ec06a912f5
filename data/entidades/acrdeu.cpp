#include "acrdeu.h"

#include "data/almacen/sql.h"

using namespace entidad;

void acrdeu::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                    const QString& codigo, const QString& tipo, const QString& nacionalidad,
                    const QString& impuesto, const QString& forma_pago, int primer_dia,
                    double descuento, const QString& irpf, const QString& contrapartida,
                    const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Acrdeu,
                 {codigo_empresa, cuenta, codigo, tipo, nacionalidad, impuesto, forma_pago,
                  primer_dia, descuento, irpf, contrapartida},
                 ultimo_usuario);
    });
}

void acrdeu::Update(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                    const QString& codigo, const QString& tipo, const QString& nacionalidad,
                    const QString& impuesto, const QString& forma_pago, int primer_dia,
                    double descuento, const QString& irpf, const QString& contrapartida,
                    const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Acrdeu,
                   {codigo_empresa, cuenta, codigo, tipo, nacionalidad, impuesto, forma_pago,
                    primer_dia, descuento, irpf, contrapartida},
                   ultimo_usuario);
    });
}

void acrdeu::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                    const QString& codigo) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM Acrdeu WHERE ") +
                         condicionClave(esquema::Acrdeu, {codigo_empresa, cuenta, codigo}));
    });
}

Recordset acrdeu::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                          Cursor cursor) {
    return getList(conexion, esquema::Acrdeu, condicion, orden, cursor);
}
