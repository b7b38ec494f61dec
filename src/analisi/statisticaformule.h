#pragma once

#include "analisi/statistichesegni.h"
#include "core/archiviocolonne.h"

#include <array>

// How often each of the 47 formulas of the 9 came out and how many contests ago. A formula never
// drawn has the delay N; a contest whose formula is not in the list counts nowhere.
class StatisticaFormule {
public:
    static constexpr int Numero = 47;
    using Figure = std::array<StatisticheSegni::Figura, Numero>;

    static Figure calcola(const ArchivioColonne &archivio);
    // The index of a formula of the 9 given by its three terms in the list of the 47; -1 when it
    // isn't there (a first term of 0 with both others above 0, or terms that don't add up to 9).
    static int indice(const std::array<int, 3> &termini);
};
