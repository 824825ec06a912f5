#include "auxiliar.h"

#include "almacen/programa.h"
#include "formato.h"

#include <QDate>
#include <memory>

namespace {

struct Privada {
    std::unique_ptr<Conexion> conexion;
    QString carpeta;
};

Privada& privada(bool temporal) {
    static Privada principal, temporalPrivada;
    return temporal ? temporalPrivada : principal;
}

QVariant buscar(bool temporal, const QString& tabla, const QString& campo, const QString& condicion,
                const QVariant& defecto) {
    Privada& p = privada(temporal);
    if (!p.conexion || p.carpeta != programa::carpeta()) {
        p.conexion.reset();
        p.conexion = std::make_unique<Conexion>(temporal ? QStringLiteral("File name=Temporal.udl")
                                                         : QStringLiteral("File name=Saldeva.udl"));
        p.carpeta = programa::carpeta();
    }
    try {
        Recordset rs =
            p.conexion->open(QStringLiteral("SELECT ") + campo + QStringLiteral(" FROM ") + tabla +
                             QStringLiteral(" WHERE ") + condicion);
        // One field is selected: its value is the first column, whatever its name.
        if (rs.eof()) return defecto;
        const QVariant valor = rs.value(0);
        return valor.isNull() ? defecto : valor;
    } catch (const Error&) {
        // A dropped connection is opened anew at the next lookup.
        p.conexion.reset();
        throw;
    }
}

}  // namespace

QString Auxiliar::sDate(const QVariant& valor) {
    QDate fecha;
    if (valor.typeId() == QMetaType::QDate || valor.typeId() == QMetaType::QDateTime) {
        fecha = valor.toDate();
    } else if (const auto leida = formato::leerFecha(valor.toString())) {
        fecha = *leida;
    }
    return fecha.isValid() ? fecha.toString(QStringLiteral("yyyyMMdd")) : QString();
}

QString Auxiliar::dDate(const QString& valor) {
    if (valor.isEmpty()) return {};
    return valor.mid(6, 2) + u'/' + valor.mid(4, 2) + u'/' + valor.mid(0, 4);
}

QVariant Auxiliar::vBuscarCampo(const QString& tabla, const QString& campo,
                                const QString& condicion, const QVariant& defecto) {
    return buscar(false, tabla, campo, condicion, defecto);
}

QVariant Auxiliar::vBuscarCampoTemporal(const QString& tabla, const QString& campo,
                                        const QString& condicion, const QVariant& defecto) {
    return buscar(true, tabla, campo, condicion, defecto);
}

void Auxiliar::DeleteExt(Conexion& conexion, const QString& tabla, const QString& condicion) {
    try {
        conexion.execute(QStringLiteral("DELETE FROM ") + tabla +
                         (condicion.isEmpty() ? QString() : QStringLiteral(" WHERE ") + condicion));
    } catch (const Error& e) {
        throw Error(e.numero(),
                    ColectarErrores(conexion.errores(), QStringLiteral("Error en DeleteExt.")));
    }
}

Recordset Auxiliar::GetListExt(Conexion& conexion, const QString& tabla, const QString& campos,
                               const QString& condicion, const QString& grupo,
                               const QString& having, const QString& orden, Cursor cursor) {
    QString sql = QStringLiteral("SELECT ") + campos + QStringLiteral(" FROM ") + tabla;
    if (!condicion.isEmpty()) sql += QStringLiteral(" WHERE ") + condicion;
    if (!grupo.isEmpty()) sql += QStringLiteral(" GROUP BY ") + grupo;
    if (!having.isEmpty()) sql += QStringLiteral(" HAVING BY ") + having;
    if (!orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + orden;
    try {
        return conexion.open(sql, cursor);
    } catch (const Error& e) {
        throw Error(e.numero(),
                    ColectarErrores(conexion.errores(), QStringLiteral("Error en GetListExt.")));
    }
}

void Auxiliar::cerrarConexiones() {
    privada(false).conexion.reset();
    privada(true).conexion.reset();
}
