#include "rejillaiva.h"

#include "data/almacen/error.h"
#include "data/almacen/sql.h"
#include "data/entidades/registroirpf.h"
#include "data/entidades/registroiva.h"
#include "data/formato.h"
#include "data/global.h"
#include "lineas.h"

namespace {

const QString k00 = QStringLiteral("0.00");
const QString kIva = QStringLiteral("IVA"), kRe = QStringLiteral("RE"),
              kIrpf = QStringLiteral("IRPF");

// A failure of the grid that the user can correct: the number of a value of the wrong kind.
constexpr qint32 kTiposNoCoinciden = 13;

QString formatoOVacio(const std::optional<double>& valor) {
    return valor ? formato::Format(*valor, k00) : QString();
}

QString pantallaOVacio(const std::optional<double>& valor) {
    return valor ? textoPantalla(*valor) : QString();
}

}  // namespace

std::optional<double> RejillaIva::numero(int i) const {
    return formato::leerNumero(txt(i));
}

void RejillaIva::limpiar() {
    txt_.fill(QString());
    oculto.fill(QString());
}

int RejillaIva::ValidarImpuestos(int indice, QString& texto) {
    const int f = fila(indice);
    if (f == 0 || texto.isEmpty()) return 0;
    switch (indice - 9 * f) {
        case 0:
        case 3:
        case 5:
        case 8:
            return formato::leerImporte(texto) ? 0 : 1004;
        case 1:
            texto = texto.toUpper();
            return catalogo_.impuesto(texto) ? 0 : 1003;
        case 6:
            texto = texto.toUpper();
            return catalogo_.irpf(texto) ? 0 : 1003;
        default:
            return 0;
    }
}

void RejillaIva::alSalir(int indice) {
    const int f = fila(indice);
    if (f == 0) return;
    const int b = 9 * f;
    switch (indice - b) {
        case 0:
            return RecalcularFila(b);
        case 1:
            return BuscarImpuesto(indice);
        case 3:
            return SumarIva();
        case 5:
            return SumarRe();
        case 6:
            return BuscarIrpf(indice);
        case 8:
            return SumarIrpf();
        default:
            return;
    }
}

void RejillaIva::RecalcularFila(int b) {
    if (txt(b).isEmpty()) {
        // The row empties; the totals keep their figures until the next recalculation.
        for (int i = b + 1; i <= b + 8; ++i) campo(i).clear();
        return;
    }
    const std::optional<double> base = numero(b);
    if (!base) return;
    campo(b) = formato::Format(*base, k00);
    for (int pct : {b + 2, b + 4, b + 7})
        if (const auto p = numero(pct)) campo(pct + 1) = formato::Cuota(*base, *p);
    SumarBases();
    SumarIva();
    SumarRe();
    SumarIrpf();
}

void RejillaIva::BuscarImpuesto(int c) {
    const int i = fila(c) - 1;
    const std::optional<TipoIva> tipo =
        txt(c).isEmpty() ? std::nullopt : catalogo_.impuesto(txt(c));
    if (!tipo) {
        for (int k = c + 1; k <= c + 4; ++k) campo(k).clear();
        ctaIVA[size_t(i)].clear();
        ctaRE[size_t(i)].clear();
    } else {
        campo(c + 1) = pantallaOVacio(tipo->pctIva);
        campo(c + 3) = pantallaOVacio(tipo->pctRe);
        if (const auto base = numero(c - 1)) {
            if (const auto p = numero(c + 1)) campo(c + 2) = formato::Cuota(*base, *p);
            if (const auto p = numero(c + 3)) campo(c + 4) = formato::Cuota(*base, *p);
        }
        ctaIVA[size_t(i)] = tipo->ctaIva;
        ctaRE[size_t(i)] = tipo->ctaRe;
    }
    SumarIva();
    SumarRe();
}

void RejillaIva::BuscarIrpf(int c) {
    const int i = fila(c) - 1;
    const std::optional<TipoIrpf> tipo = txt(c).isEmpty() ? std::nullopt : catalogo_.irpf(txt(c));
    if (!tipo) {
        campo(c + 1).clear();
        campo(c + 2).clear();
        ctaIRPF[size_t(i)].clear();
    } else {
        campo(c + 1) = pantallaOVacio(tipo->pctIrpf);
        const auto p = numero(c + 1), base = numero(c - 6);
        if (p && base) campo(c + 2) = formato::Cuota(*base, *p);
        ctaIRPF[size_t(i)] = tipo->cuenta;
    }
    SumarIrpf();
}

void RejillaIva::sumar(int desplazamiento, int total) {
    double suma = 0;
    for (int b = 9; b <= 36; b += 9) suma += numero(b + desplazamiento).value_or(0);
    campo(total) = formato::Format(suma, k00);
}

void RejillaIva::SumarBases() {
    sumar(0, 45);
}
void RejillaIva::SumarIva() {
    sumar(3, 46);
}
void RejillaIva::SumarRe() {
    sumar(5, 47);
}
void RejillaIva::SumarIrpf() {
    sumar(8, 48);
}

void RejillaIva::Proponer(const std::optional<TerceroCuenta>& tercero, const QString& importe) {
    txt_.fill(QString());
    // The accounts go with the texts: a type of the new proposal that is not found must not
    // post to the account of the one before.
    for (auto* cuentas : {&ctaIVA, &ctaRE, &ctaIRPF}) cuentas->fill(QString());
    if (tercero) {
        campo(10) = tercero->impuesto;
        campo(15) = tercero->irpf;
    }
    if (!txt(10).isEmpty())
        if (const std::optional<TipoIva> tipo = catalogo_.impuesto(txt(10))) {
            campo(11) = formatoOVacio(tipo->pctIva);
            campo(13) = formatoOVacio(tipo->pctRe);
            ctaIVA[0] = tipo->ctaIva;
            ctaRE[0] = tipo->ctaRe;
        }
    if (!txt(15).isEmpty())
        if (const std::optional<TipoIrpf> tipo = catalogo_.irpf(txt(15))) {
            campo(16) = formatoOVacio(tipo->pctIrpf);
            ctaIRPF[0] = tipo->cuenta;
        }
    const std::optional<double> total = formato::leerNumero(importe);
    if (!total) return;
    // The amount of the main line is base + VAT + surcharge - withholding.
    const double divisor =
        100 + numero(11).value_or(0) + numero(13).value_or(0) - numero(16).value_or(0);
    campo(9) = formato::BaseDeTotal(*total, divisor);
    const double base = *numero(9);
    for (int pct : {11, 13, 16})
        if (const auto p = numero(pct)) campo(pct + 1) = formato::Cuota(base, *p);
    campo(45) = txt(9);
    campo(46) = txt(12);
    campo(47) = txt(14);
    campo(48) = txt(17);
}

void RejillaIva::GenerarLineasIva(LineasAsiento& lineas, const QString& fecha,
                                  const QString& concepto, const QString& partida) {
    struct Clase {
        const QString& tipo;
        const std::array<QString, 4>& cuentas;
        int importe;  // the amount's field within the row
        const char* nombre;
    };
    const Clase clases[] = {
        {kIva, ctaIVA, 3, "IVA"}, {kRe, ctaRE, 5, "recargo"}, {kIrpf, ctaIRPF, 8, "IRPF"}};
    // Every amount is checked before a line changes: a refusal leaves the entry as it was.
    for (int i = 1; i <= 4; ++i) {
        const int b = 9 * i;
        if (txt(b + 1).isEmpty()) continue;
        for (const Clase& k : clases)
            if (!k.cuentas[size_t(i - 1)].isEmpty() && !numero(b + k.importe))
                throw Error(kTiposNoCoinciden,
                            QStringLiteral("La fila %1 del IVA no tiene un importe de %2 válido.")
                                .arg(i)
                                .arg(QLatin1StringView(k.nombre)));
    }
    for (const QString& tipo : {kIva, kRe, kIrpf}) lineas.BorrarLineasTipo(tipo);
    const bool debe = partida == u"D";
    for (int i = 1; i <= 4; ++i) {
        const int b = 9 * i;
        for (int k = 0; k < 3; ++k) {
            const Clase& clase = clases[k];
            QString& numeroLinea = oculto[size_t(3 * (i - 1) + k)];
            const QString& cuenta = clase.cuentas[size_t(i - 1)];
            if (txt(b + 1).isEmpty() || cuenta.isEmpty()) {
                numeroLinea.clear();  // no line: no number for a register row to point to
                continue;
            }
            // VAT and surcharge on the side opposite to the main line; withholding on its side.
            const bool alDebe = clase.tipo == kIrpf ? debe : !debe;
            const double importe = *numero(b + clase.importe);
            int recordado = int(formato::Val(numeroLinea));
            if (recordado > 0 && lineas.tiene(recordado)) recordado = 0;
            numeroLinea =
                QString::number(lineas.AnadirLinea(recordado, fecha, cuenta, alDebe ? importe : 0,
                                                   alDebe ? 0 : importe, concepto, clase.tipo));
        }
    }
}

void RejillaIva::InsertarRegistros(Conexion& conexion, const QString& empresa,
                                   const QString& delegacion, const QString& documento,
                                   const QString& numeroDocumento, const QString& cuenta,
                                   const QString& usuario) const {
    // Refused whole, before anything is written, should a row lack its line.
    for (int i = 1; i <= 4; ++i) {
        const int b = 9 * i;
        if (txt(b).isEmpty()) continue;
        if (!txt(b + 1).isEmpty() && oculto[size_t(3 * (i - 1))].isEmpty())
            throw Error(kTiposNoCoinciden,
                        QStringLiteral("No se puede grabar el asiento: la fila %1 del IVA no "
                                       "tiene su línea de IVA (el tipo %2 no tiene cuenta de "
                                       "IVA).")
                            .arg(i)
                            .arg(txt(b + 1)));
        if (!txt(b + 6).isEmpty() && oculto[size_t(3 * (i - 1) + 2)].isEmpty())
            throw Error(kTiposNoCoinciden,
                        QStringLiteral("No se puede grabar el asiento: la retención %1 de la "
                                       "fila %2 del IVA no tiene su línea de IRPF (la fila "
                                       "necesita un tipo de IVA y la retención, su cuenta).")
                            .arg(txt(b + 6))
                            .arg(i));
    }
    const std::optional<TerceroCuenta> tercero = catalogo_.tercero(cuenta);
    const QString tipoAcrdeu = tercero ? tercero->tipo : QString();
    const QString personal = tercero ? tercero->codigo : QString();
    const auto valor = [this](int i) { return numero(i).value_or(0); };
    for (int i = 1; i <= 4; ++i) {
        const int b = 9 * i;
        if (txt(b).isEmpty()) continue;
        if (!txt(b + 1).isEmpty()) {
            const std::optional<TipoIva> tipo = catalogo_.impuesto(txt(b + 1));
            RegistroIva::Insert(conexion, empresa, delegacion, documento, numeroDocumento,
                                oculto[size_t(3 * (i - 1))].toInt(), tipo ? tipo->tipo : QString(),
                                tipoAcrdeu, personal, txt(b + 1), valor(b), valor(b + 2),
                                valor(b + 3), valor(b + 4), valor(b + 5), usuario);
        }
        if (!txt(b + 6).isEmpty())
            RegistroIrpf::Insert(conexion, empresa, delegacion, documento, numeroDocumento,
                                 oculto[size_t(3 * (i - 1) + 2)].toInt(), tipoAcrdeu, personal,
                                 txt(b + 6), valor(b), valor(b + 7), valor(b + 8), usuario);
    }
}

void RejillaIva::Cargar(Conexion& conexion, const QString& empresa, const QString& delegacion,
                        const QString& documento, const QString& numeroDocumento,
                        const LineasAsiento& lineas) {
    const QString clave = QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
                          QStringLiteral(" and codigo_delegacion = ") + sqlTexto(delegacion) +
                          QStringLiteral(" and codigo_documento = ") + sqlTexto(documento) +
                          QStringLiteral(" and numero_documento = ") + sqlTexto(numeroDocumento) +
                          QStringLiteral(" and numero_apunte = ");
    const QString orden = QStringLiteral(
        "codigo_empresa, codigo_delegacion, codigo_documento, numero_documento, numero_apunte");
    const auto texto = [](const QVariant& v) { return textoPantalla(v.toDouble()); };
    int rIva = 1, kIva = 0, rIrpf = 1, kIrpf = 0;
    // The grid has four rows: register rows beyond them have no fields to go to.
    for (const LineaApunte& l : lineas.lineas()) {
        const QString condicion = clave + QString::number(l.numero);
        if (l.tipo == u"IVA" && kIva < 4) {
            Recordset rs = RegistroIva::GetList(conexion, condicion, orden);
            if (rs.eof()) continue;
            const int r = rIva++, k = kIva++;
            campo(3 * r + 6) = texto(rs["base"]);
            campo(3 * r + 7) = NzTexto(rs["impuesto"]);
            campo(3 * r + 8) = texto(rs["pctiva"]);
            campo(3 * r + 9) = texto(rs["iva"]);
            campo(3 * r + 10) = texto(rs["pctre"]);
            campo(3 * r + 11) = texto(rs["re"]);
            if (rs["pctiva"].toDouble() > 0) oculto[size_t(3 * k)] = QString::number(l.numero);
            if (rs["pctre"].toDouble() > 0)
                oculto[size_t(3 * k + 1)] = QString::number(l.numero + 1);
            BuscarImpuesto(9 * k + 10);
        } else if (l.tipo == u"IRPF" && kIrpf < 4) {
            Recordset rs = RegistroIrpf::GetList(conexion, condicion, orden);
            if (rs.eof()) continue;
            const int r = rIrpf++, k = kIrpf++;
            campo(3 * r + 6) = texto(rs["base"]);
            campo(3 * r + 12) = NzTexto(rs["codigo_irpf"]);
            campo(3 * r + 13) = texto(rs["pctirpf"]);
            campo(3 * r + 14) = texto(rs["irpf"]);
            if (rs["pctirpf"].toDouble() > 0) oculto[size_t(3 * k + 2)] = QString::number(l.numero);
            BuscarIrpf(9 * k + 15);
        }
    }
    SumarBases();
    SumarIva();
    SumarRe();
    SumarIrpf();
}
