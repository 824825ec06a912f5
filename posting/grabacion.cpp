#include "grabacion.h"

#include "data/almacen/conexion.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/global.h"

namespace {

bool seGraba(const QString& tipo) {
    static const QStringList tipos{QStringLiteral("P"),  QStringLiteral("IVA"),
                                   QStringLiteral("RE"), QStringLiteral("IRPF"),
                                   QStringLiteral("CP"), QStringLiteral("GC")};
    return tipos.contains(tipo);
}

}  // namespace

int GrabarAsiento(Conexion& conexion, const CabeceraAsiento& cabecera, const LineasAsiento& lineas,
                  const QString& usuario, const std::function<void(Conexion&)>& dependientes) {
    Transaccion t(conexion);
    int escritas = 0;
    for (const LineaApunte& l : lineas.lineas()) {
        if (!seGraba(l.tipo)) continue;
        ++escritas;
        Apuntes::Insert(conexion, sesion_empresa, sesion_delegacion, cabecera.documento,
                        cabecera.numero, l.numero, cabecera.diario, cabecera.fecha,
                        cabecera.fechaDocumento, cabecera.referencia, l.cuenta, l.concepto, l.debe,
                        l.haber, l.tipo, QString(), usuario);
    }
    if (dependientes) dependientes(conexion);
    t.commit();
    return escritas;
}

AsientoLeido LeerAsiento(Conexion& conexion, const QString& documento, const QString& numero) {
    AsientoLeido a;
    Recordset rs = Apuntes::GetList(
        conexion,
        QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
            QStringLiteral(" AND codigo_delegacion = ") + sqlTexto(sesion_delegacion) +
            QStringLiteral(" AND codigo_documento = ") + sqlTexto(documento) +
            QStringLiteral(" AND numero_documento = ") + sqlTexto(numero),
        QStringLiteral("codigo_empresa, codigo_delegacion, codigo_documento, numero_documento, "
                       "numero_apunte"));
    for (; !rs.eof(); rs.moveNext()) {
        a.encontrado = true;
        const QString tipo = NzTexto(rs.value(QStringLiteral("tipo")));
        const QString fecha = Auxiliar::dDate(NzTexto(rs.value(QStringLiteral("fecha_apunte"))));
        const double debe = rs.value(QStringLiteral("debe")).toDouble();
        const double haber = rs.value(QStringLiteral("haber")).toDouble();
        const QString cuenta = NzTexto(rs.value(QStringLiteral("cuenta")));
        const QString concepto = NzTexto(rs.value(QStringLiteral("concepto")));
        if (tipo == QStringLiteral("P")) {
            a.cabecera = {NzTexto(rs.value(QStringLiteral("codigo_diario"))),
                          documento,
                          numero,
                          fecha,
                          Auxiliar::dDate(NzTexto(rs.value(QStringLiteral("fecha_documento")))),
                          NzTexto(rs.value(QStringLiteral("referencia")))};
            a.cuenta = cuenta;
            a.debe = debe;
            a.haber = haber;
            a.concepto = concepto;
        } else if (tipo != QStringLiteral("IVA") && tipo != QStringLiteral("IRPF") &&
                   tipo != QStringLiteral("RE") && tipo != QStringLiteral("CP")) {
            continue;  // portfolio and year-end lines stay in the store, out of the list
        }
        // One side shows: the debit when it is not 0, the credit otherwise.
        a.lineas.AnadirLinea(rs.value(QStringLiteral("numero_apunte")).toInt(), fecha, cuenta,
                             debe != 0 ? debe : 0, debe != 0 ? 0 : haber, concepto, tipo);
    }
    return a;
}
