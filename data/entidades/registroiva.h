#pragma once

#include "entidad.h"

// One row per VAT line of an entry: base, percentages and amounts, third party.
struct RegistroIva {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte, const QString& tipo,
                       const QString& tipo_acrdeu, const QString& codigo_personal,
                       const QString& impuesto, double base, double pctiva, double iva,
                       double pctre, double re, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte, const QString& tipo,
                       const QString& tipo_acrdeu, const QString& codigo_personal,
                       const QString& impuesto, double base, double pctiva, double iva,
                       double pctre, double re, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
