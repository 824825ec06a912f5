#include "formato.h"

#include "almacen/error.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace formato {
namespace {

int decimalesDe(const QString& patron) {
    const qsizetype punto = patron.indexOf(u'.');
    return punto < 0 ? 0 : int(patron.size() - punto - 1);
}

// Adds one unit in the last place of a non-negative decimal text such as "12.34".
std::string sumarUnidad(std::string texto) {
    for (qsizetype i = qsizetype(texto.size()) - 1; i >= 0; --i) {
        char& c = texto[size_t(i)];
        if (c == '.') continue;
        if (c != '9') {
            ++c;
            return texto;
        }
        c = '0';
    }
    return "1" + texto;
}

}  // namespace

QString Format(double valor, const QString& patron) {
    const int decimales = std::min(decimalesDe(patron), 15);
    if (!std::isfinite(valor)) return QString::number(valor);
    // Amounts are nearly always whole cents (or whole units of the last decimal): such a value
    // lies far from any half, so its rounding is the nearest whole number of units, written
    // here without printf. The books print millions of them.
    if (decimales <= 4) {
        static constexpr double kEscala[] = {1, 10, 100, 1000, 10000};
        const double escalado = valor * kEscala[decimales];
        const double entero = std::nearbyint(escalado);
        if (std::fabs(escalado) < 1e15 && std::fabs(escalado - entero) < 1e-3) {
            long long unidades = std::llabs(std::llround(entero));
            char buffer[32];
            int n = int(sizeof buffer);
            for (int i = 0; i < decimales; ++i, unidades /= 10)
                buffer[--n] = char('0' + unidades % 10);
            if (decimales > 0) buffer[--n] = ',';
            do {
                buffer[--n] = char('0' + unidades % 10);
                unidades /= 10;
            } while (unidades > 0);
            if (entero < 0) buffer[--n] = '-';
            return QString::fromLatin1(buffer + n, qsizetype(sizeof buffer) - n);
        }
    }
    const double magnitud = std::fabs(valor);
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimales, magnitud);
    std::string texto = buffer;
    // printf rounds the exact binary value correctly, and exact halves to even. An exact half
    // at this many decimals is a multiple of 2^-(decimales+1); its expansion then has
    // decimales+1 digits and ends in 5: such values are rounded away from zero instead.
    const double escalado = std::ldexp(magnitud, decimales + 1);
    if (escalado == std::floor(escalado) && escalado < 9.0e15) {
        std::snprintf(buffer, sizeof buffer, "%.*f", decimales + 1, magnitud);
        std::string largo = buffer;
        if (largo.back() == '5') {
            largo.pop_back();
            if (!largo.empty() && largo.back() == '.') largo.pop_back();
            texto = sumarUnidad(largo);
        }
    }
    const bool cero = texto.find_first_not_of("0.") == std::string::npos;
    QString resultado = QString::fromLatin1(texto.c_str());
    resultado.replace(u'.', u',');
    return (valor < 0 && !cero) ? u'-' + resultado : resultado;
}

QString textoDouble(double valor) {
    if (valor == 0) return QStringLiteral("0");
    if (!std::isfinite(valor)) return QString::number(valor);
    // The fewest significant digits (at most 15) that read back as the same double.
    char buffer[64];
    int digitos = 1;
    for (; digitos < 15; ++digitos) {
        std::snprintf(buffer, sizeof buffer, "%.*E", digitos - 1, valor);
        if (std::strtod(buffer, nullptr) == valor) break;
    }
    std::snprintf(buffer, sizeof buffer, "%.*E", digitos - 1, valor);
    const std::string cientifico = buffer;
    const size_t e = cientifico.find('E');
    const int exponente = std::atoi(cientifico.c_str() + e + 1);
    if (exponente < -4 || exponente >= 15) {
        std::string mantisa = cientifico.substr(0, e);
        if (mantisa.find('.') != std::string::npos) {
            while (mantisa.back() == '0') mantisa.pop_back();
            if (mantisa.back() == '.') mantisa.pop_back();
        }
        std::snprintf(buffer, sizeof buffer, "%sE%c%02d", mantisa.c_str(),
                      exponente < 0 ? '-' : '+', std::abs(exponente));
        return QString::fromLatin1(buffer);
    }
    std::snprintf(buffer, sizeof buffer, "%.*f", std::max(0, digitos - 1 - exponente), valor);
    std::string fijo = buffer;
    if (fijo.find('.') != std::string::npos) {
        while (fijo.back() == '0') fijo.pop_back();
        if (fijo.back() == '.') fijo.pop_back();
    }
    return QString::fromLatin1(fijo.c_str());
}

std::optional<double> leerNumero(const QString& texto) {
    // Either mark alone is the decimal mark. With both, the last one is the decimal mark and
    // the other separates thousands, in groups of three ("1.210,00", "1,210.00").
    static const QRegularExpression patron(QStringLiteral(
        R"(^\s*([+-]?)(\d+([.,]\d*)?|[.,]\d+|\d{1,3}(?:([.,])\d{3})+(?!\4)[.,]\d*)([Ee][+-]?\d+)?\s*$)"));
    const QRegularExpressionMatch m = patron.match(texto);
    if (!m.hasMatch()) return std::nullopt;
    QString cuerpo = m.captured(2);
    if (const QString miles = m.captured(4); !miles.isEmpty()) cuerpo.remove(miles.front());
    cuerpo.replace(u',', u'.');
    bool ok = false;
    const double valor = (m.captured(1) + cuerpo + m.captured(5)).toDouble(&ok);
    if (!ok) return std::nullopt;
    return valor;
}

std::optional<double> leerImporte(const QString& texto) {
    const std::optional<double> valor = leerNumero(texto);
    if (!valor || !std::isfinite(*valor)) return std::nullopt;
    // Whole cents, whatever the form typed ("100,50", "100,500", "1E2"): a fraction of a cent
    // would be stored although every book shows the amount rounded.
    const double centimos = *valor * 100;
    if (std::fabs(centimos) >= 1e15) return std::nullopt;
    const double enteros = std::nearbyint(centimos);
    // A true number of cents misses its whole number only by the rounding of the product,
    // a few parts in 10^16; a residue such as 5,7E-14 is no amount at all.
    if (std::fabs(centimos - enteros) > std::fabs(enteros) * 1e-12) return std::nullopt;
    return enteros / 100;
}

namespace {

// Products of cents and ten-thousandths of a percent overflow 64 bits; GCC's 128-bit integer
// holds them exactly.
__extension__ typedef __int128 Entero128;

// A quotient of whole numbers rounded half away from zero.
long long dividirRedondeando(Entero128 dividendo, Entero128 divisor) {
    if (divisor < 0) dividendo = -dividendo, divisor = -divisor;
    Entero128 cociente = dividendo / divisor;
    const Entero128 resto = dividendo % divisor;
    const Entero128 doble = resto < 0 ? -2 * resto : 2 * resto;
    if (doble >= divisor) cociente += dividendo < 0 ? -1 : 1;
    return static_cast<long long>(cociente);
}

Entero128 enUnidades(double valor, double escala) {
    if (!std::isfinite(valor) || std::fabs(valor * escala) >= 9e18)
        throw Error(6, QStringLiteral("Desbordamiento"));
    return std::llround(valor * escala);
}

QString centimosComoTexto(long long centimos) {
    return Format(double(centimos) / 100, QStringLiteral("0.00"));
}

}  // namespace

QString Cuota(double base, double pct) {
    // cents × ten-thousandths of a per cent: cents × 10^-6.
    return centimosComoTexto(
        dividirRedondeando(enUnidades(base, 100) * enUnidades(pct, 10000), 1000000));
}

QString BaseDeTotal(double total, double divisor) {
    const Entero128 unidades = enUnidades(divisor, 10000);
    if (unidades <= 0) throw Error(11, QStringLiteral("División por cero"));
    return centimosComoTexto(dividirRedondeando(enUnidades(total, 100) * 1000000, unidades));
}

bool IsNumeric(const QString& texto) {
    return leerNumero(texto).has_value();
}

double Val(const QString& texto) {
    static const QRegularExpression patron(
        QStringLiteral(R"(^\s*([+-]?(\d+\.?\d*|\.\d+))([EeDd][+-]?\d+)?)"));
    const QRegularExpressionMatch m = patron.match(texto);
    if (!m.hasMatch()) return 0;
    QString numero = m.captured(1) + m.captured(3);
    numero.replace(u'D', u'E').replace(u'd', u'E');
    return numero.toDouble();
}

std::optional<QDate> leerFecha(const QString& texto) {
    static const QRegularExpression patron(
        QStringLiteral(R"(^\s*(\d{1,2})([/.-])(\d{1,2})\2(\d{4}|\d{2})\s*$)"));
    const QRegularExpressionMatch m = patron.match(texto);
    if (!m.hasMatch()) return std::nullopt;
    int anio = m.captured(4).toInt();
    if (m.captured(4).size() == 2) anio += anio < 30 ? 2000 : 1900;
    const QDate fecha(anio, m.captured(3).toInt(), m.captured(1).toInt());
    if (!fecha.isValid()) return std::nullopt;
    return fecha;
}

QDate sumar(const QDate& fecha, Intervalo intervalo, int cantidad) {
    switch (intervalo) {
        case Intervalo::Anios:
            return fecha.addYears(cantidad);
        case Intervalo::Meses:
            return fecha.addMonths(cantidad);
        case Intervalo::Dias:
            return fecha.addDays(cantidad);
    }
    return fecha;
}

}  // namespace formato
