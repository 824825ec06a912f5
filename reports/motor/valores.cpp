#include "valores.h"

#include "data/formato.h"

#include <cmath>

namespace motor {

bool esDecimal(const QVariant& v) {
    return v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Float;
}

bool esEntero(const QVariant& v) {
    switch (v.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
            return true;
        default:
            return false;
    }
}

Valor valorDe(const QVariant& v) {
    if (esDecimal(v) || esEntero(v)) return Valor::deNumero(v.toDouble());
    return Valor::deTexto(v.isNull() ? QString() : v.toString());
}

QString importe(double valor) {
    QString t = formato::Format(valor, QStringLiteral("0.00"));
    const qsizetype coma = t.indexOf(u',');
    const qsizetype inicio = t.startsWith(u'-') ? 1 : 0;
    for (qsizetype i = coma - 3; i > inicio; i -= 3) t.insert(i, u'.');
    return t;
}

QString fechaVisible(const QString& f) {
    if (f.size() != 8) return f;
    return f.mid(6, 2) + u'/' + f.mid(4, 2) + u'/' + f.left(4);
}

QString mostrar(const Valor& v, Formato formato, bool blancoSiCero, bool parentesis) {
    switch (formato) {
        case Formato::Fecha:
            return fechaVisible(v.texto);
        case Formato::Importe: {
            if (v.esTexto) return v.texto;
            if (blancoSiCero && std::fabs(v.numero) < 0.005) return {};
            QString t = importe(v.numero);
            // The sign as written, so that an amount that rounds to zero shows no parentheses.
            if (parentesis && t.startsWith(u'-')) t = u'(' + t.mid(1) + u')';
            return t;
        }
        case Formato::Entero:
            if (v.esTexto) return v.texto;
            if (blancoSiCero && std::llround(v.numero) == 0) return {};
            return QString::number(std::llround(v.numero));
        case Formato::Texto:
            break;
    }
    if (v.esTexto) return v.texto;
    if (blancoSiCero && v.numero == 0) return {};
    return formato::textoDouble(v.numero).replace(u'.', u',');
}

}  // namespace motor
