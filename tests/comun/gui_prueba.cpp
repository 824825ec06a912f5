#include "gui_prueba.h"

#include <QApplication>
#include <QLineEdit>
#include <QtTest>

Buzon::Buzon() {
    anterior_ = establecerManejadorMensajes([this](const QString& texto, Icono icono) {
        textos << texto;
        iconos << icono;
        if (icono != Icono::Pregunta) return Respuesta::Aceptar;
        return respuestas.isEmpty() ? Respuesta::No : respuestas.takeFirst();
    });
}

Buzon::~Buzon() {
    establecerManejadorMensajes(anterior_);
}

void activar(QWidget* ventana) {
    QWidget* marco = ventana->window();
    marco->show();
    marco->activateWindow();
    QApplication::setActiveWindow(marco);
    if (!QTest::qWaitForWindowActive(marco)) qWarning("la ventana no se activó");
}

void escribir(QLineEdit* campo, const QString& texto) {
    campo->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    campo->selectAll();
    if (texto.isEmpty()) QTest::keyClick(campo, Qt::Key_Delete);
    // Keys beyond ASCII (ñ, á, ç) arrive as the text of a key without a code, as a Spanish
    // keyboard sends them.
    for (const QChar c : texto) {
        if (c.unicode() < 128)
            QTest::keyClick(campo, c.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, campo, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void salir(QWidget* campo) {
    QTest::keyClick(campo, Qt::Key_Tab);
    QApplication::processEvents();
}

void teclear(QLineEdit* campo, const QString& texto) {
    escribir(campo, texto);
    salir(campo);
}

namespace {
QtMessageHandler anterior = nullptr;
}  // namespace

void silenciarAvisosDePlataforma() {
    // The offscreen platform warns of every window operation it cannot carry out (size hints,
    // raising a window).
    anterior = qInstallMessageHandler(
        [](QtMsgType tipo, const QMessageLogContext& contexto, const QString& texto) {
            if (texto.startsWith(QLatin1String("This plugin does not support"))) return;
            if (anterior) anterior(tipo, contexto, texto);
        });
}

void pulsar(QKeySequence tecla) {
    QWidget* foco = QApplication::focusWidget();
    QVERIFY(foco);
    QTest::keySequence(foco, tecla);
}
