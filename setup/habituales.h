#pragma once

#include <QString>

class Conexion;
class FormularioMantenimiento;

// The starting rows a Spanish firm needs, offered to a company from the forms of its tax types
// and payment methods: VAT at 21, 10 and 4 % for sales and purchases, sales with the
// equivalence surcharge (5.2, 1.4 and 0.5 %), exempt sales and purchases and investment goods
// at 21 %; withholdings on professionals (15 and 7 %) and on rents (19 %); payment in cash, at
// 30 days, at 30 and 60, and at 30, 60 and 90.
//
// Each call adds, in one transaction, the rows whose code the company does not have yet, with
// the subaccounts they post to (one per rate when the chart is long enough, the group's
// account otherwise); rows already there are left as they are. It answers how many rows it
// added.
namespace habituales {

int Impuestos(Conexion& conexion, const QString& empresa, int digitos, const QString& usuario);
int Retenciones(Conexion& conexion, const QString& empresa, int digitos, const QString& usuario);
int FormasPago(Conexion& conexion, const QString& empresa, const QString& usuario);

// The account that a rate posts to: `grupo` "." `subcuenta` expanded to the chart's length, or
// the three-digit group filled with zeros when the chart is too short for the subaccount.
QString Cuenta(const QString& grupo, const QString& subcuenta, int digitos);

enum class Tabla { Impuestos, Retenciones, FormasPago };

// The toolbar button of a form that offers the table's starting rows to the session's company:
// it asks, adds what is missing, tells how many rows were added and lists the company's rows.
void OfrecerEn(FormularioMantenimiento* formulario, Tabla tabla);

}  // namespace habituales
