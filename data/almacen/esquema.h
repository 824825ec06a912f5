#pragma once

#include <span>
#include <string_view>

// The one declaration of every table of the three stores. The CREATE statements of both
// providers and the column lists of every write come from here; no column name is typed
// anywhere else for those purposes.
namespace esquema {

enum class Tipo {
    Texto,     // codes and free text; compared without trailing blanks
    Fecha,     // text "yyyymmdd" or empty; written through sDate
    Entero16,  // years, levels, line numbers, numeric flags
    Entero32,  // the next number of a series
    Doble,     // amounts and percentages
};

struct Columna {
    std::string_view nombre;
    Tipo tipo;
    bool clave = false;
};

enum class Almacen { Principal, Plantilla, Temporal };

struct Tabla {
    std::string_view nombre;
    std::span<const Columna> columnas;  // stamp columns excluded
    bool sello;                         // ends with ultima_modificacion, ultimo_usuario
    Almacen almacen;
};

// Index that a report needs beyond the primary key.
struct Indice {
    std::string_view nombre;
    std::string_view tabla;
    std::span<const std::string_view> columnas;
};

extern const Tabla Empresas, Delegaciones, Usuarios, UsuariosDelegaciones, Ejercicios, Numeraciones,
    Cuentas, Documentos, Diarios, Impuestos, Irpf, FormasPagos, Personal, Acrdeu, Apuntes, Cartera,
    RegistroIva, RegistroIrpf, Situacion, Pergan, Menus, RestriccionesUsuariosMenus;
extern const Tabla sysMenus, sysPlanContable, sysSituacion, sysPergan;
extern const Tabla Extractos, LibroDiario, SumasSaldos, BalanceSituacion, BalancePyG, LibroIva,
    OperacionesTerceros;

// Every table of a store, in the order of their creation.
std::span<const Tabla* const> tablas(Almacen almacen);
std::span<const Indice> indices();

}  // namespace esquema
