#pragma once

#include "data/almacen/conexion.h"
#include "data/almacen/esquema.h"

#include <QString>
#include <QVariantList>
#include <optional>

// What all entity classes share: one class per table with Insert, Update, Delete and
// GetList, the connection as first argument, no state between calls.
//
// A public operation runs its body through ejecutar(): its own transaction unless the caller
// holds one, and on any failure a rollback and the operation's error, whose text lists the
// store's errors under the operation's heading ("Error en Insert.", 0x80040001, ...).
namespace entidad {

enum class Operacion { Insert, Update, Delete, GetList, ValidarUsuario, SetEstado };

enum class Transaccional {
    No,      // each statement commits by itself
    Propia,  // begins, commits and on failure rolls back its own transaction
    Unida,   // the caller holds a transaction and this joins it
};
inline Transaccional segun(bool enTransaccion) {
    return enTransaccion ? Transaccional::Unida : Transaccional::Propia;
}

// Throws the operation's error; a failure that the store did not report (a row not found, an
// argument out of range) joins the connection's error list first, so that its text shows.
[[noreturn]] void relanzar(Conexion& conexion, Operacion operacion, const Error& causa);

template <class Cuerpo>
auto ejecutar(Conexion& conexion, Operacion operacion, Transaccional modo, Cuerpo&& cuerpo)
    -> decltype(cuerpo()) {
    conexion.limpiarErrores();
    try {
        Transaccion t(conexion, modo != Transaccional::Propia);
        if constexpr (std::is_void_v<decltype(cuerpo())>) {
            cuerpo();
            t.commit();
        } else {
            auto resultado = cuerpo();
            t.commit();
            return resultado;
        }
    } catch (const Error& e) {
        relanzar(conexion, operacion, e);
    }
}

// A value of a row, in the schema's column order. An absent value is not written at all, so
// the column takes its default (used where a class receives a column and leaves it out).
using Valor = std::optional<QVariant>;
using Valores = QList<Valor>;

enum class Fechas { Convertir, ComoVienen };

// Adds one row: `valores` holds every column but the stamp, in the schema's order; date
// columns pass through sDate unless told otherwise; the stamp is today and `usuario`.
void insertar(Conexion& conexion, const esquema::Tabla& tabla, const Valores& valores,
              const QString& usuario, Fechas fechas = Fechas::Convertir);
// Rewrites the row named by the key columns of `valores` (same layout as insertar) with its
// other columns and the stamp. No such row is a failure.
void actualizar(Conexion& conexion, const esquema::Tabla& tabla, const Valores& valores,
                const QString& usuario, Fechas fechas = Fechas::Convertir);
// Rewrites only the named columns of the row whose key is given, and the stamp.
void actualizarColumnas(Conexion& conexion, const esquema::Tabla& tabla, const QVariantList& clave,
                        const QStringList& columnas, const QVariantList& valores,
                        const QString& usuario);
// The same only while the row also meets `ademas` ("estado = 'P'"): gives the rows changed,
// 0 when the row is missing or no longer meets it, which is no failure here.
int actualizarColumnasSi(Conexion& conexion, const esquema::Tabla& tabla, const QVariantList& clave,
                         const QString& ademas, const QStringList& columnas,
                         const QVariantList& valores, const QString& usuario);

// "codigo_empresa = 'E' AND ejercicio = 2026": the key columns in order, texts quoted,
// numbers bare, dates through sDate.
QString condicionClave(const esquema::Tabla& tabla, const QVariantList& clave);

// "SELECT * FROM tabla[ WHERE condicion][ ORDER BY orden]" as GetList of every class.
Recordset getList(Conexion& conexion, const esquema::Tabla& tabla, const QString& condicion,
                  const QString& orden, Cursor cursor);

// Today as a stamp.
QString hoy();

}  // namespace entidad
