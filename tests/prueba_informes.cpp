// The account statement and the journal book on a small book checked by hand: the rows of
// their temporary tables under each criterion, the balances and totals on the printed page,
// what the forms tell the report engine, and the preview with its exports.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/informe_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/almacen/programa.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "reports/extracto.h"
#include "reports/formularios_informes.h"
#include "reports/frmextractos.h"
#include "reports/frmlibrodiario.h"
#include "reports/informes.h"
#include "reports/librodiario.h"
#include "reports/motor/fuente.h"
#include "reports/motor/paginador.h"
#include "reports/vistaprevia.h"

#include <QAction>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QProgressBar>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

Q_DECLARE_METATYPE(CriteriosExtracto)
Q_DECLARE_METATYPE(CriteriosLibroDiario)

namespace {

// Opens a report form as the menu does and types its criteria, "3=texto" pairs, leaving each.
FormularioInforme* abrirInforme(const QString& nombre, const QStringList& campos) {
    auto* f = qobject_cast<FormularioInforme*>(formularios::abrir(nombre));
    if (!f) return nullptr;
    activar(f->ventana());
    for (const QString& c : campos)
        teclear(f->txt(c.section('=', 0, 0).toInt()), c.section('=', 1));
    return f;
}

const int kAnio = QDate::currentDate().year();
QString fecha(int dia, int mes, int anio = kAnio) {
    return QDate(anio, mes, dia).toString("dd/MM/yyyy");
}

// The book: a sale of last year still unpaid, this year's sales in both branches with their
// VAT, two collections, and a line of nothing that the journal leaves out.
void crearLibro() {
    crearEmpresaPrueba();
    Conexion& c = *sesion_conexion;
    for (const auto& [cuenta, titulo] : std::initializer_list<std::pair<const char*, const char*>>{
             {"43000001", "Comercial Ebro, S.L."},
             {"47700021", "H.P. IVA repercutido 21 %"},
             {"57200001", "Banco de Huesca"},
             {"70000001", "Ventas de mercaderías"}})
        cuentas::Insert(c, "EMP", cuenta, titulo, "S", 8, "PRUEBA");
    struct Linea {
        const char *delegacion, *documento, *numero, *diario;
        QString fecha;
        int apunte;
        const char* cuenta;
        double debe, haber;
    };
    const Linea lineas[] = {
        {"EMP", "AS", "0000090", "GEN", fecha(15, 12, kAnio - 1), 1, "43000001", 500, 0},
        {"EMP", "AS", "0000090", "GEN", fecha(15, 12, kAnio - 1), 2, "70000001", 0, 500},
        {"EMP", "FAC", "0000100", "VEN", fecha(10, 1), 1, "43000001", 1210, 0},
        {"EMP", "FAC", "0000100", "VEN", fecha(10, 1), 2, "70000001", 0, 1000},
        {"EMP", "FAC", "0000100", "VEN", fecha(10, 1), 3, "47700021", 0, 210},
        {"EMP", "AS", "0000099", "GEN", fecha(12, 1), 1, "57200001", 300, 0},
        {"EMP", "AS", "0000099", "GEN", fecha(12, 1), 2, "43000001", 0, 300},
        {"SUR", "FAC", "0000101", "VEN", fecha(5, 2), 1, "43000001", 605, 0},
        {"SUR", "FAC", "0000101", "VEN", fecha(5, 2), 2, "70000001", 0, 500},
        {"SUR", "FAC", "0000101", "VEN", fecha(5, 2), 3, "47700021", 0, 105},
        {"EMP", "AS", "0000098", "GEN", fecha(1, 3), 1, "57200001", 50, 0},
        {"EMP", "AS", "0000098", "GEN", fecha(1, 3), 2, "70000001", 0, 50},
        {"EMP", "AS", "0000102", "GEN", fecha(1, 3), 1, "57200001", 1000, 0},
        {"EMP", "AS", "0000102", "GEN", fecha(1, 3), 2, "43000001", 0, 1000},
        {"EMP", "AS", "0000103", "GEN", fecha(1, 3), 1, "57200001", 0, 0},
    };
    for (const Linea& l : lineas)
        Apuntes::Insert(c, "EMP", l.delegacion, l.documento, l.numero, l.apunte, l.diario, l.fecha,
                        l.fecha, "", l.cuenta,
                        QStringLiteral("Concepto %1/%2").arg(l.numero).arg(l.apunte), l.debe,
                        l.haber, "P", "", "PRUEBA");
    sesionEmp();
    sesion_fecha_inicial = QString::number(kAnio) + "0101";
    sesion_fecha_final = QString::number(kAnio) + "1231";
}

// The rows of a report's query on the temporary store, flattened.
QStringList filasTemporales(const QString& consulta, const QStringList& campos) {
    QStringList filas;
    for (Recordset rs = sesion_temporal->open(consulta); !rs.eof(); rs.moveNext()) {
        QStringList f;
        for (const QString& c : campos) f << rs[c].toString();
        filas << f.join(u'|');
    }
    return filas;
}

// The preview window the last run opened, or null.
frmVistaPrevia* vistaAbierta() {
    frmVistaPrevia* vista = nullptr;
    for (Formulario* abierto : formularios::abiertos())
        if (auto* v = qobject_cast<frmVistaPrevia*>(abierto)) vista = v;
    return vista;
}

// The lines of a CSV file without its byte-order mark.
QStringList lineasCsv(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly)) return {"cannot open " + ruta};
    QByteArray datos = archivo.readAll();
    if (!datos.startsWith("\xEF\xBB\xBF")) return {"no byte-order mark"};
    QStringList lineas = QString::fromUtf8(datos.mid(3)).split("\r\n");
    if (lineas.last().isEmpty()) lineas.removeLast();
    return lineas;
}

}  // namespace

class PruebaInformes : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaInformes() : PruebaFormularios(registrarFormulariosInformes, crearLibro) {}

private slots:

    void extracto_data() {
        QTest::addColumn<QString>("delegacionSesion");
        QTest::addColumn<CriteriosExtracto>("criterios");
        QTest::addColumn<QStringList>("filas");
        const QString a = QString::number(kAnio);
        const auto f = [&a](const char* mmdd) { return a + mmdd; };
        QTest::newRow("whole year: last year's sale brought forward")
            << "EMP" << CriteriosExtracto{}
            << QStringList{"43000001|" + f("0110") + "|0000100|1210|0|500",
                           "43000001|" + f("0112") + "|0000099|0|300|500",
                           "43000001|" + f("0205") + "|0000101|605|0|500",
                           "43000001|" + f("0301") + "|0000102|0|1000|500",
                           "47700021|" + f("0110") + "|0000100|0|210|0",
                           "47700021|" + f("0205") + "|0000101|0|105|0",
                           "57200001|" + f("0112") + "|0000099|300|0|0",
                           "57200001|" + f("0301") + "|0000098|50|0|0",
                           "57200001|" + f("0301") + "|0000102|1000|0|0",
                           "57200001|" + f("0301") + "|0000103|0|0|0",
                           "70000001|" + f("0110") + "|0000100|0|1000|-500",
                           "70000001|" + f("0205") + "|0000101|0|500|-500",
                           "70000001|" + f("0301") + "|0000098|0|50|-500"};
        CriteriosExtracto desde;
        desde.fechaDesde = fecha(1, 2);
        desde.fechaHasta = fecha(28, 2);
        desde.cuentaDesde = desde.cuentaHasta = "43000001";
        QTest::newRow("from a date: the lines before it brought forward")
            << "EMP" << desde << QStringList{"43000001|" + f("0205") + "|0000101|605|0|1410"};
        CriteriosExtracto rango;
        rango.cuentaDesde = "47700021";
        rango.cuentaHasta = "57200001";
        rango.fechaHasta = fecha(31, 1);
        QTest::newRow("account range and last date")
            << "EMP" << rango
            << QStringList{"47700021|" + f("0110") + "|0000100|0|210|0",
                           "57200001|" + f("0112") + "|0000099|300|0|0"};
        CriteriosExtracto sur;
        sur.delegaciones = " SUR ,";
        sur.cuentaHasta = "43000001";
        QTest::newRow("branch list typed at the central branch")
            << "EMP" << sur << QStringList{"43000001|" + f("0205") + "|0000101|605|0|0"};
        CriteriosExtracto campo;
        campo.delegaciones = "EMP";
        campo.cuentaHasta = "43000001";
        QTest::newRow("a branch's session uses its own branch, not the field")
            << "SUR" << campo << QStringList{"43000001|" + f("0205") + "|0000101|605|0|0"};
        CriteriosExtracto ventas;
        ventas.diarios = "VEN";
        ventas.cuentaHasta = "43000001";
        QTest::newRow("journals: the balance brought forward of those journals only")
            << "EMP" << ventas
            << QStringList{"43000001|" + f("0110") + "|0000100|1210|0|0",
                           "43000001|" + f("0205") + "|0000101|605|0|0"};
    }
    void extracto() {
        QFETCH(QString, delegacionSesion);
        QFETCH(CriteriosExtracto, criterios);
        QFETCH(QStringList, filas);
        sesion_delegacion = delegacionSesion;
        QCOMPARE(llenarExtractos(criterioExtracto(criterios)), qint64(filas.size()));
        QCOMPARE(filasTemporales(consultaExtracto(false) + ", numero_documento",
                                 {"cuenta", "fecha_apunte", "numero_documento", "debe", "haber",
                                  "saldo_anterior"}),
                 filas);
    }

    // A run that finds no line keeps the last run's rows and its count of runs, so that the
    // preview of that run still exports them.
    void sinLineas() {
        QCOMPARE(llenarExtractos(criterioExtracto({})), qint64(13));
        const quint64 generacion = generacionTemporal("Extractos");
        CriteriosExtracto nada;
        nada.cuentaDesde = nada.cuentaHasta = "99999999";
        QCOMPARE(llenarExtractos(criterioExtracto(nada)), qint64(0));
        QCOMPARE(filasTemporales("SELECT COUNT(*) AS n FROM Extractos", {"n"}), QStringList{"13"});
        QCOMPARE(generacionTemporal("Extractos"), generacion);
    }

    // The long read of exports gives each value of the kind a Recordset gives, from which an
    // export chooses a number's or a text's form: whole numbers, amounts, accents, Null.
    void lecturaLarga() {
        llenarExtractos(criterioExtracto({}));
        sesion_temporal->execute("UPDATE Extractos SET titulo = NULL WHERE cuenta = '57200001'");
        const QString consulta =
            "SELECT cuenta, numero_apunte, debe, titulo FROM Extractos "
            "ORDER BY cuenta, fecha_apunte, numero_documento";
        Lectura lectura = sesion_temporal->leer(consulta);
        QCOMPARE(lectura.columnas(), (QStringList{"cuenta", "numero_apunte", "debe", "titulo"}));
        QCOMPARE(lectura.total(), qint64(13));
        std::vector<QVariant> fila;
        for (Recordset rs = sesion_temporal->open(consulta); !rs.eof(); rs.moveNext()) {
            QVERIFY(lectura.leer(fila));
            for (int i = 0; i < rs.fieldCount(); ++i) {
                QCOMPARE(fila[size_t(i)].typeId(), rs.value(i).typeId());
                QCOMPARE(fila[size_t(i)], rs.value(i));
            }
        }
        QVERIFY(!lectura.leer(fila));
    }

    // An account's beginning in a criterion runs as a range the index answers, and still finds
    // exactly the accounts that begin so, those at the edges of the range too.
    void cuentasPorComienzo_data() {
        QTest::addColumn<QString>("comienzo");
        QTest::addColumn<QStringList>("esperadas");
        QTest::newRow("08") << "08"
                            << QStringList{"08", "08/", "080", "08000001", "089", "0890", "08:"};
        QTest::newRow("ending in 9") << "089" << QStringList{"089", "0890"};
    }
    void cuentasPorComienzo() {
        QFETCH(QString, comienzo);
        QFETCH(QStringList, esperadas);
        // Outside the chart of the company, which has no account beginning with 0.
        for (const char* c :
             {"0", "07999999", "08", "08/", "080", "08000001", "089", "0890", "08:", "09"})
            cuentas::Insert(*sesion_conexion, "EMP", c, "Límite", "S", 8, "PRUEBA");
        QStringList halladas;
        for (Recordset rs = sesion_conexion->open(
                 "SELECT cuenta FROM Cuentas WHERE codigo_empresa = 'EMP' AND cuenta LIKE '" +
                 comienzo + "%' ORDER BY cuenta");
             !rs.eof(); rs.moveNext())
            halladas << rs.value(0).toString();
        QCOMPARE(halladas, esperadas);
    }

    // The statement as printed: the balance brought forward, the balance after each line and
    // the account's totals, checked by hand.
    void extractoImpreso() {
        CriteriosExtracto c;
        c.cuentaDesde = c.cuentaHasta = "43000001";
        llenarExtractos(criterioExtracto(c));
        const QStringList lineas =
            paginasImpresas("Extracto.rpt", formulasExtracto(c), consultaExtracto(false));
        const QString a = QString::number(kAnio);
        for (const QString& esperada :
             {QString("EMP Empresa de prueba · EXTRACTO DE CUENTAS"),
              "Periodo: del 01/01/" + a + " al 31/12/" + a + " · Por fecha contable",
              QString("Cuenta · 43000001 · Comercial Ebro, S.L. · Saldo anterior · 500,00"),
              "10/01/" + a + " · VEN · 0000100 · 1 · Concepto 0000100/1 · 1.210,00 · 1.710,00",
              "12/01/" + a + " · GEN · 0000099 · 2 · Concepto 0000099/2 · 300,00 · 1.410,00",
              "05/02/" + a + " · VEN · 0000101 · 1 · Concepto 0000101/1 · 605,00 · 2.015,00",
              "01/03/" + a + " · GEN · 0000102 · 2 · Concepto 0000102/2 · 1.000,00 · 1.015,00",
              QString("Total cuenta · 1.815,00 · 1.300,00 · 1.015,00"),
              QString("Total extracto · 1.815,00 · 1.300,00")})
            QVERIFY2(lineas.contains(esperada), qPrintable(esperada + "\n" + lineas.join('\n')));
    }

    void libroDiario_data() {
        QTest::addColumn<QString>("delegacionSesion");
        QTest::addColumn<CriteriosLibroDiario>("criterios");
        QTest::addColumn<QStringList>("documentos");
        QTest::newRow("whole year by date, document and line; zero lines left out")
            << "EMP" << CriteriosLibroDiario{}
            << QStringList{"0000100|1|43000001|Comercial Ebro, S.L.",
                           "0000100|2|70000001|Ventas de mercaderías",
                           "0000100|3|47700021|H.P. IVA repercutido 21 %",
                           "0000099|1|57200001|Banco de Huesca",
                           "0000099|2|43000001|Comercial Ebro, S.L.",
                           "0000101|1|43000001|Comercial Ebro, S.L.",
                           "0000101|2|70000001|Ventas de mercaderías",
                           "0000101|3|47700021|H.P. IVA repercutido 21 %",
                           "0000098|1|57200001|Banco de Huesca",
                           "0000098|2|70000001|Ventas de mercaderías",
                           "0000102|1|57200001|Banco de Huesca",
                           "0000102|2|43000001|Comercial Ebro, S.L."};
        CriteriosLibroDiario tipo;
        tipo.tipoDocumento = "FA";
        tipo.documentoDesde = "0000101";
        QTest::newRow("document type by its beginning, first number")
            << "EMP" << tipo
            << QStringList{"0000101|1|43000001|Comercial Ebro, S.L.",
                           "0000101|2|70000001|Ventas de mercaderías",
                           "0000101|3|47700021|H.P. IVA repercutido 21 %"};
        CriteriosLibroDiario numeros;
        numeros.documentoHasta = "0000099";
        numeros.diarios = "GEN, VEN";
        numeros.fechaDesde = fecha(1, 1);
        QTest::newRow("last number, journals, first date")
            << "EMP" << numeros
            << QStringList{"0000099|1|57200001|Banco de Huesca",
                           "0000099|2|43000001|Comercial Ebro, S.L.",
                           "0000098|1|57200001|Banco de Huesca",
                           "0000098|2|70000001|Ventas de mercaderías"};
        CriteriosLibroDiario sur;
        sur.delegaciones = "SUR";
        sur.fechaHasta = fecha(28, 2);
        for (const char* sesion : {"EMP", "SUR"})
            QTest::addRow("branch SUR, session in %s", sesion)
                << sesion << sur
                << QStringList{"0000101|1|43000001|Comercial Ebro, S.L.",
                               "0000101|2|70000001|Ventas de mercaderías",
                               "0000101|3|47700021|H.P. IVA repercutido 21 %"};
    }
    void libroDiario() {
        QFETCH(QString, delegacionSesion);
        QFETCH(CriteriosLibroDiario, criterios);
        QFETCH(QStringList, documentos);
        sesion_delegacion = delegacionSesion;
        QCOMPARE(llenarLibroDiario(criterioLibroDiario(criterios)), qint64(documentos.size()));
        QCOMPARE(filasTemporales(consultaLibroDiario(),
                                 {"numero_documento", "numero_apunte", "cuenta", "titulo"}),
                 documentos);
    }

    // Two entries of one date and number, one per document and one in another branch, print
    // under a heading each, their lines never mixed.
    void asientosDelMismoNumero() {
        for (const auto& [delegacion, documento, apunte, cuenta] :
             std::initializer_list<std::tuple<const char*, const char*, int, const char*>>{
                 {"EMP", "AS", 1, "57200001"},
                 {"EMP", "FAC", 1, "43000001"},
                 {"SUR", "AS", 1, "43000001"},
                 {"EMP", "AS", 2, "70000001"},
                 {"EMP", "FAC", 2, "70000001"},
                 {"SUR", "AS", 2, "57200001"}})
            Apuntes::Insert(*sesion_conexion, "EMP", delegacion, documento, "0000300", apunte,
                            "GEN", fecha(2, 3), fecha(2, 3), "", cuenta,
                            QStringLiteral("%1 %2").arg(documento, delegacion), apunte == 1 ? 7 : 0,
                            apunte == 2 ? 7 : 0, "P", "", "PRUEBA");
        CriteriosLibroDiario c;
        c.documentoDesde = c.documentoHasta = "0000300";
        llenarLibroDiario(criterioLibroDiario(c));
        QStringList impresas;
        for (const QString& l :
             paginasImpresas("LibroDiario.rpt", formulasLibroDiario(c), consultaLibroDiario()))
            if (l.startsWith("Asiento"))
                impresas << "Asiento " + l.section(" · ", 5, 5) + " " + l.section(" · ", 7, 7);
            else if (l.startsWith("1 ") || l.startsWith("2 "))
                impresas << l.section(" · ", 0, 0) + " " + l.section(" · ", 3, 3);
        QCOMPARE(impresas, (QStringList{"Asiento AS EMP", "1 AS EMP", "2 AS EMP", "Asiento AS SUR",
                                        "1 AS SUR", "2 AS SUR", "Asiento FAC EMP", "1 FAC EMP",
                                        "2 FAC EMP"}));
    }

    // What each form tells the engine: file, title, formulas in their order, query.
    void peticiones_data() {
        QTest::addColumn<QString>("formulario");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<bool>("porDiario");
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<QStringList>("formulas");
        QTest::addColumn<QString>("consulta");
        const QString a = QString::number(kAnio);
        QTest::newRow("statement by journal, branches, from a date")
            << "frmExtractos" << QStringList{"5=SUR", "1=43.1", "3=01/02/" + a} << true
            << "Extracto.rpt"
            << "Extractos"
            << QStringList{"periodo='del 01/02/" + a + " al 31/12/" + a + "'",
                           "empresa='EMP Empresa de prueba // Delegaciones: SUR'",
                           "ordenacion = 'Por diario y fecha contable'"}
            << "SELECT * FROM Extractos ORDER BY cuenta, codigo_diario, fecha_apunte";
        QTest::newRow("statement by date")
            << "frmExtractos" << QStringList{"4=31/03/" + a} << false << "Extracto.rpt"
            << "Extractos"
            << QStringList{"periodo='del 01/01/" + a + " al 31/03/" + a + "'",
                           "empresa='EMP Empresa de prueba'", "ordenacion = 'Por fecha contable'"}
            << "SELECT * FROM Extractos ORDER BY cuenta, fecha_apunte";
        QTest::newRow("journal, branch in the singular")
            << "frmLibroDiario" << QStringList{"6=SUR", "2=28/02/" + a} << false
            << "LibroDiario.rpt"
            << "Libro Diario"
            << QStringList{"periodo='del 01/01/" + a + " al 28/02/" + a + "'",
                           "empresa='EMP Empresa de prueba // Delegación: SUR'"}
            << "SELECT * FROM LibroDiario ORDER BY fecha_apunte, numero_documento, "
               "codigo_documento, codigo_delegacion, numero_apunte";
    }
    void peticiones() {
        QFETCH(QString, formulario);
        QFETCH(QStringList, campos);
        QFETCH(bool, porDiario);
        QFETCH(QString, archivo);
        QFETCH(QString, titulo);
        QFETCH(QStringList, formulas);
        QFETCH(QString, consulta);
        FormularioInforme* f = abrirInforme(formulario, campos);
        QVERIFY(f);
        if (porDiario) qobject_cast<frmExtractos*>(f)->optDiario()->setChecked(true);
        Peticion peticion;
        Buzon buzon;
        f->imprimir();
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(peticion.trabajos.size(), 1);
        const TrabajoInforme& t = peticion.trabajos[0];
        QCOMPARE(t.archivo, programa::ruta("Reports/" + archivo));
        QCOMPARE(t.titulo, titulo);
        QCOMPARE(t.formulas, formulas);
        QCOMPARE(t.consulta, consulta);
        QCOMPARE(peticion.destinos, QList<DestinoInforme>{DestinoInforme::Ventana});
        QCOMPARE(f->barraInformes()->value(), f->barraInformes()->maximum());
        // The run leaves the control cleared for the next one.
        QVERIFY(f->informe()->ReportFileName.isEmpty());
        QVERIFY(f->informe()->SQLQuery.isEmpty());
        QCOMPARE(f->informe()->Formulas, QStringList(formulas.size(), QString()));
    }

    // The checks of the fields and the answers when nothing is selected.
    void campos() {
        auto* e = qobject_cast<frmExtractos*>(formularios::abrir("frmExtractos"));
        activar(e->ventana());
        teclear(e->txt(1), "43.1");
        QCOMPARE(e->txt(1)->text(), QString("43000001"));
        {
            Buzon buzon;
            teclear(e->txt(3), "31/02/2026");
            QCOMPARE(buzon.textos, QStringList{MensajeError(1004)});
            QCOMPARE(buzon.iconos, QList<Icono>{Icono::Critico});
            QTRY_COMPARE(QApplication::focusWidget(), e->txt(3));
        }
        e->txt(3)->setText(fecha(1, 1, kAnio + 1));
        {
            Peticion peticion;
            Buzon buzon;
            e->imprimir();
            QCOMPARE(buzon.textos, QStringList{MensajeError(9999)});
            QVERIFY(peticion.trabajos.isEmpty());
        }
        e->cancelar();
        QCOMPARE(e->txt(1)->text(), QString());
        QCOMPARE(e->barraInformes()->value(), 0);

        auto* d = qobject_cast<frmLibroDiario*>(formularios::abrir("frmLibroDiario"));
        activar(d->ventana());
        teclear(d->txt(3), "NADA");
        Peticion peticion;
        Buzon buzon;
        d->imprimir();
        QCOMPARE(buzon.textos, QStringList{MensajeError(9000)});
        QVERIFY(peticion.trabajos.isEmpty());
    }

    // A branch other than the central one sees only itself; without a year no report opens.
    void sesion() {
        sesion_delegacion = "SUR";
        auto* d = qobject_cast<frmLibroDiario*>(formularios::abrir("frmLibroDiario"));
        QCOMPARE(d->txt(6)->text(), QString("SUR"));
        QVERIFY(!d->txt(6)->isEnabled());
        d->cancelar();
        QCOMPARE(d->txt(6)->text(), QString("SUR"));
        d->descargar();
        sesion_ejercicio = 0;
        Buzon buzon;
        QVERIFY(!formularios::abrir("frmExtractos"));
        QCOMPARE(buzon.textos, QStringList{MensajeError(1040)});
    }

    // The wrapper's contract: the question of mode 2, formula slots of a longer run blanked by
    // the next Clear, and the failure of a missing report file.
    void contrato() {
        ControlInforme control;
        Peticion peticion;
        Informes informe;
        informe.Init(sesion_conexion->textoConexion(), 1, &control);
        informe.Configure("Extracto.rpt", "Extractos", 2);
        informe.rptFormulas({"a='1'", "b='2'", "c='3'"});
        {
            Buzon buzon;
            buzon.respuestas = {Respuesta::Si};
            informe.Execute();
            QCOMPARE(buzon.textos, QStringList{"¿ Desea imprimir directamente el informe?"});
        }
        QCOMPARE(peticion.destinos, QList<DestinoInforme>{DestinoInforme::Impresora});
        QCOMPARE(peticion.trabajos[0].formulas, (QStringList{"a='1'", "b='2'", "c='3'"}));
        informe.Configure("LibroDiario.rpt", "Libro Diario", 1);
        informe.rptFormulas({"x='9'"});
        QCOMPARE(control.Formulas, (QStringList{"x='9'", "", ""}));
        informe.Clear(5);
        QCOMPARE(control.Formulas, QStringList(5, QString()));
        informe.Configure("NoExiste.rpt", "Nada", 1);
        try {
            informe.Execute();
            QFAIL("no failure");
        } catch (const Error& e) {
            QCOMPARE(e.numero(), errores::kRptExecute);
            QVERIFY(e.descripcion().startsWith("Error en Execute. No se puede abrir el informe"));
            QVERIFY(e.descripcion().endsWith(".\n"));
        }
    }

    // A file exported from the preview is read by a bookkeeper: the columns the printed report
    // shows, in its order, under its titles, with the account or the entry that the paper
    // prints above the lines repeated on each row, and the balance after each line.
    void exportacionCsv_data() {
        QTest::addColumn<QString>("formulario");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QStringList>("lineas");
        const QString a = QString::number(kAnio);
        QTest::newRow("statement of two accounts")
            << "frmExtractos" << QStringList{"1=43000001", "2=47700021", "4=31/01/" + a}
            << QStringList{
                   "Cuenta;Título de la cuenta;Fecha;Diario;Documento;Nº;Concepto;Debe;Haber;Saldo",
                   "43000001;Comercial Ebro, S.L.;10/01/" + a +
                       ";VEN;0000100;1;Concepto 0000100/1;1210,00;0,00;1710,00",
                   "43000001;Comercial Ebro, S.L.;12/01/" + a +
                       ";GEN;0000099;2;Concepto 0000099/2;0,00;300,00;1410,00",
                   "47700021;H.P. IVA repercutido 21 %;10/01/" + a +
                       ";VEN;0000100;3;Concepto 0000100/3;0,00;210,00;-210,00"};
        QTest::newRow("journal book of one entry")
            << "frmLibroDiario" << QStringList{"3=FA", "4=0000101", "5=0000101"}
            << QStringList{
                   "Asiento;Documento;Delegación;Fecha;Nº;Cuenta;Título de la cuenta;Concepto;"
                   "Debe;Haber",
                   "0000101;FAC;SUR;05/02/" + a +
                       ";1;43000001;Comercial Ebro, S.L.;Concepto 0000101/1;605,00;0,00",
                   "0000101;FAC;SUR;05/02/" + a +
                       ";2;70000001;Ventas de mercaderías;Concepto 0000101/2;0,00;500,00",
                   "0000101;FAC;SUR;05/02/" + a +
                       ";3;47700021;H.P. IVA repercutido 21 %;Concepto 0000101/3;0,00;105,00"};
    }
    void exportacionCsv() {
        QFETCH(QString, formulario);
        QFETCH(QStringList, campos);
        QFETCH(QStringList, lineas);
        FormularioInforme* f = abrirInforme(formulario, campos);
        QVERIFY(f);
        f->imprimir();
        frmVistaPrevia* vista = vistaAbierta();
        QVERIFY(vista);
        QTemporaryDir dir;
        QVERIFY(vista->exportarCsv(dir.filePath("informe.csv")));
        QCOMPARE(lineasCsv(dir.filePath("informe.csv")), lineas);
    }

    // The two fields of a pair of bounds keep their captions, and say which is which to a
    // screen reader and, while empty, on screen.
    void limites_data() {
        QTest::addColumn<QString>("formulario");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("rotulo");
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("aviso");
        QTest::newRow("statement, first account") << "frmExtractos" << 1 << "Cuenta:"
                                                  << "Cuenta desde"
                                                  << "desde";
        QTest::newRow("statement, last account") << "frmExtractos" << 2 << "Cuenta:"
                                                 << "Cuenta hasta"
                                                 << "hasta";
        QTest::newRow("statement, first date") << "frmExtractos" << 3 << "Fecha:"
                                               << "Fecha desde"
                                               << "desde";
        QTest::newRow("statement, last date") << "frmExtractos" << 4 << "Fecha:"
                                              << "Fecha hasta"
                                              << "hasta";
        QTest::newRow("statement, journals: no bound") << "frmExtractos" << 0 << "Diario:"
                                                       << "Diario" << QString();
        QTest::newRow("journal, first document") << "frmLibroDiario" << 4 << "Documentos:"
                                                 << "Documento desde"
                                                 << "desde";
        QTest::newRow("journal, last document")
            << "frmLibroDiario" << 5 << QString() << "Documento hasta"
            << "hasta";
        QTest::newRow("journal, first date") << "frmLibroDiario" << 1 << "Fecha:"
                                             << "Fecha desde"
                                             << "desde";
        QTest::newRow("journal, last date") << "frmLibroDiario" << 2 << QString() << "Fecha hasta"
                                            << "hasta";
    }
    void limites() {
        QFETCH(QString, formulario);
        QFETCH(int, indice);
        QFETCH(QString, rotulo);
        QFETCH(QString, nombre);
        QFETCH(QString, aviso);
        auto* f = qobject_cast<FormularioInforme*>(formularios::abrir(formulario));
        QVERIFY(f);
        QLineEdit* campo = f->txt(indice);
        QString leido;
        for (const QLabel* l : f->findChildren<QLabel*>())
            if (l->buddy() == campo) leido = l->text();
        QCOMPARE(leido, rotulo);
        QCOMPARE(campo->accessibleName(), nombre);
        QCOMPARE(campo->placeholderText(), aviso);
    }

    // The preview's count of pages agrees in number with the pages.
    void cuentaDePaginas_data() {
        QTest::addColumn<int>("asientos");
        QTest::addColumn<QString>("texto");
        QTest::newRow("one page") << 0 << "1 página";
        QTest::newRow("several pages") << 60 << "%1 páginas";
    }
    void cuentaDePaginas() {
        QFETCH(int, asientos);
        QFETCH(QString, texto);
        // Entries of two lines each, enough of them to fill several pages of the journal.
        for (int i = 0; i < asientos; ++i)
            for (int linea = 1; linea <= 2; ++linea)
                Apuntes::Insert(*sesion_conexion, "EMP", "EMP", "AS",
                                QStringLiteral("1%1").arg(i, 6, 10, QChar('0')), linea, "GEN",
                                fecha(2, 4), fecha(2, 4), "", linea == 1 ? "57200001" : "70000001",
                                "Cobro", linea == 1 ? 10.0 : 0.0, linea == 1 ? 0.0 : 10.0, "P", "",
                                "PRUEBA");
        auto* f = qobject_cast<frmLibroDiario*>(formularios::abrir("frmLibroDiario"));
        activar(f->ventana());
        f->imprimir();
        frmVistaPrevia* vista = vistaAbierta();
        QVERIFY(vista);
        vista->completar();
        QVERIFY(vista->completo());
        QCOMPARE(vista->paginas() > 1, asientos > 0);
        auto* estado = vista->findChild<QLabel*>("estado");
        QVERIFY(estado);
        QCOMPARE(estado->text(), texto.contains("%1") ? texto.arg(vista->paginas()) : texto);
    }

    // The preview: every page laid out, the exports of the whole report, and a later run of
    // the same table refusing to export rows that are no longer this report's.
    void vistaPrevia() {
        auto* f = qobject_cast<frmExtractos*>(formularios::abrir("frmExtractos"));
        activar(f->ventana());
        f->imprimir();
        frmVistaPrevia* vista = vistaAbierta();
        QVERIFY(vista);
        vista->completar();
        QVERIFY(vista->completo());
        QCOMPARE(vista->paginas(), 1);
        QTemporaryDir dir;
        QVERIFY(vista->exportarCsv(dir.filePath("e.csv")));
        QFile csv(dir.filePath("e.csv"));
        QVERIFY(csv.open(QIODevice::ReadOnly));
        QCOMPARE(csv.readAll().count('\n'), 14);
        QVERIFY(vista->exportarPdf(dir.filePath("e.pdf")));
        QProcess texto;
        texto.start("pdftotext", {"-layout", dir.filePath("e.pdf"), "-"});
        QVERIFY(texto.waitForFinished() && texto.exitCode() == 0);
        const QString leido = QString::fromUtf8(texto.readAllStandardOutput());
        for (const char* cifra : {"1.015,00", "1.815,00", "Banco de Huesca", "Página 1"})
            QVERIFY2(leido.contains(QString::fromUtf8(cifra)), cifra);

        f->txt(1)->setText("70000001");
        Peticion peticion;
        f->imprimir();
        Buzon buzon;
        QVERIFY(!vista->exportarXlsx(dir.filePath("e.xlsx")));
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Exclamacion});
        QVERIFY(!QFile::exists(dir.filePath("e.xlsx")));
    }
};

QTEST_MAIN(PruebaInformes)
#include "prueba_informes.moc"
