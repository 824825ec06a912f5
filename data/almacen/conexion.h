#pragma once

#include "dialecto.h"
#include "error.h"
#include "lectura.h"
#include "recordset.h"

#include <QHash>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <functional>
#include <memory>
#include <unordered_map>

struct DescripcionAlmacen;
class QSqlError;
struct sqlite3;

// Told the rows done so far, and the total first (-1 when it is not known).
using AvanceFilas = std::function<void(qint64 hecho, qint64 total)>;

// An open store. Every entity class receives one as its first argument; the session holds
// two (main and temporary), and lookups open their own. The SQL it is given is the system's
// (Jet dialect) and is translated here; failures are thrown as Error and kept, as error
// objects, until the next failure.
class Conexion {
public:
    // Opens the store a connection text names: "File name=Saldeva.udl" or a description.
    explicit Conexion(const QString& textoConexion);
    ~Conexion();
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;

    // The text it was opened with; another connection to the same store opens from it.
    const QString& textoConexion() const { return texto_; }

    // Runs one statement; gives the number of rows it changed.
    int execute(const QString& sql);
    Recordset open(const QString& sql, Cursor cursor = Cursor::Estatico);
    // A long read walked once, row by row, at the least cost per value the store allows.
    Lectura leer(const QString& sql);

    // The writes of the entity classes and of the reports' temporary tables: one row with
    // bound values, so that no value can change the statement.
    void insertar(const QString& tabla, const QStringList& columnas, const QVariantList& valores);
    // Several rows in one statement: the long fillings of the reports' tables.
    void insertarFilas(const QString& tabla, const QStringList& columnas,
                       const QList<QVariantList>& filas);
    // Replaces the rows of `tabla` of this connection with those of `consulta`, the system's SQL
    // run on `origen`, its columns matched to `columnas` in order; gives the number of rows.
    // All or nothing, in one transaction of this connection, and a query that gives no row
    // leaves the table as it was. When both are SQLite stores the rows never leave SQLite: the
    // file of `origen` is attached read-only to this connection for one INSERT … SELECT, which
    // sees what that store holds committed (as the lookups do). Otherwise, and inside a
    // transaction of this connection (where no file can be attached), the rows are read from
    // `origen` and written here many to a statement. `avance` hears of each row written, or
    // only once at the end when SQLite writes them by itself.
    qint64 llenarTabla(const QString& tabla, const QStringList& columnas, Conexion& origen,
                       const QString& consulta, const AvanceFilas& avance = {});
    // Gives the number of rows changed; the caller decides whether none is a failure.
    int actualizar(const QString& tabla, const QStringList& columnas, const QVariantList& valores,
                   const QString& condicion);

    // Transactions nest: the outermost is the store's, inner ones are savepoints, so that
    // rolling back an inner one undoes only its own work.
    void beginTrans();
    void commitTrans();
    void rollbackTrans();
    bool enTransaccion() const { return nivel_ > 0; }
    // Whether the connection to the server was lost (PostgreSQL). Every operation then fails
    // with one clear message; the first one after the transaction in course has unwound opens
    // the connection again, so that the program goes on without a restart once the server is
    // back.
    bool perdida() const { return perdida_; }
    // The store's own name of the transaction in course, which a later connection can ask
    // about (transaccionConfirmada) when this one is lost while committing it. Empty where a
    // commit is never left in doubt: outside a transaction, and on SQLite, whose commit
    // either returns or did not happen.
    QString identificadorTransaccion();
    // Whether the transaction that identificadorTransaccion named committed: false when it
    // rolled back or never reached the store's log. Throws while the store does not answer.
    bool transaccionConfirmada(const QString& identificador);

    const QList<ErrorAlmacen>& errores() const { return errores_; }
    // An operation that reports its own failures starts with an empty list.
    void limpiarErrores() { errores_.clear(); }
    // Adds an error object of this layer's own (a row that was not found) to the list.
    void anotarError(const QString& numero, const QString& descripcion);
    void anotarError(const ErrorAlmacen& error) { errores_.append(error); }

    // Creates what is missing of the schema of a store kind; existing tables stay.
    void asegurarEsquema(esquema::Almacen almacen);

private:
    friend class Recordset;
    friend class Lectura;
    friend qint64 contarFilas(Conexion& conexion, const QString& traducida);
    // Runs a statement already translated.
    Recordset abrir(const QString& traducido, Cursor cursor);
    [[noreturn]] void fallarSqlite(int codigo, const QString& mensaje);
    // Runs a statement of this layer's own, untranslated, and gives its query.
    QSqlQuery consultaDirecta(const QString& sql);
    void abrirSqlite(const DescripcionAlmacen& d);
    void abrirPostgres(const DescripcionAlmacen& d);
    void prepararSesionPostgres();
    // Opens the connection again when it was lost, or throws.
    void asegurarConexion();
    // Whether a failure means the connection itself is gone.
    bool conexionPerdida(const QSqlError& error);
    QSqlQuery& preparada(const QString& sql);
    void vincular(QSqlQuery& consulta, const QVariantList& valores);
    void ejecutarDirecto(const QString& sql);
    void ponerTemporalesEnArchivos(bool archivos);
    // Whether a table of the store has exactly the columns its declaration gives.
    bool mismasColumnas(const esquema::Tabla& tabla);
    qint64 llenarEnSqlite(const QString& tabla, const QStringList& columnas, Conexion& origen,
                          const QString& consulta, const AvanceFilas& avance);
    qint64 llenarPorFilas(const QString& tabla, const QStringList& columnas, Conexion& origen,
                          const QString& consulta, const AvanceFilas& avance);
    [[noreturn]] void fallar(const QSqlError& error);
    [[noreturn]] void fallarTexto(const QString& descripcion);

    QString texto_;
    QString nombre_;
    QSqlDatabase db_;
    Dialecto dialecto_{Proveedor::SQLite};
    std::unordered_map<QString, std::unique_ptr<QSqlQuery>> preparadas_;
    QList<ErrorAlmacen> errores_;
    int nivel_ = 0;
    bool conectada_ = false;
    bool perdida_ = false;
    bool soloLectura_ = false;
    sqlite3* sqlite_ = nullptr;  // the SQLite library's own handle, when it is ours too
};

// One user action, one transaction: begun unless the caller already holds one (enTransaccion),
// committed by commit(), rolled back when it leaves scope uncommitted.
class Transaccion {
public:
    Transaccion(Conexion& conexion, bool enTransaccion = false);
    ~Transaccion();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
    void commit();

private:
    Conexion& conexion_;
    bool propia_;
};
