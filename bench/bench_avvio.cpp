// The program start: from building the program on a data folder with a full panel's archive to
// the frame on screen with the signs panel open.

#include "core/archivio.h"
#include "core/cartelladati.h"
#include "core/colonna.h"
#include "cornice/mdipannello.h"
#include "cornice/mdiprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"
#include "piattaforma/tabellaarchivio.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QWindow>

#include <benchmark/benchmark.h>

#include "supportobench.h"

#include "supporto/archiviosintetico.h"

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 SemeBenchmark = 20110828;

// The most contests the signs panel, opened by the start, takes.
constexpr int Concorsi = 5000;

void copia(const QString &origine, const QString &destinazione) {
    if (!QFile::copy(origine, destinazione))
        throw ErroreEsecuzione(u"Impossibile copiare %1 in %2."_s.arg(origine, destinazione));
    // Copies out of the program's resources are read-only; the program rewrites some of them.
    QFile::setPermissions(destinazione, QFile::ReadOwner | QFile::WriteOwner);
}

// The folder every start is copied from: the delivered files, the synthetic archive in place of
// the delivered one and, when asked, the table already built from it (every start but the first).
class Modello {
public:
    explicit Modello(bool conTabella) {
        if (!m_dir.isValid())
            throw ErroreEsecuzione(u"Impossibile creare una cartella temporanea."_s);
        const QDir consegnata(CartellaDati::consegnata());
        const QString archivio = QString::fromLatin1(Archivio::NomeFile);
        for (const QString &nome : consegnata.entryList(QDir::Files))
            if (nome.compare(archivio, Qt::CaseInsensitive) != 0)
                copia(consegnata.filePath(nome), m_dir.filePath(nome));
        const QStringList righe = archivioSintetico(Concorsi, SemeBenchmark);
        FileDati::scriviRighe(m_dir.filePath(archivio), righe);
        if (conTabella) {
            TabellaArchivio tabella(m_dir.filePath(QString::fromLatin1(TabellaArchivio::NomeFile)));
            tabella.ricostruisci(ArchivioColonne::daRighe(righe).righe());
        }
    }

    // A fresh copy in a new temporary folder.
    std::unique_ptr<QTemporaryDir> copiaNuova() const {
        auto dir = std::make_unique<QTemporaryDir>();
        if (!dir->isValid())
            throw ErroreEsecuzione(u"Impossibile creare una cartella temporanea."_s);
        const QDir origine(m_dir.path());
        for (const QString &nome : origine.entryList(QDir::Files))
            copia(origine.filePath(nome), dir->filePath(nome));
        return dir;
    }

private:
    QTemporaryDir m_dir;
};

bool attendiEsposta(QWidget &finestra) {
    const QDeadlineTimer scadenza(5000);
    while (!scadenza.hasExpired()) {
        if (finestra.windowHandle() && finestra.windowHandle()->isExposed())
            return true;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return false;
}

// The first start of this process pays for fonts, style and the SQL driver once; it is kept
// apart from the repeated starts, which the benchmark reports.
std::optional<double> primoAvvioMs;

void avvio(benchmark::State &state, bool conTabella) {
    try {
        const Modello modello(conTabella);
        for (auto _ : state) {
            const std::unique_ptr<QTemporaryDir> dir = modello.copiaNuova();
            DialoghiProva dialoghi;
            Impostazioni impostazioni(dir->filePath(u"impostazioni.ini"_s));
            Schermo schermo;
            schermo.imposta(QSize(1280, 800));

            QElapsedTimer orologio;
            orologio.start();
            auto programma =
                std::make_unique<MdiProgramma>(dir->path(), dialoghi, impostazioni, schermo);
            programma->pannello().resize(1280, 800);
            const bool avviato = programma->avvia();
            if (avviato)
                programma->pannello().show();
            const bool esposta = avviato && attendiEsposta(programma->pannello());
            const qint64 ns = orologio.nsecsElapsed();
            state.SetIterationTime(double(ns) / 1e9);
            if (!primoAvvioMs)
                primoAvvioMs = double(ns) / 1e6;

            if (!avviato || !esposta) {
                state.SkipWithError(avviato ? "la cornice non è comparsa"
                                            : "il programma non si è avviato");
                break;
            }
            // A panel fault is shown in a box and the start goes on: that would be no start.
            if (!programma->pannello().trovaSchermo(u"frmPannelloSegni"_s) ||
                !dialoghi.boxes.isEmpty()) {
                state.SkipWithError("il pannello dei segni non si è aperto");
                break;
            }
            programma.reset();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    } catch (const ErroreEsecuzione &e) {
        state.SkipWithError(e.what());
    }
    state.counters["concorsi"] = Concorsi;
    if (primoAvvioMs)
        state.counters["primo_avvio_ms"] = *primoAvvioMs;
}

// A folder without archivio.db, as the delivered one: the start makes the table and fills it.
void BM_AvvioCartellaNuova(benchmark::State &state) {
    avvio(state, false);
}
BENCHMARK(BM_AvvioCartellaNuova)->Unit(benchmark::kMillisecond)->UseManualTime();

// A folder whose table is already there, as on every later start.
void BM_AvvioConTabella(benchmark::State &state) {
    avvio(state, true);
}
BENCHMARK(BM_AvvioConTabella)->Unit(benchmark::kMillisecond)->UseManualTime();

QtMessageHandler gestorePredefinito = nullptr;

void filtraMessaggi(QtMsgType tipo, const QMessageLogContext &contesto, const QString &testo) {
    // The offscreen platform says so for every window shown; it is no fault of the program.
    if (testo == u"This plugin does not support propagateSizeHints()"_s)
        return;
    gestorePredefinito(tipo, contesto, testo);
}

} // namespace

int main(int argc, char **argv) {
    // The frame is shown, but on no display; its warnings of the offscreen plugin are filtered.
    return SupportoBench::esegui(
        argc, argv, [] { gestorePredefinito = qInstallMessageHandler(filtraMessaggi); });
}
