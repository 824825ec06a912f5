#pragma once

#include "diseno.h"
#include "expresion.h"
#include "pagina.h"

#include <QHash>
#include <QString>
#include <functional>

class QPagedPaintDevice;
class QPainter;

// The exports of a report. CSV and XLSX hold the rows of the report's query, every column,
// in its order; PDF and the printer get the laid-out pages. Each is written to a file beside
// the target and renamed at the end, so that a cancelled or failed export leaves nothing
// half-written behind.
namespace motor {

class FuenteFilas;

// Told of the progress now and then; giving false cancels the work.
using Progreso = std::function<bool(qint64 hecho, qint64 total)>;

enum class Resultado { Hecho, Cancelado };

// UTF-8 with its mark, ";" between fields, the column names first; amounts with a decimal
// comma and two decimals, whole numbers as they are, "yyyymmdd" dates as dd/mm/yyyy; a field
// with ";", quotes or line breaks goes in quotes.
Resultado exportarCsv(FuenteFilas& fuente, const QString& ruta, const Progreso& progreso = {});

// A workbook written row by row (its memory does not grow with the rows): the column names in
// bold and frozen, amounts as numbers with "#,##0.00", dates as dates. Beyond a sheet's rows
// the report goes on in the next sheet, under the same heading.
Resultado exportarXlsx(FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                       const Progreso& progreso = {});

// The pages one after another on a paged device (a printer, a PDF writer) already begun by
// its painter's owner; `siguiente` gives them. Progress counts pages.
Resultado pintarPaginas(QPainter& painter, QPagedPaintDevice& dispositivo, const Diseno& diseno,
                        const std::function<bool(Pagina&)>& siguiente, qint64 totalPaginas,
                        const Progreso& progreso = {});

// Pages given one after another, written to a PDF file of the layout's paper.
Resultado escribirPdf(const Diseno& diseno, const QString& ruta, const QString& titulo,
                      const std::function<bool(Pagina&)>& siguiente, qint64 totalPaginas,
                      const Progreso& progreso = {});

// Lays out the report and writes it to a PDF file; progress counts rows.
Resultado exportarPdf(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                      FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                      const Progreso& progreso = {});

}  // namespace motor
