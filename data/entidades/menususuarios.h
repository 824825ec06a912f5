#pragma once

#include "entidad.h"

// A user's restrictions on one menu item in one branch (table
// RestriccionesUsuariosMenus).
struct MenusUsuarios {
    static void Insert(Conexion& conexion, const QString& codigo_usuario,
                       const QString& codigo_empresa, const QString& codigo_delegacion,
                       const QString& item_menu, const QString& restricciones,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_usuario,
                       const QString& codigo_empresa, const QString& codigo_delegacion,
                       const QString& item_menu, const QString& restricciones,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_usuario,
                       const QString& codigo_empresa, const QString& codigo_delegacion,
                       const QString& item_menu);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
