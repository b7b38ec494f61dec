#pragma once

#include "piattaforma/dispositivodisegno.h"

#include <QString>

class Griglia;

// Draws a grid on a page, cell by cell: backgrounds, texts in their font, colour and alignment,
// and the grid lines, with its top left corner at (BordoSinistro, BordoSuperiore). Screens print
// their own heading and use larghezza() and altezza() to centre the grid.
class FlexPrinter {
public:
    explicit FlexPrinter(const Griglia &griglia);

    // RowsFrom, RowsTo: the first and the last row to draw.
    int RowsFrom = 0;
    int RowsTo = 1;
    // Where the grid stands on the page, in twips.
    qreal BordoSinistro = 0;
    qreal BordoSuperiore = 0;
    // The font of the cells that name none, and its size.
    DispositivoDisegno::Carattere CarattereBase{QStringLiteral("Arial"), 8, false};
    QColor ColoreLinee = QColor(128, 128, 128);

    // GetWidth and GetHeight: the size the grid takes on the page, in twips.
    qreal larghezza() const;
    qreal altezza() const;
    // PrintOut.
    void stampa(DispositivoDisegno &dispositivo);
    // CurX, CurY: where the last print ended (the bottom right corner of the grid).
    qreal CurX() const { return m_curX; }
    qreal CurY() const { return m_curY; }

    // DrawRulerH, DrawRulerV: a ruler in centimetres along the top or the left edge of the page.
    static void righelloOrizzontale(DispositivoDisegno &dispositivo);
    static void righelloVerticale(DispositivoDisegno &dispositivo);

    // ColSetupCode: the assignments of the present column widths, as a developer's note.
    QString codiceColonne() const;

    // The alignment of a cell on paper, from the grid's alignment of the cell (0 to 9).
    static Qt::Alignment allineamento(int allineamentoCella, const QString &testo);

private:
    const Griglia &m_griglia;
    qreal m_curX = 0;
    qreal m_curY = 0;
};
