#pragma once

#include <QString>

// The tax identifier as the agency's files require it, checked in full: the control character
// of a DNI, NIE, K/L/M or CIF computed and compared. The screens' lenient check (forms/nif.h)
// lets through what a user may still be typing; this one decides whether a file that names the
// identifier can be delivered.

// Upper case, without the blanks, hyphens, slashes and points people write between its parts.
QString nifNormalizado(const QString& nif);

// On the normalised text: nine characters, and the control character right for its kind.
bool nifValidoEstricto(const QString& nif);
