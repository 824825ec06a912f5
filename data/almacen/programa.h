#pragma once

#include <QString>

// The program's folder: where the executable, the .udl and .ini files and the run-time
// folders Dades/, Reports/ and icons16/ live. Every relative path of the system is read
// against it. Tests and tools point it at a folder of their own.
namespace programa {

QString carpeta();
void establecerCarpeta(const QString& carpeta);
// A path of the program's folder; an absolute path stays as it is.
QString ruta(const QString& relativa);

}  // namespace programa
