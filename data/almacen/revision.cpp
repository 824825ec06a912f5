#include "revision.h"

#include "udl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// The first 100 bytes of every SQLite file, as the file format lays them out.
constexpr qsizetype kCabecera = 100;
constexpr char kFirma[] = "SQLite format 3";  // with its NUL, the first 16 bytes

quint32 entero(const QByteArray& cabecera, int desde, int bytes) {
    quint32 v = 0;
    for (int i = 0; i < bytes; ++i) v = (v << 8) | quint8(cabecera[desde + i]);
    return v;
}

}  // namespace

QString defectoDelArchivo(const QString& textoConexion) {
    const DescripcionAlmacen d = leerDescripcion(textoConexion);
    if (d.proveedor != Proveedor::SQLite) return {};
    QFile archivo(d.fuente);
    if (!archivo.exists()) return {};
    const QString nombre =
        QStringLiteral("El archivo «") + QDir::toNativeSeparators(d.fuente) + QStringLiteral("» ");
    const qint64 tamano = archivo.size();
    // A store whose writes still wait in its log may hold no page yet in the file itself:
    // SQLite reads them from the log, so only the signature of what is there can be judged.
    const bool conRegistro = QFileInfo(d.fuente + QStringLiteral("-wal")).size() > 0;
    if (tamano == 0) return conRegistro ? QString() : nombre + QStringLiteral("está vacío.");
    if (!archivo.open(QIODevice::ReadOnly))
        return nombre + QStringLiteral("no se puede leer: ") + archivo.errorString() + u'.';
    const QByteArray cabecera = archivo.read(kCabecera);
    const QByteArray firma(kFirma, sizeof kFirma);
    const QString incompleto = nombre + QStringLiteral("está incompleto: tiene ") +
                               QString::number(tamano) + QStringLiteral(" bytes");
    if (cabecera.size() < kCabecera)
        return firma.startsWith(cabecera) || cabecera.startsWith(firma)
                   ? incompleto + u'.'
                   : nombre + QStringLiteral("no es un almacén de datos.");
    // The page size is a power of two from 512 to 32768, or 1 for 65536.
    const quint32 pagina = entero(cabecera, 16, 2) == 1 ? 65536 : entero(cabecera, 16, 2);
    if (!cabecera.startsWith(firma) || pagina < 512 || (pagina & (pagina - 1)) != 0)
        return nombre + QStringLiteral("no es un almacén de datos.");
    if (conRegistro) return {};
    // The number of pages the header gives is to be trusted when the change counter and the
    // "valid for" number agree, as every write of a SQLite of the last fifteen years leaves them.
    const quint32 paginas = entero(cabecera, 28, 4);
    if (paginas != 0 && entero(cabecera, 24, 4) == entero(cabecera, 92, 4)) {
        const qint64 debido = qint64(paginas) * pagina;
        if (tamano < debido)
            return incompleto + QStringLiteral(" de los ") + QString::number(debido) +
                   QStringLiteral(" que debe tener.");
    } else if (tamano < pagina || tamano % pagina != 0) {
        return incompleto + u'.';
    }
    return {};
}

void comprobarArchivo(const QString& textoConexion) {
    if (const QString defecto = defectoDelArchivo(textoConexion); !defecto.isEmpty())
        throw ArchivoDanado(defecto);
}
