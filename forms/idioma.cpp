#include "idioma.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <utility>

namespace idioma {
namespace {

// Texts of the toolkit that Debian's Spanish catalogue of this version leaves in English: the
// kinds of entry in the file dialogs' lists.
class Complemento : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* contexto, const char* texto, const char*, int) const override {
        if (qstrcmp(contexto, "QAbstractFileIconProvider") != 0) return {};
        static const std::pair<const char*, const char*> kTextos[] = {
            {"Folder", "Carpeta"}, {"Drive", "Unidad"}, {"File", "Archivo"}};
        for (const auto& [ingles, espanol] : kTextos)
            if (qstrcmp(texto, ingles) == 0) return QString::fromUtf8(espanol);
        return {};
    }
};

}  // namespace

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
    QCoreApplication::installTranslator(new Complemento(QCoreApplication::instance()));
    return true;
}

}  // namespace idioma
