#pragma once

#include "entidad.h"

// Numbering series per company and year. No method opens a transaction: they run inside the
// caller's, if any.
struct numeracion {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                       const QString& numeracion, int longitud, int numero,
                       const QString& descripcion, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                       const QString& numeracion, int longitud, int numero,
                       const QString& descripcion, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                       const QString& numeracion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
    // Carries the series of one year into another: a series missing in the destination is
    // added with number 1; those already there stay as they are.
    static void DuplicarNumeracionEjercicio(Conexion& conexion, const QString& codigo_empresa,
                                            int ejercicio_origen, int ejercicio_destino,
                                            const QString& ultimo_usuario);
};
