#include "cartera.h"

#include "data/almacen/sql.h"

using namespace entidad;

void cartera::Insert(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_delegacion, const QString& codigo_documento,
                     const QString& numero_documento, int numero_apunte, const QVariant& fecha_vto,
                     const QString& tipo_acrdeu, const QString& codigo_personal,
                     const QString& concepto, const QString& tipo, const QString& estado,
                     double importe, const QVariant& fecha_cierre,
                     const QString& codigo_documento_cierre, const QString& numero_documento_cierre,
                     const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Cartera,
                 {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                  numero_apunte, fecha_vto, tipo_acrdeu, codigo_personal, concepto, tipo, estado,
                  importe, fecha_cierre, codigo_documento_cierre, numero_documento_cierre},
                 ultimo_usuario);
    });
}

void cartera::Update(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_delegacion, const QString& codigo_documento,
                     const QString& numero_documento, int numero_apunte, const QVariant& fecha_vto,
                     const QString& tipo_acrdeu, const QString& codigo_personal,
                     const QString& concepto, const QString& tipo, const QString& estado,
                     double importe, const QVariant& fecha_cierre,
                     const QString& codigo_documento_cierre, const QString& numero_documento_cierre,
                     const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Cartera,
                   {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                    numero_apunte, fecha_vto, tipo_acrdeu, codigo_personal, concepto, tipo, estado,
                    importe, fecha_cierre, codigo_documento_cierre, numero_documento_cierre},
                   ultimo_usuario);
    });
}

void cartera::Delete(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_delegacion, const QString& codigo_documento,
                     const QString& numero_documento, int numero_apunte,
                     const QVariant& fecha_vto) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(
            QStringLiteral("DELETE FROM Cartera WHERE ") +
            condicionClave(esquema::Cartera, {codigo_empresa, codigo_delegacion, codigo_documento,
                                              numero_documento, numero_apunte, fecha_vto}));
    });
}

Recordset cartera::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                           Cursor cursor) {
    return getList(conexion, esquema::Cartera, condicion, orden, cursor);
}

void cartera::SetEstado(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_delegacion, const QString& codigo_documento,
                        const QString& numero_documento, int numero_apunte,
                        const QVariant& fecha_vto, const QString& estado,
                        const QVariant& fecha_cierre, const QString& codigo_documento_cierre,
                        const QString& numero_documento_cierre, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::SetEstado, Transaccional::No, [&] {
        actualizarColumnas(
            conexion, esquema::Cartera,
            {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento, numero_apunte,
             fecha_vto},
            {QStringLiteral("estado"), QStringLiteral("fecha_cierre"),
             QStringLiteral("codigo_documento_cierre"), QStringLiteral("numero_documento_cierre")},
            {estado, fecha_cierre, codigo_documento_cierre, numero_documento_cierre},
            ultimo_usuario);
    });
}

bool cartera::Cerrar(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_delegacion, const QString& codigo_documento,
                     const QString& numero_documento, int numero_apunte, const QVariant& fecha_vto,
                     const QVariant& fecha_cierre, const QString& codigo_documento_cierre,
                     const QString& numero_documento_cierre, const QString& ultimo_usuario) {
    return ejecutar(conexion, Operacion::SetEstado, Transaccional::No, [&] {
        return actualizarColumnasSi(conexion, esquema::Cartera,
                                    {codigo_empresa, codigo_delegacion, codigo_documento,
                                     numero_documento, numero_apunte, fecha_vto},
                                    QStringLiteral("estado = 'P'"),
                                    {QStringLiteral("estado"), QStringLiteral("fecha_cierre"),
                                     QStringLiteral("codigo_documento_cierre"),
                                     QStringLiteral("numero_documento_cierre")},
                                    {QStringLiteral("C"), fecha_cierre, codigo_documento_cierre,
                                     numero_documento_cierre},
                                    ultimo_usuario) == 1;
    });
}
