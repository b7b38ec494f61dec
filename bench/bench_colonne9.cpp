// The workspace of the 9: Freq. and Rit. of the 19683 columns by one pass over the archive
// against the plain method (19683 walks of the whole archive), and the heaviest grid work of the
// screen: loading the universe, a filter step and a sort on the full grid.

#include "analisi/bancocolonne9.h"
#include "analisi/colonne9.h"
#include "core/archiviocolonne.h"
#include "piattaforma/griglia.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

namespace {

void BM_CalcolaUnaPassata(benchmark::State &state) {
    const ArchivioColonne &a = SupportoBench::archivio(int(state.range(0)));
    if (Colonne9::calcola(a) != Colonne9::calcolaConConfronti(a)) {
        state.SkipWithError("i due metodi non danno le stesse figure");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(Colonne9::calcola(a));
    state.counters["concorsi"] = double(a.numero());
}
BENCHMARK(BM_CalcolaUnaPassata)->Arg(500)->Arg(7000)->Unit(benchmark::kMillisecond);

void BM_CalcolaConConfronti(benchmark::State &state) {
    const ArchivioColonne &a = SupportoBench::archivio(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Colonne9::calcolaConConfronti(a));
    state.counters["concorsi"] = double(a.numero());
}
BENCHMARK(BM_CalcolaConConfronti)
    ->Arg(500)
    ->Arg(7000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BM_CaricaUniverso(benchmark::State &state) {
    const auto statistiche = Colonne9::calcola(SupportoBench::archivio(7000));
    Griglia g;
    BancoColonne9 banco(g);
    banco.prepara();
    for (auto _ : state)
        banco.carica(statistiche);
}
BENCHMARK(BM_CaricaUniverso)->Unit(benchmark::kMillisecond);

void BM_FiltroSulTotale(benchmark::State &state) {
    const auto statistiche = Colonne9::calcola(SupportoBench::archivio(7000));
    Griglia g;
    BancoColonne9 banco(g);
    banco.prepara();
    for (auto _ : state) {
        state.PauseTiming();
        banco.carica(statistiche);
        state.ResumeTiming();
        // Snapshot, walk of 19683 rows, rewrite of the 216 that stay.
        banco.segniDiversi(4);
    }
}
BENCHMARK(BM_FiltroSulTotale)->Unit(benchmark::kMillisecond);

void BM_OrdinaTotale(benchmark::State &state) {
    const auto statistiche = Colonne9::calcola(SupportoBench::archivio(7000));
    Griglia g;
    BancoColonne9 banco(g);
    banco.prepara();
    for (auto _ : state) {
        state.PauseTiming();
        banco.carica(statistiche);
        state.ResumeTiming();
        banco.ordina(2);
    }
}
BENCHMARK(BM_OrdinaTotale)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
