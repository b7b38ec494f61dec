#include "analisi/statistichesegni.h"

#include "core/colonna.h"
#include "core/indicecolonna.h"
#include "piattaforma/erroreesecuzione.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList enumera(int lunghezza) {
    QStringList elenco;
    const std::uint32_t numero = IndiceColonna::colonne(lunghezza);
    elenco.reserve(qsizetype(numero));
    for (std::uint32_t i = 0; i < numero; ++i)
        elenco.append(IndiceColonna::testo(i, lunghezza));
    return elenco;
}

template <std::size_t N>
void figure(std::array<StatisticheSegni::Figura, N> &destinazione,
            const StatisticheSegni::Presenze &presenze, const StatisticheSegni::Finestra &f) {
    for (std::size_t i = 0; i < N; ++i)
        destinazione[i] = presenze.figura(int(i), f);
}

} // namespace

QStringView StatisticheSegni::taglia(const QString &colonna, Fetta f) {
    return f.inizio <= 0 ? QStringView(colonna).right(f.lunghezza)
                         : QStringView(colonna).mid(f.inizio - 1, f.lunghezza);
}

// A column too short for the slice gives a short text, which matches no pattern.
int StatisticheSegni::indiceFetta(const QString &colonna, Fetta f) {
    const QStringView fetta = taglia(colonna, f);
    return fetta.size() == f.lunghezza ? indice(fetta) : -1;
}

StatisticheSegni::Figura StatisticheSegni::Presenze::figura(int i, const Finestra &f) const {
    return {ultimo[i] > 0 ? f.riferimento - ultimo[i] : f.assente, frequenza[i]};
}

std::vector<StatisticheSegni::Presenze>
StatisticheSegni::conta(const ArchivioColonne &archivio, std::span<const Fetta> fette,
                        const Finestra &finestra, const std::function<bool(int)> &contaConcorso) {
    std::vector<Presenze> presenze(fette.size());
    for (std::size_t k = 0; k < fette.size(); ++k) {
        const int schemi = int(IndiceColonna::colonne(fette[k].lunghezza));
        presenze[k].frequenza.assign(schemi, 0);
        presenze[k].ultimo.assign(schemi, 0);
    }
    const int primo = std::max(finestra.primo, 1);
    const int ultimo = std::min(finestra.ultimo, archivio.numero());
    // Contests from the oldest: the last one that shows a pattern gives its delay.
    for (int j = primo; j <= ultimo; ++j) {
        if (contaConcorso && !contaConcorso(j))
            continue;
        const QString &colonna = archivio.colonna(j - 1);
        for (std::size_t k = 0; k < fette.size(); ++k)
            if (const int i = indiceFetta(colonna, fette[k]); i >= 0) {
                ++presenze[k].frequenza[i];
                presenze[k].ultimo[i] = j;
            }
    }
    return presenze;
}

StatisticheSegni::Figura StatisticheSegni::cammina(const ArchivioColonne &archivio, Fetta fetta,
                                                   QStringView schema, const Finestra &finestra) {
    const int primo = std::max(finestra.primo, 1);
    const int ultimo = std::min(finestra.ultimo, archivio.numero());
    Figura figura;
    int j = ultimo;
    while (j >= primo && taglia(archivio.colonna(j - 1), fetta) != schema)
        --j;
    figura.ritardo = j >= primo ? finestra.riferimento - j : finestra.assente;
    for (int k = ultimo; k >= primo; --k)
        if (taglia(archivio.colonna(k - 1), fetta) == schema)
            ++figura.frequenza;
    return figura;
}

const QStringList &StatisticheSegni::elencoTerzine() {
    static const QStringList elenco = enumera(3);
    return elenco;
}

const QStringList &StatisticheSegni::elencoCinquine() {
    static const QStringList elenco = enumera(5);
    return elenco;
}

const QStringList &StatisticheSegni::elencoCoppie() {
    static const QStringList elenco = enumera(2);
    return elenco;
}

int StatisticheSegni::indice(QStringView schema) {
    return IndiceColonna::daTesto(schema);
}

void StatisticheSegni::verificaCapacita(int numero, const QString &schermo) {
    if (numero > CapacitaConcorsi)
        throw ErroreEsecuzione(
            u"%1 può esaminare al massimo %2 concorsi: l'archivio ne ha %3."_s.arg(schermo)
                .arg(CapacitaConcorsi)
                .arg(numero));
}

void StatisticheSegni::verificaPannello(int numero, int base) {
    verificaCapacita(numero, u"Il pannello delle terzine"_s);
    if (numero < base)
        throw ErroreEsecuzione(
            u"Il pannello delle coppie esamina gli ultimi %1 concorsi: l'archivio ne ha solo %2."_s
                .arg(base)
                .arg(numero));
}

StatisticheSegni::Figure StatisticheSegni::calcola(const ArchivioColonne &archivio, int base) {
    const int n = archivio.numero();
    verificaPannello(n, base);
    static constexpr std::array<Fetta, 5> Fette{FetteTerzine[0], FetteTerzine[1], FetteTerzine[2],
                                                FetteTerzine[3], FettaCinquina};
    const Finestra tutte{1, n, n, n};
    const Finestra ultime{n - base + 1, n, n, base};
    const std::vector<Presenze> p = conta(archivio, Fette, tutte);
    const std::vector<Presenze> coppie = conta(archivio, std::span(&FettaCoppia, 1), ultime);
    Figure f;
    f.baseCoppie = base;
    for (int t = 0; t < 4; ++t)
        figure(f.terzine[t], p[t], tutte);
    figure(f.cinquine, p[4], tutte);
    figure(f.coppie, coppie[0], ultime);
    return f;
}

StatisticheSegni::Figure StatisticheSegni::calcolaConScansione(const ArchivioColonne &archivio,
                                                               int base) {
    const int n = archivio.numero();
    verificaPannello(n, base);
    const Finestra tutte{1, n, n, n};
    const Finestra ultime{n - base + 1, n, n, base};
    Figure f;
    f.baseCoppie = base;
    for (int t = 0; t < 4; ++t)
        for (int i = 0; i < 27; ++i)
            f.terzine[t][i] = cammina(archivio, FetteTerzine[t], elencoTerzine().at(i), tutte);
    for (int i = 0; i < 243; ++i)
        f.cinquine[i] = cammina(archivio, FettaCinquina, elencoCinquine().at(i), tutte);
    for (int i = 0; i < 9; ++i)
        f.coppie[i] = cammina(archivio, FettaCoppia, elencoCoppie().at(i), ultime);
    return f;
}
