#include "campos.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTimer>
#include <algorithm>

namespace {

// Characters that no key types (a NUL, the other control characters) arrive only with a paste.
// A store cannot keep a NUL inside a text, and none of them means anything in a code, a name
// or a number, so the field drops them as they come, before any check or statement sees them.
void sinControles(QLineEdit* campo) {
    QObject::connect(campo, &QLineEdit::textEdited, campo, [campo](const QString& texto) {
        const auto control = [](QChar c) { return c.category() == QChar::Other_Control; };
        if (std::none_of(texto.begin(), texto.end(), control)) return;
        const QString antes = texto.left(campo->cursorPosition());
        const qsizetype quitados = std::count_if(antes.begin(), antes.end(), control);
        QString limpio = texto;
        limpio.removeIf(control);
        campo->setText(limpio);
        campo->setCursorPosition(int(antes.size() - quitados));
    });
}

}  // namespace

void EventosCampos::vigilar(QWidget* control, int indice) {
    indices_.insert(control, indice);
    control->installEventFilter(this);
    if (auto* texto = qobject_cast<QLineEdit*>(control)) {
        sinControles(texto);
        connect(texto, &QLineEdit::textChanged, this, [this, indice] {
            if (!silencio && m_.cambio) m_.cambio(indice);
        });
    } else if (auto* caja = qobject_cast<QComboBox*>(control)) {
        if (QLineEdit* interior = caja->lineEdit()) {
            sinControles(interior);
            interior->installEventFilter(this);
            indices_.insert(interior, indice);
        }
        connect(caja, &QComboBox::editTextChanged, this, [this, indice] {
            if (!silencio && m_.cambio) m_.cambio(indice);
        });
    }
}

void EventosCampos::avanzarConIntro(QWidget* control) {
    soloIntro_.insert(control);
    control->installEventFilter(this);
}

namespace {
bool esIntro(QEvent* evento) {
    if (evento->type() != QEvent::KeyPress) return false;
    const int tecla = static_cast<QKeyEvent*>(evento)->key();
    return tecla == Qt::Key_Return || tecla == Qt::Key_Enter;
}

// The window a control belongs to: its form inside the main window's area, or its own window.
QWidget* formaDe(QWidget* control) {
    QWidget* w = control;
    while (w->parentWidget() && !w->isWindow() && !qobject_cast<QMdiSubWindow*>(w->parentWidget()))
        w = w->parentWidget();
    return w;
}
}  // namespace

bool EventosCampos::eventFilter(QObject* objeto, QEvent* evento) {
    if (soloIntro_.contains(objeto)) {
        // Taking the focus away from the fields: the hook hears it as index -1.
        if (evento->type() == QEvent::FocusIn && !silencio && m_.foco) m_.foco(-1);
        if (!esIntro(evento)) return false;
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(objeto, &tab);
        return true;
    }
    const auto it = indices_.constFind(objeto);
    if (it == indices_.constEnd() || silencio) return false;
    const int indice = *it;
    auto* control = qobject_cast<QWidget*>(objeto);
    // The line edit inside an editable box reports for the box.
    if (auto* caja = qobject_cast<QComboBox*>(control->parentWidget());
        caja && indices_.contains(caja))
        control = caja;

    switch (evento->type()) {
        case QEvent::FocusIn: {
            if (control == devolviendo_) devolviendo_.clear();
            if (objeto != control) return false;
            // Back from the menu or another window: the field left unchecked is checked now,
            // and keeps the focus if it fails again.
            if (QPointer<QWidget> aplazado = std::exchange(aplazado_, nullptr)) {
                const int i = indices_.value(aplazado, -1);
                if (i >= 0 && m_.validar && !m_.validar(i)) {
                    if (aplazado != control) {
                        devolviendo_ = aplazado;
                        QTimer::singleShot(0, aplazado, [aplazado] {
                            if (aplazado) aplazado->setFocus(Qt::OtherFocusReason);
                        });
                    }
                    return false;
                }
                if (i >= 0 && m_.salir) m_.salir(i);
            }
            if (m_.foco) m_.foco(indice);
            // After the click that gave the focus, which would otherwise place the cursor.
            if (auto* texto = qobject_cast<QLineEdit*>(control))
                QTimer::singleShot(0, texto, [texto] { texto->selectAll(); });
            return false;
        }
        case QEvent::FocusOut: {
            if (objeto != control) return false;
            const auto razon = static_cast<QFocusEvent*>(evento)->reason();
            if (razon == Qt::ActiveWindowFocusReason || razon == Qt::PopupFocusReason) return false;
            if (devolviendo_) return false;  // the focus is on its way back to a refused field
            // Going to the menu or to another window is always possible: the field is checked
            // when the focus comes back into its form, not now.
            QWidget* destino = QApplication::focusWidget();
            if (!destino || formaDe(destino) != formaDe(control)) {
                aplazado_ = control;
                return false;
            }
            if (m_.validar && !m_.validar(indice)) {
                devolviendo_ = control;
                QTimer::singleShot(0, control,
                                   [control] { control->setFocus(Qt::OtherFocusReason); });
                return false;
            }
            if (m_.salir) m_.salir(indice);
            return false;
        }
        case QEvent::MouseButtonDblClick:
            if (m_.dobleClic) m_.dobleClic(indice);
            return false;
        case QEvent::KeyPress: {
            auto* tecla = static_cast<QKeyEvent*>(evento);
            if (tecla->key() == Qt::Key_F10 && tecla->modifiers() == Qt::NoModifier) {
                if (m_.dobleClic) m_.dobleClic(indice);
                return true;
            }
            const bool intro = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
            auto* caja = qobject_cast<QComboBox*>(control);
            if (intro && !(caja && caja->view()->isVisible())) {
                QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
                QApplication::sendEvent(control, &tab);
                return true;
            }
            return false;
        }
        default:
            return false;
    }
}

void rotular(QLabel* etiqueta, QWidget* control) {
    etiqueta->setBuddy(control);
    QString nombre = etiqueta->text();
    nombre.remove(QLatin1Char('&'));
    if (nombre.endsWith(QLatin1Char(':'))) nombre.chop(1);
    control->setAccessibleName(nombre.trimmed());
}
