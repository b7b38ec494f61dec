#include "analisi/stampacolonne9.h"

#include "piattaforma/griglia.h"
#include "stampa/documentopagine.h"

using namespace Qt::StringLiterals;

namespace {

const QString Arial = u"Arial"_s;
const QString Fisso = u"Courier New"_s;

void testa(DocumentoPagine &d, int pagina, const QString &data) {
    const auto titoli = [&d] {
        d.scriviTesto(1.0f, 1.5f, u"Vespara."_s, Arial, 10, true, 4);
        d.scriviTesto(12.9f, 1.5f, u"Stampa delle terzine Vespara."_s, Arial, 10, true, 0);
    };
    titoli();
    d.scriviLinea(1.0f, 2.0f, 20.0f, 2.0f);
    d.scriviTesto(8.0f, 1.5f, u"Data: "_s + data, Arial, 10, true, 0);
    d.scriviTesto(1.5f, 3.5f, u"Elenco Colonne del 9."_s, Arial, 13, true, 12);
    // From the second page on the rule under the head is drawn once more here.
    if (pagina > 1)
        d.scriviLinea(1.0f, 2.0f, 20.0f, 2.0f);
    d.scriviLinea(1.0f, 26.5f, 20.0f, 26.5f);
    d.scriviTesto(1.0f, 26.6f, u"Pagina "_s + QString::number(pagina), Arial, 10, true, 0);
    // The two texts of the head are laid down twice on each page, as they always were.
    titoli();
}

} // namespace

void StampaColonne9::scrivi(DocumentoPagine &d, const Griglia &g, const QString &data) {
    d.nuovoDocumento();
    int pagina = 1;
    int riga = 2;
    testa(d, pagina, data);
    static constexpr float Colonne[] = {2.6f, 4.6f, 6.1f, 7.3f};
    for (int r = 1; r < g.righe(); ++r) {
        const float y = 4.0f + 0.35f * float(riga);
        for (int c = 0; c < 4 && c < g.colonne(); ++c)
            d.scriviTesto(Colonne[c], y, g.testo(r, c), Fisso, 10, false, 0);
        ++riga;
        // The page breaks right after its 58th column, even when it was the last one.
        if (riga == RighePerPagina + 2) {
            d.nuovaPagina();
            testa(d, ++pagina, data);
            riga = 2;
        }
    }
    d.fineDocumento();
}
