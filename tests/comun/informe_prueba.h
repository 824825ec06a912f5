#pragma once

#include "data/almacen/programa.h"
#include "data/global.h"
#include "reports/informes.h"
#include "reports/motor/fuente.h"
#include "reports/motor/paginador.h"

#include <QMap>
#include <QStringList>

// The printed lines of a report laid out from its query on the temporary store, top to
// bottom, each the texts of one height joined by " · ".
inline QStringList paginasImpresas(const QString& archivo, const QStringList& formulas,
                                   const QString& consulta) {
    const motor::Diseno d = motor::leerDiseno(programa::ruta("Reports/" + archivo));
    motor::FuenteConsulta fuente(*sesion_temporal, consulta);
    motor::Paginador paginador(d, motor::leerFormulas(formulas), fuente);
    QStringList lineas;
    motor::Pagina p;
    while (paginador.siguiente(p)) {
        QMap<int, QStringList> porAltura;
        for (const motor::Trazo& t : p.textos) porAltura[qRound(t.caja.y() * 10)] << t.texto;
        for (const QStringList& l : porAltura) lineas << l.join(" · ");
    }
    return lineas;
}

// What a form asked the engine for, instead of a window.
struct Peticion {
    Peticion() {
        anterior = establecerMostrador([this](const TrabajoInforme& t, DestinoInforme d) {
            trabajos << t;
            destinos << d;
        });
    }
    ~Peticion() { establecerMostrador(anterior); }
    Peticion(const Peticion&) = delete;
    Peticion& operator=(const Peticion&) = delete;
    QList<TrabajoInforme> trabajos;
    QList<DestinoInforme> destinos;
    MostradorInformes anterior;
};
