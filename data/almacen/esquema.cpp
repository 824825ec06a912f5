#include "esquema.h"

namespace esquema {
namespace {

using T = Tipo;
constexpr bool K = true;

constexpr Columna kEmpresas[] = {
    {"codigo_empresa", T::Texto, K},
    {"nif", T::Texto},
    {"nombre", T::Texto},
    {"direccion", T::Texto},
    {"cp", T::Texto},
    {"poblacion", T::Texto},
    {"provincia", T::Texto},
    {"pais", T::Texto},
    {"telefono", T::Texto},
    {"fax", T::Texto},
    {"correo", T::Texto},
    {"digitos", T::Entero16},
};
constexpr Columna kDelegaciones[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K},
    {"nombre", T::Texto},
    {"direccion", T::Texto},
    {"cp", T::Texto},
    {"poblacion", T::Texto},
    {"provincia", T::Texto},
    {"pais", T::Texto},
    {"telefono", T::Texto},
    {"fax", T::Texto},
    {"correo", T::Texto},
};
constexpr Columna kUsuarios[] = {{"codigo_usuario", T::Texto, K}, {"contraseña", T::Texto}};
constexpr Columna kUsuariosDelegaciones[] = {
    {"codigo_usuario", T::Texto, K},
    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K},
    {"activo", T::Entero16},
};
constexpr Columna kEjercicios[] = {
    {"codigo_empresa", T::Texto, K}, {"ejercicio", T::Entero16, K}, {"fecha_inicial", T::Fecha},
    {"fecha_final", T::Fecha},       {"inicio_bloqueo", T::Fecha},  {"final_bloqueo", T::Fecha},
    {"regularizado", T::Texto},      {"cerrado", T::Texto},
};
constexpr Columna kNumeraciones[] = {
    {"codigo_empresa", T::Texto, K}, {"ejercicio", T::Entero16, K}, {"numeracion", T::Texto, K},
    {"longitud", T::Entero16},       {"numero", T::Entero32},       {"descripcion", T::Texto},
};
constexpr Columna kCuentas[] = {
    {"codigo_empresa", T::Texto, K}, {"cuenta", T::Texto, K},
    {"descripcion", T::Texto},       {"pases", T::Texto},
    {"nivel", T::Entero16},
};
constexpr Columna kDocumentos[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_documento", T::Texto, K},
    {"descripcion", T::Texto},
    {"partida", T::Texto},
    {"iva", T::Texto},
    {"cartera", T::Texto},
    {"numeracion", T::Texto},
    {"identificador", T::Texto},
};
constexpr Columna kDiarios[] = {
    {"codigo_empresa", T::Texto, K}, {"codigo_diario", T::Texto, K}, {"descripcion", T::Texto}};
constexpr Columna kImpuestos[] = {
    {"codigo_empresa", T::Texto, K}, {"impuesto", T::Texto, K}, {"cta_iva", T::Texto},
    {"pct_iva", T::Doble},           {"cta_re", T::Texto},      {"pct_re", T::Doble},
    {"descripcion", T::Texto},       {"tipo", T::Texto},
};
constexpr Columna kIrpf[] = {
    {"codigo_empresa", T::Texto, K}, {"codigo", T::Texto, K},   {"cuenta", T::Texto},
    {"pct_irpf", T::Doble},          {"descripcion", T::Texto},
};
constexpr Columna kFormasPagos[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_pago", T::Texto, K},
    {"descripcion", T::Texto},
    {"vto1", T::Texto},
    {"pct1", T::Doble},
    {"vto2", T::Texto},
    {"pct2", T::Doble},
    {"vto3", T::Texto},
    {"pct3", T::Doble},
    {"vto4", T::Texto},
    {"pct4", T::Doble},
};
constexpr Columna kPersonal[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo", T::Texto, K},
    {"nombre", T::Texto},
    {"nif", T::Texto},
    {"direccion", T::Texto},
    {"poblacion", T::Texto},
    {"cp", T::Texto},
    {"provincia", T::Texto},
    {"pais", T::Texto},
    {"telefono", T::Texto},
    {"fax", T::Texto},
    {"email", T::Texto},
};
constexpr Columna kAcrdeu[] = {
    {"codigo_empresa", T::Texto, K}, {"cuenta", T::Texto, K},
    {"codigo", T::Texto, K},         {"tipo", T::Texto},
    {"nacionalidad", T::Texto},      {"impuesto", T::Texto},
    {"forma_pago", T::Texto},        {"primer_dia", T::Entero16},
    {"descuento", T::Doble},         {"irpf", T::Texto},
    {"contrapartida", T::Texto},
};
constexpr Columna kApuntes[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K},
    {"codigo_documento", T::Texto, K},
    {"numero_documento", T::Texto, K},
    {"numero_apunte", T::Entero16, K},
    {"codigo_diario", T::Texto},
    {"fecha_apunte", T::Fecha},
    {"fecha_documento", T::Fecha},
    {"referencia", T::Texto},
    {"cuenta", T::Texto},
    {"concepto", T::Texto},
    {"debe", T::Doble},
    {"haber", T::Doble},
    {"tipo", T::Texto},
    {"tag", T::Texto},
};
constexpr Columna kCartera[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K},
    {"codigo_documento", T::Texto, K},
    {"numero_documento", T::Texto, K},
    {"numero_apunte", T::Entero16, K},
    {"fecha_vto", T::Fecha, K},
    {"tipo_acrdeu", T::Texto},
    {"codigo_personal", T::Texto},
    {"concepto", T::Texto},
    {"tipo", T::Texto},
    {"estado", T::Texto},
    {"importe", T::Doble},
    {"fecha_cierre", T::Fecha},
    {"codigo_documento_cierre", T::Texto},
    {"numero_documento_cierre", T::Texto},
};
constexpr Columna kRegistroIva[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K},
    {"codigo_documento", T::Texto, K},
    {"numero_documento", T::Texto, K},
    {"numero_apunte", T::Entero16, K},
    {"tipo", T::Texto},
    {"tipo_acrdeu", T::Texto},
    {"codigo_personal", T::Texto},
    {"impuesto", T::Texto},
    {"base", T::Doble},
    {"pctiva", T::Doble},
    {"iva", T::Doble},
    {"pctre", T::Doble},
    {"re", T::Doble},
};
constexpr Columna kRegistroIrpf[] = {
    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K},
    {"codigo_documento", T::Texto, K},
    {"numero_documento", T::Texto, K},
    {"numero_apunte", T::Entero16, K},
    {"tipo_acrdeu", T::Texto},
    {"codigo_personal", T::Texto},
    {"codigo_irpf", T::Texto},
    {"base", T::Doble},
    {"pctirpf", T::Doble},
    {"irpf", T::Doble},
};
constexpr Columna kSituacion[] = {
    {"codigo_empresa", T::Texto, K}, {"ap", T::Texto, K},         {"nivel_1", T::Entero16, K},
    {"nivel_2", T::Entero16, K},     {"nivel_3", T::Entero16, K}, {"titulo", T::Texto},
    {"cuentas", T::Texto},
};
constexpr Columna kPergan[] = {
    {"codigo_empresa", T::Texto, K},
    {"dh", T::Texto, K},
    {"nivel_1", T::Entero16, K},
    {"nivel_2", T::Entero16, K},
    {"nivel_3", T::Entero16, K},
    {"nivel_4", T::Entero16, K},
    {"titulo", T::Texto},
    {"cuentas", T::Texto},
};
constexpr Columna kMenus[] = {
    {"item_menu", T::Texto, K}, {"item_padre", T::Texto},       {"descripcion", T::Texto},
    {"formulario", T::Texto},   {"administrador", T::Entero16}, {"activo", T::Entero16},
};
constexpr Columna kRestricciones[] = {
    {"codigo_usuario", T::Texto, K},    {"codigo_empresa", T::Texto, K},
    {"codigo_delegacion", T::Texto, K}, {"item_menu", T::Texto, K},
    {"restricciones", T::Texto},
};

// Template store: read only at run time, written by the build.
constexpr Columna kSysMenus[] = {
    {"item_menu", T::Texto, K}, {"item_padre", T::Texto},       {"descripcion", T::Texto},
    {"formulario", T::Texto},   {"administrador", T::Entero16},
};
constexpr Columna kSysPlanContable[] = {
    {"cuenta", T::Texto, K}, {"titulo", T::Texto}, {"nivel", T::Entero16}};
constexpr Columna kSysSituacion[] = {
    {"ap", T::Texto, K},         {"nivel_1", T::Entero16, K}, {"nivel_2", T::Entero16, K},
    {"nivel_3", T::Entero16, K}, {"titulo", T::Texto},        {"cuentas", T::Texto},
};
constexpr Columna kSysPergan[] = {
    {"dh", T::Texto, K},         {"nivel_1", T::Entero16, K}, {"nivel_2", T::Entero16, K},
    {"nivel_3", T::Entero16, K}, {"nivel_4", T::Entero16, K}, {"titulo", T::Texto},
    {"cuentas", T::Texto},
};

// Temporary store: the last report's rows; no keys. Amounts default to zero, as a report
// line may leave them unset and later passes still add them up.
constexpr Columna kExtractos[] = {
    {"cuenta", T::Texto},
    {"codigo_diario", T::Texto},
    {"fecha_apunte", T::Texto},
    {"numero_documento", T::Texto},
    {"numero_apunte", T::Entero32},
    {"concepto", T::Texto},
    {"debe", T::Doble},
    {"haber", T::Doble},
    {"saldo_anterior", T::Doble},
    {"titulo", T::Texto},
};
constexpr Columna kLibroDiario[] = {
    {"fecha_apunte", T::Texto},
    {"numero_documento", T::Texto},
    {"numero_apunte", T::Entero32},
    {"cuenta", T::Texto},
    {"titulo", T::Texto},
    {"concepto", T::Texto},
    {"debe", T::Doble},
    {"haber", T::Doble},
    // What tells apart two entries that share a date and a number.
    {"codigo_documento", T::Texto},
    {"codigo_delegacion", T::Texto},
};
constexpr Columna kSumasSaldos[] = {
    {"cuenta", T::Texto},         {"titulo", T::Texto}, {"nivel", T::Entero32},
    {"saldo_anterior", T::Doble}, {"debe", T::Doble},   {"haber", T::Doble},
    {"mostrar", T::Texto},
};
constexpr Columna kBalanceSituacion[] = {
    {"ap", T::Texto},         {"nivel_1", T::Entero32}, {"nivel_2", T::Entero32},
    {"nivel_3", T::Entero32}, {"titulo", T::Texto},     {"cuentas", T::Texto},
    {"saldo", T::Doble},      {"saldo_ant", T::Doble},
};
constexpr Columna kBalancePyG[] = {
    {"dh", T::Texto},         {"nivel_1", T::Entero32}, {"nivel_2", T::Entero32},
    {"nivel_3", T::Entero32}, {"nivel_4", T::Entero32}, {"titulo", T::Texto},
    {"cuentas", T::Texto},    {"saldo", T::Doble},      {"saldo_ant", T::Doble},
};
constexpr Columna kLibroIva[] = {
    {"tipo", T::Texto},
    {"numero_documento", T::Texto},
    {"fecha_documento", T::Texto},
    {"nif", T::Texto},
    {"nombre", T::Texto},
    {"base", T::Doble},
    {"pctiva", T::Doble},
    {"iva", T::Doble},
    {"pctre", T::Doble},
    {"re", T::Doble},
};
constexpr Columna kOperacionesTerceros[] = {
    {"tipo", T::Texto},      {"nif", T::Texto}, {"nombre", T::Texto},  {"direccion", T::Texto},
    {"poblacion", T::Texto}, {"cp", T::Texto},  {"importe", T::Doble},
};

constexpr std::string_view kApuntesCuenta[] = {"codigo_empresa", "cuenta", "fecha_apunte"};
constexpr std::string_view kApuntesFecha[] = {"codigo_empresa", "fecha_apunte"};
constexpr std::string_view kCarteraPersonal[] = {"codigo_empresa", "tipo_acrdeu", "codigo_personal",
                                                 "estado"};
constexpr std::string_view kRegistroIvaPersonal[] = {"codigo_empresa", "codigo_personal"};

constexpr Indice kIndices[] = {
    {"Apuntes_cuenta", "Apuntes", kApuntesCuenta},
    {"Apuntes_fecha", "Apuntes", kApuntesFecha},
    {"Cartera_personal", "Cartera", kCarteraPersonal},
    {"RegistroIva_personal", "RegistroIva", kRegistroIvaPersonal},
};

constexpr Almacen P = Almacen::Principal;
constexpr Almacen S = Almacen::Plantilla;
constexpr Almacen X = Almacen::Temporal;

}  // namespace

const Tabla Empresas{"Empresas", kEmpresas, true, P};
const Tabla Delegaciones{"Delegaciones", kDelegaciones, true, P};
const Tabla Usuarios{"Usuarios", kUsuarios, true, P};
const Tabla UsuariosDelegaciones{"UsuariosDelegaciones", kUsuariosDelegaciones, true, P};
const Tabla Ejercicios{"Ejercicios", kEjercicios, true, P};
const Tabla Numeraciones{"Numeraciones", kNumeraciones, true, P};
const Tabla Cuentas{"Cuentas", kCuentas, true, P};
const Tabla Documentos{"Documentos", kDocumentos, true, P};
const Tabla Diarios{"Diarios", kDiarios, true, P};
const Tabla Impuestos{"Impuestos", kImpuestos, true, P};
const Tabla Irpf{"Irpf", kIrpf, true, P};
const Tabla FormasPagos{"FormasPagos", kFormasPagos, true, P};
const Tabla Personal{"Personal", kPersonal, true, P};
const Tabla Acrdeu{"Acrdeu", kAcrdeu, true, P};
const Tabla Apuntes{"Apuntes", kApuntes, true, P};
const Tabla Cartera{"Cartera", kCartera, true, P};
const Tabla RegistroIva{"RegistroIva", kRegistroIva, true, P};
const Tabla RegistroIrpf{"RegistroIrpf", kRegistroIrpf, true, P};
const Tabla Situacion{"Situacion", kSituacion, true, P};
const Tabla Pergan{"Pergan", kPergan, true, P};
const Tabla Menus{"Menus", kMenus, false, P};
const Tabla RestriccionesUsuariosMenus{"RestriccionesUsuariosMenus", kRestricciones, true, P};

const Tabla sysMenus{"sysMenus", kSysMenus, false, S};
const Tabla sysPlanContable{"sysPlanContable", kSysPlanContable, false, S};
const Tabla sysSituacion{"sysSituacion", kSysSituacion, false, S};
const Tabla sysPergan{"sysPergan", kSysPergan, false, S};

const Tabla Extractos{"Extractos", kExtractos, false, X};
const Tabla LibroDiario{"LibroDiario", kLibroDiario, false, X};
const Tabla SumasSaldos{"SumasSaldos", kSumasSaldos, false, X};
const Tabla BalanceSituacion{"BalanceSituacion", kBalanceSituacion, false, X};
const Tabla BalancePyG{"BalancePyG", kBalancePyG, false, X};
const Tabla LibroIva{"LibroIva", kLibroIva, false, X};
const Tabla OperacionesTerceros{"OperacionesTerceros", kOperacionesTerceros, false, X};

std::span<const Tabla* const> tablas(Almacen almacen) {
    static const Tabla* const principal[] = {
        &Empresas,    &Delegaciones,
        &Usuarios,    &UsuariosDelegaciones,
        &Ejercicios,  &Numeraciones,
        &Cuentas,     &Documentos,
        &Diarios,     &Impuestos,
        &Irpf,        &FormasPagos,
        &Personal,    &Acrdeu,
        &Apuntes,     &Cartera,
        &RegistroIva, &RegistroIrpf,
        &Situacion,   &Pergan,
        &Menus,       &RestriccionesUsuariosMenus,
    };
    static const Tabla* const plantilla[] = {&sysMenus, &sysPlanContable, &sysSituacion,
                                             &sysPergan};
    static const Tabla* const temporal[] = {&Extractos,          &LibroDiario, &SumasSaldos,
                                            &BalanceSituacion,   &BalancePyG,  &LibroIva,
                                            &OperacionesTerceros};
    switch (almacen) {
        case Almacen::Principal:
            return principal;
        case Almacen::Plantilla:
            return plantilla;
        case Almacen::Temporal:
            return temporal;
    }
    return {};
}

std::span<const Indice> indices() {
    return kIndices;
}

}  // namespace esquema
