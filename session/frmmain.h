#pragma once

#include <QList>
#include <QMainWindow>

class QLabel;
class QMdiArea;
class QPushButton;

// The application's window: every form opens inside its MDI area. Two buttons (change of
// company or year, and leaving) and a status bar of ten panels: state, workstation, company,
// branch, year, date, time and the keyboard's MAYÚS, NÚM and INS.
//
// Closing the window unloads every form (each writes its geometry), closes the stores and
// writes its own geometry. Salir ends the run without any of that.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override;

    QMdiArea* area() const { return area_; }
    QPushButton* cmdReiniciar() const { return reiniciar_; }
    QPushButton* cmdSalir() const { return salir_; }
    // Panels from 1, as the status bar numbers them.
    QLabel* panel(int n) const { return paneles_.at(n - 1); }
    // Panels 2 to 5: workstation, company, branch and year of the session.
    void rellenarEstado();

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    void actualizarReloj();

    QMdiArea* area_;
    QPushButton* reiniciar_;
    QPushButton* salir_;
    QList<QLabel*> paneles_;
};
