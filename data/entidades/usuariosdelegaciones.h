#pragma once

#include "entidad.h"

// Which user may work in which branch. Rows are born with the user or the branch; Update is
// the only writer of activo afterwards.
struct UsuariosDelegaciones {
    static void Update(Conexion& conexion, const QString& codigo_usuario,
                       const QString& codigo_empresa, const QString& codigo_delegacion, int activo,
                       const QString& ultimo_usuario);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
    // Whether the user, with that password, is allowed in the branch. The codes are compared by
    // the store as they come (the company code carries a trailing blank that the comparison
    // ignores); the password through its stored hash.
    static bool ValidarUsuario(Conexion& conexion, const QString& codigo_empresa,
                               const QString& codigo_delegacion, const QString& codigo_usuario,
                               const QString& contrasena);
};
