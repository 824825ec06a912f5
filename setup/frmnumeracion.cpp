#include "data/entidades/numeracion.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "formularios_empresa.h"

#include <cmath>

namespace {

using namespace mantenimiento;

// Length and next number: whole numbers from 1 on.
QString comprobarEntero(const QString& texto) {
    const auto n = formato::leerNumero(texto);
    if (!n || *n != std::floor(*n)) return MensajeError(1026);
    if (*n < 1) return MensajeError(1038);
    return {};
}

Declaracion declaracionNumeracion() {
    Declaracion d;
    d.nombre = QStringLiteral("frmNumeracion");
    d.titulo = QStringLiteral("Numeración");
    d.sufijo = QStringLiteral("Numeracion");
    d.tabla = QStringLiteral("Numeraciones");
    d.alcance = Alcance::Ejercicio;
    d.orden = QStringLiteral("codigo_empresa, numeracion");
    d.campos = {
        {.etiqueta = QStringLiteral("&Numeración:"),
         .columna = QStringLiteral("numeracion"),
         .obligatorio = true,
         .ancho = 10,
         .normalizar = mayusculas},
        {.etiqueta = QStringLiteral("&Longitud:"),
         .columna = QStringLiteral("longitud"),
         .tipo = Tipo::Numero,
         .obligatorio = true,
         .ancho = 4,
         .comprobar = comprobarEntero},
        {.etiqueta = QStringLiteral("Nú&mero:"),
         .columna = QStringLiteral("numero"),
         .tipo = Tipo::Numero,
         .obligatorio = true,
         .ancho = 10,
         .comprobar = comprobarEntero},
        {.etiqueta = QStringLiteral("&Descripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
    };
    d.columnas = {{QStringLiteral("Numeración"), QStringLiteral("numeracion"), 90},
                  {QStringLiteral("Longitud"), QStringLiteral("longitud"), 70, Tipo::Numero},
                  {QStringLiteral("Número"), QStringLiteral("numero"), 90, Tipo::Numero},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 240}};
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar la numeración ") + codigo + u'?';
    };
    d.insertar = [](const QStringList& v) {
        numeracion::Insert(*sesion_conexion, sesion_empresa, sesion_ejercicio, v[0],
                           leerEntero16(v[1]), leerEntero32(v[2]), v[3], sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        numeracion::Update(*sesion_conexion, sesion_empresa, sesion_ejercicio, v[0],
                           leerEntero16(v[1]), leerEntero32(v[2]), v[3], sesion_usuario);
    };
    d.borrar = [](const QString& codigo) {
        numeracion::Delete(*sesion_conexion, sesion_empresa, sesion_ejercicio, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return numeracion::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

}  // namespace

FormularioMantenimiento* nuevoFrmNumeracion() {
    return new FormularioMantenimiento(declaracionNumeracion());
}
