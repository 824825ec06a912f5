#include "principal.h"

#include "data/almacen/revision.h"
#include "data/arranque.h"
#include "data/global.h"
#include "forms/msgbox.h"

int Main(VentanasSesion& ventanas) {
    mantenimiento_usuario = QStringLiteral("CUSTODIOS");
    mantenimiento_contrasena = QStringLiteral("CUSTODIOS");
    // The same message for every failure of the start-up, whatever its true cause; a damaged
    // store file is named below it, so that the user knows which one to restore.
    const auto fallo = [](const QString& detalle) {
        cerrarAlmacenes();
        MsgBox(QStringLiteral("Error al abrir la conexión.") + detalle, Icono::Critico);
        return 1;
    };
    try {
        abrirAlmacenes();
        SincronizarMenus();
        if (!ventanas.login()) {
            cerrarAlmacenes();
            return 0;
        }
        ventanas.mostrarPrincipal();
        return 0;
    } catch (const ArchivoDanado& e) {
        return fallo(QStringLiteral("\n\n") + e.descripcion() +
                     QStringLiteral(" No se ha modificado."));
    } catch (const std::exception&) {
        return fallo(QString());
    }
}
