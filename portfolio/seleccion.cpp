#include "seleccion.h"

#include "data/almacen/error.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"

namespace {

// The numbers the failures of a bound carry, those the runtime gives the same mistakes.
constexpr qint32 kTiposNoCoinciden = 13;
constexpr qint32 kUsoNoValidoDeNull = 94;

// The third party that owns an account: an account bound names it. An account of nobody
// cannot bound anything, and would otherwise reach the statement as no code at all.
QString terceroDeCuenta(Conexion& conexion, const QString& empresa, const QString& cuenta) {
    Recordset fila =
        Auxiliar::GetListExt(conexion, QStringLiteral("Acrdeu"), QStringLiteral("codigo"),
                             QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
                                 QStringLiteral(" and cuenta = ") + sqlTexto(cuenta),
                             QString(), QString(), QString());
    if (fila.eof() || fila.value(0).isNull())
        throw Error(kUsoNoValidoDeNull,
                    QStringLiteral("La cuenta %1 no pertenece a ningún acreedor o deudor: no "
                                   "puede limitar la selección de efectos.")
                        .arg(cuenta));
    return fila.value(0).toString();
}

// Only a number reaches the statement, written with a point whatever mark the user typed.
QString importe(const QString& texto) {
    const std::optional<double> valor = formato::leerImporte(texto);
    if (!valor) throw Error(kTiposNoCoinciden, MensajeError(1004));
    return formato::textoDouble(*valor);
}

// A text that is no date would compare as an empty date: every item, or none.
QString fecha(const QString& texto) {
    const QString almacenada = Auxiliar::sDate(texto);
    if (almacenada.isEmpty()) throw Error(kTiposNoCoinciden, MensajeError(1004));
    return almacenada;
}

}  // namespace

QList<EfectoSeleccionado> SeleccionarEfectos(Conexion& conexion, const QString& empresa,
                                             const QString& delegacion, const QString& tipo,
                                             const CriteriosSeleccion& criterios) {
    const auto condicion = [](const QString& columna, const char* operador, const QString& valor) {
        return QStringLiteral("and Cartera.") + columna + u' ' + QLatin1StringView(operador) +
               u' ' + valor + u' ';
    };
    const QString personal = QStringLiteral("codigo_personal");
    const QString documento = QStringLiteral("numero_documento");
    QString donde = QStringLiteral("Cartera.codigo_empresa = ") + sqlTexto(empresa) +
                    QStringLiteral(" and Cartera.codigo_delegacion = ") + sqlTexto(delegacion) +
                    u' ';
    donde += condicion(QStringLiteral("tipo"), "=", sqlTexto(tipo));
    donde += QStringLiteral("and Cartera.estado = 'P' ");
    // Accounts and third parties bound the same column: an account stands for its owner, and
    // the codes of the owners are compared, not the account numbers.
    if (!criterios.cuentaInicial.isEmpty())
        donde += condicion(
            personal, ">=", sqlTexto(terceroDeCuenta(conexion, empresa, criterios.cuentaInicial)));
    if (!criterios.cuentaFinal.isEmpty())
        donde += condicion(
            personal, "<=", sqlTexto(terceroDeCuenta(conexion, empresa, criterios.cuentaFinal)));
    if (!criterios.terceroInicial.isEmpty())
        donde += condicion(personal, ">=", sqlTexto(criterios.terceroInicial));
    if (!criterios.terceroFinal.isEmpty())
        donde += condicion(personal, "<=", sqlTexto(criterios.terceroFinal));
    if (!criterios.documentoInicial.isEmpty())
        donde += condicion(documento, ">=", sqlTexto(criterios.documentoInicial));
    if (!criterios.documentoFinal.isEmpty())
        donde += condicion(documento, "<=", sqlTexto(criterios.documentoFinal));
    if (!criterios.importeMinimo.isEmpty())
        donde += condicion(QStringLiteral("importe"), ">=", importe(criterios.importeMinimo));
    if (!criterios.importeMaximo.isEmpty())
        donde += condicion(QStringLiteral("importe"), "<=", importe(criterios.importeMaximo));
    if (!criterios.fechaMinima.isEmpty())
        donde +=
            condicion(QStringLiteral("fecha_vto"), ">=", sqlTexto(fecha(criterios.fechaMinima)));
    if (!criterios.fechaMaxima.isEmpty())
        donde +=
            condicion(QStringLiteral("fecha_vto"), "<=", sqlTexto(fecha(criterios.fechaMaxima)));
    // An item whose third party has no Acrdeu row of the item's kind has no account to be
    // collected or paid on, and is never offered.
    donde += QStringLiteral(
        " and Cartera.codigo_empresa = Acrdeu.codigo_empresa and Cartera.codigo_personal = "
        "Acrdeu.codigo and Cartera.tipo_acrdeu = Acrdeu.tipo ");

    Recordset filas = Auxiliar::GetListExt(
        conexion, QStringLiteral("Cartera, Acrdeu"),
        QStringLiteral("Cartera.codigo_empresa, Cartera.codigo_delegacion, "
                       "Cartera.codigo_documento, Cartera.numero_documento, Cartera.fecha_vto, "
                       "Cartera.estado, Cartera.importe, Cartera.concepto, Acrdeu.cuenta"),
        donde, QString(), QString(), QString());
    QList<EfectoSeleccionado> efectos;
    for (; !filas.eof(); filas.moveNext())
        efectos.append({.estado = NzTexto(filas.value(QStringLiteral("estado"))),
                        .codigoDocumento = NzTexto(filas.value(QStringLiteral("codigo_documento"))),
                        .numeroDocumento = NzTexto(filas.value(QStringLiteral("numero_documento"))),
                        .fechaVto = NzTexto(filas.value(QStringLiteral("fecha_vto"))),
                        .cuenta = NzTexto(filas.value(QStringLiteral("cuenta"))),
                        .importe = Nz(filas.value(QStringLiteral("importe")), 0).toDouble(),
                        .concepto = NzTexto(filas.value(QStringLiteral("concepto")))});
    return efectos;
}
