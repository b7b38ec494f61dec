#pragma once

#include "piattaforma/griglia.h"

class OrdineAlternato;

#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>

// Shows a Griglia the way the program's grids have always looked: the fixed rows are the header,
// one current cell drawn as a frame (so cell colours stay visible), no selection, grey lines.
//
// With exactly one fixed row, that row is frozen at the top: the grid gives it as the horizontal
// header (Griglia::headerData) and the view hides row 0 of the body. The row numbers stay the
// grid's own throughout, with no proxy in between. With more fixed rows they are the first rows of
// the body, drawn grey; fixed columns are drawn grey and scroll with the rest.
//
// A grid that sorts by its columns makes the frozen header clickable: a click on a column's header
// is told by clicIntestazione, and the screen shows the order it holds with mostraOrdine.
//
// The user widens or narrows a column by dragging the edge of its header, and a double click on
// the edge fits the column to its texts. The widths the grid states are the initial ones; the
// user's stay across the grid's refills until the grid changes that column's width itself.
class VistaGriglia : public QTableView {
    Q_OBJECT

public:
    explicit VistaGriglia(QWidget *parent = nullptr);
    ~VistaGriglia() override;

    void setGriglia(Griglia *griglia);
    Griglia *griglia() const;

    // The current cell in grid coordinates; -1 when there is none.
    int rigaCorrente() const;
    int colonnaCorrente() const;

    // The width of all the grid's columns on screen, in pixels, without the frame.
    int larghezzaColonne() const;
    // Fits the view to the width of its columns, with room for the vertical scroll bar; it
    // follows the widths the user gives the columns.
    void adattaLarghezza();
    // The size that shows every column and the first `righe` rows under the frozen header (all
    // of them when negative), frame included and no scroll bar.
    QSize dimensioneEsatta(int righe = -1) const;
    // The view fixed at that size, its scroll bars off: a grid that is shown whole. A column the
    // user widens makes it grow with the column.
    void adattaA(int righe = -1);
    void setCellaCorrente(int r, int c);

    // Whether the frozen header answers a click of the left button (with clicIntestazione);
    // off unless asked, so a header that does nothing never looks like a button.
    void setIntestazioneCliccabile(bool si);
    bool intestazioneCliccabile() const;
    // The sort indicator on the header of `colonna`, pointing the rows' direction, while the
    // rows stand in that order; nascondiOrdine takes it off (the rows are in no column's order).
    void mostraOrdine(int colonna, Griglia::Verso verso);
    void nascondiOrdine();
    // The grid sorts itself by `ordine` on a double click on a cell and on a click on a header,
    // and shows the order it holds. The order must outlive the view.
    void ordinaConDoppioClic(OrdineAlternato *ordine);
    // The same on a click on a header alone, for a grid whose cells keep their double click.
    void ordinaConClicIntestazione(OrdineAlternato *ordine);
    // The column whose order is shown, -1 when none, and its direction.
    int colonnaOrdine() const;
    Griglia::Verso versoOrdine() const;

signals:
    void clic(int riga, int colonna);
    void doppioClic(int riga, int colonna);
    // On release of the right button, with the cell under the mouse (-1, -1 if none).
    void tastoDestro(int riga, int colonna);
    // A click of the left button on the header of a column (a clickable frozen header only).
    void clicIntestazione(int colonna);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    QModelIndex moveCursor(CursorAction azione, Qt::KeyboardModifiers modificatori) override;
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    bool cellaDelCorpo(const QModelIndex &indice) const;
    void aggiornaDimensioni();
    void aggiornaIntestazione();
    void aggiornaLarghezze();
    void aggiornaAltezze();
    void salvaCella();
    void dopoIlReset();
    void ripristinaCella();
    void applicaOrdine();
    void colonnaRidimensionata(int colonna, int larghezza);
    void ordinaPer(OrdineAlternato *ordine, int colonna);

    QPointer<Griglia> m_griglia;
    QList<QMetaObject::Connection> m_connessioni;
    QPersistentModelIndex m_premuto; // left press on a body cell, waiting for its release
    int m_rigaSalvata = -1;          // current cell kept across a reset or a removal
    int m_colonnaSalvata = -1;
    int m_colonnaOrdine = -1; // the column whose order the header shows, -1: none
    Griglia::Verso m_versoOrdine = Griglia::Verso::Decrescente;
    // A width the user gave a column, kept while the grid states the same width for it.
    struct LarghezzaUtente {
        int twipsGriglia;
        int pixel;
    };
    QHash<int, LarghezzaUtente> m_larghezzeUtente;
    bool m_impostaLarghezze = false;    // the view itself is setting the widths
    // How the view is fitted to its columns, so that it follows a column the user resizes.
    enum class Adattamento { Nessuno, Larghezza, Intera };
    Adattamento m_adattamento = Adattamento::Nessuno;
    int m_righeAdattate = -1; // adattaA's rows
};
