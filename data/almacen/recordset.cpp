#include "recordset.h"

#include "conexion.h"

#include <QSqlField>

Recordset::Recordset() = default;
Recordset::Recordset(Recordset&& otro) noexcept {
    *this = std::move(otro);
}

Recordset& Recordset::operator=(Recordset&& otro) noexcept {
    if (this == &otro) return *this;
    cerrarCursor();
    conexion_ = otro.conexion_;
    sql_ = std::move(otro.sql_);
    consulta_ = std::move(otro.consulta_);
    columnas_ = std::move(otro.columnas_);
    cursor_ = otro.cursor_;
    cursorServidor_ = std::move(otro.cursorServidor_);
    otro.cursorServidor_.clear();
    eof_ = otro.eof_;
    valores_ = std::move(otro.valores_);
    fila_ = otro.fila_;
    filasLote_ = otro.filasLote_;
    porLotes_ = otro.porLotes_;
    cuenta_ = otro.cuenta_;
    return *this;
}

Recordset::~Recordset() {
    cerrarCursor();
}

Recordset::Recordset(Conexion* conexion, QString sql, QSqlQuery consulta, Cursor cursor)
    : conexion_(conexion), sql_(std::move(sql)), consulta_(std::move(consulta)), cursor_(cursor) {
    columnas_ = consulta_.record();
    if (cursor_ == Cursor::Estatico)
        leerTodo();
    else
        moveNext();
}

Recordset::Recordset(Conexion* conexion, QString sql, QString cursorServidor)
    : conexion_(conexion),
      sql_(std::move(sql)),
      cursor_(Cursor::Secuencial),
      cursorServidor_(std::move(cursorServidor)) {
    siguienteLote();
}

size_t Recordset::leerFilas() {
    const int n = columnas_.count();
    valores_.clear();
    fila_ = 0;
    while (consulta_.next())
        for (int i = 0; i < n; ++i) valores_.push_back(consulta_.value(i));
    consulta_.finish();
    return n == 0 ? 0 : valores_.size() / size_t(n);
}

void Recordset::leerTodo() {
    porLotes_ = true;
    filasLote_ = leerFilas();
    cuenta_ = int(filasLote_);
    eof_ = cuenta_ == 0;
}

void Recordset::siguienteLote() {
    constexpr int kLote = 2000;
    consulta_ = conexion_->consultaDirecta(QStringLiteral("FETCH FORWARD %1 FROM ").arg(kLote) +
                                           cursorServidor_);
    columnas_ = consulta_.record();
    porLotes_ = true;
    filasLote_ = leerFilas();
    eof_ = filasLote_ == 0;
    if (eof_) cerrarCursor();
}

void Recordset::cerrarCursor() {
    if (cursorServidor_.isEmpty() || !conexion_) return;
    const QString nombre = std::exchange(cursorServidor_, QString());
    try {
        conexion_->consultaDirecta(QStringLiteral("CLOSE ") + nombre);
    } catch (const Error&) {
        // The transaction it lived in was rolled back and took it along.
    }
}

bool Recordset::eof() const {
    return eof_;
}

void Recordset::moveNext() {
    const int n = columnas_.count();
    if (porLotes_) {
        if (eof_) return;
        ++fila_;
        if (fila_ < filasLote_) return;
        if (cursorServidor_.isEmpty())
            eof_ = true;
        else
            siguienteLote();
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
    cuenta_ = int(contarFilas(*conexion_, sql_));
    return cuenta_;
}

qint64 contarFilas(Conexion& conexion, const QString& traducida) {
    // The order of the rows does not change their number, and sorting a long read only to
    // count it would cost as much as the read itself.
    QString sinOrden = traducida;
    const qsizetype orden =
        sinOrden.lastIndexOf(QStringLiteral(" ORDER BY "), -1, Qt::CaseInsensitive);
    if (orden > 0 && sinOrden.indexOf(u')', orden) < 0 && sinOrden.indexOf(u'\'', orden) < 0)
        sinOrden.truncate(orden);
    Recordset cuenta = conexion.abrir(
        QStringLiteral("SELECT COUNT(*) FROM (") + sinOrden + QStringLiteral(") recuento"),
        Cursor::Estatico);
    return cuenta.eof() ? 0 : cuenta.value(0).toLongLong();
}

int Recordset::indiceDe(const QString& campo) const {
    // Field names compare without regard to case, as the stores fold unquoted names.
    const int i = columnas_.indexOf(campo);
    if (i < 0)
        throw Error(errores::kAlmacen, QStringLiteral("El campo ") + campo +
                                           QStringLiteral(" no forma parte de la consulta."));
    return i;
}

void Recordset::comprobarFila() const {
    if (eof_)
        throw Error(errores::kAlmacen,
                    QStringLiteral("No hay registro actual: la consulta no devolvió más filas."));
}

QVariant Recordset::value(const QString& campo) const {
    return value(indiceDe(campo));
}

QVariant Recordset::value(int indice) const {
    comprobarFila();
    if (indice < 0 || indice >= columnas_.count())
        throw Error(errores::kAlmacen, QStringLiteral("Columna fuera de la consulta."));
    const size_t base = porLotes_ ? fila_ * size_t(columnas_.count()) : 0;
    return valores_[base + size_t(indice)];
}

int Recordset::fieldCount() const {
    return columnas_.count();
}
QString Recordset::fieldName(int indice) const {
    return columnas_.fieldName(indice);
}

void Recordset::close() {
    cerrarCursor();
    consulta_.finish();
    valores_.clear();
    eof_ = true;
}
