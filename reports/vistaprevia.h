#pragma once

#include "forms/formulario.h"
#include "informes.h"
#include "motor/archivopaginas.h"
#include "motor/diseno.h"
#include "motor/exportar.h"

#include <memory>

class Conexion;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QTimer;
class QToolBar;
namespace motor {
class FuenteConsulta;
class Paginador;
}  // namespace motor

// The widget that shows one page on its paper at the window's zoom.
class HojaInforme : public QWidget {
    Q_OBJECT
public:
    HojaInforme(const motor::Diseno& diseno, QWidget* padre = nullptr);
    void mostrar(const motor::Pagina& pagina, double zoom);

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    const motor::Diseno& d_;
    motor::Pagina pagina_;
    double zoom_ = 1;
    double pixelesPorMm() const;
};

// The preview of a report, a window inside the main one. The first page shows as soon as it
// is laid out; the rest are laid out while the user reads, a slice at a time, into a page
// file, with their count and a button that stops the work. Navigation, zoom, printing through
// the system's dialog, and export of the whole report to PDF (from the pages), CSV and XLSX
// (from the rows of the temporary table, while it still holds this run's rows: the columns
// the layout exports, under the titles the printed report gives them).
class frmVistaPrevia : public Formulario {
    Q_OBJECT
public:
    explicit frmVistaPrevia(const TrabajoInforme& trabajo);
    ~frmVistaPrevia() override;

    int paginas() const { return paginas_.cuantas(); }
    int paginaActual() const { return actual_; }
    bool completo() const { return completo_; }
    void irA(int indice);
    void ponerZoom(double zoom);
    double zoom() const { return zoom_; }
    // Lays out what is left in one go (tests and exports that need every page).
    void completar();

    // The whole report to a file; false when it was cancelled or could not be done (after its
    // message).
    bool exportarPdf(const QString& ruta);
    bool exportarCsv(const QString& ruta);
    bool exportarXlsx(const QString& ruta);
    void imprimir();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void construir();
    bool paginarUna();
    bool paginarTramo(int milisegundos);
    void seguir();
    void terminarPaginacion(bool cancelada);
    void refrescar();
    void elegirYExportar(const QString& filtro, const QString& extension);
    bool datosVigentes();
    motor::Progreso progresoEn(const QString& texto);

    TrabajoInforme t_;
    motor::Diseno d_;
    std::unique_ptr<Conexion> conexion_;
    std::unique_ptr<motor::FuenteConsulta> fuente_;
    std::unique_ptr<motor::Paginador> paginador_;
    motor::ArchivoPaginas paginas_;
    QString tabla_;
    quint64 generacion_ = 0;
    int actual_ = 0;
    double zoom_ = 1.0;
    bool completo_ = false;
    bool cancelada_ = false;

    QToolBar* barra_ = nullptr;
    QSpinBox* pagina_ = nullptr;
    QLabel* deTotal_ = nullptr;
    QComboBox* zoomCombo_ = nullptr;
    QScrollArea* desplazable_ = nullptr;
    HojaInforme* hoja_ = nullptr;
    QProgressBar* progreso_ = nullptr;
    QPushButton* detener_ = nullptr;
    QLabel* estado_ = nullptr;
    QTimer* temporizador_ = nullptr;
    QList<QAction*> exportaciones_;
};

// What the report control does with a run: a preview window, or the print dialog and then
// the printer.
void mostrarVistaPrevia(const TrabajoInforme& trabajo);
void imprimirInforme(const TrabajoInforme& trabajo);
