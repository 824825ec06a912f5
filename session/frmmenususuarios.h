#pragma once

#include "derechosmenu.h"
#include "forms/formulario.h"

#include <array>

class QCheckBox;
class QComboBox;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// "Menus/Usuarios": what a user may not do in one branch, item by item of the whole menu. The
// five boxes show the letters of the item selected; cmdValidar gives the boxes' letters to it
// and spreads them over the tree (DerechosMenu), all rows in one transaction. The user must be
// active in the branch to be offered. The change shows at that user's next login.
class frmMenusUsuarios : public Formulario {
    Q_OBJECT
public:
    frmMenusUsuarios();

    QComboBox* cmbEmpresas() const { return empresas_; }
    QComboBox* cmbDelegaciones() const { return delegaciones_; }
    QComboBox* cmbUsuarios() const { return usuarios_; }
    QTreeWidget* TreeViewMenu() const { return arbol_; }
    QCheckBox* chk_opcion(int i) const { return casillas_[size_t(i)]; }
    QPushButton* cmdValidar() const { return validar_; }
    const DerechosMenu& derechos() const { return derechos_; }

    // What a click on the boxes does: the company's branches and the users of the first one,
    // the branch's users, the user's rights.
    void elegirEmpresa(int indice);
    void elegirDelegacion(int indice);
    void elegirUsuario(int indice);
    // Saves the boxes' letters for the item selected, as the button does.
    void validar();

private:
    void llenarArbol();
    // Reads the chosen user's rights and shows those of the item selected.
    void mostrarDerechos();
    void ocultar(bool oculto);

    QComboBox* empresas_;
    QComboBox* delegaciones_;
    QComboBox* usuarios_;
    QTreeWidget* arbol_;
    std::array<QCheckBox*, 5> casillas_{};
    QPushButton* validar_;
    DerechosMenu derechos_;
};
