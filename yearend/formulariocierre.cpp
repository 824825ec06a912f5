#include "formulariocierre.h"

#include "data/almacen/sql.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/msgbox.h"
#include "reports/criterios.h"
#include "reports/librodiario.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QProgressBar>
#include <QToolBar>

FormularioCierre::FormularioCierre(const QString& nombre, const QString& titulo,
                                   const QList<CampoInforme>& campos,
                                   const QStringList& desactivadas)
    : FormularioInforme(nombre, titulo, campos) {
    ActivarBotones(barra(), {claves::insertar});
    DesactivarBotones(barra(), QStringList{claves::imprimir} + desactivadas);
    // The entries are a few hundred lines at most: nothing for a bar to tell.
    barraInformes()->hide();
    // The fields' checks first, as printing does, then the operation.
    connect(Boton(barra(), claves::insertar), &QAction::triggered, this, [this] { imprimir(); });
}

void FormularioCierre::anadirVerAsiento(const QString& texto) {
    chkVerAsiento_ = new QCheckBox(texto, this);
    chkVerAsiento_->setObjectName(QStringLiteral("chkVerAsiento"));
    rejilla()->addWidget(chkVerAsiento_, filas(), 1, 1, 2);
    connect(Boton(barra(), claves::cancelar), &QAction::triggered, chkVerAsiento_,
            [this] { chkVerAsiento_->setChecked(false); });
}

QString FormularioCierre::criterioAsiento(const QStringList& documentos) {
    QStringList d;
    for (const QString& doc : documentos)
        d << QStringLiteral("codigo_documento = ") + sqlTexto(doc);
    return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
           QStringLiteral(" and codigo_delegacion = ") + sqlTexto(sesion_empresa) +
           QStringLiteral(" and (") + d.join(QStringLiteral(" or ")) + u')';
}

void FormularioCierre::verAsientos(const QString& criterio, const QString& archivo,
                                   const QString& titulo) {
    if (llenarLibroDiario(criterio) == 0) {
        MsgBox(MensajeError(9000), Icono::Critico);
        return;
    }
    imprimirTabla(archivo, titulo,
                  {criterios::formula(QStringLiteral("empresa='"), criterios::empresa())},
                  consultaLibroDiario());
}
