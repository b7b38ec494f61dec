#include "analisi/statistichesegni.h"

#include "core/colonna.h"
#include "piattaforma/erroreesecuzione.h"

using namespace Qt::StringLiterals;

namespace {

QStringList enumera(int lunghezza) {
    QStringList elenco{QString()};
    for (int k = 0; k < lunghezza; ++k) {
        QStringList successivo;
        successivo.reserve(elenco.size() * 3);
        for (const QString &prefisso : std::as_const(elenco))
            for (const QString &segno : Colonna::segni())
                successivo.append(prefisso + segno);
        elenco = successivo;
    }
    return elenco;
}

// The slices of the panel: start (0-based) and length in the column; the cinquina and the coppia
// are the column's last signs, so they have no start of their own (-1).
struct Fetta {
    int inizio;
    int lunghezza;
};
constexpr std::array<Fetta, 4> FetteTerzine{{{0, 3}, {3, 3}, {6, 3}, {9, 3}}};
constexpr Fetta FettaCinquina{-1, 5};
constexpr Fetta FettaCoppia{-1, 2};

QStringView taglia(const QString &colonna, Fetta f) {
    return f.inizio < 0 ? QStringView(colonna).right(f.lunghezza)
                        : QStringView(colonna).mid(f.inizio, f.lunghezza);
}

// A column too short for the slice gives a short text, which matches no pattern.
int indiceFetta(const QString &colonna, Fetta f) {
    const QStringView fetta = taglia(colonna, f);
    return fetta.size() == f.lunghezza ? StatisticheSegni::indice(fetta) : -1;
}

template <std::size_t N>
void chiudi(std::array<StatisticheSegni::Figura, N> &figure, const std::array<int, N> &ultimo,
            int n, int assente) {
    for (std::size_t i = 0; i < N; ++i)
        figure[i].ritardo = ultimo[i] > 0 ? n - ultimo[i] : assente;
}

} // namespace

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
    int valore = 0;
    for (const QChar c : schema) {
        int cifra;
        if (c == u'1')
            cifra = 0;
        else if (c == u'X')
            cifra = 1;
        else if (c == u'2')
            cifra = 2;
        else
            return -1;
        valore = valore * 3 + cifra;
    }
    return valore;
}

void StatisticheSegni::verificaCapacita(int numero, int base) {
    if (numero > CapacitaConcorsi)
        throw ErroreEsecuzione(
            u"Il pannello delle terzine può esaminare al massimo %1 concorsi: l'archivio ne ha %2."_s
                .arg(CapacitaConcorsi)
                .arg(numero));
    if (numero < base)
        throw ErroreEsecuzione(
            u"Il pannello delle coppie esamina gli ultimi %1 concorsi: l'archivio ne ha solo %2."_s
                .arg(base)
                .arg(numero));
}

StatisticheSegni::Figure StatisticheSegni::calcola(const ArchivioColonne &archivio, int base) {
    const int n = archivio.numero();
    verificaCapacita(n, base);
    Figure f;
    f.baseCoppie = base;
    std::array<std::array<int, 27>, 4> ultimaTerzina{};
    std::array<int, 243> ultimaCinquina{};
    std::array<int, 9> ultimaCoppia{};
    const int primaCoppia = n - base + 1;
    // Contests are numbered from 1; the last seen contest of each pattern gives its delay.
    for (int j = 1; j <= n; ++j) {
        const QString &colonna = archivio.colonna(j - 1);
        for (int t = 0; t < 4; ++t)
            if (const int i = indiceFetta(colonna, FetteTerzine[t]); i >= 0) {
                ++f.terzine[t][i].frequenza;
                ultimaTerzina[t][i] = j;
            }
        if (const int i = indiceFetta(colonna, FettaCinquina); i >= 0) {
            ++f.cinquine[i].frequenza;
            ultimaCinquina[i] = j;
        }
        if (j >= primaCoppia)
            if (const int i = indiceFetta(colonna, FettaCoppia); i >= 0) {
                ++f.coppie[i].frequenza;
                ultimaCoppia[i] = j;
            }
    }
    for (int t = 0; t < 4; ++t)
        chiudi(f.terzine[t], ultimaTerzina[t], n, n);
    chiudi(f.cinquine, ultimaCinquina, n, n);
    chiudi(f.coppie, ultimaCoppia, n, base);
    return f;
}

StatisticheSegni::Figure StatisticheSegni::calcolaConScansione(const ArchivioColonne &archivio,
                                                               int base) {
    const int n = archivio.numero();
    verificaCapacita(n, base);
    // Slices are cut once, then compared as text by walks from the latest contest back.
    std::array<QStringList, 4> terzine;
    QStringList cinquine, coppie;
    for (int j = 1; j <= n; ++j) {
        const QString &colonna = archivio.colonna(j - 1);
        for (int t = 0; t < 4; ++t)
            terzine[t].append(taglia(colonna, FetteTerzine[t]).toString());
        cinquine.append(taglia(colonna, FettaCinquina).toString());
        coppie.append(taglia(colonna, FettaCoppia).toString());
    }
    const auto cammina = [n](const QStringList &fette, const QString &schema, int fino) {
        Figura figura;
        int j = n;
        while (j >= fino && fette.at(j - 1) != schema)
            --j;
        figura.ritardo = n - (j >= fino ? j : fino - 1);
        for (int k = n; k >= fino; --k)
            if (fette.at(k - 1) == schema)
                ++figura.frequenza;
        return figura;
    };
    Figure f;
    f.baseCoppie = base;
    for (int t = 0; t < 4; ++t)
        for (int i = 0; i < 27; ++i)
            f.terzine[t][i] = cammina(terzine[t], elencoTerzine().at(i), 1);
    for (int i = 0; i < 243; ++i)
        f.cinquine[i] = cammina(cinquine, elencoCinquine().at(i), 1);
    for (int i = 0; i < 9; ++i)
        f.coppie[i] = cammina(coppie, elencoCoppie().at(i), n - base + 1);
    return f;
}
