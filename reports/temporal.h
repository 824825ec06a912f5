#pragma once

#include "data/almacen/conexion.h"
#include "data/almacen/esquema.h"

#include <QStringList>
#include <QVariantList>
#include <functional>

// Filling a table of the temporary store for a report: "DELETE FROM" the table, then every
// row inside one transaction on the temporary connection, committed at the end; a failure
// rolls the filling back and goes to the caller.
class Relleno {
public:
    Relleno(Conexion& temporal, const esquema::Tabla& tabla);
    // One row, its values in the table's column order.
    void anadir(const QVariantList& valores);
    void terminar();

private:
    Conexion& c_;
    QString tabla_;
    QStringList columnas_;
    QList<QVariantList> pendientes_;  // rows written together, a statement at a time
    Transaccion t_;
};

// Each filling of a table counts one more run of it in this program, so that a window showing
// an earlier run can tell that the table no longer holds its rows.
quint64 generacionTemporal(const QString& tabla);

// Told each row written, and the total first.
using Avance = std::function<void(qint64 hecho, qint64 total)>;

// The filling every ledger report shares: the journal lines of `criterio` in account order,
// only the `columnas` named (a long read costs by its values), each turned by `fila` into a
// row of `tabla`. Gives the number of lines; when there are none the table is left as it was.
qint64 llenarDesdeApuntes(const QString& criterio, const QString& columnas,
                          const esquema::Tabla& tabla,
                          const std::function<QVariantList(const Recordset&)>& fila,
                          const Avance& avance);
