#pragma once

#include <QString>
#include <QStringList>

#include <array>

// The six figures derived from a winning column of 14 signs.
struct MetricheColonna {
    int uno = 0;          // count of "1"
    int x = 0;            // count of "X"
    int due = 0;          // count of "2"
    int interruzioni = 0; // sign changes between neighbours
    int simmetrie = 0;    // position i equal to position 15 - i
    int parallele = 0;    // position i equal to position i + 7

    std::array<int, 6> comeVettore() const {
        return {uno, x, due, interruzioni, simmetrie, parallele};
    }
    bool operator==(const MetricheColonna &) const = default;
};

// The column of Totocalcio and everything computed or written from it. One implementation serves
// every screen that writes or shows archive rows.
class Colonna {
public:
    static constexpr int Lunghezza = 14;
    static constexpr int LunghezzaNove = 9;

    // "1", "X", "2": the fixed order of every triple of counts.
    static const QStringList &segni();
    // "Lunedì" .. "Domenica".
    static const QStringList &giorniSettimana();
    // The 47 formulas of the 9, in their stated order.
    static const QStringList &formule();

    // Metrics of a column text; the text is read in upper case, characters that are no sign count
    // in no term but still take part in the comparisons.
    static MetricheColonna metriche(const QString &colonna);
    // "4-1-4": counts of "1", "X", "2" over positions 1 to 9.
    static QString formulaNove(const QString &colonna);
    // The counts of "1", "X", "2" among the first nine characters as they stand (no case
    // folding): the terms of the formula of the 9. A foreign character or a short column makes
    // them add up to less than 9.
    static std::array<int, 3> segniNove(QStringView colonna);

    // Texts built from an archive row (nine fields).
    static QString lineaColonna(const QString &colonna);
    static QString lineaConcorso(const QString &stagione, const QString &concorso);
    static QString lineaNove(const QString &colonna);
    static QString lineaQuattordici(const QStringList &campi);
    static QString colonnaRaggruppata(const QString &colonna);

    // The line of Archivio.txt for a new row: the nine fields joined by one blank.
    static QString rigaArchivio(const QString &stagione, const QString &concorso,
                                const QString &colonna);
};
