#pragma once

#include "core/statoprogramma.h"

#include <QList>
#include <QString>
#include <QStringList>

class Griglia;

// The export of a screen's table to an Excel workbook. A screen hands its grid over with
// prepara(); the pop-up of FrmMenuGriglie then runs esporta(), which asks for a file name and
// writes the workbook: "Vespara - " and the title in A1, the joined header texts in every cell of
// A3:II3, the table from A4.
class EsportazioneExcel {
public:
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

    // Writes the workbook of the program state to `percorso`.
    static void scrivi(const QString &percorso, const StatoProgramma &stato);
    // Writes the rows from A1 (row 0 is sheet row 1), each row's texts in columns A, B, ...;
    // empty texts leave their cells empty. Texts stay texts: " 12" is not made a number. A failure
    // is a run-time fault naming the file; a half-written file is removed.
    static void scriviCelle(const QString &percorso, const QList<QStringList> &righe);

    // mnuExcel: asks for the file name, proposing one made from the title in the folder of the
    // last file saved, and writes the workbook; nothing is written when the user cancels. A name
    // without a suffix gets ".xlsx". Once written, the status bar says where the file went.
    static void esporta(StatoProgramma &stato);
    static QString titoloDialogo();
    static QString filtroDialogo();
};
