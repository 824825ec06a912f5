#pragma once

#include "forminforme.h"

#include <array>

class QCheckBox;

// "Balance de sumas y saldos": the balance brought forward, debit, credit and balance of the
// accounts at the levels chosen, through SumasSaldos and SumasSaldos.rpt.
class frmSumasSaldos : public FormularioInforme {
    Q_OBJECT
public:
    frmSumasSaldos();
    QCheckBox* chkMovimientos() const { return chkMovimientos_; }
    QCheckBox* chkNivel(int i) const { return chkNivel_[size_t(i)]; }

protected:
    void ejecutar() override;

private:
    // At least one level stays selected: a box cleared last checks itself again.
    void nivelCambiado(int i);

    QCheckBox* chkMovimientos_;
    std::array<QCheckBox*, 12> chkNivel_{};
};
