#pragma once

#include "forminforme.h"

class QRadioButton;

// Branches, journals, accounts and dates: the criteria of the statement, which the trial
// balance shares.
const QList<CampoInforme>& camposExtracto();

// "Extracto de cuentas": the lines of one or several accounts over a period, each account
// after its balance brought forward, through Extractos and Extracto.rpt.
class frmExtractos : public FormularioInforme {
    Q_OBJECT
public:
    frmExtractos();
    QRadioButton* optFecha() const { return optFecha_; }
    QRadioButton* optDiario() const { return optDiario_; }

protected:
    void ejecutar() override;

private:
    QRadioButton* optFecha_;
    QRadioButton* optDiario_;
};
