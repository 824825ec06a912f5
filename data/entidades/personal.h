#pragma once

#include "entidad.h"

// Names and addresses of third parties.
struct Personal {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                       const QString& nombre, const QString& nif, const QString& direccion,
                       const QString& poblacion, const QString& cp, const QString& provincia,
                       const QString& pais, const QString& telefono, const QString& fax,
                       const QString& email, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& codigo,
                       const QString& nombre, const QString& nif, const QString& direccion,
                       const QString& poblacion, const QString& cp, const QString& provincia,
                       const QString& pais, const QString& telefono, const QString& fax,
                       const QString& email, const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& codigo);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
