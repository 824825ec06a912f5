#pragma once

#include "forms/formulario.h"

#include <QStringList>

class QTreeWidget;
class QTreeWidgetItem;

// The menu: a tree read from Menus, the only way to reach a function. The maintenance login
// sees the items marked for the administrator; any other user sees the active items less those
// its restrictions hide ("V"). Opening a leaf opens its form by name, or brings the open one
// forward, and switches off the toolbar buttons its restrictions deny.
class frmMenu : public Formulario {
    Q_OBJECT
public:
    frmMenu();

    QTreeWidget* TreeViewMenu() const { return arbol_; }
    // Opens the form of the item with that key, as a double click on it does.
    void abrirElemento(const QString& clave);

private:
    void leerMenu();
    void llenarArbol();
    void iconos(QTreeWidgetItem* actual, QTreeWidgetItem* anterior);

    QTreeWidget* arbol_;
    // Parallel arrays of the items read, one element per row of Menus.
    QStringList items_, padres_, descripciones_, formularios_, restricciones_;
};
