#include "comprobaciones.h"
#include "data/entidades/impuestos.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"
#include "habituales.h"

#include <QLineEdit>

namespace {

using namespace mantenimiento;

std::optional<QString> cuentaCualquiera(const QString& cuenta) {
    return comprobaciones::nombreCuenta(cuenta, false);
}

QString porcentaje(const QString& texto) {
    return comprobaciones::numerico(texto, 1024);
}

// Controls: opt(0) Compra, opt(1) Venta, opt(2) Inversión, in the frame "Tipo de impuesto:".
Declaracion declaracionImpuestos() {
    Declaracion d;
    d.nombre = QStringLiteral("frmImpuestos");
    d.titulo = QStringLiteral("Impuestos");
    d.sufijo = QStringLiteral("Impuestos");
    d.tabla = QStringLiteral("Impuestos");
    d.alcance = Alcance::Empresa;
    d.orden = QStringLiteral("codigo_empresa, impuesto");
    // A heading is accepted as an account here: the type only names where its amounts go.
    d.campos = {
        {.etiqueta = QStringLiteral("&Impuesto:"),
         .columna = QStringLiteral("impuesto"),
         .obligatorio = true,
         .ancho = 8},
        {.etiqueta = QStringLiteral("&Cuenta IVA:"),
         .columna = QStringLiteral("cta_iva"),
         .obligatorio = true,
         .lupa = QStringLiteral("CUENTAS.cuenta"),
         .ancho = 14,
         .normalizar = comprobaciones::expandirCuenta,
         .nombre = cuentaCualquiera,
         .sinNombre = 1001},
        {.etiqueta = QStringLiteral("&Pct. IVA:"),
         .columna = QStringLiteral("pct_iva"),
         .tipo = Tipo::Numero,
         .obligatorio = true,
         .ancho = 8,
         .ceroSiVacio = true,
         .unidad = QStringLiteral("%"),
         .comprobar = porcentaje},
        {.etiqueta = QStringLiteral("Cuenta &RE:"),
         .columna = QStringLiteral("cta_re"),
         .lupa = QStringLiteral("CUENTAS.cuenta"),
         .ancho = 14,
         .normalizar = comprobaciones::expandirCuenta,
         .nombre = cuentaCualquiera,
         .sinNombre = 1001},
        {.etiqueta = QStringLiteral("Pct. R&E:"),
         .columna = QStringLiteral("pct_re"),
         .tipo = Tipo::Numero,
         .ancho = 8,
         .ceroSiVacio = true,
         .unidad = QStringLiteral("%"),
         .comprobar = porcentaje},
        {.etiqueta = QStringLiteral("&Descripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
    };
    const auto tipo = [](const char* etiqueta, const char* letra) {
        return Marca{.clase = Marca::Opcion,
                     .etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QStringLiteral("tipo"),
                     .si = QString::fromLatin1(letra),
                     .filtra = false};
    };
    d.marcas = {tipo("C&ompra", "C"), tipo("&Venta", "V"), tipo("I&nversión", "I")};
    d.grupos = {{0, QStringLiteral("Tipo de impuesto:")}};
    d.columnas = {{QStringLiteral("Impuesto"), QStringLiteral("impuesto"), 70},
                  {QStringLiteral("Cuenta IVA"), QStringLiteral("cta_iva"), 90},
                  {QStringLiteral("Pct. IVA"), QStringLiteral("pct_iva"), 60, Tipo::Numero},
                  {QStringLiteral("Cuenta RE"), QStringLiteral("cta_re"), 90},
                  {QStringLiteral("Pct. RE"), QStringLiteral("pct_re"), 60, Tipo::Numero},
                  {QStringLiteral("Tipo"), QStringLiteral("tipo"), 40},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 260}};
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el impuesto ") + codigo + u'?';
    };
    // valores(): the six fields, then tipo.
    d.insertar = [](const QStringList& v) {
        Impuestos::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], leerDouble(v[2]), v[3],
                          leerDouble(v[4]), v[5], v[6], sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        Impuestos::Update(*sesion_conexion, sesion_empresa, v[0], v[1], leerDouble(v[2]), v[3],
                          leerDouble(v[4]), v[5], v[6], sesion_usuario);
    };
    d.borrar = [](const QString& codigo) {
        Impuestos::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Impuestos::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmImpuestos : public FormularioMantenimiento {
public:
    FrmImpuestos() : FormularioMantenimiento(declaracionImpuestos()) {
        habituales::OfrecerEn(this, habituales::Tabla::Impuestos);
        LimpiarCampos();
        tamanoInicial(720, 460);
    }

protected:
    // A surcharge account without its rate is dropped, and the save stops: saved again, the
    // type has no surcharge.
    bool validarCampo(int i) override {
        if (!FormularioMantenimiento::validarCampo(i)) return false;
        if (i != 3 || txt(3)->text().isEmpty() || !txt(4)->text().isEmpty()) return true;
        MsgBox(MensajeError(1008), Icono::Critico);
        ponerTexto(3, QString());
        return false;
    }

    // A type that the VAT register already names is frozen, in its description too.
    bool puedeModificar(const QString& codigo) override { return libre(codigo); }
    bool puedeBorrar(const QString& codigo) override { return libre(codigo); }

private:
    static bool libre(const QString& codigo) {
        if (!comprobaciones::enUso(QStringLiteral("RegistroIVA"), QStringLiteral("impuesto"),
                                   codigo))
            return true;
        MsgBox(MensajeError(1035), Icono::Critico);
        return false;
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmImpuestos() {
    return new FrmImpuestos;
}
