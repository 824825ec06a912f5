#include "frmapunte.h"

#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/campos.h"
#include "forms/lista.h"
#include "forms/lupa.h"
#include "forms/msgbox.h"

#include <QAction>
#include <QCloseEvent>
#include <QDate>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <utility>

namespace {
constexpr int kCampos = 62;
const QString kContrapartida = QStringLiteral("Contrapartida");

// The caption of a field, its accelerator leading to it and naming it.
QLabel* rotulo(QWidget* padre, const QString& texto, QWidget* campo) {
    auto* etiqueta = new QLabel(texto, padre);
    rotular(etiqueta, campo);
    return etiqueta;
}

QString hoy() {
    return QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
}

QString mayuscula(QString texto) {
    if (!texto.isEmpty()) texto[0] = texto[0].toUpper();
    return texto;
}
}  // namespace

frmApunte::frmApunte()
    : Formulario(QStringLiteral("frmApunte"), QStringLiteral("Entrada de apuntes")) {
    txt_.fill(nullptr, kCampos);
    construir();
    ponerTexto(3, hoy());
    ponerTexto(4, hoy());
}

// A form going away checks no field: the focus leaves its fields as the widgets are torn down.
frmApunte::~frmApunte() {
    eventos_->silencio = true;
}

// The selection of due items fills this form's list: it goes with it.
void frmApunte::closeEvent(QCloseEvent* evento) {
    Formulario::closeEvent(evento);  // asks first when the entry is not stored
    if (!evento->isAccepted()) return;
    eventos_->silencio = true;
    descargarSeleccion();
}

QString frmApunte::faltaSesion() const {
    if (sesion_empresa.isEmpty() || sesion_delegacion.isEmpty() || sesion_ejercicio == 0)
        return MensajeError(1040);
    return {};
}

QLineEdit* frmApunte::campo(QWidget* padre, int i, const QString& tag, int ancho) {
    auto* t = new QLineEdit(padre);
    t->setObjectName(QStringLiteral("txt(%1)").arg(i));
    t->setProperty("Tag", tag);
    if (ancho > 0) t->setMaximumWidth(t->fontMetrics().averageCharWidth() * (ancho + 2) + 12);
    eventos_->vigilar(t, i);
    txt_[i] = t;
    return t;
}

void frmApunte::construir() {
    eventos_ = new EventosCampos(this);
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(4, 0, 4, 4);

    toolbar_ = new QToolBar(this);
    toolbar_->setObjectName(QStringLiteral("ToolbarApuntes"));
    MontarToolbar(toolbar_, this);
    columna->addWidget(toolbar_);
    for (const QString& clave :
         {claves::cancelar, claves::insertar, claves::modificar, claves::filtrar, claves::lupa,
          claves::borrar, claves::listar, claves::imprimir, claves::ayudar})
        connect(Boton(toolbar_, clave), &QAction::triggered, this,
                [this, clave] { alPulsar(clave); });
    DesactivarBotones(toolbar_, {claves::modificar, claves::filtrar, claves::lupa, claves::listar,
                                 claves::imprimir});

    tabs_ = new QTabBar(this);
    tabs_->setObjectName(QStringLiteral("TabStripApuntes"));
    tabs_->setAccessibleName(QStringLiteral("Pestañas del asiento"));
    for (const char* titulo : {"Apunte", "IVA", "Cartera", "Contrapartida"})
        tabs_->addTab(QString::fromUtf8(titulo));
    tabs_->setExpanding(false);
    columna->addWidget(tabs_);

    pila_ = new QStackedWidget(this);
    // The portfolio and counterpart frames name their own editable part: their lists stay
    // readable on a shown entry.
    const std::array<QWidget*, 5> marcos{construirMarcoApunte(), construirMarcoIva(),
                                         construirMarcoAlta(), construirMarcoContrapartida(),
                                         construirMarcoGestion()};
    for (int i = 0; i < 5; ++i) {
        auto* marco = new QWidget;
        marco->setObjectName(QStringLiteral("frmAsiento(%1)").arg(i));
        auto* dentro = new QVBoxLayout(marco);
        dentro->setContentsMargins(0, 4, 0, 0);
        dentro->addWidget(marcos[i], 1);
        if (i < 2) frmAsiento_[i] = marcos[i];
        pila_->addWidget(marco);
    }
    frmAsiento_[3] = nuevaLinea_;
    columna->addWidget(pila_, 1);

    // One pair of buttons per tab, the pair of the tab on show visible; they stay usable on a
    // shown entry, whose fields cannot be edited, so that its tabs can be walked.
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    for (int i = 0; i < 4; ++i) {
        auto* s = new QPushButton(QStringLiteral("&Siguiente >"), this);
        s->setObjectName(QStringLiteral("sig(%1)").arg(i));
        auto* a = new QPushButton(QStringLiteral("< &Anterior"), this);
        a->setObjectName(QStringLiteral("ant(%1)").arg(i));
        for (QPushButton* b : {a, s}) {
            b->setAutoDefault(true);  // Enter presses it
            b->setVisible(i == 0);
        }
        connect(a, &QPushButton::clicked, this, [this] { avanzar(-1); });
        connect(s, &QPushButton::clicked, this, [this] { avanzar(+1); });
        botones->addWidget(a);
        botones->addWidget(s);
        ant_ << a;
        sig_ << s;
    }
    columna->addLayout(botones);

    // The tabs from the keyboard, through the same machine as a click.
    auto* proxima = new QAction(this);
    proxima->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_PageDown));
    connect(proxima, &QAction::triggered, this, [this] { avanzar(+1); });
    auto* previa = new QAction(this);
    previa->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_PageUp));
    connect(previa, &QAction::triggered, this, [this] { avanzar(-1); });
    addActions({proxima, previa});

    connect(tabs_, &QTabBar::currentChanged, this, &frmApunte::alCambiarPestana);
    eventos_->manejadores({
        .foco = [this](int i) { alFoco(i); },
        .validar = [this](int i) { return comprobar(i); },
        .salir = [this](int i) { alSalir(i); },
        .cambio = {},
        .dobleClic =
            [this](int) {
                if (Boton(toolbar_, claves::lupa)->isEnabled())
                    Protegido([this] { MostrarLupa(this); });
            },
    });

    guardarColumnasDe(lista_, QStringLiteral("Grid_AC"));
    guardarColumnasDe(listaAlta_, QStringLiteral("Grid_BC"));
    guardarColumnasDe(listaGestion_, QStringLiteral("Grid_CC"));
    setFocusProxy(txt_[0]);
    tamanoInicial(780, 560);
}

QWidget* frmApunte::construirMarcoApunte() {
    auto* marco = new QWidget;
    auto* rejilla = new QGridLayout(marco);
    const auto fila = [&](int r, const QString& etiqueta, int i, const QString& tag, int ancho) {
        QLineEdit* t = campo(marco, i, tag, ancho);
        rejilla->addWidget(rotulo(marco, etiqueta, t), r, 0);
        rejilla->addWidget(t, r, 1);
        return t;
    };
    fila(0, QStringLiteral("&Diario:"), 0, QStringLiteral("DIARIOS.codigo_diario"), 6);
    des0_ = new QLabel(marco);
    des0_->setObjectName(QStringLiteral("des(0)"));
    rejilla->addWidget(des0_, 0, 2, 1, 3);
    fila(1, QStringLiteral("D&ocumento:"), 1, QStringLiteral("DOCUMENTOS.codigo_documento"), 6);
    QLineEdit* numero = campo(marco, 2, {}, 14);
    numero->setAccessibleName(QStringLiteral("Número"));
    rejilla->addWidget(numero, 1, 2);
    fila(2, QStringLiteral("&Fecha contable:"), 3, {}, 10);
    QLineEdit* fecha4 = campo(marco, 4, {}, 10);
    rejilla->addWidget(rotulo(marco, QStringLiteral("Fec&ha documento:"), fecha4), 2, 2,
                       Qt::AlignRight);
    rejilla->addWidget(fecha4, 2, 3);
    fila(3, QStringLiteral("&Cuenta:"), 5, QStringLiteral("CUENTAS.cuenta"), 14);
    des5_ = new QLabel(marco);
    des5_->setObjectName(QStringLiteral("des(5)"));
    rejilla->addWidget(des5_, 3, 2, 1, 3);
    fila(4, QStringLiteral("&Importe:"), 6, {}, 14)->setAlignment(Qt::AlignRight);
    fila(5, QStringLiteral("&Referencia:"), 7, {}, 0);
    fila(6, QStringLiteral("Co&ncepto:"), 8, {}, 0);
    for (int i : {7, 8}) rejilla->addWidget(txt_[i], i - 2, 1, 1, 4);
    rejilla->setColumnStretch(4, 1);
    rejilla->setRowStretch(7, 1);
    return marco;
}

// Four rows of nine fields under one heading, and the totals under the amounts they add.
QWidget* frmApunte::construirMarcoIva() {
    auto* marco = new QWidget;
    auto* rejilla = new QGridLayout(marco);
    static const char* const kTitulos[] = {"Base",        "IVA/RE",    "Pct. IVA",
                                           "Importe IVA", "Pct. RE",   "Importe RE",
                                           "IRPF",        "Pct. IRPF", "Importe IRPF"};
    for (int c = 0; c < 9; ++c) {
        auto* titulo = new QLabel(QString::fromUtf8(kTitulos[c]), marco);
        titulo->setAlignment(c == 1 || c == 6 ? Qt::AlignLeft : Qt::AlignRight);
        rejilla->addWidget(titulo, 0, c + 1);
    }
    for (int f = 1; f <= 4; ++f) {
        rejilla->addWidget(new QLabel(QString::number(f), marco), f, 0);
        for (int c = 0; c < 9; ++c) {
            const bool codigo = c == 1 || c == 6, pct = c == 2 || c == 4 || c == 7;
            QLineEdit* t = campo(marco, 9 * f + c,
                                 c == 1   ? QStringLiteral("IMPUESTOS.impuesto")
                                 : c == 6 ? QStringLiteral("IRPF.codigo")
                                          : QString(),
                                 codigo || pct ? 6 : 12);
            if (!codigo) t->setAlignment(Qt::AlignRight);
            t->setAccessibleName(
                QStringLiteral("%1, fila %2").arg(QString::fromUtf8(kTitulos[c])).arg(f));
            rejilla->addWidget(t, f, c + 1);
        }
    }
    auto* totales = new QLabel(QStringLiteral("Totales:"), marco);
    rejilla->addWidget(totales, 5, 0);
    const std::array<std::pair<int, int>, 4> sumas{{{45, 1}, {46, 4}, {47, 6}, {48, 9}}};
    for (const auto& [i, c] : sumas) {
        QLineEdit* t = campo(marco, i, {}, 12);
        t->setReadOnly(true);
        t->setFocusPolicy(Qt::ClickFocus);
        t->setAlignment(Qt::AlignRight);
        t->setAccessibleName(QStringLiteral("Total %1").arg(QString::fromUtf8(kTitulos[c - 1])));
        rejilla->addWidget(t, 5, c);
    }
    rejilla->setColumnStretch(10, 1);
    rejilla->setRowStretch(6, 1);
    return marco;
}

// The fields of a new line are what a shown entry disables; its lines and totals stay readable.
QWidget* frmApunte::construirMarcoContrapartida() {
    auto* marco = new QWidget;
    auto* caja = new QVBoxLayout(marco);
    caja->setContentsMargins(0, 0, 0, 0);
    const auto par = [&](QWidget* padre, QHBoxLayout* donde, const QString& etiqueta, int i,
                         const QString& tag, int ancho) {
        QLineEdit* t = campo(padre, i, tag, ancho);
        donde->addWidget(rotulo(padre, etiqueta, t));
        donde->addWidget(t, ancho ? 0 : 1);
        return t;
    };
    // The fields of the line on one row, the account's name under them.
    nuevaLinea_ = new QWidget(marco);
    auto* linea = new QGridLayout(nuevaLinea_);
    linea->setContentsMargins(0, 0, 0, 0);
    const std::array<std::pair<const char*, int>, 4> campos{
        {{"S&ubcuenta:", 54}, {"D&ebe:", 55}, {"Ha&ber:", 56}, {"Co&ncepto:", 57}}};
    for (int c = 0; c < 4; ++c) {
        const auto [etiqueta, i] = campos[c];
        QLineEdit* t = campo(nuevaLinea_, i, i == 54 ? QStringLiteral("CUENTAS.cuenta") : QString(),
                             i == 57 ? 0 : 12);
        if (i == 55 || i == 56) t->setAlignment(Qt::AlignRight);
        linea->addWidget(rotulo(nuevaLinea_, QString::fromUtf8(etiqueta), t), 0, 2 * c);
        linea->addWidget(t, 0, 2 * c + 1);
    }
    linea->setColumnStretch(7, 1);
    btnContrapartida_ = new QPushButton(QStringLiteral("Añadi&r"), nuevaLinea_);
    btnContrapartida_->setObjectName(QStringLiteral("btnContrapartida"));
    btnContrapartida_->setAutoDefault(true);
    connect(btnContrapartida_, &QPushButton::clicked, this, &frmApunte::anadirContrapartida);
    linea->addWidget(btnContrapartida_, 0, 8);
    des54_ = new QLabel(nuevaLinea_);
    des54_->setObjectName(QStringLiteral("des(54)"));
    linea->addWidget(des54_, 1, 1, 1, 7);
    caja->addWidget(nuevaLinea_);

    lista_ = new ListaClaves(marco);
    lista_->setObjectName(QStringLiteral("ListViewApunte"));
    lista_->setAccessibleName(QStringLiteral("Líneas del asiento"));
    lista_->columnas({QStringLiteral("Nº. Ap."), QStringLiteral("Fecha"),
                      QStringLiteral("Subcuenta"), QStringLiteral("Debe"), QStringLiteral("Haber"),
                      QStringLiteral("Concepto"), QStringLiteral("Tipus")},
                     {70, 85, 100, 100, 100, 220, 50});
    connect(lista_, &QTreeWidget::itemActivated, this, &frmApunte::alActivarLinea);
    caja->addWidget(lista_, 1);

    auto* totales = new QHBoxLayout;
    totales->addStretch(1);
    par(marco, totales, QStringLiteral("Debe Asiento:"), 58, {}, 18);
    par(marco, totales, QStringLiteral("Haber Asiento:"), 59, {}, 18);
    par(marco, totales, QStringLiteral("Saldo Asiento:"), 60, {}, 22);
    for (int i : {58, 59, 60}) {
        txt_[i]->setReadOnly(true);
        txt_[i]->setFocusPolicy(Qt::ClickFocus);
        txt_[i]->setAlignment(Qt::AlignRight);
    }
    caja->addLayout(totales);
    return marco;
}

int frmApunte::pestana() const {
    return tabs_->currentIndex() + 1;
}

int frmApunte::marco() const {
    return pila_->currentIndex();
}

void frmApunte::ponerTexto(int i, const QString& texto) {
    const bool antes = eventos_->silencio;
    eventos_->silencio = true;
    txt_[i]->setText(texto);
    eventos_->silencio = antes;
}

void frmApunte::activarMarcos(bool activos) {
    for (QWidget* m : frmAsiento_) m->setEnabled(activos);
}

void frmApunte::LimpiarPantalla() {
    mostrando_ = false;
    activarMarcos(true);
    for (int i = 0; i < kCampos; ++i)
        if (txt_[i]) ponerTexto(i, QString());
    ponerTexto(3, hoy());
    ponerTexto(4, hoy());
    des0_->clear();
    des5_->clear();
    des54_->clear();
    lineas_.limpiar();
    rejilla_.limpiar();
    alta_.limpiar();
    gestion_.limpiar();
    mostrarAlta();
    mostrarGestion();
    TotalesAsiento();
    for (int p = pestana() - 1; p >= 1; --p) seleccionar(p);
    Boton(toolbar_, claves::insertar)->setEnabled(true);
    txt_[0]->setFocus();
}

// --- The tab machine -------------------------------------------------------------------------

void frmApunte::seleccionar(int p) {
    tabs_->setCurrentIndex(p - 1);
}

void frmApunte::bajarHasta(int p) {
    for (int k = pestana() - 1; k >= p; --k) seleccionar(k);
}

void frmApunte::avanzar(int paso) {
    if (pestana() == 1 && !mostrando_ && !revisarCabecera()) return;
    for (int p = pestana() + paso; p >= 1 && p <= 4; p += paso)
        if (Paginas[p]) return seleccionar(p);
}

void frmApunte::alCambiarPestana(int indice) {
    if (SaltarClick) {
        SaltarClick = false;
        return;
    }
    const int elegida = indice + 1;
    const auto rechazar = [this] {
        SaltarClick = true;
        seleccionar(TabAnterior);
    };
    // The field being typed in was never left: it is checked, and a document typed there read,
    // before the tabs that take part are known.
    if (TabAnterior == 1 && !mostrando_ && !revisarCabecera()) return rechazar();
    int siguiente = -1, anterior = -1;
    for (int i = TabAnterior + 1; i <= 4 && siguiente < 0; ++i)
        if (Paginas[i]) siguiente = i;
    for (int i = TabAnterior - 1; i >= 1 && anterior < 0; --i)
        if (Paginas[i]) anterior = i;
    // Only the nearest tab that takes part, on either side; a jump over one bounces.
    if ((elegida != siguiente && elegida != anterior) || !Paginas[elegida]) return rechazar();

    if (const QString mensaje = ValidarObligatorios(TabAnterior - 1); !mensaje.isEmpty()) {
        rechazar();
        MsgBox(mensaje, Icono::Critico);
        return;
    }
    // The tax and portfolio tabs regenerate their lines in either direction; a shown entry
    // keeps its stored lines.
    if (TabAnterior == 2 && !mostrando_ && (!revisarImpuestos() || !GenerarLineasIva()))
        return rechazar();
    if (TabAnterior == 3 && !mostrando_) GenerarLineasGestion();
    if (TabAnterior == 1) GenerarPartida();
    int frame = elegida - 1;
    if (frame == 2 && (documento_.cartera == u"C" || documento_.cartera == u"P")) frame = 4;
    TabAnterior = elegida;
    MostrarPagina(frame);
}

void frmApunte::MostrarPagina(int frame) {
    // Whatever had the focus was checked already: it goes quietly, the new field arrives.
    eventos_->silencio = true;
    tabs_->setFocus();
    pila_->setCurrentIndex(frame);
    eventos_->silencio = false;
    for (int i = 0; i < 4; ++i) {
        ant_[i]->setVisible(i == pestana() - 1);
        sig_[i]->setVisible(i == pestana() - 1);
    }
    if (!frmAsiento_[frame]->isEnabled()) return;
    static constexpr int kFoco[] = {0, 9, 49, 54, -1};
    QWidget* foco = kFoco[frame] >= 0 ? static_cast<QWidget*>(txt_[kFoco[frame]]) : cmdSeleccion_;
    foco->setFocus();
}

QString frmApunte::ValidarObligatorios(int pagina) {
    if (pagina != 0) return {};
    for (int i = 0; i <= 6; ++i) {
        if (txt_[i]->text().isEmpty()) {
            txt_[i]->setFocus();
            return MensajeError(1000);
        }
    }
    return {};
}

int frmApunte::campoEnFoco() const {
    QWidget* foco = focusWidget();
    return foco ? int(txt_.indexOf(foco)) : -1;
}

// Every field of the header again, the first that fails with its message and the focus.
bool frmApunte::revisarCabecera() {
    const int enFoco = campoEnFoco();
    for (int i = 0; i <= 8; ++i)
        if (!comprobar(i)) {
            txt_[i]->setFocus();
            return false;
        }
    if (enFoco >= 0 && enFoco <= 8) alSalir(enFoco);
    return true;
}

// --- The toolbar -----------------------------------------------------------------------------

void frmApunte::alPulsar(const QString& clave) {
    // On the last tab only the two that store the entry do anything, cancelar and borrar
    // included: a shown entry is left from another tab.
    if (pestana() == 4) {
        if (clave == claves::insertar) GrabarAsiento();
        return;
    }
    if (clave == claves::insertar || clave == claves::modificar)
        MsgBox(MensajeError(1039), Icono::Critico);
    else if (clave == claves::cancelar) {
        if (sinGrabar() && MsgBox(QStringLiteral("%1 no está grabado. ¿Desea descartarlo y "
                                                 "empezar uno nuevo?")
                                      .arg(mayuscula(nombreAsiento())),
                                  Icono::Pregunta) != Respuesta::Si)
            return;
        descartarTrabajo();
    } else if (clave == claves::lupa)
        Protegido([this] { MostrarLupa(this); });
    else if (clave == claves::borrar)
        BorrarAsiento();
}

// --- Unsaved work and the number drawn for it ------------------------------------------------

bool frmApunte::sinGrabar() const {
    if (mostrando_) return false;  // what is shown is stored
    if (lineas_.cuantas() > 0) return true;
    for (int i : {0, 1, 2, 5, 6, 7, 8, 54, 55, 56, 57})
        if (!txt_[i]->text().isEmpty()) return true;
    return false;
}

QString frmApunte::nombreAsiento() const {
    const QString numero = txt_[2]->text();
    return numero.isEmpty() || numero == u"0" ? QStringLiteral("el asiento en curso")
                                              : QStringLiteral("el asiento ") + numero;
}

QString frmApunte::trabajoSinGrabar() const {
    if (!sinGrabar()) return {};
    return QStringLiteral("En «%1», %2 no está grabado y se descartará.")
        .arg(windowTitle(), nombreAsiento());
}

void frmApunte::descartarTrabajo() {
    devolverNumero();
    LimpiarPantalla();
}

// After "0" became a number of the series in txt(2): the number is this entry's until the entry
// is stored, or goes back when it is discarded.
void frmApunte::anotarNumero(const QString& texto) {
    const QString cifras = texto.mid(documento_.identificador.size());
    if (cifras.isEmpty()) return;  // the document has no series this year: nothing was drawn
    tomado_ = NumeroTomado{sesion_empresa,  sesion_ejercicio,         documento_.numeracion,
                           txt_[1]->text(), documento_.identificador, texto,
                           cifras.toInt()};
}

// Another document numbered by the same series with the same prefix takes the number drawn as
// it is; any other goes back to its series, and the new document draws its own.
void frmApunte::cambiarDocumentoDelNumero(const QString& documento) {
    std::optional<DocumentoApunte> d;
    Protegido([&] { d = CargarDocumento(documento); });
    if (d && d->numeracion == tomado_->serie && d->identificador == tomado_->identificador) {
        tomado_->documento = documento;
        return;
    }
    devolverNumero();
    ponerTexto(2, QString());
}

void frmApunte::devolverNumero() {
    if (!tomado_) return;
    const NumeroTomado n = *std::exchange(tomado_, std::nullopt);
    Protegido([&] { DevolverNumero(n.empresa, n.ejercicio, n.serie, n.numero); });
}
