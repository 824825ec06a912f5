#pragma once

#include "documento.h"
#include "forms/formulario.h"
#include "lineas.h"
#include "rejillaiva.h"

#include <QList>
#include <array>
#include <optional>

class EventosCampos;
class ListaClaves;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QToolBar;
class QTreeWidgetItem;

// "Entrada de apuntes": the one screen on which journal entries are written. An entry is built
// on four tabs, one after another (the header and main line, VAT, portfolio, counterpart),
// and nothing is stored until `insertar` on the last one. Only the nearest tab that takes part
// can be reached in one move; leaving a tab checks it and generates its lines.
//
// The fields are numbered as the rest of the system names them, txt(0) to txt(61). The tax
// grid, txt(9) to txt(48), computes through RejillaIva, which the screen's fields mirror. The
// portfolio tab keeps its frames (2 and 4) and its numbers (49 to 53, 61); its fields are not
// on this screen yet, so txt() gives nullptr for them.
//
// An entry typed by its number is shown read-only: the tabs can be walked, `cancelar` leaves
// it and `borrar` removes it with everything that hangs from it.
//
// An entry typed and not stored is not thrown away unasked: `cancelar` and closing the window
// ask first, and the main window asks through trabajoSinGrabar(). A number drawn with "0" for
// an entry that is then discarded, or replaced by another, goes back to its series when no
// later number has been drawn from it.
class frmApunte : public Formulario {
    Q_OBJECT
public:
    frmApunte();
    ~frmApunte() override;

    QString faltaSesion() const override;
    QToolBar* barra() const override { return toolbar_; }
    QString trabajoSinGrabar() const override;
    void descartarTrabajo() override;

    QLineEdit* txt(int i) const { return txt_.at(i); }
    // The descriptions beside the journal (0), the account (5) and the counterpart's account (54).
    QLabel* des(int i) const { return i == 0 ? des0_ : i == 5 ? des5_ : des54_; }
    QPushButton* ant(int i) const { return ant_.at(i); }
    QPushButton* sig(int i) const { return sig_.at(i); }
    QPushButton* btnContrapartida() const { return btnContrapartida_; }
    QTabBar* TabStripApuntes() const { return tabs_; }
    ListaClaves* ListViewApunte() const { return lista_; }
    const LineasAsiento& lineas() const { return lineas_; }
    // The tax grid as last computed: its accounts and the numbers of its lines.
    const RejillaIva& rejilla() const { return rejilla_; }
    // The selected tab, 1 to 4, and the frame on show, 0 to 4.
    int pestana() const;
    int marco() const;
    // Whether an entry of the store is on show (read-only).
    bool mostrando() const { return mostrando_; }
    // Whether a new entry has been typed, in any field but the two dates, or has lines.
    bool sinGrabar() const;

    // The third party's usual counterpart account, proposed once on the last tab.
    void ponerCtaContrapartida(const QString& cuenta) { CtaContrapartida = cuenta; }

    void LimpiarPantalla();

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    void construir();
    QWidget* construirMarcoApunte();
    QWidget* construirMarcoIva();
    QWidget* construirMarcoContrapartida();
    // txt(i), with its lookup tag and, when given, a width in characters.
    QLineEdit* campo(QWidget* padre, int i, const QString& tag = {}, int ancho = 0);

    // The tab machine.
    void alCambiarPestana(int indice);
    void seleccionar(int pestana);
    void bajarHasta(int pestana);
    void avanzar(int paso);
    void MostrarPagina(int frame);
    QString ValidarObligatorios(int pagina);
    bool revisarCabecera();
    int campoEnFoco() const;  // the index of the field with the focus, or -1

    // Fields.
    void alFoco(int i);
    bool comprobar(int i);
    void alSalir(int i);
    void ponerTexto(int i, const QString& texto);
    void activarMarcos(bool activos);

    // The header and main line.
    void leerDocumento();
    void GenerarPartida();
    void CargarAsiento();

    // The tax grid: the screen's fields to the grid and back.
    void leerRejilla();
    void mostrarRejilla();
    bool revisarImpuestos();
    bool seguirRejilla(int i);
    void PrepararIvaCartera();
    bool GenerarLineasIva();

    // The counterpart and the line list.
    void anadirContrapartida();
    void ContrapartidaAutomatica();
    void alActivarLinea(QTreeWidgetItem* fila);
    void TotalesAsiento();

    // The toolbar.
    void alPulsar(const QString& clave);
    void GrabarAsiento();
    void BorrarAsiento();

    // The entry's number when it was drawn with "0": where it came from, to give it back.
    struct NumeroTomado {
        QString empresa;
        int ejercicio = 0;
        QString serie;
        QString documento;  // txt(1) it was drawn for
        QString identificador;
        QString texto;  // txt(2) as it was drawn, prefix included
        int numero = 0;
    };
    void anotarNumero(const QString& texto);
    void cambiarDocumentoDelNumero(const QString& documento);
    void devolverNumero();
    QString nombreAsiento() const;  // "el asiento FV00027", or "el asiento en curso"

    QToolBar* toolbar_ = nullptr;
    QTabBar* tabs_ = nullptr;
    QStackedWidget* pila_ = nullptr;
    std::array<QWidget*, 5> frmAsiento_{};  // the editable part of each frame
    QWidget* nuevaLinea_ = nullptr;         // the counterpart tab's fields of a new line
    QList<QLineEdit*> txt_;
    QLabel* des0_ = nullptr;
    QLabel* des5_ = nullptr;
    QLabel* des54_ = nullptr;
    QList<QPushButton*> ant_, sig_;
    QPushButton* btnContrapartida_ = nullptr;
    ListaClaves* lista_ = nullptr;
    EventosCampos* eventos_ = nullptr;

    LineasAsiento lineas_;
    CatalogoSesion catalogo_;
    RejillaIva rejilla_{catalogo_};
    std::array<bool, 5> Paginas{false, true, false, false, false};
    int TabAnterior = 1;
    bool SaltarClick = false;
    DocumentoApunte documento_;  // partida, numeracion, cartera, identificador
    QString CtaContrapartida;
    bool mostrando_ = false;
    std::optional<NumeroTomado> tomado_;  // until the entry is stored or discarded
};
