#include "piattaforma/dispositivopittore.h"

#include <algorithm>
#include <cmath>

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

DispositivoPittore::DispositivoPittore(QPainter &pittore, qreal scalaX, qreal scalaY, QSizeF pagina,
                                       std::function<void()> nuovaPagina)
    : m_pittore(pittore)
    , m_scalaX(scalaX)
    , m_scalaY(scalaY)
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

void DispositivoPittore::cerchiConcentrici(QPointF centro, std::span<const qreal> raggi,
                                           const QColor &bordo) {
    // A pen in twips is round only when both axes have the same scale.
    if (m_scalaX != m_scalaY || m_scalaX <= 0 || raggi.empty() || !bordo.isValid()) {
        DispositivoDisegno::cerchiConcentrici(centro, raggi, bordo);
        return;
    }
    voltaPagina();
    // The circles are drawn once, with this pen, into a picture finer than the device, and the
    // picture is set at each centre: a printer's file holds it once and places it, instead of
    // thousands of paths (a run of 125 slips draws 114 000 circles).
    const qreal spessore = std::max(1, m_spessore) / m_scalaX;
    const qreal puntiPerTwip = std::max(m_scalaX, TimbroPuntiPerPollice / TwipsPerPollice);
    const std::vector<qreal> chiave(raggi.begin(), raggi.end());
    if (m_timbro.isNull() || chiave != m_raggi || spessore != m_spessoreTimbro ||
        bordo != m_coloreTimbro || puntiPerTwip != m_puntiTimbro) {
        m_raggi = chiave;
        m_spessoreTimbro = spessore;
        m_coloreTimbro = bordo;
        m_puntiTimbro = puntiPerTwip;
        m_mezzoTimbro = *std::max_element(chiave.begin(), chiave.end()) + spessore / 2 + 1;
        const int lato = int(std::ceil(2 * m_mezzoTimbro * puntiPerTwip));
        m_timbro = QImage(lato, lato, QImage::Format_ARGB32_Premultiplied);
        m_timbro.fill(Qt::transparent);
        QPainter p(&m_timbro);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(lato / (2 * m_mezzoTimbro), lato / (2 * m_mezzoTimbro));
        p.translate(m_mezzoTimbro, m_mezzoTimbro);
        p.setPen(QPen(bordo, spessore));
        p.setBrush(Qt::NoBrush);
        for (const qreal r : chiave)
            p.drawEllipse(QPointF(), r, r);
    }
    const QPointF mezzo(m_mezzoTimbro, m_mezzoTimbro);
    m_pittore.drawImage(QRectF(centro - mezzo, centro + mezzo), m_timbro);
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
