#include "almacen_prueba.h"

#include "data/almacen/programa.h"
#include "data/arranque.h"
#include "data/auxiliar.h"
#include "data/global.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

namespace {

QString variable(const char* nombre) {
    return qEnvironmentVariable(nombre);
}

QString pristina(const QString& carpeta) {
    return carpeta + QStringLiteral("/Dades/pristina.db");
}

void borrarSqlite(const QString& archivo) {
    for (const char* sufijo : {"", "-wal", "-shm"})
        QFile::remove(archivo + QLatin1StringView(sufijo));
}

std::unique_ptr<Conexion> administracion() {
    return std::make_unique<Conexion>(QStringLiteral("Provider=PostgreSQL;") +
                                      variable("SALDEVA_TEST_PG") +
                                      QStringLiteral(";Database=postgres"));
}

}  // namespace

bool AlmacenPrueba::postgres() {
    return variable("SALDEVA_TEST_ALMACEN") == u"postgres";
}

bool AlmacenPrueba::disponible(QString* motivo) {
    if (!postgres() || !variable("SALDEVA_TEST_PG").isEmpty()) return true;
    *motivo = QStringLiteral("sin servidor PostgreSQL de pruebas (SALDEVA_TEST_PG)");
    return false;
}

AlmacenPrueba::AlmacenPrueba() {
    const QString dir = dir_.path();
    QDir().mkpath(dir + QStringLiteral("/Dades"));
    QFile::copy(QStringLiteral(SALDEVA_PROGRAMA_DIR "/Dades/Sistema.db"),
                dir + QStringLiteral("/Dades/Sistema.db"));
    QFile::setPermissions(dir + QStringLiteral("/Dades/Sistema.db"),
                          QFile::ReadOwner | QFile::WriteOwner);
    QDir().mkpath(dir + QStringLiteral("/Reports"));
    const QDir informes(QStringLiteral(SALDEVA_PROGRAMA_DIR "/Reports"));
    for (const QString& rpt : informes.entryList({QStringLiteral("*.rpt")}))
        QFile::copy(informes.filePath(rpt), dir + QStringLiteral("/Reports/") + rpt);
    escribir(QStringLiteral("Sistema.udl"),
             QStringLiteral("Provider=SQLite;Data Source=Dades/Sistema.db;Mode=Read"));
    escribir(QStringLiteral("Temporal.udl"),
             QStringLiteral("Provider=SQLite;Data Source=Dades/Temporales.db"));
    programa::establecerCarpeta(dir);

    if (postgres()) {
        static int contador = 0;
        baseDatos_ =
            QStringLiteral("prueba_%1_%2").arg(QCoreApplication::applicationPid()).arg(++contador);
        administracion()->execute(QStringLiteral("CREATE DATABASE ") + baseDatos_);
        descripcion_ = QStringLiteral("Provider=PostgreSQL;") + variable("SALDEVA_TEST_PG") +
                       QStringLiteral(";Database=") + baseDatos_;
        Conexion(descripcion_).asegurarEsquema(esquema::Almacen::Principal);
    } else {
        descripcion_ = QStringLiteral("Provider=SQLite;Data Source=Dades/Saldeva.db");
        Conexion(QStringLiteral("Provider=SQLite;Data Source=") + pristina(dir))
            .asegurarEsquema(esquema::Almacen::Principal);
    }
    escribir(QStringLiteral("Saldeva.udl"), descripcion_);
}

AlmacenPrueba::~AlmacenPrueba() {
    cerrar();
    if (!baseDatos_.isEmpty()) {
        try {
            administracion()->execute(QStringLiteral("DROP DATABASE IF EXISTS ") + baseDatos_ +
                                      QStringLiteral(" WITH (FORCE)"));
        } catch (const Error&) {
            // A database left behind dies with the throwaway server.
        }
    }
}

void AlmacenPrueba::nuevo() {
    cerrar();
    programa::establecerCarpeta(carpeta());
    borrarSqlite(carpeta() + QStringLiteral("/Dades/Temporales.db"));
    if (postgres()) {
        Conexion c(descripcion_);
        QStringList tablas;
        for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Principal))
            tablas << QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size()));
        c.execute(QStringLiteral("TRUNCATE ") + tablas.join(QStringLiteral(", ")));
    } else {
        const QString destino = carpeta() + QStringLiteral("/Dades/Saldeva.db");
        borrarSqlite(destino);
        QFile::copy(pristina(carpeta()), destino);
    }
    abrirAlmacenes();
}

void AlmacenPrueba::cerrar() {
    cerrarAlmacenes();
}

std::unique_ptr<Conexion> AlmacenPrueba::plantilla() const {
    return std::make_unique<Conexion>(QStringLiteral("Provider=SQLite;Data Source=") + carpeta() +
                                      QStringLiteral("/Dades/Sistema.db"));
}

void AlmacenPrueba::escribir(const QString& nombre, const QString& contenido) const {
    QFile f(carpeta() + u'/' + nombre);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(contenido.toUtf8());
}

int filas(const QString& tabla, const QString& condicion) {
    Recordset rs = sesion_conexion->open(
        QStringLiteral("SELECT COUNT(*) FROM ") + tabla +
        (condicion.isEmpty() ? QString() : QStringLiteral(" WHERE ") + condicion));
    return rs.value(0).toInt();
}
