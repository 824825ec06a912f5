#pragma once

#include <QWidget>

class QLabel;

// The window shown while the main window and the menu load.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    frmSplash();
    QLabel* lblVersion() const { return version_; }
    QLabel* lblProductName() const { return producto_; }

private:
    QLabel* version_;
    QLabel* producto_;
};

// "1.2.3" from the application's version, as the splash and the about box show it.
QString versionAplicacion();
