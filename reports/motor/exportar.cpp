#include "exportar.h"

#include "data/almacen/error.h"
#include "data/formato.h"
#include "evaluador.h"
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
#include <cmath>
#include <memory>
#include <utility>

namespace motor {

namespace {

// Rows between two calls of the progress function.
constexpr qint64 kTramo = 4096;

// One value of an export, with what it is, so that each writer gives it its own form.
struct Celda {
    enum class Tipo : quint8 { Vacia, Texto, Importe, Entero, Numero, Fecha };
    Tipo tipo = Tipo::Vacia;
    double numero = 0;  // Importe, Numero
    qint64 entero = 0;  // Entero
    QString texto;      // Texto; Fecha as yyyymmdd
};

bool textoDeFecha(const QString& t) {
    return t.size() == 8 && formato::IsNumeric(t);
}

// Concepts, titles and names get wider columns in a workbook.
bool columnaAncha(const QString& nombre) {
    return nombre.contains(QStringLiteral("concepto")) ||
           nombre.contains(QStringLiteral("titulo")) || nombre.contains(QStringLiteral("nombre"));
}

// What an export writes: a heading, then the rows, read one at a time.
class Tabla {
public:
    virtual ~Tabla() = default;
    virtual bool siguiente(std::vector<Celda>& fila) = 0;
    QStringList titulos;
    QList<bool> anchas;
    qint64 total = -1;
};

// The rows of the query as they are, under the names of its columns: the kind of each value
// is the type the store gave it, and columns named fecha… hold dates as "yyyymmdd". The rows
// may come sorted beforehand, and are then its own.
class TablaConsulta : public Tabla {
public:
    TablaConsulta(FuenteFilas& fuente, bool conTotal, std::unique_ptr<FuenteFilas> propias = {})
        : propias_(std::move(propias)), fuente_(propias_ ? *propias_ : fuente) {
        titulos = fuente_.columnas();
        for (const QString& c : titulos) {
            fechas_ << c.startsWith(u"fecha", Qt::CaseInsensitive);
            anchas << columnaAncha(c);
        }
        if (conTotal) total = fuente_.total();
    }
    bool siguiente(std::vector<Celda>& fila) override {
        if (!fuente_.leer(valores_)) return false;
        fila.resize(size_t(titulos.size()));
        for (size_t i = 0; i < fila.size(); ++i) {
            const QVariant& v = valores_[i];
            Celda& c = fila[i];
            c.texto.clear();
            if (v.isNull()) {
                c.tipo = Celda::Tipo::Vacia;
            } else if (esDecimal(v)) {
                c.tipo = Celda::Tipo::Importe;
                c.numero = v.toDouble();
            } else if (esEntero(v)) {
                c.tipo = Celda::Tipo::Entero;
                c.entero = v.toLongLong();
            } else {
                c.texto = v.toString();
                c.tipo = fechas_[qsizetype(i)] && v.typeId() == QMetaType::QString &&
                                 textoDeFecha(c.texto)
                             ? Celda::Tipo::Fecha
                             : Celda::Tipo::Texto;
            }
        }
        return true;
    }

private:
    std::unique_ptr<FuenteFilas> propias_;
    FuenteFilas& fuente_;
    QList<bool> fechas_;
    std::vector<QVariant> valores_;
};

// The columns the layout exports, under their titles, each row computed as the printed
// line is (running sums, values and totals included, in the printed order).
class TablaInforme : public Tabla {
public:
    TablaInforme(const Diseno& diseno, const QHash<QString, Valor>& formulas, FuenteFilas& fuente,
                 bool conTotal)
        : d_(diseno), valores_(diseno, formulas, fuente.columnas()), fuente_(&fuente) {
        for (const ColumnaExportada& c : d_.exportadas) {
            titulos << c.titulo;
            anchas << columnaAncha(c.expresion);
        }
        retenidas_ = valores_.preparar(fuente);
        if (retenidas_) fuente_ = retenidas_.get();
        if (conTotal) total = fuente_->total();
    }
    bool siguiente(std::vector<Celda>& fila) override {
        if (!fuente_->leer(leida_)) return false;
        valores_.avanzar(leida_);
        const std::vector<Expresion>& columnas = valores_.exportadas();
        fila.resize(columnas.size());
        for (size_t i = 0; i < columnas.size(); ++i)
            celda(columnas[i].evaluar(valores_.valores()), d_.exportadas[qsizetype(i)].formato,
                  fila[i]);
        return true;
    }

private:
    static void celda(const Valor& v, Formato formato, Celda& c) {
        c.texto.clear();
        if (v.esTexto) {
            c.texto = v.texto;
            c.tipo = c.texto.isEmpty()                                    ? Celda::Tipo::Vacia
                     : formato == Formato::Fecha && textoDeFecha(c.texto) ? Celda::Tipo::Fecha
                                                                          : Celda::Tipo::Texto;
            return;
        }
        switch (formato) {
            case Formato::Importe:
                c.tipo = Celda::Tipo::Importe;
                c.numero = v.numero;
                break;
            case Formato::Entero:
                c.tipo = Celda::Tipo::Entero;
                c.entero = std::llround(v.numero);
                break;
            case Formato::Fecha:
            case Formato::Texto:
                c.tipo = Celda::Tipo::Numero;
                c.numero = v.numero;
                break;
        }
    }

    const Diseno& d_;
    Evaluador valores_;
    std::unique_ptr<FuenteFilas> retenidas_;
    FuenteFilas* fuente_;
    std::vector<QVariant> leida_;
};

std::unique_ptr<Tabla> tablaDe(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                               FuenteFilas& fuente, bool conTotal) {
    if (!diseno.exportadas.isEmpty())
        return std::make_unique<TablaInforme>(diseno, formulas, fuente, conTotal);
    // The query's columns, in the order the layout prints its rows.
    std::unique_ptr<FuenteFilas> ordenadas;
    if (!diseno.orden.isEmpty())
        ordenadas = Evaluador(diseno, formulas, fuente.columnas()).preparar(fuente);
    return std::make_unique<TablaConsulta>(fuente, conTotal, std::move(ordenadas));
}

QString campoCsv(const Celda& c) {
    switch (c.tipo) {
        case Celda::Tipo::Vacia:
            return {};
        case Celda::Tipo::Importe:
            return formato::Format(c.numero, QStringLiteral("0.00"));
        case Celda::Tipo::Entero:
            return QString::number(c.entero);
        case Celda::Tipo::Numero:
            return formato::textoDouble(c.numero).replace(u'.', u',');
        case Celda::Tipo::Fecha:
            return fechaVisible(c.texto);
        case Celda::Tipo::Texto:
            break;
    }
    QString t = c.texto;
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

Resultado escribirCsv(Tabla& tabla, const QString& ruta, const Progreso& progreso) {
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly)) fallarArchivo(ruta, archivo.errorString());
    QStringList cabecera;
    for (const QString& t : tabla.titulos) cabecera << campoCsv({Celda::Tipo::Texto, 0, 0, t});
    archivo.write(
        (QStringLiteral("\xFEFF") + cabecera.join(u';') + QStringLiteral("\r\n")).toUtf8());
    std::vector<Celda> fila;
    qint64 n = 0;
    // Lines become UTF-8 a block at a time: a conversion per line cost a tenth of a long export.
    QString bloque;
    while (tabla.siguiente(fila)) {
        for (size_t i = 0; i < fila.size(); ++i) {
            if (i) bloque += u';';
            bloque += campoCsv(fila[i]);
        }
        bloque += QStringLiteral("\r\n");
        if (++n % kTramo == 0) {
            archivo.write(bloque.toUtf8());
            bloque.clear();
            if (progreso && !progreso(n, tabla.total)) {
                archivo.cancelWriting();
                return Resultado::Cancelado;
            }
        }
    }
    archivo.write(bloque.toUtf8());
    if (!archivo.commit()) fallarArchivo(ruta, archivo.errorString());
    return Resultado::Hecho;
}

Resultado escribirXlsx(Tabla& tabla, const QString& ruta, const QString& titulo,
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

    lxw_worksheet* hoja = nullptr;
    int hojas = 0;
    lxw_row_t r = 0;
    const QByteArray nombreBase = titulo.left(24).toUtf8();
    auto nuevaHoja = [&] {
        ++hojas;
        const QByteArray nombre =
            hojas == 1 ? nombreBase : nombreBase + ' ' + QByteArray::number(hojas);
        hoja = workbook_add_worksheet(libro, nombre.isEmpty() ? nullptr : nombre.constData());
        for (qsizetype c = 0; c < tabla.titulos.size(); ++c) {
            worksheet_write_string(hoja, 0, lxw_col_t(c), tabla.titulos[c].toUtf8().constData(),
                                   negrita);
            worksheet_set_column(hoja, lxw_col_t(c), lxw_col_t(c), tabla.anchas[c] ? 40 : 14,
                                 nullptr);
        }
        worksheet_freeze_panes(hoja, 1, 0);
        r = 1;
    };
    nuevaHoja();
    std::vector<Celda> fila;
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
    while (tabla.siguiente(fila)) {
        if (r > kFilasHoja) nuevaHoja();
        for (size_t c = 0; c < fila.size(); ++c) {
            const Celda& v = fila[c];
            const auto col = lxw_col_t(c);
            switch (v.tipo) {
                case Celda::Tipo::Vacia:
                    break;
                case Celda::Tipo::Importe:
                    worksheet_write_number(hoja, r, col, v.numero, importe);
                    break;
                case Celda::Tipo::Entero:
                    worksheet_write_number(hoja, r, col, double(v.entero), nullptr);
                    break;
                case Celda::Tipo::Numero:
                    worksheet_write_number(hoja, r, col, v.numero, nullptr);
                    break;
                case Celda::Tipo::Fecha: {
                    lxw_datetime d{v.texto.left(4).toInt(),
                                   v.texto.mid(4, 2).toInt(),
                                   v.texto.mid(6, 2).toInt(),
                                   0,
                                   0,
                                   0};
                    worksheet_write_datetime(hoja, r, col, &d, fecha);
                    break;
                }
                case Celda::Tipo::Texto:
                    if (!v.texto.isEmpty())
                        worksheet_write_string(hoja, r, col, v.texto.toUtf8().constData(), nullptr);
                    break;
            }
        }
        ++r;
        if (++n % kTramo == 0 && progreso && !progreso(n, tabla.total)) {
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

}  // namespace

Resultado exportarCsv(FuenteFilas& fuente, const QString& ruta, const Progreso& progreso) {
    TablaConsulta tabla(fuente, bool(progreso));
    return escribirCsv(tabla, ruta, progreso);
}

Resultado exportarCsv(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                      FuenteFilas& fuente, const QString& ruta, const Progreso& progreso) {
    const auto tabla = tablaDe(diseno, formulas, fuente, bool(progreso));
    return escribirCsv(*tabla, ruta, progreso);
}

Resultado exportarXlsx(FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                       const Progreso& progreso) {
    TablaConsulta tabla(fuente, bool(progreso));
    return escribirXlsx(tabla, ruta, titulo, progreso);
}

Resultado exportarXlsx(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                       FuenteFilas& fuente, const QString& ruta, const QString& titulo,
                       const Progreso& progreso) {
    const auto tabla = tablaDe(diseno, formulas, fuente, bool(progreso));
    return escribirXlsx(*tabla, ruta, titulo, progreso);
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
