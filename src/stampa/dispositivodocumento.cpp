#include "stampa/dispositivodocumento.h"

#include <limits>

namespace {

RecordPagina diTipo(QStringView tipo) {
    RecordPagina r;
    r.tipo = tipo.toString();
    return r;
}

} // namespace

DispositivoDocumento::DispositivoDocumento(QSizeF pagina)
    : m_pagina(pagina) {
    aggiungi(DocumentoPagine::TipoNuovaPagina);
}

RecordPagina &DispositivoDocumento::aggiungi(QStringView tipo) {
    // A page turned starts only when something is drawn on it.
    if (!m_paginaAperta && tipo != DocumentoPagine::TipoNuovaPagina) {
        m_record.append(diTipo(DocumentoPagine::TipoNuovaPagina));
        m_paginaAperta = true;
    }
    if (tipo == DocumentoPagine::TipoNuovaPagina)
        m_paginaAperta = true;
    m_record.append(diTipo(tipo));
    return m_record.last();
}

int DispositivoDocumento::indiceColore(const QColor &colore) {
    int migliore = 0;
    int distanza = std::numeric_limits<int>::max();
    for (int i = 0; i < 16; ++i) {
        const QColor c = DocumentoPagine::colore(i);
        const int dr = c.red() - colore.red();
        const int dg = c.green() - colore.green();
        const int db = c.blue() - colore.blue();
        const int d = dr * dr + dg * dg + db * db;
        if (d < distanza) {
            distanza = d;
            migliore = i;
        }
    }
    return migliore;
}

void DispositivoDocumento::testo(QPointF posizione, const QString &testo,
                                 const Carattere &carattere, const QColor &colore) {
    RecordPagina &r = aggiungi(DocumentoPagine::TipoTesto);
    r.x1 = float(posizione.x());
    r.y1 = float(posizione.y());
    r.font = carattere.nome;
    r.dimensione = qint16(carattere.dimensione);
    r.grassetto = carattere.grassetto ? 1 : 0;
    r.colore = qint16(indiceColore(colore));
    r.testo = testo;
}

void DispositivoDocumento::testoInRettangolo(const QRectF &rettangolo, const QString &testo,
                                             const Carattere &carattere, const QColor &colore,
                                             Qt::Alignment, bool) {
    this->testo(rettangolo.topLeft(), testo, carattere, colore);
}

void DispositivoDocumento::linea(QPointF da, QPointF a, const QColor &) {
    RecordPagina &r = aggiungi(DocumentoPagine::TipoLinea);
    r.x1 = float(da.x());
    r.y1 = float(da.y());
    r.x2 = float(a.x());
    r.y2 = float(a.y());
}

void DispositivoDocumento::rettangolo(const QRectF &rettangolo, const QColor &,
                                      const QColor &riempimento) {
    RecordPagina &r = aggiungi(DocumentoPagine::TipoBox);
    r.x1 = float(rettangolo.left());
    r.y1 = float(rettangolo.top());
    r.x2 = float(rettangolo.right());
    r.y2 = float(rettangolo.bottom());
    // A box of colour 0 is an outline; any other is filled with its colour.
    r.colore = riempimento.isValid() ? qint16(indiceColore(riempimento)) : 0;
}

void DispositivoDocumento::cerchio(QPointF centro, qreal raggio, const QColor &bordo,
                                   const QColor &) {
    RecordPagina &r = aggiungi(DocumentoPagine::TipoCerchio);
    r.x1 = float(centro.x());
    r.y1 = float(centro.y());
    r.x2 = float(raggio);
    r.spessore = m_spessore;
    r.colore = qint16(indiceColore(bordo));
}

void DispositivoDocumento::immagine(const QRectF &rettangolo, const QString &file) {
    RecordPagina &r = aggiungi(DocumentoPagine::TipoImmagine);
    r.x1 = float(rettangolo.x());
    r.y1 = float(rettangolo.y());
    r.x2 = float(rettangolo.width());
    r.y2 = float(rettangolo.height());
    r.testo = file;
}

void DispositivoDocumento::spessorePenna(int punti) {
    m_spessore = punti;
}

void DispositivoDocumento::nuovaPagina() {
    if (!m_paginaAperta)
        return;
    m_record.append(diTipo(DocumentoPagine::TipoFinePagina));
    m_paginaAperta = false;
}

void DispositivoDocumento::fineDocumento() {
    if (m_finito)
        return;
    m_finito = true;
    if (m_paginaAperta)
        m_record.append(diTipo(DocumentoPagine::TipoFinePagina));
    m_paginaAperta = false;
}
