// A run of 1000 columns of the 9 on play slips (125 slips): from the click on "Stampa schedine"
// to the PDF file closed under its name, and the same marks on the recording device, which
// draws nothing: the geometry alone, to set against the writing of the PDF file.

#include "analisi/colonne9.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"
#include "stampa/frmstampa.h"
#include "stampa/stampaschedine.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "supportobench.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Colonne = 1000;
constexpr int Schedine = Colonne / StampaSchedine::ColonnePerSchedina;
const std::array<QString, 5> Ultime{u"1X2"_s, u"2"_s, u"X1"_s, u"X"_s, u"21"_s};
// 9 signs, 3 + 1 + 2 + 1 + 2 in the last boxes, the 9.
constexpr int SegniPerColonna = 19;

// Every nineteenth column of the 9, so that the slips do not repeat one pattern.
QStringList colonne() {
    QStringList c;
    for (int i = 0; i < Colonne; ++i)
        c.append(Colonne9::elenco().at(i * 19));
    return c;
}

// The pages of a PDF file by pdfinfo; -1 when it can't be read.
int paginePdf(const QString &file) {
    QProcess p;
    p.start(u"pdfinfo"_s, {file});
    if (!p.waitForFinished(60000))
        return -1;
    const auto m = QRegularExpression(u"Pages:\\s+(\\d+)"_s)
                       .match(QString::fromUtf8(p.readAllStandardOutput()));
    return m.hasMatch() ? m.captured(1).toInt() : -1;
}

// The screen as the workspace of the 9 leaves it, on a data folder of its own, printing to a PDF
// file: offsets, the last five boxes and the 9 filled in.
void BM_SchedinePdf(benchmark::State &state) {
    try {
        SupportoBench::Stato isolato;
        StatoProgramma &stato = isolato.stato;
        stato.stampanti().imposta({u"Stampante di prova"_s});
        const QString pdf = isolato.dir.filePath(u"schedine.pdf"_s);
        stato.FileStampaPdf = pdf;
        stato.ColonneStampa = colonne();
        stato.PrimaColonnaStampa = 1;
        stato.UltimaColonnaStampa = Colonne;
        FrmStampa frm(stato);
        frm.findChild<QLineEdit *>(u"txtPosX"_s)->setText(u"120"_s);
        frm.findChild<QLineEdit *>(u"txtPosY"_s)->setText(u"-90"_s);
        for (int k = 0; k < 5; ++k)
            frm.findChild<QLineEdit *>(u"txt%1"_s.arg(10 + k))->setText(Ultime.at(k));
        frm.findChild<QCheckBox *>(u"chk9"_s)->setChecked(true);
        isolato.dialoghi.svuota();
        for (auto _ : state) {
            QFile::remove(pdf);
            QElapsedTimer orologio;
            orologio.start();
            frm.stampa();
            state.SetIterationTime(double(orologio.nsecsElapsed()) / 1e9);
            if (!isolato.dialoghi.boxes.isEmpty() || !QFileInfo::exists(pdf)) {
                state.SkipWithError("la stampa non ha scritto il file");
                break;
            }
        }
        const int pagine = paginePdf(pdf);
        if (pagine != Schedine)
            state.SkipWithError("il file non ha una pagina per schedina");
        state.counters["pagine"] = pagine;
        state.counters["kB"] = double(QFileInfo(pdf).size()) / 1024;
    } catch (const ErroreEsecuzione &e) {
        state.SkipWithError(e.what());
    }
}
BENCHMARK(BM_SchedinePdf)->Unit(benchmark::kMillisecond)->UseManualTime();

// The same run on the recorder: the positions of the marks and the calls, no drawing.
void BM_SchedineRegistratore(benchmark::State &state) {
    StampaSchedine::Giocata g;
    g.colonne = colonne();
    g.prima = 1;
    g.ultima = Colonne;
    g.ultime = Ultime;
    g.nove = true;
    g.posX = 120;
    g.posY = -90;
    using Op = DispositivoRegistratore::Operazione;
    for (auto _ : state) {
        DispositivoRegistratore d;
        StampaSchedine::disegna(d, g);
        if (d.conta(Op::Cerchio) != Colonne * SegniPerColonna * 6 ||
            d.conta(Op::NuovaPagina) != Schedine) {
            state.SkipWithError("la corsa non ha i segni attesi");
            break;
        }
    }
    state.counters["segni"] = Colonne * SegniPerColonna;
}
BENCHMARK(BM_SchedineRegistratore)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    return SupportoBench::esegui(argc, argv);
}
