#include "formulario.h"

#include "geometria.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QTreeWidget>

Formulario::Formulario(const QString& nombre, const QString& titulo, QWidget* padre)
    : QWidget(padre) {
    setObjectName(nombre);
    setWindowTitle(titulo);
}

QWidget* Formulario::ventana() {
    auto* marco = qobject_cast<QMdiSubWindow*>(parentWidget());
    return marco ? static_cast<QWidget*>(marco) : this;
}

const QWidget* Formulario::ventana() const {
    return const_cast<Formulario*>(this)->ventana();
}

void Formulario::descargar() {
    ventana()->close();
}

void Formulario::guardarColumnasDe(QTreeWidget* lista, const QString& prefijo) {
    listas_.append({lista, prefijo});
}

void Formulario::tamanoInicial(int ancho, int alto) {
    inicial_ = QSize(ancho, alto);
}

void Formulario::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    if (restaurada_ || !conGeometria_) return;
    restaurada_ = true;
    QWidget* marco = ventana();
    if (inicial_.isValid()) marco->resize(marco->size() - size() + inicial_);
    geometria::restaurar(marco, nombre());
    for (const auto& [lista, prefijo] : listas_)
        geometria::restaurarColumnas(lista, nombre(), prefijo);
}

void Formulario::closeEvent(QCloseEvent* evento) {
    if (!conGeometria_) return evento->accept();
    geometria::guardar(ventana(), nombre());
    for (const auto& [lista, prefijo] : listas_)
        geometria::guardarColumnas(lista, nombre(), prefijo);
    evento->accept();
}
