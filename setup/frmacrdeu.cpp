#include "comprobaciones.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/acrdeu.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidgetItem>

namespace {

using namespace mantenimiento;
using comprobaciones::buscarEnEmpresa;

std::optional<QString> cuentaDePases(const QString& cuenta) {
    return comprobaciones::nombreCuenta(cuenta, true);
}

// A code of another table of the company; only whether it is there counts.
Campo codigoDe(const char* etiqueta, const char* columna, const char* lupa, const char* tabla,
               const char* columnaCodigo, bool obligatorio) {
    const QString t = QString::fromLatin1(tabla), c = QString::fromLatin1(columnaCodigo);
    return {.etiqueta = QString::fromUtf8(etiqueta),
            .columna = QString::fromLatin1(columna),
            .obligatorio = obligatorio,
            .lupa = QString::fromLatin1(lupa),
            .ancho = 10,
            .nombre = [t, c](const QString& codigo) { return buscarEnEmpresa(t, c, c, codigo); },
            .sinNombre = 1020,
            .filtra = obligatorio};
}

// A blank number stands for 0; a number is shown by its pattern; anything else as typed.
QString conPatron(const QString& texto, const QString& patron) {
    if (texto.trimmed().isEmpty()) return formato::Format(0, patron);
    const auto numero = formato::leerNumero(texto);
    return numero ? formato::Format(*numero, patron) : texto;
}

const QString kDia = QStringLiteral("0"), kDescuento = QStringLiteral("0.00");

// Controls: txt(0) account and txt(1) third party, with their names in des(0) and des(1);
// txt(2) VAT type, txt(3) payment method, txt(4) day of payment, txt(5) discount, txt(6)
// withholding, txt(7) counterpart with des(7); opt(0)-opt(3) the role (opt_tip), opt(4)-opt(6)
// the nationality (opt_nac).
Declaracion declaracionAcrdeu() {
    Declaracion d;
    d.nombre = QStringLiteral("frmAcrdeu");
    d.titulo = QStringLiteral("Acreedores - Deudores");
    d.sufijo = QStringLiteral("Acrdeu");
    d.tabla = QStringLiteral("Acrdeu");
    d.alcance = Alcance::Empresa;
    d.requiereDelegacion = true;
    d.orden = QStringLiteral("codigo_empresa, cuenta");
    d.campos = {
        {.etiqueta = QStringLiteral("C&uenta:"),
         .columna = QStringLiteral("cuenta"),
         .obligatorio = true,
         .lupa = QStringLiteral("CUENTAS.cuenta"),
         .ancho = 14,
         .normalizar = comprobaciones::expandirCuenta,
         .nombre = cuentaDePases,
         .sinNombre = 1001,
         .verNombre = true},
        {.etiqueta = QStringLiteral("Có&digo:"),
         .columna = QStringLiteral("codigo"),
         .obligatorio = true,
         .lupa = QStringLiteral("PERSONAL.codigo"),
         .ancho = 14,
         .nombre =
             [](const QString& codigo) {
                 return buscarEnEmpresa(QStringLiteral("Personal"), QStringLiteral("nombre"),
                                        QStringLiteral("codigo"), codigo);
             },
         .sinNombre = 1020,
         .verNombre = true},
        codigoDe("&Impuesto:", "impuesto", "IMPUESTOS.impuesto", "Impuestos", "impuesto", true),
        codigoDe("&Forma de pago:", "forma_pago", "FORMASPAGOS.codigo_pago", "FormasPagos",
                 "codigo_pago", true),
        {.etiqueta = QStringLiteral("Dia de &pago:"),
         .columna = QStringLiteral("primer_dia"),
         .tipo = Tipo::Numero,
         .ancho = 4,
         .filtra = false},
        {.etiqueta = QStringLiteral("D&escuento:"),
         .columna = QStringLiteral("descuento"),
         .tipo = Tipo::Numero,
         .ancho = 8,
         .unidad = QStringLiteral("%"),
         .filtra = false},
        codigoDe("I&RPF:", "irpf", "IRPF.codigo", "Irpf", "codigo", false),
        {.etiqueta = QStringLiteral("C&ontrapartida:"),
         .columna = QStringLiteral("contrapartida"),
         .lupa = QStringLiteral("CUENTAS.cuenta"),
         .ancho = 14,
         .normalizar = comprobaciones::expandirCuenta,
         .nombre = cuentaDePases,
         .sinNombre = 1001,
         .verNombre = true,
         .filtra = false},
    };
    const auto opcion = [](const char* etiqueta, const char* columna, int grupo,
                           const char* valor) {
        return Marca{.clase = Marca::Opcion,
                     .etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QString::fromLatin1(columna),
                     .grupo = grupo,
                     .si = QString::fromLatin1(valor)};
    };
    d.marcas = {opcion("C&liente", "tipo", 0, "CLI"),
                opcion("Pro&veedor", "tipo", 0, "PRO"),
                opcion("Deudo&r", "tipo", 0, "DEU"),
                opcion("&Acreedor", "tipo", 0, "ACR"),
                opcion("&Nacional", "nacionalidad", 1, "NAC"),
                opcion("Co&munitario", "nacionalidad", 1, "COM"),
                opcion("E&xtrangero", "nacionalidad", 1, "EXT")};
    d.grupos = {{0, QStringLiteral("Tipo")}, {1, QStringLiteral("Nacionalidad")}};
    d.marcasConLupa = true;
    d.columnas = {
        {QStringLiteral("Cuenta"), QStringLiteral("cuenta"), 90},
        {QStringLiteral("Codigo"), QStringLiteral("codigo"), 80},
        {QStringLiteral("Tipo"), QStringLiteral("tipo"), 45},
        {QStringLiteral("Nacionalidad"), QStringLiteral("nacionalidad"), 95},
        {QStringLiteral("Impuesto"), QStringLiteral("impuesto"), 65},
        {QStringLiteral("Forma de pago"), QStringLiteral("forma_pago"), 105},
        {QStringLiteral("Dia de pago"), QStringLiteral("primer_dia"), 85, Tipo::Numero, kDia},
        {QStringLiteral("Descuento"), QStringLiteral("descuento"), 70, Tipo::Numero, kDescuento},
        {QStringLiteral("IRPF"), QStringLiteral("irpf"), 50},
        {QStringLiteral("Contrapartida"), QStringLiteral("contrapartida"), 90}};
    d.mensajeExiste = 1017;
    d.mensajeFalta = 1018;
    // valores(): the eight fields, then tipo and nacionalidad.
    const auto escribir = [](auto operacion) {
        return [operacion](const QStringList& v) {
            operacion(*sesion_conexion, sesion_empresa, v[0], v[1], v[8], v[9], v[2], v[3],
                      leerEntero16(v[4]), leerDouble(v[5]), v[6], v[7], sesion_usuario);
        };
    };
    d.insertar = escribir(&acrdeu::Insert);
    d.actualizar = escribir(&acrdeu::Update);
    d.listar = [](const QString& condicion, const QString& orden) {
        return acrdeu::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

// The role of an account: which third party it is, and what the entry form proposes when it
// is used. An account belongs to one third party at most; a third party may hold several.
class FrmAcrdeu : public FormularioMantenimiento {
public:
    FrmAcrdeu() : FormularioMantenimiento(declaracionAcrdeu()) {
        for (int i = 0; i < 7; ++i)
            opt(i)->setObjectName(i < 4 ? QStringLiteral("opt_tip(%1)").arg(i)
                                        : QStringLiteral("opt_nac(%1)").arg(i - 4));
        LimpiarCampos();
        tamanoInicial(860, 520);
    }

    void LimpiarCampos() override {
        FormularioMantenimiento::LimpiarCampos();
        ponerTexto(4, formato::Format(0, kDia));
        ponerTexto(5, formato::Format(0, kDescuento));
    }

    // The row of the account and the third party together.
    void BorrarRegistro() override {
        for (int i : {0, 1}) normalizarCampo(i);
        const QString cuenta = txt(0)->text(), codigo = txt(1)->text();
        const bool hecho = cuenta.isEmpty() || Protegido([&] {
                               if (!existeFila(cuenta, codigo)) return;
                               if (MsgBox(QStringLiteral("¿Desea eliminar los datos ") + cuenta +
                                              u'/' + codigo + u'?',
                                          Icono::Pregunta) != Respuesta::Si)
                                   return;
                               acrdeu::Delete(*sesion_conexion, sesion_empresa, cuenta, codigo);
                               const QString k = clave({cuenta, codigo});
                               if (lista()->contiene(k)) lista()->quitar(k);
                           });
        if (hecho) LimpiarCampos();
    }

protected:
    // Account and code right-justified in twelve characters each.
    QString clave(const QStringList& fila) const override {
        return QStringLiteral("K") + fila.value(0).trimmed().rightJustified(12, u' ') +
               fila.value(1).trimmed().rightJustified(12, u' ');
    }

    // Day and discount, when empty, are 0; otherwise they must be numbers.
    bool validarCampo(int i) override {
        if (!FormularioMantenimiento::validarCampo(i)) return false;
        if (i != 4 && i != 5) return true;
        if (txt(i)->text().isEmpty()) {
            ponerTexto(i, QStringLiteral("0"));
            return true;
        }
        if (formato::IsNumeric(txt(i)->text())) return true;
        txt(i)->setFocus();
        MsgBox(MensajeError(1004), Icono::Critico);
        return false;
    }

    // The list shows day and discount by their patterns, as typed or not.
    QStringList filaDesdeCampos() const override {
        QStringList fila = FormularioMantenimiento::filaDesdeCampos();
        fila[6] = conPatron(fila[6], kDia);
        fila[7] = conPatron(fila[7], kDescuento);
        return fila;
    }

    void alSalir(int i) override {
        if (i == 4 || i == 5) ponerTexto(i, conPatron(txt(i)->text(), i == 4 ? kDia : kDescuento));
        if ((i == 0 || i == 1) && !txt(0)->text().isEmpty() && !txt(1)->text().isEmpty())
            Protegido([this] { cargarCodigo(); });
    }

    void cargarCodigo() override {
        Recordset fila =
            acrdeu::GetList(*sesion_conexion,
                            condicionCodigo(txt(0)->text()) + QStringLiteral(" and codigo = ") +
                                sqlTexto(txt(1)->text()),
                            QString());
        if (fila.eof()) return;
        FormularioMantenimiento::cargarCodigo();
        ponerTexto(4, conPatron(txt(4)->text(), kDia));
        ponerTexto(5, conPatron(txt(5)->text(), kDescuento));
        const QString contrapartida = txt(7)->text();
        des(7)->setText(contrapartida.isEmpty() ? QString()
                                                : cuentaDePases(contrapartida).value_or(QString()));
    }

    // The row's account and third party are read with their names, and each field is checked
    // in turn, so that a code gone from its table shows at once.
    void alElegirFila(QTreeWidgetItem* fila) override {
        ponerTexto(0, fila->text(0));
        ponerTexto(1, fila->text(1));
        alSalir(0);
        for (int i = 0; i < 8; ++i)
            if (!alValidar(i)) {
                txt(i)->setFocus();
                return;
            }
        txt(0)->setFocus();
    }

private:
    bool existeFila(const QString& cuenta, const QString& codigo) const {
        return Auxiliar::vBuscarCampo(
                   QStringLiteral("Acrdeu"), QStringLiteral("codigo"),
                   condicionCodigo(cuenta) + QStringLiteral(" and codigo = ") + sqlTexto(codigo),
                   QStringLiteral("#"))
                   .toString() != QStringLiteral("#");
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmAcrdeu() {
    return new FrmAcrdeu;
}
