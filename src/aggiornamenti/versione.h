#pragma once

#include <QString>

class Rete;

// A version of the program as the site publishes it, "major.minor.revision", and the rule that
// tells whether the site's one is newer than the running program.
class Versione {
public:
    // The page with the version of the newest program, and the installer it points to.
    static constexpr const char16_t *Pagina = u"/vespara/AggiornamentoProdotto5.html";
    static constexpr const char16_t *Installatore = u"/vespara/aggVespara-500.exe";

    int maggiore = 0;
    int minore = 0;
    int revisione = 0;

    // Splits on "."; the first three elements become small integers, a missing or non-numeric
    // one (or one beyond 16 bits) counting 0.
    static Versione leggi(const QString &testo);
    // The running program's own: the application's version, else the build's numbers.
    static Versione delProgramma();

    // The site's rule, element by element: a higher element counts only where the elements
    // before it are not lower. So 4.5.9 is not newer than 5.0.0, and 6.0.0 is newer than 5.9.9.
    bool piuRecenteDi(const Versione &programma) const;
    static bool piuRecente(const QString &testo, const Versione &programma = delProgramma());

    // The text of the version page, trimmed of the padding; empty when nothing came.
    static QString scarica(Rete &rete);
};
