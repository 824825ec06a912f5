#include "restricciones.h"

#include "barra.h"

#include <QToolBar>

void AplicarRestricciones(QWidget* formulario, const QString& restricciones) {
    if (restricciones.isEmpty()) return;
    for (QToolBar* toolbar : formulario->findChildren<QToolBar*>()) {
        if (!toolbar->objectName().startsWith(QStringLiteral("Toolbar"))) continue;
        if (restricciones.contains(u'I')) DesactivarBotones(toolbar, {claves::insertar});
        if (restricciones.contains(u'E')) DesactivarBotones(toolbar, {claves::modificar});
        if (restricciones.contains(u'B')) DesactivarBotones(toolbar, {claves::borrar});
        if (restricciones.contains(u'L'))
            DesactivarBotones(toolbar, {claves::listar, claves::imprimir});
    }
}
