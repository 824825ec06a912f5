// The portfolio tab of the entry form: an invoice's due items (frame 2) and the items that a
// collection or payment closes (frame 4). What they compute lives in CarteraAlta and
// CarteraGestion; this file shows it and takes the user's clicks.
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/campos.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/msgbox.h"
#include "frmapunte.h"
#include "portfolio/frmseleccioncartera.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

namespace {

const QString kSeleccion = QStringLiteral("frmSeleccionCartera");

QLabel* rotuloDe(QWidget* padre, const QString& texto, QWidget* campo) {
    auto* etiqueta = new QLabel(texto, padre);
    rotular(etiqueta, campo);
    return etiqueta;
}

// A total under its list, read-only as the entry's totals are.
QHBoxLayout* total(QWidget* padre, QLineEdit* campo) {
    campo->setReadOnly(true);
    campo->setFocusPolicy(Qt::ClickFocus);
    campo->setAlignment(Qt::AlignRight);
    auto* fila = new QHBoxLayout;
    fila->addStretch(1);
    fila->addWidget(rotuloDe(padre, QStringLiteral("Total:"), campo));
    fila->addWidget(campo);
    return fila;
}

QString claveGestion(const EfectoSeleccionado& e) {
    return QStringLiteral("K") + e.codigoDocumento + e.numeroDocumento + e.fechaVto;
}

}  // namespace

// The fields of a new due item on one row, its list and total below; a shown entry disables
// the fields and keeps the list readable.
QWidget* frmApunte::construirMarcoAlta() {
    auto* marco = new QWidget;
    auto* caja = new QVBoxLayout(marco);
    caja->setContentsMargins(0, 0, 0, 0);
    auto* campos = new QWidget(marco);
    auto* fila = new QGridLayout(campos);
    fila->setContentsMargins(0, 0, 0, 0);
    const std::array<std::pair<const char*, int>, 4> definicion{
        {{"&Tipo:", 49}, {"&Vencimiento:", 50}, {"&Importe:", 51}, {"D&escripción:", 52}}};
    for (int c = 0; c < 4; ++c) {
        const auto [etiqueta, i] = definicion[c];
        QLineEdit* t = campo(campos, i, {}, i == 49 ? 2 : i == 52 ? 0 : 11);
        if (i == 51) t->setAlignment(Qt::AlignRight);
        fila->addWidget(rotuloDe(campos, QString::fromUtf8(etiqueta), t), 0, 2 * c);
        fila->addWidget(t, 0, 2 * c + 1);
    }
    fila->setColumnStretch(7, 1);
    btnAltaVencimiento_ = new QPushButton(QStringLiteral("Añadi&r"), campos);
    btnAltaVencimiento_->setObjectName(QStringLiteral("btnAltaVencimiento"));
    btnAltaVencimiento_->setAutoDefault(true);
    connect(btnAltaVencimiento_, &QPushButton::clicked, this, &frmApunte::anadirVencimiento);
    fila->addWidget(btnAltaVencimiento_, 0, 8);
    caja->addWidget(campos);
    frmAsiento_[2] = campos;

    listaAlta_ = new ListaClaves(marco);
    listaAlta_->setObjectName(QStringLiteral("ListViewAltaCartera"));
    listaAlta_->setAccessibleName(QStringLiteral("Vencimientos del asiento"));
    listaAlta_->columnas({QStringLiteral("Tipo"), QStringLiteral("Vencimiento"),
                          QStringLiteral("Importe"), QStringLiteral("Descripcion")},
                         {60, 100, 110, 300});
    connect(listaAlta_, &QTreeWidget::itemActivated, this, &frmApunte::alActivarVencimiento);
    caja->addWidget(listaAlta_, 1);
    caja->addLayout(total(marco, campo(marco, 53, {}, 14)));
    return marco;
}

// Three buttons above the list of the items selected, their total below; a shown entry
// disables the buttons.
QWidget* frmApunte::construirMarcoGestion() {
    auto* marco = new QWidget;
    auto* caja = new QVBoxLayout(marco);
    caja->setContentsMargins(0, 0, 0, 0);
    auto* botones = new QWidget(marco);
    auto* fila = new QHBoxLayout(botones);
    fila->setContentsMargins(0, 0, 0, 0);
    const auto boton = [&](const char* nombre, const char* texto, std::function<void()> accion) {
        auto* b = new QPushButton(QString::fromUtf8(texto), botones);
        b->setObjectName(QString::fromLatin1(nombre));
        b->setAutoDefault(true);
        connect(b, &QPushButton::clicked, this, accion);
        fila->addWidget(b);
        return b;
    };
    cmdSeleccion_ = boton("cmdSeleccion", "S&eleccionar efectos", [this] { SeleccionarEfectos(); });
    cmdPendientes_ = boton("cmdPendientes", "Todos &pendientes", [this] {
        gestion_.TodosPendientes();
        mostrarGestion();
    });
    cmdCancelar_ = boton("cmdCancelar", "Todos ca&ncelados", [this] {
        gestion_.TodosCancelados();
        mostrarGestion();
    });
    fila->addStretch(1);
    caja->addWidget(botones);
    frmAsiento_[4] = botones;

    listaGestion_ = new ListaClaves(marco);
    listaGestion_->setObjectName(QStringLiteral("ListViewGestionCartera"));
    listaGestion_->setAccessibleName(QStringLiteral("Efectos seleccionados"));
    listaGestion_->columnas(
        {QStringLiteral("Estado"), QStringLiteral("Código Documento"), QStringLiteral("Documento"),
         QStringLiteral("Vencimiento"), QStringLiteral("Cuenta"), QStringLiteral("Importe"),
         QStringLiteral("Concepto")},
        {55, 110, 100, 90, 100, 100, 250});
    connect(listaGestion_, &QTreeWidget::itemActivated, this, &frmApunte::alActivarEfecto);
    caja->addWidget(listaGestion_, 1);
    caja->addLayout(total(marco, campo(marco, 61, {}, 14)));
    return marco;
}

// --- An invoice's due items ------------------------------------------------------------------

// Thrown away and made again from the third party's payment method whenever the account or
// the amount is left; an unknown method proposes nothing and says nothing.
void frmApunte::ProponerVencimientos(const std::optional<TerceroCuenta>& tercero) {
    alta_.limpiar();
    for (int i = 49; i <= 53; ++i) ponerTexto(i, QString());
    if (const std::optional<FormaPago> forma = catalogo_.formaPago(tercero->formaPago)) {
        const std::optional<QDate> fecha = formato::leerFecha(txt_[4]->text());
        Protegido([&] {
            if (!fecha)
                throw Error(13, QStringLiteral("La fecha del documento no es válida: no se "
                                               "pueden proponer los vencimientos."));
            alta_.Proponer(tercero->formaPago, *forma, tercero->primerDia, *fecha,
                           formato::leerNumero(txt_[6]->text()).value_or(0), documento_.partida,
                           txt_[2]->text());
        });
    }
    mostrarAlta();
}

// The fields are checked again, as a click does not wait for a refused field; an item needs
// its type, date and amount.
void frmApunte::anadirVencimiento() {
    for (int i = 49; i <= 51; ++i)
        if (!comprobar(i)) {
            txt_[i]->setFocus();
            return;
        }
    for (int i = 49; i <= 51; ++i)
        if (txt_[i]->text().isEmpty()) {
            MsgBox(MensajeError(1000), Icono::Critico);
            txt_[i]->setFocus();
            return;
        }
    if (const int codigo = alta_.Anadir(
            {txt_[49]->text(), txt_[50]->text(), txt_[51]->text(), txt_[52]->text()})) {
        MsgBox(MensajeError(codigo), Icono::Critico);
        return;
    }
    for (int i = 49; i <= 52; ++i) ponerTexto(i, QString());
    mostrarAlta();
    txt_[49]->setFocus();
}

void frmApunte::alActivarVencimiento(QTreeWidgetItem* fila) {
    if (mostrando_) return;
    const VencimientoAlta v = alta_.Recuperar(listaAlta_->indexOfTopLevelItem(fila));
    ponerTexto(49, v.tipo);
    ponerTexto(50, v.vencimiento);
    ponerTexto(51, v.importe);
    ponerTexto(52, v.descripcion);
    mostrarAlta();
    txt_[49]->setFocus();
}

void frmApunte::mostrarAlta() {
    listaAlta_->limpiar();
    for (const VencimientoAlta& v : alta_.efectos()) {
        QTreeWidgetItem* fila =
            listaAlta_->agregar(CarteraAlta::clave(v.tipo, v.vencimiento),
                                {v.tipo, v.vencimiento, v.importe, v.descripcion});
        fila->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
    ponerTexto(53, alta_.total());
}

// --- The items a collection or payment closes ------------------------------------------------

// The dialog is not modal: the entry stays usable, and the items arrive when it is accepted.
void frmApunte::SeleccionarEfectos() {
    auto* dialogo = qobject_cast<frmSeleccionCartera*>(formularios::abrir(kSeleccion));
    if (!dialogo) return;
    QPointer<frmApunte> yo(this);
    dialogo->ponerReceptor([yo](const QList<EfectoSeleccionado>& efectos) {
        if (yo) yo->recibirEfectos(efectos);
    });
    dialogo->ponerTipoEfectos(documento_.partida == u"D" ? QStringLiteral("Cobro")
                                                         : QStringLiteral("Pago"));
}

bool frmApunte::recibirEfectos(const QList<EfectoSeleccionado>& efectos) {
    if (mostrando_ || (documento_.cartera != u"C" && documento_.cartera != u"P")) return false;
    gestion_.Poner(efectos);
    mostrarGestion();
    // Back from the dialog to the list, on its first item, to be marked from the keyboard.
    ventana()->activateWindow();
    if (listaGestion_->filas() > 0) listaGestion_->setCurrentItem(listaGestion_->topLevelItem(0));
    listaGestion_->setFocus();
    return true;
}

void frmApunte::alActivarEfecto(QTreeWidgetItem* fila) {
    if (mostrando_) return;
    const int n = listaGestion_->indexOfTopLevelItem(fila);
    gestion_.Marcar(n);
    fila->setText(0, gestion_.efectos().at(n).marca);
    ponerTexto(61, gestion_.total());
}

void frmApunte::mostrarGestion() {
    listaGestion_->limpiar();
    for (const EfectoMarcado& e : gestion_.efectos()) {
        const EfectoSeleccionado& f = e.efecto;
        QTreeWidgetItem* fila =
            listaGestion_->agregar(claveGestion(f), {e.marca, f.codigoDocumento, f.numeroDocumento,
                                                     Auxiliar::dDate(f.fechaVto), f.cuenta,
                                                     textoPantalla(f.importe), f.concepto});
        fila->setTextAlignment(5, Qt::AlignRight | Qt::AlignVCenter);
    }
    ponerTexto(61, gestion_.total());
}

void frmApunte::GenerarLineasGestion() {
    gestion_.GenerarLineasGestion(lineas_, txt_[3]->text(), documento_.partida);
    TotalesAsiento();
}

void frmApunte::descargarSeleccion() {
    if (Formulario* dialogo = formularios::buscar(kSeleccion)) dialogo->descargar();
}
