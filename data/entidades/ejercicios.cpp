#include "ejercicios.h"

#include "data/almacen/sql.h"
#include "numeracion.h"

using namespace entidad;

void Ejercicios::Insert(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                        const QVariant& fecha_inicial, const QVariant& fecha_final,
                        const QVariant& inicio_bloqueo, const QVariant& final_bloqueo,
                        const QString& regularizado, const QString& cerrado,
                        const QString& ultimo_usuario, bool enTransaccion) {
    ejecutar(conexion, Operacion::Insert, segun(enTransaccion), [&] {
        insertar(conexion, esquema::Ejercicios,
                 {codigo_empresa, ejercicio, fecha_inicial, fecha_final, inicio_bloqueo,
                  final_bloqueo, regularizado, cerrado},
                 ultimo_usuario);
        numeracion::DuplicarNumeracionEjercicio(conexion, codigo_empresa, ejercicio - 1, ejercicio,
                                                ultimo_usuario);
    });
}

void Ejercicios::Update(Conexion& conexion, const QString& codigo_empresa, int ejercicio,
                        const QVariant& fecha_inicial, const QVariant& fecha_final,
                        const QVariant& inicio_bloqueo, const QVariant& final_bloqueo,
                        const QString& regularizado, const QString& cerrado,
                        const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Ejercicios,
                   {codigo_empresa, ejercicio, fecha_inicial, fecha_final, inicio_bloqueo,
                    final_bloqueo, regularizado, cerrado},
                   ultimo_usuario);
    });
}

void Ejercicios::Delete(Conexion& conexion, const QString& codigo_empresa,
                        const QString& codigo_delegacion, int ejercicio, bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        const QString delAnio = QStringLiteral("codigo_empresa = ") + sqlTexto(codigo_empresa) +
                                QStringLiteral(" AND ejercicio = ") + QString::number(ejercicio);
        conexion.execute(QStringLiteral("DELETE FROM Numeraciones WHERE ") + delAnio);

        QString desde, hasta;
        Recordset rs = conexion.open(QStringLiteral("SELECT * FROM Ejercicios WHERE ") + delAnio);
        if (!rs.eof()) {
            desde = rs[QStringLiteral("fecha_inicial")].toString();
            hasta = rs[QStringLiteral("fecha_final")].toString();
            conexion.execute(QStringLiteral("DELETE FROM Ejercicios WHERE ") + delAnio);
        }

        const QString apuntes =
            QStringLiteral("Apuntes.codigo_empresa = ") + sqlTexto(codigo_empresa) +
            QStringLiteral(" AND Apuntes.codigo_delegacion = ") + sqlTexto(codigo_delegacion) +
            QStringLiteral(" AND Apuntes.fecha_apunte >=") + sqlTexto(desde) +
            QStringLiteral(" AND Apuntes.fecha_apunte <= ") + sqlTexto(hasta);
        for (const char* t : {"RegistroIVA", "Cartera", "RegistroIrpf"}) {
            const QString d = QLatin1StringView(t);
            conexion.execute(
                QStringLiteral("DELETE ") + d + QStringLiteral(".* FROM Apuntes INNER JOIN ") + d +
                QStringLiteral(" ON ") + d +
                QStringLiteral(".codigo_empresa = Apuntes.codigo_empresa AND ") + d +
                QStringLiteral(".codigo_delegacion = Apuntes.codigo_delegacion AND ") + d +
                QStringLiteral(".codigo_documento = Apuntes.codigo_documento AND ") + d +
                QStringLiteral(".numero_documento = Apuntes.numero_documento AND ") + d +
                QStringLiteral(".numero_apunte = Apuntes.numero_apunte WHERE ") + apuntes);
        }
        conexion.execute(QStringLiteral("DELETE FROM Apuntes WHERE codigo_empresa = ") +
                         sqlTexto(codigo_empresa) + QStringLiteral(" AND codigo_delegacion = ") +
                         sqlTexto(codigo_delegacion) + QStringLiteral(" AND fecha_apunte >=") +
                         sqlTexto(desde) + QStringLiteral(" AND fecha_apunte <= ") +
                         sqlTexto(hasta));
    });
}

Recordset Ejercicios::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                              Cursor cursor) {
    return getList(conexion, esquema::Ejercicios, condicion, orden, cursor);
}
