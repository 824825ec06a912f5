#pragma once

#include "carteraapunte.h"
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
// grid, txt(9) to txt(48), computes through RejillaIva, and the portfolio tab through
// CarteraAlta (frame 2, an invoice's due items, txt(49) to txt(53)) and CarteraGestion (frame
// 4, the items a collection or payment closes, txt(61)); the screen mirrors them. Fields 54 to
// 60 belong to the counterpart tab; no field is numbered beyond them but 61.
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

    QPushButton* btnAltaVencimiento() const { return btnAltaVencimiento_; }
    QPushButton* cmdSeleccion() const { return cmdSeleccion_; }
    QPushButton* cmdPendientes() const { return cmdPendientes_; }
    QPushButton* cmdCancelar() const { return cmdCancelar_; }
    ListaClaves* ListViewAltaCartera() const { return listaAlta_; }
    ListaClaves* ListViewGestionCartera() const { return listaGestion_; }
    const CarteraAlta& alta() const { return alta_; }
    const CarteraGestion& gestion() const { return gestion_; }
    // The items a selection found, replacing the list's; false, with nothing changed, when the
    // entry on screen closes no due items (no such document, or a stored entry on show).
    bool recibirEfectos(const QList<EfectoSeleccionado>& efectos);

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
    QWidget* construirMarcoAlta();
    QWidget* construirMarcoGestion();
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

    // The portfolio tab.
    void ProponerVencimientos(const std::optional<TerceroCuenta>& tercero);
    void anadirVencimiento();
    void alActivarVencimiento(QTreeWidgetItem* fila);
    void mostrarAlta();
    void SeleccionarEfectos();
    void alActivarEfecto(QTreeWidgetItem* fila);
    void mostrarGestion();
    void GenerarLineasGestion();
    void descargarSeleccion();

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
    QPushButton* btnAltaVencimiento_ = nullptr;
    ListaClaves* listaAlta_ = nullptr;
    QPushButton* cmdSeleccion_ = nullptr;
    QPushButton* cmdPendientes_ = nullptr;
    QPushButton* cmdCancelar_ = nullptr;
    ListaClaves* listaGestion_ = nullptr;
    EventosCampos* eventos_ = nullptr;

    LineasAsiento lineas_;
    CatalogoSesion catalogo_;
    RejillaIva rejilla_{catalogo_};
    CarteraAlta alta_;
    CarteraGestion gestion_;
    std::array<bool, 5> Paginas{false, true, false, false, false};
    int TabAnterior = 1;
    bool SaltarClick = false;
    DocumentoApunte documento_;  // partida, numeracion, cartera, identificador
    QString CtaContrapartida;
    bool mostrando_ = false;
    std::optional<NumeroTomado> tomado_;  // until the entry is stored or discarded
};
