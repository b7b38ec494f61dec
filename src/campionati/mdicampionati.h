#pragma once

class RegistroSchermi;

// What the frame offers of the leagues: the league tables from the menu.
class MdiCampionati {
public:
    // Shows the table of the league (its LegaClassifica code) in frmClassifiche; a table already
    // on show gives way to it.
    static void mostraClassifica(RegistroSchermi &pannello, const char *codice);
    // The foreign update: of one league (its code), or of all twelve when none is given. The
    // question, the probe, frmAggStra while the pages download.
    static void aggiornaStraniere(RegistroSchermi &pannello, const char *codice = nullptr);
    // Gives the frame the screens and menu actions of the leagues.
    static void registra(RegistroSchermi &pannello);
};
