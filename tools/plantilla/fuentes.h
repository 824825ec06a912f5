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

// Writes the template store file `salida` (SQLite) with the rows read, whole or not at all:
// it is built beside the target and renamed at the end.
void escribirPlantilla(const Plantilla& plantilla, const QString& salida);

// What keeps the two statements whole, one line per fault (empty when they are right):
// - every account a company can post to in groups 1 to 7 (each four-digit extension of a
//   three-digit account, and each four-digit account of the chart) reached by exactly one
//   balance sheet token, or by a "?" token on each side and nothing else;
// - every such account of groups 6 and 7 by exactly one profit and loss token, and none of
//   groups 1 to 5 by any;
// - every token naming accounts of the chart;
// - the signs: "(…)" on the assets side only on lines of such tokens alone (deductions,
//   printed in parentheses and subtracted); "?" on the other side only on lines of "?" tokens
//   alone; on the profit and loss account, debit lines of plain prefixes, credit lines of
//   "(…)" tokens, no "?".
QStringList problemasDeLosEstados(const Plantilla& plantilla);

// The accounts a company can post to, by their first four digits: the ten extensions of each
// three-digit account of the chart and its four-digit accounts.
QStringList cuentasDePase(const QList<entidad::Valores>& plan);
