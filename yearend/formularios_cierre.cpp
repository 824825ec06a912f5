#include "formularios_cierre.h"

#include "forms/formularios.h"
#include "frmcierre.h"
#include "frmregularizacion.h"

void registrarFormulariosCierre() {
    formularios::registrar(QStringLiteral("frmRegularizacion"),
                           [] { return new frmRegularizacion; });
    formularios::registrar(QStringLiteral("frmCierre"), [] { return new frmCierre; });
    formularios::registrar(QStringLiteral("frmInvertir"), [] { return new frmInvertir; });
}
