#pragma once

#include "data/almacen/recordset.h"
#include "formulario.h"

#include <QList>
#include <QStringList>
#include <functional>

class EventosCampos;
class ListaClaves;
class QLabel;
class QLineEdit;
class QToolBar;

// The maintenance of one table, declared as data: the engine builds the toolbar, the edit
// panel, the list, the events and the SQL pieces from it. A form writes code only for what
// differs, by overriding the hooks of FormularioMantenimiento.
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
    // The check on leaving a non-empty field: the message to show, or empty when it passes.
    std::function<QString(const QString& texto)> comprobar;
};

struct Columna {
    QString titulo;
    QString columna;
    int ancho = 100;  // pixels
    Tipo tipo = Tipo::Texto;
};

struct Declaracion {
    QString nombre;  // frmUsuarios
    QString titulo;  // caption
    QString sufijo;  // ToolbarX, ListViewX
    QString tabla;
    Alcance alcance = Alcance::General;
    QString orden;
    QList<Campo> campos;       // by index; txt(0) is the code
    QList<Columna> columnas;   // the first is the code
    int mensajeExiste = 9999;  // MensajeError code of a code that exists on insert
    int mensajeFalta = 9999;   // and of one missing on modify
    std::function<QString(const QString& codigo)> pregunta;  // before deleting
    bool lupaEnBarra = true;  // whether the toolbar's lupa button shows the lookup

    // The entity class: the field texts in index order go to Insert and Update.
    std::function<void(const QStringList& campos)> insertar;
    std::function<void(const QStringList& campos)> actualizar;
    std::function<void(const QString& codigo)> borrar;
    std::function<Recordset(const QString& condicion, const QString& orden)> listar;
};

// A typed number as the SQL text takes it (point as decimal mark); anything else unchanged.
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

    bool requiereEmpresa() const override;
    QToolBar* barra() const override { return toolbar_; }

    // Controls by index, as the declaration numbers them.
    QLineEdit* txt(int i) const { return txt_.at(i); }
    QLabel* lbl(int i) const { return lbl_.at(i); }
    ListaClaves* lista() const { return lista_; }
    const mantenimiento::Declaracion& declaracion() const { return d_; }

    // The toolbar's actions, public so that a test presses them as the user does.
    void LimpiarCampos();
    bool validarDatos();
    void AltaRegistro();
    void ModificarRegistro();
    void BorrarRegistro();
    void Filtrar();
    void RefrescarLista(const QString& condicion);

protected:
    // "codigo_empresa = 'E'" and so on, by the declaration's scope.
    virtual QString condicionBase() const;
    // The rows of this code within the base condition.
    virtual QString condicionCodigo(const QString& codigo) const;
    // Leaving field i: the code loads its row; other fields do nothing unless a form says so.
    virtual void alSalir(int i);
    virtual bool alValidar(int i);
    // Fills the fields from the row of the code, if there is one; the code keeps its text.
    virtual void cargarCodigo();
    // Refusals before the delete question (the active company or branch): false stops.
    virtual bool puedeBorrar(const QString& codigo);
    // The texts of the list row for the values on screen, in column order.
    virtual QStringList filaDesdeCampos() const;
    QStringList valores() const;
    bool existe(const QString& codigo) const;

    // Fields are filled by the program without their change events.
    void ponerTexto(int i, const QString& texto);

private:
    void construir();
    void mostrarLupa();
    void alFoco(int i);
    void alDobleClic(int i);
    int indicePorColumna(const QString& columna) const;

    mantenimiento::Declaracion d_;
    QToolBar* toolbar_ = nullptr;
    ListaClaves* lista_ = nullptr;
    EventosCampos* eventos_ = nullptr;
    QList<QLineEdit*> txt_;
    QList<QLabel*> lbl_;
    int activo_ = -1;  // the field that last held the focus
};
