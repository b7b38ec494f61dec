#include "analisi/statisticaquattordici.h"

#include "analisi/statistichesegni.h"

using namespace Qt::StringLiterals;

namespace {

using Fetta = StatisticheSegni::Fetta;

constexpr std::array<Fetta, 14> Posizioni = [] {
    std::array<Fetta, 14> p{};
    for (int i = 0; i < 14; ++i)
        p[i] = StatisticheSegni::posizione(i + 1);
    return p;
}();

} // namespace

StatisticaQuattordici::Figure StatisticaQuattordici::calcola(const ArchivioColonne &archivio,
                                                             const QString &anno) {
    const int n = archivio.numero();
    const StatisticheSegni::Finestra tutte{1, n, n, 0};
    const auto storiche = StatisticheSegni::conta(archivio, Posizioni, tutte);
    const auto dellAnno = StatisticheSegni::conta(archivio, Posizioni, tutte, [&](int j) {
        return archivio.campo(j - 1, ArchivioColonne::Stagione) == anno;
    });
    Figure f;
    for (int p = 0; p < 14; ++p)
        for (int s = 0; s < 3; ++s) {
            const StatisticheSegni::Figura figura = storiche[p].figura(s, tutte);
            f.storiche[p][s] = figura.frequenza;
            f.ritardi[p][s] = figura.ritardo;
            f.anno[p][s] = dellAnno[p].frequenza[s];
        }
    return f;
}

QString StatisticaQuattordici::testoConcorso(const ArchivioColonne &archivio) {
    if (archivio.vuoto())
        return u"--"_s;
    const RigaArchivio &r = archivio.ultima();
    return u"Stagione: "_s + r[ArchivioColonne::Stagione] + u" Concorso n. "_s +
           r[ArchivioColonne::Concorso];
}
