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

    // Work typed in the form and not stored, which closing the form would lose: one sentence
    // that names it and says so, for a question ("En «Entrada de apuntes», el asiento FV00027
    // no está grabado y se descartará."), or empty when there is none. A form only showing
    // what is stored, or untouched, holds none.
    virtual QString trabajoSinGrabar() const { return {}; }
    // Throws that work away and gives back what was taken for it (a number drawn from a
    // series); the form stays open, empty. Whoever calls it has asked the user.
    virtual void descartarTrabajo() {}

protected:
    // A list whose column widths are kept under `prefijo` ("Grid_C" and its number).
    void guardarColumnasDe(QTreeWidget* lista, const QString& prefijo = QStringLiteral("Grid_C"));
    // Default size of the window before Saldeva.ini has one.
    void tamanoInicial(int ancho, int alto);
    // For a window that keeps its place elsewhere (the lookup keeps it in Listas.ini).
    void noGuardarGeometria() { conGeometria_ = false; }

    void showEvent(QShowEvent* evento) override;
    // Asks before closing a form that holds unsaved work; on No the form stays open as it was.
    void closeEvent(QCloseEvent* evento) override;

private:
    bool restaurada_ = false;
    bool conGeometria_ = true;
    QSize inicial_;
    QList<QPair<QTreeWidget*, QString>> listas_;
};

// One question for an action that would lose the forms' unsaved work (leaving the program,
// changing the session, closing a window): `pregunta`, with Yes and No, preceded by the
// sentence of each form that holds some. On Yes that work is discarded before the caller goes
// on, so that closing the forms afterwards asks nothing again. With nothing unsaved it is
// `pregunta` alone.
bool confirmarDescarte(const QList<Formulario*>& formularios, const QString& pregunta);
