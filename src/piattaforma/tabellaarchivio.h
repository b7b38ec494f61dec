#pragma once

#include "piattaforma/rigaarchivio.h"

#include <QList>
#include <QString>
#include <QVariant>

// The table Archivio of archivio.db (SQLite): nine text fields in record order, rows kept in the
// order they were added. It is read by record navigation like a recordset: a current row that
// moves with primo/successivo/ultimo, and fine() past the last row. A deleted row stays the
// current position until the next move, so "delete, then move next" walks the whole table.
class TabellaArchivio {
public:
    static constexpr const char *NomeFile = "archivio.db";
    static constexpr const char *NomeTabella = "Archivio";
    // The names of the nine fields; the first three are bound by name to the editing screen.
    static const QStringList &nomiCampi();

    // Opens the database file, creating file and table when they are missing.
    explicit TabellaArchivio(const QString &percorsoFile);
    ~TabellaArchivio();
    TabellaArchivio(const TabellaArchivio &) = delete;
    TabellaArchivio &operator=(const TabellaArchivio &) = delete;

    // True when this opening had to create the table (a new or foreign file).
    bool creata() const { return m_creata; }
    QString percorso() const { return m_percorso; }

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

private:
    qint64 idCorrente() const;
    void esegui(const QString &sql, const QList<QVariant> &valori = {}) const;

    QString m_percorso;
    QString m_nomeConnessione;
    QList<qint64> m_id; // rowids in order; 0 marks a row deleted in this pass
    int m_posizione = 0;
    bool m_creata = false;
};
