#include "formularios_informes.h"

#include "forms/formularios.h"
#include "frmextractos.h"
#include "frmlibrodiario.h"

void registrarFormulariosInformes() {
    formularios::registrar(QStringLiteral("frmExtractos"), [] { return new frmExtractos; });
    formularios::registrar(QStringLiteral("frmLibroDiario"), [] { return new frmLibroDiario; });
}
