#include "expresion.h"

#include "data/almacen/error.h"

namespace motor {

namespace {
constexpr int kPila = 32;  // the deepest stack an expression may need
}

// Recursive descent over the text, writing the steps in postfix order.
class Compilador {
public:
    Compilador(const QString& texto, const Expresion::Resolutor* resolver)
        : t_(texto), resolver_(resolver) {}

    Expresion compilar() {
        suma();
        blancos();
        if (i_ < t_.size()) fallar(QStringLiteral("sobra \"%1\"").arg(t_.mid(i_)));
        int profundidad = 0;
        for (const auto& p : e_.pasos_) {
            if (p.op == Op::Slot || p.op == Op::Constante)
                ++profundidad;
            else if (p.op != Op::Negativo)
                --profundidad;
            if (profundidad >= kPila) fallar(QStringLiteral("demasiado anidada"));
        }
        if (e_.pasos_.size() == 1 && e_.pasos_[0].op == Expresion::Op::Slot)
            e_.unico_ = e_.pasos_[0].slot;
        return std::move(e_);
    }

private:
    using Op = Expresion::Op;

    [[noreturn]] void fallar(const QString& motivo) const {
        throw Error(0, QStringLiteral("Expresión \"%1\": %2.").arg(t_, motivo));
    }
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
            suma();
            if (!ver(u')')) fallar(QStringLiteral("falta \")\""));
            return;
        }
        const int inicio = i_;
        if (t_[i_].isDigit() || t_[i_] == u'.') {
            while (i_ < t_.size() && (t_[i_].isDigit() || t_[i_] == u'.')) ++i_;
            bool ok = false;
            const double n = t_.mid(inicio, i_ - inicio).toDouble(&ok);
            if (!ok) fallar(QStringLiteral("número mal escrito"));
            e_.pasos_.push_back({Op::Constante, 0, n});
            return;
        }
        while (i_ < t_.size() && (t_[i_].isLetterOrNumber() || t_[i_] == u'_')) ++i_;
        if (i_ == inicio) fallar(QStringLiteral("no se entiende \"%1\"").arg(t_.mid(i_)));
        const QString nombre = t_.mid(inicio, i_ - inicio);
        const int slot = resolver_ ? (*resolver_)(nombre) : 0;
        if (slot < 0) fallar(QStringLiteral("no existe \"%1\"").arg(nombre));
        e_.pasos_.push_back({Op::Slot, slot});
    }

    const QString& t_;
    const Expresion::Resolutor* resolver_;
    qsizetype i_ = 0;
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

Valor Expresion::evaluar(const std::vector<Valor>& valores) const {
    if (unico_ >= 0) return valores[size_t(unico_)];
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
        }
    }
    return Valor::deNumero(n > 0 ? pila[n - 1] : 0);
}

}  // namespace motor
