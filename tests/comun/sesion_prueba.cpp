#include "sesion_prueba.h"

#include "gui_prueba.h"
#include "session/frmlogin.h"
#include "session/frmmenu.h"
#include "session/sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

// Answers the next modal login: `accion` receives it once it shows.
void responderLogin(std::function<void(frmLogin&)> accion) {
    auto* reloj = new QTimer;
    QObject::connect(reloj, &QTimer::timeout, [reloj, accion] {
        if (auto* login = qobject_cast<frmLogin*>(QApplication::activeModalWidget())) {
            reloj->stop();
            reloj->deleteLater();
            accion(*login);
        }
    });
    reloj->start(10);
}

void entrarComoMantenimiento(frmLogin& login) {
    teclear(login.txt(0), "CUSTODIOS");
    teclear(login.txt(1), "CUSTODIOS");
    login.cmdOK()->click();
}

std::function<void(frmLogin&)> entrarComo(const QString& usuario, const QString& contrasena,
                                          const QString& empresa, const QString& delegacion) {
    return [=](frmLogin& login) {
        teclear(login.txt(0), usuario);
        teclear(login.txt(1), contrasena);
        teclear(login.cmb(0)->lineEdit(), empresa);
        teclear(login.cmb(1)->lineEdit(), delegacion);
        login.cmdOK()->click();
    };
}

QTreeWidgetItem* nodo(const QString& texto) {
    for (QTreeWidgetItemIterator it(menu()->TreeViewMenu()); *it; ++it)
        if ((*it)->text(0) == texto) return *it;
    return nullptr;
}

// A double click on the menu's node of that text.
void abrir(const QString& texto) {
    QTreeWidgetItem* n = nodo(texto);
    QVERIFY2(n, qPrintable(texto));
    emit menu()->TreeViewMenu()->itemActivated(n, 0);
}
