// Runs one report over an existing store without a window, through the same code as its form:
// the criteria, the filling of the temporary table, the formulas, the query and the engine.
//
//   informe CARPETA extracto|diario|sumas|situacion|pyg|libroiva|resumeniva|terceros
//           [criterios] [salidas] [--tiempos]
//
// Criteria: --empresa E (default B), --delegacion D (the session's branch; default the
// company's code), --ejercicio N (default 2026), --delegaciones "B,B2", --diarios "VEN,COM",
// --desde dd/mm/aaaa, --hasta dd/mm/aaaa, --cuenta-desde C, --cuenta-hasta C (the "." rule
// applies), --por-diario (statement), --tipo-documento T, --documento-desde N,
// --documento-hasta N (journal), --niveles 1,2,3,8 and --con-movimientos (trial balance;
// without --niveles only the posting accounts' level, as the form opens), --cantidad N (third
// parties; default 3005.06).
// Tax agency files: terceros --aeat347 F writes the model 347 of the session's company and the
// calendar year its fiscal year begins in (all branches), --telefono T and --contacto C
// instead of the company's; libroiva --libros-aeat F.xlsx (or F.csv, two files) writes the
// VAT record books of the company over --desde/--hasta.
// Outputs: --csv F, --xlsx F, --pdf F, --png-primera F (the first page as a picture), --texto F
// (every page's printed lines as text, the texts of one height joined by " · "), any of
// them. The CSV is the machine format, every column of the temporary table under its name, as
// the checks of a book read it; the XLSX is the preview's, the report's exported columns under
// their printed titles. --tiempos prints, for each step, its seconds and the peak memory of
// the process during it.
//
// The year end of the session's year, through the same classes and checks as its forms:
//   informe CARPETA regularizar --cuenta C [--documento D]   (the "." rule applies to C)
//   informe CARPETA cerrar [--documento-cierre D] [--documento-apertura D]
//   informe CARPETA invertir
// each printing what it posted, or the form's message and a non-zero exit when refused.

#include "data/almacen/programa.h"
#include "data/almacen/sql.h"
#include "data/arranque.h"
#include "data/auxiliar.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "reports/balances.h"
#include "reports/extracto.h"
#include "reports/librodiario.h"
#include "reports/libroiva.h"
#include "reports/librosaeat.h"
#include "reports/modelo347.h"
#include "reports/motor/exportar.h"
#include "reports/motor/fuente.h"
#include "reports/motor/paginador.h"
#include "reports/motor/pintor.h"
#include "reports/sumassaldos.h"
#include "yearend/cierre.h"
#include "yearend/regularizacion.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <cstdio>
#include <functional>
#include <memory>

namespace {

struct Opciones {
    QString carpeta, informe, empresa = QStringLiteral("B"), delegacion;
    int ejercicio = 2026;
    CriteriosExtracto extracto;
    CriteriosLibroDiario diario;
    CriteriosSumas sumas;
    QString niveles;  // "1,2,3,8"
    QString csv, xlsx, pdf, png, texto;
    QString cantidad, aeat347, telefono, contacto, librosAeat;
    QString cuenta, documento, documentoCierre, documentoApertura;
    bool tiempos = false;
};

void uso() {
    std::fputs(
        "Uso: informe CARPETA extracto|diario|sumas|situacion|pyg|libroiva|resumeniva|terceros\n"
        "       [--empresa E]\n"
        "       [--delegacion D] [--ejercicio N]\n"
        "       [--delegaciones L] [--diarios L] [--desde F] [--hasta F]\n"
        "       [--cuenta-desde C] [--cuenta-hasta C] [--por-diario]\n"
        "       [--tipo-documento T] [--documento-desde N] [--documento-hasta N]\n"
        "       [--niveles 1,2,3,8] [--con-movimientos] [--cantidad N]\n"
        "       [--aeat347 F [--telefono T] [--contacto C]] [--libros-aeat F.xlsx|F.csv]\n"
        "       [--csv F] [--xlsx F] [--pdf F] [--png-primera F] [--texto F] [--tiempos]\n"
        "       informe CARPETA regularizar --cuenta C [--documento D]\n"
        "       informe CARPETA cerrar [--documento-cierre D] [--documento-apertura D]\n"
        "       informe CARPETA invertir   [--empresa E] [--ejercicio N] [--tiempos]\n",
        stderr);
}

// Peak resident memory since the last reset, in MB; the reset lets each step be measured
// apart within one process.
void reiniciarPico() {
    QFile f(QStringLiteral("/proc/self/clear_refs"));
    if (f.open(QIODevice::WriteOnly)) f.write("5");
}
double picoMb() {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& l : f.readAll().split('\n'))
        if (l.startsWith("VmHWM:")) return l.mid(6).trimmed().split(' ').value(0).toDouble() / 1024;
    return 0;
}

class Paso {
public:
    Paso(const Opciones& o, const char* nombre) : o_(o), nombre_(nombre) {
        reiniciarPico();
        reloj_.start();
    }
    ~Paso() {
        // Padded by characters, not bytes, so that "página" lines up with the rest.
        if (o_.tiempos)
            std::printf("%s %9.2f s %8.0f MB\n",
                        QString::fromUtf8(nombre_).leftJustified(34).toUtf8().constData(),
                        reloj_.nsecsElapsed() / 1e9, picoMb());
        std::fflush(stdout);
    }

private:
    const Opciones& o_;
    const char* nombre_;
    QElapsedTimer reloj_;
};

bool leer(int argc, char** argv, Opciones& o) {
    if (argc < 3) return false;
    o.carpeta = QString::fromLocal8Bit(argv[1]);
    o.informe = QString::fromLocal8Bit(argv[2]);
    if (!QStringList{QStringLiteral("extracto"), QStringLiteral("diario"), QStringLiteral("sumas"),
                     QStringLiteral("situacion"), QStringLiteral("pyg"), QStringLiteral("libroiva"),
                     QStringLiteral("resumeniva"), QStringLiteral("terceros"),
                     QStringLiteral("regularizar"), QStringLiteral("cerrar"),
                     QStringLiteral("invertir")}
             .contains(o.informe))
        return false;
    for (int i = 3; i < argc; ++i) {
        const QByteArray a = argv[i];
        if (a == "--tiempos") {
            o.tiempos = true;
            continue;
        }
        if (a == "--por-diario") {
            o.extracto.porDiario = true;
            continue;
        }
        if (a == "--con-movimientos") {
            o.sumas.conMovimientos = true;
            continue;
        }
        if (i + 1 >= argc) return false;
        const QString v = QString::fromLocal8Bit(argv[++i]);
        if (a == "--empresa")
            o.empresa = v;
        else if (a == "--delegacion")
            o.delegacion = v;
        else if (a == "--ejercicio")
            o.ejercicio = v.toInt();
        else if (a == "--delegaciones")
            o.extracto.delegaciones = o.diario.delegaciones = v;
        else if (a == "--diarios")
            o.extracto.diarios = o.diario.diarios = v;
        else if (a == "--desde")
            o.extracto.fechaDesde = o.diario.fechaDesde = v;
        else if (a == "--hasta")
            o.extracto.fechaHasta = o.diario.fechaHasta = v;
        else if (a == "--cuenta-desde")
            o.extracto.cuentaDesde = v;
        else if (a == "--cuenta-hasta")
            o.extracto.cuentaHasta = v;
        else if (a == "--tipo-documento")
            o.diario.tipoDocumento = v;
        else if (a == "--documento-desde")
            o.diario.documentoDesde = v;
        else if (a == "--niveles")
            o.niveles = v;
        else if (a == "--documento-hasta")
            o.diario.documentoHasta = v;
        else if (a == "--cantidad")
            o.cantidad = v;
        else if (a == "--aeat347")
            o.aeat347 = v;
        else if (a == "--telefono")
            o.telefono = v;
        else if (a == "--contacto")
            o.contacto = v;
        else if (a == "--libros-aeat")
            o.librosAeat = v;
        else if (a == "--cuenta")
            o.cuenta = v;
        else if (a == "--documento")
            o.documento = v;
        else if (a == "--documento-cierre")
            o.documentoCierre = v;
        else if (a == "--documento-apertura")
            o.documentoApertura = v;
        else if (a == "--csv")
            o.csv = v;
        else if (a == "--xlsx")
            o.xlsx = v;
        else if (a == "--pdf")
            o.pdf = v;
        else if (a == "--png-primera")
            o.png = v;
        else if (a == "--texto")
            o.texto = v;
        else
            return false;
    }
    return true;
}

// The session a login would leave: company, branch, year, its dates and the account length.
void abrirSesion(const Opciones& o) {
    programa::establecerCarpeta(o.carpeta);
    abrirAlmacenes();
    sesion_empresa = o.empresa;
    sesion_delegacion = o.delegacion.isEmpty() ? o.empresa : o.delegacion;
    sesion_ejercicio = o.ejercicio;
    sesion_usuario = QStringLiteral("INFORME");
    const QString empresa = QStringLiteral("codigo_empresa = '%1'").arg(o.empresa);
    sesion_digitos =
        Auxiliar::vBuscarCampo(QStringLiteral("Empresas"), QStringLiteral("digitos"), empresa, 8)
            .toInt();
    const QString ejercicio = empresa + QStringLiteral(" AND ejercicio = %1").arg(o.ejercicio);
    sesion_fecha_inicial = Auxiliar::vBuscarCampo(QStringLiteral("Ejercicios"),
                                                  QStringLiteral("fecha_inicial"), ejercicio)
                               .toString();
    sesion_fecha_final = Auxiliar::vBuscarCampo(QStringLiteral("Ejercicios"),
                                                QStringLiteral("fecha_final"), ejercicio)
                             .toString();
    if (sesion_fecha_inicial.isEmpty())
        throw Error(0, QStringLiteral("No existe el ejercicio %1 de la empresa %2.")
                           .arg(o.ejercicio)
                           .arg(o.empresa));
}

// The printed lines of every page, top to bottom, each the texts of one height joined by
// " · ": the figures a reader checks, without a picture.
void escribirTexto(const motor::Diseno& diseno, const QHash<QString, motor::Valor>& valores,
                   const QString& consulta, const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw Error(0, QStringLiteral("No se puede escribir %1.").arg(ruta));
    motor::FuenteConsulta fuente(*sesion_temporal, consulta);
    motor::Paginador paginador(diseno, valores, fuente);
    motor::Pagina pagina;
    while (paginador.siguiente(pagina)) {
        QMap<int, QStringList> porAltura;
        for (const motor::Trazo& t : pagina.textos) porAltura[qRound(t.caja.y() * 10)] << t.texto;
        for (const QStringList& l : porAltura)
            archivo.write(l.join(QStringLiteral(" · ")).toUtf8() + '\n');
    }
}

// What a run needs of its report: the file, the title, how to fill the table, and the
// formulas and query, asked after the filling (the profit and loss account's formulas are
// the results the filling computes).
struct Ejecucion {
    QString archivo, titulo;
    std::function<qint64()> llenar;
    std::function<QStringList()> formulas;
    QString consulta;
};

Ejecucion preparar(Opciones& o) {
    const CriteriosBalance balance{o.extracto.fechaDesde, o.extracto.fechaHasta};
    if (o.informe == u"extracto")
        return {QStringLiteral("Extracto.rpt"), QStringLiteral("Extractos"),
                [&o] { return llenarExtractos(criterioExtracto(o.extracto)); },
                [&o] { return formulasExtracto(o.extracto); },
                consultaExtracto(o.extracto.porDiario)};
    if (o.informe == u"diario")
        return {QStringLiteral("LibroDiario.rpt"), QStringLiteral("Libro Diario"),
                [&o] { return llenarLibroDiario(criterioLibroDiario(o.diario)); },
                [&o] { return formulasLibroDiario(o.diario); }, consultaLibroDiario()};
    if (o.informe == u"sumas") {
        CriteriosSumas& c = o.sumas;
        c.delegaciones = o.extracto.delegaciones;
        c.diarios = o.extracto.diarios;
        c.cuentaDesde = o.extracto.cuentaDesde;
        c.cuentaHasta = o.extracto.cuentaHasta;
        c.fechaDesde = o.extracto.fechaDesde;
        c.fechaHasta = o.extracto.fechaHasta;
        c.niveles = nivelesIniciales(sesion_digitos);
        if (!o.niveles.isEmpty()) {
            c.niveles = {};
            for (const QString& n : o.niveles.split(u',')) {
                const int nivel = n.trimmed().toInt();
                if (nivel < 1 || nivel > sesion_digitos)
                    throw Error(0, QStringLiteral("Nivel %1 fuera de 1 a %2.")
                                       .arg(n.trimmed())
                                       .arg(sesion_digitos));
                c.niveles[size_t(nivel - 1)] = true;
            }
        }
        return {QStringLiteral("SumasSaldos.rpt"), QStringLiteral("Balance de sumas y saldos"),
                [&c] { return llenarSumasSaldos(c); }, [&c] { return formulasSumas(c); },
                consultaSumas()};
    }
    if (o.informe == u"libroiva" || o.informe == u"resumeniva") {
        const CriteriosLibroIva c{o.extracto.fechaDesde, o.extracto.fechaHasta};
        const bool libro = o.informe == u"libroiva";
        return {libro ? QStringLiteral("LibroIva.rpt") : QStringLiteral("ResumenIva.rpt"),
                libro ? QStringLiteral("Libro de IVA") : QStringLiteral("Resumen de IVA"),
                [c] { return llenarLibroIva(c); }, [c] { return formulasLibroIva(c); },
                libro ? consultaLibroIva() : consultaResumenIva()};
    }
    if (o.informe == u"terceros") {
        const CriteriosTerceros c{o.extracto.fechaDesde, o.extracto.fechaHasta, o.cantidad};
        return {QStringLiteral("OperacionesTerceros.rpt"),
                QStringLiteral("Operaciones con terceros"),
                [c] { return llenarOperacionesTerceros(c); }, [c] { return formulasTerceros(c); },
                consultaTerceros()};
    }
    if (o.informe == u"situacion")
        return {QStringLiteral("BalanceSituacionAbreviado.rpt"),
                QStringLiteral("Balance de situacion abreviado"),
                [balance] { return llenarBalanceSituacion(balance); },
                [balance] { return formulasSituacion(balance); }, consultaSituacion()};
    auto resultados = std::make_shared<ResultadosPyG>();
    return {QStringLiteral("BalancePyGAbreviado.rpt"),
            QStringLiteral("Balance de pérdidas y ganancias abreviado"),
            [balance, resultados] { return llenarBalancePyG(balance, *resultados); },
            [balance, resultados] { return formulasPyG(balance, *resultados); }, consultaPyG()};
}

// The files for the tax agency, through the same code as the forms' buttons; false after the
// reason on the error output.
bool archivosAeat(const Opciones& o) {
    if (!o.aeat347.isEmpty()) {
        Paso p(o, "modelo 347");
        const Declaracion347 d =
            calcular347(*sesion_conexion, sesion_empresa, sesion_fecha_inicial.left(4).toInt(),
                        300506, o.telefono, o.contacto);
        if (!d.faltas.isEmpty()) {
            std::fprintf(stderr, "No se puede generar el modelo 347:\n%s\n",
                         qPrintable(d.faltas.join(u'\n')));
            return false;
        }
        QString error;
        if (!escribir347(d, o.aeat347, error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return false;
        }
        std::printf("Modelo 347: %lld declarados, %s euros\n", qint64(d.declarados.size()),
                    qPrintable(QString::number(double(d.total()) / 100, 'f', 2)));
    }
    if (!o.librosAeat.isEmpty()) {
        Paso p(o, "libros registro AEAT");
        const PeriodoIva periodo = periodoLibroIva({o.extracto.fechaDesde, o.extracto.fechaHasta});
        QString error;
        qint64 filas = 0;
        if (!escribirLibrosAeat(*sesion_conexion, sesion_empresa, periodo.desde, periodo.hasta,
                                o.librosAeat, error, &filas)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return false;
        }
        std::printf("Libros registro: %lld filas\n", filas);
    }
    return true;
}

// A refusal of a year-end form: its message on the error output.
int rechazo(const QString& mensaje) {
    std::fprintf(stderr, "%s\n", qPrintable(mensaje));
    return 1;
}

int cierreEjercicio(const Opciones& o) {
    const qint16 anio = qint16(sesion_ejercicio);
    if (o.informe == u"regularizar") {
        const QString cuenta = ExpandirCuenta(o.cuenta, sesion_digitos);
        if (cuenta.isEmpty()) return rechazo(MensajeError(1000));
        const QString condicion = QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa) +
                                  QStringLiteral(" AND cuenta = ") + sqlTexto(cuenta);
        if (Auxiliar::vBuscarCampo(QStringLiteral("Cuentas"), QStringLiteral("descripcion"),
                                   condicion, QStringLiteral("#"))
                .toString() == u"#")
            return rechazo(QStringLiteral("No existe la cuenta %1.").arg(cuenta));
        if (marcaEjercicio(QStringLiteral("regularizado"), sesion_empresa, anio) == u"S")
            return rechazo(QStringLiteral("El ejercicio ya ha sido regularizado."));
        const QString documento =
            o.documento.isEmpty() ? documentoRegularizacion(anio) : o.documento;
        int lineas = 0;
        {
            Paso p(o, "regularización");
            lineas = Regularizacion::Insert(*sesion_conexion, sesion_empresa, anio, cuenta,
                                            documento, sesion_usuario, false);
        }
        if (lineas == 0) {
            std::printf("Sin saldos en los grupos 6 y 7: no se ha contabilizado nada.\n");
            return 0;
        }
        Recordset rs = Regularizacion::GetList(
            *sesion_conexion,
            QStringLiteral("codigo_empresa = %1 AND codigo_delegacion = %1 AND codigo_documento = "
                           "%2 AND numero_documento = %3 AND cuenta = %4")
                .arg(sqlTexto(sesion_empresa), sqlTexto(documento),
                     sqlTexto(Regularizacion::numero), sqlTexto(cuenta)),
            {});
        double resultado = 0;
        for (; !rs.eof(); rs.moveNext())
            resultado +=
                rs[QStringLiteral("haber")].toDouble() - rs[QStringLiteral("debe")].toDouble();
        std::printf("Asiento de regularización %s %s: %d líneas; resultado en %s: %s\n",
                    qPrintable(documento), qPrintable(Regularizacion::numero), lineas,
                    qPrintable(cuenta), qPrintable(QString::number(resultado, 'f', 2)));
        return 0;
    }
    if (o.informe == u"cerrar") {
        if (marcaEjercicio(QStringLiteral("cerrado"), sesion_empresa, anio) == u"S")
            return rechazo(QStringLiteral("El ejercicio ya ha sido cerrado."));
        if (marcaEjercicio(QStringLiteral("regularizado"), sesion_empresa, anio) != u"S")
            return rechazo(MensajeError(1047));
        const bool habiaSiguiente =
            marcaEjercicio(QStringLiteral("ejercicio"), sesion_empresa, anio + 1) != u"#";
        const QString cierre =
            o.documentoCierre.isEmpty() ? documentoCierre(anio) : o.documentoCierre;
        const QString apertura =
            o.documentoApertura.isEmpty() ? documentoApertura(anio) : o.documentoApertura;
        int cuentas = 0;
        {
            Paso p(o, "cierre y apertura");
            cuentas = Cierre::Insert(*sesion_conexion, sesion_empresa, anio, cierre, apertura,
                                     sesion_usuario, false);
        }
        if (cuentas == 0) {
            std::printf("Sin saldos en los grupos 1 a 5: no se ha contabilizado nada.\n");
            return 0;
        }
        std::printf("Asientos de cierre %s %s y apertura %s %s: %d cuentas cada uno\n",
                    qPrintable(cierre), qPrintable(Cierre::numeroCierre), qPrintable(apertura),
                    qPrintable(Cierre::numeroApertura), cuentas);
        if (!habiaSiguiente) std::printf("Creado el ejercicio %d.\n", anio + 1);
        return 0;
    }
    {
        Paso p(o, "inversión del cierre");
        if (!InvertirCierre(*sesion_conexion, sesion_empresa, anio, sesion_usuario))
            return rechazo(MensajeError(1048));
    }
    std::printf("Invertido el cierre del ejercicio %d: borrados %s, %s y %s.\n", int(anio),
                qPrintable(documentoRegularizacion(anio)), qPrintable(documentoCierre(anio)),
                qPrintable(documentoApertura(anio)));
    return 0;
}

int ejecutar(Opciones& o) {
    abrirSesion(o);
    if (QStringList{QStringLiteral("regularizar"), QStringLiteral("cerrar"),
                    QStringLiteral("invertir")}
            .contains(o.informe))
        return cierreEjercicio(o);
    if (!o.aeat347.isEmpty() && o.informe != u"terceros") {
        std::fputs("--aeat347 va con el informe terceros.\n", stderr);
        return 2;
    }
    if (!o.librosAeat.isEmpty() && o.informe != u"libroiva") {
        std::fputs("--libros-aeat va con el informe libroiva.\n", stderr);
        return 2;
    }
    if (!archivosAeat(o)) return 1;
    o.extracto.cuentaDesde = ExpandirCuenta(o.extracto.cuentaDesde, sesion_digitos);
    o.extracto.cuentaHasta = ExpandirCuenta(o.extracto.cuentaHasta, sesion_digitos);
    const Ejecucion e = preparar(o);
    const QString nombre = QStringLiteral("Reports/") + e.archivo;
    // A store folder made by the generator has no layouts of its own: the built program's.
    QString archivo = programa::ruta(nombre);
    if (!QFile::exists(archivo)) archivo = QStringLiteral(SALDEVA_PROGRAMA "/") + nombre;
    const QString& titulo = e.titulo;
    const QString& consulta = e.consulta;
    const motor::Diseno diseno = motor::leerDiseno(archivo);

    qint64 lineas = 0;
    {
        Paso p(o, "tabla temporal");
        lineas = e.llenar();
    }
    const QStringList formulas = e.formulas();
    const auto valores = motor::leerFormulas(formulas);
    // The journal and the statement refuse an empty selection; the statements print anyway.
    if (lineas == 0 && o.informe != u"sumas") {
        std::fputs("No hay líneas con esos criterios.\n", stderr);
        return 1;
    }
    if (o.informe == u"pyg")
        for (const QString& f : formulas.mid(2)) std::printf("%s\n", qPrintable(f));
    std::printf("Líneas: %lld\n", lineas);
    {
        // What the preview does before it shows: open the query, lay out and paint page one.
        Paso p(o, "primera página");
        motor::FuenteConsulta fuente(*sesion_temporal, consulta);
        motor::Paginador paginador(diseno, valores, fuente);
        motor::Pagina pagina;
        paginador.siguiente(pagina);
        QImage imagen(int(diseno.papel.width() * 4), int(diseno.papel.height() * 4),
                      QImage::Format_RGB32);
        imagen.fill(Qt::white);
        QPainter painter(&imagen);
        motor::Pintor(diseno).pintar(painter, pagina, 4);
        painter.end();
        if (!o.png.isEmpty()) imagen.save(o.png);
    }
    if (!o.texto.isEmpty()) {
        Paso p(o, "texto completo");
        escribirTexto(diseno, valores, consulta, o.texto);
    }
    if (!o.csv.isEmpty()) {
        Paso p(o, "CSV completo");
        motor::FuenteConsulta fuente(*sesion_temporal, consulta);
        motor::exportarCsv(fuente, o.csv);
    }
    if (!o.xlsx.isEmpty()) {
        Paso p(o, "XLSX completo");
        motor::FuenteConsulta fuente(*sesion_temporal, consulta);
        motor::exportarXlsx(diseno, valores, fuente, o.xlsx, titulo);
    }
    if (!o.pdf.isEmpty()) {
        Paso p(o, "PDF completo");
        motor::FuenteConsulta fuente(*sesion_temporal, consulta);
        motor::exportarPdf(diseno, valores, fuente, o.pdf, titulo);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    // Fonts and painting need a GUI application, not a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication aplicacion(argc, argv);
    Opciones o;
    if (!leer(argc, argv, o)) {
        uso();
        return 2;
    }
    try {
        const int r = ejecutar(o);
        cerrarAlmacenes();
        return r;
    } catch (const Error& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.texto()));
        return 1;
    }
}
