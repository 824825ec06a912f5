#pragma once

#include "data/almacen/conexion.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>

// A program folder of a test executable's own: the built template store, the connection files
// and a main store that starts fresh for each test. The store is SQLite, or PostgreSQL when
// the executable runs under that label (a database of its own on the test server).
class AlmacenPrueba {
public:
    AlmacenPrueba();
    ~AlmacenPrueba();

    static bool postgres();
    // False, with the reason, when the PostgreSQL variant has no server to talk to.
    static bool disponible(QString* motivo);

    // A fresh, empty main store (schema only) and temporary store, opened into the session.
    void nuevo();
    void cerrar();

    QString carpeta() const { return dir_.path(); }
    // The description of the main store, as Saldeva.udl holds it.
    QString descripcionPrincipal() const { return descripcion_; }
    // A writable connection to this folder's copy of the template store.
    std::unique_ptr<Conexion> plantilla() const;
    // Writes a connection file of the folder.
    void escribir(const QString& nombre, const QString& contenido) const;

private:
    QTemporaryDir dir_;
    QString descripcion_;
    QString baseDatos_;
};

// Counts the rows of a table of the session's main store.
int filas(const QString& tabla, const QString& condicion = QString());

// In initTestCase of a store test: skips the PostgreSQL variant when no server was given,
// unless the test command demands one (then a missing server is a failure, not a skip).
#define REQUIERE_ALMACEN()                                                \
    do {                                                                  \
        QString motivo_;                                                  \
        if (!AlmacenPrueba::disponible(&motivo_)) {                       \
            if (qEnvironmentVariableIsSet("SALDEVA_TEST_PG_OBLIGATORIO")) \
                QFAIL(qPrintable(motivo_));                               \
            QSKIP(qPrintable(motivo_));                                   \
        }                                                                 \
    } while (false)

// In initTestCase: the store of the test executable, once the store is known to be there.
// It lives as long as the test object, and a PostgreSQL database of its own is dropped then.
#define CREAR_ALMACEN(almacen)                       \
    do {                                             \
        REQUIERE_ALMACEN();                          \
        almacen = std::make_unique<AlmacenPrueba>(); \
    } while (false)
