#pragma once

#include <QString>

class Rete;
class StatoProgramma;

// The address of the update site as the user sets it: checked, tried and stored. The settings
// window reads its field and shows these answers.
class ImpostazioneSito {
public:
    // The page of the site that lists its pages, with a link to each.
    static constexpr const char16_t *PaginaIndice = u"/vespara/index.html";

    struct Prova {
        bool risponde = false;
        bool annullata = false;
        // The pages the index links to; -1 when the index did not come.
        int pagine = -1;
    };

    // Probes `radice` and reads its index through the program's network, as one operation
    // (bounded, and cancelled by the waiting box); the network's own root is left as it was.
    static Prova prova(Rete &rete, const QString &radice);
    // The different pages an index links to.
    static int pagineIndice(const QString &html);
    // What the window says of a probe of `radice`.
    static QString esito(const Prova &prova, const QString &radice);

    // Stores the address (trimmed; empty: none, back to the installed site) and points the
    // program's network at the root that holds from now on. Nothing is stored when the address
    // can't be a root: the returned text says why, empty when stored.
    static QString memorizza(StatoProgramma &stato, const QString &indirizzo);
    // The address stored by the user, empty when none.
    static QString memorizzato(const StatoProgramma &stato);
};
