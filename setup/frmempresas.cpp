#include "data/entidades/empresas.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "direccion.h"
#include "forms/msgbox.h"
#include "forms/nif.h"
#include "formularios_empresa.h"

#include <cmath>

namespace {

using namespace mantenimiento;

// The length of the company's posting accounts: a whole number from 1 to 12.
QString comprobarDigitos(const QString& texto) {
    const auto n = formato::leerNumero(texto);
    if (!n || *n < 1 || *n > 12 || *n != std::floor(*n)) return MensajeError(1007);
    return {};
}

QString comprobarNif(const QString& texto) {
    return nif::NifValido(texto) ? QString() : MensajeError(1006);
}

int digitos(const QString& texto) {
    return int(formato::leerNumero(texto).value_or(0));
}

Declaracion declaracionEmpresas() {
    Declaracion d;
    d.nombre = QStringLiteral("frmEmpresas");
    d.titulo = QStringLiteral("Empresas");
    d.sufijo = QStringLiteral("Empresas");
    d.tabla = QStringLiteral("Empresas");
    d.orden = QStringLiteral("codigo_empresa");
    d.campos = {{.etiqueta = QStringLiteral("&Código:"),
                 .columna = QStringLiteral("codigo_empresa"),
                 .obligatorio = true,
                 .ancho = 14,
                 .normalizar = mayusculas},
                {.etiqueta = QStringLiteral("N&IF:"),
                 .columna = QStringLiteral("nif"),
                 .obligatorio = true,
                 .ancho = 14,
                 .comprobar = comprobarNif}};
    d.campos += camposDireccion();
    d.campos.append({.etiqueta = QStringLiteral("&Longitud de las cuentas:"),
                     .columna = QStringLiteral("digitos"),
                     .tipo = Tipo::Numero,
                     .obligatorio = true,
                     .ancho = 4,
                     .ceroSiVacio = true,
                     .comprobar = comprobarDigitos});
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo_empresa"), 90},
                  {QStringLiteral("Nombre"), QStringLiteral("nombre"), 300}};
    d.mensajeExiste = 1011;
    d.mensajeFalta = 1011;
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el empresa ") + codigo +
               QStringLiteral(
                   "? (Los datos relacionados con la empresa tambien se "
                   "eliminarán)");
    };
    d.insertar = [](const QStringList& v) {
        Empresas::Insert(*sesion_conexion, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8],
                         v[9], v[10], digitos(v[11]), sesion_usuario, false);
    };
    d.actualizar = [](const QStringList& v) {
        Empresas::Update(*sesion_conexion, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8],
                         v[9], v[10], digitos(v[11]), sesion_usuario, false);
    };
    d.borrar = [](const QString& codigo) { Empresas::Delete(*sesion_conexion, codigo, false); };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Empresas::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmEmpresas : public FormularioMantenimiento {
public:
    FrmEmpresas() : FormularioMantenimiento(declaracionEmpresas()) { tamanoInicial(720, 480); }

protected:
    bool puedeBorrar(const QString& codigo) override {
        if (codigo != sesion_empresa) return true;
        MsgBox(MensajeError(1036), Icono::Critico);
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmEmpresas() {
    return new FrmEmpresas;
}
