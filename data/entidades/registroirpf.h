#pragma once

#include "entidad.h"

// One row per withholding line of an entry.
struct RegistroIrpf {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QString& tipo_acrdeu, const QString& codigo_personal,
                       const QString& codigo_irpf, double base, double pctirpf, double irpf,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QString& tipo_acrdeu, const QString& codigo_personal,
                       const QString& codigo_irpf, double base, double pctirpf, double irpf,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
