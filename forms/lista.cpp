#include "lista.h"

#include "data/almacen/error.h"

#include <QHeaderView>

namespace {
constexpr int kRolClave = Qt::UserRole + 1;
}

ListaClaves::ListaClaves(QWidget* padre) : QTreeWidget(padre) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(true);
}

void ListaClaves::columnas(const QStringList& titulos, const QList<int>& anchos) {
    setColumnCount(int(titulos.size()));
    setHeaderLabels(titulos);
    for (int i = 0; i < anchos.size() && i < titulos.size(); ++i) setColumnWidth(i, anchos[i]);
}

QTreeWidgetItem* ListaClaves::agregar(const QString& clave, const QStringList& textos) {
    if (claves_.contains(clave))
        throw Error(errores::kClaveRepetida,
                    QStringLiteral("La clave no es única en la colección"));
    auto* fila = new QTreeWidgetItem(this, textos);
    fila->setData(0, kRolClave, clave);
    claves_.insert(clave, fila);
    return fila;
}

QTreeWidgetItem* ListaClaves::elemento(const QString& clave) const {
    QTreeWidgetItem* fila = claves_.value(clave);
    if (!fila)
        throw Error(errores::kElementoNoEncontrado, QStringLiteral("Elemento no encontrado"));
    return fila;
}

void ListaClaves::quitar(const QString& clave) {
    delete elemento(clave);
    claves_.remove(clave);
}

void ListaClaves::limpiar() {
    claves_.clear();
    clear();
}

void ListaClaves::actualizar(const QString& clave, const QStringList& textos) {
    QTreeWidgetItem* fila = elemento(clave);
    for (int i = 0; i < textos.size(); ++i) fila->setText(i, textos[i]);
}

QString ListaClaves::clave(const QTreeWidgetItem* fila) {
    return fila ? fila->data(0, kRolClave).toString() : QString();
}

QString ListaClaves::texto(int fila, int columna) const {
    const QTreeWidgetItem* f = topLevelItem(fila);
    return f ? f->text(columna) : QString();
}
