// The entry form driven as a bookkeeper drives it: header, main line, the tabs, counterpart
// lines and insertar from the keyboard; the refusals of the final checks with nothing written;
// an entry shown by its number and deleted with what hangs from it; a save that fails half
// way leaving the store untouched and the entry on the screen; an entry not stored that no
// road throws away unasked, and the number drawn for it given back to its series.
#include "comun/almacen_prueba.h"
#include "comun/apunte_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/sesion_prueba.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cartera.h"
#include "data/entidades/documentos.h"
#include "data/entidades/numeracion.h"
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
#include "session/frmlogin.h"
#include "session/frmmain.h"
#include "session/sesion.h"

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

void dobleClicEnLinea(frmApunte* f, int fila) {
    emit f->ListViewApunte()->itemActivated(f->ListViewApunte()->topLevelItem(fila), 0);
    QApplication::processEvents();
}

// The entry form inside the main window of a session, as the menu opens it.
frmApunte* abrirEnPrincipal() {
    VentanasPrograma().mostrarPrincipal();
    activar(principal());
    return abrirApunte();
}

// The number the series FAC hands out next.
int siguienteDeLaSerie() {
    return numeracion::GetList(*sesion_conexion, "numeracion = 'FAC'", {})["numero"].toInt();
}

// An entry of the store, FV00020, to be shown by its number.
void grabarFv20() {
    LineasAsiento l;
    l.AnadirLinea(0, "", "43000001", 100, 0, "Cobro", "P");
    l.AnadirLinea(0, "", "70000001", 0, 100, "Cobro", "CP");
    GrabarAsiento(*sesion_conexion, {"GEN", "FV", "FV00020", "15/03/" + kAnio, "", ""}, l, "ANA");
}

// The four roads that would throw an entry away.
enum class Camino { Cerrar, Cancelar, Salir, CambioDeSesion };

}  // namespace

Q_DECLARE_METATYPE(Camino)
Q_DECLARE_METATYPE(Respuesta)

class PruebaApunte : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
    int finales = 0;  // the ends of the run that Salir asked for
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosAsientos();
        establecerFinProceso([this] { ++finales; });
    }
    void init() {
        almacen->nuevo();
        prepararAsientos();
        finales = 0;
    }
    void cleanup() {
        for (Formulario* f : formularios::abiertos()) delete f->ventana();
        delete principal();
        olvidarPrincipal();
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
        // Stored as typed, a fraction of a cent would differ from what every book prints.
        QTest::newRow("fraction of a cent") << 6 << "100,555"
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

    // Amounts as a Spanish bookkeeper writes them, on the main line and a counterpart line.
    void importesEscritos_data() {
        QTest::addColumn<QString>("importe");
        QTest::addColumn<QString>("linea");
        QTest::newRow("thousands and decimal comma") << "1.210,00"
                                                     << "0000001 43000001 1210 0 P";
        QTest::newRow("decimal point") << "1210.5"
                                       << "0000001 43000001 1210,5 0 P";
        QTest::newRow("trailing zero after the cents") << "99,990"
                                                       << "0000001 43000001 99,99 0 P";
    }
    void importesEscritos() {
        QFETCH(QString, importe);
        QFETCH(QString, linea);
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, importe);
        pulsar(kSiguiente);
        contrapartida(f, "70.1", "", importe);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(lineasEnPantalla(f).value(0), linea);
        QCOMPARE(f->txt(60)->text(), QStringLiteral("0"));
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

    // Closing the window, cancelar, Salir and the change of session each ask before an entry
    // typed and not stored is lost, in one question; No keeps it on the screen with its
    // number, Yes discards it and gives the number back. A form untouched or showing a stored
    // entry holds nothing to lose: the first two roads ask nothing, the last two only their
    // own question.
    void descartarPreguntando_data() {
        QTest::addColumn<QString>("estado");  // "escrito", "sin numero", "intacto", "mostrado"
        QTest::addColumn<Camino>("camino");
        QTest::addColumn<Respuesta>("respuesta");
        QTest::addColumn<QStringList>("preguntas");
        QTest::addColumn<bool>("abierto");    // the form open afterwards
        QTest::addColumn<QString>("numero");  // txt(2) afterwards, when open
        QTest::addColumn<int>("siguiente");   // the series' next number afterwards
        const QString aviso =
            "En «Entrada de apuntes», el asiento FV00027 no está grabado y se descartará.\n";
        const QString cerrar = "¿Desea cerrar la ventana?";
        const QString cancelar =
            "El asiento FV00027 no está grabado. ¿Desea descartarlo y empezar uno nuevo?";
        const QString salir = "¿Realmente quiere salir de Saldeva?";
        const QString cambio = "¿Realmente desea cambiar de empresa Saldeva?";
        const auto no = Respuesta::No, si = Respuesta::Si;
        const auto uno = [](const QString& t) { return QStringList{t}; };
        QTest::newRow("typed, closed, No")
            << "escrito" << Camino::Cerrar << no << uno(aviso + cerrar) << true << "FV00027" << 28;
        QTest::newRow("typed, closed, Yes")
            << "escrito" << Camino::Cerrar << si << uno(aviso + cerrar) << false << "" << 27;
        QTest::newRow("typed, cancelar, No")
            << "escrito" << Camino::Cancelar << no << uno(cancelar) << true << "FV00027" << 28;
        QTest::newRow("typed, cancelar, Yes")
            << "escrito" << Camino::Cancelar << si << uno(cancelar) << true << "" << 27;
        QTest::newRow("typed, Salir, No")
            << "escrito" << Camino::Salir << no << uno(aviso + salir) << true << "FV00027" << 28;
        QTest::newRow("typed, Salir, Yes")
            << "escrito" << Camino::Salir << si << uno(aviso + salir) << true << "" << 27;
        QTest::newRow("typed, change of session, No")
            << "escrito" << Camino::CambioDeSesion << no << uno(aviso + cambio) << true << "FV00027"
            << 28;
        QTest::newRow("typed, change of session, Yes") << "escrito" << Camino::CambioDeSesion << si
                                                       << uno(aviso + cambio) << false << "" << 27;
        QTest::newRow("no number yet, cancelar, No")
            << "sin numero" << Camino::Cancelar << no
            << uno("El asiento en curso no está grabado. ¿Desea descartarlo y empezar uno nuevo?")
            << true << "" << 27;
        QTest::newRow("no number yet, Salir, No")
            << "sin numero" << Camino::Salir << no
            << uno("En «Entrada de apuntes», el asiento en curso no está grabado y se "
                   "descartará.\n" +
                   salir)
            << true << "" << 27;
        QTest::newRow("untouched, closed")
            << "intacto" << Camino::Cerrar << si << QStringList() << false << "" << 27;
        QTest::newRow("untouched, cancelar")
            << "intacto" << Camino::Cancelar << si << QStringList() << true << "" << 27;
        QTest::newRow("untouched, Salir")
            << "intacto" << Camino::Salir << si << uno(salir) << true << "" << 27;
        QTest::newRow("untouched, change of session")
            << "intacto" << Camino::CambioDeSesion << si << uno(cambio) << false << "" << 27;
        QTest::newRow("shown, closed")
            << "mostrado" << Camino::Cerrar << si << QStringList() << false << "" << 27;
        QTest::newRow("shown, cancelar")
            << "mostrado" << Camino::Cancelar << si << QStringList() << true << "" << 27;
        QTest::newRow("shown, Salir")
            << "mostrado" << Camino::Salir << si << uno(salir) << true << "FV00020" << 27;
        QTest::newRow("shown, change of session")
            << "mostrado" << Camino::CambioDeSesion << si << uno(cambio) << false << "" << 27;
    }
    void descartarPreguntando() {
        QFETCH(QString, estado);
        QFETCH(Camino, camino);
        QFETCH(Respuesta, respuesta);
        QFETCH(QStringList, preguntas);
        QFETCH(bool, abierto);
        QFETCH(QString, numero);
        QFETCH(int, siguiente);
        if (estado == "mostrado") grabarFv20();
        frmApunte* f = abrirEnPrincipal();
        QVERIFY(f);
        if (estado == "escrito") {
            cabecera(f, "100");
            QCOMPARE(f->txt(2)->text(), QStringLiteral("FV00027"));
        } else if (estado == "sin numero") {
            teclear(f->txt(0), "gen");
        } else if (estado == "mostrado") {
            teclear(f->txt(1), "fv");
            teclear(f->txt(2), "fv00020");
            QVERIFY(f->mostrando());
        }
        const bool conTrabajo = estado == "escrito" || estado == "sin numero";

        Buzon buzon;
        buzon.respuestas = {respuesta};
        switch (camino) {
            case Camino::Cerrar:
                f->ventana()->close();
                break;
            case Camino::Cancelar:
                pulsar(kCancelar);
                break;
            case Camino::Salir:
                principal()->cmdSalir()->click();
                break;
            case Camino::CambioDeSesion:
                // Agreed, the change goes on to the login, which is cancelled.
                if (respuesta == Respuesta::Si)
                    responderLogin([](frmLogin& login) { login.cmdCancel()->click(); });
                principal()->cmdReiniciar()->click();
                break;
        }
        QCOMPARE(buzon.textos, preguntas);
        QCOMPARE(buzon.iconos, QList<Icono>(preguntas.size(), Icono::Pregunta));
        QCOMPARE(bool(formularios::buscar("frmApunte")), abierto);
        if (abierto) {
            QCOMPARE(f->txt(2)->text(), numero);
            // Kept, the entry is all there; discarded, nothing of it.
            const bool sigue = conTrabajo && respuesta == Respuesta::No;
            QCOMPARE(f->sinGrabar(), sigue);
            if (estado == "escrito")
                QCOMPARE(f->txt(8)->text(), sigue ? QStringLiteral("Factura 27") : QString());
        }
        QCOMPARE(siguienteDeLaSerie(), siguiente);
        QCOMPARE(finales, camino == Camino::Salir && respuesta == Respuesta::Si ? 1 : 0);
        // Agreed once, the change of session closes every form without asking again.
        if (camino == Camino::CambioDeSesion && respuesta == Respuesta::Si)
            QCOMPARE(formularios::abiertos(), QList<Formulario*>());
    }

    // A number drawn with "0" and then let go goes back to its series when nothing was drawn
    // from the series after it, so that one workstation leaves no gap; a number drawn
    // meanwhile keeps the gap; a stored entry keeps its number.
    void numeroDeLaSerie_data() {
        QTest::addColumn<QString>("despues");  // what follows the drawing of FV00027
        QTest::addColumn<QString>("numero");   // txt(2) afterwards
        QTest::addColumn<int>("siguiente");    // the series' next number
        QTest::newRow("discarded with cancelar: no gap") << "cancelar"
                                                         << "" << 27;
        QTest::newRow("another 0 receives the same number") << "otro 0"
                                                            << "FV00027" << 28;
        QTest::newRow("another number typed over it") << "FV00099"
                                                      << "FV00099" << 27;
        QTest::newRow("number erased") << ""
                                       << "" << 27;
        QTest::newRow("another document of the same series and prefix") << "documento fr"
                                                                        << "FV00027" << 28;
        QTest::newRow("a document of another series") << "documento ab"
                                                      << "" << 27;
        QTest::newRow("a later number drawn elsewhere: the gap stays") << "otro puesto y cancelar"
                                                                       << "" << 29;
        QTest::newRow("stored: the number is the entry's") << "grabar"
                                                           << "" << 28;
    }
    void numeroDeLaSerie() {
        QFETCH(QString, despues);
        QFETCH(QString, numero);
        QFETCH(int, siguiente);
        Buzon buzon;
        buzon.respuestas = {Respuesta::Si};
        frmApunte* f = abrirApunte();
        cabecera(f, "0");
        QCOMPARE(f->txt(2)->text(), QStringLiteral("FV00027"));
        QCOMPARE(siguienteDeLaSerie(), 28);
        if (despues == "cancelar") {
            pulsar(kCancelar);
        } else if (despues == "otro 0") {
            teclear(f->txt(2), "0");
        } else if (despues.startsWith("documento")) {
            numeracion::Insert(*sesion_conexion, "EMP", sesion_ejercicio, "ABO", 5, 1, "Abonos",
                               "PRUEBA");
            Documentos::Insert(*sesion_conexion, "EMP", "AB", "Abono", "H", "N", "N", "ABO", "AB",
                               "PRUEBA");
            teclear(f->txt(1), despues.section(' ', 1));
        } else if (despues == "otro puesto y cancelar") {
            QCOMPARE(SiguienteNumero("EMP", sesion_ejercicio, "FAC"), QStringLiteral("00028"));
            pulsar(kCancelar);
        } else if (despues == "grabar") {
            pulsar(kSiguiente);
            pulsar(kInsertar);
            QCOMPARE(lineasGuardadas(), QStringList{"1|43000001|0|0|P"});
        } else {
            teclear(f->txt(2), despues);
        }
        QCOMPARE(f->txt(2)->text(), numero);
        QCOMPARE(siguienteDeLaSerie(), siguiente);
        QCOMPARE(buzon.textos.size(), despues.contains("cancelar") ? 1 : 0);
    }

    // F2 says in the main window's state panel which entry it stored and with how many lines.
    void estadoTrasGrabar_data() {
        QTest::addColumn<QString>("importe");
        QTest::addColumn<QStringList>("lineas");  // "account;debit;credit"
        QTest::addColumn<QString>("estado");
        QTest::newRow("one line") << "0" << QStringList() << "Asiento FV00027 grabado, 1 línea";
        QTest::newRow("two lines")
            << "100" << QStringList{"70.1;;100"} << "Asiento FV00027 grabado, 2 líneas";
        QTest::newRow("three lines") << "1210,5" << QStringList{"70.1;;1000", "477.1;;210,5"}
                                     << "Asiento FV00027 grabado, 3 líneas";
    }
    void estadoTrasGrabar() {
        QFETCH(QString, importe);
        QFETCH(QStringList, lineas);
        QFETCH(QString, estado);
        Buzon buzon;
        frmApunte* f = abrirEnPrincipal();
        QCOMPARE(principal()->panel(1)->text(), QStringLiteral("Estado"));
        cabecera(f, importe);
        pulsar(kSiguiente);
        for (const QString& l : lineas)
            contrapartida(f, l.section(';', 0, 0), l.section(';', 1, 1), l.section(';', 2, 2));
        QCOMPARE(principal()->panel(1)->text(), QStringLiteral("Estado"));
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(lineasGuardadas().size(), lineas.size() + 1);
        QCOMPARE(principal()->panel(1)->text(), estado);
    }

    // A counterpart line shows its account's name once the account is left, and arrives at
    // its concept with the entry's, which the user may keep, replace or erase. Added, the line
    // leaves the fields and the name empty; taken back, it brings both again.
    void subcuentaYConcepto_data() {
        QTest::addColumn<QString>("cuenta");
        QTest::addColumn<QString>("nombre");    // beside the account once it is left
        QTest::addColumn<QString>("concepto");  // typed over the proposal; null: kept
        QTest::addColumn<QString>("enLinea");   // the concept of the line added
        QTest::newRow("proposal kept") << "70.1"
                                       << "Subcuenta 70000001" << QString() << "Factura 27";
        QTest::newRow("proposal replaced") << "477.1"
                                           << "Subcuenta 47700001"
                                           << "IVA repercutido"
                                           << "IVA repercutido";
        QTest::newRow("proposal erased") << "70.1"
                                         << "Subcuenta 70000001"
                                         << ""
                                         << "";
    }
    void subcuentaYConcepto() {
        QFETCH(QString, cuenta);
        QFETCH(QString, nombre);
        QFETCH(QString, concepto);
        QFETCH(QString, enLinea);
        Buzon buzon;
        frmApunte* f = abrirApunte();
        cabecera(f, "100");
        pulsar(kSiguiente);
        QCOMPARE(f->des(54)->text(), QString());
        teclear(f->txt(54), cuenta);
        QCOMPARE(f->des(54)->text(), nombre);
        teclear(f->txt(55), "");
        teclear(f->txt(56), "100");
        QCOMPARE(QApplication::focusWidget(), f->txt(57));
        QCOMPARE(f->txt(57)->text(), QStringLiteral("Factura 27"));
        if (concepto.isNull())
            salir(f->txt(57));
        else
            teclear(f->txt(57), concepto);
        QCOMPARE(QApplication::focusWidget(), f->btnContrapartida());
        QTest::keyClick(f->btnContrapartida(), Qt::Key_Return);
        QCOMPARE(f->ListViewApunte()->filas(), 2);
        QCOMPARE(f->ListViewApunte()->texto(1, 5), enLinea);
        QCOMPARE(f->des(54)->text() + f->txt(54)->text() + f->txt(57)->text(), QString());

        dobleClicEnLinea(f, 1);
        QCOMPARE(f->des(54)->text(), nombre);
        QCOMPARE(f->txt(57)->text(), enLinea);
        // Emptied, the account has no name beside it; a refused one neither.
        teclear(f->txt(54), "");
        QCOMPARE(f->des(54)->text(), QString());
        teclear(f->txt(54), cuenta);
        teclear(f->txt(54), "430");
        QCOMPARE(f->des(54)->text(), QString());
        QCOMPARE(buzon.textos, QStringList{"Cuenta contable inexistente."});
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
