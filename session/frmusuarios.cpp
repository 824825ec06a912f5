#include "frmusuarios.h"

#include "data/entidades/usuarios.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"

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
        // Required on insert only (see AltaRegistro): left blank on modify it keeps the
        // stored password. Never filtered by: the store holds only its hash.
        {.etiqueta = QStringLiteral("C&ontraseña:"),
         .columna = QStringLiteral("contraseña"),
         .ancho = 20,
         .normalizar = mayusculas,
         .filtra = false},
    };
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo_usuario"), 140}};
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
    FrmUsuarios() : FormularioMantenimiento(declaracionUsuarios()) {
        txt(1)->setEchoMode(QLineEdit::Password);
    }

    void AltaRegistro() override {
        if (txt(1)->text().isEmpty()) {
            txt(1)->setFocus();
            MsgBox(MensajeError(1000), Icono::Critico);
            return;
        }
        FormularioMantenimiento::AltaRegistro();
    }

protected:
    // The stored password is a hash and is never shown: a code found leaves the field blank,
    // ready for a new password or to be left as it is.
    void cargarCodigo() override { ponerTexto(1, QString()); }
};

}  // namespace

FormularioMantenimiento* nuevoFrmUsuarios() {
    return new FrmUsuarios;
}
