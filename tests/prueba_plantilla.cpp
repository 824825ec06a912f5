// The template store as the build delivers it, and the checks that keep a mistyped source out
// of it. A menu whose child comes before its parent, or an item for the maintenance login under
// a folder it cannot see, breaks the tree at the first login.
#include "data/almacen/conexion.h"
#include "fuentes.h"
#include "reports/estados.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

namespace {
using estados::Clase;

Plantilla entregada() {
    return leerPlantilla(QStringLiteral(SALDEVA_RECURSOS_DIR "/plantilla"));
}

QString texto(const std::optional<QVariant>& v) {
    return v ? v->toString() : QString();
}

// Index of the cuentas column of a statement's rows (after the side, the levels, the title).
int columnaCuentas(const QList<entidad::Valores>& filas) {
    return int(filas.value(0).size()) - 1;
}

// The first row whose tokens reach the account, and the token's text as written.
std::pair<qsizetype, QString> lineaDe(const QList<entidad::Valores>& filas, const QString& cuenta) {
    const int col = columnaCuentas(filas);
    for (qsizetype i = 0; i < filas.size(); ++i)
        for (const QString& t : texto(filas[i][col]).split(u',')) {
            const QString p = t.trimmed().remove(u'?').remove(u'(').remove(u')');
            if (!p.isEmpty() && cuenta.startsWith(p)) return {i, t};
        }
    return {-1, {}};
}

void quitarToken(QList<entidad::Valores>& filas, qsizetype fila, const QString& token) {
    const int col = columnaCuentas(filas);
    QStringList tokens = texto(filas[fila][col]).split(u',');
    tokens.removeOne(token);
    filas[fila][col] = tokens.join(u',');
}

void anadir(QList<entidad::Valores>& filas, qsizetype fila, const QString& cola) {
    const int col = columnaCuentas(filas);
    filas[fila][col] = texto(filas[fila][col]) + cola;
}

const QStringList kFormularios = {"frmUsuarios",       "frmUsuariosDelegaciones",
                                  "frmMenusUsuarios",  "frmEmpresas",
                                  "frmDelegaciones",   "frmEjercicios",
                                  "frmNumeracion",     "frmCuentas",
                                  "frmDocumentos",     "frmDiarios",
                                  "frmImpuestos",      "frmIrpf",
                                  "frmFormasPago",     "frmPersonal",
                                  "frmAcrdeu",         "frmApunte",
                                  "frmCartera",        "frmSeleccionCartera",
                                  "frmRegistroIva",    "frmExtractos",
                                  "frmLibroDiario",    "frmSumasSaldos",
                                  "frmSituacion",      "frmBalanceSituacion",
                                  "frmPergan",         "frmBalancePyG",
                                  "frmLibroIva",       "frmOperacionesTerceros",
                                  "frmRegularizacion", "frmCierre",
                                  "frmInvertir",       "frmAbout"};
}  // namespace

class PruebaPlantilla : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void menuEntregado() {
        Conexion c(QStringLiteral("Provider=SQLite;Data Source=" SALDEVA_PROGRAMA_DIR
                                  "/Dades/Sistema.db;Mode=Read"));
        QHash<QString, int> administrador;  // item -> flag, for the items seen so far
        QSet<QString> formularios;
        QString anterior;
        for (Recordset rs = c.open(QStringLiteral("SELECT * FROM sysMenus ORDER BY item_menu"));
             !rs.eof(); rs.moveNext()) {
            const QString item = rs[QStringLiteral("item_menu")].toString();
            const QString padre = rs[QStringLiteral("item_padre")].toString();
            const QString formulario = rs[QStringLiteral("formulario")].toString();
            const int admin = rs[QStringLiteral("administrador")].toInt();
            QVERIFY2(item > anterior, qPrintable(item));
            QVERIFY2(padre == QStringLiteral("000000000000") || administrador.contains(padre),
                     qPrintable(item));
            // The maintenance login sees an item only if it sees every folder above it.
            if (admin && padre != QStringLiteral("000000000000"))
                QVERIFY2(administrador[padre], qPrintable(item));
            if (!formulario.isEmpty()) {
                QVERIFY2(kFormularios.contains(formulario), qPrintable(formulario));
                formularios.insert(formulario);
            }
            administrador[item] = admin;
            anterior = item;
        }
        QCOMPARE(formularios.size(), kFormularios.size());
        // Without a company, the maintenance login must reach users and companies.
        Recordset admin =
            c.open(QStringLiteral("SELECT formulario FROM sysMenus WHERE administrador <> 0"));
        QStringList suyos;
        for (; !admin.eof(); admin.moveNext()) suyos << admin.value(0).toString();
        QVERIFY(suyos.contains(QStringLiteral("frmUsuarios")));
        QVERIFY(suyos.contains(QStringLiteral("frmEmpresas")));
        QVERIFY(!suyos.contains(QStringLiteral("frmApunte")));
    }

    void fuentesRechazadas_data() {
        QTest::addColumn<QString>("menus");
        QTest::addColumn<QString>("motivo");
        QTest::newRow("child before parent")
            << "001001000000 001000000000 0 frmA A\n001000000000 000000000000 0 - B\n"
            << "carpeta anterior";
        QTest::newRow("codes out of order")
            << "002000000000 000000000000 0 - A\n001000000000 000000000000 0 - B\n"
            << "orden creciente";
        QTest::newRow("parent not the code's own")
            << "001000000000 000000000000 0 - A\n002001000000 001000000000 0 frmB B\n"
            << "el padre debe ser";
        QTest::newRow("parent is a leaf")
            << "001000000000 000000000000 0 frmA A\n001001000000 001000000000 0 frmB B\n"
            << "carpeta anterior";
        QTest::newRow("short code") << "0010 000000000000 0 - A\n"
                                    << "formato";
    }
    void fuentesRechazadas() {
        QFETCH(QString, menus);
        QFETCH(QString, motivo);
        QTemporaryDir dir;
        for (const char* nombre : {"sysPlanContable.txt", "sysSituacion.txt", "sysPergan.txt"}) {
            QFile f(dir.filePath(QString::fromLatin1(nombre)));
            QVERIFY(f.open(QIODevice::WriteOnly));
        }
        QFile f(dir.filePath(QStringLiteral("sysMenus.txt")));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(menus.toUtf8());
        f.close();
        try {
            leerPlantilla(dir.path());
            QFAIL("source accepted");
        } catch (const Error& e) {
            QVERIFY2(e.descripcion().contains(motivo), qPrintable(e.descripcion()));
        }
    }

    // The chart a new company receives: the plan's groups 1 to 7, every account under its group
    // and subgroup, with the accounts a firm posts to every day under their official titles.
    void planEntregado() {
        const Plantilla p = entregada();
        QHash<QString, QString> titulos;
        for (const entidad::Valores& f : p.plan) titulos.insert(texto(f[0]), texto(f[1]));
        QVERIFY2(titulos.size() >= 500, qPrintable(QString::number(titulos.size())));
        for (auto it = titulos.cbegin(); it != titulos.cend(); ++it) {
            QVERIFY2(it.key()[0] >= u'1' && it.key()[0] <= u'7', qPrintable(it.key()));
            for (qsizetype n = 1; n < it.key().size() && n <= 2; ++n)
                QVERIFY2(titulos.contains(it.key().left(n)), qPrintable(it.key()));
        }
        const QList<std::pair<const char*, const char*>> conocidas = {
            {"100", "Capital social"},
            {"129", "Resultado del ejercicio"},
            {"281", "Amortización acumulada del inmovilizado material"},
            {"400", "Proveedores"},
            {"430", "Clientes"},
            {"4700", "Hacienda Pública, deudora por IVA"},
            {"472", "Hacienda Pública, IVA soportado"},
            {"4751", "Hacienda Pública, acreedora por retenciones practicadas"},
            {"477", "Hacienda Pública, IVA repercutido"},
            {"572", "Bancos e instituciones de crédito c/c vista, euros"},
            {"600", "Compras de mercaderías"},
            {"640", "Sueldos y salarios"},
            {"700", "Ventas de mercaderías"},
        };
        for (const auto& [cuenta, titulo] : conocidas)
            QCOMPARE(titulos.value(QString::fromLatin1(cuenta)), QString::fromUtf8(titulo));
        Conexion c(QStringLiteral("Provider=SQLite;Data Source=" SALDEVA_PROGRAMA_DIR
                                  "/Dades/Sistema.db;Mode=Read"));
        QCOMPARE(c.open(QStringLiteral("SELECT COUNT(*) FROM sysPlanContable")).value(0).toInt(),
                 int(p.plan.size()));
        QCOMPARE(c.open(QStringLiteral("SELECT COUNT(*) FROM sysSituacion")).value(0).toInt(),
                 int(p.situacion.size()));
    }

    void estadosEntregados() { QCOMPARE(problemasDeLosEstados(entregada()), QStringList()); }

    // A mis-keyed line of either statement is caught, naming the account or the line.
    void estadoMalTecleado_data() {
        QTest::addColumn<int>("caso");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("balance: account left out") << 0 << "balance: la cuenta 4300 no está";
        QTest::newRow("balance: account twice") << 1 << "balance: la cuenta 4300 está en";
        QTest::newRow("balance: blank before the last token") << 2 << "\" 4309\" no es ninguna";
        QTest::newRow("balance: ? on one side only") << 3 << "balance: la cuenta 5720 está en";
        QTest::newRow("balance: deduction mixed with assets") << 4 << "líneas de deducción";
        QTest::newRow("P&L: income without parentheses") << 5 << "sólo cuentas entre paréntesis";
        QTest::newRow("P&L: a balance account") << 6 << "pérdidas y ganancias: la cuenta 5720";
        QTest::newRow("P&L: sales left out") << 7 << "pérdidas y ganancias: la cuenta 7000 no";
    }
    void estadoMalTecleado() {
        QFETCH(int, caso);
        QFETCH(QString, esperado);
        Plantilla p = entregada();
        auto& s = p.situacion;
        auto& g = p.pergan;
        switch (caso) {
            case 0: {
                const auto [fila, token] = lineaDe(s, "4300");
                quitarToken(s, fila, token);
                break;
            }
            case 1:
                anadir(s, lineaDe(s, "2100").first, ",430");
                break;
            case 2:
                anadir(s, lineaDe(s, "2100").first, ", 4309");
                break;
            case 3: {
                // The bank's "?" on the liabilities side goes.
                for (qsizetype i = 0; i < s.size(); ++i)
                    if (texto(s[i][0]) == u"P" && texto(s[i][5]).contains(u"?57"))
                        quitarToken(s, i, lineaDe(s.mid(i, 1), "5720").second);
                break;
            }
            case 4: {
                const auto deduccion = lineaDe(s, "2810").first;
                anadir(s, deduccion - 1, u',' + texto(s[deduccion][5]));
                s[deduccion][5] = QString();
                break;
            }
            case 5: {
                const auto fila = lineaDe(g, "7000").first;
                g[fila][6] = texto(g[fila][6]).remove(u'(').remove(u')');
                break;
            }
            case 6:
                anadir(g, lineaDe(g, "7000").first, ",(5720)");
                break;
            case 7: {
                const auto [fila, token] = lineaDe(g, "7000");
                quitarToken(g, fila, token);
                break;
            }
        }
        const QStringList problemas = problemasDeLosEstados(p);
        QVERIFY2(problemas.join(u'\n').contains(esperado), qPrintable(problemas.join(u'\n')));
    }

    // With any balanced trial balance, assets (deductions subtracted) equal equity and
    // liabilities before the year is regularised, and the profit and loss columns give the
    // year's result.
    void balanceCuadra_data() {
        QTest::addColumn<quint32>("semilla");
        for (quint32 s : {1u, 7u, 2026u, 99991u})
            QTest::newRow(qPrintable(QString::number(s))) << s;
    }
    void balanceCuadra() {
        QFETCH(quint32, semilla);
        const Plantilla p = entregada();
        QRandomGenerator azar(semilla);
        QHash<QString, qint64> centimos;
        qint64 total = 0;
        const QStringList cuentas = cuentasDePase(p.plan);
        for (const QString& c : cuentas) total += centimos[c] = azar.bounded(-500000, 500000);
        centimos[cuentas.last()] -= total;
        const estados::Saldo saldo = [&](const QStringList& prefijos) {
            qint64 s = 0;
            for (auto it = centimos.cbegin(); it != centimos.cend(); ++it)
                if (std::any_of(prefijos.begin(), prefijos.end(),
                                [&](const QString& x) { return it.key().startsWith(x); }))
                    s += it.value();
            return double(s) / 100;
        };
        double activo = 0, pasivo = 0;
        for (const entidad::Valores& f : p.situacion) {
            const QString lado = texto(f[0]), cuentasLinea = texto(f[5]);
            if (cuentasLinea.isEmpty()) continue;
            const double importe =
                estados::ImporteLinea(estados::Estado::Situacion, lado, cuentasLinea, saldo);
            const auto tokens = estados::LeerCuentas(cuentasLinea);
            const bool deduccion = std::all_of(tokens.begin(), tokens.end(), [](const auto& t) {
                return t.clase == Clase::Parentesis;
            });
            (lado == u"A" ? activo : pasivo) += deduccion ? -importe : importe;
        }
        QCOMPARE(qRound64(activo * 100), qRound64(pasivo * 100));
        double debe = 0, haber = 0;
        for (const entidad::Valores& f : p.pergan) {
            if (texto(f[6]).isEmpty()) continue;
            (texto(f[0]) == u"D" ? debe : haber) += estados::ImporteLinea(
                estados::Estado::PerdidasGanancias, texto(f[0]), texto(f[6]), saldo);
        }
        QCOMPARE(qRound64((haber - debe) * 100), qRound64(-saldo({"6", "7"}) * 100));
    }
};

QTEST_GUILESS_MAIN(PruebaPlantilla)
#include "prueba_plantilla.moc"
