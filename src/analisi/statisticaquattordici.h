#pragma once

#include "core/archiviocolonne.h"

#include <QString>

#include <array>

// The statistics of the 14 signs: for each position of the coupon and each sign, how often it
// came out in the whole archive, how often in a given year, and how many contests ago.
class StatisticaQuattordici {
public:
    // [position 0..13][sign 0..2, in the order "1", "X", "2"]
    using Tabella = std::array<std::array<int, 3>, 14>;

    struct Figure {
        Tabella storiche{};
        Tabella anno{};
        // A sign never drawn at a position keeps 0, as one drawn in the last contest.
        Tabella ritardi{};
        bool operator==(const Figure &) const = default;
    };

    // `anno` is compared as text with the Stagione of each contest: the year of today, which may
    // have no contest yet.
    static Figure calcola(const ArchivioColonne &archivio, const QString &anno);

    // "Stagione: 2026 Concorso n. 14" from the last row; "--" with an empty archive.
    static QString testoConcorso(const ArchivioColonne &archivio);
};
