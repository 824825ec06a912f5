#include "comprobaciones.h"
#include "data/entidades/cuentas.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {

using namespace mantenimiento;

Declaracion declaracionCuentas() {
    Declaracion d;
    d.nombre = QStringLiteral("frmCuentas");
    d.titulo = QStringLiteral("Cuentas");
    d.sufijo = QStringLiteral("Cuentas");
    d.tabla = QStringLiteral("Cuentas");
    d.alcance = Alcance::Empresa;
    d.requiereDelegacion = true;
    d.orden = QStringLiteral("codigo_empresa, cuenta");
    d.campos = {
        {.etiqueta = QStringLiteral("&Cuenta:"),
         .columna = QStringLiteral("cuenta"),
         .obligatorio = true,
         .ancho = 14,
         .normalizar = comprobaciones::expandirCuenta},
        {.etiqueta = QStringLiteral("&Descripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
    };
    d.marcas = {
        {.etiqueta = QStringLiteral("&Pases contables"), .columna = QStringLiteral("pases")}};
    d.columnas = {{QStringLiteral("Cuenta"), QStringLiteral("cuenta"), 110},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 360},
                  {QStringLiteral("Pases"), QStringLiteral("pases"), 50}};
    d.mensajeExiste = 1017;
    d.mensajeFalta = 1018;
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar la cuenta ") + codigo + u'?';
    };
    // The level of an account is nothing but the length of its code.
    d.insertar = [](const QStringList& v) {
        cuentas::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], v[2], int(v[0].size()),
                        sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        cuentas::Update(*sesion_conexion, sesion_empresa, v[0], v[1], v[2], int(v[0].size()),
                        sesion_usuario);
    };
    d.borrar = [](const QString& codigo) {
        cuentas::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return cuentas::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmCuentas : public FormularioMantenimiento {
public:
    FrmCuentas() : FormularioMantenimiento(declaracionCuentas()) {}

protected:
    // A new code of full length is proposed as a posting account; a shorter one keeps the box
    // as it stands.
    void cargarCodigo() override {
        Recordset fila =
            cuentas::GetList(*sesion_conexion, condicionCodigo(txt(0)->text()), QString());
        if (fila.eof()) {
            if (txt(0)->text().size() == sesion_digitos) chk(0)->setChecked(true);
            return;
        }
        ponerTexto(1, NzTexto(fila[QStringLiteral("descripcion")]));
        chk(0)->setChecked(NzTexto(fila[QStringLiteral("pases")], QStringLiteral("N")) ==
                           QStringLiteral("S"));
    }

    // Codes right-justified, so that the keys of the list sort as the chart does.
    QString clave(const QStringList& fila) const override {
        return QStringLiteral("K") + fila.value(0).trimmed().rightJustified(12, u' ');
    }

    // An account with postings, in any branch or year of the company, stays.
    bool puedeBorrar(const QString& codigo) override {
        if (!comprobaciones::enUso(QStringLiteral("Apuntes"), QStringLiteral("cuenta"), codigo))
            return true;
        MsgBox(MensajeError(1035), Icono::Critico);
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmCuentas() {
    return new FrmCuentas;
}
