#pragma once

#include <QString>

// The one quoting function of the system: a text value as an SQL literal, in single quotes,
// with an embedded apostrophe doubled. Every text value that enters a statement passes here,
// so "L'Hospitalet" is data and no typed text can change what a statement means.
inline QString sqlTexto(const QString& valor) {
    QString literal = valor;
    literal.replace(u'\'', QStringLiteral("''"));
    return u'\'' + literal + u'\'';
}
