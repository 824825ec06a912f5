#pragma once

#include <QStringList>

// On top of crearEmpresaPrueba: the journal GEN, the series FAC of the year (length 5, next
// number 27), the documents FV (main line on the debit side, no VAT, no portfolio, numbered
// "FV" + FAC) and FR (with VAT and portfolio, numbered
// the same way), the posting accounts 43000001, 57200001,
// 70000001 and 47700001, and the session of ANA in EMP for the current year.
void prepararAsientos();

// The journal lines of the store, by entry and line, as "number|account|debit|credit|type".
QStringList lineasGuardadas();

// The store refuses every row of `tabla` numbered `numero` (its numero_apunte) while it lives:
// a failure in the middle of the saving of an entry.
class FalloProvocado {
public:
    explicit FalloProvocado(int numero, QString tabla = QStringLiteral("Apuntes"));
    // Any change: `evento` INSERT, UPDATE or DELETE of a row of `tabla` that meets
    // `condicion`, written on NEW or OLD ("OLD.numero_documento = '0000000000'").
    FalloProvocado(QString tabla, const QString& evento, const QString& condicion);
    ~FalloProvocado();
    FalloProvocado(const FalloProvocado&) = delete;
    FalloProvocado& operator=(const FalloProvocado&) = delete;

private:
    QString tabla_;
};
