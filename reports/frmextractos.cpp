#include "frmextractos.h"

#include "data/mensajes.h"
#include "extracto.h"
#include "forms/msgbox.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>

const QList<CampoInforme>& camposExtracto() {
    using C = CampoInforme::Clase;
    using L = CampoInforme::Limite;
    static const QList<CampoInforme> campos{
        {5, QStringLiteral("Delegación:"), C::Delegacion,
         QStringLiteral("DELEGACIONES.codigo_delegacion"), 24},
        {0, QStringLiteral("Diario:"), C::Texto, QStringLiteral("DIARIOS.codigo_diario"), 24},
        {1, QStringLiteral("Cuenta:"), C::Cuenta, QStringLiteral("CUENTAS.cuenta"), 12, false,
         L::Desde},
        {2, QStringLiteral("Cuenta:"), C::Cuenta, QStringLiteral("CUENTAS.cuenta"), 12, true,
         L::Hasta},
        {3, QStringLiteral("Fecha:"), C::Fecha, {}, 12, false, L::Desde},
        {4, QStringLiteral("Fecha:"), C::Fecha, {}, 12, true, L::Hasta},
    };
    return campos;
}

frmExtractos::frmExtractos()
    : FormularioInforme(QStringLiteral("frmExtractos"), QStringLiteral("Extracto de cuentas"),
                        camposExtracto()) {
    optFecha_ = new QRadioButton(QStringLiteral("Ordenación por fecha"));
    optFecha_->setObjectName(QStringLiteral("optFecha"));
    optDiario_ = new QRadioButton(QStringLiteral("Ordenación por diarios y fecha"));
    optDiario_->setObjectName(QStringLiteral("optDiario"));
    optFecha_->setChecked(true);
    auto* opciones = new QHBoxLayout;
    opciones->addWidget(optFecha_);
    opciones->addWidget(optDiario_);
    opciones->addStretch(1);
    rejilla()->addLayout(opciones, filas(), 0, 1, -1);
    tamanoInicial(520, 260);
}

void frmExtractos::ejecutar() {
    CriteriosExtracto c;
    c.delegaciones = texto(5);
    c.diarios = texto(0);
    c.cuentaDesde = texto(1);
    c.cuentaHasta = texto(2);
    c.fechaDesde = texto(3);
    c.fechaHasta = texto(4);
    c.porDiario = optDiario_->isChecked();
    const qint64 lineas =
        llenarExtractos(criterioExtracto(c), [this](qint64 h, qint64 t) { avanzar(h, t); });
    // This form, alone among the reports, answers an empty selection with 9999.
    if (lineas == 0) {
        MsgBox(MensajeError(9999), Icono::Critico);
        return;
    }
    imprimirTabla(QStringLiteral("Extracto.rpt"), QStringLiteral("Extractos"), formulasExtracto(c),
                  consultaExtracto(c.porDiario));
}
