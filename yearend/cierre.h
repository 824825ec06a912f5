#pragma once

#include "data/almacen/conexion.h"

#include <QString>

// The closing of a fiscal year: one entry on its last day that cancels every account of
// groups 1 to 5 (all branches together), and one on the first day of the next year that opens
// the same balances, line for line; the flag `cerrado`; and the next year, created with the
// series of this one when it does not exist yet. Both entries stand in the branch that bears
// the company's code, under the fixed numbers 9999999999 (journal "99999") and 0000000000
// (journal "00000"), so that sorted by number the opening comes first in a year and the
// closing last.
struct Cierre {
    // Gives the number of accounts closed; 0 when there was no balance, and then nothing was
    // written and the flag stays as it was.
    static int Insert(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                      const QString& documento_cierre, const QString& documento_apertura,
                      const QString& usuario, bool enTransaccion);
    // Removes both entries and clears the flag; a next year this created stays.
    static void Delete(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                       const QString& documento_cierre, const QString& documento_apertura,
                       const QString& usuario, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden);

    static inline const QString numeroCierre = QStringLiteral("9999999999");
    static inline const QString numeroApertura = QStringLiteral("0000000000");
    static inline const QString diarioCierre = QStringLiteral("99999");
    static inline const QString diarioApertura = QStringLiteral("00000");
};

// Undoing the year end of a year: the regularisation and the closing under the default
// documents of that year, and both flags, in one transaction, all or nothing. Refused (false,
// nothing done) while the next year is closed.
bool InvertirCierre(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                    const QString& usuario);

// A flag of a year ("regularizado", "cerrado") as committed, "#" when the year does not exist.
QString marcaEjercicio(const QString& campo, const QString& codigo_empresa, int ejercicio);

// The documents the forms propose and the reversal looks for: "REGU2026", "CIER2026",
// "APER2027".
QString documentoRegularizacion(int ejercicio);
QString documentoCierre(int ejercicio);
QString documentoApertura(int ejercicio);
