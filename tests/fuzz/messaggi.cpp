// The staff's message pages and new.dat. The input holds the seven pages of a message (data,
// titolo, riga1..riga4, staff) separated by the byte 0x1E; the whole input is also new.dat.

#include "supportofuzz.h"

#include "aggiornamenti/messaggi.h"
#include "core/numeritesto.h"
#include "piattaforma/erroreesecuzione.h"

#include <algorithm>
#include <climits>

using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const QString testo = latino(dati, n);
    if (qint64(Messaggi::numero(testo)) !=
        std::clamp<qint64>(NumeriTesto::valore(testo), INT_MIN, INT_MAX))
        difetto("il numero di un messaggio non è quello del testo");

    const QStringList parti = testo.split(QChar(0x1E));
    Messaggi::Pagine pagine;
    for (int c = 0; c < Messaggi::NumeroCampi; ++c) {
        pagine[c] = parti.value(c);
        if (Messaggi::pezzi(pagine[c]).isEmpty())
            difetto("una pagina senza nemmeno un pezzo");
        Messaggi::numero(pagine[c]);
    }

    ArchivioComunicazioni archivio;
    try {
        archivio.riempi(pagine);
        const int numero = archivio.NumeroComunicazioni();
        if (numero < 1 || archivio.ComunicazioneCorrente() != numero)
            difetto("dopo il riempimento si mostra l'ultima comunicazione");
        for (int k = 1; k <= numero; ++k)
            archivio.comunicazione(k);
        int passi = 0;
        while (archivio.indietro())
            ++passi;
        while (archivio.avanti())
            --passi;
        if (passi != 0 || archivio.ComunicazioneCorrente() != numero)
            difetto("avanti e indietro non tornano all'ultima");
        archivio.corrente();
    } catch (const ErroreEsecuzione &) {
        if (archivio.NumeroComunicazioni() != 0)
            difetto("un riempimento fallito ha cambiato l'archivio");
    }

    try {
        const QString cartella = SupportoFuzz::cartella();
        scriviFile(dati, n, QString::fromUtf16(Messaggi::FileVisto));
        Messaggi::numeroVisto(cartella, false);
        Messaggi::numeroVisto(cartella, true);
    } catch (const ErroreEsecuzione &) {
    }
    return 0;
}
