#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

// The lines of the balance sheet and of the profit and loss account name their accounts in a
// `cuentas` text: tokens separated by ",". A plain prefix (430) takes the accounts that begin
// with it, by the side's sign; "?" and a prefix (?551) takes their sum only when it falls on
// the line's side; a prefix in parentheses ((281)) takes their sum with its sign changed.
namespace estados {

enum class Clase { Prefijo, Interrogante, Parentesis };

struct Token {
    Clase clase;
    QString prefijo;  // the accounts' beginning, without "?" or parentheses
};

// The tokens of a text. Each is trimmed but the last, which is taken as it stands; a comma at
// the very start of what remains ends the splitting, and all of it becomes the last token.
QList<Token> LeerCuentas(const QString& cuentas);

// The tokens as a statement prints them: without "?", with their parentheses, joined by ", ".
QString ListaVisible(const QString& cuentas);

// Debit minus credit of the accounts that begin with any of the prefixes.
using Saldo = std::function<double(const QStringList& prefijos)>;

enum class Estado { Situacion, PerdidasGanancias };

// The amount of one line. On the balance sheet the side is "A" or "P": plain prefixes count
// debit minus credit on "A" and credit minus debit on "P", and a line of "?" and "(…)" tokens
// alone has its sum turned on "P". In the profit and loss account, with "D" and "H", every
// amount is debit minus credit, so that a plain income line comes out negative.
double ImporteLinea(Estado estado, const QString& lado, const QString& cuentas, const Saldo& saldo);

}  // namespace estados
