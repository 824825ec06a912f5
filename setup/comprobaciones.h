#pragma once

#include <QString>
#include <optional>

// The lookups that the company's forms share for their field checks, within the session's
// company.
namespace comprobaciones {

// An account as typed, with its "." filled by zeros to the company's length.
QString expandirCuenta(const QString& texto);

// The description of an account of the chart; with `soloPases`, only of one that takes
// postings. Nothing when there is no such account.
std::optional<QString> nombreCuenta(const QString& cuenta, bool soloPases);

// The value of `columna` in the company's row of `tabla` whose `columnaCodigo` is `codigo`:
// nothing when there is no such row.
std::optional<QString> buscarEnEmpresa(const QString& tabla, const QString& columna,
                                       const QString& columnaCodigo, const QString& codigo);

// Message `mensaje` unless the text is a number.
QString numerico(const QString& texto, int mensaje);

// Whether a row of `tabla` in the company has `codigo` in `columna`.
bool enUso(const QString& tabla, const QString& columna, const QString& codigo);

}  // namespace comprobaciones
