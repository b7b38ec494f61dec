#include "piattaforma/dispositivodisegno.h"

#include "piattaforma/dispositivopittore.h"

#include <QFontMetricsF>

qreal DispositivoDisegno::larghezzaTesto(const QString &testo, const Carattere &carattere) const {
    return QFontMetricsF(DispositivoPittore::font(carattere)).horizontalAdvance(testo);
}

qreal DispositivoDisegno::altezzaTesto(const Carattere &carattere) const {
    return QFontMetricsF(DispositivoPittore::font(carattere)).height();
}

void DispositivoDisegno::cerchiConcentrici(QPointF centro, std::span<const qreal> raggi,
                                           const QColor &bordo) {
    for (const qreal r : raggi)
        cerchio(centro, r, bordo, QColor());
}
