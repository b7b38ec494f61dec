#include "core/mdistile.h"

#include <QMdiSubWindow>
#include <QWidget>

void MdiStile::grassetto(QWidget *widget, double scala) {
    QFont f = widget->font();
    f.setBold(true);
    if (scala != 1.0)
        f.setPointSizeF(f.pointSizeF() * scala);
    widget->setFont(f);
}

void MdiStile::titolo(QWidget *widget, double scala) {
    grassetto(widget, scala);
    widget->setStyleSheet(QStringLiteral("color: #1d3f72;"));
}

QWidget *MdiStile::finestraDi(QWidget *schermo) {
    for (QWidget *w = schermo; w; w = w->parentWidget()) {
        if (auto *s = qobject_cast<QMdiSubWindow *>(w))
            return s;
        if (w->isWindow())
            return w;
    }
    return schermo;
}
