#pragma once

#include <QHash>
#include <QStringList>
#include <QTreeWidget>

// A flat, report-style list whose rows are found by key ("K" followed by the code). Adding a
// key twice or reaching a key that is not there is an Error the caller can catch, as the lists
// of the forms expect; finding a row by key does not walk the list.
class ListaClaves : public QTreeWidget {
    Q_OBJECT
public:
    explicit ListaClaves(QWidget* padre = nullptr);

    // Column titles and widths in pixels.
    void columnas(const QStringList& titulos, const QList<int>& anchos);

    // A new row at the end: the first text is the row's text, the rest its sub-items.
    QTreeWidgetItem* agregar(const QString& clave, const QStringList& textos);
    QTreeWidgetItem* elemento(const QString& clave) const;
    bool contiene(const QString& clave) const { return claves_.contains(clave); }
    void quitar(const QString& clave);
    void limpiar();
    // Rewrites every text of the row named by the key.
    void actualizar(const QString& clave, const QStringList& textos);

    static QString clave(const QTreeWidgetItem* fila);
    int filas() const { return topLevelItemCount(); }
    QString texto(int fila, int columna) const;

private:
    QHash<QString, QTreeWidgetItem*> claves_;
};

// The numbers a list gives for a missing or a repeated key.
namespace errores {
constexpr qint32 kElementoNoEncontrado = 35601;
constexpr qint32 kClaveRepetida = 35602;
}  // namespace errores
