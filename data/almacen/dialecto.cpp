#include "dialecto.h"

#include "sql.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

QString aTexto(std::string_view s) {
    return QString::fromUtf8(s.data(), qsizetype(s.size()));
}

// Index of the parenthesis that closes the one opened just before `desde`, or -1.
qsizetype cierreParentesis(const QString& mascara, qsizetype desde) {
    int nivel = 1;
    for (qsizetype i = desde; i < mascara.size(); ++i) {
        if (mascara[i] == u'(') ++nivel;
        if (mascara[i] == u')' && --nivel == 0) return i;
    }
    return -1;
}

// Top-level commas of mascara[desde, hasta).
QList<qsizetype> comasPrincipales(const QString& mascara, qsizetype desde, qsizetype hasta) {
    QList<qsizetype> comas;
    int nivel = 0;
    for (qsizetype i = desde; i < hasta; ++i) {
        const QChar c = mascara[i];
        if (c == u'(')
            ++nivel;
        else if (c == u')')
            --nivel;
        else if (c == u',' && nivel == 0)
            comas.append(i);
    }
    return comas;
}

QString traducirDeleteJoin(const QString& sql) {
    static const QRegularExpression patron(
        QStringLiteral(
            R"(^\s*DELETE\s+(\w+)\.\*\s+FROM\s+(\w+)\s+INNER\s+JOIN\s+(\w+)\s+ON\s+(.*?)\s+WHERE\s+(.*)$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = patron.match(mascaraLiterales(sql));
    if (!m.hasMatch() || m.captured(1).compare(m.captured(3), Qt::CaseInsensitive) != 0) return sql;
    auto trozo = [&](int n) { return sql.mid(m.capturedStart(n), m.capturedLength(n)); };
    return QStringLiteral("DELETE FROM ") + trozo(3) +
           QStringLiteral(" WHERE EXISTS (SELECT 1 FROM ") + trozo(2) + QStringLiteral(" WHERE ") +
           trozo(4) + QStringLiteral(" AND (") + trozo(5) + QStringLiteral("))");
}

QString traducirLeft(QString sql) {
    static const QRegularExpression patron(QStringLiteral(R"(\bLEFT\s*\()"),
                                           QRegularExpression::CaseInsensitiveOption);
    qsizetype desde = 0;
    for (;;) {
        const QString mascara = mascaraLiterales(sql);
        const QRegularExpressionMatch m = patron.match(mascara, desde);
        if (!m.hasMatch()) return sql;
        const qsizetype abre = m.capturedEnd();
        const qsizetype cierra = cierreParentesis(mascara, abre);
        const QList<qsizetype> comas = comasPrincipales(mascara, abre, cierra < 0 ? 0 : cierra);
        if (cierra < 0 || comas.size() != 1) {
            desde = abre;
            continue;
        }
        sql.insert(comas.first() + 1, QStringLiteral(" 1,"));
        sql.replace(m.capturedStart(), m.capturedLength(), QStringLiteral("SUBSTR("));
        desde = m.capturedStart() + 7;
    }
}

bool esConstante(const QString& termino) {
    static const QRegularExpression numero(QStringLiteral(R"(^[+-]?\d+(\.\d+)?$)"));
    const QString t = termino.trimmed();
    return (t.size() >= 2 && t.startsWith(u'\'') && t.endsWith(u'\'')) ||
           numero.match(t).hasMatch();
}

QString traducirGroupBy(QString sql) {
    static const QRegularExpression grupo(QStringLiteral(R"(\bGROUP\s+BY\b)"),
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression fin(QStringLiteral(R"(\b(HAVING|ORDER\s+BY|LIMIT)\b)"),
                                        QRegularExpression::CaseInsensitiveOption);
    qsizetype desde = 0;
    for (;;) {
        const QString mascara = mascaraLiterales(sql);
        const QRegularExpressionMatch m = grupo.match(mascara, desde);
        if (!m.hasMatch()) return sql;
        const qsizetype inicio = m.capturedEnd();
        // The list ends at the next clause or at the parenthesis that closes a subquery.
        qsizetype final = mascara.size();
        const QRegularExpressionMatch f = fin.match(mascara, inicio);
        if (f.hasMatch()) final = f.capturedStart();
        const qsizetype cierra = cierreParentesis(mascara, inicio);
        if (cierra >= 0 && cierra < final) final = cierra;

        QStringList conservados;
        qsizetype trozoDesde = inicio;
        QList<qsizetype> cortes = comasPrincipales(mascara, inicio, final);
        cortes.append(final);
        for (qsizetype corte : cortes) {
            const QString termino = sql.mid(trozoDesde, corte - trozoDesde);
            if (!esConstante(termino)) conservados.append(termino.trimmed());
            trozoDesde = corte + 1;
        }
        const bool dejaEspacio = final < sql.size() && sql[final] != u')';
        const QString nueva = conservados.isEmpty()
                                  ? QString()
                                  : QStringLiteral(" ") + conservados.join(QStringLiteral(", ")) +
                                        (dejaEspacio ? QStringLiteral(" ") : QString());
        if (conservados.isEmpty()) {
            sql.replace(m.capturedStart(), final - m.capturedStart(),
                        dejaEspacio ? QStringLiteral(" ") : QString());
            desde = m.capturedStart();
        } else {
            sql.replace(inicio, final - inicio, nueva);
            desde = inicio + nueva.size();
        }
    }
}

// The words after which a condition starts, so that a LIKE there is a whole condition.
bool abreCondicion(const QString& mascara, qsizetype antes) {
    qsizetype fin = antes;
    while (fin > 0 && mascara[fin - 1].isSpace()) --fin;
    if (fin == 0 || mascara[fin - 1] == u'(') return true;
    qsizetype inicio = fin;
    while (inicio > 0 && (mascara[inicio - 1].isLetterOrNumber() || mascara[inicio - 1] == u'_'))
        --inicio;
    static const QStringList palabras = {
        QStringLiteral("WHERE"), QStringLiteral("AND"),  QStringLiteral("OR"),
        QStringLiteral("NOT"),   QStringLiteral("ON"),   QStringLiteral("HAVING"),
        QStringLiteral("WHEN"),  QStringLiteral("THEN"), QStringLiteral("ELSE")};
    return palabras.contains(mascara.mid(inicio, fin - inicio), Qt::CaseInsensitive);
}

// Whether what follows a LIKE's pattern leaves the condition whole: the end, a parenthesis
// that closes, or a word other than one that would extend the pattern.
bool cierraCondicion(const QString& mascara, qsizetype despues) {
    qsizetype i = despues;
    while (i < mascara.size() && mascara[i].isSpace()) ++i;
    if (i == mascara.size() || mascara[i] == u')' || mascara[i] == u';') return true;
    if (!mascara[i].isLetter()) return false;
    static const QRegularExpression extiende(QStringLiteral(R"(^(ESCAPE|COLLATE)\b)"),
                                             QRegularExpression::CaseInsensitiveOption);
    return !extiende.match(QStringView(mascara).mid(i)).hasMatch();
}

// "col LIKE 'p%'" where p is all digits and marks (no wildcard, no letter, whose case the
// stores would treat apart) also bounds col to the range of texts that begin with p, which
// an index on col answers; the LIKE stays, so the rows found are those of the text.
QString traducirLike(QString sql) {
    static const QRegularExpression patron(
        QStringLiteral(R"((?<![\w.])([A-Za-z_]\w*(?:\.[A-Za-z_]\w*)?)\s+LIKE\s+'(_*)')"),
        QRegularExpression::CaseInsensitiveOption);
    qsizetype desde = 0;
    for (;;) {
        const QString mascara = mascaraLiterales(sql);
        const QRegularExpressionMatch m = patron.match(mascara, desde);
        if (!m.hasMatch()) return sql;
        desde = m.capturedEnd();
        const QString columna = m.captured(1);
        const QString texto = sql.mid(m.capturedStart(2), m.capturedLength(2));
        if (columna.compare(u"NOT", Qt::CaseInsensitive) == 0 || !texto.endsWith(u'%') ||
            !abreCondicion(mascara, m.capturedStart(1)) ||
            !cierraCondicion(mascara, m.capturedEnd()))
            continue;
        const QString prefijo = texto.chopped(1);
        const bool aptos = std::all_of(prefijo.begin(), prefijo.end(), [](QChar c) {
            return c != u'%' && c != u'_' && c != u'\'' && !c.isLetter();
        });
        // The next text after every one that begins with the prefix: its last character one
        // higher, which must stay a character of its own and not a blank the store ignores.
        if (prefijo.isEmpty() || !aptos || prefijo.back() <= u' ' || prefijo.back() >= u'\xD7FF')
            continue;
        QString siguiente = prefijo;
        siguiente.back() = QChar(siguiente.back().unicode() + 1);
        const QString condicion = sql.mid(m.capturedStart(), m.capturedLength());
        const QString rango = u'(' + columna + QStringLiteral(" >= ") + sqlTexto(prefijo) +
                              QStringLiteral(" AND ") + columna + QStringLiteral(" < ") +
                              sqlTexto(siguiente) + QStringLiteral(" AND ") + condicion + u')';
        sql.replace(m.capturedStart(), m.capturedLength(), rango);
        desde = m.capturedStart() + rango.size();
    }
}

}  // namespace

QString mascaraLiterales(const QString& sql) {
    QString mascara = sql;
    bool dentro = false;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        if (mascara[i] == u'\'') {
            // A doubled apostrophe inside a literal is part of its content.
            if (dentro && i + 1 < mascara.size() && mascara[i + 1] == u'\'') {
                mascara[i] = mascara[i + 1] = u'_';
                ++i;
                continue;
            }
            dentro = !dentro;
        } else if (dentro) {
            mascara[i] = u'_';
        }
    }
    return mascara;
}

QString Dialecto::traducir(const QString& jet) const {
    return traducirGroupBy(traducirLeft(traducirLike(traducirDeleteJoin(jet))));
}

QString Dialecto::tipo(esquema::Tipo t) const {
    const bool pg = proveedor_ == Proveedor::PostgreSQL;
    switch (t) {
        case esquema::Tipo::Texto:
        case esquema::Tipo::Fecha:
            // Both compare without trailing blanks and in the order of the code points.
            return pg ? QStringLiteral("bpchar COLLATE \"C\"")
                      : QStringLiteral("TEXT COLLATE RTRIM");
        case esquema::Tipo::Entero16:
            return pg ? QStringLiteral("smallint") : QStringLiteral("INTEGER");
        case esquema::Tipo::Entero32:
            return QStringLiteral("INTEGER");
        case esquema::Tipo::Doble:
            return pg ? QStringLiteral("double precision") : QStringLiteral("REAL");
    }
    return {};
}

QString Dialecto::crearTabla(const esquema::Tabla& tabla) const {
    QStringList columnas, clave;
    const bool temporal = tabla.almacen == esquema::Almacen::Temporal;
    for (const esquema::Columna& c : tabla.columnas) {
        QString def = aTexto(c.nombre) + u' ' + tipo(c.tipo);
        if (c.clave) {
            def += QStringLiteral(" NOT NULL");
            clave.append(aTexto(c.nombre));
        }
        if (temporal && c.tipo == esquema::Tipo::Doble) def += QStringLiteral(" DEFAULT 0");
        columnas.append(def);
    }
    if (tabla.sello) {
        columnas.append(QStringLiteral("ultima_modificacion ") + tipo(esquema::Tipo::Texto));
        columnas.append(QStringLiteral("ultimo_usuario ") + tipo(esquema::Tipo::Texto));
    }
    if (!clave.isEmpty())
        columnas.append(QStringLiteral("PRIMARY KEY (") + clave.join(QStringLiteral(", ")) + u')');
    return QStringLiteral("CREATE TABLE IF NOT EXISTS ") + aTexto(tabla.nombre) +
           QStringLiteral(" (") + columnas.join(QStringLiteral(", ")) + u')';
}

QString Dialecto::crearIndice(const esquema::Indice& indice) const {
    QStringList columnas;
    for (std::string_view c : indice.columnas) columnas.append(aTexto(c));
    return QStringLiteral("CREATE INDEX IF NOT EXISTS ") + aTexto(indice.nombre) +
           QStringLiteral(" ON ") + aTexto(indice.tabla) + QStringLiteral(" (") +
           columnas.join(QStringLiteral(", ")) + u')';
}
