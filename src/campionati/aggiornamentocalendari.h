#pragma once

#include "campionati/leghe.h"
#include "piattaforma/riepilogoaggiornamento.h"

#include <QString>

#include <functional>

class StatoProgramma;

// The refresh of the calendars of the seven Italian series from the site: each page stored as
// the series' text file, then its data file built from it. A series' files are replaced only
// from its own page, received whole: a page broken off, a site gone silent or "Annulla" stop the
// refresh, and the series not reached keep their files as they were.
class AggiornamentoCalendari {
public:
    static constexpr const char *Domanda =
        "Questa funzione aggiornerà tutti i campionati. Procedere?";
    static constexpr const char *DomandaSecondaDivisione =
        "Attenzione! Uno o più campionati della Lega Pro Seconda Divisione non sono ancora "
        "disponibili. Riprovare in un secondo momento. Ci scusiamo per il disguido. Continuare "
        "comunue con l'aggiornamento?";

    explicit AggiornamentoCalendari(StatoProgramma &stato);

    // The page of a series' calendar: "/vespara/Calendario2011-2012-SerieA.html".
    static QString pagina(const Leghe::Lega &lega);
    // The three series of the Lega Pro second division, fetched first: whether each came with
    // some text.
    bool secondaDivisioneDisponibile();
    // The seven series in order, each page written as its text file and its data file rebuilt;
    // `avanzamento` hears how many are done.
    void aggiorna(const std::function<void(int)> &avanzamento = {});

    // The series refreshed so far, and the seven the refresh sets out to refresh.
    const RiepilogoAggiornamento &riepilogo() const { return m_riepilogo; }
    RiepilogoAggiornamento &riepilogo() { return m_riepilogo; }

private:
    QString scarica(const Leghe::Lega &lega);

    StatoProgramma &m_stato;
    RiepilogoAggiornamento m_riepilogo;
};
