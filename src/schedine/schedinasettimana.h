#pragma once

#include "schedine/fileschedine.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <span>

class DispositivoDisegno;
class Griglia;

// What the three coupon screens share, line for line: the grid of the 14 matches with their
// picchetto, its loading from the files, the search of a team's league, the print. The three
// differ only by the items of their model.
class SchedinaSettimana {
public:
    struct Modello {
        FileSchedine::Tipo tipo;
        const char *nome;         // objectName of the screen, as the menu names it
        const char *titolo;       // the form's caption, leading blank included (UTF-8)
        const char *esportazione; // the title of the export, before today's date
        const char *etichetta;    // the label above the prognosis boxes
        bool risultati;           // the Sunday screen carries the column "Risultati"
    };
    static std::span<const Modello> modelli();
    static const Modello *perNome(const QString &nome);

    static constexpr int Righe = FileSchedine::Partite;
    static constexpr int Colonne = 6;
    static constexpr quint32 SfondoNumero = 0xC0FFFF;    // light yellow (255,255,192)
    static constexpr quint32 SfondoPicchetto = 0xC0E0FF; // light orange (255,224,192)
    static constexpr int AltezzaRiga = 300;

    // The widths, heights and colours of the grid, and the numbers 1 to 13 in column 0 of rows 1
    // to 13, which the coupon then overwrites.
    static void prepara(Griglia &griglia);
    // The coupon's pieces in their columns (a piece beyond the grid's last column is a run-time
    // fault), then the picchetto in columns 3 to 5.
    static void
    riempi(Griglia &griglia, const FileSchedine::Schedina &schedina,
           const std::array<FileSchedine::Percentuali, FileSchedine::Partite> &picchetto);

    // The code of the first league, in the order of the searches, whose list holds the team
    // (names trimmed and compared in upper case); empty when none does.
    static QString legaDi(const QHash<QString, QStringList> &squadre, const QString &squadra);
    // The team choice: the two teams of `riga` in bold, the teams of every other row back to
    // normal weight and the default colour. Gives the upper-case names of the two teams and the
    // match (0-based) whose row kept its mark, -1 when none did.
    struct Scelta {
        QString casa;
        QString ospite;
        int partita = -1;
    };
    static Scelta segnaPartita(Griglia &griglia, int riga);

    // The print on an A4 portrait page: the title, the heading in dark red, "Tuo pronostico: "
    // and the prognosis line, the grid in the middle of the page.
    static void stampa(DispositivoDisegno &dispositivo, const Griglia &griglia,
                       const QString &titolo, const QString &concorso, const QStringList &caselle);
    static constexpr quint32 ColoreConcorso = 0x0000C0; // (192,0,0)
};
