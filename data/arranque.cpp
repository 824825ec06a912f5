#include "arranque.h"

#include <cstdlib>

#include "almacen/revision.h"
#include "auxiliar.h"
#include "contrasenas.h"
#include "entidades/entidad.h"
#include "global.h"

void abrirAlmacenes() {
    // A damaged file is not opened at all: SQLite would write the schema into an empty one.
    comprobarArchivo(QStringLiteral("File name=Saldeva.udl"));
    sesion_conexion = std::make_unique<Conexion>(QStringLiteral("File name=Saldeva.udl"));
    // A process ended by exit() from inside the toolkit (the display gone) runs the static
    // destructors while windows and queries still use the connections, and after the SQL layer
    // is torn down: the connections are then left to the system, which ends them; the store
    // rolls back whatever was not committed. A normal end closes them before this runs.
    static const bool alSalir = std::atexit([] {
                                    (void)sesion_conexion.release();
                                    (void)sesion_temporal.release();
                                }) == 0;
    Q_UNUSED(alSalir);
    sesion_conexion->asegurarEsquema(esquema::Almacen::Principal);
    // A store written by an older version kept passwords as text: from its first start here
    // it keeps only their hashes.
    contrasenas::CifrarAntiguas(*sesion_conexion);
    comprobarArchivo(QStringLiteral("File name=Temporal.udl"));
    sesion_temporal = std::make_unique<Conexion>(QStringLiteral("File name=Temporal.udl"));
    sesion_temporal->asegurarEsquema(esquema::Almacen::Temporal);
}

void SincronizarMenus() {
    Conexion& principal = *sesion_conexion;
    {
        Recordset cuenta = principal.open(QStringLiteral("SELECT COUNT(*) FROM Menus"));
        if (cuenta.value(0).toInt() != 0) return;
    }
    Conexion plantilla(QStringLiteral("File name=Sistema.udl"));
    Recordset origen = plantilla.open(QStringLiteral("SELECT * FROM sysMenus ORDER BY item_menu"));
    // Row by row, each committing by itself; every item starts visible to ordinary users.
    for (; !origen.eof(); origen.moveNext())
        entidad::insertar(
            principal, esquema::Menus,
            {origen[QStringLiteral("item_menu")], origen[QStringLiteral("item_padre")],
             origen[QStringLiteral("descripcion")], origen[QStringLiteral("formulario")],
             origen[QStringLiteral("administrador")], 1},
            {});
}

void cerrarAlmacenes() {
    Auxiliar::cerrarConexiones();
    sesion_temporal.reset();
    sesion_conexion.reset();
}
