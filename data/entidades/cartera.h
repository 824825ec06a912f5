#pragma once

#include "entidad.h"

// Due dates of receivables and payables, each hanging from one line of an entry.
struct cartera {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QVariant& fecha_vto, const QString& tipo_acrdeu,
                       const QString& codigo_personal, const QString& concepto, const QString& tipo,
                       const QString& estado, double importe, const QVariant& fecha_cierre,
                       const QString& codigo_documento_cierre,
                       const QString& numero_documento_cierre, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QVariant& fecha_vto, const QString& tipo_acrdeu,
                       const QString& codigo_personal, const QString& concepto, const QString& tipo,
                       const QString& estado, double importe, const QVariant& fecha_cierre,
                       const QString& codigo_documento_cierre,
                       const QString& numero_documento_cierre, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QVariant& fecha_vto);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
    // Closes or reopens a due date: its state and closing columns only.
    static void SetEstado(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, const QString& codigo_documento,
                          const QString& numero_documento, int numero_apunte,
                          const QVariant& fecha_vto, const QString& estado,
                          const QVariant& fecha_cierre, const QString& codigo_documento_cierre,
                          const QString& numero_documento_cierre, const QString& ultimo_usuario);
    // Closes a due date that is still pending, in one statement, so that of two entries that
    // close it at once only one does: false, with nothing written, when it is not pending any
    // more (closed or returned meanwhile) or is gone.
    static bool Cerrar(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QVariant& fecha_vto, const QVariant& fecha_cierre,
                       const QString& codigo_documento_cierre,
                       const QString& numero_documento_cierre, const QString& ultimo_usuario);
};
