#include "contrasenas.h"

#include "almacen/conexion.h"
#include "almacen/error.h"
#include "almacen/sql.h"

#include <sodium.h>

#include <QList>
#include <QPair>

namespace contrasenas {

namespace {

const QLatin1StringView kPrefijo("$argon2id$");

void iniciar() {
    // sodium_init is safe to call more than once; it fails only without a source of randomness.
    if (sodium_init() < 0)
        throw Error(errores::kAlmacen,
                    QStringLiteral("No se puede iniciar la biblioteca de cifrado (libsodium)."));
}

}  // namespace

QString cifrar(const QString& contrasena) {
    iniciar();
    const QByteArray texto = contrasena.toUtf8();
    char hash[crypto_pwhash_STRBYTES];
    // The interactive limits (64 MiB, two passes) are libsodium's choice for a login: about a
    // tenth of a second on this kind of machine, and costly for anyone trying guesses.
    if (crypto_pwhash_str(hash, texto.constData(), quint64(texto.size()),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw Error(errores::kAlmacen, QStringLiteral("No hay memoria para cifrar la contraseña."));
    return QString::fromLatin1(hash);
}

bool comprobar(const QString& guardada, const QString& tecleada) {
    if (!esCifrada(guardada)) return false;
    iniciar();
    const QByteArray hash = guardada.toLatin1(), texto = tecleada.toUtf8();
    return crypto_pwhash_str_verify(hash.constData(), texto.constData(), quint64(texto.size())) ==
           0;
}

bool esCifrada(const QString& guardada) {
    return guardada.startsWith(kPrefijo);
}

int CifrarAntiguas(Conexion& conexion) {
    QList<QPair<QString, QString>> antiguas;
    {
        Recordset rs =
            conexion.open(QStringLiteral("SELECT codigo_usuario, contraseña FROM Usuarios"));
        for (; !rs.eof(); rs.moveNext()) {
            const QString guardada = rs.value(1).toString();
            if (!esCifrada(guardada)) antiguas.append({rs.value(0).toString(), guardada});
        }
    }
    if (antiguas.isEmpty()) return 0;
    Transaccion t(conexion);
    for (const auto& [usuario, texto] : std::as_const(antiguas))
        // Only the row still holding that text: another workstation starting at the same time
        // may have converted it already.
        conexion.execute(QStringLiteral("UPDATE Usuarios SET contraseña = ") +
                         sqlTexto(cifrar(texto)) + QStringLiteral(" WHERE codigo_usuario = ") +
                         sqlTexto(usuario) + QStringLiteral(" AND contraseña = ") +
                         sqlTexto(texto));
    t.commit();
    return int(antiguas.size());
}

}  // namespace contrasenas
