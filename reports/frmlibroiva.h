#pragma once

#include "forminforme.h"

class QPushButton;

// "Libro de IVA": the register of the session's branch over a period of invoice dates,
// printed as the book and then as its summary by type and rate; and the same invoices of the
// whole company as the record books the tax agency takes.
class frmLibroIva : public FormularioInforme {
    Q_OBJECT
public:
    frmLibroIva();
    QPushButton* cmdLibrosAeat() const { return cmdLibrosAeat_; }
    // Writes the record books of the period to `ruta` (.xlsx, or .csv for two files); false
    // after its message.
    bool exportarLibrosAeat(const QString& ruta);

protected:
    void ejecutar() override;

private:
    void elegirYExportar();
    QPushButton* cmdLibrosAeat_;
};

// "Operaciones con terceros": the parties whose operations of the period reach an amount;
// and the model 347 file of the company's calendar year.
class frmOperacionesTerceros : public FormularioInforme {
    Q_OBJECT
public:
    frmOperacionesTerceros();
    QPushButton* cmdModelo347() const { return cmdModelo347_; }
    // Writes the model 347 file; false after its message (the list of what is missing when
    // the file cannot be accepted).
    bool generarModelo347(const QString& ruta, const QString& telefono, const QString& contacto);

protected:
    void ejecutar() override;

private:
    void pedirYGenerar();
    QPushButton* cmdModelo347_;
};
