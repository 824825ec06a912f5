#pragma once

#include "entidad.h"

// Users: a code and a password, stored as its hash (see contrasenas.h). A new user is registered in
// every branch of every company as not allowed; deleting one removes its restrictions and branches
// with it.
struct Usuarios {
    // codigo_empresa and codigo_delegacion are received and not used.
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_usuario,
                       const QString& contrasena, const QString& ultimo_usuario,
                       bool enTransaccion);
    // A blank password leaves the stored one as it is.
    static void Update(Conexion& conexion, const QString& codigo_usuario, const QString& contrasena,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_usuario, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
