// The VAT book, its summary and the third-party operations on a small register checked by
// hand in two branches: the rows that go in and those that fall out, the sums per type and
// rate as printed, the threshold on both sides of the cent, and what the forms ask for.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/informe_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/almacen/sql.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/personal.h"
#include "data/entidades/registroiva.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "reports/formularios_informes.h"
#include "reports/frmlibroiva.h"
#include "reports/libroiva.h"

#include <QDate>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

Q_DECLARE_METATYPE(CriteriosTerceros)

namespace {

const int kAnio = QDate::currentDate().year();
QString fecha(int dia, int mes, int anio = kAnio) {
    return QDate(anio, mes, dia).toString("dd/MM/yyyy");
}

struct Fila {
    const char* delegacion;
    const char* documento;
    const char* numero;
    int apunte;
    QString fecha;
    const char* tipo;
    const char* personal;
    double base, pctiva, iva, pctre, re;
    bool conApunte = true;
};

// The register line and, unless told otherwise, its journal line (only its key and dates
// matter to these reports).
void registrar(const QList<Fila>& filas) {
    for (const Fila& f : filas) {
        if (f.conApunte)
            Apuntes::Insert(*sesion_conexion, "EMP", f.delegacion, f.documento, f.numero, f.apunte,
                            "GEN", f.fecha, f.fecha, "", "47700000", "IVA", 0, f.iva, "IVA", "",
                            "PRUEBA");
        RegistroIva::Insert(*sesion_conexion, "EMP", f.delegacion, f.documento, f.numero, f.apunte,
                            f.tipo, "CLI", f.personal, "IVA21", f.base, f.pctiva, f.iva, f.pctre,
                            f.re, "PRUEBA");
    }
}

// In EMP: CLI1 sold 3,005.06 in two invoices, CLI2 3,005.05 at two rates, AMBOS both bought
// from (with surcharge) and sold to, PRO2 an investment; a row of a party that does not exist
// and one whose line is gone fall out, and one of last year is outside the period. In SUR:
// CLI3 above the threshold there, CLI1 a little more.
void crearRegistro() {
    crearEmpresaPrueba();
    for (auto [codigo, nombre, nif] : std::initializer_list<std::array<const char*, 3>>{
             {"CLI1", "Cliente Uno", "12345678Z"},
             {"CLI2", "Cliente Dos, S.L.", "B12345674"},
             {"AMBOS", "Proveedor y Cliente", "X1234567L"},
             {"PRO2", "Maquinaria Pesada, S.A.", "A58818501"},
             {"CLI3", "Cliente de Sur", "00000023T"}})
        Personal::Insert(*sesion_conexion, "EMP", codigo, nombre, nif, "Calle Mayor 1", "Madrid",
                         "28001", "Madrid", "España", "", "", "", "PRUEBA");
    registrar({
        {"EMP", "FAC", "0000001", 2, fecha(10, 1), "V", "CLI1", 2000, 21, 420, 0, 0},
        {"EMP", "FAC", "0000002", 2, fecha(20, 4), "V", "CLI1", 483.52, 21, 101.54, 0, 0},
        {"EMP", "FAC", "0000003", 2, fecha(5, 2), "V", "CLI2", 2000, 21, 420, 0, 0},
        {"EMP", "FAC", "0000003", 3, fecha(5, 2), "V", "CLI2", 531.86, 10, 53.19, 0, 0},
        {"EMP", "FAC", "0000004", 2, fecha(1, 7), "V", "AMBOS", 3000, 21, 630, 0, 0},
        {"EMP", "COM", "0000001", 1, fecha(3, 3), "C", "AMBOS", 4000, 21, 840, 5.2, 208},
        {"EMP", "COM", "0000002", 1, fecha(9, 9), "I", "PRO2", 10000, 21, 2100, 0, 0},
        {"EMP", "FAC", "0000005", 2, fecha(11, 1), "V", "NADIE", 900, 21, 189, 0, 0},
        {"EMP", "FAC", "0000006", 2, fecha(12, 1), "V", "CLI1", 800, 21, 168, 0, 0, false},
        {"EMP", "FAC", "0000007", 2, fecha(30, 12, kAnio - 1), "V", "CLI1", 700, 21, 147, 0, 0},
        {"SUR", "FAC", "0000001", 2, fecha(10, 1), "V", "CLI3", 5000, 21, 1050, 0, 0},
        {"SUR", "FAC", "0000002", 2, fecha(10, 2), "V", "CLI1", 100, 21, 21, 0, 0},
    });
    sesionEmp();
    sesion_fecha_inicial = QString::number(kAnio) + "0101";
    sesion_fecha_final = QString::number(kAnio) + "1231";
}

QStringList filasTemporal(const QString& consulta) {
    QStringList filas;
    for (Recordset rs = sesion_temporal->open(consulta); !rs.eof(); rs.moveNext()) {
        QStringList campos;
        for (int i = 0; i < rs.fieldCount(); ++i) campos << rs.value(i).toString();
        filas << campos.join(u'|');
    }
    return filas;
}

bool contiene(const QStringList& lineas, const QString& texto) {
    for (const QString& l : lineas)
        if (l.contains(texto)) return true;
    return false;
}

}  // namespace

class PruebaLibroIva : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaLibroIva() : PruebaFormularios(registrarFormulariosInformes, crearRegistro) {}

private Q_SLOTS:

    // The book's rows in its order: the session's branch, the invoice dates of the period, a
    // row without its party or its line left out.
    void libro() {
        QCOMPARE(llenarLibroIva({}), 7);
        const QString y = QString::number(kAnio);
        QCOMPARE(filasTemporal(consultaLibroIva()),
                 QStringList(
                     {"C|0000001|" + y + "0303|X1234567L|Proveedor y Cliente|4000|21|840|5.2|208",
                      "I|0000002|" + y + "0909|A58818501|Maquinaria Pesada, S.A.|10000|21|2100|0|0",
                      "V|0000001|" + y + "0110|12345678Z|Cliente Uno|2000|21|420|0|0",
                      "V|0000002|" + y + "0420|12345678Z|Cliente Uno|483.52|21|101.54|0|0",
                      "V|0000003|" + y + "0205|B12345674|Cliente Dos, S.L.|2000|21|420|0|0",
                      "V|0000003|" + y + "0205|B12345674|Cliente Dos, S.L.|531.86|10|53.19|0|0",
                      "V|0000004|" + y + "0701|X1234567L|Proveedor y Cliente|3000|21|630|0|0"}));
        // A period of invoice dates: February to April leaves four rows.
        QCOMPARE(llenarLibroIva({fecha(1, 2), fecha(30, 4)}), 4);
        // A from-date without a to-date has an empty upper bound: nothing, and the table is
        // left as it was.
        QCOMPARE(llenarLibroIva({fecha(1, 2), QString()}), 0);
        QCOMPARE(filasTemporal(consultaLibroIva()).size(), 4);
    }

    // The printed book and summary: each type's total, the sums per type and rate, and what
    // is charged less what is borne.
    void impresos() {
        llenarLibroIva({});
        const QStringList f = formulasLibroIva({});
        const QStringList libro = paginasImpresas("LibroIva.rpt", f, consultaLibroIva());
        QVERIFY(contiene(libro, "FACTURAS RECIBIDAS"));
        QVERIFY(contiene(libro, "Total · FACTURAS EXPEDIDAS · 8.015,38 · 1.624,73"));
        QVERIFY(contiene(libro, "Total · BIENES DE INVERSIÓN · 10.000,00 · 2.100,00"));
        QVERIFY(
            contiene(libro, "Total · FACTURAS RECIBIDAS · 4.000,00 · 840,00 · 208,00 · 5.048,00"));
        const QStringList resumen = paginasImpresas("ResumenIva.rpt", f, consultaResumenIva());
        for (const char* linea :
             {"Facturas expedidas · 1 · 531,86 · 10,00 · 53,19",
              "Facturas expedidas · 4 · 7.483,52 · 21,00 · 1.571,54",
              "Facturas recibidas · 1 · 4.000,00 · 21,00 · 840,00 · 5,20 · 208,00",
              "Bienes de inversión · 1 · 10.000,00 · 21,00 · 2.100,00",
              "IVA y recargo repercutidos menos soportados · -1.523,27"})
            QVERIFY2(contiene(resumen, linea), qPrintable(resumen.join('\n')));
    }

    // The threshold counts base, VAT and surcharge, each kind of operation of a party apart,
    // in the session's branch only.
    void terceros_data() {
        QTest::addColumn<QString>("delegacion");
        QTest::addColumn<CriteriosTerceros>("criterios");
        QTest::addColumn<QStringList>("filas");
        const QString ambosC = "C|X1234567L|Proveedor y Cliente|5048";
        const QString pro2 = "I|A58818501|Maquinaria Pesada, S.A.|12100";
        const QString cli1 = "V|12345678Z|Cliente Uno|3005.06";
        const QString cli2 = "V|B12345674|Cliente Dos, S.L.|3005.05";
        const QString ambosV = "V|X1234567L|Proveedor y Cliente|3630";
        QTest::newRow("default threshold: exactly 3005.06 in, a cent less out")
            << "EMP" << CriteriosTerceros{} << QStringList{ambosC, pro2, cli1, ambosV};
        QTest::newRow("a typed amount with a comma")
            << "EMP" << CriteriosTerceros{{}, {}, "3005,05"}
            << QStringList{ambosC, pro2, cli1, cli2, ambosV};
        QTest::newRow("a to-date alone: the year's start")
            << "EMP" << CriteriosTerceros{{}, fecha(31, 3), "1000"}
            << QStringList{ambosC, "V|12345678Z|Cliente Uno|2420", cli2};
        QTest::newRow("the branch SUR reaches it on its own")
            << "SUR" << CriteriosTerceros{} << QStringList{"V|00000023T|Cliente de Sur|6050"};
    }
    void terceros() {
        QFETCH(QString, delegacion);
        QFETCH(CriteriosTerceros, criterios);
        QFETCH(QStringList, filas);
        sesion_delegacion = delegacion;
        QCOMPARE(llenarOperacionesTerceros(criterios), filas.size());
        QStringList leidas;
        for (const QString& f : filasTemporal(consultaTerceros())) {
            const QStringList c = f.split(u'|');  // tipo nif nombre direccion poblacion cp importe
            leidas << QStringList{c[0], c[1], c[2], QString::number(c[6].toDouble(), 'g', 12)}.join(
                u'|');
        }
        QCOMPARE(leidas, filas);
    }

    // The forms: the book and the summary one after the other without a question; an empty
    // selection and a threshold that is no number stopped with their messages.
    void formularios() {
        Buzon buzon;
        Peticion peticion;
        auto* libro = qobject_cast<frmLibroIva*>(formularios::abrir("frmLibroIva"));
        QVERIFY(libro);
        libro->imprimir();
        QCOMPARE(peticion.trabajos.size(), 2);
        QVERIFY(peticion.trabajos[0].archivo.endsWith("LibroIva.rpt"));
        QCOMPARE(peticion.trabajos[0].consulta, consultaLibroIva());
        QCOMPARE(peticion.trabajos[1].titulo, QString("Resumen de IVA"));
        QCOMPARE(peticion.trabajos[1].consulta, consultaResumenIva());
        libro->txt(0)->setText(fecha(1, 12));
        libro->imprimir();
        QCOMPARE(buzon.ultimo(), MensajeError(9000));
        QCOMPARE(peticion.trabajos.size(), 2);

        auto* terceros =
            qobject_cast<frmOperacionesTerceros*>(formularios::abrir("frmOperacionesTerceros"));
        QVERIFY(terceros);
        buzon.vaciar();
        terceros->txt(2)->setText("0 OR 1=1");
        terceros->imprimir();
        QCOMPARE(buzon.ultimo(), MensajeError(1004));
        terceros->txt(2)->clear();
        terceros->imprimir();
        QCOMPARE(peticion.trabajos.size(), 3);
        QCOMPARE(peticion.trabajos[2].consulta, consultaTerceros());
        QCOMPARE(filasTemporal(consultaTerceros()).size(), 4);

        // The model 347 of the whole company: a company without a telephone is told so and
        // nothing is written; with one typed, the parties of both branches that reach the
        // threshold, CLI1 by adding them, each key apart.
        QTemporaryDir dir;
        const QString ruta = dir.filePath("347.txt");
        buzon.vaciar();
        QVERIFY(!terceros->generarModelo347(ruta, "", ""));
        QVERIFY2(buzon.ultimo().contains("Teléfono de contacto"), qPrintable(buzon.ultimo()));
        QVERIFY(!QFile::exists(ruta));
        QVERIFY(terceros->generarModelo347(ruta, "912 345 678", "García López, Ana"));
        QFile archivo(ruta);
        QVERIFY(archivo.open(QIODevice::ReadOnly));
        QStringList declarados;
        for (const QByteArray& r : archivo.readAll().split('\n').mid(1, 5))
            declarados << QString::fromLatin1(r.mid(17, 9) + r.mid(81, 17));
        QCOMPARE(declarados,
                 QStringList({"A58818501A 000000001210000", "X1234567LA 000000000504800",
                              "00000023TB 000000000605000", "12345678ZB 000000000312606",
                              "X1234567LB 000000000363000"}));
    }
};

QTEST_MAIN(PruebaLibroIva)
#include "prueba_libroiva.moc"
