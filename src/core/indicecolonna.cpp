#include "core/indicecolonna.h"

namespace IndiceColonna {

int daTesto(QStringView segni) {
    if (segni.size() > SegniMassimi)
        return -1;
    int valore = 0;
    for (const QChar c : segni) {
        const int d = cifra(c);
        if (d < 0)
            return -1;
        valore = valore * 3 + d;
    }
    return valore;
}

QString testo(std::uint32_t indice, int n) {
    static constexpr char16_t Segni[] = u"1X2";
    QString t(n, u'1');
    for (int i = n - 1; i >= 0; --i) {
        t[i] = QChar(Segni[indice % 3]);
        indice /= 3;
    }
    return t;
}

} // namespace IndiceColonna
