// The lines of the two statements through their forms, whose key is a side letter and several
// levels: a line typed in lower case or with "02" is stored and listed as the statements read
// it, the list is the company's only in numeric order, a row chosen from it loads by its whole
// key, and the refusals say each form's message (an update of a line gone is 1021 on the
// balance sheet, 1022 on the profit and loss account).
#include "comun/almacen_prueba.h"
#include "comun/empresa_prueba.h"
#include "comun/gui_prueba.h"
#include "comun/prueba_formularios.h"
#include "data/entidades/pergan.h"
#include "data/entidades/situacion.h"
#include "data/global.h"
#include "data/mensajes.h"
#include "forms/formularios.h"
#include "forms/lista.h"
#include "forms/mantenimiento.h"
#include "reports/formularios_informes.h"

#include <QLineEdit>
#include <QtTest>

namespace {

QString m(int codigo) {
    return MensajeError(codigo);
}

// In place of the standard lines a new company gets: lines of both statements, levels 2 and
// 10 so that a text order would show, and a line of another company that neither list may show.
void datosBase() {
    crearEmpresaPrueba();
    sesionEmp();
    Conexion& c = *sesion_conexion;
    for (const char* tabla : {"Situacion", "Pergan"})
        c.execute(QStringLiteral("DELETE FROM ") + QLatin1String(tabla));
    Situacion::Insert(c, "EMP", "A", 10, 0, 0, "Existencias", "30.,31.", "PRUEBA");
    Situacion::Insert(c, "EMP", "A", 2, 0, 0, "Inmovilizado", "20.", "PRUEBA");
    Situacion::Insert(c, "OTRA", "A", 1, 0, 0, "Ajena", "", "PRUEBA");
    Pergan::Insert(c, "EMP", "H", 10, 0, 0, 0, "Ventas", "70.", "PRUEBA");
    Pergan::Insert(c, "EMP", "D", 2, 0, 0, 0, "Compras", "60.", "PRUEBA");
    Pergan::Insert(c, "OTRA", "D", 1, 0, 0, 0, "Ajena", "", "PRUEBA");
}

QStringList filasDe(const ListaClaves* lista) {
    QStringList t;
    for (int i = 0; i < lista->filas(); ++i) {
        QStringList celdas;
        for (int c = 0; c < lista->columnCount(); ++c) celdas << lista->texto(i, c);
        t << celdas.join(u'|');
    }
    return t;
}

void elegirFila(FormularioMantenimiento* f, int fila) {
    f->lista()->setFocus();
    f->lista()->setCurrentItem(f->lista()->topLevelItem(fila));
    QTest::keyClick(f->lista(), Qt::Key_Return);
}

}  // namespace

class PruebaEstructuras : public PruebaFormularios {
    Q_OBJECT
public:
    PruebaEstructuras() : PruebaFormularios(registrarFormulariosInformes, datosBase) {}

private Q_SLOTS:

    // Insert from the keyboard, the whole list, a change of the row chosen from it, and a
    // delete that asks about the line's title, No first.
    void recorrido_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QStringList>("alta");
        QTest::addColumn<QString>("guardada");
        QTest::addColumn<QStringList>("listado");
        QTest::addColumn<int>("nueva");  // the new line's row in it
        QTest::addColumn<int>("titulo");
        QTest::newRow("frmSituacion")
            << "frmSituacion"
            << "Situacion"
            << QStringList{"0=p", "1=02", "2=0", "3=1,0", "4=Deudas d'Otro", "5=40.,41."}
            << "ap = 'P' AND nivel_1 = 2 AND nivel_2 = 0 AND nivel_3 = 1 AND "
               "titulo = 'Deudas d''Otro' AND cuentas = '40.,41.'"
            << QStringList{"A|2|0|0|Inmovilizado|20.", "A|10|0|0|Existencias|30.,31.",
                           "P|2|0|1|Deudas d'Otro|40.,41."}
            << 2 << 4;
        QTest::newRow("frmPergan")
            << "frmPergan"
            << "Pergan"
            << QStringList{"0=h", "1=02", "2=0", "3=0", "4=3", "5=Otros d'ingresos", "6=75."}
            << "dh = 'H' AND nivel_1 = 2 AND nivel_2 = 0 AND nivel_3 = 0 AND nivel_4 = 3 AND "
               "titulo = 'Otros d''ingresos' AND cuentas = '75.'"
            << QStringList{"D|2|0|0|0|Compras|60.", "H|2|0|0|3|Otros d'ingresos|75.",
                           "H|10|0|0|0|Ventas|70."}
            << 1 << 5;
    }
    void recorrido() {
        QFETCH(QString, nombre);
        QFETCH(QString, tabla);
        QFETCH(QStringList, alta);
        QFETCH(QString, guardada);
        QFETCH(QStringList, listado);
        QFETCH(int, nueva);
        QFETCH(int, titulo);
        const QString empresa = "codigo_empresa = 'EMP' AND ";
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        Buzon buzon;
        rellenar(f, alta);
        f->txt(0)->setFocus();
        pulsar(kInsertar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas(tabla, empresa + guardada + " AND ultimo_usuario = 'ANA'"), 1);
        QCOMPARE(f->txt(0)->text(), QString());
        QCOMPARE(filasDe(f->lista()), QStringList(listado[nueva]));

        pulsar(kListar);
        QCOMPARE(filasDe(f->lista()), listado);

        const QString antes = alta[titulo].mid(2);
        elegirFila(f, nueva);
        QCOMPARE(f->txt(titulo)->text(), antes);
        escribir(f->txt(titulo), "Cambiado");
        pulsar(kModificar);
        QCOMPARE(buzon.textos, QStringList());
        QCOMPARE(filas(tabla, empresa + "titulo = 'Cambiado'"), 1);
        listado[nueva].replace(antes, "Cambiado");
        QCOMPARE(filasDe(f->lista()), listado);

        const QString pregunta = "¿Desea eliminar la entrada 'Cambiado'?";
        buzon.respuestas << Respuesta::No << Respuesta::Si;
        for (int vez = 0; vez < 2; ++vez) {
            elegirFila(f, nueva);
            pulsar(kBorrar);
        }
        QCOMPARE(buzon.textos, QStringList({pregunta, pregunta}));
        QCOMPARE(buzon.iconos, QList<Icono>({Icono::Pregunta, Icono::Pregunta}));
        QCOMPARE(filas(tabla, "titulo = 'Cambiado'"), 0);
        QCOMPARE(filas(tabla), 3);
        listado.removeAt(nueva);
        QCOMPARE(filasDe(f->lista()), listado);
    }

    // Leaving a field: a refusal shows its message and keeps the focus; what passes shows as
    // it is stored.
    void salida_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<QString>("queda");
        const QString bien;
        QTest::newRow("side not A/P") << "frmSituacion" << 0 << "D" << m(1023) << "D";
        QTest::newRow("side in lower case") << "frmSituacion" << 0 << "a" << bien << "A";
        QTest::newRow("side not D/H") << "frmPergan" << 0 << "A" << m(1025) << "A";
        QTest::newRow("side D/H in lower case") << "frmPergan" << 0 << "d" << bien << "D";
        QTest::newRow("level with a fraction") << "frmSituacion" << 3 << "1,5" << m(1024) << "1,5";
        QTest::newRow("level not a number") << "frmPergan" << 4 << "uno" << m(1024) << "uno";
        QTest::newRow("level beyond 16 bits") << "frmPergan" << 1 << "40000"
                                              << "6 - Desbordamiento"
                                              << "40000";
        QTest::newRow("level 1,0") << "frmPergan" << 2 << "1,0" << bien << "1";
    }
    void salida() {
        QFETCH(QString, nombre);
        QFETCH(int, indice);
        QFETCH(QString, texto);
        QFETCH(QString, mensaje);
        QFETCH(QString, queda);
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        comprobarSalida(f, indice, texto, mensaje);
        QCOMPARE(f->txt(indice)->text(), queda);
    }

    // The refusals of a save, nothing written. `quitar`: the line is deleted behind the form's
    // back once its key has loaded it.
    void guardar_data() {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QStringList>("campos");
        QTest::addColumn<QKeySequence>("tecla");
        QTest::addColumn<bool>("quitar");
        QTest::addColumn<QString>("mensaje");
        const QStringList activo{"0=A", "1=2", "2=0", "3=0"};
        const QStringList debe{"0=D", "1=2", "2=0", "3=0", "4=0"};
        QTest::newRow("balance line exists")
            << "frmSituacion" << activo << kInsertar << false << m(1021);
        QTest::newRow("balance line gone on update")
            << "frmSituacion" << activo << kModificar << true << m(1021);
        QTest::newRow("balance side empty")
            << "frmSituacion" << activo.mid(1) << kInsertar << false << m(1023);
        QTest::newRow("profit and loss line exists")
            << "frmPergan" << debe << kInsertar << false << m(1021);
        QTest::newRow("profit and loss line gone on update")
            << "frmPergan" << debe << kModificar << true << m(1022);
        QTest::newRow("profit and loss level empty")
            << "frmPergan" << QStringList{"0=H", "1=3", "2=0", "3=0"} << kInsertar << false
            << m(1024);
    }
    void guardar() {
        QFETCH(QString, nombre);
        QFETCH(QStringList, campos);
        QFETCH(QKeySequence, tecla);
        QFETCH(bool, quitar);
        QFETCH(QString, mensaje);
        FormularioMantenimiento* f = abrirMantenimiento(nombre);
        QVERIFY(f);
        rellenar(f, campos);
        const QString tabla = nombre.mid(3);
        if (quitar) sesion_conexion->execute("DELETE FROM " + tabla + " WHERE nivel_1 = 2");
        f->txt(0)->setFocus();
        comprobarRechazo(tecla, tabla, mensaje);
    }
};

QTEST_MAIN(PruebaEstructuras)
#include "prueba_estructuras.moc"
