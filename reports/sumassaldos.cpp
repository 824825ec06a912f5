#include "sumassaldos.h"

#include "criterios.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/cuentas.h"
#include "data/global.h"
#include "extracto.h"

#include <cmath>

namespace {

// Sums of amounts in cents read back as doubles carry dust (0.1 + 0.2 - 0.3); the table keeps
// cents, so that an account whose movements cancel out has exactly zero and is left out.
double centimos(const QVariant& v) {
    return std::round(v.toDouble() * 100) / 100 + 0.0;  // never "-0"
}

QString condicionCuenta(const QString& cuenta) {
    return QStringLiteral("cuenta = ") + sqlTexto(cuenta);
}

// Step 1: the chart's rows of the selected levels, with zero amounts.
void cargarPlan(const CriteriosSumas& c, int digitos, const Avance& avance) {
    Relleno relleno(*sesion_temporal, esquema::SumasSaldos);
    Recordset rs =
        cuentas::GetList(*sesion_conexion, criterioPlanSumas(c, digitos), QStringLiteral("cuenta"));
    const qint64 total = rs.recordCount();
    if (avance) avance(0, total);
    qint64 n = 0;
    for (; !rs.eof(); rs.moveNext()) {
        relleno.anadir({rs[QStringLiteral("cuenta")], rs[QStringLiteral("descripcion")],
                        rs[QStringLiteral("nivel")], 0.0, 0.0, 0.0, QStringLiteral("N")});
        if (avance) avance(++n, total);
    }
    relleno.terminar();
}

// Step 2: each posting account's balance brought forward and the period's debit and credit.
// An account outside the bounds has no row, and its amounts are dropped.
void cargarImportes(const CriteriosSumas& c, int digitos) {
    CriteriosExtracto ce;
    ce.delegaciones = c.delegaciones;
    ce.diarios = c.diarios;
    ce.cuentaDesde = c.cuentaDesde;
    ce.cuentaHasta = c.cuentaHasta;
    ce.fechaDesde = c.fechaDesde;
    ce.fechaHasta = c.fechaHasta;
    const Extracto e = criterioExtracto(ce);
    Conexion& t = *sesion_temporal;
    Transaccion tr(t);
    const QString apuntes = QStringLiteral("Apuntes");
    const QString cuenta = QStringLiteral("cuenta");
    Recordset anterior = Auxiliar::GetListExt(
        *sesion_conexion, apuntes, QStringLiteral("cuenta, SUM(debe-haber) as saldo_anterior"),
        e.criterioAnterior, cuenta, QString(), cuenta, Cursor::Secuencial);
    for (; !anterior.eof(); anterior.moveNext())
        t.actualizar(QStringLiteral("SumasSaldos"), {QStringLiteral("saldo_anterior")},
                     {centimos(anterior.value(1))}, condicionCuenta(anterior.value(0).toString()));
    Recordset periodo = Auxiliar::GetListExt(
        *sesion_conexion, apuntes, QStringLiteral("cuenta, SUM(debe) as debe, SUM(haber) as haber"),
        e.criterio, cuenta, QString(), cuenta, Cursor::Secuencial);
    for (; !periodo.eof(); periodo.moveNext())
        t.actualizar(QStringLiteral("SumasSaldos"),
                     {QStringLiteral("debe"), QStringLiteral("haber")},
                     {centimos(periodo.value(1)), centimos(periodo.value(2))},
                     condicionCuenta(periodo.value(0).toString()));
    tr.commit();
    if (!c.conMovimientos)
        t.execute(QStringLiteral("DELETE FROM SumasSaldos WHERE saldo_anterior = 0 and debe = 0 "
                                 "and haber = 0 and nivel = %1")
                      .arg(digitos));
}

// Step 3: the shorter levels take the sums of the posting accounts below them, one grouped
// statement a level; then the rows that only served as sources, or add nothing, go.
void acumularNiveles(const CriteriosSumas& c, int digitos) {
    Conexion& t = *sesion_temporal;
    {
        Transaccion tr(t);
        for (int n = digitos - 1; n >= 1; --n) {
            if (!c.niveles[size_t(n - 1)]) continue;
            Recordset rs = t.open(
                QStringLiteral("SELECT LEFT(cuenta,%1) as cuenta, SUM(saldo_anterior) as "
                               "saldo_anterior, SUM(debe) as debe, SUM(haber) as haber FROM "
                               "SumasSaldos WHERE (saldo_anterior <> 0 OR debe <> 0 or haber "
                               "<> 0) AND Nivel = %2 GROUP BY LEFT(cuenta,%1)")
                    .arg(n)
                    .arg(digitos));
            for (; !rs.eof(); rs.moveNext())
                t.actualizar(QStringLiteral("SumasSaldos"),
                             {QStringLiteral("saldo_anterior"), QStringLiteral("debe"),
                              QStringLiteral("haber"), QStringLiteral("mostrar")},
                             {centimos(rs.value(1)), centimos(rs.value(2)), centimos(rs.value(3)),
                              QStringLiteral("S")},
                             condicionCuenta(rs.value(0).toString()));
        }
        tr.commit();
    }
    Transaccion tr(t);
    if (!c.niveles[size_t(digitos - 1)])
        t.execute(QStringLiteral("DELETE FROM SumasSaldos WHERE nivel = %1").arg(digitos));
    if (!c.conMovimientos)
        t.execute(QStringLiteral("DELETE FROM SumasSaldos WHERE nivel <> %1 and mostrar = 'N'")
                      .arg(digitos));
    tr.commit();
}

}  // namespace

std::array<bool, 12> nivelesIniciales(int digitos) {
    std::array<bool, 12> n{};
    if (digitos >= 1 && digitos <= 12) n[size_t(digitos - 1)] = true;
    return n;
}

QString criterioPlanSumas(const CriteriosSumas& c, int digitos) {
    const QString desde = c.cuentaDesde.isEmpty() ? QString(digitos, u'0') : c.cuentaDesde;
    const QString hasta = c.cuentaHasta.isEmpty() ? QString(digitos, u'9') : c.cuentaHasta;
    QString niveles;
    for (int i = 0; i < 12; ++i) {
        // The posting accounts always go in: they are the source of every sum.
        if (!c.niveles[size_t(i)] && i != digitos - 1) continue;
        niveles += QStringLiteral("OR (cuenta >= ") + sqlTexto(desde.left(i + 1)) +
                   QStringLiteral(" AND cuenta <= ") + sqlTexto(hasta.left(i + 1)) +
                   QStringLiteral(" AND Nivel = %1) ").arg(i + 1);
    }
    QString criterio = QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) + u' ';
    if (!niveles.isEmpty()) criterio += QStringLiteral("AND (") + niveles.mid(3) + u')';
    return criterio;
}

qint64 llenarSumasSaldos(const CriteriosSumas& c, const Avance& avance) {
    const int digitos = sesion_digitos;
    cargarPlan(c, digitos, avance);
    cargarImportes(c, digitos);
    acumularNiveles(c, digitos);
    return Auxiliar::vBuscarCampoTemporal(QStringLiteral("SumasSaldos"), QStringLiteral("COUNT(*)"),
                                          QStringLiteral("1 = 1"), 0)
        .toLongLong();
}

QStringList formulasSumas(const CriteriosSumas& c) {
    int primero = 0;
    for (int i = 0; i < 12 && primero == 0; ++i)
        if (c.niveles[size_t(i)]) primero = i + 1;
    QString empresa = criterios::empresa();
    if (!c.delegaciones.isEmpty()) empresa += QStringLiteral(" // Delegaciones: ") + c.delegaciones;
    return {criterios::formula(QStringLiteral("periodo='"),
                               criterios::periodo(c.fechaDesde, c.fechaHasta)),
            QStringLiteral("niveles = %1").arg(primero),
            criterios::formula(QStringLiteral("empresa='"), empresa)};
}

QString consultaSumas() {
    return QStringLiteral("SELECT * FROM SumasSaldos ORDER BY cuenta");
}
