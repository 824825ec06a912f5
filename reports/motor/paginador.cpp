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
    : d_(diseno), valores_(diseno, formulas, fuente.columnas()), fuente_(&fuente) {
    enlazar();
    // The names first: a mistake of the layout shows before the whole query is read.
    retenidas_ = valores_.preparar(fuente);
    if (retenidas_) fuente_ = retenidas_.get();
}

// Binds every element of the bands, and fails on the first name that has no value, before a
// single page is laid out.
void Paginador::enlazar() {
    for (int t = 0; t < kTiposBanda; ++t)
        for (const Elemento& el : d_.bandas[size_t(t)].elementos) {
            try {
                bandas_[size_t(t)].push_back(enlace(el));
            } catch (const Error& e) {
                throw Error(
                    0, QStringLiteral("%1: %2").arg(d_.lugar(el.linea), frase(e.descripcion())));
            }
        }
}

Paginador::Enlace Paginador::enlace(const Elemento& el) const {
    Enlace e{&el, {}, {}};
    if (!el.si.isEmpty()) {
        e.condicion = valores_.slot(el.si);
        if (e.condicion < 0)
            throw Error(0, QStringLiteral("si=%1 nombra un valor que no existe").arg(el.si));
    }
    if (el.clase == Elemento::Clase::Campo) {
        e.expresion = valores_.compilar(el.texto);
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
            const int slot = valores_.slot(nombre);
            if (slot < 0)
                throw Error(0, QStringLiteral("El informe usa \"{%1}\", que no tiene "
                                              "valor en esta ejecución.")
                                   .arg(nombre));
            e.partes << Parte{{}, slot};
            i = cierra + 1;
        }
    }
    return e;
}

bool Paginador::siguiente(Pagina& pagina) {
    while (listas_.empty() && !terminado_) {
        if (fuente_->leer(fila_)) {
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

void Paginador::procesarFila() {
    const bool nuevoGrupo = valores_.leer(fila_);
    if (!empezado_) {
        empezado_ = true;
        abrirPagina(false, false);
        colocar(TipoBanda::CabeceraInforme);
    }
    // The closing group is shown with its own last row, still the current one.
    if (nuevoGrupo && enGrupo_) {
        asegurar(alto(TipoBanda::PieGrupo), true);
        colocar(TipoBanda::PieGrupo);
        enGrupo_ = false;
    }
    valores_.entrar(nuevoGrupo);
    if (nuevoGrupo) {
        asegurar(alto(TipoBanda::CabeceraGrupo) + alto(TipoBanda::Detalle), false);
        enGrupo_ = true;
        colocar(TipoBanda::CabeceraGrupo);
    } else {
        asegurar(alto(TipoBanda::Detalle), enGrupo_);
    }
    valores_.acumular();
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
    actual_.numero = valores_.pagina() + 1;
    valores_.ponerPagina(actual_.numero);
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
        return mostrar(e.expresion.evaluar(valores_.valores()), el.formato, el.blancoSiCero,
                       el.parentesis);
    if (e.partes.size() == 1 && e.partes[0].slot < 0) return e.partes[0].literal;
    QString t;
    for (const Parte& p : e.partes)
        t += p.slot < 0 ? p.literal
                        : mostrar(valores_.valores()[size_t(p.slot)], el.formato, el.blancoSiCero,
                                  el.parentesis);
    return t;
}

void Paginador::colocarEn(TipoBanda tipo, double y) {
    if (!presente(tipo)) return;
    const double x = d_.margenes[3];
    for (const Enlace& e : bandas_[size_t(tipo)]) {
        const Elemento& el = *e.elemento;
        if (el.soloEnGrupo && !corteEnGrupo_) continue;
        if (e.condicion >= 0 && !verdadero(valores_.valores()[size_t(e.condicion)])) continue;
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
