#pragma once

#include "entidad.h"

// An account's role as customer, supplier, debtor or creditor, with its defaults.
struct acrdeu {
    static void Insert(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                       const QString& codigo, const QString& tipo, const QString& nacionalidad,
                       const QString& impuesto, const QString& forma_pago, int primer_dia,
                       double descuento, const QString& irpf, const QString& contrapartida,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                       const QString& codigo, const QString& tipo, const QString& nacionalidad,
                       const QString& impuesto, const QString& forma_pago, int primer_dia,
                       double descuento, const QString& irpf, const QString& contrapartida,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa, const QString& cuenta,
                       const QString& codigo);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
