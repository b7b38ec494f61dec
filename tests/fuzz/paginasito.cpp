// The site's archive page (ColonneTotocalcio.htm): Latin-1 text split on line feeds, as the full
// update reads it, then the lines it would write to Archivio.txt, loaded.

#include "supportofuzz.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "piattaforma/erroreesecuzione.h"

#include <climits>

using namespace SupportoFuzz;

namespace {

void leggiPezzi(const QStringList &pezzi) {
    try {
        if (AggiornamentiSito::ultimaRiga(pezzi).isEmpty())
            difetto("l'ultima riga non ha nemmeno un campo");
    } catch (const ErroreEsecuzione &) {
    }
    for (const int locali : {0, 1, 487, int(pezzi.size()), INT_MAX, INT_MIN}) {
        try {
            AggiornamentiSito::daRicostruire(pezzi, locali);
        } catch (const ErroreEsecuzione &) {
        }
    }
    const QStringList righe = AggiornamentiSito::righeArchivio(pezzi);
    if (righe.size() != std::max<qsizetype>(0, pezzi.size() - 1))
        difetto("una riga d'archivio per ogni concorso della pagina");
    try {
        const ArchivioColonne archivio = ArchivioColonne::daRighe(righe);
        for (int i = 0; i < archivio.numero(); ++i)
            Colonna::metriche(archivio.colonna(i));
    } catch (const ErroreEsecuzione &) {
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const QString pagina = latino(dati, n);
    // As the update fetches it (trimmed of blanks), and as it came.
    leggiPezzi(Rete::togliBlank(pagina).split(u'\n'));
    leggiPezzi(pagina.split(u'\n'));
    return 0;
}
