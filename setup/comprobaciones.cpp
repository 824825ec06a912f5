#include "comprobaciones.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"

namespace comprobaciones {

namespace {
const QString kFalta = QStringLiteral("#");

QString deLaEmpresa() {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa);
}
}  // namespace

QString expandirCuenta(const QString& texto) {
    return ExpandirCuenta(texto, sesion_digitos);
}

std::optional<QString> nombreCuenta(const QString& cuenta, bool soloPases) {
    QString condicion = deLaEmpresa() + QStringLiteral(" and cuenta = ") + sqlTexto(cuenta);
    if (soloPases) condicion += QStringLiteral(" and pases = 'S'");
    const QString nombre = Auxiliar::vBuscarCampo(QStringLiteral("Cuentas"),
                                                  QStringLiteral("descripcion"), condicion, kFalta)
                               .toString();
    if (nombre == kFalta) return std::nullopt;
    return nombre;
}

std::optional<QString> buscarEnEmpresa(const QString& tabla, const QString& columna,
                                       const QString& columnaCodigo, const QString& codigo) {
    const QString valor =
        Auxiliar::vBuscarCampo(tabla, columna,
                               deLaEmpresa() + QStringLiteral(" and ") + columnaCodigo +
                                   QStringLiteral(" = ") + sqlTexto(codigo),
                               kFalta)
            .toString();
    if (valor == kFalta) return std::nullopt;
    return valor;
}

QString numerico(const QString& texto, int mensaje) {
    return formato::IsNumeric(texto) ? QString() : MensajeError(mensaje);
}

bool enUso(const QString& tabla, const QString& columna, const QString& codigo) {
    return !Auxiliar::GetListExt(*sesion_conexion, tabla, columna,
                                 deLaEmpresa() + QStringLiteral(" and ") + columna +
                                     QStringLiteral(" = ") + sqlTexto(codigo),
                                 QString(), QString(), QString())
                .eof();
}

}  // namespace comprobaciones
