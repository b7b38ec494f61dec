// The number at the start of a text, against a plain reading of the same rule. The bytes are read
// both as Latin-1 and as UTF-16 code units, so that Unicode blanks and digits are met too.

#include "supportofuzz.h"

#include "core/numeritesto.h"

#include <QChar>
#include <QStringView>

#include <string>

using namespace SupportoFuzz;

namespace {

// Blanks skipped, an optional sign, then the ASCII digits; the value exact up to 15 digits. Beyond
// them the program only promises a number at least as far from zero as 10^15, far beyond its own.
void confronta(QStringView testo) {
    qsizetype i = 0;
    while (i < testo.size() && QChar::isSpace(testo[i].unicode()))
        ++i;
    bool negativo = false;
    if (i < testo.size() && (testo[i] == u'-' || testo[i] == u'+'))
        negativo = testo[i++] == u'-';
    std::string cifre;
    for (; i < testo.size() && testo[i] >= u'0' && testo[i] <= u'9'; ++i)
        if (!cifre.empty() || testo[i] != u'0')
            cifre += char(testo[i].unicode());

    const qint64 valore = NumeriTesto::valore(testo);
    if (cifre.size() <= 15) {
        const qint64 atteso = cifre.empty() ? 0 : std::stoll(cifre);
        if (valore != (negativo ? -atteso : atteso))
            difetto("numero diverso dalla lettura semplice");
    } else {
        constexpr qint64 Lontano = 1'000'000'000'000'000;
        if (negativo ? valore > -Lontano : valore < Lontano)
            difetto("un numero di oltre 15 cifre letto troppo vicino a zero");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    confronta(latino(dati, n));
    QString unicode(qsizetype(n / 2), Qt::Uninitialized);
    for (size_t k = 0; k + 1 < n; k += 2)
        unicode[qsizetype(k / 2)] = QChar(char16_t(dati[k] | (dati[k + 1] << 8)));
    confronta(unicode);
    return 0;
}
