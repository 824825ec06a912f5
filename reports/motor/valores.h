#pragma once

#include "diseno.h"
#include "expresion.h"

#include <QVariant>

// How the values of a report reach the page and the exports.
namespace motor {

// What a value of a row holds, by the type the store gave it.
bool esDecimal(const QVariant& v);
bool esEntero(const QVariant& v);

// A value of a row: numbers stay numbers, everything else (and Null) a text.
Valor valorDe(const QVariant& v);

// An amount as a Spanish book shows it: "1.234,56", "-0,50", halves away from zero.
QString importe(double valor);
// "20260131" as "31/01/2026"; any other text as it stands.
QString fechaVisible(const QString& yyyymmdd);

// A value as an element of the layout shows it; with `parentesis`, a negative amount as
// "(1.234,56)", as the financial statements show what subtracts.
QString mostrar(const Valor& v, Formato formato, bool blancoSiCero, bool parentesis = false);

}  // namespace motor
