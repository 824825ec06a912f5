// A workstation posting entries through the entry form's own saving code, for the tests and
// the benchmarks of whole-or-nothing saves, of numbers handed out once and of due items closed
// once.
//
//   grabador preparar CARPETA           the company B, its year, series, documents, journal
//                                       and accounts, a payment method and customers, in the
//                                       main store of the folder
//   grabador grabar CARPETA CUANTOS [SEMILLA]
//                                       posts so many entries, each with a new number of the
//                                       series, printing each number once it is stored
//   grabador facturar CARPETA CUANTAS [SEMILLA]
//                                       posts so many sale invoices with their due items
//   grabador cobrar CARPETA CUANTOS [SEMILLA]
//                                       posts up to so many collections of pending items, then
//                                       prints "cobros N efectos E rechazos R"
//   grabador puesto CARPETA CUANTOS [SEMILLA]
//                                       a workstation's mix of invoices with VAT and
//                                       withholding, collections, plain entries and deletions
//                                       of its own, printing "+NUMBER" for each entry stored
//                                       and "-NUMBER" for each deleted (grabador_puesto.cpp)
//   grabador contar CARPETA [BORRADOS]  prints "asientos N parciales P": an entry is partial
//                                       when it lacks lines or does not balance; and, when the
//                                       store holds due items, a second line with their count
//                                       (see grabador_cartera.cpp); with the file of the
//                                       numbers deleted on purpose, a third line with the
//                                       numbers skipped and the register rows missing
//                                       (see grabador_puesto.cpp)
//
// Each entry notes its number of lines in its reference ("L=5"), so that a partial one shows.

#include "data/almacen/programa.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/diarios.h"
#include "data/entidades/documentos.h"
#include "data/entidades/ejercicios.h"
#include "data/entidades/numeracion.h"
#include "data/global.h"
#include "grabador_cartera.h"
#include "posting/grabacion.h"

#include <QCoreApplication>
#include <QDate>
#include <QRandomGenerator>
#include <cmath>
#include <cstdio>

namespace {

using grabador::kEjercicio;
using grabador::kEmpresa;
const QStringList kCuentas{"43000001", "57200001", "70000001", "47700001", "62900001", "40000001"};

void preparar(Conexion& c) {
    c.asegurarEsquema(esquema::Almacen::Principal);
    Ejercicios::Insert(c, kEmpresa, kEjercicio, "01/01/2026", "31/12/2026", "", "", "N", "N",
                       "GRABADOR", false);
    numeracion::Insert(c, kEmpresa, kEjercicio, "ASI", 6, 1, "Asientos", "GRABADOR");
    Documentos::Insert(c, kEmpresa, "AS", "Asiento", "D", "N", "N", "ASI", "A", "GRABADOR");
    Diarios::Insert(c, kEmpresa, "GEN", "General", "GRABADOR");
    for (const QString& cuenta : kCuentas)
        cuentas::Insert(c, kEmpresa, cuenta, "Cuenta " + cuenta, "S", 8, "GRABADOR");
    grabador::prepararCartera(c);
}

// An entry of two to eight lines in cents, balanced, its last line the counterpart.
LineasAsiento asiento(QRandomGenerator& azar, const QString& fecha) {
    LineasAsiento lineas;
    const int cuantas = 2 + int(azar.bounded(7));
    qint64 centimos = 0;
    for (int i = 1; i < cuantas; ++i) {
        const qint64 importe = 1 + azar.bounded(500000);
        centimos += importe;
        lineas.AnadirLinea(0, fecha, kCuentas[int(azar.bounded(kCuentas.size()))], importe / 100.0,
                           0, QStringLiteral("Línea %1").arg(i),
                           i == 1 ? QStringLiteral("P") : QStringLiteral("CP"));
    }
    lineas.AnadirLinea(0, fecha, kCuentas[1], 0, centimos / 100.0, QStringLiteral("Cobro"),
                       QStringLiteral("CP"));
    return lineas;
}

void grabar(Conexion& c, int cuantos, quint32 semilla) {
    QRandomGenerator azar(semilla);
    for (int i = 0; i < cuantos; ++i) {
        const QString fecha =
            QDate(kEjercicio, 1, 1).addDays(azar.bounded(365)).toString("dd/MM/yyyy");
        const LineasAsiento lineas = asiento(azar, fecha);
        const CabeceraAsiento cabecera{
            "GEN", "AS",  "A" + SiguienteNumero(kEmpresa, kEjercicio, "ASI"),
            fecha, fecha, QStringLiteral("L=%1").arg(lineas.cuantas())};
        GrabarAsiento(c, cabecera, lineas, sesion_usuario);
        std::printf("%s\n", qPrintable(cabecera.numero));
        std::fflush(stdout);
    }
}

void contar(Conexion& c, const QString& borrados) {
    Recordset rs = Auxiliar::GetListExt(
        c, "Apuntes",
        "codigo_documento, numero_documento, referencia, COUNT(*) AS lineas, SUM(debe) AS debe, "
        "SUM(haber) AS haber",
        "codigo_empresa = 'B'", "codigo_documento, numero_documento, referencia", {},
        "codigo_documento, numero_documento");
    int asientos = 0, parciales = 0;
    for (; !rs.eof(); rs.moveNext()) {
        ++asientos;
        const bool completo =
            NzTexto(rs["referencia"]).section(u' ', 0, 0) ==
                QStringLiteral("L=%1").arg(rs["lineas"].toInt()) &&
            std::llround(rs["debe"].toDouble() * 100) == std::llround(rs["haber"].toDouble() * 100);
        if (!completo) ++parciales;
    }
    std::printf("asientos %d parciales %d\n", asientos, parciales);
    grabador::contarCartera(c);
    if (!borrados.isEmpty()) grabador::contarPuestos(c, borrados);
}

}  // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() < 3) {
        std::fprintf(stderr,
                     "uso: grabador preparar|grabar|facturar|cobrar|puesto|contar CARPETA "
                     "[CUANTOS [SEMILLA]]\n");
        return 2;
    }
    programa::establecerCarpeta(a[2]);
    try {
        sesion_conexion = std::make_unique<Conexion>(QStringLiteral("File name=Saldeva.udl"));
        sesion_usuario = QStringLiteral("PUESTO%1").arg(QCoreApplication::applicationPid());
        sesion_empresa = sesion_delegacion = kEmpresa;
        sesion_ejercicio = kEjercicio;
        const int cuantos = a.value(3).toInt();
        const quint32 semilla =
            a.size() > 4 ? a[4].toUInt() : quint32(QCoreApplication::applicationPid());
        if (a[1] == u"preparar")
            preparar(*sesion_conexion);
        else if (a[1] == u"grabar")
            grabar(*sesion_conexion, cuantos, semilla);
        else if (a[1] == u"facturar")
            grabador::facturar(*sesion_conexion, cuantos, semilla);
        else if (a[1] == u"cobrar")
            grabador::cobrar(*sesion_conexion, cuantos, semilla);
        else if (a[1] == u"puesto")
            grabador::puesto(*sesion_conexion, cuantos, semilla);
        else if (a[1] == u"contar")
            contar(*sesion_conexion, a.value(3));
        else
            return 2;
    } catch (const Error& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.texto()));
        return 1;
    }
    sesion_conexion.reset();
    Auxiliar::cerrarConexiones();
    return 0;
}
