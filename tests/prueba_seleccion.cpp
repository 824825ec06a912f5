// The selection of due items that an entry of collections or payments is about to close: only
// pending items of the type, of the session's branch, whose third party has its account of the
// item's kind; bounds by account (through its owner), third party, document number as text,
// amount and date; no typed text alters the statement. The dialog checks its fields, hands the
// items to its receiver and unloads, or says why not and stays.
#include "comun/almacen_prueba.h"
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "data/almacen/error.h"
#include "data/almacen/programa.h"
#include "data/auxiliar.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/cartera.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/personal.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/lupa.h"
#include "portfolio/formularios_cartera.h"
#include "portfolio/frmseleccioncartera.h"
#include "portfolio/seleccion.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QtTest>
#include <algorithm>

namespace {

QString m(int codigo) {
    return MensajeError(codigo);
}

// Every due item of the fixture; the document number names it in the expected lists.
struct Efecto {
    const char* delegacion;
    const char* documento;
    const char* numero;
    const char* vto;
    const char* rol;
    const char* personal;
    const char* tipo;
    const char* estado;
    double importe;
};
const Efecto kEfectos[] = {
    {"EMP", "FV", "1", "10/01/2025", "CLI", "C1", "C", "P", 100},
    {"EMP", "FV", "10", "20/02/2025", "CLI", "C2", "C", "P", 250.5},
    {"EMP", "FV", "9", "15/03/2025", "CLI", "C2", "C", "P", 75.25},
    {"EMP", "FV", "2", "10/01/2025", "CLI", "C1", "C", "C", 100},  // closed
    {"EMP", "FV", "3", "11/01/2025", "CLI", "C1", "C", "D", 100},  // returned
    {"EMP", "FR", "4", "05/02/2025", "PRO", "P1", "P", "P", 300},
    {"EMP", "FR", "5", "06/02/2025", "PRO", "P1", "P", "C", 300},
    {"EMP", "FR", "6", "07/02/2025", "PRO", "P1", "P", "D", 300},
    {"EMP", "FV", "7", "12/01/2025", "CLI", "C3", "C", "P", 50},   // C3 is a supplier only
    {"SUR", "FV", "8", "10/01/2025", "CLI", "C1", "C", "P", 100},  // another branch
    {"EMP", "FV", "11", "13/01/2025", "", "", "C", "P", 60},       // no third party at all
};

// Each third party's account of its kind.
const QMap<QString, QString> kCuentas{
    {"C1", "43000001"}, {"C2", "43000002"}, {"P1", "40000001"}, {"C3", "40000003"}};

// On top of the entries' fixtures (and the plan's accounts, such as 430, which takes no
// postings): the posting accounts 43000002 and 40000001; the customers C1 (43000001) and C2
// (43000002), the supplier P1 (40000001) and C3, a supplier (40000003) whose item was written as a
// customer's; the due items above.
void datosBase() {
    prepararAsientos();
    Conexion& c = *sesion_conexion;
    cuentas::Insert(c, "EMP", "43000002", "Subcuenta 43000002", "S", 8, "PRUEBA");
    cuentas::Insert(c, "EMP", "40000001", "Subcuenta 40000001", "S", 8, "PRUEBA");
    const struct {
        const char *codigo, *nombre, *tipo;
    } terceros[] = {{"C1", "Ferretería Pérez, S.L.", "CLI"},
                    {"C2", "L'Hospitalet Suministros", "CLI"},
                    {"P1", "Papelería Gómez", "PRO"},
                    {"C3", "Transportes Ruiz", "PRO"}};
    for (const auto& t : terceros) {
        Personal::Insert(c, "EMP", t.codigo, t.nombre, "", "", "", "", "", "", "", "", "",
                         "PRUEBA");
        acrdeu::Insert(c, "EMP", kCuentas[t.codigo], t.codigo, t.tipo, "", "", "", 0, 0, "", "",
                       "PRUEBA");
    }
    for (const Efecto& e : kEfectos)
        cartera::Insert(c, "EMP", e.delegacion, e.documento, e.numero, 1, QString(e.vto), e.rol,
                        e.personal, QStringLiteral("Vencimiento %1").arg(e.numero), e.tipo,
                        e.estado, e.importe, QString(), "", "", "PRUEBA");
}

// The bounds from "índice=texto" pairs, in the order of the dialog's fields.
CriteriosSeleccion criteriosDe(const QStringList& pares) {
    CriteriosSeleccion c;
    QString* campos[] = {&c.cuentaInicial, &c.cuentaFinal,      &c.terceroInicial,
                         &c.terceroFinal,  &c.documentoInicial, &c.documentoFinal,
                         &c.importeMinimo, &c.importeMaximo,    &c.fechaMinima,
                         &c.fechaMaxima};
    for (const QString& p : pares) *campos[p.section(u'=', 0, 0).toInt()] = p.section(u'=', 1);
    return c;
}

// The document numbers of the items, sorted: the store gives no order.
QStringList numeros(const QList<EfectoSeleccionado>& efectos) {
    QStringList t;
    for (const EfectoSeleccionado& e : efectos) t << e.numeroDocumento;
    std::sort(t.begin(), t.end());
    return t;
}

QStringList ordenados(QStringList t) {
    std::sort(t.begin(), t.end());
    return t;
}

// A dialog as the entry form opens it: shown, its type set, its receiver recording each list.
frmSeleccionCartera* abrirSeleccion(QList<QStringList>* entregas, const QString& tipo = {}) {
    auto* f = new frmSeleccionCartera;
    if (entregas)
        f->ponerReceptor(
            [entregas](const QList<EfectoSeleccionado>& e) { entregas->append(numeros(e)); });
    formularios::mostrar(f);
    if (!tipo.isEmpty()) f->ponerTipoEfectos(tipo);
    activar(f->ventana());
    return f;
}

// "índice=texto" pairs typed in order, each left with Tab but perhaps the last.
void rellenar(frmSeleccionCartera* f, const QStringList& campos, bool dejarUltimo = true) {
    for (qsizetype k = 0; k < campos.size(); ++k) {
        QLineEdit* t = f->txt(campos[k].section(u'=', 0, 0).toInt());
        escribir(t, campos[k].section(u'=', 1));
        if (k + 1 < campos.size() || dejarUltimo) salir(t);
    }
}

}  // namespace

class PruebaSeleccion : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosCartera();
        // The lists of the lookups as the program delivers them.
        const QString listas = programa::ruta("Listas.ini");
        QFile::remove(listas);
        QVERIFY(QFile::copy(SALDEVA_RECURSOS_DIR "/programa/Listas.ini", listas));
        QFile::setPermissions(listas, QFile::ReadOwner | QFile::WriteOwner);
    }
    void init() {
        almacen->nuevo();
        datosBase();
    }
    void cleanup() {
        for (Formulario* f : formularios::abiertos()) delete f->ventana();
        frmSeleccionCartera::ponerReceptorPorDefecto({});
    }
    void cleanupTestCase() { almacen.reset(); }

    // Which items a type and its bounds select, each item carrying its own data and the
    // account of its third party.
    void seleccion_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QStringList>("criterios");
        QTest::addColumn<QStringList>("esperados");
        const QStringList cobros{"1", "10", "9"};
        QTest::newRow("all empty: pending collections of the branch")
            << "C" << QStringList() << cobros;
        QTest::newRow("all empty: pending payments of the branch")
            << "P" << QStringList() << QStringList{"4"};
        QTest::newRow("from an account: its owner onwards")
            << "C" << QStringList{"0=43000002"} << QStringList{"10", "9"};
        QTest::newRow("up to an account") << "C" << QStringList{"1=43000001"} << QStringList{"1"};
        QTest::newRow("accounts compare their owners' codes, not their numbers")
            << "P" << QStringList{"0=43000001"} << QStringList{"4"};
        QTest::newRow("one third party")
            << "C" << QStringList{"2=C2", "3=C2"} << QStringList{"10", "9"};
        QTest::newRow("account and third party bounds both stand")
            << "C" << QStringList{"0=43000002", "3=C1"} << QStringList();
        QTest::newRow("documents compare as text: 9 lies beyond 10")
            << "C" << QStringList{"4=10", "5=9"} << QStringList{"10", "9"};
        QTest::newRow("documents up to 2 take 10")
            << "C" << QStringList{"5=2"} << QStringList{"1", "10"};
        QTest::newRow("minimum amount with a decimal comma")
            << "C" << QStringList{"6=75,25"} << cobros;
        QTest::newRow("minimum amount above the smallest")
            << "C" << QStringList{"6=75,26"} << QStringList{"1", "10"};
        QTest::newRow("maximum amount with a decimal point")
            << "C" << QStringList{"7=250.49"} << QStringList{"1", "9"};
        QTest::newRow("amounts with thousands")
            << "C" << QStringList{"6=1.000,00"} << QStringList();
        QTest::newRow("dates from") << "C" << QStringList{"8=20/02/2025"} << QStringList{"10", "9"};
        QTest::newRow("dates up to") << "C" << QStringList{"9=19/02/2025"} << QStringList{"1"};
        QTest::newRow("an apostrophe is data")
            << "C" << QStringList{"3=C1' or 'a'='a"} << QStringList{"1"};
        QTest::newRow("an apostrophe in a document bound")
            << "C" << QStringList{"4=1'", "5=1'"} << QStringList();
    }
    void seleccion() {
        QFETCH(QString, tipo);
        QFETCH(QStringList, criterios);
        QFETCH(QStringList, esperados);
        const QList<EfectoSeleccionado> efectos =
            SeleccionarEfectos(*sesion_conexion, "EMP", "EMP", tipo, criteriosDe(criterios));
        QCOMPARE(numeros(efectos), ordenados(esperados));
        for (const EfectoSeleccionado& e : efectos) {
            const auto fila = std::find_if(std::begin(kEfectos), std::end(kEfectos), [&](auto& k) {
                return e.numeroDocumento == QLatin1String(k.numero);
            });
            QCOMPARE(e.estado, QStringLiteral("P"));
            QCOMPARE(e.codigoDocumento, QString(fila->documento));
            QCOMPARE(e.fechaVto, Auxiliar::sDate(QString(fila->vto)));
            QCOMPARE(e.cuenta, kCuentas[fila->personal]);
            QCOMPARE(e.importe, fila->importe);
            QCOMPARE(e.concepto, QStringLiteral("Vencimiento %1").arg(e.numeroDocumento));
        }
    }

    // Bounds that cannot be put to the store fail with a message that says why, and nothing
    // is selected.
    void rechazos_data() {
        QTest::addColumn<QStringList>("criterios");
        QTest::addColumn<QString>("dice");
        QTest::newRow("account of nobody") << QStringList{"0=57200001"} << "57200001";
        QTest::newRow("final account of nobody") << QStringList{"1=43000009"} << "43000009";
        QTest::newRow("account with an apostrophe") << QStringList{"0=43'1"} << "43'1";
        QTest::newRow("amount not a number") << QStringList{"6=cien"} << m(1004);
        QTest::newRow("amount with a fraction of a cent") << QStringList{"7=1,005"} << m(1004);
        QTest::newRow("date that does not exist") << QStringList{"8=31/02/2025"} << m(1004);
    }
    void rechazos() {
        QFETCH(QStringList, criterios);
        QFETCH(QString, dice);
        try {
            SeleccionarEfectos(*sesion_conexion, "EMP", "EMP", "C", criteriosDe(criterios));
            QFAIL("no error");
        } catch (const Error& e) {
            QVERIFY2(e.descripcion().contains(dice), qPrintable(e.texto()));
        }
    }

    // The label that the entry form sets decides the type; its design text is "Cobro".
    void tipoPorLaEtiqueta_data() {
        QTest::addColumn<QString>("etiqueta");
        QTest::addColumn<QStringList>("esperados");
        QTest::newRow("design text") << QString() << QStringList{"1", "10", "9"};
        QTest::newRow("Cobro") << "Cobro" << QStringList{"1", "10", "9"};
        QTest::newRow("Pago") << "Pago" << QStringList{"4"};
    }
    void tipoPorLaEtiqueta() {
        QFETCH(QString, etiqueta);
        QFETCH(QStringList, esperados);
        QList<QStringList> entregas;
        frmSeleccionCartera* f = abrirSeleccion(&entregas, etiqueta);
        QCOMPARE(f->lblTipoEfectos()->text(),
                 etiqueta.isEmpty() ? QStringLiteral("Cobro") : etiqueta);
        Buzon buzon;
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(entregas, QList<QStringList>{ordenados(esperados)});
    }

    // The check on leaving a field: its message, critical, keeps the focus there; what the
    // field then holds and the name shown beside it.
    void comprobaciones_data() {
        QTest::addColumn<QString>("antes");  // typed and left first, when not empty
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("visto");
        QTest::addColumn<QString>("nombre");
        const QString bien;
        QTest::newRow("account expanded and named") << "" << 0 << "43.1" << bien << "43000001"
                                                    << "Subcuenta 43000001";
        QTest::newRow("final account expanded and named") << "" << 1 << "40.1" << bien << "40000001"
                                                          << "Subcuenta 40000001";
        QTest::newRow("account unknown") << "" << 1 << "43.9" << m(1001) << "43000009"
                                         << "";
        QTest::newRow("account that takes no postings") << "" << 0 << "430" << m(1001) << "430"
                                                        << "";
        QTest::newRow("emptied account clears its name") << "43.1" << 0 << "" << bien << ""
                                                         << "";
        QTest::newRow("third party named") << "" << 2 << "C2" << bien << "C2"
                                           << "L'Hospitalet Suministros";
        QTest::newRow("third party unknown, in the words of an account")
            << "" << 3 << "ZZ"
            << "Cuenta contable inexistente."
            << "ZZ"
            << "";
        QTest::newRow("emptied third party clears its name") << "C1" << 2 << "" << bien << ""
                                                             << "";
        QTest::newRow("document in capitals") << "" << 4 << "fv'1" << bien << "FV'1"
                                              << "";
        QTest::newRow("final document in capitals") << "" << 5 << "ab" << bien << "AB"
                                                    << "";
        QTest::newRow("amount with a decimal comma") << "" << 6 << "75,25" << bien << "75,25"
                                                     << "";
        QTest::newRow("amount with thousands") << "" << 7 << "1.000,50" << bien << "1.000,50"
                                               << "";
        QTest::newRow("amount not a number") << "" << 6 << "cien" << m(1004) << "cien"
                                             << "";
        QTest::newRow("amount with a fraction of a cent")
            << "" << 7 << "1,005" << m(1004) << "1,005"
            << "";
        QTest::newRow("date") << "" << 8 << "15/03/2025" << bien << "15/03/2025"
                              << "";
        QTest::newRow("date that does not exist")
            << "" << 9 << "31/02/2025" << m(1004) << "31/02/2025"
            << "";
    }
    void comprobaciones() {
        QFETCH(QString, antes);
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        QFETCH(QString, visto);
        QFETCH(QString, nombre);
        frmSeleccionCartera* f = abrirSeleccion(nullptr);
        if (!antes.isEmpty()) {
            teclear(f->txt(indice), antes);
            QVERIFY(!f->des(indice)->text().isEmpty());
        }
        Buzon buzon;
        teclear(f->txt(indice), texto);
        QCOMPARE(buzon.textos, mensaje.isEmpty() ? QStringList() : QStringList(mensaje));
        if (mensaje.isEmpty()) {
            QTRY_VERIFY(QApplication::focusWidget() != f->txt(indice));
        } else {
            QCOMPARE(buzon.iconos.value(0), Icono::Critico);
            QTRY_COMPARE(QApplication::focusWidget(), f->txt(indice));
        }
        QCOMPARE(f->txt(indice)->text(), visto);
        if (indice < 4) QCOMPARE(f->des(indice)->text(), nombre);
    }

    // Aceptar hands exactly the items of the bounds to the receiver and unloads, also when the
    // last field is still being typed in: it is completed as if it had been left.
    void aceptar_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<bool>("dejarUltimo");
        QTest::addColumn<QStringList>("esperados");
        QTest::newRow("third parties and amount")
            << "Cobro" << QStringList{"2=C1", "3=C2", "7=100"} << true << QStringList{"1", "9"};
        QTest::newRow("account typed with its dot and not left")
            << "Cobro" << QStringList{"0=43.2"} << false << QStringList{"10", "9"};
        QTest::newRow("dates") << "Cobro" << QStringList{"8=01/02/2025", "9=28/02/2025"} << true
                               << QStringList{"10"};
        QTest::newRow("payments from a customer's account")
            << "Pago" << QStringList{"0=43.1"} << true << QStringList{"4"};
    }
    void aceptar() {
        QFETCH(QString, tipo);
        QFETCH(QStringList, campos);
        QFETCH(bool, dejarUltimo);
        QFETCH(QStringList, esperados);
        QList<QStringList> entregas;
        QPointer<frmSeleccionCartera> f = abrirSeleccion(&entregas, tipo);
        Buzon buzon;
        rellenar(f, campos, dejarUltimo);
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(entregas, QList<QStringList>{ordenados(esperados)});
        QTRY_VERIFY(!f);
    }

    // A field being typed in when Aceptar is pressed is checked first: its message once, the
    // focus in it, nothing handed over, the dialog open.
    void aceptarConUnCampoMal_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("amount not a number") << 6 << "cien" << m(1004);
        QTest::newRow("date that does not exist") << 9 << "30/02/2025" << m(1004);
        QTest::newRow("unknown account") << 1 << "43.9" << m(1001);
        QTest::newRow("unknown third party") << 2 << "ZZ" << m(1001);
    }
    void aceptarConUnCampoMal() {
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        QList<QStringList> entregas;
        QPointer<frmSeleccionCartera> f = abrirSeleccion(&entregas);
        Buzon buzon;
        escribir(f->txt(indice), texto);
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        QCOMPARE(buzon.textos, QStringList(mensaje));
        QCOMPARE(buzon.iconos.value(0), Icono::Critico);
        QTRY_COMPARE(QApplication::focusWidget(), f->txt(indice));
        QCOMPARE(entregas, QList<QStringList>());
        QVERIFY(f && f->isVisible());
    }

    // An account of the plan that belongs to no third party passes its field, but cannot
    // bound the selection: Aceptar says so, hands nothing and stays.
    void cuentaSinTercero() {
        QList<QStringList> entregas;
        QPointer<frmSeleccionCartera> f = abrirSeleccion(&entregas);
        Buzon buzon;
        rellenar(f, {"0=57200001"});
        QCOMPARE(buzon.textos, QStringList());
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().contains("57200001"), qPrintable(buzon.ultimo()));
        QCOMPARE(buzon.iconos.value(0), Icono::Critico);
        QCOMPARE(entregas, QList<QStringList>());
        QTest::qWait(0);
        QVERIFY(f && f->isVisible());
    }

    // Each acceptance hands a whole new list, nothing of the previous one.
    void aceptarDosVeces() {
        QList<QStringList> entregas;
        QPointer<frmSeleccionCartera> f = abrirSeleccion(&entregas);
        rellenar(f, {"5=2"});
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        QTRY_VERIFY(!f);
        f = abrirSeleccion(&entregas);
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        QTRY_VERIFY(!f);
        QCOMPARE(entregas, (QList<QStringList>{{"1", "10"}, ordenados({"1", "10", "9"})}));
    }

    // Cancelar, by its button or by Escape, unloads and hands nothing, whatever was typed.
    void cancelar_data() {
        QTest::addColumn<bool>("escape");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }
    void cancelar() {
        QFETCH(bool, escape);
        QList<QStringList> entregas;
        QPointer<frmSeleccionCartera> f = abrirSeleccion(&entregas);
        Buzon buzon;
        rellenar(f, {"2=C1", "6=cien"}, false);
        if (escape)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            QTest::mouseClick(f->cmdCancelar(), Qt::LeftButton);
        QTRY_VERIFY(!f);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(entregas, QList<QStringList>());
    }

    // The items go to the receiver given, else to the default one; with none the dialog says
    // where to open it from and stays.
    void receptores_data() {
        QTest::addColumn<bool>("propio");
        QTest::addColumn<bool>("porDefecto");
        QTest::newRow("none") << false << false;
        QTest::newRow("default") << false << true;
        QTest::newRow("its own") << true << false;
        QTest::newRow("its own before the default") << true << true;
    }
    void receptores() {
        QFETCH(bool, propio);
        QFETCH(bool, porDefecto);
        QList<QStringList> suyas, pordefecto;
        if (porDefecto)
            frmSeleccionCartera::ponerReceptorPorDefecto(
                [&](const QList<EfectoSeleccionado>& e) { pordefecto << numeros(e); });
        QPointer<frmSeleccionCartera> f =
            qobject_cast<frmSeleccionCartera*>(formularios::abrir("frmSeleccionCartera"));
        QVERIFY(f);
        if (propio)
            f->ponerReceptor([&](const QList<EfectoSeleccionado>& e) { suyas << numeros(e); });
        activar(f->ventana());
        Buzon buzon;
        rellenar(f, {"5=1"});
        QTest::mouseClick(f->cmdAceptar(), Qt::LeftButton);
        const QList<QStringList> una{{"1"}};
        QCOMPARE(suyas, propio ? una : QList<QStringList>());
        QCOMPARE(pordefecto, !propio && porDefecto ? una : QList<QStringList>());
        if (propio || porDefecto) {
            QCOMPARE(buzon.textos, QStringList());
            QTRY_VERIFY(!f);
        } else {
            QCOMPARE(buzon.textos, QStringList("Abra un asiento de cobros o pagos en «Entrada de "
                                               "apuntes» para recibir los efectos."));
            QTest::qWait(0);
            QVERIFY(f && f->isVisible());
        }
    }

    // Without a company, a branch or a year the dialog does not open.
    void sinSesion_data() {
        QTest::addColumn<int>("falta");
        QTest::newRow("company") << 0;
        QTest::newRow("branch") << 1;
        QTest::newRow("year") << 2;
    }
    void sinSesion() {
        QFETCH(int, falta);
        if (falta == 0) sesion_empresa.clear();
        if (falta == 1) sesion_delegacion.clear();
        if (falta == 2) sesion_ejercicio = 0;
        Buzon buzon;
        QVERIFY(!formularios::abrir("frmSeleccionCartera"));
        QCOMPARE(buzon.textos, QStringList(m(1040)));
        QCOMPARE(buzon.iconos.value(0), Icono::Critico);
        QTRY_VERIFY(!formularios::buscar("frmSeleccionCartera"));
    }

    // F10 or a double click opens the list of a tagged field, narrowed to what it holds;
    // choosing writes the code back, which the field checks and names when it is left.
    void lupa_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<bool>("dobleClic");
        QTest::addColumn<QString>("tabla");
        QTest::newRow("third party by F10") << 2 << false << "PERSONAL";
        QTest::newRow("account by a double click") << 0 << true << "CUENTAS";
        QTest::newRow("document: no list") << 4 << false << "";
    }
    void lupa() {
        QFETCH(int, indice);
        QFETCH(bool, dobleClic);
        QFETCH(QString, tabla);
        frmSeleccionCartera* f = abrirSeleccion(nullptr);
        Buzon buzon;
        QLineEdit* t = f->txt(indice);
        escribir(t, indice == 2 ? "C" : "");
        if (dobleClic)
            QTest::mouseDClick(t, Qt::LeftButton);
        else
            QTest::keyClick(t, Qt::Key_F10);
        auto* lupa = qobject_cast<frmLupa*>(formularios::buscar("frmLupa"));
        QCOMPARE(buzon.textos, QStringList());
        if (tabla.isEmpty()) {
            QVERIFY(!lupa);
            return;
        }
        QVERIFY(lupa);
        QVERIFY2(lupa->consulta().contains(tabla, Qt::CaseInsensitive),
                 qPrintable(lupa->consulta()));
        if (indice != 2) return;
        QVERIFY(lupa->consulta().contains("LEFT("));
        const QString elegido = "C2";
        for (int i = 0; i < lupa->lista()->topLevelItemCount(); ++i)
            if (lupa->lista()->topLevelItem(i)->text(0) == elegido)
                lupa->lista()->setCurrentItem(lupa->lista()->topLevelItem(i));
        QTest::keyClick(lupa->lista(), Qt::Key_Return);
        QTRY_VERIFY(!formularios::buscar("frmLupa"));
        QCOMPARE(t->text(), elegido);
        activar(f->ventana());
        t->setFocus();
        salir(t);
        QCOMPARE(f->des(2)->text(), QStringLiteral("L'Hospitalet Suministros"));
        QCOMPARE(buzon.textos, QStringList());
    }
};

QTEST_MAIN(PruebaSeleccion)
#include "prueba_seleccion.moc"
