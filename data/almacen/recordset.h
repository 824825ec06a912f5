#pragma once

#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVariant>
#include <memory>
#include <vector>

class Conexion;

// How a read walks its rows.
enum class Cursor {
    Estatico,    // every row read at once: a snapshot, with its count, untouched by later writes
    Secuencial,  // rows read as they are walked: for long reads such as reports
};

// The rows of one read: field access by name, end of set, move next and record count.
// A recordset belongs to whoever opened it and must not outlive its connection.
class Recordset {
public:
    Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    bool eof() const;
    void moveNext();
    // Number of rows of the read; for a sequential read it is counted by the store once.
    int recordCount();

    // Value of a field of the current row; Null stays Null. A name that is not a column of
    // the read, or a read at its end, is a failure.
    QVariant value(const QString& campo) const;
    QVariant value(int indice) const;
    QVariant operator[](const QString& campo) const { return value(campo); }

    int fieldCount() const;
    QString fieldName(int indice) const;
    void close();

private:
    friend class Conexion;
    Recordset(Conexion* conexion, QString sql, QSqlQuery consulta, Cursor cursor);
    // A sequential read through a cursor of the server, fetched in batches, so that other
    // statements may run on the same connection while it is walked.
    Recordset(Conexion* conexion, QString sql, QString cursorServidor);
    int indiceDe(const QString& campo) const;
    void comprobarFila() const;
    size_t leerFilas();
    void leerTodo();
    void siguienteLote();
    void cerrarCursor();

    Conexion* conexion_ = nullptr;
    QString sql_;
    QSqlQuery consulta_;
    QSqlRecord columnas_;
    Cursor cursor_ = Cursor::Estatico;
    QString cursorServidor_;
    bool eof_ = true;
    // Static reads keep all rows here, one after another; a server cursor its current batch;
    // other sequential reads only the current row.
    std::vector<QVariant> valores_;
    size_t fila_ = 0;
    size_t filasLote_ = 0;
    bool porLotes_ = false;  // valores_ holds whole rows, addressed by fila_
    int cuenta_ = -1;
};

// The number of rows of a read the store already runs as `traducida`, counted by the store.
qint64 contarFilas(Conexion& conexion, const QString& traducida);
