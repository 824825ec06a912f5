#pragma once

class FormularioMantenimiento;

// "Usuarios": the users' codes and passwords, on the maintenance engine. The passwords show as
// they are: whoever may open this form may read them.
FormularioMantenimiento* nuevoFrmUsuarios();
