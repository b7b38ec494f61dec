#pragma once

#include "piattaforma/rigaarchivio.h"

#include <QList>
#include <QString>
#include <QStringList>

// The archive in memory (ColonneArchivio): rows in file order, the oldest contest first, the last
// contest last. Every loop over the archive relies on its fixed capacity.
class ArchivioColonne {
public:
    static constexpr int Capacita = 7000;
    static constexpr int Campi = CampiRigaArchivio;

    enum Campo { Stagione = 0, Concorso = 1, ColonnaCampo = 2 };

    // NumeroColonne.
    int numero() const { return int(m_righe.size()); }
    bool vuoto() const { return m_righe.isEmpty(); }
    const RigaArchivio &riga(int i) const;
    const RigaArchivio &ultima() const { return riga(numero() - 1); }
    const QString &campo(int i, int c) const { return riga(i)[c]; }
    const QString &colonna(int i) const { return riga(i)[ColonnaCampo]; }
    const QList<RigaArchivio> &righe() const { return m_righe; }

    // Appends a row; the 7001st is a run-time fault.
    void aggiungi(const RigaArchivio &r);
    void svuota() { m_righe.clear(); }

    // Parses the lines of Archivio.txt: a line of a single blank is no record, every other line
    // is split on blanks and its first nine elements are the fields (a tenth, empty element from
    // a trailing blank is ignored). A line with fewer than nine elements is a run-time fault,
    // and so is a line beyond the capacity; nothing is changed then.
    static ArchivioColonne daRighe(const QStringList &righe);
    // A line of a single blank is no record.
    static bool rigaVuota(const QString &riga) { return riga == QLatin1StringView(" "); }

    // The nine fields of each row joined by one blank, as the archive file holds them.
    QStringList comeRighe() const;

private:
    QList<RigaArchivio> m_righe;
};
