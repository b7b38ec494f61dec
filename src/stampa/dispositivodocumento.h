#pragma once

#include "piattaforma/dispositivodisegno.h"
#include "stampa/documentopagine.h"

#include <QList>

// Draws into the records of a page document held in memory, for the preview: a run drawn here
// looks there as it would on paper. A page turned at the end of the document makes no empty
// page, as on a printer. Colours are taken to the nearest of the 16 of the palette.
class DispositivoDocumento : public DispositivoDisegno {
public:
    explicit DispositivoDocumento(QSizeF pagina = {11907, 16839.9});

    void testo(QPointF posizione, const QString &testo, const Carattere &carattere,
               const QColor &colore) override;
    void testoInRettangolo(const QRectF &rettangolo, const QString &testo,
                           const Carattere &carattere, const QColor &colore,
                           Qt::Alignment allineamento, bool aCapo) override;
    void linea(QPointF da, QPointF a, const QColor &colore) override;
    void rettangolo(const QRectF &rettangolo, const QColor &bordo,
                    const QColor &riempimento) override;
    void cerchio(QPointF centro, qreal raggio, const QColor &bordo,
                 const QColor &riempimento) override;
    void immagine(const QRectF &rettangolo, const QString &file) override;
    void spessorePenna(int punti) override;
    void nuovaPagina() override;
    void fineDocumento() override;
    QSizeF dimensionePagina() const override { return m_pagina; }

    // The records so far; a document not yet ended has its last page open.
    const QList<RecordPagina> &record() const { return m_record; }
    // The index in the palette of the colour nearest to this one.
    static int indiceColore(const QColor &colore);

private:
    RecordPagina &aggiungi(QStringView tipo);

    QList<RecordPagina> m_record;
    QSizeF m_pagina;
    int m_spessore = 1;
    bool m_paginaAperta = false;
    bool m_finito = false;
};
