#include "campionati/leghe.h"

#include "piattaforma/filedati.h"

#include <array>

namespace {

constexpr std::array<Leghe::Lega, 19> Tabella{{
    {"A", "Serie A", "SerieA.txt", "ClassifSerieA.txt", 20, true, "Calendario2011-2012-SerieA", 19,
     11},
    {"B", "Serie B", "SerieB.txt", "ClassifSerieB.txt", 22, true, "Calendario2011-2012-SerieB", 21,
     12},
    {"C1A", "Lega Pro Div. 1 Gir. A", "SerieC1A.txt", "ClassifSerieC1A.txt", 18, true,
     "Calendario2011-2012-SerieC1A", 34, 10},
    {"C1B", "Lega Pro Div. 1 Gir. B", "SerieC1B.txt", "ClassifSerieC1B.txt", 18, true,
     "Calendario2011-2012-SerieC1B", 34, 10},
    {"C2A", "Lega Pro Div. 2 Gir. A", "SerieC2A.txt", "ClassifSerieC2A.txt", 18, true,
     "Calendario2011-2012-SerieC2A", 34, 10},
    {"C2B", "Lega Pro Div. 2 Gir. B", "SerieC2B.txt", "ClassifSerieC2B.txt", 18, true,
     "Calendario2011-2012-SerieC2B", 34, 10},
    {"C2C", "Lega Pro Div. 2 Gir. C", "SerieC2C.txt", "ClassifSerieC2C.txt", 18, true,
     "Calendario2011-2012-SerieC2C", 34, 10},
    {"Inghilterra", "Inghilterra", "serieInghilterra.txt", "Classif-Inghilterra.txt", 20, false},
    {"Spagna", "Spagna", "serieSpagna.txt", "Classif-Spagna.txt", 20, false},
    {"Germania", "Germania", "serieGermania.txt", "Classif-Germania.txt", 18, false},
    {"Francia", "Francia", "serieFrancia.txt", "Classif-francia.txt", 20, false},
    {"Olanda", "Olanda", "serieOlanda.txt", "Classif-Olanda.txt", 18, false},
    {"Scozia", "Scozia", "serieScozia.txt", "Classif-scozia.txt", 12, false},
    {"Portogallo", "Portogallo", "seriePortogallo.txt", "Classif-portogallo.txt", 16, false},
    {"Svizzera", "Svizzera", "serieSvizzera.txt", "Classif-svizzera.txt", 10, false},
    {"Austria", "Austria", "serieAustria.txt", "Classif-austria.txt", 10, false},
    {"Grecia", "Grecia", "serieGrecia.txt", "Classif-grecia.txt", 16, false},
    {"Belgio", "Belgio", "serieBelgio.txt", "Classif-belgio.txt", 16, false},
    {"ArgentinaAp", "Argentina", "serieArgentina.txt", "Classif-ArgentinaAp.txt", 20, false},
}};
constexpr int NumeroItaliane = 7;

} // namespace

std::span<const Leghe::Lega> Leghe::tutte() {
    return Tabella;
}

std::span<const Leghe::Lega> Leghe::italiane() {
    return std::span(Tabella).first(NumeroItaliane);
}

std::span<const Leghe::Lega> Leghe::straniere() {
    return std::span(Tabella).subspan(NumeroItaliane);
}

const Leghe::Lega *Leghe::perCodice(const QString &codice) {
    for (const Lega &lega : Tabella)
        if (codice == QLatin1StringView(lega.codice))
            return &lega;
    return nullptr;
}

QStringList Leghe::leggiSquadre(const QString &cartellaDati, const Lega &lega) {
    return FileDati::leggiRighe(FileDati::percorso(cartellaDati, fileSquadre(lega)));
}
