#pragma once

#include "core/statoprogramma.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

class Griglia;

// The export of a screen's table to an Excel workbook. A screen hands its grid over with
// prepara(); the pop-up of FrmMenuGriglie then runs esporta(), which asks for a file name and
// writes the workbook: "Vespara - " and the title in A1, the joined header texts in every cell of
// A3:II3, the table from A4. Numbers go in as numbers, the columns are as wide as their texts,
// and the rows down to the header stay in sight while the table scrolls.
class EsportazioneExcel {
public:
    // How a worksheet is laid out besides its cells.
    struct Impaginazione {
        // The rows from the top (row 0 on) that stay in sight: the panes are frozen below them.
        int righeFisse = 0;
        // Rows whose texts don't size the columns: a title that runs on over the empty cells at
        // its right, a header row that repeats one long text in every cell.
        QList<int> righeSenzaLarghezza;
    };
    // The widest a column is made, in characters of the sheet's font.
    static constexpr double LarghezzaMassima = 60;
    static constexpr double LarghezzaMinima = 4;

    // The local table of the export: at most this many rows, and one column per header text.
    static constexpr int MassimoRighe = 10000;
    static constexpr int MassimoColonne = StatoProgramma::NumeroIntestazioni;
    // A3:II3, the cells that hold the header text.
    static constexpr int CelleIntestazione = 243;

    // Copies the rows 1 to the last of `sorgente` into the hidden grid at the same coordinates,
    // its row 0 into the header texts, and sets the title and the size of the table. A source of
    // more than 244 columns is a run-time fault and leaves the export as it was.
    static void prepara(StatoProgramma &stato, const Griglia &sorgente, const QString &titolo);
    // Today's date as the callers put it in their titles: "dd/MM/yyyy".
    static QString oggi();

    // The 244 header texts joined with "," and the last comma cut: the text of A3:II3.
    static QString testoIntestazioni(const QStringList &intestazioni);
    // The rows of the worksheet from A1, as the export lays them out from the program state:
    // title, an empty row, the header row, then RigheEsportazione rows of ColonneEsportazione
    // texts. A table beyond 10000 rows or 244 columns is a run-time fault.
    static QList<QStringList> foglio(const StatoProgramma &stato);

    // The layout of the export's sheet: rows 1 to 3 frozen, and neither the title (A1) nor the
    // header row (row 3) sizing the columns.
    static Impaginazione impaginazioneFoglio();

    // Writes the workbook of the program state to `percorso`.
    static void scrivi(const QString &percorso, const StatoProgramma &stato);
    // Writes the rows from A1 (row 0 is sheet row 1), each row's texts in columns A, B, ...;
    // empty texts leave their cells empty. A text that is a plain number (Griglia::numeroSemplice:
    // " 12", "-3", "3,5") goes in as that number, unless its column is a column of signs; any
    // other text goes in as it is. Each column that holds texts outside the rows named by the
    // layout gets the width of larghezzeColonne. A failure is a run-time fault naming the file;
    // a half-written file is removed.
    static void scriviCelle(const QString &percorso, const QList<QStringList> &righe,
                            const Impaginazione &impaginazione);
    // The same with no row frozen and every row sizing the columns.
    static void scriviCelle(const QString &percorso, const QList<QStringList> &righe);

    // A text of two or more signs 1, X, 2 and nothing else, with an X among them or nine signs
    // at least: a terzina, a cinquina, a column of the 9 or of the 14 ("1X2", "112112112").
    static bool sequenzaDiSegni(QStringView testo);
    // For each column of the rows, whether it is a column of signs: one of its texts is a
    // sequenzaDiSegni. Its texts all stay texts, so that "111111111" among the columns of the 9
    // isn't made a number; a single sign ("1", "2") doesn't make one.
    static QList<bool> colonneDiSegni(const QList<QStringList> &righe);
    // The width of each column in characters of the sheet's font, from its longest text (blanks
    // at either end left out) in the rows not named in `escluse`: 1.1 times its length rounded
    // up, plus 2, between LarghezzaMinima and LarghezzaMassima; 0 for a column with no text
    // there, which keeps the sheet's default width.
    static QList<double> larghezzeColonne(const QList<QStringList> &righe,
                                          const QList<int> &escluse = {});

    // mnuExcel: asks for the file name, proposing one made from the title in the folder of the
    // last file saved, and writes the workbook; nothing is written when the user cancels. A name
    // without a suffix gets ".xlsx". Once written, the status bar says where the file went.
    static void esporta(StatoProgramma &stato);
    static QString titoloDialogo();
    static QString filtroDialogo();
};
