#include "exportar.h"

#include "data/almacen/error.h"
#include "data/formato.h"
#include "fuente.h"
#include "paginador.h"
#include "pintor.h"
#include "valores.h"

#include <xlsxwriter.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <utility>

namespace motor {

namespace {

// Rows between two calls of the progress function.
constexpr qint64 kTramo = 4096;

// Columns named fecha… hold dates as "yyyymmdd"; the name is judged once per export.
bool columnaDeFecha(const QString& columna) {
    return columna.startsWith(u"fecha", Qt::CaseInsensitive);
}
QList<bool> columnasDeFecha(const QStringList& columnas) {
    QList<bool> fechas;
    for (const QString& c : columnas) fechas << columnaDeFecha(c);
    return fechas;
}
bool esFecha(bool columnaFecha, const QVariant& v) {
    if (!columnaFecha || v.typeId() != QMetaType::QString) return false;
    const QString t = v.toString();
    return t.size() == 8 && formato::IsNumeric(t);
}

QString campoCsv(bool columnaFecha, const QVariant& v) {
    if (v.isNull()) return {};
    if (esDecimal(v)) return formato::Format(v.toDouble(), QStringLiteral("0.00"));
    if (esEntero(v)) return QString::number(v.toLongLong());
    QString t = v.toString();
    if (esFecha(columnaFecha, v)) return fechaVisible(t);
    if (t.contains(u';') || t.contains(u'"') || t.contains(u'\n') || t.contains(u'\r'))
        t = u'"' + t.replace(u'"', QStringLiteral("\"\"")) + u'"';
    return t;
}

[[noreturn]] void fallarArchivo(const QString& ruta, const QString& motivo) {
    throw Error(0, QStringLiteral("No se puede escribir \"%1\": %2").arg(ruta, motivo));
}

// The file the work writes before it becomes the target.
QString provisional(const QString& ruta) {
    return ruta + QStringLiteral(".parcial");
}

void colocarFinal(const QString& ruta) {
    QFile::remove(ruta);
    if (!QFile::rename(provisional(ruta), ruta))
        fallarArchivo(ruta, QStringLiteral("no se puede reemplazar el archivo"));
}

}  // namespace

Resultado exportarCsv(FuenteFilas& fuente, const QString& ruta, const Progreso& progreso) {
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly)) fallarArchivo(ruta, archivo.errorString());
    const QStringList columnas = fuente.columnas();
    const QList<bool> fechas = columnasDeFecha(columnas);
    const qint64 total = progreso ? fuente.total() : -1;
    QString linea = QStringLiteral("\xFEFF") + columnas.join(u';') + QStringLiteral("\r\n");
    archivo.write(linea.toUtf8());
    std::vector<QVariant> fila;
    qint64 n = 0;
    QByteArray bloque;
    while (fuente.leer(fila)) {
        linea.clear();
        for (qsizetype i = 0; i < columnas.size(); ++i) {
            if (i) linea += u';';
            linea += campoCsv(fechas[i], fila[size_t(i)]);
        }
        linea += QStringLiteral("\r\n");
        bloque += linea.toUtf8();
        if (++n % kTramo == 0) {
            archivo.write(bloque);
            bloque.clear();
            if (progreso && !progreso(n, total)) {
                archivo.cancelWriting();
                return Resultado::Cancelado;
            }
        }
    }
    archivo.write(bloque);
    if (!archivo.commit()) fallarArchivo(ruta, archivo.errorString());
    return Resultado::Hecho;
}

Resultado exportarXlsx(FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                       const Progreso& progreso) {
    // Sheets hold 1,048,576 rows, the heading included.
    constexpr qint64 kFilasHoja = 1048575;
    const QByteArray temporal = QFile::encodeName(provisional(ruta));
    lxw_workbook_options opciones{};
    opciones.constant_memory = LXW_TRUE;
    const QByteArray carpeta = QFile::encodeName(QDir::tempPath());
    opciones.tmpdir = const_cast<char*>(carpeta.constData());
    lxw_workbook* libro = workbook_new_opt(temporal.constData(), &opciones);
    if (!libro) fallarArchivo(ruta, QStringLiteral("no se puede crear el libro"));
    lxw_format* negrita = workbook_add_format(libro);
    format_set_bold(negrita);
    format_set_bottom(negrita, LXW_BORDER_THIN);
    lxw_format* importe = workbook_add_format(libro);
    format_set_num_format(importe, "#,##0.00");
    lxw_format* fecha = workbook_add_format(libro);
    format_set_num_format(fecha, "dd/mm/yyyy");

    const QStringList columnas = fuente.columnas();
    const QList<bool> fechas = columnasDeFecha(columnas);
    const qint64 total = progreso ? fuente.total() : -1;
    lxw_worksheet* hoja = nullptr;
    int hojas = 0;
    lxw_row_t r = 0;
    const QByteArray nombreBase = titulo.left(24).toUtf8();
    auto nuevaHoja = [&] {
        ++hojas;
        const QByteArray nombre =
            hojas == 1 ? nombreBase : nombreBase + ' ' + QByteArray::number(hojas);
        hoja = workbook_add_worksheet(libro, nombre.isEmpty() ? nullptr : nombre.constData());
        for (qsizetype c = 0; c < columnas.size(); ++c) {
            worksheet_write_string(hoja, 0, lxw_col_t(c), columnas[c].toUtf8().constData(),
                                   negrita);
            worksheet_set_column(hoja, lxw_col_t(c), lxw_col_t(c),
                                 columnas[c].contains(QStringLiteral("concepto")) ||
                                         columnas[c].contains(QStringLiteral("titulo")) ||
                                         columnas[c].contains(QStringLiteral("nombre"))
                                     ? 40
                                     : 14,
                                 nullptr);
        }
        worksheet_freeze_panes(hoja, 1, 0);
        r = 1;
    };
    nuevaHoja();
    std::vector<QVariant> fila;
    qint64 n = 0;
    bool cancelado = false;
    // A failure while reading still closes the workbook, and leaves no file behind.
    struct Cierre {
        lxw_workbook*& libro;
        QString ruta;
        ~Cierre() {
            if (libro) {
                workbook_close(libro);
                QFile::remove(provisional(ruta));
            }
        }
    } cierre{libro, ruta};
    while (fuente.leer(fila)) {
        if (r > kFilasHoja) nuevaHoja();
        for (qsizetype c = 0; c < columnas.size(); ++c) {
            const QVariant& v = fila[size_t(c)];
            const auto col = lxw_col_t(c);
            if (v.isNull()) continue;
            if (esDecimal(v)) {
                worksheet_write_number(hoja, r, col, v.toDouble(), importe);
            } else if (esEntero(v)) {
                worksheet_write_number(hoja, r, col, double(v.toLongLong()), nullptr);
            } else if (esFecha(fechas[c], v)) {
                const QString t = v.toString();
                lxw_datetime d{
                    t.left(4).toInt(), t.mid(4, 2).toInt(), t.mid(6, 2).toInt(), 0, 0, 0};
                worksheet_write_datetime(hoja, r, col, &d, fecha);
            } else {
                const QByteArray texto = v.toString().toUtf8();
                if (!texto.isEmpty())
                    worksheet_write_string(hoja, r, col, texto.constData(), nullptr);
            }
        }
        ++r;
        if (++n % kTramo == 0 && progreso && !progreso(n, total)) {
            cancelado = true;
            break;
        }
    }
    const lxw_error error = workbook_close(std::exchange(libro, nullptr));
    if (cancelado) {
        QFile::remove(provisional(ruta));
        return Resultado::Cancelado;
    }
    if (error != LXW_NO_ERROR) {
        QFile::remove(provisional(ruta));
        fallarArchivo(ruta, QString::fromUtf8(lxw_strerror(error)));
    }
    colocarFinal(ruta);
    return Resultado::Hecho;
}

Resultado pintarPaginas(QPainter& painter, QPagedPaintDevice& dispositivo, const Diseno& diseno,
                        const std::function<bool(Pagina&)>& siguiente, qint64 totalPaginas,
                        const Progreso& progreso) {
    Pintor pintor(diseno);
    // The paper's width in device pixels fixes the scale; the device's margins are its own.
    const QRect papel = dispositivo.pageLayout().fullRectPixels(dispositivo.logicalDpiX());
    const QRect util = dispositivo.pageLayout().paintRectPixels(dispositivo.logicalDpiX());
    const double pixelesPorMm = papel.width() / diseno.papel.width();
    Pagina pagina;
    qint64 n = 0;
    while (siguiente(pagina)) {
        if (n > 0 && !dispositivo.newPage())
            throw Error(0, QStringLiteral("No se puede empezar una página nueva."));
        painter.save();
        painter.translate(-(util.left() - papel.left()), -(util.top() - papel.top()));
        pintor.pintar(painter, pagina, pixelesPorMm);
        painter.restore();
        ++n;
        if (progreso && n % 16 == 0 && !progreso(n, totalPaginas)) return Resultado::Cancelado;
    }
    return Resultado::Hecho;
}

Resultado escribirPdf(const Diseno& diseno, const QString& ruta, const QString& titulo,
                      const std::function<bool(Pagina&)>& siguiente, qint64 totalPaginas,
                      const Progreso& progreso) {
    Resultado resultado;
    {
        QPdfWriter pdf(provisional(ruta));
        pdf.setTitle(titulo);
        pdf.setCreator(QStringLiteral("Saldeva"));
        pdf.setResolution(600);
        pdf.setPageLayout(QPageLayout(QPageSize(diseno.papel, QPageSize::Millimeter),
                                      QPageLayout::Portrait, QMarginsF()));
        QPainter painter;
        if (!painter.begin(&pdf))
            fallarArchivo(ruta, QStringLiteral("no se puede empezar el documento"));
        resultado = pintarPaginas(painter, pdf, diseno, siguiente, totalPaginas, progreso);
        painter.end();
    }
    if (resultado == Resultado::Cancelado) {
        QFile::remove(provisional(ruta));
        return resultado;
    }
    colocarFinal(ruta);
    return resultado;
}

Resultado exportarPdf(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                      FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                      const Progreso& progreso) {
    Paginador paginador(diseno, formulas, fuente);
    const qint64 filas = progreso ? fuente.total() : -1;
    return escribirPdf(
        diseno, ruta, titulo, [&](Pagina& p) { return paginador.siguiente(p); }, -1,
        [&](qint64, qint64) { return !progreso || progreso(paginador.filasLeidas(), filas); });
}

}  // namespace motor
