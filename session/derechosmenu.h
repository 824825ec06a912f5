#pragma once

#include "data/almacen/conexion.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

// The rights of one user in one branch over the whole menu tree, as frmMenusUsuarios edits
// them: the active items in the order the tree adds them, and beside each its restriction
// letters. It knows which item is a folder and how a change made on one item spreads: a denial
// flows down the item's branch, a lifted one lifts the way up, and a folder left with nothing
// visible below it hides itself. It holds no window, so the rules are the same whoever drives
// them; it does not decide who may edit rights.
class DerechosMenu {
public:
    // A node of the tree: its item, the item it hangs from, what it shows and the form it opens.
    struct Nodo {
        QString item, padre, descripcion, formulario;
        bool hijos = false;  // some active item hangs from it
    };
    // One row of RestriccionesUsuariosMenus rewritten by a save: deleted, and written again with
    // `restricciones` when that is not empty.
    struct Cambio {
        QString item, restricciones;
        bool operator==(const Cambio&) const = default;
    };

    // Reads the active items of Menus. An item whose folder is not active has nowhere to hang
    // in the tree and is left out, as the menu leaves it out.
    void leerMenu(Conexion& conexion);
    const QList<Nodo>& nodos() const { return nodos_; }
    const QStringList& items() const { return items_; }
    const QStringList& restricciones() const { return restricciones_; }
    // The letters of one item; empty for an item the tree does not hold.
    QString restriccionesDe(const QString& item) const;

    // Forgets the letters held and reads those of the user in the company and branch, each at
    // its item's position; rows of items the tree does not hold are ignored.
    void cargar(Conexion& conexion, const QString& usuario, const QString& empresa,
                const QString& delegacion);

    // The letters of the five boxes "Visibilidad", "Inserción", "Edición", "Eliminación" and
    // "Listados": "V" alone when the first is ticked, else those of the others in that order.
    static QString textoDe(const std::array<bool, 5>& casillas);

    // Whether item `a` is item `b` or one of its folders, read from the codes alone.
    static bool EsAscendiente(const QString& a, const QString& b);
    // Whether any item after `clave` in the tree and within its branch is not hidden.
    bool TieneVisibles(const QString& clave) const;

    // The rows that giving `texto` to the item `seleccionado` rewrites, in the order they are
    // written. The letters held change as the rows do.
    QList<Cambio> validar(const QString& seleccionado, const QString& texto);

    // validar and its rows written for the user in the company and branch, with `ultimo_usuario`
    // as the stamp, in one transaction (the caller's when it holds one): either every row or,
    // on a failure, which is thrown, none, and the letters held stay as they were.
    void guardar(Conexion& conexion, const QString& usuario, const QString& empresa,
                 const QString& delegacion, const QString& seleccionado, const QString& texto,
                 const QString& ultimo_usuario);

private:
    QList<Nodo> nodos_;
    QStringList items_, restricciones_;
};
