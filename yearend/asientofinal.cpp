#include "asientofinal.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/ejercicios.h"

#include <cmath>

namespace asientofinal {

QString delEjercicio(const QString& empresa, int anio) {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
           QStringLiteral(" and ejercicio = ") + QString::number(anio);
}

Ejercicio leer(Conexion& conexion, const QString& empresa, int anio) {
    Recordset rs = Ejercicios::GetList(conexion, delEjercicio(empresa, anio), {});
    if (rs.eof())
        throw Error(
            0,
            QStringLiteral("No existe el ejercicio %1 de la empresa %2.").arg(anio).arg(empresa));
    auto t = [&rs](const char* c) { return rs[QLatin1StringView(c)].toString(); };
    return {anio,
            t("fecha_inicial"),
            t("fecha_final"),
            t("inicio_bloqueo"),
            t("final_bloqueo"),
            t("regularizado"),
            t("cerrado")};
}

QList<Saldo> saldos(Conexion& conexion, const QString& empresa, const Ejercicio& ejercicio,
                    const QString& desde, const QString& hasta) {
    Recordset rs = conexion.open(
        QStringLiteral("SELECT cuenta, SUM(debe-haber) AS saldo FROM Apuntes WHERE "
                       "codigo_empresa = ") +
        sqlTexto(empresa) + QStringLiteral(" AND fecha_apunte BETWEEN ") +
        sqlTexto(ejercicio.inicial) + QStringLiteral(" AND ") + sqlTexto(ejercicio.final_) +
        QStringLiteral(" AND cuenta >= ") + sqlTexto(desde) + QStringLiteral(" AND cuenta < ") +
        sqlTexto(hasta) +
        QStringLiteral(" GROUP BY cuenta HAVING SUM(debe-haber) <> 0 ORDER BY cuenta"));
    QList<Saldo> s;
    for (; !rs.eof(); rs.moveNext()) {
        const qint64 c = std::llround(rs[QStringLiteral("saldo")].toDouble() * 100);
        if (c != 0) s.append({rs[QStringLiteral("cuenta")].toString(), c});
    }
    return s;
}

void apuntar(Conexion& conexion, const QString& empresa, const Linea& l, int numero_apunte,
             const QString& cuenta, qint64 centimosDebe, const QString& usuario) {
    const double debe = centimosDebe > 0 ? double(centimosDebe) / 100 : 0;
    const double haber = centimosDebe < 0 ? double(-centimosDebe) / 100 : 0;
    Apuntes::Insert(conexion, empresa, empresa, l.documento, l.numero, numero_apunte, l.diario,
                    l.fecha, QString(), QString(), cuenta, l.concepto, debe, haber,
                    QStringLiteral("A"), QString(), usuario);
}

void marcar(Conexion& conexion, const QString& empresa, const Ejercicio& e,
            const QString& regularizado, const QString& cerrado, const QString& usuario) {
    Ejercicios::Update(conexion, empresa, e.anio, Auxiliar::dDate(e.inicial),
                       Auxiliar::dDate(e.final_), Auxiliar::dDate(e.inicioBloqueo),
                       Auxiliar::dDate(e.finalBloqueo), regularizado, cerrado, usuario);
}

void borrar(Conexion& conexion, const QString& empresa, const QString& documento,
            const QString& numero) {
    conexion.execute(QStringLiteral("DELETE FROM Apuntes WHERE codigo_empresa = ") +
                     sqlTexto(empresa) + QStringLiteral(" AND codigo_delegacion = ") +
                     sqlTexto(empresa) + QStringLiteral(" AND codigo_documento = ") +
                     sqlTexto(documento) + QStringLiteral(" AND numero_documento = ") +
                     sqlTexto(numero));
}

}  // namespace asientofinal
