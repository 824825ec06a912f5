#include "formularios_cartera.h"

#include "forms/formularios.h"
#include "forms/mantenimiento.h"
#include "frmseleccioncartera.h"

void registrarFormulariosCartera() {
    formularios::registrar(QStringLiteral("frmSeleccionCartera"),
                           [] { return static_cast<Formulario*>(new frmSeleccionCartera); });
    formularios::registrar(QStringLiteral("frmRegistroIva"),
                           [] { return static_cast<Formulario*>(nuevoFrmRegistroIva()); });
    formularios::registrar(QStringLiteral("frmCartera"),
                           [] { return static_cast<Formulario*>(nuevoFrmCartera()); });
}
