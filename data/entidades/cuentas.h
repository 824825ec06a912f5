#pragma once

#include "entidad.h"

// The chart of accounts of a company (table Cuentas).
struct cuentas {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                       const QString& descripcion, const QString& pases, int nivel,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                       const QString& descripcion, const QString& pases, int nivel,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
