#include "conexion.h"

#include "udl.h"

#include <sqlite3.h>
#include <QAtomicInt>
#include <QSet>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>
#include <QUrl>

namespace {

QString nombreNuevo() {
    static QAtomicInt contador;
    return QStringLiteral("saldeva-%1").arg(contador.fetchAndAddRelaxed(1));
}

QString aTexto(std::string_view s) {
    return QString::fromUtf8(s.data(), qsizetype(s.size()));
}

// A NUL character would end the statement's text early inside the drivers; such a value is
// refused rather than cut.
bool tieneNul(const QString& texto) {
    return texto.contains(QChar(u'\0'));
}

const QString kNul =
    QStringLiteral("El texto contiene un carácter nulo (NUL), que no se puede guardar.");

const QString kPerdida = QStringLiteral(
    "Se ha perdido la conexión con el servidor de datos y la operación no ha terminado. "
    "Cuando el servidor vuelva a estar disponible, repítala: el programa vuelve a conectar "
    "por sí mismo.");
const QString kSinServidor = QStringLiteral(
    "El servidor de datos sigue sin responder; no se ha hecho nada. Repita la operación "
    "cuando vuelva a estar disponible.");

// How long a statement waits for another process's lock on a SQLite file before it gives up.
constexpr int kEsperaBloqueoMs = 30000;

// The store's text, preceded by what it means for a bookkeeper where that is clear.
QString explicar(const QSqlError& error, Proveedor proveedor) {
    const QString original = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    const QString codigo = error.nativeErrorCode();
    QString sentido;
    if (original.contains(QStringLiteral("UNIQUE constraint failed")) || codigo == u"23505")
        sentido = QStringLiteral("Ya existe un registro con la misma clave.");
    else if (original.contains(QStringLiteral("file is not a database")))
        sentido = QStringLiteral("El archivo no es un almacén de datos válido.");
    else if (original.contains(QStringLiteral("database is locked")) || codigo == u"55P03")
        sentido = QStringLiteral("El almacén está ocupado por otro puesto; inténtelo de nuevo.");
    else if (original.contains(QStringLiteral("database or disk is full")) || codigo == u"53100")
        sentido = QStringLiteral(
            "No queda espacio en el disco del almacén; no se ha guardado nada. Libere espacio y "
            "repita la operación.");
    else if (original.contains(QStringLiteral("readonly database")) || codigo == u"25006")
        sentido = QStringLiteral(
            "El almacén es de solo lectura (el disco o el archivo no admite escritura); no se "
            "ha guardado nada.");
    else if (original.contains(QStringLiteral("disk I/O error")))
        sentido = QStringLiteral("El disco del almacén ha fallado al leer o escribir.");
    else if (proveedor == Proveedor::PostgreSQL && error.type() == QSqlError::ConnectionError)
        sentido = QStringLiteral("No se puede conectar con el servidor de datos.");
    return sentido.isEmpty() ? original : sentido + QStringLiteral(" [") + original + u']';
}

}  // namespace

Conexion::Conexion(const QString& textoConexion) : texto_(textoConexion), nombre_(nombreNuevo()) {
    const DescripcionAlmacen d = leerDescripcion(textoConexion);
    dialecto_ = Dialecto(d.proveedor);
    try {
        if (d.proveedor == Proveedor::SQLite)
            abrirSqlite(d);
        else
            abrirPostgres(d);
        conectada_ = true;
    } catch (const Error&) {
        db_.close();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre_);
        throw;
    }
}

Conexion::~Conexion() {
    preparadas_.clear();
    if (db_.isOpen() && nivel_ > 0 && !perdida_) QSqlQuery(db_).exec(QStringLiteral("ROLLBACK"));
    db_.close();
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(nombre_);
}

void Conexion::abrirSqlite(const DescripcionAlmacen& d) {
    db_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre_);
    db_.setDatabaseName(d.fuente);
    // Other workstations' processes and our own lookup connection share the file: wait for
    // a lock rather than fail at once. URIs let another store be attached read-only; the
    // store's own name, an absolute path, is never read as one.
    QString opciones = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1;QSQLITE_OPEN_URI")
                           .arg(d.esperaBloqueoMs >= 0 ? d.esperaBloqueoMs : kEsperaBloqueoMs);
    if (d.soloLectura) opciones += QStringLiteral(";QSQLITE_OPEN_READONLY");
    db_.setConnectOptions(opciones);
    if (!db_.open()) fallar(db_.lastError());
    // The first read tells a file that is not a store at all, and whether it holds reports.
    QSqlQuery informes = consultaDirecta(
        QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE lower(name) = '") +
        aTexto(esquema::tablas(esquema::Almacen::Temporal).front()->nombre).toLower() + u'\'');
    const bool deInformes = informes.next() && informes.value(0).toInt() > 0;
    informes.finish();
    ejecutarDirecto(QStringLiteral("PRAGMA case_sensitive_like = ON"));
    ponerTemporalesEnArchivos(deInformes);
    // Long reads speak to SQLite directly when Qt's driver runs on the library this program
    // links (Debian's does); a driver with a copy of its own is left to do all the work.
    const QVariant manejador = db_.driver()->handle();
    QSqlQuery version = consultaDirecta(QStringLiteral("SELECT sqlite_version()"));
    if (qstrcmp(manejador.typeName(), "sqlite3*") == 0 && version.next() &&
        version.value(0).toString() == QLatin1StringView(sqlite3_libversion()))
        sqlite_ = *static_cast<sqlite3* const*>(manejador.constData());
    if (d.soloLectura) return;
    ejecutarDirecto(QStringLiteral("PRAGMA journal_mode = WAL"));
    ejecutarDirecto(d.sincronoDesactivado ? QStringLiteral("PRAGMA synchronous = OFF")
                                          : QStringLiteral("PRAGMA synchronous = FULL"));
}

void Conexion::abrirPostgres(const DescripcionAlmacen& d) {
    db_ = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), nombre_);
    db_.setHostName(d.servidor);
    db_.setPort(d.puerto);
    db_.setDatabaseName(d.fuente);
    db_.setUserName(d.usuario);
    db_.setPassword(d.contrasena);
    db_.setConnectOptions(QStringLiteral("connect_timeout=10"));
    soloLectura_ = d.soloLectura;
    if (!db_.open()) fallar(db_.lastError());
    prepararSesionPostgres();
}

void Conexion::prepararSesionPostgres() {
    ejecutarDirecto(QStringLiteral("SET client_min_messages TO warning"));
    if (soloLectura_) ejecutarDirecto(QStringLiteral("SET default_transaction_read_only TO on"));
}

void Conexion::asegurarConexion() {
    if (!perdida_) return;
    // The transaction died with the connection: until the caller has unwound it, every
    // statement of it fails the same way, and nothing reaches the new connection.
    if (nivel_ > 0) throw Error(errores::kAlmacen, kPerdida);
    preparadas_.clear();
    db_.close();
    if (!db_.open()) {
        errores_ = {{QStringLiteral("PostgreSQL"), QStringLiteral("0"), kSinServidor}};
        throw Error(errores::kAlmacen, kSinServidor);
    }
    perdida_ = false;
    prepararSesionPostgres();
}

bool Conexion::conexionPerdida(const QSqlError& error) {
    // A connection that never opened was not lost: its failure says why it could not open.
    if (dialecto_.proveedor() != Proveedor::PostgreSQL || !conectada_) return false;
    if (perdida_ || error.type() == QSqlError::ConnectionError) return true;
    const QString codigo = error.nativeErrorCode();
    // Connection exceptions, and the server shutting down or starting up.
    if (codigo.startsWith(QStringLiteral("08")) || codigo.startsWith(QStringLiteral("57P")))
        return true;
    if (!codigo.isEmpty()) return false;
    // A failure without a code was made up by the client library, which is what a connection
    // gone says ("server closed the connection unexpectedly", "no connection to the server"):
    // it is gone if it no longer answers at all. A live one in a failed transaction answers
    // with a code of its own. The driver may already have closed it.
    if (!db_.isOpen()) return true;
    QSqlQuery q(db_);
    return !q.exec(QStringLiteral("SELECT 1")) && q.lastError().nativeErrorCode().isEmpty();
}

void Conexion::ejecutarDirecto(const QString& sql) {
    consultaDirecta(sql);
}

QSqlQuery Conexion::consultaDirecta(const QString& sql) {
    QSqlQuery q(db_);
    q.setForwardOnly(true);
    if (!q.exec(sql)) fallar(q.lastError());
    return q;
}

int Conexion::execute(const QString& sql) {
    asegurarConexion();
    const QString traducido = dialecto_.traducir(sql);
    if (tieneNul(traducido)) fallarTexto(kNul);
    QSqlQuery q(db_);
    q.setForwardOnly(true);
    if (!q.exec(traducido)) fallar(q.lastError());
    return q.numRowsAffected();
}

Recordset Conexion::open(const QString& sql, Cursor cursor) {
    asegurarConexion();
    const QString traducido = dialecto_.traducir(sql);
    if (tieneNul(traducido)) fallarTexto(kNul);
    return abrir(traducido, cursor);
}

Recordset Conexion::abrir(const QString& traducido, Cursor cursor) {
    if (cursor == Cursor::Secuencial && dialecto_.proveedor() == Proveedor::PostgreSQL) {
        // The driver streams a PostgreSQL read only while nothing else runs on the connection;
        // a cursor of the server lets the walk and other statements take turns.
        static QAtomicInt cursores;
        const QString nombre = QStringLiteral("lectura%1").arg(cursores.fetchAndAddRelaxed(1));
        consultaDirecta(QStringLiteral("DECLARE ") + nombre +
                        QStringLiteral(" NO SCROLL CURSOR WITH HOLD FOR ") + traducido);
        return Recordset(this, traducido, nombre);
    }
    QSqlQuery q(db_);
    q.setForwardOnly(true);
    if (!q.exec(traducido)) fallar(q.lastError());
    return Recordset(this, traducido, std::move(q), cursor);
}

Lectura Conexion::leer(const QString& sql) {
    asegurarConexion();
    const QString traducido = dialecto_.traducir(sql);
    if (tieneNul(traducido)) fallarTexto(kNul);
    sqlite3* db = sqlite_;
    if (!db) return Lectura(this, traducido, abrir(traducido, Cursor::Secuencial));
    const QByteArray texto = traducido.toUtf8();
    sqlite3_stmt* sentencia = nullptr;
    const int r = sqlite3_prepare_v2(db, texto.constData(), int(texto.size()), &sentencia, nullptr);
    if (r != SQLITE_OK) {
        sqlite3_finalize(sentencia);
        fallarSqlite(r, QString::fromUtf8(sqlite3_errmsg(db)));
    }
    return Lectura(this, traducido, sentencia);
}

QSqlQuery& Conexion::preparada(const QString& sql) {
    asegurarConexion();
    auto it = preparadas_.find(sql);
    if (it != preparadas_.end()) return *it->second;
    auto q = std::make_unique<QSqlQuery>(db_);
    q->setForwardOnly(true);
    if (!q->prepare(sql)) fallar(q->lastError());
    return *preparadas_.emplace(sql, std::move(q)).first->second;
}

void Conexion::vincular(QSqlQuery& q, const QVariantList& valores) {
    for (qsizetype i = 0; i < valores.size(); ++i) {
        if (valores[i].typeId() == QMetaType::QString && tieneNul(valores[i].toString()))
            fallarTexto(kNul);
        q.bindValue(int(i), valores[i]);
    }
}

void Conexion::insertar(const QString& tabla, const QStringList& columnas,
                        const QVariantList& valores) {
    QStringList marcas;
    marcas.fill(QStringLiteral("?"), columnas.size());
    QSqlQuery& q = preparada(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (") +
                             columnas.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
                             marcas.join(QStringLiteral(", ")) + u')');
    vincular(q, valores);
    if (!q.exec()) fallar(q.lastError());
    q.finish();
}

void Conexion::insertarFilas(const QString& tabla, const QStringList& columnas,
                             const QList<QVariantList>& filas) {
    if (filas.isEmpty()) return;
    QStringList marcas;
    marcas.fill(QStringLiteral("?"), columnas.size());
    const QString fila = u'(' + marcas.join(QStringLiteral(", ")) + u')';
    QStringList todas;
    todas.fill(fila, filas.size());
    QSqlQuery& q = preparada(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (") +
                             columnas.join(QStringLiteral(", ")) + QStringLiteral(") VALUES ") +
                             todas.join(QStringLiteral(", ")));
    int i = 0;
    for (const QVariantList& valores : filas)
        for (const QVariant& v : valores) {
            if (v.typeId() == QMetaType::QString && tieneNul(v.toString())) fallarTexto(kNul);
            q.bindValue(i++, v);
        }
    if (!q.exec()) fallar(q.lastError());
    q.finish();
}

qint64 Conexion::llenarTabla(const QString& tabla, const QStringList& columnas, Conexion& origen,
                             const QString& consulta, const AvanceFilas& avance) {
    asegurarConexion();
    if (dialecto_.proveedor() == Proveedor::SQLite &&
        origen.dialecto_.proveedor() == Proveedor::SQLite && nivel_ == 0)
        return llenarEnSqlite(tabla, columnas, origen, consulta, avance);
    return llenarPorFilas(tabla, columnas, origen, consulta, avance);
}

qint64 Conexion::llenarEnSqlite(const QString& tabla, const QStringList& columnas, Conexion& origen,
                                const QString& consulta, const AvanceFilas& avance) {
    const QString insercion = QStringLiteral("INSERT INTO main.") + tabla + QStringLiteral(" (") +
                              columnas.join(QStringLiteral(", ")) + QStringLiteral(") ") +
                              dialecto_.traducir(consulta);
    if (tieneNul(insercion)) fallarTexto(kNul);
    // The query names the main store's tables unqualified: the schemas of the two stores share
    // no table name, so SQLite finds them in the attached file. It is attached for this fill
    // only: while a read-only file is attached no transaction of this connection could begin
    // IMMEDIATE, and an attachment kept would outlive a change of store.
    const QString archivo = origen.db_.databaseName();
    const bool adjunta = archivo != db_.databaseName();
    if (adjunta) {
        QSqlQuery q(db_);
        if (!q.prepare(QStringLiteral("ATTACH DATABASE ? AS saldeva_origen")))
            fallar(q.lastError());
        q.addBindValue(QUrl::fromLocalFile(archivo).toString(QUrl::FullyEncoded) +
                       QStringLiteral("?mode=ro"));
        // A file SQLite will not attach from here still fills, through this program.
        if (!q.exec()) return llenarPorFilas(tabla, columnas, origen, consulta, avance);
    }
    // Whatever happens below: an unfinished fill rolled back, the file let go.
    struct Cierre {
        QSqlDatabase& db;
        bool adjunta;
        bool abierta = false;
        ~Cierre() {
            QSqlQuery q(db);
            if (abierta) q.exec(QStringLiteral("ROLLBACK"));
            if (adjunta) q.exec(QStringLiteral("DETACH DATABASE saldeva_origen"));
        }
    } cierre{db_, adjunta};
    // Deferred: the only write lock wanted is this file's, which the DELETE takes.
    ejecutarDirecto(QStringLiteral("BEGIN"));
    cierre.abierta = true;
    ejecutarDirecto(QStringLiteral("DELETE FROM main.") + tabla);
    qint64 n = 0;
    {
        QSqlQuery q(db_);
        q.setForwardOnly(true);
        if (!q.exec(insercion)) fallar(q.lastError());
        n = q.numRowsAffected();
    }
    // No row: the rollback of the closing gives the table its rows back.
    if (n == 0) return 0;
    ejecutarDirecto(QStringLiteral("COMMIT"));
    cierre.abierta = false;
    if (avance) {
        avance(0, n);
        avance(n, n);
    }
    return n;
}

qint64 Conexion::llenarPorFilas(const QString& tabla, const QStringList& columnas, Conexion& origen,
                                const QString& consulta, const AvanceFilas& avance) {
    Recordset rs = origen.open(consulta, Cursor::Secuencial);
    if (rs.eof()) return 0;
    const qint64 total = avance ? rs.recordCount() : -1;
    if (avance) avance(0, total);
    Transaccion t(*this);
    ejecutarDirecto(QStringLiteral("DELETE FROM ") + tabla);
    // Rows per statement: fewer statements to run, well within the stores' limit of values.
    constexpr qsizetype kFilasPorSentencia = 256;
    QList<QVariantList> lote;
    qint64 n = 0;
    for (; !rs.eof(); rs.moveNext()) {
        QVariantList fila;
        fila.reserve(columnas.size());
        for (int i = 0; i < columnas.size(); ++i) fila << rs.value(i);
        lote << std::move(fila);
        if (lote.size() == kFilasPorSentencia) {
            insertarFilas(tabla, columnas, lote);
            lote.clear();
        }
        ++n;
        if (avance) avance(n, total);
    }
    insertarFilas(tabla, columnas, lote);
    t.commit();
    return n;
}

int Conexion::actualizar(const QString& tabla, const QStringList& columnas,
                         const QVariantList& valores, const QString& condicion) {
    asegurarConexion();
    QStringList asignaciones;
    for (const QString& c : columnas) asignaciones.append(c + QStringLiteral(" = ?"));
    const QString where = dialecto_.traducir(condicion);
    if (tieneNul(where)) fallarTexto(kNul);
    // The condition carries the key's values, so the statement is prepared for this one use.
    QSqlQuery q(db_);
    if (!q.prepare(QStringLiteral("UPDATE ") + tabla + QStringLiteral(" SET ") +
                   asignaciones.join(QStringLiteral(", ")) + QStringLiteral(" WHERE ") + where))
        fallar(q.lastError());
    vincular(q, valores);
    if (!q.exec()) fallar(q.lastError());
    return q.numRowsAffected();
}

void Conexion::beginTrans() {
    asegurarConexion();
    if (nivel_ == 0) {
        // SQLite: take the write lock now, so that a transaction never fails half-way
        // because another process wrote since it began to read.
        ejecutarDirecto(dialecto_.proveedor() == Proveedor::SQLite
                            ? QStringLiteral("BEGIN IMMEDIATE")
                            : QStringLiteral("BEGIN"));
    } else {
        ejecutarDirecto(QStringLiteral("SAVEPOINT nivel%1").arg(nivel_));
    }
    ++nivel_;
}

void Conexion::commitTrans() {
    if (nivel_ == 0) fallarTexto(QStringLiteral("No hay ninguna transacción abierta."));
    asegurarConexion();
    if (nivel_ == 1)
        ejecutarDirecto(QStringLiteral("COMMIT"));
    else
        ejecutarDirecto(QStringLiteral("RELEASE SAVEPOINT nivel%1").arg(nivel_ - 1));
    --nivel_;
}

void Conexion::rollbackTrans() {
    if (nivel_ == 0) fallarTexto(QStringLiteral("No hay ninguna transacción abierta."));
    --nivel_;
    // The server already dropped what the lost connection had begun.
    if (perdida_) return;
    if (nivel_ == 0) {
        ejecutarDirecto(QStringLiteral("ROLLBACK"));
    } else {
        ejecutarDirecto(QStringLiteral("ROLLBACK TO SAVEPOINT nivel%1").arg(nivel_));
        ejecutarDirecto(QStringLiteral("RELEASE SAVEPOINT nivel%1").arg(nivel_));
    }
}

QString Conexion::identificadorTransaccion() {
    if (dialecto_.proveedor() != Proveedor::PostgreSQL || nivel_ == 0) return {};
    asegurarConexion();
    QSqlQuery q = consultaDirecta(QStringLiteral("SELECT txid_current()"));
    return q.next() ? q.value(0).toString() : QString();
}

bool Conexion::transaccionConfirmada(const QString& identificador) {
    bool numerico = false;
    const qlonglong id = identificador.toLongLong(&numerico);
    if (!numerico) return false;
    // The server's process that lost its client may still be finishing that commit: its
    // outcome is a matter of moments.
    for (int intento = 0; intento < 50; ++intento) {
        asegurarConexion();
        QSqlQuery q(db_);
        q.prepare(QStringLiteral("SELECT txid_status(?)"));
        q.addBindValue(id);
        if (!q.exec()) {
            // An identifier beyond what the server knows: the transaction never reached its
            // log before the server went down.
            if (q.lastError().nativeErrorCode() == u"22023") return false;
            fallar(q.lastError());
        }
        const QString estado = q.next() ? q.value(0).toString() : QString();
        if (estado != u"in progress") return estado == u"committed";
        QThread::msleep(100);
    }
    fallarTexto(QStringLiteral(
        "El servidor de datos aún no ha terminado una operación anterior de este puesto; "
        "repita la operación en unos segundos."));
}

void Conexion::anotarError(const QString& numero, const QString& descripcion) {
    errores_.append({QStringLiteral("Saldeva"), numero, descripcion});
}

bool Conexion::mismasColumnas(const esquema::Tabla& tabla) {
    QSqlQuery q(db_);
    if (!q.exec(QStringLiteral("SELECT * FROM ") + aTexto(tabla.nombre) +
                QStringLiteral(" WHERE 1 = 0")))
        return false;
    const QSqlRecord r = q.record();
    if (r.count() != int(tabla.columnas.size())) return false;
    for (int i = 0; i < r.count(); ++i)
        if (r.fieldName(i).compare(aTexto(tabla.columnas[size_t(i)].nombre), Qt::CaseInsensitive))
            return false;
    return true;
}

void Conexion::ponerTemporalesEnArchivos(bool archivos) {
    // An entry saved inside a larger transaction is a savepoint: its undo pages stay in memory
    // instead of a temporary file written and read back for every entry. A store of reports
    // saves no entries; its work is sorting a million rows, which in memory would hold every
    // row at once, and through files keeps to a few megabytes.
    ejecutarDirecto(archivos ? QStringLiteral("PRAGMA temp_store = FILE")
                             : QStringLiteral("PRAGMA temp_store = MEMORY"));
}

void Conexion::asegurarEsquema(esquema::Almacen almacen) {
    if (almacen == esquema::Almacen::Temporal && dialecto_.proveedor() == Proveedor::SQLite)
        ponerTemporalesEnArchivos(true);
    // What the store already holds, by lower-case name: tables and indexes.
    QSqlQuery q(db_);
    const QString existentes =
        dialecto_.proveedor() == Proveedor::SQLite
            ? QStringLiteral(
                  "SELECT lower(name) FROM sqlite_master WHERE type IN ('table', 'index')")
            : QStringLiteral(
                  "SELECT lower(tablename) FROM pg_tables WHERE schemaname = current_schema() "
                  "UNION SELECT lower(indexname) FROM pg_indexes WHERE schemaname = "
                  "current_schema()");
    if (!q.exec(existentes)) fallar(q.lastError());
    QSet<QString> nombres;
    while (q.next()) nombres.insert(q.value(0).toString());
    q.finish();

    QStringList sentencias;
    for (const esquema::Tabla* tabla : esquema::tablas(almacen)) {
        const QString nombre = aTexto(tabla->nombre);
        if (!nombres.contains(nombre.toLower())) {
            sentencias << dialecto_.crearTabla(*tabla);
        } else if (almacen == esquema::Almacen::Temporal && !mismasColumnas(*tabla)) {
            // A report's table holds only its last run: one left by an earlier version of
            // the program, with other columns, is made again.
            sentencias << QStringLiteral("DROP TABLE ") + nombre << dialecto_.crearTabla(*tabla);
        }
    }
    if (almacen == esquema::Almacen::Principal)
        for (const esquema::Indice& indice : esquema::indices())
            if (!nombres.contains(aTexto(indice.nombre).toLower()))
                sentencias << dialecto_.crearIndice(indice);
    if (sentencias.isEmpty()) return;
    Transaccion t(*this);
    for (const QString& sentencia : sentencias) ejecutarDirecto(sentencia);
    t.commit();
}

void Conexion::fallar(const QSqlError& error) {
    const Proveedor p = dialecto_.proveedor();
    if (conexionPerdida(error)) {
        // One clear message instead of the driver's; the next operation opens the connection
        // again.
        perdida_ = true;
        errores_ = {{QStringLiteral("PostgreSQL"), QStringLiteral("0"),
                     kPerdida + QStringLiteral(" [") + error.text() + u']'}};
        throw Error(errores::kAlmacen, kPerdida);
    }
    errores_ = {{p == Proveedor::SQLite ? QStringLiteral("SQLite") : QStringLiteral("PostgreSQL"),
                 error.nativeErrorCode().isEmpty() ? QStringLiteral("0") : error.nativeErrorCode(),
                 explicar(error, p)}};
    bool numerico = false;
    const int numero = error.nativeErrorCode().toInt(&numerico);
    throw Error(numerico ? numero : errores::kAlmacen, errores_.first().descripcion);
}

void Conexion::fallarSqlite(int codigo, const QString& mensaje) {
    fallar(QSqlError(QString(), mensaje, QSqlError::StatementError, QString::number(codigo)));
}

void Conexion::fallarTexto(const QString& descripcion) {
    errores_ = {{QStringLiteral("Saldeva"), QStringLiteral("0"), descripcion}};
    throw Error(errores::kAlmacen, descripcion);
}

Transaccion::Transaccion(Conexion& conexion, bool enTransaccion)
    : conexion_(conexion), propia_(!enTransaccion) {
    if (propia_) conexion_.beginTrans();
}

Transaccion::~Transaccion() {
    if (!propia_) return;
    try {
        conexion_.rollbackTrans();
    } catch (const Error&) {
        // The store dropped the transaction itself (a lost connection): nothing is left to undo.
    }
}

void Transaccion::commit() {
    if (!propia_) return;
    conexion_.commitTrans();
    propia_ = false;
}
