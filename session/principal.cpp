#include "principal.h"

#include "data/arranque.h"
#include "data/global.h"
#include "forms/msgbox.h"

int Main(VentanasSesion& ventanas) {
    mantenimiento_usuario = QStringLiteral("CUSTODIOS");
    mantenimiento_contrasena = QStringLiteral("CUSTODIOS");
    try {
        abrirAlmacenes();
        SincronizarMenus();
        if (!ventanas.login()) {
            cerrarAlmacenes();
            return 0;
        }
        ventanas.mostrarPrincipal();
        return 0;
    } catch (const std::exception&) {
        // The same message for every failure of the start-up, whatever its true cause.
        cerrarAlmacenes();
        MsgBox(QStringLiteral("Error al abrir la conexión."), Icono::Critico);
        return 1;
    }
}
