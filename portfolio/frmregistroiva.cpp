#include "comun.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/registroiva.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/barra.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_cartera.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolBar>
#include <QTreeWidgetItem>
#include <optional>
#include <utility>

namespace {

using namespace mantenimiento;
using namespace cartera_comun;

const QString kImporte = QStringLiteral("0.00");
const QString kFalta = QStringLiteral("#");
// The values of the two groups of buttons, in the order of their buttons.
const QStringList kTipos{QStringLiteral("C"), QStringLiteral("V"), QStringLiteral("I")};
const QStringList kRoles{QStringLiteral("CLI"), QStringLiteral("PRO"), QStringLiteral("DEU"),
                         QStringLiteral("ACR")};

// Amounts are whole cents; rates any number.
QString comprobarPorcentaje(const QString& texto) {
    return formato::IsNumeric(texto) ? QString() : MensajeError(1004);
}

QString comoPorcentaje(const QString& texto) {
    return textoCampo(formato::leerNumero(texto).value_or(0), Tipo::Numero);
}

// Controls: txt(0)-txt(2) the entry's line (document, number, line), txt(3) the third party
// with des(3), txt(4) the VAT type with des(4), txt(5)-txt(9) base, rates and amounts;
// opt(0)-opt(2) the kind of tax, opt_tip(0)-opt_tip(3) the third party's role.
Declaracion declaracionRegistroIva() {
    Declaracion d;
    d.nombre = QStringLiteral("frmRegistroIva");
    d.titulo = QStringLiteral("Registro de IVA");
    d.sufijo = QStringLiteral("RegistroIva");
    d.tabla = QStringLiteral("RegistroIva");
    d.alcance = Alcance::Empresa;
    d.requiereDelegacion = true;
    d.orden = QStringLiteral("codigo_documento, numero_documento, numero_apunte");
    const auto numero = [](const char* etiqueta, const char* columna, bool importe) {
        return Campo{.etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QString::fromLatin1(columna),
                     .tipo = Tipo::Numero,
                     .ancho = 12,
                     .ceroSiVacio = true,
                     .comprobar = importe ? comprobarImporte : comprobarPorcentaje};
    };
    d.campos = {
        {.etiqueta = QStringLiteral("&Documento:"),
         .columna = QStringLiteral("codigo_documento"),
         .obligatorio = true,
         .lupa = QStringLiteral("DOCUMENTOS.codigo_documento"),
         .ancho = 8},
        {.etiqueta = QStringLiteral("&Número:"),
         .columna = QStringLiteral("numero_documento"),
         .obligatorio = true,
         .ancho = 12},
        {.etiqueta = QStringLiteral("A&punte:"),
         .columna = QStringLiteral("numero_apunte"),
         .tipo = Tipo::Numero,
         .obligatorio = true,
         .ancho = 6},
        campoTercero(QStringLiteral("No&mbre:")),
        {.etiqueta = QStringLiteral("&Impuesto:"),
         .columna = QStringLiteral("impuesto"),
         .lupa = QStringLiteral("IMPUESTOS.impuesto"),
         .ancho = 8,
         .nombre =
             [](const QString& codigo) {
                 return nombreDe(QStringLiteral("Impuestos"), QStringLiteral("descripcion"),
                                 QStringLiteral("impuesto"), codigo);
             },
         .sinNombre = 9999,
         .verNombre = true},
        numero("&Base:", "base", true),
        numero("%I&VA:", "pctiva", false),
        numero("IV&A:", "iva", true),
        // A filter compares the surcharge rate with the surcharge amount: the register's users
        // have always filtered so. Loading and saving read the field as pctre.
        numero("%Recar&go:", "re", false),
        numero("&Recargo:", "re", true),
    };
    const auto opcion = [](const char* etiqueta, const char* columna, int grupo,
                           const QString& valor) {
        return Marca{.clase = Marca::Opcion,
                     .etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QString::fromLatin1(columna),
                     .grupo = grupo,
                     .si = valor};
    };
    d.marcas = {opcion("&Compra", "tipo", 0, kTipos[0]),
                opcion("Ven&ta", "tipo", 0, kTipos[1]),
                opcion("Inver&sión", "tipo", 0, kTipos[2]),
                opcion("C&liente", "tipo_acrdeu", 1, kRoles[0]),
                opcion("Pr&oveedor", "tipo_acrdeu", 1, kRoles[1]),
                opcion("De&udor", "tipo_acrdeu", 1, kRoles[2]),
                opcion("Acr&eedor", "tipo_acrdeu", 1, kRoles[3])};
    d.grupos = {{0, QStringLiteral("Tipo de impuesto:")}, {1, QString()}};
    d.marcasConLupa = true;
    d.columnas = {{QStringLiteral("Documento"), QStringLiteral("codigo_documento"), 75},
                  {QStringLiteral("Número"), QStringLiteral("numero_documento"), 80},
                  {QStringLiteral("Apunte"), QStringLiteral("numero_apunte"), 55, Tipo::Numero},
                  {QStringLiteral("Tipo Documento"), QStringLiteral("tipo"), 95},
                  {QStringLiteral("Acre/Deu"), QStringLiteral("tipo_acrdeu"), 65},
                  {QStringLiteral("Id. Acr/Deu"), QStringLiteral("codigo_personal"), 80},
                  {QStringLiteral("Impuesto"), QStringLiteral("impuesto"), 65},
                  {QStringLiteral("Base"), QStringLiteral("base"), 80, Tipo::Numero, kImporte},
                  {QStringLiteral("%IVA"), QStringLiteral("pctiva"), 50, Tipo::Numero},
                  {QStringLiteral("IVA"), QStringLiteral("iva"), 75, Tipo::Numero, kImporte},
                  {QStringLiteral("%RE"), QStringLiteral("pctre"), 50, Tipo::Numero},
                  {QStringLiteral("Rec."), QStringLiteral("re"), 70, Tipo::Numero, kImporte}};
    d.mensajeExiste = 1041;
    d.mensajeFalta = 1042;
    // valores(): the ten fields, then tipo and tipo_acrdeu.
    const auto escribir = [](auto operacion) {
        return [operacion](const QStringList& v) {
            operacion(*sesion_conexion, sesion_empresa, sesion_delegacion, v[0], v[1],
                      leerEntero16(v[2]), v[10], v[11], v[3], v[4], leerDouble(v[5]),
                      leerDouble(v[6]), leerDouble(v[7]), leerDouble(v[8]), leerDouble(v[9]),
                      sesion_usuario);
        };
    };
    d.insertar = escribir(&RegistroIva::Insert);
    d.actualizar = escribir(&RegistroIva::Update);
    d.listar = [](const QString& condicion, const QString& orden) {
        return RegistroIva::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

// The VAT register by hand: the road by which a row written by an entry is corrected, since a
// posted entry is not edited. A row is named by its entry's line in the session's branch, and
// a new one must stand for a line that posts to the VAT account of one of the company's taxes.
// The amounts follow base and rates whenever one of those five fields is left.
class FrmRegistroIva : public FormularioMantenimiento {
public:
    FrmRegistroIva() : FormularioMantenimiento(declaracionRegistroIva()) {
        for (int i = 0; i < kRoles.size(); ++i)
            opt(3 + i)->setObjectName(QStringLiteral("opt_tip(%1)").arg(i));
        // The engine's insert has no place for the journal's check between the key's test and
        // the write, and its filter would put any text of a number field into the statement.
        QAction* insertar = Boton(barra(), claves::insertar);
        insertar->disconnect(this);
        connect(insertar, &QAction::triggered, this, [this] {
            if (validarDatos()) insertarRegistro();
        });
        QAction* filtrar = Boton(barra(), claves::filtrar);
        filtrar->disconnect(this);
        connect(filtrar, &QAction::triggered, this, [this] {
            if (numerosLegibles()) Filtrar();
        });
        LimpiarCampos();
        tamanoInicial(900, 520);
    }

    // With the whole key on screen and its row there only.
    void BorrarRegistro() override {
        const QString documento = txt(0)->text(), numero = txt(1)->text();
        if (documento.isEmpty() || numero.isEmpty() || txt(2)->text().isEmpty()) return;
        Protegido([&] {
            if (!existe(documento)) return;
            if (MsgBox(QStringLiteral("¿Desea eliminar el registro del documento ") + documento +
                           u'/' + numero + u'?',
                       Icono::Pregunta) != Respuesta::Si)
                return;
            RegistroIva::Delete(*sesion_conexion, sesion_empresa, sesion_delegacion, documento,
                                numero, leerEntero16(txt(2)->text()));
            const QString k = clave({documento, numero, apunte()});
            if (lista()->contiene(k)) lista()->quitar(k);
            LimpiarCampos();
        });
    }

protected:
    QString condicionBase() const override {
        return FormularioMantenimiento::condicionBase() +
               QStringLiteral(" and codigo_delegacion = ") + sqlTexto(sesion_delegacion);
    }

    // The code is the document; number and line complete the key from their fields.
    QString condicionCodigo(const QString& documento) const override {
        return condicionBase() + QStringLiteral(" and codigo_documento = ") + sqlTexto(documento) +
               QStringLiteral(" and numero_documento = ") + sqlTexto(txt(1)->text()) +
               QStringLiteral(" and numero_apunte = ") + apunte();
    }

    QString clave(const QStringList& fila) const override {
        return QStringLiteral("K") + fila.value(0).trimmed() + fila.value(1).trimmed() +
               fila.value(2).trimmed();
    }

    QStringList filaDesdeCampos() const override {
        const QStringList v = valores();
        return {v[0],
                v[1],
                apunte(),
                v[10],
                v[11],
                v[3],
                v[4],
                comoImporte(v[5]),
                comoPorcentaje(v[6]),
                comoImporte(v[7]),
                comoPorcentaje(v[8]),
                comoImporte(v[9])};
    }

    // A base or rate whose amounts cannot be worked out (a rate of 1e308 overflows them) is
    // refused with the failure's message, before leaving it recalculates.
    bool alValidar(int i) override {
        if (!FormularioMantenimiento::alValidar(i)) return false;
        return i < 5 || Protegido([this] { cuotas(); });
    }

    void alSalir(int i) override {
        if (i <= 2) {
            // A line that is not a number names no row.
            if (!txt(0)->text().isEmpty() && !txt(1)->text().isEmpty() &&
                formato::IsNumeric(txt(2)->text()))
                Protegido([this] { cargarCodigo(); });
        } else if (i == 4) {
            if (!txt(4)->text().isEmpty()) Protegido([this] { tipoDelImpuesto(); });
        } else if (i >= 5) {
            recalcular();
        }
    }

    void cargarCodigo() override {
        Recordset fila =
            RegistroIva::GetList(*sesion_conexion, condicionCodigo(txt(0)->text()), QString());
        if (fila.eof()) return;
        const auto importe = [&](const char* columna) {
            return formato::Format(Nz(fila.value(QString::fromLatin1(columna))).toDouble(),
                                   kImporte);
        };
        ponerTexto(3, NzTexto(fila.value(QStringLiteral("codigo_personal"))));
        ponerTexto(4, NzTexto(fila.value(QStringLiteral("impuesto"))));
        ponerTexto(5, importe("base"));
        ponerTexto(6, textoCampo(fila.value(QStringLiteral("pctiva")), Tipo::Numero));
        ponerTexto(7, importe("iva"));
        ponerTexto(8, textoCampo(fila.value(QStringLiteral("pctre")), Tipo::Numero));
        ponerTexto(9, importe("re"));
        for (int i : {3, 4}) mostrarNombre(i);
        elegir(0, kTipos, NzTexto(fila.value(QStringLiteral("tipo"))));
        elegir(3, kRoles, NzTexto(fila.value(QStringLiteral("tipo_acrdeu"))));
    }

    void alElegirFila(QTreeWidgetItem* fila) override {
        for (int i : {0, 1, 2}) ponerTexto(i, fila->text(i));
        alSalir(0);
        txt(0)->setFocus();
    }

private:
    // The line of the key as the statements take it; not a number fails as a save does.
    QString apunte() const { return QString::number(leerEntero16(txt(2)->text())); }

    // The engine's insert, with the journal asked in between: a row of the register stands
    // for a line that posts to the VAT account of a tax.
    void insertarRegistro() {
        const QString documento = txt(0)->text();
        if (documento.isEmpty()) return;
        Protegido([&] {
            if (existe(documento)) {
                MsgBox(MensajeError(declaracion().mensajeExiste), Icono::Critico);
                return;
            }
            if (!esLineaDeIva()) {
                MsgBox(MensajeError(1043), Icono::Critico);
                return;
            }
            declaracion().insertar(valores());
            const QStringList fila = filaDesdeCampos();
            lista()->agregar(clave(fila), fila);
            LimpiarCampos();
        });
    }

    bool esLineaDeIva() const {
        return !Auxiliar::GetListExt(
                    *sesion_conexion, QStringLiteral("Impuestos, Apuntes"),
                    QStringLiteral("Apuntes.cuenta AS cuenta"),
                    QStringLiteral("Apuntes.codigo_empresa = Impuestos.codigo_empresa and "
                                   "Apuntes.cuenta = Impuestos.cta_iva and "
                                   "Apuntes.codigo_empresa = ") +
                        sqlTexto(sesion_empresa) +
                        QStringLiteral(" and Apuntes.codigo_delegacion = ") +
                        sqlTexto(sesion_delegacion) +
                        QStringLiteral(" and Apuntes.codigo_documento = ") +
                        sqlTexto(txt(0)->text()) +
                        QStringLiteral(" and Apuntes.numero_documento = ") +
                        sqlTexto(txt(1)->text()) + QStringLiteral(" and numero_apunte = ") +
                        apunte(),
                    QString(), QString(), QString())
                    .eof();
    }

    // Only numbers reach the statement of a filter: anything else in a number field stops it
    // as it would stop a save.
    bool numerosLegibles() {
        return Protegido([this] {
            for (int i : {2, 5, 6, 7, 8, 9})
                if (!txt(i)->text().isEmpty()) leerDouble(txt(i)->text());
        });
    }

    void mostrarNombre(int i) {
        const QString codigo = txt(i)->text();
        des(i)->setText(codigo.isEmpty()
                            ? QString()
                            : declaracion().campos[i].nombre(codigo).value_or(QString()));
    }

    // The button of the value among those of the group starting at opt(primero); a value the
    // group does not have selects its last button, as a kind of tax other than purchase or
    // sale shows as "Inversión".
    void elegir(int primero, const QStringList& valores, const QString& valor) {
        const qsizetype k = valores.indexOf(valor);
        opt(primero + int(k >= 0 ? k : valores.size() - 1))->setChecked(true);
    }

    void tipoDelImpuesto() {
        elegir(0, kTipos,
               NzTexto(Auxiliar::vBuscarCampo(
                   QStringLiteral("Impuestos"), QStringLiteral("tipo"),
                   deLaEmpresa(QStringLiteral("impuesto"), txt(4)->text()))));
    }

    // The VAT and surcharge amounts of the base and rates on screen, where they are numbers.
    std::pair<std::optional<QString>, std::optional<QString>> cuotas() const {
        const auto base = formato::leerNumero(txt(5)->text());
        if (!base) return {};
        const auto cuota = [&](int pct) -> std::optional<QString> {
            const auto p = formato::leerNumero(txt(pct)->text());
            return p ? std::optional(formato::Cuota(*base, *p)) : std::nullopt;
        };
        return {cuota(6), cuota(8)};
    }

    void recalcular() {
        const auto [iva, re] = cuotas();
        if (iva) ponerTexto(7, *iva);
        if (re) ponerTexto(9, *re);
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmRegistroIva() {
    return new FrmRegistroIva;
}
