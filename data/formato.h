#pragma once

#include <QDate>
#include <QString>
#include <optional>

// Numbers and dates as the screens and the SQL text of the system write and read them.
//
// On screen an amount shows a decimal comma (121,00); a typed number is read with either a
// comma or a point as its decimal mark. In SQL text a number always has a point.
namespace formato {

// Format(valor, "0.00") and kin: as many decimals as zeros after the point of the pattern,
// halves rounded away from zero on the exact decimal value of the double, decimal comma.
QString Format(double valor, const QString& patron);

// The plain text of a double: the shortest text that reads back as the same double, up to
// 15 significant digits, with an exponent for very small or very large values
// ("5.6843418860808E-14"). A point is the decimal mark: it is also the form for SQL.
QString textoDouble(double valor);

// A typed number: blanks around it, an optional sign, digits with one comma or point, and
// an optional exponent, so that an amount shown as a residue ("5,6843418860808E-14") reads
// back. A Spanish "1.210,00" (or "1,210.00") reads too: with both marks, the last one is the
// decimal mark and the other separates groups of three digits. Anything else is not a number.
std::optional<double> leerNumero(const QString& texto);
// A typed amount: a number of whole cents ("100,555" is not one), given exactly in cents.
std::optional<double> leerImporte(const QString& texto);
bool IsNumeric(const QString& texto);

// A tax amount: base × pct ÷ 100 written as Format(…, "0.00"), worked on the decimal figures
// that the doubles stand for (the base in cents, the percentage to four decimals), so that a
// half cent always goes away from zero: 0,50 at 21 % is 0,11, which binary doubles would make
// 0,10. Everything that splits an invoice into base and taxes rounds here.
QString Cuota(double base, double pct);
// A base worked back from a gross amount: total × 100 ÷ divisor, the same way. The divisor is
// 100 plus the VAT and surcharge percentages minus the withholding one; 0 or less is no
// divisor at all, and an Error.
QString BaseDeTotal(double total, double divisor);

// The leading number of a text, read permissively: "12345678Z" gives 12345678, "1234E5Z"
// gives 123400000, "ABC" gives 0. A point is the decimal mark; "E" or "D" start an exponent.
double Val(const QString& texto);

// A date typed or shown as d/m/yyyy (also with "-" or "."; a two-digit year is 1930-2029).
std::optional<QDate> leerFecha(const QString& texto);

enum class Intervalo { Anios, Meses, Dias };
// Calendar addition: 29 February plus one year is 28 February.
QDate sumar(const QDate& fecha, Intervalo intervalo, int cantidad);

}  // namespace formato
