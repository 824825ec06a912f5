#include "usuariosdelegaciones.h"

#include "data/almacen/sql.h"
#include "data/contrasenas.h"

using namespace entidad;

void UsuariosDelegaciones::Update(Conexion& conexion, const QString& codigo_usuario,
                                  const QString& codigo_empresa, const QString& codigo_delegacion,
                                  int activo, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizarColumnas(conexion, esquema::UsuariosDelegaciones,
                           {codigo_usuario, codigo_empresa, codigo_delegacion},
                           {QStringLiteral("activo")}, {activo}, ultimo_usuario);
    });
}

Recordset UsuariosDelegaciones::GetList(Conexion& conexion, const QString& condicion,
                                        const QString& orden, Cursor cursor) {
    return getList(conexion, esquema::UsuariosDelegaciones, condicion, orden, cursor);
}

bool UsuariosDelegaciones::ValidarUsuario(Conexion& conexion, const QString& codigo_empresa,
                                          const QString& codigo_delegacion,
                                          const QString& codigo_usuario,
                                          const QString& contrasena) {
    return ejecutar(conexion, Operacion::ValidarUsuario, Transaccional::No, [&] {
        Recordset rs = conexion.open(
            QStringLiteral(
                "SELECT Usuarios.codigo_usuario, Usuarios.contraseña FROM Usuarios INNER JOIN "
                "UsuariosDelegaciones ON (Usuarios.codigo_usuario = "
                "UsuariosDelegaciones.codigo_usuario) WHERE "
                "(UsuariosDelegaciones.codigo_empresa=") +
            sqlTexto(codigo_empresa + u' ') +
            QStringLiteral(") AND (UsuariosDelegaciones.codigo_delegacion=") +
            sqlTexto(codigo_delegacion) + QStringLiteral(") AND (Usuarios.codigo_usuario=") +
            sqlTexto(codigo_usuario) + QStringLiteral(") AND (UsuariosDelegaciones.activo <> 0)"));
        // The password never enters the statement: the stored hash is compared here.
        return !rs.eof() && contrasenas::comprobar(rs.value(1).toString(), contrasena);
    });
}
