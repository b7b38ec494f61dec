#pragma once

#include "core/archiviocolonne.h"

#include <QList>
#include <QString>
#include <QStringList>

class DocumentoPagine;

// The cinquine (signs 10 to 14) that have not come out. The screen looks at the whole archive,
// its print at the latest contests only, so the two lists may differ.
class CinquineMai {
public:
    // The print lays out this many entries a page.
    static constexpr int VociPerPagina = 64;

    // The cinquine not drawn in the contests from `primo` (from 1; below 1 reads 1) to the last,
    // in the order of ElencoCinquine.
    static QStringList mai(const ArchivioColonne &archivio, int primo);
    // The list of the screen: the whole archive. The screen keeps the last five signs of each
    // contest in a table of CapacitaConcorsi entries, so a larger archive is a run-time fault.
    static QStringList delloSchermo(const ArchivioColonne &archivio);
    // The list of the print: the latest `base` contests, or all of a shorter archive.
    static QStringList dellaStampa(const ArchivioColonne &archivio, int base);

    // The pages of the print: heads, the cinquine 64 a page, the foot of each page.
    static void scriviStampa(DocumentoPagine &documento, const QStringList &cinquine,
                             const QString &data);
};
