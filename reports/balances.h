#pragma once

#include "temporal.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <map>

// The balance sheet and the profit and loss account without their windows: the lines of the
// company's Situacion or Pergan, each with the amount of its cuentas text over the period and
// over the same period a year earlier, and for the profit and loss account the results that
// its second pass adds up. The forms and the headless runner both go through here.
struct CriteriosBalance {
    QString fechaDesde, fechaHasta;  // as typed, dd/mm/yyyy
};

// The two periods as "yyyymmdd": an empty from-date means the session's year, whatever the
// to-date holds; the previous period is the same dates a year earlier.
struct Periodos {
    QString inicio, fin, inicioAnterior, finAnterior;
};
Periodos periodosBalance(const CriteriosBalance& c);

// Debit minus credit of each account of the company in the session's branch over a period,
// read in one grouped statement, so that the lines' many prefixes cost a look-up in memory
// each instead of a pass over the journal. A prefix takes the accounts LIKE "prefix%" would.
class SaldosCuentas {
public:
    static SaldosCuentas leer(const QString& desde, const QString& hasta);
    // The accounts that begin with any of the prefixes, each counted once.
    double saldo(const QStringList& prefijos) const;

private:
    std::map<QString, double> cuentas_;
};

// Fills BalanceSituacion; gives the number of lines, 0 when the company has none (the table
// is then left as it was).
qint64 llenarBalanceSituacion(const CriteriosBalance& c, const Avance& avance = {});
QStringList formulasSituacion(const CriteriosBalance& c);
QString consultaSituacion();

// A line of the profit and loss account as its second pass reads it.
struct LineaPyG {
    QString dh;
    int nivel_1 = 0, nivel_2 = 0;
    double saldo = 0, saldo_ant = 0;
};

// The 24 results, indices 1 to 6 (0 unused): A and B of the period, AA and BB of the year
// before.
struct ResultadosPyG {
    std::array<double, 7> A{}, B{}, AA{}, BB{};
};
ResultadosPyG calcularResultados(const QList<LineaPyG>& lineas);

// Fills BalancePyG and computes its results; gives the number of lines, 0 when the company
// has none.
qint64 llenarBalancePyG(const CriteriosBalance& c, ResultadosPyG& resultados,
                        const Avance& avance = {});
// "periodo", "empresa", then A1 to A6, AA1 to AA6, B1 to B6 and BB1 to BB6.
QStringList formulasPyG(const CriteriosBalance& c, const ResultadosPyG& r);
QString consultaPyG();
