#include "fuentes.h"

#include "data/almacen/conexion.h"
#include "reports/estados.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {

struct Linea {
    int numero;
    QString texto;
};

QList<Linea> leerLineas(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) throw Error(1, QStringLiteral("No se puede leer ") + ruta);
    QList<Linea> lineas;
    int n = 0;
    for (const QString& l : QString::fromUtf8(f.readAll()).split(u'\n')) {
        ++n;
        const QString t = l.trimmed();
        if (t.isEmpty() || t.startsWith(u'#')) continue;
        lineas.append({n, t});
    }
    return lineas;
}

[[noreturn]] void fallar(const QString& archivo, int linea, const QString& motivo) {
    throw Error(1, archivo + u':' + QString::number(linea) + QStringLiteral(": ") + motivo);
}

// The parent that a menu code implies: its last used group of three digits set to "000".
QString padreDelCodigo(const QString& codigo) {
    for (int grupo = 3; grupo >= 0; --grupo) {
        if (codigo.mid(grupo * 3, 3) != u"000") {
            QString padre = codigo;
            padre.replace(grupo * 3, 3, QStringLiteral("000"));
            return padre;
        }
    }
    return codigo;
}

QList<entidad::Valores> leerMenus(const QString& carpeta) {
    const QString archivo = QStringLiteral("sysMenus.txt");
    static const QRegularExpression patron(
        QStringLiteral(R"(^(\d{12})\s+(\d{12})\s+([01])\s+(\S+)\s+(.+)$)"));
    QList<entidad::Valores> filas;
    QSet<QString> carpetas;
    QString anterior;
    for (const Linea& l : leerLineas(carpeta + u'/' + archivo)) {
        const QRegularExpressionMatch m = patron.match(l.texto);
        if (!m.hasMatch()) fallar(archivo, l.numero, QStringLiteral("formato no reconocido"));
        const QString item = m.captured(1), padre = m.captured(2);
        const QString formulario = m.captured(4) == u"-" ? QString() : m.captured(4);
        if (item <= anterior)
            fallar(archivo, l.numero, QStringLiteral("los códigos deben ir en orden creciente"));
        if (item == u"000000000000") fallar(archivo, l.numero, QStringLiteral("código reservado"));
        const QString esperado = padreDelCodigo(item);
        if (padre != esperado)
            fallar(archivo, l.numero, QStringLiteral("el padre debe ser ") + esperado);
        if (padre != u"000000000000" && !carpetas.contains(padre))
            fallar(archivo, l.numero, QStringLiteral("el padre no es una carpeta anterior"));
        if (formulario.isEmpty()) carpetas.insert(item);
        anterior = item;
        filas.append({item, padre, m.captured(5).trimmed(), formulario, m.captured(3).toInt()});
    }
    return filas;
}

QList<entidad::Valores> leerPlan(const QString& carpeta) {
    const QString archivo = QStringLiteral("sysPlanContable.txt");
    static const QRegularExpression patron(QStringLiteral(R"(^(\d+)\s+(.+)$)"));
    QList<entidad::Valores> filas;
    QSet<QString> vistas;
    for (const Linea& l : leerLineas(carpeta + u'/' + archivo)) {
        const QRegularExpressionMatch m = patron.match(l.texto);
        if (!m.hasMatch()) fallar(archivo, l.numero, QStringLiteral("formato no reconocido"));
        const QString cuenta = m.captured(1);
        if (vistas.contains(cuenta)) fallar(archivo, l.numero, QStringLiteral("cuenta repetida"));
        vistas.insert(cuenta);
        filas.append({cuenta, m.captured(2).trimmed(), int(cuenta.size())});
    }
    return filas;
}

// "A|1|2|0|Título|cuentas": the side, so many levels, the title and the accounts.
QList<entidad::Valores> leerEstado(const QString& carpeta, const QString& archivo,
                                   const QStringList& lados, int niveles) {
    QList<entidad::Valores> filas;
    QSet<QString> claves;
    for (const Linea& l : leerLineas(carpeta + u'/' + archivo)) {
        const QStringList campos = l.texto.split(u'|');
        if (campos.size() != niveles + 3)
            fallar(archivo, l.numero, QStringLiteral("número de campos incorrecto"));
        if (!lados.contains(campos[0])) fallar(archivo, l.numero, QStringLiteral("lado no válido"));
        entidad::Valores fila{campos[0]};
        for (int i = 1; i <= niveles; ++i) {
            bool ok = false;
            const int nivel = campos[i].trimmed().toInt(&ok);
            if (!ok) fallar(archivo, l.numero, QStringLiteral("nivel no numérico"));
            fila.append(nivel);
        }
        const QString clave = campos.mid(0, niveles + 1).join(u'|');
        if (claves.contains(clave)) fallar(archivo, l.numero, QStringLiteral("línea repetida"));
        claves.insert(clave);
        fila.append(campos[niveles + 1].trimmed());
        fila.append(campos[niveles + 2].trimmed());
        filas.append(fila);
    }
    return filas;
}

}  // namespace

Plantilla leerPlantilla(const QString& carpeta) {
    Plantilla p;
    p.menus = leerMenus(carpeta);
    p.plan = leerPlan(carpeta);
    p.situacion = leerEstado(carpeta, QStringLiteral("sysSituacion.txt"),
                             {QStringLiteral("A"), QStringLiteral("P")}, 3);
    p.pergan = leerEstado(carpeta, QStringLiteral("sysPergan.txt"),
                          {QStringLiteral("D"), QStringLiteral("H")}, 4);
    return p;
}

namespace {

using estados::Clase;

QString texto(const std::optional<QVariant>& valor) {
    return valor ? valor->toString() : QString();
}

struct LineaEstado {
    QString nombre;  // "A|1|2|0 Inmovilizado material", to name it in a fault
    QString lado;
    QList<estados::Token> tokens;
};

QList<LineaEstado> lineasDe(const QList<entidad::Valores>& filas, int niveles) {
    QList<LineaEstado> lineas;
    for (const entidad::Valores& f : filas) {
        QStringList clave;
        for (int i = 0; i <= niveles; ++i) clave << texto(f[i]);
        const QString cuentas = texto(f[niveles + 2]);
        if (cuentas.isEmpty()) continue;
        lineas.append({clave.join(u'|') + u' ' + texto(f[niveles + 1]), texto(f[0]),
                       estados::LeerCuentas(cuentas)});
    }
    return lineas;
}

bool alcanza(const QString& prefijo, const QString& cuenta) {
    return !prefijo.isEmpty() && (cuenta.startsWith(prefijo) || prefijo.startsWith(cuenta));
}

void comprobarSignos(const LineaEstado& l, bool situacion, QStringList& problemas) {
    QSet<Clase> clases;
    for (const estados::Token& t : l.tokens) clases.insert(t.clase);
    const auto falla = [&](const char* motivo) {
        problemas << l.nombre + QStringLiteral(": ") + QString::fromUtf8(motivo);
    };
    if (situacion) {
        if (l.lado == u"A" && clases.contains(Clase::Parentesis) && clases.size() > 1)
            falla("en el activo, \"(…)\" sólo en líneas de deducción, sin otras cuentas");
        if (l.lado == u"P" && clases.contains(Clase::Interrogante) && clases.size() > 1)
            falla("en el pasivo, \"?\" sólo en líneas de \"?\", sin otras cuentas");
        if (l.lado == u"P" && clases == QSet<Clase>{Clase::Parentesis})
            falla("en el pasivo, \"(…)\" sólo junto a cuentas sin paréntesis");
    } else {
        if (clases.contains(Clase::Interrogante)) falla("\"?\" no cabe en pérdidas y ganancias");
        if (l.lado == u"D" && clases.contains(Clase::Parentesis))
            falla("en el debe, sólo cuentas sin paréntesis");
        if (l.lado == u"H" && clases.contains(Clase::Prefijo))
            falla("en el haber, sólo cuentas entre paréntesis");
    }
}

void comprobarEstado(const QList<LineaEstado>& lineas, const QStringList& universo, bool situacion,
                     QStringList& problemas) {
    const QString estado =
        situacion ? QStringLiteral("balance") : QStringLiteral("pérdidas y ganancias");
    for (const LineaEstado& l : lineas) {
        comprobarSignos(l, situacion, problemas);
        for (const estados::Token& t : l.tokens) {
            const bool conocida =
                std::any_of(universo.begin(), universo.end(),
                            [&](const QString& c) { return alcanza(t.prefijo, c); });
            if (!conocida)
                problemas << l.nombre + QStringLiteral(": \"") + t.prefijo +
                                 QStringLiteral("\" no es ninguna cuenta del plan");
        }
    }
    for (const QString& cuenta : universo) {
        const bool propia = situacion || cuenta.startsWith(u'6') || cuenta.startsWith(u'7');
        int simples = 0, activo = 0, pasivo = 0;
        QStringList donde;
        for (const LineaEstado& l : lineas)
            for (const estados::Token& t : l.tokens) {
                if (!alcanza(t.prefijo, cuenta)) continue;
                donde << l.nombre;
                if (t.clase != Clase::Interrogante)
                    ++simples;
                else
                    ++(l.lado == u"A" ? activo : pasivo);
            }
        const bool bien = !propia ? donde.isEmpty()
                                  : (simples == 1 && activo + pasivo == 0) ||
                                        (situacion && simples == 0 && activo == 1 && pasivo == 1);
        if (bien) continue;
        problemas << estado + QStringLiteral(": la cuenta ") + cuenta +
                         (donde.isEmpty()
                              ? QStringLiteral(" no está en ninguna línea")
                              : QStringLiteral(" está en ") + donde.join(QStringLiteral("; ")));
    }
}

}  // namespace

QStringList problemasDeLosEstados(const Plantilla& plantilla) {
    const QStringList universo = cuentasDePase(plantilla.plan);
    QStringList problemas;
    comprobarEstado(lineasDe(plantilla.situacion, 3), universo, true, problemas);
    comprobarEstado(lineasDe(plantilla.pergan, 4), universo, false, problemas);
    return problemas;
}

QStringList cuentasDePase(const QList<entidad::Valores>& plan) {
    QStringList cuentas;
    for (const entidad::Valores& f : plan) {
        const QString c = texto(f[0]);
        if (c.size() == 3)
            for (char d = '0'; d <= '9'; ++d) cuentas << c + QChar::fromLatin1(d);
        else if (c.size() == 4 && !cuentas.contains(c))
            cuentas << c;
    }
    return cuentas;
}

void escribirPlantilla(const Plantilla& plantilla, const QString& salida) {
    const QString temporal = salida + QStringLiteral(".nuevo");
    QFile::remove(temporal);
    {
        Conexion c(QStringLiteral("Provider=SQLite;Data Source=") + temporal);
        c.asegurarEsquema(esquema::Almacen::Plantilla);
        Transaccion t(c);
        for (const auto& fila : plantilla.menus) entidad::insertar(c, esquema::sysMenus, fila, {});
        for (const auto& fila : plantilla.plan)
            entidad::insertar(c, esquema::sysPlanContable, fila, {});
        for (const auto& fila : plantilla.situacion)
            entidad::insertar(c, esquema::sysSituacion, fila, {});
        for (const auto& fila : plantilla.pergan)
            entidad::insertar(c, esquema::sysPergan, fila, {});
        t.commit();
        // A file that is only read needs no write-ahead log beside it.
        c.execute(QStringLiteral("PRAGMA journal_mode = DELETE"));
    }
    QFile::remove(salida);
    if (!QFile::rename(temporal, salida))
        throw Error(1, QStringLiteral("No se puede escribir ") + salida);
}
