// The portfolio by hand: every save keeps the due dates of a document adding up to line 1 of
// its entry (so a due date cannot be split by hand), the third party must be the one of that
// line, the delete asks first, finds line 1 by its quoted text on both stores and skips the sum
// test, and the filter keeps its cleared-form quirks.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cartera.h"
#include "data/entidades/personal.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "portfolio/formularios_cartera.h"

#include <QAction>
#include <QApplication>
#include <QDate>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSet>
#include <QtTest>

namespace {

QString m(int codigo) {
    return MensajeError(codigo);
}

const QString kVto = QStringLiteral("31/03/2026"), kVto2 = QStringLiteral("30/04/2026");
const QStringList kClave{"0=FV", "1=FV00027", "2=" + kVto};

// On top of the entries' fixtures: the third parties C1 (customer on 43000001) and C2 (on
// 70000001); the entry FV FV00027 of the branch, 43000001 debit 121 and 70000001 credit 121;
// and FR FR00001, whose line 1 is 43000001 credit 50.
void datosBase() {
    prepararAsientos();
    Conexion& c = *sesion_conexion;
    Personal::Insert(c, "EMP", "C1", "Ferretería Pérez, S.L.", "B12345674", "", "", "", "", "", "",
                     "", "", "PRUEBA");
    Personal::Insert(c, "EMP", "C2", "Otro cliente", "12345678Z", "", "", "", "", "", "", "", "",
                     "PRUEBA");
    acrdeu::Insert(c, "EMP", "43000001", "C1", "CLI", "N", "", "", 0, 0, "", "", "PRUEBA");
    acrdeu::Insert(c, "EMP", "70000001", "C2", "PRO", "N", "", "", 0, 0, "", "", "PRUEBA");
    const QDate hoy = QDate::currentDate();
    const struct {
        const char* documento;
        const char* numero;
        int linea;
        const char* cuenta;
        double debe, haber;
    } lineas[] = {{"FV", "FV00027", 1, "43000001", 121, 0},
                  {"FV", "FV00027", 2, "70000001", 0, 121},
                  {"FR", "FR00001", 1, "43000001", 0, 50},
                  {"FR", "FR00001", 2, "57200001", 50, 0}};
    for (const auto& l : lineas)
        Apuntes::Insert(c, "EMP", "EMP", l.documento, l.numero, l.linea, "GEN", hoy, hoy, "",
                        l.cuenta, "Factura", l.debe, l.haber, "P", "", "PRUEBA");
}

struct Vto {
    QString documento = QStringLiteral("FV"), numero = QStringLiteral("FV00027");
    QString fecha = kVto;
    double importe = 121;
    QString estado = QStringLiteral("P"), tipo = QStringLiteral("C");
    QString personal = QStringLiteral("C1"), concepto;
    QString delegacion = QStringLiteral("EMP");
    int linea = 1;
    QString cierre, documentoCierre, numeroCierre;
};

void vencimiento(const Vto& v) {
    cartera::Insert(*sesion_conexion, "EMP", v.delegacion, v.documento, v.numero, v.linea, v.fecha,
                    "CLI", v.personal, v.concepto, v.tipo, v.estado, v.importe, v.cierre,
                    v.documentoCierre, v.numeroCierre, "PRUEBA");
}

// The due dates of FV00027 at kVto and kVto2 for the given amounts (0: none).
void plazos(double primero, double segundo) {
    if (primero) vencimiento({.importe = primero});
    if (segundo) vencimiento({.fecha = kVto2, .importe = segundo});
}

QString clave(const QString& documento, const QString& numero, const QString& fecha) {
    return "K" + documento.rightJustified(15) + numero.rightJustified(10) + fecha;
}

// "3=texto" pairs typed and left, as rellenar; a "~" before the index types the text and
// stays in the field.
void teclearCampos(FormularioMantenimiento* f, const QStringList& campos) {
    for (QString c : campos) {
        const bool quedarse = c.startsWith(u'~');
        if (quedarse) c.remove(0, 1);
        QLineEdit* campo = f->txt(c.section(u'=', 0, 0).toInt());
        if (quedarse)
            escribir(campo, c.section(u'=', 1));
        else
            teclear(campo, c.section(u'=', 1));
    }
}

QStringList filasDe(const ListaClaves* lista) {
    QStringList t;
    for (int i = 0; i < lista->filas(); ++i) {
        QStringList celdas;
        for (int c = 0; c < lista->columnCount(); ++c) celdas << lista->texto(i, c);
        t << celdas.join(u'|');
    }
    return t;
}

QStringList clavesDe(const ListaClaves* lista) {
    QStringList t;
    for (int i = 0; i < lista->filas(); ++i) t << ListaClaves::clave(lista->topLevelItem(i));
    t.sort();  // no order is asked of the store
    return t;
}

void elegirFila(FormularioMantenimiento* f, int fila) {
    f->lista()->setFocus();
    f->lista()->setCurrentItem(f->lista()->topLevelItem(fila));
    QTest::keyClick(f->lista(), Qt::Key_Return);
}

QRadioButton* opcion(FormularioMantenimiento* f, const char* nombre) {
    return f->findChild<QRadioButton*>(QString::fromLatin1(nombre));
}

}  // namespace

Q_DECLARE_METATYPE(Respuesta)

class PruebaCartera : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaCartera() : PruebaFormularios(registrarFormulariosCartera, datosBase) {}

private Q_SLOTS:

    // A due date of the whole line, typed from the keyboard: stored on line 1 with the kind of
    // the third party and the options, the concept as typed, apostrophe and all. The new list
    // row shows no number and no date until the list is filled again, and choosing it reads
    // those blanks.
    void alta() {
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        QCOMPARE(f->txt(4)->text(), QStringLiteral("0,00"));
        Buzon buzon;
        teclearCampos(f, kClave + QStringList{"3=Plazo d'Ana", "4=121", "5=C1"});
        QCOMPARE(f->txt(4)->text(), QStringLiteral("121,00"));
        QCOMPARE(f->des(5)->text(), QStringLiteral("Ferretería Pérez, S.L."));
        opcion(f, "opt_tipo(1)")->click();
        opcion(f, "opt_estado(2)")->click();
        f->txt(0)->setFocus();
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("Cartera",
                       "codigo_empresa = 'EMP' AND codigo_delegacion = 'EMP' AND "
                       "codigo_documento = 'FV' AND numero_documento = 'FV00027' AND "
                       "numero_apunte = 1 AND fecha_vto = '20260331' AND tipo_acrdeu = 'CLI' AND "
                       "codigo_personal = 'C1' AND concepto = 'Plazo d''Ana' AND tipo = 'P' AND "
                       "estado = 'D' AND importe = 121 AND fecha_cierre = '' AND "
                       "ultimo_usuario = 'ANA'"),
                 1);
        QCOMPARE(f->txt(0)->text(), QString());
        QCOMPARE(f->txt(4)->text(), QStringLiteral("0,00"));
        QVERIFY(opcion(f, "opt_tipo(0)")->isChecked() && opcion(f, "opt_estado(0)")->isChecked());
        const QString k = clave("FV", "FV00027", "20260331");
        QCOMPARE(filasDe(f->lista()), QStringList("FV|||Plazo d'Ana|121,00|C1|D|P|||"));
        QCOMPARE(clavesDe(f->lista()), QStringList(k));
        elegirFila(f, 0);
        QCOMPARE(f->txt(0)->text(), QStringLiteral("FV"));
        QCOMPARE(f->txt(1)->text(), QString());
        QCOMPARE(f->txt(2)->text(), QString());
        QCOMPARE(f->txt(3)->text(), QString());
        pulsar(kListar);
        QCOMPARE(filasDe(f->lista()),
                 QStringList("FV|FV00027|31/03/2026|Plazo d'Ana|121,00|C1|D|P|||"));
        QCOMPARE(clavesDe(f->lista()), QStringList(k));
        QCOMPARE(buzon.textos, QStringList());
    }

    // Each save against the sum of the due dates of the document and line 1 of its entry:
    // what is said (nothing when it saves) and where the focus goes. A refusal writes nothing
    // and keeps the fields.
    void guardar_data() {
        QTest::addColumn<QList<double>>("antes");  // FV00027 at kVto and kVto2
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QKeySequence>("tecla");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<int>("foco");
        const QList<double> nada{0, 0}, entera{121, 0}, mitades{60.5, 60.5};
        const QStringList segundo{"0=FV", "1=FV00027", "2=" + kVto2};
        const QStringList c1{"5=C1", "3=Cambiado"};
        QTest::newRow("whole amount")
            << nada << kClave + c1 + QStringList{"4=121"} << kInsertar << QString() << -1;
        QTest::newRow("one cent less")
            << nada << kClave + c1 + QStringList{"4=120,99"} << kInsertar << m(1044) << 4;
        QTest::newRow("amount typed, not left")
            << nada << kClave + c1 + QStringList{"~4=121"} << kInsertar << QString() << -1;
        QTest::newRow("first half by hand")
            << nada << kClave + c1 + QStringList{"4=60,50"} << kInsertar << m(1044) << 4;
        QTest::newRow("lowering the whole one")
            << entera << kClave + c1 + QStringList{"4=60,50"} << kModificar << m(1044) << 4;
        QTest::newRow("adding a half to the whole one")
            << entera << segundo + c1 + QStringList{"4=60,50"} << kInsertar << m(1044) << 4;
        QTest::newRow("one of two halves, same amount")
            << mitades << kClave + c1 + QStringList{"4=60,50"} << kModificar << QString() << -1;
        QTest::newRow("a half whose other half was deleted")
            << QList<double>{60.5, 0} << kClave + c1 + QStringList{"4=60,50"} << kModificar
            << m(1044) << 4;
        QTest::newRow("line 1 on the credit side")
            << nada << QStringList{"0=FR", "1=FR00001", "2=" + kVto, "4=50"} + c1 << kInsertar
            << QString() << -1;
        QTest::newRow("document without entry")
            << nada << QStringList{"0=FV", "1=FV00099", "2=" + kVto, "4=10"} + c1 << kInsertar
            << m(1044) << 4;
        QTest::newRow("document without entry, amount 0")
            << nada << QStringList{"0=ZZ", "1=FV00099", "2=" + kVto, "4=0"} + c1 << kInsertar
            << m(1034) << -1;
        QTest::newRow("document without entry, amount blank")
            << nada << QStringList{"0=FV", "1=FV00099", "2=" + kVto, "4="} + c1 << kInsertar
            << m(1034) << -1;
        QTest::newRow("third party not on line 1")
            << nada << kClave + QStringList{"4=121", "5=C2"} << kInsertar << m(1034) << -1;
        QTest::newRow("no third party")
            << nada << kClave + QStringList{"4=121", "5="} << kInsertar << m(1034) << -1;
        QTest::newRow("third party not on line 1, on modify")
            << entera << kClave + QStringList{"4=121", "5=C2"} << kModificar << m(1034) << -1;
        QTest::newRow("key exists")
            << entera << kClave + c1 + QStringList{"4=121"} << kInsertar << m(1045) << -1;
        QTest::newRow("modify a missing one")
            << nada << kClave + c1 + QStringList{"4=121"} << kModificar << m(1046) << -1;
        QTest::newRow("amount with a fraction of a cent, not left")
            << nada << kClave + c1 + QStringList{"~4=120,999"} << kInsertar << m(1004) << 4;
        QTest::newRow("amount not a number, not left")
            << nada << kClave + c1 + QStringList{"~4=ciento"} << kModificar << m(1004) << 4;
        QTest::newRow("date not left") << nada << c1 + QStringList{"0=FV", "1=FV00027", "~2=31/02"}
                                       << kInsertar << m(1004) << 2;
        QTest::newRow("document empty")
            << nada << QStringList{"1=FV00027", "2=" + kVto, "4=121"} << kInsertar << m(1000) << 0;
        QTest::newRow("date empty")
            << nada << QStringList{"0=FV", "1=FV00027", "4=121"} << kModificar << m(1000) << 2;
    }
    void guardar() {
        QFETCH(QList<double>, antes);
        QFETCH(QStringList, campos);
        QFETCH(QKeySequence, tecla);
        QFETCH(QString, mensaje);
        QFETCH(int, foco);
        plazos(antes[0], antes[1]);
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        teclearCampos(f, campos);
        QStringList tecleado;
        for (int i = 0; i < 9; ++i) tecleado << f->txt(i)->text();
        if (!campos.last().startsWith(u'~')) f->txt(0)->setFocus();
        const int filasAntes = filas("Cartera");
        Buzon buzon;
        pulsar(tecla);
        QCOMPARE(buzon.textos, mensaje.isEmpty() ? QStringList() : QStringList(mensaje));
        QCOMPARE(buzon.iconos, mensaje.isEmpty() ? QList<Icono>() : QList<Icono>{Icono::Critico});
        const bool guardado = mensaje.isEmpty();
        QCOMPARE(filas("Cartera", "concepto = 'Cambiado' AND numero_apunte = 1"), guardado ? 1 : 0);
        QCOMPARE(filas("Cartera"), filasAntes + (guardado && tecla == kInsertar ? 1 : 0));
        if (guardado) {
            QCOMPARE(f->txt(0)->text(), QString());
        } else {
            for (int i = 0; i < 9; ++i) QCOMPARE(f->txt(i)->text(), tecleado[i]);
        }
        if (foco >= 0) QTRY_COMPARE(QApplication::focusWidget(), f->txt(foco));
    }

    // The checks on leaving a field, and what the field shows then: unknown codes are "Error
    // no definido.", dates must be dates, amounts numbers of whole cents rewritten as "0.00";
    // the document of the key is not checked.
    void comprobaciones_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("queda");
        const QString bien;
        QTest::newRow("document unknown") << 0 << "ZZ" << bien << "ZZ";
        QTest::newRow("due date not a date") << 2 << "31/02/2026" << m(1004) << "31/02/2026";
        QTest::newRow("due date") << 2 << "1/3/26" << bien << "1/3/26";
        QTest::newRow("amount not a number") << 4 << "cien" << m(1004) << "cien";
        QTest::newRow("amount with a fraction of a cent") << 4 << "100,005" << m(1004) << "100,005";
        QTest::newRow("amount with thousands") << 4 << "1.210,5" << bien << "1210,50";
        QTest::newRow("amount with a point") << 4 << "60.5" << bien << "60,50";
        QTest::newRow("amount blank") << 4 << "" << bien << "0,00";
        QTest::newRow("third party unknown") << 5 << "ZZ" << m(9999) << "ZZ";
        QTest::newRow("third party") << 5 << "C2" << bien << "C2";
        QTest::newRow("closing date not a date") << 6 << "mañana" << m(1004) << "mañana";
        QTest::newRow("closing document unknown") << 7 << "ZZ" << m(9999) << "ZZ";
        QTest::newRow("closing document") << 7 << "FR" << bien << "FR";
    }
    void comprobaciones() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        QFETCH(QString, queda);
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        comprobarSalida(f, indice, texto, mensaje);
        QCOMPARE(f->txt(indice)->text(), queda);
        if (indice == 5)
            QCOMPARE(f->des(5)->text(), mensaje.isEmpty() ? "Otro cliente" : QString());
        QCOMPARE(m(9999), QStringLiteral("Error no definido."));
    }

    // A stored due date loads when the three fields of its key hold text, typed or chosen in
    // the list: the closing fields, the name of the third party and both groups of buttons.
    void cargar_data() {
        QTest::addColumn<bool>("desdeLista");
        QTest::addColumn<QString>("estado");
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("estadoVisto");
        QTest::addColumn<QString>("tipoVisto");
        QTest::newRow("closed payment") << false << "C"
                                        << "P"
                                        << "opt_estado(1)"
                                        << "opt_tipo(1)";
        QTest::newRow("returned, from the list") << true << "D"
                                                 << "C"
                                                 << "opt_estado(2)"
                                                 << "opt_tipo(0)";
        QTest::newRow("pending collection") << false << "P"
                                            << "C"
                                            << "opt_estado(0)"
                                            << "opt_tipo(0)";
    }
    void cargar() {
        QFETCH(bool, desdeLista);
        QFETCH(QString, estado);
        QFETCH(QString, tipo);
        QFETCH(QString, estadoVisto);
        QFETCH(QString, tipoVisto);
        vencimiento({.estado = estado,
                     .tipo = tipo,
                     .concepto = "Plazo",
                     .cierre = "15/04/2026",
                     .documentoCierre = "FR",
                     .numeroCierre = "FR00001"});
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        Buzon buzon;
        // The buttons that the row must move.
        opcion(f, estado == "C" ? "opt_estado(2)" : "opt_estado(1)")->click();
        opcion(f, tipo == "P" ? "opt_tipo(0)" : "opt_tipo(1)")->click();
        if (desdeLista) {
            f->txt(0)->setFocus();
            pulsar(kListar);
            QCOMPARE(f->lista()->filas(), 1);
            elegirFila(f, 0);
        } else {
            teclearCampos(f, {"0=FV", "1=FV00027"});
            QCOMPARE(f->txt(3)->text(), QString());  // two fields of three load nothing
            teclearCampos(f, {"2=31/3/2026"});
        }
        QCOMPARE(buzon.textos, QStringList());
        QStringList vistos;
        for (int i = 0; i < 9; ++i) vistos << f->txt(i)->text();
        QCOMPARE(vistos.mid(3),
                 (QStringList{"Plazo", "121,00", "C1", "15/04/2026", "FR", "FR00001"}));
        QCOMPARE(f->des(5)->text(), QStringLiteral("Ferretería Pérez, S.L."));
        QVERIFY(opcion(f, qPrintable(estadoVisto))->isChecked());
        QVERIFY(opcion(f, qPrintable(tipoVisto))->isChecked());
    }

    // A change rewrites the row in the store and, when the list shows it, the row's columns
    // from the concept on; its number and date stay.
    void modificarEnLaLista() {
        plazos(60.5, 60.5);
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        Buzon buzon;
        teclearCampos(f, {"~4="});
        pulsar(kFiltrar);
        QCOMPARE(f->lista()->filas(), 2);
        teclearCampos(f, kClave + QStringList{"3=Cobrado", "6=15/04/2026", "7=FR", "8=FR00001"});
        opcion(f, "opt_estado(1)")->click();
        f->txt(0)->setFocus();
        pulsar(kModificar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("Cartera",
                       "fecha_vto = '20260331' AND estado = 'C' AND concepto = 'Cobrado' AND "
                       "fecha_cierre = '20260415' AND codigo_documento_cierre = 'FR'"),
                 1);
        QTreeWidgetItem* fila = f->lista()->elemento(clave("FV", "FV00027", "20260331"));
        QStringList textos;
        for (int c = 0; c < f->lista()->columnCount(); ++c) textos << fila->text(c);
        QCOMPARE(
            textos.join(u'|'),
            QStringLiteral("FV|FV00027|31/03/2026|Cobrado|60,50|C1|C|C|15/04/2026|FR|FR00001"));
        QCOMPARE(f->txt(0)->text(), QString());
    }

    // The delete finds line 1 by the quoted, padded text the system sends ("numero_apunte =
    // '0000001'") on both stores, asks about the date and the number, and is not held by the
    // sum test; the form is cleared whatever happens. A row of another line is not found.
    void borrar_data() {
        QTest::addColumn<int>("linea");  // of the row stored at kVto; 0 for none
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<Respuesta>("respuesta");
        QTest::addColumn<bool>("pregunta");
        QTest::addColumn<bool>("borrada");
        QTest::newRow("yes, leaving the other half short")
            << 1 << kClave << Respuesta::Si << true << true;
        QTest::newRow("no") << 1 << kClave << Respuesta::No << true << false;
        QTest::newRow("date typed another way")
            << 1 << QStringList{"0=FV", "1=FV00027", "2=31/3/26"} << Respuesta::Si << true << true;
        QTest::newRow("no such due date") << 0 << kClave << Respuesta::Si << false << false;
        QTest::newRow("a row of line 2 only") << 2 << kClave << Respuesta::Si << false << false;
        QTest::newRow("key incomplete")
            << 1 << QStringList{"0=FV", "1=FV00027"} << Respuesta::Si << false << false;
    }
    void borrar() {
        QFETCH(int, linea);
        QFETCH(QStringList, campos);
        QFETCH(Respuesta, respuesta);
        QFETCH(bool, pregunta);
        QFETCH(bool, borrada);
        if (linea) vencimiento({.importe = 60.5, .linea = linea});
        vencimiento({.fecha = kVto2, .importe = 60.5});
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        teclearCampos(f, {"~4="});
        pulsar(kFiltrar);
        const int listadas = f->lista()->filas();
        teclearCampos(f, campos);
        f->txt(0)->setFocus();
        Buzon buzon;
        buzon.respuestas << respuesta;
        pulsar(kBorrar);
        QCOMPARE(buzon.textos, pregunta ? QStringList("¿Desea eliminar el vencimiento " +
                                                      campos.value(2).section(u'=', 1) +
                                                      " del documento FV00027?")
                                        : QStringList());
        if (pregunta) QCOMPARE(buzon.iconos, QList<Icono>{Icono::Pregunta});
        QCOMPARE(filas("Cartera", "fecha_vto = '20260331'"), linea && !borrada ? 1 : 0);
        QCOMPARE(filas("Cartera", "fecha_vto = '20260430'"), 1);
        QCOMPARE(f->lista()->filas(), borrada ? listadas - 1 : listadas);
        QCOMPARE(f->lista()->contiene(clave("FV", "FV00027", "20260331")), linea && !borrada);
        for (int i = 0; i < 9; ++i) QCOMPARE(f->txt(i)->text(), i == 4 ? "0,00" : QString());
    }

    // The filter asks by equality for every filled field and both groups of buttons, within
    // the session's branch: a cleared form lists pending collections of amount 0 only, an
    // emptied amount lists by state and type (the key pressed before leaving the field, which
    // would write "0,00" again), a concept must match whole. An amount or a date
    // that is none (typed, not left) asks nothing of the store and says nothing.
    void filtrar_data() {
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QStringList>("opciones");
        QTest::addColumn<QStringList>("claves");
        const QString a = clave("FV", "FV00027", "20260331"),
                      c = clave("FV", "FV00028", "20260331"),
                      d = clave("FR", "FR00001", "20260531"),
                      e = clave("FV", "FV00029", "20260331"),
                      g = clave("FV", "FV00031", "20260331"),
                      b = clave("FV", "FV00027", "20260430");
        QTest::newRow("cleared form") << QStringList() << QStringList() << QStringList{c};
        QTest::newRow("amount emptied")
            << QStringList{"~4="} << QStringList() << QStringList{a, c, g};
        QTest::newRow("closed") << QStringList{"~4="} << QStringList{"opt_estado(1)"}
                                << QStringList{b};
        QTest::newRow("returned") << QStringList{"~4="} << QStringList{"opt_estado(2)"}
                                  << QStringList{e};
        QTest::newRow("payments of 0")
            << QStringList() << QStringList{"opt_tipo(1)"} << QStringList{d};
        QTest::newRow("amount with a comma")
            << QStringList{"4=60,50"} << QStringList() << QStringList{a};
        QTest::newRow("amount with thousands")
            << QStringList{"~4=1.210,00"} << QStringList() << QStringList{g};
        QTest::newRow("amount not a number, left out")
            << QStringList{"~4=mil"} << QStringList() << QStringList{a, c, g};
        QTest::newRow("due date not a date")
            << QStringList{"~2=32/13/2026"} << QStringList() << QStringList();
        QTest::newRow("concept in part")
            << QStringList{"3=Primer", "~4="} << QStringList() << QStringList();
        QTest::newRow("concept whole")
            << QStringList{"3=Primer plazo", "~4="} << QStringList() << QStringList{a};
        QTest::newRow("concept with an apostrophe")
            << QStringList{"3=Pago d'Ana", "~4="} << QStringList() << QStringList{g};
        QTest::newRow("document and number")
            << QStringList{"0=FV", "1=FV00027", "~4="} << QStringList() << QStringList{a};
        QTest::newRow("due date") << QStringList{"2=31/3/2026", "~4="} << QStringList()
                                  << QStringList{a, c, g};
        QTest::newRow("third party")
            << QStringList{"5=C2", "~4="} << QStringList() << QStringList{c};
        QTest::newRow("closing entry") << QStringList{"6=15/04/2026", "7=FR", "8=FR00001", "~4="}
                                       << QStringList{"opt_estado(1)"} << QStringList{b};
    }
    void filtrar() {
        QFETCH(QStringList, campos);
        QFETCH(QStringList, opciones);
        QFETCH(QStringList, claves);
        vencimiento({.importe = 60.5, .concepto = "Primer plazo"});
        vencimiento({.fecha = kVto2,
                     .importe = 60.5,
                     .estado = "C",
                     .concepto = "Segundo plazo",
                     .cierre = "15/04/2026",
                     .documentoCierre = "FR",
                     .numeroCierre = "FR00001"});
        vencimiento({.numero = "FV00028", .importe = 0, .personal = "C2"});
        vencimiento({.documento = "FR",
                     .numero = "FR00001",
                     .fecha = "31/05/2026",
                     .importe = 0,
                     .tipo = "P",
                     .personal = "C2"});
        vencimiento({.numero = "FV00029", .importe = 0, .estado = "D"});
        vencimiento({.numero = "FV00030", .importe = 0, .delegacion = "SUR"});
        vencimiento({.numero = "FV00031", .importe = 1210, .concepto = "Pago d'Ana"});
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        Buzon buzon;
        for (const QString& o : opciones) opcion(f, qPrintable(o))->click();
        f->txt(0)->setFocus();
        teclearCampos(f, campos);
        pulsar(kFiltrar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(clavesDe(f->lista()), claves);
    }

    // The controls by the names of the design, the list's columns, the toolbar as it opens,
    // and a form worked from the keyboard: every field and button with its own accelerator.
    void controles() {
        FormularioMantenimiento* f = abrirMantenimiento("frmCartera");
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), QStringLiteral("Cartera"));
        QVERIFY(f->findChild<ListaClaves*>("ListViewCartera"));
        QVERIFY(f->findChild<QLabel*>("des(5)"));
        const auto marco = [&](const char* nombre) {
            auto* g = f->findChild<QGroupBox*>(QString::fromLatin1(nombre));
            return g ? g->title() : QString();
        };
        QCOMPARE(marco("frmTipo"), QStringLiteral("Tipo documento"));
        QCOMPARE(marco("frmEstado"), QStringLiteral("Estado"));
        QStringList botones;
        for (const char* n :
             {"opt_tipo(0)", "opt_tipo(1)", "opt_estado(0)", "opt_estado(1)", "opt_estado(2)"}) {
            QRadioButton* o = opcion(f, n);
            QVERIFY2(o, n);
            botones << o->accessibleName();
        }
        QCOMPARE(botones, (QStringList{"Cobro", "Pago", "Pendiente", "Cancelado", "Devuelto"}));
        QStringList titulos;
        for (int c = 0; c < f->lista()->columnCount(); ++c)
            titulos << f->lista()->headerItem()->text(c);
        QCOMPARE(titulos, (QStringList{"Documento", "Número", "Fecha Vto.", "Concepto", "Importe",
                                       "Acre/Deu", "Estado", "Tipo documento", "Fecha cierre",
                                       "Documento cierre", "Número cierre"}));
        QVERIFY(!Boton(f->barra(), claves::imprimir)->isEnabled());
        QVERIFY(Boton(f->barra(), claves::lupa)->isEnabled());  // txt(0) has a lookup
        QSet<QChar> teclas;
        const auto tecla = [&](const QString& texto) {
            const qsizetype i = texto.indexOf(u'&');
            QVERIFY2(i >= 0 && i + 1 < texto.size(), qPrintable(texto));
            const QChar c = texto.at(i + 1).toLower();
            QVERIFY2(!teclas.contains(c), qPrintable(texto));
            teclas.insert(c);
        };
        for (int i = 0; i < 9; ++i) {
            tecla(f->lbl(i)->text());
            QCOMPARE(f->lbl(i)->buddy(), f->txt(i));
        }
        for (int i = 0; i < 5; ++i) tecla(f->opt(i)->text());
    }

    // Without a branch in session the form does not open.
    void sinDelegacion() {
        sesion_delegacion.clear();
        Buzon buzon;
        QVERIFY(!formularios::abrir("frmCartera"));
        QCOMPARE(buzon.textos, QStringList("No se ha especificado la empresa o delegación."));
    }
};

QTEST_MAIN(PruebaCartera)
#include "prueba_cartera.moc"
