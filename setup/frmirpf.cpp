#include "comprobaciones.h"
#include "data/entidades/irpf.h"
#include "data/global.h"
#include "forms/mantenimiento.h"
#include "formularios_empresa.h"
#include "habituales.h"

namespace {

using namespace mantenimiento;

Declaracion declaracionIrpf() {
    Declaracion d;
    d.nombre = QStringLiteral("frmIrpf");
    d.titulo = QStringLiteral("Irpf");
    d.sufijo = QStringLiteral("Irpf");
    d.tabla = QStringLiteral("Irpf");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, codigo");
    // The amount withheld is posted: the account must take postings.
    d.campos = {
        {.etiqueta = QStringLiteral("&Código:"),
         .columna = QStringLiteral("codigo"),
         .obligatorio = true,
         .ancho = 8},
        {.etiqueta = QStringLiteral("C&uenta:"),
         .columna = QStringLiteral("cuenta"),
         .obligatorio = true,
         .lupa = QStringLiteral("CUENTAS.cuenta"),
         .ancho = 14,
         .normalizar = comprobaciones::expandirCuenta,
         .nombre = [](const QString& c) { return comprobaciones::nombreCuenta(c, true); },
         .sinNombre = 1001},
        {.etiqueta = QStringLiteral("&Pct IRPF:"),
         .columna = QStringLiteral("pct_irpf"),
         .tipo = Tipo::Numero,
         .obligatorio = true,
         .ancho = 8,
         .unidad = QStringLiteral("%"),
         .comprobar = [](const QString& t) { return comprobaciones::numerico(t, 1024); }},
        {.etiqueta = QStringLiteral("&Descripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
    };
    d.columnas = {{QStringLiteral("Código"), QStringLiteral("codigo"), 70},
                  {QStringLiteral("Cuenta"), QStringLiteral("cuenta"), 90},
                  {QStringLiteral("Pct. Irpf"), QStringLiteral("pct_irpf"), 60, Tipo::Numero},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 300}};
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el Irpf ") + codigo + u'?';
    };
    d.insertar = [](const QStringList& v) {
        irpf::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], leerDouble(v[2]), v[3],
                     sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        irpf::Update(*sesion_conexion, sesion_empresa, v[0], v[1], leerDouble(v[2]), v[3],
                     sesion_usuario);
    };
    d.borrar = [](const QString& codigo) {
        irpf::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return irpf::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmIrpf : public FormularioMantenimiento {
public:
    FrmIrpf() : FormularioMantenimiento(declaracionIrpf()) {
        habituales::OfrecerEn(this, habituales::Tabla::Retenciones);
        tamanoInicial(600, 420);
    }

    // Only the company is needed, though the message names the branch too.
    QString faltaSesion() const override {
        return sesion_empresa.isEmpty()
                   ? QStringLiteral("No se ha especificado la empresa o delegación.")
                   : QString();
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmIrpf() {
    return new FrmIrpf;
}
