#pragma once

#include "piattaforma/erroreesecuzione.h"

#include <QString>

class QFileDevice;
class QSqlError;

// Why a file could not be written (or read, or opened), told in Italian: the user must learn that
// the disk is full or the folder read-only, not read the system's English words. The cause is
// worked out after the failure from what is left to look at: the error number of the failing
// call, the folder, its file system and its free space. The system's or SQLite's own text
// follows only as a detail.
class ErroriFile {
public:
    enum class Causa {
        DiscoPieno,
        FileSolaLettura,
        CartellaSolaLettura,
        FileSystemSolaLettura,
        CartellaInesistente,
        FileInesistente,
        CartellaAlPosto, // a folder where the file should be
        FileInUso,
        AccessoNegato,
        Danneggiato,
        NonApribile,
        Sconosciuta,
    };

    // A run-time fault about a file, with its cause for the caller to weigh.
    class Errore : public ErroreEsecuzione {
    public:
        Errore(QString testo, Causa causa)
            : ErroreEsecuzione(std::move(testo))
            , m_causa(causa) {}
        Causa causa() const noexcept { return m_causa; }
        // The file is there but can't be read as what it should be; as opposed to a place that
        // refuses writes (full, read-only, in use, missing folder).
        bool danno() const noexcept;

    private:
        Causa m_causa;
    };

    // The cause of a failed write of `percorso`: `codiceErrno` is errno right after the failing
    // call (0 when not known), `byte` about how much was to be written (0 when not known).
    static Causa causaScrittura(const QString &percorso, int codiceErrno = 0, qint64 byte = 0);
    // The cause of a failed read of `percorso`.
    static Causa causaLettura(const QString &percorso, int codiceErrno = 0);
    // The cause of a failed operation of SQLite on the database file `percorso`.
    static Causa causaSqlite(const QString &percorso, const QSqlError &errore);

    // The cause in words, to follow "Impossibile scrivere il file X: ".
    static QString descrizione(Causa causa);
    // "Impossibile <verbo> il file <percorso>: <causa>." and, when there is one, " (dettaglio:
    // <dettaglio>)". The verb is Italian: "scrivere", "leggere", "aprire", "eliminare".
    static QString testo(const QString &verbo, const QString &percorso, Causa causa,
                         const QString &dettaglio);

    // The fault with that text.
    static Errore errore(const QString &verbo, const QString &percorso, Causa causa,
                         const QString &dettaglio) {
        return Errore(testo(verbo, percorso, causa, dettaglio), causa);
    }
    // The fault of a failed write through a QFile or QSaveFile (its name, error and text).
    // `codiceErrno` is errno right after the failing call.
    static Errore scrittura(const QFileDevice &file, int codiceErrno, qint64 byte = 0);
    // The same for a path and a detail of one's own.
    static Errore scrittura(const QString &percorso, const QString &dettaglio, int codiceErrno = 0,
                            qint64 byte = 0);
    // The fault of a failed read through a QFile.
    static Errore lettura(const QFileDevice &file, int codiceErrno);
};
