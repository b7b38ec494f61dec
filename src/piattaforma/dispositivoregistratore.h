#pragma once

#include "piattaforma/dispositivodisegno.h"

#include <QList>
#include <QStringList>

// The drawing device of the tests: it draws nothing and records every call, in order.
class DispositivoRegistratore : public DispositivoDisegno {
public:
    enum class Operazione {
        Testo,
        TestoInRettangolo,
        Linea,
        Rettangolo,
        Cerchio,
        Immagine,
        SpessorePenna,
        NuovaPagina,
        FineDocumento
    };
    struct Chiamata {
        Operazione operazione;
        QRectF rettangolo; // the point of a text, both ends of a line, the centre and radius
        QString testo;     // the text, or the picture's file
        Carattere carattere;
        QColor colore; // text, line or outline colour
        QColor riempimento;
        Qt::Alignment allineamento;
    };

    explicit DispositivoRegistratore(QSizeF pagina = {11907, 16839.9})
        : m_pagina(pagina) {}

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

    QList<Chiamata> chiamate;
    // The texts drawn, in order.
    QStringList testi() const;
    int conta(Operazione operazione) const;

private:
    QSizeF m_pagina;
};
