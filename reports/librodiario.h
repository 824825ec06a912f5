#pragma once

#include "extracto.h"

#include <QString>
#include <QStringList>

// The journal book without its window: the criteria as typed, the criterion text, the filling
// of LibroDiario and what the print is told.
struct CriteriosLibroDiario {
    QString delegaciones, diarios;
    QString tipoDocumento;                   // the beginning of a document code
    QString documentoDesde, documentoHasta;  // numbers, compared as text
    QString fechaDesde, fechaHasta;          // as typed, dd/mm/yyyy
};

QString criterioLibroDiario(const CriteriosLibroDiario& c);

// Empties and fills LibroDiario from the lines of the criterion, each with its account's
// title; gives the number of lines, and when there are none leaves the table as it was.
qint64 llenarLibroDiario(const QString& criterio, const Avance& avance = {});

QStringList formulasLibroDiario(const CriteriosLibroDiario& c);
QString consultaLibroDiario();
