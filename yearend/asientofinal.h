#pragma once

#include "data/almacen/conexion.h"

#include <QList>
#include <QString>

// What the regularisation and the closing share: the year's row, the balances of a range of
// groups over the year, the entries' lines, the flags and the removal of an entry.
namespace asientofinal {

struct Ejercicio {
    int anio = 0;
    QString inicial, final_, inicioBloqueo, finalBloqueo;  // yyyymmdd as stored
    QString regularizado, cerrado;
};

// The year's row; a year that does not exist is a failure.
Ejercicio leer(Conexion& conexion, const QString& empresa, int anio);

// The balance (debit minus credit) of each account whose code lies in [desde, hasta) over the
// year's dates, all branches of the company, in order of account. Balances are whole cents:
// the stored amounts are, and the sum's last bits of noise are no balance, so an account that
// comes to less than half a cent has no line.
struct Saldo {
    QString cuenta;
    qint64 centimos;
};
QList<Saldo> saldos(Conexion& conexion, const QString& empresa, const Ejercicio& ejercicio,
                    const QString& desde, const QString& hasta);

// One line of a year-end entry: branch = the company, no document date, reference or tag,
// kind "A"; the amount on the side its sign gives (positive, debit).
struct Linea {
    QString documento, numero, diario, fecha, concepto;  // fecha as dd/mm/yyyy
};
void apuntar(Conexion& conexion, const QString& empresa, const Linea& l, int numero_apunte,
             const QString& cuenta, qint64 centimosDebe, const QString& usuario);

// Rewrites the year with its own dates and the two flags given.
void marcar(Conexion& conexion, const QString& empresa, const Ejercicio& ejercicio,
            const QString& regularizado, const QString& cerrado, const QString& usuario);

// "DELETE FROM Apuntes" of the entry of that document and number in the company's branch.
void borrar(Conexion& conexion, const QString& empresa, const QString& documento,
            const QString& numero);

// The criterion of "codigo_empresa = … and ejercicio = …" the lookups and GetList use.
QString delEjercicio(const QString& empresa, int anio);

}  // namespace asientofinal
