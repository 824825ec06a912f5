#pragma once

#include "error.h"

#include <QString>

// A look at the file of a SQLite store before anything opens it, by its header alone. SQLite
// takes an empty file for a new store, into which the start-up would write the schema, and
// finds a file cut short or overwritten only at its first read, with a message that names no
// file. Checked first, a damaged file is never opened, and the user is told which one it is.
// Damage inside the pages of a whole file is left to SQLite to find.

// "El archivo «…» está vacío." (or "está incompleto: …", "no es un almacén de datos.") when
// the store a connection text names is a SQLite file that is empty, cut short or not a store;
// an empty text when it looks sound, does not exist yet (a first start creates it) or is not
// SQLite. A connection text that cannot be read throws Error, as leerDescripcion does.
QString defectoDelArchivo(const QString& textoConexion);

// The failure of opening a store whose file is damaged; its description is the defect found.
class ArchivoDanado : public Error {
public:
    explicit ArchivoDanado(const QString& defecto) : Error(errores::kAlmacen, defecto) {}
};

// Throws ArchivoDanado when defectoDelArchivo finds a defect.
void comprobarArchivo(const QString& textoConexion);
