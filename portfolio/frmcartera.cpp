#include "comun.h"
#include "data/almacen/error.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/cartera.h"
#include "data/formato.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_cartera.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTreeWidgetItem>

namespace {

using namespace mantenimiento;
using namespace cartera_comun;

const QString kImporte = QStringLiteral("0.00");
const QString kFalta = QStringLiteral("#");
// The values of the two groups of buttons, in the order of their buttons.
const QStringList kTipos{QStringLiteral("C"), QStringLiteral("P")};
const QStringList kEstados{QStringLiteral("P"), QStringLiteral("C"), QStringLiteral("D")};
// The first button of each group among opt(i).
constexpr int kPrimerTipo = 0, kPrimerEstado = 2;

QString comprobarFecha(const QString& texto) {
    return formato::leerFecha(texto) ? QString() : MensajeError(1004);
}

// Amounts are whole cents.

// The amount of a filter as the statement takes it: the typed text with its commas made
// points, as the system writes it, when that text reads as the same number; otherwise (a
// Spanish "1.210,00") the number's plain text. Nothing when the text is no number.
std::optional<QString> importeSql(const QString& texto) {
    const auto numero = formato::leerNumero(texto);
    if (!numero) return std::nullopt;
    QString tal = texto.trimmed();
    tal.replace(u',', u'.');
    if (tal.count(u'.') <= 1 && formato::leerNumero(tal) == numero) return tal;
    return formato::textoDouble(*numero);
}

// The key of a list row: "K", the document and the number right-justified in 15 and 10
// blanks (longer texts whole), the due date as "yyyymmdd".
QString claveDe(const QString& documento, const QString& numero, const QString& fecha) {
    return QStringLiteral("K") + documento.trimmed().rightJustified(15) +
           numero.trimmed().rightJustified(10) + fecha;
}

// Controls: txt(0)-txt(2) the key (document, number, due date), txt(3) concept, txt(4)
// amount, txt(5) third party with des(5), txt(6)-txt(8) the closing entry; opt_tipo(0..1) and
// opt_estado(0..2) in their frames.
Declaracion declaracionCartera() {
    Declaracion d;
    d.nombre = QStringLiteral("frmCartera");
    d.titulo = QStringLiteral("Cartera");
    d.sufijo = QStringLiteral("Cartera");
    d.tabla = QStringLiteral("Cartera");
    d.alcance = Alcance::Empresa;
    d.requiereDelegacion = true;
    const auto fecha = [](const char* etiqueta, const char* columna, bool obligatorio) {
        return Campo{.etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QString::fromLatin1(columna),
                     .tipo = Tipo::Fecha,
                     .obligatorio = obligatorio,
                     .ancho = 10,
                     .comprobar = comprobarFecha};
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
        fecha("&Fecha Vto:", "fecha_vto", true),
        {.etiqueta = QStringLiteral("C&oncepto:"), .columna = QStringLiteral("concepto")},
        {.etiqueta = QStringLiteral("&Importe:"),
         .columna = QStringLiteral("importe"),
         .tipo = Tipo::Numero,
         .ancho = 12,
         .comprobar = comprobarImporte},
        campoTercero(QStringLiteral("&Acreedor/Deudor:")),
        fecha("Fecha &cierre:", "fecha_cierre", false),
        {.etiqueta = QStringLiteral("Doc&umento cierre:"),
         .columna = QStringLiteral("codigo_documento_cierre"),
         .lupa = QStringLiteral("DOCUMENTOS.codigo_documento"),
         .ancho = 8,
         .nombre =
             [](const QString& codigo) {
                 return nombreDe(QStringLiteral("Documentos"), QStringLiteral("codigo_documento"),
                                 QStringLiteral("codigo_documento"), codigo);
             },
         .sinNombre = 9999},
        {.etiqueta = QStringLiteral("Nú&mero cierre:"),
         .columna = QStringLiteral("numero_documento_cierre"),
         .ancho = 12},
    };
    const auto opcion = [](const char* etiqueta, const char* columna, int grupo,
                           const QString& valor) {
        return Marca{.clase = Marca::Opcion,
                     .etiqueta = QString::fromUtf8(etiqueta),
                     .columna = QString::fromLatin1(columna),
                     .grupo = grupo,
                     .si = valor};
    };
    d.marcas = {opcion("Co&bro", "tipo", 0, kTipos[0]), opcion("&Pago", "tipo", 0, kTipos[1]),
                opcion("Pendien&te", "estado", 1, kEstados[0]),
                opcion("Cance&lado", "estado", 1, kEstados[1]),
                opcion("De&vuelto", "estado", 1, kEstados[2])};
    d.grupos = {{0, QStringLiteral("Tipo documento")}, {1, QStringLiteral("Estado")}};
    d.marcasConLupa = true;
    d.columnas = {
        {QStringLiteral("Documento"), QStringLiteral("codigo_documento"), 75},
        {QStringLiteral("Número"), QStringLiteral("numero_documento"), 80},
        {QStringLiteral("Fecha Vto."), QStringLiteral("fecha_vto"), 75, Tipo::Fecha},
        {QStringLiteral("Concepto"), QStringLiteral("concepto"), 150},
        {QStringLiteral("Importe"), QStringLiteral("importe"), 80, Tipo::Numero, kImporte},
        {QStringLiteral("Acre/Deu"), QStringLiteral("codigo_personal"), 70},
        {QStringLiteral("Estado"), QStringLiteral("estado"), 50},
        {QStringLiteral("Tipo documento"), QStringLiteral("tipo"), 95},
        {QStringLiteral("Fecha cierre"), QStringLiteral("fecha_cierre"), 75, Tipo::Fecha},
        {QStringLiteral("Documento cierre"), QStringLiteral("codigo_documento_cierre"), 100},
        {QStringLiteral("Número cierre"), QStringLiteral("numero_documento_cierre"), 90}};
    d.mensajeExiste = 1045;
    d.mensajeFalta = 1046;
    d.listar = [](const QString& condicion, const QString& orden) {
        return cartera::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

// The portfolio by hand: due dates corrected, added and removed, never posted. A due date is
// named by document, number and date in the session's branch and always hangs on line 1 of its
// entry; every save must leave the due dates of the document adding up to that line's amount.
class FrmCartera : public FormularioMantenimiento {
public:
    FrmCartera() : FormularioMantenimiento(declaracionCartera()) {
        for (int i = 0; i < kTipos.size(); ++i)
            opt(kPrimerTipo + i)->setObjectName(QStringLiteral("opt_tipo(%1)").arg(i));
        for (int i = 0; i < kEstados.size(); ++i)
            opt(kPrimerEstado + i)->setObjectName(QStringLiteral("opt_estado(%1)").arg(i));
        opt(kPrimerTipo)->parentWidget()->setObjectName(QStringLiteral("frmTipo"));
        opt(kPrimerEstado)->parentWidget()->setObjectName(QStringLiteral("frmEstado"));
        LimpiarCampos();
        tamanoInicial(900, 560);
    }

    void LimpiarCampos() override {
        FormularioMantenimiento::LimpiarCampos();
        ponerTexto(4, comoImporte(QString()));
    }

    // The checks of the fields, then the amounts of the document against its line 1. A
    // refusal puts the focus on a field: the key field it leaves does not load its row again
    // over what was typed.
    bool validarDatos() override {
        const QScopedValueRollback<bool> validando(validando_, true);
        return FormularioMantenimiento::validarDatos() && cuadraConLaPartida();
    }

    void AltaRegistro() override {
        if (!claveCompleta()) return;
        Protegido([this] {
            if (existe(txt(0)->text())) {
                MsgBox(MensajeError(1045), Icono::Critico);
                return;
            }
            const QString tipoAcrdeu = tipoDelTercero();
            if (tipoAcrdeu == kFalta) {
                MsgBox(MensajeError(1034), Icono::Critico);
                return;
            }
            escribir(&cartera::Insert, tipoAcrdeu);
            // The new row shows neither number nor date until the list is filled again.
            QStringList fila{txt(0)->text(), QString(), QString()};
            fila += columnasDePantalla();
            ignorarFallos([&] { lista()->agregar(claveDePantalla(), fila); });
            LimpiarCampos();
        });
    }

    void ModificarRegistro() override {
        if (!claveCompleta()) return;
        Protegido([this] {
            if (!existe(txt(0)->text())) {
                MsgBox(MensajeError(1046), Icono::Critico);
                return;
            }
            const QString tipoAcrdeu = tipoDelTercero();
            if (tipoAcrdeu == kFalta) {
                MsgBox(MensajeError(1034), Icono::Critico);
                return;
            }
            escribir(&cartera::Update, tipoAcrdeu);
            // A row that is not in the list is no failure.
            ignorarFallos([&] {
                QTreeWidgetItem* fila = lista()->elemento(claveDePantalla());
                const QStringList textos = columnasDePantalla();
                for (int i = 0; i < textos.size(); ++i) fila->setText(3 + i, textos[i]);
            });
            LimpiarCampos();
        });
    }

    // Without the sum test: the amounts of a document may stay short until its next change.
    void BorrarRegistro() override {
        const bool hecho = !claveCompleta() || Protegido([this] {
            const QString documento = txt(0)->text(), numero = txt(1)->text(),
                          fecha = txt(2)->text();
            // The line goes quoted and padded, as the system has always sent it: both stores
            // read the text as the number 1 against the integer column.
            const QString condicion =
                condicionBase() + QStringLiteral(" and codigo_documento = ") + sqlTexto(documento) +
                QStringLiteral(" and numero_documento = ") + sqlTexto(numero) +
                QStringLiteral(
                    " and numero_apunte = '0000001' and "
                    "fecha_vto = ") +
                sqlTexto(Auxiliar::sDate(fecha));
            if (Auxiliar::vBuscarCampo(QStringLiteral("Cartera"),
                                       QStringLiteral("codigo_documento"), condicion, kFalta)
                    .toString() == kFalta)
                return;
            if (MsgBox(QStringLiteral("¿Desea eliminar el vencimiento ") + fecha +
                           QStringLiteral(" del documento ") + numero + u'?',
                       Icono::Pregunta) != Respuesta::Si)
                return;
            cartera::Delete(*sesion_conexion, sesion_empresa, sesion_delegacion, documento, numero,
                            1, fecha);
            ignorarFallos([&] { lista()->quitar(claveDePantalla()); });
        });
        // A failed delete keeps the fields, as every failed store operation does.
        if (hecho) LimpiarCampos();
    }

    // Every filled field and both groups of buttons, all by equality. An amount that is no
    // number is left out, and dates go in as "yyyymmdd" (empty when not a date), so nothing
    // typed reaches the statement but through a quoted text or a number.
    void Filtrar() override {
        QString condicion = condicionBase();
        const auto texto = [this](int i) { return txt(i)->text(); };
        const auto y = [&](const QString& clausula) {
            condicion += QStringLiteral(" and ") + clausula;
        };
        const auto igual = [&](int i, const char* columna, const char* cola = "") {
            if (!texto(i).isEmpty())
                y(QString::fromLatin1(columna) + QStringLiteral(" = ") + sqlTexto(texto(i)) +
                  QString::fromLatin1(cola));
        };
        const auto fecha = [&](int i, const char* columna) {
            if (!texto(i).isEmpty())
                y(QString::fromLatin1(columna) + QStringLiteral(" = ") +
                  sqlTexto(Auxiliar::sDate(texto(i))));
        };
        igual(0, "codigo_documento", " ");
        igual(1, "numero_documento");
        fecha(2, "fecha_vto");
        igual(3, "concepto");
        if (const auto importe = importeSql(texto(4))) y(QStringLiteral("importe = ") + *importe);
        igual(5, "codigo_personal");
        fecha(6, "fecha_cierre");
        igual(7, "codigo_documento_cierre", " ");
        igual(8, "numero_documento_cierre");
        y(QStringLiteral("estado = ") + sqlTexto(estado()));
        y(QStringLiteral("tipo = ") + sqlTexto(tipo()));
        RefrescarLista(condicion);
    }

protected:
    QString condicionBase() const override {
        return FormularioMantenimiento::condicionBase() +
               QStringLiteral(" and codigo_delegacion = ") + sqlTexto(sesion_delegacion);
    }

    // The due date of the key on screen, on line 1: the test of insert and modify.
    QString condicionCodigo(const QString& documento) const override {
        return condicionDocumento(documento, txt(1)->text()) +
               QStringLiteral(" and numero_apunte = 1 and fecha_vto = ") + fechaSql();
    }

    // A stored row's texts; the key of a row added by the form comes from the screen.
    QString clave(const QStringList& fila) const override {
        return claveDe(fila.value(0), fila.value(1), Auxiliar::sDate(fila.value(2)));
    }

    // The importe field is checked here, in the order of the fields: blank is zero.
    bool validarCampo(int i) override {
        if (i != 4) return FormularioMantenimiento::validarCampo(i);
        if (txt(4)->text().isEmpty()) {
            ponerTexto(4, comoImporte(QString()));
            return true;
        }
        if (formato::leerImporte(txt(4)->text())) return true;
        txt(4)->setFocus();
        MsgBox(MensajeError(1004), Icono::Critico);
        return false;
    }

    void alSalir(int i) override {
        if (i <= 2) {
            if (!validando_ && claveCompleta()) Protegido([this] { cargarCodigo(); });
        } else if (i == 4) {
            ponerTexto(4, comoImporte(txt(4)->text()));
        }
    }

    // The row of document, number and date, whatever its line; none leaves the fields.
    void cargarCodigo() override {
        Recordset fila = cartera::GetList(*sesion_conexion,
                                          condicionDocumento(txt(0)->text(), txt(1)->text()) +
                                              QStringLiteral(" and fecha_vto = ") + fechaSql(),
                                          QString());
        if (fila.eof()) return;
        const auto texto = [&](const char* columna) {
            return NzTexto(fila.value(QString::fromLatin1(columna)));
        };
        ponerTexto(3, texto("concepto"));
        ponerTexto(4,
                   formato::Format(Nz(fila.value(QStringLiteral("importe"))).toDouble(), kImporte));
        ponerTexto(5, texto("codigo_personal"));
        ponerTexto(6, Auxiliar::dDate(texto("fecha_cierre")));
        ponerTexto(7, texto("codigo_documento_cierre"));
        ponerTexto(8, texto("numero_documento_cierre"));
        des(5)->setText(txt(5)->text().isEmpty()
                            ? QString()
                            : declaracion().campos[5].nombre(txt(5)->text()).value_or(QString()));
        // A letter that no button has leaves its group as it was.
        const auto marcar = [this](int primero, const QStringList& valores, const QString& valor) {
            if (const qsizetype k = valores.indexOf(valor); k >= 0)
                opt(primero + int(k))->setChecked(true);
        };
        marcar(kPrimerEstado, kEstados, texto("estado"));
        marcar(kPrimerTipo, kTipos, texto("tipo"));
    }

    void alElegirFila(QTreeWidgetItem* fila) override {
        for (int i : {0, 1, 2}) ponerTexto(i, fila->text(i));
        if (claveCompleta()) Protegido([this] { cargarCodigo(); });
        txt(0)->setFocus();
    }

private:
    bool validando_ = false;

    bool claveCompleta() const {
        return !txt(0)->text().isEmpty() && !txt(1)->text().isEmpty() && !txt(2)->text().isEmpty();
    }

    QString fechaSql() const { return sqlTexto(Auxiliar::sDate(txt(2)->text())); }

    QString condicionDocumento(const QString& documento, const QString& numero) const {
        return condicionBase() + QStringLiteral(" and codigo_documento = ") + sqlTexto(documento) +
               QStringLiteral(" and numero_documento = ") + sqlTexto(numero);
    }

    QString claveDePantalla() const {
        return claveDe(txt(0)->text(), txt(1)->text(), Auxiliar::sDate(txt(2)->text()));
    }

    // The first button on of each group, the last one when none is.
    QString tipo() const { return opt(kPrimerTipo)->isChecked() ? kTipos[0] : kTipos[1]; }
    QString estado() const {
        return opt(kPrimerEstado)->isChecked()       ? kEstados[0]
               : opt(kPrimerEstado + 1)->isChecked() ? kEstados[1]
                                                     : kEstados[2];
    }

    // Columns 3 to 10 of a list row, from the screen.
    QStringList columnasDePantalla() const {
        return {txt(3)->text(), comoImporte(txt(4)->text()),
                txt(5)->text(), estado(),
                tipo(),         txt(6)->text(),
                txt(7)->text(), txt(8)->text()};
    }

    // The due dates of the document, this one as typed, against the amount of its line 1,
    // whichever side it stands on. Exact: a difference of any size is one.
    bool cuadraConLaPartida() {
        bool cuadra = false;
        const bool hecho = Protegido([&] {
            const QString documento =
                QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                QStringLiteral(" and codigo_delegacion = ") + sqlTexto(sesion_delegacion) +
                QStringLiteral(" and codigo_documento = ") + sqlTexto(txt(0)->text()) +
                QStringLiteral("  and numero_documento = ") + sqlTexto(txt(1)->text());
            const double otros =
                Auxiliar::vBuscarCampo(QStringLiteral("Cartera"),
                                       QStringLiteral("SUM(importe) AS importe"),
                                       documento +
                                           QStringLiteral(" and numero_apunte = 1 and "
                                                          "fecha_vto <> ") +
                                           fechaSql(),
                                       0)
                    .toDouble();
            const double partida =
                Auxiliar::vBuscarCampo(QStringLiteral("Apuntes"),
                                       QStringLiteral("debe+haber AS importe"),
                                       documento + QStringLiteral(" and numero_apunte = 1"), 0)
                    .toDouble();
            cuadra = leerDouble(txt(4)->text()) + otros == partida;
        });
        if (!hecho) return false;
        if (!cuadra) {
            txt(4)->setFocus();
            MsgBox(MensajeError(1044), Icono::Critico);
        }
        return cuadra;
    }

    // The kind of third party of the one typed, when its account stands on line 1 of the
    // entry; "#" when not, or when there is no such line.
    QString tipoDelTercero() const {
        return Auxiliar::vBuscarCampo(
                   QStringLiteral("Acrdeu, Apuntes"), QStringLiteral("Acrdeu.tipo AS tipo"),
                   QStringLiteral("Acrdeu.codigo_empresa = Apuntes.codigo_empresa  and "
                                  "Acrdeu.cuenta = Apuntes.cuenta and Apuntes.codigo_empresa = ") +
                       sqlTexto(sesion_empresa) +
                       QStringLiteral(" and Apuntes.codigo_delegacion = ") +
                       sqlTexto(sesion_delegacion) +
                       QStringLiteral(" and Apuntes.codigo_documento = ") +
                       sqlTexto(txt(0)->text()) +
                       QStringLiteral(" and Apuntes.numero_documento = ") +
                       sqlTexto(txt(1)->text()) +
                       QStringLiteral(" and Apuntes.numero_apunte = 1 and Acrdeu.codigo = ") +
                       sqlTexto(txt(5)->text()),
                   kFalta)
            .toString();
    }

    // Insert or Update of the due date on screen, line 1.
    template <class Operacion>
    void escribir(Operacion operacion, const QString& tipoAcrdeu) {
        operacion(*sesion_conexion, sesion_empresa, sesion_delegacion, txt(0)->text(),
                  txt(1)->text(), 1, txt(2)->text(), tipoAcrdeu, txt(5)->text(), txt(3)->text(),
                  tipo(), estado(), leerDouble(txt(4)->text()), txt(6)->text(), txt(7)->text(),
                  txt(8)->text(), sesion_usuario);
    }

    // The list after a successful write: a row missing from it, or already in it, does no
    // harm.
    template <class Cuerpo>
    static void ignorarFallos(Cuerpo&& cuerpo) {
        try {
            cuerpo();
        } catch (const Error&) {
        }
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmCartera() {
    return new FrmCartera;
}
