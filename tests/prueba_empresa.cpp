// Setting up a company through its forms: from a fresh installation to a bookkeeper's first
// login, the field checks and save refusals of each form with the focus kept, provisioning as
// a whole, fiscal years with their series, the chart's "." rule and the document's switches.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/sesion_prueba.h"
#include "data/almacen/esquema.h"
#include "data/arranque.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/diarios.h"
#include "data/entidades/numeracion.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "portfolio/formularios_cartera.h"
#include "session/frmlogin.h"
#include "session/frmmain.h"
#include "session/frmusuariosdelegaciones.h"
#include "session/sesion.h"
#include "setup/formularios_empresa.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

namespace {

const int kAnio = QDate::currentDate().year();
const QString kAnioTexto = QString::number(kAnio);

// The rows of the list as "code|second column".
QStringList filasDe(const ListaClaves* lista) {
    QStringList t;
    for (int i = 0; i < lista->filas(); ++i) t << lista->texto(i, 0) + u'|' + lista->texto(i, 2);
    return t;
}

// The tables that hold a company column: every row of a company lives in one of them.
QStringList tablasDeEmpresa() {
    QStringList tablas;
    for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Principal)) {
        const QString nombre = QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size()));
        Recordset vacio = sesion_conexion->open("SELECT * FROM " + nombre + " WHERE 1 = 0");
        for (int i = 0; i < vacio.fieldCount(); ++i)
            if (vacio.fieldName(i).compare("codigo_empresa", Qt::CaseInsensitive) == 0)
                tablas << nombre;
    }
    return tablas;
}

}  // namespace

class PruebaEmpresa : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosSesion();
        registrarFormulariosEmpresa();
        registrarFormulariosCartera();
        establecerFinProceso([] {});
    }
    void init() {
        almacen->nuevo();
        SincronizarMenus();
    }
    void cleanup() {
        if (principal()) delete principal();
        olvidarPrincipal();
        for (Formulario* f : formularios::abiertos()) delete f->ventana();
    }
    void cleanupTestCase() { almacen.reset(); }

    // A fresh installation: the maintenance login creates the company and a user, opens the
    // central branch to her, and she logs in to a company with its whole chart.
    void dePrimeraInstalacionAlPrimerLogin() {
        almacen->cerrar();
        sesion_usuario = sesion_empresa = sesion_delegacion = QString();
        sesion_ejercicio = 0;
        Buzon buzon;
        responderLogin(entrarComoMantenimiento);
        VentanasPrograma ventanas;
        QCOMPARE(Main(ventanas), 0);
        activar(principal());

        abrir("Empresas");
        auto* empresas = qobject_cast<FormularioMantenimiento*>(formularios::buscar("frmEmpresas"));
        QVERIFY(empresas);
        rellenar(empresas,
                 {"0=NOVA", "1=B12345674", "2=Nova Asesores, S.L.", "3=Calle de L'Hospitalet 7",
                  "4=46001", "5=València", "6=Valencia", "7=España", "11=8"});
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("Empresas", "codigo_empresa = 'NOVA' AND digitos = 8"), 1);
        QCOMPARE(filas("Delegaciones",
                       "codigo_empresa = 'NOVA' AND codigo_delegacion = 'NOVA' "
                       "AND direccion = 'Calle de L''Hospitalet 7'"),
                 1);
        QVERIFY(filas("Cuentas", "codigo_empresa = 'NOVA'") > 500);

        abrir("Usuarios");
        auto* usuarios = qobject_cast<FormularioMantenimiento*>(formularios::buscar("frmUsuarios"));
        rellenar(usuarios, {"0=LUCIA", "1=SECRETO"});
        pulsar(kInsertar);
        QCOMPARE(filas("Usuarios", "codigo_usuario = 'LUCIA'"), 1);

        abrir("Grupos de usuarios");
        auto* grupos =
            qobject_cast<frmUsuariosDelegaciones*>(formularios::buscar("frmUsuariosDelegaciones"));
        QVERIFY(grupos);
        const int empresa = grupos->cmbEmpresas()->findText("NOVA", Qt::MatchStartsWith);
        QVERIFY(empresa >= 0);
        grupos->cmbEmpresas()->setCurrentIndex(empresa);
        grupos->elegirEmpresa(empresa);
        QCOMPARE(grupos->cmbDelegaciones()->count(), 1);
        grupos->cmbDelegaciones()->setCurrentIndex(0);
        grupos->elegirDelegacion(0);
        grupos->lstDisponibles()->setCurrentItem(
            grupos->lstDisponibles()->findItems("LUCIA", Qt::MatchExactly).value(0));
        grupos->anadir();
        QCOMPARE(filas("UsuariosDelegaciones",
                       "codigo_usuario = 'LUCIA' AND codigo_delegacion = 'NOVA' AND activo <> 0"),
                 1);

        buzon.respuestas << Respuesta::Si;
        responderLogin(entrarComo("lucia", "secreto", "nova", "nova"));
        principal()->cmdReiniciar()->click();
        QCOMPARE(sesion_usuario, QStringLiteral("LUCIA"));
        QCOMPARE(principal()->panel(3)->text(), QStringLiteral("Empresa: NOVA"));
        QCOMPARE(principal()->panel(4)->text(), QStringLiteral("Delegación: NOVA"));
        QCOMPARE(principal()->panel(5)->text(), "Ejercicio: " + kAnioTexto);

        abrir("Plan de cuentas");
        auto* plan = qobject_cast<FormularioMantenimiento*>(formularios::buscar("frmCuentas"));
        QVERIFY(plan);
        activar(principal());
        plan->txt(0)->setFocus();
        pulsar(kListar);
        const QStringList lista = filasDe(plan->lista());
        QVERIFY(lista.contains("430|N"));
        QVERIFY(lista.contains("43000000|S"));
        QVERIFY(lista.indexOf("430|N") < lista.indexOf("43000000|S"));
        QCOMPARE(buzon.textos.size(), 1);  // the question of the change of session
    }

    // Each form opens on a session that has what it needs, lists and filters with its own SQL
    // pieces on this store, and names every control for the keyboard and the screen reader.
    void todasLasDeclaraciones_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("titulo");
        for (const auto& [n, t] :
             QList<std::pair<const char*, const char*>>{{"frmEmpresas", "Empresas"},
                                                        {"frmDelegaciones", "Delegaciones"},
                                                        {"frmEjercicios", "Ejercicios"},
                                                        {"frmNumeracion", "Numeración"},
                                                        {"frmCuentas", "Cuentas"},
                                                        {"frmDocumentos", "Documentos"},
                                                        {"frmDiarios", "Diarios"},
                                                        {"frmImpuestos", "Impuestos"},
                                                        {"frmIrpf", "Irpf"},
                                                        {"frmFormasPago", "Formas de Pago"},
                                                        {"frmPersonal", "Datos personales"},
                                                        {"frmAcrdeu", "Acreedores - Deudores"},
                                                        {"frmRegistroIva", "Registro de IVA"}})
            QTest::newRow(n) << QString::fromUtf8(n) << QString::fromUtf8(t);
    }
    void todasLasDeclaraciones() {
        QFETCH(QString, nombre);
        QFETCH(QString, titulo);
        crearEmpresaPrueba();
        sesionEmp();
        Buzon buzon;
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), titulo);
        for (int i = 0; i < f->declaracion().campos.size(); ++i)
            QVERIFY2(!f->txt(i)->accessibleName().isEmpty(), qPrintable(QString::number(i)));
        f->txt(0)->setFocus();
        pulsar(kListar);
        // Only the tables that provisioning fills have rows to list.
        const QStringList llenas{"frmEmpresas", "frmDelegaciones", "frmEjercicios", "frmCuentas"};
        QCOMPARE(f->lista()->filas() > 0, llenas.contains(nombre));
        pulsar(kFiltrar);
        QCOMPARE(buzon.textos, QStringList());
        // Without a company, the forms of a company's data refuse to open.
        f->descargar();
        sesion_empresa.clear();
        const bool general = nombre == "frmEmpresas";
        QCOMPARE(formularios::abrir(nombre) != nullptr, general);
        QCOMPARE(buzon.textos.size(), general ? 0 : 1);
        if (!general) QVERIFY(buzon.ultimo().startsWith("No se ha especificado la empresa"));
    }

    // A refused field shows its message in a critical box and keeps the focus; a right one
    // lets it go.
    void comprobacionesDeCampo_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QStringList>("antes");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        const auto m = [](int codigo) { return MensajeError(codigo); };
        const QString bien;
        QTest::newRow("NIF wrong letter")
            << "frmEmpresas" << QStringList() << 1 << "12345678A" << m(1006);
        QTest::newRow("NIF right") << "frmEmpresas" << QStringList() << 1 << "12345678Z" << bien;
        QTest::newRow("CIF right") << "frmEmpresas" << QStringList() << 1 << "B-1234567" << bien;
        QTest::newRow("NIF too big") << "frmEmpresas" << QStringList() << 1 << "12345678901"
                                     << "6 - Desbordamiento";
        QTest::newRow("digits 0") << "frmEmpresas" << QStringList() << 11 << "0" << m(1007);
        QTest::newRow("digits 13") << "frmEmpresas" << QStringList() << 11 << "13" << m(1007);
        QTest::newRow("digits 2,5") << "frmEmpresas" << QStringList() << 11 << "2,5" << m(1007);
        QTest::newRow("digits text") << "frmEmpresas" << QStringList() << 11 << "ocho" << m(1007);
        QTest::newRow("digits 12") << "frmEmpresas" << QStringList() << 11 << "12" << bien;
        QTest::newRow("length 7.5") << "frmNumeracion" << QStringList() << 1 << "7.5" << m(1026);
        QTest::newRow("length text") << "frmNumeracion" << QStringList() << 1 << "siete" << m(1026);
        QTest::newRow("length 0") << "frmNumeracion" << QStringList() << 1 << "0" << m(1038);
        QTest::newRow("number -3") << "frmNumeracion" << QStringList() << 2 << "-3" << m(1038);
        QTest::newRow("number 7,5") << "frmNumeracion" << QStringList() << 2 << "7,5" << m(1026);
        QTest::newRow("number 1") << "frmNumeracion" << QStringList() << 2 << "1" << bien;
        QTest::newRow("year text") << "frmEjercicios" << QStringList() << 0 << "dos mil" << m(9999);
        QTest::newRow("start date 31 Feb")
            << "frmEjercicios" << QStringList() << 1 << "31/02/2026" << m(1004);
        QTest::newRow("block date text")
            << "frmEjercicios" << QStringList() << 3 << "ayer" << m(1004);
        QTest::newRow("end date right")
            << "frmEjercicios" << QStringList() << 2 << "31/12/2026" << bien;
        QTest::newRow("series unknown")
            << "frmDocumentos" << QStringList() << 2 << "XYZ" << m(9999);
        QTest::newRow("series of another year")
            << "frmDocumentos" << QStringList() << 2 << "OLD" << m(9999);
        QTest::newRow("series lower case")
            << "frmDocumentos" << QStringList() << 2 << "fac" << bien;
        QTest::newRow("identifier too long")
            << "frmDocumentos" << QStringList{"2=FAC"} << 3 << "ABCD" << m(9999);
        QTest::newRow("identifier fits")
            << "frmDocumentos" << QStringList{"2=FAC"} << 3 << "ABC" << bien;
    }
    void comprobacionesDeCampo() {
        QFETCH(QString, nombre);
        QFETCH(QStringList, antes);
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        crearEmpresaPrueba();
        sesionEmp();
        numeracion::Insert(*sesion_conexion, "EMP", kAnio, "FAC", 7, 1, "Facturas", "PRUEBA");
        numeracion::Insert(*sesion_conexion, "EMP", kAnio - 1, "OLD", 5, 1, "Antigua", "PRUEBA");
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        rellenar(f, antes);
        comprobarSalida(f, indice, texto, mensaje);
        if (texto == "fac") QCOMPARE(f->txt(2)->text(), QStringLiteral("FAC"));
    }

    // Codes that the login or the entry form read in capitals are stored in capitals, however
    // they were typed: one kept in lower case could never be used.
    void codigosEnMayusculas_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("condicion");
        QTest::newRow("company") << "frmEmpresas"
                                 << QStringList{"0=lhs", "1=B12345674", "2=L'Hospitalet", "11=8"}
                                 << "Empresas"
                                 << "codigo_empresa = 'LHS'";
        QTest::newRow("branch") << "frmDelegaciones" << QStringList{"0=norte", "1=Norte"}
                                << "Delegaciones"
                                << "codigo_delegacion = 'NORTE'";
        QTest::newRow("journal") << "frmDiarios" << QStringList{"0=gen", "1=General"} << "Diarios"
                                 << "codigo_diario = 'GEN'";
        QTest::newRow("document and its prefix")
            << "frmDocumentos" << QStringList{"0=fv", "1=Factura", "2=fac", "3=fv"} << "Documentos"
            << "codigo_documento = 'FV' AND numeracion = 'FAC' AND identificador = 'FV'";
    }
    void codigosEnMayusculas() {
        QFETCH(QString, nombre);
        QFETCH(QStringList, campos);
        QFETCH(QString, tabla);
        QFETCH(QString, condicion);
        crearEmpresaPrueba();
        sesionEmp();
        numeracion::Insert(*sesion_conexion, "EMP", kAnio, "FAC", 7, 1, "Facturas", "PRUEBA");
        Buzon buzon;
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        rellenar(f, campos);
        QCOMPARE(f->txt(0)->text(), f->txt(0)->text().toUpper());
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas(tabla, condicion), 1);
    }

    // The refusals of insert, modify and delete, each with its form's message and nothing
    // written.
    void mensajesAlGuardar_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QKeySequence>("tecla");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("mensaje");
        const auto m = [](int codigo) { return MensajeError(codigo); };
        const QStringList empresa{"0=EMP", "1=B12345674", "2=Otra", "11=8"};
        QTest::newRow("company exists")
            << "frmEmpresas" << empresa << kInsertar << "Empresas" << m(1011);
        QTest::newRow("company missing")
            << "frmEmpresas" << QStringList{"0=NO", "1=B12345674", "2=N", "11=8"} << kModificar
            << "Empresas" << m(1011);
        QTest::newRow("active company")
            << "frmEmpresas" << QStringList{"0=EMP"} << kBorrar << "Empresas" << m(1036);
        QTest::newRow("branch exists") << "frmDelegaciones" << QStringList{"0=SUR", "1=Sur"}
                                       << kInsertar << "Delegaciones" << m(1015);
        QTest::newRow("branch missing") << "frmDelegaciones" << QStringList{"0=NORTE", "1=Norte"}
                                        << kModificar << "Delegaciones" << m(1016);
        QTest::newRow("active branch")
            << "frmDelegaciones" << QStringList{"0=EMP"} << kBorrar << "Delegaciones" << m(1037);
        QTest::newRow("account exists") << "frmCuentas" << QStringList{"0=430", "1=Clientes"}
                                        << kInsertar << "Cuentas" << m(1017);
        QTest::newRow("account missing")
            << "frmCuentas" << QStringList{"0=999", "1=Nada"} << kModificar << "Cuentas" << m(1018);
        QTest::newRow("account with postings")
            << "frmCuentas" << QStringList{"0=43.1"} << kBorrar << "Cuentas" << m(1035);
        QTest::newRow("year exists")
            << "frmEjercicios" << QStringList{"0=" + kAnioTexto, "1=01/01/1990", "2=31/12/1990"}
            << kInsertar << "Ejercicios" << m(1031);
        QTest::newRow("year missing")
            << "frmEjercicios" << QStringList{"0=1990", "1=01/01/1990", "2=31/12/1990"}
            << kModificar << "Ejercicios" << m(1032);
        QTest::newRow("active year") << "frmEjercicios" << QStringList{"0=" + kAnioTexto} << kBorrar
                                     << "Ejercicios" << m(1030);
        QTest::newRow("year missing on delete")
            << "frmEjercicios" << QStringList{"0=1990"} << kBorrar << "Ejercicios" << m(1031);
        QTest::newRow("series exists")
            << "frmNumeracion" << QStringList{"0=FAC", "1=7", "2=1", "3=F"} << kInsertar
            << "Numeraciones" << m(9999);
        QTest::newRow("journal exists")
            << "frmDiarios" << QStringList{"0=G", "1=General"} << kInsertar << "Diarios" << m(9999);
        QTest::newRow("journal missing")
            << "frmDiarios" << QStringList{"0=X", "1=Otro"} << kModificar << "Diarios" << m(9999);
    }
    void mensajesAlGuardar() {
        QFETCH(QString, nombre);
        QFETCH(QStringList, campos);
        QFETCH(QKeySequence, tecla);
        QFETCH(QString, tabla);
        QFETCH(QString, mensaje);
        crearEmpresaPrueba();
        sesionEmp();
        Conexion& c = *sesion_conexion;
        numeracion::Insert(c, "EMP", kAnio, "FAC", 7, 1, "Facturas", "PRUEBA");
        Diarios::Insert(c, "EMP", "G", "General", "PRUEBA");
        const QString fecha = "15/03/" + kAnioTexto;
        Apuntes::Insert(c, "EMP", "SUR", "FAC", "1", 1, "G", fecha, fecha, "", "43000001", "Venta",
                        121, 0, "P", "", "PRUEBA");
        cuentas::Insert(c, "EMP", "43000001", "Cliente", "S", 8, "PRUEBA");
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        rellenar(f, campos);
        comprobarRechazo(tecla, tabla, mensaje);
    }

    // The store refuses the second pass of a three-digit chart: the company leaves no row in
    // any table, and the form keeps what was typed.
    void provisionConDigitosTres() {
        sesion_usuario = "CUSTODIOS";
        sesion_empresa = sesion_delegacion = QString();
        FormularioMantenimiento* f = abrirMantenimiento("frmEmpresas");
        rellenar(f, {"0=TRES", "1=B12345674", "2=Tres dígitos", "11=3"});
        Buzon buzon;
        pulsar(kInsertar);
        QCOMPARE(buzon.textos.size(), 1);
        QVERIFY2(buzon.ultimo().startsWith(QString::number(errores::kInsert)),
                 qPrintable(buzon.ultimo()));
        for (const QString& t : tablasDeEmpresa())
            QVERIFY2(filas(t, "codigo_empresa = 'TRES'") == 0, qPrintable(t));
        QCOMPARE(f->txt(0)->text(), QStringLiteral("TRES"));
        QCOMPARE(f->lista()->filas(), 0);
    }

    // Years may not share a day; a range around another passes, its ends being outside. A new
    // year takes the series of the year before it with their numbers back at 1; deleting it
    // takes the session branch's entries of its dates.
    void ejerciciosYSusSeries() {
        crearEmpresaPrueba();
        sesionEmp();
        Conexion& c = *sesion_conexion;
        numeracion::Insert(c, "EMP", kAnio, "FAC", 7, 57, "Facturas", "PRUEBA");
        FormularioMantenimiento* f = abrirMantenimiento("frmEjercicios");
        QCOMPARE(f->txt(0)->text(), kAnioTexto);  // a clean form proposes this year
        const QString siguiente = QString::number(kAnio + 1);
        Buzon buzon;
        rellenar(f, {"0=" + siguiente, "1=31/12/" + kAnioTexto, "2=31/12/" + siguiente});
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList(MensajeError(1033)));
        QCOMPARE(filas("Ejercicios"), 1);

        buzon.vaciar();
        rellenar(f, {"1=01/01/" + siguiente, "2=31/12/" + siguiente});
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        Recordset serie = numeracion::GetList(c, "ejercicio = " + siguiente, {});
        QCOMPARE(serie["numeracion"].toString(), QStringLiteral("FAC"));
        QCOMPARE(serie["numero"].toInt(), 1);
        QCOMPARE(serie["longitud"].toInt(), 7);

        const QString lejano = QString::number(kAnio + 10);
        rellenar(f, {"0=" + lejano, "1=01/01/" + QString::number(kAnio - 1),
                     "2=31/12/" + QString::number(kAnio + 2)});
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas("Ejercicios"), 3);

        const QString fecha = "10/02/" + siguiente;
        for (const char* d : {"EMP", "SUR"})
            Apuntes::Insert(c, "EMP", d, "FAC", "9", 1, "G", fecha, fecha, "", "43000000", "V", 1,
                            0, "P", "", "PRUEBA");
        buzon.respuestas << Respuesta::Si;
        rellenar(f, {"0=" + siguiente});
        pulsar(kBorrar);
        QCOMPARE(buzon.ultimo(), "¿Desea eliminar el ejercicio " + siguiente +
                                     "? (Los datos relacionados con el ejercicio se eliminarán)");
        QCOMPARE(filas("Ejercicios", "ejercicio = " + siguiente), 0);
        QCOMPARE(filas("Numeraciones", "ejercicio = " + siguiente), 0);
        QCOMPARE(filas("Apuntes", "codigo_delegacion = 'EMP'"), 0);
        QCOMPARE(filas("Apuntes", "codigo_delegacion = 'SUR'"), 1);
    }

    // Short codes with a point are filled with zeros on leaving, before a lookup or a save;
    // a new code of full length is proposed as a posting account.
    void cuentasConElPunto() {
        crearEmpresaPrueba();
        sesionEmp();
        FormularioMantenimiento* f = abrirMantenimiento("frmCuentas");
        Buzon buzon;
        teclear(f->txt(0), "43.1");
        QCOMPARE(f->txt(0)->text(), QStringLiteral("43000001"));
        QVERIFY(f->chk(0)->isChecked());
        teclear(f->txt(1), "Cliente uno");
        pulsar(kInsertar);
        QCOMPARE(filas("Cuentas", "cuenta = '43000001' AND pases = 'S' AND nivel = 8"), 1);

        // Saved from the code field itself, without leaving it.
        escribir(f->txt(0), "57.2");
        f->chk(0)->setChecked(true);
        escribir(f->txt(1), "Banco");
        f->txt(0)->setFocus();
        escribir(f->txt(0), "57.2");
        pulsar(kInsertar);
        QCOMPARE(filas("Cuentas", "cuenta = '57000002' AND descripcion = 'Banco'"), 1);

        // A heading keeps its box; an existing one shows its own.
        f->chk(0)->setChecked(true);
        teclear(f->txt(0), "43999");
        QVERIFY(f->chk(0)->isChecked());
        teclear(f->txt(0), "430");
        QVERIFY(!f->chk(0)->isChecked());
        QVERIFY(!f->txt(1)->text().isEmpty());
        QCOMPARE(buzon.textos, QStringList());

        pulsar(kCancelar);
        teclear(f->txt(1), "Cliente uno");
        pulsar(kFiltrar);
        QCOMPARE(filasDe(f->lista()), QStringList("43000001|S"));
    }

    // Alta Cartera and Gest. Carte. exclude each other; Cobros and Pagos count only with the
    // second. What is saved comes back on screen.
    void documentosYSusMarcas() {
        crearEmpresaPrueba();
        sesionEmp();
        numeracion::Insert(*sesion_conexion, "EMP", kAnio, "FAC", 7, 1, "Facturas", "PRUEBA");
        FormularioMantenimiento* f = abrirMantenimiento("frmDocumentos");
        QVERIFY(f->opt(0)->isChecked());
        QVERIFY(!f->opt(2)->isEnabled());
        f->chk(1)->click();
        f->chk(2)->click();
        QVERIFY(!f->chk(1)->isChecked());
        QVERIFY(f->opt(2)->isEnabled() && f->opt(2)->isChecked());
        f->chk(1)->click();
        QVERIFY(!f->chk(2)->isChecked());
        QVERIFY(!f->opt(3)->isEnabled());

        const auto guardar = [&](const QString& codigo, int partida, bool iva, int cartera,
                                 int opcion) {
            pulsar(kCancelar);
            rellenar(f, {"0=" + codigo, "1=Documento " + codigo, "2=FAC", "3=FV"});
            f->opt(partida)->setChecked(true);
            f->chk(0)->setChecked(iva);
            if (cartera) f->chk(cartera)->click();
            f->opt(opcion)->setChecked(true);
            f->txt(0)->setFocus();
            pulsar(kInsertar);
        };
        Buzon buzon;
        guardar("FV", 1, true, 2, 3);
        guardar("FC", 0, false, 1, 3);
        guardar("NO", 0, true, 0, 3);  // Pagos without Gest. Carte. is ignored
        QCOMPARE(buzon.textos, QStringList());
        QStringList guardados;
        for (Recordset rs = sesion_conexion->open(
                 "SELECT codigo_documento, partida, iva, cartera FROM Documentos "
                 "ORDER BY codigo_documento");
             !rs.eof(); rs.moveNext())
            guardados << rs.value(0).toString() + rs.value(1).toString() + rs.value(2).toString() +
                             rs.value(3).toString();
        QCOMPARE(guardados, QStringList({"FCDNA", "FVHSP", "NODSN"}));

        pulsar(kCancelar);
        teclear(f->txt(0), "FV");
        QVERIFY(f->opt(1)->isChecked());
        QVERIFY(f->chk(0)->isChecked());
        QVERIFY(f->chk(2)->isChecked() && !f->chk(1)->isChecked());
        QVERIFY(f->opt(3)->isChecked() && f->opt(3)->isEnabled());
        QCOMPARE(f->txt(2)->text(), QStringLiteral("FAC"));
    }

    // A branch added on the form is known to every user and open to none.
    void delegacionNueva() {
        crearEmpresaPrueba();
        sesionEmp();
        FormularioMantenimiento* f = abrirMantenimiento("frmDelegaciones");
        rellenar(f, {"0=NORTE", "1=Delegación norte"});
        pulsar(kInsertar);
        QCOMPARE(filas("UsuariosDelegaciones",
                       "codigo_usuario = 'ANA' AND codigo_delegacion = 'NORTE' AND activo = 0"),
                 1);
    }
};

QTEST_MAIN(PruebaEmpresa)
#include "prueba_empresa.moc"
