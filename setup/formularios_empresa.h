#pragma once

class FormularioMantenimiento;

// The forms that set up a company. Each is a declaration on the maintenance engine with its
// differences in a few hooks.
FormularioMantenimiento* nuevoFrmEmpresas();
FormularioMantenimiento* nuevoFrmDelegaciones();
FormularioMantenimiento* nuevoFrmEjercicios();
FormularioMantenimiento* nuevoFrmNumeracion();
FormularioMantenimiento* nuevoFrmCuentas();
FormularioMantenimiento* nuevoFrmDocumentos();
FormularioMantenimiento* nuevoFrmDiarios();
FormularioMantenimiento* nuevoFrmImpuestos();
FormularioMantenimiento* nuevoFrmIrpf();
FormularioMantenimiento* nuevoFrmFormasPago();
FormularioMantenimiento* nuevoFrmPersonal();
FormularioMantenimiento* nuevoFrmAcrdeu();

// Makes them known to the menu by their names.
void registrarFormulariosEmpresa();
