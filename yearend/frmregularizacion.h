#pragma once

#include "formulariocierre.h"

class QLabel;

// "Regularización": the result account txt(0) with its title beside it, the document txt(1)
// ("REGU" and the year), and whether to show the entry posted.
class frmRegularizacion : public FormularioCierre {
    Q_OBJECT
public:
    frmRegularizacion();
    QLabel* des() const { return des_; }

protected:
    void ejecutar() override;
    bool comprobar(int i) override;

private:
    void verAsiento();
    QLabel* des_ = nullptr;
};
