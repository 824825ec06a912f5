#include "geometria.h"

#include "data/almacen/programa.h"
#include "data/formato.h"
#include "data/inifunc.h"

#include <QTreeWidget>
#include <QWidget>
#include <cmath>

namespace geometria {
namespace {

QString archivo() {
    return programa::ruta(QStringLiteral("Saldeva.ini"));
}

// Further from the origin than this, or larger, no window was ever left by a user: such a
// value comes from a damaged file, and a window of that size could not even be drawn.
constexpr double kMaximoPixeles = 20000;

int leer(const QString& seccion, const QString& clave, int pixeles) {
    const QString texto =
        GetIni(archivo(), seccion, clave, QString::number(pixeles * kTwipsPorPixel));
    const auto twips = formato::leerNumero(texto);
    if (!twips || !(std::abs(*twips / kTwipsPorPixel) <= kMaximoPixeles)) return pixeles;
    return int(std::lround(*twips / kTwipsPorPixel));
}

void escribir(const QString& seccion, const QString& clave, int pixeles) {
    SetIni(archivo(), seccion, clave, QString::number(pixeles * kTwipsPorPixel));
}

QString columna(const QString& prefijo, int i) {
    return prefijo + QStringLiteral("%1").arg(i + 1, 2, 10, QLatin1Char('0'));
}

}  // namespace

void restaurar(QWidget* ventana, const QString& seccion) {
    const QRect g = ventana->geometry();
    const int ancho = std::max(leer(seccion, QStringLiteral("Width"), g.width()), 80);
    const int alto = std::max(leer(seccion, QStringLiteral("Height"), g.height()), 60);
    ventana->setGeometry(leer(seccion, QStringLiteral("Left"), g.x()),
                         leer(seccion, QStringLiteral("Top"), g.y()), ancho, alto);
}

void guardar(const QWidget* ventana, const QString& seccion) {
    if (ventana->isMinimized()) return;
    const QRect g = ventana->geometry();
    escribir(seccion, QStringLiteral("Left"), g.x());
    escribir(seccion, QStringLiteral("Top"), g.y());
    escribir(seccion, QStringLiteral("Width"), g.width());
    escribir(seccion, QStringLiteral("Height"), g.height());
}

void restaurarColumnas(QTreeWidget* lista, const QString& seccion, const QString& prefijo) {
    for (int i = 0; i < lista->columnCount(); ++i)
        lista->setColumnWidth(
            i, std::max(leer(seccion, columna(prefijo, i), lista->columnWidth(i)), 0));
}

void guardarColumnas(const QTreeWidget* lista, const QString& seccion, const QString& prefijo) {
    for (int i = 0; i < lista->columnCount(); ++i)
        escribir(seccion, columna(prefijo, i), lista->columnWidth(i));
}

}  // namespace geometria
