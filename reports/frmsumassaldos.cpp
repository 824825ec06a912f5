#include "frmsumassaldos.h"

#include "data/global.h"
#include "frmextractos.h"
#include "sumassaldos.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>

frmSumasSaldos::frmSumasSaldos()
    : FormularioInforme(QStringLiteral("frmSumasSaldos"),
                        QStringLiteral("Balance de sumas y saldos"), camposExtracto()) {
    chkMovimientos_ = new QCheckBox(QStringLiteral("Incluir cuentas sin movimientos"));
    chkMovimientos_->setObjectName(QStringLiteral("chkMovimientos"));
    rejilla()->addWidget(chkMovimientos_, filas(), 0, 1, -1);
    auto* grupo = new QGroupBox(QStringLiteral("Niveles de balance"));
    grupo->setObjectName(QStringLiteral("fraNiveles"));
    auto* cajas = new QGridLayout(grupo);
    const std::array<bool, 12> iniciales = nivelesIniciales(sesion_digitos);
    for (int i = 0; i < 12; ++i) {
        auto* c = new QCheckBox(QStringLiteral("Nivel %1").arg(i + 1), grupo);
        c->setObjectName(QStringLiteral("chkNivel(%1)").arg(i));
        c->setChecked(iniciales[size_t(i)]);
        // No level longer than the posting accounts is offered.
        c->setEnabled(i < sesion_digitos);
        cajas->addWidget(c, i / 6, i % 6);
        connect(c, &QCheckBox::toggled, this, [this, i] { nivelCambiado(i); });
        chkNivel_[size_t(i)] = c;
    }
    rejilla()->addWidget(grupo, filas(), 0, 1, -1);
    tamanoInicial(560, 330);
}

void frmSumasSaldos::nivelCambiado(int i) {
    if (chkNivel_[size_t(i)]->isChecked()) return;
    for (QCheckBox* c : chkNivel_)
        if (c->isChecked()) return;
    chkNivel_[size_t(i)]->setChecked(true);
}

void frmSumasSaldos::ejecutar() {
    CriteriosSumas c;
    c.delegaciones = texto(5);
    c.diarios = texto(0);
    c.cuentaDesde = texto(1);
    c.cuentaHasta = texto(2);
    c.fechaDesde = texto(3);
    c.fechaHasta = texto(4);
    c.conMovimientos = chkMovimientos_->isChecked();
    for (int i = 0; i < 12; ++i) c.niveles[size_t(i)] = chkNivel_[size_t(i)]->isChecked();
    // No test of an empty selection: the report runs over whatever the table holds.
    llenarSumasSaldos(c, [this](qint64 h, qint64 t) { avanzar(h, t); });
    imprimirTabla(QStringLiteral("SumasSaldos.rpt"), QStringLiteral("Balance de sumas y saldos"),
                  formulasSumas(c), consultaSumas());
}
