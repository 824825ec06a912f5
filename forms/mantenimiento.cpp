#include "mantenimiento.h"

#include "barra.h"
#include "campos.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "lista.h"
#include "lupa.h"
#include "msgbox.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSet>
#include <QToolBar>
#include <QVBoxLayout>
#include <cmath>

namespace mantenimiento {

QString mayusculas(const QString& texto) {
    return texto.toUpper();
}

double leerDouble(const QString& texto) {
    const auto numero = formato::leerNumero(texto);
    if (!numero) throw Error(errores::kTiposNoCoinciden, QStringLiteral("No coinciden los tipos"));
    return *numero;
}

int leerEntero16(const QString& texto) {
    const double redondo = std::nearbyint(leerDouble(texto));  // halves to even
    if (redondo < -32768 || redondo > 32767)
        throw Error(errores::kDesbordamiento, QStringLiteral("Desbordamiento"));
    return int(redondo);
}

int leerEntero32(const QString& texto) {
    const double redondo = std::nearbyint(leerDouble(texto));
    if (redondo < -2147483648.0 || redondo > 2147483647.0)
        throw Error(errores::kDesbordamiento, QStringLiteral("Desbordamiento"));
    return int(redondo);
}

QString numeroSql(const QString& texto) {
    const double numero = leerDouble(texto);
    if (!std::isfinite(numero))
        throw Error(errores::kDesbordamiento, QStringLiteral("Desbordamiento"));
    return formato::textoDouble(numero);
}

QString textoCampo(const QVariant& valor, Tipo tipo) {
    const QVariant v = Nz(valor);
    switch (tipo) {
        case Tipo::Fecha:
            return Auxiliar::dDate(v.toString());
        case Tipo::Numero: {
            bool ok = false;
            const double numero = v.toDouble(&ok);
            return ok ? formato::textoDouble(numero).replace(u'.', u',') : v.toString();
        }
        case Tipo::Texto:
            break;
    }
    return v.toString();
}

}  // namespace mantenimiento

using namespace mantenimiento;

namespace {

// A field's text as the statement compares its column with it.
QString valorSql(const Campo& c, const QString& texto) {
    return c.tipo == Tipo::Numero  ? numeroSql(texto)
           : c.tipo == Tipo::Fecha ? sqlTexto(Auxiliar::sDate(texto))
                                   : sqlTexto(texto);
}

}  // namespace

FormularioMantenimiento::FormularioMantenimiento(Declaracion declaracion, QWidget* padre)
    : Formulario(declaracion.nombre, declaracion.titulo, padre), d_(std::move(declaracion)) {
    construir();
}

// A form going away checks no field: the focus leaves its fields as the widgets are torn down.
FormularioMantenimiento::~FormularioMantenimiento() {
    eventos_->silencio = true;
}

void FormularioMantenimiento::closeEvent(QCloseEvent* evento) {
    eventos_->silencio = true;
    Formulario::closeEvent(evento);
}

void FormularioMantenimiento::construir() {
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(4, 0, 4, 4);

    toolbar_ = new QToolBar(this);
    toolbar_->setObjectName(QStringLiteral("Toolbar") + d_.sufijo);
    MontarToolbar(toolbar_, this);
    columna->addWidget(toolbar_);

    auto* datos = new QFrame(this);
    datos->setObjectName(QStringLiteral("frmDatos"));
    datos->setFrameShape(QFrame::StyledPanel);
    auto* rejilla = new QGridLayout(datos);
    // Long declarations take two columns of label and field.
    const int porColumna =
        d_.campos.size() > 8 ? int(d_.campos.size() + 1) / 2 : int(d_.campos.size());
    const auto lugar = [&](int i) -> std::pair<int, int> {
        for (int f = 0; f < d_.filas.size(); ++f)
            if (const qsizetype k = d_.filas[f].indexOf(i); k >= 0) return {f, 2 * int(k)};
        return {i % porColumna, 2 * (i / porColumna)};
    };
    eventos_ = new EventosCampos(this);
    for (int i = 0; i < d_.campos.size(); ++i) {
        const Campo& c = d_.campos[i];
        auto* etiqueta = new QLabel(c.etiqueta, datos);
        etiqueta->setObjectName(QStringLiteral("lbl(%1)").arg(i));
        auto* campo = new QLineEdit(datos);
        campo->setObjectName(QStringLiteral("txt(%1)").arg(i));
        campo->setProperty("Tag", c.lupa);
        if (c.longitud > 0) campo->setMaxLength(c.longitud);
        if (c.ancho > 0)
            campo->setMaximumWidth(campo->fontMetrics().averageCharWidth() * (c.ancho + 2) + 12);
        rotular(etiqueta, campo);
        const auto [fila, par] = lugar(i);
        rejilla->addWidget(etiqueta, fila, par);
        if (c.verNombre || !c.unidad.isEmpty()) {
            auto* linea = new QHBoxLayout;
            linea->addWidget(campo);
            if (c.verNombre) {
                // The name of what the code stands for, read-only, beside the field.
                auto* nombre = new QLabel(datos);
                nombre->setObjectName(QStringLiteral("des(%1)").arg(i));
                nombre->setFrameShape(QFrame::StyledPanel);
                nombre->setAccessibleName(etiqueta->text().remove(u'&').remove(u':') +
                                          QStringLiteral(" (nombre)"));
                linea->addWidget(nombre, 1);
                des_.insert(i, nombre);
            }
            if (!c.unidad.isEmpty()) {
                linea->addWidget(new QLabel(c.unidad, datos));
                if (!c.verNombre) linea->addStretch(1);
            }
            rejilla->addLayout(linea, fila, par + 1);
        } else {
            rejilla->addWidget(campo, fila, par + 1, c.ancho > 0 ? Qt::AlignLeft : Qt::Alignment());
        }
        eventos_->vigilar(campo, i);
        txt_.append(campo);
        lbl_.append(etiqueta);
    }
    for (int par = 1; par < rejilla->columnCount(); par += 2) rejilla->setColumnStretch(par, 1);
    construirMarcas(rejilla, rejilla->rowCount(), rejilla->columnCount());
    columna->addWidget(datos);

    lista_ = new ListaClaves(this);
    lista_->setObjectName(QStringLiteral("ListView") + d_.sufijo);
    lista_->setAccessibleName(d_.titulo);
    QStringList titulos;
    QList<int> anchos;
    for (const Columna& c : d_.columnas) {
        titulos << c.titulo;
        anchos << c.ancho;
    }
    lista_->columnas(titulos, anchos);
    columna->addWidget(lista_, 1);
    guardarColumnasDe(lista_);
    // A double click on a row, or Enter on it, loads its record.
    connect(lista_, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* fila) { alElegirFila(fila); });

    eventos_->manejadores({
        .foco = [this](int i) { alFoco(i); },
        .validar = [this](int i) { return alValidar(i); },
        .salir = [this](int i) { alSalir(i); },
        .cambio = {},
        .dobleClic = [this](int i) { alDobleClic(i); },
    });

    const auto conectar = [this](const QString& clave, auto metodo) {
        connect(Boton(toolbar_, clave), &QAction::triggered, this, metodo);
    };
    conectar(claves::cancelar, [this] { LimpiarCampos(); });
    conectar(claves::insertar, [this] {
        if (validarDatos()) AltaRegistro();
    });
    conectar(claves::modificar, [this] {
        if (validarDatos()) ModificarRegistro();
    });
    conectar(claves::filtrar, [this] { Filtrar(); });
    if (d_.lupaEnBarra) conectar(claves::lupa, [this] { mostrarLupa(); });
    conectar(claves::borrar, [this] { BorrarRegistro(); });
    conectar(claves::listar, [this] { RefrescarLista(QString()); });
    DesactivarBotones(toolbar_, {claves::lupa, claves::imprimir});

    setFocusProxy(txt_.value(0));
    tamanoInicial(560, 420);
}

void FormularioMantenimiento::construirMarcas(QGridLayout* rejilla, int fila, int columnas) {
    if (d_.marcas.isEmpty()) return;
    auto* filaMarcas = new QHBoxLayout;
    QHash<int, QButtonGroup*> grupos;
    QHash<int, QGroupBox*> marcos;
    const mantenimiento::Marca* anterior = nullptr;
    for (const Marca& m : d_.marcas) {
        // A little room between one group of buttons and what follows it.
        if (anterior && (anterior->clase != m.clase || anterior->grupo != m.grupo))
            filaMarcas->addSpacing(16);
        QAbstractButton* boton = nullptr;
        QHBoxLayout* donde = filaMarcas;
        if (m.clase == Marca::Casilla) {
            auto* casilla = new QCheckBox(m.etiqueta, rejilla->parentWidget());
            casilla->setObjectName(QStringLiteral("chk(%1)").arg(chk_.size()));
            chk_.append(casilla);
            casillas_.append(&m);
            boton = casilla;
        } else {
            QWidget* padre = rejilla->parentWidget();
            if (d_.grupos.contains(m.grupo)) {
                QGroupBox*& marco = marcos[m.grupo];
                if (!marco) {
                    marco = new QGroupBox(d_.grupos.value(m.grupo), padre);
                    new QHBoxLayout(marco);
                    filaMarcas->addWidget(marco);
                }
                padre = marco;
                donde = static_cast<QHBoxLayout*>(marco->layout());
            }
            auto* opcion = new QRadioButton(m.etiqueta, padre);
            opcion->setObjectName(QStringLiteral("opt(%1)").arg(opt_.size()));
            QButtonGroup*& grupo = grupos[m.grupo];
            if (!grupo) {
                grupo = new QButtonGroup(this);
                if (!m.columna.isEmpty()) grupos_.append({m.columna, m.filtra, {}, {}});
            }
            grupo->addButton(opcion);
            if (!m.columna.isEmpty())
                for (Grupo& g : grupos_)
                    if (g.columna == m.columna) {
                        g.botones << opcion;
                        g.valores << m.si;
                    }
            opt_.append(opcion);
            boton = opcion;
        }
        QString nombre = m.etiqueta;
        boton->setAccessibleName(nombre.remove(u'&').remove(u':').trimmed());
        eventos_->avanzarConIntro(boton);
        connect(boton, &QAbstractButton::clicked, this, [this, boton] { alMarcar(boton); });
        donde->addWidget(boton);
        anterior = &m;
    }
    filaMarcas->addStretch(1);
    rejilla->addLayout(filaMarcas, fila, 1, 1, columnas - 1);
}

void FormularioMantenimiento::alMarcar(QAbstractButton*) {}

QString FormularioMantenimiento::faltaSesion() const {
    if (d_.requiereDelegacion && (sesion_empresa.isEmpty() || sesion_delegacion.isEmpty()))
        return QStringLiteral("No se ha especificado la empresa o delegación.");
    if (d_.alcance != Alcance::General && sesion_empresa.isEmpty())
        return QStringLiteral("No se ha especificado la empresa.");
    return {};
}

void FormularioMantenimiento::ponerTexto(int i, const QString& texto) {
    eventos_->silencio = true;
    txt_[i]->setText(texto);
    eventos_->silencio = false;
}

QStringList FormularioMantenimiento::valores() const {
    QStringList v;
    for (const QLineEdit* t : txt_) v << t->text();
    for (int i = 0; i < chk_.size(); ++i)
        if (!casillas_[i]->columna.isEmpty()) v << valorCasilla(i);
    for (const Grupo& g : grupos_) v << valorGrupo(g);
    return v;
}

QString FormularioMantenimiento::valorCasilla(int i) const {
    return chk_[i]->isChecked() ? casillas_[i]->si : casillas_[i]->no;
}

int FormularioMantenimiento::casillaPorColumna(const QString& columna) const {
    for (int i = 0; i < casillas_.size(); ++i)
        if (casillas_[i]->columna.compare(columna, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

QString FormularioMantenimiento::clave(const QStringList& fila) const {
    QStringList partes;
    for (int i = 0; i < d_.camposClave; ++i) partes << fila.value(columnaDeClave(i));
    // A separator no one types keeps "1","23" and "12","3" apart.
    return QStringLiteral("K") + partes.join(QChar(0x1F));
}

// The first column is the code; the other fields of a key are found by their table column.
int FormularioMantenimiento::columnaDeClave(int i) const {
    if (i == 0) return 0;
    for (int c = 0; c < d_.columnas.size(); ++c)
        if (d_.columnas[c].columna.compare(d_.campos[i].columna, Qt::CaseInsensitive) == 0)
            return c;
    return i;
}

const FormularioMantenimiento::Grupo* FormularioMantenimiento::grupoPorColumna(
    const QString& columna) const {
    for (const Grupo& g : grupos_)
        if (g.columna.compare(columna, Qt::CaseInsensitive) == 0) return &g;
    return nullptr;
}

QString FormularioMantenimiento::valorGrupo(const Grupo& g) const {
    for (int i = 0; i < g.botones.size(); ++i)
        if (g.botones[i]->isChecked()) return g.valores[i];
    return g.valores.value(g.valores.size() - 1);
}

void FormularioMantenimiento::ponerGrupo(const Grupo& g, const QString& valor) {
    const qsizetype i = g.valores.indexOf(valor);
    g.botones[i >= 0 ? i : g.botones.size() - 1]->setChecked(true);
}

int FormularioMantenimiento::indicePorColumna(const QString& columna) const {
    for (int i = 0; i < d_.campos.size(); ++i)
        if (d_.campos[i].columna.compare(columna, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

QString FormularioMantenimiento::condicionBase() const {
    switch (d_.alcance) {
        case Alcance::General:
            return {};
        case Alcance::Empresa:
            return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa);
        case Alcance::Ejercicio:
            return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                   QStringLiteral(" and ejercicio = ") + QString::number(sesion_ejercicio);
    }
    return {};
}

QString FormularioMantenimiento::condicionCodigo(const QString& codigo) const {
    QString condicion = condicionBase();
    for (int i = 0; i < d_.camposClave; ++i) {
        if (!condicion.isEmpty()) condicion += QStringLiteral(" and ");
        condicion += d_.campos[i].columna + QStringLiteral(" = ") +
                     valorSql(d_.campos[i], i == 0 ? codigo : txt_[i]->text());
    }
    return condicion;
}

bool FormularioMantenimiento::claveCompleta() const {
    for (int i = 0; i < d_.camposClave; ++i) {
        const QString texto = txt_[i]->text();
        if (texto.isEmpty() || (d_.campos[i].tipo == Tipo::Numero && !formato::leerNumero(texto)))
            return false;
    }
    return true;
}

bool FormularioMantenimiento::existe(const QString& codigo) const {
    return Auxiliar::vBuscarCampo(d_.tabla, d_.campos[0].columna, condicionCodigo(codigo),
                                  QStringLiteral("#"))
               .toString() != QStringLiteral("#");
}

// A box or button (i = -1) has no lookup, and sets lupa only where the form says so.
void FormularioMantenimiento::alFoco(int i) {
    if (i < 0 && !d_.marcasConLupa) return;
    activo_ = i;
    Boton(toolbar_, claves::lupa)
        ->setEnabled(i >= 0 && !txt_[i]->property("Tag").toString().isEmpty());
}

void FormularioMantenimiento::alDobleClic(int i) {
    activo_ = i;
    if (Boton(toolbar_, claves::lupa)->isEnabled()) mostrarLupa();
}

void FormularioMantenimiento::mostrarLupa() {
    Protegido([this] { MostrarLupa(this); });
}

void FormularioMantenimiento::normalizarCampo(int i) {
    const Campo& c = d_.campos[i];
    if (!c.normalizar || txt_[i]->text().isEmpty()) return;
    const QString normal = c.normalizar(txt_[i]->text());
    if (normal != txt_[i]->text()) ponerTexto(i, normal);
}

bool FormularioMantenimiento::alValidar(int i) {
    const Campo& c = d_.campos[i];
    normalizarCampo(i);
    const QString texto = txt_[i]->text();
    if (QLabel* nombre = des(i); nombre && texto.isEmpty()) nombre->clear();
    if (texto.isEmpty()) return true;
    if (c.nombre) {
        std::optional<QString> hallado;
        if (!Protegido([&] { hallado = c.nombre(texto); })) return false;
        if (!hallado) {
            MsgBox(MensajeError(c.sinNombre), Icono::Critico);
            return false;
        }
        if (QLabel* nombre = des(i)) nombre->setText(*hallado);
    }
    return pasaComprobacion(i);
}

bool FormularioMantenimiento::pasaComprobacion(int i) {
    const Campo& c = d_.campos[i];
    if (!c.comprobar) return true;
    QString mensaje;
    // A check that fails outright (a number beyond range) refuses the field like a message.
    if (!Protegido([&] { mensaje = c.comprobar(txt_[i]->text()); })) return false;
    if (mensaje.isEmpty()) return true;
    MsgBox(mensaje, Icono::Critico);
    return false;
}

void FormularioMantenimiento::alSalir(int i) {
    if (i < d_.camposClave && claveCompleta()) Protegido([this] { cargarCodigo(); });
}

void FormularioMantenimiento::cargarCodigo() {
    Recordset fila = d_.listar(condicionCodigo(txt_[0]->text()), QString());
    if (fila.eof()) return;
    for (int i = d_.camposClave; i < d_.campos.size(); ++i)
        if (!d_.campos[i].columna.isEmpty())
            ponerTexto(i, textoCampo(fila.value(d_.campos[i].columna), d_.campos[i].tipo));
    for (int i = 0; i < chk_.size(); ++i)
        if (!casillas_[i]->columna.isEmpty())
            chk_[i]->setChecked(NzTexto(fila.value(casillas_[i]->columna), casillas_[i]->no) ==
                                casillas_[i]->si);
    for (const Grupo& g : grupos_) ponerGrupo(g, NzTexto(fila.value(g.columna)));
}

void FormularioMantenimiento::alElegirFila(QTreeWidgetItem* fila) {
    for (int i = 0; i < d_.camposClave; ++i) ponerTexto(i, fila->text(columnaDeClave(i)));
    alSalir(0);
    txt_[0]->setFocus();
}

void FormularioMantenimiento::LimpiarCampos() {
    for (int i = 0; i < txt_.size(); ++i) ponerTexto(i, QString());
    for (QCheckBox* c : chk_) c->setChecked(false);
    QSet<QButtonGroup*> vistos;
    for (QRadioButton* o : opt_)
        if (!vistos.contains(o->group())) {
            vistos.insert(o->group());
            o->setChecked(true);
        }
    for (QLabel* nombre : std::as_const(des_)) nombre->clear();
    txt_[0]->setFocus();
}

bool FormularioMantenimiento::validarCampo(int i) {
    const Campo& c = d_.campos[i];
    if (!txt_[i]->text().isEmpty()) return true;
    if (c.obligatorio) {
        txt_[i]->setFocus();
        MsgBox(MensajeError(1000), Icono::Critico);
        return false;
    }
    if (!c.comprobarVacio || pasaComprobacion(i)) return true;
    txt_[i]->setFocus();
    return false;
}

bool FormularioMantenimiento::validarDatos() {
    for (int i = 0; i < d_.campos.size(); ++i)
        if (!validarCampo(i)) return false;
    // A toolbar key does not take the focus, so the field being typed was never left: its
    // check, and every other, runs again here before anything is written.
    for (int i = 0; i < d_.campos.size(); ++i) {
        if (!alValidar(i)) {
            txt_[i]->setFocus();
            return false;
        }
    }
    for (int i = 0; i < d_.campos.size(); ++i)
        if (d_.campos[i].ceroSiVacio && txt_[i]->text().isEmpty())
            ponerTexto(i, QStringLiteral("0"));
    return true;
}

QStringList FormularioMantenimiento::filaDesdeCampos() const {
    QStringList fila;
    for (const Columna& c : d_.columnas) {
        const int i = indicePorColumna(c.columna), k = casillaPorColumna(c.columna);
        const Grupo* g = grupoPorColumna(c.columna);
        fila << (i >= 0   ? txt_[i]->text()
                 : k >= 0 ? valorCasilla(k)
                 : g      ? valorGrupo(*g)
                          : QString());
    }
    return fila;
}

void FormularioMantenimiento::AltaRegistro() {
    const QString codigo = txt_[0]->text();
    if (!claveCompleta()) return;
    Protegido([&] {
        if (existe(codigo)) {
            MsgBox(MensajeError(d_.mensajeExiste), Icono::Critico);
            return;
        }
        d_.insertar(valores());
        const QStringList fila = filaDesdeCampos();
        lista_->agregar(clave(fila), fila);
        LimpiarCampos();
    });
}

void FormularioMantenimiento::ModificarRegistro() {
    const QString codigo = txt_[0]->text();
    if (!claveCompleta()) return;
    Protegido([&] {
        if (!existe(codigo)) {
            MsgBox(MensajeError(d_.mensajeFalta), Icono::Critico);
            return;
        }
        if (!puedeModificar(codigo)) return;
        d_.actualizar(valores());
        const QStringList fila = filaDesdeCampos();
        lista_->actualizar(clave(fila), fila);
        LimpiarCampos();
    });
}

bool FormularioMantenimiento::puedeBorrar(const QString&) {
    return true;
}

bool FormularioMantenimiento::puedeModificar(const QString&) {
    return true;
}

void FormularioMantenimiento::BorrarRegistro() {
    for (int i = 0; i < d_.camposClave; ++i) normalizarCampo(i);
    const QString codigo = txt_[0]->text();
    const bool hecho = !claveCompleta() || Protegido([&] {
        if (!puedeBorrar(codigo)) return;
        if (!existe(codigo)) {
            if (d_.mensajeBorrarFalta) MsgBox(MensajeError(d_.mensajeBorrarFalta), Icono::Critico);
            return;
        }
        const QStringList campos = valores();
        if (MsgBox(d_.preguntaCampos ? d_.preguntaCampos(campos) : d_.pregunta(codigo),
                   Icono::Pregunta) != Respuesta::Si)
            return;
        if (d_.borrarCampos)
            d_.borrarCampos(campos);
        else
            d_.borrar(codigo);
        const QString k = clave(filaDesdeCampos());
        if (lista_->contiene(k)) lista_->quitar(k);
    });
    // A failed delete keeps the fields, as every failed store operation does.
    if (hecho) LimpiarCampos();
}

void FormularioMantenimiento::Filtrar() {
    QString condicion = condicionBase();
    // A number field holding no number stops the filter with the bad number's message, as it
    // stops a save; the list stays as it was.
    const bool legible = Protegido([&] {
        for (int i = 0; i < d_.campos.size(); ++i) {
            normalizarCampo(i);
            const QString texto = txt_[i]->text();
            const Campo& c = d_.campos[i];
            if (texto.isEmpty() || c.columna.isEmpty() || !c.filtra) continue;
            if (!condicion.isEmpty()) condicion += QStringLiteral(" and ");
            condicion += c.columna + QStringLiteral(" = ") + valorSql(c, texto);
        }
    });
    if (!legible) return;
    for (const Grupo& g : grupos_) {
        if (!g.filtra) continue;
        if (!condicion.isEmpty()) condicion += QStringLiteral(" and ");
        condicion += g.columna + QStringLiteral(" = ") + sqlTexto(valorGrupo(g));
    }
    RefrescarLista(condicion);
}

void FormularioMantenimiento::RefrescarLista(const QString& condicion) {
    Protegido([&] {
        lista_->limpiar();
        Recordset filas = d_.listar(condicion.isEmpty() ? condicionBase() : condicion, d_.orden);
        for (; !filas.eof(); filas.moveNext()) {
            QStringList textos;
            for (const Columna& c : d_.columnas) {
                const int k = casillaPorColumna(c.columna);
                const QVariant valor = filas.value(c.columna);
                if (k >= 0)
                    textos << NzTexto(valor, casillas_[k]->no);
                else if (!c.patron.isEmpty() && !Nz(valor).toString().isEmpty())
                    textos << formato::Format(Nz(valor).toDouble(), c.patron);
                else
                    textos << textoCampo(valor, c.tipo);
            }
            lista_->agregar(clave(textos), textos);
        }
    });
}
