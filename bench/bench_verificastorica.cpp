// The historical check of a chain of filters: the walk-forward replay against the plain method,
// which for each contest computes the figures of the 19683 columns from the archive cut before it
// and runs the workspace's own steps on a grid. Both give the same columns; the replay keeps the
// figures up to date contest by contest and decides the steps on the nine signs once.

#include "analisi/bancocolonne9.h"
#include "analisi/colonne9.h"
#include "analisi/verificastorica.h"
#include "core/archiviocolonne.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

const ArchivioColonne &consegnato() {
    static const ArchivioColonne a = ArchivioColonne::daRighe(
        FileDati::leggiRighe(QStringLiteral(VESPARA_DATI_CONSEGNATI) + u"/Archivio.txt"_s));
    return a;
}

// A chain a player might use: a formula, the never drawn out, a cipher of the frequency, and a
// rule on the consecutive signs. The second one reads only the figures of the archive, so every
// contest walks all 19683 columns: the heaviest replay.
bool soloArchivio = false;

void applica(BancoColonne9 &b) {
    if (!soloArchivio) {
        b.formula(u"4"_s, u"3"_s, u"2"_s);
        b.consecutivi(u"1"_s, u"3"_s, u"0"_s);
    }
    b.eliminaMaiUscite();
    b.eliminaFrequenza(u"3"_s);
}

CatenaFiltri catena() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    b.carica(Colonne9::calcola(SupportoBench::archivio(300)));
    applica(b);
    return b.catena();
}

// The plain method for contest j: the figures of the archive cut before it, the universe on a
// grid, the steps, the test.
std::pair<int, bool> pianoPerConcorso(const ArchivioColonne &a, int j) {
    ArchivioColonne prima;
    for (int i = 0; i < j - 1; ++i)
        prima.aggiungi(a.riga(i));
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    b.carica(Colonne9::calcola(prima));
    applica(b);
    const int vincente = Colonne9::indice(QStringView(a.colonna(j - 1)).left(9));
    return {b.totale(), b.indici().contains(vincente)};
}

bool concorda(const ArchivioColonne &a, const VerificaStorica::Esito &e) {
    for (qsizetype k : {qsizetype(0), e.concorsi.size() / 2, e.concorsi.size() - 1}) {
        const VerificaStorica::Concorso &c = e.concorsi.at(k);
        if (pianoPerConcorso(a, c.progressivo) != std::pair(c.tenute, c.presa))
            return false;
    }
    return true;
}

void verifica(benchmark::State &state, const ArchivioColonne &a, int concorsi,
              bool archivio = false) {
    soloArchivio = archivio;
    const CatenaFiltri c = catena();
    if (!concorda(a, VerificaStorica::esegui(a, c, concorsi))) {
        state.SkipWithError("la verifica non concorda con lo spazio di lavoro");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(VerificaStorica::esegui(a, c, concorsi));
    state.counters["concorsi"] = concorsi;
    state.counters["storia"] = a.numero();
    state.counters["s_per_concorso"] = benchmark::Counter(
        concorsi, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The targets: 100 contests of the delivered archive under 1 s, 1000 of the 7000 under 10 s.
void BM_VerificaConsegnato100(benchmark::State &state) {
    verifica(state, consegnato(), 100);
}
BENCHMARK(BM_VerificaConsegnato100)->Unit(benchmark::kMillisecond);

// 100 contests replayed on 500 of history, and 1000 on 7000 (the target: under 10 s).
void BM_Verifica(benchmark::State &state) {
    const int righe = int(state.range(0));
    verifica(state, SupportoBench::archivio(righe), righe == 500 ? 100 : 1000);
}
BENCHMARK(BM_Verifica)->Arg(500)->Arg(7000)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_VerificaSoloArchivio(benchmark::State &state) {
    const int righe = int(state.range(0));
    verifica(state, SupportoBench::archivio(righe), righe == 500 ? 100 : 1000, true);
}
BENCHMARK(BM_VerificaSoloArchivio)
    ->Arg(500)
    ->Arg(7000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BM_PianoUnConcorso(benchmark::State &state) {
    soloArchivio = false;
    const ArchivioColonne &a = SupportoBench::archivio(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(pianoPerConcorso(a, a.numero()));
    state.counters["storia"] = a.numero();
}
BENCHMARK(BM_PianoUnConcorso)->Arg(500)->Arg(7000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
