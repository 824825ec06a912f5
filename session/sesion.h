#pragma once

#include "principal.h"

#include <functional>

class frmMain;
class frmMenu;

// The windows of a session: the login, the splash, the main window and its menu, the change of
// company without leaving the program and the two ways a run ends.

// The real windows for Main.
class VentanasPrograma : public VentanasSesion {
public:
    bool login() override;
    void mostrarPrincipal() override;
};

// The open main window and menu, if any.
frmMain* principal();
frmMenu* menu();

// Shows the login modally; true when it was accepted.
bool mostrarLogin();

// Unloads every form (the menu too), shows the login again and, when it is accepted, builds
// the menu for the new session and refills the status bar. Cancelled, the main window stays
// alone with its two buttons.
void CambiarSesion();

// The end of a run by Salir: at once, without unloading any window. Tests put their own in
// place.
void terminarProceso();
std::function<void()> establecerFinProceso(std::function<void()> fin);

// The main window is gone (closed through the window system).
void olvidarPrincipal();

// The forms of the session folder: users, their branches, the about box.
void registrarFormulariosSesion();
