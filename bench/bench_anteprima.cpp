// The list of all 19683 columns of the 9 as a page document (340 pages): writing it, reading it
// back for the preview, and drawing one page on the preview's sheet.

#include "analisi/bancocolonne9.h"
#include "analisi/colonne9.h"
#include "analisi/stampacolonne9.h"
#include "core/archiviocolonne.h"
#include "piattaforma/dispositivopittore.h"
#include "piattaforma/griglia.h"
#include "stampa/documentopagine.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

using namespace Qt::StringLiterals;

namespace {

struct Documento {
    QTemporaryDir dir;
    Griglia griglia;
    BancoColonne9 banco{griglia};
    QString percorso() const { return dir.filePath(u"_$$_TEMP.TMP"_s); }
    Documento() {
        banco.prepara();
        banco.carica(Colonne9::calcola(ArchivioColonne::daRighe(archivioSintetico(500, 7))));
        DocumentoPagine d(percorso());
        StampaColonne9::scrivi(d, griglia, u"21/11/2026"_s);
    }
};

Documento &documento() {
    static Documento d;
    return d;
}

void BM_ScriviElenco(benchmark::State &state) {
    Documento &doc = documento();
    for (auto _ : state) {
        DocumentoPagine d(doc.percorso());
        StampaColonne9::scrivi(d, doc.griglia, u"21/11/2026"_s);
    }
    state.counters["pagine"] = DocumentoPagine::contaPagine(DocumentoPagine::leggi(doc.percorso()));
}
BENCHMARK(BM_ScriviElenco)->Unit(benchmark::kMillisecond);

void BM_LeggiDocumento(benchmark::State &state) {
    Documento &doc = documento();
    for (auto _ : state)
        benchmark::DoNotOptimize(DocumentoPagine::leggi(doc.percorso()));
}
BENCHMARK(BM_LeggiDocumento)->Unit(benchmark::kMillisecond);

// One page at the zoom of 100%: what the preview paints when a page is shown.
void BM_DisegnaPagina(benchmark::State &state) {
    Documento &doc = documento();
    const QList<RecordPagina> record = DocumentoPagine::leggi(doc.percorso());
    const int pagina = int(state.range(0));
    const qreal scala = 1.0 / 15;
    QImage foglio(int(11907 * scala), int(16840 * scala), QImage::Format_RGB32);
    for (auto _ : state) {
        foglio.fill(Qt::white);
        QPainter p(&foglio);
        DispositivoPittore dispositivo(p, scala, scala, {11907, 16839.9});
        DocumentoPagine::disegnaPagina(record, pagina, dispositivo);
    }
}
BENCHMARK(BM_DisegnaPagina)->Arg(1)->Arg(170)->Arg(340)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
