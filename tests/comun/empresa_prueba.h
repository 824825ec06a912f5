#pragma once

#include <QKeySequence>
#include <QStringList>

class FormularioMantenimiento;

// A company "EMP" with digits 8, its twin branch and the fiscal year of the current calendar
// year as provisioning makes them, a second branch "SUR", and the user ANA (password CLAVE)
// allowed in the twin branch only.
void crearEmpresaPrueba();
// Adds a user, allowed in the branches named (none: registered everywhere as not allowed).
void crearUsuario(const QString& codigo, const QString& contrasena,
                  const QStringList& delegaciones = {});

// The session of ANA in EMP's twin branch and the current year, digits 8.
void sesionEmp();
// Opens a form of the maintenance engine by name, active as for a user.
FormularioMantenimiento* abrirMantenimiento(const QString& nombre);
// "3=texto" pairs: fields typed and left with Tab, in that order.
void rellenar(FormularioMantenimiento* f, const QStringList& campos);

// Types the text into field `indice` and leaves it. With no `mensaje` nothing is said and the
// focus moves on; otherwise that message alone, critical, and the focus stays in the field.
void comprobarSalida(FormularioMantenimiento* f, int indice, const QString& texto,
                     const QString& mensaje);
// Presses a toolbar key where the focus is, answering Yes to a question: exactly `mensaje` is
// said and the table keeps its rows.
void comprobarRechazo(QKeySequence tecla, const QString& tabla, const QString& mensaje);
