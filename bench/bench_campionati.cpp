// The leagues: the update of all twelve foreign tables against a site on loopback (link pages,
// pages, cut, files), and the opening of a league table, against the plain reading of its file.

#include "campionati/aggiornamentostraniero.h"
#include "campionati/filecampionati.h"
#include "campionati/frmclassifiche.h"
#include "campionati/leghe.h"
#include "campionati/taglioclassifica.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/schermo.h"
#include "piattaforma/serverhttp.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The delivered data folder of the sources: its foreign tables make the site's pages.
const QString Consegnati = QStringLiteral(VESPARA_DATI_CONSEGNATI);

void scrivi(const QString &cartella, const QString &percorso, const QStringList &righe) {
    const QString file = QDir(cartella).filePath(percorso.mid(1));
    QDir().mkpath(QFileInfo(file).path());
    FileDati::scriviRighe(file, righe);
}

void BM_AggiornaTutte(benchmark::State &state) {
    try {
        QTemporaryDir sito;
        scrivi(sito.path(), u"/index.html"_s, {u"Vespara"_s});
        for (const TaglioClassifica::Voce &v : TaglioClassifica::voci()) {
            const Leghe::Lega &lega = *Leghe::perCodice(QString::fromLatin1(v.codice));
            scrivi(sito.path(), QString::fromLatin1(v.paginaLink),
                   {TaglioClassifica::percorsoPagina(v)});
            scrivi(sito.path(), TaglioClassifica::percorsoPagina(v),
                   TaglioClassifica::pagina(FileCampionati::leggiClassifica(Consegnati, lega),
                                            u"Classifica"_s));
        }
        ServerHttp server(sito.path());
        if (!server.avvia()) {
            state.SkipWithError("server non avviato");
            return;
        }
        SupportoBench::Stato isolato;
        StatoProgramma &stato = isolato.stato;
        stato.rete().setRadice(server.radice());
        for (auto _ : state) {
            Rete::Operazione operazione(stato.rete());
            AggiornamentoStraniero(stato).aggiornaTutte({}, {});
        }
        const Leghe::Lega &spagna = *Leghe::perCodice(u"Spagna"_s);
        if (FileCampionati::leggiClassifica(stato.PercorsoDati, spagna).righe !=
            FileCampionati::leggiClassifica(Consegnati, spagna).righe)
            state.SkipWithError("la classifica aggiornata non è quella del sito");
    } catch (const ErroreEsecuzione &e) {
        state.SkipWithError(e.what());
    }
    state.counters["campionati"] = 12;
}
BENCHMARK(BM_AggiornaTutte)->Unit(benchmark::kMillisecond)->UseRealTime();

// Opening the league table screen: the largest table (Serie B) from the delivered folder; its
// destruction is not timed.
void BM_FrmClassifiche(benchmark::State &state) {
    try {
        SupportoBench::Stato isolato;
        StatoProgramma &stato = isolato.stato;
        stato.PercorsoDati = Consegnati;
        stato.LegaClassifica = u"B"_s;
        for (auto _ : state) {
            QElapsedTimer orologio;
            orologio.start();
            auto s = std::make_unique<FrmClassifiche>(stato);
            state.SetIterationTime(double(orologio.nsecsElapsed()) / 1e9);
            benchmark::DoNotOptimize(s.get());
        }
    } catch (const ErroreEsecuzione &e) {
        state.SkipWithError(e.what());
    }
}
BENCHMARK(BM_FrmClassifiche)->Unit(benchmark::kMillisecond)->UseManualTime();

// The plain reading of the same table file, for comparison.
void BM_LeggiClassifica(benchmark::State &state) {
    const Leghe::Lega &b = *Leghe::perCodice(u"B"_s);
    for (auto _ : state)
        benchmark::DoNotOptimize(FileCampionati::leggiClassifica(Consegnati, b));
}
BENCHMARK(BM_LeggiClassifica)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
