// The entry form driven as a bookkeeper drives it: header, main line, the tabs, counterpart
// lines and insertar from the keyboard; the refusals of the final checks with nothing written;
// an entry shown by its number and deleted with what hangs from it; and a save that fails half
// way leaving the store untouched and the entry on the screen.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cartera.h"
#include "data/entidades/registroirpf.h"
#include "data/entidades/registroiva.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "posting/formularios_asientos.h"
#include "posting/frmapunte.h"
#include "posting/grabacion.h"

#include <QAction>
#include <QApplication>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QtTest>

namespace {

const QString kAnio = QString::number(QDate::currentDate().year());
const QKeySequence kSiguiente(Qt::CTRL | Qt::Key_PageDown), kAnterior(Qt::CTRL | Qt::Key_PageUp);

frmApunte* abrirApunte() {
    auto* f = qobject_cast<frmApunte*>(formularios::abrir("frmApunte"));
    if (f) activar(f->ventana());
    return f;
}

// The first tab as typed: journal and document in lower case, "0" for a new number, the
// account with its dot.
void cabecera(frmApunte* f, const QString& importe, const QString& fecha = "15/03/" + kAnio,
              const QString& documento = "fv") {
    teclear(f->txt(0), "gen");
    teclear(f->txt(1), documento);
    teclear(f->txt(2), "0");
    teclear(f->txt(3), fecha);
    teclear(f->txt(4), "14/03/" + kAnio);
    teclear(f->txt(5), "43.1");
    teclear(f->txt(6), importe);
    teclear(f->txt(7), "REF-1");
    teclear(f->txt(8), "Factura 27");
}

// A counterpart line typed and added with Enter on the button.
void contrapartida(frmApunte* f, const QString& cuenta, const QString& debe, const QString& haber,
                   const QString& concepto = "Contrapartida") {
    teclear(f->txt(54), cuenta);
    teclear(f->txt(55), debe);
    teclear(f->txt(56), haber);
    teclear(f->txt(57), concepto);
    QCOMPARE(QApplication::focusWidget(), f->btnContrapartida());
    QTest::keyClick(f->btnContrapartida(), Qt::Key_Return);
}

// The list on the screen as "number account debit credit type" rows.
QStringList lineasEnPantalla(const frmApunte* f) {
    QStringList t;
    const ListaClaves* l = f->ListViewApunte();
    for (int i = 0; i < l->filas(); ++i)
        t << QStringList{l->texto(i, 0), l->texto(i, 2), l->texto(i, 3), l->texto(i, 4),
                         l->texto(i, 6)}
                 .join(' ');
    return t;
}

void dobleClicEnLinea(frmApunte* f, int fila) {
    emit f->ListViewApunte()->itemActivated(f->ListViewApunte()->topLevelItem(fila), 0);
    QApplication::processEvents();
}

}  // namespace

class PruebaApunte : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosAsientos();
    }
    void init() {
        almacen->nuevo();
        prepararAsientos();
    }
    void cleanup() {
        for (Formulario* f : formularios::abiertos()) delete f->ventana();
    }
    void cleanupTestCase() { almacen.reset(); }

    // A whole invoice from the keyboard: the store then holds exactly its three lines.
    void asientoDesdeElTeclado() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        QVERIFY(f);
        QCOMPARE(QApplication::focusWidget(), f->txt(0));
        cabecera(f, "1210,50");
        QCOMPARE(f->txt(0)->text(), QStringLiteral("GEN"));
        QCOMPARE(f->des(0)->text(), QStringLiteral("Diario general"));
        QCOMPARE(f->txt(2)->text(), QStringLiteral("FV00027"));
        QCOMPARE(f->txt(5)->text(), QStringLiteral("43000001"));
        QCOMPARE(f->des(5)->text(), QStringLiteral("Subcuenta 43000001"));

        // The document has no VAT and no portfolio: the next tab is the counterpart.
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->marco(), 3);
        QCOMPARE(QApplication::focusWidget(), f->txt(54));
        QCOMPARE(lineasEnPantalla(f), QStringList{"0000001 43000001 1210,5 0 P"});
        QCOMPARE(f->txt(60)->text(), QStringLiteral("1210,5"));

        contrapartida(f, "70.1", "", "1000", "Ventas");
        contrapartida(f, "477.1", "", "210,5", "IVA repercutido");
        QCOMPARE(QApplication::focusWidget(), f->txt(54));
        QCOMPARE(f->txt(58)->text() + '/' + f->txt(59)->text() + '/' + f->txt(60)->text(),
                 QStringLiteral("1210,5/1210,5/0"));
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(lineasGuardadas(), (QStringList{"1|43000001|1210.5|0|P", "2|70000001|0|1000|CP",
                                                 "3|47700001|0|210.5|CP"}));
        // Ready for the next entry.
        QCOMPARE(f->pestana(), 1);
        QCOMPARE(f->txt(0)->text(), QString());
        QCOMPARE(f->txt(3)->text(), QDate::currentDate().toString("dd/MM/yyyy"));
        QCOMPARE(f->ListViewApunte()->filas(), 0);
        QCOMPARE(QApplication::focusWidget(), f->txt(0));
    }

    // Each final check refuses with its message; nothing is written and the entry stays.
    void rechazos_data() {
        QTest::addColumn<QString>("fecha");
        QTest::addColumn<QString>("bloqueo");
        QTest::addColumn<QString>("importe");
        QTest::addColumn<QStringList>("lineas");  // "account;debit;credit"
        QTest::addColumn<QString>("mensaje");
        const QString a = kAnio, siguiente = QString::number(kAnio.toInt() + 1);
        const QStringList cuadra{"70.1;;1000", "477.1;;210,5"};
        QTest::newRow("date after the fiscal year")
            << "01/01/" + siguiente << ""
            << "1210,5" << cuadra << "Fecha fuera de ejercicio.";
        QTest::newRow("date outside the posting window")
            << "15/03/" + a << a + "0401-" + a + "0630"
            << "1210,5" << cuadra << "Periodo bloqueado.";
        QTest::newRow("unbalanced")
            << "15/03/" + a << ""
            << "1210,5" << QStringList{"70.1;;1000"} << "Es asiento no está cuadrado.";
        QTest::newRow("residue 5.6843418860808E-14")
            << "15/03/" + a << ""
            << "200,3" << QStringList{"572.1;99,9;", "70.1;;300,2"}
            << "Es asiento no está cuadrado.";
    }
    void rechazos() {
        QFETCH(QString, fecha);
        QFETCH(QString, bloqueo);
        QFETCH(QString, importe);
        QFETCH(QStringList, lineas);
        QFETCH(QString, mensaje);
        sesion_inicio_bloqueo = bloqueo.section('-', 0, 0);
        sesion_final_bloqueo = bloqueo.section('-', 1, 1);
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, importe, fecha);
        pulsar(kSiguiente);
        for (const QString& l : lineas)
            contrapartida(f, l.section(';', 0, 0), l.section(';', 1, 1), l.section(';', 2, 2));
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList{mensaje});
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Critico});
        QCOMPARE(lineasGuardadas(), QStringList());
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->ListViewApunte()->filas(), 1 + lineas.size());
        QCOMPARE(f->txt(2)->text(), QStringLiteral("FV00027"));
    }

    // Only the nearest tab that takes part can be reached; leaving the first tab requires
    // its fields; storing is for the last tab only.
    void pestanas() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "100");
        f->TabStripApuntes()->setCurrentIndex(1);  // IVA: not in this entry
        QCOMPARE(f->pestana(), 1);
        QCOMPARE(buzon.textos, QStringList());

        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList{"Operación sólo realizable desde la pantalla de "
                                           "contrapartidas."});
        buzon.vaciar();

        teclear(f->txt(6), "");
        f->TabStripApuntes()->setCurrentIndex(3);
        QCOMPARE(f->pestana(), 1);
        QCOMPARE(buzon.textos, QStringList{"El campo es obligatorio."});
        QCOMPARE(QApplication::focusWidget(), f->txt(6));
        buzon.vaciar();

        escribir(f->txt(6), "100");
        f->TabStripApuntes()->setCurrentIndex(3);  // by the mouse: the field is not left first
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(lineasEnPantalla(f), QStringList{"0000001 43000001 100 0 P"});

        // On the last tab cancelar does nothing; a double click on the main line goes back.
        pulsar(kCancelar);
        QCOMPARE(f->pestana(), 4);
        dobleClicEnLinea(f, 0);
        QCOMPARE(f->pestana(), 1);
        QCOMPARE(QApplication::focusWidget(), f->txt(0));
        QCOMPARE(buzon.textos, QStringList());

        // A document with VAT and portfolio typed and not left: it is read before the move,
        // and "Cartera" cannot be reached over "IVA".
        escribir(f->txt(1), "fr");
        f->TabStripApuntes()->setCurrentIndex(2);
        QCOMPARE(f->pestana(), 1);
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 2);
        QCOMPARE(f->marco(), 1);
        f->sig(1)->click();
        QCOMPARE(f->pestana(), 3);
        QCOMPARE(f->marco(), 2);
        f->ant(2)->click();
        QCOMPARE(f->pestana(), 2);
        QCOMPARE(buzon.textos, QStringList());
    }

    // A refused field keeps its text and the focus, and so does a move to another tab.
    void camposRechazados_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("account without postings") << 5 << "430"
                                                  << "Cuenta contable inexistente.";
        QTest::newRow("number of another form") << 2 << "FV27"
                                                << "El formato de la numeración no es correcto.";
        QTest::newRow("amount") << 6 << "12a"
                                << "El formato no es valido.";
    }
    void camposRechazados() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        frmApunte* f = abrirApunte();
        cabecera(f, "100");
        Buzon buzon;
        teclear(f->txt(indice), texto);
        QCOMPARE(buzon.textos, QStringList{mensaje});
        QTRY_COMPARE(QApplication::focusWidget(), f->txt(indice));
        QCOMPARE(f->txt(indice)->text(), texto);
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 1);
        QCOMPARE(buzon.textos, (QStringList{mensaje, mensaje}));
    }

    // Counterpart lines: taken back to the fields by a double click and added again in their
    // place; a debit wins over a credit; a zero line is dropped.
    void lineasDeContrapartida() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "300");
        pulsar(kSiguiente);
        contrapartida(f, "70.1", "", "100");
        contrapartida(f, "477.1", "", "200");
        dobleClicEnLinea(f, 1);
        QCOMPARE(f->txt(54)->text() + '|' + f->txt(55)->text() + '|' + f->txt(56)->text(),
                 QStringLiteral("70000001|0|100"));
        QCOMPARE(f->txt(60)->text(), QStringLiteral("100"));
        contrapartida(f, f->txt(54)->text(), "", "150");
        contrapartida(f, "572.1", "10", "20");
        contrapartida(f, "572.1", "0", "0");
        QCOMPARE(lineasEnPantalla(f),
                 (QStringList{"0000001 43000001 300 0 P", "0000002 70000001 0 150 CP",
                              "0000003 47700001 0 200 CP", "0000004 57200001 10 0 CP"}));
        QCOMPARE(f->txt(54)->text() + f->txt(55)->text() + f->txt(56)->text(), QString());
        QCOMPARE(buzon.textos, QStringList());
    }

    // The third party's counterpart account balances the entry on arrival, once.
    void contrapartidaPropuesta() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "0");
        f->ponerCtaContrapartida("70000001");
        pulsar(kSiguiente);
        QCOMPARE(f->ListViewApunte()->filas(), 1);  // balance 0: nothing proposed yet
        contrapartida(f, "572.1", "150,25", "", "Cobro");
        // The focus back on the account field proposes the lacking credit.
        QCOMPARE(lineasEnPantalla(f),
                 (QStringList{"0000001 43000001 0 0 P", "0000002 57200001 150,25 0 CP",
                              "0000003 70000001 0 150,25 CP"}));
        QCOMPARE(f->ListViewApunte()->topLevelItem(2)->text(5), QStringLiteral("Factura 27"));
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));
        contrapartida(f, "572.1", "5", "");
        QCOMPARE(f->ListViewApunte()->filas(), 4);  // proposed once only
        QCOMPARE(buzon.textos, QStringList());
    }

    // An entry typed by its number is shown read-only; borrar asks and removes it with its
    // register rows and due items, and nothing of another entry.
    void mostrarYBorrar() {
        const LineasAsiento lineas = [] {
            LineasAsiento l;
            l.AnadirLinea(0, "", "43000001", 1210.5, 0, "Factura 27", "P");
            l.AnadirLinea(0, "", "70000001", 0, 1000, "Ventas", "CP");
            l.AnadirLinea(0, "", "47700001", 0, 210.5, "IVA", "IVA");
            return l;
        }();
        for (const QString numero : {"FV00027", "FV00028"})
            GrabarAsiento(
                *sesion_conexion, {"GEN", "FV", numero, "15/03/" + kAnio, "14/03/" + kAnio, "R"},
                lineas, "ANA", [&](Conexion& c) {
                    RegistroIva::Insert(c, "EMP", "EMP", "FV", numero, 3, "R", "C", "C1", "G", 1000,
                                        21, 210, 0, 0, "ANA");
                    RegistroIrpf::Insert(c, "EMP", "EMP", "FV", numero, 3, "C", "C1", "P", 1000, 15,
                                         150, "ANA");
                    cartera::Insert(c, "EMP", "EMP", "FV", numero, 1, "15/04/" + kAnio, "C", "C1",
                                    "Vto.", "C", "P", 1210.5, QVariant(), "", "", "ANA");
                });
        Buzon buzon;
        frmApunte* f = abrirApunte();
        teclear(f->txt(1), "fv");
        teclear(f->txt(2), "fv00027");
        QVERIFY(f->mostrando());
        QCOMPARE(f->txt(0)->text() + '|' + f->txt(3)->text() + '|' + f->txt(5)->text() + '|' +
                     f->txt(6)->text() + '|' + f->txt(8)->text(),
                 "GEN|15/03/" + kAnio + "|43000001|1210,5|Factura 27");
        QCOMPARE(f->des(5)->text(), QStringLiteral("Subcuenta 43000001"));
        QVERIFY(!f->txt(5)->isEnabled());
        QVERIFY(!f->txt(54)->isEnabled());
        QVERIFY(!Boton(f->barra(), claves::insertar)->isEnabled());
        QCOMPARE(f->ListViewApunte()->filas(), 3);

        // Its tabs can be walked; cancelar on the last one does nothing.
        pulsar(kSiguiente);
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));
        pulsar(kCancelar);
        QVERIFY(f->mostrando());
        pulsar(kAnterior);
        QCOMPARE(f->pestana(), 1);

        buzon.respuestas = {Respuesta::No};
        pulsar(kBorrar);
        QCOMPARE(buzon.ultimo(),
                 QStringLiteral("¿Desea eliminar el asiento FV/FV00027? (Los datos "
                                "relacionados con el asiento también se eliminarán)"));
        QCOMPARE(filas("Apuntes"), 6);
        buzon.respuestas = {Respuesta::Si};
        pulsar(kBorrar);
        const QString suyo = "numero_documento = 'FV00027'";
        QCOMPARE(filas("Apuntes", suyo) + filas("RegistroIva", suyo) + filas("RegistroIrpf", suyo) +
                     filas("Cartera", suyo),
                 0);
        QCOMPARE(filas("Apuntes") + filas("RegistroIva") + filas("RegistroIrpf") + filas("Cartera"),
                 6);
        QVERIFY(!f->mostrando());
        QVERIFY(f->txt(5)->isEnabled());
        QCOMPARE(f->txt(1)->text(), QString());
        QCOMPARE(buzon.iconos, (QList<Icono>{Icono::Pregunta, Icono::Pregunta}));
    }

    // The store fails on the third line: nothing of the entry is written, the error shows,
    // and the entry stays on the screen to be stored once the store is well again.
    void falloAlGrabar() {
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "1210,5");
        pulsar(kSiguiente);
        contrapartida(f, "70.1", "", "1000");
        contrapartida(f, "477.1", "", "210,5");
        {
            FalloProvocado fallo(3);
            pulsar(kInsertar);
        }
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().contains("fallo provocado"), qPrintable(buzon.ultimo()));
        QCOMPARE(buzon.iconos, QList<Icono>{Icono::Critico});
        QCOMPARE(lineasGuardadas(), QStringList());
        QCOMPARE(f->pestana(), 4);
        QCOMPARE(f->ListViewApunte()->filas(), 3);
        QCOMPARE(f->txt(2)->text(), QStringLiteral("FV00027"));

        pulsar(kInsertar);
        QCOMPARE(buzon.textos.size(), 1);
        QCOMPARE(lineasGuardadas().size(), 3);
        QCOMPARE(filas("Apuntes", "numero_documento = 'FV00027' AND codigo_diario = 'GEN'"), 3);
    }

    void sinEjercicio() {
        Buzon buzon;
        sesion_ejercicio = 0;
        QVERIFY(!formularios::abrir("frmApunte"));
        QCOMPARE(buzon.textos,
                 QStringList{"No se ha especificado la empresa, la delegación o el ejercicio."});
    }
};

QTEST_MAIN(PruebaApunte)
#include "prueba_apunte.moc"
