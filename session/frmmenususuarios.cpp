#include "frmmenususuarios.h"

#include "data/global.h"
#include "forms/campos.h"
#include "forms/msgbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kRolHoja = Qt::UserRole + 1;
const QString kRaiz = QStringLiteral("000000000000");
// The letter each box denies, in the boxes' order.
constexpr char16_t kLetras[] = u"VIEBL";

}  // namespace

frmMenusUsuarios::frmMenusUsuarios()
    : Formulario(QStringLiteral("frmMenusUsuarios"), QStringLiteral("Menus/Usuarios")) {
    auto* rejilla = new QGridLayout(this);
    const auto caja = [&](const char* nombre, const char* rotulo, int fila) {
        auto* c = new QComboBox(this);
        c->setObjectName(QString::fromUtf8(nombre));
        c->setMinimumContentsLength(12);
        auto* etiqueta = new QLabel(QString::fromUtf8(rotulo), this);
        rotular(etiqueta, c);
        rejilla->addWidget(etiqueta, fila, 0);
        rejilla->addWidget(c, fila, 1, Qt::AlignLeft);
        return c;
    };
    empresas_ = caja("cmbEmpresas", "&Empresa:", 0);
    delegaciones_ = caja("cmbDelegaciones", "&Delegación:", 1);
    usuarios_ = caja("cmbUsuarios", "&Usuarios:", 2);

    arbol_ = new QTreeWidget(this);
    arbol_->setObjectName(QStringLiteral("TreeViewMenu"));
    arbol_->setHeaderHidden(true);
    // Long descriptions scroll sideways rather than lose their ends.
    arbol_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    arbol_->header()->setStretchLastSection(false);
    auto* etiquetaArbol = new QLabel(QStringLiteral("&Opció de menú"), this);
    rotular(etiquetaArbol, arbol_);
    rejilla->addWidget(etiquetaArbol, 3, 0, 1, 2);
    rejilla->addWidget(arbol_, 4, 0, 1, 2);

    auto* grupo = new QGroupBox(QStringLiteral("Denegar"), this);
    auto* columna = new QVBoxLayout(grupo);
    const char* rotulos[] = {"&Visibilidad", "&Inserción", "Edi&ción", "Eli&minación", "&Listados"};
    for (size_t i = 0; i < casillas_.size(); ++i) {
        casillas_[i] = new QCheckBox(QString::fromUtf8(rotulos[i]), grupo);
        casillas_[i]->setObjectName(QStringLiteral("chk_opcion(%1)").arg(i));
        columna->addWidget(casillas_[i]);
    }
    validar_ = new QPushButton(QStringLiteral("V&alidar"), this);
    validar_->setObjectName(QStringLiteral("cmdValidar"));
    validar_->setEnabled(false);
    auto* derecha = new QVBoxLayout;
    derecha->addWidget(grupo);
    derecha->addStretch();
    derecha->addWidget(validar_);
    rejilla->addLayout(derecha, 4, 2);
    rejilla->setRowStretch(4, 1);
    rejilla->setColumnStretch(1, 1);

    // Tab walks the form as it reads: who, the item, what is denied, and the button.
    QList<QWidget*> orden{empresas_, delegaciones_, usuarios_, arbol_};
    for (QCheckBox* c : casillas_) orden << c;
    orden << validar_;
    for (qsizetype i = 1; i < orden.size(); ++i) setTabOrder(orden[i - 1], orden[i]);

    connect(empresas_, &QComboBox::activated, this, &frmMenusUsuarios::elegirEmpresa);
    connect(delegaciones_, &QComboBox::activated, this, &frmMenusUsuarios::elegirDelegacion);
    connect(usuarios_, &QComboBox::activated, this, &frmMenusUsuarios::elegirUsuario);
    connect(arbol_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* actual, QTreeWidgetItem* anterior) {
                const auto icono = [this](QTreeWidgetItem* nodo, bool elegido) {
                    if (!nodo) return;
                    nodo->setIcon(0, style()->standardIcon(nodo->data(0, kRolHoja).toBool()
                                                               ? QStyle::SP_FileIcon
                                                           : elegido ? QStyle::SP_DirOpenIcon
                                                                     : QStyle::SP_DirClosedIcon));
                };
                icono(anterior, false);
                icono(actual, true);
                // Reached with Tab, the tree has an item under the cursor but none marked:
                // the one the boxes show is the one marked.
                if (actual && !actual->isSelected()) actual->setSelected(true);
                mostrarDerechos();
            });
    connect(casillas_[0], &QCheckBox::toggled, this, &frmMenusUsuarios::ocultar);
    connect(validar_, &QPushButton::clicked, this, &frmMenusUsuarios::validar);

    Protegido([this] {
        empresas_->addItems(CargarEmpresas(*sesion_conexion));
        derechos_.leerMenu(*sesion_conexion);
    });
    empresas_->setCurrentIndex(-1);
    llenarArbol();
    setFocusProxy(empresas_);
    tamanoInicial(600, 560);
}

void frmMenusUsuarios::llenarArbol() {
    QHash<QString, QTreeWidgetItem*> nodos;
    for (const DerechosMenu::Nodo& n : derechos_.nodos()) {
        QTreeWidgetItem* padre = nodos.value(n.padre);
        auto* nodo = padre ? new QTreeWidgetItem(padre) : new QTreeWidgetItem(arbol_);
        nodo->setText(0, n.descripcion);
        nodo->setData(0, Qt::UserRole, n.item);
        nodo->setData(0, kRolHoja, n.padre != kRaiz && !n.formulario.isEmpty());
        nodo->setIcon(
            0, style()->standardIcon(nodo->data(0, kRolHoja).toBool() ? QStyle::SP_FileIcon
                                                                      : QStyle::SP_DirClosedIcon));
        nodos.insert(n.item, nodo);
    }
    arbol_->expandAll();
}

void frmMenusUsuarios::elegirEmpresa(int) {
    Protegido([this] {
        delegaciones_->clear();
        usuarios_->clear();
        delegaciones_->addItems(CargarDelegaciones(*sesion_conexion, empresas_->currentText()));
        // The users offered are those of the first branch, so that one is the one shown.
        delegaciones_->setCurrentIndex(delegaciones_->count() > 0 ? 0 : -1);
        usuarios_->addItems(CargarUsuarios(*sesion_conexion, empresas_->currentText(),
                                           delegaciones_->currentText()));
        usuarios_->setCurrentIndex(-1);
    });
}

void frmMenusUsuarios::elegirDelegacion(int) {
    Protegido([this] {
        usuarios_->clear();
        usuarios_->addItems(CargarUsuarios(*sesion_conexion, empresas_->currentText(),
                                           delegaciones_->currentText()));
        usuarios_->setCurrentIndex(-1);
    });
}

void frmMenusUsuarios::elegirUsuario(int) {
    mostrarDerechos();
}

void frmMenusUsuarios::mostrarDerechos() {
    Protegido([this] {
        derechos_.cargar(*sesion_conexion, usuarios_->currentText(), empresas_->currentText(),
                         delegaciones_->currentText());
    });
    const QTreeWidgetItem* nodo = arbol_->currentItem();
    const QString texto =
        nodo ? derechos_.restriccionesDe(nodo->data(0, Qt::UserRole).toString()) : QString();
    // The first box last: when it is ticked it clears the others.
    for (size_t i = casillas_.size(); i-- > 0;)
        casillas_[i]->setChecked(texto.contains(QChar(kLetras[i])));
    validar_->setEnabled(true);
}

// Hidden is all there is to deny: the buttons of a form nobody can open do not matter.
void frmMenusUsuarios::ocultar(bool oculto) {
    for (size_t i = 1; i < casillas_.size(); ++i) {
        if (oculto) casillas_[i]->setChecked(false);
        casillas_[i]->setEnabled(!oculto);
    }
}

void frmMenusUsuarios::validar() {
    if (usuarios_->currentIndex() < 0 || usuarios_->currentText().isEmpty()) {
        MsgBox(QStringLiteral("No se ha especificado el usuario."), Icono::Exclamacion);
        usuarios_->setFocus();
        return;
    }
    const QTreeWidgetItem* nodo = arbol_->currentItem();
    if (!nodo) {
        MsgBox(QStringLiteral("No se ha especificado la opción de menú"), Icono::Exclamacion);
        arbol_->setFocus();
        return;
    }
    std::array<bool, 5> marcas{};
    for (size_t i = 0; i < marcas.size(); ++i) marcas[i] = casillas_[i]->isChecked();
    const bool hecho = Protegido([&] {
        derechos_.guardar(*sesion_conexion, usuarios_->currentText(), empresas_->currentText(),
                          delegaciones_->currentText(), nodo->data(0, Qt::UserRole).toString(),
                          DerechosMenu::textoDe(marcas), sesion_usuario);
    });
    if (!hecho) return;  // nothing was written; the button stays for another try
    // The next item is chosen in the tree, which enables the button again.
    if (validar_->hasFocus()) arbol_->setFocus();
    validar_->setEnabled(false);
}
