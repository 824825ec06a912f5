#include "global.h"

#include "almacen/sql.h"
#include "entidades/delegaciones.h"
#include "entidades/empresas.h"
#include "entidades/numeracion.h"
#include "entidades/usuariosdelegaciones.h"

#include <QSysInfo>

QVariant Nz(const QVariant& valor, const QVariant& defecto) {
    if (valor.isNull() || !valor.isValid()) return defecto;
    if (valor.typeId() == QMetaType::QString && valor.toString().isEmpty()) return defecto;
    return valor;
}

namespace {

QString recortarEspacios(const QString& texto) {
    qsizetype inicio = 0, fin = texto.size();
    while (inicio < fin && texto[inicio] == u' ') ++inicio;
    while (fin > inicio && texto[fin - 1] == u' ') --fin;
    return texto.mid(inicio, fin - inicio);
}

QList<qsizetype> posiciones(const QString& texto, QChar separador) {
    QList<qsizetype> lista;
    for (qsizetype i = 0; i < texto.size(); ++i)
        if (texto[i] == separador) lista.append(i);
    return lista;
}

}  // namespace

QString GetParam(const QString& texto, int posicion, QString& separador) {
    if (separador.isEmpty()) separador = QStringLiteral("|");
    if (texto.isEmpty() || posicion <= 0) return {};
    const QStringList campos = texto.split(separador.front());
    if (posicion > campos.size()) return {};
    return recortarEspacios(campos[posicion - 1]);
}

QString SetParam(const QString& texto, const QString& valor, int posicion, QString& separador) {
    if (separador.isEmpty()) separador = QStringLiteral("|");
    const QChar sep = separador.front();
    if (posicion <= 0)
        throw Error(5, QStringLiteral("Llamada a procedimiento o argumento no válido."));
    if (texto.isEmpty()) return QString(posicion - 1, sep) + valor + sep;

    const QList<qsizetype> seps = posiciones(texto, sep);
    const bool cola = seps.isEmpty() || seps.last() < texto.size() - 1;
    if (posicion == 1) {
        if (seps.isEmpty())
            throw Error(5, QStringLiteral("Llamada a procedimiento o argumento no válido."));
        return valor + texto.mid(seps.first());
    }
    if (posicion <= seps.size())
        return texto.left(seps[posicion - 2] + 1) + valor + texto.mid(seps[posicion - 1]);
    if (posicion == seps.size() + 1 && cola) return texto + valor + sep;
    const int presentes = int(seps.size()) + (cola ? 1 : 0);
    return texto + QString(posicion - presentes - 1, sep) + valor + sep;
}

int BuscarEnArray(const QStringList& lista, const QString& texto) {
    const qsizetype i = lista.indexOf(texto);
    return i < 0 ? -1 : int(i) + 1;
}

QString ExpandirCuenta(const QString& cuenta, int digitos) {
    const qsizetype largo = cuenta.size();
    if (largo - 1 >= digitos || largo <= 1) return cuenta;
    QString expandida = cuenta;
    expandida.replace(u'.', QString(digitos - largo + 1, u'0'));
    return expandida.size() == digitos ? expandida : cuenta;
}

namespace {

Conexion& conexionDeSeries() {
    if (!sesion_conexion)
        throw Error(errores::kAlmacen, QStringLiteral("No hay conexión con el almacén."));
    return *sesion_conexion;
}

QString condicionSerie(const QString& empresa, int ejercicio, const QString& serie) {
    return QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
           QStringLiteral(" and ejercicio = ") + QString::number(ejercicio) +
           QStringLiteral(" and numeracion = ") + sqlTexto(serie);
}

// The series' number moved by `paso`, with who moved it and when.
QString moverSerie(const QString& paso) {
    return QStringLiteral("UPDATE Numeraciones SET numero = numero ") + paso +
           QStringLiteral(", ultima_modificacion = ") +
           sqlTexto(QDate::currentDate().toString(QStringLiteral("yyyyMMdd"))) +
           QStringLiteral(", ultimo_usuario = ") + sqlTexto(sesion_usuario);
}

// A number whose drawing was sent to the server for commit just as the connection went: the
// series may have advanced for it or not, and only the server can tell. Until the next drawing
// from that series asks, it is kept here, so that a number the server did hand out is not
// skipped.
struct NumeroEnVuelo {
    QString almacen, empresa, serie;
    int ejercicio = 0;
    QString numero, transaccion;
};
QList<NumeroEnVuelo> enVuelo;

// The number in doubt for that series, once the server says its drawing committed; empty when
// it did not (the series never moved) or there is none.
QString resolverEnVuelo(Conexion& c, const QString& empresa, int ejercicio, const QString& serie) {
    for (qsizetype i = 0; i < enVuelo.size(); ++i) {
        const NumeroEnVuelo& v = enVuelo[i];
        if (v.almacen != c.textoConexion() || v.empresa != empresa || v.ejercicio != ejercicio ||
            v.serie != serie)
            continue;
        // While the server is still away this throws, and the number stays in doubt.
        const bool confirmado = c.transaccionConfirmada(v.transaccion);
        const QString numero = confirmado ? v.numero : QString();
        enVuelo.removeAt(i);
        return numero;
    }
    return {};
}

}  // namespace

QString SiguienteNumero(const QString& empresa, int ejercicio, const QString& serie) {
    Conexion& c = conexionDeSeries();
    // Inside a caller's transaction the drawing commits with it, and so is never in doubt
    // on its own.
    const bool propia = !c.enTransaccion();
    if (propia && !enVuelo.isEmpty()) {
        const QString recuperado = resolverEnVuelo(c, empresa, ejercicio, serie);
        if (!recuperado.isEmpty()) return recuperado;
    }
    const QString condicion = condicionSerie(empresa, ejercicio, serie);
    // Advancing first takes the row's write lock: a second workstation waits here and then
    // advances past the number this one takes. Read and write commit together.
    Transaccion t(c);
    const int cambiadas =
        c.execute(moverSerie(QStringLiteral("+ 1")) + QStringLiteral(" WHERE ") + condicion);
    if (cambiadas == 0) return {};
    Recordset rs = numeracion::GetList(c, condicion, {});
    if (rs.eof()) return {};
    const int numero = rs.value(QStringLiteral("numero")).toInt() - 1;
    const int longitud = rs.value(QStringLiteral("longitud")).toInt();
    const QString texto = QString::number(numero).rightJustified(longitud, u'0');
    const NumeroEnVuelo vuelo{
        c.textoConexion(), empresa, serie,
        ejercicio,         texto,   propia ? c.identificadorTransaccion() : QString()};
    try {
        t.commit();
    } catch (const Error&) {
        if (c.perdida() && !vuelo.transaccion.isEmpty()) enVuelo.append(vuelo);
        throw;
    }
    return texto;
}

bool DevolverNumero(const QString& empresa, int ejercicio, const QString& serie, int numero) {
    Conexion& c = conexionDeSeries();
    // The series goes back only from where this number left it: the test and the change are
    // one statement, so a number drawn meanwhile by another workstation keeps it where it is.
    Transaccion t(c);
    const int cambiadas = c.execute(moverSerie(QStringLiteral("- 1")) + QStringLiteral(" WHERE ") +
                                    condicionSerie(empresa, ejercicio, serie) +
                                    QStringLiteral(" and numero = ") + QString::number(numero + 1));
    t.commit();
    return cambiadas > 0;
}

QString NombrePC() {
    return QSysInfo::machineHostName().left(255);
}

namespace {
QStringList columna(Recordset rs, const QString& campo) {
    QStringList lista;
    for (; !rs.eof(); rs.moveNext()) lista.append(NzTexto(rs.value(campo)));
    return lista;
}
}  // namespace

QStringList CargarEmpresas(Conexion& conexion) {
    return columna(Empresas::GetList(conexion, {}, QStringLiteral("codigo_empresa")),
                   QStringLiteral("codigo_empresa"));
}

QStringList CargarDelegaciones(Conexion& conexion, const QString& empresa) {
    return columna(
        Delegaciones::GetList(conexion, QStringLiteral("codigo_empresa = ") + sqlTexto(empresa),
                              QStringLiteral("codigo_empresa, codigo_delegacion")),
        QStringLiteral("codigo_delegacion"));
}

QStringList CargarUsuarios(Conexion& conexion, const QString& empresa, const QString& delegacion) {
    return columna(
        UsuariosDelegaciones::GetList(conexion,
                                      QStringLiteral("codigo_empresa = ") + sqlTexto(empresa) +
                                          QStringLiteral(" AND codigo_delegacion = ") +
                                          sqlTexto(delegacion) + QStringLiteral(" AND activo <> 0"),
                                      {}),
        QStringLiteral("codigo_usuario"));
}
