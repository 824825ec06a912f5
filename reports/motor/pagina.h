#pragma once

#include <QDataStream>
#include <QLineF>
#include <QList>
#include <QRectF>
#include <QString>

// One laid-out page: every text in its box and every rule, in millimetres from the paper's
// top-left corner. It is all a painter, a test or the preview's page file needs of a page.
namespace motor {

struct Trazo {
    QRectF caja;
    QString texto;
    quint8 estilo = 0;      // index into the layout's styles
    quint8 alineacion = 0;  // motor::Alineacion
};

struct Raya {
    QLineF linea;
    float grosor = 0.2f;
};

struct Pagina {
    int numero = 0;
    QList<Trazo> textos;
    QList<Raya> rayas;
};

QDataStream& operator<<(QDataStream& s, const Pagina& p);
QDataStream& operator>>(QDataStream& s, Pagina& p);

}  // namespace motor
