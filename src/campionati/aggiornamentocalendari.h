#pragma once

#include "campionati/leghe.h"

#include <QString>

#include <functional>

class StatoProgramma;

// The refresh of the calendars of the seven Italian series from the site: each page stored as
// the series' text file, then its data file built from it.
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

private:
    QString scarica(const Leghe::Lega &lega);

    StatoProgramma &m_stato;
};
