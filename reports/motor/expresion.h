#pragma once

#include <QString>
#include <functional>
#include <vector>

// The small arithmetic of the layouts: names, numbers, + - * / and parentheses. A bare name
// gives its value as it is (a text stays a text); arithmetic reads texts as zero. Names are
// resolved once, when the expression is compiled, to the slot that will hold their value, so
// that evaluating a row costs a few steps of a stack and no lookup.
namespace motor {

struct Valor {
    double numero = 0;
    QString texto;
    bool esTexto = false;

    static Valor deNumero(double n) { return Valor{n, {}, false}; }
    static Valor deTexto(const QString& t) { return Valor{0, t, true}; }
};

class Expresion {
public:
    // Gives the slot of a name, or -1 when the name is unknown (an Error naming it).
    using Resolutor = std::function<int(const QString& nombre)>;

    Expresion() = default;
    // A text that is no expression is an Error with the reason.
    static Expresion compilar(const QString& texto, const Resolutor& resolver);
    // Only the syntax: the reason it is not an expression, or empty.
    static QString errorDeSintaxis(const QString& texto);

    Valor evaluar(const std::vector<Valor>& valores) const;
    // The slot of an expression that is one bare name, or -1.
    int nombreUnico() const { return unico_; }

private:
    enum class Op : unsigned char { Slot, Constante, Suma, Resta, Producto, Cociente, Negativo };
    struct Paso {
        Op op;
        int slot = 0;
        double constante = 0;
    };
    std::vector<Paso> pasos_;
    int unico_ = -1;
    friend class Compilador;
};

}  // namespace motor
