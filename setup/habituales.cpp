#include "habituales.h"

#include "data/almacen/conexion.h"
#include "data/almacen/sql.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/formaspago.h"
#include "data/entidades/impuestos.h"
#include "data/entidades/irpf.h"
#include "data/global.h"
#include "forms/barra.h"
#include "forms/mantenimiento.h"
#include "forms/msgbox.h"

#include <QAction>
#include <QToolBar>

namespace habituales {

namespace {

struct Subcuenta {
    const char* grupo;
    const char* subcuenta;    // empty: the group's own posting account
    const char* descripcion;  // of a subaccount the chart lacks
};

struct TipoIva {
    const char* codigo;
    const char* descripcion;
    const char* tipo;
    Subcuenta iva;
    double pctIva;
    Subcuenta re;  // no group: no surcharge
    double pctRe;
};

const TipoIva kTiposIva[] = {
    {"V21",
     "IVA repercutido 21 %",
     "V",
     {"477", "21", "Hacienda Pública, IVA repercutido 21 %"},
     21,
     {},
     0},
    {"V10",
     "IVA repercutido 10 %",
     "V",
     {"477", "10", "Hacienda Pública, IVA repercutido 10 %"},
     10,
     {},
     0},
    {"V4",
     "IVA repercutido 4 %",
     "V",
     {"477", "4", "Hacienda Pública, IVA repercutido 4 %"},
     4,
     {},
     0},
    {"V21R",
     "IVA repercutido 21 % con recargo de equivalencia 5,2 %",
     "V",
     {"477", "21", "Hacienda Pública, IVA repercutido 21 %"},
     21,
     {"477", "52", "Hacienda Pública, recargo de equivalencia 5,2 %"},
     5.2},
    {"V10R",
     "IVA repercutido 10 % con recargo de equivalencia 1,4 %",
     "V",
     {"477", "10", "Hacienda Pública, IVA repercutido 10 %"},
     10,
     {"477", "14", "Hacienda Pública, recargo de equivalencia 1,4 %"},
     1.4},
    {"V4R",
     "IVA repercutido 4 % con recargo de equivalencia 0,5 %",
     "V",
     {"477", "4", "Hacienda Pública, IVA repercutido 4 %"},
     4,
     {"477", "5", "Hacienda Pública, recargo de equivalencia 0,5 %"},
     0.5},
    {"VEX",
     "Ventas exentas de IVA",
     "V",
     {"477", "", "Hacienda Pública, IVA repercutido"},
     0,
     {},
     0},
    {"C21",
     "IVA soportado 21 %",
     "C",
     {"472", "21", "Hacienda Pública, IVA soportado 21 %"},
     21,
     {},
     0},
    {"C10",
     "IVA soportado 10 %",
     "C",
     {"472", "10", "Hacienda Pública, IVA soportado 10 %"},
     10,
     {},
     0},
    {"C4", "IVA soportado 4 %", "C", {"472", "4", "Hacienda Pública, IVA soportado 4 %"}, 4, {}, 0},
    {"CEX",
     "Compras exentas de IVA",
     "C",
     {"472", "", "Hacienda Pública, IVA soportado"},
     0,
     {},
     0},
    {"I21",
     "IVA soportado 21 % en bienes de inversión",
     "I",
     {"472", "21", "Hacienda Pública, IVA soportado 21 %"},
     21,
     {},
     0},
};

struct Retencion {
    const char* codigo;
    const char* descripcion;
    Subcuenta cuenta;
    double pct;
};

const Retencion kRetencionesIrpf[] = {
    {"P15",
     "Retención de profesionales 15 %",
     {"4751", "15", "Retenciones practicadas a profesionales 15 %"},
     15},
    {"P7",
     "Retención de profesionales de nueva actividad 7 %",
     {"4751", "7", "Retenciones practicadas a profesionales 7 %"},
     7},
    {"A19",
     "Retención de arrendamientos 19 %",
     {"4751", "19", "Retenciones practicadas por arrendamientos 19 %"},
     19},
};

struct FormaPago {
    const char* codigo;
    const char* descripcion;
    struct {
        const char* dias;
        double pct;
    } vto[4];
};

const FormaPago kFormasPago[] = {
    {"CON", "Contado", {{"0", 100}, {"0", 0}, {"0", 0}, {"0", 0}}},
    {"30", "A 30 días", {{"30", 100}, {"0", 0}, {"0", 0}, {"0", 0}}},
    {"30-60", "A 30 y 60 días", {{"30", 50}, {"60", 50}, {"0", 0}, {"0", 0}}},
    {"30-60-90", "A 30, 60 y 90 días", {{"30", 33.33}, {"60", 33.33}, {"90", 33.34}, {"0", 0}}},
};

QString u(const char* texto) {
    return QString::fromUtf8(texto);
}

bool hay(Conexion& c, const QString& tabla, const QString& empresa, const QString& columna,
         const QString& codigo) {
    return !c.open(QStringLiteral("SELECT ") + columna + QStringLiteral(" FROM ") + tabla +
                   QStringLiteral(" WHERE codigo_empresa = ") + sqlTexto(empresa) +
                   QStringLiteral(" AND ") + columna + QStringLiteral(" = ") + sqlTexto(codigo))
                .eof();
}

// The subaccount of a rate, created as a posting account when the chart lacks it.
QString asegurarCuenta(Conexion& c, const QString& empresa, int digitos, const Subcuenta& s,
                       const QString& usuario) {
    const QString cuenta = Cuenta(u(s.grupo), u(s.subcuenta), digitos);
    if (!hay(c, QStringLiteral("Cuentas"), empresa, QStringLiteral("cuenta"), cuenta))
        cuentas::Insert(c, empresa, cuenta, u(s.descripcion), QStringLiteral("S"), digitos,
                        usuario);
    return cuenta;
}

}  // namespace

QString Cuenta(const QString& grupo, const QString& subcuenta, int digitos) {
    if (!subcuenta.isEmpty() && digitos >= grupo.size() + subcuenta.size() + 1)
        return ExpandirCuenta(grupo + u'.' + subcuenta, digitos);
    return grupo.left(3).leftJustified(digitos, u'0');
}

int Impuestos(Conexion& c, const QString& empresa, int digitos, const QString& usuario) {
    Transaccion t(c);
    int anadidos = 0;
    for (const TipoIva& tipo : kTiposIva) {
        const QString codigo = u(tipo.codigo);
        if (hay(c, QStringLiteral("Impuestos"), empresa, QStringLiteral("impuesto"), codigo))
            continue;
        const QString iva = asegurarCuenta(c, empresa, digitos, tipo.iva, usuario);
        const QString re =
            tipo.re.grupo ? asegurarCuenta(c, empresa, digitos, tipo.re, usuario) : QString();
        ::Impuestos::Insert(c, empresa, codigo, iva, tipo.pctIva, re, tipo.pctRe,
                            u(tipo.descripcion), u(tipo.tipo), usuario);
        // A new type is born without its surcharge account: the change stores it.
        if (!re.isEmpty())
            ::Impuestos::Update(c, empresa, codigo, iva, tipo.pctIva, re, tipo.pctRe,
                                u(tipo.descripcion), u(tipo.tipo), usuario);
        ++anadidos;
    }
    t.commit();
    return anadidos;
}

int Retenciones(Conexion& c, const QString& empresa, int digitos, const QString& usuario) {
    Transaccion t(c);
    int anadidos = 0;
    for (const Retencion& r : kRetencionesIrpf) {
        const QString codigo = u(r.codigo);
        if (hay(c, QStringLiteral("Irpf"), empresa, QStringLiteral("codigo"), codigo)) continue;
        irpf::Insert(c, empresa, codigo, asegurarCuenta(c, empresa, digitos, r.cuenta, usuario),
                     r.pct, u(r.descripcion), usuario);
        ++anadidos;
    }
    t.commit();
    return anadidos;
}

int FormasPago(Conexion& c, const QString& empresa, const QString& usuario) {
    Transaccion t(c);
    int anadidos = 0;
    for (const FormaPago& f : kFormasPago) {
        const QString codigo = u(f.codigo);
        if (hay(c, QStringLiteral("FormasPagos"), empresa, QStringLiteral("codigo_pago"), codigo))
            continue;
        ::FormasPago::Insert(c, empresa, codigo, u(f.descripcion), u(f.vto[0].dias), f.vto[0].pct,
                             u(f.vto[1].dias), f.vto[1].pct, u(f.vto[2].dias), f.vto[2].pct,
                             u(f.vto[3].dias), f.vto[3].pct, usuario);
        ++anadidos;
    }
    t.commit();
    return anadidos;
}

void OfrecerEn(FormularioMantenimiento* formulario, Tabla tabla) {
    struct Textos {
        const char* boton;
        const char* pregunta;
        const char* cuantos;
        const char* uno;
    };
    static const Textos kTextos[] = {
        {"Tipos habituales",
         "¿Desea añadir los tipos de IVA habituales que falten? (21 %, 10 % y 4 % de ventas, con "
         "y sin recargo de equivalencia, y de compras; ventas y compras exentas; bienes de "
         "inversión al 21 %)",
         "tipos de IVA", "tipo de IVA"},
        {"Retenciones habituales",
         "¿Desea añadir las retenciones habituales que falten? (profesionales al 15 % y al 7 %, "
         "arrendamientos al 19 %)",
         "retenciones", "retención"},
        {"Formas habituales",
         "¿Desea añadir las formas de pago habituales que falten? (contado, 30 días, 30 y 60 "
         "días, 30, 60 y 90 días)",
         "formas de pago", "forma de pago"},
    };
    const Textos& t = kTextos[int(tabla)];
    QToolBar* barra = formulario->barra();
    barra->addSeparator();
    QAction* accion = barra->addAction(u(t.boton));
    accion->setObjectName(QStringLiteral("habituales"));
    accion->setToolTip(u(t.boton) + QStringLiteral(" (Ctrl+H)"));
    accion->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
    accion->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    formulario->addAction(accion);
    QObject::connect(accion, &QAction::triggered, formulario, [formulario, tabla, t] {
        // Adding rows is inserting: a user without that right has no starting rows either.
        if (!Boton(formulario->barra(), claves::insertar)->isEnabled()) return;
        if (MsgBox(u(t.pregunta), Icono::Pregunta) != Respuesta::Si) return;
        int anadidos = 0;
        const bool hecho = Protegido([&] {
            Conexion& c = *sesion_conexion;
            anadidos = tabla == Tabla::Impuestos
                           ? Impuestos(c, sesion_empresa, sesion_digitos, sesion_usuario)
                       : tabla == Tabla::Retenciones
                           ? Retenciones(c, sesion_empresa, sesion_digitos, sesion_usuario)
                           : FormasPago(c, sesion_empresa, sesion_usuario);
        });
        if (!hecho) return;
        MsgBox(anadidos == 1 ? QStringLiteral("Se ha añadido 1 %1.").arg(u(t.uno))
               : anadidos ? QStringLiteral("Se han añadido %1 %2.").arg(anadidos).arg(u(t.cuantos))
                          : QStringLiteral("No faltaba ninguna de las habituales."),
               Icono::Informacion);
        formulario->LimpiarCampos();
        formulario->RefrescarLista(QString());
    });
}

}  // namespace habituales
