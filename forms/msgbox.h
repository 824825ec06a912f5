#pragma once

#include <QString>
#include <functional>

// Every message box of the system goes through here: the icon, the text, the application's
// title, and for a question the Yes and No buttons. Tests put a handler of their own in place
// to read the texts and give the answers.
enum class Icono { Critico, Exclamacion, Informacion, Pregunta };
enum class Respuesta { Aceptar, Si, No };

Respuesta MsgBox(const QString& texto, Icono icono);

using ManejadorMensajes = std::function<Respuesta(const QString& texto, Icono icono)>;
// Installs a handler (an empty one restores the boxes on screen); gives the previous one.
ManejadorMensajes establecerManejadorMensajes(ManejadorMensajes manejador);

// The application's title, which titles every box and window.
QString tituloAplicacion();

// The forms' error handler: a failure shown as number, " - " and description in a critical
// box (any other exception by its text). Gives false when `operacion` failed.
void MostrarError(const std::exception& error);
bool Protegido(const std::function<void()>& operacion);
