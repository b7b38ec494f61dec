#pragma once

#include <QString>
#include <QStringList>

#include <span>

// The leagues the program knows: the seven Italian series and the twelve foreign leagues, in the
// order in which team searches walk them. One description serves every reader, writer, screen
// and update of their files.
class Leghe {
public:
    struct Lega {
        const char *codice;      // LegaClassifica
        const char *nome;        // as the screens name it
        const char *fileSquadre; // team list in the data folder
        // The table file as its readers name it; the foreign updater writes it under a name that
        // differs in case only (the data folder is searched without regard to case).
        const char *fileClassifica;
        int righeClassifica;
        bool italiana;
        // The calendar of an Italian series: the name of its text and data files without the
        // ending, and their sizes. Null for the foreign leagues.
        const char *calendario = nullptr;
        int giornate = 0;
        int stringheGiornata = 0;
    };

    static std::span<const Lega> tutte();
    static std::span<const Lega> italiane();
    static std::span<const Lega> straniere();
    // The league of a LegaClassifica value, or null.
    static const Lega *perCodice(const QString &codice);

    // A team list: one name per line, as the file holds them.
    static QStringList leggiSquadre(const QString &cartellaDati, const Lega &lega);

    static QString fileSquadre(const Lega &lega) { return QString::fromLatin1(lega.fileSquadre); }
    static QString fileClassifica(const Lega &lega) {
        return QString::fromLatin1(lega.fileClassifica);
    }
    static QString fileCalendarioTesto(const Lega &lega) {
        return QString::fromLatin1(lega.calendario) + QStringLiteral(".txt");
    }
    static QString fileCalendarioDati(const Lega &lega) {
        return QString::fromLatin1(lega.calendario) + QStringLiteral(".dat");
    }
};
