#include "frmregularizacion.h"

#include "cierre.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/msgbox.h"
#include "regularizacion.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>

namespace {
const QList<CampoInforme> kCampos{
    {0, QStringLiteral("Cuenta:"), CampoInforme::Clase::Texto, QStringLiteral("CUENTAS.cuenta"),
     14},
    {1, QStringLiteral("Tipo documento:"), CampoInforme::Clase::Texto, {}, 14},
};
}  // namespace

frmRegularizacion::frmRegularizacion()
    : FormularioCierre(QStringLiteral("frmRegularizacion"), QStringLiteral("Regularización"),
                       kCampos, {}) {
    des_ = new QLabel(this);
    des_->setObjectName(QStringLiteral("des"));
    des_->setMinimumWidth(des_->fontMetrics().averageCharWidth() * 40);
    rejilla()->addWidget(des_, 0, 2);
    anadirVerAsiento(QStringLiteral("Ver asiento generado"));
    txt(1)->setText(documentoRegularizacion(sesion_ejercicio));
    connect(Boton(barra(), claves::cancelar), &QAction::triggered, des_, &QLabel::clear);
    tamanoInicial(560, 170);
}

bool frmRegularizacion::comprobar(int i) {
    if (i != 0 || txt(0)->text().isEmpty()) return true;
    txt(0)->setText(ExpandirCuenta(txt(0)->text(), sesion_digitos));
    const QString titulo =
        Auxiliar::vBuscarCampo(QStringLiteral("Cuentas"), QStringLiteral("descripcion"),
                               QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                                   QStringLiteral(" AND cuenta = ") + sqlTexto(txt(0)->text()),
                               QStringLiteral("#"))
            .toString();
    if (titulo == u"#") {
        des_->clear();
        MsgBox(MensajeError(9999), Icono::Critico);
        return false;
    }
    des_->setText(titulo);
    return true;
}

void frmRegularizacion::ejecutar() {
    if (txt(0)->text().isEmpty()) {
        MsgBox(MensajeError(1000), Icono::Critico);
        txt(0)->setFocus();
        return;
    }
    // F2 pressed in the field has not left it yet.
    if (txt(0)->hasFocus() && !comprobar(0)) return;
    if (marcaEjercicio(QStringLiteral("regularizado"), sesion_empresa, sesion_ejercicio) == u"S") {
        if (MsgBox(QStringLiteral("El ejercicio ya ha sido regularizado. ¿Desea ver el asiento?"),
                   Icono::Pregunta) == Respuesta::Si)
            verAsiento();
        return;
    }
    Regularizacion::Insert(*sesion_conexion, sesion_empresa, qint16(sesion_ejercicio),
                           txt(0)->text(), txt(1)->text(), sesion_usuario, false);
    if (chkVerAsiento()->isChecked()) verAsiento();
}

void frmRegularizacion::verAsiento() {
    verAsientos(criterioAsiento({txt(1)->text()}), QStringLiteral("Regularizacion.rpt"),
                QStringLiteral("Asiento de regularización"));
}
