#include "frmusuariosdelegaciones.h"

#include "data/almacen/sql.h"
#include "data/entidades/usuariosdelegaciones.h"
#include "data/global.h"
#include "forms/campos.h"
#include "forms/msgbox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Enter on a list moves its selected user, as a double click does. Reached from the keyboard,
// a list selects its current user, so that Enter has one to move.
class ListaUsuarios : public QListWidget {
public:
    using QListWidget::QListWidget;
    std::function<void()> alElegir;

protected:
    void focusInEvent(QFocusEvent* evento) override {
        QListWidget::focusInEvent(evento);
        const auto razon = evento->reason();
        if ((razon == Qt::TabFocusReason || razon == Qt::BacktabFocusReason ||
             razon == Qt::ShortcutFocusReason) &&
            count() > 0 && selectedItems().isEmpty())
            setCurrentRow(qMax(currentRow(), 0), QItemSelectionModel::ClearAndSelect);
    }
    void keyPressEvent(QKeyEvent* evento) override {
        if ((evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) && alElegir)
            return alElegir();
        QListWidget::keyPressEvent(evento);
    }
};

}  // namespace

frmUsuariosDelegaciones::frmUsuariosDelegaciones()
    : Formulario(QStringLiteral("frmUsuariosDelegaciones"), QStringLiteral("Grupos de usuarios")) {
    auto* rejilla = new QGridLayout(this);
    empresas_ = new QComboBox(this);
    empresas_->setObjectName(QStringLiteral("cmbEmpresas"));
    delegaciones_ = new QComboBox(this);
    delegaciones_->setObjectName(QStringLiteral("cmbDelegaciones"));
    auto* etiquetaEmpresa = new QLabel(QStringLiteral("&Empresa:"), this);
    auto* etiquetaDelegacion = new QLabel(QStringLiteral("&Delegación:"), this);
    rotular(etiquetaEmpresa, empresas_);
    rotular(etiquetaDelegacion, delegaciones_);
    rejilla->addWidget(etiquetaEmpresa, 0, 0);
    rejilla->addWidget(empresas_, 0, 1);
    rejilla->addWidget(etiquetaDelegacion, 1, 0);
    rejilla->addWidget(delegaciones_, 1, 1);

    auto* disponibles = new ListaUsuarios(this);
    auto* permitidos = new ListaUsuarios(this);
    disponibles_ = disponibles;
    permitidos_ = permitidos;
    disponibles_->setObjectName(QStringLiteral("lstDisponibles"));
    permitidos_->setObjectName(QStringLiteral("lstPermitidos"));
    auto* etiquetaDisponibles = new QLabel(QStringLiteral("Usuarios &sin acceso"), this);
    auto* etiquetaPermitidos = new QLabel(QStringLiteral("Usuarios con &acceso"), this);
    rotular(etiquetaDisponibles, disponibles_);
    rotular(etiquetaPermitidos, permitidos_);
    rejilla->addWidget(etiquetaDisponibles, 2, 0);
    rejilla->addWidget(etiquetaPermitidos, 2, 2);
    rejilla->addWidget(disponibles_, 3, 0, 1, 2);
    rejilla->addWidget(permitidos_, 3, 2);

    auto* botones = new QVBoxLayout;
    QList<QWidget*> orden{disponibles_};
    const auto boton = [&](const char* nombre, const char* texto, const char* ayuda, auto accion) {
        auto* b = new QPushButton(QString::fromUtf8(texto), this);
        b->setObjectName(QString::fromUtf8(nombre));
        b->setAccessibleName(QString::fromUtf8(ayuda));
        b->setToolTip(QString::fromUtf8(ayuda));
        connect(b, &QPushButton::clicked, this, accion);
        b->setFocusPolicy(Qt::StrongFocus);
        botones->addWidget(b);
        orden << b;
    };
    botones->addStretch();
    boton("btnAñadir", ">", "Dar acceso al usuario", [this] { anadir(); });
    boton("btnAñadirTodos", ">>", "Dar acceso a todos", [this] { anadirTodos(); });
    boton("btnDescartar", "<", "Quitar el acceso al usuario", [this] { descartar(); });
    boton("btnDescartarTodos", "<<", "Quitar el acceso a todos", [this] { descartarTodos(); });
    botones->addStretch();
    rejilla->addLayout(botones, 3, 1, Qt::AlignCenter);
    rejilla->removeWidget(disponibles_);
    rejilla->addWidget(disponibles_, 3, 0);
    rejilla->setColumnStretch(0, 1);
    rejilla->setColumnStretch(2, 1);
    // Tab walks the screen as it reads: the users without access, the buttons that move them,
    // the users with access.
    orden << permitidos_;
    for (int i = 1; i < orden.size(); ++i) setTabOrder(orden[i - 1], orden[i]);

    disponibles->alElegir = [this] { anadir(); };
    permitidos->alElegir = [this] { descartar(); };
    connect(disponibles_, &QListWidget::itemDoubleClicked, this, [this] { anadir(); });
    connect(permitidos_, &QListWidget::itemDoubleClicked, this, [this] { descartar(); });
    connect(empresas_, &QComboBox::activated, this, &frmUsuariosDelegaciones::elegirEmpresa);
    connect(delegaciones_, &QComboBox::activated, this, &frmUsuariosDelegaciones::elegirDelegacion);

    Protegido([this] { empresas_->addItems(CargarEmpresas(*sesion_conexion)); });
    empresas_->setCurrentIndex(-1);
    setFocusProxy(empresas_);
    tamanoInicial(520, 380);
}

void frmUsuariosDelegaciones::elegirEmpresa(int) {
    Protegido([this] {
        delegaciones_->clear();
        disponibles_->clear();
        permitidos_->clear();
        delegaciones_->addItems(CargarDelegaciones(*sesion_conexion, empresas_->currentText()));
        delegaciones_->setCurrentIndex(-1);
    });
}

void frmUsuariosDelegaciones::elegirDelegacion(int) {
    Protegido([this] {
        disponibles_->clear();
        permitidos_->clear();
        Recordset filas = UsuariosDelegaciones::GetList(
            *sesion_conexion,
            QStringLiteral("codigo_empresa = ") + sqlTexto(empresas_->currentText()) +
                QStringLiteral(" AND codigo_delegacion = ") +
                sqlTexto(delegaciones_->currentText()),
            {});
        for (; !filas.eof(); filas.moveNext()) {
            const QString usuario = NzTexto(filas.value("codigo_usuario"));
            (filas.value("activo").toInt() != 0 ? permitidos_ : disponibles_)->addItem(usuario);
        }
    });
}

void frmUsuariosDelegaciones::mover(QListWidget* origen, QListWidget* destino, int activo) {
    QListWidgetItem* elegido = origen->currentItem();
    if (!elegido || !elegido->isSelected()) return;
    const QString usuario = elegido->text();
    const bool hecho = Protegido([&] {
        UsuariosDelegaciones::Update(*sesion_conexion, usuario, empresas_->currentText(),
                                     delegaciones_->currentText(), activo, sesion_usuario);
    });
    if (!hecho) return;
    delete origen->takeItem(origen->row(elegido));
    destino->addItem(usuario);
}

void frmUsuariosDelegaciones::moverTodos(QListWidget* origen, QListWidget* destino, int activo) {
    while (origen->count() > 0) {
        origen->setCurrentRow(0);
        const int antes = origen->count();
        mover(origen, destino, activo);
        if (origen->count() == antes) return;  // a failed write stops the rest
    }
}
