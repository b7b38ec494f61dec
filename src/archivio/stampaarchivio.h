#pragma once

#include <QString>

class ArchivioColonne;
class DocumentoPagine;

// The printed list of the whole archive, one contest a line in the fixed-pitch font.
class StampaArchivio {
public:
    static constexpr int RighePerPagina = 54;
    static void scrivi(DocumentoPagine &documento, const ArchivioColonne &archivio,
                       const QString &data);
    // The nine fields of a row laid out under the column heads.
    static QString riga(const QStringList &campi);
};
