#include "menus.h"

#include "data/almacen/sql.h"

using namespace entidad;

Recordset Menus::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                         Cursor cursor) {
    return getList(conexion, esquema::Menus, condicion, orden, cursor);
}
