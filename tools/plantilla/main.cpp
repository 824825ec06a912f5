// Builds the template store (sysMenus, sysPlanContable, sysSituacion, sysPergan) from the text
// sources kept in the repository. Run by the build; refuses sources that break the rules the
// program relies on, so that a mistake stops the build instead of reaching a company.
//
//   saldeva-plantilla SALIDA.db CARPETA_FUENTES

#include "fuentes.h"

#include "data/almacen/conexion.h"
#include "data/entidades/entidad.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cstdio>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 3) {
        std::fprintf(stderr, "uso: saldeva-plantilla SALIDA.db CARPETA_FUENTES\n");
        return 2;
    }
    const QString salida = QDir(args[1]).absolutePath();
    const QString fuentes = args[2];
    try {
        const Plantilla plantilla = leerPlantilla(fuentes);
        if (const QStringList problemas = problemasDeLosEstados(plantilla); !problemas.isEmpty())
            throw Error(1, problemas.join(u'\n'));
        escribirPlantilla(plantilla, salida);
        std::printf(
            "plantilla: %lld menús, %lld cuentas, %lld líneas de balance, %lld de pérdidas y "
            "ganancias\n",
            qlonglong(plantilla.menus.size()), qlonglong(plantilla.plan.size()),
            qlonglong(plantilla.situacion.size()), qlonglong(plantilla.pergan.size()));
        return 0;
    } catch (const Error& e) {
        std::fprintf(stderr, "saldeva-plantilla: %s\n", qPrintable(e.descripcion()));
        return 1;
    }
}
