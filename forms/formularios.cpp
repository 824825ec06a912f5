#include "formularios.h"

#include "data/global.h"
#include "formulario.h"
#include "msgbox.h"

#include <QApplication>
#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>

namespace formularios {
namespace {

struct Registro {
    QString nombre;  // as registered; the table's key is in capitals
    Fabrica fabrica;
};

QHash<QString, Registro>& fabricas() {
    static QHash<QString, Registro> tabla;
    return tabla;
}

QPointer<QMdiArea>& areaActual() {
    static QPointer<QMdiArea> a;
    return a;
}

QPointer<QWidget>& reservada() {
    static QPointer<QWidget> v;
    return v;
}

// Standalone forms (no MDI area) are found among the top-level widgets.
QList<Formulario*> sueltos() {
    QList<Formulario*> lista;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* f = qobject_cast<Formulario*>(w); f && f->isVisible()) lista.append(f);
    return lista;
}

void traerAlFrente(Formulario* f) {
    QWidget* marco = f->ventana();
    if (marco->isMinimized()) marco->showNormal();
    marco->show();
    marco->raise();
    if (auto* sub = qobject_cast<QMdiSubWindow*>(marco); sub && areaActual())
        areaActual()->setActiveSubWindow(sub);
    else
        marco->activateWindow();
    f->setFocus();
}

}  // namespace

void registrar(const QString& nombre, Fabrica fabrica) {
    fabricas().insert(nombre.toUpper(), Registro{nombre, std::move(fabrica)});
}

bool registrado(const QString& nombre) {
    return fabricas().contains(nombre.trimmed().toUpper());
}

QStringList nombres() {
    QStringList lista;
    for (const Registro& r : std::as_const(fabricas())) lista << r.nombre;
    lista.sort(Qt::CaseInsensitive);
    return lista;
}

void establecerArea(QMdiArea* a) {
    areaActual() = a;
}

QMdiArea* area() {
    return areaActual();
}

QList<Formulario*> abiertos() {
    QList<Formulario*> lista;
    if (areaActual())
        for (QMdiSubWindow* sub : areaActual()->subWindowList())
            if (auto* f = qobject_cast<Formulario*>(sub->widget())) lista.append(f);
    lista.append(sueltos());
    return lista;
}

Formulario* buscar(const QString& nombre) {
    const QString buscado = nombre.trimmed().toUpper();
    for (Formulario* f : abiertos())
        if (f->nombre().toUpper() == buscado) return f;
    return nullptr;
}

void mostrar(Formulario* formulario) {
    if (qobject_cast<QMdiSubWindow*>(formulario->parentWidget())) {
        traerAlFrente(formulario);
        return;
    }
    if (areaActual()) {
        QMdiSubWindow* sub = areaActual()->addSubWindow(formulario);
        sub->setAttribute(Qt::WA_DeleteOnClose);
        // Each window's own menu would claim Ctrl+F4 (and Ctrl+W) for itself: with two windows
        // open the key is ambiguous and does nothing. The main window takes it for the active
        // one instead.
        if (QMenu* sistema = sub->systemMenu())
            for (QAction* accion : sistema->actions()) accion->setShortcuts({});
        sub->setWindowIcon(QApplication::windowIcon());
    } else {
        formulario->setAttribute(Qt::WA_DeleteOnClose);
    }
    traerAlFrente(formulario);
}

Formulario* abrir(const QString& nombre) {
    if (nombre.trimmed().isEmpty()) return nullptr;
    if (Formulario* abierto = buscar(nombre)) {
        traerAlFrente(abierto);
        return abierto;
    }
    const auto fabrica = fabricas().constFind(nombre.trimmed().toUpper());
    if (fabrica == fabricas().constEnd()) {
        MsgBox(QStringLiteral("No existe el formulario \"%1\".").arg(nombre.trimmed()),
               Icono::Critico);
        return nullptr;
    }
    QPointer<Formulario> formulario;
    if (!Protegido([&] { formulario = fabrica->fabrica(); }) || !formulario) return nullptr;
    mostrar(formulario);
    if (const QString falta = formulario ? formulario->faltaSesion() : QString();
        !falta.isEmpty()) {
        MsgBox(falta, Icono::Critico);
        formulario->descargar();
        return nullptr;
    }
    return formulario;
}

void reservarIzquierda(QWidget* ventana) {
    reservada() = ventana;
}

int margenIzquierdo(const QWidget* ventana) {
    const QWidget* r = reservada();
    if (!r || r == ventana || !r->isVisible() || r->parentWidget() != ventana->parentWidget())
        return 0;
    return r->geometry().right() + 1;
}

void cerrarTodos() {
    for (Formulario* f : abiertos()) f->descargar();
}

}  // namespace formularios
