#pragma once

#include <QString>
#include <array>
#include <optional>
#include <utility>

class Conexion;

// What an entry reads of the company's tables to split an invoice and propose its due dates:
// the third party of an account, a VAT type, a withholding type and a payment method. The entry
// form reads the store at every call, so that a type changed at another workstation counts at once;
// the benchmark's generator, whose tables stand still, may remember what it read.

// An account's role (customer, supplier, debtor, creditor) and what it proposes.
struct TerceroCuenta {
    QString tipo;    // "CLI", "PRO", "DEU", "ACR"
    QString codigo;  // in Personal
    QString impuesto;
    QString irpf;
    QString contrapartida;
    QString formaPago;
    std::optional<int> primerDia;  // the day of the month it pays on, when it has one
};

// A payment method: up to four due dates, each some days after the invoice and a percentage
// of its amount. A slot with no days is unused; a used slot without a percentage is absent.
struct FormaPago {
    std::array<QString, 4> vto;
    std::array<std::optional<double>, 4> pct;
};

// Percentages are absent where the store holds none.
struct TipoIva {
    std::optional<double> pctIva, pctRe;
    QString ctaIva, ctaRe;
    QString tipo;  // "C", "V", "I"
};

struct TipoIrpf {
    std::optional<double> pctIrpf;
    QString cuenta;
};

class CatalogoImpuestos {
public:
    virtual ~CatalogoImpuestos() = default;
    virtual std::optional<TerceroCuenta> tercero(const QString& cuenta) = 0;
    virtual std::optional<TipoIva> impuesto(const QString& codigo) = 0;
    virtual std::optional<TipoIrpf> irpf(const QString& codigo) = 0;
    virtual std::optional<FormaPago> formaPago(const QString& codigo) = 0;
};

// The tables of one company on one connection, read at every call.
class CatalogoAlmacen : public CatalogoImpuestos {
public:
    CatalogoAlmacen(Conexion& conexion, QString empresa)
        : conexion_(conexion), empresa_(std::move(empresa)) {}
    std::optional<TerceroCuenta> tercero(const QString& cuenta) override;
    std::optional<TipoIva> impuesto(const QString& codigo) override;
    std::optional<TipoIrpf> irpf(const QString& codigo) override;
    std::optional<FormaPago> formaPago(const QString& codigo) override;

private:
    Conexion& conexion_;
    QString empresa_;
};

// The session's company on the session's connection, whichever they are at the time of the call.
class CatalogoSesion : public CatalogoImpuestos {
public:
    std::optional<TerceroCuenta> tercero(const QString& cuenta) override;
    std::optional<TipoIva> impuesto(const QString& codigo) override;
    std::optional<TipoIrpf> irpf(const QString& codigo) override;
    std::optional<FormaPago> formaPago(const QString& codigo) override;
};
