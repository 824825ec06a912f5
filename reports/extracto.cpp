#include "extracto.h"

#include "criterios.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/global.h"
#include "temporal.h"

Extracto criterioExtracto(const CriteriosExtracto& c) {
    Extracto e;
    e.criterio = QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) + u' ';
    e.criterio += criterios::delegacion(c.delegaciones);
    if (!c.diarios.isEmpty())
        e.criterio += QStringLiteral("and codigo_diario in (") + criterios::lista(c.diarios) +
                      QStringLiteral(") ");
    // The balance brought forward takes the same company, branches and journals, and no
    // account bounds: each account adds its own condition.
    e.criterioAnterior = e.criterio;
    if (!c.cuentaDesde.isEmpty())
        e.criterio += QStringLiteral("and cuenta >= ") + sqlTexto(c.cuentaDesde) + u' ';
    if (!c.cuentaHasta.isEmpty())
        e.criterio += QStringLiteral("and cuenta <= ") + sqlTexto(c.cuentaHasta) + u' ';
    const QString desde = criterios::fechaODefecto(c.fechaDesde, sesion_fecha_inicial);
    e.criterio += QStringLiteral("and fecha_apunte >= ") + sqlTexto(desde) + u' ';
    e.criterioAnterior += QStringLiteral("and fecha_apunte < ") + sqlTexto(desde) + u' ';
    e.criterio += QStringLiteral("and fecha_apunte <= ") +
                  sqlTexto(criterios::fechaODefecto(c.fechaHasta, sesion_fecha_final)) + u' ';
    return e;
}

qint64 llenarExtractos(const Extracto& e, const Avance& avance) {
    // Each account's balance brought forward and title, looked up when its lines begin.
    QString ultimaCuenta;
    double saldoAnterior = 0;
    QVariant titulo;
    return llenarDesdeApuntes(
        e.criterio,
        QStringLiteral("cuenta, codigo_diario, fecha_apunte, numero_documento, numero_apunte, "
                       "concepto, debe, haber"),
        esquema::Extractos,
        [&](const Recordset& rs) -> QVariantList {
            const QString cuenta = rs.value(0).toString();
            if (cuenta != ultimaCuenta) {
                ultimaCuenta = cuenta;
                saldoAnterior =
                    Auxiliar::vBuscarCampo(
                        QStringLiteral("Apuntes"),
                        QStringLiteral("SUM(debe-haber) AS saldo_anterior"),
                        e.criterioAnterior + QStringLiteral(" AND cuenta = ") + sqlTexto(cuenta), 0)
                        .toDouble();
                titulo = criterios::titulo(cuenta);
            }
            return {cuenta,      rs.value(1), rs.value(2), rs.value(3),   rs.value(4),
                    rs.value(5), rs.value(6), rs.value(7), saldoAnterior, titulo};
        },
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
