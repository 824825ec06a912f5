#pragma once

#include "forms/formulario.h"

class QLabel;
class QPushButton;

// "Acerca de Saldeva": title, version and description of the program.
class frmAbout : public Formulario {
    Q_OBJECT
public:
    frmAbout();
    QLabel* lblVersion() const { return version_; }
    QPushButton* cmdSysInfo() const { return sysInfo_; }

private:
    QLabel* version_;
    QPushButton* sysInfo_;
};
