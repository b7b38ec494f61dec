// The version page of the site (AggiornamentoProdotto5.html), read and compared. The first line
// of the input is the site's page, the rest the running program's version.

#include "supportofuzz.h"

#include "aggiornamenti/versione.h"

using namespace SupportoFuzz;

namespace {

bool in16Bit(int v) {
    return v >= -32768 && v <= 32767;
}

void verifica(const Versione &v) {
    if (!in16Bit(v.maggiore) || !in16Bit(v.minore) || !in16Bit(v.revisione))
        difetto("un elemento della versione oltre i 16 bit");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const QString testo = latino(dati, n);
    const qsizetype fine = testo.indexOf(u'\n');
    const QString sito = fine < 0 ? testo : testo.left(fine);
    const QString programma = fine < 0 ? QString() : testo.mid(fine + 1);

    const Versione s = Versione::leggi(sito);
    const Versione p = Versione::leggi(programma);
    verifica(s);
    verifica(p);
    // Newer is a strict order: never of itself, never both ways.
    if (s.piuRecenteDi(s) || p.piuRecenteDi(p))
        difetto("una versione più recente di se stessa");
    if (s.piuRecenteDi(p) && p.piuRecenteDi(s))
        difetto("due versioni più recenti l'una dell'altra");
    if (Versione::piuRecente(sito, p) != s.piuRecenteDi(p))
        difetto("piuRecente non è leggi seguito da piuRecenteDi");
    return 0;
}
