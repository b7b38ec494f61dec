#pragma once

#include "core/archiviocolonne.h"

#include <QString>
#include <QStringList>

class StatoProgramma;

// The three copies of the archive: Archivio.txt is the master, the table and the memory are
// rebuilt from it in full by whoever changes it. Every rewrite keeps the file it replaces as the
// previous generation, ArchivioPrecedente.txt, beside it.
//
// The table is a copy: when archivio.db can't be opened, read or rebuilt, the program works with
// a table in memory filled from Archivio.txt, and every later change of the archive (and the next
// start) tries the file again.
class Archivio {
public:
    static constexpr const char *NomeFile = "Archivio.txt";
    static constexpr const char *NomeCopiaPrecedente = "ArchivioPrecedente.txt";
    // Where a file that could not be read is kept when something takes its place.
    static constexpr const char *NomeDanneggiato = "ArchivioDanneggiato.txt";

    // The texts of the boxes (UTF-8).
    static constexpr const char *NonModificato =
        "L'archivio non è stato modificato: Archivio.txt, la tabella archivio.db e l'archivio in "
        "memoria sono rimasti com'erano.";
    static constexpr const char *ModificaRegistrata =
        "La modifica è stata registrata in Archivio.txt e nell'archivio in memoria: non "
        "ripeterla. Non è stato possibile né scriverla nella tabella archivio.db né rimettere "
        "l'archivio com'era; fino alla prossima modifica dell'archivio o al prossimo avvio, che "
        "ricostruiranno la tabella, Vespara ne usa una copia in memoria.";
    static constexpr const char *TabellaRicostruita =
        "La tabella dell'archivio (archivio.db) non si poteva leggere ed è stata ricostruita da "
        "Archivio.txt. Il file danneggiato è stato conservato come archivio-danneggiato.db.";
    static constexpr const char *TabellaNonInUso =
        "La tabella dell'archivio (archivio.db) non è in uso: Vespara lavora con l'archivio letto "
        "da Archivio.txt e non scrive nella tabella finché non sarà possibile. Ci riproverà a ogni "
        "modifica dell'archivio e al prossimo avvio.";
    static constexpr const char *TabellaAccantonata =
        "Il file danneggiato è stato conservato come archivio-danneggiato.db.";

    // What start-up has to say about the table: nothing, that it was rebuilt (an information),
    // or that it is not in use (a warning).
    struct NotaTabella {
        QString testo;
        bool inUso = true;
    };

    // Loads Archivio.txt into ColonneArchivio (start-up). A fault leaves the memory as it was.
    static void caricaMemoria(StatoProgramma &stato);
    // Rebuilds the table (one transaction) and the memory from Archivio.txt. The file is read and
    // checked first: a bad line is a fault that leaves table and memory untouched.
    static void ricostruisci(StatoProgramma &stato);
    // The table alone emptied and filled again from Archivio.txt (a table in memory tries the
    // file first). A bad line leaves it as it was.
    static void ricaricaTabella(StatoProgramma &stato);

    // What every writer of the archive does: Archivio.txt replaced by these lines (the file it
    // replaces kept as the previous generation), the table rebuilt from them in one transaction,
    // the memory loaded. All three copies change, or none: the lines are checked first, and on a
    // failure the text file and the previous generation are put back and the table's transaction
    // undone, and the fault (NonModificato and the cause in Italian) is raised. When putting back
    // fails too, the three copies are made to agree on what Archivio.txt now holds and the
    // returned note (ModificaRegistrata and the cause) says that the change is stored. Otherwise
    // the note is empty, or says that a damaged table was set aside and rebuilt.
    static QString sostituisci(StatoProgramma &stato, const QStringList &righe);

    // Replaces Archivio.txt with these lines, atomically. The file replaced becomes the previous
    // generation when it could be read; one that could not is kept as ArchivioDanneggiato.txt and
    // the previous generation stays. The file alone: writers go through sostituisci.
    static void scriviFile(const StatoProgramma &stato, const QStringList &righe);
    // The lines of Archivio.txt.
    static QStringList leggiFile(const StatoProgramma &stato);

    // A file of the archive read whole; a bad line, or no contest at all, is a fault.
    static ArchivioColonne leggi(const QString &percorsoFile);
    // The fault that keeps this file of the archive from loading (its line and why), or an empty
    // text when it loads with at least one contest.
    static QString guasto(const QString &percorsoFile);
    // Whether the previous generation is there and loads.
    static bool copiaPrecedenteValida(const StatoProgramma &stato);
    // The previous generation back in place of Archivio.txt, through sostituisci (so table and
    // memory follow); the file it replaces is kept as ArchivioDanneggiato.txt. Returns the note.
    static QString ripristinaCopiaPrecedente(StatoProgramma &stato);

    // Start-up, before the archive is read: the table of archivio.db when it opens and reads
    // whole, else an empty one in memory for now. Never a fault. Returns the rows read, so that
    // the start does not read them again.
    static QList<RigaArchivio> apriTabella(StatoProgramma &stato);
    // Start-up, once the archive is read: the table must hold what the memory holds (the file may
    // have been changed or copied by hand). `lette` are the rows apriTabella read (a table
    // rebuilt since, by the restore of the previous generation, differs from them at most once
    // more). A table that can't be read is set aside as archivio-danneggiato.db and made anew;
    // one that differs is rebuilt; when that can't be done, a table in memory takes the archive.
    // Without an archive (`conArchivio` false) the file is left alone: it may be the only good
    // copy.
    static NotaTabella allineaTabella(StatoProgramma &stato, bool conArchivio,
                                      const QList<RigaArchivio> &lette);
};
