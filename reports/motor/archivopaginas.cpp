#include "archivopaginas.h"

#include "data/almacen/error.h"

#include <QDataStream>
#include <QDir>

namespace motor {

ArchivoPaginas::ArchivoPaginas()
    : archivo_(QDir::tempPath() + QStringLiteral("/saldeva-paginas-XXXXXX")) {
    if (!archivo_.open())
        throw Error(0, QStringLiteral("No se puede crear el archivo temporal de páginas: %1")
                           .arg(archivo_.errorString()));
}

void ArchivoPaginas::anadir(const Pagina& pagina) {
    QByteArray bruto;
    {
        QDataStream s(&bruto, QIODevice::WriteOnly);
        s << pagina;
    }
    const QByteArray comprimido = qCompress(bruto, 1);
    archivo_.seek(final_);
    if (archivo_.write(comprimido) != comprimido.size())
        throw Error(0, QStringLiteral("No se puede escribir el archivo temporal de páginas: %1")
                           .arg(archivo_.errorString()));
    inicios_.push_back(final_);
    final_ += comprimido.size();
}

Pagina ArchivoPaginas::leer(int indice) {
    Pagina p;
    if (indice < 0 || indice >= cuantas()) return p;
    const qint64 inicio = inicios_[size_t(indice)];
    const qint64 fin = indice + 1 < cuantas() ? inicios_[size_t(indice) + 1] : final_;
    archivo_.seek(inicio);
    const QByteArray bruto = qUncompress(archivo_.read(fin - inicio));
    QDataStream s(bruto);
    s >> p;
    return p;
}

}  // namespace motor
