// Every registered form against what a careless or hostile user types: apostrophes and SQL,
// ten thousand characters, a NUL, an emoji, right-to-left letters, numbers and dates that are
// none. Each value is typed into each field, the field is left, and every key the toolbar has
// on at that moment is pressed, the questions answered Yes in one pass and No in the other.
// Nothing may end the process, no box may show a failure of the store, and the store keeps
// every table and every row it held: only what an accepted save writes may change it.
#include "comun/asiento_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/informe_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/almacen/error.h"
#include "data/almacen/esquema.h"
#include "data/entidades/apuntes.h"
#include "data/global.h"
#include "forms/barra.h"
#include "forms/formulario.h"
#include "forms/formularios.h"
#include "portfolio/formularios_cartera.h"
#include "posting/formularios_asientos.h"
#include "reports/formularios_informes.h"
#include "session/sesion.h"
#include "setup/formularios_empresa.h"
#include "yearend/formularios_cierre.h"

#include <QAction>
#include <QDate>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QToolBar>
#include <QtTest>
#include <exception>

namespace {

struct Valor {
    const char* nombre;
    QString texto;
};

const QList<Valor>& valores() {
    static const QList<Valor> lista = {
        {"apóstrofo", QStringLiteral("'")},
        {"OR siempre cierto", QStringLiteral("' OR 'A'='A")},
        {"DROP TABLE", QStringLiteral("'; DROP TABLE Apuntes; --")},
        {"10.000 cifras", QString(10000, u'9')},
        {"NUL", QStringLiteral("A") + QChar(0) + QStringLiteral("B")},
        {"emoji", QStringLiteral("😀")},
        {"derecha a izquierda", QStringLiteral("שלום عربي")},
        {"1e308", QStringLiteral("1e308")},
        {"-0", QStringLiteral("-0")},
        {"NaN", QStringLiteral("NaN")},
        {"31 de febrero", QStringLiteral("31/02/2026")},
        {"fecha cero", QStringLiteral("00/00/0000")},
        {"vacío", QString()},
    };
    return lista;
}

// The keys in the order they are tried: those that only read first, then the saves, so that
// each still finds the value in the field; cancelar last. F10 is the lookup of the field.
// Only the saves may write to the store.
struct Tecla {
    QString clave;
    QKeySequence secuencia;
    const char* nombre;
    bool graba = false;
};
const Tecla kTeclas[] = {
    {claves::filtrar, kFiltrar, "F4"},
    {claves::listar, kListar, "F5"},
    {claves::imprimir, QKeySequence(Qt::CTRL | Qt::Key_P), "Ctrl+P"},
    {claves::lupa, QKeySequence(Qt::Key_F10), "F10"},
    {claves::insertar, kInsertar, "F2", true},
    {claves::modificar, kModificar, "F3", true},
    {claves::borrar, kBorrar, "Ctrl+Supr", true},
    {claves::cancelar, kCancelar, "Esc"},
};

// What the walk has reached, for the message of a failure that ends the process.
QString lugar;

// The rows of every table of the main store by their key, each flattened to one text; a
// table that cannot be read maps to nothing.
using Filas = QHash<QString, QString>;
using Foto = QHash<QString, std::optional<Filas>>;
Foto fotografia() {
    Foto foto;
    for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Principal)) {
        const QString tabla = QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size()));
        QStringList clave;
        for (const esquema::Columna& c : t->columnas)
            if (c.clave) clave << QString::fromUtf8(c.nombre.data(), qsizetype(c.nombre.size()));
        try {
            Filas filas;
            Lectura l = sesion_conexion->leer("SELECT * FROM " + tabla);
            std::vector<QVariant> valores;
            while (l.leer(valores)) {
                QStringList fila, claves;
                for (size_t i = 0; i < valores.size(); ++i) {
                    fila << (valores[i].isNull() ? QStringLiteral("<nulo>")
                                                 : valores[i].toString());
                    if (clave.contains(l.columnas().value(qsizetype(i)), Qt::CaseInsensitive))
                        claves << fila.last();
                }
                filas.insert(claves.join(u'|'), fila.join(u'|'));
            }
            foto.insert(tabla, filas);
        } catch (const std::exception&) {
            foto.insert(tabla, std::nullopt);
        }
    }
    return foto;
}

// "Tabla: +1 ~2 -0" (rows added, changed, gone) for each table whose rows differ; the tables
// and rows of `antes` that `despues` lacks go to `perdidas`.
QStringList diferencias(const Foto& antes, const Foto& despues, QStringList* perdidas = nullptr) {
    QStringList t;
    for (auto it = antes.cbegin(); it != antes.cend(); ++it) {
        const std::optional<Filas>& a = *it;
        const std::optional<Filas> d = despues.value(it.key());
        if (a && !d) {
            t << it.key() + QStringLiteral(": ilegible");
            if (perdidas) *perdidas << it.key() + QStringLiteral(" entera");
        }
        if (!a || !d) continue;
        int nuevas = 0, cambiadas = 0, idas = 0;
        for (auto fila = a->cbegin(); fila != a->cend(); ++fila) {
            if (!d->contains(fila.key())) {
                ++idas;
                if (perdidas) *perdidas << it.key() + QStringLiteral(": ") + fila->left(200);
            } else if (d->value(fila.key()) != *fila) {
                ++cambiadas;
            }
        }
        for (auto fila = d->cbegin(); fila != d->cend(); ++fila) nuevas += !a->contains(fila.key());
        if (nuevas || cambiadas || idas)
            t << QStringLiteral("%1: +%2 ~%3 -%4")
                     .arg(it.key())
                     .arg(nuevas)
                     .arg(cambiadas)
                     .arg(idas);
    }
    return t;
}

QStringList tablasPrincipales() {
    QStringList tablas;
    for (const esquema::Tabla* t : esquema::tablas(esquema::Almacen::Principal))
        tablas << QString::fromUtf8(t->nombre.data(), qsizetype(t->nombre.size()));
    return tablas;
}

// Whatever a transaction writes to the main store and commits moves a counter, so that after
// each key the test knows whether it wrote without reading the whole store; a write rolled
// back takes its mark back with it. SQLite counts the rows; PostgreSQL keeps one row per
// writing transaction, as a counter updated once per row made a save of thousands of rows
// walk the counter's versions over and over.
void contarEscrituras() {
    Conexion& c = *sesion_conexion;
    if (!AlmacenPrueba::postgres()) {
        c.execute("CREATE TABLE escrituras_prueba (n INTEGER NOT NULL)");
        c.execute("INSERT INTO escrituras_prueba (n) VALUES (0)");
        for (const QString& tabla : tablasPrincipales())
            for (const char* evento : {"INSERT", "UPDATE", "DELETE"})
                c.execute(QStringLiteral("CREATE TRIGGER escritura_%1_%2 AFTER %2 ON %1 BEGIN "
                                         "UPDATE escrituras_prueba SET n = n + 1; END")
                              .arg(tabla, QLatin1StringView(evento)));
        return;
    }
    // The database is emptied between tests, not made again: all of this may be there.
    c.execute("CREATE TABLE IF NOT EXISTS escrituras_prueba (xid BIGINT PRIMARY KEY)");
    c.execute("DELETE FROM escrituras_prueba");
    c.execute(
        "CREATE OR REPLACE FUNCTION escritura_prueba() RETURNS trigger AS $$ BEGIN INSERT INTO "
        "escrituras_prueba VALUES (txid_current()) ON CONFLICT DO NOTHING; RETURN NULL; END $$ "
        "LANGUAGE plpgsql");
    for (const QString& tabla : tablasPrincipales())
        c.execute(
            "CREATE OR REPLACE TRIGGER escritura_prueba AFTER INSERT OR UPDATE OR DELETE ON " +
            tabla + " FOR EACH ROW EXECUTE FUNCTION escritura_prueba()");
}
qint64 escrituras() {
    return sesion_conexion
        ->open(AlmacenPrueba::postgres() ? "SELECT COUNT(*) FROM escrituras_prueba"
                                         : "SELECT n FROM escrituras_prueba")
        .value(0)
        .toLongLong();
}

// A box shows a failure of the store when the store's words are in it: the failure of the
// store itself (by its number), an error object of SQLite or PostgreSQL, or what either says
// of a statement that a value broke. The system's own refusals are not.
bool errorDeAlmacen(const QString& texto) {
    static const QRegularExpression patron(
        QStringLiteral("^") + QString::number(errores::kAlmacen) +
            QStringLiteral(" - |(SQLite|PostgreSQL)[^\\n]*\\(Referencia |syntax|sintaxis|no such|"
                           "unrecognized token|unterminated|invalid byte sequence|invalid input|"
                           "SQLSTATE|QSQL|ERROR:|malformed|out of range for type|constraint|"
                           "violates|does not exist|datatype mismatch"),
        QRegularExpression::CaseInsensitiveOption);
    return patron.match(texto).hasMatch();
}

// The fields a user types into: line edits (an editable combo box's too) that are shown,
// on and writable. No form has a multi-line text field.
bool tecleable(const QLineEdit* campo) {
    return campo && campo->isVisible() && campo->isEnabled() && !campo->isReadOnly();
}
QList<QPointer<QLineEdit>> camposDe(const Formulario* f) {
    QList<QPointer<QLineEdit>> campos;
    for (QLineEdit* c : f->findChildren<QLineEdit*>())
        if (tecleable(c)) campos << c;
    return campos;
}

// Types the text over what the field holds: key by key as the keyboard sends it, or, for a
// long text or one with a NUL that no key gives, as a paste does, in one insertion with the
// same editing signals. The field's own checks run when it is left.
void teclearValor(QLineEdit* campo, const QString& texto) {
    campo->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    campo->selectAll();
    if (texto.isEmpty()) {
        QTest::keyClick(campo, Qt::Key_Delete);
    } else if (texto.size() > 40 || texto.contains(QChar(0))) {
        campo->insert(texto);
    } else {
        for (qsizetype i = 0; i < texto.size(); ++i) {
            const QChar c = texto.at(i);
            if (c.unicode() < 128) {
                QTest::keyClick(campo, c.toLatin1());
                continue;
            }
            const qsizetype n = c.isHighSurrogate() ? 2 : 1;
            QTest::sendKeyEvent(QTest::Click, campo, Qt::Key_unknown, texto.mid(i, n),
                                Qt::NoModifier);
            i += n - 1;
        }
    }
    salir(campo);
}

}  // namespace

class PruebaHostil : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaHostil()
        : PruebaFormularios(
              [] {
                  registrarFormulariosSesion();
                  registrarFormulariosEmpresa();
                  registrarFormulariosCartera();
                  registrarFormulariosAsientos();
                  registrarFormulariosInformes();
                  registrarFormulariosCierre();
                  establecerFinProceso([] {});
                  std::set_terminate([] {
                      fprintf(stderr, "Terminado en %s\n", qPrintable(lugar));
                      std::abort();
                  });
              },
              [] {
                  // The usual first day, and an entry already posted that the DROP text
                  // must not take away.
                  prepararAsientos();
                  const QString hoy = QDate::currentDate().toString("dd/MM/yyyy");
                  Apuntes::Insert(*sesion_conexion, "EMP", "EMP", "FV", "FV00026", 1, "GEN", hoy,
                                  hoy, "", "43000001", "Venta", 121, 0, "D", "", "PRUEBA");
                  Apuntes::Insert(*sesion_conexion, "EMP", "EMP", "FV", "FV00026", 2, "GEN", hoy,
                                  hoy, "", "70000001", "Venta", 0, 121, "H", "", "PRUEBA");
                  contarEscrituras();
              }) {}

private:
    int formularios_ = 0, campos_ = 0, acciones_ = 0, preguntas_ = 0, grabaciones_ = 0;

private Q_SLOTS:
    void recorrer_data();
    void recorrer();
    void resumen();
};

void PruebaHostil::recorrer_data() {
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<bool>("si");
    for (const QString& nombre : formularios::nombres()) {
        QTest::newRow(qPrintable(nombre + QStringLiteral(" sí"))) << nombre << true;
        QTest::newRow(qPrintable(nombre + QStringLiteral(" no"))) << nombre << false;
    }
}

void PruebaHostil::recorrer() {
    QFETCH(QString, nombre);
    QFETCH(bool, si);
    Buzon buzon;
    Peticion peticion;
    const Foto antes = fotografia();
    QPointer<Formulario> f = formularios::abrir(nombre);
    if (!f) QSKIP(qPrintable(QStringLiteral("no se abre: ") + buzon.textos.join(" / ")));
    activar(f->ventana());
    formularios_ += si;

    QStringList fallos, informes;
    int grabadas = 0;
    qint64 marca = escrituras();
    // After each step: the questions, the boxes that show a failure of the store, what the
    // form asked the report engine for (laid out as the preview would), and what got written.
    const auto revisar = [&](qsizetype desde, const QString& paso, bool graba) {
        for (qsizetype i = desde; i < buzon.textos.size(); ++i) {
            if (buzon.iconos.at(i) == Icono::Pregunta) ++preguntas_;
            if (errorDeAlmacen(buzon.textos.at(i)))
                fallos << paso + QStringLiteral(": ") + buzon.textos.at(i);
        }
        for (const TrabajoInforme& t : std::exchange(peticion.trabajos, {})) {
            const QString clave = t.archivo + t.formulas.join(u'\n') + t.consulta;
            if (informes.contains(clave)) continue;
            informes << clave;
            try {
                paginasImpresas(QFileInfo(t.archivo).fileName(), t.formulas, t.consulta);
            } catch (const std::exception& e) {
                fallos << paso + QStringLiteral(": el informe falla: ") +
                              QString::fromUtf8(e.what());
            }
        }
        peticion.destinos.clear();
        // Only a save may write, and one that says nothing of a failure was accepted; a
        // refused one rolls its writes back, which the final comparison holds it to.
        if (const qint64 ahora = escrituras(); ahora != marca) {
            marca = ahora;
            if (!graba)
                fallos << paso + QStringLiteral(": escribe en el almacén sin grabar");
            else if (!buzon.iconos.mid(desde).contains(Icono::Critico))
                ++grabadas;
        }
    };
    const auto responder = [&] {
        buzon.respuestas = QList<Respuesta>(20, si ? Respuesta::Si : Respuesta::No);
    };
    QList<QPointer<QLineEdit>> campos = camposDe(f);
    // Windows that a key opened beside the form (a lookup) are closed, and the form brought
    // back as the user would, or opened again if a key closed it.
    const auto volver = [&] {
        for (Formulario* otro : formularios::abiertos())
            if (otro != f) delete otro->ventana();
        if (!f) {
            f = formularios::abrir(nombre);
            QVERIFY2(f, qPrintable(nombre + QStringLiteral(" no se abre de nuevo")));
            campos = camposDe(f);
        }
        if (QApplication::activeWindow() != f->window()) activar(f->ventana());
    };
    // Types into field i and leaves it, looking at what that brought; gives the text left.
    const auto teclear = [&](qsizetype i, const QString& texto, const QString& paso) {
        responder();
        const qsizetype desde = buzon.textos.size();
        teclearValor(campos.value(i), texto);
        revisar(desde, paso, false);
        return campos.value(i) ? campos.value(i)->text() : QString();
    };

    // Each field's ordinary value: the first of these it takes without a word.
    const QStringList corrientes = {
        "A1",  "8",   "FV",       "GEN",
        "FAC", "EMP", "43000001", QDate::currentDate().toString("dd/MM/yyyy")};
    QList<std::pair<QString, QString>> base;  // typed, and as the field keeps it
    for (qsizetype i = 0; i < campos.size(); ++i) {
        base.append(std::pair<QString, QString>());
        for (const QString& texto : corrientes) {
            const qsizetype desde = buzon.textos.size();
            const QString dejado = teclear(i, texto, nombre + QStringLiteral(" base"));
            if (buzon.textos.size() > desde || !tecleable(campos.value(i))) continue;
            base.last() = {texto, dejado};
            break;
        }
        if (base.last().first.isEmpty()) teclear(i, QString(), nombre + QStringLiteral(" base"));
    }
    // The other fields hold their ordinary values and field c the value; what a save or
    // cancelar cleared is typed again.
    const auto preparar = [&](qsizetype c, const Valor& v, QString& dejado, bool siempre) {
        const QString donde = nombre + QStringLiteral(" base");
        for (qsizetype i = 0; i < campos.size(); ++i) {
            if (i == c || base[i].first.isEmpty() || !tecleable(campos[i])) continue;
            if (campos[i]->text() != base[i].second) {
                teclear(i, base[i].first, donde);
                siempre = true;
            }
        }
        if (tecleable(campos.value(c)) && (siempre || campos[c]->text() != dejado))
            dejado = teclear(c, v.texto, lugar + QStringLiteral(", Tab"));
    };

    if (si) campos_ += int(campos.size());
    for (qsizetype c = 0; c < campos.size(); ++c) {
        for (const Valor& v : valores()) {
            if (!tecleable(campos.value(c))) continue;
            const QString donde =
                QStringLiteral("%1 %2, %3")
                    .arg(nombre, campos[c]->objectName(), QString::fromUtf8(v.nombre));
            lugar = donde;
            QString dejado;
            preparar(c, v, dejado, true);
            for (const Tecla& t : kTeclas) {
                volver();
                lugar = donde;
                preparar(c, v, dejado, false);
                QPointer<QLineEdit> campo = campos.value(c);
                QToolBar* barra = f->barra();
                QAction* boton = nullptr;
                for (QAction* a : barra ? barra->actions() : QList<QAction*>())
                    if (a->objectName() == t.clave) boton = a;
                const bool lupa = t.clave == claves::lupa;
                if (lupa ? !tecleable(campo) || campo->property("Tag").toString().isEmpty()
                         : !boton || !boton->isEnabled())
                    continue;
                lugar = donde + QStringLiteral(", ") + QString::fromLatin1(t.nombre);
                responder();
                const qsizetype desde = buzon.textos.size();
                ++acciones_;
                if (lupa) campo->setFocus(Qt::OtherFocusReason);
                QWidget* foco = QApplication::focusWidget();
                QTest::keySequence(foco && f->isAncestorOf(foco) ? foco : f.data(), t.secuencia);
                QApplication::processEvents();
                revisar(desde, lugar, t.graba);
            }
        }
    }
    responder();
    for (Formulario* abierto : formularios::abiertos()) delete abierto->ventana();
    revisar(buzon.textos.size(), nombre + QStringLiteral(" cerrado"), false);
    buzon.respuestas.clear();

    // Every row held before is still there (changed only by an accepted save), and nothing
    // changed without one.
    QStringList perdidas;
    const QStringList cambios = diferencias(antes, fotografia(), &perdidas);
    grabaciones_ += grabadas;
    if (!cambios.isEmpty())
        qInfo().noquote() << grabadas << "grabaciones aceptadas:" << cambios.join(", ");
    if (grabadas == 0 && !cambios.isEmpty()) fallos << QStringLiteral("cambios sin grabación");
    for (const QString& fallo : fallos) qWarning().noquote() << fallo.simplified();
    for (const QString& perdida : perdidas) qWarning().noquote() << "Perdida:" << perdida;
    QVERIFY2(fallos.isEmpty(), qPrintable(QStringLiteral("%1 fallos").arg(fallos.size())));
    QVERIFY2(perdidas.isEmpty(),
             qPrintable(QStringLiteral("%1 filas perdidas").arg(perdidas.size())));
}

void PruebaHostil::resumen() {
    qInfo(
        "Formularios %d, campos %d, valores %d, acciones %d, preguntas %d, grabaciones "
        "aceptadas %d",
        formularios_, campos_, int(valores().size()), acciones_, preguntas_, grabaciones_);
    QVERIFY(formularios_ > 0);
}

QTEST_MAIN(PruebaHostil)
#include "prueba_hostil.moc"
