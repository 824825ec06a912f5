// A workstation drawing numbers: opens the main store of a program folder and asks a series
// for so many numbers, printing each one on its own line.
//
//   numerador CARPETA EMPRESA EJERCICIO SERIE CUANTOS

#include "data/almacen/programa.h"
#include "data/arranque.h"
#include "data/global.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() != 6) return 2;
    programa::establecerCarpeta(a[1]);
    try {
        sesion_conexion = std::make_unique<Conexion>(QStringLiteral("File name=Saldeva.udl"));
        sesion_usuario = QStringLiteral("PUESTO%1").arg(QCoreApplication::applicationPid());
        for (int i = 0; i < a[5].toInt(); ++i) {
            std::printf("%s\n", qPrintable(SiguienteNumero(a[2], a[3].toInt(), a[4])));
            std::fflush(stdout);
        }
    } catch (const Error& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.texto()));
        return 1;
    }
    cerrarAlmacenes();
    return 0;
}
