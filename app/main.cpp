#include "data/almacen/programa.h"
#include "data/arranque.h"
#include "data/auxiliar.h"
#include "data/entidades/menus.h"
#include "data/global.h"
#include "forms/msgbox.h"
#include "session/principal.h"

#include <QApplication>

namespace {

// Until the login and the main window exist, a run opens the stores, fills the menu and says
// so; the session's windows take this place.
class VentanasIniciales : public VentanasSesion {
public:
    bool login() override { return true; }
    void mostrarPrincipal() override {
        const int elementos = Menus::GetList(*sesion_conexion, {}, {}).recordCount();
        MsgBox(QStringLiteral("Almacenes abiertos y menú preparado (%1 opciones).\n"
                              "El inicio de sesión y la ventana principal llegan con la próxima "
                              "versión.")
                   .arg(elementos),
               Icono::Informacion);
        cerrarAlmacenes();
    }
};

}  // namespace

int main(int argc, char* argv[]) {
    QApplication aplicacion(argc, argv);
    QApplication::setApplicationName(tituloAplicacion());
    QApplication::setApplicationVersion(QStringLiteral(SALDEVA_VERSION));
    programa::establecerCarpeta(QApplication::applicationDirPath());
    VentanasIniciales ventanas;
    const int resultado = Main(ventanas);
    cerrarAlmacenes();
    return resultado;
}
