#pragma once

// Makes the year-end forms known to the menu by their names.
void registrarFormulariosCierre();
