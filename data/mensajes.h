#pragma once

#include <QString>

// The text of a validation message by its code; any code without a text of its own,
// 9999 included, gives "Error no definido.".
QString MensajeError(int codigo);
