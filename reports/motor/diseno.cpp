// A layout file is read line by line; "#" outside quotes starts a comment. Measures are in
// millimetres with a point as decimal mark; texts go in double quotes ("" inside for one).
//
//   titulo "Libro Diario"
//   papel A4 vertical                  A4 or A3, vertical or horizontal
//   margenes 12 10 12 12               top, right, bottom, left
//   letra "DejaVu Sans" 8              family and size in points
//   acumulado NOMBRE grupo = EXPR      sum of EXPR over the rows, back to zero at each group
//   acumulado NOMBRE informe = EXPR    sum over the whole report
//   calculo NOMBRE = EXPR              a value of each row
//   total NOMBRE por CAMPO[,CAMPO…] = EXPR   sum of EXPR over all the rows with this row's CAMPOs
//   total NOMBRE informe = EXPR        sum of EXPR over all the rows of the report
//   ordenar CAMPO [CAMPO…]             the rows sorted by these columns before anything else
//   grupo CAMPO [CAMPO…]               the fields whose change starts a new group
//   banda TIPO ALTO [solo_en_grupo]    the elements that follow belong to this band
//   texto X Y ANCHO ALTO "Página {pagina}" [opciones]
//   campo X Y ANCHO ALTO EXPR [opciones]     EXPR in quotes when it holds blanks
//   linea X1 Y1 X2 Y2 [grosor=0.3] [si=NOMBRE]
//   exportar "Título" EXPR [fecha|importe|entero]
//
// Options: negrita, cursiva, letra=N, izquierda, derecha, centro, fecha (yyyymmdd shown as
// dd/mm/yyyy), importe (1.234,56), entero, blanco_si_cero, parentesis (with importe, a
// negative amount as (1.234,56) instead of -1.234,56; blanco_si_cero still leaves a zero
// blank), solo_en_grupo (in a carried-total band, only when the page breaks inside a group),
// si=NOMBRE (the element, a line too, is drawn only when the value NOMBRE holds, as told
// below: a column, sum, value, total or formula; a condition of its own is a calculo, as in
// "calculo con_saldo = saldo <> 0" and si=con_saldo; the exports are not affected). Band
// types: cabecera_informe, cabecera_pagina, cabecera_columnas, arrastre_cabecera,
// cabecera_grupo, detalle, pie_grupo, arrastre_pie, pie_informe, pie_pagina.
//
// Expressions (of campo, acumulado, calculo, total and exportar) are made of names (a column
// of the query, a sum, a value, a total, a formula of the run, pagina), numbers with a point,
// texts in single quotes ('Activo'; '' for a quote inside), + - * / and parentheses, the
// comparisons = <> < > <= >= and functions. Arithmetic reads a text as 0; a division by zero
// gives 0. A comparison binds less than + and - (a + b > c is (a + b) > c), only one stands in
// each pair of parentheses, and it gives 1 or 0: two texts compare character by character,
// anything else as numbers, two numbers closer than a millionth being equal. A column that is
// Null holds the empty text. A condition holds when it is a number other than 0 (again, past a
// millionth: the residue of a sum is no amount) or a text that is not empty. Functions, their
// names in any case:
//   si(c, a, b)            a when c holds, else b; a and b may be texts or numbers
//   y(a, b, …), o(a, b, …) 1 when all of them (any of them) hold, else 0
//   empieza(t, p)          1 when the text t begins with the text p, else 0
//   vacio(x)               1 when x is the empty text (a Null column), else 0; never a number
//   derecha(t, n)          the last n characters of t; izquierda(t, n) the first n
//   numero(t)              the number the text t holds ('2026' is 2026, '1.210,50' 1210.5),
//                          0 when it holds none; a number stays itself
// Where a function wants a text and gets a number, it takes the number as a plain field shows
// it ('12,5'). Blanks and # inside a text in single quotes are kept, in double quotes or not.
//
// A total is known on every row before the first one is laid out: the rows are all read and
// walked once beforehand, their sums and values computed as they will be, so that a heading
// shows the sum of the lines below it. Its EXPR may use columns, formulas, sums and values but
// no total, not even through a value: on that first walk every total is 0. A keyed total
// takes, on each row, the sum over the rows with the same values in its key columns wherever
// they stand in the report; in a group's header it is that of the group's first row, in a
// group's foot that of its last one, and before the first row (cabecera_informe) it is 0. A
// total of the whole report is the same everywhere, cabecera_informe included.
// ordenar sorts the rows, stable, before the totals, groups and sums see them: numbers by
// value, texts character by character, a Null before any number and numbers before texts.
// A layout with totals or ordenar holds its rows in memory, which suits statements of
// hundreds of lines; one with neither (a book of millions) reads them as they come.
//
// The exportar lines, wherever they stand, are the columns of the CSV and XLSX exports of the
// preview, in their order: the title heads the column and EXPR gives its value on each row,
// as a detail field would (sums and values included, so a running balance exports as printed);
// fecha writes a yyyymmdd text as a date, importe an amount with two decimals, entero a whole
// number, and without an option a text as it is. They should be the columns the printed report
// shows, titled as printed, with what its headers show once for many lines (the account, the
// entry) repeated on each row. A layout without them exports every column of its query under
// the column's name, in the order of ordenar if it has one. Names are checked when the report
// starts: one that is neither a column, a sum, a value, a total nor a formula (the page number
// is none in a file) stops the run, naming the file and the line.
#include "diseno.h"

#include "data/almacen/error.h"
#include "expresion.h"

#include <QFile>
#include <QHash>
#include <algorithm>

namespace motor {

namespace {

const QHash<QString, TipoBanda>& tiposBanda() {
    static const QHash<QString, TipoBanda> tipos{
        {QStringLiteral("cabecera_informe"), TipoBanda::CabeceraInforme},
        {QStringLiteral("cabecera_pagina"), TipoBanda::CabeceraPagina},
        {QStringLiteral("cabecera_columnas"), TipoBanda::CabeceraColumnas},
        {QStringLiteral("arrastre_cabecera"), TipoBanda::ArrastreCabecera},
        {QStringLiteral("cabecera_grupo"), TipoBanda::CabeceraGrupo},
        {QStringLiteral("detalle"), TipoBanda::Detalle},
        {QStringLiteral("pie_grupo"), TipoBanda::PieGrupo},
        {QStringLiteral("arrastre_pie"), TipoBanda::ArrastrePie},
        {QStringLiteral("pie_informe"), TipoBanda::PieInforme},
        {QStringLiteral("pie_pagina"), TipoBanda::PiePagina},
    };
    return tipos;
}

// The tokens of a line; a quoted token keeps its blanks and loses its quotes.
QStringList trocear(const QString& linea) {
    QStringList tokens;
    qsizetype i = 0;
    const qsizetype n = linea.size();
    while (i < n) {
        while (i < n && linea[i].isSpace()) ++i;
        if (i >= n || linea[i] == u'#') break;
        QString token;
        if (linea[i] == u'"') {
            ++i;
            for (;;) {
                if (i >= n) throw Error(0, QStringLiteral("falta la comilla que cierra"));
                if (linea[i] == u'"') {
                    if (i + 1 < n && linea[i + 1] == u'"') {
                        token += u'"';
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                token += linea[i++];
            }
        } else {
            // A text of an expression keeps its blanks and #: they end nothing inside it.
            bool enTexto = false;
            while (i < n && (enTexto || !linea[i].isSpace())) {
                if (linea[i] == u'\'') enTexto = !enTexto;
                token += linea[i++];
            }
        }
        tokens << token;
    }
    return tokens;
}

double medida(const QString& texto) {
    bool ok = false;
    const double v = texto.toDouble(&ok);
    if (!ok || v < 0)
        throw Error(0, QStringLiteral("\"%1\" no es una medida").arg(recortado(texto)));
    return v;
}

int estiloDe(Diseno& d, const Estilo& e) {
    const qsizetype i = d.estilos.indexOf(e);
    if (i >= 0) return int(i);
    d.estilos << e;
    return int(d.estilos.size() - 1);
}

// A bare name of a value: letters, digits and "_".
QString nombre(const QString& texto) {
    const bool valido = !texto.isEmpty() && std::all_of(texto.cbegin(), texto.cend(), [](QChar c) {
        return c.isLetterOrNumber() || c == u'_';
    });
    if (!valido) throw Error(0, QStringLiteral("\"%1\" no es un nombre").arg(recortado(texto)));
    return texto;
}

void opciones(Diseno& d, Elemento& el, const QStringList& t, qsizetype desde) {
    Estilo estilo;
    for (qsizetype i = desde; i < t.size(); ++i) {
        const QString& o = t[i];
        if (o == u"negrita")
            estilo.negrita = true;
        else if (o == u"cursiva")
            estilo.cursiva = true;
        else if (o.startsWith(u"letra="))
            estilo.puntos = medida(o.mid(6));
        else if (o.startsWith(u"grosor="))
            el.grosor = medida(o.mid(7));
        else if (o == u"izquierda")
            el.alineacion = Alineacion::Izquierda;
        else if (o == u"derecha")
            el.alineacion = Alineacion::Derecha;
        else if (o == u"centro")
            el.alineacion = Alineacion::Centro;
        else if (o == u"fecha")
            el.formato = Formato::Fecha;
        else if (o == u"importe")
            el.formato = Formato::Importe;
        else if (o == u"entero")
            el.formato = Formato::Entero;
        else if (o == u"blanco_si_cero")
            el.blancoSiCero = true;
        else if (o == u"parentesis")
            el.parentesis = true;
        else if (o == u"solo_en_grupo")
            el.soloEnGrupo = true;
        else if (o.startsWith(u"si="))
            el.si = nombre(o.mid(3));
        else
            throw Error(0, QStringLiteral("opción desconocida \"%1\"").arg(recortado(o)));
    }
    if (el.parentesis && el.formato != Formato::Importe)
        throw Error(0, QStringLiteral("parentesis va con importe"));
    el.estilo = estiloDe(d, estilo);
}

void exigir(const QStringList& t, qsizetype minimo) {
    if (t.size() < minimo)
        throw Error(0, QStringLiteral("faltan valores en \"%1\"").arg(recortado(t.join(u' '))));
}

void comprobarExpresion(const QString& texto) {
    if (const QString e = Expresion::errorDeSintaxis(texto); !e.isEmpty()) throw Error(0, e);
}

void leerLinea(Diseno& d, Banda*& banda, const QStringList& t, int numero) {
    const QString& clave = t[0];
    if (clave == u"titulo") {
        exigir(t, 2);
        d.titulo = t[1];
    } else if (clave == u"papel") {
        exigir(t, 3);
        QSizeF p;
        if (t[1] == u"A4")
            p = {210, 297};
        else if (t[1] == u"A3")
            p = {297, 420};
        else
            throw Error(0, QStringLiteral("papel desconocido \"%1\"").arg(t[1]));
        if (t[2] == u"horizontal")
            p.transpose();
        else if (t[2] != u"vertical")
            throw Error(0, QStringLiteral("orientación desconocida \"%1\"").arg(t[2]));
        d.papel = p;
    } else if (clave == u"margenes") {
        exigir(t, 5);
        for (int i = 0; i < 4; ++i) d.margenes[i] = medida(t[i + 1]);
    } else if (clave == u"letra") {
        exigir(t, 3);
        d.letra = t[1];
        d.puntos = medida(t[2]);
    } else if (clave == u"acumulado") {
        exigir(t, 5);
        if (t[3] != u"=" || (t[2] != u"grupo" && t[2] != u"informe"))
            throw Error(0, QStringLiteral("se espera \"acumulado NOMBRE grupo|informe = EXPR\""));
        const QString expr = t.mid(4).join(u' ');
        comprobarExpresion(expr);
        d.acumulados << Acumulado{t[1], expr, t[2] == u"grupo", numero};
    } else if (clave == u"calculo") {
        exigir(t, 4);
        if (t[2] != u"=") throw Error(0, QStringLiteral("se espera \"calculo NOMBRE = EXPR\""));
        const QString expr = t.mid(3).join(u' ');
        comprobarExpresion(expr);
        d.calculos << Calculo{t[1], expr, numero};
    } else if (clave == u"total") {
        exigir(t, 5);
        const qsizetype igual = t.indexOf(QStringLiteral("="), 2);
        const bool informe = t[2] == u"informe" && igual == 3;
        if (igual < 0 || igual + 1 >= t.size() || (!informe && (t[2] != u"por" || igual < 4)))
            throw Error(0, QStringLiteral("se espera \"total NOMBRE por CAMPO[,CAMPO…] = EXPR\" "
                                          "o \"total NOMBRE informe = EXPR\""));
        Total total{nombre(t[1]), t.mid(igual + 1).join(u' '), {}, numero};
        // "por cuenta,nivel" and "por cuenta, nivel" alike.
        for (const QString& c : t.mid(3, igual - 3).join(u',').split(u',', Qt::SkipEmptyParts))
            total.clave << c;
        comprobarExpresion(total.sumando);
        d.totales << total;
    } else if (clave == u"ordenar") {
        exigir(t, 2);
        d.orden = t.mid(1);
        d.lineaOrden = numero;
    } else if (clave == u"grupo") {
        exigir(t, 2);
        d.grupo = t.mid(1);
    } else if (clave == u"banda") {
        exigir(t, 3);
        const auto tipo = tiposBanda().constFind(t[1]);
        if (tipo == tiposBanda().constEnd())
            throw Error(0, QStringLiteral("banda desconocida \"%1\"").arg(t[1]));
        banda = &d.banda(*tipo);
        banda->presente = true;
        banda->alto = medida(t[2]);
        banda->soloEnGrupo = t.size() > 3 && t[3] == u"solo_en_grupo";
    } else if (clave == u"exportar") {
        exigir(t, 3);
        if (t.size() > 4)
            throw Error(0, QStringLiteral("se espera \"exportar TÍTULO EXPR [formato]\""));
        ColumnaExportada c{t[1], t[2], Formato::Texto, numero};
        if (c.titulo.trimmed().isEmpty())
            throw Error(0, QStringLiteral("una columna exportada necesita su título"));
        for (const ColumnaExportada& otra : d.exportadas)
            if (otra.titulo == c.titulo)
                throw Error(0, QStringLiteral("la columna \"%1\" ya se exporta en la línea %2")
                                   .arg(c.titulo)
                                   .arg(otra.linea));
        comprobarExpresion(c.expresion);
        if (t.size() > 3) {
            if (t[3] == u"fecha")
                c.formato = Formato::Fecha;
            else if (t[3] == u"importe")
                c.formato = Formato::Importe;
            else if (t[3] == u"entero")
                c.formato = Formato::Entero;
            else
                throw Error(0,
                            QStringLiteral("formato de exportación desconocido \"%1\"").arg(t[3]));
        }
        d.exportadas << c;
    } else if (clave == u"texto" || clave == u"campo" || clave == u"linea") {
        if (!banda) throw Error(0, QStringLiteral("elemento fuera de una banda"));
        Elemento el;
        el.linea = numero;
        if (clave == u"linea") {
            exigir(t, 5);
            el.clase = Elemento::Clase::Linea;
            el.caja =
                QRectF(QPointF(medida(t[1]), medida(t[2])), QPointF(medida(t[3]), medida(t[4])));
            opciones(d, el, t, 5);
        } else {
            exigir(t, 6);
            el.clase = clave == u"texto" ? Elemento::Clase::Texto : Elemento::Clase::Campo;
            el.caja = QRectF(medida(t[1]), medida(t[2]), medida(t[3]), medida(t[4]));
            el.texto = t[5];
            if (el.clase == Elemento::Clase::Campo) comprobarExpresion(el.texto);
            opciones(d, el, t, 6);
        }
        banda->elementos << el;
    } else {
        throw Error(0, QStringLiteral("no se entiende \"%1\"").arg(recortado(clave)));
    }
}

}  // namespace

QString frase(const QString& texto) {
    return texto.endsWith(u'.') ? texto : texto + u'.';
}

QString Diseno::lugar(int linea) const {
    return QStringLiteral("%1, línea %2")
        .arg(origen.isEmpty() ? QStringLiteral("Diseño") : origen)
        .arg(linea);
}

Diseno leerDisenoTexto(const QString& texto, const QString& origen) {
    Diseno d;
    d.origen = origen;
    Banda* banda = nullptr;
    const QStringList lineas = texto.split(u'\n');
    for (qsizetype n = 0; n < lineas.size(); ++n) {
        try {
            const QStringList t = trocear(lineas[n]);
            if (!t.isEmpty()) leerLinea(d, banda, t, int(n + 1));
        } catch (const Error& e) {
            throw Error(0,
                        QStringLiteral("%1: %2").arg(d.lugar(int(n + 1)), frase(e.descripcion())));
        }
    }
    if (!d.banda(TipoBanda::Detalle).presente)
        throw Error(0, QStringLiteral("%1: no tiene banda de detalle.")
                           .arg(origen.isEmpty() ? QStringLiteral("Diseño") : origen));
    return d;
}

Diseno leerDiseno(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw Error(0, QStringLiteral("No se puede abrir el informe \"%1\"").arg(ruta));
    const QByteArray datos = archivo.readAll();
    // A file overwritten with something else is said to be so, not shown line by line.
    if (std::any_of(datos.cbegin(), datos.cend(),
                    [](char c) { return quint8(c) < 0x20 && c != '\t' && c != '\n' && c != '\r'; }))
        throw Error(0, QStringLiteral("%1: no es un diseño de informe, contiene datos que no son "
                                      "texto")
                           .arg(ruta));
    return leerDisenoTexto(QString::fromUtf8(datos), ruta);
}

}  // namespace motor
