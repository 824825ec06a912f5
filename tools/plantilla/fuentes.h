#pragma once

#include "data/entidades/entidad.h"

#include <QList>
#include <QString>

// The text sources of the template store, read and checked. Each row holds the values of its
// table's columns in the schema's order.
//
//   sysMenus.txt         item_menu item_padre administrador formulario descripción…
//                        (blank-separated; "-" for a folder's empty form)
//   sysPlanContable.txt  cuenta título…  (the level is the number of digits)
//   sysSituacion.txt     ap|nivel_1|nivel_2|nivel_3|título|cuentas
//   sysPergan.txt        dh|nivel_1|nivel_2|nivel_3|nivel_4|título|cuentas
// Lines starting with "#" and blank lines are comments.
struct Plantilla {
    QList<entidad::Valores> menus, plan, situacion, pergan;
};

// Throws Error naming the file and line of the first row that breaks a rule: menu codes of 12
// digits in ascending order, each parent before its children and matching the code's own
// hierarchy, folders without a form; accounts of digits only, each once.
Plantilla leerPlantilla(const QString& carpeta);
