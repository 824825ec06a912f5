#include "evaluador.h"

#include "data/almacen/error.h"
#include "valores.h"

namespace motor {

namespace {
bool iguales(const Valor& a, const Valor& b) {
    return a.esTexto == b.esTexto && (a.esTexto ? a.texto == b.texto : a.numero == b.numero);
}
}  // namespace

Evaluador::Evaluador(const Diseno& diseno, const QHash<QString, Valor>& formulas,
                     const QStringList& columnas)
    : d_(diseno) {
    columnas_ = int(columnas.size());
    for (int i = 0; i < columnas_; ++i) nombres_.insert(columnas[i].toLower(), i);
    slots_.resize(size_t(columnas_));
    baseAcumulados_ = int(slots_.size());
    for (const Acumulado& a : d_.acumulados) {
        nombres_.insert(a.nombre.toLower(), int(slots_.size()));
        slots_.push_back(Valor::deNumero(0));
    }
    baseCalculos_ = int(slots_.size());
    for (const Calculo& c : d_.calculos) {
        nombres_.insert(c.nombre.toLower(), int(slots_.size()));
        slots_.push_back(Valor::deNumero(0));
    }
    for (auto f = formulas.cbegin(); f != formulas.cend(); ++f) {
        nombres_.insert(f.key(), int(slots_.size()));
        slots_.push_back(f.value());
    }
    slotPagina_ = int(slots_.size());
    nombres_.insert(QStringLiteral("pagina"), slotPagina_);
    slots_.push_back(Valor::deNumero(0));

    for (const Acumulado& a : d_.acumulados) sumandos_.push_back(compilar(a.sumando));
    for (const Calculo& c : d_.calculos) calculos_.push_back(compilar(c.expresion));
    for (const QString& g : d_.grupo) {
        const int i = slot(g);
        if (i < 0 || i >= columnas_)
            throw Error(0, QStringLiteral("El grupo del informe nombra \"%1\", que no es una "
                                          "columna de la consulta.")
                               .arg(g));
        grupo_.push_back(i);
    }
    // A file has no pages: the page number is no value of an exported column.
    const Expresion::Resolutor sinPagina = [this](const QString& nombre) {
        const int s = slot(nombre);
        return s == slotPagina_ ? -1 : s;
    };
    for (const ColumnaExportada& c : d_.exportadas) {
        try {
            exportadas_.push_back(Expresion::compilar(c.expresion, sinPagina));
        } catch (const Error& e) {
            throw Error(0, QStringLiteral("%1: la columna exportada \"%2\" no se puede calcular "
                                          "con esta consulta. %3")
                               .arg(d_.lugar(c.linea), c.titulo, frase(e.descripcion())));
        }
    }
    siguiente_.resize(size_t(columnas_));
}

Expresion Evaluador::compilar(const QString& texto) const {
    return Expresion::compilar(texto, [this](const QString& nombre) { return slot(nombre); });
}

bool Evaluador::leer(const std::vector<QVariant>& fila) {
    for (int i = 0; i < columnas_; ++i) siguiente_[size_t(i)] = valorDe(fila[size_t(i)]);
    if (grupo_.empty()) return false;
    bool nuevo = primera_;
    primera_ = false;
    for (int g : grupo_)
        if (!iguales(slots_[size_t(g)], siguiente_[size_t(g)])) nuevo = true;
    return nuevo;
}

void Evaluador::entrar(bool nuevoGrupo) {
    std::swap_ranges(siguiente_.begin(), siguiente_.end(), slots_.begin());
    if (!nuevoGrupo) return;
    for (size_t i = 0; i < size_t(d_.acumulados.size()); ++i)
        if (d_.acumulados[qsizetype(i)].porGrupo)
            slots_[size_t(baseAcumulados_) + i] = Valor::deNumero(0);
}

void Evaluador::acumular() {
    for (size_t i = 0; i < sumandos_.size(); ++i)
        slots_[size_t(baseAcumulados_) + i].numero += sumandos_[i].evaluar(slots_).numero;
    for (size_t i = 0; i < calculos_.size(); ++i)
        slots_[size_t(baseCalculos_) + i] = calculos_[i].evaluar(slots_);
}

}  // namespace motor
