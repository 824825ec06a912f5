#include "inifunc.h"

#include <QFile>
#include <QSaveFile>
#include <QStringList>

namespace {

QStringList leerLineas(const QString& archivo) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) return {};
    QString texto = QString::fromUtf8(f.readAll());
    texto.remove(u'\r');
    QStringList lineas = texto.split(u'\n');
    if (!lineas.isEmpty() && lineas.last().isEmpty()) lineas.removeLast();
    return lineas;
}

bool esSeccion(const QString& linea, QString* nombre = nullptr) {
    const QString l = linea.trimmed();
    if (!l.startsWith(u'[') || !l.endsWith(u']')) return false;
    if (nombre) *nombre = l.mid(1, l.size() - 2).trimmed();
    return true;
}

// The key of a "key=value" line, or an empty text for comments and other lines.
QString claveDe(const QString& linea) {
    const QString l = linea.trimmed();
    if (l.startsWith(u';')) return {};
    const qsizetype igual = l.indexOf(u'=');
    return igual <= 0 ? QString() : l.left(igual).trimmed();
}

}  // namespace

QString GetIni(const QString& archivo, const QString& seccion, const QString& clave,
               const QString& defecto) {
    bool dentro = false;
    for (const QString& linea : leerLineas(archivo)) {
        QString nombre;
        if (esSeccion(linea, &nombre)) {
            dentro = nombre.compare(seccion, Qt::CaseInsensitive) == 0;
            continue;
        }
        if (dentro && claveDe(linea).compare(clave, Qt::CaseInsensitive) == 0 &&
            !claveDe(linea).isEmpty())
            return linea.mid(linea.indexOf(u'=') + 1).trimmed().left(255);
    }
    return defecto;
}

void SetIni(const QString& archivo, const QString& seccion, const QString& clave, QString& valor) {
    valor.replace(u'\n', u' ');
    valor.remove(u'\r');
    QStringList lineas = leerLineas(archivo);
    const QString nueva = clave + u'=' + valor;
    qsizetype inicio = -1, fin = lineas.size();
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        QString nombre;
        if (!esSeccion(lineas[i], &nombre)) continue;
        if (inicio >= 0) {
            fin = i;
            break;
        }
        if (nombre.compare(seccion, Qt::CaseInsensitive) == 0) inicio = i;
    }
    if (inicio < 0) {
        if (!lineas.isEmpty() && !lineas.last().trimmed().isEmpty()) lineas.append(QString());
        lineas.append(u'[' + seccion + u']');
        lineas.append(nueva);
    } else {
        qsizetype donde = -1;
        for (qsizetype i = inicio + 1; i < fin; ++i)
            if (claveDe(lineas[i]).compare(clave, Qt::CaseInsensitive) == 0 &&
                !claveDe(lineas[i]).isEmpty())
                donde = i;
        if (donde >= 0) {
            lineas[donde] = nueva;
        } else {
            // After the section's last setting, before the blank lines that separate sections.
            qsizetype hueco = fin;
            while (hueco > inicio + 1 && lineas[hueco - 1].trimmed().isEmpty()) --hueco;
            lineas.insert(hueco, nueva);
        }
    }
    // Written whole to a new file and then renamed, so a crash never leaves half a file.
    QSaveFile f(archivo);
    if (!f.open(QIODevice::WriteOnly)) return;
    f.write((lineas.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8());
    f.commit();
}

void SetIni(const QString& archivo, const QString& seccion, const QString& clave,
            const QString& valor) {
    QString copia = valor;
    SetIni(archivo, seccion, clave, copia);
}
