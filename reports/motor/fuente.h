#pragma once

#include "data/almacen/lectura.h"

#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

class Conexion;

// The rows a report is laid out from, read one after another and never held all at once,
// unless its layout sorts them or totals them beforehand (Evaluador::preparar).
namespace motor {

class FuenteFilas {
public:
    virtual ~FuenteFilas() = default;
    virtual QStringList columnas() const = 0;
    // The next row into `fila` (one value per column); false at the end.
    virtual bool leer(std::vector<QVariant>& fila) = 0;
    // The number of rows when it is known beforehand, else -1: for progress only.
    virtual qint64 total() { return -1; }
};

// The rows of a query on a store, read as they are walked.
class FuenteConsulta : public FuenteFilas {
public:
    FuenteConsulta(Conexion& conexion, const QString& sql);
    QStringList columnas() const override { return lectura_.columnas(); }
    bool leer(std::vector<QVariant>& fila) override;
    qint64 total() override;

private:
    Lectura lectura_;
};

// Rows held in memory: tests, and the reports whose layout needs them all before the first.
class FuenteMemoria : public FuenteFilas {
public:
    FuenteMemoria(QStringList columnas, QList<QVariantList> filas)
        : columnas_(std::move(columnas)), filas_(std::move(filas)) {}
    // Every row of another source, read to its end.
    static std::unique_ptr<FuenteMemoria> retener(FuenteFilas& origen);

    QStringList columnas() const override { return columnas_; }
    bool leer(std::vector<QVariant>& fila) override;
    qint64 total() override { return filas_.size(); }

    // Sorts the rows by these columns, the first deciding; rows that tie keep their order.
    // Numbers go by value and texts character by character; a Null goes before any number,
    // and numbers before texts, so that a column of mixed values still has one order.
    void ordenar(const std::vector<int>& columnas);
    // The next row read is the first again.
    void rebobinar() { siguiente_ = 0; }

private:
    QStringList columnas_;
    QList<QVariantList> filas_;
    qsizetype siguiente_ = 0;
};

}  // namespace motor
