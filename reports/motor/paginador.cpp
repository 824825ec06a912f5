#include "paginador.h"

#include "data/almacen/error.h"
#include "fuente.h"
#include "valores.h"

namespace motor {

QHash<QString, Valor> leerFormulas(const QStringList& formulas) {
    QHash<QString, Valor> resultado;
    for (const QString& f : formulas) {
        const qsizetype igual = f.indexOf(u'=');
        if (igual <= 0) continue;
        const QString nombre = f.left(igual).trimmed().toLower();
        const QString valor = f.mid(igual + 1).trimmed();
        if (valor.startsWith(u'\'')) {
            const qsizetype cierre = valor.lastIndexOf(u'\'');
            resultado.insert(nombre, Valor::deTexto(valor.mid(1, cierre > 0 ? cierre - 1 : -1)));
        } else {
            resultado.insert(nombre, Valor::deNumero(valor.toDouble()));
        }
    }
    return resultado;
}

Paginador::Paginador(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                     FuenteFilas& fuente)
    : d_(diseno), fuente_(fuente) {
    enlazar(formulas);
}

// Gives every name of the layout its slot, and fails on the first one that has none, before a
// single page is laid out.
void Paginador::enlazar(const QHash<QString, Valor>& formulas) {
    const QStringList columnas = fuente_.columnas();
    columnas_ = int(columnas.size());
    QHash<QString, int> nombres;
    for (int i = 0; i < columnas_; ++i) nombres.insert(columnas[i].toLower(), i);
    slots_.resize(size_t(columnas_));
    baseAcumulados_ = int(slots_.size());
    for (const Acumulado& a : d_.acumulados) {
        nombres.insert(a.nombre.toLower(), int(slots_.size()));
        slots_.push_back(Valor::deNumero(0));
    }
    baseCalculos_ = int(slots_.size());
    for (const Calculo& c : d_.calculos) {
        nombres.insert(c.nombre.toLower(), int(slots_.size()));
        slots_.push_back(Valor::deNumero(0));
    }
    for (auto f = formulas.cbegin(); f != formulas.cend(); ++f) {
        nombres.insert(f.key(), int(slots_.size()));
        slots_.push_back(f.value());
    }
    slotPagina_ = int(slots_.size());
    nombres.insert(QStringLiteral("pagina"), slotPagina_);
    slots_.push_back(Valor::deNumero(0));

    const Expresion::Resolutor resolver = [&nombres](const QString& nombre) {
        return nombres.value(nombre.toLower(), -1);
    };
    for (const Acumulado& a : d_.acumulados)
        sumandos_.push_back(Expresion::compilar(a.sumando, resolver));
    for (const Calculo& c : d_.calculos)
        calculos_.push_back(Expresion::compilar(c.expresion, resolver));
    for (const QString& g : d_.grupo) {
        const int i = nombres.value(g.toLower(), -1);
        if (i < 0 || i >= columnas_)
            throw Error(0, QStringLiteral("El grupo del informe nombra \"%1\", que no es una "
                                          "columna de la consulta.")
                               .arg(g));
        grupo_.push_back(i);
    }
    for (int t = 0; t < kTiposBanda; ++t) {
        for (const Elemento& el : d_.bandas[size_t(t)].elementos) {
            Enlace e{&el, {}, {}};
            if (el.clase == Elemento::Clase::Campo) {
                e.expresion = Expresion::compilar(el.texto, resolver);
            } else if (el.clase == Elemento::Clase::Texto) {
                qsizetype i = 0;
                while (i < el.texto.size()) {
                    const qsizetype abre = el.texto.indexOf(u'{', i);
                    const qsizetype cierra = abre < 0 ? -1 : el.texto.indexOf(u'}', abre);
                    if (cierra < 0) {
                        e.partes << Parte{el.texto.mid(i), -1};
                        break;
                    }
                    if (abre > i) e.partes << Parte{el.texto.mid(i, abre - i), -1};
                    const QString nombre = el.texto.mid(abre + 1, cierra - abre - 1).trimmed();
                    const int slot = resolver(nombre);
                    if (slot < 0)
                        throw Error(0, QStringLiteral("El informe usa \"{%1}\", que no tiene "
                                                      "valor en esta ejecución.")
                                           .arg(nombre));
                    e.partes << Parte{{}, slot};
                    i = cierra + 1;
                }
            }
            bandas_[size_t(t)].push_back(std::move(e));
        }
    }
    siguienteFila_.resize(size_t(columnas_));
}

bool Paginador::siguiente(Pagina& pagina) {
    while (listas_.empty() && !terminado_) {
        if (fuente_.leer(fila_)) {
            ++filas_;
            procesarFila();
        } else {
            terminar();
        }
    }
    if (listas_.empty()) return false;
    pagina = std::move(listas_.front());
    listas_.pop_front();
    return true;
}

namespace {
bool iguales(const Valor& a, const Valor& b) {
    return a.esTexto == b.esTexto && (a.esTexto ? a.texto == b.texto : a.numero == b.numero);
}
}  // namespace

void Paginador::procesarFila() {
    for (int i = 0; i < columnas_; ++i) siguienteFila_[size_t(i)] = valorDe(fila_[size_t(i)]);
    if (!empezado_) {
        empezado_ = true;
        abrirPagina(false, false);
        colocar(TipoBanda::CabeceraInforme);
    }
    bool nuevoGrupo = false;
    if (!grupo_.empty()) {
        nuevoGrupo = !enGrupo_;
        for (int g : grupo_)
            if (!iguales(slots_[size_t(g)], siguienteFila_[size_t(g)])) nuevoGrupo = true;
        // The closing group is shown with its own last row, still in the slots.
        if (nuevoGrupo && enGrupo_) {
            asegurar(alto(TipoBanda::PieGrupo), true);
            colocar(TipoBanda::PieGrupo);
            enGrupo_ = false;
        }
    }
    std::swap_ranges(siguienteFila_.begin(), siguienteFila_.end(), slots_.begin());
    if (nuevoGrupo) {
        for (size_t i = 0; i < size_t(d_.acumulados.size()); ++i)
            if (d_.acumulados[qsizetype(i)].porGrupo)
                slots_[size_t(baseAcumulados_) + i] = Valor::deNumero(0);
        asegurar(alto(TipoBanda::CabeceraGrupo) + alto(TipoBanda::Detalle), false);
        enGrupo_ = true;
        colocar(TipoBanda::CabeceraGrupo);
    } else {
        asegurar(alto(TipoBanda::Detalle), enGrupo_);
    }
    for (size_t i = 0; i < sumandos_.size(); ++i)
        slots_[size_t(baseAcumulados_) + i].numero += sumandos_[i].evaluar(slots_).numero;
    for (size_t i = 0; i < calculos_.size(); ++i)
        slots_[size_t(baseCalculos_) + i] = calculos_[i].evaluar(slots_);
    colocar(TipoBanda::Detalle);
}

void Paginador::terminar() {
    if (!empezado_) {
        empezado_ = true;
        abrirPagina(false, false);
        colocar(TipoBanda::CabeceraInforme);
    }
    if (enGrupo_) {
        asegurar(alto(TipoBanda::PieGrupo), true);
        colocar(TipoBanda::PieGrupo);
        enGrupo_ = false;
    }
    asegurar(alto(TipoBanda::PieInforme), false);
    colocar(TipoBanda::PieInforme);
    cerrarPagina(false, false);
    terminado_ = true;
}

bool Paginador::arrastra(TipoBanda t, bool dentroDeGrupo) const {
    return presente(t) && (dentroDeGrupo || !d_.banda(t).soloEnGrupo);
}

// A band that does not fit ends the page. A band taller than a whole page goes where it
// falls, so that a bad layout still ends.
void Paginador::asegurar(double altoBanda, bool dentroDeGrupo) {
    if (y_ + altoBanda <= limite_ + 1e-9) return;
    const double arriba =
        d_.margenes[0] + alto(TipoBanda::CabeceraPagina) + alto(TipoBanda::CabeceraColumnas) +
        (arrastra(TipoBanda::ArrastreCabecera, dentroDeGrupo) ? alto(TipoBanda::ArrastreCabecera)
                                                              : 0);
    if (y_ <= arriba + 1e-9) return;
    cerrarPagina(true, dentroDeGrupo);
    abrirPagina(true, dentroDeGrupo);
}

void Paginador::abrirPagina(bool continua, bool dentroDeGrupo) {
    actual_ = Pagina{};
    actual_.numero = int(slots_[size_t(slotPagina_)].numero) + 1;
    slots_[size_t(slotPagina_)].numero = actual_.numero;
    y_ = d_.margenes[0];
    limite_ = d_.papel.height() - d_.margenes[2] - alto(TipoBanda::PiePagina) -
              alto(TipoBanda::ArrastrePie);
    colocar(TipoBanda::CabeceraPagina);
    colocar(TipoBanda::CabeceraColumnas);
    corteEnGrupo_ = dentroDeGrupo;
    if (continua && arrastra(TipoBanda::ArrastreCabecera, dentroDeGrupo))
        colocar(TipoBanda::ArrastreCabecera);
}

void Paginador::cerrarPagina(bool continua, bool dentroDeGrupo) {
    corteEnGrupo_ = dentroDeGrupo;
    if (continua && arrastra(TipoBanda::ArrastrePie, dentroDeGrupo))
        colocar(TipoBanda::ArrastrePie);
    colocarEn(TipoBanda::PiePagina,
              d_.papel.height() - d_.margenes[2] - alto(TipoBanda::PiePagina));
    listas_.push_back(std::move(actual_));
    actual_ = Pagina{};
}

void Paginador::colocar(TipoBanda tipo) {
    if (!presente(tipo)) return;
    colocarEn(tipo, y_);
    y_ += d_.banda(tipo).alto;
}

QString Paginador::texto(const Enlace& e) const {
    const Elemento& el = *e.elemento;
    if (el.clase == Elemento::Clase::Campo)
        return mostrar(e.expresion.evaluar(slots_), el.formato, el.blancoSiCero);
    if (e.partes.size() == 1 && e.partes[0].slot < 0) return e.partes[0].literal;
    QString t;
    for (const Parte& p : e.partes)
        t += p.slot < 0 ? p.literal : mostrar(slots_[size_t(p.slot)], el.formato, el.blancoSiCero);
    return t;
}

void Paginador::colocarEn(TipoBanda tipo, double y) {
    if (!presente(tipo)) return;
    const double x = d_.margenes[3];
    for (const Enlace& e : bandas_[size_t(tipo)]) {
        const Elemento& el = *e.elemento;
        if (el.soloEnGrupo && !corteEnGrupo_) continue;
        if (el.clase == Elemento::Clase::Linea) {
            actual_.rayas.push_back(
                Raya{QLineF(el.caja.topLeft(), el.caja.bottomRight()).translated(x, y),
                     float(el.grosor)});
            continue;
        }
        QString t = texto(e);
        if (t.isEmpty()) continue;
        actual_.textos.push_back(Trazo{el.caja.translated(x, y), std::move(t), quint8(el.estilo),
                                       quint8(el.alineacion)});
    }
}

}  // namespace motor
