#pragma once

#include "entidad.h"

// Journals of a company.
struct Diarios {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_diario, const QString& descripcion,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_diario, const QString& descripcion,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_diario);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
