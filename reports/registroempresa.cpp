#include "registroempresa.h"

#include "data/almacen/sql.h"

QString registroDeEmpresa(const QString& empresa, const QString& desde, const QString& hasta,
                          bool soloConTercero) {
    return QStringLiteral(
               "FROM (RegistroIva r CROSS JOIN Apuntes a) %1 JOIN Personal p "
               "ON p.codigo_empresa = r.codigo_empresa "
               "AND p.codigo = r.codigo_personal "
               "WHERE a.codigo_empresa = r.codigo_empresa "
               "AND a.codigo_delegacion = r.codigo_delegacion "
               "AND a.codigo_documento = r.codigo_documento "
               "AND a.numero_documento = r.numero_documento "
               "AND a.numero_apunte = r.numero_apunte "
               "AND r.codigo_empresa = %2 AND r.codigo_delegacion >= '' "
               "AND r.tipo IN ('C', 'V', 'I') "
               "AND a.fecha_documento BETWEEN %3 AND %4 ")
        .arg(soloConTercero ? QStringLiteral("INNER") : QStringLiteral("LEFT"), sqlTexto(empresa),
             sqlTexto(desde), sqlTexto(hasta));
}

QString centimosRegistro(const QString& columna) {
    return QStringLiteral("ROUND(COALESCE(r.%1, 0) * 100)").arg(columna);
}
