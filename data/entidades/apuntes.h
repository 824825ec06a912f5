#pragma once

#include "entidad.h"

// The journal lines. An entry is the set of lines that share company, branch, document and
// number; numero_apunte tells its lines apart. Dates enter as values and are stored through
// sDate. The class writes what it is given: the balance of an entry is the entry form's rule.
struct Apuntes {
    static void Insert(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QString& codigo_diario, const QVariant& fecha_apunte,
                       const QVariant& fecha_documento, const QString& referencia,
                       const QString& cuenta, const QString& concepto, double debe, double haber,
                       const QString& tipo, const QString& tag, const QString& ultimo_usuario);
    static void Update(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte,
                       const QString& codigo_diario, const QVariant& fecha_apunte,
                       const QVariant& fecha_documento, const QString& referencia,
                       const QString& cuenta, const QString& concepto, double debe, double haber,
                       const QString& tipo, const QString& tag, const QString& ultimo_usuario);
    // One line (numero_apunte > 0) or the whole entry (0), with the due dates, VAT and
    // withholding rows that hang from it, dependants first, in one transaction.
    static void Delete(Conexion& conexion, const QString& codigo_empresa,
                       const QString& codigo_delegacion, const QString& codigo_documento,
                       const QString& numero_documento, int numero_apunte, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                             Cursor cursor = Cursor::Estatico);
};
