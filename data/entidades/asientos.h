#pragma once

#include "entidad.h"

// Plain row access to the journal lines: the same SQL as Apuntes, a Delete of lines only
// (no dependants, no transaction) and an Update that stores the dates as given. Nothing in the
// system depends on it.
struct Asientos {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QString& codigo_diario, const QVariant& fecha_apunte,
                       const QVariant& fecha_documento, const QString& referencia,
                       const QString& cuenta, const QString& concepto, double debe, double haber,
                       const QString& tipo, const QString& tag, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QString& codigo_diario, const QVariant& fecha_apunte,
                       const QVariant& fecha_documento, const QString& referencia,
                       const QString& cuenta, const QString& concepto, double debe, double haber,
                       const QString& tipo, const QString& tag, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
