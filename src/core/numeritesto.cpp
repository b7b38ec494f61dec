#include "core/numeritesto.h"

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
