#include "formularios_asientos.h"

#include "forms/formularios.h"
#include "frmapunte.h"

void registrarFormulariosAsientos() {
    formularios::registrar(QStringLiteral("frmApunte"), [] { return new frmApunte; });
}
