#pragma once

#include "temporal.h"

#include <QString>
#include <QStringList>

// The VAT book and its summary without their window: the register rows of the session's
// branch whose invoice date falls in the period, each with its third party's NIF and name,
// copied into LibroIva; the book and the summary are two orders of that one table.
struct CriteriosLibroIva {
    QString fechaDesde, fechaHasta;  // as typed, dd/mm/yyyy
};

// The bounds as "yyyymmdd": an empty from-date means the session's year whatever the to-date
// holds; a from-date with an empty to-date gives an empty upper bound, and so no rows.
struct PeriodoIva {
    QString desde, hasta;
};
PeriodoIva periodoLibroIva(const CriteriosLibroIva& c);

// The statement on the main store. A row whose third party or journal line is gone falls
// out by the join.
QString consultaRegistroIva(const PeriodoIva& p);
// Fills LibroIva; gives the number of rows, 0 when there are none (the table is then left
// as it was).
qint64 llenarLibroIva(const CriteriosLibroIva& c, const Avance& avance = {});
QStringList formulasLibroIva(const CriteriosLibroIva& c);
QString consultaLibroIva();
QString consultaResumenIva();

// The third parties whose operations of the period, with VAT and surcharge, reach an amount:
// one row per kind of operation and party, from the register of the session's branch.
struct CriteriosTerceros {
    QString fechaDesde, fechaHasta;  // as typed; each empty one is the session's own bound
    QString cantidad;                // as typed; empty is 3005.06
};

// The threshold as the statement takes it, with a point as decimal mark. A text that is no
// amount (whole cents, as every amount typed) gives an empty text, refused by the form before
// any statement: ten thousand digits overflowed the store's numbers.
QString cantidadTerceros(const QString& escrita);
QString consultaOperacionesTerceros(const CriteriosTerceros& c);
qint64 llenarOperacionesTerceros(const CriteriosTerceros& c, const Avance& avance = {});
QStringList formulasTerceros(const CriteriosTerceros& c);
QString consultaTerceros();
