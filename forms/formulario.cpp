#include "formulario.h"

#include "formularios.h"
#include "geometria.h"
#include "msgbox.h"

#include <QCloseEvent>
#include <QMdiArea>
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
    // Until Saldeva.ini has a place for it, a new window starts right of the menu.
    if (const int margen = formularios::margenIzquierdo(marco); marco->x() < margen)
        marco->move(margen, marco->y());
    geometria::restaurar(marco, nombre());
    // A window placed where the free room ended would start beyond the area's right or
    // bottom edge: it is drawn back inside, as far as its size allows.
    if (auto* sub = qobject_cast<QMdiSubWindow*>(marco); sub && sub->mdiArea()) {
        const QSize area = sub->mdiArea()->viewport()->size();
        const QRect g = sub->geometry();
        sub->move(qMax(0, qMin(g.x(), area.width() - g.width())),
                  qMax(0, qMin(g.y(), area.height() - g.height())));
    }
    for (const auto& [lista, prefijo] : listas_)
        geometria::restaurarColumnas(lista, nombre(), prefijo);
}

void Formulario::closeEvent(QCloseEvent* evento) {
    if (!trabajoSinGrabar().isEmpty() &&
        !confirmarDescarte({this}, QStringLiteral("¿Desea cerrar la ventana?")))
        return evento->ignore();
    if (!conGeometria_) return evento->accept();
    geometria::guardar(ventana(), nombre());
    for (const auto& [lista, prefijo] : listas_)
        geometria::guardarColumnas(lista, nombre(), prefijo);
    evento->accept();
}

bool confirmarDescarte(const QList<Formulario*>& formularios, const QString& pregunta) {
    QList<Formulario*> conTrabajo;
    QStringList texto;
    for (Formulario* f : formularios)
        if (const QString trabajo = f->trabajoSinGrabar(); !trabajo.isEmpty()) {
            conTrabajo << f;
            texto << trabajo;
        }
    texto << pregunta;
    if (MsgBox(texto.join(u'\n'), Icono::Pregunta) != Respuesta::Si) return false;
    for (Formulario* f : conTrabajo) f->descartarTrabajo();
    return true;
}
