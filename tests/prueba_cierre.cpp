// The year end on a small book of two branches checked by hand: the regularisation entry line
// by line with a profit, a loss, a tie and no income or expense at all; the closing and the
// opening line by line and the next year; the forms' refusals and questions; the reversal; and
// each operation broken half-way by the store, which must leave books and flags as they were.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/informe_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/ejercicios.h"
#include "data/entidades/numeracion.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "yearend/cierre.h"
#include "yearend/formularios_cierre.h"
#include "yearend/frmcierre.h"
#include "yearend/frmregularizacion.h"
#include "yearend/regularizacion.h"

#include <QCheckBox>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace {

const int kAnio = QDate::currentDate().year();
const QString kRegu = "REGU" + QString::number(kAnio);
const QString kCier = "CIER" + QString::number(kAnio);
const QString kAper = "APER" + QString::number(kAnio + 1);

QString fecha(int dia, int mes, int anio = kAnio) {
    return QDate(anio, mes, dia).toString("dd/MM/yyyy");
}

// An entry of two or more lines: "cuenta:importe", debit when positive.
void asiento(const char* delegacion, const QString& numero, const QString& dia,
             const QStringList& lineas) {
    int n = 1;
    for (const QString& l : lineas) {
        const double importe = l.section(':', 1).toDouble();
        Apuntes::Insert(*sesion_conexion, "EMP", delegacion, "AS", numero, n++, "GEN", dia, dia, "",
                        l.section(':', 0, 0), "Asiento", qMax(importe, 0.0), qMax(-importe, 0.0),
                        "A", "", "PRUEBA");
    }
}

// Capital 10,000 in the bank; sales of 1,000 (with VAT) in EMP and 500 in SUR; a purchase of
// 300 and an expense of 150.25 in SUR; an account that comes back to zero; last year's
// purchase outside the year. Income 1,500 less expenses 450.25: a profit of 1,049.75.
void crearLibro() {
    crearEmpresaPrueba();
    for (const char* c : {"10000001", "12900000", "43000001", "47700001", "57200001", "60000001",
                          "62300001", "62900001", "70000001", "70500001"})
        if (filas("Cuentas", QStringLiteral("cuenta = '%1'").arg(c)) == 0)
            cuentas::Insert(*sesion_conexion, "EMP", c, QStringLiteral("Cuenta %1").arg(c), "S", 8,
                            "PRUEBA");
    numeracion::Insert(*sesion_conexion, "EMP", kAnio, "FAC", 5, 27, "Facturas", "PRUEBA");
    asiento("EMP", "1", fecha(1, 1), {"57200001:10000", "10000001:-10000"});
    asiento("EMP", "2", fecha(3, 2), {"43000001:1210", "70000001:-1000", "47700001:-210"});
    asiento("SUR", "2", fecha(4, 2), {"57200001:500", "70500001:-500"});
    asiento("EMP", "3", fecha(5, 3), {"60000001:300", "57200001:-300"});
    asiento("SUR", "3", fecha(6, 3), {"62900001:150.25", "57200001:-150.25"});
    asiento("EMP", "4", fecha(7, 4),
            {"62300001:100", "57200001:-100", "57200001:100", "62300001:-100"});
    asiento("EMP", "5", fecha(31, 12, kAnio - 1), {"60000001:999", "57200001:-999"});
    sesionEmp();
    sesion_delegacion = "SUR";  // the entries stand in the company's branch all the same
    sesion_fecha_inicial = QString::number(kAnio) + "0101";
    sesion_fecha_final = QString::number(kAnio) + "1231";
}

// The lines of a year-end entry: "n|cuenta|debe|haber", and the fields every line shares once.
QStringList lineas(const QString& documento, QString* comunes = nullptr) {
    Recordset rs = Apuntes::GetList(*sesion_conexion, "codigo_documento = '" + documento + "'",
                                    "numero_apunte");
    QStringList t;
    QSet<QString> c;
    for (; !rs.eof(); rs.moveNext()) {
        t << QStringLiteral("%1|%2|%3|%4")
                 .arg(rs["numero_apunte"].toInt())
                 .arg(rs["cuenta"].toString())
                 .arg(rs["debe"].toDouble(), 0, 'f', 2)
                 .arg(rs["haber"].toDouble(), 0, 'f', 2);
        c.insert(QStringList{rs["codigo_delegacion"].toString(), rs["numero_documento"].toString(),
                             rs["codigo_diario"].toString(), rs["fecha_apunte"].toString(),
                             rs["fecha_documento"].toString(), rs["concepto"].toString(),
                             rs["tipo"].toString(), rs["ultimo_usuario"].toString()}
                     .join('|'));
    }
    if (comunes) *comunes = c.size() == 1 ? *c.begin() : QString::number(c.size());
    return t;
}

QString marcas(int anio = kAnio) {
    Recordset rs = Ejercicios::GetList(
        *sesion_conexion, "codigo_empresa = 'EMP' and ejercicio = " + QString::number(anio), "");
    return rs.eof() ? "-"
                    : rs["fecha_inicial"].toString() + '-' + rs["fecha_final"].toString() + ' ' +
                          rs["regularizado"].toString() + rs["cerrado"].toString();
}

// The whole books: every line of the store, in key order.
QStringList libros() {
    Recordset rs = Apuntes::GetList(*sesion_conexion, "",
                                    "codigo_delegacion, codigo_documento, numero_documento, "
                                    "numero_apunte");
    QStringList t;
    for (; !rs.eof(); rs.moveNext())
        t << rs["codigo_documento"].toString() + rs["numero_documento"].toString() + ':' +
                 rs["cuenta"].toString() + ':' + rs["debe"].toString() + ':' +
                 rs["haber"].toString();
    return t;
}

template <class F>
F* abrirCierre(const QString& nombre) {
    auto* f = qobject_cast<F*>(formularios::abrir(nombre));
    activar(f->ventana());
    return f;
}

void regularizarConForm(bool ver = false) {
    auto* f = abrirCierre<frmRegularizacion>("frmRegularizacion");
    QCOMPARE(f->txt(1)->text(), kRegu);
    teclear(f->txt(0), "129.");
    QCOMPARE(f->txt(0)->text(), QString("12900000"));
    QVERIFY(!f->des()->text().isEmpty());
    f->chkVerAsiento()->setChecked(ver);
    pulsar(kInsertar);
}

}  // namespace

class PruebaCierre : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaCierre() : PruebaFormularios(registrarFormulariosCierre, crearLibro) {}

private Q_SLOTS:

    // The entry from the form: groups 6 and 7 of both branches in account order on their
    // opposite side, no line for the account back at zero, the result on 129 last; a year
    // with no income or expense posts nothing and stays unregularised.
    void regularizacion_data() {
        QTest::addColumn<QStringList>("extra");
        QTest::addColumn<QStringList>("esperadas");
        QTest::addColumn<QString>("marca");
        const QStringList base{"1|60000001|0.00|300.00", "2|62900001|0.00|150.25",
                               "3|70000001|1000.00|0.00", "4|70500001|500.00|0.00"};
        QTest::newRow("beneficio")
            << QStringList{} << base + QStringList{"5|12900000|0.00|1049.75"} << "SN";
        QStringList perdida = base;
        perdida[1] = "2|62900001|0.00|2150.25";
        QTest::newRow("pérdida") << QStringList{"62900001:2000", "57200001:-2000"}
                                 << perdida + QStringList{"5|12900000|950.25|0.00"} << "SN";
        QStringList empate = base;
        empate[1] = "2|62900001|0.00|1200.00";
        QTest::newRow("empate") << QStringList{"62900001:1049.75", "57200001:-1049.75"} << empate
                                << "SN";
        QTest::newRow("sin ingresos ni gastos") << QStringList{"*"} << QStringList{} << "NN";
    }
    void regularizacion() {
        QFETCH(QStringList, extra);
        QFETCH(QStringList, esperadas);
        QFETCH(QString, marca);
        if (extra == QStringList{"*"})
            sesion_conexion->execute("DELETE FROM Apuntes WHERE cuenta >= '6'");
        else if (!extra.isEmpty())
            asiento("EMP", "9", fecha(1, 6), extra);
        Buzon buzon;
        Peticion peticion;
        regularizarConForm(true);
        QString comunes;
        QCOMPARE(lineas(kRegu, &comunes), esperadas);
        QCOMPARE(marcas().right(2), marca);
        if (esperadas.isEmpty()) {
            QCOMPARE(buzon.textos, QStringList{MensajeError(9000)});
            return;
        }
        QCOMPARE(comunes, "EMP|9999999998|99999|" + QString::number(kAnio) +
                              "1231||ASIENTO DE REGULARIZACIÓN|A|ANA");
        QVERIFY(buzon.textos.isEmpty());
        // The entry shown as the journal book shows an entry, with its total.
        QCOMPARE(peticion.trabajos.size(), 1);
        QVERIFY(peticion.trabajos[0].archivo.endsWith("Regularizacion.rpt"));
        const QStringList impreso = paginasImpresas(
            "Regularizacion.rpt", peticion.trabajos[0].formulas, peticion.trabajos[0].consulta);
        QVERIFY2(impreso.contains("1 · 60000001 · Cuenta 60000001 · ASIENTO DE REGULARIZACIÓN · "
                                  "300,00"),
                 qPrintable(impreso.join('\n')));
        QVERIFY2(impreso.filter("Total asiento").size() == 1, qPrintable(impreso.join('\n')));
    }

    // Closing and opening line by line, the same numbers on both sides; the next year made
    // with its dates and series, or, when it exists, left as it stands.
    void cierre_data() {
        QTest::addColumn<bool>("siguienteExiste");
        QTest::newRow("crea el siguiente") << false;
        QTest::newRow("el siguiente ya existe") << true;
    }
    void cierre() {
        QFETCH(bool, siguienteExiste);
        const QString inicial = QString::number(kAnio + 1) + "0101";
        if (siguienteExiste)
            Ejercicios::Insert(*sesion_conexion, "EMP", kAnio + 1, fecha(1, 2, kAnio + 1),
                               fecha(31, 1, kAnio + 2), {}, {}, "N", "N", "PRUEBA", false);
        Regularizacion::Insert(*sesion_conexion, "EMP", kAnio, "12900000", kRegu, "ANA", false);
        Buzon buzon;
        Peticion peticion;
        auto* f = abrirCierre<frmCierre>("frmCierre");
        QCOMPARE(f->txt(0)->text() + ' ' + f->txt(1)->text(), kCier + ' ' + kAper);
        f->chkVerAsiento()->setChecked(true);
        pulsar(kInsertar);
        QVERIFY2(buzon.textos.isEmpty(), qPrintable(buzon.textos.join('\n')));
        QString comunes;
        QCOMPARE(lineas(kCier, &comunes),
                 (QStringList{"1|10000001|10000.00|0.00", "2|12900000|1049.75|0.00",
                              "3|43000001|0.00|1210.00", "4|47700001|210.00|0.00",
                              "5|57200001|0.00|10049.75"}));
        QCOMPARE(comunes, "EMP|9999999999|99999|" + QString::number(kAnio) +
                              "1231||ASIENTO DE CIERRE|A|ANA");
        QCOMPARE(lineas(kAper, &comunes),
                 (QStringList{"1|10000001|0.00|10000.00", "2|12900000|0.00|1049.75",
                              "3|43000001|1210.00|0.00", "4|47700001|0.00|210.00",
                              "5|57200001|10049.75|0.00"}));
        QCOMPARE(comunes, "EMP|0000000000|00000|" + inicial + "||ASIENTO DE APERTURA|A|ANA");
        QCOMPARE(marcas(), QString::number(kAnio) + "0101-" + QString::number(kAnio) + "1231 SS");
        QCOMPARE(marcas(kAnio + 1),
                 siguienteExiste
                     ? QString::number(kAnio + 1) + "0201-" + QString::number(kAnio + 2) + "0131 NN"
                     : inicial + '-' + QString::number(kAnio + 1) + "1231 NN");
        QCOMPARE(filas("Numeraciones", "ejercicio = " + QString::number(kAnio + 1)), 1);
        // Both entries in one print, each with its total.
        QCOMPARE(peticion.trabajos.size(), 1);
        const QStringList impreso = paginasImpresas("Cierre.rpt", peticion.trabajos[0].formulas,
                                                    peticion.trabajos[0].consulta);
        QCOMPARE(impreso.filter("Total asiento").size(), 2);
    }

    // What the forms say instead of posting: a missing or unknown account, closing before
    // regularising, and the questions of a year already done, whose Yes shows the entries.
    void rechazos() {
        Buzon buzon;
        auto* r = abrirCierre<frmRegularizacion>("frmRegularizacion");
        pulsar(kInsertar);
        QCOMPARE(buzon.ultimo(), MensajeError(1000));
        QVERIFY(r->txt(0)->hasFocus());
        teclear(r->txt(0), "99999999");
        QCOMPARE(buzon.ultimo(), QString("Error no definido."));
        QVERIFY(r->txt(0)->hasFocus());
        r->txt(0)->clear();
        buzon.vaciar();

        auto* c = abrirCierre<frmCierre>("frmCierre");
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList{MensajeError(1047)});
        QCOMPARE(lineas(kCier), QStringList{});
        delete c->ventana();

        regularizarConForm();
        const QStringList posteadas = lineas(kRegu);
        buzon.vaciar();
        buzon.respuestas = {Respuesta::Si};
        {
            Peticion peticion;
            regularizarConForm();
            QCOMPARE(buzon.textos,
                     QStringList{"El ejercicio ya ha sido regularizado. ¿Desea ver el asiento?"});
            QCOMPARE(peticion.trabajos.size(), 1);
        }
        QCOMPARE(lineas(kRegu), posteadas);

        Cierre::Insert(*sesion_conexion, "EMP", kAnio, kCier, kAper, "ANA", false);
        const QStringList libro = libros();
        buzon.vaciar();
        abrirCierre<frmCierre>("frmCierre");
        pulsar(kInsertar);  // answered No
        QCOMPARE(buzon.textos,
                 QStringList{"El ejercicio ya ha sido cerrado. ¿Desea ver los asientos?"});
        QCOMPARE(libros(), libro);
    }

    // The reversal takes both entries and both flags back, run twice says the same; while the
    // next year is closed it refuses and changes nothing.
    void invertir() {
        const QStringList antes = libros();
        Regularizacion::Insert(*sesion_conexion, "EMP", kAnio, "12900000", kRegu, "ANA", false);
        Cierre::Insert(*sesion_conexion, "EMP", kAnio, kCier, kAper, "ANA", false);
        const QStringList cerrados = libros();
        Buzon buzon;
        sesion_conexion->execute("UPDATE Ejercicios SET cerrado = 'S' WHERE ejercicio = " +
                                 QString::number(kAnio + 1));
        auto* f = abrirCierre<frmInvertir>("frmInvertir");
        QCOMPARE(f->findChild<QLabel*>("lbl(0)")->text(),
                 "Esta operación invertirá el cierre del ejercicio " + QString::number(kAnio));
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList{MensajeError(1048)});
        QCOMPARE(libros(), cerrados);
        QCOMPARE(marcas().right(2), QString("SS"));
        QVERIFY(f->ventana()->isVisible());

        sesion_conexion->execute("UPDATE Ejercicios SET cerrado = 'N' WHERE ejercicio = " +
                                 QString::number(kAnio + 1));
        for (int vez = 0; vez < 2; ++vez) {
            buzon.vaciar();
            QPointer<QWidget> ventana = abrirCierre<frmInvertir>("frmInvertir")->ventana();
            pulsar(kInsertar);
            QCOMPARE(buzon.textos, QStringList{"Operación finalizada."});
            QTRY_VERIFY(!ventana || !ventana->isVisible());
            QCOMPARE(libros(), antes);
            QCOMPARE(marcas().right(2), QString("NN"));
        }
        QVERIFY(marcas(kAnio + 1) != "-");  // the year the closing made stays
    }

    // A failure of the store half-way through each operation leaves every line and both flags
    // as they were, and is shown.
    void todoONada_data() {
        QTest::addColumn<QString>("operacion");
        QTest::addColumn<QString>("evento");
        QTest::addColumn<QString>("condicion");
        QTest::newRow("regularización, tercera línea") << "regularizar"
                                                       << "INSERT"
                                                       << "NEW.numero_apunte = 3";
        QTest::newRow("cierre, marca del ejercicio") << "cerrar"
                                                     << "UPDATE"
                                                     << "NEW.cerrado = 'S'";
        QTest::newRow("cierre, ejercicio siguiente") << "cerrar"
                                                     << "INSERT"
                                                     << "NEW.ejercicio > 2000";
        QTest::newRow("inversión, apertura") << "invertir"
                                             << "DELETE"
                                             << "OLD.numero_documento = '0000000000'";
    }
    void todoONada() {
        QFETCH(QString, operacion);
        QFETCH(QString, evento);
        QFETCH(QString, condicion);
        if (operacion != "regularizar")
            Regularizacion::Insert(*sesion_conexion, "EMP", kAnio, "12900000", kRegu, "ANA", false);
        if (operacion == "invertir")
            Cierre::Insert(*sesion_conexion, "EMP", kAnio, kCier, kAper, "ANA", false);
        const QStringList libro = libros();
        const QString antes = marcas(), siguiente = marcas(kAnio + 1);
        const QString tabla = evento == "INSERT" && operacion == "cerrar" ? "Ejercicios"
                              : evento == "UPDATE"                        ? "Ejercicios"
                                                                          : "Apuntes";
        Buzon buzon;
        {
            FalloProvocado fallo(tabla, evento, condicion);
            if (operacion == "regularizar") {
                regularizarConForm();
            } else {
                abrirCierre<FormularioCierre>(operacion == "cerrar" ? "frmCierre" : "frmInvertir");
                pulsar(kInsertar);
            }
        }
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().contains("fallo provocado"), qPrintable(buzon.ultimo()));
        QCOMPARE(libros(), libro);
        QCOMPARE(marcas(), antes);
        QCOMPARE(marcas(kAnio + 1), siguiente);
    }
};

QTEST_MAIN(PruebaCierre)
#include "prueba_cierre.moc"
