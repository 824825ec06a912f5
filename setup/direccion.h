#pragma once

#include "forms/mantenimiento.h"

// Name and address, as companies and branches keep them: nombre (required), direccion, cp,
// poblacion, provincia, pais, telefono, fax, correo.
QList<mantenimiento::Campo> camposDireccion();
