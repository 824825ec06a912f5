#pragma once

#include "esquema.h"

#include <QString>

enum class Proveedor { SQLite, PostgreSQL };

// Everything that differs between the two stores: the translation of the system's SQL
// (written in the Jet dialect) and the column types of the schema. No other class knows
// which store it speaks to.
//
// Translations, applied outside string literals only:
//  - "DELETE t.* FROM a INNER JOIN t ON c WHERE w" becomes a DELETE with an EXISTS subquery;
//  - LEFT(x, n) becomes SUBSTR(x, 1, n);
//  - constants in a GROUP BY list are dropped (both stores read them as column positions);
//  - "col LIKE '43%'", a beginning without wildcards or letters, also bounds col to a range
//    ("col >= '43' AND col < '44'"), so that an index on col answers it.
// Text compared without trailing blanks and table names in any case need no translation:
// the column types and the stores' rules for unquoted names give them.
class Dialecto {
public:
    explicit Dialecto(Proveedor proveedor) : proveedor_(proveedor) {}

    Proveedor proveedor() const { return proveedor_; }
    QString traducir(const QString& jet) const;

    QString crearTabla(const esquema::Tabla& tabla) const;
    QString crearIndice(const esquema::Indice& indice) const;

private:
    QString tipo(esquema::Tipo tipo) const;
    Proveedor proveedor_;
};

// The text with every string literal's content blanked out, same length: what the
// translation searches, so that a value typed by a user never looks like SQL.
QString mascaraLiterales(const QString& sql);
