#pragma once

#include "entidad.h"

// The menu tree of the main store; only read.
struct Menus {
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
