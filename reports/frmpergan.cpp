#include "data/entidades/pergan.h"
#include "data/global.h"
#include "frmestructuras.h"

namespace {

using namespace mantenimiento;
using namespace estructuras;

Declaracion declaracionPergan() {
    Declaracion d;
    d.nombre = QStringLiteral("frmPergan");
    d.titulo = QStringLiteral("Balance de Pérdidas y Ganáncias");
    d.sufijo = QStringLiteral("Pergan");
    d.tabla = QStringLiteral("Pergan");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, dh, nivel_1, nivel_2, nivel_3, nivel_4");
    d.camposClave = 5;
    d.campos = {
        campoLado(QStringLiteral("&D/H:"), QStringLiteral("dh"),
                  {QStringLiteral("D"), QStringLiteral("H")}, 1025),
        campoNivel(QStringLiteral("&Nivel:"), QStringLiteral("nivel_1")),
        campoNivel(QStringLiteral("N&ivel:"), QStringLiteral("nivel_2")),
        campoNivel(QStringLiteral("Ni&vel:"), QStringLiteral("nivel_3")),
        campoNivel(QStringLiteral("Niv&el:"), QStringLiteral("nivel_4")),
        {.etiqueta = QStringLiteral("&Título:"), .columna = QStringLiteral("titulo")},
        {.etiqueta = QStringLiteral("&Cuentas:"), .columna = QStringLiteral("cuentas")},
    };
    d.columnas = {{QStringLiteral("D/H"), QStringLiteral("dh"), 40},
                  {QStringLiteral("Nivel 1"), QStringLiteral("nivel_1"), 55, Tipo::Numero},
                  {QStringLiteral("Nivel 2"), QStringLiteral("nivel_2"), 55, Tipo::Numero},
                  {QStringLiteral("Nivel 3"), QStringLiteral("nivel_3"), 55, Tipo::Numero},
                  {QStringLiteral("Nivel 4"), QStringLiteral("nivel_4"), 55, Tipo::Numero},
                  {QStringLiteral("Título"), QStringLiteral("titulo"), 250},
                  {QStringLiteral("Cuentas"), QStringLiteral("cuentas"), 250}};
    d.mensajeExiste = 1021;
    d.mensajeFalta = 1022;
    d.preguntaCampos = preguntaEntrada(5);
    const auto escribir = [](auto operacion) {
        return [operacion](const QStringList& v) {
            operacion(*sesion_conexion, sesion_empresa, v[0], leerEntero16(v[1]),
                      leerEntero16(v[2]), leerEntero16(v[3]), leerEntero16(v[4]), v[5], v[6],
                      sesion_usuario);
        };
    };
    d.insertar = escribir(&Pergan::Insert);
    d.actualizar = escribir(&Pergan::Update);
    // The store's delete takes every line sharing the side and the first three levels.
    d.borrarCampos = [](const QStringList& v) {
        Pergan::Delete(*sesion_conexion, sesion_empresa, v[0], leerEntero16(v[1]),
                       leerEntero16(v[2]), leerEntero16(v[3]), leerEntero16(v[4]));
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Pergan::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

}  // namespace

FormularioMantenimiento* nuevoFrmPergan() {
    return new FormularioMantenimiento(declaracionPergan());
}
