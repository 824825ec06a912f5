#include "lectura.h"

#include "conexion.h"

#include <sqlite3.h>

Lectura::Lectura(Conexion* conexion, QString sql, sqlite3_stmt* sentencia)
    : conexion_(conexion), sql_(std::move(sql)), sentencia_(sentencia) {
    // Named as Qt's driver names them, so that a reading and a Recordset head their columns
    // alike: without quotes, and without a table's name before a dot.
    const int n = sqlite3_column_count(sentencia_);
    for (int i = 0; i < n; ++i) {
        QString nombre = QString::fromUtf8(sqlite3_column_name(sentencia_, i)).remove(u'"');
        columnas_ << nombre.mid(nombre.lastIndexOf(u'.') + 1);
    }
}

Lectura::Lectura(Conexion* conexion, QString sql, Recordset rs)
    : conexion_(conexion), sql_(std::move(sql)), rs_(std::move(rs)) {
    for (int i = 0; i < rs_.fieldCount(); ++i) columnas_ << rs_.fieldName(i);
}

Lectura::Lectura(Lectura&& otra) noexcept {
    *this = std::move(otra);
}

Lectura& Lectura::operator=(Lectura&& otra) noexcept {
    if (this == &otra) return *this;
    cerrar();
    conexion_ = otra.conexion_;
    sql_ = std::move(otra.sql_);
    columnas_ = std::move(otra.columnas_);
    sentencia_ = std::exchange(otra.sentencia_, nullptr);
    rs_ = std::move(otra.rs_);
    primera_ = otra.primera_;
    total_ = otra.total_;
    return *this;
}

Lectura::~Lectura() {
    cerrar();
}

void Lectura::cerrar() {
    // Finalised at the end of the rows already, so that the read lets go of the file at once.
    sqlite3_finalize(std::exchange(sentencia_, nullptr));
}

bool Lectura::leer(std::vector<QVariant>& fila) {
    const auto n = size_t(columnas_.size());
    if (!sentencia_) {
        if (!primera_ && !rs_.eof()) rs_.moveNext();
        primera_ = false;
        if (rs_.eof()) return false;
        fila.resize(n);
        for (size_t i = 0; i < n; ++i) fila[i] = rs_.value(int(i));
        return true;
    }
    const int r = sqlite3_step(sentencia_);
    if (r != SQLITE_ROW) {
        sqlite3* db = sqlite3_db_handle(sentencia_);
        const QString mensaje = QString::fromUtf8(sqlite3_errmsg(db));
        cerrar();
        if (r == SQLITE_DONE) return false;
        conexion_->fallarSqlite(r, mensaje);
    }
    fila.resize(n);
    for (size_t i = 0; i < n; ++i) {
        const int c = int(i);
        // The kinds Qt's driver gives each value, so that what is made of them reads the same.
        switch (sqlite3_column_type(sentencia_, c)) {
            case SQLITE_INTEGER:
                fila[i] = qlonglong(sqlite3_column_int64(sentencia_, c));
                break;
            case SQLITE_FLOAT:
                fila[i] = sqlite3_column_double(sentencia_, c);
                break;
            case SQLITE_NULL:
                fila[i] = QVariant(QMetaType::fromType<QString>());
                break;
            case SQLITE_BLOB:
                fila[i] = QByteArray(static_cast<const char*>(sqlite3_column_blob(sentencia_, c)),
                                     sqlite3_column_bytes(sentencia_, c));
                break;
            default:
                fila[i] = QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(sentencia_, c)),
                    sqlite3_column_bytes(sentencia_, c));
                break;
        }
    }
    return true;
}

qint64 Lectura::total() {
    if (total_ < 0 && conexion_) total_ = contarFilas(*conexion_, sql_);
    return total_;
}
