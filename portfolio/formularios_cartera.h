#pragma once

class FormularioMantenimiento;

// The forms of the portfolio and of the tax registers that keep the rows of posted entries.
FormularioMantenimiento* nuevoFrmRegistroIva();
FormularioMantenimiento* nuevoFrmCartera();

// Makes them known to the menu by their names.
void registrarFormulariosCartera();
