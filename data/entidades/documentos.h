#pragma once

#include "entidad.h"

// Document types: the rule card of a kind of entry (side, VAT, portfolio, series).
struct Documentos {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_documento, const QString& descripcion,
                       const QString& partida, const QString& iva, const QString& cartera,
                       const QString& numeracion, const QString& identificador,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_documento, const QString& descripcion,
                       const QString& partida, const QString& iva, const QString& cartera,
                       const QString& numeracion, const QString& identificador,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_documento);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
