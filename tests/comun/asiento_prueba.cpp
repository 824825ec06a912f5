#include "asiento_prueba.h"

#include "almacen_prueba.h"
#include "data/entidades/apuntes.h"
#include "data/entidades/cuentas.h"
#include "data/entidades/diarios.h"
#include "data/entidades/documentos.h"
#include "data/entidades/numeracion.h"
#include "data/global.h"
#include "empresa_prueba.h"

#include <QDate>

void prepararAsientos() {
    crearEmpresaPrueba();
    Conexion& c = *sesion_conexion;
    const int anio = QDate::currentDate().year();
    Diarios::Insert(c, "EMP", "GEN", "Diario general", "PRUEBA");
    numeracion::Insert(c, "EMP", anio, "FAC", 5, 27, "Facturas", "PRUEBA");
    Documentos::Insert(c, "EMP", "FV", "Factura de venta", "D", "N", "N", "FAC", "FV", "PRUEBA");
    Documentos::Insert(c, "EMP", "FR", "Factura recibida", "H", "S", "A", "FAC", "FV", "PRUEBA");
    for (const char* cuenta : {"43000001", "57200001", "70000001", "47700001"})
        cuentas::Insert(c, "EMP", cuenta, QStringLiteral("Subcuenta %1").arg(cuenta), "S", 8,
                        "PRUEBA");
    sesion_usuario = "ANA";
    sesion_empresa = sesion_delegacion = "EMP";
    sesion_ejercicio = anio;
    sesion_digitos = 8;
    sesion_fecha_inicial = QString::number(anio) + "0101";
    sesion_fecha_final = QString::number(anio) + "1231";
    sesion_inicio_bloqueo.clear();
    sesion_final_bloqueo.clear();
}

FalloProvocado::FalloProvocado(int numero, QString tabla)
    : FalloProvocado(std::move(tabla), "INSERT", "NEW.numero_apunte = " + QString::number(numero)) {
}

FalloProvocado::FalloProvocado(QString tabla, const QString& evento, const QString& condicion)
    : tabla_(std::move(tabla)) {
    if (AlmacenPrueba::postgres()) {
        // A BEFORE DELETE trigger that returns NEW (null) would skip the row without a failure.
        sesion_conexion->execute(
            "CREATE FUNCTION fallo_provocado() RETURNS trigger AS $$ BEGIN IF " + condicion +
            " THEN RAISE EXCEPTION 'fallo provocado'; END IF; RETURN " +
            (evento == "DELETE" ? "OLD" : "NEW") + "; END $$ LANGUAGE plpgsql");
        sesion_conexion->execute("CREATE TRIGGER fallo_provocado BEFORE " + evento + " ON " +
                                 tabla_ + " FOR EACH ROW EXECUTE FUNCTION fallo_provocado()");
    } else {
        sesion_conexion->execute("CREATE TRIGGER fallo_provocado BEFORE " + evento + " ON " +
                                 tabla_ + " WHEN " + condicion +
                                 " BEGIN SELECT RAISE(ABORT, 'fallo provocado'); END");
    }
}

FalloProvocado::~FalloProvocado() {
    sesion_conexion->execute("DROP TRIGGER fallo_provocado" +
                             (AlmacenPrueba::postgres() ? " ON " + tabla_ : QString()));
    if (AlmacenPrueba::postgres()) sesion_conexion->execute("DROP FUNCTION fallo_provocado()");
}

QStringList lineasGuardadas() {
    QStringList t;
    Recordset rs = Apuntes::GetList(*sesion_conexion, {}, "numero_documento, numero_apunte");
    for (; !rs.eof(); rs.moveNext())
        t << QStringLiteral("%1|%2|%3|%4|%5")
                 .arg(rs["numero_apunte"].toInt())
                 .arg(rs["cuenta"].toString())
                 .arg(rs["debe"].toDouble())
                 .arg(rs["haber"].toDouble())
                 .arg(rs["tipo"].toString());
    return t;
}
