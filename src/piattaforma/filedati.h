#pragma once

#include <QString>
#include <QStringList>

// The data files of the program: single-byte text (Latin-1) with CR LF line ends, replaced whole
// and atomically. Names are looked up in the data folder without regard to case, here only.
class FileDati {
public:
    // The path of `nome` in `cartella`: the existing file whose name matches without regard to
    // case, or the name as given when no such file exists (so that a writer creates it).
    static QString percorso(const QString &cartella, const QString &nome);
    static bool esiste(const QString &cartella, const QString &nome);

    // All the lines of the file, without their ends. A missing or unreadable file is a run-time
    // fault with the file's name in the text.
    static QStringList leggiRighe(const QString &percorsoFile);
    // The first line, or an empty text for an empty file; a missing file is a fault.
    static QString leggiPrimaRiga(const QString &percorsoFile);

    // Writes the lines, each ended by CR LF, replacing the file whole: a write that fails leaves
    // the old file and raises a fault.
    static void scriviRighe(const QString &percorsoFile, const QStringList &righe);
    // Writes the lines to the file of exactly this name in `cartella`, replacing it whole and
    // atomically; a file whose name differs from it in case only is removed once the new one is
    // whole, so that the folder ends with the one name (at every moment it holds a whole file).
    static void sostituisci(const QString &cartella, const QString &nome, const QStringList &righe);
    // Replaces the file with these bytes, whole and atomically; a failure is a fault that names
    // the file and the cause in Italian (disk full, read-only file or folder, ...).
    static void scriviByte(const QString &percorsoFile, const QByteArray &contenuto);
    // Removes the file if it is there; a failure is a fault.
    static void elimina(const QString &percorsoFile);

    static QByteArray codifica(const QString &testo) { return testo.toLatin1(); }
    static QString decodifica(QByteArrayView byte) { return QString::fromLatin1(byte); }
};
