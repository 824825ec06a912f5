#include "error.h"

Error::Error(qint32 numero, QString descripcion)
    : numero_(numero), descripcion_(std::move(descripcion)), what_(texto().toUtf8()) {}

QString Error::texto() const {
    return QString::number(numero_) + QStringLiteral(" - ") + descripcion_;
}

QString ColectarErrores(const QList<ErrorAlmacen>& errores, const QString& encabezado) {
    const QString salto = QStringLiteral("\r\n");
    QString texto;
    if (!encabezado.isEmpty()) texto = encabezado + salto;
    for (const ErrorAlmacen& e : errores)
        texto += e.origen + QStringLiteral(" (Referencia ") + e.numero + QStringLiteral("): ") +
                 e.descripcion + salto;
    return texto;
}
