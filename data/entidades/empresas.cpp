#include "empresas.h"

#include "data/almacen/sql.h"
#include "delegaciones.h"
#include "ejercicios.h"

#include <QDate>
#include <memory>

using namespace entidad;

namespace {

// The template store's rows, copied into the company's tables.
void copiarPlantilla(Conexion& conexion, Conexion& plantilla, const QString& empresa, int digitos,
                     const QString& usuario) {
    auto v = [](const Recordset& rs, const char* campo) { return rs[QLatin1StringView(campo)]; };
    for (Recordset rs = plantilla.open(QStringLiteral("SELECT * FROM sysPergan")); !rs.eof();
         rs.moveNext())
        insertar(conexion, esquema::Pergan,
                 {empresa, v(rs, "dh"), v(rs, "nivel_1"), v(rs, "nivel_2"), v(rs, "nivel_3"),
                  v(rs, "nivel_4"), v(rs, "titulo"), v(rs, "cuentas")},
                 usuario);
    for (Recordset rs = plantilla.open(QStringLiteral("SELECT * FROM sysSituacion")); !rs.eof();
         rs.moveNext())
        insertar(conexion, esquema::Situacion,
                 {empresa, v(rs, "ap"), v(rs, "nivel_1"), v(rs, "nivel_2"), v(rs, "nivel_3"),
                  v(rs, "titulo"), v(rs, "cuentas")},
                 usuario);
    for (Recordset rs = plantilla.open(QStringLiteral("SELECT * FROM sysPlanContable")); !rs.eof();
         rs.moveNext())
        insertar(conexion, esquema::Cuentas,
                 {empresa, v(rs, "cuenta"), v(rs, "titulo"), QStringLiteral("N"), v(rs, "nivel")},
                 usuario);
    for (Recordset rs =
             plantilla.open(QStringLiteral("SELECT * FROM sysPlanContable WHERE nivel = 3"));
         !rs.eof(); rs.moveNext()) {
        if (digitos < 3)
            throw Error(5,
                        QStringLiteral("La longitud de las cuentas no permite crear las cuentas de "
                                       "pases (") +
                            QString::number(digitos) + QStringLiteral(" dígitos)."));
        insertar(conexion, esquema::Cuentas,
                 {empresa, v(rs, "cuenta").toString() + QString(digitos - 3, u'0'), v(rs, "titulo"),
                  QStringLiteral("S"), digitos},
                 usuario);
    }
}

}  // namespace

void Empresas::Insert(Conexion& conexion, const QString& codigo_empresa, const QString& nif,
                      const QString& nombre, const QString& direccion, const QString& cp,
                      const QString& poblacion, const QString& provincia, const QString& pais,
                      const QString& telefono, const QString& fax, const QString& correo,
                      int digitos, const QString& ultimo_usuario, bool enTransaccion) {
    ejecutar(conexion, Operacion::Insert, segun(enTransaccion), [&] {
        // The template store is a connection of its own, outside the transaction.
        std::unique_ptr<Conexion> plantilla;
        try {
            plantilla = std::make_unique<Conexion>(QStringLiteral("File name=Sistema.udl"));
        } catch (const Error& e) {
            conexion.anotarError(QString::number(e.numero()), e.descripcion());
            throw;
        }
        insertar(conexion, esquema::Empresas,
                 {codigo_empresa, nif, nombre, direccion, cp, poblacion, provincia, pais, telefono,
                  fax, correo, digitos},
                 ultimo_usuario);
        Delegaciones::Insert(conexion, codigo_empresa, codigo_empresa, nombre, direccion, cp,
                             poblacion, provincia, pais, telefono, fax, correo, ultimo_usuario,
                             true);
        const QString anio = QString::number(QDate::currentDate().year());
        const QString primero = QStringLiteral("01/01/") + anio;
        const QString ultimo = QStringLiteral("31/12/") + anio;
        Ejercicios::Insert(conexion, codigo_empresa, anio.toInt(), primero, ultimo, primero, ultimo,
                           QStringLiteral("N"), QStringLiteral("N"), ultimo_usuario, true);
        try {
            copiarPlantilla(conexion, *plantilla, codigo_empresa, digitos, ultimo_usuario);
        } catch (const Error&) {
            // A failure of the template store is reported like one of the main store.
            for (const ErrorAlmacen& e : plantilla->errores()) conexion.anotarError(e);
            throw;
        }
    });
}

void Empresas::Update(Conexion& conexion, const QString& codigo_empresa, const QString& nif,
                      const QString& nombre, const QString& direccion, const QString& cp,
                      const QString& poblacion, const QString& provincia, const QString& pais,
                      const QString& telefono, const QString& fax, const QString& correo,
                      int digitos, const QString& ultimo_usuario, bool enTransaccion) {
    ejecutar(conexion, Operacion::Update, segun(enTransaccion), [&] {
        actualizar(conexion, esquema::Empresas,
                   {codigo_empresa, nif, nombre, direccion, cp, poblacion, provincia, pais,
                    telefono, fax, correo, digitos},
                   ultimo_usuario);
        Delegaciones::Update(conexion, codigo_empresa, codigo_empresa, nombre, direccion, cp,
                             poblacion, provincia, pais, telefono, fax, correo, ultimo_usuario,
                             true);
    });
}

void Empresas::Delete(Conexion& conexion, const QString& codigo_empresa, bool enTransaccion) {
    ejecutar(conexion, Operacion::Delete, segun(enTransaccion), [&] {
        const QString condicion =
            QStringLiteral(" WHERE codigo_empresa = ") + sqlTexto(codigo_empresa);
        for (const char* tabla : {"Cartera",
                                  "RegistroIva",
                                  "RegistroIrpf",
                                  "Apuntes",
                                  "RestriccionesUsuariosMenus",
                                  "UsuariosDelegaciones",
                                  "Delegaciones",
                                  "Numeraciones",
                                  "Ejercicios",
                                  "Documentos",
                                  "Cuentas",
                                  "Acrdeu",
                                  "Personal",
                                  "Situacion",
                                  "Pergan",
                                  "Irpf",
                                  "FormasPagos",
                                  "Impuestos",
                                  "Diarios",
                                  "Empresas"})
            conexion.execute(QStringLiteral("DELETE FROM ") + QLatin1StringView(tabla) + condicion);
    });
}

Recordset Empresas::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                            Cursor cursor) {
    return getList(conexion, esquema::Empresas, condicion, orden, cursor);
}
