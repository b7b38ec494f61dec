#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringView>

// One step of the chain of filters of the workspace of the 9, kept as data: what it keeps, told
// in words, and its rule on one row. The workspace applies a step to the rows of its grid and the
// historical check replays the same steps on the universe of a past contest, so a rule is written
// once, here.
class PassoFiltro {
public:
    enum class Tipo {
        Formula,
        SegnoFisso,
        Conteggio,
        SegniDiversi,
        EliminaSegno,
        EliminaInCasella,
        EliminaFrequenza,
        EliminaMaiUscite,
        TerzineOmogenee,
        Consecutivi,        // the count form: exactly that many runs of exactly that length
        ConsecutiviElimina, // the delete form: the rows a run marks go
        Insieme,            // a given set of columns: a system, a reduction
    };

    // A row as the rules see it: the nine signs and the texts of Freq. and Rit. as the grid
    // holds them (" 12", "-").
    struct Riga {
        QStringView colonna;
        QStringView frequenza;
        QStringView ritardo;
    };

    static PassoFiltro formula(int uno, int x, int due);
    // The sign is compared in upper case.
    static PassoFiltro segnoFisso(int posizione, const QString &segno);
    static PassoFiltro conteggio(const QString &segno, int volte);
    // 1, 2, 3: that terzina alone; 4: all three.
    static PassoFiltro segniDiversi(int terzina);
    static PassoFiltro eliminaSegno(const QString &segno);
    static PassoFiltro eliminaInCasella(const QString &segno, int posizione);
    static PassoFiltro eliminaFrequenza(const QString &cifra);
    static PassoFiltro eliminaMaiUscite();
    static PassoFiltro terzineOmogenee();
    // Runs of `lunghezza` signs of `segno`: exactly `presenze` of them (0 counts as 1), or, in
    // the delete form, the rows that such a run marks go. A length beyond the nine signs
    // matches nothing, whatever it is.
    static PassoFiltro consecutivi(const QString &segno, int lunghezza, int presenze);
    static PassoFiltro consecutiviElimina(const QString &segno, int lunghezza);
    // Only the columns of the given base-3 indices stay; `descrizione` tells where they came
    // from.
    static PassoFiltro insieme(const QList<int> &indici, const QString &descrizione);

    Tipo tipo() const { return m_tipo; }
    // Whether the row stays.
    bool resta(const Riga &riga) const;
    // Whether the rule reads Freq. or Rit., that is the archive; the others look only at the
    // nine signs.
    bool leggeLArchivio() const;
    // The step in words: "Formula 4-3-2", "Segno fisso X in posizione 5", ...
    QString descrizione() const;

    // The steps of a chain in words, one a line; "Nessun filtro" for none.
    static QStringList descrizioni(const QList<PassoFiltro> &catena);

private:
    explicit PassoFiltro(Tipo tipo);

    Tipo m_tipo;
    int m_numeri[3] = {0, 0, 0};
    QString m_testo;
    QString m_modello;
    QSet<int> m_indici;
};

using CatenaFiltri = QList<PassoFiltro>;
