#pragma once

#include "forms/formulario.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

class ControlInforme;
class EventosCampos;
class QGridLayout;
class QGroupBox;
class QLineEdit;
class QProgressBar;
class QToolBar;

// One criterion field of a report form.
struct CampoInforme {
    enum class Clase {
        Texto,           // codes or lists of codes
        Cuenta,          // an account: "43.1" is expanded on leaving
        Fecha,           // a date: a text that is no date is refused with 1004
        FechaEjercicio,  // a date of the session's year: else 1004, or 1027 outside it
        Delegacion,      // branches: for a non-central branch, the session's and disabled
    };
    // The first or the last of a pair of bounds: its name says which ("Fecha desde") and the
    // empty field shows "desde" or "hasta", for captions that do not tell them apart.
    enum class Limite { Ninguno, Desde, Hasta };
    int indice;
    QString etiqueta;  // "" for the second of a pair under one caption
    Clase clase = Clase::Texto;
    QString tag;  // the lookup, TABLA.columna; "" for none
    int ancho = 12;
    bool mismaLinea = false;  // beside the field before, not below it
    Limite limite = Limite::Ninguno;
    QString nombre;  // the name of a bound, when not the caption's: "Documento"
};

// What every report form shares: the criteria frame `fraDatos` with its fields `txt(i)`, the
// progress bar `barraInformes`, the toolbar with only cancelar, lupa, imprimir and ayudar
// working, and the report control `informe`. A form declares its fields and writes imprimir;
// it refuses to open without company, branch and year (1040).
class FormularioInforme : public Formulario {
    Q_OBJECT
public:
    FormularioInforme(const QString& nombre, const QString& titulo,
                      const QList<CampoInforme>& campos);

    QString faltaSesion() const override;
    QToolBar* barra() const override { return toolbar_; }
    QLineEdit* txt(int i) const { return txt_.value(i); }
    QProgressBar* barraInformes() const { return barraInformes_; }
    ControlInforme* informe() const { return informe_; }

    // Empties the fields (a non-central branch keeps its own), resets the progress bar and
    // goes to the first field.
    void cancelar();
    // Checks the dates, fills the temporary table and prints; each failure after its message.
    void imprimir();

protected:
    // The form's own run: false when there was nothing to print (after its message).
    virtual void ejecutar() = 0;
    // The grid inside fraDatos, for what a form adds below its fields.
    QGridLayout* rejilla() const { return rejilla_; }
    int filas() const;
    QString texto(int i) const;
    // The dates checked as on leaving them, an account not left yet expanded; false after
    // the message, with the focus on the field.
    bool criteriosValidos();
    // Prints the table just filled: Init, Configure with mode 1, the formulas, the query and
    // Execute.
    void imprimirTabla(const QString& archivo, const QString& titulo, const QStringList& formulas,
                       const QString& consulta);
    // A form's own check of a field on leaving it, after the dates': false keeps the focus
    // in the field (after the form's message). A failure it throws is shown the same way and
    // refuses the field too.
    virtual bool comprobar(int) { return true; }
    // Told each row written, it moves the progress bar now and then, so that filling a
    // million rows does not spend its time drawing it.
    void avanzar(qint64 hecho, qint64 total);

private:
    bool validar(int i);
    void salir(int i);
    const CampoInforme* campo(int i) const;

    QList<CampoInforme> campos_;
    QHash<int, QLineEdit*> txt_;
    QToolBar* toolbar_ = nullptr;
    QGroupBox* fraDatos_ = nullptr;
    QGridLayout* rejilla_ = nullptr;
    QProgressBar* barraInformes_ = nullptr;
    ControlInforme* informe_ = nullptr;
    EventosCampos* eventos_ = nullptr;
    int ultimoPaso_ = -1;
};
