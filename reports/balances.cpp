#include "balances.h"

#include "criterios.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/pergan.h"
#include "data/entidades/situacion.h"
#include "data/formato.h"
#include "data/global.h"
#include "estados.h"

#include <QDate>
#include <cmath>

namespace {

double centimos(double v) {
    return std::round(v * 100) / 100 + 0.0;  // never "-0"
}

QString anioAntes(const QString& yyyymmdd) {
    const QDate d = QDate::fromString(yyyymmdd, QStringLiteral("yyyyMMdd"));
    if (!d.isValid()) return {};
    return formato::sumar(d, formato::Intervalo::Anios, -1).toString(QStringLiteral("yyyyMMdd"));
}

// LIKE "patron%" on an account code: "%" any run of characters, "_" any one, letters without
// case, as the embedded store compares them.
bool coincide(QStringView cuenta, QStringView patron) {
    if (patron.isEmpty()) return true;  // the trailing "%"
    const QChar p = patron.front();
    if (p == u'%') {
        for (qsizetype i = 0; i <= cuenta.size(); ++i)
            if (coincide(cuenta.mid(i), patron.mid(1))) return true;
        return false;
    }
    if (cuenta.isEmpty()) return false;
    if (p != u'_' && p.toCaseFolded() != cuenta.front().toCaseFolded()) return false;
    return coincide(cuenta.mid(1), patron.mid(1));
}

bool comodines(const QString& prefijo) {
    return prefijo.contains(u'%') || prefijo.contains(u'_');
}

}  // namespace

Periodos periodosBalance(const CriteriosBalance& c) {
    Periodos p;
    if (c.fechaDesde.isEmpty()) {
        p.inicio = sesion_fecha_inicial;
        p.fin = sesion_fecha_final;
    } else {
        p.inicio = Auxiliar::sDate(c.fechaDesde);
        p.fin = Auxiliar::sDate(c.fechaHasta);
    }
    p.inicioAnterior = anioAntes(p.inicio);
    p.finAnterior = anioAntes(p.fin);
    return p;
}

SaldosCuentas SaldosCuentas::leer(const QString& desde, const QString& hasta) {
    SaldosCuentas s;
    Recordset rs = Auxiliar::GetListExt(
        *sesion_conexion, QStringLiteral("Apuntes"),
        QStringLiteral("cuenta, SUM(debe)-SUM(haber) AS Saldo"),
        QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
            QStringLiteral(" AND codigo_delegacion = ") + sqlTexto(sesion_delegacion) +
            QStringLiteral(" AND fecha_apunte BETWEEN ") + sqlTexto(desde) +
            QStringLiteral(" AND ") + sqlTexto(hasta),
        QStringLiteral("cuenta"), QString(), QString(), Cursor::Secuencial);
    for (; !rs.eof(); rs.moveNext()) s.cuentas_[rs.value(0).toString()] = rs.value(1).toDouble();
    return s;
}

double SaldosCuentas::saldo(const QStringList& prefijos) const {
    // A prefix inside another of the list adds nothing: the accounts are counted once, as
    // one look-up with the prefixes joined by OR counts each line once.
    QStringList simples;
    QStringList patrones;
    for (const QString& p : prefijos) (comodines(p) ? patrones : simples) << p;
    std::sort(simples.begin(), simples.end());
    QStringList disjuntos;
    for (const QString& p : simples)
        if (disjuntos.isEmpty() || !p.startsWith(disjuntos.last())) disjuntos << p;
    double total = 0;
    for (const auto& [cuenta, saldo] : cuentas_) {
        bool dentro = false;
        for (const QString& p : patrones) dentro = dentro || coincide(cuenta, p);
        if (!dentro) {
            // The last prefix not after the account is the only one that may begin it.
            auto it = std::upper_bound(disjuntos.cbegin(), disjuntos.cend(), cuenta);
            dentro = it != disjuntos.cbegin() && cuenta.startsWith(*(it - 1));
        }
        if (dentro) total += saldo;
    }
    return total;
}

namespace {

// The amounts of the period and of the year before for each line's cuentas text.
class Importes {
public:
    Importes(const CriteriosBalance& c, estados::Estado estado) : estado_(estado) {
        const Periodos p = periodosBalance(c);
        actual_ = SaldosCuentas::leer(p.inicio, p.fin);
        anterior_ = SaldosCuentas::leer(p.inicioAnterior, p.finAnterior);
    }
    double actual(const QString& lado, const QString& cuentas) const {
        return importe(actual_, lado, cuentas);
    }
    double anterior(const QString& lado, const QString& cuentas) const {
        return importe(anterior_, lado, cuentas);
    }

private:
    double importe(const SaldosCuentas& s, const QString& lado, const QString& cuentas) const {
        return centimos(
            estados::ImporteLinea(estado_, lado, cuentas,
                                  [&s](const QStringList& prefijos) { return s.saldo(prefijos); }));
    }
    estados::Estado estado_;
    SaldosCuentas actual_, anterior_;
};

}  // namespace

qint64 llenarBalanceSituacion(const CriteriosBalance& c, const Avance& avance) {
    Recordset rs = Situacion::GetList(
        *sesion_conexion, QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa),
        QString());
    if (rs.eof()) return 0;
    const Importes importes(c, estados::Estado::Situacion);
    const qint64 total = rs.recordCount();
    if (avance) avance(0, total);
    Relleno relleno(*sesion_temporal, esquema::BalanceSituacion);
    qint64 n = 0;
    for (; !rs.eof(); rs.moveNext()) {
        const QString ap = rs[QStringLiteral("ap")].toString();
        const QString cuentas = rs[QStringLiteral("cuentas")].toString();
        QVariantList fila{ap, rs[QStringLiteral("nivel_1")], rs[QStringLiteral("nivel_2")],
                          rs[QStringLiteral("nivel_3")], rs[QStringLiteral("titulo")]};
        // A title or a total has no cuentas: its figures come from the report.
        if (cuentas.isEmpty())
            fila << QVariant() << 0.0 << 0.0;
        else
            fila << estados::ListaVisible(cuentas) << importes.actual(ap, cuentas)
                 << importes.anterior(ap, cuentas);
        relleno.anadir(fila);
        ++n;
        if (avance) avance(n, total);
    }
    relleno.terminar();
    return n;
}

QStringList formulasSituacion(const CriteriosBalance& c) {
    return {criterios::formula(QStringLiteral("periodo='"),
                               criterios::periodo(c.fechaDesde, c.fechaHasta)),
            criterios::formula(QStringLiteral("empresa='"), criterios::empresa())};
}

QString consultaSituacion() {
    return QStringLiteral("SELECT * FROM BalanceSituacion ORDER BY ap, nivel_1, nivel_2, nivel_3");
}

ResultadosPyG calcularResultados(const QList<LineaPyG>& lineas) {
    ResultadosPyG r;
    auto& [A, B, AA, BB] = r;
    for (const LineaPyG& l : lineas) {
        if (l.nivel_1 != 1) continue;
        const double s = l.saldo, sa = l.saldo_ant;
        if (l.dh == u"D") {
            if (l.nivel_2 == 0 || l.nivel_2 == 1 || l.nivel_2 == 3) {
                const size_t i = l.nivel_2 == 0 ? 1 : l.nivel_2 == 1 ? 2 : 4;
                A[i] -= s, AA[i] -= sa, B[i] += s, BB[i] += sa;
            } else if (l.nivel_2 == 5) {
                A[6] -= s, AA[6] -= sa;
            }
        } else if (l.dh == u"H") {
            if (l.nivel_2 == 0 || l.nivel_2 == 1 || l.nivel_2 == 3) {
                const size_t i = l.nivel_2 == 0 ? 1 : l.nivel_2 == 1 ? 2 : 4;
                A[i] += s, AA[i] += sa, B[i] -= s, BB[i] -= sa;
            } else if (l.nivel_2 == 4) {
                B[5] -= s, BB[5] -= sa;
            } else if (l.nivel_2 == 5) {
                B[6] -= s, BB[6] -= sa;
            }
        }
    }
    const auto alCero = [](double& v) {
        if (v < 0) v = 0;
    };
    // Only the period's arrays are kept off the negative; the previous year's never are.
    for (size_t i : {1, 2, 4}) alCero(A[i]), alCero(B[i]);
    A[3] = A[2] + A[1] - B[1] - B[2];
    AA[3] = AA[2] + AA[1] - BB[1] - BB[2];
    B[3] = B[2] + B[1] - A[1] - A[2];
    BB[3] = BB[2] + BB[1] - AA[1] - AA[2];
    alCero(A[3]), alCero(B[3]);
    // These replace what the pass put in B5 and BB5.
    A[5] = A[4] + A[3] - B[3] - B[4];
    AA[5] = AA[4] + AA[3] - BB[3] - BB[4];
    B[5] = B[4] + B[3] - A[3] - A[4];
    BB[5] = BB[4] + BB[3] - AA[3] - AA[4];
    alCero(A[5]);
    // The test is on B5 and the effect on A5, and B5 stays negative.
    if (B[5] < 0) A[5] = 0;
    B[6] = B[5] - A[6];
    BB[6] = BB[5] - AA[6];
    A[6] = A[5] + A[6];
    AA[6] = AA[5] + AA[6];
    alCero(B[6]);
    for (auto* a : {&A, &B, &AA, &BB})
        for (double& v : *a) v = centimos(v);
    return r;
}

qint64 llenarBalancePyG(const CriteriosBalance& c, ResultadosPyG& resultados,
                        const Avance& avance) {
    Recordset rs =
        Pergan::GetList(*sesion_conexion,
                        QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa), QString());
    if (rs.eof()) return 0;
    const Importes importes(c, estados::Estado::PerdidasGanancias);
    const qint64 total = rs.recordCount();
    if (avance) avance(0, total);
    Relleno relleno(*sesion_temporal, esquema::BalancePyG);
    QList<LineaPyG> lineas;
    for (; !rs.eof(); rs.moveNext()) {
        const QString dh = rs[QStringLiteral("dh")].toString();
        const QString cuentas = rs[QStringLiteral("cuentas")].toString();
        LineaPyG l{dh, rs[QStringLiteral("nivel_1")].toInt(),
                   rs[QStringLiteral("nivel_2")].toInt()};
        QVariantList fila{dh,
                          rs[QStringLiteral("nivel_1")],
                          rs[QStringLiteral("nivel_2")],
                          rs[QStringLiteral("nivel_3")],
                          rs[QStringLiteral("nivel_4")],
                          rs[QStringLiteral("titulo")]};
        if (cuentas.isEmpty()) {
            fila << QVariant() << 0.0 << 0.0;
        } else {
            l.saldo = importes.actual(dh, cuentas);
            l.saldo_ant = importes.anterior(dh, cuentas);
            fila << estados::ListaVisible(cuentas) << l.saldo << l.saldo_ant;
        }
        relleno.anadir(fila);
        lineas << l;
        if (avance) avance(lineas.size(), total);
    }
    relleno.terminar();
    resultados = calcularResultados(lineas);
    return lineas.size();
}

QStringList formulasPyG(const CriteriosBalance& c, const ResultadosPyG& r) {
    QStringList f{criterios::formula(QStringLiteral("periodo='"),
                                     criterios::periodo(c.fechaDesde, c.fechaHasta)),
                  criterios::formula(QStringLiteral("empresa='"), criterios::empresa())};
    const std::pair<const char*, const std::array<double, 7>*> arrays[] = {
        {"A", &r.A}, {"AA", &r.AA}, {"B", &r.B}, {"BB", &r.BB}};
    for (const auto& [nombre, valores] : arrays)
        for (size_t i = 1; i <= 6; ++i)
            f << QString::fromLatin1(nombre) + QString::number(i) + u'=' +
                     formato::textoDouble((*valores)[i]);
    return f;
}

QString consultaPyG() {
    return QStringLiteral(
        "SELECT * FROM BalancePyG ORDER BY dh, nivel_1, nivel_2, nivel_3, nivel_4");
}
