#include "librosaeat.h"

#include "data/almacen/conexion.h"
#include "data/almacen/sql.h"
#include "data/formato.h"
#include "motor/valores.h"
#include "nifestricto.h"
#include "registroempresa.h"

#include <xlsxwriter.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <array>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace {

enum Libro { kExpedidas, kRecibidas };

// A column of a book: its heading, or a group's heading over those of its parts.
struct Columna {
    QString titulo;
    QStringList partes;
};

QList<Columna> columnas(Libro libro) {
    const auto nif = [](const QString& titulo) {
        return Columna{titulo,
                       {QStringLiteral("Tipo"), QStringLiteral("Código País"),
                        QStringLiteral("Identificación")}};
    };
    const auto cobro = [](const QString& titulo) {
        return Columna{titulo,
                       {QStringLiteral("Fecha"), QStringLiteral("Importe"), QStringLiteral("Medio"),
                        QStringLiteral("Identificación")}};
    };
    const auto c = [](const char* titulo) { return Columna{QString::fromUtf8(titulo), {}}; };
    if (libro == kExpedidas)
        return {c("Fecha Expedición"),
                c("Fecha Operación"),
                c("Serie"),
                c("Número"),
                c("Número-Final"),
                nif(QStringLiteral("NIF Destinatario")),
                c("Nombre Destinatario"),
                c("Factura Sustitutiva"),
                c("Clave de Operación"),
                c("Total Factura"),
                c("Base Imponible"),
                c("Tipo de IVA"),
                c("Cuota IVA Repercutida"),
                c("Tipo de Recargo eq."),
                c("Cuota Recargo eq."),
                cobro(QStringLiteral("Cobro"))};
    return {c("Fecha Expedición"),
            c("Fecha Operación"),
            c("Serie-Número"),
            c("Número-Final"),
            c("Fecha Recepción"),
            nif(QStringLiteral("NIF Expedidor")),
            c("Nombre Expedidor"),
            c("Factura Sustitutiva"),
            c("Clave de Operación"),
            c("Total Factura"),
            c("Base Imponible"),
            c("Tipo de IVA"),
            c("Cuota IVA Soportado"),
            c("Cuota Deducible"),
            c("Tipo de Recargo eq."),
            c("Cuota Recargo eq."),
            cobro(QStringLiteral("Pago"))};
}

struct Celda {
    enum class Tipo : quint8 { Vacia, Texto, Fecha, Importe, Porcentaje };
    Tipo tipo = Tipo::Vacia;
    QString texto;        // Texto; Fecha as yyyymmdd
    qint64 centimos = 0;  // Importe
    double numero = 0;    // Porcentaje
};

Celda texto(const QString& t) {
    return {Celda::Tipo::Texto, t};
}
Celda fecha(const QString& yyyymmdd) {
    return {Celda::Tipo::Fecha, yyyymmdd};
}
Celda importe(qint64 centimos) {
    return {Celda::Tipo::Importe, {}, centimos};
}
Celda porcentaje(double p) {
    return {Celda::Tipo::Porcentaje, {}, 0, p};
}

// One row of the read: an invoice's amounts at one VAT rate, in cents.
struct Linea {
    QString fechaDocumento, fechaApunte, delegacion, documento, numero, personal, nif, nombre, pais;
    Libro libro = kExpedidas;
    double pctiva = 0, pctre = 0;
    qint64 base = 0, iva = 0, re = 0;

    // The rows of one invoice come together, and the invoice's total adds them all.
    bool mismaFactura(const Linea& o) const {
        return libro == o.libro && delegacion == o.delegacion && documento == o.documento &&
               numero == o.numero && personal == o.personal;
    }
};

// Grouped by invoice and rate, in the order of the books. A party missing from Personal
// still has its invoices in the books.
QString consultaLibros(const QString& empresa, const QString& desde, const QString& hasta) {
    const QString libro = QStringLiteral("CASE WHEN r.tipo = 'V' THEN 'E' ELSE 'R' END");
    const QString orden = QStringLiteral(
                              "a.fecha_documento, r.codigo_documento, r.numero_documento, "
                              "r.codigo_delegacion, r.codigo_personal, %1, r.pctiva, r.pctre")
                              .arg(libro);
    return QStringLiteral(
               "SELECT a.fecha_documento, a.fecha_apunte, r.codigo_delegacion, "
               "r.codigo_documento, r.numero_documento, r.codigo_personal, "
               "%1 AS libro, p.nif, p.nombre, p.pais, r.pctiva, r.pctre, "
               "SUM(%2) AS base, SUM(%3) AS iva, SUM(%4) AS re ")
               .arg(libro, centimosRegistro(QStringLiteral("base")),
                    centimosRegistro(QStringLiteral("iva")),
                    centimosRegistro(QStringLiteral("re"))) +
           registroDeEmpresa(empresa, desde, hasta, false) +
           QStringLiteral("GROUP BY %1, a.fecha_apunte, p.nif, p.nombre, p.pais ORDER BY %1")
               .arg(orden);
}

// Tipo and Código País of the party's identifier: empty for a Spanish one; a party abroad
// carries its country when Personal holds it as a two-letter code.
QString codigoPais(const QString& pais) {
    const QString p = pais.trimmed().toUpper();
    return p.size() == 2 && p != u"ES" ? p : QString();
}

std::vector<Celda> celdas(const Linea& l, qint64 total) {
    const Celda vacia;
    std::vector<Celda> f;
    f.reserve(22);
    f.push_back(fecha(l.fechaDocumento));
    f.push_back(vacia);  // operation date: the invoice's
    if (l.libro == kExpedidas) {
        f.push_back(texto(l.documento));
        f.push_back(texto(l.numero));
        f.push_back(vacia);
    } else {
        f.push_back(texto(l.documento + u'-' + l.numero));
        f.push_back(vacia);
        f.push_back(fecha(l.fechaApunte));
    }
    f.push_back(vacia);
    f.push_back(texto(codigoPais(l.pais)));
    f.push_back(texto(nifNormalizado(l.nif)));
    f.push_back(texto(l.nombre));
    f.push_back(vacia);
    f.push_back(texto(QStringLiteral("01")));
    f.push_back(importe(total));
    f.push_back(importe(l.base));
    f.push_back(porcentaje(l.pctiva));
    f.push_back(importe(l.iva));
    if (l.libro == kRecibidas) f.push_back(importe(l.iva));  // all of it deductible
    f.push_back(porcentaje(l.pctre));
    f.push_back(importe(l.re));
    for (int i = 0; i < 4; ++i) f.push_back(vacia);
    return f;
}

[[noreturn]] void fallarArchivo(const QString& ruta, const QString& motivo) {
    throw Error(0, QStringLiteral("No se puede escribir \"%1\": %2").arg(ruta, motivo));
}

class Salida {
public:
    virtual ~Salida() = default;
    virtual void fila(Libro libro, const std::vector<Celda>& celdas) = 0;
    // Puts the files in place; until then a failure leaves none behind.
    virtual void terminar() = 0;
};

QString campoCsv(const Celda& c) {
    switch (c.tipo) {
        case Celda::Tipo::Vacia:
            return {};
        case Celda::Tipo::Fecha:
            return motor::fechaVisible(c.texto);
        case Celda::Tipo::Importe: {
            const qint64 a = std::abs(c.centimos);
            return (c.centimos < 0 ? QStringLiteral("-") : QString()) + QString::number(a / 100) +
                   u',' + QString::number(a % 100).rightJustified(2, u'0');
        }
        case Celda::Tipo::Porcentaje:
            return formato::textoDouble(c.numero).replace(u'.', u',');
        case Celda::Tipo::Texto:
            break;
    }
    QString t = c.texto;
    if (t.contains(u';') || t.contains(u'"') || t.contains(u'\n') || t.contains(u'\r'))
        t = u'"' + t.replace(u'"', QStringLiteral("\"\"")) + u'"';
    return t;
}

// Two files, UTF-8 with its mark, as the reports' CSV exports write them.
class SalidaCsv : public Salida {
public:
    explicit SalidaCsv(const QString& ruta) {
        const QFileInfo info(ruta);
        const QString sufijo = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
        const std::array<QString, 2> nombres{QStringLiteral("_expedidas"),
                                             QStringLiteral("_recibidas")};
        for (int l : {kExpedidas, kRecibidas}) {
            const QString r = info.dir().filePath(info.completeBaseName() + nombres[l] + sufijo);
            archivos_[l] = std::make_unique<QSaveFile>(r);
            if (!archivos_[l]->open(QIODevice::WriteOnly))
                fallarArchivo(r, archivos_[l]->errorString());
            QStringList arriba, abajo;
            for (const Columna& c : columnas(Libro(l))) {
                arriba << c.titulo;
                if (c.partes.isEmpty()) abajo << QString();
                for (qsizetype i = 1; i < c.partes.size(); ++i) arriba << QString();
                abajo << c.partes;
            }
            bloques_[l] = QStringLiteral("\xFEFF") + arriba.join(u';') + QStringLiteral("\r\n") +
                          abajo.join(u';') + QStringLiteral("\r\n");
        }
    }
    void fila(Libro libro, const std::vector<Celda>& celdas) override {
        QString& b = bloques_[libro];
        for (size_t i = 0; i < celdas.size(); ++i) {
            if (i) b += u';';
            b += campoCsv(celdas[i]);
        }
        b += QStringLiteral("\r\n");
        // A block at a time: a conversion to UTF-8 per line costs more than the rest.
        if (b.size() > 1 << 16) vaciar(libro);
    }
    void terminar() override {
        for (int l : {kExpedidas, kRecibidas}) {
            vaciar(Libro(l));
            if (!archivos_[l]->commit())
                fallarArchivo(archivos_[l]->fileName(), archivos_[l]->errorString());
        }
    }

private:
    void vaciar(Libro libro) {
        archivos_[libro]->write(bloques_[libro].toUtf8());
        bloques_[libro].clear();
    }
    std::array<std::unique_ptr<QSaveFile>, 2> archivos_;
    std::array<QString, 2> bloques_;
};

// One workbook written row by row (its memory does not grow with the rows), beside the target
// until it is complete.
class SalidaXlsx : public Salida {
public:
    explicit SalidaXlsx(const QString& ruta)
        : ruta_(ruta), parcial_(ruta + QStringLiteral(".parcial")) {
        const QByteArray archivo = QFile::encodeName(parcial_);
        const QByteArray carpeta = QFile::encodeName(QDir::tempPath());
        lxw_workbook_options opciones{};
        opciones.constant_memory = LXW_TRUE;
        opciones.tmpdir = const_cast<char*>(carpeta.constData());
        libro_ = workbook_new_opt(archivo.constData(), &opciones);
        if (!libro_) fallarArchivo(ruta_, QStringLiteral("no se puede crear el libro"));
        lxw_format* titulo = workbook_add_format(libro_);
        format_set_bold(titulo);
        lxw_format* grupo = workbook_add_format(libro_);
        format_set_bold(grupo);
        format_set_align(grupo, LXW_ALIGN_CENTER);
        lxw_format* parte = workbook_add_format(libro_);
        format_set_bold(parte);
        format_set_bottom(parte, LXW_BORDER_THIN);
        importe_ = workbook_add_format(libro_);
        format_set_num_format(importe_, "#,##0.00");
        fecha_ = workbook_add_format(libro_);
        format_set_num_format(fecha_, "dd/mm/yyyy");
        const std::array<const char*, 2> nombres{"Expedidas", "Recibidas"};
        for (int l : {kExpedidas, kRecibidas}) {
            lxw_worksheet* h = hojas_[l] = workbook_add_worksheet(libro_, nombres[l]);
            // Row by row, as a workbook of constant memory takes them: a row left behind takes
            // no more cells, so no heading spans two rows.
            lxw_col_t col = 0;
            std::vector<std::pair<lxw_col_t, QString>> partes;
            for (const Columna& c : columnas(Libro(l))) {
                const bool ancha = c.titulo.startsWith(QStringLiteral("Nombre"));
                const auto n = lxw_col_t(std::max<qsizetype>(1, c.partes.size()));
                worksheet_set_column(h, col, lxw_col_t(col + n - 1), ancha ? 40 : 14, nullptr);
                if (c.partes.isEmpty()) {
                    worksheet_write_string(h, 0, col, c.titulo.toUtf8().constData(), titulo);
                    partes.emplace_back(col, QString());
                } else {
                    worksheet_merge_range(h, 0, col, 0, lxw_col_t(col + n - 1),
                                          c.titulo.toUtf8().constData(), grupo);
                    for (lxw_col_t i = 0; i < n; ++i) partes.emplace_back(col + i, c.partes[i]);
                }
                col = lxw_col_t(col + n);
            }
            for (const auto& [c, t] : partes)
                if (t.isEmpty())
                    worksheet_write_blank(h, 1, c, parte);
                else
                    worksheet_write_string(h, 1, c, t.toUtf8().constData(), parte);
            worksheet_freeze_panes(h, 2, 0);
            filas_[l] = 2;
        }
    }
    ~SalidaXlsx() override {
        if (libro_) {
            workbook_close(libro_);
            QFile::remove(parcial_);
        }
    }
    void fila(Libro libro, const std::vector<Celda>& celdas) override {
        // A sheet holds 1,048,576 rows.
        if (filas_[libro] >= 1048576)
            fallarArchivo(ruta_, QStringLiteral("el libro tiene más facturas de las que caben en "
                                                "una hoja; exporte un periodo más corto"));
        lxw_worksheet* h = hojas_[libro];
        const lxw_row_t r = filas_[libro]++;
        for (size_t i = 0; i < celdas.size(); ++i) {
            const Celda& c = celdas[i];
            const auto col = lxw_col_t(i);
            switch (c.tipo) {
                case Celda::Tipo::Vacia:
                    break;
                case Celda::Tipo::Texto:
                    if (!c.texto.isEmpty())
                        worksheet_write_string(h, r, col, c.texto.toUtf8().constData(), nullptr);
                    break;
                case Celda::Tipo::Fecha: {
                    lxw_datetime d{c.texto.left(4).toInt(),
                                   c.texto.mid(4, 2).toInt(),
                                   c.texto.mid(6, 2).toInt(),
                                   0,
                                   0,
                                   0};
                    worksheet_write_datetime(h, r, col, &d, fecha_);
                    break;
                }
                case Celda::Tipo::Importe:
                    worksheet_write_number(h, r, col, double(c.centimos) / 100, importe_);
                    break;
                case Celda::Tipo::Porcentaje:
                    worksheet_write_number(h, r, col, c.numero, nullptr);
                    break;
            }
        }
    }
    void terminar() override {
        const lxw_error e = workbook_close(std::exchange(libro_, nullptr));
        if (e != LXW_NO_ERROR) {
            QFile::remove(parcial_);
            fallarArchivo(ruta_, QString::fromUtf8(lxw_strerror(e)));
        }
        QFile::remove(ruta_);
        if (!QFile::rename(parcial_, ruta_))
            fallarArchivo(ruta_, QStringLiteral("no se puede reemplazar el archivo"));
    }

private:
    QString ruta_, parcial_;
    lxw_workbook* libro_ = nullptr;
    lxw_format* importe_ = nullptr;
    lxw_format* fecha_ = nullptr;
    std::array<lxw_worksheet*, 2> hojas_{};
    std::array<lxw_row_t, 2> filas_{};
};

qint64 centimos(const QVariant& v) {
    return std::llround(v.toDouble());
}

}  // namespace

bool escribirLibrosAeat(Conexion& c, const QString& empresa, const QString& desde,
                        const QString& hasta, const QString& ruta, QString& error, qint64* filas) {
    const QString extension = QFileInfo(ruta).suffix().toLower();
    if (extension != u"xlsx" && extension != u"csv") {
        error = QStringLiteral("Los libros se escriben en un archivo .xlsx o .csv, no en \"%1\"")
                    .arg(ruta);
        return false;
    }
    qint64 n = 0;
    try {
        std::unique_ptr<Salida> salida;
        if (extension == u"xlsx")
            salida = std::make_unique<SalidaXlsx>(ruta);
        else
            salida = std::make_unique<SalidaCsv>(ruta);
        std::vector<Linea> factura;
        const auto escribirFactura = [&] {
            qint64 total = 0;
            for (const Linea& l : factura) total += l.base + l.iva + l.re;
            for (const Linea& l : factura) salida->fila(l.libro, celdas(l, total));
            n += qint64(factura.size());
            factura.clear();
        };
        Lectura lectura = c.leer(consultaLibros(empresa, desde, hasta));
        std::vector<QVariant> v;
        while (lectura.leer(v)) {
            Linea l;
            l.fechaDocumento = v[0].toString().trimmed();
            l.fechaApunte = v[1].toString().trimmed();
            l.delegacion = v[2].toString().trimmed();
            l.documento = v[3].toString().trimmed();
            l.numero = v[4].toString().trimmed();
            l.personal = v[5].toString().trimmed();
            l.libro = v[6].toString() == u"E" ? kExpedidas : kRecibidas;
            l.nif = v[7].toString();
            l.nombre = v[8].toString().trimmed();
            l.pais = v[9].toString();
            l.pctiva = v[10].toDouble();
            l.pctre = v[11].toDouble();
            l.base = centimos(v[12]);
            l.iva = centimos(v[13]);
            l.re = centimos(v[14]);
            if (!factura.empty() && !factura.front().mismaFactura(l)) escribirFactura();
            factura.push_back(std::move(l));
        }
        escribirFactura();
        salida->terminar();
    } catch (const Error& e) {
        error = e.descripcion();
        return false;
    }
    if (filas) *filas = n;
    return true;
}
