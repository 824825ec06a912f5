#include "pergan.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Pergan::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& dh,
                    int nivel_1, int nivel_2, int nivel_3, int nivel_4, const QString& titulo,
                    const QString& cuentas, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::Pergan,
                 {codigo_empresa, dh, nivel_1, nivel_2, nivel_3, nivel_4, titulo, cuentas},
                 ultimo_usuario);
    });
}

void Pergan::Update(Conexion& conexion, const QString& codigo_empresa, const QString& dh,
                    int nivel_1, int nivel_2, int nivel_3, int nivel_4, const QString& titulo,
                    const QString& cuentas, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::Pergan,
                   {codigo_empresa, dh, nivel_1, nivel_2, nivel_3, nivel_4, titulo, cuentas},
                   ultimo_usuario);
    });
}

void Pergan::Delete(Conexion& conexion, const QString& codigo_empresa, const QString& dh,
                    int nivel_1, int nivel_2, int nivel_3, int nivel_4) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        Q_UNUSED(nivel_4);
        conexion.execute(QStringLiteral("DELETE FROM Pergan WHERE codigo_empresa = ") +
                         sqlTexto(codigo_empresa) + QStringLiteral(" AND dh = ") + sqlTexto(dh) +
                         QStringLiteral(" AND nivel_1 = ") + QString::number(nivel_1) +
                         QStringLiteral(" AND nivel_2 = ") + QString::number(nivel_2) +
                         QStringLiteral(" AND nivel_3 = ") + QString::number(nivel_3) +
                         QStringLiteral(" AND nivel_3 = ") + QString::number(nivel_3));
    });
}

Recordset Pergan::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                          Cursor cursor) {
    return getList(conexion, esquema::Pergan, condicion, orden, cursor);
}
