#pragma once

#include <QString>

class Conexion;

// Passwords are kept as salted, slow hashes (Argon2id), never as their text: whoever reads the
// store, a backup or a list learns no password, and the login compares through the hash, so no
// typed text ever becomes part of a statement.
namespace contrasenas {

// The hash to store for a password: a text of its own format ("$argon2id$…") that carries its
// salt and cost, so that a later change of cost still verifies older hashes.
QString cifrar(const QString& contrasena);

// Whether the typed password is the one whose hash is stored. A stored value that is not a hash
// matches nothing.
bool comprobar(const QString& guardada, const QString& tecleada);

// Whether a stored value is a hash made by cifrar (and not a password kept as text by an
// older store).
bool esCifrada(const QString& guardada);

// Replaces every password kept as text in Usuarios by its hash, in one transaction, and gives
// how many were replaced. Run at start-up, so that a store written by an older version holds no
// password as text after its first start; a store already converted costs one query.
int CifrarAntiguas(Conexion& conexion);

}  // namespace contrasenas
