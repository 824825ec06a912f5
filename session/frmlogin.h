#pragma once

#include <QDialog>
#include <QList>

class EventosCampos;
class ListaClaves;
class QComboBox;
class QLineEdit;
class QPushButton;

// "Inicio de sesión": user, password, company and branch; when the four belong together the
// company's fiscal years are listed and Aceptar loads the session variables. The maintenance
// login (its constants in both fields) needs nothing else and touches no other variable.
//
// Nothing is said about a wrong user or password: Aceptar simply stays off.
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

    void done(int resultado) override;

private:
    bool mantenimiento() const;
    void alCambiarTexto();
    void alSalirTexto(int i);
    void alSalirCaja(int i);
    void validar();
    void aceptar();
    void cancelar();

    QList<QLineEdit*> txt_;
    QList<QComboBox*> cmb_;
    ListaClaves* lista_;
    QPushButton* ok_;
    QPushButton* cancelar_;
    EventosCampos* textos_;
    EventosCampos* cajas_;
};
