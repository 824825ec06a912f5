#pragma once

#include "entidad.h"

// Fiscal years of a company. A new year carries the series of the year before it; deleting a
// year takes its series, and the entries of one branch within its dates with what hangs from
// them. Dates enter as values (QDate or "dd/mm/yyyy") and are stored through sDate.
struct Ejercicios {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                       const QVariant& fecha_inicial, const QVariant& fecha_final,
                       const QVariant& inicio_bloqueo, const QVariant& final_bloqueo,
                       const QString& regularizado, const QString& cerrado,
                       const QString& ultimo_usuario, bool enTransaccion);
    static void Update(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                       const QVariant& fecha_inicial, const QVariant& fecha_final,
                       const QVariant& inicio_bloqueo, const QVariant& final_bloqueo,
                       const QString& regularizado, const QString& cerrado,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, int ejercicio, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
