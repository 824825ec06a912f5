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
    // The lines as the entity class lists them, only the columns the table takes: a long
    // read costs by its values.
    Recordset rs = Auxiliar::GetListExt(
        *sesion_conexion, QStringLiteral("Apuntes"),
        QStringLiteral(
            "cuenta, fecha_apunte, numero_documento, numero_apunte, concepto, debe, haber"),
        criterio, QString(), QString(), QStringLiteral("cuenta"), Cursor::Secuencial);
    if (rs.eof()) return 0;
    const qint64 total = avance ? rs.recordCount() : -1;
    if (avance) avance(0, total);
    Relleno relleno(*sesion_temporal, esquema::LibroDiario);
    // Each account's title is looked up once per run: a book repeats a few hundred accounts
    // over its lines.
    QHash<QString, QVariant> titulos;
    qint64 n = 0;
    const auto i = [&rs](const char* campo) { return rs.indice(QString::fromLatin1(campo)); };
    const int cCuenta = i("cuenta"), cFecha = i("fecha_apunte"), cDocumento = i("numero_documento"),
              cApunte = i("numero_apunte"), cConcepto = i("concepto"), cDebe = i("debe"),
              cHaber = i("haber");
    for (; !rs.eof(); rs.moveNext()) {
        const QString cuenta = rs.value(cCuenta).toString();
        auto titulo = titulos.constFind(cuenta);
        if (titulo == titulos.cend()) titulo = titulos.insert(cuenta, criterios::titulo(cuenta));
        relleno.anadir({rs.value(cFecha), rs.value(cDocumento), rs.value(cApunte), cuenta, *titulo,
                        rs.value(cConcepto), rs.value(cDebe), rs.value(cHaber)});
        if (avance)
            avance(++n, total);
        else
            ++n;
    }
    relleno.terminar();
    return n;
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
