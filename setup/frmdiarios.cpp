#include "data/entidades/diarios.h"
#include "data/global.h"
#include "forms/mantenimiento.h"
#include "formularios_empresa.h"

namespace {

using namespace mantenimiento;

Declaracion declaracionDiarios() {
    Declaracion d;
    d.nombre = QStringLiteral("frmDiarios");
    d.titulo = QStringLiteral("Diarios");
    d.sufijo = QStringLiteral("Diarios");
    d.tabla = QStringLiteral("Diarios");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, codigo_diario");
    d.campos = {
        {.etiqueta = QStringLiteral("&Diario:"),
         .columna = QStringLiteral("codigo_diario"),
         .obligatorio = true,
         .ancho = 10,
         // The entry form reads a journal in capitals: one kept in lower case could never
         // be used.
         .normalizar = mayusculas},
        {.etiqueta = QStringLiteral("D&escripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
    };
    d.columnas = {{QStringLiteral("Diario"), QStringLiteral("codigo_diario"), 90},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 300}};
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el diario ") + codigo + u'?';
    };
    d.insertar = [](const QStringList& v) {
        Diarios::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        Diarios::Update(*sesion_conexion, sesion_empresa, v[0], v[1], sesion_usuario);
    };
    d.borrar = [](const QString& codigo) {
        Diarios::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Diarios::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

}  // namespace

FormularioMantenimiento* nuevoFrmDiarios() {
    return new FormularioMantenimiento(declaracionDiarios());
}
