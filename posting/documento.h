#pragma once

#include <QString>
#include <array>
#include <optional>

// What a document says of the entries it numbers: on which side the main line goes, the series
// that numbers them, whether the VAT and portfolio tabs take part.
struct DocumentoApunte {
    QString partida;        // "D" or "H"
    QString numeracion;     // the series
    QString cartera;        // "N", "A", "C" or "P"
    QString identificador;  // the prefix of the entry numbers
    QString iva;            // "N" when the entry has no VAT tab

    // Which of the four tabs (1 to 4; index 0 unused) take part in an entry of this document.
    std::array<bool, 5> paginas() const;
};

// The document of the session's company, or nothing when it has no row.
std::optional<DocumentoApunte> CargarDocumento(const QString& codigo);
