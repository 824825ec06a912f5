#include "data/entidades/delegaciones.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "direccion.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"

namespace {

using namespace mantenimiento;

Declaracion declaracionDelegaciones() {
    Declaracion d;
    d.nombre = QStringLiteral("frmDelegaciones");
    d.titulo = QStringLiteral("Delegaciones");
    d.sufijo = QStringLiteral("Delegaciones");
    d.tabla = QStringLiteral("Delegaciones");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, codigo_delegacion");
    d.campos = {{.etiqueta = QStringLiteral("&Código:"),
                 .columna = QStringLiteral("codigo_delegacion"),
                 .obligatorio = true,
                 .ancho = 14,
                 .normalizar = mayusculas}};
    d.campos += camposDireccion();
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo_delegacion"), 90},
                  {QStringLiteral("Nombre"), QStringLiteral("nombre"), 300}};
    d.mensajeExiste = 1015;
    d.mensajeFalta = 1016;
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar la delegación ") + codigo +
               QStringLiteral(
                   "? (Los datos relacionados con la delegación tambien se "
                   "eliminarán)");
    };
    d.insertar = [](const QStringList& v) {
        Delegaciones::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], v[2], v[3], v[4], v[5],
                             v[6], v[7], v[8], v[9], sesion_usuario, false);
    };
    d.actualizar = [](const QStringList& v) {
        Delegaciones::Update(*sesion_conexion, sesion_empresa, v[0], v[1], v[2], v[3], v[4], v[5],
                             v[6], v[7], v[8], v[9], sesion_usuario, false);
    };
    d.borrar = [](const QString& codigo) {
        Delegaciones::Delete(*sesion_conexion, sesion_empresa, codigo, false);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Delegaciones::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmDelegaciones : public FormularioMantenimiento {
public:
    FrmDelegaciones() : FormularioMantenimiento(declaracionDelegaciones()) {}

protected:
    // The branch of the session holds the session up: it cannot go.
    bool puedeBorrar(const QString& codigo) override {
        if (codigo != sesion_delegacion) return true;
        MsgBox(MensajeError(1037), Icono::Critico);
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmDelegaciones() {
    return new FrmDelegaciones;
}
