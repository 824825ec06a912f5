// A whole workstation's day, for the benchmark of many workstations on one store: invoices split
// by the entry form's tax grid (VAT and withholding lines with their register rows) that open
// due items from the customer's payment method, collections that close shared pending items,
// plain entries, and deletions of some of its own entries, every one through the entry form's
// saving code and every number drawn from the shared series as the form draws it.
//
// A store that stops answering (a PostgreSQL server restarted, a SQLite file locked past the
// wait) is waited for: the operation is tried again with the same number, as a bookkeeper
// presses F2 again on the entry kept on the screen. When the connection went while the commit
// was on its way, the entry may be stored already; it is looked for before trying again, so
// that nothing is stored twice.
//
// Each stored entry is printed as "+NUMBER" and each deletion as "-NUMBER", so that the count
// afterwards can tell numbers handed out twice from numbers skipped and from those deleted on
// purpose.

#include "grabador_cartera.h"

#include "data/almacen/conexion.h"
#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/entidades/apuntes.h"
#include "data/global.h"
#include "portfolio/seleccion.h"
#include "posting/carteraapunte.h"
#include "posting/catalogo.h"
#include "posting/grabacion.h"
#include "posting/rejillaiva.h"

#include <QDate>
#include <QFile>
#include <QHash>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QThread>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace grabador {

namespace {

const QString kVentas = QStringLiteral("70000001");
const QString kBanco = QStringLiteral("57200001");
const QString kGastos = QStringLiteral("62900001");

// A failure of the store that passes: the server gone or not yet back, another's lock.
bool pasajero(const Error& e) {
    const QString& d = e.descripcion();
    return d.contains(QStringLiteral("servidor de datos")) ||
           d.contains(QStringLiteral("ocupado por otro puesto")) ||
           d.contains(QStringLiteral("conectar"));
}

class Puesto {
public:
    Puesto(Conexion& c, quint32 semilla) : c_(c), azar_(semilla), catalogo_(c, kEmpresa) {}

    void factura();
    void cobro();
    void suelto();
    void borrar();
    void resumen() const {
        std::printf(
            "puesto facturas %d cobros %d sueltos %d borrados %d rechazos %d caidas %d "
            "descartados %d\n",
            facturas_, cobros_, sueltos_, borrados_, rechazos_, caidas_, descartados_);
    }

private:
    // Runs `paso` until the store lets it through.
    template <class F>
    auto insistir(F paso) {
        for (;;) {
            try {
                return paso();
            } catch (const Error& e) {
                if (!pasajero(e)) throw;
                esperar();
            }
        }
    }
    void esperar() {
        ++caidas_;
        QThread::msleep(200);
    }
    QString numero(const char* prefijo, const char* serie) {
        return insistir([&] {
            return QLatin1StringView(prefijo) +
                   SiguienteNumero(kEmpresa, kEjercicio, QLatin1StringView(serie));
        });
    }
    // The lines of that entry in the store.
    int guardadas(const QString& documento, const QString& numero) {
        return insistir([&] {
            return c_
                .open(QStringLiteral("SELECT COUNT(*) FROM Apuntes WHERE codigo_empresa = "
                                     "'B' AND codigo_documento = ") +
                      sqlTexto(documento) + QStringLiteral(" AND numero_documento = ") +
                      sqlTexto(numero))
                .value(0)
                .toInt();
        });
    }
    // Saves the entry, trying again while the store is away. False when the store refused it
    // for good (a due item closed by another workstation first).
    bool grabar(const CabeceraAsiento& cabecera, const LineasAsiento& lineas,
                const std::function<void(Conexion&)>& dependientes) {
        bool perdido = false;  // an attempt whose outcome the lost connection hid
        for (;;) {
            try {
                GrabarAsiento(c_, cabecera, lineas, sesion_usuario, dependientes);
                return true;
            } catch (const EfectoYaCerrado&) {
                if (perdido && guardadas(cabecera.documento, cabecera.numero) > 0) return true;
                return false;
            } catch (const Error& e) {
                if (pasajero(e)) {
                    perdido = true;
                    esperar();
                    continue;
                }
                if (perdido && guardadas(cabecera.documento, cabecera.numero) > 0) return true;
                throw;
            }
        }
    }
    QDate dia() { return QDate(kEjercicio, 1, 1).addDays(azar_.bounded(365)); }
    static QString texto(const QDate& d) { return d.toString(QStringLiteral("dd/MM/yyyy")); }
    static void anotar(char signo, const QString& numero) {
        std::printf("%c%s\n", signo, qPrintable(numero));
        std::fflush(stdout);
    }

    Conexion& c_;
    QRandomGenerator azar_;
    CatalogoAlmacen catalogo_;
    QStringList propios_;  // "FAC/F000012", "AS/A000003": what it may delete
    int facturas_ = 0, cobros_ = 0, sueltos_ = 0, borrados_ = 0, rechazos_ = 0, caidas_ = 0,
        descartados_ = 0;
};

// A sale invoice typed as its gross amount: the grid proposes the customer's VAT and
// withholding and works the base out; the sales line takes what is left.
void Puesto::factura() {
    const QString cuenta =
        QStringLiteral("430001%1").arg(1 + azar_.bounded(12), 2, 10, QChar(u'0'));
    const QDate fechaFactura = dia();
    const QString dia = texto(fechaFactura);
    const double importe = double(10000 + azar_.bounded(300000)) / 100;
    const QString numeroFactura = numero("F", "FAC");
    const QString concepto = QStringLiteral("Factura ") + numeroFactura;
    insistir([&] {
        const std::optional<TerceroCuenta> cliente = catalogo_.tercero(cuenta);
        const std::optional<FormaPago> forma =
            cliente ? catalogo_.formaPago(cliente->formaPago) : std::nullopt;
        if (!forma)
            throw Error(1, QStringLiteral("El cliente %1 no tiene forma de pago.").arg(cuenta));
        RejillaIva rejilla(catalogo_);
        rejilla.Proponer(cliente, QString::number(importe, 'f', 2).replace(u'.', u','));
        LineasAsiento l;
        l.AnadirLinea(0, dia, cuenta, importe, 0, concepto, QStringLiteral("P"));
        rejilla.GenerarLineasIva(l, dia, concepto, QStringLiteral("D"));
        qint64 saldo = 0;
        for (const LineaApunte& x : l.lineas())
            saldo += std::llround(x.debe * 100) - std::llround(x.haber * 100);
        l.AnadirLinea(0, dia, kVentas, 0, double(saldo) / 100, concepto, QStringLiteral("CP"));
        int registros = 0;
        for (const LineaApunte& x : l.lineas())
            if (x.tipo == u"IVA" || x.tipo == u"IRPF") ++registros;
        CarteraAlta alta;
        alta.Proponer(cliente->formaPago, *forma, cliente->primerDia, fechaFactura, importe,
                      QStringLiteral("D"), numeroFactura);
        const CabeceraAsiento cabecera{
            "GEN", "FAC", numeroFactura,
            dia,   dia,   QStringLiteral("L=%1 R=%2").arg(l.cuantas()).arg(registros)};
        grabar(cabecera, l, [&](Conexion& k) {
            rejilla.InsertarRegistros(k, kEmpresa, kEmpresa, QStringLiteral("FAC"), numeroFactura,
                                      cuenta, sesion_usuario);
            alta.InsertarCartera(k, kEmpresa, kEmpresa, QStringLiteral("FAC"), numeroFactura,
                                 cliente, sesion_usuario);
        });
    });
    anotar('+', numeroFactura);
    propios_ << QStringLiteral("FAC/") + numeroFactura;
    ++facturas_;
}

// One to three pending items from the top of the list, where every workstation looks first.
// Refused because another closed one of them first, it selects again with the same number.
void Puesto::cobro() {
    QString numeroCobro;
    for (int intento = 0; intento < 20; ++intento) {
        CarteraGestion gestion;
        insistir([&] {
            gestion.Poner(SeleccionarEfectos(c_, kEmpresa, kEmpresa, QStringLiteral("C"), {}));
        });
        if (gestion.efectos().isEmpty()) break;
        if (numeroCobro.isEmpty()) numeroCobro = numero("C", "COB");
        const CobroPropuesto cobro = proponerCobro(gestion, azar_, numeroCobro);
        const QString& dia = cobro.fecha;
        const LineasAsiento& l = cobro.lineas;
        const CabeceraAsiento cabecera{"GEN", "COB", numeroCobro,
                                       dia,   dia,   QStringLiteral("L=%1").arg(l.cuantas())};
        if (grabar(cabecera, l, [&](Conexion& k) {
                gestion.CerrarEfectos(k, kEmpresa, kEmpresa, dia, QStringLiteral("COB"),
                                      numeroCobro, sesion_usuario);
            })) {
            anotar('+', numeroCobro);
            ++cobros_;
            return;
        }
        ++rechazos_;
    }
    // Nothing left to collect: the entry is abandoned, and its number goes back as the form
    // gives it back. When another workstation has drawn a later one meanwhile it cannot, and
    // the gap is the bookkeeper's own doing, as a deletion's is: it is declared as such.
    if (numeroCobro.isEmpty()) return;
    const bool devuelto = insistir([&] {
        return DevolverNumero(kEmpresa, kEjercicio, QStringLiteral("COB"),
                              numeroCobro.mid(1).toInt());
    });
    if (devuelto) return;
    anotar('~', numeroCobro);
    ++descartados_;
}

// Bank charges: two lines and nothing hanging from them.
void Puesto::suelto() {
    const QString dia = texto(this->dia());
    const double importe = double(100 + azar_.bounded(20000)) / 100;
    const QString numeroAsiento = numero("A", "ASI");
    LineasAsiento l;
    l.AnadirLinea(0, dia, kGastos, importe, 0, QStringLiteral("Comisiones"), QStringLiteral("P"));
    l.AnadirLinea(0, dia, kBanco, 0, importe, QStringLiteral("Comisiones"), QStringLiteral("CP"));
    grabar({"GEN", "AS", numeroAsiento, dia, dia, QStringLiteral("L=2")}, l, {});
    anotar('+', numeroAsiento);
    propios_ << QStringLiteral("AS/") + numeroAsiento;
    ++sueltos_;
}

// One of its own entries. An invoice goes only while none of its items has been collected: the
// check takes the items' rows, so that a collection racing for one of them either waits and
// then finds it gone, or closes it first and keeps the invoice.
void Puesto::borrar() {
    if (propios_.isEmpty()) return;
    const QStringList partes = propios_.takeAt(azar_.bounded(int(propios_.size()))).split(u'/');
    const QString &documento = partes[0], &numeroAsiento = partes[1];
    const QString clave = QStringLiteral(
                              " WHERE codigo_empresa = 'B' AND codigo_delegacion = 'B' "
                              "AND codigo_documento = ") +
                          sqlTexto(documento) + QStringLiteral(" AND numero_documento = ") +
                          sqlTexto(numeroAsiento);
    const bool borrado = insistir([&] {
        if (guardadas(documento, numeroAsiento) == 0) return true;  // gone with a lost commit
        Transaccion t(c_);
        const int pendientes = c_.execute(QStringLiteral("UPDATE Cartera SET estado = 'P'") +
                                          clave + QStringLiteral(" AND estado = 'P'"));
        const int todos =
            c_.open(QStringLiteral("SELECT COUNT(*) FROM Cartera") + clave).value(0).toInt();
        if (pendientes != todos) return false;
        Apuntes::Delete(c_, kEmpresa, kEmpresa, documento, numeroAsiento, 0, true);
        t.commit();
        return true;
    });
    if (!borrado) return;
    anotar('-', numeroAsiento);
    ++borrados_;
}

}  // namespace

void puesto(Conexion& c, int cuantos, quint32 semilla) {
    Puesto p(c, semilla);
    QRandomGenerator azar(semilla ^ 0x5a1de7a);
    for (int i = 0; i < cuantos; ++i) {
        const quint32 dado = azar.bounded(100);
        if (dado < 45)
            p.factura();
        else if (dado < 75)
            p.cobro();
        else if (dado < 90)
            p.suelto();
        else
            p.borrar();
    }
    p.resumen();
}

void contarPuestos(Conexion& c, const QString& archivoBorrados) {
    QSet<QString> borrados;
    QFile f(archivoBorrados);
    if (f.open(QIODevice::ReadOnly))
        for (const QByteArray& linea : f.readAll().split('\n'))
            if (!linea.trimmed().isEmpty()) borrados.insert(QString::fromLatin1(linea.trimmed()));

    // Numbers of each series that are neither in the journal nor deleted on purpose.
    int saltados = 0;
    for (const auto& [serie, documento, prefijo] :
         {std::tuple{"FAC", "FAC", "F"}, {"COB", "COB", "C"}, {"ASI", "AS", "A"}}) {
        QSet<QString> presentes;
        for (Recordset rs = c.open(QStringLiteral("SELECT DISTINCT numero_documento FROM Apuntes "
                                                  "WHERE codigo_empresa = 'B' AND "
                                                  "codigo_documento = '") +
                                   QLatin1StringView(documento) + u'\'');
             !rs.eof(); rs.moveNext())
            presentes.insert(rs.value(0).toString());
        Recordset s = c.open(QStringLiteral("SELECT numero, longitud FROM Numeraciones WHERE "
                                            "codigo_empresa = 'B' AND numeracion = '") +
                             QLatin1StringView(serie) + u'\'');
        const int siguiente = s.value(0).toInt(), longitud = s.value(1).toInt();
        for (int n = 1; n < siguiente; ++n) {
            const QString numero =
                QLatin1StringView(prefijo) + QString::number(n).rightJustified(longitud, u'0');
            if (!presentes.contains(numero) && !borrados.contains(numero)) {
                ++saltados;
                std::fprintf(stderr, "Número saltado: %s\n", qPrintable(numero));
            }
        }
    }

    // Invoices whose reference names more register rows than the store holds for them.
    int sinRegistro = 0;
    const QRegularExpression registros(QStringLiteral("R=(\\d+)"));
    for (Recordset rs = c.open(QStringLiteral(
             "SELECT a.numero_documento, a.referencia, (SELECT COUNT(*) FROM RegistroIva r WHERE "
             "r.codigo_empresa = a.codigo_empresa AND r.codigo_delegacion = a.codigo_delegacion "
             "AND r.codigo_documento = a.codigo_documento AND r.numero_documento = "
             "a.numero_documento) + (SELECT COUNT(*) FROM RegistroIrpf r WHERE r.codigo_empresa "
             "= a.codigo_empresa AND r.codigo_delegacion = a.codigo_delegacion AND "
             "r.codigo_documento = a.codigo_documento AND r.numero_documento = "
             "a.numero_documento) FROM Apuntes a WHERE a.codigo_empresa = 'B' AND "
             "a.codigo_documento = 'FAC' AND a.numero_apunte = 1"));
         !rs.eof(); rs.moveNext()) {
        const auto m = registros.match(rs.value(1).toString());
        if (m.hasMatch() && m.captured(1).toInt() != rs.value(2).toInt()) ++sinRegistro;
    }

    // Register rows whose line is missing or of another kind.
    int huerfanos = 0;
    for (const auto& [tabla, tipo] : {std::pair{"RegistroIva", "IVA"}, {"RegistroIrpf", "IRPF"}})
        huerfanos +=
            c.open(QStringLiteral("SELECT COUNT(*) FROM ") + QLatin1StringView(tabla) +
                   QStringLiteral(
                       " r WHERE r.codigo_empresa = 'B' AND NOT EXISTS (SELECT 1 FROM Apuntes a "
                       "WHERE a.codigo_empresa = r.codigo_empresa AND a.codigo_delegacion = "
                       "r.codigo_delegacion AND a.codigo_documento = r.codigo_documento AND "
                       "a.numero_documento = r.numero_documento AND a.numero_apunte = "
                       "r.numero_apunte AND a.tipo = '") +
                   QLatin1StringView(tipo) + QStringLiteral("')"))
                .value(0)
                .toInt();
    std::printf("saltados %d sin_registro %d registros_sin_linea %d\n", saltados, sinRegistro,
                huerfanos);
}

}  // namespace grabador
