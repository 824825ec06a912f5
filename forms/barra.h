#pragma once

#include <QHash>
#include <QIcon>
#include <QStringList>

class QAction;
class QToolBar;
class QWidget;

// The toolbar of the forms: keyed buttons without captions, in the fixed order cancelar,
// insertar, modificar, filtrar, lupa, borrar, listar, imprimir, ayudar, with separators between
// the groups. The keys are the protocol between a form, its toolbar and the user's restrictions.
namespace claves {
inline const QString cancelar = QStringLiteral("cancelar");
inline const QString insertar = QStringLiteral("insertar");
inline const QString modificar = QStringLiteral("modificar");
inline const QString filtrar = QStringLiteral("filtrar");
inline const QString lupa = QStringLiteral("lupa");
inline const QString borrar = QStringLiteral("borrar");
inline const QString listar = QStringLiteral("listar");
inline const QString imprimir = QStringLiteral("imprimir");
inline const QString ayudar = QStringLiteral("ayudar");
}  // namespace claves

// The eleven icons of icons16/, by key: validar, borrar, buscar, cancelar, imprimir, listar,
// modificar, filtrar, ayudar, insertar, lupa. A missing file gives an empty icon.
QHash<QString, QIcon> CargarIconos();

// Fills the toolbar with its buttons. Each button's action is also put on `formulario`, so that
// its key works wherever the focus is inside that form, and nowhere else; the tooltip names
// the key. The lupa button has no key of its own: F10 in a field does the field's lookup.
void MontarToolbar(QToolBar* toolbar, QWidget* formulario);

// The button of a key; a key the toolbar does not have is an Error.
QAction* Boton(const QToolBar* toolbar, const QString& clave);
void ActivarBotones(const QToolBar* toolbar, const QStringList& claves);
void DesactivarBotones(const QToolBar* toolbar, const QStringList& claves);
