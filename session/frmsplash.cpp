#include "frmsplash.h"

#include "forms/msgbox.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>
#include <QVersionNumber>

QString versionAplicacion() {
    const QVersionNumber v = QVersionNumber::fromString(QApplication::applicationVersion());
    return QStringLiteral("%1.%2.%3")
        .arg(v.majorVersion())
        .arg(v.minorVersion())
        .arg(v.microVersion());
}

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmSplash"));
    auto* marco = new QFrame(this);
    marco->setFrameShape(QFrame::Box);
    auto* columna = new QVBoxLayout(marco);
    producto_ = new QLabel(tituloAplicacion(), marco);
    producto_->setObjectName(QStringLiteral("lblProductName"));
    QFont grande = producto_->font();
    grande.setPointSize(grande.pointSize() * 2);
    grande.setBold(true);
    producto_->setFont(grande);
    version_ = new QLabel(QStringLiteral("Version ") + versionAplicacion(), marco);
    version_->setObjectName(QStringLiteral("lblVersion"));
    auto* organizacion =
        new QLabel(QStringLiteral("Contabilidad para la pequeña y mediana empresa"), marco);
    columna->addWidget(producto_);
    columna->addWidget(organizacion);
    columna->addStretch();
    columna->addWidget(version_, 0, Qt::AlignRight);
    auto* fuera = new QVBoxLayout(this);
    fuera->setContentsMargins(0, 0, 0, 0);
    fuera->addWidget(marco);
    resize(420, 200);
}
