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
    // The lines as the entity class lists them, only the columns the table takes: a long
    // read costs by its values.
    Recordset rs = Auxiliar::GetListExt(
        *sesion_conexion, QStringLiteral("Apuntes"),
        QStringLiteral("cuenta, codigo_diario, fecha_apunte, numero_documento, numero_apunte, "
                       "concepto, debe, haber"),
        e.criterio, QString(), QString(), QStringLiteral("cuenta"), Cursor::Secuencial);
    if (rs.eof()) return 0;
    const qint64 total = avance ? rs.recordCount() : -1;
    if (avance) avance(0, total);
    Relleno relleno(*sesion_temporal, esquema::Extractos);
    QString ultimaCuenta;
    QVariant saldoAnterior, titulo;
    qint64 n = 0;
    const auto i = [&rs](const char* campo) { return rs.indice(QString::fromLatin1(campo)); };
    const int cCuenta = i("cuenta"), cDiario = i("codigo_diario"), cFecha = i("fecha_apunte"),
              cDocumento = i("numero_documento"), cApunte = i("numero_apunte"),
              cConcepto = i("concepto"), cDebe = i("debe"), cHaber = i("haber");
    for (; !rs.eof(); rs.moveNext()) {
        const QString cuenta = rs.value(cCuenta).toString();
        if (cuenta != ultimaCuenta) {
            ultimaCuenta = cuenta;
            saldoAnterior = Auxiliar::vBuscarCampo(
                QStringLiteral("Apuntes"), QStringLiteral("SUM(debe-haber) AS saldo_anterior"),
                e.criterioAnterior + QStringLiteral(" AND cuenta = ") + sqlTexto(cuenta), 0);
            titulo = criterios::titulo(cuenta);
        }
        relleno.anadir({cuenta, rs.value(cDiario), rs.value(cFecha), rs.value(cDocumento),
                        rs.value(cApunte), rs.value(cConcepto), rs.value(cDebe), rs.value(cHaber),
                        saldoAnterior.toDouble(), titulo});
        if (avance)
            avance(++n, total);
        else
            ++n;
    }
    relleno.terminar();
    return n;
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
