#pragma once

#include <QDialog>
#include <QList>

class EventosCampos;
class ListaClaves;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// "Inicio de sesión": user, password, company and branch; when the four belong together the
// company's fiscal years are listed and Aceptar loads the session variables. The maintenance
// login (its constants in both fields) needs nothing else and touches no other variable.
//
// When all four are filled and do not open a session, a line under the list says why.
class frmLogin : public QDialog {
    Q_OBJECT
public:
    explicit frmLogin(QWidget* padre = nullptr);

    bool login_aceptado = false;

    QLineEdit* txt(int i) const { return txt_.at(i); }
    QComboBox* cmb(int i) const { return cmb_.at(i); }
    ListaClaves* ListViewLogin() const { return lista_; }
    QPushButton* cmdOK() const { return ok_; }
    QPushButton* cmdCancel() const { return cancelar_; }
    // Why the session cannot open with what is typed, or empty.
    QLabel* lblMotivo() const { return motivo_; }

    void done(int resultado) override;

private:
    bool mantenimiento() const;
    void alCambiarTexto();
    void alSalirTexto(int i);
    void alSalirCaja(int i);
    void validar();
    QString motivoRechazo(const QString& empresa, const QString& delegacion, const QString& usuario,
                          const QString& contrasena) const;
    void aceptar();
    void cancelar();

    QList<QLineEdit*> txt_;
    QList<QComboBox*> cmb_;
    ListaClaves* lista_;
    QLabel* motivo_;
    QString empresaDelegaciones_;  // the company whose branches cmb(1) lists
    QPushButton* ok_;
    QPushButton* cancelar_;
    EventosCampos* textos_;
    EventosCampos* cajas_;
};
