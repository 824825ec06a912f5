#pragma once

#include "catalogo.h"
#include "portfolio/seleccion.h"

#include <QDate>
#include <QList>
#include <QString>
#include <optional>
#include <stdexcept>

class Conexion;
class LineasAsiento;

// The portfolio tab of an entry, without a window, in the two ways a document can take part:
// an invoice opens due items (CarteraAlta), a collection or payment closes them
// (CarteraGestion). The entry form's fields and lists mirror these; the benchmark's
// workstations post through them too.

// One due item that an entry opens, as its list shows it.
struct VencimientoAlta {
    QString tipo;         // "C" collection, "P" payment
    QString vencimiento;  // dd/mm/yyyy
    QString importe;      // as shown
    QString descripcion;
};

// The due items of an invoice: txt(49) to txt(53) and ListViewAltaCartera.
class CarteraAlta {
public:
    // "K" + type + date as yyyymmdd: one item of a type on a date.
    static QString clave(const QString& tipo, const QString& vencimiento);

    // The payment day rule: a date before the day moves forward to it; a date on or after it
    // goes as many days forward as it is past the day, then one month on (the 20th with day
    // 10 becomes the 30th, then the 30th of the next month).
    static QDate DiaDePago(QDate fecha, int primerDia);

    // The items a payment method makes of an amount from the document's date, one per slot
    // with days and a non-zero share; the total is the sum of all shares, so it shows any
    // cents lost or gained by rounding each one. A used slot without a percentage, or with
    // days that are not a number, is an Error that names the method.
    void Proponer(const QString& codigoPago, const FormaPago& forma, std::optional<int> primerDia,
                  const QDate& fechaDocumento, double importe, const QString& partida,
                  const QString& numeroDocumento);

    // Adds an item typed by hand; 9999 (its message, "Error no definido.") when the list holds
    // one of that type on that date, and nothing changes. The total grows by the amount
    // unless it is empty, as no proposal has been made.
    int Anadir(const VencimientoAlta& v);
    // Takes item `fila` back out of the list, to be corrected and added again.
    VencimientoAlta Recuperar(int fila);

    // The items of a stored entry, by date; the total their sum.
    void Cargar(Conexion& conexion, const QString& empresa, const QString& delegacion,
                const QString& documento, const QString& numeroDocumento);
    // Stores the items as pending due dates of the entry, on its line 1, in list order.
    void InsertarCartera(Conexion& conexion, const QString& empresa, const QString& delegacion,
                         const QString& documento, const QString& numeroDocumento,
                         const std::optional<TerceroCuenta>& tercero, const QString& usuario) const;

    void limpiar();
    const QList<VencimientoAlta>& efectos() const { return efectos_; }
    const QString& total() const { return total_; }  // txt(53)

private:
    QList<VencimientoAlta> efectos_;
    QString total_;
};

// A due item of a collection or payment entry with its mark: "P" left as it is, "C" closed
// by this entry, "D" neither (a third position of the cycle, nothing is done with it).
struct EfectoMarcado {
    QString marca;
    EfectoSeleccionado efecto;
};

// The items that a collection or payment entry closes: ListViewGestionCartera and txt(61).
class CarteraGestion {
public:
    // The selection's items, replacing the list and its total, each with its stored state as
    // mark.
    void Poner(const QList<EfectoSeleccionado>& efectos);
    // A double click: "P" to "C" adding its amount to the total, "C" to "D" with the total
    // unchanged (so a "D" item's amount is still inside it), "D" to "P" taking it out.
    void Marcar(int fila);
    void TodosPendientes();
    void TodosCancelados();

    // The entry's "GC" lines, one per item marked "C", on the side opposite the main line;
    // made afresh each time, but an empty list leaves the lines there are.
    void GenerarLineasGestion(LineasAsiento& lineas, const QString& fecha,
                              const QString& partida) const;
    // Closes each item marked "C" with the entry's date, document and number. An item that is
    // no longer pending refuses the whole entry with EfectoYaCerrado: run inside the entry's
    // transaction, nothing of it is then written.
    void CerrarEfectos(Conexion& conexion, const QString& empresa, const QString& delegacion,
                       const QString& fechaCierre, const QString& documento,
                       const QString& numeroDocumento, const QString& usuario) const;

    void limpiar();
    const QList<EfectoMarcado>& efectos() const { return efectos_; }
    const QString& total() const { return total_; }  // txt(61)

private:
    QList<EfectoMarcado> efectos_;
    QString total_;
};

// A due item that another entry closed between its selection and this entry's save.
class EfectoYaCerrado : public std::runtime_error {
public:
    explicit EfectoYaCerrado(const EfectoSeleccionado& efecto);
    const EfectoSeleccionado& efecto() const { return efecto_; }
    // "No se puede grabar el asiento: el vencimiento del 31/03/2026 del documento FAC/…"
    QString mensaje() const;

private:
    EfectoSeleccionado efecto_;
};
