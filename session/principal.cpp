#include "principal.h"

#include "data/almacen/revision.h"
#include "data/arranque.h"
#include "data/global.h"
#include "forms/msgbox.h"

#include <stdexcept>

int Main(VentanasSesion& ventanas) {
    mantenimiento_usuario = QStringLiteral("CUSTODIOS");
    mantenimiento_contrasena = QStringLiteral("CUSTODIOS");
    QString defecto;
    try {
        // A damaged store file is not opened at all: SQLite would write the schema into an
        // empty one, and the user needs its name to restore it from a copy.
        for (const char* udl : {"File name=Saldeva.udl", "File name=Temporal.udl"}) {
            defecto = defectoDelArchivo(QString::fromLatin1(udl));
            if (!defecto.isEmpty()) throw std::runtime_error("almacén dañado");
        }
        abrirAlmacenes();
        SincronizarMenus();
        if (!ventanas.login()) {
            cerrarAlmacenes();
            return 0;
        }
        ventanas.mostrarPrincipal();
        return 0;
    } catch (const std::exception&) {
        // The same message for every failure of the start-up, whatever its true cause; a
        // damaged file is named below it.
        cerrarAlmacenes();
        MsgBox(QStringLiteral("Error al abrir la conexión.") +
                   (defecto.isEmpty() ? QString()
                                      : QStringLiteral("\n\n") + defecto +
                                            QStringLiteral(" No se ha modificado.")),
               Icono::Critico);
        return 1;
    }
}
