#pragma once

#include <QList>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <array>

// The layout of a report, read from its text file in Reports/: the paper, the letter, the
// running sums, the group and the bands, each band a list of elements placed in millimetres
// from the band's top-left corner. The format is told at the
// head of diseno.cpp; a file is read once per run and checked whole before any page.
namespace motor {

enum class Formato { Texto, Fecha, Importe, Entero };
enum class Alineacion : quint8 { Izquierda, Derecha, Centro };

struct Estilo {
    bool negrita = false;
    bool cursiva = false;
    double puntos = 0;  // 0: the layout's letter size
    bool operator==(const Estilo&) const = default;
};

struct Elemento {
    enum class Clase { Texto, Campo, Linea };
    Clase clase = Clase::Texto;
    QRectF caja;    // mm within the band; for a line, from top-left to bottom-right
    QString texto;  // Texto: text with {name} substitutions; Campo: an expression
    Formato formato = Formato::Texto;
    Alineacion alineacion = Alineacion::Izquierda;
    bool blancoSiCero = false;
    bool parentesis = false;   // Importe: a negative amount in parentheses
    bool soloEnGrupo = false;  // in a carried-total band: only when the break is inside a group
    int estilo = 0;            // index into Diseno::estilos
    double grosor = 0.2;       // Linea, mm
    QString si;                // drawn only when this value holds; empty: always
    int linea = 0;             // of the file, for its errors
};

enum class TipoBanda {
    CabeceraInforme,   // once, on the first page below the page header
    CabeceraPagina,    // every page
    CabeceraColumnas,  // every page, below the page header
    ArrastreCabecera,  // top of a page that continues the report: the carried totals
    CabeceraGrupo,     // before the first line of each group, never apart from it
    Detalle,           // each row
    PieGrupo,          // after the last line of each group
    ArrastrePie,       // bottom of a page that the report continues on the next
    PieInforme,        // once, after the last group
    PiePagina,         // every page, at its foot
};
constexpr int kTiposBanda = 10;

struct Banda {
    bool presente = false;
    double alto = 0;  // mm
    // Carried-total bands may be limited to breaks that fall inside a group.
    bool soloEnGrupo = false;
    QList<Elemento> elementos;
};

// A running sum over the rows: the expression is added for each row, and the sum starts again
// at zero when the group changes (or never, for the whole report).
struct Acumulado {
    QString nombre;
    QString sumando;  // an expression
    bool porGrupo = false;
    int linea = 0;
};

// A value of each row computed from its fields, the sums and other values before it.
struct Calculo {
    QString nombre;
    QString expresion;
    int linea = 0;
};

// A sum known before the first row: the expression summed over all the rows of the report
// that share the current row's values of the key columns (over all of them, without a key),
// so that a heading printed before its lines can show what they add up to.
struct Total {
    QString nombre;
    QString sumando;
    QStringList clave;  // columns; empty: the whole report
    int linea = 0;
};

// A column of the CSV and XLSX exports: the title it goes under, the value it takes from each
// row (an expression, as a field's) and how that value is written; the line that declares it
// names the layout's mistakes found when it meets its query.
struct ColumnaExportada {
    QString titulo;
    QString expresion;
    Formato formato = Formato::Texto;
    int linea = 0;
};

struct Diseno {
    QString titulo;
    QSizeF papel{210, 297};                 // mm, in the orientation of the page
    double margenes[4] = {12, 10, 12, 12};  // top, right, bottom, left
    QString letra = QStringLiteral("DejaVu Sans");
    double puntos = 8;
    QList<Estilo> estilos{Estilo{}};
    QList<Acumulado> acumulados;
    QList<Calculo> calculos;
    QList<Total> totales;
    QStringList grupo;  // the fields whose change starts a new group; empty: no groups
    QStringList orden;  // the columns the rows are sorted by; empty: the query's order
    int lineaOrden = 0;
    std::array<Banda, kTiposBanda> bandas;
    QList<ColumnaExportada> exportadas;  // empty: the exports take the query's columns
    QString origen;                      // the file it was read from, for its errors

    const Banda& banda(TipoBanda t) const { return bandas[size_t(t)]; }
    Banda& banda(TipoBanda t) { return bandas[size_t(t)]; }
    double anchoUtil() const { return papel.width() - margenes[1] - margenes[3]; }
    // Totals and a sort need every row before the first is laid out; any other layout reads
    // its rows as they come, however many.
    bool retieneFilas() const { return !totales.isEmpty() || !orden.isEmpty(); }
    // "Reports/Extracto.rpt, línea 12": where a mistake of the layout is.
    QString lugar(int linea) const;
};

// A reason as a sentence: with its full stop, never two.
QString frase(const QString& texto);

// Reads a layout; a line that cannot be understood is an Error naming the file and the line.
Diseno leerDiseno(const QString& ruta);
Diseno leerDisenoTexto(const QString& texto, const QString& origen = QString());

}  // namespace motor
