#pragma once

#include <QString>

struct DocumentoApunte;

// The checks of the entry form, without a window, against the session's company, year and
// dates. A field check may rewrite the text it is given (capitals, an account's dot, a new
// number of the series) and gives the code of MensajeError, or 0 when the field passes; an
// empty field always passes, as required fields are enforced when the tab is left.
namespace validacion {

// Fields 0 to 8, the header and main line. `documento` is the code typed in field 1 and `doc`
// the form's last document read; the journal's and account's descriptions go to `descripcion`.
int ValidarCabecera(int indice, QString& texto, const QString& documento,
                    const DocumentoApunte& doc, QString* descripcion = nullptr);

// Fields 54 to 56, the counterpart line; the account's description goes to `descripcion`.
int ValidarContrapartida(int indice, QString& texto, QString* descripcion = nullptr);

// Fields 49 to 51, a due item typed by hand: its type ("C" or "P", put in capitals), date and
// amount in cents.
int ValidarVencimiento(int indice, QString& texto);

// The entry as a whole before it is written: the posting date inside the fiscal year (1027)
// and inside the posting window when both its bounds are set (1029), and an exact balance
// (1028): no tolerance, so a residue of the floating sums refuses the entry.
int ValidarAsiento(const QString& fecha, double saldo);

}  // namespace validacion
