#pragma once

#include "entidad.h"

// Lines of the profit and loss account of a company. Delete names nivel_3 twice and
// never nivel_4: one delete takes every row that shares dh and the first three levels.
struct Pergan {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& dh,
                       int nivel_1, int nivel_2, int nivel_3, int nivel_4, const QString& titulo,
                       const QString& cuentas, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& dh,
                       int nivel_1, int nivel_2, int nivel_3, int nivel_4, const QString& titulo,
                       const QString& cuentas, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& dh,
                       int nivel_1, int nivel_2, int nivel_3, int nivel_4);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
