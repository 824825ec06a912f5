#pragma once

#include "data/almacen/conexion.h"

#include <QString>

// The regularisation of a fiscal year: one entry on the year's last day that cancels the
// balance of every account of groups 6 and 7 (all branches of the company together) and
// carries the difference to a result account, and the flag `regularizado` of the year. The
// entry stands in the branch that bears the company's own code, under the fixed number
// 9999999998 and the journal "99999". No state between calls; failures follow the entity
// classes' pattern ("Error en Insert.", 0x80040001).
struct Regularizacion {
    // Posts the entry and sets the flag; gives the number of lines posted. A year without a
    // balance in groups 6 and 7 posts nothing and leaves the flag as it is (0 lines).
    // `enTransaccion`: the caller holds the transaction.
    static int Insert(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                      const QString& cuenta, const QString& codigo_documento,
                      const QString& usuario, bool enTransaccion);
    // Removes the entry of that document and clears the flag.
    static void Delete(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                       const QString& codigo_documento, const QString& usuario, bool enTransaccion);
    static Recordset GetList(Conexion& conexion, const QString& condicion, const QString& orden);

    static inline const QString numero = QStringLiteral("9999999998");
    static inline const QString diario = QStringLiteral("99999");
};
