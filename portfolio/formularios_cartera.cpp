#include "formularios_cartera.h"

#include "forms/formularios.h"
#include "forms/mantenimiento.h"

void registrarFormulariosCartera() {
    formularios::registrar(QStringLiteral("frmRegistroIva"),
                           [] { return static_cast<Formulario*>(nuevoFrmRegistroIva()); });
}
