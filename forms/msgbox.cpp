#include "msgbox.h"

#include "data/almacen/error.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
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
    const QPointer<QWidget> ventana = QApplication::activeWindow();
    QMessageBox caja(iconos[int(icono)], tituloAplicacion(), texto, QMessageBox::NoButton, ventana);
    // The keyboard goes back to the window that asked, whatever the window manager does when
    // the box goes away, so that the next key reaches the field the form chose.
    const auto mostrar = [&] {
        caja.exec();
        if (ventana) ventana->activateWindow();
    };
    if (icono != Icono::Pregunta) {
        caja.setDefaultButton(caja.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole));
        mostrar();
        return Respuesta::Aceptar;
    }
    QPushButton* si = caja.addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
    QPushButton* no = caja.addButton(QStringLiteral("&No"), QMessageBox::NoRole);
    caja.setDefaultButton(si);
    caja.setEscapeButton(no);
    mostrar();
    return caja.clickedButton() == si ? Respuesta::Si : Respuesta::No;
}

void MostrarError(const std::exception& error) {
    if (const auto* e = dynamic_cast<const Error*>(&error))
        MsgBox(e->texto(), Icono::Critico);
    else
        MsgBox(QString::fromUtf8(error.what()), Icono::Critico);
}

bool Protegido(const std::function<void()>& operacion) {
    try {
        operacion();
        return true;
    } catch (const std::exception& e) {
        MostrarError(e);
        return false;
    }
}
