#pragma once

#include "analisi/passofiltro.h"

#include <QList>
#include <QString>

#include <functional>

class ArchivioColonne;

// How a chain of filters of the workspace of the 9 would have done on past contests, walking
// forward: for each contest, Freq. and Rit. of the 19683 columns come from the contests before it
// alone, the chain narrows that universe, and the contest's own column of the 9 either survives
// or not. The steps are the workspace's own: their rules decide here as they do on the grid.
class VerificaStorica {
public:
    // The contests before the first one checked that the history always keeps.
    static constexpr int StoriaMinima = 205;
    static constexpr int ConcorsiPredefiniti = 100;

    struct Concorso {
        int progressivo = 0; // its row in the archive, from 1
        QString stagione;
        QString concorso;
        QString colonna; // the column of the 9 drawn
        int tenute = 0;  // the columns the chain kept
        bool presa = false;
    };
    struct Esito {
        QList<Concorso> concorsi;
        int prese = 0;
        double mediaTenute = 0;
        // The share of contests a random choice of the same number of columns would have hit:
        // the mean of kept / 19683.
        double probabilitaCaso = 0;
        bool annullata = false;

        double quotaPrese() const {
            return concorsi.isEmpty() ? 0 : double(prese) / double(concorsi.size());
        }
    };

    // The most contests that can be checked: the whole archive less the history kept.
    static int massimo(const ArchivioColonne &archivio);

    // Replays the chain on the last `ultimi` contests (at most `massimo`). `avanzamento` is told
    // the contests done and their number every few contests; when it answers false the replay
    // stops and the result says it was cancelled.
    static Esito esegui(const ArchivioColonne &archivio, const CatenaFiltri &catena, int ultimi,
                        const std::function<bool(int fatti, int totale)> &avanzamento = {});

    // The summary as the screen shows it: the hits, the mean of the kept columns, what chance
    // would have hit with as many columns, and the verdict, which weighs the difference against
    // the spread of chance (the hits of random choices vary from contest to contest).
    static QString testoPrese(const Esito &esito);
    static QString testoMedia(const Esito &esito);
    static QString testoCaso(const Esito &esito);
    static QString testoGiudizio(const Esito &esito);
    // How many standard deviations of chance the hits stand above (below 0: under) the hits
    // expected of random choices of the same sizes; 0 when chance has no spread.
    static double scarto(const Esito &esito);
};
