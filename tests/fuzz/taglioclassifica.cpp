// A foreign league page as the site may send it: cut into a table of each size, and the table
// file it makes.

#include "supportofuzz.h"

#include "campionati/taglioclassifica.h"
#include "piattaforma/erroreesecuzione.h"

#include <QDateTime>

using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const QStringList righe = latino(dati, n).split(QLatin1Char('\n'));
    const QDateTime adesso(QDate(2026, 11, 23), QTime(18, 0));
    for (const int numero : {10, 20}) {
        QList<TaglioClassifica::Riga> tabella;
        try {
            tabella = TaglioClassifica::taglia(righe, numero);
        } catch (const ErroreEsecuzione &) {
            continue;
        }
        if (tabella.size() != numero)
            difetto("la tabella tagliata non ha le righe della lega");
        const FileCampionati::Classifica c =
            TaglioClassifica::classifica(tabella, TaglioClassifica::voci().front(), adesso);
        if (c.righe.size() != numero)
            difetto("la classifica non ha le righe della tabella");
        for (const FileCampionati::RigaClassifica &r : c.righe)
            if (r[9] != QLatin1String("-") || r[15] != QLatin1String("-"))
                difetto("manca un \"-\" delle partite in casa o fuori");
    }
    return 0;
}
