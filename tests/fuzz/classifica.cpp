// A league table file as it may stand on disk: read for a league of each size, written back and
// read again.

#include "supportofuzz.h"

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "piattaforma/erroreesecuzione.h"

using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    // Austria (10 rows), Scozia (12) and Serie B (22) read the same bytes.
    for (const char *codice : {"Austria", "Scozia", "B"}) {
        const Leghe::Lega &lega = *Leghe::perCodice(QString::fromLatin1(codice));
        scriviFile(dati, n, Leghe::fileClassifica(lega));
        FileCampionati::Classifica letta;
        try {
            letta = FileCampionati::leggiClassifica(cartella(), lega);
        } catch (const ErroreEsecuzione &) {
            continue;
        }
        if (letta.righe.size() != lega.righeClassifica)
            difetto("la classifica letta non ha le righe della lega");
        // A field holds no tab and no line end: the table comes back from its own file.
        try {
            FileCampionati::scriviClassifica(cartella(), lega, letta);
            if (FileCampionati::leggiClassifica(cartella(), lega) != letta)
                difetto("la classifica scritta non si rilegge uguale");
        } catch (const ErroreEsecuzione &) {
            difetto("la classifica letta non si riscrive");
        }
    }
    return 0;
}
