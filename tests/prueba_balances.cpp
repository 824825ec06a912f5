// The trial balance, the balance sheet and the profit and loss account on a small book of two
// years checked by hand: the rows of their temporary tables under each criterion, the amounts
// of cuentas texts with every kind of token, the results of the profit and loss account, and
// the statements as printed from the company's template layouts.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/informe_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/almacen/programa.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/situacion.h"
#include "data/global.h"
#include "forms/formularios.h"
#include "reports/balances.h"
#include "reports/formularios_informes.h"
#include "reports/frmsumassaldos.h"
#include "reports/motor/fuente.h"
#include "reports/motor/paginador.h"
#include "reports/sumassaldos.h"

#include <QCheckBox>
#include <QDate>
#include <QtTest>

Q_DECLARE_METATYPE(CriteriosSumas)
Q_DECLARE_METATYPE(QList<LineaPyG>)

namespace {

const int kAnio = QDate::currentDate().year();
QString fecha(int dia, int mes, int anio = kAnio) {
    return QDate(anio, mes, dia).toString("dd/MM/yyyy");
}

struct Linea {
    const char* delegacion;
    const char* numero;
    QString fecha;
    int apunte;
    const char* cuenta;
    double debe, haber;
};

void anotar(const QList<Linea>& lineas) {
    for (const Linea& l : lineas)
        Apuntes::Insert(*sesion_conexion, "EMP", l.delegacion, "AS", l.numero, l.apunte, "GEN",
                        l.fecha, l.fecha, "", l.cuenta, "Concepto", l.debe, l.haber, "P", "",
                        "PRUEBA");
}

// Last year: the capital paid into the bank and a sale. This year, in the central branch: a
// purchase with VAT, a sale, its collection, depreciation, a machine paid from the bank, a
// partner's loan into the bank, bank charges on a second account and the tax on profits; and
// a sale in the branch SUR, which the balance sheet (the session's branch only) leaves out.
void crearLibro() {
    crearEmpresaPrueba();
    cuentas::Insert(*sesion_conexion, "EMP", "57200001", "Banco dos", "S", 8, "PRUEBA");
    const int y = kAnio - 1;
    anotar({
        {"EMP", "0000001", fecha(15, 6, y), 1, "57200000", 10000, 0},
        {"EMP", "0000001", fecha(15, 6, y), 2, "10000000", 0, 10000},
        {"EMP", "0000002", fecha(20, 12, y), 1, "43000000", 1210, 0},
        {"EMP", "0000002", fecha(20, 12, y), 2, "70000000", 0, 1000},
        {"EMP", "0000002", fecha(20, 12, y), 3, "47700000", 0, 210},
        {"EMP", "0000003", fecha(10, 1), 1, "60000000", 400, 0},
        {"EMP", "0000003", fecha(10, 1), 2, "47200000", 84, 0},
        {"EMP", "0000003", fecha(10, 1), 3, "40000000", 0, 484},
        {"EMP", "0000004", fecha(15, 2), 1, "43000000", 2420, 0},
        {"EMP", "0000004", fecha(15, 2), 2, "70000000", 0, 2000},
        {"EMP", "0000004", fecha(15, 2), 3, "47700000", 0, 420},
        {"EMP", "0000005", fecha(1, 3), 1, "57200000", 1210, 0},
        {"EMP", "0000005", fecha(1, 3), 2, "43000000", 0, 1210},
        {"EMP", "0000006", fecha(31, 3), 1, "68100000", 150, 0},
        {"EMP", "0000006", fecha(31, 3), 2, "28100000", 0, 150},
        {"EMP", "0000007", fecha(30, 4), 1, "21300000", 3000, 0},
        {"EMP", "0000007", fecha(30, 4), 2, "57200000", 0, 3000},
        {"EMP", "0000008", fecha(2, 5), 1, "57200000", 500, 0},
        {"EMP", "0000008", fecha(2, 5), 2, "55100000", 0, 500},
        {"EMP", "0000009", fecha(3, 5), 1, "62600000", 50, 0},
        {"EMP", "0000009", fecha(3, 5), 2, "57200001", 0, 50},
        {"EMP", "0000010", fecha(31, 5), 1, "63000000", 100, 0},
        {"EMP", "0000010", fecha(31, 5), 2, "47500000", 0, 100},
        {"SUR", "0000011", fecha(5, 5), 1, "43000000", 999, 0},
        {"SUR", "0000011", fecha(5, 5), 2, "70000000", 0, 999},
    });
    sesionEmp();
    sesion_fecha_inicial = QString::number(kAnio) + "0101";
    sesion_fecha_final = QString::number(kAnio) + "1231";
}

// The trial balance's rows, "cuenta|nivel|saldo anterior|debe|haber".
QStringList filasSumas() {
    QStringList filas;
    for (Recordset rs = sesion_temporal->open(consultaSumas()); !rs.eof(); rs.moveNext())
        filas << QStringList{rs["cuenta"].toString(), rs["nivel"].toString(),
                             rs["saldo_anterior"].toString(), rs["debe"].toString(),
                             rs["haber"].toString()}
                     .join(u'|');
    return filas;
}

CriteriosSumas sumas(std::initializer_list<int> niveles, const QString& desde = {},
                     const QString& hasta = {}, bool conMovimientos = false) {
    CriteriosSumas c;
    for (int n : niveles) c.niveles[size_t(n - 1)] = true;
    c.cuentaDesde = desde;
    c.cuentaHasta = hasta;
    c.conMovimientos = conMovimientos;
    return c;
}

int filasDelPlan(const QString& condicion) {
    return filas("Cuentas", "codigo_empresa = 'EMP' AND (" + condicion + ")");
}

QString lineaQueEmpieza(const QStringList& lineas, const QString& inicio) {
    for (const QString& l : lineas)
        if (l.startsWith(inicio)) return l;
    return "no line begins with " + inicio;
}

void reemplazarSituacion(const QList<QStringList>& filas) {
    sesion_conexion->execute("DELETE FROM Situacion WHERE codigo_empresa = 'EMP'");
    for (const QStringList& f : filas)
        Situacion::Insert(*sesion_conexion, "EMP", f[0], f[1].toInt(), f[2].toInt(), f[3].toInt(),
                          f[4], f[5], "PRUEBA");
}

}  // namespace

class PruebaBalances : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaBalances() : PruebaFormularios(registrarFormulariosInformes, crearLibro) {}

private slots:

    void sumasYSaldos_data() {
        QTest::addColumn<CriteriosSumas>("criterios");
        QTest::addColumn<QStringList>("filas");
        const QString sa = "1210|3419|1210";  // 430: last year's sale, this year's both branches
        QTest::newRow("levels 1, 2, 3 and 8 of the customers")
            << sumas({1, 2, 3, 8}, "43000000", "43999999")
            << QStringList{"4|1|" + sa, "43|2|" + sa, "430|3|" + sa, "43000000|8|" + sa};
        QTest::newRow("levels 2 and 3: the posting accounts only feed them")
            << sumas({2, 3}, "43000000", "43999999") << QStringList{"43|2|" + sa, "430|3|" + sa};
        // The bound cut to each level: "430" is the level-3 row and "43" the level-2 one, and
        // no posting account lies between "430" and "430".
        QTest::newRow("short bounds, with the accounts without movements")
            << sumas({2, 3}, "430", "430", true) << QStringList{"43|2|0|0|0", "430|3|0|0|0"};
        QTest::newRow("banks: one account with last year's balance, one without")
            << sumas({3, 8}, "57200000", "57299999")
            << QStringList{"572|3|10000|1710|3050", "57200000|8|10000|1710|3000",
                           "57200001|8|0|0|50"};
        CriteriosSumas desde = sumas({8}, "43000000", "43000000");
        desde.fechaDesde = fecha(1, 3);
        QTest::newRow("from a date: January and February brought forward")
            << desde << QStringList{"43000000|8|3630|999|1210"};
        CriteriosSumas sur = sumas({3}, "43000000", "43999999");
        sur.delegaciones = "SUR";
        QTest::newRow("one branch") << sur << QStringList{"430|3|0|999|0"};
    }
    void sumasYSaldos() {
        QFETCH(CriteriosSumas, criterios);
        QFETCH(QStringList, filas);
        QCOMPARE(llenarSumasSaldos(criterios), qint64(filas.size()));
        QCOMPARE(filasSumas(), filas);
    }

    // Over the whole chart, every shorter row is the sum of the posting accounts below it, and
    // the accounts without movements come and go with the box.
    void sumasDelPlan() {
        for (bool conMovimientos : {false, true}) {
            const CriteriosSumas c = sumas({1, 2, 3, 8}, {}, {}, conMovimientos);
            llenarSumasSaldos(c);
            QMap<QString, std::array<double, 3>> pase;
            QMap<QString, std::array<double, 3>> agrupadas;
            for (Recordset rs = sesion_temporal->open(consultaSumas()); !rs.eof(); rs.moveNext())
                (rs["nivel"].toInt() == 8 ? pase : agrupadas)[rs["cuenta"].toString()] = {
                    rs["saldo_anterior"].toDouble(), rs["debe"].toDouble(), rs["haber"].toDouble()};
            for (auto it = agrupadas.cbegin(); it != agrupadas.cend(); ++it) {
                std::array<double, 3> suma{};
                for (auto p = pase.cbegin(); p != pase.cend(); ++p)
                    if (p.key().startsWith(it.key()))
                        for (size_t i = 0; i < 3; ++i) suma[i] += p.value()[i];
                QCOMPARE(it.value(), suma);
            }
            double debe = 0, haber = 0;
            for (const auto& v : std::as_const(pase)) debe += v[1], haber += v[2];
            QCOMPARE(debe, 8913.0);
            QCOMPARE(haber, 8913.0);
            const int filasTabla = int(pase.size() + agrupadas.size());
            if (conMovimientos)
                QCOMPARE(filasTabla, filasDelPlan("nivel IN (1, 2, 3, 8)"));
            else
                QCOMPARE(filasTabla, 16 + 15 + 13 + 6);  // posting accounts, then levels 3, 2 and 1
        }
    }

    void sumasSinApuntes() {
        sesion_conexion->execute("DELETE FROM Apuntes");
        QCOMPARE(llenarSumasSaldos(sumas({3, 8})), qint64(0));
        QCOMPARE(llenarSumasSaldos(sumas({3, 8}, {}, {}, true)),
                 qint64(filasDelPlan("nivel IN (3, 8)")));
    }

    // The totals at the first level chosen take each amount once; the formulas name it.
    void sumasImpresas() {
        const CriteriosSumas c = sumas({1, 3, 8});
        llenarSumasSaldos(c);
        const QStringList f = formulasSumas(c);
        QCOMPARE(f.value(1), QString("niveles = 1"));
        const QStringList lineas = paginasImpresas("SumasSaldos.rpt", f, consultaSumas());
        QCOMPARE(lineaQueEmpieza(lineas, "Total balance"),
                 QString("Total balance · 0,00 · 8.913,00 · 8.913,00 · 0,00"));
        QCOMPARE(lineaQueEmpieza(lineas, "430 · "),
                 QString("430 · Clientes · 1.210,00 · 3.419,00 · 1.210,00 · 3.419,00"));
    }

    // On opening only the posting accounts' level is checked and no longer level is offered;
    // the last box cleared checks itself again.
    void nivelesDelFormulario() {
        auto* f = qobject_cast<frmSumasSaldos*>(formularios::abrir("frmSumasSaldos"));
        QVERIFY(f);
        activar(f->ventana());
        for (int i = 0; i < 12; ++i) {
            QCOMPARE(f->chkNivel(i)->isChecked(), i == 7);
            QCOMPARE(f->chkNivel(i)->isEnabled(), i < 8);
        }
        f->chkNivel(2)->click();
        f->chkNivel(7)->click();
        QVERIFY(!f->chkNivel(7)->isChecked());
        f->chkNivel(2)->click();
        QVERIFY(f->chkNivel(2)->isChecked());
    }

    // Every kind of token on both sides, this year and last, line by line.
    void situacion() {
        reemplazarSituacion({
            {"A", "1", "1", "0", "Bancos", "?572"},
            {"A", "1", "2", "0", "Bruto", "21"},
            {"A", "1", "2", "1", "Amortización", "(281)"},
            {"A", "1", "3", "0", "Mixta", "43,(281)"},
            {"A", "1", "4", "0", "Socios en el activo", "?551"},
            {"A", "1", "5", "0", "Título", ""},
            {"P", "1", "1", "0", "Socios en el pasivo", "?551"},
            {"P", "1", "2", "0", "Mixta del pasivo", "40,?551,(472)"},
            {"P", "1", "3", "0", "Sólo paréntesis", "(477)"},
            {"P", "1", "4", "0", "Coma al principio", ",430"},
            {"P", "1", "5", "0", "Resultado", "129,6,7"},
            {"P", "1", "6", "0", "Último sin recortar", "430, 7"},
            {"P", "1", "7", "0", "Capital", "10"},
        });
        QCOMPARE(llenarBalanceSituacion({}), qint64(13));
        QStringList filas;
        for (Recordset rs = sesion_temporal->open(consultaSituacion()); !rs.eof(); rs.moveNext())
            filas << QStringList{rs["ap"].toString(), rs["titulo"].toString(),
                                 rs["cuentas"].toString(), rs["saldo"].toString(),
                                 rs["saldo_ant"].toString()}
                         .join(u'|');
        QCOMPARE(filas, (QStringList{
                            // This year the banks went 1,340 into the red: nothing here.
                            "A|Bancos|572|0|10000",
                            "A|Bruto|21|3000|0",
                            // A deduction on the assets' side adds the credit balance.
                            "A|Amortización|(281)|150|0",
                            "A|Mixta|43, (281)|1360|1210",
                            "A|Socios en el activo|551|0|0",
                            "A|Título||0|0",
                            "P|Socios en el pasivo|551|500|0",
                            // 484 of suppliers, then the partner's -500 and the VAT's -84 with
                            // their debit-minus-credit sign.
                            "P|Mixta del pasivo|40, 551, (472)|-100|0",
                            "P|Sólo paréntesis|(477)|-420|-210",
                            "P|Coma al principio|,430|0|0",
                            "P|Resultado|129, 6, 7|1300|1000",
                            "P|Último sin recortar|430,  7|-1210|-1210",
                            "P|Capital|10|0|10000",
                        }));
        // A first date without a last one gives an empty upper bound.
        llenarBalanceSituacion({fecha(1, 1), {}});
        QCOMPARE(Auxiliar::vBuscarCampoTemporal("BalanceSituacion", "SUM(ABS(saldo))", "1 = 1", 0)
                     .toDouble(),
                 0.0);
    }

    // The template's statement balances to the cent, before and after the year's income and
    // expenses are carried to 129 by hand, and its result is income minus expenses.
    void balancesDeLaPlantilla() {
        const QString a = QString::number(kAnio), b = QString::number(kAnio - 1);
        for (bool regularizado : {false, true}) {
            if (regularizado)
                anotar({{"EMP", "0000099", fecha(31, 12), 1, "70000000", 2000, 0},
                        {"EMP", "0000099", fecha(31, 12), 2, "60000000", 0, 400},
                        {"EMP", "0000099", fecha(31, 12), 3, "62600000", 0, 50},
                        {"EMP", "0000099", fecha(31, 12), 4, "63000000", 0, 100},
                        {"EMP", "0000099", fecha(31, 12), 5, "68100000", 0, 150},
                        {"EMP", "0000099", fecha(31, 12), 6, "12900000", 0, 1300}});
            llenarBalanceSituacion({});
            const QStringList s = paginasImpresas("BalanceSituacionAbreviado.rpt",
                                                  formulasSituacion({}), consultaSituacion());
            QCOMPARE(lineaQueEmpieza(s, "ACTIVO"), "ACTIVO · " + a + " · " + b);
            QCOMPARE(lineaQueEmpieza(s, "TOTAL ACTIVO"),
                     QString("TOTAL ACTIVO (A + B) · 4.144,00 · 11.210,00"));
            QCOMPARE(lineaQueEmpieza(s, "TOTAL PATRIMONIO"),
                     QString("TOTAL PATRIMONIO NETO Y PASIVO (A + B + C) · 4.144,00 · 11.210,00"));
            for (const char* esperada :
                 {"A) ACTIVO NO CORRIENTE · 2.850,00 · 0,00",
                  "II. Inmovilizado material · 2.850,00",
                  "(Amortización acumulada del inmovilizado material) · (150,00)",
                  "A) PATRIMONIO NETO · 1.300,00 · 11.000,00",
                  "A-1) Fondos propios · 1.300,00 · 11.000,00",
                  "VII. Resultado del ejercicio · 1.300,00 · 1.000,00",
                  "1. Deudas con entidades de crédito: descubiertos en cuentas bancarias · "
                  "1.340,00"})
                QCOMPARE(lineaQueEmpieza(s, QString(esperada).section(" · ", 0, 0)),
                         QString(esperada));

            // The regularisation leaves the profit and loss account of the year empty.
            if (regularizado) continue;
            ResultadosPyG r;
            llenarBalancePyG({}, r);
            const QStringList p =
                paginasImpresas("BalancePyGAbreviado.rpt", formulasPyG({}, r), consultaPyG());
            for (const char* esperada :
                 {"1. Importe neto de la cifra de negocios · 2.000,00 · 1.000,00",
                  "4. Aprovisionamientos · (400,00)", "7. Otros gastos de explotación · (50,00)",
                  "A) RESULTADO DE EXPLOTACIÓN", "C) RESULTADO ANTES DE IMPUESTOS",
                  "19. Impuestos sobre beneficios · (100,00)",
                  "D) RESULTADO DEL EJERCICIO (C+19) · 1.300,00 · 1.000,00"})
                QVERIFY2(lineaQueEmpieza(p, esperada).startsWith(esperada),
                         qPrintable(p.join('\n')));
            QCOMPARE(lineaQueEmpieza(p, "A) RESULTADO DE EXPLOTACIÓN").section(" · ", 1),
                     QString("1.400,00 · 1.000,00"));
            QCOMPARE(lineaQueEmpieza(p, "C) RESULTADO ANTES DE IMPUESTOS").section(" · ", 1),
                     QString("1.400,00 · 1.000,00"));
        }
    }

    // The second pass, checked by hand: the period's arrays kept off the negative, the
    // previous year's not, B5 replaced, A5 cleared by B5's test, B6 after A6.
    void resultadosPyG_data() {
        QTest::addColumn<QList<LineaPyG>>("lineas");
        QTest::addColumn<QStringList>("valores");  // A1..A6, AA1..AA6, B1..B6, BB1..BB6
        QTest::newRow("no lines") << QList<LineaPyG>{}
                                  << QStringList{"0,0,0,0,0,0", "0,0,0,0,0,0", "0,0,0,0,0,0",
                                                 "0,0,0,0,0,0"};
        QTest::newRow("operating profit, last year's too")
            << QList<LineaPyG>{{"D", 1, 0, 400, 100}, {"H", 1, 0, 1000, 300}}
            << QStringList{"600,0,600,0,0,0", "200,0,400,0,800,800", "0,0,0,0,-600,0",
                           "-200,0,-400,0,-800,-800"};
        QTest::newRow("loss and tax; H at level 4 and other first levels add nothing")
            << QList<LineaPyG>{{"D", 1, 0, 1000, 0},
                               {"H", 1, 0, 400, 0},
                               {"D", 1, 5, 50, 0},
                               {"H", 1, 4, 999, 0},
                               {"D", 2, 0, 12345, 0}}
            << QStringList{"0,0,0,0,0,-50", "0,0,0,0,0,0", "600,0,600,0,600,650", "0,0,0,0,0,0"};
        QTest::newRow("financial loss and extraordinary profit")
            << QList<LineaPyG>{{"D", 1, 1, 30, 0}, {"H", 1, 1, 10, 0}, {"H", 1, 3, 500, 0}}
            << QStringList{"0,0,0,500,0,0", "0,0,0,0,0,0", "0,20,20,0,-480,0", "0,0,0,0,0,0"};
    }
    void resultadosPyG() {
        QFETCH(QList<LineaPyG>, lineas);
        QFETCH(QStringList, valores);
        const ResultadosPyG r = calcularResultados(lineas);
        const auto texto = [](const std::array<double, 7>& v) {
            QStringList t;
            for (size_t i = 1; i <= 6; ++i) t << QString::number(v[i]);
            return t.join(',');
        };
        QCOMPARE((QStringList{texto(r.A), texto(r.AA), texto(r.B), texto(r.BB)}), valores);
        const QStringList f = formulasPyG({}, r);
        QCOMPARE(f.size(), 26);
        QCOMPARE(f.value(2), "A1=" + valores[0].section(',', 0, 0));
        QCOMPARE(f.value(25), "BB6=" + valores[3].section(',', 5, 5));
    }
};

QTEST_MAIN(PruebaBalances)
#include "prueba_balances.moc"
