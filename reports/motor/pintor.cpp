#include "pintor.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>

namespace motor {

namespace {
// The painter draws in tenths of a millimetre: fine enough for a letter's placement, and
// whole numbers for the font's pixel sizes are not needed because sizes go in points.
constexpr double kUnidades = 10.0;
}  // namespace

void Pintor::pintar(QPainter& p, const Pagina& pagina, double pixelesPorMm) {
    const int dpi = p.device()->logicalDpiY();
    if (dpi != dpi_) {
        // A point size is turned into pixels by the device's resolution and then scaled by the
        // painter; this size gives the layout's points on paper.
        dpi_ = dpi;
        fuentes_.clear();
        medidas_.clear();
        for (const Estilo& e : d_.estilos) {
            QFont f(d_.letra);
            f.setPointSizeF((e.puntos > 0 ? e.puntos : d_.puntos) * 254.0 / dpi);
            f.setBold(e.negrita);
            f.setItalic(e.cursiva);
            f.setHintingPreference(QFont::PreferNoHinting);
            fuentes_ << f;
            medidas_ << QFontMetricsF(f, p.device());
        }
    }
    p.save();
    p.scale(pixelesPorMm / kUnidades, pixelesPorMm / kUnidades);
    p.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap));
    for (const Raya& r : pagina.rayas) {
        p.setPen(QPen(Qt::black, r.grosor * kUnidades, Qt::SolidLine, Qt::FlatCap));
        p.drawLine(QLineF(r.linea.p1() * kUnidades, r.linea.p2() * kUnidades));
    }
    p.setPen(Qt::black);
    int estilo = -1;
    for (const Trazo& t : pagina.textos) {
        const int pedido = t.estilo < fuentes_.size() ? t.estilo : 0;
        if (pedido != estilo) {
            estilo = pedido;
            p.setFont(fuentes_[estilo]);
        }
        const QRectF caja(t.caja.x() * kUnidades, t.caja.y() * kUnidades,
                          t.caja.width() * kUnidades, t.caja.height() * kUnidades);
        int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
        switch (Alineacion(t.alineacion)) {
            case Alineacion::Derecha:
                flags |= Qt::AlignRight;
                break;
            case Alineacion::Centro:
                flags |= Qt::AlignHCenter;
                break;
            case Alineacion::Izquierda:
                flags |= Qt::AlignLeft;
                break;
        }
        // A text longer than its box is cut with an ellipsis rather than run into the next;
        // a right-aligned one (an amount) is never cut: it grows to the left.
        const QFontMetricsF& medidas = medidas_[estilo];
        if (Alineacion(t.alineacion) == Alineacion::Izquierda &&
            medidas.horizontalAdvance(t.texto) > caja.width())
            p.drawText(caja, flags, medidas.elidedText(t.texto, Qt::ElideRight, caja.width()));
        else
            p.drawText(caja, flags, t.texto);
    }
    p.restore();
}

}  // namespace motor
