#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <span>

// Where the program draws a page: the printer, a PDF file, the preview, or the recorder of the
// tests. Every length is in twips (1440 to the inch, 567 to the centimetre as the program counts
// them), from the top left corner of the page.
class DispositivoDisegno {
public:
    struct Carattere {
        QString nome = QStringLiteral("Arial");
        qreal dimensione = 10; // points
        bool grassetto = false;
        bool operator==(const Carattere &) const = default;
    };

    virtual ~DispositivoDisegno() = default;

    // A text whose top left corner stands at the point (the place of CurrentX, CurrentY).
    virtual void testo(QPointF posizione, const QString &testo, const Carattere &carattere,
                       const QColor &colore) = 0;
    // A text inside a rectangle, aligned in it and cut at its edges.
    virtual void testoInRettangolo(const QRectF &rettangolo, const QString &testo,
                                   const Carattere &carattere, const QColor &colore,
                                   Qt::Alignment allineamento, bool aCapo) = 0;
    virtual void linea(QPointF da, QPointF a, const QColor &colore) = 0;
    // An outline in `bordo` (none when invalid), filled with `riempimento` (none when invalid).
    virtual void rettangolo(const QRectF &rettangolo, const QColor &bordo,
                            const QColor &riempimento) = 0;
    virtual void cerchio(QPointF centro, qreal raggio, const QColor &bordo,
                         const QColor &riempimento) = 0;
    // Circles around one centre, one for each radius in that order, outlined in `bordo`: the
    // same as a cerchio for each, which is what a device does unless it has a quicker way.
    virtual void cerchiConcentrici(QPointF centro, std::span<const qreal> raggi,
                                   const QColor &bordo);
    // A picture from a file, scaled into the rectangle.
    virtual void immagine(const QRectF &rettangolo, const QString &file) = 0;
    // The width of the lines, outlines and circles drawn from now on, in the device's own dots
    // (1, the thinnest, until changed).
    virtual void spessorePenna(int punti) = 0;
    virtual void nuovaPagina() = 0;
    virtual void fineDocumento() = 0;

    // The size of the page, in twips.
    virtual QSizeF dimensionePagina() const = 0;
    // The width of a text in that font, in twips; the same on every device.
    virtual qreal larghezzaTesto(const QString &testo, const Carattere &carattere) const;
    // The height of a line of text in that font, in twips.
    virtual qreal altezzaTesto(const Carattere &carattere) const;

    static constexpr qreal TwipsPerPollice = 1440;
    static constexpr qreal TwipsPerCentimetro = 567;
    // The dots of the printer when a print counts in them: 300 to the inch.
    static constexpr qreal TwipsPerPixelStampa = TwipsPerPollice / 300;
};
