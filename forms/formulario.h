#pragma once

#include <QList>
#include <QPair>
#include <QWidget>

class QToolBar;
class QTreeWidget;

// What every window of the system that opens inside the main window shares: its name (the
// name the menu opens it by and its section in Saldeva.ini), its caption, its geometry and
// column widths restored when it first shows and written when it is unloaded.
class Formulario : public QWidget {
    Q_OBJECT
public:
    Formulario(const QString& nombre, const QString& titulo, QWidget* padre = nullptr);

    QString nombre() const { return objectName(); }
    // The frame that holds the form: its MDI window, or the form itself when it stands alone.
    QWidget* ventana();
    const QWidget* ventana() const;
    // Unloads the form, as closing its window does.
    void descargar();

    // Forms of a company's data cannot work without one in session: the message that refuses
    // the form when the session lacks what it needs, or empty when it may open.
    virtual QString faltaSesion() const { return {}; }
    // The toolbar whose keyed buttons the user's restrictions switch off; none by default.
    virtual QToolBar* barra() const { return nullptr; }

protected:
    // A list whose column widths are kept under `prefijo` ("Grid_C" and its number).
    void guardarColumnasDe(QTreeWidget* lista, const QString& prefijo = QStringLiteral("Grid_C"));
    // Default size of the window before Saldeva.ini has one.
    void tamanoInicial(int ancho, int alto);
    // For a window that keeps its place elsewhere (the lookup keeps it in Listas.ini).
    void noGuardarGeometria() { conGeometria_ = false; }

    void showEvent(QShowEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    bool restaurada_ = false;
    bool conGeometria_ = true;
    QSize inicial_;
    QList<QPair<QTreeWidget*, QString>> listas_;
};
