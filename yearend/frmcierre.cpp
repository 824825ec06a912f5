#include "frmcierre.h"

#include "cierre.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/msgbox.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {
const QList<CampoInforme> kCampos{
    {0, QStringLiteral("Documento de cierre:"), CampoInforme::Clase::Texto, {}, 14},
    {1, QStringLiteral("Documento de apertura:"), CampoInforme::Clase::Texto, {}, 14},
};

QString flag(const char* campo, int anio) {
    return marcaEjercicio(QLatin1StringView(campo), sesion_empresa, anio);
}
}  // namespace

frmCierre::frmCierre()
    : FormularioCierre(QStringLiteral("frmCierre"), QStringLiteral("Cierre"), kCampos,
                       {claves::cancelar, claves::lupa}) {
    anadirVerAsiento(QStringLiteral("Ver asientos generados"));
    txt(0)->setText(documentoCierre(sesion_ejercicio));
    txt(1)->setText(documentoApertura(sesion_ejercicio));
    tamanoInicial(460, 170);
}

void frmCierre::ejecutar() {
    if (flag("cerrado", sesion_ejercicio) == u"S") {
        if (MsgBox(QStringLiteral("El ejercicio ya ha sido cerrado. ¿Desea ver los asientos?"),
                   Icono::Pregunta) == Respuesta::Si)
            verAsientos();
        return;
    }
    if (flag("regularizado", sesion_ejercicio) != u"S") {
        MsgBox(MensajeError(1047), Icono::Critico);
        return;
    }
    Cierre::Insert(*sesion_conexion, sesion_empresa, qint16(sesion_ejercicio), txt(0)->text(),
                   txt(1)->text(), sesion_usuario, false);
    if (chkVerAsiento()->isChecked()) verAsientos();
}

void frmCierre::verAsientos() {
    FormularioCierre::verAsientos(criterioAsiento({txt(0)->text(), txt(1)->text()}),
                                  QStringLiteral("Cierre.rpt"),
                                  QStringLiteral("Asiento de cierre"));
}

frmInvertir::frmInvertir()
    : FormularioCierre(QStringLiteral("frmInvertir"), QStringLiteral("Invertir cierre"), {},
                       {claves::cancelar, claves::lupa}) {
    auto* lbl = new QLabel(QStringLiteral("Esta operación invertirá el cierre del ejercicio ") +
                               QString::number(sesion_ejercicio),
                           this);
    lbl->setObjectName(QStringLiteral("lbl(0)"));
    rejilla()->addWidget(lbl, 0, 0);
    tamanoInicial(460, 120);
}

void frmInvertir::ejecutar() {
    if (!InvertirCierre(*sesion_conexion, sesion_empresa, qint16(sesion_ejercicio),
                        sesion_usuario)) {
        MsgBox(MensajeError(1048), Icono::Critico);
        return;
    }
    MsgBox(QStringLiteral("Operación finalizada."), Icono::Informacion);
    descargar();
}
