#pragma once

// The store side of the start-up: the session's two connections and the first copy of the
// menu. Both throw Error on any failure; the start-up shows one message for all of them,
// with the name of a damaged store file under it.

// Opens the main store ("File name=Saldeva.udl") and the temporary store ("File
// name=Temporal.udl") into sesion_conexion and sesion_temporal, creating what is missing of
// their schemas (a first start on a new SQLite file, or an empty PostgreSQL database), and
// replacing passwords kept as text by their hashes. A SQLite file that is empty, cut short or
// no store is not opened: ArchivoDanado (revision.h) names it, and nothing is written to it.
void abrirAlmacenes();

// Fills Menus from the template store's sysMenus when Menus is completely empty. A filled
// Menus is left alone, even if the template has changed since.
void SincronizarMenus();

// Drops the session's connections and the kept lookup connections.
void cerrarAlmacenes();
