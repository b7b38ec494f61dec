#pragma once

#include "campionati/leghe.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

// The files of the leagues in the data folder, each reader held against its writer: the team
// lists, the league tables (a heading, then one line of 21 tab-separated fields a row) and the
// calendars of the Italian series (the text as the site gives it, and the binary records built
// from it). What a file can't give (a row with too few fields, a table shorter than its league,
// a round beyond its cap) is a run-time fault, and a write that fails leaves the old file.
class FileCampionati {
public:
    static constexpr int CampiRiga = 21;
    // The most lines a team list of an Italian series holds.
    static constexpr int MassimoSquadreItaliane = 21;

    using RigaClassifica = std::array<QString, CampiRiga>;
    struct Classifica {
        QString intestazione; // line 1, shown as it stands
        QList<RigaClassifica> righe;
        bool operator==(const Classifica &) const = default;
    };

    // The table from the lines of its file: the heading and the league's rows; later lines are
    // passed over, a row's fields beyond the 21st too.
    static Classifica classificaDaRighe(const QStringList &righe, int numeroRighe);
    static QStringList righeDaClassifica(const Classifica &classifica);
    static Classifica leggiClassifica(const QString &cartella, const Leghe::Lega &lega);
    // Writes the table under the league's name (or the file found for it without regard to
    // case). More rows than the league holds is a fault, and nothing is written.
    static void scriviClassifica(const QString &cartella, const Leghe::Lega &lega,
                                 const Classifica &classifica);

    // The team list of an Italian series: its non-empty names, at most 21.
    static void scriviSquadreItaliane(const QString &cartella, const Leghe::Lega &lega,
                                      const QStringList &nomi);
    // The team list of a foreign league: as many lines as its table has rows, upper case, empty
    // lines for the teams missing.
    static void scriviSquadreStraniere(const QString &cartella, const Leghe::Lega &lega,
                                       const QStringList &nomi);

    // A calendar: rounds of strings, the first string of a round its date, the others its
    // matches. Always as many rounds as the series has, each of its strings a round.
    using Calendario = QList<QStringList>;
    // From the text as the site gives it: a line holding only "*" opens a round; every other
    // line, trimmed, is the next string of the round (a first line other than "*" opens round 1).
    static Calendario calendarioDaTesto(const QStringList &righe, const Leghe::Lega &lega);
    // The records of the data file: each string a 16-bit little-endian length and its bytes.
    static QByteArray codificaCalendario(const Calendario &calendario);
    // Reads the records back; a file too short for them is a fault, a longer one keeps its tail
    // unread. Read `finoAllaFine`, a short file gives what it holds and empty strings after it,
    // as the calendar screen reads a missing or short calendar.
    static Calendario decodificaCalendario(QByteArrayView byte, const Leghe::Lega &lega,
                                           bool finoAllaFine = false);
    // RicreaSerieA and its family: the text file of the series read, its data file written.
    // The data file isn't emptied first: an older, longer file keeps its tail. Returns the
    // calendar.
    static Calendario ricreaCalendario(const QString &cartella, const Leghe::Lega &lega);
    static Calendario leggiCalendario(const QString &cartella, const Leghe::Lega &lega);
    // The calendar as the screen shows it: a missing or short data file gives empty strings.
    static Calendario leggiCalendarioFinoAllaFine(const QString &cartella, const Leghe::Lega &lega);
};
