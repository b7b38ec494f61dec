#include "cornice/mdiscorrimento.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>

using namespace Qt::StringLiterals;

MdiScorrimento::MdiScorrimento(QWidget *schermo)
    : m_schermo(schermo) {
    setObjectName(u"scorrimento"_s);
    setFrameShape(QFrame::NoFrame);
    // The focus goes to the screen's controls, never to the scroll area around them.
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(schermo);
    setWindowTitle(schermo->windowTitle());
    setWindowIcon(schermo->windowIcon());
    schermo->installEventFilter(this);
    // The back colour of the screen fills what it leaves free in a larger window.
    setBackgroundRole(schermo->backgroundRole());
    m_minimo = minimoSchermo();
}

QSize MdiScorrimento::minimoSchermo() const {
    return m_schermo->minimumSizeHint().expandedTo(m_schermo->minimumSize());
}

void MdiScorrimento::seguiSchermo() {
    if (!m_schermo)
        return;
    const QSize minimo = minimoSchermo();
    const QSize crescita = (minimo - m_minimo).expandedTo(QSize(0, 0));
    m_minimo = minimo;
    auto *s = qobject_cast<QMdiSubWindow *>(parentWidget());
    if (crescita == QSize(0, 0) || !s || !s->mdiArea() || s->isMaximized() || s->isMinimized())
        return;
    // Only what the screen no longer finds room for: a window the user made larger stays.
    const QSize manca = (minimo - viewport()->size()).expandedTo(QSize(0, 0)).boundedTo(crescita);
    if (manca == QSize(0, 0))
        return;
    const QRect area = s->mdiArea()->viewport()->rect();
    QRect dove(s->pos(), (s->size() + manca).boundedTo(area.size()));
    dove.moveRight(std::min(dove.right(), area.right()));
    dove.moveBottom(std::min(dove.bottom(), area.bottom()));
    s->setGeometry(dove);
}

QWidget *MdiScorrimento::schermoDi(const QMdiSubWindow *s) {
    if (!s)
        return nullptr;
    if (auto *c = qobject_cast<MdiScorrimento *>(s->widget()))
        return c->schermo();
    return s->widget();
}

QSize MdiScorrimento::sizeHint() const {
    // The screen's own size, unbounded: the frame fits the sub-window to its area.
    if (!m_schermo)
        return QScrollArea::sizeHint();
    const QMargins m = contentsMargins();
    return m_schermo->sizeHint().expandedTo(m_schermo->minimumSizeHint()) +
           QSize(m.left() + m.right(), m.top() + m.bottom());
}

QSize MdiScorrimento::minimumSizeHint() const {
    // As small as a sub-window may be: the scroll bars take over.
    const int h = fontMetrics().height();
    return QSize(8 * h, 4 * h).boundedTo(sizeHint());
}

void MdiScorrimento::closeEvent(QCloseEvent *e) {
    // The screen decides: it may keep itself open (a question answered no).
    if (m_schermo && !m_schermo->close())
        e->ignore();
    else
        e->accept();
}

bool MdiScorrimento::eventFilter(QObject *oggetto, QEvent *e) {
    if (oggetto == m_schermo) {
        if (e->type() == QEvent::WindowTitleChange)
            setWindowTitle(m_schermo->windowTitle());
        else if (e->type() == QEvent::WindowIconChange)
            setWindowIcon(m_schermo->windowIcon());
        else if (e->type() == QEvent::LayoutRequest)
            // After the screen's layout has taken the change in.
            QMetaObject::invokeMethod(this, &MdiScorrimento::seguiSchermo, Qt::QueuedConnection);
    }
    return QScrollArea::eventFilter(oggetto, e);
}
