#pragma once

#include "forms/mantenimiento.h"

#include <QStringList>

// The lines of a company's two statements as the statements add them up: the balance sheet
// (frmSituacion) and the profit and loss account (frmPergan). A line is named by its side and
// its levels and holds a title and the accounts it adds; what the accounts text means is the
// statements' business, not these forms'.
FormularioMantenimiento* nuevoFrmSituacion();
FormularioMantenimiento* nuevoFrmPergan();

namespace estructuras {

// The side of a line: one of `letras`, typed in either case, else message `mensaje`.
mantenimiento::Campo campoLado(const QString& etiqueta, const QString& columna,
                               const QStringList& letras, int mensaje);
// A level: a whole number (message 1024), read back as the store gives it ("01" is "1").
mantenimiento::Campo campoNivel(const QString& etiqueta, const QString& columna);
// The question before deleting the line whose title is field `titulo`.
std::function<QString(const QStringList& campos)> preguntaEntrada(int titulo);

}  // namespace estructuras
