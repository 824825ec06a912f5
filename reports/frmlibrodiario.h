#pragma once

#include "forminforme.h"

// "Libro Diario": the lines of the period's entries in date and document order, through
// LibroDiario and LibroDiario.rpt.
class frmLibroDiario : public FormularioInforme {
    Q_OBJECT
public:
    frmLibroDiario();

protected:
    void ejecutar() override;
};
