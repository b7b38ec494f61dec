#include "analisi/statisticaformule.h"

#include "core/colonna.h"

namespace {

// The index in the list by the first two terms (the third follows from them).
using Indici = std::array<std::array<int, 10>, 10>;

const Indici &indici() {
    static const Indici tabella = [] {
        Indici t;
        for (auto &riga : t)
            riga.fill(-1);
        const QStringList &formule = Colonna::formule();
        for (int i = 0; i < formule.size(); ++i) {
            const QStringList termini = formule.at(i).split(u'-');
            t[termini.at(0).toInt()][termini.at(1).toInt()] = i;
        }
        return t;
    }();
    return tabella;
}

} // namespace

int StatisticaFormule::indice(const std::array<int, 3> &t) {
    for (const int v : t)
        if (v < 0 || v > 9)
            return -1;
    if (t[0] + t[1] + t[2] != Colonna::LunghezzaNove)
        return -1;
    return indici()[t[0]][t[1]];
}

StatisticaFormule::Figure StatisticaFormule::calcola(const ArchivioColonne &archivio) {
    const int n = archivio.numero();
    StatisticheSegni::Presenze presenze{std::vector<int>(Numero), std::vector<int>(Numero)};
    for (int j = 1; j <= n; ++j)
        if (const int i = indice(Colonna::segniNove(archivio.colonna(j - 1))); i >= 0) {
            ++presenze.frequenza[i];
            presenze.ultimo[i] = j;
        }
    Figure f;
    for (int i = 0; i < Numero; ++i)
        f[i] = presenze.figura(i, {1, n, n, n});
    return f;
}
