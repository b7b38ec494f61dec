#pragma once

#include "core/archiviocolonne.h"

#include <QList>
#include <QString>
#include <QStringList>

class StatoProgramma;

// What the screens that change the archive by hand do to its three copies: the entry of a new
// contest, the correction and the deletion of a row, the reload of the table and the page of the
// archive in the site's form. Archivio.txt is written first; table and memory follow from it.
class ScrittureArchivio {
public:
    // The line table of the entry screen holds this many lines; one more is a run-time fault.
    static constexpr int CapacitaRighe = 7000;

    // The entry screen's whole test of a column (already in upper case): 14 characters with at
    // least one "1", "X" or "2" among them. Other characters pass on purpose.
    static bool colonnaValida(const QString &colonna);
    // A contest number as the screens compare them: the number the text starts with (blanks
    // skipped, optional sign, digits); a text without one counts 0.
    static qint64 numero(QStringView testo);

    // The lines of Archivio.txt without the single-blank ones, with the new line after them.
    static QStringList righeConNuova(const QStringList &righeFile, const QString &nuova);
    // The entry of a new contest: the line of Colonna::rigaArchivio appended to Archivio.txt,
    // then table and memory rebuilt and RicalcolaColonne9 set, all through
    // Archivio::sostituisci: a fault leaves the three copies as they were. Returns its note. The
    // screen has asked its questions.
    static QString inserisci(StatoProgramma &stato, const QString &stagione,
                             const QString &concorso, const QString &colonna);

    // The row as the edit screen confirms it: the three fields as typed, the column in upper case
    // and the six metrics computed from it (no test of validity).
    static RigaArchivio rigaCorretta(const QString &stagione, const QString &concorso,
                                     const QString &colonna);
    // The lines of Archivio.txt from rows of the table: the nine fields joined by one blank.
    static QStringList righeDaTabella(const QList<RigaArchivio> &righe);
    // The rows of the table with the current row in place of rigaCorretta, written as the lines
    // of Archivio.txt through Archivio::sostituisci (the table itself is not touched first).
    // Returns the note of sostituisci.
    static QString confermaModifica(StatoProgramma &stato, const QString &stagione,
                                    const QString &concorso, const QString &colonna);
    // The rows of the table without the current row, written the same way.
    static QString eliminaCorrente(StatoProgramma &stato);

    // The archive in the form of the site's archive page: for each contest its progressive number
    // from 1, a blank, and the nine fields each followed by a blank; every line, the last too,
    // ended by a line feed.
    static QString paginaArchivio(const ArchivioColonne &archivio);
    // Writes that page (Latin-1) to a file, replacing it whole.
    static void scriviPaginaArchivio(const QString &percorso, const ArchivioColonne &archivio);

private:
    // Every row of the table but the current one, and where that one stood.
    static QList<RigaArchivio> righeTabellaSenzaCorrente(const StatoProgramma &stato, int *ordine);
};
