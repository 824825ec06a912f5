#include "usuarios.h"

#include "data/almacen/sql.h"
#include "data/contrasenas.h"

using namespace entidad;

void Usuarios::Insert(Conexion& conexion, const QString& codigo_empresa,
                      const QString& codigo_delegacion, const QString& codigo_usuario,
                      const QString& contrasena, const QString& ultimo_usuario,
                      bool enTransaccion) {
    Q_UNUSED(codigo_empresa);
    Q_UNUSED(codigo_delegacion);
    ejecutar(conexion, Operacion::Insert, segun(enTransaccion), [&] {
        insertar(conexion, esquema::Usuarios, {codigo_usuario, contrasenas::cifrar(contrasena)},
                 ultimo_usuario);
        const QString fecha = sqlTexto(hoy());
        const QString usuario = sqlTexto(ultimo_usuario);
        Recordset rs = conexion.open(
            QStringLiteral("SELECT codigo_empresa, codigo_delegacion, ") + fecha +
            QStringLiteral(", ") + usuario + QStringLiteral(" FROM Delegaciones GROUP BY ") +
            sqlTexto(codigo_usuario) + QStringLiteral(", codigo_empresa, codigo_delegacion, 0, ") +
            fecha + QStringLiteral(", ") + usuario);
        for (; !rs.eof(); rs.moveNext())
            insertar(conexion, esquema::UsuariosDelegaciones,
                     {codigo_usuario, rs[QStringLiteral("codigo_empresa")],
                      rs[QStringLiteral("codigo_delegacion")], 0},
                     ultimo_usuario);
    });
}

void Usuarios::Update(Conexion& conexion, const QString& codigo_usuario, const QString& contrasena,
                      const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        // A blank password keeps the stored one: the form never shows it, so a user saved
        // without typing one has not asked for a change.
        if (contrasena.isEmpty())
            actualizarColumnas(conexion, esquema::Usuarios, {codigo_usuario}, {}, {},
                               ultimo_usuario);
        else
            actualizar(conexion, esquema::Usuarios,
                       {codigo_usuario, contrasenas::cifrar(contrasena)}, ultimo_usuario);
    });
}

void Usuarios::Delete(Conexion& conexion, const QString& codigo_usuario, bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        const QString condicion =
            QStringLiteral(" WHERE codigo_usuario = ") + sqlTexto(codigo_usuario);
        for (const char* tabla : {"RestriccionesUsuariosMenus", "UsuariosDelegaciones", "Usuarios"})
            conexion.execute(QStringLiteral("DELETE FROM ") + QLatin1StringView(tabla) + condicion);
    });
}

Recordset Usuarios::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                            Cursor cursor) {
    return getList(conexion, esquema::Usuarios, condicion, orden, cursor);
}
