#include "data/entidades/situacion.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "frmestructuras.h"

#include <cmath>

namespace estructuras {

using namespace mantenimiento;

Campo campoLado(const QString& etiqueta, const QString& columna, const QStringList& letras,
                int mensaje) {
    return {.etiqueta = etiqueta,
            .columna = columna,
            .ancho = 3,
            // The statements read the side in capitals: a line kept as "a" would add nowhere.
            .normalizar = mayusculas,
            .comprobar =
                [letras, mensaje](const QString& texto) {
                    return letras.contains(texto) ? QString() : MensajeError(mensaje);
                },
            .comprobarVacio = true};
}

Campo campoNivel(const QString& etiqueta, const QString& columna) {
    return {.etiqueta = etiqueta,
            .columna = columna,
            .tipo = Tipo::Numero,
            .ancho = 6,
            // The list row written from the screen must carry the key of the same row read from
            // the store later, so "01" or "1,0" become "1".
            .normalizar =
                [](const QString& texto) {
                    const auto numero = formato::leerNumero(texto);
                    if (!numero || *numero != std::trunc(*numero) || std::fabs(*numero) >= 1e15)
                        return texto;
                    return QString::number(qint64(*numero));
                },
            .comprobar =
                [](const QString& texto) {
                    const auto numero = formato::leerNumero(texto);
                    if (!numero || *numero != std::trunc(*numero)) return MensajeError(1024);
                    leerEntero16(texto);  // beyond the column's 16 bits it fails as a save would
                    return QString();
                },
            .comprobarVacio = true};
}

std::function<QString(const QStringList& campos)> preguntaEntrada(int titulo) {
    return [titulo](const QStringList& campos) {
        return QStringLiteral("¿Desea eliminar la entrada '") + campos[titulo] +
               QStringLiteral("'?");
    };
}

}  // namespace estructuras

namespace {

using namespace mantenimiento;
using namespace estructuras;

Declaracion declaracionSituacion() {
    Declaracion d;
    d.nombre = QStringLiteral("frmSituacion");
    d.titulo = QStringLiteral("Balance de Situación");
    d.sufijo = QStringLiteral("Situacion");
    d.tabla = QStringLiteral("Situacion");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, ap, nivel_1 , nivel_2, nivel_3");
    d.camposClave = 4;
    d.campos = {
        campoLado(QStringLiteral("&A/P:"), QStringLiteral("ap"),
                  {QStringLiteral("A"), QStringLiteral("P")}, 1023),
        campoNivel(QStringLiteral("&Nivel:"), QStringLiteral("nivel_1")),
        campoNivel(QStringLiteral("N&ivel:"), QStringLiteral("nivel_2")),
        campoNivel(QStringLiteral("Ni&vel:"), QStringLiteral("nivel_3")),
        {.etiqueta = QStringLiteral("&Título:"), .columna = QStringLiteral("titulo")},
        {.etiqueta = QStringLiteral("&Cuentas:"), .columna = QStringLiteral("cuentas")},
    };
    d.columnas = {{QStringLiteral("A/P"), QStringLiteral("ap"), 40},
                  {QStringLiteral("Nivel 1"), QStringLiteral("nivel_1"), 55, Tipo::Numero},
                  {QStringLiteral("Nivel 2"), QStringLiteral("nivel_2"), 55, Tipo::Numero},
                  {QStringLiteral("Nivel 3"), QStringLiteral("nivel_3"), 55, Tipo::Numero},
                  {QStringLiteral("Título"), QStringLiteral("titulo"), 250},
                  {QStringLiteral("Cuentas"), QStringLiteral("cuentas"), 250}};
    d.mensajeExiste = 1021;
    // This form has always answered an update of a line that is gone as an insert of one
    // that exists.
    d.mensajeFalta = 1021;
    d.preguntaCampos = preguntaEntrada(4);
    const auto escribir = [](auto operacion) {
        return [operacion](const QStringList& v) {
            operacion(*sesion_conexion, sesion_empresa, v[0], leerEntero16(v[1]),
                      leerEntero16(v[2]), leerEntero16(v[3]), v[4], v[5], sesion_usuario);
        };
    };
    d.insertar = escribir(&Situacion::Insert);
    d.actualizar = escribir(&Situacion::Update);
    d.borrarCampos = [](const QStringList& v) {
        Situacion::Delete(*sesion_conexion, sesion_empresa, v[0], leerEntero16(v[1]),
                          leerEntero16(v[2]), leerEntero16(v[3]));
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Situacion::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

}  // namespace

FormularioMantenimiento* nuevoFrmSituacion() {
    return new FormularioMantenimiento(declaracionSituacion());
}
