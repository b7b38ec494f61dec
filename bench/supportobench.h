#pragma once

#include "core/archiviocolonne.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"

#include <QApplication>
#include <QSize>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <functional>
#include <map>

#include "supporto/archiviosintetico.h"

// What the benchmark programs share: their main, and a program state on a folder of its own.
namespace SupportoBench {

// Runs the benchmarks named on the command line inside a Qt application; the screens need
// widgets, and no display is needed to build them. `prima` runs once the application stands.
inline int esegui(int argc, char **argv, const std::function<void()> &prima = {}) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (prima)
        prima();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// The synthetic archive of that many contests in memory, made once for the whole run.
inline const ArchivioColonne &archivio(int righe, quint32 seme = 20110828) {
    static std::map<std::pair<int, quint32>, ArchivioColonne> archivi;
    auto it = archivi.find({righe, seme});
    if (it == archivi.end())
        it = archivi
                 .emplace(std::pair(righe, seme),
                          ArchivioColonne::daRighe(archivioSintetico(righe, seme)))
                 .first;
    return it->second;
}

// A program state on a temporary data folder, with recording dialogs and a 1280×800 desktop.
struct Stato {
    QTemporaryDir dir;
    DialoghiProva dialoghi;
    Impostazioni impostazioni{dir.filePath(QStringLiteral("impostazioni.ini"))};
    Schermo schermo;
    StatoProgramma stato{dialoghi, impostazioni, schermo};

    Stato() {
        schermo.imposta(QSize(1280, 800));
        stato.PercorsoDati = dir.path();
    }
};

} // namespace SupportoBench
