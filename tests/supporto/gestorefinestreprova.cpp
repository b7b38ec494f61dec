#include "supporto/gestorefinestreprova.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

GestoreFinestreProva::GestoreFinestreProva(QWidget *cornice)
    : m_cornice(cornice) {
    qApp->installEventFilter(this);
}

GestoreFinestreProva::~GestoreFinestreProva() {
    qApp->removeEventFilter(this);
}

bool GestoreFinestreProva::tornaAlProgramma() {
    if (!m_cornice)
        return false;
    // Another application takes the focus: here a window that stands for it, since the offscreen
    // platform has no other applications. It takes the focus for real, so that the frame's
    // activation afterwards is a real one too.
    QWidget altra;
    altra.setWindowTitle(u"Altra applicazione"_s);
    altra.resize(200, 100);
    m_altraApplicazione = &altra;
    altra.show();
    altra.activateWindow();
    const bool uscito = QTest::qWaitForWindowActive(&altra);
    // What the window system says of a program none of whose windows has the focus.
    emit qApp->focusWindowChanged(nullptr);
    m_cornice->activateWindow();
    const bool tornato = QTest::qWaitForWindowActive(m_cornice);
    altra.hide();
    m_altraApplicazione = nullptr;
    return uscito && tornato;
}

bool GestoreFinestreProva::eventFilter(QObject *oggetto, QEvent *evento) {
    if (evento->type() != QEvent::Hide || !m_cornice)
        return false;
    auto *w = qobject_cast<QWidget *>(oggetto);
    if (!w || !w->isWindow() || w == m_cornice || w == m_altraApplicazione)
        return false;
    const QWindow *finestra = w->windowHandle();
    if (!finestra || finestra != QGuiApplication::focusWindow())
        return false;
    // As a window manager does, once the window is gone from the screen.
    QTimer::singleShot(0, m_cornice, [this] {
        if (m_cornice && m_cornice->isVisible()) {
            ++m_restituzioni;
            m_cornice->activateWindow();
        }
    });
    return false;
}
