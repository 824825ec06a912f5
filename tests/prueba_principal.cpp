// The main window and the menu: the start-up order with the real windows, the tree each login
// sees, opening forms by name, the change of session, and the two ways a run ends.
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/sesion_prueba.h"
#include "data/almacen/programa.h"
#include "data/arranque.h"
#include "data/entidades/menususuarios.h"
#include "data/global.h"
#include "data/inifunc.h"
#include "forms/barra.h"
#include "forms/formulario.h"
#include "forms/formularios.h"
#include "session/frmlogin.h"
#include "session/frmmain.h"
#include "session/frmmenu.h"
#include "session/sesion.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>

namespace {

void sesionDe(const QString& usuario) {
    sesion_usuario = usuario;
    sesion_empresa = usuario == "CUSTODIOS" ? QString() : QStringLiteral("EMP");
    sesion_delegacion = sesion_empresa;
    sesion_ejercicio = usuario == "CUSTODIOS" ? 0 : 2026;
}

QStringList nodos(const QTreeWidget* arbol) {
    QStringList textos;
    for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(arbol)); *it; ++it)
        textos << (*it)->text(0);
    return textos;
}

QStringList abiertos() {
    QStringList nombres;
    for (Formulario* f : formularios::abiertos()) nombres << f->nombre();
    nombres.sort();
    return nombres;
}

QString ini(const QString& seccion, const QString& clave) {
    return GetIni(programa::ruta("Saldeva.ini"), seccion, clave, "-");
}

}  // namespace

class PruebaPrincipal : public QObject {
    Q_OBJECT
    std::unique_ptr<AlmacenPrueba> almacen;
    int finales = 0;
private Q_SLOTS:
    void initTestCase() {
        CREAR_ALMACEN(almacen);
        silenciarAvisosDePlataforma();
        registrarFormulariosSesion();
        establecerFinProceso([this] { ++finales; });
    }
    void init() {
        almacen->nuevo();
        SincronizarMenus();
        crearEmpresaPrueba();
        QFile::remove(programa::ruta("Saldeva.ini"));
        finales = 0;
    }
    void cleanup() {
        if (principal()) delete principal();
        olvidarPrincipal();
    }
    void cleanupTestCase() { almacen.reset(); }

    // Main with the real windows: the login first, then the main window and its menu.
    void arranqueCompleto() {
        almacen->cerrar();
        sesion_usuario = sesion_empresa = sesion_delegacion = QString();
        sesion_ejercicio = 0;
        responderLogin(entrarComoMantenimiento);
        VentanasPrograma ventanas;
        QCOMPARE(Main(ventanas), 0);
        QVERIFY(principal() && principal()->isVisible());
        QVERIFY(menu() && menu()->isVisible());
        QCOMPARE(principal()->panel(1)->text(), QStringLiteral("Estado"));
        QCOMPARE(principal()->panel(2)->text(), QStringLiteral("PC: ") + NombrePC());
        QCOMPARE(principal()->panel(3)->text(), QStringLiteral("Empresa: "));
        QCOMPARE(principal()->panel(4)->text(), QStringLiteral("Delegación: "));
        QCOMPARE(principal()->panel(5)->text(), QStringLiteral("Ejercicio: 0"));
        QCOMPARE(principal()->panel(8)->text(), QStringLiteral("MAYÚS"));
        // The menu stands at the left, a fifth of the main window's width.
        const QSize cliente = principal()->area()->viewport()->size();
        QCOMPARE(menu()->ventana()->width(), int(cliente.width() * 0.2));
    }

    void menuSegunElLogin_data() {
        QTest::addColumn<QString>("usuario");
        QTest::addColumn<QString>("condicion");
        QTest::newRow("maintenance login") << "CUSTODIOS"
                                           << "administrador <> 0";
        QTest::newRow("ordinary user") << "ANA"
                                       << "activo <> 0";
    }
    void menuSegunElLogin() {
        QFETCH(QString, usuario);
        QFETCH(QString, condicion);
        // An item switched off is gone for a user, though the administrator's flag is on.
        sesion_conexion->execute("UPDATE Menus SET activo = 0 WHERE item_menu = '007001000000'");
        sesionDe(usuario);
        VentanasPrograma().mostrarPrincipal();
        const QStringList arbol = nodos(menu()->TreeViewMenu());
        QCOMPARE(arbol.size(), filas("Menus", condicion));
        QVERIFY(arbol.contains("Usuarios"));
        QCOMPARE(arbol.contains("Entrada de apuntes"), usuario != "CUSTODIOS");
        QCOMPARE(arbol.contains("Acerca de Saldeva"), usuario == "CUSTODIOS");
        QCOMPARE(principal()->panel(3)->text(), "Empresa: " + sesion_empresa);
    }

    // A folder hidden with its items goes away whole; "L" leaves the form usable but without
    // its list buttons. The maintenance login reads no restrictions at all.
    void restricciones() {
        Conexion& c = *sesion_conexion;
        for (const char* item : {"005000000000", "005001000000", "005002000000", "005003000000",
                                 "005004000000", "005004001000", "005004002000", "005005000000",
                                 "005005001000", "005005002000", "005006000000", "005007000000"})
            MenusUsuarios::Insert(c, "ANA", "EMP", "EMP", item, "V", "PRUEBA");
        MenusUsuarios::Insert(c, "ANA", "EMP", "EMP", "001001000000", "L", "PRUEBA");
        MenusUsuarios::Insert(c, "ANA", "EMP", "SUR", "001001000000", "IEB", "PRUEBA");
        sesionDe("ANA");
        VentanasPrograma().mostrarPrincipal();
        const QStringList arbol = nodos(menu()->TreeViewMenu());
        QCOMPARE(arbol.size(), filas("Menus", "activo <> 0") - 12);
        QVERIFY(!arbol.contains("Informes"));
        QVERIFY(!arbol.contains("Libro Diario"));
        abrir("Usuarios");
        QToolBar* barra = formularios::buscar("frmUsuarios")->barra();
        QVERIFY(!Boton(barra, claves::listar)->isEnabled());
        QVERIFY(!Boton(barra, claves::imprimir)->isEnabled());
        QVERIFY(Boton(barra, claves::insertar)->isEnabled());
        QVERIFY(Boton(barra, claves::borrar)->isEnabled());
    }

    void unaHojaAbreSuFormularioUnaVez() {
        sesionDe("CUSTODIOS");
        VentanasPrograma().mostrarPrincipal();
        activar(principal());
        abrir("Usuarios");
        Formulario* usuarios = formularios::buscar("FRMUSUARIOS");
        QVERIFY(usuarios);
        abrir("Acerca de Saldeva");
        QCOMPARE(principal()->area()->activeSubWindow()->widget()->objectName(),
                 QStringLiteral("frmAbout"));
        usuarios->ventana()->showMinimized();
        abrir("Usuarios");
        QCOMPARE(abiertos(), QStringList({"frmAbout", "frmMenu", "frmUsuarios"}));
        QCOMPARE(formularios::buscar("frmUsuarios"), usuarios);
        QVERIFY(!usuarios->ventana()->isMinimized());
        QCOMPARE(principal()->area()->activeSubWindow(), usuarios->ventana());
        // A folder only folds.
        abrir("Empresa");
        QCOMPARE(abiertos().size(), 3);
        // Ctrl+M takes the keyboard back to the menu from a form.
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(Qt::CTRL | Qt::Key_M));
        QCOMPARE(principal()->area()->activeSubWindow(), menu()->ventana());
    }

    void formularioSinCodigoAvisaYSigue() {
        sesionDe("ANA");
        VentanasPrograma().mostrarPrincipal();
        Buzon buzon;
        abrir("Entrada de apuntes");
        QCOMPARE(buzon.textos, QStringList("No existe el formulario \"frmApunte\"."));
        QCOMPARE(buzon.iconos.value(0), Icono::Critico);
        QCOMPARE(abiertos(), QStringList("frmMenu"));
        abrir("Grupos de usuarios");
        QCOMPARE(abiertos(), QStringList({"frmMenu", "frmUsuariosDelegaciones"}));
    }

    void cerrarEscribeLaGeometriaYSalirNo() {
        sesionDe("CUSTODIOS");
        VentanasPrograma().mostrarPrincipal();
        abrir("Usuarios");
        formularios::buscar("frmUsuarios")->ventana()->setGeometry(20, 30, 400, 300);

        // Salir asks, and on No nothing happens.
        Buzon buzon;
        principal()->cmdSalir()->click();
        QCOMPARE(buzon.ultimo(), QStringLiteral("¿Realmente quiere salir de Saldeva?"));
        QCOMPARE(finales, 0);
        buzon.respuestas << Respuesta::Si;
        principal()->cmdSalir()->click();
        QCOMPARE(finales, 1);
        QCOMPARE(ini("frmUsuarios", "Left"), QStringLiteral("-"));
        QCOMPARE(ini("frmMain", "Left"), QStringLiteral("-"));

        // Closing the window unloads each form first, then writes its own place.
        principal()->close();
        QCOMPARE(ini("frmUsuarios", "Left"), QStringLiteral("300"));
        QCOMPARE(ini("frmUsuarios", "Top"), QStringLiteral("450"));
        QCOMPARE(ini("frmUsuarios", "Width"), QStringLiteral("6000"));
        // The list's one column (no password is listed) stretches to the window's width.
        QVERIFY(ini("frmUsuarios", "Grid_C01").toInt() >= 2100);
        QVERIFY(ini("frmMain", "Width") != "-");
        QVERIFY(!sesion_conexion);  // the stores are closed

        // The next run restores the form where it was left.
        almacen->nuevo();
        SincronizarMenus();
        VentanasPrograma().mostrarPrincipal();
        abrir("Usuarios");
        QCOMPARE(formularios::buscar("frmUsuarios")->ventana()->geometry(),
                 QRect(20, 30, 400, 300));
    }

    void cambioDeSesion() {
        sesionDe("ANA");
        VentanasPrograma().mostrarPrincipal();
        abrir("Usuarios");
        Buzon buzon;

        // No: nothing changes.
        principal()->cmdReiniciar()->click();
        QCOMPARE(buzon.ultimo(), QStringLiteral("¿Realmente desea cambiar de empresa Saldeva?"));
        QCOMPARE(abiertos(), QStringList({"frmMenu", "frmUsuarios"}));

        // Yes, then the login cancelled: the main window stays alone with its buttons.
        buzon.respuestas << Respuesta::Si;
        responderLogin([](frmLogin& login) { login.cmdCancel()->click(); });
        principal()->cmdReiniciar()->click();
        QCOMPARE(abiertos(), QStringList());
        QVERIFY(!menu());
        QCOMPARE(sesion_usuario, QStringLiteral("ANA"));

        // Offered again, and accepted: a new menu for the new login.
        buzon.respuestas << Respuesta::Si;
        responderLogin(entrarComoMantenimiento);
        principal()->cmdReiniciar()->click();
        QCOMPARE(abiertos(), QStringList("frmMenu"));
        QCOMPARE(nodos(menu()->TreeViewMenu()).size(), filas("Menus", "administrador <> 0"));
        QCOMPARE(sesion_usuario, QStringLiteral("CUSTODIOS"));
    }
};

QTEST_MAIN(PruebaPrincipal)
#include "prueba_principal.moc"
