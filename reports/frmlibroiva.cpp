#include "frmlibroiva.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/msgbox.h"
#include "libroiva.h"
#include "librosaeat.h"
#include "modelo347.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>

namespace {

using C = CampoInforme::Clase;

QString carpetaDocumentos() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

// The calendar year whose declaration is made: that in which the session's year begins.
int anioNatural() {
    return sesion_fecha_inicial.left(4).toInt();
}

}  // namespace

frmLibroIva::frmLibroIva()
    : FormularioInforme(QStringLiteral("frmLibroIva"), QStringLiteral("Libro de IVA"),
                        {{0, QStringLiteral("Fecha inicial:"), C::FechaEjercicio},
                         {1, QStringLiteral("Fecha final:"), C::FechaEjercicio}}) {
    cmdLibrosAeat_ = new QPushButton(QStringLiteral("&Libros registro para la AEAT…"));
    cmdLibrosAeat_->setObjectName(QStringLiteral("cmdLibrosAeat"));
    cmdLibrosAeat_->setToolTip(
        QStringLiteral("Facturas expedidas y recibidas de toda la empresa en el periodo, en "
                       "Excel (XLSX) o CSV con el formato de la Agencia Tributaria"));
    rejilla()->addWidget(cmdLibrosAeat_, filas(), 0, 1, -1);
    connect(cmdLibrosAeat_, &QPushButton::clicked, this, &frmLibroIva::elegirYExportar);
    tamanoInicial(440, 200);
}

void frmLibroIva::ejecutar() {
    const CriteriosLibroIva c{texto(0), texto(1)};
    if (llenarLibroIva(c, [this](qint64 h, qint64 t) { avanzar(h, t); }) == 0) {
        MsgBox(MensajeError(9000), Icono::Critico);
        return;
    }
    const QStringList formulas = formulasLibroIva(c);
    imprimirTabla(QStringLiteral("LibroIva.rpt"), QStringLiteral("Libro de IVA"), formulas,
                  consultaLibroIva());
    imprimirTabla(QStringLiteral("ResumenIva.rpt"), QStringLiteral("Resumen de IVA"), formulas,
                  consultaResumenIva());
}

bool frmLibroIva::exportarLibrosAeat(const QString& ruta) {
    const PeriodoIva p = periodoLibroIva({texto(0), texto(1)});
    bool hecho = false;
    qint64 filas = 0;
    Protegido([&] {
        QString error;
        hecho = escribirLibrosAeat(*sesion_conexion, sesion_empresa, p.desde, p.hasta, ruta, error,
                                   &filas);
        if (!hecho) MsgBox(error, Icono::Critico);
    });
    if (hecho && filas == 0) MsgBox(MensajeError(9000), Icono::Exclamacion);
    return hecho;
}

void frmLibroIva::elegirYExportar() {
    if (!criteriosValidos()) return;
    const QString ruta = QFileDialog::getSaveFileName(
        this, QStringLiteral("Libros registro de IVA"),
        QDir(carpetaDocumentos())
            .filePath(
                QStringLiteral("LibrosIVA_%1_%2.xlsx").arg(sesion_empresa).arg(anioNatural())),
        QStringLiteral("Excel (*.xlsx);;CSV separado por punto y coma (*.csv)"));
    if (ruta.isEmpty()) return;
    if (exportarLibrosAeat(ruta))
        MsgBox(
            QStringLiteral("Libros registro guardados en %1.").arg(QDir::toNativeSeparators(ruta)),
            Icono::Informacion);
}

frmOperacionesTerceros::frmOperacionesTerceros()
    : FormularioInforme(QStringLiteral("frmOperacionesTerceros"),
                        QStringLiteral("Operaciones con terceros"),
                        {{0, QStringLiteral("Fecha inicial:"), C::FechaEjercicio},
                         {1, QStringLiteral("Fecha final:"), C::FechaEjercicio},
                         {2, QStringLiteral("Cantidad:"), C::Texto}}) {
    txt(2)->setPlaceholderText(QStringLiteral("3005,06"));
    cmdModelo347_ = new QPushButton(QStringLiteral("&Modelo 347 del año…"));
    cmdModelo347_->setObjectName(QStringLiteral("cmdModelo347"));
    cmdModelo347_->setToolTip(
        QStringLiteral("Archivo del modelo 347 de toda la empresa en el año natural, con el "
                       "umbral legal de 3.005,06 euros"));
    rejilla()->addWidget(cmdModelo347_, filas(), 0, 1, -1);
    connect(cmdModelo347_, &QPushButton::clicked, this, &frmOperacionesTerceros::pedirYGenerar);
    tamanoInicial(440, 230);
}

void frmOperacionesTerceros::ejecutar() {
    const CriteriosTerceros c{texto(0), texto(1), texto(2)};
    if (cantidadTerceros(c.cantidad).isEmpty()) {
        MsgBox(MensajeError(1004), Icono::Critico);
        txt(2)->setFocus();
        return;
    }
    if (llenarOperacionesTerceros(c, [this](qint64 h, qint64 t) { avanzar(h, t); }) == 0) {
        MsgBox(MensajeError(9000), Icono::Critico);
        return;
    }
    imprimirTabla(QStringLiteral("OperacionesTerceros.rpt"),
                  QStringLiteral("Operaciones con terceros"), formulasTerceros(c),
                  consultaTerceros());
}

bool frmOperacionesTerceros::generarModelo347(const QString& ruta, const QString& telefono,
                                              const QString& contacto) {
    bool hecho = false;
    Protegido([&] {
        const Declaracion347 d = calcular347(*sesion_conexion, sesion_empresa, anioNatural(),
                                             300506, telefono, contacto);
        if (!d.faltas.isEmpty()) {
            MsgBox(QStringLiteral("No se puede generar el modelo 347 mientras falte esto:\n\n") +
                       d.faltas.join(u'\n'),
                   Icono::Critico);
            return;
        }
        QString error;
        hecho = escribir347(d, ruta, error);
        if (!hecho) MsgBox(error, Icono::Critico);
    });
    return hecho;
}

void frmOperacionesTerceros::pedirYGenerar() {
    QDialog dialogo(this);
    dialogo.setWindowTitle(QStringLiteral("Modelo 347 de %1").arg(anioNatural()));
    auto* telefono =
        new QLineEdit(Auxiliar::vBuscarCampo(
                          QStringLiteral("Empresas"), QStringLiteral("telefono"),
                          QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa), QString())
                          .toString());
    telefono->setObjectName(QStringLiteral("txtTelefono"));
    telefono->setMaxLength(9);
    auto* contacto =
        new QLineEdit(Auxiliar::vBuscarCampo(
                          QStringLiteral("Empresas"), QStringLiteral("nombre"),
                          QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa), QString())
                          .toString());
    contacto->setObjectName(QStringLiteral("txtContacto"));
    contacto->setMaxLength(40);
    contacto->setMinimumWidth(contacto->fontMetrics().averageCharWidth() * 42);
    auto* botones = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    botones->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Generar…"));
    botones->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(botones, &QDialogButtonBox::accepted, &dialogo, &QDialog::accept);
    connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
    auto* forma = new QFormLayout(&dialogo);
    forma->addRow(QStringLiteral("Teléfono de contacto:"), telefono);
    forma->addRow(QStringLiteral("Persona de contacto (apellidos y nombre):"), contacto);
    forma->addRow(botones);
    if (dialogo.exec() != QDialog::Accepted) return;
    const QString ruta = QFileDialog::getSaveFileName(
        this, QStringLiteral("Modelo 347"),
        QDir(carpetaDocumentos())
            .filePath(QStringLiteral("Modelo347_%1_%2.txt").arg(sesion_empresa).arg(anioNatural())),
        QStringLiteral("Archivo para la Agencia Tributaria (*.txt);;Todos los archivos (*)"));
    if (ruta.isEmpty()) return;
    if (generarModelo347(ruta, telefono->text(), contacto->text()))
        MsgBox(QStringLiteral("Modelo 347 guardado en %1.").arg(QDir::toNativeSeparators(ruta)),
               Icono::Informacion);
}
