#include "expresion.h"

#include "data/almacen/error.h"
#include "data/formato.h"
#include "valores.h"

#include <cmath>

namespace motor {

namespace {

constexpr int kPila = 32;          // the deepest stack an expression may need
constexpr double kResiduo = 1e-6;  // below a millionth, a number is zero
// Parentheses, arguments and signs within one another that the parser follows; far more than
// any layout writes, far less than would exhaust the stack of its recursion.
constexpr int kAnidamiento = 100;

double numeroDe(const Valor& v) {
    return v.esTexto ? 0.0 : v.numero;
}

// A number where a text is asked for is read as a plain field shows it.
QString textoDe(const Valor& v) {
    return v.esTexto ? v.texto : mostrar(v, Formato::Texto, false);
}

// Texts compare character by character when both are texts; otherwise both are numbers.
int comparar(const Valor& a, const Valor& b) {
    if (a.esTexto && b.esTexto) {
        const int c = QString::compare(a.texto, b.texto);
        return (c > 0) - (c < 0);
    }
    const double d = numeroDe(a) - numeroDe(b);
    return std::fabs(d) < kResiduo ? 0 : (d > 0) - (d < 0);
}

Valor logico(bool v) {
    return Valor::deNumero(v ? 1 : 0);
}

}  // namespace

QString recortado(const QString& texto) {
    return texto.size() > 40 ? texto.left(40) + u'…' : texto;
}

bool verdadero(const Valor& v) {
    return v.esTexto ? !v.texto.isEmpty() : std::fabs(v.numero) >= kResiduo;
}

// Recursive descent over the text, writing the steps in postfix order.
class Compilador {
public:
    Compilador(const QString& texto, const Expresion::Resolutor* resolver)
        : t_(texto), resolver_(resolver) {}

    Expresion compilar() {
        comparacion();
        blancos();
        if (i_ < t_.size()) fallar(QStringLiteral("sobra \"%1\"").arg(recortado(t_.mid(i_))));
        int profundidad = 0;
        for (const auto& p : e_.pasos_) {
            profundidad += efecto(p.op);
            if (profundidad >= kPila) fallar(QStringLiteral("demasiado anidada"));
            if (p.op > Op::Negativo) e_.valores_ = true;
        }
        if (e_.pasos_.size() == 1 && e_.pasos_[0].op == Expresion::Op::Slot)
            e_.unico_ = e_.pasos_[0].slot;
        return std::move(e_);
    }

private:
    using Op = Expresion::Op;

    struct Funcion {
        QStringView nombre;
        Op op;
        int argumentos;  // y and o take two or more
    };
    static constexpr Funcion kFunciones[] = {
        {u"si", Op::Si, 3},
        {u"empieza", Op::Empieza, 2},
        {u"vacio", Op::Vacio, 1},
        {u"derecha", Op::Derecha, 2},
        {u"izquierda", Op::Izquierda, 2},
        {u"numero", Op::Numero, 1},
        {u"y", Op::Y, 2},
        {u"o", Op::O, 2},
    };

    // What a step does to the depth of the stack.
    static int efecto(Op op) {
        switch (op) {
            case Op::Slot:
            case Op::Constante:
            case Op::Texto:
                return 1;
            case Op::Negativo:
            case Op::Vacio:
            case Op::Numero:
                return 0;
            case Op::Si:
                return -2;
            default:
                return -1;
        }
    }

    [[noreturn]] void fallar(const QString& motivo) const {
        throw Error(0, QStringLiteral("Expresión \"%1\": %2.").arg(recortado(t_), motivo));
    }
    // One level deeper for as long as it lives.
    struct Nivel {
        explicit Nivel(Compilador& c) : c_(c) {
            if (++c_.nivel_ > kAnidamiento) c_.fallar(QStringLiteral("demasiado anidada"));
        }
        ~Nivel() { --c_.nivel_; }
        Nivel(const Nivel&) = delete;
        Nivel& operator=(const Nivel&) = delete;
        Compilador& c_;
    };
    void blancos() {
        while (i_ < t_.size() && t_[i_].isSpace()) ++i_;
    }
    bool ver(QChar c) {
        blancos();
        if (i_ < t_.size() && t_[i_] == c) {
            ++i_;
            return true;
        }
        return false;
    }
    bool ver(QStringView s) {
        blancos();
        if (!QStringView(t_).mid(i_).startsWith(s)) return false;
        i_ += s.size();
        return true;
    }
    // Comparisons bind less than + and -, and only one stands at each level: "a < b < c"
    // means nothing a layout wants.
    void comparacion() {
        const Nivel nivel(*this);
        suma();
        // The two-character signs before the one-character ones they begin with.
        static constexpr std::pair<QStringView, Op> kSignos[] = {
            {u"<=", Op::MenorIgual}, {u">=", Op::MayorIgual}, {u"<>", Op::Distinto},
            {u"=", Op::Igual},       {u"<", Op::Menor},       {u">", Op::Mayor},
        };
        for (const auto& [signo, op] : kSignos)
            if (ver(signo)) {
                suma();
                e_.pasos_.push_back({op});
                return;
            }
    }
    void suma() {
        producto();
        for (;;) {
            if (ver(u'+')) {
                producto();
                e_.pasos_.push_back({Op::Suma});
            } else if (ver(u'-')) {
                producto();
                e_.pasos_.push_back({Op::Resta});
            } else {
                return;
            }
        }
    }
    void producto() {
        unario();
        for (;;) {
            if (ver(u'*')) {
                unario();
                e_.pasos_.push_back({Op::Producto});
            } else if (ver(u'/')) {
                unario();
                e_.pasos_.push_back({Op::Cociente});
            } else {
                return;
            }
        }
    }
    void unario() {
        if (ver(u'-')) {
            const Nivel nivel(*this);
            unario();
            e_.pasos_.push_back({Op::Negativo});
            return;
        }
        primario();
    }
    void primario() {
        blancos();
        if (i_ >= t_.size()) fallar(QStringLiteral("falta un operando"));
        if (ver(u'(')) {
            comparacion();
            if (!ver(u')')) fallar(QStringLiteral("falta \")\""));
            return;
        }
        if (t_[i_] == u'\'') {
            texto();
            return;
        }
        const qsizetype inicio = i_;
        if (t_[i_].isDigit() || t_[i_] == u'.') {
            while (i_ < t_.size() && (t_[i_].isDigit() || t_[i_] == u'.')) ++i_;
            bool ok = false;
            const double n = t_.mid(inicio, i_ - inicio).toDouble(&ok);
            if (!ok) fallar(QStringLiteral("número mal escrito"));
            e_.pasos_.push_back({Op::Constante, 0, n});
            return;
        }
        while (i_ < t_.size() && (t_[i_].isLetterOrNumber() || t_[i_] == u'_')) ++i_;
        if (i_ == inicio)
            fallar(QStringLiteral("no se entiende \"%1\"").arg(recortado(t_.mid(i_))));
        const QString nombre = t_.mid(inicio, i_ - inicio);
        if (ver(u'(')) {
            funcion(nombre);
            return;
        }
        const int slot = resolver_ ? (*resolver_)(nombre) : 0;
        if (slot < 0) fallar(QStringLiteral("no existe \"%1\"").arg(nombre));
        e_.pasos_.push_back({Op::Slot, slot});
    }
    // 'text', with '' for a quote inside it.
    void texto() {
        QString valor;
        for (++i_;; ++i_) {
            if (i_ >= t_.size()) fallar(QStringLiteral("falta la comilla que cierra un texto"));
            if (t_[i_] == u'\'') {
                if (i_ + 1 < t_.size() && t_[i_ + 1] == u'\'') {
                    valor += u'\'';
                    ++i_;
                    continue;
                }
                ++i_;
                break;
            }
            valor += t_[i_];
        }
        e_.pasos_.push_back({Op::Texto, int(e_.textos_.size())});
        e_.textos_.push_back(valor);
    }
    // The arguments follow the opening parenthesis, already read.
    void funcion(const QString& nombre) {
        const Funcion* f = nullptr;
        for (const Funcion& candidata : kFunciones)
            if (nombre.compare(candidata.nombre, Qt::CaseInsensitive) == 0) f = &candidata;
        if (!f) fallar(QStringLiteral("no existe la función \"%1\"").arg(nombre));
        const bool encadena = f->op == Op::Y || f->op == Op::O;
        int n = 0;
        if (!ver(u')')) {
            do {
                comparacion();
                // y(a, b, c) is y(y(a, b), c).
                if (++n >= 2 && encadena) e_.pasos_.push_back({f->op});
            } while (ver(u','));
            if (!ver(u')'))
                fallar(QStringLiteral("falta \")\" tras los argumentos de %1").arg(nombre));
        }
        if (encadena ? n < f->argumentos : n != f->argumentos)
            fallar(
                QStringLiteral("%1 lleva %2%3 argumentos")
                    .arg(f->nombre.toString(), encadena ? QStringLiteral("al menos ") : QString())
                    .arg(f->argumentos));
        if (!encadena) e_.pasos_.push_back({f->op});
    }

    const QString& t_;
    const Expresion::Resolutor* resolver_;
    qsizetype i_ = 0;
    int nivel_ = 0;
    Expresion e_;
};

Expresion Expresion::compilar(const QString& texto, const Resolutor& resolver) {
    return Compilador(texto, &resolver).compilar();
}

QString Expresion::errorDeSintaxis(const QString& texto) {
    try {
        Compilador(texto, nullptr).compilar();
        return {};
    } catch (const Error& e) {
        return e.descripcion();
    }
}

std::vector<int> Expresion::leidos() const {
    std::vector<int> leidos;
    for (const Paso& p : pasos_)
        if (p.op == Op::Slot) leidos.push_back(p.slot);
    return leidos;
}

Valor Expresion::evaluar(const std::vector<Valor>& valores) const {
    if (unico_ >= 0) return valores[size_t(unico_)];
    if (valores_) return evaluarValores(valores);
    double pila[kPila];
    int n = 0;
    for (const Paso& p : pasos_) {
        switch (p.op) {
            case Op::Slot: {
                const Valor& v = valores[size_t(p.slot)];
                pila[n++] = v.esTexto ? 0.0 : v.numero;
                break;
            }
            case Op::Constante:
                pila[n++] = p.constante;
                break;
            case Op::Suma:
                --n;
                pila[n - 1] += pila[n];
                break;
            case Op::Resta:
                --n;
                pila[n - 1] -= pila[n];
                break;
            case Op::Producto:
                --n;
                pila[n - 1] *= pila[n];
                break;
            case Op::Cociente:
                --n;
                pila[n - 1] = pila[n] == 0 ? 0 : pila[n - 1] / pila[n];
                break;
            case Op::Negativo:
                pila[n - 1] = -pila[n - 1];
                break;
            default:  // never compiled into a numeric expression
                break;
        }
    }
    return Valor::deNumero(n > 0 ? pila[n - 1] : 0);
}

Valor Expresion::evaluarValores(const std::vector<Valor>& valores) const {
    Valor pila[kPila];
    int n = 0;
    for (const Paso& p : pasos_) {
        if (p.op == Op::Slot) {
            pila[n++] = valores[size_t(p.slot)];
            continue;
        }
        if (p.op == Op::Constante) {
            pila[n++] = Valor::deNumero(p.constante);
            continue;
        }
        if (p.op == Op::Texto) {
            pila[n++] = Valor::deTexto(textos_[size_t(p.slot)]);
            continue;
        }
        if (p.op == Op::Si) {
            n -= 2;
            if (verdadero(pila[n - 1]))
                pila[n - 1] = std::move(pila[n]);
            else
                pila[n - 1] = std::move(pila[n + 1]);
            continue;
        }
        if (p.op == Op::Negativo || p.op == Op::Vacio || p.op == Op::Numero) {
            Valor& v = pila[n - 1];
            if (p.op == Op::Negativo)
                v = Valor::deNumero(-numeroDe(v));
            else if (p.op == Op::Vacio)
                v = logico(v.esTexto && v.texto.isEmpty());
            else if (v.esTexto)
                v = Valor::deNumero(formato::leerNumero(v.texto).value_or(0));
            continue;
        }
        --n;
        Valor& a = pila[n - 1];
        const Valor& b = pila[n];
        switch (p.op) {
            case Op::Suma:
                a = Valor::deNumero(numeroDe(a) + numeroDe(b));
                break;
            case Op::Resta:
                a = Valor::deNumero(numeroDe(a) - numeroDe(b));
                break;
            case Op::Producto:
                a = Valor::deNumero(numeroDe(a) * numeroDe(b));
                break;
            case Op::Cociente:
                a = Valor::deNumero(numeroDe(b) == 0 ? 0 : numeroDe(a) / numeroDe(b));
                break;
            case Op::Igual:
                a = logico(comparar(a, b) == 0);
                break;
            case Op::Distinto:
                a = logico(comparar(a, b) != 0);
                break;
            case Op::Menor:
                a = logico(comparar(a, b) < 0);
                break;
            case Op::Mayor:
                a = logico(comparar(a, b) > 0);
                break;
            case Op::MenorIgual:
                a = logico(comparar(a, b) <= 0);
                break;
            case Op::MayorIgual:
                a = logico(comparar(a, b) >= 0);
                break;
            case Op::Empieza:
                a = logico(textoDe(a).startsWith(textoDe(b)));
                break;
            case Op::Derecha:
            case Op::Izquierda: {
                const qsizetype cuantos = std::max<qsizetype>(0, std::llround(numeroDe(b)));
                const QString t = textoDe(a);
                a = Valor::deTexto(p.op == Op::Derecha ? t.right(cuantos) : t.left(cuantos));
                break;
            }
            case Op::Y:
                a = logico(verdadero(a) && verdadero(b));
                break;
            case Op::O:
                a = logico(verdadero(a) || verdadero(b));
                break;
            default:  // the steps handled above
                break;
        }
    }
    return n > 0 ? std::move(pila[n - 1]) : Valor::deNumero(0);
}

}  // namespace motor
