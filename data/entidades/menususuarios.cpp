#include "menususuarios.h"

#include "data/almacen/sql.h"

using namespace entidad;

void MenusUsuarios::Insert(Conexion& conexion, const QString& codigo_usuario,
                           const QString& codigo_empresa, const QString& codigo_delegacion,
                           const QString& item_menu, const QString& restricciones,
                           const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::RestriccionesUsuariosMenus,
                 {codigo_usuario, codigo_empresa, codigo_delegacion, item_menu, restricciones},
                 ultimo_usuario);
    });
}

void MenusUsuarios::Update(Conexion& conexion, const QString& codigo_usuario,
                           const QString& codigo_empresa, const QString& codigo_delegacion,
                           const QString& item_menu, const QString& restricciones,
                           const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::RestriccionesUsuariosMenus,
                   {codigo_usuario, codigo_empresa, codigo_delegacion, item_menu, restricciones},
                   ultimo_usuario);
    });
}

void MenusUsuarios::Delete(Conexion& conexion, const QString& codigo_usuario,
                           const QString& codigo_empresa, const QString& codigo_delegacion,
                           const QString& item_menu) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(
            QStringLiteral("DELETE FROM RestriccionesUsuariosMenus WHERE ") +
            condicionClave(esquema::RestriccionesUsuariosMenus,
                           {codigo_usuario, codigo_empresa, codigo_delegacion, item_menu}));
    });
}

Recordset MenusUsuarios::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                                 Cursor cursor) {
    return getList(conexion, esquema::RestriccionesUsuariosMenus, condicion, orden, cursor);
}
