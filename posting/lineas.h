#pragma once

#include <QList>
#include <QString>

// One line of the entry being written, as the line list shows it.
struct LineaApunte {
    int numero = 0;
    QString fecha;  // as the header's posting date was typed
    QString cuenta;
    double debe = 0;
    double haber = 0;
    QString concepto;
    QString tipo;  // "P", "IVA", "RE", "IRPF", "GC", "CP"
};

// The entry while it is being written: its lines in number order, nothing in the store yet.
// Numbers are positions: a new line takes the lowest free number and its place in the order,
// so that a line removed and added again keeps the list gapless. Totals are the plain sums of
// the doubles in list order, unrounded: a residue of the sums is a real imbalance.
class LineasAsiento {
public:
    // The lowest positive number that no line has.
    int SiguienteLinea() const;
    // Adds a line under `numero` (0: the lowest free one; above the count: the next position)
    // and gives the number it received. A number already taken is an Error, as a repeated key.
    int AnadirLinea(int numero, const QString& fecha, const QString& cuenta, double debe,
                    double haber, const QString& concepto, const QString& tipo);
    void BorrarLineasTipo(const QString& tipo);
    bool tiene(int numero) const { return posicion(numero) >= 0; }
    // Takes the line of that number out and gives it; no such line is an Error.
    LineaApunte quitar(int numero);
    void limpiar() { lineas_.clear(); }

    const QList<LineaApunte>& lineas() const { return lineas_; }
    int cuantas() const { return int(lineas_.size()); }

    double debe() const;
    double haber() const;
    // Debit minus credit of the two sums, exactly as they come.
    double saldo() const { return debe() - haber(); }

    // The line list's key of a number: "K0000007".
    static QString clave(int numero);
    static QString textoNumero(int numero);

private:
    int posicion(int numero) const;
    QList<LineaApunte> lineas_;
};

// An amount as the entry form shows it: the plain text of the double with a decimal comma,
// so that a residue shows as one ("5,6843418860808E-14").
QString textoPantalla(double valor);
