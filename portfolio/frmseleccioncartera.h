#pragma once

#include "forms/formulario.h"
#include "seleccion.h"

#include <functional>

class EventosCampos;
class QLabel;
class QLineEdit;
class QPushButton;

// "Selección de efectos": the bounds of the pending due items that a collection or payment
// entry is about to close. It writes nothing: on Aceptar it finds the items and hands them to
// its receiver (the entry form's list), then unloads; Cancelar unloads and hands nothing. It is
// not modal, so the entry form stays usable behind it.
class frmSeleccionCartera : public Formulario {
    Q_OBJECT
public:
    // What receives the items found; it replaces whatever its list held.
    using Receptor = std::function<void(const QList<EfectoSeleccionado>& efectos)>;

    frmSeleccionCartera();
    ~frmSeleccionCartera() override;

    QString faltaSesion() const override;

    // The kind of items looked for, by the label's text: "Cobro" (the design text) or "Pago".
    void ponerTipoEfectos(const QString& texto);
    void ponerReceptor(Receptor receptor) { receptor_ = std::move(receptor); }
    // The receiver of a dialog that nobody gave one, as when it is opened from the menu.
    static void ponerReceptorPorDefecto(Receptor receptor);

    QLineEdit* txt(int i) const { return txt_.at(i); }
    QLabel* des(int i) const { return des_.at(i); }
    QLabel* lblTipoEfectos() const { return lblTipoEfectos_; }
    QPushButton* cmdAceptar() const { return cmdAceptar_; }
    QPushButton* cmdCancelar() const { return cmdCancelar_; }

    // The buttons' actions, public so that a test presses them as the user does.
    void Aceptar();
    void Cancelar();

private:
    void closeEvent(QCloseEvent* evento) override;
    // The check of a field when it is left (false: its message was shown), and what leaving
    // it does once it passed.
    bool validar(int i);
    void salir(int i);
    // Every field checked and completed as if it had been left, the first refused one taking
    // the focus.
    bool comprobarCampos();
    // Writes a field's text without its events.
    void ponerTexto(int i, const QString& texto);
    CriteriosSeleccion criterios() const;

    QList<QLineEdit*> txt_;
    QList<QLabel*> des_;  // des(0) to des(3); nullptr beyond
    QLabel* lblTipoEfectos_ = nullptr;
    QPushButton* cmdAceptar_ = nullptr;
    QPushButton* cmdCancelar_ = nullptr;
    EventosCampos* eventos_ = nullptr;
    Receptor receptor_;
};
