#include "lineas.h"

#include "data/almacen/error.h"
#include "data/formato.h"
#include "forms/lista.h"

int LineasAsiento::posicion(int numero) const {
    for (int i = 0; i < lineas_.size(); ++i)
        if (lineas_[i].numero == numero) return i;
    return -1;
}

int LineasAsiento::SiguienteLinea() const {
    int numero = 1;
    while (numero <= cuantas() && posicion(numero) >= 0) ++numero;
    return numero;
}

int LineasAsiento::AnadirLinea(int numero, const QString& fecha, const QString& cuenta, double debe,
                               double haber, const QString& concepto, const QString& tipo) {
    const int n = numero == 0 ? SiguienteLinea() : numero <= cuantas() ? numero : cuantas() + 1;
    if (posicion(n) >= 0)
        throw Error(errores::kClaveRepetida,
                    QStringLiteral("La clave no es única en la colección"));
    lineas_.insert(n - 1, LineaApunte{n, fecha, cuenta, debe, haber, concepto, tipo});
    return n;
}

void LineasAsiento::BorrarLineasTipo(const QString& tipo) {
    for (qsizetype i = lineas_.size() - 1; i >= 0; --i)
        if (lineas_[i].tipo == tipo) lineas_.removeAt(i);
}

LineaApunte LineasAsiento::quitar(int numero) {
    const int i = posicion(numero);
    if (i < 0)
        throw Error(errores::kElementoNoEncontrado, QStringLiteral("Elemento no encontrado"));
    return lineas_.takeAt(i);
}

double LineasAsiento::debe() const {
    double suma = 0;
    for (const LineaApunte& l : lineas_) suma += l.debe;
    return suma;
}

double LineasAsiento::haber() const {
    double suma = 0;
    for (const LineaApunte& l : lineas_) suma += l.haber;
    return suma;
}

QString LineasAsiento::textoNumero(int numero) {
    return QString::number(numero).rightJustified(7, u'0');
}

QString LineasAsiento::clave(int numero) {
    return QStringLiteral("K") + textoNumero(numero);
}

QString textoPantalla(double valor) {
    return formato::textoDouble(valor).replace(u'.', u',');
}
