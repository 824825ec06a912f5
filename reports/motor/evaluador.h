#pragma once

#include "diseno.h"
#include "expresion.h"

#include <QHash>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

namespace motor {

class FuenteFilas;

// The values a layout reads, row after row: the query's columns, the running sums, the values
// computed from them, the totals known beforehand, the run's formulas and the page number,
// each in a slot. Names are bound to their slots once, when it is made, so that a row costs no
// lookup; a name of the layout's sums, values, totals, group, order or exported columns that
// has no slot is an Error then, naming the file and line, before any row.
// It knows nothing of pages or files: the Paginador and the exports walk the rows through it,
// so that a running balance is the same on paper and in a spreadsheet.
class Evaluador {
public:
    Evaluador(const Diseno& diseno, const QHash<QString, Valor>& formulas,
              const QStringList& columnas);

    // The slot of a name, or -1.
    int slot(const QString& nombre) const { return nombres_.value(nombre.toLower(), -1); }
    // An expression bound to the slots; a name without one is an Error naming it.
    Expresion compilar(const QString& texto) const;

    // The rows to walk, when the layout cannot take them as they come: every row of `fuente`,
    // sorted as the layout asks, with the totals summed over them (a walk of its own, after
    // which this starts again before the first row). Null for a layout without totals nor
    // order: the rows are then read from `fuente` itself, never held.
    std::unique_ptr<FuenteFilas> preparar(FuenteFilas& fuente);

    // Takes the next row of the query aside and tells whether it starts a group: the first row
    // of a grouped report does, and so does a row whose group fields differ from the current
    // one's. Until entrar(), the current row is still the one before (a group's foot shows it).
    bool leer(const std::vector<QVariant>& fila);
    // The row taken aside becomes the current one, with its keyed totals; a new group starts
    // its sums at zero.
    void entrar(bool nuevoGrupo);
    // Adds the current row to the sums and computes its values.
    void acumular();
    // The three steps at once, for a reader that shows no group's head or foot.
    void avanzar(const std::vector<QVariant>& fila) {
        entrar(leer(fila));
        acumular();
    }

    const std::vector<Valor>& valores() const { return slots_; }
    int pagina() const { return int(slots_[size_t(slotPagina_)].numero); }
    void ponerPagina(int numero) { slots_[size_t(slotPagina_)].numero = numero; }

    // The exported columns of the layout, bound, in their order.
    const std::vector<Expresion>& exportadas() const { return exportadas_; }

private:
    // The layout's values of the current row, from its columns, sums and totals.
    void calcular();
    std::vector<int> columnasDe(const QStringList& nombres, const QString& que, int linea) const;
    Expresion compilar(const QString& texto, int linea) const;
    void comprobarTotales() const;
    QString clave(const std::vector<int>& columnas) const;

    const Diseno& d_;
    QHash<QString, int> nombres_;
    std::vector<Valor> slots_;  // the row's columns, then sums, values, totals, formulas, page
    int columnas_ = 0, baseAcumulados_ = 0, baseCalculos_ = 0, baseTotales_ = 0, slotPagina_ = 0;
    std::vector<Expresion> sumandos_, calculos_, totales_, exportadas_;
    std::vector<int> grupo_, orden_;             // columns of the group key, of the sort
    std::vector<std::vector<int>> claves_;       // of each total; empty: the whole report
    std::vector<QHash<QString, double>> sumas_;  // of each total, by key
    std::vector<Valor> siguiente_;
    bool primera_ = true;
};

}  // namespace motor
