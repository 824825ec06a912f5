#pragma once

#include "entidad.h"

// Lines of the balance sheet of a company, each with its cuentas text.
struct Situacion {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& ap,
                       int nivel_1, int nivel_2, int nivel_3, const QString& titulo,
                       const QString& cuentas, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& ap,
                       int nivel_1, int nivel_2, int nivel_3, const QString& titulo,
                       const QString& cuentas, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& ap,
                       int nivel_1, int nivel_2, int nivel_3);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
