#include "librodiario.h"

#include "criterios.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/global.h"
#include "temporal.h"

#include <QHash>

QString criterioLibroDiario(const CriteriosLibroDiario& c) {
    QString s = QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) + u' ';
    s += criterios::delegacion(c.delegaciones, true);
    if (!c.diarios.isEmpty())
        s += QStringLiteral("and codigo_diario in (") + criterios::lista(c.diarios) +
             QStringLiteral(") ");
    if (!c.tipoDocumento.isEmpty())
        s += QStringLiteral("and codigo_documento like ") + sqlTexto(c.tipoDocumento + u'%') + u' ';
    if (!c.documentoDesde.isEmpty())
        s += QStringLiteral("and numero_documento >= ") + sqlTexto(c.documentoDesde) + u' ';
    if (!c.documentoHasta.isEmpty())
        s += QStringLiteral("and numero_documento <= ") + sqlTexto(c.documentoHasta) + u' ';
    s += QStringLiteral("and fecha_apunte >= ") +
         sqlTexto(criterios::fechaODefecto(c.fechaDesde, sesion_fecha_inicial)) + u' ';
    s += QStringLiteral("and fecha_apunte <= ") +
         sqlTexto(criterios::fechaODefecto(c.fechaHasta, sesion_fecha_final)) + u' ';
    s += QStringLiteral("and (debe <> 0 or haber <> 0) ");
    return s;
}

qint64 llenarLibroDiario(const QString& criterio, const Avance& avance) {
    // Each account's title is looked up once per run: a book repeats a few hundred accounts
    // over its lines.
    QHash<QString, QVariant> titulos;
    return llenarDesdeApuntes(
        criterio,
        QStringLiteral(
            "cuenta, fecha_apunte, numero_documento, numero_apunte, concepto, debe, haber"),
        esquema::LibroDiario,
        [&](const Recordset& rs) -> QVariantList {
            const QString cuenta = rs.value(0).toString();
            auto titulo = titulos.constFind(cuenta);
            if (titulo == titulos.cend())
                titulo = titulos.insert(cuenta, criterios::titulo(cuenta));
            return {rs.value(1), rs.value(2), rs.value(3), cuenta,
                    *titulo,     rs.value(4), rs.value(5), rs.value(6)};
        },
        avance);
}

QStringList formulasLibroDiario(const CriteriosLibroDiario& c) {
    QString empresa = criterios::empresa();
    if (!c.delegaciones.isEmpty()) empresa += QStringLiteral(" // Delegación: ") + c.delegaciones;
    return {criterios::formula(QStringLiteral("periodo='"),
                               criterios::periodo(c.fechaDesde, c.fechaHasta)),
            criterios::formula(QStringLiteral("empresa='"), empresa)};
}

QString consultaLibroDiario() {
    return QStringLiteral(
        "SELECT * FROM LibroDiario ORDER BY fecha_apunte, numero_documento, numero_apunte");
}
