// The coupons of the week as they may stand on disk: the same bytes read as a coupon, a
// picchetto, a prognosis and the file of the quotas, through every reader the screens use.

#include "supportofuzz.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "schedine/fileschedine.h"
#include "schedine/pronostico.h"
#include "schedine/quote.h"
#include "schedine/schedinamanuale.h"
#include "schedine/schedinasettimana.h"

using namespace SupportoFuzz;

namespace {

constexpr FileSchedine::Tipo Tipo = FileSchedine::Tipo::Domenica;

bool ugualiPagine(const SchedinaManuale::Pagina &a, const SchedinaManuale::Pagina &b) {
    return a.concorso == b.concorso && a.giorno == b.giorno && a.data == b.data && a.ora == b.ora &&
           a.squadre == b.squadre;
}

// The coupon screen: the coupon and its picchetto in the grid.
void schermo(const uint8_t *dati, size_t n) {
    scriviFile(dati, n, FileSchedine::fileSchedina(Tipo));
    scriviFile(dati, n, FileSchedine::filePicchetto(Tipo));
    const FileSchedine::Schedina schedina = FileSchedine::leggiSchedina(cartella(), Tipo);
    if (schedina.partite.size() > FileSchedine::Partite)
        difetto("la schedina ha più di 14 partite");
    for (const QStringList &pezzi : schedina.partite)
        for (const QString &pezzo : pezzi)
            if (pezzo != pezzo.trimmed())
                difetto("un pezzo della schedina non è ripulito dei blank");
    std::array<FileSchedine::Percentuali, FileSchedine::Partite> picchetto;
    try {
        picchetto = FileSchedine::leggiPicchetto(cartella(), Tipo);
    } catch (const ErroreEsecuzione &) {
    }
    Griglia griglia(SchedinaSettimana::Righe, SchedinaSettimana::Colonne);
    SchedinaSettimana::prepara(griglia);
    try {
        SchedinaSettimana::riempi(griglia, schedina, picchetto);
    } catch (const ErroreEsecuzione &) {
        return;
    }
    for (int riga = 0; riga < SchedinaSettimana::Righe; ++riga)
        SchedinaSettimana::segnaPartita(griglia, riga);
}

// The manual update: a page read, written and read again is stable from then on.
void manuale(const uint8_t *dati, size_t n) {
    scriviFile(dati, n, FileSchedine::fileSchedina(Tipo));
    SchedinaManuale::Pagina letta;
    try {
        letta = SchedinaManuale::carica(cartella(), Tipo);
    } catch (const ErroreEsecuzione &) {
        return;
    }
    SchedinaManuale::applica(cartella(), Tipo, letta);
    SchedinaManuale::Pagina riletta;
    try {
        riletta = SchedinaManuale::carica(cartella(), Tipo);
    } catch (const ErroreEsecuzione &) {
        difetto("la schedina scritta non si rilegge");
    }
    SchedinaManuale::applica(cartella(), Tipo, riletta);
    if (!ugualiPagine(SchedinaManuale::carica(cartella(), Tipo), riletta))
        difetto("la schedina riscritta cambia ancora");
}

// The prognosis: what is read is written back unchanged.
void pronostico(const uint8_t *dati, size_t n) {
    scriviFile(dati, n, FileSchedine::filePronostico(Tipo));
    QStringList righe;
    try {
        righe = FileSchedine::leggiPronostico(cartella(), Tipo);
    } catch (const ErroreEsecuzione &) {
        return;
    }
    if (righe.size() > FileSchedine::Partite)
        difetto("il pronostico ha più di 14 righe");
    FileSchedine::scriviPronostico(cartella(), Tipo, righe);
    if (FileSchedine::leggiPronostico(cartella(), Tipo) != righe)
        difetto("il pronostico scritto non si rilegge uguale");
    QStringList caselle = righe;
    while (caselle.size() < FileSchedine::Partite)
        caselle.append(QString());
    Pronostico::messaggio(Pronostico::controlla(caselle));
    Pronostico::rigaStampa(caselle);
}

void quote(const uint8_t *dati, size_t n) {
    scriviFile(dati, n, QString::fromLatin1(Quote::File));
    const QStringList valori = Quote::leggi(cartella());
    if (valori.size() > Quote::Valori)
        difetto("le quote hanno più di 25 valori");
    for (const QString &v : valori)
        if (v.startsWith(u' ') || v.endsWith(u' '))
            difetto("un valore delle quote non è ripulito dei blank");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    schermo(dati, n);
    manuale(dati, n);
    pronostico(dati, n);
    quote(dati, n);
    return 0;
}
