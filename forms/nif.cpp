#include "nif.h"

#include "data/almacen/error.h"
#include "data/formato.h"

#include <cmath>

namespace nif {

namespace {

const QString kLetras = QStringLiteral("TRWAGMYFPDXBNJZSQVHLCKE");
const QString kLetrasCif = QStringLiteral("ABCDEFGHKLMNPQS");
// Doubled digits of the CIF control character; kept with the tables though the CIF control
// is not computed.
[[maybe_unused]] const QString kDobles = QStringLiteral("0246813579");

// Slash, hyphen and blank; a point is no separator.
QString quitarSeparadores(const QString& texto) {
    QString limpio;
    // The counter of the walk is a 16-bit one, as the length before stripping.
    const qint16 largo = qint16(texto.size());
    for (qint16 i = 0; i < largo; ++i) {
        const QChar c = texto.at(i);
        if (c != u'/' && c != u'-' && c != u' ') limpio += c;
    }
    return limpio;
}

// To a 32-bit integer, ties to the even one.
qint32 entero32(double valor) {
    const double redondeado = std::nearbyint(valor);
    if (!(redondeado >= -2147483648.0 && redondeado <= 2147483647.0))
        throw Error(6, QStringLiteral("Desbordamiento"));
    return qint32(redondeado);
}

}  // namespace

QString LetraControl(qint32 numero) {
    return kLetras.at(numero % 23);
}

QString CalcularLetraNif(QString texto) {
    const QString limpio = quitarSeparadores(texto);
    if (limpio.isEmpty()) return {};
    const QChar primero = limpio.at(0);
    if (primero >= u'0' && primero <= u'9') return LetraControl(entero32(formato::Val(limpio)));
    if (primero.toUpper() == u'X') return LetraControl(entero32(formato::Val(limpio.mid(1))));
    return {};
}

bool EsCif(QString texto) {
    const QString limpio = quitarSeparadores(texto);
    // An empty stripped text counts as found: the empty first character is in any table.
    const bool letra = limpio.isEmpty() || kLetrasCif.contains(limpio.at(0));
    return letra && texto.size() >= 9;
}

bool ComprobarNif(QString& texto) {
    if (texto.isEmpty()) return false;
    const QChar primero = texto.at(0);
    if (!(primero >= u'0' && primero <= u'9') && primero.toUpper() != u'X') return false;
    const QChar ultimo = texto.at(texto.size() - 1);
    if (ultimo >= u'0' && ultimo <= u'9') {
        texto += CalcularLetraNif(texto);
        return true;
    }
    return CalcularLetraNif(texto) == QString(ultimo);
}

bool NifValido(const QString& texto) {
    const bool cif = EsCif(texto);
    QString copia = texto;
    const bool nif = ComprobarNif(copia);
    return cif || nif;
}

}  // namespace nif
