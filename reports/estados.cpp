#include "estados.h"

namespace estados {

namespace {

Token token(const QString& texto) {
    if (texto.startsWith(u'?')) return {Clase::Interrogante, texto.mid(1)};
    // The last character goes whatever it is, closing parenthesis or not.
    if (texto.startsWith(u'(')) return {Clase::Parentesis, texto.mid(1, texto.size() - 2)};
    return {Clase::Prefijo, texto};
}

QStringList textos(const QString& cuentas) {
    QStringList partes;
    QString resto = cuentas;
    for (qsizetype coma = resto.indexOf(u','); coma > 0; coma = resto.indexOf(u',')) {
        partes << resto.left(coma).trimmed();
        resto = resto.mid(coma + 1);
    }
    partes << resto;
    return partes;
}

}  // namespace

QList<Token> LeerCuentas(const QString& cuentas) {
    QList<Token> tokens;
    for (const QString& t : textos(cuentas)) tokens << token(t);
    return tokens;
}

QString ListaVisible(const QString& cuentas) {
    QStringList visibles;
    for (const QString& t : textos(cuentas)) visibles << (t.startsWith(u'?') ? t.mid(1) : t);
    return visibles.join(QStringLiteral(", "));
}

double ImporteLinea(Estado estado, const QString& lado, const QString& cuentas,
                    const Saldo& saldo) {
    const bool situacion = estado == Estado::Situacion;
    const QString deudor = situacion ? QStringLiteral("A") : QStringLiteral("D");
    const QString acreedor = situacion ? QStringLiteral("P") : QStringLiteral("H");
    double acumulado = 0;
    QStringList lista;
    for (const Token& t : LeerCuentas(cuentas)) {
        switch (t.clase) {
            case Clase::Interrogante: {
                double s = saldo({t.prefijo});
                // Only a sum that falls on the line's own side counts.
                if ((lado == deudor && s < 0) || (lado == acreedor && s > 0)) s = 0;
                acumulado += s;
                break;
            }
            case Clase::Parentesis:
                acumulado -= saldo({t.prefijo});
                break;
            case Clase::Prefijo:
                lista << t.prefijo;
                break;
        }
    }
    if (!situacion) return lista.isEmpty() ? acumulado : saldo(lista) + acumulado;
    // The special tokens keep their debit-minus-credit sign beside plain prefixes on "P" too.
    if (!lista.isEmpty()) return (lado == deudor ? saldo(lista) : -saldo(lista)) + acumulado;
    return lado == deudor ? acumulado : -acumulado;
}

}  // namespace estados
