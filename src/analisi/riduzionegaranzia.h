#pragma once

#include <QList>
#include <QtGlobal>

#include <functional>

// The reduction of a set of columns with a guarantee: a few columns of the set such that every
// column of the set differs from one of them in at most `raggio` signs (radius 1 is "8 su 9",
// radius 2 "7 su 9" for the 9). A column of n signs is its base-3 value, "1" = 0, "X" = 1,
// "2" = 2, the first sign the most significant digit.
//
// The solver builds a greedy cover, then a weighted tabu search tries ever smaller sizes: at a
// fixed size it moves kept columns to cover what is left uncovered, and every cover it reaches is
// recorded before it tries one column less. When the set is the whole space of n signs it also
// searches codes made of cosets of linear codes (the columns whose syndrome lies in a small set,
// found by the same search on the syndromes), which is where the smallest known codes are; any
// such code better than the best cover becomes the start of the search on the set.
//
// It stops at the time limit, when the caller cancels, when the cover reaches the floor of
// `minimo`, or when the search stagnates: no smaller cover during as many moves as it took to
// find the best one, and at least `MosseStallo` moves per column of the set.
class RiduzioneGaranzia {
public:
    // Moves per column of the set without a smaller cover after which the search may stop.
    static constexpr int MosseStallo = 400;

    struct Opzioni {
        int segni = 9;
        int raggio = 1;
        int limiteMs = 60000; // the whole reduction, greedy step included
        quint32 seme = 1;
    };
    struct Avanzamento {
        int migliore = 0; // size of the best cover so far
        int trascorsiMs = 0;
        int limiteMs = 0;
    };
    struct Esito {
        QList<int> tenute; // the best cover, columns of the input in their input order
        bool annullata = false;
        bool limiteRaggiunto = false;
        int trascorsiMs = 0;
        int migliorataMs = 0;  // when the best cover was found
        qint64 iterazioni = 0; // moves of the searches, a new coset code counting one a syndrome
    };

    // The columns to keep. Duplicates in `colonne` count once (their first place gives the
    // order). `segni` outside 1..9, a negative radius or a column outside 0..3^segni-1 give an
    // empty result, as does an empty set. Radius 0 keeps the whole set; a radius of `segni` or
    // more keeps its first column.
    //
    // `avanzamento` is called at the end of the greedy step and then every ~50 ms of search; when
    // it returns false the search stops with the best cover found so far, which is always a
    // valid cover. The same seed gives the same result, as long as neither the time limit nor
    // the caller stops the search.
    //
    // The balls of the set are kept in memory up to 8M entries (radius 1 and 2 always, radius 3
    // on sets up to about 10000 columns). Beyond that they are computed each time: the greedy
    // step then takes seconds and is the whole answer (with the coset codes on the whole space);
    // it is told to `avanzamento` and stopped by the time limit, the columns it has not covered
    // yet kept as they are.
    static Esito riduci(const QList<int> &colonne, const Opzioni &opzioni,
                        const std::function<bool(const Avanzamento &)> &avanzamento = {});

    // Whether every column of `colonne` is within `raggio` of a column of `tenute` and every
    // column of `tenute` belongs to `colonne`. A check independent of the solver, by brute force
    // over the pairs; invalid arguments (as for riduci) are not a guarantee.
    static bool garantita(const QList<int> &colonne, const QList<int> &tenute, int segni,
                          int raggio);
    // The number of signs in which two columns of `segni` signs differ.
    static int distanza(int a, int b, int segni);
    // The sphere-covering floor: |S| divided by the largest ball within S, rounded up. No cover
    // of the set is smaller. 0 for an empty or invalid set.
    static int minimo(const QList<int> &colonne, int segni, int raggio);
};
