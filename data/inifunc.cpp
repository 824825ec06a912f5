#include "inifunc.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <algorithm>

namespace {

// A line of the file: its bytes as they stand, line end included, and what they read as.
// Lines the program does not write go back to the file byte for byte, whatever they hold.
struct Linea {
    QByteArray bytes;
    QString texto;  // without the line end
};

// UTF-8, or Latin-1 for a line written by hand in an editor that keeps accents that way.
QString decodificar(QByteArrayView bytes) {
    QStringDecoder utf8(QStringConverter::Utf8);
    const QString texto = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : texto;
}

QList<Linea> leerLineas(const QString& archivo) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) return {};
    const QByteArray datos = f.readAll();
    QList<Linea> lineas;
    for (qsizetype desde = 0; desde < datos.size();) {
        const qsizetype salto = datos.indexOf('\n', desde);
        const qsizetype fin = salto < 0 ? datos.size() : salto + 1;
        QByteArrayView contenido = QByteArrayView(datos).sliced(desde, fin - desde);
        Linea l{contenido.toByteArray(), {}};
        while (contenido.endsWith('\n') || contenido.endsWith('\r')) contenido.chop(1);
        l.texto = decodificar(contenido);
        lineas << l;
        desde = fin;
    }
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

Linea lineaNueva(const QString& texto) {
    return {texto.toUtf8() + "\r\n", texto};
}

}  // namespace

QString GetIni(const QString& archivo, const QString& seccion, const QString& clave,
               const QString& defecto) {
    bool dentro = false;
    for (const Linea& l : leerLineas(archivo)) {
        const QString& linea = l.texto;
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
    QList<Linea> lineas = leerLineas(archivo);
    const QString nueva = clave + u'=' + valor;
    qsizetype inicio = -1, fin = lineas.size();
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        QString nombre;
        if (!esSeccion(lineas[i].texto, &nombre)) continue;
        if (inicio >= 0) {
            fin = i;
            break;
        }
        if (nombre.compare(seccion, Qt::CaseInsensitive) == 0) inicio = i;
    }
    if (inicio < 0) {
        if (!lineas.isEmpty() && !lineas.last().texto.trimmed().isEmpty())
            lineas.append(lineaNueva(QString()));
        lineas.append(lineaNueva(u'[' + seccion + u']'));
        lineas.append(lineaNueva(nueva));
    } else {
        qsizetype donde = -1;
        for (qsizetype i = inicio + 1; i < fin; ++i)
            if (claveDe(lineas[i].texto).compare(clave, Qt::CaseInsensitive) == 0 &&
                !claveDe(lineas[i].texto).isEmpty())
                donde = i;
        if (donde >= 0) {
            lineas[donde] = lineaNueva(nueva);
        } else {
            // After the section's last setting, before the blank lines that separate sections.
            qsizetype hueco = fin;
            while (hueco > inicio + 1 && lineas[hueco - 1].texto.trimmed().isEmpty()) --hueco;
            lineas.insert(hueco, lineaNueva(nueva));
        }
    }
    QByteArray datos;
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        datos += lineas[i].bytes;
        // A last line that had no line end gets one when something now follows it.
        if (i + 1 < lineas.size() && !datos.endsWith('\n')) datos += "\r\n";
    }
    // Written whole to a new file and then renamed, so a crash never leaves half a file.
    QSaveFile f(archivo);
    if (!f.open(QIODevice::WriteOnly)) return;
    f.write(datos);
    f.commit();
}

void SetIni(const QString& archivo, const QString& seccion, const QString& clave,
            const QString& valor) {
    QString copia = valor;
    SetIni(archivo, seccion, clave, copia);
}

bool IniEsTexto(const QString& archivo) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) return true;
    const QByteArray datos = f.readAll();
    return std::none_of(datos.cbegin(), datos.cend(), [](char c) {
        return quint8(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
    });
}
