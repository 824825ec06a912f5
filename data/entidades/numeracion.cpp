#include "numeracion.h"

#include "data/almacen/sql.h"

using namespace entidad;

void numeracion::Insert(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                        const QString& numeracion, int longitud, int numero,
                        const QString& descripcion, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Numeraciones,
                 {codigo_empresa, ejercicio, numeracion, longitud, numero, descripcion},
                 ultimo_usuario);
    });
}

void numeracion::Update(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                        const QString& numeracion, int longitud, int numero,
                        const QString& descripcion, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Numeraciones,
                   {codigo_empresa, ejercicio, numeracion, longitud, numero, descripcion},
                   ultimo_usuario);
    });
}

void numeracion::Delete(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                        const QString& numeracion) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(
            QStringLiteral("DELETE FROM Numeraciones WHERE ") +
            condicionClave(esquema::Numeraciones, {codigo_empresa, ejercicio, numeracion}));
    });
}

Recordset numeracion::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                              Cursor cursor) {
    return getList(conexion, esquema::Numeraciones, condicion, orden, cursor);
}

void numeracion::DuplicarNumeracionEjercicio(Conexion& conexion, const QString& codigo_empresa,
                                             int ejercicio_origen, int ejercicio_destino,
                                             const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        auto delAnio = [&](int ejercicio) {
            return QStringLiteral("codigo_empresa = ") + sqlTexto(codigo_empresa) +
                   QStringLiteral(" AND ejercicio = ") + QString::number(ejercicio);
        };
        const QString orden = QStringLiteral("codigo_empresa, ejercicio, numeracion");
        Recordset origen = GetList(conexion, delAnio(ejercicio_origen), orden);
        Recordset destino = GetList(conexion, delAnio(ejercicio_destino), orden);
        QStringList existentes;
        for (; !destino.eof(); destino.moveNext())
            existentes << destino.value(QStringLiteral("numeracion")).toString();
        for (; !origen.eof(); origen.moveNext()) {
            const QString serie = origen.value(QStringLiteral("numeracion")).toString();
            // Texts compare without trailing blanks, as the store compares them.
            bool esta = false;
            for (const QString& e : existentes) esta = esta || e.trimmed() == serie.trimmed();
            if (esta) continue;
            insertar(
                conexion, esquema::Numeraciones,
                {codigo_empresa, ejercicio_destino, serie, origen.value(QStringLiteral("longitud")),
                 1, origen.value(QStringLiteral("descripcion"))},
                ultimo_usuario);
        }
    });
}
