#include "piattaforma/dispositivopittore.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

DispositivoPittore::DispositivoPittore(QPainter &pittore, qreal scalaX, qreal scalaY, QSizeF pagina,
                                       std::function<void()> nuovaPagina)
    : m_pittore(pittore)
    , m_pagina(pagina)
    , m_nuovaPagina(std::move(nuovaPagina)) {
    m_pittore.scale(scalaX, scalaY);
    m_pittore.setRenderHint(QPainter::Antialiasing);
    m_pittore.setRenderHint(QPainter::TextAntialiasing);
}

QFont DispositivoPittore::font(const Carattere &carattere) {
    QFont f(carattere.nome);
    // Names of the fonts the program has always asked for, on a system that has other ones.
    const bool fisso = carattere.nome.contains(QLatin1StringView("Courier"), Qt::CaseInsensitive);
    f.setStyleHint(fisso ? QFont::Monospace : QFont::SansSerif);
    // The lists in the fixed-pitch font put nine signs in 1.5 cm at 10 points: a narrower face
    // keeps their columns apart.
    if (fisso)
        f.setStretch(76);
    f.setPixelSize(std::max(1, qRound(carattere.dimensione * 20)));
    f.setBold(carattere.grassetto);
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

void DispositivoPittore::testo(QPointF posizione, const QString &testo, const Carattere &carattere,
                               const QColor &colore) {
    voltaPagina();
    const QFont f = font(carattere);
    m_pittore.setFont(f);
    m_pittore.setPen(colore);
    // The point is the top left of the text; QPainter places the baseline.
    m_pittore.drawText(posizione + QPointF(0, QFontMetricsF(f).ascent()), testo);
}

void DispositivoPittore::testoInRettangolo(const QRectF &rettangolo, const QString &testo,
                                           const Carattere &carattere, const QColor &colore,
                                           Qt::Alignment allineamento, bool aCapo) {
    voltaPagina();
    m_pittore.save();
    m_pittore.setClipRect(rettangolo, Qt::IntersectClip);
    m_pittore.setFont(font(carattere));
    m_pittore.setPen(colore);
    m_pittore.drawText(rettangolo, int(allineamento) | (aCapo ? Qt::TextWordWrap : 0), testo);
    m_pittore.restore();
}

void DispositivoPittore::linea(QPointF da, QPointF a, const QColor &colore) {
    voltaPagina();
    m_pittore.setPen(penna(colore));
    m_pittore.drawLine(da, a);
}

void DispositivoPittore::rettangolo(const QRectF &r, const QColor &bordo,
                                    const QColor &riempimento) {
    voltaPagina();
    m_pittore.setPen(bordo.isValid() ? penna(bordo) : QPen(Qt::NoPen));
    m_pittore.setBrush(riempimento.isValid() ? QBrush(riempimento) : QBrush(Qt::NoBrush));
    m_pittore.drawRect(r.normalized());
    m_pittore.setBrush(Qt::NoBrush);
}

QPen DispositivoPittore::penna(const QColor &colore) const {
    // In dots of the device whatever the scale of the page: 0 and 1 are both the thinnest line.
    QPen p(colore, m_spessore);
    p.setCosmetic(true);
    return p;
}

void DispositivoPittore::spessorePenna(int punti) {
    m_spessore = std::max(0, punti);
}

void DispositivoPittore::cerchio(QPointF centro, qreal raggio, const QColor &bordo,
                                 const QColor &riempimento) {
    voltaPagina();
    m_pittore.setPen(bordo.isValid() ? penna(bordo) : QPen(Qt::NoPen));
    m_pittore.setBrush(riempimento.isValid() ? QBrush(riempimento) : QBrush(Qt::NoBrush));
    m_pittore.drawEllipse(centro, raggio, raggio);
    m_pittore.setBrush(Qt::NoBrush);
}

void DispositivoPittore::immagine(const QRectF &rettangolo, const QString &file) {
    voltaPagina();
    const QImage figura(file);
    if (!figura.isNull())
        m_pittore.drawImage(rettangolo, figura);
}

void DispositivoPittore::nuovaPagina() {
    m_paginaDaAprire = true;
}

void DispositivoPittore::voltaPagina() {
    // The sheet is fed only when something goes on it: a document that turns its last page and
    // ends there leaves no empty sheet.
    if (!m_paginaDaAprire)
        return;
    m_paginaDaAprire = false;
    if (m_nuovaPagina)
        m_nuovaPagina();
}

void DispositivoPittore::fineDocumento() {}
