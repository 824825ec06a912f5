#pragma once

#include "data/almacen/recordset.h"
#include "formulario.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <functional>
#include <optional>

class EventosCampos;
class ListaClaves;
class QAbstractButton;
class QCheckBox;
class QLabel;
class QRadioButton;
class QLineEdit;
class QToolBar;
class QTreeWidgetItem;

// The maintenance of one table, declared as data: the engine builds the toolbar, the edit
// panel, the list, the events and the SQL pieces from it. A form writes code only for what
// differs, by overriding the hooks of FormularioMantenimiento.
namespace errores {
constexpr qint32 kDesbordamiento = 6;
constexpr qint32 kTiposNoCoinciden = 13;
constexpr qint32 kElementoDeMatriz = 340;
}  // namespace errores

namespace mantenimiento {

enum class Tipo { Texto, Numero, Fecha };

// Which rows of the table belong to the session: all, the company's, or the company's in the
// fiscal year. It is the base condition of the list and of every lookup by code.
enum class Alcance { General, Empresa, Ejercicio };

struct Campo {
    QString etiqueta;  // caption of lbl(i), with its accelerator: "&Código:"
    QString columna;   // column of the table the field stands for
    Tipo tipo = Tipo::Texto;
    bool obligatorio = false;
    QString lupa;              // the field's Tag: the lookup "TABLA.columna", or empty
    int longitud = 0;          // most characters that can be typed; 0 for no limit
    int ancho = 0;             // width of the field in characters; 0 for the panel's width
    bool ceroSiVacio = false;  // an optional number left empty is saved as "0"
    QString unidad;            // a word after the field: "días", "%"
    // What the typed text becomes when the field is left, before its check (capitals, an
    // account's "." filled with zeros); also before a save from the toolbar.
    std::function<QString(const QString& texto)> normalizar;
    // The check on leaving a non-empty field: the message to show, or empty when it passes.
    // A failure it throws is shown the same way and refuses the field too.
    std::function<QString(const QString& texto)> comprobar;
    // The lookup of a non-empty field's row on leaving: its name, or nothing when there is no
    // such row, which refuses the field with message `sinNombre`. With `verNombre` the name
    // shows in des(i), beside the field, and an empty field empties it.
    std::function<std::optional<QString>(const QString& texto)> nombre;
    int sinNombre = 0;
    bool verNombre = false;
    bool filtra = true;  // whether Filtrar asks for the field's text
    // Whether a save also runs `comprobar` on the field left empty, so that its own message
    // refuses it (a key letter, a key number); leaving the field empty still says nothing.
    bool comprobarVacio = false;
};

// A check box (chk) or an option button (opt) below the fields. Boxes and buttons are numbered
// apart, each in the order of the declaration. A box with a column stands for `si` when ticked
// and `no` when not; buttons of one group exclude each other, and the first of each group is
// the one chosen when the form is cleared. A group whose buttons have a column stands for the
// `si` of the button that is on; a stored value that none of them has selects the last one.
struct Marca {
    enum Clase { Casilla, Opcion };
    Clase clase = Casilla;
    QString etiqueta;
    QString columna;  // empty when the form maps the box or the group itself
    int grupo = 0;    // buttons only
    QString si = QStringLiteral("S");
    QString no = QStringLiteral("N");
    bool filtra = true;  // whether Filtrar asks for the value
};

struct Columna {
    QString titulo;
    QString columna;
    int ancho = 100;  // pixels
    Tipo tipo = Tipo::Texto;
    QString patron;  // a number's Format pattern ("0.00"), when it has one
};

struct Declaracion {
    QString nombre;  // frmUsuarios
    QString titulo;  // caption
    QString sufijo;  // ToolbarX, ListViewX
    QString tabla;
    Alcance alcance = Alcance::General;
    QString orden;
    QList<Campo> campos;  // by index; txt(0) is the code
    // How many fields from txt(0) on make the key together: a row is loaded once all of them
    // are typed, and found, saved and deleted by all of them; a list row's key is made of
    // their columns. 1 for a code alone.
    int camposClave = 1;
    // The panel's rows, each the indices of the fields it holds side by side; empty for one
    // field a row (two columns of them for long declarations).
    QList<QList<int>> filas;
    QList<Marca> marcas;              // in the order they show
    QHash<int, QString> grupos;       // captions of the frames around groups of buttons
    QList<Columna> columnas;          // the first is the code
    int mensajeExiste = 9999;         // MensajeError code of a code that exists on insert
    int mensajeFalta = 9999;          // and of one missing on modify
    int mensajeBorrarFalta = 0;       // and on delete; 0 clears the fields without a word
    bool requiereDelegacion = false;  // a branch in session, besides the company
    std::function<QString(const QString& codigo)> pregunta;  // before deleting
    bool lupaEnBarra = true;  // whether the toolbar's lupa button shows the lookup
    // Whether a box or button taking the focus sets lupa as a field without lookup does; by
    // default lupa keeps what the last field gave it.
    bool marcasConLupa = false;

    // The entity class: the field texts in index order, then the values of the boxes that
    // have a column, then those of the groups that have one, go to Insert and Update.
    std::function<void(const QStringList& campos)> insertar;
    std::function<void(const QStringList& campos)> actualizar;
    std::function<void(const QString& codigo)> borrar;
    // The question and the delete given what Insert receives, for a key of several fields or
    // a question about more than the code; when set they stand in for `pregunta` and `borrar`.
    std::function<QString(const QStringList& campos)> preguntaCampos;
    std::function<void(const QStringList& campos)> borrarCampos;
    std::function<Recordset(const QString& condicion, const QString& orden)> listar;
};

QString mayusculas(const QString& texto);

// A field's text read as a number where a save needs one, as the system reads it: anything
// but a number fails with "No coinciden los tipos"; a whole number is rounded half to even
// and fails with "Desbordamiento" beyond 16 bits.
double leerDouble(const QString& texto);
int leerEntero16(const QString& texto);
// The same beyond 32 bits, for the numbers of a series.
int leerEntero32(const QString& texto);

// A typed number as the SQL text takes it (point as decimal mark). Anything else fails as
// leerDouble does: no typed text reaches a statement in the place of a number.
QString numeroSql(const QString& texto);
// A stored value as a field shows it: dates as dd/mm/yyyy, numbers with a decimal comma.
QString textoCampo(const QVariant& valor, Tipo tipo);

}  // namespace mantenimiento

class FormularioMantenimiento : public Formulario {
    Q_OBJECT
public:
    explicit FormularioMantenimiento(mantenimiento::Declaracion declaracion,
                                     QWidget* padre = nullptr);
    ~FormularioMantenimiento() override;

    QString faltaSesion() const override;
    QToolBar* barra() const override { return toolbar_; }

    // Controls by index, as the declaration numbers them.
    QLineEdit* txt(int i) const { return txt_.at(i); }
    QLabel* lbl(int i) const { return lbl_.at(i); }
    QCheckBox* chk(int i) const { return chk_.at(i); }
    QRadioButton* opt(int i) const { return opt_.at(i); }
    QLabel* des(int i) const { return des_.value(i); }  // nullptr for a field without name
    ListaClaves* lista() const { return lista_; }
    const mantenimiento::Declaracion& declaracion() const { return d_; }

    // The toolbar's actions, public so that a test presses them as the user does.
    virtual void LimpiarCampos();
    virtual bool validarDatos();
    virtual void AltaRegistro();
    virtual void ModificarRegistro();
    virtual void BorrarRegistro();
    virtual void Filtrar();
    void RefrescarLista(const QString& condicion);

protected:
    // "codigo_empresa = 'E'" and so on, by the declaration's scope.
    virtual QString condicionBase() const;
    // The rows of this code, and of the other key fields on screen, within the base condition.
    virtual QString condicionCodigo(const QString& codigo) const;
    // Leaving field i: a field of the key, the key complete, loads its row; other fields do
    // nothing unless a form says so.
    virtual void alSalir(int i);
    virtual bool alValidar(int i);
    // The first pass of validarDatos over field i, in index order: a required field must not
    // be empty. False stops the save, the message shown and the focus placed.
    virtual bool validarCampo(int i);
    // A row of the list chosen by double click or Enter: by default its code is loaded.
    virtual void alElegirFila(QTreeWidgetItem* fila);
    // Fills the fields from the row of the key, if there is one; the key keeps its text.
    virtual void cargarCodigo();
    // Refusals before the delete question (the active company or branch): false stops.
    virtual bool puedeBorrar(const QString& codigo);
    // Refusals of a change to an existing code (a row in use): false stops.
    virtual bool puedeModificar(const QString& codigo);
    // The texts of the list row for the values on screen, in column order.
    virtual QStringList filaDesdeCampos() const;
    // What Insert and Update receive.
    virtual QStringList valores() const;
    // The key of a row of the list, from its texts in column order.
    virtual QString clave(const QStringList& fila) const;
    // A box or button changed by the user.
    virtual void alMarcar(QAbstractButton* marca);
    bool existe(const QString& codigo) const;
    // Every field of the key typed, numbers reading as numbers: only then does it name a row.
    bool claveCompleta() const;

    void closeEvent(QCloseEvent* evento) override;

    // Fields are filled by the program without their change events.
    void ponerTexto(int i, const QString& texto);
    // The field's text as its declaration normalises it.
    void normalizarCampo(int i);

private:
    void construir();
    void mostrarLupa();
    void alFoco(int i);
    void alDobleClic(int i);
    int indicePorColumna(const QString& columna) const;
    int columnaDeClave(int i) const;
    bool pasaComprobacion(int i);
    int casillaPorColumna(const QString& columna) const;
    QString valorCasilla(int i) const;
    struct Grupo {
        QString columna;
        bool filtra = true;
        QList<QRadioButton*> botones;
        QStringList valores;  // the `si` of each button
    };
    const Grupo* grupoPorColumna(const QString& columna) const;
    QString valorGrupo(const Grupo& g) const;
    void ponerGrupo(const Grupo& g, const QString& valor);
    void construirMarcas(class QGridLayout* rejilla, int fila, int columnas);

    mantenimiento::Declaracion d_;
    QToolBar* toolbar_ = nullptr;
    ListaClaves* lista_ = nullptr;
    EventosCampos* eventos_ = nullptr;
    QList<QLineEdit*> txt_;
    QList<QLabel*> lbl_;
    QList<QCheckBox*> chk_;
    QList<QRadioButton*> opt_;
    QList<const mantenimiento::Marca*> casillas_;  // the declaration of each chk
    QList<Grupo> grupos_;  // the groups of buttons with a column, as they first show
    QHash<int, QLabel*> des_;
    int activo_ = -1;  // the field that last held the focus
};
