#include "frmusuarios.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/usuarios.h"
#include "data/global.h"
#include "forms/mantenimiento.h"

#include <QLineEdit>

namespace {

using namespace mantenimiento;

Declaracion declaracionUsuarios() {
    Declaracion d;
    d.nombre = QStringLiteral("frmUsuarios");
    d.titulo = QStringLiteral("Usuarios");
    d.sufijo = QStringLiteral("Usuarios");
    d.tabla = QStringLiteral("Usuarios");
    d.orden = QStringLiteral("codigo_usuario");
    d.campos = {
        {.etiqueta = QStringLiteral("&Código:"),
         .columna = QStringLiteral("codigo_usuario"),
         .obligatorio = true,
         .ancho = 20,
         .normalizar = mayusculas},
        {.etiqueta = QStringLiteral("C&ontraseña:"),
         .columna = QStringLiteral("contraseña"),
         .obligatorio = true,
         .ancho = 20,
         .normalizar = mayusculas},
    };
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo_usuario"), 140},
                  {QStringLiteral("Contraseña"), QStringLiteral("contraseña"), 140}};
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el usuario ") + codigo + u'?';
    };
    d.lupaEnBarra = false;
    d.insertar = [](const QStringList& v) {
        Usuarios::Insert(*sesion_conexion, sesion_empresa, sesion_delegacion, v[0], v[1],
                         sesion_usuario, false);
    };
    d.actualizar = [](const QStringList& v) {
        Usuarios::Update(*sesion_conexion, v[0], v[1], sesion_usuario);
    };
    d.borrar = [](const QString& codigo) { Usuarios::Delete(*sesion_conexion, codigo, false); };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Usuarios::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmUsuarios : public FormularioMantenimiento {
public:
    FrmUsuarios() : FormularioMantenimiento(declaracionUsuarios()) {}

protected:
    // The password follows the code: an unknown code empties it.
    void cargarCodigo() override {
        ponerTexto(1, Auxiliar::vBuscarCampo(
                          QStringLiteral("Usuarios"), QStringLiteral("contraseña"),
                          QStringLiteral("codigo_usuario = ") + sqlTexto(txt(0)->text()), QString())
                          .toString());
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmUsuarios() {
    return new FrmUsuarios;
}
