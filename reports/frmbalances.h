#pragma once

#include "forminforme.h"

// "Balance de Situación": the company's balance sheet over a period of its year and the
// same period a year earlier, through BalanceSituacion and BalanceSituacionAbreviado.rpt.
class frmBalanceSituacion : public FormularioInforme {
    Q_OBJECT
public:
    frmBalanceSituacion();

protected:
    void ejecutar() override;
};

// "Balance de Pérdidas y Ganáncias": the profit and loss account, its lines through BalancePyG
// and its results as the formulas of BalancePyGAbreviado.rpt.
class frmBalancePyG : public FormularioInforme {
    Q_OBJECT
public:
    frmBalancePyG();

protected:
    void ejecutar() override;
};
