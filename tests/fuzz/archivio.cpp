// Archivio.txt as it may stand on disk: read into lines, loaded, and the metrics of every column.

#include "supportofuzz.h"

#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

using namespace Qt::StringLiterals;
using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const QString percorso = scriviFile(dati, n, u"Archivio.txt"_s);
    QStringList righe;
    try {
        righe = FileDati::leggiRighe(percorso);
        // Written back and read again, the lines come out the same: the program rewrites the
        // archive from what it read.
        FileDati::scriviRighe(percorso, righe);
        if (FileDati::leggiRighe(percorso) != righe)
            difetto("le righe riscritte non si rileggono uguali");
    } catch (const ErroreEsecuzione &) {
        return 0;
    }

    try {
        const ArchivioColonne archivio = ArchivioColonne::daRighe(righe);
        for (int i = 0; i < archivio.numero(); ++i) {
            const MetricheColonna m = Colonna::metriche(archivio.colonna(i));
            if (m.uno < 0 || m.x < 0 || m.due < 0 || m.uno + m.x + m.due > Colonna::Lunghezza)
                difetto("conteggi dei segni fuori dalla colonna");
            if (m.interruzioni < 0 || m.interruzioni > 13 || m.simmetrie < 0 || m.simmetrie > 7 ||
                m.parallele < 0 || m.parallele > 7)
                difetto("metriche fuori intervallo");
            Colonna::formulaNove(archivio.colonna(i));
        }
        // The loader's own output loads to the same rows.
        if (ArchivioColonne::daRighe(archivio.comeRighe()).comeRighe() != archivio.comeRighe())
            difetto("l'archivio riscritto non si ricarica uguale");
    } catch (const ErroreEsecuzione &) {
    }
    return 0;
}
