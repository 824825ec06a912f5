#include "programa.h"

#include <QCoreApplication>
#include <QDir>

namespace programa {
namespace {
QString& carpetaActual() {
    static QString carpeta;
    return carpeta;
}
}  // namespace

QString carpeta() {
    if (carpetaActual().isEmpty() && QCoreApplication::instance())
        carpetaActual() = QCoreApplication::applicationDirPath();
    return carpetaActual();
}

void establecerCarpeta(const QString& nueva) {
    carpetaActual() = QDir(nueva).absolutePath();
}

QString ruta(const QString& relativa) {
    if (QDir::isAbsolutePath(relativa)) return QDir::cleanPath(relativa);
    return QDir::cleanPath(carpeta() + u'/' + relativa);
}

}  // namespace programa
