// The signs panel: its figures by the one pass against the plain repeated walks, the filling of
// its three grids, and the whole screen built on a full archive.

#include "analisi/frmpannellosegni.h"
#include "analisi/grigliepannello.h"
#include "analisi/statistichesegni.h"
#include "core/colonna.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 SemeBenchmark = 20110828;

// The most contests the panel takes.
constexpr int Concorsi = StatisticheSegni::CapacitaConcorsi;
constexpr int Base = StatoProgramma::ValoreBaseColonne9;

const ArchivioColonne &archivio() {
    static const ArchivioColonne a =
        ArchivioColonne::daRighe(archivioSintetico(Concorsi, SemeBenchmark));
    return a;
}

// The one pass and the plain walks must agree, or the comparison means nothing.
bool figureConcordi() {
    static const bool concordi = StatisticheSegni::calcola(archivio(), Base) ==
                                 StatisticheSegni::calcolaConScansione(archivio(), Base);
    return concordi;
}

void BM_Calcola(benchmark::State &state) {
    if (!figureConcordi()) {
        state.SkipWithError("calcola e calcolaConScansione danno figure diverse");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(StatisticheSegni::calcola(archivio(), Base));
    state.counters["concorsi"] = Concorsi;
}
BENCHMARK(BM_Calcola)->Unit(benchmark::kMillisecond);

void BM_CalcolaConScansione(benchmark::State &state) {
    if (!figureConcordi()) {
        state.SkipWithError("calcola e calcolaConScansione danno figure diverse");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(StatisticheSegni::calcolaConScansione(archivio(), Base));
    state.counters["concorsi"] = Concorsi;
}
BENCHMARK(BM_CalcolaConScansione)->Unit(benchmark::kMillisecond);

// The grids are filled from figures already computed; a grid starts each pass as the screen
// makes it, so the fill lays it out every time.
template <void (*Riempi)(Griglia &, const StatisticheSegni::Figure &)>
void riempi(benchmark::State &state, int righe, int colonne) {
    const StatisticheSegni::Figure figure = StatisticheSegni::calcola(archivio(), Base);
    Griglia griglia(righe, colonne);
    for (auto _ : state) {
        Riempi(griglia, figure);
        benchmark::DoNotOptimize(griglia.testo(righe - 1, colonne - 1));
    }
    if (griglia.righe() != righe || griglia.colonne() != colonne)
        state.SkipWithError("la griglia riempita non ha la forma del pannello");
}

void BM_RiempiTerzine(benchmark::State &state) {
    riempi<&GrigliePannello::riempiTerzine>(state, GrigliePannello::RigheTerzine, 27);
}
BENCHMARK(BM_RiempiTerzine)->Unit(benchmark::kMicrosecond);

void BM_RiempiCinquine(benchmark::State &state) {
    riempi<&GrigliePannello::riempiCinquine>(state, GrigliePannello::RigheCinquine, 243);
}
BENCHMARK(BM_RiempiCinquine)->Unit(benchmark::kMicrosecond);

void BM_RiempiCoppie(benchmark::State &state) {
    riempi<&GrigliePannello::riempiCoppie>(state, GrigliePannello::RigheCoppie, 9);
}
BENCHMARK(BM_RiempiCoppie)->Unit(benchmark::kMicrosecond);

// The screen as the frame creates it: figures, grids, views, controls. Its destruction is not
// timed; it is no part of opening the panel.
void BM_FrmPannelloSegni(benchmark::State &state) {
    try {
        SupportoBench::Stato isolato;
        StatoProgramma &stato = isolato.stato;
        stato.ColonneArchivio = archivio();
        stato.BaseColonne9 = Base;
        for (auto _ : state) {
            QElapsedTimer orologio;
            orologio.start();
            auto pannello = std::make_unique<FrmPannelloSegni>(stato);
            state.SetIterationTime(double(orologio.nsecsElapsed()) / 1e9);
            if (pannello->cinquine().testo(GrigliePannello::RigheCinquine - 1, 242).isEmpty()) {
                state.SkipWithError("il pannello non ha riempito le sue griglie");
                break;
            }
        }
    } catch (const ErroreEsecuzione &e) {
        state.SkipWithError(e.what());
    }
    state.counters["concorsi"] = Concorsi;
}
BENCHMARK(BM_FrmPannelloSegni)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
