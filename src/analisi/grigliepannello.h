#pragma once

#include "analisi/statistichesegni.h"

class Griglia;

// The three grids of the signs panel, laid out and filled from the figures: one column a
// pattern, its signs stacked from the top, then its delays ("R") and frequencies ("F").
class GrigliePannello {
public:
    static constexpr int RigheTerzine = 22;
    static constexpr int RigheCinquine = 10;
    static constexpr int RigheCoppie = 7;
    // Rows of the terzine grid: the delay of block b (1 to 4) is in row 4 + 2b, its frequency in
    // row 13 + 2b.
    static int rigaRitardo(int blocco) { return 4 + 2 * blocco; }
    static int rigaFrequenza(int blocco) { return 13 + 2 * blocco; }

    static void riempiTerzine(Griglia &g, const StatisticheSegni::Figure &f);
    static void riempiCinquine(Griglia &g, const StatisticheSegni::Figure &f);
    static void riempiCoppie(Griglia &g, const StatisticheSegni::Figure &f);

    // "Stagione 2025/2011 - Concorso N. 14": the "/2011" is fixed text of the caption.
    static QString testoIndice(const ArchivioColonne &archivio);
};
