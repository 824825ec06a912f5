#pragma once

#include <QString>
#include <functional>

class frmLogin;
class QTreeWidgetItem;

// Answers the next modal login: `accion` receives it once it shows.
void responderLogin(std::function<void(frmLogin&)> accion);
// Enters with the maintenance login.
void entrarComoMantenimiento(frmLogin& login);
// Enters as a user into a company and branch, the year proposed.
std::function<void(frmLogin&)> entrarComo(const QString& usuario, const QString& contrasena,
                                          const QString& empresa, const QString& delegacion);

// The menu's node of that text, or null.
QTreeWidgetItem* nodo(const QString& texto);
// A double click on the menu's node of that text.
void abrir(const QString& texto);
