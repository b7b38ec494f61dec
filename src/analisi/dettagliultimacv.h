#pragma once

#include "analisi/statistichesegni.h"
#include "core/archiviocolonne.h"

#include <QString>

#include <array>

// The last winning column and how each of its groups of signs stood just before it came out:
// delays and frequencies of the archive without the last contest. The coppia looks at the whole
// archive here, not at the latest contests as on the signs panel.
class DettagliUltimaCV {
public:
    struct Gruppo {
        QString segni; // the slice's signs joined by one blank: "1 X 2"
        StatisticheSegni::Figura figura;
        bool operator==(const Gruppo &) const = default;
    };
    struct Dettagli {
        QString stagione;
        QString concorso;
        QString colonna;
        std::array<Gruppo, 5> gruppi; // the four terzine, then the coppia
    };

    // The figures of the last row: walks from contest N - 1 back, delay N less the contest found
    // (N when none), frequency over contests 1 to N - 1. An empty archive is not asked for.
    static Dettagli calcola(const ArchivioColonne &archivio);
    // "1X2" as "1 X 2".
    static QString spaziato(QStringView segni);
};
