#pragma once

#include <QStringView>

// The number a text stands for, as the program has always read numbers typed or fetched: blanks
// before it skipped, an optional sign, then the digits up to the first other character; a text
// with no digit there is 0 ("12bis" is 12, "?" is 0).
class NumeriTesto {
public:
    static qint64 valore(QStringView testo);
    // The same reading with a fraction: the longest leading number, a point before the decimals
    // ("-12.5 cm" is -12.5, ".5" is 0.5, "abc" is 0).
    static double valoreReale(QStringView testo);
};
