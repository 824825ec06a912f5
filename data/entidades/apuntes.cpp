#include "apuntes.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Apuntes::Insert(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_delegacion, const QString& codigo_documento,
                     const QString& numero_documento, int numero_apunte,
                     const QString& codigo_diario, const QVariant& fecha_apunte,
                     const QVariant& fecha_documento, const QString& referencia,
                     const QString& cuenta, const QString& concepto, double debe, double haber,
                     const QString& tipo, const QString& tag, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Apuntes,
                 {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                  numero_apunte, codigo_diario, fecha_apunte, fecha_documento, referencia, cuenta,
                  concepto, debe, haber, tipo, tag},
                 ultimo_usuario);
    });
}

void Apuntes::Update(Conexion& conexion, const QString& codigo_empresa,
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
                   ultimo_usuario);
    });
}

void Apuntes::Delete(Conexion& conexion, const QString& codigo_empresa,
                     const QString& codigo_delegacion, const QString& codigo_documento,
                     const QString& numero_documento, int numero_apunte, bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        QString condicion =
            QStringLiteral(" WHERE codigo_empresa = ") + sqlTexto(codigo_empresa) +
            QStringLiteral(" AND codigo_delegacion = ") + sqlTexto(codigo_delegacion) +
            QStringLiteral(" AND codigo_documento = ") + sqlTexto(codigo_documento) +
            QStringLiteral(" AND numero_documento = ") + sqlTexto(numero_documento);
        if (numero_apunte != 0)
            condicion += QStringLiteral(" AND numero_apunte = ") + QString::number(numero_apunte);
        // Dependants first, so that no statement finds a row whose line is already gone.
        const char* irpf = numero_apunte == 0 ? "RegistroIRPF" : "RegistroIrpf";
        for (const char* tabla : {"Cartera", "RegistroIVA", irpf, "Apuntes"})
            conexion.execute(QStringLiteral("DELETE FROM ") + QLatin1StringView(tabla) + condicion);
    });
}

Recordset Apuntes::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                           Cursor cursor) {
    return getList(conexion, esquema::Apuntes, condicion, orden, cursor);
}
