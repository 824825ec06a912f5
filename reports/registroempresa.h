#pragma once

#include <QString>

// The FROM and WHERE of a statement over the VAT register `r` of a company, every branch and
// the three kinds of operation, each row with its journal line `a`, whose invoice date falls
// between desde and hasta ("yyyymmdd"), and its party `p`: with `soloConTercero` a row whose
// party is gone falls out, else it stays with an empty party.
//
// The embedded store takes a CROSS JOIN's order as given, and the bound on the branch, always
// true, makes it walk the register by its key and join the journal lines in their order; by
// the party's index, which it picks by itself, both were read at random, in twice the time.
// PostgreSQL plans either way alike.
QString registroDeEmpresa(const QString& empresa, const QString& desde, const QString& hasta,
                          bool soloConTercero);

// An amount of the register as whole cents, so that sums of rows are exact whatever dust the
// stored doubles carry: "ROUND(COALESCE(r.base, 0) * 100)".
QString centimosRegistro(const QString& columna);
