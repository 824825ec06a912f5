// The report engine without a store: pagination, formulas, layout errors and the exports.
#include "data/almacen/error.h"
#include "reports/motor/evaluador.h"
#include "reports/motor/exportar.h"
#include "reports/motor/fuente.h"
#include "reports/motor/paginador.h"
#include "reports/motor/valores.h"

#include <QDate>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>
#include <map>

using namespace motor;

namespace {

// Lines "L<n>" of groups "G<g>", the amount of line n being n + 0.01·n, in a layout whose
// detail height decides where the pages break. Amount texts sit at x = 110 mm.
QString diseno(double altoDetalle, bool soloEnGrupo) {
    const QString solo = soloEnGrupo ? QStringLiteral(" solo_en_grupo") : QString();
    return QStringLiteral(R"(
papel A4 vertical
margenes 10 10 10 10
acumulado dg grupo = debe
acumulado dt informe = debe
grupo g
banda cabecera_pagina 12
  texto 0 0 90 5 "{empresa}"
  texto 0 6 90 5 "{periodo}"
banda cabecera_columnas 5
  texto 0 0 50 5 "COLUMNAS"
banda arrastre_cabecera 5%2
  texto 0 0 50 5 "ANTERIOR"
  campo 100 0 40 5 "dg" importe
banda cabecera_grupo 9
  texto 0 0 50 5 "GRUPO {g}"
banda detalle %1
  texto 0 0 50 4 "L{n}"
  campo 100 0 40 4 debe importe
banda pie_grupo 6
  texto 0 0 50 5 "FIN {g}"
  campo 100 0 40 5 dg importe
banda arrastre_pie 5%2
  texto 0 0 50 5 "SIGUE"
  campo 100 0 40 5 "dg" importe
banda pie_informe 6
  texto 0 0 50 5 "TOTAL"
  campo 100 0 40 5 dt importe
banda pie_pagina 6
  texto 0 0 90 5 "Página {pagina}"
)")
        .arg(altoDetalle)
        .arg(solo);
}

// One row of a page: the label at the left margin and the amount beside it, if any.
struct Renglon {
    QString etiqueta, importe;
};

QList<Renglon> renglones(const Pagina& p) {
    std::map<std::pair<double, int>, Renglon> porAltura;
    for (const Trazo& t : p.textos) {
        Renglon& r = porAltura[{t.caja.y(), 0}];
        (t.caja.x() > 100 ? r.importe : r.etiqueta) = t.texto;
    }
    QList<Renglon> lista;
    for (const auto& [clave, r] : porAltura) lista << r;
    return lista;
}

QList<QVariantList> filasDeGrupos(const QList<int>& tamanos, double* total) {
    QList<QVariantList> filas;
    int n = 0;
    *total = 0;
    for (qsizetype g = 0; g < tamanos.size(); ++g)
        for (int i = 0; i < tamanos[g]; ++i) {
            ++n;
            const double debe = n + 0.01 * n;
            *total += debe;
            filas << QVariantList{QStringLiteral("G%1").arg(g), n, debe};
        }
    return filas;
}

// The cells of a workbook's first sheet, row by row: numbers as written, dates as day numbers.
QList<QStringList> celdasXlsx(const QString& ruta) {
    QProcess unzip;
    unzip.start("unzip", {"-p", ruta, "xl/worksheets/sheet1.xml"});
    if (!unzip.waitForFinished() || unzip.exitCode() != 0) return {{"unzip failed"}};
    QXmlStreamReader xml(unzip.readAllStandardOutput());
    QList<QStringList> celdas;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"row") celdas << QStringList();
        if (xml.isStartElement() && (xml.name() == u"v" || xml.name() == u"t"))
            celdas.last() << xml.readElementText();
    }
    return celdas;
}

QString diaXlsx(int a, int m, int d) {
    return QString::number(QDate(1899, 12, 30).daysTo(QDate(a, m, d)));
}

// A value with its kind: a text in quotes, a number as a plain field shows it.
QString escrito(const Valor& v) {
    return v.esTexto ? u'\'' + v.texto + u'\'' : mostrar(v, Formato::Texto, false);
}

// The accounts of a small balance, in the order of no statement: masa A (assets) and P, the
// last asset's balance the residue of a sum that comes to nothing.
const QStringList kColumnasBalance{"masa", "cuenta", "saldo"};
const QList<QVariantList> kFilasBalance{
    {"P", "400", -300.0}, {"A", "572", 1000.0},          {"A", "430", 250.5},
    {"P", "100", -950.5}, {"A", "300", 0.1 + 0.2 - 0.3},
};

}  // namespace

class PruebaMotor : public QObject {
    Q_OBJECT
private slots:
    void paginacion_data() {
        QTest::addColumn<QList<int>>("grupos");
        QTest::addColumn<double>("altoDetalle");
        QTest::addColumn<bool>("soloEnGrupo");
        QTest::newRow("one long group, carried within it") << QList<int>{200} << 4.3 << true;
        QTest::newRow("groups across pages") << QList<int>{3, 50, 1, 1, 120, 7} << 4.3 << true;
        QTest::newRow("tall lines, single-line groups")
            << QList<int>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1} << 31.0 << true;
        QTest::newRow("whole-book totals carried")
            << QList<int>{3, 50, 1, 1, 120, 7} << 9.7 << false;
        for (int d = 0; d < 6; ++d)
            QTest::addRow("group header at the foot, step %d", d)
                << QList<int>{40 + d, 2, 2, 2, 60} << 4.0 + d * 0.25 << true;
        QTest::newRow("no rows") << QList<int>{} << 4.3 << false;
    }
    // On every page: the formulas in the header, its own number in the footer, no group
    // header without its first line after it, and carried totals equal to the sum of the
    // lines before the break; every line once, in order; group and report totals.
    void paginacion() {
        QFETCH(QList<int>, grupos);
        QFETCH(double, altoDetalle);
        QFETCH(bool, soloEnGrupo);
        double total = 0;
        FuenteMemoria fuente({"g", "n", "debe"}, filasDeGrupos(grupos, &total));
        const Diseno d = leerDisenoTexto(diseno(altoDetalle, soloEnGrupo));
        Paginador paginador(d,
                            leerFormulas({"empresa='EMP Comercial Ebro, S.L.'",
                                          "periodo='del 01/01/2026 al 31/12/2026'"}),
                            fuente);
        Pagina pagina;
        int numero = 0, siguienteLinea = 1;
        double grupo = 0, libro = 0;
        QString arrastrado;  // the carried amount the previous page ended with
        while (paginador.siguiente(pagina)) {
            ++numero;
            QCOMPARE(pagina.numero, numero);
            const QList<Renglon> r = renglones(pagina);
            QCOMPARE(r.first().etiqueta, QStringLiteral("EMP Comercial Ebro, S.L."));
            QCOMPARE(r[1].etiqueta, QStringLiteral("del 01/01/2026 al 31/12/2026"));
            QCOMPARE(r.last().etiqueta, QStringLiteral("Página %1").arg(numero));
            qsizetype i = 3;
            if (!arrastrado.isEmpty()) {
                QCOMPARE(r[i].etiqueta, QStringLiteral("ANTERIOR"));
                QCOMPARE(r[i].importe, arrastrado);
                ++i;
            } else {
                QVERIFY(r[i].etiqueta != u"ANTERIOR");
            }
            arrastrado.clear();
            for (; i < r.size() - 1; ++i) {
                const QString& e = r[i].etiqueta;
                if (e.startsWith(u"GRUPO")) {
                    QVERIFY2(
                        r[i + 1].etiqueta == QStringLiteral("L%1").arg(siguienteLinea),
                        qPrintable(QStringLiteral("página %1: cabecera sin su línea").arg(numero)));
                    grupo = 0;
                } else if (e.startsWith(u'L')) {
                    QCOMPARE(e, QStringLiteral("L%1").arg(siguienteLinea));
                    const double debe = siguienteLinea + 0.01 * siguienteLinea;
                    QCOMPARE(r[i].importe, importe(debe));
                    grupo += debe;
                    libro += debe;
                    ++siguienteLinea;
                } else if (e.startsWith(u"FIN")) {
                    QCOMPARE(r[i].importe, importe(grupo));
                } else if (e == u"SIGUE") {
                    QCOMPARE(r[i].importe, importe(grupo));
                    arrastrado = r[i].importe;
                } else if (e == u"TOTAL") {
                    QCOMPARE(r[i].importe, importe(libro));
                }
            }
        }
        QCOMPARE(siguienteLinea - 1, int(paginador.filasLeidas()));
        QCOMPARE(importe(libro), importe(total));
        QVERIFY(numero >= 1);
        QVERIFY(arrastrado.isEmpty());
    }

    // What a layout's conditions and labels are built from, on one row.
    void expresiones_data() {
        QTest::addColumn<QString>("expresion");
        QTest::addColumn<QString>("valor");
        QTest::newRow("numbers compared") << "saldo < 0"
                                          << "1";
        QTest::newRow("comparison binds less than +") << "saldo + 1234.5 = 0"
                                                      << "1";
        QTest::newRow("residue of a sum equals zero") << "0.1 + 0.2 - 0.3 = 0"
                                                      << "1";
        QTest::newRow("texts compared as texts") << "'10' < '9'"
                                                 << "1";
        QTest::newRow("a text column against a text") << "cuenta >= '4300'"
                                                      << "1";
        QTest::newRow("a text against a number reads 0") << "anio = 2026"
                                                         << "0";
        QTest::newRow("numero of a text") << "numero(anio) = 2026"
                                          << "1";
        QTest::newRow("numero of a Spanish amount") << "numero('1.210,50')"
                                                    << "1210,5";
        QTest::newRow("numero of no number") << "numero('abc') + numero(7)"
                                             << "7";
        QTest::newRow("si giving a text") << "si(saldo < 0, 'D', 'H')"
                                          << "'D'";
        QTest::newRow("si on an empty text") << "si(nulo, 'lleno', 'vacío')"
                                             << "'vacío'";
        QTest::newRow("Null column is the empty text") << "y(vacio(nulo), nulo = '')"
                                                       << "1";
        QTest::newRow("a number is never empty") << "vacio(0)"
                                                 << "0";
        QTest::newRow("empieza") << "empieza(cuenta, '430') * 10 + empieza(cuenta, '431')"
                                 << "10";
        QTest::newRow("derecha and izquierda") << "si(1, derecha(cuenta, 3), 0)"
                                               << "'001'";
        QTest::newRow("izquierda of a number") << "izquierda(saldo, 3)"
                                               << "'-12'";
        QTest::newRow("y and o, names in any case") << "O(vacio(cuenta), Y(1, cuenta, saldo))"
                                                    << "1";
        QTest::newRow("quote inside a text") << "'L''Hospitalet'"
                                             << "'L'Hospitalet'";
        QTest::newRow("a text reads 0 in arithmetic") << "si(1, cuenta, 0) * 2 + 1"
                                                      << "1";
    }
    void expresiones() {
        QFETCH(QString, expresion);
        QFETCH(QString, valor);
        const Diseno d = leerDisenoTexto("banda detalle 4");
        Evaluador e(d, {}, {"cuenta", "anio", "saldo", "nulo"});
        e.avanzar({"43000001", "2026", -1234.5, QVariant()});
        QCOMPARE(escrito(e.compilar(expresion).evaluar(e.valores())), valor);
    }

    // A statement's layout: the rows in its own order, each heading with the sum of the lines
    // below it and the report's total above them all; the amount of a line as asked.
    void estados_data() {
        QTest::addColumn<QString>("detalle");
        QTest::addColumn<QStringList>("lineas");
        QTest::newRow("heading's sum before its lines, rows sorted")
            << "campo 110 0 40 5 saldo importe"
            << QStringList{"ACTIVO · 1.250,50", "MASA A · 1.250,50", "300 · 0,00",
                           "430 · 250,50",      "572 · 1.000,00",    "MASA P · -1.250,50",
                           "100 · -950,50",     "400 · -300,00"};
        QTest::newRow("si= hides a line's amount and rule when it adds up to nothing")
            << "campo 110 0 40 5 saldo importe si=con_saldo\nlinea 0 0 150 0 si=con_saldo"
            << QStringList{"ACTIVO · 1.250,50", "MASA A · 1.250,50", "300",
                           "— 430 · 250,50",    "— 572 · 1.000,00",  "MASA P · -1.250,50",
                           "— 100 · -950,50",   "— 400 · -300,00"};
        QTest::newRow("parentesis, still blank at zero")
            << "campo 110 0 40 5 saldo importe parentesis blanco_si_cero"
            << QStringList{"ACTIVO · 1.250,50", "MASA A · 1.250,50", "300",
                           "430 · 250,50",      "572 · 1.000,00",    "MASA P · -1.250,50",
                           "100 · (950,50)",    "400 · (300,00)"};
    }
    void estados() {
        QFETCH(QString, detalle);
        QFETCH(QStringList, lineas);
        const Diseno d =
            leerDisenoTexto(QStringLiteral("ordenar masa cuenta\n"
                                           "grupo masa\n"
                                           "calculo con_saldo = saldo <> 0\n"
                                           "total suma_masa por masa = saldo\n"
                                           "total activo informe = si(masa = 'A', saldo, 0)\n"
                                           "banda cabecera_informe 5\n"
                                           "  texto 0 0 50 5 \"ACTIVO\"\n"
                                           "  campo 110 0 40 5 activo importe\n"
                                           "banda cabecera_grupo 5\n"
                                           "  texto 0 0 50 5 \"MASA {masa}\"\n"
                                           "  campo 110 0 40 5 suma_masa importe\n"
                                           "banda detalle 5\n"
                                           "  campo 0 0 50 5 cuenta\n") +
                            detalle);
        FuenteMemoria fuente(kColumnasBalance, kFilasBalance);
        Paginador paginador(d, {}, fuente);
        Pagina pagina;
        QVERIFY(paginador.siguiente(pagina));
        // The texts of each height in the layout's order, after a dash for a rule there.
        std::map<double, QStringList> porAltura;
        for (const Raya& r : pagina.rayas) porAltura[r.linea.y1()] << QStringLiteral("—");
        for (const Trazo& t : pagina.textos) porAltura[t.caja.y()] << t.texto;
        QStringList impresas;
        for (const auto& [y, textos] : porAltura)
            impresas << (textos.first() == u"—" ? QStringLiteral("— ") + textos.mid(1).join(u" · ")
                                                : textos.join(u" · "));
        QCOMPARE(impresas, lineas);
        QVERIFY(!paginador.siguiente(pagina));
    }

    void formulas_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("valor");
        QTest::newRow("text") << "periodo='del 01/01/2026 al 31/12/2026'"
                              << "periodo"
                              << "del 01/01/2026 al 31/12/2026";
        QTest::newRow("blanks around the sign") << "ordenacion = 'Por fecha contable'"
                                                << "ordenacion"
                                                << "Por fecha contable";
        QTest::newRow("apostrophe in a name") << "empresa='EMP L'Hospitalet, S.A.'"
                                              << "empresa"
                                              << "EMP L'Hospitalet, S.A.";
        QTest::newRow("bare number") << "niveles = 3"
                                     << "niveles"
                                     << "3";
    }
    void formulas() {
        QFETCH(QString, formula);
        QFETCH(QString, nombre);
        QFETCH(QString, valor);
        const auto f = leerFormulas({formula, QString()});
        QCOMPARE(f.size(), 1);
        QCOMPARE(mostrar(f.value(nombre), Formato::Texto, false), valor);
    }

    // A layout that cannot run says where and why, before any page.
    void errores_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("unknown option") << "banda detalle 4\ntexto 0 0 1 1 \"x\" gordo"
                                        << "línea 2: opción desconocida \"gordo\"";
        QTest::newRow("element outside a band") << "campo 0 0 1 1 debe"
                                                << "línea 1: elemento fuera de una banda";
        QTest::newRow("bad expression") << "banda detalle 4\ncampo 0 0 1 1 \"debe +\""
                                        << "falta un operando";
        QTest::newRow("name with no value") << "banda detalle 4\ntexto 0 0 9 4 \"{saldo}\""
                                            << "El informe usa \"{saldo}\", que no tiene valor";
        QTest::newRow("group on no column") << "grupo cuenta\nbanda detalle 4"
                                            << "nombra \"cuenta\"";
        QTest::newRow("no detail") << "banda pie_pagina 4"
                                   << "no tiene banda de detalle";
        QTest::newRow("exported column naming no column")
            << "banda detalle 4\n\nexportar \"Saldo\" \"debe - sldo\" importe"
            << "Diseño, línea 3: la columna exportada \"Saldo\" no se puede calcular con esta "
               "consulta. Expresión \"debe - sldo\": no existe \"sldo\".";
        QTest::newRow("page number in an exported column")
            << "banda detalle 4\nexportar \"Página\" pagina"
            << "línea 2: la columna exportada \"Página\"";
        QTest::newRow("unknown export format") << "exportar \"Debe\" debe moneda\nbanda detalle 4"
                                               << "línea 1: formato de exportación desconocido";
        QTest::newRow("exported title twice")
            << "exportar \"Debe\" debe\nexportar \"Debe\" debe importe\nbanda detalle 4"
            << "línea 2: la columna \"Debe\" ya se exporta en la línea 1.";
        QTest::newRow("exported column without title") << "exportar debe\nbanda detalle 4"
                                                       << "línea 1: faltan valores";
        QTest::newRow("unknown function") << "banda detalle 4\ncampo 0 0 1 1 \"raiz(debe)\""
                                          << "línea 2: Expresión \"raiz(debe)\": no existe la "
                                             "función \"raiz\".";
        QTest::newRow("si with two arguments") << "calculo c = si(debe, 1)\nbanda detalle 4"
                                               << "línea 1: Expresión \"si(debe, 1)\": si lleva 3";
        QTest::newRow("unknown name in a value")
            << "banda detalle 4\ncalculo c = debe + sldo"
            << "Diseño, línea 2: Expresión \"debe + sldo\": no existe \"sldo\".";
        QTest::newRow("si= naming nothing") << "banda detalle 4\nlinea 0 0 1 1 si=hay"
                                            << "línea 2: si=hay nombra un valor que no existe.";
        QTest::newRow("parentesis without importe")
            << "banda detalle 4\ncampo 0 0 1 1 debe parentesis"
            << "línea 2: parentesis va con importe.";
        QTest::newRow("total by no column")
            << "total t por debe, cuenta = debe\nbanda detalle 4"
            << "línea 1: El total \"t\" nombra \"cuenta\", que no es una columna";
        QTest::newRow("total from a total, through a value")
            << "total a informe = debe\ncalculo c = a * 2\ntotal b informe = c\nbanda detalle 4"
            << "línea 3: el total \"b\" se suma de otro total";
        QTest::newRow("ordenar by no column") << "banda detalle 4\nordenar debe fecha"
                                              << "línea 2: El orden nombra \"fecha\"";
    }
    void errores() {
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        try {
            FuenteMemoria fuente({"debe"}, {});
            const Diseno d = leerDisenoTexto(texto);
            Paginador p(d, {}, fuente);
            QFAIL("no failure");
        } catch (const Error& e) {
            QVERIFY2(e.descripcion().contains(mensaje), qPrintable(e.descripcion()));
        }
    }

    void exportaciones() {
        QTemporaryDir dir;
        const QStringList columnas{"cuenta",   "fecha_apunte", "numero_apunte",
                                   "concepto", "debe",         "haber"};
        const QList<QVariantList> filas{
            {"43000001", "20260102", 1, "Factura 1; \"urgente\"", 1210.5, 0.0},
            {"70000001", "20260131", 2, "Venta L'Hospitalet", 0.0, 1000000.0},
            {"47700021", "20261231", 3, QVariant(), 1234567.89, 210.49},
        };
        {
            FuenteMemoria f(columnas, filas);
            QCOMPARE(exportarCsv(f, dir.filePath("a.csv")), Resultado::Hecho);
            QFile csv(dir.filePath("a.csv"));
            QVERIFY(csv.open(QIODevice::ReadOnly));
            QCOMPARE(
                csv.readAll(),
                QByteArray("\xEF\xBB\xBF"
                           "cuenta;fecha_apunte;numero_apunte;concepto;debe;haber\r\n"
                           "43000001;02/01/2026;1;\"Factura 1; \"\"urgente\"\"\";1210,50;0,00\r\n"
                           "70000001;31/01/2026;2;Venta L'Hospitalet;0,00;1000000,00\r\n"
                           "47700021;31/12/2026;3;;1234567,89;210,49\r\n"));
        }
        {
            // Cells read back from the sheet: numbers exactly, dates as day numbers.
            FuenteMemoria f(columnas, filas);
            QCOMPARE(exportarXlsx(f, dir.filePath("a.xlsx"), "Extractos"), Resultado::Hecho);
            const auto dia = diaXlsx;
            QCOMPARE(
                celdasXlsx(dir.filePath("a.xlsx")),
                (QList<QStringList>{
                    columnas,
                    {"43000001", dia(2026, 1, 2), "1", "Factura 1; \"urgente\"", "1210.5", "0"},
                    {"70000001", dia(2026, 1, 31), "2", "Venta L'Hospitalet", "0", "1000000"},
                    {"47700021", dia(2026, 12, 31), "3", "1234567.89", "210.49"},
                }));
        }
        {
            FuenteMemoria f({"g", "n", "debe"}, {{"G0", 1, 1210.5}, {"G0", 2, 1000000.0}});
            const Diseno d = leerDisenoTexto(diseno(4.3, true));
            QCOMPARE(
                exportarPdf(
                    d, leerFormulas({"empresa='EMP Comercial Ebro'", "periodo='del 01/01/2026'"}),
                    f, dir.filePath("a.pdf"), "Prueba"),
                Resultado::Hecho);
            QVERIFY(!QFile::exists(dir.filePath("a.pdf.parcial")));
            QProcess texto;
            texto.start("pdftotext", {"-layout", dir.filePath("a.pdf"), "-"});
            QVERIFY2(texto.waitForFinished() && texto.exitCode() == 0, "pdftotext");
            const QString leido = QString::fromUtf8(texto.readAllStandardOutput());
            for (const char* esperado : {"EMP Comercial Ebro", "GRUPO G0", "1.210,50",
                                         "1.000.000,00", "FIN G0", "1.001.210,50", "Página 1"})
                QVERIFY2(leido.contains(QString::fromUtf8(esperado)), esperado);
        }
    }

    // The exports for people: the columns the layout declares, under their titles, each row
    // computed as its printed line (a balance that starts again at each account), and the
    // query's own columns when the layout declares none.
    void exportacionesDelInforme_data() {
        QTest::addColumn<QString>("exportar");
        QTest::addColumn<QByteArray>("csv");
        QTest::addColumn<QList<QStringList>>("xlsx");
        QTest::newRow("titles, formats and a running balance by account")
            << QStringLiteral(
                   "exportar \"Cuenta\" cuenta\n"
                   "exportar \"Fecha\" fecha_apunte fecha\n"
                   "exportar \"Nº\" numero_apunte entero\n"
                   "exportar \"Concepto; \"\"texto\"\"\" concepto\n"
                   "exportar \"Debe\" debe importe\n"
                   "exportar \"Saldo\" saldo importe\n"
                   "exportar \"Mitad\" \"debe / 2\"\n")
            << QByteArray(
                   "\xEF\xBB\xBF"
                   "Cuenta;Fecha;Nº;\"Concepto; \"\"texto\"\"\";Debe;Saldo;Mitad\r\n"
                   "43000001;02/01/2026;1;Factura 1;1210,50;1310,50;605,25\r\n"
                   "43000001;31/01/2026;2;;0,00;310,50;0\r\n"
                   "70000001;31/12/2026;1;\"Venta; ajuste\";5,25;5,25;2,625\r\n")
            << QList<QStringList>{
                   {"Cuenta", "Fecha", "Nº", "Concepto; \"texto\"", "Debe", "Saldo", "Mitad"},
                   {"43000001", diaXlsx(2026, 1, 2), "1", "Factura 1", "1210.5", "1310.5",
                    "605.25"},
                   {"43000001", diaXlsx(2026, 1, 31), "2", "0", "310.5", "0"},
                   {"70000001", diaXlsx(2026, 12, 31), "1", "Venta; ajuste", "5.25", "5.25",
                    "2.625"}};
        QTest::newRow("sorted, with a total of each account before its lines")
            << QStringLiteral(
                   "ordenar concepto\n"
                   "total debe_total por cuenta = debe\n"
                   "exportar \"Cuenta\" cuenta\n"
                   "exportar \"Concepto\" concepto\n"
                   "exportar \"Saldo\" saldo importe\n"
                   "exportar \"Debe total\" debe_total importe\n")
            << QByteArray(
                   "\xEF\xBB\xBF"
                   "Cuenta;Concepto;Saldo;Debe total\r\n"
                   "43000001;;-900,00;1210,50\r\n"
                   "43000001;Factura 1;310,50;1210,50\r\n"
                   "70000001;\"Venta; ajuste\";5,25;5,25\r\n")
            << QList<QStringList>{{"Cuenta", "Concepto", "Saldo", "Debe total"},
                                  {"43000001", "-900", "1210.5"},
                                  {"43000001", "Factura 1", "310.5", "1210.5"},
                                  {"70000001", "Venta; ajuste", "5.25", "5.25"}};
        QTest::newRow("no exported columns: the query's, under their names")
            << QString()
            << QByteArray(
                   "\xEF\xBB\xBF"
                   "cuenta;fecha_apunte;numero_apunte;concepto;debe;haber;saldo_anterior\r\n"
                   "43000001;02/01/2026;1;Factura 1;1210,50;0,00;100,00\r\n"
                   "43000001;31/01/2026;2;;0,00;1000,00;100,00\r\n"
                   "70000001;31/12/2026;1;\"Venta; ajuste\";5,25;0,00;0,00\r\n")
            << QList<QStringList>{
                   {"cuenta", "fecha_apunte", "numero_apunte", "concepto", "debe", "haber",
                    "saldo_anterior"},
                   {"43000001", diaXlsx(2026, 1, 2), "1", "Factura 1", "1210.5", "0", "100"},
                   {"43000001", diaXlsx(2026, 1, 31), "2", "0", "1000", "100"},
                   {"70000001", diaXlsx(2026, 12, 31), "1", "Venta; ajuste", "5.25", "0", "0"}};
    }
    void exportacionesDelInforme() {
        QFETCH(QString, exportar);
        QFETCH(QByteArray, csv);
        QFETCH(QList<QStringList>, xlsx);
        const QStringList columnas{"cuenta", "fecha_apunte", "numero_apunte", "concepto",
                                   "debe",   "haber",        "saldo_anterior"};
        const QList<QVariantList> filas{
            {"43000001", "20260102", 1, "Factura 1", 1210.5, 0.0, 100.0},
            {"43000001", "20260131", 2, QVariant(), 0.0, 1000.0, 100.0},
            {"70000001", "20261231", 1, "Venta; ajuste", 5.25, 0.0, 0.0},
        };
        const Diseno d = leerDisenoTexto(QStringLiteral("acumulado dc grupo = debe\n"
                                                        "acumulado hc grupo = haber\n"
                                                        "calculo saldo = saldo_anterior + dc - hc\n"
                                                        "grupo cuenta\n") +
                                         exportar + QStringLiteral("banda detalle 4\n"));
        QTemporaryDir dir;
        {
            FuenteMemoria f(columnas, filas);
            QCOMPARE(exportarCsv(d, {}, f, dir.filePath("a.csv")), Resultado::Hecho);
            QFile archivo(dir.filePath("a.csv"));
            QVERIFY(archivo.open(QIODevice::ReadOnly));
            QCOMPARE(archivo.readAll(), csv);
        }
        FuenteMemoria f(columnas, filas);
        QCOMPARE(exportarXlsx(d, {}, f, dir.filePath("a.xlsx"), "Extractos"), Resultado::Hecho);
        QCOMPARE(celdasXlsx(dir.filePath("a.xlsx")), xlsx);
    }
};

QTEST_MAIN(PruebaMotor)
#include "prueba_motor.moc"
