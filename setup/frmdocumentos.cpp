#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/documentos.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"
#include "formularios_empresa.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

namespace {

using namespace mantenimiento;

// A column of the session year's series, or the default when the series is not there.
QVariant deLaSerie(const QString& serie, const QString& columna, const QVariant& defecto) {
    return Auxiliar::vBuscarCampo(QStringLiteral("Numeraciones"), columna,
                                  QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                                      QStringLiteral(" and ejercicio = ") +
                                      QString::number(sesion_ejercicio) +
                                      QStringLiteral(" and numeracion = ") + sqlTexto(serie),
                                  defecto);
}

QString comprobarSerie(const QString& texto) {
    const QString falta = QStringLiteral("#");
    return deLaSerie(texto, QStringLiteral("descripcion"), falta).toString() == falta
               ? MensajeError(9999)
               : QString();
}

// Controls: opt(0) Debe, opt(1) Haber; chk(0) IVA, chk(1) Alta Cartera, chk(2) Gest. Carte.
// with opt(2) Cobros and opt(3) Pagos.
Declaracion declaracionDocumentos() {
    Declaracion d;
    d.nombre = QStringLiteral("frmDocumentos");
    d.titulo = QStringLiteral("Documentos");
    d.sufijo = QStringLiteral("Documentos");
    d.tabla = QStringLiteral("Documentos");
    d.alcance = Alcance::Empresa;
    d.requiereDelegacion = true;
    d.orden = QStringLiteral("codigo_empresa, codigo_documento");
    d.campos = {
        {.etiqueta = QStringLiteral("D&ocumento:"),
         .columna = QStringLiteral("codigo_documento"),
         .obligatorio = true,
         .ancho = 10,
         .normalizar = mayusculas},
        {.etiqueta = QStringLiteral("D&escripción:"),
         .columna = QStringLiteral("descripcion"),
         .obligatorio = true},
        {.etiqueta = QStringLiteral("&Numeración:"),
         .columna = QStringLiteral("numeracion"),
         .obligatorio = true,
         .lupa = QStringLiteral("NUMERACIONES.numeracion"),
         .ancho = 10,
         .normalizar = mayusculas,
         .comprobar = comprobarSerie},
        {.etiqueta = QStringLiteral("&Identificador:"),
         .columna = QStringLiteral("identificador"),
         .ancho = 10,
         // The entry form reads an entry's number in capitals, prefix included.
         .normalizar = mayusculas},
    };
    d.marcas = {
        {.clase = Marca::Opcion, .etiqueta = QStringLiteral("&Debe"), .grupo = 0},
        {.clase = Marca::Opcion, .etiqueta = QStringLiteral("&Haber"), .grupo = 0},
        {.etiqueta = QStringLiteral("IV&A"), .columna = QStringLiteral("iva")},
        {.etiqueta = QStringLiteral("Alta &Cartera")},
        {.etiqueta = QStringLiteral("&Gest. Carte.")},
        {.clase = Marca::Opcion, .etiqueta = QStringLiteral("Co&bros"), .grupo = 1},
        {.clase = Marca::Opcion, .etiqueta = QStringLiteral("&Pagos"), .grupo = 1},
    };
    d.columnas = {{QStringLiteral("Documento"), QStringLiteral("codigo_documento"), 80},
                  {QStringLiteral("Descripción"), QStringLiteral("descripcion"), 200},
                  {QStringLiteral("Partida"), QStringLiteral("partida"), 55},
                  {QStringLiteral("IVA"), QStringLiteral("iva"), 40},
                  {QStringLiteral("Cartera"), QStringLiteral("cartera"), 55},
                  {QStringLiteral("Numeración"), QStringLiteral("numeracion"), 80},
                  {QStringLiteral("Identificador"), QStringLiteral("identificador"), 80}};
    d.pregunta = [](const QString& codigo) {
        return QStringLiteral("¿Desea eliminar el documento ") + codigo + u'?';
    };
    // valores(): the four fields, iva, partida, cartera.
    d.insertar = [](const QStringList& v) {
        Documentos::Insert(*sesion_conexion, sesion_empresa, v[0], v[1], v[5], v[4], v[6], v[2],
                           v[3], sesion_usuario);
    };
    d.actualizar = [](const QStringList& v) {
        Documentos::Update(*sesion_conexion, sesion_empresa, v[0], v[1], v[5], v[4], v[6], v[2],
                           v[3], sesion_usuario);
    };
    d.borrar = [](const QString& codigo) {
        Documentos::Delete(*sesion_conexion, sesion_empresa, codigo);
    };
    d.listar = [](const QString& condicion, const QString& orden) {
        return Documentos::GetList(*sesion_conexion, condicion, orden);
    };
    return d;
}

class FrmDocumentos : public FormularioMantenimiento {
public:
    FrmDocumentos() : FormularioMantenimiento(declaracionDocumentos()) {
        LimpiarCampos();
        tamanoInicial(700, 440);
    }

    void LimpiarCampos() override {
        FormularioMantenimiento::LimpiarCampos();
        seguirCartera();
    }

protected:
    QString partida() const {
        return opt(0)->isChecked() ? QStringLiteral("D") : QStringLiteral("H");
    }

    QString cartera() const {
        if (chk(1)->isChecked()) return QStringLiteral("A");
        if (chk(2)->isChecked())
            return opt(2)->isChecked() ? QStringLiteral("C") : QStringLiteral("P");
        return QStringLiteral("N");
    }

    QStringList valores() const override {
        return FormularioMantenimiento::valores() << partida() << cartera();
    }

    QStringList filaDesdeCampos() const override {
        const QStringList v = valores();
        return {v[0], v[1], v[5], v[4], v[6], v[2], v[3]};
    }

    void cargarCodigo() override {
        Recordset fila =
            Documentos::GetList(*sesion_conexion, condicionCodigo(txt(0)->text()), QString());
        if (fila.eof()) return;
        ponerTexto(1, NzTexto(fila[QStringLiteral("descripcion")]));
        ponerTexto(2, NzTexto(fila[QStringLiteral("numeracion")]));
        ponerTexto(3, NzTexto(fila[QStringLiteral("identificador")]));
        const bool haber = NzTexto(fila[QStringLiteral("partida")]) == u"H";
        opt(haber ? 1 : 0)->setChecked(true);
        chk(0)->setChecked(NzTexto(fila[QStringLiteral("iva")]) != u"N");
        const QString c = NzTexto(fila[QStringLiteral("cartera")]);
        chk(1)->setChecked(c == u"A");
        chk(2)->setChecked(c == u"C" || c == u"P");
        opt(c == u"P" ? 3 : 2)->setChecked(true);
        seguirCartera();
    }

    // The series' length and the identifier together make at most ten characters.
    bool alValidar(int i) override {
        if (!FormularioMantenimiento::alValidar(i)) return false;
        if (i != 3 || txt(3)->text().isEmpty()) return true;
        bool sinFallo = true;
        int longitud = 0;
        sinFallo = Protegido(
            [&] { longitud = deLaSerie(txt(2)->text(), QStringLiteral("longitud"), 0).toInt(); });
        if (!sinFallo) return false;
        if (longitud + txt(3)->text().size() <= 10) return true;
        MsgBox(MensajeError(9999), Icono::Critico);
        return false;
    }

    // Alta Cartera and Gest. Carte. exclude each other; Cobros and Pagos count only with the
    // second.
    void alMarcar(QAbstractButton* marca) override {
        if (marca == chk(1) && chk(1)->isChecked()) chk(2)->setChecked(false);
        if (marca == chk(2) && chk(2)->isChecked()) chk(1)->setChecked(false);
        seguirCartera();
    }

private:
    void seguirCartera() {
        opt(2)->setEnabled(chk(2)->isChecked());
        opt(3)->setEnabled(chk(2)->isChecked());
    }
};

}  // namespace

FormularioMantenimiento* nuevoFrmDocumentos() {
    return new FrmDocumentos;
}
