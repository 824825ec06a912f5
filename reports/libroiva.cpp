#include "libroiva.h"

#include "criterios.h"
#include "data/almacen/error.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"

PeriodoIva periodoLibroIva(const CriteriosLibroIva& c) {
    if (c.fechaDesde.isEmpty()) return {sesion_fecha_inicial, sesion_fecha_final};
    return {Auxiliar::sDate(c.fechaDesde),
            c.fechaHasta.isEmpty() ? QString() : Auxiliar::sDate(c.fechaHasta)};
}

QString consultaRegistroIva(const PeriodoIva& p) {
    return QStringLiteral(
               "SELECT RegistroIva.tipo, RegistroIva.numero_documento, Apuntes.fecha_documento, "
               "Personal.nif, Personal.nombre, RegistroIva.base, RegistroIva.pctiva, "
               "RegistroIva.iva, RegistroIva.pctre, RegistroIva.re ") +
           QStringLiteral(
               "FROM RegistroIva, Apuntes, Personal WHERE Apuntes.codigo_empresa = "
               "RegistroIva.codigo_empresa AND Apuntes.codigo_delegacion = "
               "RegistroIva.codigo_delegacion AND Apuntes.codigo_documento = "
               "RegistroIva.codigo_documento AND Apuntes.numero_documento = "
               "RegistroIva.numero_documento AND Apuntes.numero_apunte = "
               "RegistroIva.numero_apunte ") +
           QStringLiteral(
               "AND Personal.codigo_empresa = RegistroIva.codigo_empresa AND "
               "Personal.codigo = RegistroIva.codigo_personal ") +
           QStringLiteral("AND RegistroIva.codigo_empresa = ") + sqlTexto(sesion_empresa) +
           QStringLiteral(" AND RegistroIva.codigo_delegacion = ") + sqlTexto(sesion_delegacion) +
           QStringLiteral(" AND Apuntes.fecha_documento >= ") + sqlTexto(p.desde) +
           QStringLiteral(" AND Apuntes.fecha_documento <= ") + sqlTexto(p.hasta) + u' ';
}

qint64 llenarLibroIva(const CriteriosLibroIva& c, const Avance& avance) {
    return llenarDesdePrincipal(esquema::LibroIva, consultaRegistroIva(periodoLibroIva(c)), avance);
}

QStringList formulasLibroIva(const CriteriosLibroIva& c) {
    return {criterios::formula(QStringLiteral("periodo='"),
                               criterios::periodo(c.fechaDesde, c.fechaHasta)),
            criterios::formula(QStringLiteral("empresa='"), criterios::empresa())};
}

QString consultaLibroIva() {
    return QStringLiteral("SELECT * FROM LibroIva ORDER BY tipo, numero_documento");
}

QString consultaResumenIva() {
    return QStringLiteral("SELECT * FROM LibroIva ORDER BY tipo, pctiva");
}

QString cantidadTerceros(const QString& escrita) {
    if (escrita.isEmpty()) return QStringLiteral("3005.06");
    // The threshold goes into the statement as a number written by us; anything else could
    // change its meaning.
    const auto cantidad = formato::leerImporte(escrita);
    return cantidad ? formato::textoDouble(*cantidad) : QString();
}

QString consultaOperacionesTerceros(const CriteriosTerceros& c) {
    const QString desde = criterios::fechaODefecto(c.fechaDesde, sesion_fecha_inicial);
    const QString hasta = criterios::fechaODefecto(c.fechaHasta, sesion_fecha_final);
    const QString cantidad = cantidadTerceros(c.cantidad);
    if (cantidad.isEmpty())
        throw Error(0, QStringLiteral("Cantidad no válida: %1").arg(c.cantidad));
    return QStringLiteral(
               "SELECT RegistroIva.Tipo, Personal.nif, Personal.nombre, Personal.direccion, "
               "Personal.poblacion, Personal.cp, "
               "Sum(RegistroIva.re+RegistroIva.iva+RegistroIva.base) AS importe ") +
           QStringLiteral(
               "FROM Apuntes, RegistroIva, Personal WHERE RegistroIVA.codigo_empresa "
               "= Personal.codigo_empresa AND RegistroIVA.codigo_personal = "
               "Personal.codigo ") +
           QStringLiteral(
               "AND Apuntes.numero_apunte = RegistroIVA.numero_apunte AND "
               "Apuntes.numero_documento = RegistroIVA.numero_documento AND "
               "Apuntes.codigo_documento = RegistroIVA.codigo_documento ") +
           QStringLiteral(
               "AND Apuntes.codigo_delegacion = RegistroIVA.codigo_delegacion AND "
               "Apuntes.codigo_empresa = RegistroIVA.codigo_empresa AND "
               "RegistroIva.codigo_empresa = ") +
           sqlTexto(sesion_empresa) + u' ' +
           QStringLiteral("AND RegistroIva.codigo_delegacion = ") + sqlTexto(sesion_delegacion) +
           QStringLiteral(" AND Apuntes.fecha_documento >= ") + sqlTexto(desde) +
           QStringLiteral(" AND Apuntes.fecha_documento <= ") + sqlTexto(hasta) + u' ' +
           QStringLiteral(
               "GROUP BY RegistroIva.Tipo, Personal.nif, Personal.nombre, "
               "Personal.direccion, Personal.poblacion, Personal.cp ") +
           QStringLiteral("HAVING Sum(RegistroIva.re+RegistroIva.iva+RegistroIva.base) >= ") +
           cantidad;
}

qint64 llenarOperacionesTerceros(const CriteriosTerceros& c, const Avance& avance) {
    return llenarDesdePrincipal(esquema::OperacionesTerceros, consultaOperacionesTerceros(c),
                                avance);
}

QStringList formulasTerceros(const CriteriosTerceros& c) {
    return {criterios::formula(QStringLiteral("periodo='"),
                               criterios::periodo(c.fechaDesde, c.fechaHasta)),
            criterios::formula(QStringLiteral("empresa='"), criterios::empresa())};
}

QString consultaTerceros() {
    return QStringLiteral("SELECT * FROM OperacionesTerceros ORDER BY tipo, nif");
}
