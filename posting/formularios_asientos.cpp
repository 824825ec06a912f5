#include "formularios_asientos.h"

#include "forms/formularios.h"
#include "forms/msgbox.h"
#include "frmapunte.h"
#include "portfolio/frmseleccioncartera.h"

void registrarFormulariosAsientos() {
    formularios::registrar(QStringLiteral("frmApunte"), [] { return new frmApunte; });
    // The selection opened from the menu fills the open entry form's list, as the one its
    // button opens does.
    frmSeleccionCartera::ponerReceptorPorDefecto([](const QList<EfectoSeleccionado>& efectos) {
        auto* apunte = qobject_cast<frmApunte*>(formularios::buscar(QStringLiteral("frmApunte")));
        if (!apunte || !apunte->recibirEfectos(efectos))
            MsgBox(QStringLiteral("Los efectos seleccionados no tienen dónde ir: abra en "
                                  "«Entrada de apuntes» un asiento nuevo de un documento de "
                                  "cobros o pagos y vuelva a seleccionarlos."),
                   Icono::Critico);
    });
}
