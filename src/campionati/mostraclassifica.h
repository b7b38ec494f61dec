#pragma once

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"

#include <QColor>
#include <QString>
#include <QStringList>

class DispositivoDisegno;
class Griglia;

// The table of a league as frmClassifiche shows it: the 21 columns of the table file, the two
// teams of the match the user came from marked, the team and points columns coloured. Nothing is
// computed: the file is shown as it stands.
class MostraClassifica {
public:
    // The header row and the 22 rows of the largest league; a smaller league leaves the rest
    // empty.
    static constexpr int Righe = 23;
    static constexpr int Colonne = FileCampionati::CampiRiga;
    // Colours, as blue-green-red values.
    static constexpr quint32 SfondoSquadra = 0xC0E0FF;
    static constexpr quint32 SfondoPunti = 255;
    static constexpr quint32 TestoPunti = 0xFFFFFF;
    static constexpr quint32 TestoSegnata = 0xFF0000;
    static constexpr quint32 ColoreIntestazioneStampa = 192;

    // "Pos.", "Squadra", "Punti", then G V N P RF RS for the totals, at home and away.
    static const QStringList &intestazioni();
    // The groups above the columns: "Totali" from column 3, "In casa" from 9, "Fuori casa" from
    // 15, six columns each.
    static const QStringList &gruppi();

    // Whether a team of the table is one of the two of the match. An Italian series compares the
    // whole names without regard to case. A foreign league looks for the first word of each name
    // of the match, as it stands, in the team's name in upper case: only a word in upper case can
    // match, and an empty word matches every team that has a name.
    static bool segnata(const Leghe::Lega &lega, const QString &squadra, const QString &casa,
                        const QString &ospite);

    // Lays the grid out and fills it from the table of the league (none: the grid stays empty).
    static void riempi(Griglia &griglia, const Leghe::Lega *lega,
                       const FileCampionati::Classifica &classifica, const QString &casa,
                       const QString &ospite);

    // The print: "Programma Vespara" and the heading at the top, the grid in the middle of the
    // page.
    static void stampa(DispositivoDisegno &dispositivo, const Griglia &griglia,
                       const QString &intestazione);
};
