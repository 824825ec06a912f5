#include "frmmenu.h"

#include "data/entidades/menus.h"
#include "data/global.h"
#include "data/seguridad.h"
#include "forms/formularios.h"
#include "forms/msgbox.h"
#include "forms/restricciones.h"

#include <QHash>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr int kRolHoja = Qt::UserRole + 1;
const QString kRaiz = QStringLiteral("000000000000");
}  // namespace

frmMenu::frmMenu() : Formulario(QStringLiteral("frmMenu"), QStringLiteral("Menú")) {
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    arbol_ = new QTreeWidget(this);
    arbol_->setObjectName(QStringLiteral("TreeViewMenu"));
    arbol_->setAccessibleName(QStringLiteral("Menú"));
    arbol_->setHeaderHidden(true);
    columna->addWidget(arbol_);
    setFocusProxy(arbol_);
    noGuardarGeometria();

    connect(arbol_, &QTreeWidget::currentItemChanged, this, &frmMenu::iconos);
    // A double click or Enter on a leaf opens its form; on a folder it only toggles.
    connect(arbol_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* nodo) {
        if (nodo) abrirElemento(nodo->data(0, Qt::UserRole).toString());
    });
    leerMenu();
    llenarArbol();
}

void frmMenu::leerMenu() {
    const bool mantenimiento = sesion_usuario == mantenimiento_usuario;
    Recordset filas = Menus::GetList(
        *sesion_conexion,
        mantenimiento ? QStringLiteral("administrador <> 0") : QStringLiteral("activo <> 0"),
        QStringLiteral("item_menu"));
    for (; !filas.eof(); filas.moveNext()) {
        items_ << NzTexto(filas.value("item_menu"));
        padres_ << NzTexto(filas.value("item_padre"));
        descripciones_ << NzTexto(filas.value("descripcion"));
        formularios_ << NzTexto(filas.value("formulario"));
        restricciones_ << QString();
    }
    if (!mantenimiento)
        CargarRestricciones(*sesion_conexion, sesion_empresa, sesion_delegacion, sesion_usuario,
                            items_, restricciones_);
}

void frmMenu::llenarArbol() {
    QHash<QString, QTreeWidgetItem*> nodos;
    for (int i = 0; i < items_.size(); ++i) {
        if (sesion_usuario != QStringLiteral("Responsables") && restricciones_[i].contains(u'V'))
            continue;
        QTreeWidgetItem* nodo = nullptr;
        if (padres_[i] == kRaiz) {
            nodo = new QTreeWidgetItem(arbol_);
        } else if (QTreeWidgetItem* padre = nodos.value(padres_[i])) {
            nodo = new QTreeWidgetItem(padre);
        } else {
            continue;  // its folder is hidden, so is the item
        }
        nodo->setText(0, descripciones_[i]);
        nodo->setData(0, Qt::UserRole, items_[i]);
        nodo->setData(0, kRolHoja, padres_[i] != kRaiz && !formularios_[i].isEmpty());
        nodos.insert(items_[i], nodo);
        iconos(nullptr, nodo);
    }
    // Open at start: the whole menu is one glance and one arrow key away.
    arbol_->expandAll();
    if (arbol_->topLevelItemCount() > 0) arbol_->setCurrentItem(arbol_->topLevelItem(0));
}

// A folder shows itself closed, and open while selected; a leaf shows a document.
void frmMenu::iconos(QTreeWidgetItem* actual, QTreeWidgetItem* anterior) {
    const auto poner = [this](QTreeWidgetItem* nodo, bool seleccionado) {
        if (!nodo) return;
        const bool hoja = nodo->data(0, kRolHoja).toBool();
        nodo->setIcon(0, style()->standardIcon(hoja           ? QStyle::SP_FileIcon
                                               : seleccionado ? QStyle::SP_DirOpenIcon
                                                              : QStyle::SP_DirClosedIcon));
    };
    poner(anterior, false);
    poner(actual, true);
}

void frmMenu::abrirElemento(const QString& clave) {
    const int i = BuscarEnArray(items_, clave);
    if (i <= 0 || formularios_[i - 1].isEmpty()) return;
    const QString nombre = formularios_[i - 1];
    Formulario* formulario = formularios::abrir(nombre);
    if (!formulario) return;
    // When two items name one form, the first one's restrictions apply.
    const int primero = BuscarEnArray(formularios_, nombre);
    Protegido([&] { AplicarRestricciones(formulario, restricciones_.value(primero - 1)); });
}
