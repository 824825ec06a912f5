#include "seguridad.h"

#include "almacen/sql.h"
#include "global.h"

void CargarRestricciones(Conexion& conexion, const QString& codigo_empresa,
                         const QString& codigo_delegacion, const QString& codigo_usuario,
                         const QStringList& items, QStringList& restricciones) {
    Recordset filas = conexion.open(
        QStringLiteral("SELECT item_menu, restricciones FROM RestriccionesUsuariosMenus WHERE "
                       "codigo_usuario = ") +
        sqlTexto(codigo_usuario) + QStringLiteral(" AND codigo_empresa = ") +
        sqlTexto(codigo_empresa) + QStringLiteral(" AND codigo_delegacion = ") +
        sqlTexto(codigo_delegacion));
    for (; !filas.eof(); filas.moveNext()) {
        const int i = BuscarEnArray(items, NzTexto(filas.value(0)));
        if (i > 0 && i <= restricciones.size()) restricciones[i - 1] += NzTexto(filas.value(1));
    }
}
