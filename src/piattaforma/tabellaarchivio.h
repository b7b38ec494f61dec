#pragma once

#include "piattaforma/rigaarchivio.h"

#include <QList>
#include <QString>
#include <QVariant>

class QSqlError;

// The table Archivio of archivio.db (SQLite): nine text fields in record order, rows kept in the
// order they were added. It is read by record navigation like a recordset: a current row that
// moves with primo/successivo/ultimo, and fine() past the last row. A deleted row stays the
// current position until the next move, so "delete, then move next" walks the whole table.
class TabellaArchivio {
public:
    static constexpr const char *NomeFile = "archivio.db";
    static constexpr const char *NomeTabella = "Archivio";
    // Where a database file that could not be read is kept when a new one takes its place.
    static constexpr const char *NomeFileDanneggiato = "archivio-danneggiato.db";
    // The names of the nine fields; the first three are bound by name to the editing screen.
    static const QStringList &nomiCampi();

    // A table in its file, or one in memory that stands in for the file while the file can't
    // be used (the program still names the file in its messages).
    enum class Luogo { File, Memoria };

    // Opens the database file, creating file and table when they are missing. A file that
    // can't be opened, or is no database, is a run-time fault that names the cause in Italian.
    explicit TabellaArchivio(const QString &percorsoFile, Luogo luogo = Luogo::File);
    ~TabellaArchivio();
    TabellaArchivio(const TabellaArchivio &) = delete;
    TabellaArchivio &operator=(const TabellaArchivio &) = delete;

    // True when this opening had to create the table (a new or foreign file).
    bool creata() const { return m_creata; }
    bool inMemoria() const { return m_inMemoria; }
    QString percorso() const { return m_percorso; }

    // Checks the file page by page (PRAGMA quick_check) and reads every row: a damaged file is a
    // run-time fault. Returns the rows, in order, and moves to the first.
    QList<RigaArchivio> verifica();

    // Reads the rows again from the file and moves to the first.
    void aggiorna();
    void primo();
    void successivo();
    void precedente();
    void ultimo();
    bool fine() const { return m_posizione >= m_id.size(); }
    bool inizio() const { return m_posizione < 0; }
    int conteggio() const;
    int posizione() const { return m_posizione; }
    void vaiA(int posizione);

    // The current row; a fault at the end, before the start or on a deleted row.
    RigaArchivio corrente() const;
    // Where the current row stands among the rows of tutte(), from 0.
    int ordineCorrente() const;
    // Changes the current row (Edit, then Update).
    void modifica(const RigaArchivio &riga);
    // Deletes the current row.
    void elimina();
    // Adds a row at the end (AddNew, then Update); the current position does not move.
    void aggiungi(const RigaArchivio &riga);

    // Every row, in order.
    QList<RigaArchivio> tutte() const;
    // Empties the table and adds the rows again, in one transaction: on a failure the table is
    // left as it was and a run-time fault is raised.
    void ricostruisci(const QList<RigaArchivio> &righe);
    // The same in two steps, so that another file can be written while the transaction is
    // open: the rows replaced, then confirmed or undone. A failure of either step undoes the
    // transaction and is a fault.
    void preparaRicostruzione(const QList<RigaArchivio> &righe);
    void confermaRicostruzione();
    void annullaRicostruzione() noexcept;

    // Sets a database file aside as archivio-danneggiato.db, beside it, in place of an older
    // copy (a folder in its place goes aside too), with the journal SQLite may have left. The
    // file must not be open. A failure is a fault that names the cause.
    static void accantona(const QString &percorsoFile);
    static QString percorsoAccantonato(const QString &percorsoFile);

private:
    enum class Operazione { Lettura, Scrittura };
    qint64 idCorrente() const;
    void esegui(const QString &sql, const QList<QVariant> &valori = {}) const;
    [[noreturn]] void guasto(Operazione operazione, const QSqlError &errore) const;
    void chiudi();

    QString m_percorso;
    QString m_nomeConnessione;
    QList<qint64> m_id; // rowids in order; 0 marks a row deleted in this pass
    int m_posizione = 0;
    bool m_creata = false;
    bool m_inMemoria = false;
};
