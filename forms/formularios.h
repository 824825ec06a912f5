#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

class Formulario;
class QMdiArea;
class QWidget;

// The forms of the program by name: the one way the menu opens a form. Each subsystem
// registers its forms once at start; a form opens inside the main window's MDI area, or as a
// window of its own when there is none (a test of one form).
namespace formularios {

using Fabrica = std::function<Formulario*()>;

void registrar(const QString& nombre, Fabrica fabrica);
bool registrado(const QString& nombre);
// The names of every registered form, as registered and in alphabetical order.
QStringList nombres();

void establecerArea(QMdiArea* area);
QMdiArea* area();

// The open form of that name (compared without regard to case), or nullptr.
Formulario* buscar(const QString& nombre);
QList<Formulario*> abiertos();

// Shows a form made elsewhere inside the main window, or brings it forward if it is shown.
void mostrar(Formulario* formulario);

// Opens the form of that name, or brings the open one forward, shown and focused. An empty
// name does nothing (a folder of the menu). A name without a form, or a form that fails to
// open, shows a critical message and gives nullptr; the program goes on.
Formulario* abrir(const QString& nombre);

// A window that new forms do not cover when they first open (the menu at the area's left):
// they start right of it, as far as the area's width allows.
void reservarIzquierda(QWidget* ventana);
// The x where a new window of the area starts: right of the reserved one, or 0.
int margenIzquierdo(const QWidget* ventana);

// Unloads every open form, each writing its geometry.
void cerrarTodos();

}  // namespace formularios
