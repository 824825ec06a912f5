#pragma once

#include <QList>
#include <QString>
#include <exception>

// One error object of a connection: what the store (or this layer on its behalf) reported
// about the last failed operation. A connection keeps the list until its next failure.
struct ErrorAlmacen {
    QString origen;
    QString numero;
    QString descripcion;
};

// The failure that travels to the caller's handler: a number and a description, shown by the
// forms as number, " - " and description. Store failures, entity-class failures (with their
// numbers 0x80040001 to 0x80040005) and start-up failures are all of this one kind.
class Error : public std::exception {
public:
    Error(qint32 numero, QString descripcion);

    qint32 numero() const { return numero_; }
    const QString& descripcion() const { return descripcion_; }
    // Number and description as one line, the way a critical box shows them.
    QString texto() const;
    const char* what() const noexcept override { return what_.constData(); }

private:
    qint32 numero_;
    QString descripcion_;
    QByteArray what_;
};

// The numbers raised by the entity classes, as signed 32-bit values.
namespace errores {
constexpr qint32 kInsert = qint32(0x80040001u);
constexpr qint32 kUpdate = qint32(0x80040002u);
constexpr qint32 kDelete = qint32(0x80040003u);
constexpr qint32 kGetList = qint32(0x80040004u);
constexpr qint32 kValidarUsuario = qint32(0x80040005u);
// A failure of the store itself, before an entity class wraps it.
constexpr qint32 kAlmacen = qint32(0x80004005u);
}  // namespace errores

// The text of ColectarErrores: the heading and a line break, then one line per error object,
// "origen (Referencia número): descripción", each ended by CR LF. An empty heading gives no
// first line.
QString ColectarErrores(const QList<ErrorAlmacen>& errores, const QString& encabezado);
