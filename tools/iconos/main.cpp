// saldeva-iconos CARPETA: draws the toolbar icons (validar, borrar, buscar, cancelar, imprimir,
// listar, modificar, filtrar, ayudar, insertar, lupa) and the program's own as .ico files of 16 and
// 32 pixels. They are plain vector drawings of ours, so the program's folder needs no artwork from
// elsewhere.
#include <QColor>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>
#include <cstdio>
#include <functional>

namespace {

// Every drawing is made on a 16 by 16 grid and scaled.
using Dibujo = std::function<void(QPainter&)>;

const QColor kTinta(40, 52, 70);
const QColor kVerde(34, 139, 34);
const QColor kRojo(200, 40, 40);
const QColor kAzul(30, 100, 190);
const QColor kPapel(250, 250, 245);

QPen pluma(const QColor& color, double ancho) {
    QPen p(color, ancho);
    p.setCapStyle(Qt::RoundCap);
    p.setJoinStyle(Qt::RoundJoin);
    return p;
}

void hoja(QPainter& p) {
    p.setPen(pluma(kTinta, 1));
    p.setBrush(kPapel);
    p.drawRect(QRectF(2.5, 1.5, 10, 13));
}

void renglones(QPainter& p, double x0, double x1) {
    p.setPen(pluma(kTinta, 1));
    for (double y = 4.5; y < 13; y += 2.5) p.drawLine(QPointF(x0, y), QPointF(x1, y));
}

void lente(QPainter& p, QPointF centro, double radio) {
    p.setPen(pluma(kTinta, 1.6));
    p.setBrush(QColor(200, 225, 250));
    p.drawEllipse(centro, radio, radio);
    p.setPen(pluma(kTinta, 2.4));
    const double d = radio * 0.72;
    p.drawLine(centro + QPointF(d, d), centro + QPointF(d + 4, d + 4));
}

const std::pair<const char*, Dibujo> kIconos[] = {
    {"validar",
     [](QPainter& p) {
         p.setPen(pluma(kVerde, 2.6));
         p.drawPolyline(QPolygonF({{2.5, 8.5}, {6.5, 12.5}, {13.5, 3.5}}));
     }},
    {"borrar",
     [](QPainter& p) {
         p.setPen(pluma(kTinta, 1));
         p.setBrush(QColor(225, 225, 225));
         p.drawRect(QRectF(4.5, 4.5, 7, 10));
         p.drawLine(QPointF(2.5, 3.5), QPointF(13.5, 3.5));
         p.drawLine(QPointF(6.5, 1.5), QPointF(9.5, 1.5));
         p.setPen(pluma(kRojo, 1.4));
         p.drawLine(QPointF(6.5, 7), QPointF(9.5, 12));
         p.drawLine(QPointF(9.5, 7), QPointF(6.5, 12));
     }},
    {"buscar",
     [](QPainter& p) {
         lente(p, {6.5, 6.5}, 4.5);
     }},
    {"cancelar",
     [](QPainter& p) {
         p.setPen(pluma(kRojo, 2));
         p.setBrush(Qt::NoBrush);
         p.drawEllipse(QPointF(8, 8), 5.8, 5.8);
         p.drawLine(QPointF(4, 12), QPointF(12, 4));
     }},
    {"imprimir",
     [](QPainter& p) {
         p.setPen(pluma(kTinta, 1));
         p.setBrush(kPapel);
         p.drawRect(QRectF(4.5, 1.5, 7, 5));
         p.setBrush(QColor(160, 170, 185));
         p.drawRoundedRect(QRectF(1.5, 6.5, 13, 6), 1.5, 1.5);
         p.setBrush(kPapel);
         p.drawRect(QRectF(4.5, 10.5, 7, 4));
         p.setPen(pluma(kVerde, 1.2));
         p.drawPoint(QPointF(12.5, 8.5));
     }},
    {"listar",
     [](QPainter& p) {
         hoja(p);
         renglones(p, 5, 10.5);
     }},
    {"modificar",
     [](QPainter& p) {
         hoja(p);
         renglones(p, 5, 8);
         p.setPen(pluma(QColor(180, 120, 20), 2.4));
         p.drawLine(QPointF(8, 13), QPointF(14, 5));
         p.setPen(pluma(kTinta, 1.2));
         p.drawLine(QPointF(7, 14.5), QPointF(8, 13));
     }},
    {"filtrar",
     [](QPainter& p) {
         p.setPen(pluma(kTinta, 1));
         p.setBrush(kAzul);
         p.drawPolygon(
             QPolygonF({{1.5, 2.5}, {14.5, 2.5}, {9.5, 8.5}, {9.5, 14}, {6.5, 12.5}, {6.5, 8.5}}));
     }},
    {"ayudar",
     [](QPainter& p) {
         p.setPen(Qt::NoPen);
         p.setBrush(kAzul);
         p.drawEllipse(QPointF(8, 8), 7, 7);
         p.setPen(pluma(Qt::white, 1.8));
         p.setBrush(Qt::NoBrush);
         QPainterPath pregunta;
         pregunta.moveTo(5.6, 6.2);
         pregunta.cubicTo(5.6, 3.2, 10.6, 3.2, 10.6, 6);
         pregunta.cubicTo(10.6, 7.8, 8, 7.8, 8, 10);
         p.drawPath(pregunta);
         p.drawPoint(QPointF(8, 12.6));
     }},
    {"insertar",
     [](QPainter& p) {
         hoja(p);
         p.setPen(Qt::NoPen);
         p.setBrush(kVerde);
         p.drawEllipse(QPointF(11, 11), 4.5, 4.5);
         p.setPen(pluma(Qt::white, 1.6));
         p.drawLine(QPointF(11, 8.5), QPointF(11, 13.5));
         p.drawLine(QPointF(8.5, 11), QPointF(13.5, 11));
     }},
    // The program's own icon: a ledger page with a balance mark.
    {"saldeva",
     [](QPainter& p) {
         p.setPen(pluma(kTinta, 1));
         p.setBrush(QColor(30, 110, 80));
         p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 2, 2);
         p.setBrush(kPapel);
         p.drawRect(QRectF(4.5, 3.5, 8, 9));
         p.setPen(pluma(kTinta, 0.8));
         p.drawLine(QPointF(8.5, 3.5), QPointF(8.5, 12.5));
         for (double y = 5.5; y < 12; y += 2) p.drawLine(QPointF(5.5, y), QPointF(11.5, y));
     }},
    {"lupa",
     [](QPainter& p) {
         hoja(p);
         renglones(p, 5, 10.5);
         lente(p, {8.5, 8.5}, 3.6);
     }},
};

QImage dibujar(const Dibujo& dibujo, int lado) {
    QImage imagen(lado, lado, QImage::Format_ARGB32);
    imagen.fill(Qt::transparent);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(lado / 16.0, lado / 16.0);
    dibujo(p);
    return imagen;
}

}  // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication aplicacion(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "uso: saldeva-iconos CARPETA\n");
        return 2;
    }
    const QDir carpeta(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(carpeta.path())) return 1;
    for (const auto& [nombre, dibujo] : kIconos) {
        // The ICO writer keeps one image; 32 pixels scale down cleanly to the toolbar's 16.
        QImageWriter escritor(carpeta.filePath(QString::fromLatin1(nombre) + ".ico"), "ico");
        if (!escritor.write(dibujar(dibujo, 32))) {
            std::fprintf(stderr, "%s: %s\n", nombre, qPrintable(escritor.errorString()));
            return 1;
        }
    }
    return 0;
}
