#pragma once

#include "forms/msgbox.h"

#include <QKeySequence>
#include <QList>
#include <QStringList>

class QLineEdit;
class QWidget;

// What the message boxes said while it lived, and the answers given to the questions, in order
// (No once the queue is empty).
class Buzon {
public:
    Buzon();
    ~Buzon();
    Buzon(const Buzon&) = delete;
    Buzon& operator=(const Buzon&) = delete;

    QStringList textos;
    QList<Icono> iconos;
    QList<Respuesta> respuestas;

    QString ultimo() const { return textos.value(textos.size() - 1); }
    void vaciar() {
        textos.clear();
        iconos.clear();
    }

private:
    ManejadorMensajes anterior_;
};

// Shows the window and waits until it is active, so that the focus moves as for a user.
void activar(QWidget* ventana);
// Gives the field the focus and types the text over what it held, key by key.
void escribir(QLineEdit* campo, const QString& texto);
// Leaves the field with Tab, as the user does.
void salir(QWidget* campo);
// Types into the field and leaves it.
void teclear(QLineEdit* campo, const QString& texto);
// In initTestCase: drops the offscreen platform's warnings about size hints, which say
// nothing about the program.
void silenciarAvisosDePlataforma();

// Presses a toolbar key where the focus is, as the user does.
void pulsar(QKeySequence tecla);
inline const QKeySequence kInsertar(Qt::Key_F2), kModificar(Qt::Key_F3), kFiltrar(Qt::Key_F4),
    kListar(Qt::Key_F5), kCancelar(Qt::Key_Escape), kBorrar(Qt::CTRL | Qt::Key_Delete);
