#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

// Everything a run of a report needs, taken from the control when the run starts: the
// window or the printer works from this copy while the form goes on.
struct TrabajoInforme {
    QString archivo;  // the layout file, a full path
    QString titulo;   // the window's title
    QStringList formulas;
    QString consulta;  // the query over the temporary store
    QString conexion;  // how to reach the temporary store
};

enum class DestinoInforme { Ventana, Impresora };

// The report control of a form ("informe"): the settings of the next run. Setting the action
// to 1 runs the report to its destination. A control is the engine's side of the contract;
// forms reach it only through Informes and its obj.
class ControlInforme : public QObject {
    Q_OBJECT
public:
    explicit ControlInforme(QObject* padre = nullptr);

    QString ReportFileName;
    QString WindowTitle;
    QString SelectionFormula;
    QString GroupSelectionFormula;
    QString SQLQuery;
    QString Connect;
    QStringList Formulas;         // slot i, "" when unused
    QStringList StoredProcParam;  // slot i, "" when unused
    QStringList DataFiles;
    DestinoInforme Destination = DestinoInforme::Ventana;

    // 1 runs the report; any other value does nothing. A layout that cannot be read or a query
    // that fails is an Error, before any window opens.
    void setAction(int accion);
};

// Who shows a run: by default the preview window or the print dialog. Tests put their own to
// read what a form asked for; the previous one is given back.
using MostradorInformes = std::function<void(const TrabajoInforme&, DestinoInforme)>;
MostradorInformes establecerMostrador(MostradorInformes mostrador);

// The wrapper every report form uses: Init with the connection text, error mode 1 and its
// control; Configure with the file, the window's title and the print mode; rptFormulas; the
// query through obj(); Execute.
class Informes {
public:
    Informes() = default;
    ~Informes();
    Informes(const Informes&) = delete;
    Informes& operator=(const Informes&) = delete;

    void Clear(std::optional<int> formulas = {}, std::optional<int> parametros = {});
    // Connects when not connected yet, sets the destination by the print mode, runs, and
    // clears. A failure is Error 0x800403EA "Error en Execute. …".
    void Execute();
    void rptFormulas(const QStringList& valores);
    void UspParam(const QStringList& valores);
    void Configure(const QString& archivo, const QString& titulo, int modo);
    void Init(const QString& conexion, quint8 modoErrores, ControlInforme* control);

    ControlInforme* obj() const { return obj_; }
    void setObj(ControlInforme* control) { obj_ = control; }
    quint8 ErrorHandlerMode() const { return errorHandlerMode_; }
    void setErrorHandlerMode(quint8 modo) { errorHandlerMode_ = modo; }
    qint32 printMode() const { return printMode_; }
    void setPrintMode(qint32 modo) { printMode_ = modo; }
    const QString& STRCON() const { return strcon_; }
    void setSTRCON(const QString& texto) { strcon_ = texto; }

private:
    void rptConnect();
    static void poner(QStringList& lista, int i, const QString& valor);

    QString strcon_;
    qint32 printMode_ = 0;
    quint8 errorHandlerMode_ = 0;
    qint16 maxParametros_ = 0;
    qint16 maxFormulas_ = 0;
    bool conectado_ = false;
    QPointer<ControlInforme> obj_;
};

namespace errores {
constexpr qint32 kRptConnect = qint32(0x800403E9u);
constexpr qint32 kRptExecute = qint32(0x800403EAu);
}  // namespace errores
