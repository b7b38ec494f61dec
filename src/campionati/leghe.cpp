#include "campionati/leghe.h"

#include "piattaforma/filedati.h"

#include <array>

namespace {
constexpr std::array<Leghe::Lega, 19> Tabella{{
    {"A", "SerieA.txt", 20, true},
    {"B", "SerieB.txt", 22, true},
    {"C1A", "SerieC1A.txt", 18, true},
    {"C1B", "SerieC1B.txt", 18, true},
    {"C2A", "SerieC2A.txt", 18, true},
    {"C2B", "SerieC2B.txt", 18, true},
    {"C2C", "SerieC2C.txt", 18, true},
    {"Inghilterra", "serieInghilterra.txt", 20, false},
    {"Spagna", "serieSpagna.txt", 20, false},
    {"Germania", "serieGermania.txt", 18, false},
    {"Francia", "serieFrancia.txt", 20, false},
    {"Olanda", "serieOlanda.txt", 18, false},
    {"Scozia", "serieScozia.txt", 12, false},
    {"Portogallo", "seriePortogallo.txt", 16, false},
    {"Svizzera", "serieSvizzera.txt", 10, false},
    {"Austria", "serieAustria.txt", 10, false},
    {"Grecia", "serieGrecia.txt", 16, false},
    {"Belgio", "serieBelgio.txt", 16, false},
    {"ArgentinaAp", "serieArgentina.txt", 20, false},
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

QStringList Leghe::leggiSquadre(const QString &cartellaDati, const Lega &lega) {
    return FileDati::leggiRighe(
        FileDati::percorso(cartellaDati, QString::fromLatin1(lega.fileSquadre)));
}
