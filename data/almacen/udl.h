#pragma once

#include "dialecto.h"

#include <QString>

// What a connection text names: either "File name=X.udl", a file of the program's folder,
// or the description itself, a list of "key=value;" pairs:
//   Provider=SQLite;Data Source=Dades/Saldeva.db[;Mode=Read][;Synchronous=Off]
//   Provider=PostgreSQL;Host=…;Port=…;Database=…;User ID=…;Password=…
struct DescripcionAlmacen {
    Proveedor proveedor = Proveedor::SQLite;
    QString fuente;  // SQLite: absolute file path; PostgreSQL: database name
    QString servidor;
    int puerto = 5432;
    QString usuario;
    QString contrasena;
    bool soloLectura = false;
    bool sincronoDesactivado = false;  // a scratch store may lose its last writes on a crash
    // SQLite: how long a statement waits for another process's lock ("Busy Timeout", in
    // milliseconds); -1 for the program's default.
    int esperaBloqueoMs = -1;
};

// Throws Error when the file is missing or unreadable, or the text names no known provider.
DescripcionAlmacen leerDescripcion(const QString& textoConexion);
