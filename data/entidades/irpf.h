#pragma once

#include "entidad.h"

// Withholding types.
struct irpf {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                       const QString& cuenta, double pct_irpf, const QString& descripcion,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                       const QString& cuenta, double pct_irpf, const QString& descripcion,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& codigo);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
