#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <functional>

class QLabel;
class QWidget;

// The events of a form's indexed fields, dispatched to per-index hooks: receiving the focus,
// the check on leaving (which may refuse, and then the focus goes back to the field), leaving,
// changing, double click, and the lookup key F10. Enter moves on like Tab, so that a form is
// worked from the keyboard.
//
// Leaving is leaving for another control of the same form: a message box, a lookup window, the
// menu or another form does not validate the field then; it is validated when the focus comes
// back into the form, so that a refused field never holds the user inside its form.
//
// A text field drops the control characters (a NUL) that a paste may bring: no key types them.
class EventosCampos : public QObject {
    Q_OBJECT
public:
    struct Manejadores {
        std::function<void(int)> foco;
        std::function<bool(int)> validar;  // false keeps the focus in the field
        std::function<void(int)> salir;
        std::function<void(int)> cambio;
        std::function<void(int)> dobleClic;  // also F10
    };

    explicit EventosCampos(QObject* padre = nullptr) : QObject(padre) {}
    void manejadores(Manejadores m) { m_ = std::move(m); }

    // A text field or editable box of index `indice`.
    void vigilar(QWidget* control, int indice);

    // A box or button that only moves on with Enter; receiving the focus, it calls the focus
    // hook with index -1, having no index of its own.
    void avanzarConIntro(QWidget* control);

    // While true, nothing is dispatched (fields being filled by the program).
    bool silencio = false;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    Manejadores m_;
    QHash<QObject*, int> indices_;
    QSet<QObject*> soloIntro_;
    QPointer<QWidget> devolviendo_;  // the field the focus is being sent back to
    QPointer<QWidget> aplazado_;     // a field left for another window, not yet checked
};

// The label's caption without its accelerator mark and its colon: the accessible name of the
// control it stands for, which also becomes the label's buddy.
void rotular(QLabel* etiqueta, QWidget* control);
