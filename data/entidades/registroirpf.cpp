#include "registroirpf.h"

#include "data/almacen/sql.h"

using namespace entidad;

void RegistroIrpf::Insert(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, const QString& codigo_documento,
                          const QString& numero_documento, int numero_apunte,
                          const QString& tipo_acrdeu, const QString& codigo_personal,
                          const QString& codigo_irpf, double base, double pctirpf, double irpf,
                          const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Insert, Transaccional::No, [&] {
        insertar(conexion, esquema::RegistroIrpf,
                 {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                  numero_apunte, tipo_acrdeu, codigo_personal, codigo_irpf, base, pctirpf, irpf},
                 ultimo_usuario);
    });
}

void RegistroIrpf::Update(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, const QString& codigo_documento,
                          const QString& numero_documento, int numero_apunte,
                          const QString& tipo_acrdeu, const QString& codigo_personal,
                          const QString& codigo_irpf, double base, double pctirpf, double irpf,
                          const QString& ultimo_usuario) {
    ejecutar(conexion, Operacion::Update, Transaccional::No, [&] {
        actualizar(conexion, esquema::RegistroIrpf,
                   {codigo_empresa, codigo_delegacion, codigo_documento, numero_documento,
                    numero_apunte, tipo_acrdeu, codigo_personal, codigo_irpf, base, pctirpf, irpf},
                   ultimo_usuario);
    });
}

void RegistroIrpf::Delete(Conexion& conexion, const QString& codigo_empresa,
                          const QString& codigo_delegacion, const QString& codigo_documento,
                          const QString& numero_documento, int numero_apunte) {
    ejecutar(conexion, Operacion::Delete, Transaccional::No, [&] {
        conexion.execute(QStringLiteral("DELETE FROM RegistroIrpf WHERE ") +
                         condicionClave(esquema::RegistroIrpf,
                                        {codigo_empresa, codigo_delegacion, codigo_documento,
                                         numero_documento, numero_apunte}));
    });
}

Recordset RegistroIrpf::GetList(Conexion& conexion, const QString& condicion, const QString& orden,
                                Cursor cursor) {
    return getList(conexion, esquema::RegistroIrpf, condicion, orden, cursor);
}
