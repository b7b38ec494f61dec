#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

// The prognosis of a coupon: 1 to 3 signs a match, in any order, as the 14 boxes of the coupon
// screens hold them. What may be typed, what may be stored, and the line of the print.
class Pronostico {
public:
    // The keys that reach a box: "1", "2", "X" in either case, and backspace.
    static bool tastoAmmesso(QChar tasto);

    // The outcome of the checks that precede a save, in the order they run over all 14 boxes:
    // an empty box first, then a sign typed twice, then a character that is no sign.
    enum class Esito {
        Salvabile,
        CasellaVuota,
        SegnoRipetuto,
        // A box of one character that is no sign.
        SegnoNonValido,
        // A longer box with a character that is no sign: the save ends without a word.
        SegnoNonValidoSenzaMessaggio,
    };
    static Esito controlla(const QStringList &caselle);
    // The message of each outcome; empty for the two that show none.
    static QString messaggio(Esito esito);

    // The lines of the file: the boxes in upper case.
    static QStringList righe(const QStringList &caselle);
    // The line of the print: each box followed by a blank, a "-" after boxes 3, 6 and 9 (the
    // blocks of the 9 and of the cinquina).
    static QString rigaStampa(const QStringList &caselle);
};
