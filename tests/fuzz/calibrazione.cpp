// Vpprn.PRN as it may stand on disk: read into the table of the printers, the offsets of every
// printer named in it looked up, and one of them changed and written back.

#include "supportofuzz.h"

#include "piattaforma/erroreesecuzione.h"
#include "stampa/calibrazionestampanti.h"

using namespace Qt::StringLiterals;
using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    scriviFile(dati, n, CalibrazioneStampanti::nomeFile());
    CalibrazioneStampanti::Tabella tabella;
    try {
        tabella = CalibrazioneStampanti::leggi(cartella());
    } catch (const ErroreEsecuzione &) {
        return 0;
    }
    QString scelta;
    for (const QString &riga : tabella) {
        const QString nome = riga.section(u',', 0, 0);
        try {
            if (const auto s = CalibrazioneStampanti::scostamenti(tabella, nome)) {
                if (s->first.contains(u',') || s->second.contains(u','))
                    difetto("uno scostamento contiene una virgola");
                scelta = nome;
            }
        } catch (const ErroreEsecuzione &) {
        }
    }
    // The offsets typed for a printer come back from the file that was written.
    try {
        CalibrazioneStampanti::aggiorna(tabella, cartella(), scelta, u"-12"_s, u"7"_s);
    } catch (const ErroreEsecuzione &) {
        return 0;
    }
    try {
        const CalibrazioneStampanti::Tabella letta = CalibrazioneStampanti::leggi(cartella());
        if (letta != tabella)
            difetto("la tabella scritta non si rilegge uguale");
        if (!scelta.isEmpty()) {
            const auto s = CalibrazioneStampanti::scostamenti(letta, scelta);
            if (!s || s->first != u"-12"_s || s->second != u"7"_s)
                difetto("gli scostamenti scritti non si ritrovano");
        }
    } catch (const ErroreEsecuzione &) {
        difetto("il file scritto dal programma non si rilegge");
    }
    return 0;
}
