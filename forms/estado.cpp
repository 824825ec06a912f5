#include "estado.h"

#include <QLabel>
#include <QPointer>

namespace estado {
namespace {
// Cleared by itself when the main window goes.
QPointer<QLabel>& panel() {
    static QPointer<QLabel> p;
    return p;
}
}  // namespace

void establecerPanel(QLabel* p) {
    panel() = p;
}

void mostrar(const QString& texto) {
    if (panel()) panel()->setText(texto);
}

}  // namespace estado
