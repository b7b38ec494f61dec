#pragma once

#include "core/archiviocolonne.h"

#include <QString>
#include <QStringList>

class StatoProgramma;

// The three copies of the archive: Archivio.txt is the master, the table and the memory are
// rebuilt from it in full by whoever changes it. Every rewrite keeps the file it replaces as the
// previous generation, ArchivioPrecedente.txt, beside it.
class Archivio {
public:
    static constexpr const char *NomeFile = "Archivio.txt";
    static constexpr const char *NomeCopiaPrecedente = "ArchivioPrecedente.txt";
    // Where a file that could not be read is kept when something takes its place.
    static constexpr const char *NomeDanneggiato = "ArchivioDanneggiato.txt";

    // Loads Archivio.txt into ColonneArchivio (start-up). A fault leaves the memory as it was.
    static void caricaMemoria(StatoProgramma &stato);
    // Rebuilds the table (one transaction) and the memory from Archivio.txt. The file is read and
    // checked first: a bad line is a fault that leaves table and memory untouched.
    static void ricostruisci(StatoProgramma &stato);
    // Replaces Archivio.txt with these lines, atomically. The file replaced becomes the previous
    // generation when it could be read; one that could not is kept as ArchivioDanneggiato.txt and
    // the previous generation stays.
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
    // The previous generation back in place of Archivio.txt; the file it replaces is kept as
    // ArchivioDanneggiato.txt. Table and memory are the caller's to rebuild.
    static void ripristinaCopiaPrecedente(const StatoProgramma &stato);
    // Start-up: the table must hold what the memory holds (the file may have been changed or
    // copied by hand); it is rebuilt when they differ. True when it was rebuilt.
    static bool allineaTabella(StatoProgramma &stato);
};
