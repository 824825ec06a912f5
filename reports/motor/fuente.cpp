#include "fuente.h"

#include "data/almacen/conexion.h"
#include "valores.h"

#include <algorithm>

namespace motor {

FuenteConsulta::FuenteConsulta(Conexion& conexion, const QString& sql)
    : lectura_(conexion.leer(sql)) {}

bool FuenteConsulta::leer(std::vector<QVariant>& fila) {
    return lectura_.leer(fila);
}

qint64 FuenteConsulta::total() {
    return lectura_.total();
}

bool FuenteMemoria::leer(std::vector<QVariant>& fila) {
    if (siguiente_ >= filas_.size()) return false;
    const QVariantList& f = filas_[siguiente_++];
    fila.assign(f.begin(), f.end());
    fila.resize(size_t(columnas_.size()));
    return true;
}

std::unique_ptr<FuenteMemoria> FuenteMemoria::retener(FuenteFilas& origen) {
    QList<QVariantList> filas;
    std::vector<QVariant> fila;
    while (origen.leer(fila)) filas << QVariantList(fila.begin(), fila.end());
    return std::make_unique<FuenteMemoria>(origen.columnas(), std::move(filas));
}

namespace {
// Null (the empty text), then numbers, then texts.
int clase(const Valor& v) {
    return !v.esTexto ? 1 : v.texto.isEmpty() ? 0 : 2;
}
}  // namespace

void FuenteMemoria::ordenar(const std::vector<int>& columnas) {
    if (columnas.empty()) return;
    std::stable_sort(filas_.begin(), filas_.end(),
                     [&](const QVariantList& a, const QVariantList& b) {
                         for (int c : columnas) {
                             const Valor x = valorDe(a.value(c)), y = valorDe(b.value(c));
                             const int cx = clase(x), cy = clase(y);
                             if (cx != cy) return cx < cy;
                             if (cx == 1 && x.numero != y.numero) return x.numero < y.numero;
                             if (cx == 2 && x.texto != y.texto) return x.texto < y.texto;
                         }
                         return false;
                     });
}

}  // namespace motor
