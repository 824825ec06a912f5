#pragma once

#include "diseno.h"
#include "expresion.h"
#include "pagina.h"

#include <QHash>
#include <QString>
#include <functional>

class QPagedPaintDevice;
class QPainter;

// The exports of a report. CSV and XLSX hold its rows: for people, the columns its layout
// exports, under the titles it gives them and computed as the printed lines are; for programs
// that read them, every column of its query under the column's name, in its order. PDF and the
// printer get the laid-out pages. Each is written to a file beside the target and renamed at
// the end, so that a cancelled or failed export leaves nothing half-written behind.
namespace motor {

class FuenteFilas;

// Told of the progress now and then; giving false cancels the work.
using Progreso = std::function<bool(qint64 hecho, qint64 total)>;

enum class Resultado { Hecho, Cancelado };

// UTF-8 with its mark, ";" between fields, the heading first; amounts with a decimal comma and
// two decimals, whole numbers as they are, dates as dd/mm/yyyy; a field with ";", quotes or
// line breaks goes in quotes. This one writes the query's columns under their names (a
// "yyyymmdd" text of a column named fecha… is a date): the machine format, kept as it is.
Resultado exportarCsv(FuenteFilas& fuente, const QString& ruta, const Progreso& progreso = {});
// The same format with the columns the layout exports (exportar), under their titles; a
// layout that declares none gives the query's columns as above. A name of an exported column
// that the query does not give is an Error naming the layout's file and line, before any row.
Resultado exportarCsv(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                      FuenteFilas& fuente, const QString& ruta, const Progreso& progreso = {});

// A workbook written row by row (its memory does not grow with the rows): the heading in bold
// and frozen, amounts as numbers with "#,##0.00", dates as dates. Beyond a sheet's rows the
// report goes on in the next sheet, under the same heading. The query's columns, or the
// layout's exported ones, as the CSV exports above.
Resultado exportarXlsx(FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                       const Progreso& progreso = {});
Resultado exportarXlsx(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                       FuenteFilas& fuente, const QString& ruta, const QString& titulo,
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
