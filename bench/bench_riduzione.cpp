// The reduction with a guarantee: the size reached on the full spaces of 4 to 9 signs with
// radius 1 in a minute, and the time of a filtered system of the 9, each against the plain
// method, the greedy cover alone (the reduction cancelled at its first progress call).

#include "analisi/riduzionegaranzia.h"

#include <QList>
#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <algorithm>

#include "supportobench.h"

namespace {

constexpr int MinutoMs = 60000;

int potenza(int n) {
    int p = 1;
    for (int i = 0; i < n; ++i)
        p *= 3;
    return p;
}

QList<int> spazio(int segni) {
    QList<int> tutte;
    for (int c = 0; c < potenza(segni); ++c)
        tutte.append(c);
    return tutte;
}

// The best sizes published for the full space with radius 1, to set the result against.
int record(int segni) {
    switch (segni) {
    case 4:
        return 9;
    case 5:
        return 27;
    case 6:
        return 73;
    case 7:
        return 186;
    case 8:
        return 486;
    default:
        return 0;
    }
}

// A system of the 9 after a filter on the formula: four 1, three X, two 2 or five 1, two X,
// two 2 (2016 columns).
QList<int> sistemaFiltrato() {
    QList<int> colonne;
    for (int c = 0; c < potenza(9); ++c) {
        int conta[3] = {0, 0, 0};
        for (int t = c, i = 0; i < 9; ++i, t /= 3)
            ++conta[t % 3];
        if (conta[2] == 2 && ((conta[0] == 4 && conta[1] == 3) || (conta[0] == 5 && conta[1] == 2)))
            colonne.append(c);
    }
    return colonne;
}

// 2000 columns of the 9 drawn with a fixed seed.
QList<int> sottoinsiemeCasuale() {
    QList<int> tutte = spazio(9);
    QRandomGenerator caso(2000);
    std::shuffle(tutte.begin(), tutte.end(), caso);
    return tutte.mid(0, 2000);
}

RiduzioneGaranzia::Esito riduci(const QList<int> &colonne, int segni, int raggio, bool soloAvido) {
    RiduzioneGaranzia::Opzioni o;
    o.segni = segni;
    o.raggio = raggio;
    o.limiteMs = MinutoMs;
    if (soloAvido)
        return RiduzioneGaranzia::riduci(
            colonne, o, [](const RiduzioneGaranzia::Avanzamento &) { return false; });
    return RiduzioneGaranzia::riduci(colonne, o);
}

// One run, checked by the independent check before its figures count.
void misura(benchmark::State &state, const QList<int> &colonne, int segni, int raggio,
            bool soloAvido) {
    RiduzioneGaranzia::Esito esito;
    for (auto _ : state)
        esito = riduci(colonne, segni, raggio, soloAvido);
    if (!RiduzioneGaranzia::garantita(colonne, esito.tenute, segni, raggio)) {
        state.SkipWithError("la riduzione non garantisce l'insieme");
        return;
    }
    state.counters["colonne"] = double(colonne.size());
    state.counters["misura"] = double(esito.tenute.size());
    state.counters["pavimento"] = RiduzioneGaranzia::minimo(colonne, segni, raggio);
    state.counters["migliorata_s"] = esito.migliorataMs / 1000.0;
    state.counters["limite"] = esito.limiteRaggiunto;
    if (raggio == 1 && int(colonne.size()) == potenza(segni) && record(segni) > 0)
        state.counters["record"] = record(segni);
}

void BM_SpazioPieno(benchmark::State &state) {
    const int segni = int(state.range(0));
    misura(state, spazio(segni), segni, 1, false);
}
BENCHMARK(BM_SpazioPieno)->DenseRange(4, 9)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

void BM_SpazioPienoSoloAvido(benchmark::State &state) {
    const int segni = int(state.range(0));
    misura(state, spazio(segni), segni, 1, true);
}
BENCHMARK(BM_SpazioPienoSoloAvido)
    ->DenseRange(4, 9)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_SistemaFiltrato(benchmark::State &state) {
    misura(state, sistemaFiltrato(), 9, int(state.range(0)), false);
}
BENCHMARK(BM_SistemaFiltrato)
    ->Arg(1)
    ->Arg(2)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_SistemaFiltratoSoloAvido(benchmark::State &state) {
    misura(state, sistemaFiltrato(), 9, int(state.range(0)), true);
}
BENCHMARK(BM_SistemaFiltratoSoloAvido)
    ->Arg(1)
    ->Arg(2)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_SottoinsiemeCasuale(benchmark::State &state) {
    misura(state, sottoinsiemeCasuale(), 9, 1, false);
}
BENCHMARK(BM_SottoinsiemeCasuale)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SottoinsiemeCasualeSoloAvido(benchmark::State &state) {
    misura(state, sottoinsiemeCasuale(), 9, 1, true);
}
BENCHMARK(BM_SottoinsiemeCasualeSoloAvido)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
