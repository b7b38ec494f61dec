#include "core/numeritesto.h"

#include <QString>

#include <cmath>

qint64 NumeriTesto::valore(QStringView testo) {
    qsizetype i = 0;
    while (i < testo.size() && testo.at(i).isSpace())
        ++i;
    bool negativo = false;
    if (i < testo.size() && (testo.at(i) == u'-' || testo.at(i) == u'+'))
        negativo = testo.at(i++) == u'-';
    // Far beyond any number of the program: more digits no longer change a comparison.
    constexpr qint64 Limite = 1'000'000'000'000'000;
    qint64 valore = 0;
    for (; i < testo.size() && testo.at(i).isDigit() && testo.at(i).unicode() < 128; ++i)
        if (valore < Limite)
            valore = valore * 10 + (testo.at(i).unicode() - u'0');
    return negativo ? -valore : valore;
}

double NumeriTesto::valoreReale(QStringView testo) {
    qsizetype i = 0;
    while (i < testo.size() && testo.at(i).isSpace())
        ++i;
    const qsizetype inizio = i;
    if (i < testo.size() && (testo.at(i) == u'-' || testo.at(i) == u'+'))
        ++i;
    const auto cifra = [&testo](qsizetype k) {
        return k < testo.size() && testo.at(k).unicode() >= u'0' && testo.at(k).unicode() <= u'9';
    };
    qsizetype cifre = 0;
    for (; cifra(i); ++i)
        ++cifre;
    if (i < testo.size() && testo.at(i) == u'.')
        for (++i; cifra(i); ++i)
            ++cifre;
    if (cifre == 0)
        return 0;
    // Hundreds of digits make no offset: a number beyond a double's range counts as none.
    const double v = testo.mid(inizio, i - inizio).toString().toDouble();
    return std::isfinite(v) ? v : 0;
}
