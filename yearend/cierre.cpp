#include "cierre.h"

#include "asientofinal.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/ejercicios.h"
#include "data/entidades/entidad.h"
#include "regularizacion.h"

#include <QDate>

using namespace entidad;

namespace {
// A stored date plus one calendar year, as dd/mm/yyyy: 29 February gives 28 February.
QString unAnioDespues(const QString& fecha) {
    return QDate::fromString(fecha, QStringLiteral("yyyyMMdd"))
        .addYears(1)
        .toString(QStringLiteral("dd/MM/yyyy"));
}
}  // namespace

int Cierre::Insert(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                   const QString& documento_cierre, const QString& documento_apertura,
                   const QString& usuario, bool enTransaccion) {
    return ejecutar(conexion, Operacion::Insert, segun(enTransaccion), [&] {
        const asientofinal::Ejercicio e = asientofinal::leer(conexion, codigo_empresa, ejercicio);
        // The result account that the regularisation posted on the last day lies in these
        // groups, so the lines balance by themselves.
        const QList<asientofinal::Saldo> saldos = asientofinal::saldos(
            conexion, codigo_empresa, e, QStringLiteral("1"), QStringLiteral("6"));
        if (saldos.isEmpty()) return 0;

        const asientofinal::Linea cierre{documento_cierre, numeroCierre, diarioCierre,
                                         Auxiliar::dDate(e.final_),
                                         QStringLiteral("ASIENTO DE CIERRE")};
        const asientofinal::Linea apertura{documento_apertura, numeroApertura, diarioApertura,
                                           unAnioDespues(e.inicial),
                                           QStringLiteral("ASIENTO DE APERTURA")};
        int linea = 1;
        for (const asientofinal::Saldo& s : saldos) {
            asientofinal::apuntar(conexion, codigo_empresa, cierre, linea, s.cuenta, -s.centimos,
                                  usuario);
            asientofinal::apuntar(conexion, codigo_empresa, apertura, linea, s.cuenta, s.centimos,
                                  usuario);
            ++linea;
        }
        asientofinal::marcar(conexion, codigo_empresa, e, e.regularizado, QStringLiteral("S"),
                             usuario);

        if (marcaEjercicio(QStringLiteral("ejercicio"), codigo_empresa, ejercicio + 1) == u"#")
            Ejercicios::Insert(conexion, codigo_empresa, ejercicio + 1, unAnioDespues(e.inicial),
                               unAnioDespues(e.final_), QString(), QString(), QStringLiteral("N"),
                               QStringLiteral("N"), usuario, true);
        return linea - 1;
    });
}

void Cierre::Delete(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                    const QString& documento_cierre, const QString& documento_apertura,
                    const QString& usuario, bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        asientofinal::borrar(conexion, codigo_empresa, documento_cierre, numeroCierre);
        asientofinal::borrar(conexion, codigo_empresa, documento_apertura, numeroApertura);
        const asientofinal::Ejercicio e = asientofinal::leer(conexion, codigo_empresa, ejercicio);
        asientofinal::marcar(conexion, codigo_empresa, e, e.regularizado, QStringLiteral("N"),
                             usuario);
    });
}

Recordset Cierre::GetList(Conexion& conexion, const QString& condicion, const QString& orden) {
    return Apuntes::GetList(conexion, condicion, orden);
}

QString marcaEjercicio(const QString& campo, const QString& codigo_empresa, int ejercicio) {
    return Auxiliar::vBuscarCampo(QStringLiteral("Ejercicios"), campo,
                                  asientofinal::delEjercicio(codigo_empresa, ejercicio),
                                  QStringLiteral("#"))
        .toString();
}

bool InvertirCierre(Conexion& conexion, const QString& codigo_empresa, qint16 ejercicio,
                    const QString& usuario) {
    if (marcaEjercicio(QStringLiteral("cerrado"), codigo_empresa, ejercicio + 1) == u"S")
        return false;
    // Both deletions and both flags, or nothing: a year half reopened is worse than either.
    ejecutar(conexion, Operacion::Delete, Transaccional::Propia, [&] {
        Regularizacion::Delete(conexion, codigo_empresa, ejercicio,
                               documentoRegularizacion(ejercicio), usuario, true);
        Cierre::Delete(conexion, codigo_empresa, ejercicio, documentoCierre(ejercicio),
                       documentoApertura(ejercicio), usuario, true);
    });
    return true;
}

QString documentoRegularizacion(int ejercicio) {
    return QStringLiteral("REGU") + QString::number(ejercicio);
}
QString documentoCierre(int ejercicio) {
    return QStringLiteral("CIER") + QString::number(ejercicio);
}
QString documentoApertura(int ejercicio) {
    return QStringLiteral("APER") + QString::number(ejercicio + 1);
}
