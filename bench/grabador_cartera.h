#pragma once

#include "posting/lineas.h"

#include <QString>

class CarteraGestion;
class QRandomGenerator;

class Conexion;

// The portfolio's part of the workstation program (grabador): invoices that open due items,
// collections that close them, and the count of what the store holds afterwards.
namespace grabador {

inline const QString kEmpresa = QStringLiteral("B");
inline constexpr int kEjercicio = 2026;

// A collection as a workstation makes it: one to three of the first ten pending items of the
// selection marked (where every workstation looks first, so that they often want the same
// ones), dated at the last of their due dates, with its bank line and one "GC" line per item.
struct CobroPropuesto {
    LineasAsiento lineas;
    QString fecha;
    int marcados = 0;
};
CobroPropuesto proponerCobro(CarteraGestion& gestion, QRandomGenerator& azar,
                             const QString& numero);

// The documents, series, payment method and customers the two commands need.
void prepararCartera(Conexion& c);
// Posts so many sale invoices, each with the due items its customer's payment method
// proposes, printing each number once it is stored.
void facturar(Conexion& c, int cuantas, quint32 semilla);
// Posts up to so many collections of pending items, printing each number once it is stored,
// then "cobros N efectos E rechazos R".
void cobrar(Conexion& c, int cuantos, quint32 semilla);
// When the store holds due items: "vencimientos V cerrados C cerrados_mas_de_una_vez D
// incoherentes I".
void contarCartera(Conexion& c);

// A workstation's mix of so many operations (grabador_puesto.cpp): invoices with VAT and
// withholding, collections, plain entries and deletions of its own, waiting out a store that
// stops answering.
void puesto(Conexion& c, int cuantos, quint32 semilla);
// "saltados S sin_registro R registros_sin_linea H": numbers of the series neither in the
// journal nor in the file of numbers deleted on purpose, invoices missing a register row, and
// register rows without their line.
void contarPuestos(Conexion& c, const QString& archivoBorrados);

}  // namespace grabador
