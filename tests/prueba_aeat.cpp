// The files for the tax agency on a small book of two branches checked by hand: who the model
// 347 declares and with what amounts, its file read back by position, what keeps it from being
// written, the strict NIF check, and the VAT record books as a workbook and as CSV.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/personal.h"
#include "data/entidades/registroirpf.h"
#include "data/entidades/registroiva.h"
#include "data/global.h"
#include "reports/librosaeat.h"
#include "reports/modelo347.h"
#include "reports/nifestricto.h"

#include <QDate>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

const int kAnio = QDate::currentDate().year();

struct Factura {
    const char *delegacion, *documento, *numero;
    int dia, mes, anio;
    const char *tipo, *personal;
    double base, pctiva, iva, pctre, re;
    int apunte = 1;
    bool conApunte = true;
};

// Sales FV and purchases FC of the year, in both branches (amounts in euros):
//  C0001  1,210.00 (Q1, EMP) + 1,795.06 (Q3, SUR) = 3,005.06, in; a sale of last year aside
//  C0002  3,005.05, out
//  P0003  customer of 5,954.00 (Q2, two rates, surcharge) and supplier of 5,048.00 (Q4, with
//         surcharge) + 1,210.00 of investment goods (Q2) = 6,258.00
//  C0004  4,840.00 (Q1) less a credit note of 2,420.00 (Q4, SUR), out
//  P0005  6,050.00 with withholding, left out, and 3,751.00 without (Q3)
//  C0006  4,840.00 whose journal line is missing, out
//  C0007 and C0008, one NIF written two ways: 2,420.00 (Q1) + 2,420.00 (Q2), as C0007
void crearLibro() {
    crearEmpresaPrueba();
    Conexion& c = *sesion_conexion;
    const struct {
        const char *codigo, *nombre, *nif, *cp;
    } terceros[] = {
        {"C0001", "Peña Ñandú, S.L.", "B28000008", "28001"},
        {"C0002", "Cliente Justo", "B50000025", "50001"},
        {"P0003", "Ferretería Müller & Hijos", "A08000036", "08001"},
        {"C0004", "Cliente Abonado", "B46000048", "46001"},
        {"P0005", "Asesoría López", "12345678Z", "28002"},
        {"C0006", "Sin Asiento", "B28000057", "28003"},
        {"C0007", "Grupo Siete", "g-4600007-1", "46002"},
        {"C0008", "Grupo Siete (bis)", "G46000071", "46002"},
    };
    for (const auto& t : terceros)
        Personal::Insert(c, "EMP", t.codigo, t.nombre, t.nif, "", "", t.cp, "", "", "", "", "",
                         "PRUEBA");
    const int y = kAnio, yp = kAnio - 1;
    const Factura facturas[] = {
        {"EMP", "FV", "0001", 15, 1, y, "V", "C0001", 1000, 21, 210, 0, 0},
        {"SUR", "FV", "0001", 10, 8, y, "V", "C0001", 1483.52, 21, 311.54, 0, 0},
        {"EMP", "FV", "0000", 31, 12, yp, "V", "C0001", 5000, 21, 1050, 0, 0},
        {"EMP", "FV", "0002", 20, 2, y, "V", "C0002", 2483.51, 21, 521.54, 0, 0},
        {"EMP", "FV", "0003", 15, 5, y, "V", "P0003", 4000, 21, 840, 0, 0, 1},
        {"EMP", "FV", "0003", 15, 5, y, "V", "P0003", 1000, 10, 100, 1.4, 14, 2},
        {"EMP", "FV", "0004", 10, 3, y, "V", "C0004", 4000, 21, 840, 0, 0},
        {"SUR", "FV", "0005", 5, 11, y, "V", "C0004", -2000, 21, -420, 0, 0},
        {"EMP", "FV", "0006", 1, 6, y, "V", "C0006", 4000, 21, 840, 0, 0, 1, false},
        {"EMP", "FV", "0007", 31, 3, y, "V", "C0007", 2000, 21, 420, 0, 0},
        {"SUR", "FV", "0008", 1, 4, y, "V", "C0008", 2000, 21, 420, 0, 0},
        {"EMP", "FC", "0001", 20, 10, y, "C", "P0003", 4000, 21, 840, 5.2, 208},
        {"SUR", "FC", "0002", 15, 4, y, "I", "P0003", 1000, 21, 210, 0, 0},
        {"EMP", "FC", "0003", 10, 7, y, "C", "P0005", 5000, 21, 1050, 0, 0},
        {"SUR", "FC", "0004", 12, 9, y, "C", "P0005", 3100, 21, 651, 0, 0},
    };
    for (const Factura& f : facturas) {
        const QDate fecha(f.anio, f.mes, f.dia);
        // Posted two days after the invoice's date: the date a purchase was received.
        if (f.conApunte)
            Apuntes::Insert(c, "EMP", f.delegacion, f.documento, f.numero, f.apunte, "GEN",
                            fecha.addDays(2), fecha, "", "43000000", "Factura", 0, 0, "IVA", "",
                            "PRUEBA");
        RegistroIva::Insert(c, "EMP", f.delegacion, f.documento, f.numero, f.apunte, f.tipo,
                            *f.tipo == 'V' ? "D" : "A", f.personal, "IVA", f.base, f.pctiva, f.iva,
                            f.pctre, f.re, "PRUEBA");
    }
    RegistroIrpf::Insert(c, "EMP", "EMP", "FC", "0003", 2, "A", "P0005", "R15", 5000, 15, 750,
                         "PRUEBA");
    sesionEmp();
}

// "clave|nif|codigo|year|Q1|Q2|Q3|Q4", cents.
const QStringList kDeclarados{
    "A|12345678Z|P0005|375100|0|0|375100|0",      "A|A08000036|P0003|625800|0|121000|0|504800",
    "B|A08000036|P0003|595400|0|595400|0|0",      "B|B28000008|C0001|300506|121000|0|179506|0",
    "B|G46000071|C0007|484000|242000|242000|0|0",
};

Declaracion347 declaracion(const QString& telefono = "976 123 456") {
    return calcular347(*sesion_conexion, "EMP", kAnio, 300506, telefono, "Ana Gil");
}

// A record's amount by position (1-based): the sign position, then 15 digits; -1e18 when the
// field is not of that form.
qint64 importe(const QByteArray& r, int pos) {
    const QByteArray cifras = r.mid(pos, 15);
    const char signo = r.at(pos - 1);
    const bool digitos =
        cifras.size() == 15 &&
        std::all_of(cifras.begin(), cifras.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!digitos || (signo != ' ' && signo != 'N')) return qint64(-1e18);
    return signo == 'N' ? -cifras.toLongLong() : cifras.toLongLong();
}

QString diaXlsx(int d, int m, int a = kAnio) {
    return QString::number(QDate(1899, 12, 30).daysTo(QDate(a, m, d)));
}
QString fecha(int d, int m) {
    return QDate(kAnio, m, d).toString("dd/MM/yyyy");
}

QByteArray delZip(const QString& ruta, const QString& parte) {
    QProcess unzip;
    unzip.start("unzip", {"-p", ruta, parte});
    if (!unzip.waitForFinished() || unzip.exitCode() != 0) return {};
    return unzip.readAllStandardOutput();
}

// A sheet's rows, each cell by its column: a text as it is, a number followed by "@" and the
// number format of its style when it has one.
QList<QStringList> hojaXlsx(const QString& ruta, int hoja) {
    QHash<int, QString> formatos;  // numFmtId → formatCode
    QList<int> estilos;            // xf → numFmtId
    QXmlStreamReader s(delZip(ruta, "xl/styles.xml"));
    bool enCeldas = false;
    while (!s.atEnd()) {
        s.readNext();
        if (s.isStartElement() && s.name() == u"numFmt")
            formatos[s.attributes().value("numFmtId").toInt()] =
                s.attributes().value("formatCode").toString();
        if (s.name() == u"cellXfs") enCeldas = s.isStartElement();
        if (enCeldas && s.isStartElement() && s.name() == u"xf")
            estilos << s.attributes().value("numFmtId").toInt();
    }
    QList<QStringList> filas;
    QXmlStreamReader x(delZip(ruta, QString("xl/worksheets/sheet%1.xml").arg(hoja)));
    int columna = 0, estilo = 0;
    while (!x.atEnd()) {
        x.readNext();
        if (!x.isStartElement()) continue;
        if (x.name() == u"row") filas << QStringList();
        if (x.name() == u"c") {
            const QString ref =
                x.attributes().value("r").toString().remove(QRegularExpression("\\d"));
            columna = 0;
            for (QChar ch : ref) columna = columna * 26 + (ch.unicode() - 'A' + 1);
            --columna;
            estilo = x.attributes().value("s").toInt();
            while (filas.last().size() <= columna) filas.last() << QString();
        }
        if (x.name() == u"t") filas.last()[columna] = x.readElementText();
        if (x.name() == u"v") {
            const QString formato = formatos.value(estilos.value(estilo));
            filas.last()[columna] =
                x.readElementText() + (formato.isEmpty() ? QString() : "@" + formato);
        }
    }
    return filas;
}

QStringList lineasCsv(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) return {"cannot open " + ruta};
    QStringList l = QString::fromUtf8(f.readAll()).split("\r\n");
    if (l.last().isEmpty()) l.removeLast();
    return l;
}

}  // namespace

class PruebaAeat : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;

private slots:
    void initTestCase() { CREAR_ALMACEN(almacen); }
    void init() {
        almacen->nuevo();
        crearLibro();
    }
    void cleanupTestCase() { almacen.reset(); }

    void nifEstricto_data() {
        QTest::addColumn<QString>("nif");
        QTest::addColumn<bool>("valido");
        const struct {
            const char *caso, *nif;
            bool valido;
        } casos[] = {
            {"DNI", "12345678Z", true},
            {"DNI written with points, hyphen and lower case", "12.345.678-z", true},
            {"DNI without its leading zero", "1234567L", false},
            {"DNI with a wrong letter", "12345678A", false},
            {"NIE X", "X1234567L", true},
            {"NIE Y", "Y7654321G", true},
            {"NIE Z", "Z3456789D", true},
            {"NIE with a wrong letter", "X1234567M", false},
            {"K with its letter", "K1234567L", true},
            {"K with a wrong letter", "K1234567T", false},
            {"CIF A: digit", "A08000036", true},
            {"CIF A with a letter for its digit", "A0800003F", false},
            {"CIF with a wrong digit", "B28000009", false},
            {"CIF Q: letter", "Q2826000H", true},
            {"CIF Q with a digit for its letter", "Q28260008", false},
            {"CIF Q with a wrong letter", "Q2826000J", false},
            {"CIF G: digit", "G46000071", true},
            {"CIF G: letter", "G4600007A", true},
            {"unknown first letter", "I46000071", false},
            {"ten characters", "123456789Z", false},
            {"empty", "", false},
        };
        for (const auto& c : casos) QTest::newRow(c.caso) << QString(c.nif) << c.valido;
    }
    void nifEstricto() {
        QFETCH(QString, nif);
        QFETCH(bool, valido);
        QCOMPARE(nifValidoEstricto(nif), valido);
    }

    // Who is declared and with what: the threshold on the year's total of each NIF and key,
    // both branches added, credit notes subtracted, withholding and lines without a journal
    // entry left out, the quarters by invoice date.
    void declarados() {
        const Declaracion347 d = declaracion();
        QStringList filas;
        for (const Declarado347& p : d.declarados) {
            QStringList f{QString(p.clave), p.nif, p.codigo, QString::number(p.anual)};
            for (qint64 t : p.trimestres) f << QString::number(t);
            filas << f.join(u'|');
        }
        QCOMPARE(filas, kDeclarados);
        QCOMPARE(d.faltas, QStringList());
        QCOMPARE(d.nif, QStringLiteral("B12345674"));
        QCOMPARE(d.declarados[3].nombre, QStringLiteral("Peña Ñandú, S.L."));
        QCOMPARE(d.declarados[4].nombre, QStringLiteral("Grupo Siete"));

        // Without a telephone or contact, the company's.
        sesion_conexion->execute("UPDATE Empresas SET telefono = '976000111'");
        const Declaracion347 e = calcular347(*sesion_conexion, "EMP", kAnio);
        QCOMPARE(e.telefono, QStringLiteral("976000111"));
        QCOMPARE(e.contacto, QStringLiteral("Empresa de prueba"));
    }

    // The file read by position, by no code of its writer.
    void archivo347() {
        QTemporaryDir dir;
        QString error;
        const QString ruta = dir.filePath("m347.txt");
        QVERIFY2(escribir347(declaracion(), ruta, error), qPrintable(error));
        QFile f(ruta);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray bytes = f.readAll();
        QVERIFY(bytes.endsWith("\r\n"));
        QList<QByteArray> registros = bytes.split('\n');
        registros.removeLast();
        QCOMPARE(registros.size(), 1 + kDeclarados.size());
        for (QByteArray& r : registros) {
            QCOMPARE(int(r.size()), 501);
            QVERIFY(r.endsWith('\r'));
            r.chop(1);
            QVERIFY2(!QString::fromLatin1(r).contains(QRegularExpression("[a-zà-ÿ]")), r);
        }
        const QByteArray& r1 = registros[0];
        QCOMPARE(r1.left(17), "1347" + QByteArray::number(kAnio) + "B12345674");
        QCOMPARE(r1.mid(17, 40).trimmed(), QByteArray("EMPRESA DE PRUEBA"));
        QCOMPARE(r1.mid(57, 50), QByteArray("T976123456ANA GIL") + QByteArray(33, ' '));
        QVERIFY(r1.mid(107, 13).startsWith("347"));
        QCOMPARE(r1.mid(120, 15), QByteArray("  ") + QByteArray(13, '0'));
        QCOMPARE(r1.mid(135, 9).toInt(), int(kDeclarados.size()));

        QStringList leidos;
        qint64 suma = 0;
        for (const QByteArray& r : registros.mid(1)) {
            QCOMPARE(r.left(17), "2347" + QByteArray::number(kAnio) + "B12345674");
            QCOMPARE(r.at(75), 'D');
            QCOMPARE(r.mid(78, 3), QByteArray("   "));  // no country: Spanish parties
            const QString nif = QString::fromLatin1(r.mid(17, 9));
            QVERIFY2(nifValidoEstricto(nif), qPrintable(nif));
            const qint64 anual = importe(r, 83);
            QStringList campos{QString(QChar(r.at(81))), nif, QString::number(anual)};
            qint64 trimestres = 0;
            for (int t = 0; t < 4; ++t) {
                trimestres += importe(r, 136 + 32 * t);
                campos << QString::number(importe(r, 136 + 32 * t));
                QCOMPARE(importe(r, 152 + 32 * t), qint64(0));
            }
            QCOMPARE(trimestres, anual);
            suma += anual;
            leidos << campos.join(u'|');
        }
        QStringList esperados;
        for (const QString& d : kDeclarados) {
            QStringList c = d.split(u'|');
            c.removeAt(2);  // the code is not in the file
            esperados << c.join(u'|');
        }
        QCOMPARE(leidos, esperados);
        QCOMPARE(importe(r1, 145), suma);
        // ISO-8859-1 capitals, accents gone, Ñ and & kept; the province from the postal code.
        QCOMPARE(registros[4].mid(35, 40).trimmed(), QByteArray("PE\xD1"
                                                                "A \xD1"
                                                                "ANDU, S.L."));
        QCOMPARE(registros[4].mid(76, 2), QByteArray("28"));
        QCOMPARE(registros[2].mid(35, 40).trimmed(), QByteArray("FERRETERIA MULLER & HIJOS"));
        QCOMPARE(registros[5].mid(35, 40).trimmed(), QByteArray("GRUPO SIETE"));
    }

    void rechazos_data() {
        QTest::addColumn<QString>("cambio");
        QTest::addColumn<QString>("telefono");
        QTest::addColumn<QStringList>("faltas");
        QTest::newRow("a declared party's NIF")
            << "UPDATE Personal SET nif = 'B28000009' WHERE codigo = 'C0001'"
            << "976123456"
            << QStringList{"Tercero C0001 Peña Ñandú, S.L.: NIF B28000009 no válido"};
        QTest::newRow("a party declared without NIF")
            << "UPDATE Personal SET nif = '' WHERE codigo = 'P0005'"
            << "976123456" << QStringList{"Tercero P0005 Asesoría López: sin NIF"};
        QTest::newRow("a postal code outside the provinces, named once for both keys")
            << "UPDATE Personal SET cp = '53001' WHERE codigo = 'P0003'"
            << "976123456"
            << QStringList{
                   "Tercero P0003 Ferretería Müller & Hijos: código postal 53001 no válido"};
        QTest::newRow("the company's NIF") << "UPDATE Empresas SET nif = 'B12345670'"
                                           << "976123456"
                                           << QStringList{
                                                  "Empresa EMP Empresa de prueba: NIF B12345670 "
                                                  "no válido"};
        QTest::newRow("a telephone of eight digits")
            << ""
            << "97 612 345"
            << QStringList{"Teléfono de contacto 97 612 345 no válido: deben ser 9 cifras"};
        QTest::newRow("the NIF of a party under the threshold is not checked")
            << "UPDATE Personal SET nif = '1234' WHERE codigo = 'C0002'"
            << "976123456" << QStringList();
    }
    void rechazos() {
        QFETCH(QString, cambio);
        QFETCH(QString, telefono);
        QFETCH(QStringList, faltas);
        if (!cambio.isEmpty()) sesion_conexion->execute(cambio);
        const Declaracion347 d = declaracion(telefono);
        QCOMPARE(d.faltas, faltas);
        QTemporaryDir dir;
        QString error;
        QCOMPARE(escribir347(d, dir.filePath("m347.txt"), error), faltas.isEmpty());
        QCOMPARE(QFile::exists(dir.filePath("m347.txt")), faltas.isEmpty());
        for (const QString& falta : faltas) QVERIFY2(error.contains(falta), qPrintable(error));
    }

    // One row per invoice and rate, both branches, by invoice date; the invoice's total over
    // its rates; dates as dates and amounts as numbers.
    void librosXlsx() {
        QTemporaryDir dir;
        const QString ruta = dir.filePath("libros.xlsx");
        QString error;
        qint64 filas = 0;
        QVERIFY2(escribirLibrosAeat(*sesion_conexion, "EMP", QString::number(kAnio) + "0101",
                                    QString::number(kAnio) + "1231", ruta, error, &filas),
                 qPrintable(error));
        QCOMPARE(filas, qint64(9 + 4));
        QVERIFY(delZip(ruta, "xl/workbook.xml").contains(R"(name="Expedidas")"));
        QVERIFY(delZip(ruta, "xl/workbook.xml").contains(R"(name="Recibidas")"));
        const QString F = "@dd/mm/yyyy", I = "@#,##0.00";
        const QList<QStringList> expedidas = hojaXlsx(ruta, 1);
        QCOMPARE(expedidas.size(), qsizetype(2 + 9));
        QCOMPARE(expedidas[0].join(u'|'),
                 QStringLiteral("Fecha Expedición|Fecha Operación|Serie|Número|Número-Final|"
                                "NIF Destinatario|||Nombre Destinatario|Factura Sustitutiva|"
                                "Clave de Operación|Total Factura|Base Imponible|Tipo de IVA|"
                                "Cuota IVA Repercutida|Tipo de Recargo eq.|Cuota Recargo eq.|"
                                "Cobro|||"));
        QCOMPARE(expedidas[1].join(u'|'),
                 QStringLiteral("|||||Tipo|Código País|Identificación||||||||||"
                                "Fecha|Importe|Medio|Identificación"));
        QStringList numeros;
        for (const QStringList& f : expedidas.mid(2)) numeros << f.value(2) + f.value(3);
        QCOMPARE(numeros, (QStringList{"FV0001", "FV0002", "FV0004", "FV0007", "FV0008", "FV0003",
                                       "FV0003", "FV0001", "FV0005"}));
        QCOMPARE(expedidas[2], (QStringList{diaXlsx(15, 1) + F, "", "FV", "0001", "", "", "",
                                            "B28000008", "Peña Ñandú, S.L.", "", "01", "1210" + I,
                                            "1000" + I, "21", "210" + I, "0", "0" + I}));
        QCOMPARE(expedidas[5].value(7), QStringLiteral("G46000071"));
        QCOMPARE(expedidas[7].mid(11, 6),
                 (QStringList{"5954" + I, "1000" + I, "10", "100" + I, "1.4", "14" + I}));
        QCOMPARE(expedidas[8].mid(11, 6),
                 (QStringList{"5954" + I, "4000" + I, "21", "840" + I, "0", "0" + I}));
        QCOMPARE(expedidas[10].mid(11, 4),
                 (QStringList{"-2420" + I, "-2000" + I, "21", "-420" + I}));

        const QList<QStringList> recibidas = hojaXlsx(ruta, 2);
        QCOMPARE(recibidas.size(), qsizetype(2 + 4));
        QCOMPARE(recibidas[0].mid(2, 4),
                 (QStringList{"Serie-Número", "Número-Final", "Fecha Recepción", "NIF Expedidor"}));
        QCOMPARE(recibidas[0].mid(14, 8),
                 (QStringList{"Cuota IVA Soportado", "Cuota Deducible", "Tipo de Recargo eq.",
                              "Cuota Recargo eq.", "Pago", "", "", ""}));
        QCOMPARE(recibidas[5],
                 (QStringList{diaXlsx(20, 10) + F, "", "FC-0001", "", diaXlsx(22, 10) + F, "", "",
                              "A08000036", "Ferretería Müller & Hijos", "", "01", "5048" + I,
                              "4000" + I, "21", "840" + I, "840" + I, "5.2", "208" + I}));
    }

    void librosCsv() {
        QTemporaryDir dir;
        QString error;
        QVERIFY2(
            escribirLibrosAeat(*sesion_conexion, "EMP", QString::number(kAnio) + "0101",
                               QString::number(kAnio) + "1231", dir.filePath("libros.csv"), error),
            qPrintable(error));
        const QStringList expedidas = lineasCsv(dir.filePath("libros_expedidas.csv"));
        QCOMPARE(expedidas.size(), qsizetype(2 + 9));
        QVERIFY(expedidas[0].startsWith("\uFEFFFecha Expedición;Fecha Operación;Serie;"));
        QCOMPARE(expedidas[1], QStringLiteral(";;;;;Tipo;Código País;Identificación;;;;;;;;;;"
                                              "Fecha;Importe;Medio;Identificación"));
        QCOMPARE(expedidas[3], fecha(20, 2) +
                                   ";;FV;0002;;;;B50000025;Cliente Justo;;01;3005,05;"
                                   "2483,51;21;521,54;0;0,00;;;;");
        QCOMPARE(expedidas[10], fecha(5, 11) +
                                    ";;FV;0005;;;;B46000048;Cliente Abonado;;01;"
                                    "-2420,00;-2000,00;21;-420,00;0;0,00;;;;");
        const QStringList recibidas = lineasCsv(dir.filePath("libros_recibidas.csv"));
        QCOMPARE(recibidas.size(), qsizetype(2 + 4));
        QCOMPARE(recibidas[2], fecha(15, 4) + ";;FC-0002;;" + fecha(17, 4) +
                                   ";;;A08000036;Ferretería Müller & Hijos;;01;1210,00;1000,00;"
                                   "21;210,00;210,00;0;0,00;;;;");
    }
};

QTEST_MAIN(PruebaAeat)
#include "prueba_aeat.moc"
