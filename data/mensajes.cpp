#include "mensajes.h"

#include <QHash>

QString MensajeError(int codigo) {
    // Spelling and punctuation are the system's and stay as they are.
    static const QHash<int, QString> textos = {
        {1000, QStringLiteral("El campo es obligatorio.")},
        {1001, QStringLiteral("Cuenta contable inexistente.")},
        {1002, QStringLiteral("Código de diario inexistente.")},
        {1003, QStringLiteral("Código de documento inexistente.")},
        {1004, QStringLiteral("El formato no es valido.")},
        {1005, QStringLiteral("El valor debe ser 'C' o 'P'.")},
        {1006, QStringLiteral("El NIF/NIE/CIF no es valido.")},
        {1007, QStringLiteral("Se esperaba un valor numérico entero comprendido entre 1 y 12.")},
        {1008, QStringLiteral("No se ha especificado el porcentage.")},
        {1009, QStringLiteral("No se ha especificado los dias de vencimiento.")},
        {1010, QStringLiteral("El desglose de los vencimientos no devuelve el 100% del importe.")},
        {1011, QStringLiteral("La empresa ya existe.")},
        {1012, QStringLiteral("La empresa no existe.")},
        {1013, QStringLiteral("La forma de pago ya existe.")},
        {1014, QStringLiteral("La forma de pago no existe.")},
        {1015, QStringLiteral("La delegación ya existe.")},
        {1016, QStringLiteral("La delegación no existe.")},
        {1017, QStringLiteral("La cuenta ya existe.")},
        {1018, QStringLiteral("La cuenta no existe.")},
        {1019, QStringLiteral("El código ya existe.")},
        {1020, QStringLiteral("El código no existe.")},
        {1021, QStringLiteral("El grupo ya existe.")},
        {1022, QStringLiteral("El grupo no existe.")},
        {1023, QStringLiteral("El valor debe ser 'A' o 'P'.")},
        {1024, QStringLiteral("Se espera un valor numérico entero.")},
        {1025, QStringLiteral("El valor debe ser 'D' o 'H'.")},
        {1026, QStringLiteral("El formato de la numeración no es correcto.")},
        {1027, QStringLiteral("Fecha fuera de ejercicio.")},
        {1028, QStringLiteral("Es asiento no está cuadrado.")},
        {1029, QStringLiteral("Periodo bloqueado.")},
        {1030, QStringLiteral("No se puede eliminar el ejercicio activo.")},
        {1031, QStringLiteral("El ejercicio ya existe.")},
        {1032, QStringLiteral("El ejercicio no existe.")},
        {1033, QStringLiteral("Existe solapamiento de fechas con otros ejercicios.")},
        {1034, QStringLiteral("No se han encontrado los datos del acreedor/deudor pertenecientes a la "
                              "cuenta contable.")},
        {1035, QStringLiteral("Ya existen documentos vinculados. Modificación cancelada.")},
        {1036, QStringLiteral("No se puede borrar la empresa activa.")},
        {1037, QStringLiteral("No se puede borrar la delegación activa.")},
        {1038, QStringLiteral("El valor debe ser superior o igual a 1.")},
        {1039, QStringLiteral("Operación sólo realizable desde la pantalla de contrapartidas.")},
        {1040, QStringLiteral("No se ha especificado la empresa, la delegación o el ejercicio.")},
        {1041, QStringLiteral("El registro ya existe.")},
        {1042, QStringLiteral("El registro no existe.")},
        {1043, QStringLiteral("El apunte no se corresponde con una linea de IVA.")},
        {1044, QStringLiteral("La suma de los importes de los vencimientos no coincide con el de la "
                              "partida.")},
        {1045, QStringLiteral("El vencimiento ya existe.")},
        {1046, QStringLiteral("El vencimiento no existe.")},
        {1047, QStringLiteral("El ejercicio no ha sido regularizado.")},
        {1048, QStringLiteral("No se puede abrir un ejercicio si el siguiente está cerrado.")},
        {9000, QStringLiteral("No hay datos que cumplan los criterios de selección para imprimir.")},
    };
    return textos.value(codigo, QStringLiteral("Error no definido."));
}
