#pragma once

#include "temporal.h"

#include <QString>
#include <QStringList>
#include <array>

// The trial balance without its window: the criteria as typed, the four steps that load
// SumasSaldos (chart, amounts, roll-up, clean-up) and what the print is told. The form and
// the headless runner both go through here.
struct CriteriosSumas {
    QString delegaciones, diarios;     // comma-separated codes
    QString cuentaDesde, cuentaHasta;  // expanded codes, or empty
    QString fechaDesde, fechaHasta;    // as typed, dd/mm/yyyy
    bool conMovimientos = false;       // "Incluir cuentas sin movimientos"
    std::array<bool, 12> niveles{};    // the level boxes, index 0 for level 1
};

// The boxes a form shows checked on opening: only the level of the posting accounts.
std::array<bool, 12> nivelesIniciales(int digitos);

// The chart's criterion of step 1: each level's rows between the bounds cut to its length.
QString criterioPlanSumas(const CriteriosSumas& c, int digitos);

// Runs the four steps on the temporary store; `avance` follows the chart's rows. Gives the
// number of rows the table holds at the end.
qint64 llenarSumasSaldos(const CriteriosSumas& c, const Avance& avance = {});

// "periodo", "niveles" (the first checked level, counted from 1) and "empresa".
QStringList formulasSumas(const CriteriosSumas& c);
QString consultaSumas();
