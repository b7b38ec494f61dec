#include "analisi/dettagliultimacv.h"

#include "piattaforma/erroreesecuzione.h"

using namespace Qt::StringLiterals;

QString DettagliUltimaCV::spaziato(QStringView segni) {
    QString testo;
    for (const QChar c : segni) {
        if (!testo.isEmpty())
            testo += u' ';
        testo += c;
    }
    return testo;
}

DettagliUltimaCV::Dettagli DettagliUltimaCV::calcola(const ArchivioColonne &archivio) {
    if (archivio.vuoto())
        throw ErroreEsecuzione(u"L'archivio non ha concorsi."_s);
    const int n = archivio.numero();
    const RigaArchivio &ultima = archivio.ultima();
    Dettagli d;
    d.stagione = ultima[ArchivioColonne::Stagione];
    d.concorso = ultima[ArchivioColonne::Concorso];
    d.colonna = ultima[ArchivioColonne::ColonnaCampo];
    // The last contest itself is not counted: the figures are those it came out against.
    const StatisticheSegni::Finestra prima{1, n - 1, n, n};
    const std::array<StatisticheSegni::Fetta, 5> fette{
        StatisticheSegni::FetteTerzine[0], StatisticheSegni::FetteTerzine[1],
        StatisticheSegni::FetteTerzine[2], StatisticheSegni::FetteTerzine[3],
        StatisticheSegni::FettaCoppia};
    for (int g = 0; g < 5; ++g) {
        // The group is compared as text: a foreign sign in it matches the same foreign sign.
        const QStringView gruppo = StatisticheSegni::taglia(d.colonna, fette[g]);
        d.gruppi[g] = {spaziato(gruppo),
                       StatisticheSegni::cammina(archivio, fette[g], gruppo, prima)};
    }
    return d;
}
