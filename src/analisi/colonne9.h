#pragma once

#include "core/archiviocolonne.h"

#include <QStringList>

#include <array>
#include <functional>
#include <vector>

// The columns of the 9: the 19683 combinations of the first nine signs of the coupon, and their
// figures in the archive.
class Colonne9 {
public:
    static constexpr int Numero = 19683;

    // One row of StatColonne9: the column, the text of Freq., the text of Rit.
    using Statistica = std::array<QString, 3>;

    // ElencoColonne9: entry 0 "111111111", entry 1 "11111111X", ... entry 19682 "222222222".
    static const QStringList &elenco();
    // The column's value in base 3 with 1=0, X=1, 2=2 (its index in the list); -1 when the text
    // is not nine signs.
    static int indice(QStringView colonna);

    // A counter as the grid shows it: the number with a sign place, " 0", " 12".
    static QString testoNumero(int n);

    // How often each column came out and the contest (from 1) it came out in last, 0 for never:
    // one pass over contests in their order, by index.
    struct Conteggi {
        std::vector<int> frequenza = std::vector<int>(Numero, 0);
        std::vector<int> ultimo = std::vector<int>(Numero, 0);
        // Counts contest j of the archive; its column's index, or -1 when its first nine
        // characters are not nine upper-case signs (such a contest counts for no column).
        int aggiungi(const ArchivioColonne &archivio, int j);
    };
    // The contests 1 to `fino` (all when negative).
    static Conteggi conta(const ArchivioColonne &archivio, int fino = -1);

    // Freq. and Rit. of every column against the whole archive, in one pass by index. The
    // progress callback, if given, is told how many columns are done (up to Numero).
    static QList<Statistica> calcola(const ArchivioColonne &archivio,
                                     const std::function<void(int)> &avanzamento = {});
    // The same figures by the plain method, 19683 walks of the whole archive: the reference.
    static QList<Statistica> calcolaConConfronti(const ArchivioColonne &archivio);

    // Frequency and delay of one column (the search "Cerca"): a column never drawn has the delay
    // N. The text is compared in upper case with the first nine signs of each contest.
    struct Ricerca {
        int frequenza = 0;
        int ritardo = 0;
    };
    static Ricerca cerca(const ArchivioColonne &archivio, const QString &testo);
    // Whether the text may be searched: nine characters with at least one sign among them.
    static bool ricercaValida(const QString &testo);

    // CountOccurrences: whether every run of `modello` found in `testo`, from the left, is
    // exactly as long as the pattern, and how many there are. An empty pattern is no match.
    struct Presenze {
        bool esito = false;
        int conta = 0;
    };
    static Presenze countOccurrences(const QString &testo, const QString &modello);

    // CaricaTerzineOmogenee: the 27 columns made of three homogeneous terzine, in their order.
    static const QStringList &terzineOmogenee();
};
