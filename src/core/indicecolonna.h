#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

// A column of n signs (n from 1 to 14) as its index in base 3: "1" = 0, "X" = 1, "2" = 2, the
// first sign the most significant digit, so that the columns of n signs in index order are the
// columns in the order of the lists ("111…1", "111…X", … "222…2"). Every conversion between
// the signs' text and the index is here.
namespace IndiceColonna {

inline constexpr int SegniMassimi = 14;

// 3^n, the number of columns of n signs.
constexpr std::uint32_t colonne(int n) {
    std::uint32_t p = 1;
    for (int i = 0; i < n; ++i)
        p *= 3;
    return p;
}

// The digit of a sign, -1 when the character is no upper-case sign.
constexpr int cifra(QChar segno) {
    return segno == u'1' ? 0 : segno == u'X' ? 1 : segno == u'2' ? 2 : -1;
}

// The index of the column written in `segni`; 0 for no sign, -1 when a character is not an
// upper-case sign or the text is longer than SegniMassimi.
int daTesto(QStringView segni);

// The n signs of the column of that index (its last n digits in base 3).
QString testo(std::uint32_t indice, int n);

} // namespace IndiceColonna
