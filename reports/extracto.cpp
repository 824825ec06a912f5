#include "extracto.h"

#include "criterios.h"
#include "data/almacen/sql.h"
#include "data/global.h"
#include "temporal.h"

Extracto criterioExtracto(const CriteriosExtracto& c) {
    Extracto e;
    e.criterio = QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) + u' ';
    e.criterio += criterios::delegacion(c.delegaciones);
    if (!c.diarios.isEmpty())
        e.criterio += QStringLiteral("and codigo_diario in (") + criterios::lista(c.diarios) +
                      QStringLiteral(") ");
    if (!c.cuentaDesde.isEmpty())
        e.criterio += QStringLiteral("and cuenta >= ") + sqlTexto(c.cuentaDesde) + u' ';
    if (!c.cuentaHasta.isEmpty())
        e.criterio += QStringLiteral("and cuenta <= ") + sqlTexto(c.cuentaHasta) + u' ';
    // The balance brought forward takes the same company, branches, journals and accounts,
    // so that a statement of one account reads that account's earlier lines only.
    e.criterioAnterior = e.criterio;
    const QString desde = criterios::fechaODefecto(c.fechaDesde, sesion_fecha_inicial);
    e.criterio += QStringLiteral("and fecha_apunte >= ") + sqlTexto(desde) + u' ';
    e.criterioAnterior += QStringLiteral("and fecha_apunte < ") + sqlTexto(desde) + u' ';
    e.criterio += QStringLiteral("and fecha_apunte <= ") +
                  sqlTexto(criterios::fechaODefecto(c.fechaHasta, sesion_fecha_final)) + u' ';
    return e;
}

qint64 llenarExtractos(const Extracto& e, const Avance& avance) {
    // Each line with its account's balance before the period, summed once per account, and
    // its title. In no order: the report's reading sorts them in less time than the store takes
    // to read a year's lines account by account, and lines of one account and day keep the
    // order they were posted in, which the store reads them in.
    return llenarDesdePrincipal(
        esquema::Extractos,
        QStringLiteral("SELECT l.cuenta, l.codigo_diario, l.fecha_apunte, l.numero_documento, "
                       "l.numero_apunte, l.concepto, l.debe, l.haber, "
                       "COALESCE(a.saldo_anterior, 0), c.descripcion FROM (SELECT cuenta, "
                       "codigo_diario, fecha_apunte, numero_documento, numero_apunte, concepto, "
                       "debe, haber FROM Apuntes WHERE ") +
            e.criterio +
            QStringLiteral(") l LEFT JOIN (SELECT cuenta AS cuenta_anterior, SUM(debe-haber) AS "
                           "saldo_anterior FROM Apuntes WHERE ") +
            e.criterioAnterior +
            QStringLiteral(" GROUP BY cuenta) a ON a.cuenta_anterior = l.cuenta") + conTitulos(),
        avance);
}

QStringList formulasExtracto(const CriteriosExtracto& c) {
    QString empresa = criterios::empresa();
    if (!c.delegaciones.isEmpty()) empresa += QStringLiteral(" // Delegaciones: ") + c.delegaciones;
    return {criterios::formula(QStringLiteral("periodo='"),
                               criterios::periodo(c.fechaDesde, c.fechaHasta)),
            criterios::formula(QStringLiteral("empresa='"), empresa),
            criterios::formula(QStringLiteral("ordenacion = '"),
                               c.porDiario ? QStringLiteral("Por diario y fecha contable")
                                           : QStringLiteral("Por fecha contable"))};
}

QString consultaExtracto(bool porDiario) {
    return porDiario ? QStringLiteral(
                           "SELECT * FROM Extractos ORDER BY cuenta, codigo_diario, "
                           "fecha_apunte")
                     : QStringLiteral("SELECT * FROM Extractos ORDER BY cuenta, fecha_apunte");
}
