#pragma once

#include "almacen/conexion.h"

#include <QString>
#include <QVariant>

// Free operations of the data layer: date conversion, one-value lookups, and the generic
// select and delete.
struct Auxiliar {
    // A date value (a QDate, or a text such as "31/01/2026") as "yyyymmdd"; empty when it is
    // not a valid date. Never fails.
    static QString sDate(const QVariant& valor);
    // "yyyymmdd" as "dd/mm/yyyy", piece by piece and without validation; empty stays empty.
    static QString dDate(const QString& valor);

    // The one-value lookup behind every existence check: "SELECT campo FROM tabla WHERE
    // condicion", on a private connection to the main store that is opened once and kept, so
    // that it sees only what is committed. The default when there is no row or the value is
    // Null; with "#" as default it is the system's existence test.
    static QVariant vBuscarCampo(const QString& tabla, const QString& campo,
                                 const QString& condicion, const QVariant& defecto = {});
    // The same on the temporary store.
    static QVariant vBuscarCampoTemporal(const QString& tabla, const QString& campo,
                                         const QString& condicion, const QVariant& defecto = {});

    static void DeleteExt(Conexion& conexion, const QString& tabla, const QString& condicion);
    // "SELECT campos FROM tabla [WHERE][GROUP BY][HAVING BY][ORDER BY]"; the literal
    // " HAVING BY " stands as the system has it, and no caller passes a having text.
    static Recordset GetListExt(Conexion& conexion, const QString& tabla, const QString& campos,
                                const QString& condicion, const QString& grupo,
                                const QString& having, const QString& orden,
                                Cursor cursor = Cursor::Estatico);

    // Closes the kept lookup connections (end of the run, or a change of program folder).
    static void cerrarConexiones();
};
