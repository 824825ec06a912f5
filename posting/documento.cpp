#include "documento.h"

#include "data/almacen/sql.h"
#include "data/entidades/documentos.h"
#include "data/global.h"

std::array<bool, 5> DocumentoApunte::paginas() const {
    return {false, true, iva != QStringLiteral("N"), cartera != QStringLiteral("N"), true};
}

std::optional<DocumentoApunte> CargarDocumento(const QString& codigo) {
    Recordset rs =
        Documentos::GetList(*sesion_conexion,
                            QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                                QStringLiteral(" and codigo_documento = ") + sqlTexto(codigo),
                            {});
    if (rs.eof()) return std::nullopt;
    const auto columna = [&](const char* nombre) {
        return NzTexto(rs.value(QLatin1StringView(nombre))).trimmed();
    };
    return DocumentoApunte{columna("partida"), columna("numeracion"), columna("cartera"),
                           columna("identificador"), columna("iva")};
}
