#include "vistaprevia.h"

#include "data/almacen/conexion.h"
#include "data/almacen/error.h"
#include "forms/formularios.h"
#include "forms/msgbox.h"
#include "motor/fuente.h"
#include "motor/paginador.h"
#include "motor/pintor.h"
#include "temporal.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

// The paper's edge around a page on screen, in pixels.
constexpr int kBorde = 12;

QString tablaDe(const QString& consulta) {
    const auto m = QRegularExpression(QStringLiteral("\\bFROM\\s+(\\w+)"),
                                      QRegularExpression::CaseInsensitiveOption)
                       .match(consulta);
    return m.hasMatch() ? m.captured(1) : QString();
}

// "1 página", "3 páginas": a count with its noun in the right number.
QString cuantas(qint64 n, const QString& singular, const QString& plural) {
    return QStringLiteral("%1 %2").arg(n).arg(n == 1 ? singular : plural);
}

QPageLayout disposicion(const motor::Diseno& d) {
    return QPageLayout(QPageSize(d.papel, QPageSize::Millimeter), QPageLayout::Portrait,
                       QMarginsF());
}

}  // namespace

HojaInforme::HojaInforme(const motor::Diseno& diseno, QWidget* padre) : QWidget(padre), d_(diseno) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
}

double HojaInforme::pixelesPorMm() const {
    return zoom_ * logicalDpiX() / 25.4;
}

void HojaInforme::mostrar(const motor::Pagina& pagina, double zoom) {
    pagina_ = pagina;
    zoom_ = zoom;
    const double ppm = pixelesPorMm();
    setFixedSize(int(d_.papel.width() * ppm) + 2 * kBorde,
                 int(d_.papel.height() * ppm) + 2 * kBorde);
    update();
}

void HojaInforme::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Dark));
    const double ppm = pixelesPorMm();
    const QRectF papel(kBorde, kBorde, d_.papel.width() * ppm, d_.papel.height() * ppm);
    p.fillRect(papel.translated(3, 3), QColor(0, 0, 0, 90));
    p.fillRect(papel, Qt::white);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.translate(papel.topLeft());
    motor::Pintor(d_).pintar(p, pagina_, ppm);
}

frmVistaPrevia::frmVistaPrevia(const TrabajoInforme& trabajo)
    : Formulario(QStringLiteral("frmVistaPrevia"), trabajo.titulo),
      t_(trabajo),
      d_(motor::leerDiseno(trabajo.archivo)),
      tabla_(tablaDe(trabajo.consulta)),
      generacion_(generacionTemporal(tablaDe(trabajo.consulta))) {
    setAttribute(Qt::WA_DeleteOnClose);
    conexion_ = std::make_unique<Conexion>(t_.conexion);
    fuente_ = std::make_unique<motor::FuenteConsulta>(*conexion_, t_.consulta);
    paginador_ = std::make_unique<motor::Paginador>(d_, motor::leerFormulas(t_.formulas), *fuente_);
    construir();
    // The first page now, so that a layout or a query that fails is the run's failure and
    // the window never opens empty.
    motor::Pagina primera;
    if (paginador_->siguiente(primera))
        paginas_.anadir(primera);
    else
        terminarPaginacion(false);
    refrescar();
    if (!completo_) temporizador_->start(0);
}

frmVistaPrevia::~frmVistaPrevia() = default;

void frmVistaPrevia::construir() {
    tamanoInicial(980, 760);
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(0);
    barra_ = new QToolBar(this);
    barra_->setObjectName(QStringLiteral("barraVista"));
    barra_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto boton = [this](const QString& texto, const QString& ayuda, const QKeySequence& tecla,
                        auto&& accion) {
        QAction* a = barra_->addAction(texto);
        a->setToolTip(ayuda + (tecla.isEmpty() ? QString()
                                               : QStringLiteral(" (%1)").arg(
                                                     tecla.toString(QKeySequence::NativeText))));
        a->setShortcut(tecla);
        a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(a);
        connect(a, &QAction::triggered, this, accion);
        return a;
    };
    boton(QStringLiteral("|◀"), QStringLiteral("Primera página"),
          QKeySequence(Qt::CTRL | Qt::Key_Home), [this] { irA(0); });
    boton(QStringLiteral("◀"), QStringLiteral("Página anterior"), QKeySequence(Qt::Key_PageUp),
          [this] { irA(actual_ - 1); });
    pagina_ = new QSpinBox(barra_);
    pagina_->setObjectName(QStringLiteral("pagina"));
    pagina_->setAccessibleName(QStringLiteral("Página"));
    pagina_->setRange(1, 1);
    pagina_->setKeyboardTracking(false);
    barra_->addWidget(pagina_);
    connect(pagina_, &QSpinBox::valueChanged, this, [this](int v) { irA(v - 1); });
    deTotal_ = new QLabel(barra_);
    deTotal_->setMinimumWidth(110);
    barra_->addWidget(deTotal_);
    boton(QStringLiteral("▶"), QStringLiteral("Página siguiente"), QKeySequence(Qt::Key_PageDown),
          [this] { irA(actual_ + 1); });
    boton(QStringLiteral("▶|"), QStringLiteral("Última página"),
          QKeySequence(Qt::CTRL | Qt::Key_End), [this] {
              if (!completo_ && !cancelada_) completar();
              irA(paginas_.cuantas() - 1);
          });
    barra_->addSeparator();
    zoomCombo_ = new QComboBox(barra_);
    zoomCombo_->setObjectName(QStringLiteral("zoom"));
    zoomCombo_->setAccessibleName(QStringLiteral("Zoom"));
    for (int z : {50, 75, 100, 125, 150, 200})
        zoomCombo_->addItem(QStringLiteral("%1 %").arg(z), z);
    zoomCombo_->addItem(QStringLiteral("Ancho de página"), -1);
    zoomCombo_->addItem(QStringLiteral("Página entera"), -2);
    zoomCombo_->setCurrentIndex(zoomCombo_->findData(-1));
    barra_->addWidget(zoomCombo_);
    connect(zoomCombo_, &QComboBox::activated, this, [this] { refrescar(); });
    boton(QStringLiteral("+"), QStringLiteral("Ampliar"), QKeySequence(Qt::CTRL | Qt::Key_Plus),
          [this] { ponerZoom(zoom_ * 1.25); });
    boton(QStringLiteral("−"), QStringLiteral("Reducir"), QKeySequence(Qt::CTRL | Qt::Key_Minus),
          [this] { ponerZoom(zoom_ / 1.25); });
    barra_->addSeparator();
    exportaciones_ << boton(QStringLiteral("Imprimir…"), QStringLiteral("Imprimir"),
                            QKeySequence(Qt::CTRL | Qt::Key_P), [this] { imprimir(); });
    exportaciones_ << boton(QStringLiteral("PDF…"), QStringLiteral("Exportar a PDF"), {}, [this] {
        elegirYExportar(QStringLiteral("PDF (*.pdf)"), QStringLiteral("pdf"));
    });
    exportaciones_ << boton(QStringLiteral("CSV…"), QStringLiteral("Exportar a CSV"), {}, [this] {
        elegirYExportar(QStringLiteral("CSV (*.csv)"), QStringLiteral("csv"));
    });
    exportaciones_ << boton(
        QStringLiteral("Excel…"), QStringLiteral("Exportar a Excel (XLSX)"), {}, [this] {
            elegirYExportar(QStringLiteral("Libro de Excel (*.xlsx)"), QStringLiteral("xlsx"));
        });
    columna->addWidget(barra_);

    desplazable_ = new QScrollArea(this);
    desplazable_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    desplazable_->setBackgroundRole(QPalette::Dark);
    hoja_ = new HojaInforme(d_, desplazable_);
    desplazable_->setWidget(hoja_);
    desplazable_->setFocusPolicy(Qt::StrongFocus);
    columna->addWidget(desplazable_, 1);

    auto* pie = new QHBoxLayout;
    pie->setContentsMargins(6, 3, 6, 3);
    estado_ = new QLabel(this);
    estado_->setObjectName(QStringLiteral("estado"));
    pie->addWidget(estado_, 1);
    progreso_ = new QProgressBar(this);
    progreso_->setMaximumWidth(240);
    progreso_->setTextVisible(false);
    pie->addWidget(progreso_);
    detener_ = new QPushButton(QStringLiteral("Detener"), this);
    detener_->setToolTip(QStringLiteral("Deja de preparar las páginas que faltan"));
    connect(detener_, &QPushButton::clicked, this, [this] { terminarPaginacion(true); });
    pie->addWidget(detener_);
    columna->addLayout(pie);

    temporizador_ = new QTimer(this);
    temporizador_->setSingleShot(true);
    connect(temporizador_, &QTimer::timeout, this, &frmVistaPrevia::seguir);
}

// One more page into the page file; false when there are no more, the laying out then being
// over. A failure (a full disk, a store gone) stops it with its message: the pages laid out
// so far stay.
bool frmVistaPrevia::paginarUna() {
    if (completo_ || cancelada_) return false;
    try {
        motor::Pagina p;
        if (!paginador_->siguiente(p)) {
            terminarPaginacion(false);
            return false;
        }
        paginas_.anadir(p);
        return true;
    } catch (const Error& e) {
        terminarPaginacion(true);
        MsgBox(e.texto(), Icono::Critico);
        return false;
    }
}

// Lays out pages for about the time given; false when the laying out is over.
bool frmVistaPrevia::paginarTramo(int milisegundos) {
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.elapsed() < milisegundos)
        if (!paginarUna()) return false;
    return true;
}

void frmVistaPrevia::seguir() {
    paginarTramo(40);
    refrescar();
    if (!completo_ && !cancelada_) temporizador_->start(0);
}

void frmVistaPrevia::completar() {
    while (paginarTramo(1000)) {
    }
    refrescar();
}

void frmVistaPrevia::terminarPaginacion(bool cancelada) {
    temporizador_->stop();
    completo_ = !cancelada;
    cancelada_ = cancelada;
    // The query and its connection go: the pages are all in the page file now.
    paginador_.reset();
    fuente_.reset();
    conexion_.reset();
}

void frmVistaPrevia::refrescar() {
    const int total = paginas_.cuantas();
    pagina_->blockSignals(true);
    pagina_->setRange(1, qMax(1, total));
    pagina_->setValue(actual_ + 1);
    pagina_->blockSignals(false);
    deTotal_->setText(completo_    ? QStringLiteral("de %1").arg(total)
                      : cancelada_ ? QStringLiteral("de %1 (incompleto)").arg(total)
                                   : QStringLiteral("de %1…").arg(total));
    const bool trabajando = !completo_ && !cancelada_;
    progreso_->setVisible(trabajando);
    detener_->setVisible(trabajando);
    if (trabajando) {
        const qint64 filas = fuente_ ? fuente_->total() : -1;
        progreso_->setRange(0, filas > 0 ? 1000 : 0);
        if (filas > 0) progreso_->setValue(int(1000 * paginador_->filasLeidas() / filas));
        estado_->setText(QStringLiteral("Preparando páginas: ") +
                         cuantas(paginador_->filasLeidas(), QStringLiteral("línea leída"),
                                 QStringLiteral("líneas leídas")));
    } else {
        estado_->setText(
            cancelada_ ? QStringLiteral(
                             "Preparación detenida: solo se muestran las páginas ya preparadas.")
                       : cuantas(total, QStringLiteral("página"), QStringLiteral("páginas")));
    }
    const int modo = zoomCombo_->currentData().toInt();
    if (modo < 0) {
        const QSize vista = desplazable_->viewport()->size();
        const double ppmBase = logicalDpiX() / 25.4;
        // The vertical bar is kept out of the width, whether it shows yet or not.
        const int barra = desplazable_->verticalScrollBar()->isVisible()
                              ? 0
                              : style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        const double ancho =
            (vista.width() - barra - 2 * kBorde - 4) / (d_.papel.width() * ppmBase);
        const double alto = (vista.height() - 2 * kBorde - 4) / (d_.papel.height() * ppmBase);
        zoom_ = qMax(0.2, modo == -1 ? ancho : qMin(ancho, alto));
    } else if (modo > 0 && zoomCombo_->currentIndex() >= 0) {
        zoom_ = modo / 100.0;
    }
    hoja_->mostrar(paginas_.leer(actual_), zoom_);
}

void frmVistaPrevia::irA(int indice) {
    if (indice >= paginas_.cuantas() && !completo_ && !cancelada_) {
        // The page asked for is not laid out yet: lay out up to it.
        while (paginas_.cuantas() <= indice && paginarUna()) {
        }
    }
    actual_ = qBound(0, indice, qMax(0, paginas_.cuantas() - 1));
    refrescar();
    desplazable_->verticalScrollBar()->setValue(0);
}

void frmVistaPrevia::ponerZoom(double zoom) {
    zoom_ = qBound(0.25, zoom, 4.0);
    zoomCombo_->setCurrentIndex(-1);
    zoomCombo_->setEditText(QStringLiteral("%1 %").arg(qRound(zoom_ * 100)));
    hoja_->mostrar(paginas_.leer(actual_), zoom_);
}

void frmVistaPrevia::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        descargar();
        return;
    }
    Formulario::keyPressEvent(evento);
}

void frmVistaPrevia::resizeEvent(QResizeEvent* evento) {
    Formulario::resizeEvent(evento);
    // A page fitted to the window follows the window.
    if (zoomCombo_ && zoomCombo_->currentData().toInt() < 0) refrescar();
}

void frmVistaPrevia::closeEvent(QCloseEvent* evento) {
    temporizador_->stop();
    Formulario::closeEvent(evento);
}

motor::Progreso frmVistaPrevia::progresoEn(const QString& texto) {
    auto* dialogo = new QProgressDialog(texto, QStringLiteral("Cancelar"), 0, 1000, this);
    dialogo->setWindowTitle(tituloAplicacion());
    dialogo->setWindowModality(Qt::WindowModal);
    dialogo->setMinimumDuration(300);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<QProgressDialog> d(dialogo);
    // Told (-1, -1) when the work is over, it closes the dialog.
    return [d](qint64 hecho, qint64 total) {
        if (!d) return false;
        if (hecho < 0) {
            d->close();
            return true;
        }
        if (total > 0)
            d->setValue(int(qMin<qint64>(999, 1000 * hecho / total)));
        else
            d->setRange(0, 0);
        QCoreApplication::processEvents();
        return !d->wasCanceled();
    };
}

bool frmVistaPrevia::datosVigentes() {
    if (generacionTemporal(tabla_) == generacion_) return true;
    MsgBox(QStringLiteral("Los datos de este informe se han sustituido por una ejecución "
                          "posterior. Vuelva a ejecutar el informe para exportarlo."),
           Icono::Exclamacion);
    return false;
}

bool frmVistaPrevia::exportarPdf(const QString& ruta) {
    if (!completo_ && !cancelada_) completar();
    if (cancelada_) {
        MsgBox(QStringLiteral("La preparación de las páginas se detuvo: vuelva a ejecutar el "
                              "informe para exportarlo entero."),
               Icono::Exclamacion);
        return false;
    }
    const auto progreso = progresoEn(QStringLiteral("Exportando a PDF…"));
    int i = 0;
    bool hecho = false;
    Protegido([&] {
        hecho = motor::escribirPdf(
                    d_, ruta, t_.titulo,
                    [&](motor::Pagina& p) {
                        if (i >= paginas_.cuantas()) return false;
                        p = paginas_.leer(i++);
                        return true;
                    },
                    paginas_.cuantas(), progreso) == motor::Resultado::Hecho;
    });
    progreso(-1, -1);
    return hecho;
}

bool frmVistaPrevia::exportarCsv(const QString& ruta) {
    if (!datosVigentes()) return false;
    const auto progreso = progresoEn(QStringLiteral("Exportando a CSV…"));
    bool hecho = false;
    Protegido([&] {
        Conexion c(t_.conexion);
        motor::FuenteConsulta f(c, t_.consulta);
        hecho = motor::exportarCsv(d_, motor::leerFormulas(t_.formulas), f, ruta, progreso) ==
                motor::Resultado::Hecho;
    });
    progreso(-1, -1);
    return hecho;
}

bool frmVistaPrevia::exportarXlsx(const QString& ruta) {
    if (!datosVigentes()) return false;
    const auto progreso = progresoEn(QStringLiteral("Exportando a Excel…"));
    bool hecho = false;
    Protegido([&] {
        Conexion c(t_.conexion);
        motor::FuenteConsulta f(c, t_.consulta);
        hecho = motor::exportarXlsx(d_, motor::leerFormulas(t_.formulas), f, ruta, t_.titulo,
                                    progreso) == motor::Resultado::Hecho;
    });
    progreso(-1, -1);
    return hecho;
}

void frmVistaPrevia::elegirYExportar(const QString& filtro, const QString& extension) {
    const QString carpeta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString ruta =
        QFileDialog::getSaveFileName(this, QStringLiteral("Exportar %1").arg(t_.titulo),
                                     QDir(carpeta).filePath(t_.titulo + u'.' + extension), filtro);
    if (ruta.isEmpty()) return;
    const bool hecho = extension == u"pdf"   ? exportarPdf(ruta)
                       : extension == u"csv" ? exportarCsv(ruta)
                                             : exportarXlsx(ruta);
    if (hecho)
        estado_->setText(QStringLiteral("Exportado a %1").arg(QDir::toNativeSeparators(ruta)));
}

void frmVistaPrevia::imprimir() {
    if (!completo_ && !cancelada_) completar();
    if (cancelada_) {
        MsgBox(QStringLiteral("La preparación de las páginas se detuvo: vuelva a ejecutar el "
                              "informe para imprimirlo entero."),
               Icono::Exclamacion);
        return;
    }
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setFullPage(true);
    impresora.setPageLayout(disposicion(d_));
    impresora.setDocName(t_.titulo);
    QPrintDialog dialogo(&impresora, this);
    dialogo.setMinMax(1, paginas_.cuantas());
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialogo.exec() != QDialog::Accepted) return;
    int desde = 0, hasta = paginas_.cuantas() - 1;
    if (impresora.printRange() == QPrinter::PageRange) {
        desde = impresora.fromPage() - 1;
        hasta = impresora.toPage() - 1;
    } else if (impresora.printRange() == QPrinter::CurrentPage) {
        desde = hasta = actual_;
    }
    QPainter painter;
    if (!painter.begin(&impresora)) {
        MsgBox(QStringLiteral("No se puede imprimir en la impresora elegida."), Icono::Critico);
        return;
    }
    const auto progreso = progresoEn(QStringLiteral("Imprimiendo…"));
    int i = desde;
    Protegido([&] {
        motor::pintarPaginas(
            painter, impresora, d_,
            [&](motor::Pagina& p) {
                if (i > hasta) return false;
                p = paginas_.leer(i++);
                return true;
            },
            hasta - desde + 1, progreso);
    });
    painter.end();
    progreso(-1, -1);
}

void mostrarVistaPrevia(const TrabajoInforme& trabajo) {
    auto* vista = new frmVistaPrevia(trabajo);
    formularios::mostrar(vista);
}

void imprimirInforme(const TrabajoInforme& trabajo) {
    const motor::Diseno d = motor::leerDiseno(trabajo.archivo);
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setFullPage(true);
    impresora.setPageLayout(disposicion(d));
    impresora.setDocName(trabajo.titulo);
    QPrintDialog dialogo(&impresora, QApplication::activeWindow());
    if (dialogo.exec() != QDialog::Accepted) return;
    Conexion c(trabajo.conexion);
    motor::FuenteConsulta f(c, trabajo.consulta);
    motor::Paginador paginador(d, motor::leerFormulas(trabajo.formulas), f);
    QPainter painter;
    if (!painter.begin(&impresora))
        throw Error(0, QStringLiteral("No se puede imprimir en la impresora elegida"));
    motor::pintarPaginas(
        painter, impresora, d, [&](motor::Pagina& p) { return paginador.siguiente(p); }, -1);
    painter.end();
}
