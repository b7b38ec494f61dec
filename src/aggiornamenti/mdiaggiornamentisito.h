#pragma once

class RegistroSchermi;

// The updates from the site: the full update, the partial ones, the quotas, the season.
class MdiAggiornamentiSito {
public:
    // Gives the frame its screens and menu actions.
    static void registra(RegistroSchermi &pannello);
};
