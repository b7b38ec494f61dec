#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QStringList>

#include <optional>
#include <vector>

// The grid of a screen: what it shows and, at the same time, the screen's working store (filters
// read and rewrite its cells). Row and column numbers are the grid's own, fixed rows included, so
// row 0 is the header row where the grid has one fixed row. A VistaGriglia shows it.
//
// Sizes are in twips (1440 per inch, 15 per pixel on a 96-dpi screen), as the screens state them.
class Griglia : public QAbstractTableModel {
    Q_OBJECT

public:
    enum class Verso { Crescente, Decrescente };
    // The numbers matter: the grid printer maps them one by one.
    enum class Allineamento {
        SinistraAlto = 0,
        SinistraCentro,
        SinistraBasso,
        CentroAlto,
        CentroCentro,
        CentroBasso,
        DestraAlto,
        DestraCentro,
        DestraBasso,
        Generale // numbers right, other text left, vertically centred
    };

    static constexpr int LarghezzaPredefinita = 960;
    static constexpr int AltezzaPredefinita = 240;
    static constexpr int TwipsPerPixel = 15;

    // Keeps the grid silent while it lives: the model is reset once when the outermost one ends.
    class Blocco {
    public:
        Blocco(Blocco &&altro) noexcept;
        Blocco(const Blocco &) = delete;
        Blocco &operator=(const Blocco &) = delete;
        Blocco &operator=(Blocco &&) = delete;
        ~Blocco();

    private:
        friend class Griglia;
        explicit Blocco(Griglia *griglia);
        Griglia *m_griglia;
    };

    explicit Griglia(int righe = 2, int colonne = 2, QObject *parent = nullptr);
    ~Griglia() override;

    int righe() const { return static_cast<int>(m_righe.size()); }
    void setRighe(int n);
    int colonne() const { return m_colonne; }
    void setColonne(int n);
    int righeFisse() const { return m_righeFisse; }
    void setRigheFisse(int n);
    int colonneFisse() const { return m_colonneFisse; }
    void setColonneFisse(int n);
    bool eFissa(int r, int c) const { return r < m_righeFisse || c < m_colonneFisse; }

    QString testo(int r, int c) const;
    void setTesto(int r, int c, const QString &t);
    void rimuoviRiga(int r);
    // Removes many rows at once (any order, duplicates allowed): what rimuoviRiga would do for
    // each, from the last to the first.
    void rimuoviRighe(const QList<int> &righe);
    void aggiungiRiga(const QStringList &celle = {});
    // Empties every cell and resets its format; sizes, fixed rows and column alignments stay.
    void pulisci();

    // Sorts the non-fixed rows by the value of valoreNumerico() of the cells of `colonna`; cells
    // without a number stand below every number in both directions. Stable.
    void ordinaNumerico(int colonna, Verso verso);
    // Sorts the non-fixed rows by the text of the cells of `colonna`, as names are listed in
    // Italian: case aside, accented letters beside their plain ones. Empty cells stand below
    // every text in both directions. Stable.
    void ordinaTesto(int colonna, Verso verso);
    // The number a cell starts with, blanks trimmed: optional sign, digits, optional decimal
    // point ('.' or ',') with digits. "17)" reads 17, "3,5" reads 3.5, "-", "" and "abc" none.
    // No thousands separators.
    static std::optional<double> valoreNumerico(QStringView testo);
    // Whether the whole trimmed text is such a number (what Generale aligns right).
    static bool eNumero(QStringView testo);
    // The number of a text that is a plain decimal number as the program writes them, blanks
    // trimmed: an optional "-", digits with no leading zero (a lone 0 aside), optionally a decimal
    // point ('.' or ',') and digits, at most 15 digits in all (what a double keeps exactly).
    // "-12", "0", " 12", "3.5", "3,5" are numbers; "+5", "007", "-", "1e5", "inf", "1.", ",5"
    // and longer digit strings are not. A negative zero reads 0.
    static std::optional<double> numeroSemplice(QStringView testo);

    int larghezzaColonna(int c) const;
    void setLarghezzaColonna(int c, int twips);
    int altezzaRiga(int r) const;
    void setAltezzaRiga(int r, int twips);
    // The height of every row, new rows included; own heights of single rows are dropped.
    int altezzaRighe() const { return m_altezzaRighe; }
    void setAltezzaRighe(int twips);
    static int twipsInPixel(int twips);
    // A colour as the screens state it, a blue-green-red value: 0xC0FFFF is a pale yellow.
    static QColor daBGR(quint32 bgr) {
        return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
    }
    static int pixelInTwips(int px) { return px * TwipsPerPixel; }

    // A column's alignment is the one of its cells that have none of their own, rows added later
    // included; setting it drops the cells' own alignment in that column.
    Allineamento allineamento(int r, int c) const;
    void setAllineamento(int r, int c, Allineamento a);
    void setAllineamentoColonna(int c, Allineamento a);
    void setAllineamentoCorpo(Allineamento a); // every non-fixed cell there is now
    QColor sfondo(int r, int c) const;         // invalid: the default
    void setSfondo(int r, int c, const QColor &colore);
    QColor colore(int r, int c) const; // text colour; invalid: the default
    void setColore(int r, int c, const QColor &colore);
    bool grassetto(int r, int c) const;
    void setGrassetto(int r, int c, bool si);
    qreal dimensioneCarattere(int r, int c) const; // points; 0: the default
    void setDimensioneCarattere(int r, int c, qreal punti);
    QString nomeCarattere(int r, int c) const; // empty: the default
    void setNomeCarattere(int r, int c, const QString &nome);
    // The tool tip of a cell (Qt::ToolTipRole), for what its text abbreviates; empty: none. On
    // the header row it is the header's tool tip.
    QString suggerimento(int r, int c) const;
    void setSuggerimento(int r, int c, const QString &testo);

    [[nodiscard]] Blocco inBlocco();
    bool bloccata() const { return m_blocchi > 0; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    // With exactly one fixed row, the horizontal header is that row (the view freezes it there).
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    // Widths, heights or fixed rows/columns changed (at the end of a block if inside one).
    void dimensioniCambiate();

private:
    // The format of a cell, 20 bytes; most rows have none at all.
    struct Formato {
        enum : quint8 { HaSfondo = 1, HaColore = 2, Grassetto = 4 };
        static constexpr quint8 SenzaAllineamento = 0xFF;
        QRgb sfondo = 0;
        QRgb colore = 0;
        float dimensione = 0;
        quint16 carattere = 0; // 1 + index in m_nomiCaratteri, 0: the default
        quint8 allineamento = SenzaAllineamento;
        quint8 bandiere = 0;
        quint16 suggerimento = 0; // 1 + index in m_suggerimenti, 0: none
    };
    struct Riga {
        QList<QString> celle;
        std::vector<Formato> formati; // empty, or one per column
        int altezza = -1;             // -1: the grid's row height
    };

    void controlla(int r, int c) const;
    void controllaRiga(int r) const;
    void controllaColonna(int c) const;
    void controllaDimensione(int n) const;
    Riga nuovaRiga() const;
    const Formato *formato(int r, int c) const;
    // 1 + the index of the text in the table (added when new), 0 for an empty text.
    static quint16 voceTabella(QStringList &tabella, const QString &testo);
    Formato &formatoScrivibile(int r, int c);
    // Puts the non-fixed rows in that order: ordine[i] is the body row that becomes row i.
    void riordina(const std::vector<int> &ordine);
    void celleCambiate(int r1, int c1, int r2, int c2, const QList<int> &ruoli = {});
    void dimensioniModificate();
    void apriBlocco();
    void chiudiBlocco();

    std::vector<Riga> m_righe;
    int m_colonne = 0;
    int m_righeFisse = 0;
    int m_colonneFisse = 0;
    std::vector<int> m_larghezze;
    std::vector<Allineamento> m_allineamentiColonna;
    int m_altezzaRighe = AltezzaPredefinita;
    QStringList m_nomiCaratteri;
    QStringList m_suggerimenti;
    int m_blocchi = 0;
    bool m_dimensioniInSospeso = false;
};
