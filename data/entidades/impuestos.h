#pragma once

#include "entidad.h"

// VAT types. Insert receives the surcharge account and does not write it: a new type is
// born without it, and only Update stores it.
struct Impuestos {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& impuesto,
                       const QString& cta_iva, double pct_iva, const QString& cta_re, double pct_re,
                       const QString& descripcion, const QString& tipo,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& impuesto,
                       const QString& cta_iva, double pct_iva, const QString& cta_re, double pct_re,
                       const QString& descripcion, const QString& tipo,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& impuesto);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
