#pragma once

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/partitereali.h"

#include <QDate>
#include <QList>
#include <QString>

// A league table worked out from match results, for the data builders and the local site: the
// program itself shows tables as their files give them and computes none.
class ClassificaCalcolata {
public:
    // Games, wins, draws, losses, goals scored and conceded: at home, away, or in total.
    struct Parziale {
        int giocate = 0, vinte = 0, pari = 0, perse = 0, fatti = 0, subiti = 0;
        void aggiungi(int fatti, int subiti);
        Parziale operator+(const Parziale &o) const;
    };
    struct Squadra {
        QString nome;
        Parziale casa, fuori;
        Parziale totale() const { return casa + fuori; }
        int punti() const { return 3 * totale().vinte + totale().pari; }
    };
    struct Risultato {
        QList<Squadra> squadre; // in the order of the table
        int partite = 0;
        QDate ultima; // the date of the latest match
    };

    // The teams of a season and league in the order of the table: points, then goal difference,
    // then goals scored, then the name. Names in upper case, as the program's files hold them.
    static Risultato calcola(const QList<PartiteReali::Partita> &partite, const QString &stagione,
                             const QString &lega);
    // The headings of the tables the data builders write: "Campionato Serie A - Classifica
    // aggiornata al 07/09/2025", "Campionato Serie C2B - Nessuna squadra in classifica", and for a
    // foreign league "Campionato Spagna - Aggiornata al 07/09/2025".
    static QString intestazione(const Leghe::Lega &lega, const QDate &data);
    static QString intestazioneVuota(const Leghe::Lega &lega);
    // The text of a series' calendar as the site gives it, from the matches of a season and
    // league: for each round up to the series' rounds, "*", the round's date line ("1ª Giornata -
    // 23/08/2025", its first match's day), then its matches in date order as "CASA-OSPITE" and
    // the sign of the result as the last character, as many as a round holds.
    static QStringList calendario(const QList<PartiteReali::Partita> &partite,
                                  const QString &stagione, const QString &codiceLega,
                                  const Leghe::Lega &lega);
    // The text of a calendar not yet available: one round whose date line says so.
    static QStringList calendarioVuoto();
    // Whether a precedes b in the table.
    static bool precede(const Squadra &a, const Squadra &b);

    // The 21 fields of a team's row.
    static FileCampionati::RigaClassifica riga(int posizione, const Squadra &squadra);
    // A row without a team: its position, empty fields and the "-" of the games at home and away,
    // as the foreign updater writes the rows a page lacks.
    static FileCampionati::RigaClassifica rigaVuota(int posizione);
    // A table of exactly `numero` rows: the first teams, then empty rows.
    static QList<FileCampionati::RigaClassifica> righe(const QList<Squadra> &squadre, int numero);
};
