#include "fuente.h"

#include "data/almacen/conexion.h"

namespace motor {

FuenteConsulta::FuenteConsulta(Conexion& conexion, const QString& sql)
    : rs_(conexion.open(sql, Cursor::Secuencial)) {
    for (int i = 0; i < rs_.fieldCount(); ++i) columnas_ << rs_.fieldName(i);
}

bool FuenteConsulta::leer(std::vector<QVariant>& fila) {
    if (!primera_ && !rs_.eof()) rs_.moveNext();
    primera_ = false;
    if (rs_.eof()) return false;
    fila.resize(size_t(columnas_.size()));
    for (int i = 0; i < columnas_.size(); ++i) fila[size_t(i)] = rs_.value(i);
    return true;
}

qint64 FuenteConsulta::total() {
    if (total_ == -2) total_ = rs_.recordCount();
    return total_;
}

bool FuenteMemoria::leer(std::vector<QVariant>& fila) {
    if (siguiente_ >= filas_.size()) return false;
    const QVariantList& f = filas_[siguiente_++];
    fila.assign(f.begin(), f.end());
    fila.resize(size_t(columnas_.size()));
    return true;
}

}  // namespace motor
