#include "frmmain.h"

#include "data/arranque.h"
#include "data/global.h"
#include "forms/estado.h"
#include "forms/formulario.h"
#include "forms/formularios.h"
#include "forms/geometria.h"
#include "forms/msgbox.h"
#include "frmmenu.h"
#include "sesion.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

namespace {
const QString kSeccion = QStringLiteral("frmMain");
}

frmMain::frmMain() {
    setObjectName(kSeccion);
    setWindowTitle(tituloAplicacion());
    area_ = new QMdiArea(this);
    area_->setObjectName(QStringLiteral("MDIArea"));
    setCentralWidget(area_);
    formularios::establecerArea(area_);

    auto* barra = new QToolBar(this);
    barra->setObjectName(QStringLiteral("ToolbarMain"));
    barra->setMovable(false);
    barra->setFloatable(false);
    reiniciar_ = new QPushButton(QStringLiteral("Cambio de empresa/ejercicio"), barra);
    reiniciar_->setObjectName(QStringLiteral("cmdReiniciar"));
    salir_ = new QPushButton(QStringLiteral("Salir"), barra);
    salir_->setObjectName(QStringLiteral("cmdSalir"));
    // Each button takes half the screen's width.
    const int mitad =
        QApplication::primaryScreen() ? QApplication::primaryScreen()->size().width() / 2 : 400;
    for (QPushButton* b : {reiniciar_, salir_}) {
        // A click here is no leaving of the field being typed: nothing is checked or drawn
        // for work that the question may then throw away.
        b->setFocusPolicy(Qt::NoFocus);
        b->setMinimumWidth(mitad / 3);
        b->setMaximumWidth(mitad);
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        barra->addWidget(b);
    }
    addToolBar(Qt::TopToolBarArea, barra);

    auto* estado = new QStatusBar(this);
    estado->setObjectName(QStringLiteral("sbStatusBar"));
    setStatusBar(estado);
    const QString iniciales[] = {QStringLiteral("Estado"),
                                 {},
                                 {},
                                 {},
                                 {},
                                 {},
                                 {},
                                 QStringLiteral("MAYÚS"),
                                 QStringLiteral("NÚM"),
                                 QStringLiteral("INS")};
    for (int i = 0; i < 10; ++i) {
        auto* panel = new QLabel(iniciales[i], estado);
        panel->setObjectName(QStringLiteral("panel%1").arg(i + 1));
        panel->setFrameShape(QFrame::Panel);
        panel->setFrameShadow(QFrame::Sunken);
        panel->setContentsMargins(4, 0, 4, 0);
        if (i == 0)
            estado->addWidget(panel, 1);
        else if (i < 5)
            estado->addWidget(panel, 2);
        else
            estado->addPermanentWidget(panel);
        paneles_ << panel;
    }
    estado::establecerPanel(paneles_.first());  // where the forms say what they have done
    actualizarReloj();
    auto* reloj = new QTimer(this);
    connect(reloj, &QTimer::timeout, this, &frmMain::actualizarReloj);
    reloj->start(1000);

    // The menu is one key away from any form.
    auto* alMenu = new QAction(QStringLiteral("Ir al menú"), this);
    alMenu->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    alMenu->setShortcutContext(Qt::WindowShortcut);
    addAction(alMenu);
    connect(alMenu, &QAction::triggered, this, [] {
        if (frmMenu* m = menu()) formularios::mostrar(m);
    });

    // Ctrl+F4 closes the active form, as its window's close button does; the menu stays. The
    // key is taken here, before the forms' own windows see it, so that it never depends on
    // which of them holds it.
    auto* cerrar = new QAction(QStringLiteral("Cerrar el formulario"), this);
    cerrar->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4));
    cerrar->setShortcutContext(Qt::WindowShortcut);
    addAction(cerrar);
    connect(cerrar, &QAction::triggered, this, [this] {
        QMdiSubWindow* activa = area_->activeSubWindow();
        if (activa && !(menu() && activa->widget() == menu())) activa->close();
    });

    // Both ask once, naming what the open forms hold unsaved; on Yes that work is discarded
    // (a number drawn for it goes back to its series) before the session ends.
    connect(reiniciar_, &QPushButton::clicked, this, [] {
        const QString pregunta =
            QStringLiteral("¿Realmente desea cambiar de empresa ") + tituloAplicacion() + u'?';
        if (confirmarDescarte(formularios::abiertos(), pregunta)) CambiarSesion();
    });
    connect(salir_, &QPushButton::clicked, this, [] {
        const QString pregunta =
            QStringLiteral("¿Realmente quiere salir de ") + tituloAplicacion() + u'?';
        if (confirmarDescarte(formularios::abiertos(), pregunta)) terminarProceso();
    });

    // Until Saldeva.ini says otherwise, most of the screen.
    if (const QScreen* pantalla = QApplication::primaryScreen()) {
        const QRect util = pantalla->availableGeometry();
        const QSize tamano = util.size() * 0.9;
        setGeometry(QRect(util.center() - QPoint(tamano.width() / 2, tamano.height() / 2), tamano));
    }
    geometria::restaurar(this, kSeccion);
}

frmMain::~frmMain() {
    if (formularios::area() == area_) formularios::establecerArea(nullptr);
}

void frmMain::rellenarEstado() {
    panel(2)->setText(QStringLiteral("PC: ") + NombrePC());
    panel(3)->setText(QStringLiteral("Empresa: ") + sesion_empresa);
    panel(4)->setText(QStringLiteral("Delegación: ") + sesion_delegacion);
    panel(5)->setText(QStringLiteral("Ejercicio: ") + QString::number(sesion_ejercicio));
}

void frmMain::actualizarReloj() {
    const QDateTime ahora = QDateTime::currentDateTime();
    panel(6)->setText(ahora.toString(QStringLiteral("dd/MM/yyyy")));
    panel(7)->setText(ahora.toString(QStringLiteral("HH:mm")));
}

void frmMain::closeEvent(QCloseEvent* evento) {
    // An entry being typed is not lost by closing the window either: asked as Salir asks.
    const QList<Formulario*> abiertos = formularios::abiertos();
    if (std::any_of(abiertos.begin(), abiertos.end(),
                    [](const Formulario* f) { return !f->trabajoSinGrabar().isEmpty(); }) &&
        !confirmarDescarte(
            abiertos, QStringLiteral("¿Realmente quiere salir de ") + tituloAplicacion() + u'?'))
        return evento->ignore();
    // Forms first, each writing its own geometry; then the stores; then this window.
    formularios::cerrarTodos();
    cerrarAlmacenes();
    geometria::guardar(this, kSeccion);
    evento->accept();
    olvidarPrincipal();
}
