#include "informes.h"

#include "data/almacen/error.h"
#include "data/almacen/programa.h"
#include "forms/msgbox.h"
#include "motor/diseno.h"
#include "vistaprevia.h"

namespace {
MostradorInformes& mostrador() {
    static MostradorInformes m = [](const TrabajoInforme& t, DestinoInforme d) {
        if (d == DestinoInforme::Impresora)
            imprimirInforme(t);
        else
            mostrarVistaPrevia(t);
    };
    return m;
}
}  // namespace

MostradorInformes establecerMostrador(MostradorInformes nuevo) {
    return std::exchange(mostrador(), std::move(nuevo));
}

ControlInforme::ControlInforme(QObject* padre) : QObject(padre) {
    setObjectName(QStringLiteral("informe"));
}

void ControlInforme::setAction(int accion) {
    if (accion != 1) return;
    motor::leerDiseno(ReportFileName);
    TrabajoInforme t{ReportFileName, WindowTitle, {}, SQLQuery, Connect};
    for (const QString& f : Formulas)
        if (!f.isEmpty()) t.formulas << f;
    mostrador()(t, Destination);
}

Informes::~Informes() {
    if (obj_) Clear();
    obj_ = nullptr;
}

void Informes::poner(QStringList& lista, int i, const QString& valor) {
    while (lista.size() <= i) lista << QString();
    lista[i] = valor;
}

void Informes::Clear(std::optional<int> formulas, std::optional<int> parametros) {
    if (formulas && *formulas > maxFormulas_) maxFormulas_ = qint16(*formulas);
    if (parametros && *parametros > maxParametros_) maxParametros_ = qint16(*parametros);
    if (!obj_) throw Error(0, QStringLiteral("El informe no tiene control."));
    obj_->ReportFileName.clear();
    obj_->WindowTitle.clear();
    obj_->SelectionFormula.clear();
    obj_->GroupSelectionFormula.clear();
    obj_->SQLQuery.clear();
    for (int i = 0; i < maxFormulas_; ++i) poner(obj_->Formulas, i, QString());
    for (int i = 0; i < maxParametros_; ++i) poner(obj_->StoredProcParam, i, QString());
}

void Informes::rptConnect() {
    try {
        if (!obj_) throw Error(0, QStringLiteral("El informe no tiene control"));
        obj_->Connect =
            QStringLiteral("File name=") + programa::ruta(QStringLiteral("Temporal.udl"));
        conectado_ = true;
    } catch (const Error& e) {
        conectado_ = false;
        throw Error(errores::kRptConnect, QStringLiteral("Error en rptConnect. ") +
                                              e.descripcion() + QStringLiteral(".\n"));
    }
}

namespace {
// The description inside "Error en …. <descripción>.": without a full stop of its own.
QString sinPunto(QString descripcion) {
    while (descripcion.endsWith(u'.')) descripcion.chop(1);
    return descripcion;
}
}  // namespace

void Informes::Execute() {
    try {
        if (!obj_) throw Error(0, QStringLiteral("El informe no tiene control"));
        if (!conectado_) rptConnect();
        switch (printMode_) {
            case 0:
                obj_->Destination = DestinoInforme::Impresora;
                break;
            case 1:
                obj_->Destination = DestinoInforme::Ventana;
                break;
            case 2:
                obj_->Destination =
                    MsgBox(QStringLiteral("¿ Desea imprimir directamente el informe?"),
                           Icono::Pregunta) == Respuesta::Si
                        ? DestinoInforme::Impresora
                        : DestinoInforme::Ventana;
                break;
            default:
                break;
        }
        obj_->setAction(1);
    } catch (const Error& e) {
        throw Error(errores::kRptExecute, QStringLiteral("Error en Execute. ") +
                                              sinPunto(e.descripcion()) + QStringLiteral(".\n"));
    }
    Clear();
}

void Informes::rptFormulas(const QStringList& valores) {
    if (!obj_) throw Error(0, QStringLiteral("El informe no tiene control."));
    for (qsizetype i = 0; i < valores.size(); ++i) poner(obj_->Formulas, int(i), valores[i]);
    maxFormulas_ = qMax(maxFormulas_, qint16(valores.size()));
}

void Informes::UspParam(const QStringList& valores) {
    if (!obj_) throw Error(0, QStringLiteral("El informe no tiene control."));
    for (qsizetype i = 0; i < valores.size(); ++i) poner(obj_->StoredProcParam, int(i), valores[i]);
    maxParametros_ = qMax(maxParametros_, qint16(valores.size()));
}

void Informes::Configure(const QString& archivo, const QString& titulo, int modo) {
    Clear();
    printMode_ = modo;
    poner(obj_->DataFiles, 0, programa::ruta(QStringLiteral("Temporal.udl")));
    obj_->ReportFileName = programa::ruta(QStringLiteral("Reports/") + archivo);
    obj_->WindowTitle = titulo;
}

void Informes::Init(const QString& conexion, quint8 modoErrores, ControlInforme* control) {
    strcon_ = conexion;
    errorHandlerMode_ = modoErrores;
    obj_ = control;
    conectado_ = false;
}
