#include "registroiva.h"

#include "data/almacen/sql.h"

using namespace entidad;

void RegistroIva::Insert(Conexion& conexion, const QString& codigo_empresa,
                         const QString& codigo_delegacion, const QString& codigo_documento,
                         const QString& numero_documento, int numero_apunte, const QString& tipo,
                         const QString& tipo_acrdeu, const QString& codigo_personal,
                         const QString& impuesto, double base, double pctiva, double iva,
                         double pctre, double re, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(
            conexion, esquema::RegistroIva,
            {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento, numero_apunte,
             tipo, tipo_acrdeu, codigo_personal, impuesto, base, pctiva, iva, pctre, re},
            ultimo_usuario);
    });
}

void RegistroIva::Update(Conexion& conexion, const QString& codigo_empresa,
                         const QString& codigo_delegacion, const QString& codigo_documento,
                         const QString& numero_documento, int numero_apunte, const QString& tipo,
                         const QString& tipo_acrdeu, const QString& codigo_personal,
                         const QString& impuesto, double base, double pctiva, double iva,
                         double pctre, double re, const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(
            conexion, esquema::RegistroIva,
            {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento, numero_apunte,
             tipo, tipo_acrdeu, codigo_personal, impuesto, base, pctiva, iva, pctre, re},
            ultimo_usuario);
    });
}

void RegistroIva::Delete(Conexion& conexion, const QString& codigo_empresa,
                         const QString& codigo_delegacion, const QString& codigo_documento,
                         const QString& numero_documento, int numero_apunte) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM RegistroIva WHERE ") +
                         condicionClave(esquema::RegistroIva,
                                        {codigo_empresa, codigo_delegacion, codigo_documento,
                                         numero_documento, numero_apunte}));
    });
}

Recordset RegistroIva::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                               Cursor cursor) {
    return getList(conexion, esquema::RegistroIva, condicion, orden, cursor);
}
