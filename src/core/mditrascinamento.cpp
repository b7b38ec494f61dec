#include "core/mditrascinamento.h"

#include "core/mdistile.h"

#include <QMouseEvent>
#include <QWidget>

MdiTrascinamento::MdiTrascinamento(QWidget *schermo)
    : QObject(schermo)
    , m_schermo(schermo) {}

MdiTrascinamento *MdiTrascinamento::installa(QWidget *schermo, const QList<QWidget *> &prese) {
    auto *t = new MdiTrascinamento(schermo);
    schermo->installEventFilter(t);
    for (QWidget *w : prese)
        w->installEventFilter(t);
    return t;
}

bool MdiTrascinamento::eventFilter(QObject *oggetto, QEvent *evento) {
    switch (evento->type()) {
    case QEvent::MouseButtonPress: {
        auto *e = static_cast<QMouseEvent *>(evento);
        if (e->button() == Qt::LeftButton) {
            m_trascina = true;
            m_presa = e->globalPosition().toPoint() - MdiStile::finestraDi(m_schermo)->pos();
        }
        break;
    }
    case QEvent::MouseMove: {
        auto *e = static_cast<QMouseEvent *>(evento);
        if (m_trascina && (e->buttons() & Qt::LeftButton)) {
            QWidget *finestra = MdiStile::finestraDi(m_schermo);
            finestra->move(e->globalPosition().toPoint() - m_presa);
            emit spostata(finestra->pos());
        }
        break;
    }
    case QEvent::MouseButtonRelease:
        m_trascina = false;
        break;
    default:
        break;
    }
    return QObject::eventFilter(oggetto, evento);
}
