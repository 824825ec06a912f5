#include "regularizacion.h"

#include "asientofinal.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/entidad.h"

using namespace entidad;

int Regularizacion::Insert(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                           const QString& cuenta, const QString& codigo_documento,
                           const QString& usuario, bool enTransaccion) {
    return ejecutar(conexion, Operacion::Insert, segun(enTransaccion), [&] {
        const asientofinal::Ejercicio e = asientofinal::leer(conexion, codigo_empresa, ejercicio);
        const QList<asientofinal::Saldo> saldos = asientofinal::saldos(
            conexion, codigo_empresa, e, QStringLiteral("6"), QStringLiteral("8"));
        if (saldos.isEmpty()) return 0;

        const asientofinal::Linea l{codigo_documento, numero, diario, Auxiliar::dDate(e.final_),
                                    QStringLiteral("ASIENTO DE REGULARIZACIÓN")};
        // Each balance goes out on its opposite side; what income and expense leave over is
        // the year's result.
        qint64 totalDebe = 0, totalHaber = 0;
        int linea = 1;
        for (const asientofinal::Saldo& s : saldos) {
            asientofinal::apuntar(conexion, codigo_empresa, l, linea++, s.cuenta, -s.centimos,
                                  usuario);
            (s.centimos > 0 ? totalHaber : totalDebe) += qAbs(s.centimos);
        }
        if (totalDebe != totalHaber)
            asientofinal::apuntar(conexion, codigo_empresa, l, linea++, cuenta,
                                  totalHaber - totalDebe, usuario);
        asientofinal::marcar(conexion, codigo_empresa, e, QStringLiteral("S"), e.cerrado, usuario);
        return linea - 1;
    });
}

void Regularizacion::Delete(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                            const QString& codigo_documento, const QString& usuario,
                            bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        asientofinal::borrar(conexion, codigo_empresa, codigo_documento, numero);
        const asientofinal::Ejercicio e = asientofinal::leer(conexion, codigo_empresa, ejercicio);
        asientofinal::marcar(conexion, codigo_empresa, e, QStringLiteral("N"), e.cerrado, usuario);
    });
}

Recordset Regularizacion::GetList(Conexion& conexion, const QString& condicion,
                                  const QString& orden) {
    return Apuntes::GetList(conexion, condicion, orden);
}
