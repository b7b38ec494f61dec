#include "piattaforma/dispositivoregistratore.h"

void DispositivoRegistratore::testo(QPointF posizione, const QString &testo,
                                    const Carattere &carattere, const QColor &colore) {
    chiamate.append(
        {Operazione::Testo, QRectF(posizione, QSizeF()), testo, carattere, colore, {}, {}});
}

void DispositivoRegistratore::testoInRettangolo(const QRectF &rettangolo, const QString &testo,
                                                const Carattere &carattere, const QColor &colore,
                                                Qt::Alignment allineamento, bool) {
    chiamate.append(
        {Operazione::TestoInRettangolo, rettangolo, testo, carattere, colore, {}, allineamento});
}

void DispositivoRegistratore::linea(QPointF da, QPointF a, const QColor &colore) {
    chiamate.append({Operazione::Linea, QRectF(da, a), {}, {}, colore, {}, {}});
}

void DispositivoRegistratore::rettangolo(const QRectF &rettangolo, const QColor &bordo,
                                         const QColor &riempimento) {
    chiamate.append({Operazione::Rettangolo, rettangolo, {}, {}, bordo, riempimento, {}});
}

void DispositivoRegistratore::cerchio(QPointF centro, qreal raggio, const QColor &bordo,
                                      const QColor &riempimento) {
    chiamate.append({Operazione::Cerchio,
                     QRectF(centro, QSizeF(raggio, raggio)),
                     {},
                     {},
                     bordo,
                     riempimento,
                     {}});
}

void DispositivoRegistratore::immagine(const QRectF &rettangolo, const QString &file) {
    chiamate.append({Operazione::Immagine, rettangolo, file, {}, {}, {}, {}});
}

void DispositivoRegistratore::nuovaPagina() {
    chiamate.append({Operazione::NuovaPagina, {}, {}, {}, {}, {}, {}});
}

void DispositivoRegistratore::fineDocumento() {
    chiamate.append({Operazione::FineDocumento, {}, {}, {}, {}, {}, {}});
}

QStringList DispositivoRegistratore::testi() const {
    QStringList t;
    for (const Chiamata &c : chiamate)
        if (c.operazione == Operazione::Testo || c.operazione == Operazione::TestoInRettangolo)
            t.append(c.testo);
    return t;
}

int DispositivoRegistratore::conta(Operazione operazione) const {
    return int(std::count_if(chiamate.cbegin(), chiamate.cend(), [operazione](const Chiamata &c) {
        return c.operazione == operazione;
    }));
}

void DispositivoRegistratore::spessorePenna(int punti) {
    // The width stands in the rectangle's width.
    chiamate.append({Operazione::SpessorePenna, QRectF(0, 0, punti, 0), {}, {}, {}, {}, {}});
}
