#pragma once

#include <QStringView>

// The number a text stands for, as the program has always read numbers typed or fetched: blanks
// before it skipped, an optional sign, then the digits up to the first other character; a text
// with no digit there is 0 ("12bis" is 12, "?" is 0).
class NumeriTesto {
public:
    static qint64 valore(QStringView testo);
};
