#include "comprobaciones.h"
#include "data/entidades/personal.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "forms/nif.h"
#include "formularios_empresa.h"

namespace {

using namespace mantenimiento;

// The identifier keeps what was typed: a number without its letter passes and is stored so.
QString comprobarNif(const QString& texto) {
    return nif::NifValido(texto) ? QString() : MensajeError(1006);
}

Declaracion declaracionPersonal() {
    Declaracion d;
    d.nombre = QStringLiteral("frmPersonal");
    d.titulo = QStringLiteral("Datos personales");
    d.sufijo = QStringLiteral("Personal");
    d.tabla = QStringLiteral("Personal");
    d.alcance = Alcance::Empresa;
    d.requiereDelegacion = true;
    d.orden = QStringLiteral("codigo_empresa, codigo");
    const auto campo = [](const char* etiqueta, const char* columna, int ancho = 0) {
        return Campo{.etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QString::fromLatin1(columna),
                     .ancho = ancho};
    };
    d.campos = {
        campo("C&odigo:", "codigo", 12),     campo("&Nombre:", "nombre"),
        campo("N&IF:", "nif", 14),           campo("&Direccion:", "direccion"),
        campo("Po&blación:", "poblacion"),   campo("&C.P.:", "cp", 6),
        campo("Pro&vincia:", "provincia"),   campo("&País:", "pais"),
        campo("&Teléfono:", "telefono", 14), campo("&FAX:", "fax", 14),
        campo("&E-mail:", "email"),
    };
    for (int i : {0, 1, 2}) d.campos[i].obligatorio = true;
    d.campos[2].comprobar = comprobarNif;
    d.filas = {{0}, {1}, {2}, {3}, {4, 5}, {6, 7}, {8, 9}, {10}};
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo"), 90},
                  {QStringLiteral("Nombre"), QStringLiteral("nombre"), 300},
                  {QStringLiteral("NIF"), QStringLiteral("nif"), 100}};
    d.mensajeExiste = 1019;
    d.mensajeFalta = 1020;
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el codigo ") + codigo + u'?';
    };
    const auto escribir = [](auto operacion) {
        return [operacion](const QStringList& v) {
            operacion(*sesion_conexion, sesion_empresa, v[0], v[1], v[2], v[3], v[4], v[5], v[6],
                      v[7], v[8], v[9], v[10], sesion_usuario);
        };
    };
    d.insertar = escribir(&Personal::Insert);
    d.actualizar = escribir(&Personal::Update);
    d.borrar = [](const QString& codigo) {
        Personal::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Personal::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmPersonal : public FormularioMantenimiento {
public:
    FrmPersonal() : FormularioMantenimiento(declaracionPersonal()) { tamanoInicial(700, 480); }

protected:
    // Only the VAT register holds a third party back: its roles and due dates do not.
    bool puedeBorrar(const QString& codigo) override {
        if (!comprobaciones::enUso(QStringLiteral("RegistroIVA"), QStringLiteral("codigo_personal"),
                                   codigo))
            return true;
        MsgBox(MensajeError(1035), Icono::Critico);
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmPersonal() {
    return new FrmPersonal;
}
