// Writes a fiscal year of a small trading firm into the main store of a program folder, through
// the entity classes, and the same postings as a ledger-cli journal: a large, plausible store
// for timing the reports, and a second program's view of the same books to compare with.
//
//   generador CARPETA LINEAS [--semilla S] [--ledger FICHERO]
//
// A folder without Saldeva.udl receives SQLite stores in Dades/; one with it is used as it is
// (it may name a PostgreSQL database). The company B, "Comercial Bench, S.L.", is written anew:
// three branches, the year 2026, journals, documents and series, VAT types, payment methods,
// the chart and some 450 customers, suppliers and creditors. Then the year is posted day by day
// until about LINEAS lines: sales and purchase invoices with their VAT register rows and due
// dates; the collections and payments that close those due dates; rents, payroll, social
// security, withholdings and the quarterly VAT return; bank charges, transfers and cash
// deposits. Every day has some trade, so that a year holds some 2,800 lines however few are
// asked for. Amounts are whole cents and every entry balances; the same seed always gives the
// same year. Only the posting is timed.
//
// Entries are saved by the entry form's own saving code, five hundred to a transaction. An
// invoice's due dates are those its third party's payment method (and payment day) proposes,
// stored with the invoice; a collection or payment closes its due date as the portfolio tab
// does, a "GC" line on the third party's account and the item closed with the entry.
//
// The new company copies its chart and statement layouts from the template store named by
// Sistema.udl; a folder without one gets it built from the repository's sources, as the build
// does for the program's own folder.

#include "data/almacen/programa.h"
#include "data/auxiliar.h"
#include "data/entidades/acrdeu.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/delegaciones.h"
#include "data/entidades/diarios.h"
#include "data/entidades/documentos.h"
#include "data/entidades/ejercicios.h"
#include "data/entidades/empresas.h"
#include "data/entidades/formaspago.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/irpf.h"
#include "data/entidades/numeracion.h"
#include "data/entidades/personal.h"
#include "data/entidades/registroiva.h"
#include "data/formato.h"
#include "data/global.h"
#include "fuentes.h"
#include "posting/carteraapunte.h"
#include "posting/catalogo.h"
#include "posting/grabacion.h"
#include "posting/lineas.h"
#include "posting/rejillaiva.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QRandomGenerator>
#include <QSet>
#include <cmath>
#include <cstdio>
#include <functional>
#include <optional>
#include <queue>
#include <vector>

namespace {

QString u(const char* texto) {
    return QString::fromUtf8(texto);
}

const QString kEmpresa = QStringLiteral("B");
const QString kUsuario = QStringLiteral("GENERADOR");
constexpr int kEjercicio = 2026;
constexpr int kDigitos = 8;
// Entries per transaction: a failure loses little, and the commits cost nothing to speak of.
constexpr int kAsientosPorLote = 500;

void uso() {
    std::fprintf(
        stderr,
        "uso: generador CARPETA LINEAS [--semilla S] [--ledger FICHERO]\n"
        "  CARPETA           carpeta del programa; si no tiene Saldeva.udl se crea con\n"
        "                    almacenes SQLite en Dades/\n"
        "  LINEAS            número aproximado de apuntes del ejercicio 2026\n"
        "  --semilla S       semilla del azar (2026 si no se indica): la misma semilla da\n"
        "                    el mismo ejercicio\n"
        "  --ledger FICHERO  escribe además los asientos como diario de ledger-cli\n");
}

// ---------------------------------------------------------------------------------------------
// The firm

struct DatosDelegacion {
    const char* codigo;
    const char* nombre;
    const char* direccion;
    const char* cp;
    const char* poblacion;
    const char* provincia;
    const char* telefono;
    int peso;  // share of the trade, per cent
    int empleados;
    qint64 sueldo;    // gross monthly pay of one employee, cents
    qint64 alquiler;  // monthly rent before VAT, cents
};

const DatosDelegacion kDelegaciones[] = {
    {"B", "Comercial Bench, S.L.", "Calle de Alcalá, 214", "28028", "Madrid", "Madrid", "914021536",
     50, 9, 195000, 240000},
    {"B2", "Comercial Bench, S.L. Delegación Zaragoza", "Avenida de Cataluña, 93", "50014",
     "Zaragoza", "Zaragoza", "976473020", 30, 5, 178000, 150000},
    {"B3", "Comercial Bench, S.L. Delegación Sevilla", "Calle Astronomía, 1", "41015", "Sevilla",
     "Sevilla", "954251177", 20, 4, 172000, 120000},
};
constexpr int kNumDelegaciones = int(std::size(kDelegaciones));

struct DatosCuenta {
    const char* cuenta;
    const char* titulo;
};

// The headings above the posting accounts used; the template's chart has them all, and they
// are added only when a chart lacks one.
const DatosCuenta kEpigrafes[] = {
    {"4", "Acreedores y deudores por operaciones comerciales"},
    {"40", "Proveedores"},
    {"400", "Proveedores"},
    {"41", "Acreedores varios"},
    {"410", "Acreedores por prestaciones de servicios"},
    {"43", "Clientes"},
    {"430", "Clientes"},
    {"46", "Personal"},
    {"465", "Remuneraciones pendientes de pago"},
    {"47", "Administraciones públicas"},
    {"470", "Hacienda Pública, deudora por diversos conceptos"},
    {"472", "Hacienda Pública, IVA soportado"},
    {"475", "Hacienda Pública, acreedora por conceptos fiscales"},
    {"476", "Organismos de la Seguridad Social, acreedores"},
    {"477", "Hacienda Pública, IVA repercutido"},
    {"5", "Cuentas financieras"},
    {"57", "Tesorería"},
    {"570", "Caja, euros"},
    {"572", "Bancos e instituciones de crédito c/c vista, euros"},
    {"6", "Compras y gastos"},
    {"60", "Compras"},
    {"600", "Compras de mercaderías"},
    {"62", "Servicios exteriores"},
    {"621", "Arrendamientos y cánones"},
    {"622", "Reparaciones y conservación"},
    {"623", "Servicios de profesionales independientes"},
    {"624", "Transportes"},
    {"626", "Servicios bancarios y similares"},
    {"627", "Publicidad, propaganda y relaciones públicas"},
    {"628", "Suministros"},
    {"629", "Otros servicios"},
    {"64", "Gastos de personal"},
    {"640", "Sueldos y salarios"},
    {"642", "Seguridad Social a cargo de la empresa"},
    {"7", "Ventas e ingresos"},
    {"70", "Ventas de mercaderías, de producción propia, de servicios, etc."},
    {"700", "Ventas de mercaderías"},
    {"705", "Prestaciones de servicios"},
};

const QString kVentas = QStringLiteral("70000000");
const QString kServicios = QStringLiteral("70500000");
const QString kServiciosBancarios = QStringLiteral("62600000");
const QString kSueldos = QStringLiteral("64000000");
const QString kSeguridadSocialEmpresa = QStringLiteral("64200000");
const QString kRemuneraciones = QStringLiteral("46500000");
const QString kHaciendaDeudoraIva = QStringLiteral("47000000");
const QString kHaciendaAcreedoraIva = QStringLiteral("47500000");
const QString kRetenciones = QStringLiteral("47510000");
const QString kSeguridadSocial = QStringLiteral("47600000");
const QString kCaja = QStringLiteral("57000000");
const QString kBancos[] = {QStringLiteral("57200001"), QStringLiteral("57200002")};
const char* const kNombresBancos[] = {"Banco Sabadell", "CaixaBank"};

// The firm's own posting accounts; those of its third parties come with them.
const DatosCuenta kCuentasPases[] = {
    {"70000000", "Ventas de mercaderías"},
    {"70500000", "Prestaciones de servicios"},
    {"60000000", "Compras de mercaderías"},
    {"62100000", "Arrendamientos y cánones"},
    {"62200000", "Reparaciones y conservación"},
    {"62300000", "Servicios de profesionales independientes"},
    {"62400000", "Transportes"},
    {"62600000", "Servicios bancarios y similares"},
    {"62700000", "Publicidad, propaganda y relaciones públicas"},
    {"62800000", "Suministros"},
    {"62900000", "Otros servicios"},
    {"64000000", "Sueldos y salarios"},
    {"64200000", "Seguridad Social a cargo de la empresa"},
    {"46500000", "Remuneraciones pendientes de pago"},
    {"47000000", "Hacienda Pública, deudora por IVA"},
    {"47200021", "Hacienda Pública, IVA soportado 21 %"},
    {"47200010", "Hacienda Pública, IVA soportado 10 %"},
    {"47200004", "Hacienda Pública, IVA soportado 4 %"},
    {"47500000", "Hacienda Pública, acreedora por IVA"},
    {"47510000", "Hacienda Pública, acreedora por retenciones practicadas"},
    {"47600000", "Organismos de la Seguridad Social, acreedores"},
    {"47700021", "Hacienda Pública, IVA repercutido 21 %"},
    {"47700010", "Hacienda Pública, IVA repercutido 10 %"},
    {"47700004", "Hacienda Pública, IVA repercutido 4 %"},
    {"57000000", "Caja, euros"},
    {"57200001", "Banco Sabadell, c/c"},
    {"57200002", "CaixaBank, c/c"},
};

struct DatosIva {
    const char* codigo;
    const char* cuenta;
    int pct;
    const char* descripcion;
    const char* tipo;  // V sales, C purchases
};

const DatosIva kTiposIva[] = {
    {"V21", "47700021", 21, "IVA repercutido 21 %", "V"},
    {"V10", "47700010", 10, "IVA repercutido 10 %", "V"},
    {"V4", "47700004", 4, "IVA repercutido 4 %", "V"},
    {"C21", "47200021", 21, "IVA soportado 21 %", "C"},
    {"C10", "47200010", 10, "IVA soportado 10 %", "C"},
    {"C4", "47200004", 4, "IVA soportado 4 %", "C"},
};
enum { V21, V10, V4, C21, C10, C4 };

struct DatosFormaPago {
    const char* codigo;
    const char* descripcion;
    int plazos;
    int dias[3];
    int centesimas[3];  // share of each due date, hundredths of a per cent
};

const DatosFormaPago kFormasPago[] = {
    {"CON", "Contado", 1, {0, 0, 0}, {10000, 0, 0}},
    {"30", "A 30 días", 1, {30, 0, 0}, {10000, 0, 0}},
    {"30-60", "A 30 y 60 días", 2, {30, 60, 0}, {5000, 5000, 0}},
    {"30-60-90", "A 30, 60 y 90 días", 3, {30, 60, 90}, {3333, 3333, 3334}},
};
enum { kContado, k30, k3060, k306090 };

struct DatosDocumento {
    const char* codigo;
    const char* descripcion;
    const char* partida;
    const char* iva;
    const char* cartera;  // A opens due dates, C and P close collections and payments
    const char* serie;
};

const DatosDocumento kDocumentos[] = {
    {"FAC", "Factura emitida", "D", "S", "A", "Facturas emitidas"},
    {"FRC", "Factura recibida", "H", "S", "A", "Facturas recibidas"},
    {"COB", "Cobro", "D", "N", "C", "Cobros"},
    {"PAG", "Pago", "H", "N", "P", "Pagos"},
    {"NOM", "Nómina", "D", "N", "N", "Nóminas"},
    {"AS", "Asiento de tesorería o general", "D", "N", "N", "Asientos"},
};
enum Documento { FAC, FRC, COB, PAG, NOM, AS };

const DatosCuenta kDiarios[] = {
    {"VEN", "Ventas"},  {"COM", "Compras"}, {"TES", "Tesorería"},
    {"NOM", "Nóminas"}, {"GEN", "General"},
};

const char* const kMeses[] = {"enero",      "febrero", "marzo",     "abril",
                              "mayo",       "junio",   "julio",     "agosto",
                              "septiembre", "octubre", "noviembre", "diciembre"};

// ---------------------------------------------------------------------------------------------
// Third parties

struct Actividad {
    const char* nombre;
    int iva;  // its usual VAT type
    const char* contrapartida;
    int minimo, maximo;     // an invoice's base, euros (suppliers and creditors)
    const char* irpf = "";  // the withholding its invoices carry
};

// Professionals' fees and rents carry a withholding, paid with the quarter's model 111.
struct DatosIrpf {
    const char* codigo;
    int pct;
    const char* descripcion;
};
const DatosIrpf kRetencionesIrpf[] = {{"P15", 15, "Actividades profesionales 15 %"},
                                      {"A19", 19, "Arrendamientos 19 %"}};

const Actividad kActividadesClientes[] = {
    {"Comercial", V21, "70000000", 0, 0},      {"Distribuciones", V21, "70000000", 0, 0},
    {"Ferretería", V21, "70000000", 0, 0},     {"Talleres", V21, "70500000", 0, 0},
    {"Construcciones", V21, "70000000", 0, 0}, {"Instalaciones", V21, "70500000", 0, 0},
    {"Electricidad", V21, "70000000", 0, 0},   {"Muebles", V21, "70000000", 0, 0},
    {"Reformas", V21, "70500000", 0, 0},       {"Informática", V21, "70500000", 0, 0},
    {"Suministros", V21, "70000000", 0, 0},    {"Almacenes", V21, "70000000", 0, 0},
    {"Restaurante", V10, "70000000", 0, 0},    {"Hotel", V10, "70000000", 0, 0},
    {"Cafetería", V10, "70000000", 0, 0},      {"Frutas", V10, "70000000", 0, 0},
    {"Librería", V4, "70000000", 0, 0},        {"Panadería", V4, "70000000", 0, 0},
};

const Actividad kActividadesProveedores[] = {
    {"Industrias", C21, "60000000", 150, 10000},  {"Importaciones", C21, "60000000", 200, 12000},
    {"Mayoristas", C21, "60000000", 100, 6000},   {"Fabricados", C21, "60000000", 150, 8000},
    {"Metalúrgica", C21, "60000000", 200, 10000}, {"Plásticos", C21, "60000000", 80, 5000},
    {"Maderas", C21, "60000000", 120, 7000},      {"Química", C21, "60000000", 100, 6000},
    {"Conservas", C10, "60000000", 80, 4000},     {"Lácteos", C10, "60000000", 60, 3000},
    {"Harinas", C4, "60000000", 60, 2500},        {"Editorial", C4, "60000000", 80, 3000},
};

// The first one lets the branches' premises.
const Actividad kActividadesAcreedores[] = {
    {"Inmobiliaria", C21, "62100000", 0, 0, "A19"},
    {"Asesoría", C21, "62300000", 150, 1200, "P15"},
    {"Gestoría", C21, "62300000", 80, 600, "P15"},
    {"Limpiezas", C21, "62900000", 120, 900},
    {"Seguridad", C21, "62900000", 150, 1500},
    {"Mantenimientos", C21, "62200000", 60, 1800},
    {"Publicidad", C21, "62700000", 200, 3000},
    {"Transportes", C21, "62400000", 50, 1500},
    {"Mensajería", C21, "62400000", 15, 300},
    {"Telecomunicaciones", C21, "62800000", 60, 400},
    {"Energía", C21, "62800000", 150, 1600},
    {"Aguas", C10, "62800000", 30, 250},
};

const char* const kLugares[] = {
    "Ebro",       "Tajo",         "Duero",     "Guadalquivir", "Miño",       "Segura",
    "Júcar",      "Turia",        "Genil",     "Sil",          "Levante",    "Poniente",
    "Cantábrico", "Mediterráneo", "Moncayo",   "Gredos",       "Guadarrama", "Pirineo",
    "Montseny",   "Teide",        "Aneto",     "Mulhacén",     "Veleta",     "Albarracín",
    "Monegros",   "Bardenas",     "Doñana",    "La Mancha",    "Alcarria",   "Maestrazgo",
    "Priorato",   "Rioja",        "Somontano", "Bierzo",       "Aljarafe",   "Campiña",
    "Vega",       "Ribera",       "Sobrarbe",  "Cinca",        "Órbigo",     "Tormes"};

const char* const kNombresPila[] = {
    "María",  "José",   "Antonio", "Carmen",   "Manuel",  "Ana",   "Francisco", "Laura",
    "David",  "Isabel", "Javier",  "Lucía",    "Juan",    "Pilar", "Miguel",    "Elena",
    "Rafael", "Marta",  "Pedro",   "Cristina", "Alberto", "Rosa",  "Fernando",  "Teresa",
    "Jorge",  "Sara",   "Luis",    "Beatriz",  "Carlos",  "Raquel"};

const char* const kApellidos[] = {
    "García", "Fernández", "González", "Rodríguez", "López",   "Martínez",  "Sánchez",
    "Pérez",  "Gómez",     "Martín",   "Jiménez",   "Ruiz",    "Hernández", "Díaz",
    "Moreno", "Muñoz",     "Álvarez",  "Romero",    "Alonso",  "Gutiérrez", "Navarro",
    "Torres", "Domínguez", "Vázquez",  "Ramos",     "Gil",     "Ramírez",   "Serrano",
    "Blanco", "Molina",    "Morales",  "Suárez",    "Ortega",  "Delgado",   "Castro",
    "Ortiz",  "Rubio",     "Marín",    "Sanz",      "Iglesias"};

struct Ciudad {
    const char* poblacion;
    const char* provincia;
    const char* codigo;    // of the province: postcodes and company tax codes start with it
    const char* telefono;  // prefix
};

const Ciudad kCiudades[] = {
    {"Madrid", "Madrid", "28", "91"},          {"Alcalá de Henares", "Madrid", "28", "91"},
    {"Getafe", "Madrid", "28", "91"},          {"Barcelona", "Barcelona", "08", "93"},
    {"Sabadell", "Barcelona", "08", "93"},     {"Valencia", "Valencia", "46", "96"},
    {"Sevilla", "Sevilla", "41", "95"},        {"Dos Hermanas", "Sevilla", "41", "95"},
    {"Zaragoza", "Zaragoza", "50", "976"},     {"Huesca", "Huesca", "22", "974"},
    {"Teruel", "Teruel", "44", "978"},         {"Bilbao", "Bizkaia", "48", "94"},
    {"Málaga", "Málaga", "29", "95"},          {"Murcia", "Murcia", "30", "968"},
    {"Valladolid", "Valladolid", "47", "983"}, {"Vigo", "Pontevedra", "36", "986"},
    {"Alicante", "Alicante", "03", "96"},      {"Córdoba", "Córdoba", "14", "957"},
    {"Granada", "Granada", "18", "958"},       {"Pamplona", "Navarra", "31", "948"},
    {"Logroño", "La Rioja", "26", "941"},      {"Burgos", "Burgos", "09", "947"},
    {"Salamanca", "Salamanca", "37", "923"},   {"Oviedo", "Asturias", "33", "98"},
    {"Santander", "Cantabria", "39", "942"},   {"Toledo", "Toledo", "45", "925"},
    {"A Coruña", "A Coruña", "15", "981"},     {"Palma", "Illes Balears", "07", "971"},
    {"Cádiz", "Cádiz", "11", "956"},           {"Jaén", "Jaén", "23", "953"},
    {"Lleida", "Lleida", "25", "973"},         {"Albacete", "Albacete", "02", "967"},
};

const char* const kCalles[] = {"Calle Mayor",
                               "Calle Real",
                               "Avenida de la Constitución",
                               "Calle San Francisco",
                               "Plaza de España",
                               "Calle del Carmen",
                               "Avenida de Andalucía",
                               "Calle Alfonso XIII",
                               "Calle de la Paz",
                               "Avenida de América",
                               "Calle Cervantes",
                               "Calle Goya",
                               "Calle Velázquez",
                               "Calle Nueva",
                               "Camino Viejo",
                               "Calle de la Industria",
                               "Avenida del Ferrocarril",
                               "Calle Pintor Sorolla",
                               "Calle Doctor Fleming",
                               "Ronda Norte",
                               "Calle Santa Ana",
                               "Paseo de la Estación"};

const char* const kPoligonos[] = {"El Portazgo", "Los Olivos", "La Estrella",  "San Cristóbal",
                                  "Cantabria",   "El Pino",    "Las Atalayas", "Malpica"};

struct Tercero {
    QString codigo;  // of Personal
    QString cuenta;
    QString nombre;
    QString tipo;  // CLI, PRO, ACR
    int iva = V21;
    int formaPago = k30;
    std::optional<int> primerDia;  // the day of the month its due dates move to
    QString contrapartida;
    QString irpf;                // its invoices' withholding, if any
    int minimo = 0, maximo = 0;  // invoice base, euros
    int patron = 0;              // how the supplier numbers its invoices
    int facturas = 0;            // the supplier's last number

    QString siguienteFactura() {
        const int n = ++facturas;
        switch (patron) {
            case 0:
                return QStringLiteral("A-") + QString::number(n).rightJustified(5, u'0');
            case 1:
                return QStringLiteral("FV26-") + QString::number(n).rightJustified(5, u'0');
            case 2:
                return QStringLiteral("2026/") + QString::number(n).rightJustified(4, u'0');
            case 3:
                return QStringLiteral("F26") + QString::number(n).rightJustified(6, u'0');
            default:
                return QStringLiteral("FR") + QString::number(n).rightJustified(7, u'0');
        }
    }
};

// ---------------------------------------------------------------------------------------------
// Chance

class Azar {
public:
    explicit Azar(quint32 semilla) : g_(semilla) {}
    // From `desde` to `hasta`, both included.
    int entero(int desde, int hasta) { return desde + int(g_.bounded(quint32(hasta - desde + 1))); }
    bool siPorCiento(int pct) { return int(g_.bounded(100u)) < pct; }
    // Cents between two amounts in euros, spread evenly over the orders of magnitude.
    qint64 centimos(double minimo, double maximo) {
        const double l = std::log(minimo) + g_.generateDouble() * (std::log(maximo / minimo));
        return std::max<qint64>(1, std::llround(std::exp(l) * 100.0));
    }
    // An index below n, the first ones more often: a few customers buy most.
    int frecuente(int n) {
        const double r = g_.generateDouble();
        return std::min(n - 1, int(n * r * r));
    }
    template <class T, size_t N>
    const T& uno(const T (&lista)[N]) {
        return lista[g_.bounded(quint32(N))];
    }

private:
    QRandomGenerator g_;
};

// ---------------------------------------------------------------------------------------------
// Calendar

// The national holidays of 2026.
bool festivo(const QDate& d) {
    static const QDate dias[] = {QDate(2026, 1, 1),  QDate(2026, 1, 6),  QDate(2026, 4, 3),
                                 QDate(2026, 5, 1),  QDate(2026, 8, 15), QDate(2026, 10, 12),
                                 QDate(2026, 11, 1), QDate(2026, 12, 6), QDate(2026, 12, 8),
                                 QDate(2026, 12, 25)};
    for (const QDate& f : dias)
        if (f == d) return true;
    return false;
}

bool laborable(const QDate& d) {
    return d.dayOfWeek() <= 5 && !festivo(d);
}

// The day itself when it is a working day, else the next one.
QDate siguienteLaborable(QDate d) {
    while (!laborable(d)) d = d.addDays(1);
    return d;
}

QDate ultimoLaborableDelMes(int mes) {
    QDate d(kEjercicio, mes, QDate(kEjercicio, mes, 1).daysInMonth());
    while (!laborable(d)) d = d.addDays(-1);
    return d;
}

// The last working day of its week: the cash goes to the bank then.
bool cierraSemana(const QDate& d) {
    if (!laborable(d)) return false;
    const QDate siguiente = siguienteLaborable(d.addDays(1));
    return siguiente.weekNumber() != d.weekNumber() || siguiente.year() != d.year();
}

// How much of the year's trade a day takes.
double pesoDelDia(const QDate& d) {
    if (laborable(d)) return 1.0;
    if (d.dayOfWeek() == 6 && !festivo(d)) return 0.3;
    return 0.1;
}

// ---------------------------------------------------------------------------------------------
// Tax identifiers and contact data

// A company's CIF: letter, province, five digits and the control digit.
QString cif(QChar letra, const QString& provincia, Azar& azar) {
    const QString digitos =
        provincia + QString::number(azar.entero(0, 99999)).rightJustified(5, u'0');
    int suma = 0;
    for (int i = 0; i < 7; ++i) {
        const int n = digitos[i].digitValue();
        if (i % 2 == 0) {
            const int doble = 2 * n;
            suma += doble / 10 + doble % 10;
        } else {
            suma += n;
        }
    }
    return letra + digitos + QString::number((10 - suma % 10) % 10);
}

QString dni(Azar& azar) {
    static const QString letras = QStringLiteral("TRWAGMYFPDXBNJZSQVHLCKE");
    const int n = azar.entero(1000000, 79999999);
    return QString::number(n).rightJustified(8, u'0') + letras[n % 23];
}

// Lower-case letters and digits of a name, without accents: for e-mail addresses.
QString sinAcentos(const QString& texto) {
    QString s;
    for (const QChar c : texto.normalized(QString::NormalizationForm_D).toLower())
        if ((c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9')) s += c;
    return s;
}

// ---------------------------------------------------------------------------------------------
// Entries

struct Linea {
    QString cuenta;
    qint64 debe;
    qint64 haber;
    QString concepto;
    QString tipo;
};

struct Asiento {
    int delegacion = 0;
    Documento documento = AS;
    QString diario;
    QString numero;
    QDate fecha;
    QDate fechaDocumento;
    QString referencia;
    std::vector<Linea> lineas;

    // Gives the line's number within the entry.
    int anadir(const QString& cuenta, qint64 debe, qint64 haber, const QString& concepto,
               const QString& tipo) {
        lineas.push_back({cuenta, debe, haber, concepto, tipo});
        return int(lineas.size());
    }
};

const QString kPrincipal = QStringLiteral("P");
const QString kContrapartida = QStringLiteral("CP");

// A due date waiting for its collection or payment.
struct Vencimiento {
    QDate cuando;  // the day it is collected or paid
    qint64 orden;  // ties broken by the order of creation
    bool cobro;
    int delegacion;
    QString numero;    // of the invoice's entry
    QString factura;   // the invoice's number as the concept names it
    QString concepto;  // the due date's own, as stored
    int tercero;
    QDate vto;
    qint64 importe;
    int plazo, plazos;
    bool caja;  // collected in cash
    int banco;
};

struct MasTarde {
    bool operator()(const Vencimiento& a, const Vencimiento& b) const {
        return a.cuando != b.cuando ? a.cuando > b.cuando : a.orden > b.orden;
    }
};

qint64 porcentaje(qint64 base, int pct) {
    return (base * pct + 50) / 100;
}

// Hundredths of a per cent, rounded half up.
qint64 porDiezMil(qint64 base, qint64 diezmilesimas) {
    return (base * diezmilesimas + 5000) / 10000;
}

void anadirImporte(QByteArray& b, qint64 centimos) {
    if (centimos < 0) {
        b += '-';
        centimos = -centimos;
    }
    b += QByteArray::number(centimos / 100);
    b += '.';
    b += char('0' + centimos % 100 / 10);
    b += char('0' + centimos % 10);
}

// The company's tables stand still while the year is written: what the invoices read of them
// is read once.
class CatalogoRecordado : public CatalogoImpuestos {
public:
    CatalogoRecordado(Conexion& conexion, const QString& empresa) : almacen_(conexion, empresa) {}
    std::optional<TerceroCuenta> tercero(const QString& cuenta) override {
        return recordar(terceros_, cuenta, [&] { return almacen_.tercero(cuenta); });
    }
    std::optional<TipoIva> impuesto(const QString& codigo) override {
        return recordar(impuestos_, codigo, [&] { return almacen_.impuesto(codigo); });
    }
    std::optional<TipoIrpf> irpf(const QString& codigo) override {
        return recordar(retenciones_, codigo, [&] { return almacen_.irpf(codigo); });
    }
    std::optional<FormaPago> formaPago(const QString& codigo) override {
        return recordar(formas_, codigo, [&] { return almacen_.formaPago(codigo); });
    }

private:
    template <class T, class Leer>
    static std::optional<T> recordar(QHash<QString, std::optional<T>>& hechos, const QString& clave,
                                     Leer leer) {
        auto i = hechos.find(clave);
        if (i == hechos.end()) i = hechos.insert(clave, leer());
        return *i;
    }
    CatalogoAlmacen almacen_;
    QHash<QString, std::optional<TerceroCuenta>> terceros_;
    QHash<QString, std::optional<TipoIva>> impuestos_;
    QHash<QString, std::optional<TipoIrpf>> retenciones_;
    QHash<QString, std::optional<FormaPago>> formas_;
};

// A date as the entry form's fields hold it. The year's days are written once: every entry
// names two.
QString fechaPantalla(const QDate& d) {
    static const std::vector<QString> dias = [] {
        std::vector<QString> t;
        for (QDate f(kEjercicio, 1, 1); f.year() == kEjercicio; f = f.addDays(1))
            t.push_back(f.toString(QStringLiteral("dd/MM/yyyy")));
        return t;
    }();
    return d.year() == kEjercicio ? dias[size_t(d.dayOfYear() - 1)]
                                  : d.toString(QStringLiteral("dd/MM/yyyy"));
}

QString euros(qint64 centimos) {
    return formato::Format(double(centimos) / 100, QStringLiteral("0.00"));
}

qint64 centimos(double euros) {
    return std::llround(euros * 100);
}

class Generador {
public:
    Generador(Conexion& conexion, quint32 semilla, qint64 objetivo, std::FILE* ledger)
        : c_(conexion), azar_(semilla), objetivo_(objetivo), ledger_(ledger) {
        // Numbers long enough for every entry of a series, six digits at least.
        longitud_ = std::max(6, int(QString::number(objetivo / 2).size()));
        for (const DatosDocumento& d : kDocumentos) series_.append({u(d.codigo), 1});
        for (const QString& b : kBancos) bancos_.insert(b);
    }

    void maestros();
    void ejercicio();
    void terminar();

    qint64 lineas() const { return lineas_; }
    qint64 asientos() const { return asientos_; }
    int terceros() const { return int(terceros_.size()); }
    int cuentasNuevas() const { return cuentasNuevas_; }
    const QHash<int, qint64>& porDocumento() const { return porDocumento_; }
    qint64 pendientes() const { return qint64(cola_.size()) + fueraDelAnio_; }
    qint64 vencimientosCreados() const { return vencimientos_; }

private:
    struct Serie {
        QString codigo;
        int siguiente;
    };

    // Master data.
    void asegurarCuenta(const QString& cuenta, const QString& titulo);
    void crearTerceros();
    Tercero nuevoTercero(const QString& tipo, int numero, const Actividad& actividad, bool persona,
                         int formaPago, std::optional<int> primerDia = {});

    // Posting.
    QString numero(Documento d) {
        return QString::number(series_[d].siguiente++).rightJustified(longitud_, u'0');
    }
    Asiento nuevo(Documento d, const char* diario, int delegacion, const QDate& fecha) {
        Asiento a;
        a.documento = d;
        a.diario = u(diario);
        a.delegacion = delegacion;
        a.numero = numero(d);
        a.fecha = a.fechaDocumento = fecha;
        return a;
    }
    void grabar(const Asiento& a, const std::function<void(Conexion&)>& dependientes = {});
    void anotarLedger(const Asiento& a);
    int delegacionAlAzar();

    void inicioDelDia(const QDate& dia);
    void finDelDia(const QDate& dia);
    void alAzar(const QDate& dia);

    void venta(const QDate& dia);
    void compra(const QDate& dia, int tercero, int delegacion, qint64 baseFija,
                const QString& detalle);
    RejillaIva repartir(Asiento& a, const Tercero& tercero, const int* tipos, const qint64* bases,
                        int cuantos, qint64 total, const QString& concepto, const QString& partida);
    CarteraAlta proponer(const Asiento& a, const Tercero& tercero, qint64 total);
    void vencimientos(const Asiento& a, int tercero, const CarteraAlta& alta,
                      const QString& factura);
    CarteraGestion cerrar(Asiento& a, const Vencimiento& v);
    void programar(const Vencimiento& v, const QDate& hoy);
    void cobro(const Vencimiento& v, const QDate& dia);
    void pago(const Vencimiento& v, const QDate& dia);
    void comisionBancaria(const QDate& dia);
    void nominas(const QDate& dia);
    void segurosSociales(const QDate& dia, int mes);
    void modelo111(const QDate& dia, int trimestre);
    void modelo303(const QDate& dia, int trimestre);
    void liquidacionIva(const QDate& dia, int trimestre);
    void mantenimientoCuentas(const QDate& dia);
    void traspaso(const QDate& dia);
    void ingresosDeCaja(const QDate& dia);
    void asientoSimple(Documento d, const char* diario, int delegacion, const QDate& dia,
                       const QString& debe, const QString& haber, qint64 importe,
                       const QString& concepto, const QString& referencia = {});

    Conexion& c_;
    CatalogoRecordado catalogo_{c_, kEmpresa};
    Azar azar_;
    qint64 objetivo_;
    std::FILE* ledger_;
    QByteArray ledgerPendiente_;
    int longitud_ = 6;
    QList<Serie> series_;
    QSet<QString> cuentas_;  // codes the company's chart holds
    int cuentasNuevas_ = 0;

    std::vector<Tercero> terceros_;
    QSet<QString> nombres_, nifs_;
    int primerCliente_ = 0, numClientes_ = 0;
    int primerProveedor_ = 0, numProveedores_ = 0;
    int primerAcreedor_ = 0, numAcreedores_ = 0;  // the landlords first

    std::optional<Transaccion> lote_;
    int enLote_ = 0;
    qint64 lineas_ = 0;
    qint64 asientos_ = 0;
    QHash<int, qint64> porDocumento_;

    std::priority_queue<Vencimiento, std::vector<Vencimiento>, MasTarde> cola_;
    qint64 ordenVencimientos_ = 0;
    qint64 vencimientos_ = 0;  // due dates the invoices stored
    qint64 fueraDelAnio_ = 0;

    // Balances the firm acts on: VAT and bank accounts (by code), cash of each branch, payroll
    // withholdings of the quarter, social security of each month, VAT of each return.
    QHash<QString, qint64> saldos_;
    QSet<QString> bancos_;
    qint64 caja_[kNumDelegaciones] = {};
    qint64 retencionesTrimestre_[5] = {};
    qint64 seguridadSocialMes_[13] = {};
    qint64 ivaAPagar_[5] = {};
};

// ---------------------------------------------------------------------------------------------
// Master data

void Generador::asegurarCuenta(const QString& cuenta, const QString& titulo) {
    if (cuentas_.contains(cuenta)) return;
    const bool pases = cuenta.size() == kDigitos;
    cuentas::Insert(c_, kEmpresa, cuenta, titulo, pases ? QStringLiteral("S") : QStringLiteral("N"),
                    int(cuenta.size()), kUsuario);
    cuentas_.insert(cuenta);
    ++cuentasNuevas_;
}

Tercero Generador::nuevoTercero(const QString& tipo, int numero, const Actividad& actividad,
                                bool persona, int formaPago, std::optional<int> primerDia) {
    // One draw a statement, so that a seed gives the same third parties on any compiler.
    Tercero t;
    t.tipo = tipo;
    t.formaPago = formaPago;
    t.primerDia = primerDia;
    const Ciudad& ciudad = azar_.uno(kCiudades);
    QString nif;
    QString correo;
    do {
        if (persona) {
            const QString nombre = u(azar_.uno(kNombresPila));
            const QString primero = u(azar_.uno(kApellidos));
            const QString segundo = u(azar_.uno(kApellidos));
            t.nombre = nombre + u' ' + primero + u' ' + segundo;
            correo = sinAcentos(nombre) + u'.' + sinAcentos(primero) + QStringLiteral("@gmail.com");
        } else {
            static const char* const formas[] = {"S.L.", "S.L.",   "S.L.",
                                                 "S.A.", "S.L.U.", "S. Coop."};
            const QString forma = u(azar_.uno(formas));
            const QString lugar = u(azar_.uno(kLugares));
            t.nombre = u(actividad.nombre) + u' ' + lugar + QStringLiteral(", ") + forma;
            correo = QStringLiteral("administracion@") + sinAcentos(u(actividad.nombre) + lugar) +
                     QStringLiteral(".es");
        }
    } while (nombres_.contains(t.nombre));
    if (persona) {
        do nif = dni(azar_);
        while (nifs_.contains(nif));
    } else {
        const QString forma = t.nombre.mid(t.nombre.lastIndexOf(QStringLiteral(", ")) + 2);
        const QChar letra = forma == u"S.A." ? u'A' : forma == u"S. Coop." ? u'F' : u'B';
        do nif = cif(letra, u(ciudad.codigo), azar_);
        while (nifs_.contains(nif));
    }
    nombres_.insert(t.nombre);
    nifs_.insert(nif);

    const char* letra = tipo == u"CLI" ? "C" : tipo == u"PRO" ? "P" : "A";
    const char* grupo = tipo == u"CLI" ? "43" : tipo == u"PRO" ? "40" : "41";
    t.codigo = u(letra) + QString::number(numero).rightJustified(4, u'0');
    t.cuenta = u(grupo) + QString::number(numero).rightJustified(kDigitos - 2, u'0');
    t.iva = actividad.iva;
    t.contrapartida = u(actividad.contrapartida);
    t.irpf = u(actividad.irpf);
    t.minimo = actividad.minimo;
    t.maximo = actividad.maximo;
    t.patron = azar_.entero(0, 4);
    t.facturas = azar_.entero(0, 1500);

    QString direccion;
    if (azar_.siPorCiento(25)) {
        const QString poligono = u(azar_.uno(kPoligonos));
        direccion = QStringLiteral("Polígono Industrial ") + poligono + QStringLiteral(", nave ") +
                    QString::number(azar_.entero(1, 60));
    } else {
        const QString calle = u(azar_.uno(kCalles));
        direccion = calle + QStringLiteral(", ") + QString::number(azar_.entero(1, 180));
    }
    const QString cp =
        u(ciudad.codigo) + QString::number(azar_.entero(1, 99)).rightJustified(3, u'0');
    QString telefono = u(ciudad.telefono);
    while (telefono.size() < 9) telefono += QChar(u'0' + azar_.entero(0, 9));

    Personal::Insert(c_, kEmpresa, t.codigo, t.nombre, nif, direccion, u(ciudad.poblacion), cp,
                     u(ciudad.provincia), QStringLiteral("España"), telefono, QString(), correo,
                     kUsuario);
    asegurarCuenta(t.cuenta, t.nombre);
    acrdeu::Insert(c_, kEmpresa, t.cuenta, t.codigo, tipo, QStringLiteral("NAC"),
                   u(kTiposIva[t.iva].codigo), u(kFormasPago[t.formaPago].codigo),
                   t.primerDia.value_or(0), 0, t.irpf, t.contrapartida, kUsuario);
    return t;
}

void Generador::crearTerceros() {
    auto forma = [&](int contado, int a30, int a3060) {
        const int r = azar_.entero(0, 99);
        return r < contado ? kContado : r < a30 ? k30 : r < a3060 ? k3060 : k306090;
    };
    // A third of those paid at 30 days settle on a fixed day of the month. Only they: with two
    // or more due dates a payment day can bring two of them onto one date, which the proposal
    // refuses and a bookkeeper would then type by hand.
    auto diaDePago = [&](int formaPago) -> std::optional<int> {
        static const int dias[] = {5, 10, 15, 20, 25};
        if (formaPago != k30 || !azar_.siPorCiento(33)) return std::nullopt;
        return azar_.uno(dias);
    };

    primerCliente_ = int(terceros_.size());
    numClientes_ = 300;
    for (int i = 1; i <= numClientes_; ++i) {
        const Actividad& actividad = azar_.uno(kActividadesClientes);
        const bool persona = azar_.siPorCiento(20);
        const int formaPago = forma(15, 55, 85);
        const std::optional<int> dia = diaDePago(formaPago);
        terceros_.push_back(
            nuevoTercero(QStringLiteral("CLI"), i, actividad, persona, formaPago, dia));
    }

    primerProveedor_ = int(terceros_.size());
    numProveedores_ = 100;
    for (int i = 1; i <= numProveedores_; ++i) {
        const Actividad& actividad = azar_.uno(kActividadesProveedores);
        const int formaPago = forma(0, 25, 65);
        const std::optional<int> dia = diaDePago(formaPago);
        terceros_.push_back(
            nuevoTercero(QStringLiteral("PRO"), i, actividad, false, formaPago, dia));
    }

    // The landlords of the branches first; utilities are charged to the bank when invoiced.
    primerAcreedor_ = int(terceros_.size());
    numAcreedores_ = 50;
    const int actividades = int(std::size(kActividadesAcreedores));
    for (int i = 1; i <= numAcreedores_; ++i) {
        const bool casero = i <= kNumDelegaciones;
        const Actividad& actividad =
            kActividadesAcreedores[casero ? 0 : azar_.entero(1, actividades - 1)];
        const bool domiciliado = casero || actividad.contrapartida == std::string_view("62800000");
        const int formaPago = domiciliado ? kContado : forma(20, 85, 100);
        terceros_.push_back(nuevoTercero(QStringLiteral("ACR"), i, actividad, false, formaPago));
    }
    // The entity class writes a day as a number; a third party without one has none at all,
    // as a day 0 would move every due date a month on.
    c_.execute(QStringLiteral(
        "UPDATE Acrdeu SET primer_dia = NULL WHERE codigo_empresa = 'B' AND primer_dia = 0"));
}

void Generador::maestros() {
    Transaccion t(c_);
    for (Recordset rs = Empresas::GetList(c_, QStringLiteral("codigo_empresa = 'B'"), {});
         !rs.eof(); rs.moveNext()) {
        std::printf("La empresa B ya estaba en el almacén: se borra con todo lo suyo.\n");
        std::fflush(stdout);
        Empresas::Delete(c_, kEmpresa, true);
    }

    // The company comes with its twin branch, the chart and layouts of the template, and the
    // year of today's date.
    const DatosDelegacion& central = kDelegaciones[0];
    Empresas::Insert(c_, kEmpresa, cif(u'B', QStringLiteral("28"), azar_), u(central.nombre),
                     u(central.direccion), u(central.cp), u(central.poblacion),
                     u(central.provincia), QStringLiteral("España"), u(central.telefono), QString(),
                     QStringLiteral("administracion@comercialbench.es"), kDigitos, kUsuario, true);
    for (int i = 1; i < kNumDelegaciones; ++i) {
        const DatosDelegacion& d = kDelegaciones[i];
        Delegaciones::Insert(c_, kEmpresa, u(d.codigo), u(d.nombre), u(d.direccion), u(d.cp),
                             u(d.poblacion), u(d.provincia), QStringLiteral("España"),
                             u(d.telefono), QString(),
                             QStringLiteral("administracion@comercialbench.es"), kUsuario, true);
    }

    const QString primero = QStringLiteral("01/01/2026"), ultimo = QStringLiteral("31/12/2026");
    const QString esteAnio = QStringLiteral("codigo_empresa = 'B' AND ejercicio = 2026");
    if (Ejercicios::GetList(c_, esteAnio, {}).eof())
        Ejercicios::Insert(c_, kEmpresa, kEjercicio, primero, ultimo, primero, ultimo,
                           QStringLiteral("N"), QStringLiteral("N"), kUsuario, true);
    else
        Ejercicios::Update(c_, kEmpresa, kEjercicio, primero, ultimo, primero, ultimo,
                           QStringLiteral("N"), QStringLiteral("N"), kUsuario);

    for (const DatosDocumento& d : kDocumentos) {
        numeracion::Insert(c_, kEmpresa, kEjercicio, u(d.codigo), longitud_, 1, u(d.serie),
                           kUsuario);
        Documentos::Insert(c_, kEmpresa, u(d.codigo), u(d.descripcion), u(d.partida), u(d.iva),
                           u(d.cartera), u(d.codigo), QString(), kUsuario);
    }
    for (const DatosCuenta& d : kDiarios)
        Diarios::Insert(c_, kEmpresa, u(d.cuenta), u(d.titulo), kUsuario);

    for (Recordset rs = cuentas::GetList(c_, QStringLiteral("codigo_empresa = 'B'"), {}); !rs.eof();
         rs.moveNext())
        cuentas_.insert(rs[QStringLiteral("cuenta")].toString().trimmed());
    for (const DatosCuenta& d : kEpigrafes) asegurarCuenta(u(d.cuenta), u(d.titulo));
    for (const DatosCuenta& d : kCuentasPases) asegurarCuenta(u(d.cuenta), u(d.titulo));

    for (const DatosIva& i : kTiposIva)
        Impuestos::Insert(c_, kEmpresa, u(i.codigo), u(i.cuenta), i.pct, QString(), 0,
                          u(i.descripcion), u(i.tipo), kUsuario);
    for (const DatosIrpf& r : kRetencionesIrpf)
        irpf::Insert(c_, kEmpresa, u(r.codigo), kRetenciones, r.pct, u(r.descripcion), kUsuario);
    // An unused slot has no days, so that the proposal skips it.
    for (const DatosFormaPago& f : kFormasPago) {
        auto dias = [&](int i) { return i < f.plazos ? QString::number(f.dias[i]) : QString(); };
        auto pct = [&](int i) { return i < f.plazos ? f.centesimas[i] / 100.0 : 0.0; };
        FormasPago::Insert(c_, kEmpresa, u(f.codigo), u(f.descripcion), dias(0), pct(0), dias(1),
                           pct(1), dias(2), pct(2), QString(), 0, kUsuario);
    }

    crearTerceros();
    t.commit();
}

// ---------------------------------------------------------------------------------------------
// Posting

void Generador::grabar(const Asiento& a, const std::function<void(Conexion&)>& dependientes) {
    qint64 debe = 0, haber = 0;
    for (const Linea& l : a.lineas) {
        debe += l.debe;
        haber += l.haber;
    }
    if (debe != haber || a.lineas.empty())
        throw Error(1, QStringLiteral("Asiento descuadrado: ") +
                           u(kDocumentos[a.documento].codigo) + u' ' + a.numero);

    if (enLote_ >= kAsientosPorLote) {
        lote_->commit();
        lote_.reset();
        enLote_ = 0;
    }
    if (!lote_) lote_.emplace(c_);
    ++enLote_;

    // Saved as the entry form saves: the lines and what hangs from them in one transaction of
    // their own, here a savepoint inside the batch's. SQLite copies the pages a savepoint
    // changes to a temporary file, so that it could undo them; the form, one entry a
    // transaction, does not pay for that, the year does (see bench/README.md).
    LineasAsiento lineas;
    for (const Linea& l : a.lineas) {
        lineas.AnadirLinea(0, {}, l.cuenta, l.debe / 100.0, l.haber / 100.0, l.concepto, l.tipo);
        if (l.cuenta.startsWith(QStringLiteral("47")) || bancos_.contains(l.cuenta))
            saldos_[l.cuenta] += l.debe - l.haber;
    }
    sesion_delegacion = u(kDelegaciones[a.delegacion].codigo);
    const int n =
        GrabarAsiento(c_,
                      {a.diario, u(kDocumentos[a.documento].codigo), a.numero,
                       fechaPantalla(a.fecha), fechaPantalla(a.fechaDocumento), a.referencia},
                      lineas, kUsuario, dependientes);
    if (n != int(a.lineas.size()))
        throw Error(1, QStringLiteral("Asiento con líneas que no se graban: ") +
                           u(kDocumentos[a.documento].codigo) + u' ' + a.numero);
    lineas_ += n;
    ++asientos_;
    ++porDocumento_[a.documento];
    anotarLedger(a);
}

// One transaction per entry, in the order posted: the date, the entry's key as its code
// ("(B2/FAC/000123)"), the first line's concept as payee, and one posting per line in line
// order, the account code and the amount, debit positive and credit negative.
void Generador::anotarLedger(const Asiento& a) {
    if (!ledger_) return;
    QByteArray& b = ledgerPendiente_;
    char fecha[16];
    std::snprintf(fecha, sizeof fecha, "%04d/%02d/%02d", a.fecha.year(), a.fecha.month(),
                  a.fecha.day());
    b += fecha;
    b += " (";
    b += kDelegaciones[a.delegacion].codigo;
    b += '/';
    b += kDocumentos[a.documento].codigo;
    b += '/';
    b += a.numero.toLatin1();
    b += ") ";
    b += a.lineas.front().concepto.toUtf8();
    b += '\n';
    for (const Linea& l : a.lineas) {
        b += "    ";
        b += l.cuenta.toLatin1();
        b += "  ";
        anadirImporte(b, l.debe - l.haber);
        b += '\n';
    }
    b += '\n';
    if (b.size() > (1 << 20)) {
        if (std::fwrite(b.constData(), 1, size_t(b.size()), ledger_) != size_t(b.size()))
            throw Error(1, QStringLiteral("No se puede escribir el diario de ledger."));
        b.clear();
    }
}

int Generador::delegacionAlAzar() {
    int r = azar_.entero(0, 99);
    for (int i = 0; i < kNumDelegaciones; ++i) {
        if (r < kDelegaciones[i].peso) return i;
        r -= kDelegaciones[i].peso;
    }
    return 0;
}

void Generador::asientoSimple(Documento d, const char* diario, int delegacion, const QDate& dia,
                              const QString& debe, const QString& haber, qint64 importe,
                              const QString& concepto, const QString& referencia) {
    Asiento a = nuevo(d, diario, delegacion, dia);
    a.referencia = referencia;
    a.anadir(debe, importe, 0, concepto, kPrincipal);
    a.anadir(haber, 0, importe, concepto, kContrapartida);
    grabar(a);
}

void Generador::venta(const QDate& dia) {
    const int indice = primerCliente_ + azar_.frecuente(numClientes_);
    const Tercero& cliente = terceros_[size_t(indice)];
    Asiento a = nuevo(FAC, "VEN", delegacionAlAzar(), dia);
    a.referencia = a.numero;
    const QString concepto = QStringLiteral("Factura ") + a.numero + u' ' + cliente.nombre;

    // The customer's own rate, and now and then goods at another one.
    int tipos[2] = {cliente.iva, cliente.iva};
    int cuantos = 1;
    if (azar_.siPorCiento(20)) {
        tipos[1] = (cliente.iva + azar_.entero(1, 2)) % 3;
        cuantos = 2;
    }
    qint64 bases[2] = {}, total = 0;
    QString cuentasVenta[2];
    for (int i = 0; i < cuantos; ++i) {
        bases[i] = azar_.centimos(40, 6000);
        total += bases[i] + porcentaje(bases[i], kTiposIva[tipos[i]].pct);
        cuentasVenta[i] = i == 0 && azar_.siPorCiento(85)    ? cliente.contrapartida
                          : cliente.contrapartida == kVentas ? kServicios
                                                             : kVentas;
    }
    const RejillaIva rejilla =
        repartir(a, cliente, tipos, bases, cuantos, total, concepto, QStringLiteral("D"));
    for (int i = 0; i < cuantos; ++i)
        a.anadir(cuentasVenta[i], 0, bases[i], concepto, kContrapartida);
    const CarteraAlta alta = proponer(a, cliente, total);
    grabar(a, [&](Conexion& c) {
        const QString delegacion = u(kDelegaciones[a.delegacion].codigo);
        rejilla.InsertarRegistros(c, kEmpresa, delegacion, QStringLiteral("FAC"), a.numero,
                                  cliente.cuenta, kUsuario);
        alta.InsertarCartera(c, kEmpresa, delegacion, QStringLiteral("FAC"), a.numero,
                             catalogo_.tercero(cliente.cuenta), kUsuario);
    });
    vencimientos(a, indice, alta, a.numero);
}

void Generador::compra(const QDate& dia, int indice, int delegacion, qint64 baseFija,
                       const QString& detalle) {
    Tercero& proveedor = terceros_[size_t(indice)];
    Asiento a = nuevo(FRC, "COM", delegacion < 0 ? delegacionAlAzar() : delegacion, dia);
    const QString factura = proveedor.siguienteFactura();
    a.referencia = factura;
    // The supplier's invoice is dated a few days before it is entered, within the year.
    a.fechaDocumento = std::max(dia.addDays(-azar_.entero(0, 5)), QDate(kEjercicio, 1, 1));
    const QString concepto = QStringLiteral("Fra. ") + factura + u' ' + proveedor.nombre + detalle;

    int tipos[2] = {proveedor.iva, proveedor.iva};
    int cuantos = 1;
    if (baseFija == 0 && proveedor.tipo == u"PRO" && azar_.siPorCiento(15)) {
        tipos[1] = C21 + (proveedor.iva - C21 + azar_.entero(1, 2)) % 3;
        cuantos = 2;
    }
    qint64 bases[2] = {}, total = 0;
    for (int i = 0; i < cuantos; ++i) {
        bases[i] = baseFija ? baseFija : azar_.centimos(proveedor.minimo, proveedor.maximo);
        total += bases[i] + porcentaje(bases[i], kTiposIva[tipos[i]].pct);
    }
    // A withholding, on the first row only, is kept back from what the supplier is paid.
    for (const DatosIrpf& r : kRetencionesIrpf)
        if (proveedor.irpf == u(r.codigo)) total -= porcentaje(bases[0], r.pct);
    const RejillaIva rejilla =
        repartir(a, proveedor, tipos, bases, cuantos, total, concepto, QStringLiteral("H"));
    for (int i = 0; i < cuantos; ++i)
        a.anadir(proveedor.contrapartida, bases[i], 0, concepto, kContrapartida);
    const CarteraAlta alta = proponer(a, proveedor, total);
    grabar(a, [&](Conexion& c) {
        const QString sucursal = u(kDelegaciones[a.delegacion].codigo);
        rejilla.InsertarRegistros(c, kEmpresa, sucursal, QStringLiteral("FRC"), a.numero,
                                  proveedor.cuenta, kUsuario);
        alta.InsertarCartera(c, kEmpresa, sucursal, QStringLiteral("FRC"), a.numero,
                             catalogo_.tercero(proveedor.cuenta), kUsuario);
    });
    retencionesTrimestre_[(dia.month() - 1) / 3 + 1] +=
        centimos(formato::leerNumero(rejilla.txt(48)).value_or(0));
    vencimientos(a, indice, alta, factura);
}

// An invoice split as the entry form splits it: the gross amount typed on the main line, the
// tax grid proposed from the third party, the bases corrected to the invoice's own (a second
// rate typed on the second row), and the grid's lines after the main one. The counterpart
// lines are the caller's.
RejillaIva Generador::repartir(Asiento& a, const Tercero& tercero, const int* tipos,
                               const qint64* bases, int cuantos, qint64 total,
                               const QString& concepto, const QString& partida) {
    RejillaIva rejilla(catalogo_);
    rejilla.Proponer(catalogo_.tercero(tercero.cuenta), euros(total));
    rejilla.ponerTxt(9, euros(bases[0]));
    rejilla.RecalcularFila(9);
    if (cuantos > 1) {
        rejilla.ponerTxt(18, euros(bases[1]));
        rejilla.ponerTxt(19, u(kTiposIva[tipos[1]].codigo));
        rejilla.BuscarImpuesto(19);
        rejilla.RecalcularFila(18);
    }
    LineasAsiento lineas;
    const double importe = double(total) / 100;
    const bool debe = partida == u"D";
    lineas.AnadirLinea(0, {}, tercero.cuenta, debe ? importe : 0, debe ? 0 : importe, concepto,
                       kPrincipal);
    rejilla.GenerarLineasIva(lineas, {}, concepto, partida);
    for (const LineaApunte& l : lineas.lineas())
        a.anadir(l.cuenta, centimos(l.debe), centimos(l.haber), l.concepto, l.tipo);
    return rejilla;
}

// The due dates the third party's payment method proposes for an invoice, as the entry form
// proposes them once the amount is typed: each share rounded on its own, so that their sum may
// miss the invoice by a cent, which stays on the third party's account.
CarteraAlta Generador::proponer(const Asiento& a, const Tercero& tercero, qint64 total) {
    const std::optional<TerceroCuenta> cuenta = catalogo_.tercero(tercero.cuenta);
    const std::optional<FormaPago> forma =
        cuenta ? catalogo_.formaPago(cuenta->formaPago) : std::nullopt;
    if (!forma)
        throw Error(1, QStringLiteral("El tercero %1 no tiene forma de pago.").arg(tercero.codigo));
    CarteraAlta alta;
    alta.Proponer(cuenta->formaPago, *forma, cuenta->primerDia, a.fechaDocumento,
                  double(total) / 100, u(kDocumentos[a.documento].partida), a.numero);
    return alta;
}

// When each due date the invoice stored will be settled: customers pay mostly on the day,
// some late; the firm pays on the day.
void Generador::vencimientos(const Asiento& a, int indice, const CarteraAlta& alta,
                             const QString& factura) {
    const Tercero& tercero = terceros_[size_t(indice)];
    const bool esCobro = a.documento == FAC;
    const bool enCaja = esCobro && tercero.formaPago == kContado;
    const int banco = azar_.siPorCiento(esCobro ? 70 : 85) ? 0 : 1;
    const int plazos = int(alta.efectos().size());
    vencimientos_ += plazos;
    for (int i = 0; i < plazos; ++i) {
        const VencimientoAlta& efecto = alta.efectos()[i];
        const QDate vto = QDate::fromString(efecto.vencimiento, QStringLiteral("dd/MM/yyyy"));
        // The plain text of a double with a decimal comma, as the proposal wrote it.
        const qint64 importe = centimos(QString(efecto.importe).replace(u',', u'.').toDouble());
        QDate cuando = vto;
        if (enCaja) {
            cuando = a.fecha;
        } else if (esCobro) {
            const int r = azar_.entero(0, 99);
            const int retraso = r < 60   ? 0
                                : r < 85 ? azar_.entero(1, 10)
                                : r < 95 ? azar_.entero(11, 45)
                                         : azar_.entero(46, 120);
            cuando = siguienteLaborable(vto.addDays(retraso));
        } else if (tercero.formaPago != kContado) {
            cuando = siguienteLaborable(vto);
        }
        cuando = std::max(cuando, a.fecha);
        programar({cuando, ordenVencimientos_++, esCobro, a.delegacion, a.numero, factura,
                   efecto.descripcion, indice, vto, importe, i + 1, plazos, enCaja, banco},
                  a.fecha);
    }
}

void Generador::programar(const Vencimiento& v, const QDate& hoy) {
    if (v.cuando.year() > kEjercicio) {
        ++fueraDelAnio_;  // stays open at the year's end
    } else if (v.cuando <= hoy) {
        v.cobro ? cobro(v, hoy) : pago(v, hoy);
    } else {
        cola_.push(v);
    }
}

QString plazoDe(const Vencimiento& v) {
    return v.plazos > 1 ? QStringLiteral(" vto. %1/%2").arg(v.plazo).arg(v.plazos) : QString();
}

// The due date a collection or payment closes, as the selection dialog would list it, marked
// closed so that it gives the entry its "GC" line. It is made from what the invoice stored
// rather than asked of the store: the selection bounded to one third party, its invoice and
// its date reads, for every Acrdeu row, all of that party's items, closed ones too (SQLite
// starts from Acrdeu and bounds the items by the party's code, not by the row it joins), and
// made the posting of a 50,000-line year take 18.7 s instead of 3.5 s. Closing it still goes
// through the store's check that it is pending.
CarteraGestion Generador::cerrar(Asiento& a, const Vencimiento& v) {
    const Tercero& tercero = terceros_[size_t(v.tercero)];
    CarteraGestion gestion;
    gestion.Poner({{.estado = QStringLiteral("P"),
                    .codigoDocumento = v.cobro ? QStringLiteral("FAC") : QStringLiteral("FRC"),
                    .numeroDocumento = v.numero,
                    .fechaVto = v.vto.toString(QStringLiteral("yyyyMMdd")),
                    .cuenta = tercero.cuenta,
                    .importe = double(v.importe) / 100,
                    .concepto = v.concepto}});
    gestion.TodosCancelados();
    LineasAsiento lineas;
    gestion.GenerarLineasGestion(lineas, {}, u(kDocumentos[a.documento].partida));
    for (const LineaApunte& l : lineas.lineas())
        a.anadir(l.cuenta, centimos(l.debe), centimos(l.haber), l.concepto, l.tipo);
    return gestion;
}

void Generador::cobro(const Vencimiento& v, const QDate& dia) {
    const Tercero& cliente = terceros_[size_t(v.tercero)];
    Asiento a = nuevo(COB, "TES", v.delegacion, dia);
    a.referencia = v.factura;
    const QString concepto =
        QStringLiteral("Cobro fra. ") + v.factura + plazoDe(v) + u' ' + cliente.nombre;
    a.anadir(v.caja ? kCaja : kBancos[v.banco], v.importe, 0, concepto, kPrincipal);
    const CarteraGestion gestion = cerrar(a, v);
    grabar(a, [&](Conexion& c) {
        gestion.CerrarEfectos(c, kEmpresa, u(kDelegaciones[v.delegacion].codigo),
                              fechaPantalla(dia), QStringLiteral("COB"), a.numero, kUsuario);
    });
    if (v.caja) caja_[v.delegacion] += v.importe;
}

void Generador::pago(const Vencimiento& v, const QDate& dia) {
    const Tercero& proveedor = terceros_[size_t(v.tercero)];
    Asiento a = nuevo(PAG, "TES", v.delegacion, dia);
    a.referencia = v.factura;
    const QString concepto =
        QStringLiteral("Pago fra. ") + v.factura + plazoDe(v) + u' ' + proveedor.nombre;
    // Transfers cost a small fee now and then; direct debits do not.
    const qint64 comision =
        proveedor.formaPago != kContado && azar_.siPorCiento(10) ? azar_.centimos(0.5, 6) : 0;
    a.anadir(kBancos[v.banco], 0, v.importe + comision, concepto, kPrincipal);
    const CarteraGestion gestion = cerrar(a, v);
    if (comision)
        a.anadir(kServiciosBancarios, comision, 0,
                 QStringLiteral("Comisión transferencia ") + concepto, kContrapartida);
    grabar(a, [&](Conexion& c) {
        gestion.CerrarEfectos(c, kEmpresa, u(kDelegaciones[v.delegacion].codigo),
                              fechaPantalla(dia), QStringLiteral("PAG"), a.numero, kUsuario);
    });
}

void Generador::comisionBancaria(const QDate& dia) {
    static const char* const conceptos[] = {
        "Comisión emisión de transferencias", "Comisión por devolución de recibo",
        "Comisión ingreso de cheques", "Comisión mantenimiento TPV", "Gastos de correo banco"};
    const int banco = azar_.siPorCiento(70) ? 0 : 1;
    const QString concepto = u(azar_.uno(conceptos)) + u' ' + u(kNombresBancos[banco]);
    const int delegacion = delegacionAlAzar();
    asientoSimple(AS, "TES", delegacion, dia, kServiciosBancarios, kBancos[banco],
                  azar_.centimos(0.6, 45), concepto);
}

QString periodo(int mes) {
    return u(kMeses[mes - 1]) + QStringLiteral(" 2026");
}

// The month's payroll of each branch, and its net pay by transfer the same day.
void Generador::nominas(const QDate& dia) {
    const int mes = dia.month();
    const bool extra = mes == 6 || mes == 12;
    for (int b = 0; b < kNumDelegaciones; ++b) {
        const DatosDelegacion& d = kDelegaciones[b];
        const qint64 base = d.empleados * d.sueldo;
        qint64 bruto = porDiezMil(base, 10000 + azar_.entero(-150, 350));
        if (extra) bruto += base;
        const qint64 irpf = porDiezMil(bruto, azar_.entero(1350, 1650));
        const qint64 ssTrabajador = porDiezMil(bruto, 648);
        const qint64 ssEmpresa = porDiezMil(bruto, 3190);
        const qint64 neto = bruto - irpf - ssTrabajador;

        Asiento a = nuevo(NOM, "NOM", b, dia);
        a.referencia = QStringLiteral("%1/2026").arg(mes, 2, 10, QChar(u'0'));
        const QString concepto =
            (extra ? QStringLiteral("Nómina y paga extra ") : QStringLiteral("Nómina ")) +
            periodo(mes);
        a.anadir(kSueldos, bruto, 0, concepto, kPrincipal);
        a.anadir(kSeguridadSocialEmpresa, ssEmpresa, 0,
                 QStringLiteral("Seguridad Social a cargo de la empresa ") + periodo(mes),
                 kContrapartida);
        a.anadir(kRetenciones, 0, irpf, QStringLiteral("Retenciones IRPF ") + periodo(mes),
                 kContrapartida);
        a.anadir(kSeguridadSocial, 0, ssTrabajador,
                 QStringLiteral("Seguridad Social a cargo del trabajador ") + periodo(mes),
                 kContrapartida);
        a.anadir(kSeguridadSocial, 0, ssEmpresa,
                 QStringLiteral("Seguridad Social a cargo de la empresa ") + periodo(mes),
                 kContrapartida);
        a.anadir(kRemuneraciones, 0, neto, QStringLiteral("Líquido a pagar ") + periodo(mes),
                 kContrapartida);
        grabar(a);
        retencionesTrimestre_[(mes - 1) / 3 + 1] += irpf;
        seguridadSocialMes_[mes] += ssTrabajador + ssEmpresa;

        asientoSimple(AS, "TES", b, dia, kRemuneraciones, kBancos[0], neto,
                      QStringLiteral("Pago nóminas ") + periodo(mes) + u' ' + u(d.nombre),
                      a.numero);
    }
}

void Generador::segurosSociales(const QDate& dia, int mes) {
    if (seguridadSocialMes_[mes] == 0) return;
    asientoSimple(AS, "TES", 0, dia, kSeguridadSocial, kBancos[0], seguridadSocialMes_[mes],
                  QStringLiteral("Seguros sociales ") + periodo(mes));
}

void Generador::modelo111(const QDate& dia, int trimestre) {
    if (retencionesTrimestre_[trimestre] == 0) return;
    asientoSimple(AS, "TES", 0, dia, kRetenciones, kBancos[0], retencionesTrimestre_[trimestre],
                  QStringLiteral("Modelo 111 retenciones IRPF %1T 2026").arg(trimestre));
}

void Generador::modelo303(const QDate& dia, int trimestre) {
    if (ivaAPagar_[trimestre] <= 0) return;
    asientoSimple(AS, "TES", 0, dia, kHaciendaAcreedoraIva, kBancos[0], ivaAPagar_[trimestre],
                  QStringLiteral("Modelo 303 IVA %1T 2026").arg(trimestre));
}

// Closes the quarter's VAT accounts against the Treasury's.
void Generador::liquidacionIva(const QDate& dia, int trimestre) {
    bool hayIva = false;
    for (const DatosIva& tipo : kTiposIva) hayIva = hayIva || saldos_.value(u(tipo.cuenta)) != 0;
    if (!hayIva) return;  // no number is taken for nothing
    Asiento a = nuevo(AS, "GEN", 0, dia);
    const QString concepto = QStringLiteral("Liquidación IVA %1T 2026").arg(trimestre);
    qint64 resultado = 0;  // owed to the Treasury when positive
    for (const DatosIva& tipo : kTiposIva) {
        const QString cuenta = u(tipo.cuenta);
        const qint64 saldo = saldos_.value(cuenta);
        if (saldo == 0) continue;
        a.anadir(cuenta, saldo < 0 ? -saldo : 0, saldo > 0 ? saldo : 0, concepto,
                 a.lineas.empty() ? kPrincipal : kContrapartida);
        resultado -= saldo;
    }
    // A credit of an earlier quarter is set off first.
    const qint64 compensable = std::min(resultado, saldos_.value(kHaciendaDeudoraIva));
    if (compensable > 0) {
        a.anadir(kHaciendaDeudoraIva, 0, compensable, concepto, kContrapartida);
        resultado -= compensable;
    }
    if (resultado > 0)
        a.anadir(kHaciendaAcreedoraIva, 0, resultado, concepto, kContrapartida);
    else if (resultado < 0)
        a.anadir(kHaciendaDeudoraIva, -resultado, 0, concepto, kContrapartida);
    grabar(a);
    ivaAPagar_[trimestre] = resultado;
}

void Generador::mantenimientoCuentas(const QDate& dia) {
    static const qint64 cuotas[] = {1800, 1250};
    for (int b = 0; b < 2; ++b)
        asientoSimple(AS, "TES", 0, dia, kServiciosBancarios, kBancos[b], cuotas[b],
                      QStringLiteral("Comisión mantenimiento cuenta ") + periodo(dia.month()) +
                          u' ' + u(kNombresBancos[b]));
}

// Most of the second bank's money goes to the first, in round hundreds.
void Generador::traspaso(const QDate& dia) {
    const qint64 importe = saldos_.value(kBancos[1]) * 8 / 10 / 10000 * 10000;
    if (importe < 100000) return;
    asientoSimple(AS, "TES", 0, dia, kBancos[0], kBancos[1], importe,
                  QStringLiteral("Traspaso de ") + u(kNombresBancos[1]) + QStringLiteral(" a ") +
                      u(kNombresBancos[0]));
}

void Generador::ingresosDeCaja(const QDate& dia) {
    for (int b = 0; b < kNumDelegaciones; ++b) {
        if (caja_[b] <= 0) continue;
        asientoSimple(AS, "TES", b, dia, kBancos[0], kCaja, caja_[b],
                      QStringLiteral("Ingreso de caja en ") + u(kNombresBancos[0]) + u' ' +
                          u(kDelegaciones[b].nombre));
        caja_[b] = 0;
    }
}

void Generador::inicioDelDia(const QDate& dia) {
    const int mes = dia.month();
    if (dia == siguienteLaborable(QDate(kEjercicio, mes, 1)))
        for (int b = 0; b < kNumDelegaciones; ++b)
            compra(dia, primerAcreedor_ + b, b, kDelegaciones[b].alquiler,
                   QStringLiteral(" alquiler ") + periodo(mes));
    if (mes % 3 == 1 && mes > 1 && dia == siguienteLaborable(QDate(kEjercicio, mes, 20))) {
        modelo303(dia, mes / 3);
        modelo111(dia, mes / 3);
    }
    if (dia == siguienteLaborable(QDate(kEjercicio, mes, 15))) traspaso(dia);
    if (mes > 1 && dia == ultimoLaborableDelMes(mes)) segurosSociales(dia, mes - 1);
    while (!cola_.empty() && cola_.top().cuando <= dia) {
        const Vencimiento v = cola_.top();
        cola_.pop();
        v.cobro ? cobro(v, dia) : pago(v, dia);
    }
}

void Generador::alAzar(const QDate& dia) {
    const int r = azar_.entero(0, 99);
    if (r < 62)
        venta(dia);
    else if (r < 84)
        compra(dia, primerProveedor_ + azar_.frecuente(numProveedores_), -1, 0, QString());
    else if (r < 97)
        compra(dia, primerAcreedor_ + azar_.entero(kNumDelegaciones, numAcreedores_ - 1), -1, 0,
               QString());
    else
        comisionBancaria(dia);
}

void Generador::finDelDia(const QDate& dia) {
    const int mes = dia.month();
    if (dia == ultimoLaborableDelMes(mes)) {
        nominas(dia);
        mantenimientoCuentas(dia);
    }
    if (cierraSemana(dia)) ingresosDeCaja(dia);
    if (mes % 3 == 0 && dia.day() == dia.daysInMonth()) liquidacionIva(dia, mes / 3);
}

void Generador::ejercicio() {
    // The lines due by the end of each day, after the weight of the days so far.
    const QDate primero(kEjercicio, 1, 1);
    const int dias = primero.daysInYear();
    std::vector<double> acumulado(static_cast<size_t>(dias));
    double suma = 0;
    for (int i = 0; i < dias; ++i) acumulado[size_t(i)] = suma += pesoDelDia(primero.addDays(i));

    for (int i = 0; i < dias; ++i) {
        const QDate dia = primero.addDays(i);
        inicioDelDia(dia);
        const qint64 hasta = std::llround(double(objetivo_) * acumulado[size_t(i)] / suma);
        // Some trade every day, even after the month's payroll has run ahead of the quota.
        do alAzar(dia);
        while (lineas_ < hasta);
        finDelDia(dia);
    }
}

void Generador::terminar() {
    if (!lote_) lote_.emplace(c_);
    for (int d = 0; d < int(std::size(kDocumentos)); ++d)
        numeracion::Update(c_, kEmpresa, kEjercicio, series_[d].codigo, longitud_,
                           series_[d].siguiente, u(kDocumentos[d].serie), kUsuario);
    lote_->commit();
    lote_.reset();
    if (ledger_ && !ledgerPendiente_.isEmpty()) {
        if (std::fwrite(ledgerPendiente_.constData(), 1, size_t(ledgerPendiente_.size()),
                        ledger_) != size_t(ledgerPendiente_.size()) ||
            std::fflush(ledger_) != 0)
            throw Error(1, QStringLiteral("No se puede escribir el diario de ledger."));
        ledgerPendiente_.clear();
    }
}

// ---------------------------------------------------------------------------------------------
// The program folder

void escribirSiFalta(const QString& nombre, const QByteArray& contenido) {
    QFile archivo(programa::ruta(nombre));
    if (archivo.exists()) return;
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(contenido) != contenido.size())
        throw Error(1, QStringLiteral("No se puede escribir ") + archivo.fileName());
}

// A folder without connection files gets SQLite stores; the template store, which the new
// company copies its chart and layouts from, is built from the repository's sources when the
// folder has none.
void prepararCarpeta(const QString& carpeta) {
    if (!QDir().mkpath(carpeta + QStringLiteral("/Dades")))
        throw Error(1, QStringLiteral("No se puede crear la carpeta ") + carpeta);
    programa::establecerCarpeta(carpeta);
    escribirSiFalta(QStringLiteral("Saldeva.udl"),
                    "Provider=SQLite;Data Source=Dades/Saldeva.db\n");
    escribirSiFalta(QStringLiteral("Temporal.udl"),
                    "Provider=SQLite;Data Source=Dades/Temporales.db;Synchronous=Off\n");
    if (QFile::exists(programa::ruta(QStringLiteral("Sistema.udl")))) return;

    const QString sistema = programa::ruta(QStringLiteral("Dades/Sistema.db"));
    if (!QFile::exists(sistema)) {
        const Plantilla plantilla = leerPlantilla(QStringLiteral(SALDEVA_PLANTILLA_FUENTES));
        escribirPlantilla(plantilla, sistema);
    }
    escribirSiFalta(QStringLiteral("Sistema.udl"),
                    "Provider=SQLite;Data Source=Dades/Sistema.db;Mode=Read\n");
}

QString conComa(double valor, int decimales) {
    return QString::number(valor, 'f', decimales).replace(u'.', u',');
}

}  // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    QStringList posicionales;
    quint32 semilla = 2026;
    QString ledger;
    for (int i = 1; i < a.size(); ++i) {
        if (a[i] == u"--semilla" && i + 1 < a.size()) {
            bool ok = false;
            semilla = a[++i].toUInt(&ok);
            if (!ok) {
                uso();
                return 2;
            }
        } else if (a[i] == u"--ledger" && i + 1 < a.size()) {
            ledger = a[++i];
        } else if (a[i].startsWith(u"--")) {
            uso();
            return 2;
        } else {
            posicionales << a[i];
        }
    }
    bool ok = false;
    const qint64 lineas = posicionales.value(1).toLongLong(&ok);
    if (posicionales.size() != 2 || !ok || lineas <= 0) {
        uso();
        return 2;
    }
    const QString carpeta = QDir(posicionales[0]).absolutePath();

    std::FILE* diario = nullptr;
    try {
        prepararCarpeta(carpeta);
        sesion_conexion = std::make_unique<Conexion>(QStringLiteral("File name=Saldeva.udl"));
        sesion_temporal = std::make_unique<Conexion>(QStringLiteral("File name=Temporal.udl"));
        sesion_conexion->asegurarEsquema(esquema::Almacen::Principal);
        sesion_temporal->asegurarEsquema(esquema::Almacen::Temporal);
        sesion_usuario = kUsuario;
        sesion_empresa = sesion_delegacion = kEmpresa;
        sesion_ejercicio = kEjercicio;
        sesion_digitos = kDigitos;

        if (!ledger.isEmpty()) {
            diario = std::fopen(QFile::encodeName(ledger).constData(), "wb");
            if (!diario) throw Error(1, QStringLiteral("No se puede crear ") + ledger);
        }
        Generador g(*sesion_conexion, semilla, lineas, diario);
        g.maestros();
        std::printf("Empresa B con %d delegaciones, %d terceros y %d cuentas añadidas al plan\n",
                    kNumDelegaciones, g.terceros(), g.cuentasNuevas());
        std::fflush(stdout);

        QElapsedTimer reloj;
        reloj.start();
        g.ejercicio();
        g.terminar();
        const double segundos = reloj.nsecsElapsed() / 1e9;

        const QHash<int, qint64>& n = g.porDocumento();
        std::printf(
            "Asientos grabados: %lld (facturas emitidas %lld, recibidas %lld, cobros %lld, "
            "pagos %lld, nóminas %lld, otros %lld)\n",
            g.asientos(), n.value(FAC), n.value(FRC), n.value(COB), n.value(PAG), n.value(NOM),
            n.value(AS));
        std::printf("Vencimientos: %lld, pendientes al cierre %lld\n", g.vencimientosCreados(),
                    g.pendientes());
        std::printf("Apuntes grabados: %lld en %s s (%lld líneas/s)\n", g.lineas(),
                    qPrintable(conComa(segundos, 1)),
                    qlonglong(std::llround(double(g.lineas()) / std::max(segundos, 1e-9))));
        if (diario) {
            if (std::fclose(diario) != 0)
                throw Error(1, QStringLiteral("No se puede escribir ") + ledger);
            diario = nullptr;
            std::printf("Diario de ledger: %s\n", qPrintable(ledger));
        }
    } catch (const Error& e) {
        if (diario) std::fclose(diario);
        std::fprintf(stderr, "%s\n", qPrintable(e.texto()));
        return 1;
    }
    sesion_temporal.reset();
    sesion_conexion.reset();
    Auxiliar::cerrarConexiones();
    return 0;
}
