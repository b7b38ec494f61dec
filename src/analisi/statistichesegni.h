#pragma once

#include "core/archiviocolonne.h"

#include <QStringList>

#include <array>

// Delay and frequency of every group of signs of the panel: the 27 terzine in the four slices of
// the column, the 243 final cinquine, the 9 final coppie.
class StatisticheSegni {
public:
    // The panel keeps per-contest slices of this capacity; a larger archive is a fault of it.
    static constexpr int CapacitaConcorsi = 5000;

    struct Figura {
        int ritardo = 0;
        int frequenza = 0;
        bool operator==(const Figura &) const = default;
    };

    struct Figure {
        std::array<std::array<Figura, 27>, 4> terzine{}; // [slice][terzina]
        std::array<Figura, 243> cinquine{};
        std::array<Figura, 9> coppie{};
        int baseCoppie = 0; // the latest contests the coppie were counted over
        bool operator==(const Figure &) const = default;
    };

    // Patterns in lexicographic order over 1 < X < 2 (ElencoTerzine, ElencoCinquine, ElencoCoppie).
    static const QStringList &elencoTerzine();
    static const QStringList &elencoCinquine();
    static const QStringList &elencoCoppie();
    // The pattern's value read in base 3 with 1=0, X=1, 2=2; -1 when a character is no sign.
    static int indice(QStringView schema);

    // One pass over the archive. Terzine and cinquine look at every contest; the coppie only at
    // the latest `base` contests, and a coppia absent from them has the delay `base`. Raises a
    // run-time fault with more than CapacitaConcorsi contests or fewer than `base`.
    static Figure calcola(const ArchivioColonne &archivio, int base);

    // The same figures by the plain repeated walks of the archive, one per pattern and slice:
    // the reference the fast pass is checked and measured against.
    static Figure calcolaConScansione(const ArchivioColonne &archivio, int base);

private:
    static void verificaCapacita(int numero, int base);
};
