#include "msgbox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {
ManejadorMensajes& manejadorActual() {
    static ManejadorMensajes manejador;
    return manejador;
}
}  // namespace

QString tituloAplicacion() {
    return QStringLiteral("Saldeva");
}

ManejadorMensajes establecerManejadorMensajes(ManejadorMensajes manejador) {
    ManejadorMensajes anterior = std::move(manejadorActual());
    manejadorActual() = std::move(manejador);
    return anterior;
}

Respuesta MsgBox(const QString& texto, Icono icono) {
    if (manejadorActual()) return manejadorActual()(texto, icono);
    static const QMessageBox::Icon iconos[] = {QMessageBox::Critical, QMessageBox::Warning,
                                               QMessageBox::Information, QMessageBox::Question};
    QMessageBox caja(iconos[int(icono)], tituloAplicacion(), texto, QMessageBox::NoButton,
                     QApplication::activeWindow());
    if (icono != Icono::Pregunta) {
        caja.setDefaultButton(caja.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole));
        caja.exec();
        return Respuesta::Aceptar;
    }
    QPushButton* si = caja.addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
    QPushButton* no = caja.addButton(QStringLiteral("&No"), QMessageBox::NoRole);
    caja.setDefaultButton(si);
    caja.setEscapeButton(no);
    caja.exec();
    return caja.clickedButton() == si ? Respuesta::Si : Respuesta::No;
}
