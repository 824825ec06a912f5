#pragma once

// The entry form as the tests drive it; for the tests that link the posting library.
#include "comun/gui_prueba.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "posting/frmapunte.h"

#include <QKeySequence>
#include <QStringList>

inline const QKeySequence kSiguiente(Qt::CTRL | Qt::Key_PageDown),
    kAnterior(Qt::CTRL | Qt::Key_PageUp);

// Opens the entry form as the menu does, active as for a user.
inline frmApunte* abrirApunte() {
    auto* f = qobject_cast<frmApunte*>(formularios::abrir("frmApunte"));
    if (f) activar(f->ventana());
    return f;
}

// The line list on the screen as "number account debit credit type" rows.
inline QStringList lineasEnPantalla(const frmApunte* f) {
    QStringList t;
    const ListaClaves* l = f->ListViewApunte();
    for (int i = 0; i < l->filas(); ++i)
        t << QStringList{l->texto(i, 0), l->texto(i, 2), l->texto(i, 3), l->texto(i, 4),
                         l->texto(i, 6)}
                 .join(' ');
    return t;
}
