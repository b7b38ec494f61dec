// The statistics screens: each computation on the largest archive it takes (7000 contests, 5000
// for the cinquine) against the plain walks of the archive, and the whole opening of each screen.

#include "analisi/cinquinemai.h"
#include "analisi/dettagliultimacv.h"
#include "analisi/frmcinquinemai.h"
#include "analisi/frmdettagliultimacv.h"
#include "analisi/frmformule.h"
#include "analisi/frmstatsegni.h"
#include "analisi/statisticaformule.h"
#include "analisi/statisticaquattordici.h"
#include "analisi/statistichesegni.h"
#include "core/colonna.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 SemeBenchmark = 20111123;
constexpr int Concorsi = ArchivioColonne::Capacita;
constexpr int ConcorsiCinquine = StatisticheSegni::CapacitaConcorsi;
// A year the synthetic archive holds (38 contests a year from 2000).
const QString Anno = u"2150"_s;

const ArchivioColonne &archivio(int n) {
    static const ArchivioColonne pieno =
        ArchivioColonne::daRighe(archivioSintetico(Concorsi, SemeBenchmark));
    static const ArchivioColonne cinquine =
        ArchivioColonne::daRighe(archivioSintetico(ConcorsiCinquine, SemeBenchmark));
    return n == Concorsi ? pieno : cinquine;
}

// The plain methods: every cell by its own walk of the archive, texts compared.
StatisticaQuattordici::Figure quattordiciConScansione(const ArchivioColonne &a,
                                                      const QString &anno) {
    StatisticaQuattordici::Figure f;
    const int n = a.numero();
    for (int p = 1; p <= 14; ++p)
        for (int s = 0; s < 3; ++s) {
            const StatisticheSegni::Fetta fetta = StatisticheSegni::posizione(p);
            const QString &segno = Colonna::segni().at(s);
            const StatisticheSegni::Figura figura =
                StatisticheSegni::cammina(a, fetta, segno, {1, n, n, 0});
            f.storiche[p - 1][s] = figura.frequenza;
            f.ritardi[p - 1][s] = figura.ritardo;
            for (int j = 1; j <= n; ++j)
                f.anno[p - 1][s] += a.campo(j - 1, ArchivioColonne::Stagione) == anno &&
                                    StatisticheSegni::taglia(a.colonna(j - 1), fetta) == segno;
        }
    return f;
}

QStringList cinquineConScansione(const ArchivioColonne &a) {
    QStringList mai;
    const int n = a.numero();
    for (const QString &c : StatisticheSegni::elencoCinquine()) {
        int j = n;
        while (j >= 1 && a.colonna(j - 1).right(5) != c)
            --j;
        if (j < 1)
            mai.append(c);
    }
    return mai;
}

StatisticaFormule::Figure formuleConScansione(const ArchivioColonne &a) {
    StatisticaFormule::Figure f;
    const int n = a.numero();
    QStringList formule;
    for (int j = 1; j <= n; ++j)
        formule.append(Colonna::formulaNove(a.colonna(j - 1)));
    for (int i = 0; i < StatisticaFormule::Numero; ++i) {
        f[i].ritardo = n;
        for (int j = n; j >= 1; --j)
            if (formule.at(j - 1) == Colonna::formule().at(i) && f[i].frequenza++ == 0)
                f[i].ritardo = n - j;
    }
    return f;
}

template <typename F, typename R>
void misura(benchmark::State &state, F calcolo, R riferimento, int concorsi) {
    if (!(calcolo() == riferimento())) {
        state.SkipWithError("il calcolo e la scansione danno figure diverse");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(calcolo());
    state.counters["concorsi"] = concorsi;
}

void BM_Quattordici(benchmark::State &s) {
    const auto &a = archivio(Concorsi);
    misura(
        s, [&] { return StatisticaQuattordici::calcola(a, Anno); },
        [&] { return quattordiciConScansione(a, Anno); }, Concorsi);
}
BENCHMARK(BM_Quattordici)->Unit(benchmark::kMillisecond);

void BM_QuattordiciConScansione(benchmark::State &s) {
    const auto &a = archivio(Concorsi);
    misura(
        s, [&] { return quattordiciConScansione(a, Anno); },
        [&] { return StatisticaQuattordici::calcola(a, Anno); }, Concorsi);
}
BENCHMARK(BM_QuattordiciConScansione)->Unit(benchmark::kMillisecond);

void BM_CinquineMai(benchmark::State &s) {
    const auto &a = archivio(ConcorsiCinquine);
    misura(
        s, [&] { return CinquineMai::delloSchermo(a); }, [&] { return cinquineConScansione(a); },
        ConcorsiCinquine);
}
BENCHMARK(BM_CinquineMai)->Unit(benchmark::kMillisecond);

void BM_CinquineMaiConScansione(benchmark::State &s) {
    const auto &a = archivio(ConcorsiCinquine);
    misura(
        s, [&] { return cinquineConScansione(a); }, [&] { return CinquineMai::delloSchermo(a); },
        ConcorsiCinquine);
}
BENCHMARK(BM_CinquineMaiConScansione)->Unit(benchmark::kMillisecond);

void BM_Formule(benchmark::State &s) {
    const auto &a = archivio(Concorsi);
    misura(
        s, [&] { return StatisticaFormule::calcola(a); }, [&] { return formuleConScansione(a); },
        Concorsi);
}
BENCHMARK(BM_Formule)->Unit(benchmark::kMillisecond);

void BM_FormuleConScansione(benchmark::State &s) {
    const auto &a = archivio(Concorsi);
    misura(
        s, [&] { return formuleConScansione(a); }, [&] { return StatisticaFormule::calcola(a); },
        Concorsi);
}
BENCHMARK(BM_FormuleConScansione)->Unit(benchmark::kMillisecond);

// The details are the plain walks already: five groups walked back from the last contest.
void BM_DettagliUltimaCV(benchmark::State &s) {
    const auto &a = archivio(Concorsi);
    for (auto _ : s)
        benchmark::DoNotOptimize(DettagliUltimaCV::calcola(a));
    s.counters["concorsi"] = Concorsi;
}
BENCHMARK(BM_DettagliUltimaCV)->Unit(benchmark::kMillisecond);

// A screen as the frame creates it: figures, grids, views, controls. Its destruction is not
// timed; it is no part of opening the screen.
template <typename Finestra> void apertura(benchmark::State &state, int concorsi) {
    try {
        SupportoBench::Stato isolato;
        StatoProgramma &stato = isolato.stato;
        stato.ColonneArchivio = archivio(concorsi);
        stato.BaseColonne9 = StatoProgramma::ValoreBaseColonne9;
        for (auto _ : state) {
            QElapsedTimer orologio;
            orologio.start();
            auto s = std::make_unique<Finestra>(stato);
            state.SetIterationTime(double(orologio.nsecsElapsed()) / 1e9);
            benchmark::DoNotOptimize(s.get());
        }
    } catch (const ErroreEsecuzione &e) {
        state.SkipWithError(e.what());
    }
    state.counters["concorsi"] = concorsi;
}

void BM_FrmStatSegni(benchmark::State &s) {
    apertura<FrmStatSegni>(s, Concorsi);
}
BENCHMARK(BM_FrmStatSegni)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_FrmCinquineMai(benchmark::State &s) {
    apertura<FrmCinquineMai>(s, ConcorsiCinquine);
}
BENCHMARK(BM_FrmCinquineMai)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_FrmFormule(benchmark::State &s) {
    apertura<FrmFormule>(s, Concorsi);
}
BENCHMARK(BM_FrmFormule)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_FrmDettagliUltimaCV(benchmark::State &s) {
    apertura<FrmDettagliUltimaCV>(s, Concorsi);
}
BENCHMARK(BM_FrmDettagliUltimaCV)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
