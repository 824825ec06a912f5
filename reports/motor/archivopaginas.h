#pragma once

#include "pagina.h"

#include <QTemporaryFile>
#include <vector>

// The pages of a report already laid out, kept in a temporary file (compressed, one after
// another) so that a book of thousands of pages can be browsed and printed again without
// laying it out again and without holding it in memory. The file goes with the object.
namespace motor {

class ArchivoPaginas {
public:
    ArchivoPaginas();
    void anadir(const Pagina& pagina);
    Pagina leer(int indice);
    int cuantas() const { return int(inicios_.size()); }

private:
    QTemporaryFile archivo_;
    std::vector<qint64> inicios_;
    qint64 final_ = 0;
};

}  // namespace motor
