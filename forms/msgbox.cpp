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
    QWidget* padre = QApplication::activeWindow();
    switch (icono) {
        case Icono::Critico:
            QMessageBox::critical(padre, tituloAplicacion(), texto);
            return Respuesta::Aceptar;
        case Icono::Exclamacion:
            QMessageBox::warning(padre, tituloAplicacion(), texto);
            return Respuesta::Aceptar;
        case Icono::Informacion:
            QMessageBox::information(padre, tituloAplicacion(), texto);
            return Respuesta::Aceptar;
        case Icono::Pregunta: {
            QMessageBox caja(QMessageBox::Question, tituloAplicacion(), texto,
                             QMessageBox::NoButton, padre);
            QPushButton* si = caja.addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
            QPushButton* no = caja.addButton(QStringLiteral("&No"), QMessageBox::NoRole);
            caja.setDefaultButton(si);
            caja.setEscapeButton(no);
            caja.exec();
            return caja.clickedButton() == si ? Respuesta::Si : Respuesta::No;
        }
    }
    return Respuesta::Aceptar;
}
