#pragma once

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <span>

// The cutting of a foreign league table out of a web page, by plain text markers: the page has
// the whole table on the one line that holds "lbRigheClassifica"; its rows are separated by
// "&nbsp;", a row is the team's name up to "</TD>" and then number cells, each after "=20>" (the
// end of a cell tag of width 20). No HTML is parsed: the rules rely on the exact shape of the
// source page.
class TaglioClassifica {
public:
    // The twelve leagues in the order of the run of all of them.
    struct Voce {
        const char *codice;       // LegaClassifica
        const char *progresso;    // lblCont while its page downloads: "1/12 (Inghilterra)"
        const char *menu;         // its menu entry
        const char *paginaLink;   // the page holding the address of the page to cut
        const char *fileLavoro;   // the page as downloaded, deleted after the cut
        const char *intestazione; // the heading of its table file (Germania's says "Francia")
    };
    static std::span<const Voce> voci();
    static const Voce *perCodice(const QString &codice);
    // The league's name, which lblCont shows while the league is updated alone ("Argentina").
    static QString nome(const Voce &voce);

    static constexpr int MassimoRighePagina = 3000;
    static constexpr int CelleNumeriche = 17;
    static constexpr QStringView Marcatore = u"lbRigheClassifica";

    // The team (column 1) and the 17 number cells (columns 2 to 18) of each row; rows the page
    // lacks are empty.
    using Riga = std::array<QString, 1 + CelleNumeriche>;

    // Cuts the table out of the page's lines. A page of more than 3000 lines, more rows than
    // `righe` or more than 17 number cells in a row is a run-time fault. A page without the marker
    // gives an empty table.
    static QList<Riga> taglia(const QStringList &righePagina, int righe);
    // The table file's table: the heading followed at once by the date and time, then each row
    // as position, team, points and the six totals, "-", five home figures, "-", five away.
    static FileCampionati::Classifica classifica(const QList<Riga> &tabella, const Voce &voce,
                                                 const QDateTime &adesso);
    // A page in the shape the cutting reads, from a table file's table: what the local site
    // serves. Its cut gives back the table's teams and figures.
    static QStringList pagina(const FileCampionati::Classifica &classifica, const QString &titolo);
    // Where the local site keeps the page of a league, under its root.
    static QString percorsoPagina(const Voce &voce);

    // The cut written to the league's files: the table file and the team list (upper case).
    static void scrivi(const QString &cartella, const Leghe::Lega &lega, const Voce &voce,
                       const QList<Riga> &tabella, const QDateTime &adesso);
};
