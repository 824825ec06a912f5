#pragma once

#include "forms/mantenimiento.h"

#include <QString>
#include <optional>

// What the portfolio's maintenance forms share: their look-ups by code in the company's
// tables and the way they read and show amounts.
namespace cartera_comun {

// "codigo_empresa = 'E' and columna = 'codigo'".
QString deLaEmpresa(const QString& columna, const QString& codigo);

// The name of a code of the company's table; nothing when there is no such code. A row whose
// name is blank still exists.
std::optional<QString> nombreDe(const QString& tabla, const QString& columnaNombre,
                                const QString& columnaCodigo, const QString& codigo);

// Amounts are whole cents: anything else is message 1004.
QString comprobarImporte(const QString& texto);
// A checked amount, or a blank, as the forms and lists show it ("0.00").
QString comoImporte(const QString& texto);

// The third party's field: lookup in Personal, its name beside it, an unknown code refused with
// "Error no definido.".
mantenimiento::Campo campoTercero(const QString& etiqueta);

}  // namespace cartera_comun
