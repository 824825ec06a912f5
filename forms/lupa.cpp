#include "lupa.h"

#include "data/almacen/conexion.h"
#include "data/almacen/programa.h"
#include "data/global.h"
#include "data/inifunc.h"
#include "formularios.h"
#include "geometria.h"
#include "lista.h"
#include "msgbox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVBoxLayout>

namespace {

using geometria::kTwipsPorPixel;

QString listas() {
    return programa::ruta(QStringLiteral("Listas.ini"));
}

QString posicion(const QString& texto, int n, const QString& separador) {
    QString s = separador;
    return GetParam(texto, n, s);
}

QString poner(const QString& texto, const QString& valor, int n, const QString& separador) {
    QString s = separador;
    return SetParam(texto, valor, n, s);
}

// A text value put into the file's SQL: the file holds the quotes, the value its apostrophes
// doubled.
QString dentroDeComillas(QString valor) {
    return valor.replace(u'\'', QStringLiteral("''"));
}

// The widgets named by the parameters are found among those that exist, by their address:
// a window that closed meanwhile is simply not found.
QWidget* porDireccion(const QList<QWidget*>& candidatos, const QString& direccion) {
    for (QWidget* w : candidatos)
        if (QString::number(quintptr(w)) == direccion) return w;
    return nullptr;
}

}  // namespace

frmLupa::frmLupa() : Formulario(QStringLiteral("frmLupa"), QStringLiteral("Consulta")) {
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    parametros_ = new QLineEdit(this);
    parametros_->setObjectName(QStringLiteral("parametros"));
    parametros_->hide();
    lista_ = new ListaClaves(this);
    lista_->setObjectName(QStringLiteral("ListViewLupa"));
    lista_->setAccessibleName(QStringLiteral("Consulta"));
    lista_->installEventFilter(this);
    columna->addWidget(lista_);
    connect(lista_, &QTreeWidget::itemDoubleClicked, this, [this] { elegir(); });
    setFocusProxy(lista_);
    noGuardarGeometria();
}

QString frmLupa::parametros() const {
    return parametros_->text();
}

bool frmLupa::ponerParametros(const QString& texto) {
    parametros_->setText(texto);
    if (lista_->filas() > 0) return true;
    const QString tag = posicion(posicion(texto, 3, QStringLiteral("|")), 1, QStringLiteral(";"));
    const int punto = int(tag.indexOf(u'.'));
    tabla_ = punto < 0 ? tag : tag.left(punto);
    columna_ = punto < 0 ? QString() : tag.mid(punto + 1);

    // A file that is not text, or a list cut short, is named, so that it can be restored.
    const QString sinLista = QStringLiteral("No existe una lista asociada.");
    const QString archivo = QStringLiteral("«") + QDir::toNativeSeparators(listas()) + u'»';
    const QString forma = GetIni(listas(), tabla_, QStringLiteral("Form"));
    if (forma.isEmpty()) {
        MsgBox(IniEsTexto(listas()) ? sinLista
                                    : sinLista + QStringLiteral("\n\nEl archivo ") + archivo +
                                          QStringLiteral(" está dañado: contiene datos que no "
                                                         "son texto."),
               Icono::Critico);
        return false;
    }
    const auto medida = [&](int n) {
        return int(posicion(forma, n, QStringLiteral(";")).toDouble() / kTwipsPorPixel);
    };
    forma_ = QRect(medida(1), medida(2), std::max(medida(3), 120), std::max(medida(4), 80));
    sql_ = construirConsulta(tabla_, posicion(texto, 4, QStringLiteral("|")));
    if (columnas_.isEmpty()) {
        MsgBox(sinLista + QStringLiteral("\n\nLa sección [") + tabla_ + QStringLiteral("] de ") +
                   archivo +
                   QStringLiteral(" no indica las columnas de la lista (Header y Fields)."),
               Icono::Critico);
        return false;
    }
    return Protegido([this] { llenar(); });
}

QString frmLupa::construirConsulta(const QString& seccion, const QString& condicionCampo) {
    const QString cabeceras = GetIni(listas(), seccion, QStringLiteral("Header"));
    const QString campos = GetIni(listas(), seccion, QStringLiteral("Fields"));
    QString sql = QStringLiteral("SELECT ");
    resultado_ = -1;
    columnas_.clear();
    QStringList titulos;
    QList<int> anchos;
    for (int i = 1;; ++i) {
        const QString titulo = posicion(cabeceras, i, QStringLiteral("|"));
        const QString campo = posicion(campos, i, QStringLiteral("|"));
        if (titulo.isEmpty() || campo.isEmpty()) break;
        const QString columna = posicion(campo, 1, QStringLiteral(";"));
        const QString ancho = posicion(campo, 2, QStringLiteral(";"));
        const QString mayusculas = columna.toUpper();
        if (mayusculas == columna_.toUpper() || mayusculas == (tabla_ + u'.' + columna_).toUpper())
            resultado_ = i - 1;
        titulos << titulo;
        anchos << int((ancho.isEmpty() ? 100 : ancho.toDouble()) / kTwipsPorPixel);
        columnas_ << columna;
        sql += columna + QStringLiteral(", ");
    }
    lista_->columnas(titulos, anchos);

    QString condicion = GetIni(listas(), seccion, QStringLiteral("Where"));
    condicion.replace(QStringLiteral("{@empresa}"), dentroDeComillas(sesion_empresa));
    condicion.replace(QStringLiteral("{@delegacion}"), dentroDeComillas(sesion_delegacion));
    condicion.replace(QStringLiteral("{@ejercicio}"), QString::number(sesion_ejercicio));
    if (!condicionCampo.isEmpty())
        condicion = condicion.isEmpty() ? condicionCampo
                                        : condicion + QStringLiteral(" AND ") + condicionCampo;
    const QString orden = GetIni(listas(), seccion, QStringLiteral("Order"));
    sql.chop(2);
    sql += QStringLiteral(" FROM ") + seccion;
    const QString tablas = GetIni(listas(), seccion, QStringLiteral("TableJoin"));
    if (!tablas.isEmpty() && !seccion.isEmpty()) sql += u',' + tablas;
    if (!condicion.isEmpty()) sql += QStringLiteral(" WHERE ") + condicion;
    const QString union_ = GetIni(listas(), seccion, QStringLiteral("WhereJoin"));
    if (!condicion.isEmpty() && !union_.isEmpty()) sql += QStringLiteral(" AND ") + union_;
    if (!orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + orden;
    return sql;
}

void frmLupa::llenar() {
    // A connection of its own: the lookup reads what is committed, beside the form's work.
    Conexion privada(sesion_conexion->textoConexion());
    Recordset filas = privada.open(sql_);
    for (; !filas.eof(); filas.moveNext()) {
        QStringList textos;
        for (int i = 0; i < filas.fieldCount(); ++i) textos << NzTexto(filas.value(i));
        lista_->agregar(QStringLiteral("K") + textos.value(0).trimmed(), textos);
    }
    // The list takes the keyboard at once, on its first row, whatever the count.
    if (lista_->filas() > 0) lista_->setCurrentItem(lista_->topLevelItem(0));
}

void frmLupa::elegir() {
    QTreeWidgetItem* fila = lista_->currentItem();
    if (resultado_ != -1 && fila) {
        const QString valor = fila->text(resultado_);
        const QString texto = parametros_->text();
        QList<QWidget*> abiertos;
        for (Formulario* f : formularios::abiertos()) abiertos << f;
        abiertos << QApplication::topLevelWidgets();
        if (QWidget* formulario = porDireccion(abiertos, posicion(texto, 1, QStringLiteral("|")))) {
            QWidget* control = porDireccion(formulario->findChildren<QWidget*>(),
                                            posicion(texto, 2, QStringLiteral("|")));
            if (auto* campo = qobject_cast<QLineEdit*>(control)) {
                campo->setText(valor);
                QMetaObject::invokeMethod(
                    campo,
                    [campo] {
                        QWidget* marco = campo->window();
                        for (QWidget* w = campo; w; w = w->parentWidget())
                            if (auto* sub = qobject_cast<QMdiSubWindow*>(w)) marco = sub;
                        if (auto* sub = qobject_cast<QMdiSubWindow*>(marco); sub && sub->mdiArea())
                            sub->mdiArea()->setActiveSubWindow(sub);
                        campo->setFocus();
                    },
                    Qt::QueuedConnection);
            }
        }
    }
    descargar();
}

bool frmLupa::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == lista_ && evento->type() == QEvent::KeyPress) {
        auto* tecla = static_cast<QKeyEvent*>(evento);
        const bool intro = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
        if (intro && !(tecla->modifiers() & Qt::ShiftModifier)) {
            elegir();
            return true;
        }
    }
    return Formulario::eventFilter(objeto, evento);
}

void frmLupa::junto(const QWidget* campo) {
    campo_ = campo;
}

void frmLupa::showEvent(QShowEvent* evento) {
    Formulario::showEvent(evento);
    QWidget* marco = ventana();
    if (forma_.isValid()) marco->setGeometry(std::exchange(forma_, QRect()));
    QWidget* fondo = marco->parentWidget();
    if (!campo_ || !fondo) return;
    const QRect sitio(campo_->mapTo(fondo, QPoint(0, 0)), campo_->size());
    QRect g = marco->geometry();
    g.moveTopLeft(sitio.bottomLeft() + QPoint(0, 1));
    if (g.bottom() > fondo->height() && sitio.top() - g.height() >= 0)
        g.moveBottom(sitio.top() - 1);
    g.moveLeft(qMax(0, qMin(g.x(), fondo->width() - g.width())));
    g.moveTop(qMax(0, qMin(g.y(), fondo->height() - g.height())));
    marco->setGeometry(g);
}

void frmLupa::closeEvent(QCloseEvent* evento) {
    const QWidget* marco = ventana();
    if (!tabla_.isEmpty() && !GetIni(listas(), tabla_, QStringLiteral("Form")).isEmpty()) {
        if (!marco->isMinimized()) {
            const QRect g = marco->geometry();
            QString forma;
            const int medidas[] = {g.x(), g.y(), g.width(), g.height()};
            for (int i = 0; i < 4; ++i)
                forma = poner(forma, QString::number(medidas[i] * kTwipsPorPixel), i + 1,
                              QStringLiteral(";"));
            SetIni(listas(), tabla_, QStringLiteral("Form"), forma);
        }
        QString campos;
        for (int i = 0; i < lista_->columnCount(); ++i) {
            QString campo = poner(QString(), columnas_.value(i), 1, QStringLiteral(";"));
            campo = poner(campo, QString::number(lista_->columnWidth(i) * kTwipsPorPixel), 2,
                          QStringLiteral(";"));
            campos = poner(campos, campo, i + 1, QStringLiteral("|"));
        }
        SetIni(listas(), tabla_, QStringLiteral("Fields"), campos);
    }
    evento->accept();
}

void MostrarLupa(QWidget* formulario) {
    QWidget* activo = formulario->focusWidget();
    if (!activo) return;
    const QString tag = activo->property("Tag").toString();
    QString parametros = poner(QString(), QString::number(quintptr(formulario)), 1, "|");
    parametros = poner(parametros, QString::number(quintptr(activo)), 2, "|");
    parametros = poner(parametros, tag, 3, "|");
    const auto* campo = qobject_cast<QLineEdit*>(activo);
    const QString texto = campo ? campo->text() : QString();
    const QString columna = posicion(tag, 1, QStringLiteral(";"));
    parametros =
        poner(parametros,
              texto.isEmpty() ? QString()
                              : QStringLiteral("LEFT(") + columna + QStringLiteral(", ") +
                                    QString::number(texto.trimmed().size()) +
                                    QStringLiteral(") = '") + dentroDeComillas(texto) + u'\'',
              4, "|");
    auto* lupa = new frmLupa;
    if (!lupa->ponerParametros(parametros)) {
        delete lupa;
        return;
    }
    lupa->junto(activo);
    formularios::mostrar(lupa);
    lupa->lista()->setFocus();
}
