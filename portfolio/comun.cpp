#include "comun.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"

namespace cartera_comun {

QString deLaEmpresa(const QString& columna, const QString& codigo) {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
           QStringLiteral(" and ") + columna + QStringLiteral(" = ") + sqlTexto(codigo);
}

std::optional<QString> nombreDe(const QString& tabla, const QString& columnaNombre,
                                const QString& columnaCodigo, const QString& codigo) {
    const QString falta = QStringLiteral("#");
    const QString condicion = deLaEmpresa(columnaCodigo, codigo);
    if (Auxiliar::vBuscarCampo(tabla, columnaCodigo, condicion, falta).toString() == falta)
        return std::nullopt;
    return Auxiliar::vBuscarCampo(tabla, columnaNombre, condicion, QString()).toString();
}

QString comprobarImporte(const QString& texto) {
    return formato::leerImporte(texto) ? QString() : MensajeError(1004);
}

QString comoImporte(const QString& texto) {
    return formato::Format(formato::leerNumero(texto).value_or(0), QStringLiteral("0.00"));
}

mantenimiento::Campo campoTercero(const QString& etiqueta) {
    return {.etiqueta = etiqueta,
            .columna = QStringLiteral("codigo_personal"),
            .lupa = QStringLiteral("PERSONAL.codigo"),
            .ancho = 10,
            .nombre =
                [](const QString& codigo) {
                    return nombreDe(QStringLiteral("Personal"), QStringLiteral("nombre"),
                                    QStringLiteral("codigo"), codigo);
                },
            .sinNombre = 9999,
            .verNombre = true};
}

}  // namespace cartera_comun
