#pragma once

#include "diseno.h"
#include "evaluador.h"
#include "expresion.h"
#include "pagina.h"

#include <QHash>
#include <array>
#include <deque>
#include <memory>
#include <vector>

namespace motor {

class FuenteFilas;

// The formula slots of a run, "periodo='del 01/01/2026 al 31/12/2026'" or "niveles = 3", by
// name: a quoted value is a text, a bare one a number. Empty slots are skipped.
QHash<QString, Valor> leerFormulas(const QStringList& formulas);

// Lays out a report page by page while it reads the rows, so that no more than a page and the
// running sums are ever in memory (a layout that sorts or totals its rows reads them all
// first, Evaluador::preparar). The rules of a page break:
//  - a group's header is never the last thing on a page: it goes with its first line;
//  - a page that the report continues ends with the carried totals (arrastre_pie) and the
//    next one starts with them again (arrastre_cabecera), both computed from the lines before
//    the break; bands marked solo_en_grupo print only when the break falls inside a group;
//  - the page footer sits at the foot of every page, with the page's number.
// A name the layout uses (exported columns included) that is neither a column, a sum, a value,
// a total nor a formula is an Error when the run starts, naming the file and the line.
class Paginador {
public:
    Paginador(const Diseno& diseno, const QHash<QString, Valor>& formulas, FuenteFilas& fuente);

    // The next page; false when the report has no more.
    bool siguiente(Pagina& pagina);
    qint64 filasLeidas() const { return filas_; }
    const Diseno& diseno() const { return d_; }

private:
    struct Parte {
        QString literal;
        int slot = -1;
    };
    struct Enlace {
        const Elemento* elemento;
        Expresion expresion;  // Campo
        QList<Parte> partes;  // Texto
        int condicion = -1;   // the slot of si=, or -1
    };

    void enlazar();
    Enlace enlace(const Elemento& el) const;
    void procesarFila();
    void terminar();
    void asegurar(double alto, bool dentroDeGrupo);
    void abrirPagina(bool continua, bool dentroDeGrupo);
    void cerrarPagina(bool continua, bool dentroDeGrupo);
    void colocar(TipoBanda tipo);
    void colocarEn(TipoBanda tipo, double y);
    bool presente(TipoBanda t) const { return d_.banda(t).presente; }
    double alto(TipoBanda t) const { return presente(t) ? d_.banda(t).alto : 0; }
    bool arrastra(TipoBanda t, bool dentroDeGrupo) const;
    QString texto(const Enlace& e) const;

    const Diseno& d_;
    Evaluador valores_;
    std::unique_ptr<FuenteFilas> retenidas_;  // the rows read beforehand, if the layout asks
    FuenteFilas* fuente_;
    std::array<std::vector<Enlace>, kTiposBanda> bandas_;
    std::vector<QVariant> fila_;

    std::deque<Pagina> listas_;
    Pagina actual_;
    double y_ = 0, limite_ = 0;
    bool empezado_ = false, terminado_ = false, enGrupo_ = false;
    bool corteEnGrupo_ = false;  // the page break being drawn falls inside a group
    qint64 filas_ = 0;
};

}  // namespace motor
