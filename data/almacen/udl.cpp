#include "udl.h"

#include "error.h"
#include "programa.h"

#include <QFile>
#include <QHash>

namespace {

[[noreturn]] void fallar(const QString& texto) {
    throw Error(errores::kAlmacen, texto);
}

QHash<QString, QString> pares(const QString& texto) {
    QHash<QString, QString> valores;
    for (const QString& linea : texto.split(u'\n')) {
        const QString l = linea.trimmed();
        // Lines of a classic .udl file that are not the description: header and comments.
        if (l.isEmpty() || l.startsWith(u';') || l.startsWith(u'[')) continue;
        for (const QString& par : l.split(u';', Qt::SkipEmptyParts)) {
            const qsizetype igual = par.indexOf(u'=');
            if (igual <= 0) continue;
            valores.insert(par.left(igual).trimmed().toLower(), par.mid(igual + 1).trimmed());
        }
    }
    return valores;
}

QString leerArchivo(const QString& nombre) {
    QFile archivo(programa::ruta(nombre));
    if (!archivo.open(QIODevice::ReadOnly))
        fallar(QStringLiteral("No se puede leer el archivo de conexión ") + nombre + u'.');
    QByteArray datos = archivo.readAll();
    // Description files written by other tools may come as UTF-16.
    if (datos.startsWith("\xFF\xFE"))
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(datos.constData() + 2),
                                  (datos.size() - 2) / 2);
    return QString::fromUtf8(datos);
}

}  // namespace

DescripcionAlmacen leerDescripcion(const QString& textoConexion) {
    QHash<QString, QString> valores = pares(textoConexion);
    if (valores.contains(QStringLiteral("file name")))
        valores = pares(leerArchivo(valores.value(QStringLiteral("file name"))));

    DescripcionAlmacen d;
    const QString proveedor = valores.value(QStringLiteral("provider")).toLower();
    if (proveedor == u"sqlite") {
        d.proveedor = Proveedor::SQLite;
        const QString fuente = valores.value(QStringLiteral("data source"));
        if (fuente.isEmpty())
            fallar(QStringLiteral("La conexión no indica el archivo del almacén."));
        d.fuente = programa::ruta(fuente);
        bool ok = false;
        const int espera = valores.value(QStringLiteral("busy timeout")).toInt(&ok);
        if (ok && espera >= 0) d.esperaBloqueoMs = espera;
    } else if (proveedor == u"postgresql") {
        d.proveedor = Proveedor::PostgreSQL;
        d.fuente = valores.value(QStringLiteral("database"));
        d.servidor = valores.value(QStringLiteral("host"), QStringLiteral("localhost"));
        bool ok = true;
        if (valores.contains(QStringLiteral("port")))
            d.puerto = valores.value(QStringLiteral("port")).toInt(&ok);
        if (!ok || d.fuente.isEmpty())
            fallar(
                QStringLiteral("La conexión PostgreSQL no indica base de datos o puerto válidos."));
        d.usuario = valores.value(QStringLiteral("user id"));
        d.contrasena = valores.value(QStringLiteral("password"));
    } else {
        fallar(
            QStringLiteral("La conexión no indica un proveedor conocido (SQLite o PostgreSQL)."));
    }
    d.soloLectura =
        valores.value(QStringLiteral("mode")).compare(u"read", Qt::CaseInsensitive) == 0;
    d.sincronoDesactivado =
        valores.value(QStringLiteral("synchronous")).compare(u"off", Qt::CaseInsensitive) == 0;
    return d;
}
