#include "frmlogin.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/contrasenas.h"
#include "data/entidades/ejercicios.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"
#include "forms/campos.h"
#include "forms/geometria.h"
#include "forms/lista.h"
#include "forms/msgbox.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace {
const QString kSeccion = QStringLiteral("frmLogin");
}

frmLogin::frmLogin(QWidget* padre) : QDialog(padre) {
    setObjectName(kSeccion);
    setWindowTitle(QStringLiteral("Inicio de sesión"));
    setModal(true);
    auto* rejilla = new QGridLayout(this);

    const QString etiquetas[] = {QStringLiteral("Usuari&o:"), QStringLiteral("&Contraseña:")};
    textos_ = new EventosCampos(this);
    for (int i = 0; i < 2; ++i) {
        auto* etiqueta = new QLabel(etiquetas[i], this);
        auto* campo = new QLineEdit(this);
        campo->setObjectName(QStringLiteral("txt(%1)").arg(i));
        rotular(etiqueta, campo);
        rejilla->addWidget(etiqueta, i, 0);
        rejilla->addWidget(campo, i, 1, 1, 2);
        textos_->vigilar(campo, i);
        txt_ << campo;
    }
    txt_[1]->setEchoMode(QLineEdit::Password);

    auto* empresa = new QLabel(QStringLiteral("&Empresa/Delegación:"), this);
    cajas_ = new EventosCampos(this);
    for (int i = 0; i < 2; ++i) {
        auto* caja = new QComboBox(this);
        caja->setObjectName(QStringLiteral("cmb(%1)").arg(i));
        caja->setEditable(true);
        caja->setInsertPolicy(QComboBox::NoInsert);
        cajas_->vigilar(caja, i);
        rejilla->addWidget(caja, 2, 1 + i);
        cmb_ << caja;
    }
    rotular(empresa, cmb_[0]);
    cmb_[1]->setAccessibleName(QStringLiteral("Delegación"));
    rejilla->addWidget(empresa, 2, 0);

    lista_ = new ListaClaves(this);
    lista_->setObjectName(QStringLiteral("ListViewLogin"));
    lista_->setAccessibleName(QStringLiteral("Ejercicios"));
    lista_->columnas({QStringLiteral("Ejercicio"), QStringLiteral("Cerrado")}, {110, 90});
    rejilla->addWidget(lista_, 3, 0, 1, 3);

    motivo_ = new QLabel(this);
    motivo_->setObjectName(QStringLiteral("lblMotivo"));
    motivo_->setWordWrap(true);
    motivo_->setStyleSheet(QStringLiteral("color: #b00000;"));
    rejilla->addWidget(motivo_, 4, 0, 1, 3);

    auto* botones = new QDialogButtonBox(this);
    ok_ = botones->addButton(QStringLiteral("Aceptar"), QDialogButtonBox::AcceptRole);
    ok_->setObjectName(QStringLiteral("cmdOK"));
    cancelar_ = botones->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
    cancelar_->setObjectName(QStringLiteral("cmdCancel"));
    ok_->setEnabled(false);
    ok_->setDefault(true);
    rejilla->addWidget(botones, 5, 0, 1, 3);

    connect(ok_, &QPushButton::clicked, this, [this] { aceptar(); });
    connect(cancelar_, &QPushButton::clicked, this, [this] { cancelar(); });
    connect(lista_, &QTreeWidget::itemActivated, this, [this] {
        if (lista_->filas() > 0) aceptar();
    });
    textos_->manejadores({
        .foco = {},
        .validar = {},
        .salir = [this](int i) { alSalirTexto(i); },
        .cambio = [this](int) { alCambiarTexto(); },
        .dobleClic = {},
    });
    cajas_->manejadores({
        .foco =
            [this](int i) {
                // The branches always follow the company chosen. They are loaded again only
                // for another company: the focus also comes back here when the list closes,
                // before the branch picked in it is taken, and a new list would lose it.
                if (i != 1 || cmb_[0]->currentText() == empresaDelegaciones_) return;
                empresaDelegaciones_ = cmb_[0]->currentText();
                const QString texto = cmb_[1]->currentText();
                cajas_->silencio = true;
                cmb_[1]->clear();
                Protegido([&] {
                    cmb_[1]->addItems(CargarDelegaciones(*sesion_conexion, empresaDelegaciones_));
                });
                cmb_[1]->setEditText(texto);
                cajas_->silencio = false;
            },
        .validar = {},
        .salir = [this](int i) { alSalirCaja(i); },
        .cambio = {},
        .dobleClic = {},
    });

    Protegido([this] { cmb_[0]->addItems(CargarEmpresas(*sesion_conexion)); });
    cmb_[0]->setEditText(QString());
    resize(420, 330);
    if (const QScreen* pantalla = QGuiApplication::primaryScreen())
        move(pantalla->availableGeometry().center() - rect().center());
    geometria::restaurar(this, kSeccion);
    geometria::restaurarColumnas(lista_, kSeccion);
    txt_[0]->setFocus();
}

bool frmLogin::mantenimiento() const {
    return txt_[0]->text() == mantenimiento_usuario && txt_[1]->text() == mantenimiento_contrasena;
}

void frmLogin::alCambiarTexto() {
    lista_->limpiar();
    motivo_->clear();
    ok_->setEnabled(mantenimiento());
}

void frmLogin::alSalirTexto(int i) {
    txt_[i]->setText(txt_[i]->text().toUpper());
    if (!mantenimiento()) validar();
}

void frmLogin::alSalirCaja(int i) {
    cajas_->silencio = true;
    cmb_[i]->setEditText(cmb_[i]->currentText().toUpper());
    cajas_->silencio = false;
    validar();
}

void frmLogin::validar() {
    const QString empresa = cmb_[0]->currentText(), delegacion = cmb_[1]->currentText();
    const QString usuario = txt_[0]->text(), contrasena = txt_[1]->text();
    if (empresa.isEmpty() || delegacion.isEmpty() || usuario.isEmpty() || contrasena.isEmpty())
        return;
    try {
        if (!UsuariosDelegaciones::ValidarUsuario(*sesion_conexion, empresa, delegacion, usuario,
                                                  contrasena)) {
            motivo_->setText(motivoRechazo(empresa, delegacion, usuario, contrasena));
            return;
        }
        lista_->limpiar();
        Recordset ejercicios = Ejercicios::GetList(
            *sesion_conexion, QStringLiteral("codigo_empresa = ") + sqlTexto(empresa), {});
        if (ejercicios.eof()) {
            motivo_->setText(
                QStringLiteral("La empresa %1 no tiene ningún ejercicio.").arg(empresa));
            return;
        }
        motivo_->clear();
        for (; !ejercicios.eof(); ejercicios.moveNext()) {
            const QString ejercicio = NzTexto(ejercicios.value("ejercicio")).trimmed();
            lista_->agregar(QStringLiteral("K") + ejercicio,
                            {ejercicio, NzTexto(ejercicios.value("cerrado"))});
        }
        ok_->setEnabled(true);
        lista_->setCurrentItem(lista_->topLevelItem(0));
    } catch (const std::exception&) {
        // As at start-up, a store that fails here is reported by one message for all causes.
        MsgBox(QStringLiteral("Error al abrir la conexión."), Icono::Critico);
    }
}

// Why the four fields do not open a session, in the order a user would check them. The
// password is not told apart from the user: either may be the one mistyped.
QString frmLogin::motivoRechazo(const QString& empresa, const QString& delegacion,
                                const QString& usuario, const QString& contrasena) const {
    const auto hay = [](const QString& tabla, const QString& condicion) {
        return Auxiliar::vBuscarCampo(tabla, QStringLiteral("1"), condicion, QStringLiteral("#"))
                   .toString() != u"#";
    };
    const QString deEmpresa = QStringLiteral("codigo_empresa = ") + sqlTexto(empresa);
    const QString guardada =
        Auxiliar::vBuscarCampo(QStringLiteral("Usuarios"), QStringLiteral("contraseña"),
                               QStringLiteral("codigo_usuario = ") + sqlTexto(usuario), QString())
            .toString();
    if (!contrasenas::comprobar(guardada, contrasena))
        return QStringLiteral("Usuario o contraseña incorrectos.");
    if (!hay(QStringLiteral("Empresas"), deEmpresa))
        return QStringLiteral("No existe la empresa %1.").arg(empresa);
    if (!hay(QStringLiteral("Delegaciones"),
             deEmpresa + QStringLiteral(" AND codigo_delegacion = ") + sqlTexto(delegacion)))
        return QStringLiteral("La empresa %1 no tiene la delegación %2.").arg(empresa, delegacion);
    return QStringLiteral(
               "El usuario %1 no tiene acceso a la delegación %2 de la empresa %3 "
               "(Usuarios y permisos → Grupos de usuarios).")
        .arg(usuario, delegacion, empresa);
}

void frmLogin::aceptar() {
    sesion_usuario = txt_[0]->text();
    if (sesion_usuario != mantenimiento_usuario) {
        const bool cargada = Protegido([this] {
            const QTreeWidgetItem* fila = lista_->currentItem();
            const QString empresa = cmb_[0]->currentText();
            const int ejercicio = fila ? fila->text(0).toInt() : 0;
            const QVariant digitos =
                Auxiliar::vBuscarCampo(QStringLiteral("Empresas"), QStringLiteral("digitos"),
                                       QStringLiteral("codigo_empresa = ") + sqlTexto(empresa));
            Recordset datos = Ejercicios::GetList(
                *sesion_conexion,
                QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
                    QStringLiteral(" and ejercicio = ") + QString::number(ejercicio),
                {});
            sesion_empresa = empresa;
            sesion_delegacion = cmb_[1]->currentText();
            sesion_ejercicio = ejercicio;
            sesion_digitos = digitos.toInt();
            sesion_fecha_inicial = NzTexto(datos.eof() ? QVariant() : datos.value("fecha_inicial"));
            sesion_fecha_final = NzTexto(datos.eof() ? QVariant() : datos.value("fecha_final"));
            sesion_inicio_bloqueo =
                NzTexto(datos.eof() ? QVariant() : datos.value("inicio_bloqueo"));
            sesion_final_bloqueo = NzTexto(datos.eof() ? QVariant() : datos.value("final_bloqueo"));
        });
        if (!cargada) return;
    }
    login_aceptado = true;
    accept();
}

void frmLogin::cancelar() {
    login_aceptado = false;
    reject();
}

void frmLogin::done(int resultado) {
    if (resultado == QDialog::Rejected) login_aceptado = false;
    if (!isMinimized()) geometria::guardar(this, kSeccion);
    geometria::guardarColumnas(lista_, kSeccion);
    QDialog::done(resultado);
}
