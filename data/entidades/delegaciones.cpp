#include "delegaciones.h"

#include "data/almacen/sql.h"

using namespace entidad;

void Delegaciones::Insert(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, const QString& nombre,
                          const QString& direccion, const QString& cp, const QString& poblacion,
                          const QString& provincia, const QString& pais, const QString& telefono,
                          const QString& fax, const QString& correo, const QString& ultimo_usuario,
                          bool enTransaccion) {
    ejecutar(conexion, Operacion::Insert, segun(enTransaccion), [&] {
        insertar(conexion, esquema::Delegaciones,
                 {codigo_empresa, codigo_delegacion, nombre, direccion, cp, poblacion, provincia,
                  pais, telefono, fax, correo},
                 ultimo_usuario);
        Recordset rs = conexion.open(
            QStringLiteral("SELECT codigo_usuario FROM Usuarios GROUP BY codigo_usuario"));
        for (; !rs.eof(); rs.moveNext())
            insertar(conexion, esquema::UsuariosDelegaciones,
                     {rs[QStringLiteral("codigo_usuario")], codigo_empresa, codigo_delegacion, 0},
                     ultimo_usuario);
    });
}

void Delegaciones::Update(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, const QString& nombre,
                          const QString& direccion, const QString& cp, const QString& poblacion,
                          const QString& provincia, const QString& pais, const QString& telefono,
                          const QString& fax, const QString& correo, const QString& ultimo_usuario,
                          bool enTransaccion) {
    ejecutar(conexion, Operacion::Update, segun(enTransaccion), [&] {
        actualizar(conexion, esquema::Delegaciones,
                   {codigo_empresa, codigo_delegacion, nombre, direccion, cp, poblacion, provincia,
                    pais, telefono, fax, correo},
                   ultimo_usuario);
        if (codigo_delegacion != codigo_empresa) return;
        actualizarColumnas(
            conexion, esquema::Empresas, {codigo_empresa},
            {QStringLiteral("nombre"), QStringLiteral("direccion"), QStringLiteral("cp"),
             QStringLiteral("poblacion"), QStringLiteral("provincia"), QStringLiteral("pais"),
             QStringLiteral("telefono"), QStringLiteral("fax"), QStringLiteral("correo")},
            {nombre, direccion, cp, poblacion, provincia, pais, telefono, fax, correo},
            ultimo_usuario);
    });
}

void Delegaciones::Delete(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        const QString condicion =
            QStringLiteral(" WHERE codigo_empresa = ") + sqlTexto(codigo_empresa) +
            QStringLiteral(" AND codigo_delegacion = ") + sqlTexto(codigo_delegacion);
        for (const char* tabla :
             {"RegistroIRPF", "RegistroIVA", "Cartera", "Apuntes", "RestriccionesUsuariosMenus",
              "UsuariosDelegaciones", "Delegaciones"})
            conexion.execute(QStringLiteral("DELETE FROM ") + QLatin1StringView(tabla) + condicion);
    });
}

Recordset Delegaciones::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                                Cursor cursor) {
    return getList(conexion, esquema::Delegaciones, condicion, orden, cursor);
}
