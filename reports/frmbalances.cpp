#include "frmbalances.h"

#include "balances.h"
#include "data/mensajes.h"
#include "forms/msgbox.h"

namespace {
using C = CampoInforme::Clase;
const QList<CampoInforme> kCampos{
    {0, QStringLiteral("Fecha inicial:"), C::FechaEjercicio},
    {1, QStringLiteral("Fecha final:"), C::FechaEjercicio},
};
}  // namespace

frmBalanceSituacion::frmBalanceSituacion()
    : FormularioInforme(QStringLiteral("frmBalanceSituacion"),
                        QStringLiteral("Balance de Situación"), kCampos) {
    tamanoInicial(420, 180);
}

void frmBalanceSituacion::ejecutar() {
    const CriteriosBalance c = CriteriosBalance{texto(0), texto(1)};
    if (llenarBalanceSituacion(c, [this](qint64 h, qint64 t) { avanzar(h, t); }) == 0) {
        MsgBox(MensajeError(9000), Icono::Critico);
        return;
    }
    imprimirTabla(QStringLiteral("BalanceSituacionAbreviado.rpt"),
                  QStringLiteral("Balance de situacion abreviado"), formulasSituacion(c),
                  consultaSituacion());
}

frmBalancePyG::frmBalancePyG()
    : FormularioInforme(QStringLiteral("frmBalancePyG"),
                        QStringLiteral("Balance de Pérdidas y Ganáncias"), kCampos) {
    tamanoInicial(420, 180);
}

void frmBalancePyG::ejecutar() {
    const CriteriosBalance c = CriteriosBalance{texto(0), texto(1)};
    ResultadosPyG r;
    if (llenarBalancePyG(c, r, [this](qint64 h, qint64 t) { avanzar(h, t); }) == 0) {
        MsgBox(MensajeError(9000), Icono::Critico);
        return;
    }
    imprimirTabla(QStringLiteral("BalancePyGAbreviado.rpt"),
                  QStringLiteral("Balance de pérdidas y ganancias abreviado"), formulasPyG(c, r),
                  consultaPyG());
}
