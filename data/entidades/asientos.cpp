#include "asientos.h"

#include "apuntes.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Asientos::Insert(Conexion& conexion, const QString& codigo_empresa,
                      const QString& codigo_delegacion, const QString& codigo_documento,
                      const QString& numero_documento, int numero_apunte,
                      const QString& codigo_diario, const QVariant& fecha_apunte,
                      const QVariant& fecha_documento, const QString& referencia,
                      const QString& cuenta, const QString& concepto, double debe, double haber,
                      const QString& tipo, const QString& tag, const QString& ultimo_usuario) {
    Apuntes::Insert(conexion, codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                    numero_apunte, codigo_diario, fecha_apunte, fecha_documento, referencia, cuenta,
                    concepto, debe, haber, tipo, tag, ultimo_usuario);
}

void Asientos::Update(Conexion& conexion, const QString& codigo_empresa,
                      const QString& codigo_delegacion, const QString& codigo_documento,
                      const QString& numero_documento, int numero_apunte,
                      const QString& codigo_diario, const QVariant& fecha_apunte,
                      const QVariant& fecha_documento, const QString& referencia,
                      const QString& cuenta, const QString& concepto, double debe, double haber,
                      const QString& tipo, const QString& tag, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Apuntes,
                   {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                    numero_apunte, codigo_diario, fecha_apunte, fecha_documento, referencia, cuenta,
                    concepto, debe, haber, tipo, tag},
                   ultimo_usuario, Fechas::ComoVienen);
    });
}

void Asientos::Delete(Conexion& conexion, const QString& codigo_empresa,
                      const QString& codigo_delegacion, const QString& codigo_documento,
                      const QString& numero_documento, int numero_apunte) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(
            QStringLiteral("DELETE FROM Apuntes WHERE ") +
            condicionClave(esquema::Apuntes, {codigo_empresa, codigo_delegacion, codigo_documento,
                                              numero_documento, numero_apunte}));
    });
}

Recordset Asientos::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                            Cursor cursor) {
    return Apuntes::GetList(conexion, condicion, orden, cursor);
}
