#pragma once

#include "piattaforma/dispositivodisegno.h"

#include <QFont>
#include <QImage>
#include <QPen>

#include <functional>
#include <vector>

class QPainter;

// Draws on a QPainter: a printer, a PDF file, a picture, the preview's sheet. The painter is
// scaled so that one unit is one twip; fonts are sized in twips too, so a text keeps its size
// on every device and at every zoom.
class DispositivoPittore : public DispositivoDisegno {
public:
    // `pittore` is scaled here (`scala` device units for a twip) and kept as it is; the page has
    // the given size in twips. `nuovaPagina` calls the caller's function, if any (a printer),
    // when the first thing is drawn on the new page.
    DispositivoPittore(QPainter &pittore, qreal scalaX, qreal scalaY, QSizeF pagina,
                       std::function<void()> nuovaPagina = {});

    void testo(QPointF posizione, const QString &testo, const Carattere &carattere,
               const QColor &colore) override;
    void testoInRettangolo(const QRectF &rettangolo, const QString &testo,
                           const Carattere &carattere, const QColor &colore,
                           Qt::Alignment allineamento, bool aCapo) override;
    void linea(QPointF da, QPointF a, const QColor &colore) override;
    void rettangolo(const QRectF &rettangolo, const QColor &bordo,
                    const QColor &riempimento) override;
    void spessorePenna(int punti) override;
    void cerchio(QPointF centro, qreal raggio, const QColor &bordo,
                 const QColor &riempimento) override;
    // The circles drawn once into a picture at 1200 dots an inch (or the device's own, if finer),
    // then the picture set at each centre.
    void cerchiConcentrici(QPointF centro, std::span<const qreal> raggi,
                           const QColor &bordo) override;
    void immagine(const QRectF &rettangolo, const QString &file) override;
    void nuovaPagina() override;
    void fineDocumento() override;
    QSizeF dimensionePagina() const override { return m_pagina; }

    // The font of a Carattere, sized in twips (a point is 20 twips).
    static QFont font(const Carattere &carattere);

private:
    QPen penna(const QColor &colore) const;
    void voltaPagina();

    QPainter &m_pittore;
    qreal m_scalaX;
    qreal m_scalaY;
    int m_spessore = 0;
    QSizeF m_pagina;
    std::function<void()> m_nuovaPagina;
    bool m_paginaDaAprire = false;
    // The picture of the last concentric circles, and what it was drawn with.
    static constexpr qreal TimbroPuntiPerPollice = 1200;
    QImage m_timbro;
    std::vector<qreal> m_raggi;
    qreal m_spessoreTimbro = 0;
    QColor m_coloreTimbro;
    qreal m_puntiTimbro = 0;
    qreal m_mezzoTimbro = 0;
};
