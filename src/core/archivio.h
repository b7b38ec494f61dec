#pragma once

#include <QStringList>

class StatoProgramma;

// The three copies of the archive: Archivio.txt is the master, the table and the memory are
// rebuilt from it in full by whoever changes it.
class Archivio {
public:
    static constexpr const char *NomeFile = "Archivio.txt";

    // Loads Archivio.txt into ColonneArchivio (start-up). A fault leaves the memory as it was.
    static void caricaMemoria(StatoProgramma &stato);
    // Rebuilds the table (one transaction) and the memory from Archivio.txt. The file is read and
    // checked first: a bad line is a fault that leaves table and memory untouched.
    static void ricostruisci(StatoProgramma &stato);
    // Replaces Archivio.txt with these lines, atomically.
    static void scriviFile(const StatoProgramma &stato, const QStringList &righe);
    // The lines of Archivio.txt.
    static QStringList leggiFile(const StatoProgramma &stato);
};
