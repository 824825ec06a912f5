#include "idioma.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace idioma {

bool instalarEspanol() {
    const QLocale espana(QLocale::Spanish, QLocale::Spain);
    QLocale::setDefault(espana);
    static QTranslator* traductor = nullptr;
    if (traductor) return true;
    auto* nuevo = new QTranslator(QCoreApplication::instance());
    // "qt" gathers the catalogues of every module of the toolkit, "qtbase" among them.
    const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!nuevo->load(espana, QStringLiteral("qt"), QStringLiteral("_"), carpeta) ||
        !QCoreApplication::installTranslator(nuevo)) {
        delete nuevo;
        return false;
    }
    traductor = nuevo;
    return true;
}

}  // namespace idioma
