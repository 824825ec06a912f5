#include "nifestricto.h"

#include <algorithm>

namespace {

constexpr char16_t kLetrasDni[] = u"TRWAGMYFPDXBNJZSQVHLCKE";

bool cifras(QStringView t) {
    return std::all_of(t.begin(), t.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// The letter of the number of a DNI, of a NIE with its first letter turned into a digit, or
// of the seven digits of a K, L or M.
QChar letraDni(qint64 numero) {
    return QChar(kLetrasDni[numero % 23]);
}

// The CIF's control digit: the digits in even places added, those in odd places doubled and
// their digits added, and what the total lacks to reach a ten.
int digitoCif(QStringView siete) {
    int suma = 0;
    for (qsizetype i = 0; i < 7; ++i) {
        const int d = siete[i].unicode() - u'0';
        suma += i % 2 ? d : (2 * d) / 10 + (2 * d) % 10;
    }
    return (10 - suma % 10) % 10;
}

}  // namespace

QString nifNormalizado(const QString& nif) {
    QString t;
    t.reserve(nif.size());
    for (QChar c : nif)
        if (!c.isSpace() && c != u'-' && c != u'/' && c != u'.') t += c.toUpper();
    return t;
}

bool nifValidoEstricto(const QString& nif) {
    const QString t = nifNormalizado(nif);
    if (t.size() != 9) return false;
    const QChar primero = t[0], ultimo = t[8];
    const QStringView medio = QStringView(t).mid(1, 7);
    if (cifras(QStringView(t).left(8)))
        return ultimo == letraDni(QStringView(t).left(8).toLongLong());
    if (!cifras(medio)) return false;
    if (QStringView(u"XYZ").contains(primero))
        return ultimo == letraDni((primero.unicode() - u'X') * 10'000'000LL + medio.toLongLong());
    if (QStringView(u"KLM").contains(primero)) return ultimo == letraDni(medio.toLongLong());
    if (!QStringView(u"ABCDEFGHJNPQRSUVW").contains(primero)) return false;
    const int digito = digitoCif(medio);
    const QChar comoCifra(u'0' + digito), comoLetra(QStringView(u"JABCDEFGHI")[digito]);
    if (QStringView(u"ABEH").contains(primero)) return ultimo == comoCifra;
    if (QStringView(u"PQSNW").contains(primero)) return ultimo == comoLetra;
    return ultimo == comoCifra || ultimo == comoLetra;
}
