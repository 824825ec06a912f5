#pragma once

#include <QString>

// Settings files of the program's folder (Saldeva.ini, Listas.ini): sections of "key=value"
// lines. Values are kept verbatim: commas, semicolons and SQL text come back as written.
// Sections and keys are found without regard to case. A missing file, section or key gives
// the default; writing creates what is missing and keeps every other line as it was, byte for
// byte, whatever it holds. A line that is not UTF-8 is read as Latin-1.

// Up to 255 characters of the value.
QString GetIni(const QString& archivo, const QString& seccion, const QString& clave,
               const QString& defecto = QString());
// A line break cannot stand in a value: each one is written, and left in `valor`, as a blank.
void SetIni(const QString& archivo, const QString& seccion, const QString& clave, QString& valor);
void SetIni(const QString& archivo, const QString& seccion, const QString& clave,
            const QString& valor);

// Whether the file, when there is one, holds text: no control characters but tabs and line
// ends. One that does not is damaged, and its settings cannot be what the user wrote.
bool IniEsTexto(const QString& archivo);
