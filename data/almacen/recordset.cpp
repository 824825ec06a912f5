#include "recordset.h"

#include "conexion.h"

#include <QSqlField>

Recordset::Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

Recordset::Recordset(Conexion* conexion, QString sql, QSqlQuery consulta, Cursor cursor)
    : conexion_(conexion), sql_(std::move(sql)), consulta_(std::move(consulta)), cursor_(cursor) {
    columnas_ = consulta_.record();
    const int n = columnas_.count();
    if (cursor_ == Cursor::Estatico) {
        while (consulta_.next())
            for (int i = 0; i < n; ++i) valores_.push_back(consulta_.value(i));
        consulta_.finish();
        cuenta_ = n == 0 ? 0 : int(valores_.size() / size_t(n));
        eof_ = cuenta_ == 0;
    } else {
        moveNext();
    }
}

bool Recordset::eof() const { return eof_; }

void Recordset::moveNext() {
    const int n = columnas_.count();
    if (cursor_ == Cursor::Estatico) {
        if (eof_) return;
        ++fila_;
        eof_ = fila_ >= size_t(cuenta_);
        return;
    }
    valores_.clear();
    if (consulta_.isActive() && consulta_.next()) {
        for (int i = 0; i < n; ++i) valores_.push_back(consulta_.value(i));
        eof_ = false;
    } else {
        consulta_.finish();
        eof_ = true;
    }
}

int Recordset::recordCount() {
    if (cuenta_ >= 0) return cuenta_;
    if (!conexion_) return 0;
    Recordset cuenta = conexion_->open(QStringLiteral("SELECT COUNT(*) FROM (") + sql_ +
                                       QStringLiteral(") recuento"));
    cuenta_ = cuenta.eof() ? 0 : cuenta.value(0).toInt();
    return cuenta_;
}

int Recordset::indiceDe(const QString& campo) const {
    // Field names compare without regard to case, as the stores fold unquoted names.
    const int i = columnas_.indexOf(campo);
    if (i < 0) throw Error(errores::kAlmacen, QStringLiteral("El campo ") + campo +
                                                  QStringLiteral(" no forma parte de la consulta."));
    return i;
}

void Recordset::comprobarFila() const {
    if (eof_)
        throw Error(errores::kAlmacen,
                    QStringLiteral("No hay registro actual: la consulta no devolvió más filas."));
}

QVariant Recordset::value(const QString& campo) const { return value(indiceDe(campo)); }

QVariant Recordset::value(int indice) const {
    comprobarFila();
    if (indice < 0 || indice >= columnas_.count())
        throw Error(errores::kAlmacen, QStringLiteral("Columna fuera de la consulta."));
    const size_t base = cursor_ == Cursor::Estatico ? fila_ * size_t(columnas_.count()) : 0;
    return valores_[base + size_t(indice)];
}

int Recordset::fieldCount() const { return columnas_.count(); }
QString Recordset::fieldName(int indice) const { return columnas_.fieldName(indice); }

void Recordset::close() {
    consulta_.finish();
    valores_.clear();
    eof_ = true;
}
