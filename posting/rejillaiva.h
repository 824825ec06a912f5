#pragma once

#include "catalogo.h"

#include <QString>
#include <array>
#include <optional>

class Conexion;
class LineasAsiento;

// The tax grid of an entry, without a window: up to four rows that split the main line's
// amount into base, VAT, surcharge and withholding, the lines the entry gets from them and the
// register rows it stores with them.
//
// Fields keep the entry form's numbers. Row i (1 to 4) starts at b = 9 × i: txt(b) base,
// txt(b+1) VAT type, txt(b+2) and txt(b+3) VAT percentage and amount, txt(b+4) and txt(b+5)
// surcharge percentage and amount, txt(b+6) withholding type, txt(b+7) and txt(b+8) its
// percentage and amount. txt(45) to txt(48) are the totals of bases, VAT, surcharge and
// withholding. Texts are what counts, as on the screen: a figure is written once, in the
// format "0.00", and later steps read that text back.
class RejillaIva {
public:
    static constexpr int kPrimero = 9, kUltimo = 48;
    // The row (1 to 4) of a field of the grid, or 0 for the totals and any other field.
    static int fila(int campo) { return campo >= 9 && campo <= 44 ? campo / 9 : 0; }

    explicit RejillaIva(CatalogoImpuestos& catalogo) : catalogo_(catalogo) {}

    const QString& txt(int i) const { return txt_.at(size_t(i - kPrimero)); }
    void ponerTxt(int i, const QString& texto) { txt_.at(size_t(i - kPrimero)) = texto; }

    // Each row's accounts, from its types.
    std::array<QString, 4> ctaIVA, ctaRE, ctaIRPF;
    // The numbers of each row's "IVA", "RE" and "IRPF" lines (3(i-1), +1, +2) once they exist.
    std::array<QString, 12> oculto;

    // All texts and line numbers empty; the accounts stay until types are read again.
    void limpiar();

    // The check of field `indice` on leaving it: amounts must be numbers (1004), types must
    // exist (1003, capitals first). Gives the message's code, 0 when it passes; empty passes.
    int ValidarImpuestos(int indice, QString& texto);

    // Leaving a field of the grid: what follows from it.
    void alSalir(int indice);

    void RecalcularFila(int b);
    void BuscarImpuesto(int c);
    void BuscarIrpf(int c);
    void SumarBases();
    void SumarIva();
    void SumarRe();
    void SumarIrpf();

    // The first row proposed from the third party of the main line, the base worked back from
    // the gross `importe` (base + VAT + surcharge - withholding). Earlier work on the grid is
    // dropped. Without a third party the base is the whole amount.
    void Proponer(const std::optional<TerceroCuenta>& tercero, const QString& importe);

    // The entry's "IVA", "RE" and "IRPF" lines made again from the rows that have a VAT type,
    // on the side that `partida` ("D" or "H") gives them. A line comes back under the number
    // it had when that number is free. A line whose amount is not a number fails, naming it.
    void GenerarLineasIva(LineasAsiento& lineas, const QString& fecha, const QString& concepto,
                          const QString& partida);

    // The register rows of the entry, on the connection, within the caller's transaction. A row
    // whose line is not in the entry (no account for its type, or a withholding without a VAT
    // type) fails, naming the row: such an entry is not stored.
    // `cuenta` is the main line's: its third party is the register rows'.
    void InsertarRegistros(Conexion& conexion, const QString& empresa, const QString& delegacion,
                           const QString& documento, const QString& numeroDocumento,
                           const QString& cuenta, const QString& usuario) const;

    // A stored entry's register rows, read for its "IVA" and "IRPF" lines and shown the way
    // the entry form always has: the first row of each register on the grid's first row, and
    // any later one a step of three fields further, over the first row's fields.
    void Cargar(Conexion& conexion, const QString& empresa, const QString& delegacion,
                const QString& documento, const QString& numero, const LineasAsiento& lineas);

private:
    QString& campo(int i) { return txt_.at(size_t(i - kPrimero)); }
    std::optional<double> numero(int i) const;
    void sumar(int desplazamiento, int total);

    CatalogoImpuestos& catalogo_;
    std::array<QString, kUltimo - kPrimero + 1> txt_;
};
