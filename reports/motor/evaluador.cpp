#include "evaluador.h"

#include "data/almacen/error.h"
#include "fuente.h"
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
    baseTotales_ = int(slots_.size());
    for (const Total& t : d_.totales) {
        nombres_.insert(t.nombre.toLower(), int(slots_.size()));
        slots_.push_back(Valor::deNumero(0));
    }
    for (auto f = formulas.cbegin(); f != formulas.cend(); ++f) {
        nombres_.insert(f.key(), int(slots_.size()));
        slots_.push_back(f.value());
    }
    slotPagina_ = int(slots_.size());
    nombres_.insert(QStringLiteral("pagina"), slotPagina_);
    slots_.push_back(Valor::deNumero(0));

    for (const Acumulado& a : d_.acumulados) sumandos_.push_back(compilar(a.sumando, a.linea));
    for (const Calculo& c : d_.calculos) calculos_.push_back(compilar(c.expresion, c.linea));
    for (const Total& t : d_.totales) {
        totales_.push_back(compilar(t.sumando, t.linea));
        claves_.push_back(
            columnasDe(t.clave, QStringLiteral("El total \"%1\"").arg(t.nombre), t.linea));
    }
    sumas_.resize(totales_.size());
    comprobarTotales();
    orden_ = columnasDe(d_.orden, QStringLiteral("El orden"), d_.lineaOrden);
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

Expresion Evaluador::compilar(const QString& texto, int linea) const {
    try {
        return compilar(texto);
    } catch (const Error& e) {
        throw Error(0, QStringLiteral("%1: %2").arg(d_.lugar(linea), frase(e.descripcion())));
    }
}

std::vector<int> Evaluador::columnasDe(const QStringList& nombres, const QString& que,
                                       int linea) const {
    std::vector<int> columnas;
    for (const QString& n : nombres) {
        const int i = slot(n);
        if (i < 0 || i >= columnas_)
            throw Error(0, QStringLiteral("%1: %2 nombra \"%3\", que no es una columna de la "
                                          "consulta.")
                               .arg(d_.lugar(linea), que, n));
        columnas.push_back(i);
    }
    return columnas;
}

// Totals are summed on a walk where every total is still 0: one summed from a total, even
// through a sum or a value, would be summed from zeros.
void Evaluador::comprobarTotales() const {
    std::vector<bool> deTotal(slots_.size(), false);
    for (size_t i = 0; i < totales_.size(); ++i) deTotal[size_t(baseTotales_) + i] = true;
    const auto lee = [&](const Expresion& e) {
        for (int s : e.leidos())
            if (deTotal[size_t(s)]) return true;
        return false;
    };
    for (bool cambio = true; cambio;) {
        cambio = false;
        for (size_t i = 0; i < sumandos_.size(); ++i)
            if (!deTotal[size_t(baseAcumulados_) + i] && lee(sumandos_[i]))
                cambio = deTotal[size_t(baseAcumulados_) + i] = true;
        for (size_t i = 0; i < calculos_.size(); ++i)
            if (!deTotal[size_t(baseCalculos_) + i] && lee(calculos_[i]))
                cambio = deTotal[size_t(baseCalculos_) + i] = true;
    }
    for (size_t i = 0; i < totales_.size(); ++i)
        if (lee(totales_[i])) {
            const Total& t = d_.totales[qsizetype(i)];
            throw Error(0, QStringLiteral("%1: el total \"%2\" se suma de otro total, y los "
                                          "totales no se conocen hasta sumarlos todos.")
                               .arg(d_.lugar(t.linea), t.nombre));
        }
}

// The values of the key columns of the current row, as one text.
QString Evaluador::clave(const std::vector<int>& columnas) const {
    QString k;
    for (int c : columnas) {
        const Valor& v = slots_[size_t(c)];
        k += v.esTexto ? u'T' + v.texto : u'N' + QString::number(v.numero, 'g', 17);
        k += u'\x1f';
    }
    return k;
}

std::unique_ptr<FuenteFilas> Evaluador::preparar(FuenteFilas& fuente) {
    if (!d_.retieneFilas()) return nullptr;
    std::unique_ptr<FuenteMemoria> filas = FuenteMemoria::retener(fuente);
    filas->ordenar(orden_);
    if (totales_.empty()) return filas;
    const std::vector<Valor> inicio = slots_;
    std::vector<QHash<QString, double>> sumas(totales_.size());
    std::vector<QVariant> fila;
    while (filas->leer(fila)) {
        avanzar(fila);
        for (size_t i = 0; i < totales_.size(); ++i)
            sumas[i][clave(claves_[i])] += totales_[i].evaluar(slots_).numero;
    }
    slots_ = inicio;
    primera_ = true;
    sumas_ = std::move(sumas);
    for (size_t i = 0; i < totales_.size(); ++i)
        if (claves_[i].empty())
            slots_[size_t(baseTotales_) + i] = Valor::deNumero(sumas_[i].value(QString()));
    filas->rebobinar();
    return filas;
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
    for (size_t i = 0; i < claves_.size(); ++i)
        if (!claves_[i].empty())
            slots_[size_t(baseTotales_) + i].numero = sumas_[i].value(clave(claves_[i]));
    if (nuevoGrupo)
        for (size_t i = 0; i < size_t(d_.acumulados.size()); ++i)
            if (d_.acumulados[qsizetype(i)].porGrupo)
                slots_[size_t(baseAcumulados_) + i] = Valor::deNumero(0);
    // The row's values as soon as it is current: a group's header shows them, and a sum may
    // add one of them (a signed amount).
    calcular();
}

void Evaluador::calcular() {
    for (size_t i = 0; i < calculos_.size(); ++i)
        slots_[size_t(baseCalculos_) + i] = calculos_[i].evaluar(slots_);
}

void Evaluador::acumular() {
    for (size_t i = 0; i < sumandos_.size(); ++i)
        slots_[size_t(baseAcumulados_) + i].numero += sumandos_[i].evaluar(slots_).numero;
    // Again, now that the sums hold this row (a running balance).
    if (!sumandos_.empty()) calcular();
}

}  // namespace motor
