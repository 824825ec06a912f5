#pragma once

#include <QString>
#include <QVariant>

// The pieces that every report form builds its criterion and its formulas from.
namespace criterios {

// "B, B2" as "'B','B2'": blanks removed, each code quoted.
QString lista(const QString& codigos);

// A escrito date as "yyyymmdd", or the session's stored date when nothing was escrito.
QString fechaODefecto(const QString& escrito, const QString& sesion);

// The branch condition: the session's own branch when it is not the central one (whose code
// is the company's), else the list escrito; nothing when the field is empty.
// `conTextoDelCampo` names the field's own text instead of the session's branch.
QString delegacion(const QString& escrito, bool conTextoDelCampo = false);

// "periodo": "del " the from-date escrito or the year's first day, " al " and the last.
QString periodo(const QString& desde, const QString& hasta);

// "empresa": the company's code, a blank and its name.
QString empresa();

// The title of an account of the session's company, or empty.
QVariant titulo(const QString& cuenta);

// A formula slot: "nombre='" value "'".
QString formula(const QString& inicio, const QString& valor);

}  // namespace criterios
