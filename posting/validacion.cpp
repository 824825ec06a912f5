#include "validacion.h"

#include "data/almacen/sql.h"
#include "data/auxiliar.h"
#include "data/formato.h"
#include "data/global.h"
#include "documento.h"

namespace validacion {

namespace {

QString empresa() {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(sesion_empresa);
}

QString buscar(const QString& tabla, const QString& campo, const QString& condicion) {
    return Auxiliar::vBuscarCampo(tabla, campo, condicion, QStringLiteral("#")).toString();
}

// The number of an entry: "0" draws the next of the document's series; anything else must be
// the document's prefix followed by as many characters as the series is long.
int validarNumero(QString& texto, const QString& documento, const DocumentoApunte& doc) {
    if (texto == QStringLiteral("0")) {
        texto =
            doc.identificador + SiguienteNumero(sesion_empresa, sesion_ejercicio, doc.numeracion);
        return 0;
    }
    const QString identificador =
        Auxiliar::vBuscarCampo(
            QStringLiteral("Documentos"), QStringLiteral("identificador"),
            empresa() + QStringLiteral(" AND codigo_documento = ") + sqlTexto(documento), QString())
            .toString();
    if (texto.left(identificador.size()) != identificador) return 1026;
    const int longitud =
        Auxiliar::vBuscarCampo(
            QStringLiteral("Documentos, Numeraciones"),
            QStringLiteral("Numeraciones.longitud AS longitud"),
            QStringLiteral("Documentos.codigo_empresa = Numeraciones.codigo_empresa AND "
                           "Documentos.Numeracion = Numeraciones.numeracion AND "
                           "Numeraciones.codigo_empresa = ") +
                sqlTexto(sesion_empresa) + QStringLiteral(" AND Numeraciones.ejercicio = ") +
                QString::number(sesion_ejercicio) +
                QStringLiteral(" AND Documentos.codigo_documento = ") + sqlTexto(documento),
            QStringLiteral("0"))
            .toInt();
    return identificador.size() + longitud != texto.size() ? 1026 : 0;
}

// An account that admits postings, after the dot is expanded: its description, or "#".
QString cuentaDePases(QString& cuenta) {
    cuenta = ExpandirCuenta(cuenta, sesion_digitos);
    return buscar(QStringLiteral("Cuentas"), QStringLiteral("descripcion"),
                  empresa() + QStringLiteral(" AND cuenta = ") + sqlTexto(cuenta) +
                      QStringLiteral(" and pases = 'S'"));
}

}  // namespace

int ValidarCabecera(int indice, QString& texto, const QString& documento,
                    const DocumentoApunte& doc, QString* descripcion) {
    if (texto.isEmpty()) return 0;
    QString hallado;
    int mensaje = 0;
    switch (indice) {
        case 0:
            texto = texto.toUpper();
            hallado = buscar(QStringLiteral("Diarios"), QStringLiteral("descripcion"),
                             empresa() + QStringLiteral(" AND codigo_diario = ") + sqlTexto(texto));
            mensaje = hallado == QStringLiteral("#") ? 1002 : 0;
            break;
        case 1:
            texto = texto.toUpper();
            // A document is known only where its series exists in the session's year.
            hallado = buscar(
                QStringLiteral("Documentos, Numeraciones"),
                QStringLiteral("Documentos.codigo_documento AS codigo_documento"),
                QStringLiteral("Documentos.codigo_empresa = ") + sqlTexto(sesion_empresa) +
                    QStringLiteral(" AND Documentos.codigo_documento = ") + sqlTexto(texto) +
                    QStringLiteral(" AND Numeraciones.ejercicio = ") +
                    QString::number(sesion_ejercicio) +
                    QStringLiteral(" AND Documentos.codigo_empresa = Numeraciones.codigo_empresa "
                                   "AND Documentos.numeracion = Numeraciones.numeracion"));
            return hallado == QStringLiteral("#") ? 1003 : 0;
        case 2:
            texto = texto.toUpper();
            return validarNumero(texto, documento, doc);
        case 3:
        case 4:
            return formato::leerFecha(texto) ? 0 : 1004;
        case 5:
            hallado = cuentaDePases(texto);
            mensaje = hallado == QStringLiteral("#") ? 1001 : 0;
            break;
        case 6:
            return formato::leerImporte(texto) ? 0 : 1004;
        default:
            return 0;
    }
    if (mensaje == 0 && descripcion) *descripcion = hallado;
    return mensaje;
}

int ValidarContrapartida(int indice, QString& texto, QString* descripcion) {
    if (texto.isEmpty()) return 0;
    switch (indice) {
        case 54: {
            const QString hallado = cuentaDePases(texto);
            if (hallado == QStringLiteral("#")) return 1001;
            if (descripcion) *descripcion = hallado;
            return 0;
        }
        case 55:
        case 56:
            return formato::leerImporte(texto) ? 0 : 1004;
        default:
            return 0;
    }
}

int ValidarVencimiento(int indice, QString& texto) {
    if (texto.isEmpty()) return 0;
    switch (indice) {
        case 49:
            texto = texto.toUpper();
            return texto == u"P" || texto == u"C" ? 0 : 1005;
        case 50:
            return formato::leerFecha(texto) ? 0 : 1004;
        case 51:
            return formato::leerImporte(texto) ? 0 : 1004;
        default:
            return 0;
    }
}

int ValidarAsiento(const QString& fecha, double saldo) {
    const QString dia = Auxiliar::sDate(fecha);
    if (dia > sesion_fecha_final || dia < sesion_fecha_inicial) return 1027;
    if (!sesion_inicio_bloqueo.isEmpty() && !sesion_final_bloqueo.isEmpty() &&
        (dia > sesion_final_bloqueo || dia < sesion_inicio_bloqueo))
        return 1029;
    return saldo != 0 ? 1028 : 0;
}

}  // namespace validacion
