#pragma once

#include "entidad.h"

// Branches of a company. The branch whose code is the company's is its twin: an update of
// either keeps the name and address of both equal.
struct Delegaciones {
    // Also registers the branch for every user, as not allowed.
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& nombre,
                       const QString& direccion, const QString& cp, const QString& poblacion,
                       const QString& provincia, const QString& pais, const QString& telefono,
                       const QString& fax, const QString& correo, const QString& ultimo_usuario,
                       bool enTransaccion);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& nombre,
                       const QString& direccion, const QString& cp, const QString& poblacion,
                       const QString& provincia, const QString& pais, const QString& telefono,
                       const QString& fax, const QString& correo, const QString& ultimo_usuario,
                       bool enTransaccion);
    // The branch with its entries, registers, due dates, restrictions and users' access.
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
