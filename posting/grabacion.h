#pragma once

#include "lineas.h"

#include <QString>
#include <functional>

class Conexion;

// The header values that every line of an entry carries.
struct CabeceraAsiento {
    QString diario;
    QString documento;
    QString numero;
    QString fecha;           // posting date, as typed
    QString fechaDocumento;  // as typed
    QString referencia;
};

// Writes the entry whole or not at all: its lines, then what `dependientes` writes (the VAT
// and withholding register rows, the due items it opens or closes), in one transaction on the
// connection. A failure rolls everything back and is thrown; nothing of the entry remains.
// Lines of a kind the form does not make are not written. Gives the number of lines written.
int GrabarAsiento(Conexion& conexion, const CabeceraAsiento& cabecera, const LineasAsiento& lineas,
                  const QString& usuario, const std::function<void(Conexion&)>& dependientes = {});

// An entry of the session's company and branch as the form shows it: the header and the main
// line from its "P" line, and its lines of the kinds the form makes but "GC", renumbered
// gaplessly in their order. `encontrado` is false when the entry has no line at all.
struct AsientoLeido {
    bool encontrado = false;
    CabeceraAsiento cabecera;
    QString cuenta;  // of the main line
    double debe = 0, haber = 0;
    QString concepto;
    LineasAsiento lineas;
};
AsientoLeido LeerAsiento(Conexion& conexion, const QString& documento, const QString& numero);
