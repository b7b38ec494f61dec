#pragma once

#include <QString>

class Rete;

// A page of the update site that becomes a data file: stored only when it came whole, and never
// once the operation was cancelled. Every update step and every screen that refreshes one file
// from the site goes through here.
class ScaricamentoFile {
public:
    // The page fetched as the download gives it, padded with blanks. A page that did not come
    // whole (broken off, a site gone silent, no connection) is a run-time fault; a cancelled one an
    // interruption: a refresh never replaces a file from part of a page.
    static QString paginaIntera(Rete &rete, const QString &percorso);
    // The same, without the blanks that pad it.
    static QString pagina(Rete &rete, const QString &percorso);
    // An interruption when the operation was cancelled or the program is closing.
    static void controllaInterruzione(const Rete &rete);
    // The page fetched and written to the file as one print: its lines and a last line end.
    // Returns the trimmed text.
    static QString inFile(Rete &rete, const QString &percorso, const QString &percorsoFile);
};
