#include "formularios_informes.h"

#include "forms/formularios.h"
#include "frmbalances.h"
#include "frmestructuras.h"
#include "frmextractos.h"
#include "frmlibrodiario.h"
#include "frmlibroiva.h"
#include "frmsumassaldos.h"

void registrarFormulariosInformes() {
    formularios::registrar(QStringLiteral("frmExtractos"), [] { return new frmExtractos; });
    formularios::registrar(QStringLiteral("frmLibroDiario"), [] { return new frmLibroDiario; });
    formularios::registrar(QStringLiteral("frmSituacion"),
                           [] { return static_cast<Formulario*>(nuevoFrmSituacion()); });
    formularios::registrar(QStringLiteral("frmPergan"),
                           [] { return static_cast<Formulario*>(nuevoFrmPergan()); });
    formularios::registrar(QStringLiteral("frmSumasSaldos"), [] { return new frmSumasSaldos; });
    formularios::registrar(QStringLiteral("frmBalanceSituacion"),
                           [] { return new frmBalanceSituacion; });
    formularios::registrar(QStringLiteral("frmBalancePyG"), [] { return new frmBalancePyG; });
    formularios::registrar(QStringLiteral("frmLibroIva"), [] { return new frmLibroIva; });
    formularios::registrar(QStringLiteral("frmOperacionesTerceros"),
                           [] { return new frmOperacionesTerceros; });
}
