#pragma once

#include <QList>
#include <QString>

class Conexion;

// The pending due items that a collection or payment entry may close, found without a window:
// the selection dialog and the benchmark's workstations ask the same question.

// One due item as the entry form's list receives it.
struct EfectoSeleccionado {
    QString estado;           // Cartera.estado as stored: "P"
    QString codigoDocumento;  // the entry that gave rise to it
    QString numeroDocumento;
    QString fechaVto;  // as stored, "yyyymmdd"
    QString cuenta;    // Acrdeu.cuenta of its third party
    double importe = 0;
    QString concepto;
};

// The bounds as the user typed them; an empty one adds no condition. Accounts come expanded,
// dates as the user reads them (dd/mm/yyyy), amounts as typed (a decimal comma or point).
struct CriteriosSeleccion {
    QString cuentaInicial, cuentaFinal;
    QString terceroInicial, terceroFinal;
    QString documentoInicial, documentoFinal;
    QString importeMinimo, importeMaximo;
    QString fechaMinima, fechaMaxima;
};

// The pending due items of `tipo` ("C" collections, "P" payments) of the company's branch
// within the bounds, whose third party has its Acrdeu row of the item's kind, in the store's
// order. An account bound that belongs to no third party, or an amount or a date that is not
// one, fails with an Error that says so.
QList<EfectoSeleccionado> SeleccionarEfectos(Conexion& conexion, const QString& empresa,
                                             const QString& delegacion, const QString& tipo,
                                             const CriteriosSeleccion& criterios);
