#pragma once

#include <QString>

class QLabel;

// The main window's state panel, the first of its status bar, where a form says what it has
// just done ("Asiento FV00027 grabado, 3 líneas") without knowing the main window: the window
// names its panel when it is built. With no panel (a form tested alone) the text goes nowhere.
namespace estado {

void establecerPanel(QLabel* panel);
void mostrar(const QString& texto);

}  // namespace estado
