// The template store as the build delivers it, and the checks that keep a mistyped source out
// of it. A menu whose child comes before its parent, or an item for the maintenance login under
// a folder it cannot see, breaks the tree at the first login.
#include "data/almacen/conexion.h"
#include "fuentes.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

namespace {
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
};

QTEST_GUILESS_MAIN(PruebaPlantilla)
#include "prueba_plantilla.moc"
