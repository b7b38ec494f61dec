#pragma once

#include "campionati/taglioclassifica.h"

#include "piattaforma/riepilogoaggiornamento.h"

#include <QString>

#include <functional>

class StatoProgramma;

// The update of the foreign league tables from the site: for each league its link page gives the
// address of the page to cut, the page is stored in the league's working file, read back, cut
// and written to the table file and the team list. A league's files are replaced only from its
// own page, received whole: a page broken off, a site gone silent or "Annulla" stop the run, and
// the leagues not reached keep their files as they were. What came whole is not judged: a page
// without the marker empties the league's table, as the cutting requires.
class AggiornamentoStraniero {
public:
    static constexpr const char *Domanda =
        "Procedere con l'aggiornamento dei campionati stranieri?";
    static constexpr const char *SenzaConnessione =
        "Per utilizzare questa funzione, è necessario essere collegati ad Internet.";

    explicit AggiornamentoStraniero(StatoProgramma &stato);

    // The address in the link page, as a path under the site's root (the one place the program
    // fetches from): a full address keeps its path and query.
    QString link(const TaglioClassifica::Voce &voce);
    // One league, from the address of its page.
    void aggiorna(const TaglioClassifica::Voce &voce, const QString &link);
    // All twelve: the link pages first, in the alphabetical order of the leagues, then each
    // league in the order of the run; `progresso` hears the progress text before each page.
    void aggiornaTutte(const std::function<void()> &dopoILink,
                       const std::function<void(const QString &)> &progresso);

    // The leagues refreshed so far, and those the run set out to refresh (by their names).
    const RiepilogoAggiornamento &riepilogo() const { return m_riepilogo; }
    RiepilogoAggiornamento &riepilogo() { return m_riepilogo; }

    // The leagues in the alphabetical order of their names (the order of the link pages).
    static QList<const TaglioClassifica::Voce *> inOrdineAlfabetico();

private:
    StatoProgramma &m_stato;
    RiepilogoAggiornamento m_riepilogo;
};
