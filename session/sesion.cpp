#include "sesion.h"

#include "forms/formularios.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "frmabout.h"
#include "frmlogin.h"
#include "frmmain.h"
#include "frmmenu.h"
#include "frmmenususuarios.h"
#include "frmsplash.h"
#include "frmusuarios.h"
#include "frmusuariosdelegaciones.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

namespace {

QPointer<frmMain> principal_;
QPointer<frmMenu> menu_;

std::function<void()>& finProceso() {
    static std::function<void()> fin = [] { QCoreApplication::exit(0); };
    return fin;
}

// The menu stands at the left of the main window: a fifth of its width, all its height.
void abrirMenu() {
    menu_ = new frmMenu;
    formularios::mostrar(menu_);
    const QSize cliente = principal_->area()->viewport()->size();
    menu_->ventana()->setGeometry(0, 0, int(cliente.width() * 0.2), cliente.height());
    formularios::reservarIzquierda(menu_->ventana());
}

}  // namespace

frmMain* principal() {
    return principal_;
}

frmMenu* menu() {
    return menu_;
}

bool mostrarLogin() {
    frmLogin login(principal_);
    login.exec();
    return login.login_aceptado;
}

bool VentanasPrograma::login() {
    return mostrarLogin();
}

void VentanasPrograma::mostrarPrincipal() {
    auto* splash = new frmSplash;
    splash->move(200 / 15, 200 / 15);
    splash->show();
    splash->repaint();
    QApplication::processEvents();
    principal_ = new frmMain;
    principal_->setAttribute(Qt::WA_DeleteOnClose);
    principal_->rellenarEstado();
    principal_->show();
    // Without a window manager nobody else hands the keyboard to the new window: its fields
    // would take keys but never hear the focus arrive or leave.
    principal_->activateWindow();
    delete splash;
    abrirMenu();
}

void CambiarSesion() {
    formularios::cerrarTodos();
    const bool aceptado = mostrarLogin();
    if (!principal_) return;
    principal_->activateWindow();
    if (!aceptado) return;
    Protegido([] {
        abrirMenu();
        principal_->rellenarEstado();
    });
}

void terminarProceso() {
    finProceso()();
}

std::function<void()> establecerFinProceso(std::function<void()> fin) {
    std::function<void()> anterior = std::move(finProceso());
    finProceso() = std::move(fin);
    return anterior;
}

void olvidarPrincipal() {
    principal_.clear();
}

void registrarFormulariosSesion() {
    formularios::registrar(QStringLiteral("frmUsuarios"), [] { return nuevoFrmUsuarios(); });
    formularios::registrar(QStringLiteral("frmUsuariosDelegaciones"),
                           [] { return new frmUsuariosDelegaciones; });
    formularios::registrar(QStringLiteral("frmMenusUsuarios"), [] { return new frmMenusUsuarios; });
    formularios::registrar(QStringLiteral("frmAbout"), [] { return new frmAbout; });
}
