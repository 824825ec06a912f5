#pragma once

#include "almacen/conexion.h"

#include <QStringList>

// The user's restriction letters for the items of the menu, in one branch: each row found adds
// its letters to the text at the item's position. Items the menu does not list are ignored.
void CargarRestricciones(Conexion& conexion, const QString& codigo_empresa,
                         const QString& codigo_delegacion, const QString& codigo_usuario,
                         const QStringList& items, QStringList& restricciones);
