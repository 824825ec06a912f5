#pragma once

#include <QStringList>

// A company "EMP" with digits 8, its twin branch and the fiscal year of the current calendar
// year as provisioning makes them, a second branch "SUR", and the user ANA (password CLAVE)
// allowed in the twin branch only.
void crearEmpresaPrueba();
// Adds a user, allowed in the branches named (none: registered everywhere as not allowed).
void crearUsuario(const QString& codigo, const QString& contrasena,
                  const QStringList& delegaciones = {});
