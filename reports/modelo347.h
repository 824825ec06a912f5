#pragma once

#include <QChar>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>

class Conexion;

// The model 347, the yearly declaration of operations with third parties, of one company over
// all its branches: what the VAT register holds of each third party and key (purchases, sales)
// in the calendar year, counted with VAT, its four quarters by invoice date, and the file the
// agency takes. It does not declare operations subject to withholding (they go in other
// models), cash amounts, rents of premises or parties abroad with their own identifiers; a
// declaration that names something the agency would reject lists it and is not written.

struct Declarado347 {
    QString nif;                 // normalised
    QString nombre, cp, codigo;  // codigo: the first Personal code found with this NIF
    QString pais;                // as Personal holds it; empty is Spain
    QChar clave;                 // 'A' purchases (register tipo C and I), 'B' sales (tipo V)
    qint64 anual = 0;            // cents, base + iva + re
    std::array<qint64, 4> trimestres{};  // cents, by the quarter of the invoice date
};

struct Declaracion347 {
    int anio = 0;
    QString nif, nombre, telefono, contacto;  // the declarant (company) and the contact
    QList<Declarado347> declarados;           // ordered by clave, then nif
    QStringList faltas;                       // one line per problem; empty = can be written
    qint64 total() const;
};

// The parties whose yearly total of a key reaches the threshold in absolute value (credit
// notes reduce it). Parties that share a NIF, however written, are one; a party without a NIF
// stands alone under its code. telefono/contacto: when empty, the company's telefono and
// nombre.
Declaracion347 calcular347(Conexion& c, const QString& empresa, int anio,
                           qint64 umbralCentimos = 300506, const QString& telefono = {},
                           const QString& contacto = {});

// The whole file: the declarant's record, then one per declared party and key, each of 500
// characters ended by CR LF, in ISO-8859-1. The declaration number comes from the time now.
QByteArray registros347(const Declaracion347& d);

// Refuses a declaration with faltas (error lists them); the file is replaced whole or not at
// all.
bool escribir347(const Declaracion347& d, const QString& ruta, QString& error);

// A text as the agency's files hold it: capitals without accents (Ñ and Ç kept), and a blank
// for whatever is not a letter, a digit, a blank or one of ".,-&".
QString textoAeat(const QString& texto);
