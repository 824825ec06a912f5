#include "forminforme.h"

#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/campos.h"
#include "forms/lupa.h"
#include "forms/msgbox.h"
#include "informes.h"

#include <QAction>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QToolBar>
#include <QVBoxLayout>

FormularioInforme::FormularioInforme(const QString& nombre, const QString& titulo,
                                     const QList<CampoInforme>& campos)
    : Formulario(nombre, titulo), campos_(campos) {
    eventos_ = new EventosCampos(this);
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(4, 0, 4, 4);
    toolbar_ = new QToolBar(this);
    toolbar_->setObjectName(QStringLiteral("Toolbar"));
    MontarToolbar(toolbar_, this);
    columna->addWidget(toolbar_);
    DesactivarBotones(toolbar_, {claves::insertar, claves::modificar, claves::filtrar,
                                 claves::borrar, claves::listar});
    connect(Boton(toolbar_, claves::cancelar), &QAction::triggered, this, [this] { cancelar(); });
    connect(Boton(toolbar_, claves::lupa), &QAction::triggered, this,
            [this] { Protegido([this] { MostrarLupa(this); }); });
    connect(Boton(toolbar_, claves::imprimir), &QAction::triggered, this, [this] { imprimir(); });

    fraDatos_ = new QGroupBox(this);
    fraDatos_->setObjectName(QStringLiteral("fraDatos"));
    rejilla_ = new QGridLayout(fraDatos_);
    int fila = -1, col = 0;
    QString anterior;
    for (const CampoInforme& c : campos_) {
        auto* t = new QLineEdit(fraDatos_);
        t->setObjectName(QStringLiteral("txt(%1)").arg(c.indice));
        if (!c.tag.isEmpty()) t->setProperty("Tag", c.tag);
        t->setMaximumWidth(t->fontMetrics().averageCharWidth() * (c.ancho + 2) + 12);
        txt_.insert(c.indice, t);
        eventos_->vigilar(t, c.indice);
        if (!c.mismaLinea || fila < 0) {
            ++fila;
            col = 0;
        }
        if (c.etiqueta.isEmpty()) {
            // The second field of a pair under one caption takes the caption's name.
            t->setAccessibleName(anterior);
            ++col;
        } else {
            auto* etiqueta = new QLabel(c.etiqueta, fraDatos_);
            rotular(etiqueta, t);
            anterior = t->accessibleName();
            rejilla_->addWidget(etiqueta, fila, col++);
        }
        if (c.limite != CampoInforme::Limite::Ninguno) {
            const bool desde = c.limite == CampoInforme::Limite::Desde;
            if (!c.nombre.isEmpty()) anterior = c.nombre;
            const QString cual = desde ? QStringLiteral("desde") : QStringLiteral("hasta");
            t->setAccessibleName((c.nombre.isEmpty() ? t->accessibleName() : c.nombre) + u' ' +
                                 cual);
            t->setPlaceholderText(cual);
        }
        rejilla_->addWidget(t, fila, col++);
        if (c.clase == CampoInforme::Clase::Delegacion && sesion_delegacion != sesion_empresa) {
            t->setText(sesion_delegacion);
            t->setEnabled(false);
        }
    }
    rejilla_->setColumnStretch(rejilla_->columnCount(), 1);
    columna->addWidget(fraDatos_);
    barraInformes_ = new QProgressBar(this);
    barraInformes_->setObjectName(QStringLiteral("barraInformes"));
    barraInformes_->setTextVisible(false);
    barraInformes_->setMaximumHeight(12);
    columna->addWidget(barraInformes_);
    columna->addStretch(1);
    informe_ = new ControlInforme(this);

    eventos_->manejadores({
        .foco = {},
        .validar = [this](int i) { return validar(i); },
        .salir = [this](int i) { salir(i); },
        .cambio = {},
        .dobleClic = [this](int) { Protegido([this] { MostrarLupa(this); }); },
    });
    for (const CampoInforme& c : campos_)
        if (txt_[c.indice]->isEnabled()) {
            setFocusProxy(txt_[c.indice]);
            break;
        }
}

QString FormularioInforme::faltaSesion() const {
    if (sesion_empresa.isEmpty() || sesion_delegacion.isEmpty() || sesion_ejercicio == 0)
        return MensajeError(1040);
    return {};
}

int FormularioInforme::filas() const {
    return rejilla_->rowCount();
}

QString FormularioInforme::texto(int i) const {
    return txt_.value(i)->text();
}

const CampoInforme* FormularioInforme::campo(int i) const {
    for (const CampoInforme& c : campos_)
        if (c.indice == i) return &c;
    return nullptr;
}

namespace {
bool esFecha(const CampoInforme& c) {
    return c.clase == CampoInforme::Clase::Fecha || c.clase == CampoInforme::Clase::FechaEjercicio;
}
}  // namespace

bool FormularioInforme::validar(int i) {
    const CampoInforme* c = campo(i);
    if (!c || !esFecha(*c)) {
        // A form's check reads the store: its failure is shown and refuses the field, instead
        // of leaving the field's event unhandled.
        bool valido = false;
        return Protegido([&] { valido = comprobar(i); }) && valido;
    }
    const QString t = txt_[i]->text();
    if (t.isEmpty()) return true;
    const auto fecha = formato::leerFecha(t);
    if (!fecha) {
        MsgBox(MensajeError(1004), Icono::Critico);
        return false;
    }
    const QString f = fecha->toString(QStringLiteral("yyyyMMdd"));
    if (c->clase == CampoInforme::Clase::FechaEjercicio &&
        (f < sesion_fecha_inicial || f > sesion_fecha_final)) {
        MsgBox(MensajeError(1027), Icono::Critico);
        return false;
    }
    return true;
}

void FormularioInforme::salir(int i) {
    const CampoInforme* c = campo(i);
    if (c && c->clase == CampoInforme::Clase::Cuenta && !txt_[i]->text().isEmpty()) {
        eventos_->silencio = true;
        txt_[i]->setText(ExpandirCuenta(txt_[i]->text(), sesion_digitos));
        eventos_->silencio = false;
    }
}

void FormularioInforme::cancelar() {
    eventos_->silencio = true;
    for (const CampoInforme& c : campos_)
        if (txt_[c.indice]->isEnabled()) txt_[c.indice]->clear();
    eventos_->silencio = false;
    barraInformes_->setMinimum(0);
    barraInformes_->setValue(0);
    if (QWidget* primero = focusProxy()) primero->setFocus();
}

bool FormularioInforme::criteriosValidos() {
    // A toolbar button takes no focus, so a date typed and not left yet is checked here.
    for (const CampoInforme& c : campos_) {
        if (esFecha(c) && !validar(c.indice)) {
            txt_[c.indice]->setFocus();
            return false;
        }
        if (c.clase == CampoInforme::Clase::Cuenta && txt_[c.indice]->hasFocus()) salir(c.indice);
    }
    return true;
}

void FormularioInforme::imprimir() {
    if (criteriosValidos()) Protegido([this] { ejecutar(); });
}

void FormularioInforme::avanzar(qint64 hecho, qint64 total) {
    if (hecho == 0) {
        barraInformes_->setMinimum(0);
        barraInformes_->setValue(0);
        barraInformes_->setMaximum(int(qMin<qint64>(total, INT_MAX)));
        ultimoPaso_ = 0;
        return;
    }
    const int paso = total > 0 ? int(200 * hecho / total) : 0;
    if (paso == ultimoPaso_ && hecho != total) return;
    ultimoPaso_ = paso;
    barraInformes_->setValue(int(qMin<qint64>(hecho, INT_MAX)));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void FormularioInforme::imprimirTabla(const QString& archivo, const QString& titulo,
                                      const QStringList& formulas, const QString& consulta) {
    Informes informe;
    informe.Init(sesion_conexion->textoConexion(), 1, informe_);
    informe.Configure(archivo, titulo, 1);
    informe.rptFormulas(formulas);
    informe.obj()->SQLQuery = consulta;
    informe.Execute();
}
