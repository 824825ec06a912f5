#include "barra.h"

#include "data/almacen/error.h"
#include "data/almacen/programa.h"
#include "lista.h"

#include <QAction>
#include <QFile>
#include <QToolBar>

namespace {

struct Posicion {
    const QString& clave;  // empty for a separator
    const char* descripcion;
    QKeySequence tecla;
    const char* nombreTecla;  // as a Spanish keyboard labels it
};

const QString kSeparador;

const Posicion kPosiciones[] = {
    {claves::cancelar, "Cancelar", QKeySequence(Qt::Key_Escape), "Esc"},
    {kSeparador, nullptr, {}, nullptr},
    {claves::insertar, "Insertar", QKeySequence(Qt::Key_F2), "F2"},
    {claves::modificar, "Modificar", QKeySequence(Qt::Key_F3), "F3"},
    {claves::filtrar, "Filtrar", QKeySequence(Qt::Key_F4), "F4"},
    {kSeparador, nullptr, {}, nullptr},
    {claves::lupa, "Lista de consulta", {}, "F10"},
    {kSeparador, nullptr, {}, nullptr},
    {claves::borrar, "Borrar", QKeySequence(Qt::CTRL | Qt::Key_Delete), "Ctrl+Supr"},
    {claves::listar, "Listar", QKeySequence(Qt::Key_F5), "F5"},
    {claves::imprimir, "Imprimir", QKeySequence(Qt::CTRL | Qt::Key_P), "Ctrl+P"},
    {claves::ayudar, "Ayuda", QKeySequence(Qt::Key_F1), "F1"},
};

}  // namespace

QHash<QString, QIcon> CargarIconos() {
    static const char* const kNombres[] = {"validar",  "borrar",   "buscar",    "cancelar",
                                           "imprimir", "listar",   "modificar", "filtrar",
                                           "ayudar",   "insertar", "lupa"};
    QHash<QString, QIcon> iconos;
    for (const char* nombre : kNombres) {
        const QString clave = QString::fromLatin1(nombre);
        const QString archivo = programa::ruta(QStringLiteral("icons16/") + clave + ".ico");
        iconos.insert(clave, QFile::exists(archivo) ? QIcon(archivo) : QIcon());
    }
    return iconos;
}

void MontarToolbar(QToolBar* toolbar, QWidget* formulario) {
    const QHash<QString, QIcon> iconos = CargarIconos();
    toolbar->setIconSize(QSize(16, 16));
    toolbar->setMovable(false);
    toolbar->setFloatable(false);
    for (const Posicion& p : kPosiciones) {
        if (p.clave.isEmpty()) {
            toolbar->addSeparator();
            continue;
        }
        QAction* accion = toolbar->addAction(iconos.value(p.clave), QString());
        accion->setObjectName(p.clave);
        const QString descripcion = QString::fromUtf8(p.descripcion);
        accion->setText(descripcion);
        accion->setToolTip(descripcion + QStringLiteral(" (") + QString::fromUtf8(p.nombreTecla) +
                           QLatin1Char(')'));
        if (!p.tecla.isEmpty()) {
            accion->setShortcut(p.tecla);
            accion->setShortcutContext(Qt::WidgetWithChildrenShortcut);
            formulario->addAction(accion);
        }
    }
}

QAction* Boton(const QToolBar* toolbar, const QString& clave) {
    for (QAction* accion : toolbar->actions())
        if (accion->objectName() == clave) return accion;
    throw Error(errores::kElementoNoEncontrado, QStringLiteral("Elemento no encontrado"));
}

void ActivarBotones(const QToolBar* toolbar, const QStringList& claves) {
    for (const QString& c : claves) Boton(toolbar, c)->setEnabled(true);
}

void DesactivarBotones(const QToolBar* toolbar, const QStringList& claves) {
    for (const QString& c : claves) Boton(toolbar, c)->setEnabled(false);
}
