#include "criterios.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/global.h"

namespace criterios {

QString lista(const QString& codigos) {
    QString limpio = codigos;
    limpio.remove(u' ');
    QStringList citados;
    for (const QString& c : limpio.split(u',')) citados << sqlTexto(c);
    return citados.join(u',');
}

QString fechaODefecto(const QString& escrito, const QString& sesion) {
    return escrito.isEmpty() ? sesion : Auxiliar::sDate(escrito);
}

QString delegacion(const QString& escrito, bool conTextoDelCampo) {
    if (escrito.isEmpty()) return {};
    if (sesion_delegacion != sesion_empresa)
        return QStringLiteral("and codigo_delegacion = ") +
               sqlTexto(conTextoDelCampo ? escrito : sesion_delegacion) + u' ';
    return QStringLiteral("and codigo_delegacion in (") + lista(escrito) + QStringLiteral(") ");
}

QString periodo(const QString& desde, const QString& hasta) {
    return QStringLiteral("del ") +
           (desde.isEmpty() ? Auxiliar::dDate(sesion_fecha_inicial) : desde) +
           QStringLiteral(" al ") + (hasta.isEmpty() ? Auxiliar::dDate(sesion_fecha_final) : hasta);
}

QString empresa() {
    return sesion_empresa + u' ' +
           Auxiliar::vBuscarCampo(QStringLiteral("Empresas"), QStringLiteral("nombre"),
                                  QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa),
                                  QString())
               .toString();
}

QVariant titulo(const QString& cuenta) {
    return Auxiliar::vBuscarCampo(QStringLiteral("Cuentas"), QStringLiteral("descripcion"),
                                  QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                                      QStringLiteral(" AND cuenta = ") + sqlTexto(cuenta),
                                  QString());
}

QString formula(const QString& inicio, const QString& valor) {
    // The value goes inside the engine's quotes as it is: the engine takes everything up to
    // the last quote, so an apostrophe inside a name stays part of it.
    return inicio + valor + u'\'';
}

}  // namespace criterios
