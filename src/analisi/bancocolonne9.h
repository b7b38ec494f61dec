#pragma once

#include "analisi/colonne9.h"
#include "analisi/passofiltro.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/griglia.h"
#include "piattaforma/ordinealternato.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>

// The bench of the workspace of the 9: the grid of the columns still selected, the one-level
// snapshot for the undo, the nine fixed-sign boxes, and every filter step. The screen passes the
// texts of its controls as they stand; a step that refuses them answers with the box to show.
class BancoColonne9 {
public:
    static constexpr int Colonne = 4;
    static const QStringList &intestazioni();
    // The tool tips of the headers: what each abbreviates, and that a click sorts.
    static const QStringList &suggerimentiIntestazioni();

    struct Messaggio {
        Dialoghi::Tipo tipo;
        QString testo;
    };
    using Esito = std::optional<Messaggio>;

    // How "Pos." is written after a step: "17)" or the bare "17".
    enum class FormaPosizione { Parentesi, Numero };

    explicit BancoColonne9(Griglia &griglia);

    Griglia &griglia() const { return m_griglia; }
    // Rows less 1: the number of columns selected (lblTot).
    int totale() const;

    // The grid as the screen opens: 19684 rows, the widths and the headers, an empty body.
    void prepara();
    // The universe from StatColonne9 ("Inizializzazione" and "Ripristina tutto"); the fixed-sign
    // boxes are freed, the snapshot is kept.
    void carica(const QList<Colonne9::Statistica> &statistiche);
    // An integral system in place of the universe: its columns are the first step of the chain.
    void caricaSistema(const QList<Colonne9::Statistica> &sistema);

    // The steps applied since the universe or the system was loaded, in their order; the undo
    // brings back the chain of its snapshot.
    const CatenaFiltri &catena() const { return m_catena; }

    // The snapshot of the grid as it stands (one level), and its restoring (cmdPrec).
    void istantanea();
    int righeIstantanea() const { return m_righeIstantanea; }
    bool conIstantanea() const { return m_conIstantanea; }
    void annulla();

    // The filter steps. Those with inputs take the texts of their controls.
    Esito formula(const QString &uno, const QString &x, const QString &due); // cmdOk
    Esito segnoFisso(const QString &posizione, const QString &segno);        // cmdFiltro
    Esito conteggio(const QString &segno, const QString &presenze);          // cmdAvviaFiltro
    // 1, 2, 3: that terzina alone; 4: all three.
    void segniDiversi(int terzina);          // cmdSegniDiversi
    void eliminaSegno(const QString &segno); // cmbSegno
    Esito eliminaInCasella(const QString &segno, const QString &segnoCmbSegno,
                           const QString &casella); // cmdEliminaSegno
    Esito eliminaFrequenza(const QString &cifra);   // cmdFreq
    void eliminaMaiUscite();                        // cmdEliminaMaiUscite
    void terzineOmogenee();                         // cmdTerzineOmogenee
    // Only the columns of the given indices stay (a reduction with a guarantee); `descrizione`
    // names the step in the chain.
    void tieni(const QList<int> &indici, const QString &descrizione);
    // The indices of the columns in the grid, top to bottom.
    QList<int> indici() const;
    // `segno` is the chosen option ("1", "X", "2") or empty when none is chosen.
    Esito consecutivi(const QString &segno, const QString &consecutivi,
                      const QString &presenze); // cmdCons

    // The nine fixed-sign boxes: "?" when free.
    static constexpr const char *Libero = "?";
    const std::array<QString, 9> &segniFissi() const { return m_segniFissi; }
    void liberaSegno(int posizione); // lblEsci(k), 1 to 9
    void liberaSegni();

    // A double click on a column of the grid, or a click on its header: numeric sort,
    // descending first, then alternately.
    void ordina(int colonna);
    int versoOrdine() const { return m_ordinamento.verso(); }
    // The column the rows stand sorted by, with its direction, while that order holds: the
    // steps keep it (the undo brings back the one of its snapshot); loading the universe, in no
    // column's order, ends it, and so does renumbering "Pos." after a sort by "Pos.".
    using Ordine = OrdineAlternato::Ordine;
    const std::optional<Ordine> &ordine() const { return m_ordinamento.ordine(); }

    // The number a text of a control stands for: leading blanks skipped, then digits; "?" and
    // text without a number are 0.
    static int valore(const QString &testo);

private:
    // Walks the rows in their order, keeps those the step allows, writes them back and adds the
    // step to the chain.
    void filtra(const PassoFiltro &passo, FormaPosizione forma);
    void riscrivi(const QList<std::array<QString, Colonne>> &righe, FormaPosizione forma,
                  bool conPosizione);
    void numera(FormaPosizione forma);
    void scriviIntestazioni();
    void posizioniRiscritte();
    static Messaggio controllare();

    Griglia &m_griglia;
    QList<std::array<QString, Colonne>> m_istantanea;
    int m_righeIstantanea = 0;
    bool m_conIstantanea = false;
    std::array<QString, 9> m_segniFissi;
    OrdineAlternato m_ordinamento;
    std::optional<Ordine> m_ordineIstantanea;
    CatenaFiltri m_catena;
    CatenaFiltri m_catenaIstantanea;
};
