#pragma once

#include <QString>

class QWidget;

// Switches off the toolbar buttons that the user's restriction letters deny on a form just
// opened by the menu: "I" insertar, "E" modificar, "B" borrar, "L" listar and imprimir. A form
// without a toolbar has nothing to switch off.
void AplicarRestricciones(QWidget* formulario, const QString& restricciones);
