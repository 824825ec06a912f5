#pragma once

#include "entidad.h"

// Payment methods: up to four due dates, days and percentage each (table FormasPagos).
struct FormasPago {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_pago, const QString& descripcion, const QString& vto1,
                       double pct1, const QString& vto2, double pct2, const QString& vto3,
                       double pct3, const QString& vto4, double pct4,
                       const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_pago, const QString& descripcion, const QString& vto1,
                       double pct1, const QString& vto2, double pct2, const QString& vto3,
                       double pct3, const QString& vto4, double pct4,
                       const QString& ultimo_usuario);
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_pago);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
