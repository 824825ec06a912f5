#include "direccion.h"

QList<mantenimiento::Campo> camposDireccion() {
    const auto campo = [](const char* etiqueta, const char* columna, int longitud) {
        return mantenimiento::Campo{.etiqueta = QString::fromUtf8(etiqueta),
                                    .columna = QString::fromLatin1(columna),
                                    .longitud = longitud};
    };
    QList<mantenimiento::Campo> campos = {
        campo("&Nombre:", "nombre", 0),
        campo("&Dirección:", "direccion", 0),
        campo("C.&P.:", "cp", 10),
        campo("P&oblación:", "poblacion", 0),
        campo("P&rovincia:", "provincia", 0),
        campo("Pa&ís:", "pais", 0),
        campo("&Teléfono:", "telefono", 20),
        campo("&FAX:", "fax", 20),
        campo("&E-Mail:", "correo", 0),
    };
    campos[0].obligatorio = true;
    for (int i : {2, 6, 7}) campos[i].ancho = 14;
    return campos;
}
