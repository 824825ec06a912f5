#pragma once

#include "formulario.h"

#include <QPointer>

class ListaClaves;
class QLineEdit;

// The lookup of a field that takes a code of another table. The field's "Tag" property names
// it as TABLA.columna; what the list shows comes from the section TABLA of Listas.ini, which
// also keeps the window's place and the column widths that the user leaves behind.
//
// The window knows nothing of its caller but the parameters text: the calling form, the
// field, the tag and a condition from what the field held. Choosing a row (double click or
// Enter) writes the tag's column into the field and closes the window.
class frmLupa : public Formulario {
    Q_OBJECT
public:
    frmLupa();

    // Setting the parameters loads the list; false (after its message) when there is none.
    bool ponerParametros(const QString& parametros);
    QString parametros() const;
    ListaClaves* lista() const { return lista_; }
    // The SQL text the list was read with.
    const QString& consulta() const { return sql_; }
    // Writes the selected row's value into the calling field and closes.
    void elegir();
    // The window opens just under the field (above it when there is no room below), with the
    // size that Listas.ini keeps.
    void junto(const QWidget* campo);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

private:
    QString construirConsulta(const QString& seccion, const QString& condicionCampo);
    void llenar();

    QLineEdit* parametros_;
    ListaClaves* lista_;
    QString tabla_, columna_, sql_;
    QStringList columnas_;           // the column of each list column, as Fields names it
    QRect forma_;                    // the window's place, from Listas.ini
    QPointer<const QWidget> campo_;  // the field the window opens beside
    int resultado_ = -1;  // the list column of the tag's column; -1 when it is not listed
};

// Opens the lookup of the field that has the focus in `formulario`, narrowed to the codes that
// begin with what the field holds.
void MostrarLupa(QWidget* formulario);
