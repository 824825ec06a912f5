#include "temporal.h"

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

void Relleno::anadir(const QVariantList& valores) {
    c_.insertar(tabla_, columnas_, valores);
}

void Relleno::terminar() {
    t_.commit();
}

quint64 generacionTemporal(const QString& tabla) {
    return generaciones().value(tabla.toLower());
}
