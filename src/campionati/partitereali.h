#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

// The table of real match results of the Italian leagues that the project's data builders read
// (`;`-separated UTF-8 with a header line): the source of the delivered archive and of the local
// site's league tables.
class PartiteReali {
public:
    struct Partita {
        QString stagione; // "2024-25", or "2025" for a league of one calendar year
        QString lega;     // A, B, CA, CB, CC, or the code of a foreign league ("Spagna")
        int giornata = 0;
        QDate data;
        QString casa;
        QString ospite;
        int golCasa = 0;
        int golOspite = 0;
        int riga = 0; // line in the file, for messages
    };

    static const QString &intestazione();

    // Every match of the file, checked field by field; a bad line is a run-time fault naming it.
    static QList<Partita> leggi(const QString &percorso);

    // The source writes some dates of a season with the year before its true one (the summer
    // 2020 matches of 2019-20 carry 2019). No match of a league can precede the opening of its
    // first round, so such a date is moved on one year. Returns a line for each league corrected.
    static QStringList correggiDate(QList<Partita> &partite);
};
