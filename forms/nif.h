#pragma once

#include <QString>

// Judging a Spanish tax identifier (NIF, NIE or CIF) as typed: a first filter on the text, not
// a proof. A CIF is judged by its first letter and length only, and a bare number passes as a
// NIF. Pure functions, without messages: the screens show code 1006 on a negative verdict.
namespace nif {

// The control letter of a number: "TRWAGMYFPDXBNJZSQVHLCKE" by its remainder by 23.
QString LetraControl(qint32 numero);

// The control letter of an identifier: of its leading number, or of what follows an opening
// "X" (either case); empty when it opens with anything else. A number beyond a signed 32-bit
// integer throws Error 6, "Desbordamiento".
QString CalcularLetraNif(QString texto);

// A CIF's shape: a known organisation letter first (capitals only) and nine characters or more
// as typed, separators included.
bool EsCif(QString texto);

// A NIF or NIE with its letter; one typed without it (ending in a digit) passes, and gets the
// letter appended to `texto`.
bool ComprobarNif(QString& texto);

// The verdict of a screen: either test, both always evaluated, the second on a copy.
bool NifValido(const QString& texto);

}  // namespace nif
