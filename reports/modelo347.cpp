#include "modelo347.h"

#include "data/almacen/conexion.h"
#include "data/almacen/sql.h"
#include "nifestricto.h"
#include "registroempresa.h"

#include <QDateTime>
#include <QHash>
#include <QSaveFile>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <tuple>

namespace {

// One row per party, key and quarter: the register's rows of the year with their invoice date
// and party, without the entries that withhold tax from that same party.
QString consulta347(const QString& empresa, int anio) {
    const QString clave = QStringLiteral("CASE WHEN r.tipo = 'V' THEN 'B' ELSE 'A' END");
    const QString trimestre =
        QStringLiteral("(CAST(SUBSTR(a.fecha_documento, 5, 2) AS INTEGER) + 2) / 3");
    return QStringLiteral(
               "SELECT p.codigo, p.nif, p.nombre, p.cp, p.pais, %1 AS clave, "
               "%2 AS trimestre, SUM(%3 + %4 + %5) AS centimos ")
               .arg(clave, trimestre, centimosRegistro(QStringLiteral("base")),
                    centimosRegistro(QStringLiteral("iva")),
                    centimosRegistro(QStringLiteral("re"))) +
           registroDeEmpresa(empresa, QString::number(anio) + QStringLiteral("0101"),
                             QString::number(anio) + QStringLiteral("1231"), true) +
           QStringLiteral(
               "AND NOT EXISTS (SELECT 1 FROM RegistroIrpf i "
               "WHERE i.codigo_empresa = r.codigo_empresa "
               "AND i.codigo_delegacion = r.codigo_delegacion "
               "AND i.codigo_documento = r.codigo_documento "
               "AND i.numero_documento = r.numero_documento "
               "AND i.codigo_personal = r.codigo_personal) "
               "GROUP BY p.codigo, p.nif, p.nombre, p.cp, p.pais, %1, %2 "
               "ORDER BY p.codigo")
               .arg(clave, trimestre);
}

bool espanol(const QString& pais) {
    static const QStringList nombres{QStringLiteral("ES"), QStringLiteral("ESP"),
                                     QStringLiteral("ESPAÑA"), QStringLiteral("ESPANA")};
    const QString p = textoAeat(pais).trimmed();
    return p.isEmpty() || nombres.contains(p);
}

bool cpValido(const QString& cp) {
    if (cp.size() != 5 || !std::all_of(cp.begin(), cp.end(), [](QChar c) { return c.isDigit(); }))
        return false;
    const int provincia = cp.left(2).toInt();
    return provincia >= 1 && provincia <= 52;
}

QString sinBlancos(QString t) {
    t.remove(u' ');
    return t;
}

QString describir(const Declarado347& p) {
    return QStringLiteral("Tercero %1 %2").arg(p.codigo, p.nombre.trimmed());
}

void anotarFaltas(Declaracion347& d, const QString& empresa) {
    if (!nifValidoEstricto(d.nif))
        d.faltas << QStringLiteral("Empresa %1 %2: NIF %3 no válido")
                        .arg(empresa, d.nombre.trimmed(), d.nif.trimmed());
    const QString telefono = sinBlancos(d.telefono);
    if (telefono.size() != 9 ||
        !std::all_of(telefono.begin(), telefono.end(), [](QChar c) { return c.isDigit(); }))
        d.faltas << QStringLiteral("Teléfono de contacto %1 no válido: deben ser 9 cifras")
                        .arg(d.telefono.trimmed());
    // A party declared under both keys is named once.
    QStringList terceros;
    for (const Declarado347& p : d.declarados) {
        if (p.nif.isEmpty())
            terceros << describir(p) + QStringLiteral(": sin NIF");
        else if (!nifValidoEstricto(p.nif))
            terceros << describir(p) + QStringLiteral(": NIF %1 no válido").arg(p.nif);
        if (espanol(p.pais) && !cpValido(p.cp))
            terceros << describir(p) + QStringLiteral(": código postal %1 no válido").arg(p.cp);
    }
    terceros.removeDuplicates();
    d.faltas << terceros;
}

// A record of the file under construction: 500 blanks written over by position (1-based, as
// the agency gives them).
class Registro {
public:
    Registro() : texto_(500, u' ') {}
    void alfa(int pos, int largo, const QString& valor) {
        const QString t = textoAeat(valor).left(largo);
        texto_.replace(pos - 1, t.size(), t);
    }
    void cifras(int pos, int largo, qint64 valor) {
        texto_.replace(pos - 1, largo,
                       QString::number(std::abs(valor)).rightJustified(largo, u'0', true));
    }
    // Digits kept as typed, blanks out: a telephone.
    void cifrasTexto(int pos, int largo, const QString& valor) {
        const QString t = sinBlancos(valor).left(largo).rightJustified(largo, u'0');
        texto_.replace(pos - 1, largo, t);
    }
    // A sign position ("N" when negative) and 13 digits of euros and 2 of cents.
    void importe(int pos, qint64 centimos) {
        if (centimos < 0) texto_[pos - 1] = u'N';
        cifras(pos + 1, 15, centimos);
    }
    QByteArray bytes() const { return texto_.toLatin1() + "\r\n"; }

private:
    QString texto_;
};

}  // namespace

QString textoAeat(const QString& texto) {
    QString t;
    t.reserve(texto.size());
    for (QChar c : texto) {
        c = c.toUpper();
        if (c != u'Ñ' && c != u'Ç' && c.decompositionTag() == QChar::Canonical)
            c = c.decomposition().front();
        const bool valido = (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'Ñ' ||
                            c == u'Ç' || QStringView(u" .,-&").contains(c);
        t += valido ? c : u' ';
    }
    return t;
}

qint64 Declaracion347::total() const {
    qint64 t = 0;
    for (const Declarado347& p : declarados) t += p.anual;
    return t;
}

Declaracion347 calcular347(Conexion& c, const QString& empresa, int anio, qint64 umbralCentimos,
                           const QString& telefono, const QString& contacto) {
    Declaracion347 d;
    d.anio = anio;
    {
        Recordset rs = c.open(QStringLiteral("SELECT nif, nombre, telefono FROM Empresas "
                                             "WHERE codigo_empresa = ") +
                              sqlTexto(empresa));
        if (rs.eof()) {
            d.faltas << QStringLiteral("La empresa %1 no existe").arg(empresa);
            return d;
        }
        d.nif = nifNormalizado(rs.value(0).toString());
        d.nombre = rs.value(1).toString().trimmed();
        d.telefono = rs.value(2).toString().trimmed();
    }
    if (!telefono.isEmpty()) d.telefono = telefono;
    d.contacto = contacto.isEmpty() ? d.nombre : contacto;

    // Rows come by party code, so the first code of a NIF is the lowest.
    QList<Declarado347> grupos;
    QHash<QString, qsizetype> indice;
    for (Recordset rs = c.open(consulta347(empresa, anio), Cursor::Secuencial); !rs.eof();
         rs.moveNext()) {
        const QString codigo = rs.value(0).toString().trimmed();
        const QString nif = nifNormalizado(rs.value(1).toString());
        const QChar clave = rs.value(5).toString().front();
        const QString llave = clave + (nif.isEmpty() ? u'#' + codigo : nif);
        auto it = indice.constFind(llave);
        if (it == indice.cend()) {
            Declarado347 p;
            p.nif = nif;
            p.codigo = codigo;
            p.nombre = rs.value(2).toString().trimmed();
            p.cp = rs.value(3).toString().trimmed();
            p.pais = rs.value(4).toString().trimmed();
            p.clave = clave;
            it = indice.insert(llave, grupos.size());
            grupos << p;
        }
        Declarado347& p = grupos[*it];
        const qint64 centimos = std::llround(rs.value(7).toDouble());
        p.anual += centimos;
        p.trimestres[size_t(std::clamp(rs.value(6).toInt(), 1, 4) - 1)] += centimos;
    }
    for (const Declarado347& p : grupos)
        if (std::abs(p.anual) >= umbralCentimos) d.declarados << p;
    std::sort(d.declarados.begin(), d.declarados.end(),
              [](const Declarado347& a, const Declarado347& b) {
                  return std::tie(a.clave, a.nif, a.codigo) < std::tie(b.clave, b.nif, b.codigo);
              });
    anotarFaltas(d, empresa);
    return d;
}

QByteArray registros347(const Declaracion347& d) {
    const QString anio = QString::number(d.anio).rightJustified(4, u'0');
    QByteArray archivo;
    Registro r1;
    r1.alfa(1, 1, QStringLiteral("1"));
    r1.alfa(2, 3, QStringLiteral("347"));
    r1.alfa(5, 4, anio);
    r1.alfa(9, 9, d.nif);
    r1.alfa(18, 40, d.nombre);
    r1.alfa(58, 1, QStringLiteral("T"));
    r1.cifrasTexto(59, 9, d.telefono);
    r1.alfa(68, 40, d.contacto);
    r1.alfa(108, 13,
            QStringLiteral("347") +
                QDateTime::currentDateTime().toString(QStringLiteral("yyMMddHHmm")));
    r1.cifras(123, 13, 0);  // no previous declaration: neither complementary nor substitutive
    r1.cifras(136, 9, d.declarados.size());
    r1.importe(145, d.total());
    r1.cifras(161, 9, 0);  // no rented premises
    r1.importe(170, 0);
    archivo += r1.bytes();
    for (const Declarado347& p : d.declarados) {
        Registro r2;
        r2.alfa(1, 1, QStringLiteral("2"));
        r2.alfa(2, 3, QStringLiteral("347"));
        r2.alfa(5, 4, anio);
        r2.alfa(9, 9, d.nif);
        r2.alfa(18, 9, p.nif);
        r2.alfa(36, 40, p.nombre);
        r2.alfa(76, 1, QStringLiteral("D"));
        if (espanol(p.pais)) {
            r2.alfa(77, 2, p.cp.trimmed().left(2));
        } else {
            r2.alfa(77, 2, QStringLiteral("99"));
            if (p.pais.trimmed().size() == 2) r2.alfa(79, 2, p.pais.trimmed());
        }
        r2.alfa(82, 1, QString(p.clave));
        r2.importe(83, p.anual);
        r2.cifras(101, 15, 0);  // no cash amount
        r2.importe(116, 0);
        r2.cifras(132, 4, 0);
        for (size_t t = 0; t < 4; ++t) {
            r2.importe(136 + 32 * int(t), p.trimestres[t]);
            r2.importe(152 + 32 * int(t), 0);  // no property transfers
        }
        r2.importe(284, 0);  // nothing under the cash-basis regime
        archivo += r2.bytes();
    }
    return archivo;
}

bool escribir347(const Declaracion347& d, const QString& ruta, QString& error) {
    if (!d.faltas.isEmpty()) {
        error = QStringLiteral("No se puede escribir el modelo 347:\n") + d.faltas.join(u'\n');
        return false;
    }
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(registros347(d)) < 0 ||
        !archivo.commit()) {
        error = QStringLiteral("No se puede escribir \"%1\": %2").arg(ruta, archivo.errorString());
        return false;
    }
    return true;
}
