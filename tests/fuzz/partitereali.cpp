// The table of real match results that the data builders read (UTF-8, ';'-separated).

#include "supportofuzz.h"

#include "campionati/partitereali.h"
#include "piattaforma/erroreesecuzione.h"

using namespace Qt::StringLiterals;
using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    QList<PartiteReali::Partita> partite;
    try {
        partite = PartiteReali::leggi(scriviFile(dati, n, u"partite.csv"_s));
    } catch (const ErroreEsecuzione &) {
        return 0;
    }
    if (partite.isEmpty())
        difetto("letta una tabella senza partite");
    // What the reader accepted is what its checks promise.
    for (const PartiteReali::Partita &p : std::as_const(partite))
        if (p.giornata < 1 || !p.data.isValid() || p.casa.isEmpty() || p.ospite.isEmpty() ||
            p.golCasa < 0 || p.golCasa > 99 || p.golOspite < 0 || p.golOspite > 99 || p.riga < 2)
            difetto("accettata una partita che i controlli escludono");
    try {
        PartiteReali::correggiDate(partite);
        for (const PartiteReali::Partita &p : std::as_const(partite))
            if (!p.data.isValid())
                difetto("una data corretta non valida");
    } catch (const ErroreEsecuzione &) {
    }
    return 0;
}
