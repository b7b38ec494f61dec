#pragma once

#include <QString>
#include <QStringList>

#include <span>

// The leagues the program knows: the seven Italian series and the twelve foreign leagues, in the
// order in which team searches walk them.
class Leghe {
public:
    struct Lega {
        const char *codice;      // LegaClassifica
        const char *fileSquadre; // team list in the data folder
        int righeClassifica;
        bool italiana;
    };

    static std::span<const Lega> tutte();
    static std::span<const Lega> italiane();
    static std::span<const Lega> straniere();

    // A team list: one name per line, as the file holds them.
    static QStringList leggiSquadre(const QString &cartellaDati, const Lega &lega);
};
