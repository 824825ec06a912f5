#include "frmabout.h"

#include "forms/msgbox.h"
#include "frmsplash.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

frmAbout::frmAbout() : Formulario(QStringLiteral("frmAbout"), QStringLiteral("Acerca de Saldeva")) {
    auto* rejilla = new QGridLayout(this);
    auto* icono = new QLabel(this);
    icono->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(32, 32));
    auto* titulo = new QLabel(tituloAplicacion(), this);
    titulo->setObjectName(QStringLiteral("lblTitle"));
    QFont grande = titulo->font();
    grande.setPointSize(grande.pointSize() + 4);
    grande.setBold(true);
    titulo->setFont(grande);
    version_ = new QLabel(QStringLiteral("Versión ") + versionAplicacion(), this);
    version_->setObjectName(QStringLiteral("lblVersion"));
    auto* descripcion =
        new QLabel(QStringLiteral("Saldeva práctica para la pequeña y mediana empresa"), this);
    descripcion->setObjectName(QStringLiteral("lblDescription"));
    auto* aviso = new QLabel(
        QStringLiteral("Este programa se entrega tal cual, sin garantía de ninguna clase. Revise "
                       "los libros y declaraciones que obtenga antes de presentarlos."),
        this);
    aviso->setWordWrap(true);
    auto* ok = new QPushButton(QStringLiteral("Aceptar"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    sysInfo_ = new QPushButton(QStringLiteral("&Info. del sistema..."), this);
    sysInfo_->setObjectName(QStringLiteral("cmdSysInfo"));
    rejilla->addWidget(icono, 0, 0, 2, 1, Qt::AlignTop);
    rejilla->addWidget(titulo, 0, 1);
    rejilla->addWidget(version_, 1, 1);
    rejilla->addWidget(descripcion, 2, 1);
    rejilla->addWidget(aviso, 3, 1);
    rejilla->addWidget(ok, 0, 2);
    rejilla->addWidget(sysInfo_, 1, 2);
    rejilla->setRowStretch(3, 1);
    connect(ok, &QPushButton::clicked, this, [this] { descargar(); });
    // There is no system-information tool to start on this platform.
    connect(sysInfo_, &QPushButton::clicked, this, [] {
        MsgBox(QStringLiteral("La información del sistema no está disponible en este momento"),
               Icono::Informacion);
    });
    setFocusProxy(ok);
    tamanoInicial(480, 220);
}
