#pragma once

// The program's entry point and the order in which a run starts. The windows of a session
// (login, splash, main window and menu) are given by the caller, so that the start-up can be
// run, and tested, with or without them.
class VentanasSesion {
public:
    virtual ~VentanasSesion() = default;
    // Shows the login modally; false when it was cancelled.
    virtual bool login() = 0;
    // Loads and shows the main window and the menu (splash while they load).
    virtual void mostrarPrincipal() = 0;
};

// Runs the start-up: the maintenance constants, the main and temporary stores, the first copy
// of the menu, then the login and the main window. Any failure before the windows shows
// "Error al abrir la conexión." once and gives a non-zero exit code; a cancelled login ends
// the run without a word. Gives 0 when the session's windows are up.
int Main(VentanasSesion& ventanas);
