#include "librodiario.h"

#include "criterios.h"
#include "data/almacen/sql.h"
#include "data/global.h"
#include "temporal.h"

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
    // In no order, as the statement's: the report's reading sorts them.
    return llenarDesdePrincipal(
        esquema::LibroDiario,
        QStringLiteral("SELECT l.fecha_apunte, l.numero_documento, l.numero_apunte, l.cuenta, "
                       "c.descripcion, l.concepto, l.debe, l.haber, l.codigo_documento, "
                       "l.codigo_delegacion FROM (SELECT fecha_apunte, numero_documento, "
                       "numero_apunte, cuenta, concepto, debe, haber, codigo_documento, "
                       "codigo_delegacion FROM Apuntes WHERE ") +
            criterio + QStringLiteral(") l") + conTitulos(),
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
    // Two entries may share a date and a number (series without a prefix, or two branches):
    // their document and branch keep each one's lines together.
    return QStringLiteral(
        "SELECT * FROM LibroDiario ORDER BY fecha_apunte, numero_documento, codigo_documento, "
        "codigo_delegacion, numero_apunte");
}
