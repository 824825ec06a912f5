#include "data/almacen/programa.h"
#include "data/arranque.h"
#include "forms/idioma.h"
#include "forms/msgbox.h"
#include "portfolio/formularios_cartera.h"
#include "posting/formularios_asientos.h"
#include "reports/formularios_informes.h"
#include "session/principal.h"
#include "session/sesion.h"
#include "setup/formularios_empresa.h"
#include "yearend/formularios_cierre.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char* argv[]) {
    QApplication aplicacion(argc, argv);
    QApplication::setApplicationName(tituloAplicacion());
    QApplication::setApplicationVersion(QStringLiteral(SALDEVA_VERSION));
    idioma::instalarEspanol();
    programa::establecerCarpeta(QApplication::applicationDirPath());
    QApplication::setWindowIcon(QIcon(programa::ruta(QStringLiteral("icons16/saldeva.ico"))));
    registrarFormulariosSesion();
    registrarFormulariosEmpresa();
    registrarFormulariosCartera();
    registrarFormulariosAsientos();
    registrarFormulariosInformes();
    registrarFormulariosCierre();
    VentanasPrograma ventanas;
    int resultado = Main(ventanas);
    if (resultado == 0 && principal()) resultado = QApplication::exec();
    cerrarAlmacenes();
    return resultado;
}
