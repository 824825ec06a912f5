#include "pagina.h"

namespace motor {

// Texts go as UTF-8 and boxes as floats: a page of a book is written once and read back
// often, and the smaller file pays on both.
QDataStream& operator<<(QDataStream& s, const Pagina& p) {
    s << qint32(p.numero) << qint32(p.textos.size());
    for (const Trazo& t : p.textos)
        s << float(t.caja.x()) << float(t.caja.y()) << float(t.caja.width())
          << float(t.caja.height()) << t.texto.toUtf8() << t.estilo << t.alineacion;
    s << qint32(p.rayas.size());
    for (const Raya& r : p.rayas)
        s << float(r.linea.x1()) << float(r.linea.y1()) << float(r.linea.x2())
          << float(r.linea.y2()) << r.grosor;
    return s;
}

QDataStream& operator>>(QDataStream& s, Pagina& p) {
    qint32 numero = 0, n = 0;
    s >> numero >> n;
    p.numero = numero;
    p.textos.resize(n);
    for (Trazo& t : p.textos) {
        float x, y, w, h;
        QByteArray texto;
        s >> x >> y >> w >> h >> texto >> t.estilo >> t.alineacion;
        t.caja = QRectF(x, y, w, h);
        t.texto = QString::fromUtf8(texto);
    }
    s >> n;
    p.rayas.resize(n);
    for (Raya& r : p.rayas) {
        float x1, y1, x2, y2;
        s >> x1 >> y1 >> x2 >> y2 >> r.grosor;
        r.linea = QLineF(x1, y1, x2, y2);
    }
    return s;
}

}  // namespace motor
