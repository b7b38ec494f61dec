#include "core/mdistile.h"

#include <QMdiSubWindow>
#include <QPalette>
#include <QPushButton>
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

void MdiStile::senzaCornice(QWidget *schermo) {
    schermo->setWindowFlags(Qt::FramelessWindowHint);
    schermo->setAutoFillBackground(true);
    QPalette tavolozza = schermo->palette();
    tavolozza.setColor(QPalette::Window, QColor(0xee, 0xf1, 0xf6));
    schermo->setPalette(tavolozza);
}

QPushButton *MdiStile::pulsanteEsci(QWidget *schermo) {
    auto *esci = new QPushButton(QStringLiteral("X"), schermo);
    esci->setObjectName(QStringLiteral("lblEsci"));
    esci->setCursor(Qt::PointingHandCursor);
    esci->setToolTip(QStringLiteral("Chiudi"));
    esci->setFixedWidth(28);
    esci->setStyleSheet(QStringLiteral(
        "#lblEsci { font-weight: bold; color: white; background: #b03030; border: none; "
        "padding: 1px 7px; }"
        "#lblEsci:hover { background: #d04040; }"));
    QObject::connect(esci, &QPushButton::clicked, schermo,
                     [schermo] { finestraDi(schermo)->close(); });
    return esci;
}
