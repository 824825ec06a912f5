#include "entidad.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"

#include <QDate>

namespace entidad {
namespace {

// An empty text that the drivers write as '' and not as Null.
const QString kVacio = QStringLiteral("");

QString texto(const QVariant& valor) {
    const QString t = valor.toString();
    return t.isNull() ? kVacio : t;
}

QString nombre(std::string_view s) {
    return QString::fromUtf8(s.data(), qsizetype(s.size()));
}

QString encabezado(Operacion operacion) {
    switch (operacion) {
        case Operacion::Insert:
            return QStringLiteral("Error en Insert.");
        case Operacion::Update:
        case Operacion::SetEstado:
            return QStringLiteral("Error en Update.");
        case Operacion::Delete:
            return QStringLiteral("Error en Delete.");
        case Operacion::GetList:
        case Operacion::ValidarUsuario:
            return QStringLiteral("Error en GetList.");
    }
    return {};
}

qint32 numero(Operacion operacion) {
    switch (operacion) {
        case Operacion::Insert:
            return errores::kInsert;
        case Operacion::Update:
        case Operacion::SetEstado:
            return errores::kUpdate;
        case Operacion::Delete:
            return errores::kDelete;
        case Operacion::GetList:
            return errores::kGetList;
        case Operacion::ValidarUsuario:
            return errores::kValidarUsuario;
    }
    return errores::kAlmacen;
}

// A value as the column's type wants it. Text is never Null when written: a missing text is
// an empty one, as the screens give it.
QVariant comoColumna(const esquema::Columna& columna, const QVariant& valor, Fechas fechas) {
    switch (columna.tipo) {
        case esquema::Tipo::Texto:
            return texto(valor);
        case esquema::Tipo::Fecha:
            return fechas == Fechas::Convertir ? texto(Auxiliar::sDate(valor)) : texto(valor);
        case esquema::Tipo::Entero16:
        case esquema::Tipo::Entero32:
            return QVariant(valor.toInt());
        case esquema::Tipo::Doble:
            return QVariant(valor.toDouble());
    }
    return valor;
}

QString literal(const esquema::Columna& columna, const QVariant& valor) {
    switch (columna.tipo) {
        case esquema::Tipo::Texto:
            return sqlTexto(valor.toString());
        case esquema::Tipo::Fecha:
            return sqlTexto(Auxiliar::sDate(valor));
        case esquema::Tipo::Entero16:
        case esquema::Tipo::Entero32:
            return QString::number(valor.toInt());
        case esquema::Tipo::Doble:
            return QString::number(valor.toDouble(), 'g', 17);
    }
    return {};
}

void comprobarTamano(const esquema::Tabla& tabla, qsizetype n) {
    if (n != qsizetype(tabla.columnas.size()))
        throw Error(errores::kAlmacen,
                    QStringLiteral("Número de valores incorrecto para la tabla ") +
                        nombre(tabla.nombre) + u'.');
}

void sello(const esquema::Tabla& tabla, QStringList& columnas, QVariantList& valores,
           const QString& usuario) {
    if (!tabla.sello) return;
    columnas << QStringLiteral("ultima_modificacion") << QStringLiteral("ultimo_usuario");
    valores << hoy() << texto(usuario);
}

// Rewrites the columns of the row named by its key, with the stamp; no such row is a failure.
void reescribir(Conexion& conexion, const esquema::Tabla& tabla, const QVariantList& clave,
                QStringList columnas, QVariantList datos, const QString& usuario) {
    sello(tabla, columnas, datos, usuario);
    const QString condicion = condicionClave(tabla, clave);
    if (conexion.actualizar(nombre(tabla.nombre), columnas, datos, condicion) > 0) return;
    conexion.anotarError(QStringLiteral("3021"),
                         QStringLiteral("No existe el registro que se quiere modificar (") +
                             nombre(tabla.nombre) + QStringLiteral(": ") + condicion + u')');
    throw Error(errores::kAlmacen, conexion.errores().last().descripcion);
}

}  // namespace

void relanzar(Conexion& conexion, Operacion operacion, const Error& causa) {
    if (conexion.errores().isEmpty())
        conexion.anotarError(QString::number(causa.numero()), causa.descripcion());
    throw Error(numero(operacion), ColectarErrores(conexion.errores(), encabezado(operacion)));
}

QString hoy() {
    return QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
}

void insertar(Conexion& conexion, const esquema::Tabla& tabla, const Valores& valores,
              const QString& usuario, Fechas fechas) {
    comprobarTamano(tabla, valores.size());
    QStringList columnas;
    QVariantList datos;
    for (size_t i = 0; i < tabla.columnas.size(); ++i) {
        if (!valores[qsizetype(i)]) continue;
        columnas << nombre(tabla.columnas[i].nombre);
        datos << comoColumna(tabla.columnas[i], *valores[qsizetype(i)], fechas);
    }
    sello(tabla, columnas, datos, usuario);
    conexion.insertar(nombre(tabla.nombre), columnas, datos);
}

QString condicionClave(const esquema::Tabla& tabla, const QVariantList& clave) {
    QStringList partes;
    qsizetype k = 0;
    for (const esquema::Columna& c : tabla.columnas) {
        if (!c.clave) continue;
        if (k >= clave.size()) break;
        partes << nombre(c.nombre) + QStringLiteral(" = ") + literal(c, clave[k++]);
    }
    return partes.join(QStringLiteral(" AND "));
}

void actualizar(Conexion& conexion, const esquema::Tabla& tabla, const Valores& valores,
                const QString& usuario, Fechas fechas) {
    comprobarTamano(tabla, valores.size());
    QVariantList clave, datos;
    QStringList columnas;
    for (size_t i = 0; i < tabla.columnas.size(); ++i) {
        const esquema::Columna& c = tabla.columnas[i];
        const Valor& v = valores[qsizetype(i)];
        if (c.clave) {
            clave << v.value_or(QVariant());
        } else if (v) {
            columnas << nombre(c.nombre);
            datos << comoColumna(c, *v, fechas);
        }
    }
    reescribir(conexion, tabla, clave, columnas, datos, usuario);
}

namespace {

QVariantList comoColumnas(const esquema::Tabla& tabla, const QStringList& columnas,
                          const QVariantList& valores) {
    QVariantList datos;
    for (qsizetype i = 0; i < columnas.size(); ++i) {
        const esquema::Columna* def = nullptr;
        for (const esquema::Columna& c : tabla.columnas)
            if (nombre(c.nombre) == columnas[i]) def = &c;
        if (!def)
            throw Error(errores::kAlmacen, QStringLiteral("Columna desconocida: ") + columnas[i]);
        datos << comoColumna(*def, valores[i], Fechas::Convertir);
    }
    return datos;
}

}  // namespace

void actualizarColumnas(Conexion& conexion, const esquema::Tabla& tabla, const QVariantList& clave,
                        const QStringList& columnas, const QVariantList& valores,
                        const QString& usuario) {
    reescribir(conexion, tabla, clave, columnas, comoColumnas(tabla, columnas, valores), usuario);
}

int actualizarColumnasSi(Conexion& conexion, const esquema::Tabla& tabla, const QVariantList& clave,
                         const QString& ademas, const QStringList& columnas,
                         const QVariantList& valores, const QString& usuario) {
    QStringList todas = columnas;
    QVariantList datos = comoColumnas(tabla, columnas, valores);
    sello(tabla, todas, datos, usuario);
    return conexion.actualizar(nombre(tabla.nombre), todas, datos,
                               condicionClave(tabla, clave) + QStringLiteral(" AND ") + ademas);
}

Recordset getList(Conexion& conexion, const esquema::Tabla& tabla, const QString& condicion,
                  const QString& orden, Cursor cursor) {
    return ejecutar(conexion, Operacion::GetList, Transaccional::No, [&] {
        QString sql = QStringLiteral("SELECT * FROM ") + nombre(tabla.nombre);
        if (!condicion.isEmpty()) sql += QStringLiteral(" WHERE ") + condicion;
        if (!orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + orden;
        return conexion.open(sql, cursor);
    });
}

}  // namespace entidad
