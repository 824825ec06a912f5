#include "temporal.h"

#include "data/auxiliar.h"
#include "data/global.h"

#include <QHash>

namespace {
QHash<QString, quint64>& generaciones() {
    static QHash<QString, quint64> g;
    return g;
}

Conexion& vaciada(Conexion& c, const QString& tabla) {
    c.execute(QStringLiteral("DELETE FROM ") + tabla);
    ++generaciones()[tabla.toLower()];
    return c;
}
}  // namespace

Relleno::Relleno(Conexion& temporal, const esquema::Tabla& tabla)
    : c_(vaciada(temporal, QString::fromUtf8(tabla.nombre.data(), qsizetype(tabla.nombre.size())))),
      tabla_(QString::fromUtf8(tabla.nombre.data(), qsizetype(tabla.nombre.size()))),
      t_(temporal) {
    for (const auto& c : tabla.columnas)
        columnas_ << QString::fromUtf8(c.nombre.data(), qsizetype(c.nombre.size()));
}

namespace {
// Rows per statement: fewer statements to run, well within the stores' limit of values.
constexpr qsizetype kFilasPorSentencia = 256;
}  // namespace

void Relleno::anadir(const QVariantList& valores) {
    pendientes_ << valores;
    if (pendientes_.size() == kFilasPorSentencia) {
        c_.insertarFilas(tabla_, columnas_, pendientes_);
        pendientes_.clear();
    }
}

void Relleno::terminar() {
    c_.insertarFilas(tabla_, columnas_, pendientes_);
    pendientes_.clear();
    t_.commit();
}

quint64 generacionTemporal(const QString& tabla) {
    return generaciones().value(tabla.toLower());
}

qint64 llenarDesdeApuntes(const QString& criterio, const QString& columnas,
                          const esquema::Tabla& tabla,
                          const std::function<QVariantList(const Recordset&)>& fila,
                          const Avance& avance) {
    Recordset rs =
        Auxiliar::GetListExt(*sesion_conexion, QStringLiteral("Apuntes"), columnas, criterio,
                             QString(), QString(), QStringLiteral("cuenta"), Cursor::Secuencial);
    if (rs.eof()) return 0;
    const qint64 total = avance ? rs.recordCount() : -1;
    if (avance) avance(0, total);
    Relleno relleno(*sesion_temporal, tabla);
    qint64 n = 0;
    for (; !rs.eof(); rs.moveNext()) {
        relleno.anadir(fila(rs));
        ++n;
        if (avance) avance(n, total);
    }
    relleno.terminar();
    return n;
}
