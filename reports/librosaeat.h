#pragma once

#include <QString>

class Conexion;

// The VAT record books in the layout the tax agency asks for when it requires them (the
// format of "libros registro del IVA e IRPF"): issued invoices (sales) and received invoices
// (purchases and investment goods) of one company over all its branches, one row per invoice
// and VAT rate, under the agency's column headings in two rows. What the register does not hold
// (operation dates apart from the invoice's, substitute invoices, cash-basis payments and
// collections) stays empty; every invoice goes under key "01".
//
// desde/hasta "yyyymmdd", by invoice date. ".xlsx": one workbook, sheets "Expedidas" and
// "Recibidas", dates as dates and amounts as numbers. ".csv": two files, the name with
// "_expedidas" / "_recibidas" before the extension, UTF-8, semicolons, dates dd/mm/yyyy and
// amounts with a decimal comma. Gives the number of rows written; false + error on failure,
// and then no file is left half-written.
bool escribirLibrosAeat(Conexion& c, const QString& empresa, const QString& desde,
                        const QString& hasta, const QString& ruta, QString& error,
                        qint64* filas = nullptr);
