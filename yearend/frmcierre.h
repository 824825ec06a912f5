#pragma once

#include "formulariocierre.h"

// "Cierre": the closing document txt(0) ("CIER" and the year) and the opening one txt(1)
// ("APER" and the next year), passed as they stand, and whether to show both entries.
class frmCierre : public FormularioCierre {
    Q_OBJECT
public:
    frmCierre();

protected:
    void ejecutar() override;

private:
    void verAsientos();
};

// "Invertir cierre": undoes the regularisation and the closing of the session's year under
// their default documents; the label is the only warning.
class frmInvertir : public FormularioCierre {
    Q_OBJECT
public:
    frmInvertir();

protected:
    void ejecutar() override;
};
