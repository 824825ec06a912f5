#include "frmseleccioncartera.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/campos.h"
#include "forms/lupa.h"
#include "forms/msgbox.h"

#include <QAction>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

namespace {

constexpr int kCampos = 10;
constexpr int kDescripciones = 4;
const QString kCobro = QStringLiteral("Cobro");
const QString kFalta = QStringLiteral("#");

// Caption, lookup tag and width in characters of each field, by index.
struct Definicion {
    const char* etiqueta;
    const char* tag;
    int ancho;
};
constexpr Definicion kDefiniciones[kCampos] = {
    {"Cuenta &inicial:", "CUENTAS.cuenta", 12},
    {"Cuenta &final:", "CUENTAS.cuenta", 12},
    {"Acreedor/Deudor i&nicial:", "PERSONAL.codigo", 12},
    {"Acreedor/Deudor fina&l:", "PERSONAL.codigo", 12},
    {"&Documento inicial:", "", 14},
    {"Documen&to final:", "", 14},
    {"Importe &mínimo:", "", 14},
    {"Importe má&ximo", "", 14},
    {"Fecha &vto mínima:", "", 10},
    {"F&echa vto máxima:", "", 10},
};

frmSeleccionCartera::Receptor& receptorPorDefecto() {
    static frmSeleccionCartera::Receptor receptor;
    return receptor;
}

QString deLaEmpresa(const QString& columna, const QString& codigo) {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
           QStringLiteral(" AND ") + columna + QStringLiteral(" = ") + sqlTexto(codigo);
}

// The name of an existing row, blank or not; nothing when there is no such row.
std::optional<QString> nombreDe(const QString& tabla, const QString& columnaCodigo,
                                const QString& columnaNombre, const QString& condicion) {
    if (Auxiliar::vBuscarCampo(tabla, columnaCodigo, condicion, kFalta).toString() == kFalta)
        return std::nullopt;
    return Auxiliar::vBuscarCampo(tabla, columnaNombre, condicion, QString()).toString();
}

}  // namespace

frmSeleccionCartera::frmSeleccionCartera()
    : Formulario(QStringLiteral("frmSeleccionCartera"), QStringLiteral("Selección de efectos")) {
    eventos_ = new EventosCampos(this);
    auto* columna = new QVBoxLayout(this);

    auto* tipo = new QHBoxLayout;
    auto* rotuloTipo = new QLabel(QStringLiteral("Tipo de efectos:"), this);
    lblTipoEfectos_ = new QLabel(kCobro, this);
    lblTipoEfectos_->setObjectName(QStringLiteral("lblTipoEfectos"));
    lblTipoEfectos_->setAccessibleName(QStringLiteral("Tipo de efectos"));
    QFont negrita = lblTipoEfectos_->font();
    negrita.setBold(true);
    lblTipoEfectos_->setFont(negrita);
    tipo->addWidget(rotuloTipo);
    tipo->addWidget(lblTipoEfectos_);
    tipo->addStretch(1);
    columna->addLayout(tipo);

    auto* fraDatos = new QGroupBox(this);
    fraDatos->setObjectName(QStringLiteral("fraDatos"));
    auto* rejilla = new QGridLayout(fraDatos);
    for (int i = 0; i < kCampos; ++i) {
        const Definicion& d = kDefiniciones[i];
        auto* t = new QLineEdit(fraDatos);
        t->setObjectName(QStringLiteral("txt(%1)").arg(i));
        t->setProperty("Tag", QString::fromLatin1(d.tag));
        t->setMaximumWidth(t->fontMetrics().averageCharWidth() * (d.ancho + 2) + 12);
        if (i == 6 || i == 7) t->setAlignment(Qt::AlignRight);
        auto* etiqueta = new QLabel(QString::fromUtf8(d.etiqueta), fraDatos);
        rotular(etiqueta, t);
        rejilla->addWidget(etiqueta, i, 0);
        rejilla->addWidget(t, i, 1);
        eventos_->vigilar(t, i);
        txt_ << t;
        if (i < kDescripciones) {
            auto* des = new QLabel(fraDatos);
            des->setObjectName(QStringLiteral("des(%1)").arg(i));
            des->setAccessibleName(t->accessibleName() + QStringLiteral(", nombre"));
            des->setMinimumWidth(t->fontMetrics().averageCharWidth() * 30);
            rejilla->addWidget(des, i, 2);
            des_ << des;
        }
    }
    rejilla->setColumnStretch(2, 1);
    columna->addWidget(fraDatos);
    columna->addStretch(1);

    // A click leaves the focus in the field being typed in: Aceptar checks every field itself,
    // so a refused field says its message once. Tab still reaches the buttons.
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    cmdAceptar_ = new QPushButton(QStringLiteral("&Aceptar"), this);
    cmdAceptar_->setObjectName(QStringLiteral("cmdAceptar"));
    cmdAceptar_->setDefault(true);
    cmdCancelar_ = new QPushButton(QStringLiteral("&Cancelar"), this);
    cmdCancelar_->setObjectName(QStringLiteral("cmdCancelar"));
    for (QPushButton* b : {cmdAceptar_, cmdCancelar_}) {
        b->setAutoDefault(true);  // Enter presses the button that has the focus
        b->setFocusPolicy(Qt::TabFocus);
        botones->addWidget(b);
    }
    columna->addLayout(botones);
    connect(cmdAceptar_, &QPushButton::clicked, this, &frmSeleccionCartera::Aceptar);
    connect(cmdCancelar_, &QPushButton::clicked, this, &frmSeleccionCartera::Cancelar);
    auto* escape = new QAction(this);
    escape->setShortcut(QKeySequence(Qt::Key_Escape));
    escape->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QAction::triggered, this, &frmSeleccionCartera::Cancelar);
    addAction(escape);

    eventos_->manejadores({
        .foco = {},
        .validar = [this](int i) { return validar(i); },
        .salir = [this](int i) { salir(i); },
        .cambio = {},
        .dobleClic =
            [this](int i) {
                if (txt(i)->property("Tag").toString().isEmpty()) return;
                txt(i)->setFocus();
                Protegido([this] { MostrarLupa(this); });
            },
    });
    setFocusProxy(txt_[0]);
    tamanoInicial(520, 400);
}

// A form going away checks no field: the focus leaves its fields as the widgets are torn down.
frmSeleccionCartera::~frmSeleccionCartera() {
    eventos_->silencio = true;
}

void frmSeleccionCartera::closeEvent(QCloseEvent* evento) {
    Formulario::closeEvent(evento);
    if (evento->isAccepted()) eventos_->silencio = true;
}

QString frmSeleccionCartera::faltaSesion() const {
    if (sesion_empresa.isEmpty() || sesion_delegacion.isEmpty() || sesion_ejercicio == 0)
        return MensajeError(1040);
    return {};
}

void frmSeleccionCartera::ponerTipoEfectos(const QString& texto) {
    lblTipoEfectos_->setText(texto);
}

void frmSeleccionCartera::ponerReceptorPorDefecto(Receptor receptor) {
    receptorPorDefecto() = std::move(receptor);
}

void frmSeleccionCartera::ponerTexto(int i, const QString& texto) {
    if (txt(i)->text() == texto) return;
    eventos_->silencio = true;
    txt(i)->setText(texto);
    eventos_->silencio = false;
}

bool frmSeleccionCartera::validar(int i) {
    const QString texto = txt(i)->text();
    if (texto.isEmpty()) {
        if (i < kDescripciones) des(i)->clear();
        return true;
    }
    int mensaje = 0;
    const bool leido = Protegido([&] {
        if (i <= 1) {
            const QString cuenta = ExpandirCuenta(texto, sesion_digitos);
            ponerTexto(i, cuenta);
            const auto nombre = nombreDe(
                QStringLiteral("Cuentas"), QStringLiteral("cuenta"), QStringLiteral("descripcion"),
                deLaEmpresa(QStringLiteral("cuenta"), cuenta) + QStringLiteral(" and pases = 'S'"));
            des(i)->setText(nombre.value_or(QString()));
            mensaje = nombre ? 0 : 1001;
        } else if (i <= 3) {
            // Unknown third parties are refused with the words of an unknown account.
            const auto nombre =
                nombreDe(QStringLiteral("Personal"), QStringLiteral("codigo"),
                         QStringLiteral("nombre"), deLaEmpresa(QStringLiteral("codigo"), texto));
            des(i)->setText(nombre.value_or(QString()));
            mensaje = nombre ? 0 : 1001;
        } else if (i == 6 || i == 7) {
            mensaje = formato::leerImporte(texto) ? 0 : 1004;
        } else if (i >= 8) {
            mensaje = Auxiliar::sDate(texto).isEmpty() ? 1004 : 0;
        }
    });
    if (!leido) return false;
    if (mensaje == 0) return true;
    MsgBox(MensajeError(mensaje), Icono::Critico);
    return false;
}

void frmSeleccionCartera::salir(int i) {
    if (i <= 1)
        ponerTexto(i, ExpandirCuenta(txt(i)->text(), sesion_digitos));
    else if (i == 4 || i == 5)
        ponerTexto(i, txt(i)->text().toUpper());
}

bool frmSeleccionCartera::comprobarCampos() {
    for (int i = 0; i < kCampos; ++i) {
        if (!validar(i)) {
            txt(i)->setFocus();
            return false;
        }
        salir(i);
    }
    return true;
}

CriteriosSeleccion frmSeleccionCartera::criterios() const {
    const auto t = [this](int i) { return txt(i)->text(); };
    return {.cuentaInicial = t(0),
            .cuentaFinal = t(1),
            .terceroInicial = t(2),
            .terceroFinal = t(3),
            .documentoInicial = t(4),
            .documentoFinal = t(5),
            .importeMinimo = t(6),
            .importeMaximo = t(7),
            .fechaMinima = t(8),
            .fechaMaxima = t(9)};
}

void frmSeleccionCartera::Aceptar() {
    if (!comprobarCampos()) return;
    const Receptor receptor = receptor_ ? receptor_ : receptorPorDefecto();
    if (!receptor) {
        MsgBox(QStringLiteral("Abra un asiento de cobros o pagos en «Entrada de apuntes» para "
                              "recibir los efectos."),
               Icono::Exclamacion);
        return;
    }
    const QString tipo =
        lblTipoEfectos_->text() == kCobro ? QStringLiteral("C") : QStringLiteral("P");
    const bool entregados = Protegido([&] {
        receptor(SeleccionarEfectos(*sesion_conexion, sesion_empresa, sesion_delegacion, tipo,
                                    criterios()));
    });
    if (entregados) descargar();
}

void frmSeleccionCartera::Cancelar() {
    descargar();
}
