#pragma once

#include "recordset.h"

#include <QStringList>
#include <QVariant>
#include <vector>

class Conexion;
struct sqlite3_stmt;

// A long read walked once from its first row to its last: exports and the pages of reports.
// Each row's values go into a vector the caller keeps, of the same kinds a Recordset gives
// (text, whole number, double, Null). On SQLite the rows come through the library's own
// interface, one value made per value read, instead of through Qt's SQL classes, whose cost
// per value was most of a long export's time; elsewhere through a sequential Recordset.
// A reading belongs to whoever opened it and must not outlive its connection.
class Lectura {
public:
    Lectura() = default;
    Lectura(Lectura&& otra) noexcept;
    Lectura& operator=(Lectura&& otra) noexcept;
    ~Lectura();

    const QStringList& columnas() const { return columnas_; }
    // The next row into `fila`, one value per column; false at the end.
    bool leer(std::vector<QVariant>& fila);
    // The number of rows of the read, counted by the store the first time it is asked.
    qint64 total();

private:
    friend class Conexion;
    Lectura(Conexion* conexion, QString sql, sqlite3_stmt* sentencia);
    Lectura(Conexion* conexion, QString sql, Recordset rs);
    void cerrar();

    Conexion* conexion_ = nullptr;
    QString sql_;  // as the store runs it
    QStringList columnas_;
    sqlite3_stmt* sentencia_ = nullptr;
    Recordset rs_;
    bool primera_ = true;
    qint64 total_ = -1;
};
