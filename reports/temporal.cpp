#include "temporal.h"

#include "data/almacen/sql.h"
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

qint64 llenarDesdePrincipal(const esquema::Tabla& tabla, const QString& consulta,
                            const Avance& avance) {
    const QString nombre = QString::fromUtf8(tabla.nombre.data(), qsizetype(tabla.nombre.size()));
    QStringList columnas;
    for (const auto& c : tabla.columnas)
        columnas << QString::fromUtf8(c.nombre.data(), qsizetype(c.nombre.size()));
    const qint64 n =
        sesion_temporal->llenarTabla(nombre, columnas, *sesion_conexion, consulta, avance);
    if (n > 0) ++generaciones()[nombre.toLower()];
    return n;
}

QString conTitulos() {
    return QStringLiteral(" LEFT JOIN Cuentas c ON c.codigo_empresa = ") +
           sqlTexto(sesion_empresa) + QStringLiteral(" AND c.cuenta = l.cuenta");
}
