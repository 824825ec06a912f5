#pragma once

#include "temporal.h"

#include <QString>
#include <QStringList>

// The account statement without its window: the criteria as typed, the two criteria texts,
// the filling of Extractos and what the print is told. The form and the headless runner both
// go through here.
struct CriteriosExtracto {
    QString delegaciones, diarios;  // comma-separated codes
    QString cuentaDesde, cuentaHasta;
    QString fechaDesde, fechaHasta;  // as typed, dd/mm/yyyy
    bool porDiario = false;
};

struct Extracto {
    QString criterio;          // the period's lines
    QString criterioAnterior;  // the lines of the same accounts before the period
};

Extracto criterioExtracto(const CriteriosExtracto& c);

// Empties and fills Extractos from the period's lines, each with its account's balance before
// the period and its title; gives the number of lines, and when there are none leaves the
// table as it was. `avance` is told each line written and the total first.
qint64 llenarExtractos(const Extracto& e, const Avance& avance = {});

QStringList formulasExtracto(const CriteriosExtracto& c);
QString consultaExtracto(bool porDiario);
