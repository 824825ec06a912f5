#pragma once

#include <QString>
#include <functional>
#include <vector>

// The small arithmetic of the layouts: names, numbers, + - * / and parentheses, and for the
// statements that choose what to print, texts in single quotes, comparisons and a few
// functions. A bare name gives its value as it is (a text stays a text); arithmetic reads
// texts as zero. Names are resolved once, when the expression is compiled, to the slot that
// will hold their value, so that evaluating a row costs a few steps of a stack and no lookup.
// Plain arithmetic runs on a stack of doubles (the journal evaluates millions of rows); only an
// expression with texts, comparisons or functions pays for a stack of values.
namespace motor {

struct Valor {
    double numero = 0;
    QString texto;
    bool esTexto = false;

    static Valor deNumero(double n) { return Valor{n, {}, false}; }
    static Valor deTexto(const QString& t) { return Valor{0, t, true}; }
};

// A text of a layout quoted in a message: its first 40 characters and "…" when it is longer,
// so that a line of garbage does not fill the box it is shown in.
QString recortado(const QString& texto);

// Whether a value holds as a condition: a text that is not empty, a number that is not zero.
// Sums of amounts carry the residues of binary arithmetic; a number closer to zero than a
// millionth is zero here and in comparisons, so that a balance that adds up to nothing is
// nothing.
bool verdadero(const Valor& v);

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
    // The slots it reads.
    std::vector<int> leidos() const;

private:
    enum class Op : unsigned char {
        Slot,
        Constante,
        Suma,
        Resta,
        Producto,
        Cociente,
        Negativo,
        // Only in expressions evaluated on values.
        Texto,
        Igual,
        Distinto,
        Menor,
        Mayor,
        MenorIgual,
        MayorIgual,
        Si,
        Empieza,
        Vacio,
        Derecha,
        Izquierda,
        Numero,
        Y,
        O,
    };
    struct Paso {
        Op op;
        int slot = 0;  // Slot; Texto: index into textos_
        double constante = 0;
    };
    Valor evaluarValores(const std::vector<Valor>& valores) const;

    std::vector<Paso> pasos_;
    std::vector<QString> textos_;
    int unico_ = -1;
    bool valores_ = false;  // needs the stack of values
    friend class Compilador;
};

}  // namespace motor
