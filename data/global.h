#pragma once

#include "almacen/conexion.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

// The session: the two store connections and who is working where. They live as long as the
// process; only the start-up and the login set them, everything else reads them.
inline std::unique_ptr<Conexion> sesion_conexion;  // main store, from Saldeva.udl
inline std::unique_ptr<Conexion> sesion_temporal;  // temporary store, from Temporal.udl
inline QString sesion_empresa;
inline QString sesion_delegacion;
inline QString sesion_usuario;
inline int sesion_ejercicio = 0;
inline int sesion_digitos = 0;        // length of a posting account code
inline QString sesion_fecha_inicial;  // the four dates as stored: "yyyymmdd" or empty
inline QString sesion_fecha_final;
inline QString sesion_inicio_bloqueo;
inline QString sesion_final_bloqueo;

// The maintenance login, user and password; filled as the first act of the start-up.
inline QString mantenimiento_usuario;
inline QString mantenimiento_contrasena;

// The default when the value is Null or an empty text; a numeric 0 is a value.
QVariant Nz(const QVariant& valor, const QVariant& defecto = QString());
inline QString NzTexto(const QVariant& valor, const QString& defecto = QString()) {
    return Nz(valor, defecto).toString();
}

// Delimited lists such as "a|b|c|": fields with a separator behind each, the last one
// possibly without. An empty separator means "|" and is changed to it. Positions from 1.
QString GetParam(const QString& texto, int posicion, QString& separador);
QString SetParam(const QString& texto, const QString& valor, int posicion, QString& separador);

// Index (from 1) of the first element equal to the text, case counting; -1 when none. The
// list is read as an array whose first element has index 1.
int BuscarEnArray(const QStringList& lista, const QString& texto);

// The dot of account codes: "43.1" with 8 digits is "43000001", "4." is "40000000".
QString ExpandirCuenta(const QString& cuenta, int digitos);

// Hands out the next number of a series of the company and year, left-padded with zeros to
// the series' length, and advances the series in the same transaction, so that no number is
// given twice. Empty when the series does not exist. When the connection to the server is
// lost while the drawing commits, it fails, and the next drawing from that series asks the
// server: a number it did hand out is given then instead of a new one, so none is skipped.
QString SiguienteNumero(const QString& empresa, int ejercicio, const QString& serie);
// Gives the number `numero`, drawn by SiguienteNumero for an entry that was then discarded,
// back to its series, when it is still the last number drawn from it (the series stands at
// `numero` + 1): the next drawing hands it out again. When a later number has been drawn the
// series stays as it is and the gap remains. True when the number went back.
bool DevolverNumero(const QString& empresa, int ejercicio, const QString& serie, int numero);

QString NombrePC();

// The codes that the selection boxes of the login and the user forms list.
QStringList CargarEmpresas(Conexion& conexion);
QStringList CargarDelegaciones(Conexion& conexion, const QString& empresa);
QStringList CargarUsuarios(Conexion& conexion, const QString& empresa, const QString& delegacion);
