#pragma once

#include "forms/formulario.h"

class QComboBox;
class QListWidget;
class QPushButton;

// "Grupos de usuarios": which users may enter a branch, moved between the list of users without
// access and the list of those with it. Every move is written at once; there is no save.
class frmUsuariosDelegaciones : public Formulario {
    Q_OBJECT
public:
    frmUsuariosDelegaciones();

    QComboBox* cmbEmpresas() const { return empresas_; }
    QComboBox* cmbDelegaciones() const { return delegaciones_; }
    QListWidget* lstDisponibles() const { return disponibles_; }
    QListWidget* lstPermitidos() const { return permitidos_; }

    // The moves of the four buttons.
    void anadir() { mover(disponibles_, permitidos_, -1); }
    void descartar() { mover(permitidos_, disponibles_, 0); }
    void anadirTodos() { moverTodos(disponibles_, permitidos_, -1); }
    void descartarTodos() { moverTodos(permitidos_, disponibles_, 0); }

    // What a click on the boxes does: the company's branches, the branch's users.
    void elegirEmpresa(int indice);
    void elegirDelegacion(int indice);

private:
    void mover(QListWidget* origen, QListWidget* destino, int activo);
    void moverTodos(QListWidget* origen, QListWidget* destino, int activo);

    QComboBox* empresas_;
    QComboBox* delegaciones_;
    QListWidget* disponibles_;
    QListWidget* permitidos_;
};
