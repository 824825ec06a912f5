#pragma once

#include "entidad.h"

// Companies. Creating one provisions it in one transaction: its twin branch, the fiscal year of
// the current calendar year, the chart of accounts and the two statement layouts copied from
// the template store, and a first posting account of full length under each three-digit
// account. Deleting one removes everything of it, in every table.
struct Empresas {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& nif,
                       const QString& nombre, const QString& direccion, const QString& cp,
                       const QString& poblacion, const QString& provincia, const QString& pais,
                       const QString& telefono, const QString& fax, const QString& correo,
                       int digitos, const QString& ultimo_usuario, bool enTransaccion);
    // Also the twin branch's name and address.
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& nif,
                       const QString& nombre, const QString& direccion, const QString& cp,
                       const QString& poblacion, const QString& provincia, const QString& pais,
                       const QString& telefono, const QString& fax, const QString& correo,
                       int digitos, const QString& ultimo_usuario, bool enTransaccion);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
