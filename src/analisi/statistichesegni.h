#pragma once

#include "core/archiviocolonne.h"

#include <QStringList>

#include <array>
#include <functional>
#include <span>
#include <vector>

// Delay and frequency of groups of signs: the slices of the column (the 27 terzine in its four
// slices, the 243 final cinquine, the 9 final coppie, the single sign at a position), counted
// over a run of contests. The signs panel and the statistics screens all count here.
class StatisticheSegni {
public:
    // The panel keeps per-contest slices of this capacity; a larger archive is a fault of it.
    static constexpr int CapacitaConcorsi = 5000;

    // A slice of the column: its first position (from 1) and its length. The cinquina and the
    // coppia are the column's last signs, whatever its length: their first position is 0.
    struct Fetta {
        int inizio;
        int lunghezza;
    };
    static constexpr std::array<Fetta, 4> FetteTerzine{{{1, 3}, {4, 3}, {7, 3}, {10, 3}}};
    static constexpr Fetta FettaCinquina{0, 5};
    static constexpr Fetta FettaCoppia{0, 2};
    static constexpr Fetta posizione(int p) { return {p, 1}; }

    // The slice's text; shorter than the slice when the column is.
    static QStringView taglia(const QString &colonna, Fetta f);
    // The index of the slice's pattern; -1 when the column is too short or a character of the
    // slice is no sign.
    static int indiceFetta(const QString &colonna, Fetta f);

    // The contests a count looks at (from 1, the oldest) and how its delays read: a pattern last
    // seen in contest j has the delay `riferimento` less j, one not seen the delay `assente`.
    struct Finestra {
        int primo;
        int ultimo;
        int riferimento;
        int assente;
    };

    struct Figura {
        int ritardo = 0;
        int frequenza = 0;
        bool operator==(const Figura &) const = default;
    };

    // How often each pattern of one slice came out in a window, and when last (0: never).
    struct Presenze {
        std::vector<int> frequenza;
        std::vector<int> ultimo;
        Figura figura(int indice, const Finestra &finestra) const;
    };
    // One pass over the window's contests for all the slices at once. A contest that `conta`
    // rejects counts for nothing. The window is held inside the archive.
    static std::vector<Presenze> conta(const ArchivioColonne &archivio,
                                       std::span<const Fetta> fette, const Finestra &finestra,
                                       const std::function<bool(int)> &contaConcorso = {});
    // The plain walk of one pattern through one slice: the delay from the window's last contest
    // back to the first text equal to it, the frequency by counting the equal texts.
    static Figura cammina(const ArchivioColonne &archivio, Fetta fetta, QStringView schema,
                          const Finestra &finestra);

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

    // The figures of the panel. Terzine and cinquine look at every contest; the coppie only at
    // the latest `base` contests, and a coppia absent from them has the delay `base`. Raises a
    // run-time fault with more than CapacitaConcorsi contests or fewer than `base`.
    static Figure calcola(const ArchivioColonne &archivio, int base);

    // The same figures by the plain repeated walks of the archive, one per pattern and slice:
    // the reference the fast pass is checked and measured against.
    static Figure calcolaConScansione(const ArchivioColonne &archivio, int base);

    // The fault of a screen that keeps per-contest tables of CapacitaConcorsi entries.
    static void verificaCapacita(int numero, const QString &schermo);

private:
    static void verificaPannello(int numero, int base);
};
