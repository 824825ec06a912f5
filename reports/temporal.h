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
using Avance = AvanceFilas;

// The filling every ledger report shares: the rows of `consulta` on the main store, one column
// per column of `tabla` in its order, replace the table's rows (without passing through this
// program when the store allows it, see Conexion::llenarTabla). Gives the number of rows; when
// there are none the table is left as it was.
qint64 llenarDesdePrincipal(const esquema::Tabla& tabla, const QString& consulta,
                            const Avance& avance);

// The join that gives the lines of a derived table `l` their account's title, as c.descripcion:
// the account of the session's company.
QString conTitulos();
