#pragma once

#include <QString>

// What the figures and the words the screens abbreviate stand for (R, F, Freq., Rit., Int.,
// Simm., Paral., formula, terzina, cinquina, coppia), written once, so that every tool tip that
// explains one says the same. Each text tells what the program computes: Colonna::metriche,
// StatisticheSegni and Colonne9 are the reference.
class Glossario {
public:
    static QString formulaNove();
    static QString formulaQuattordici();
    static QString interruzioni();
    static QString simmetrie();
    static QString parallele();
    // The terzine of the column, the first `quante` of them (3 for the 9, 4 on the panel).
    static QString terzina(int quante);
    // The matches of terzina `n` (1 to 4): "partite 1-3".
    static QString partiteTerzina(int n);
    static QString cinquina();
    static QString coppia();
    // The delay of `cosa` ("della cinquina nelle partite 10-14"); `assente` tells what it is when
    // it never came out ("\"-\" se non è mai uscita").
    static QString ritardo(const QString &cosa, const QString &assente);
    // The frequency of `cosa` ("la cinquina nelle partite 10-14") over `concorsi` ("concorsi
    // dell'archivio").
    static QString frequenza(const QString &cosa, const QString &concorsi);
    // An abbreviation as the screen shows it and what it stands for: "R = Ritardo: ...".
    static QString sigla(const QString &sigla, const QString &spiegazione);
};
