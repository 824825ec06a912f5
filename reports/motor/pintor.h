#pragma once

#include "diseno.h"
#include "pagina.h"

#include <QFont>
#include <QFontMetricsF>
#include <QList>

class QPainter;

namespace motor {

// Paints laid-out pages on any device (screen, PDF, printer) through one QPainter. Coordinates
// are millimetres scaled to the device; the letter sizes of the layout keep their points at
// every scale, so a page on screen at 100 % matches the printed one.
class Pintor {
public:
    explicit Pintor(const Diseno& diseno) : d_(diseno) {}
    // Paints the page with its top-left corner at the painter's origin, `pixelesPorMm` device
    // pixels to the millimetre; the paper itself (white) is the caller's.
    void pintar(QPainter& painter, const Pagina& pagina, double pixelesPorMm);

private:
    const Diseno& d_;
    QList<QFont> fuentes_;
    QList<QFontMetricsF> medidas_;
    int dpi_ = -1;
};

}  // namespace motor
