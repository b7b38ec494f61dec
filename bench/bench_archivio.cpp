// The archive's three copies: Archivio.txt read into memory at start-up, and the rebuild of table
// and memory after a change, against the plain rebuild of the table row by row.

#include "core/archivio.h"
#include "core/colonna.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"
#include "piattaforma/tabellaarchivio.h"

#include <QCoreApplication>
#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 SemeBenchmark = 20110828;

// The archive the program will have to hold at its capacity.
constexpr int ConcorsiPieni = ArchivioColonne::Capacita;
// The plain rebuild commits every statement on its own, each waiting for the disk: on 7000 rows
// it takes from seconds to minutes, and 200 rows already tell its pace (see the rows a second).
constexpr int ConcorsiPiani = 200;

// A data folder holding only a synthetic Archivio.txt, and the program state on it.
struct Banco {
    explicit Banco(int concorsi)
        : impostazioni(dir.filePath(u"impostazioni.ini"_s))
        , stato(dialoghi, impostazioni, schermo) {
        if (!dir.isValid())
            throw ErroreEsecuzione(u"Impossibile creare una cartella temporanea."_s);
        schermo.imposta(QSize(1280, 800));
        stato.PercorsoDati = dir.path();
        righe = archivioSintetico(concorsi, SemeBenchmark);
        FileDati::scriviRighe(dir.filePath(QString::fromLatin1(Archivio::NomeFile)), righe);
    }

    QTemporaryDir dir;
    DialoghiProva dialoghi;
    Schermo schermo;
    Impostazioni impostazioni;
    StatoProgramma stato;
    QStringList righe;
};

// Both rebuilds must leave the table as the file says, row by row and in order.
bool tabellaUgualeAlFile(const Banco &b) {
    const ArchivioColonne atteso = ArchivioColonne::daRighe(b.righe);
    const QList<RigaArchivio> tabella = b.stato.tabellaArchivio().tutte();
    if (tabella.size() != atteso.numero() ||
        b.stato.tabellaArchivio().conteggio() != atteso.numero())
        return false;
    for (int i = 0; i < atteso.numero(); ++i)
        if (tabella.at(i) != atteso.riga(i))
            return false;
    return b.stato.NumeroColonne() == atteso.numero();
}

void errore(benchmark::State &state, const ErroreEsecuzione &e) {
    state.SkipWithError(e.what());
}

// The rows of the archive and the rows a second rebuilt, so that runs on different sizes compare.
void segnaRighe(benchmark::State &state) {
    state.counters["righe"] = double(state.range(0));
    state.counters["righe_al_s"] =
        benchmark::Counter(double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate);
}

// (a) Start-up step 7: Archivio.txt read and parsed into ColonneArchivio.
void BM_CaricaMemoria(benchmark::State &state) {
    try {
        Banco b(int(state.range(0)));
        for (auto _ : state) {
            Archivio::caricaMemoria(b.stato);
            benchmark::DoNotOptimize(b.stato.ColonneArchivio);
        }
        if (b.stato.NumeroColonne() != state.range(0))
            state.SkipWithError("l'archivio in memoria non ha tutte le righe del file");
    } catch (const ErroreEsecuzione &e) {
        errore(state, e);
    }
    state.counters["righe"] = double(state.range(0));
}
BENCHMARK(BM_CaricaMemoria)->Arg(ConcorsiPieni)->Unit(benchmark::kMillisecond);

// The two halves of (a), to see where its time goes.
void BM_LeggiFile(benchmark::State &state) {
    try {
        Banco b(int(state.range(0)));
        for (auto _ : state)
            benchmark::DoNotOptimize(Archivio::leggiFile(b.stato));
    } catch (const ErroreEsecuzione &e) {
        errore(state, e);
    }
}
BENCHMARK(BM_LeggiFile)->Arg(ConcorsiPieni)->Unit(benchmark::kMillisecond);

void BM_DaRighe(benchmark::State &state) {
    try {
        const QStringList righe = archivioSintetico(int(state.range(0)), SemeBenchmark);
        for (auto _ : state)
            benchmark::DoNotOptimize(ArchivioColonne::daRighe(righe));
    } catch (const ErroreEsecuzione &e) {
        errore(state, e);
    }
}
BENCHMARK(BM_DaRighe)->Arg(ConcorsiPieni)->Unit(benchmark::kMillisecond);

// (b) The rebuild the archive writers call: file read and checked, then DELETE and one INSERT a
// row in one transaction, then the memory. The table already holds the rows, as it does after
// the first start, so every pass deletes as many as it adds.
void BM_Ricostruisci(benchmark::State &state) {
    try {
        Banco b(int(state.range(0)));
        b.stato.apriTabellaArchivio();
        Archivio::ricostruisci(b.stato);
        for (auto _ : state)
            Archivio::ricostruisci(b.stato);
        if (!tabellaUgualeAlFile(b))
            state.SkipWithError("la tabella ricostruita non è uguale al file");
    } catch (const ErroreEsecuzione &e) {
        errore(state, e);
    }
    segnaRighe(state);
}
BENCHMARK(BM_Ricostruisci)
    ->Arg(ConcorsiPiani)
    ->Arg(ConcorsiPieni)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// (c) The plain rebuild: walk the table deleting each row (first, delete, next until the end),
// then add every row of the file, each statement committed on its own.
void BM_RicostruzionePiana(benchmark::State &state) {
    try {
        Banco b(int(state.range(0)));
        b.stato.apriTabellaArchivio();
        Archivio::ricostruisci(b.stato);
        TabellaArchivio &tabella = b.stato.tabellaArchivio();
        for (auto _ : state) {
            ArchivioColonne nuovo = ArchivioColonne::daRighe(Archivio::leggiFile(b.stato));
            tabella.aggiorna();
            tabella.primo();
            while (!tabella.fine()) {
                tabella.elimina();
                tabella.successivo();
            }
            for (int i = 0; i < nuovo.numero(); ++i)
                tabella.aggiungi(nuovo.riga(i));
            b.stato.ColonneArchivio = std::move(nuovo);
        }
        tabella.aggiorna();
        if (!tabellaUgualeAlFile(b))
            state.SkipWithError("la tabella ricostruita non è uguale al file");
    } catch (const ErroreEsecuzione &e) {
        errore(state, e);
    }
    segnaRighe(state);
}
BENCHMARK(BM_RicostruzionePiana)->Arg(ConcorsiPiani)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
