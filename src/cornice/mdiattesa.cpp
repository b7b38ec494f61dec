#include "cornice/mdiattesa.h"

#include "core/frmattendere.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

MdiAttesa::MdiAttesa(Rete &rete, QWidget *cornice)
    : QObject(cornice)
    , m_rete(rete)
    , m_cornice(cornice) {
    m_ritardo.setSingleShot(true);
    m_ritardo.setInterval(RitardoBoxMs);
    connect(&m_ritardo, &QTimer::timeout, this, &MdiAttesa::mostraBox);
    m_rete.setOsservatore(this);
}

MdiAttesa::~MdiAttesa() {
    m_rete.setOsservatore(nullptr);
    if (m_livello > 0)
        qApp->removeEventFilter(this);
    delete m_box;
}

void MdiAttesa::attesaIniziata() {
    if (m_livello++ > 0)
        return;
    qApp->installEventFilter(this);
    if (!m_box)
        m_ritardo.start();
}

void MdiAttesa::attesaFinita() {
    if (--m_livello > 0)
        return;
    qApp->removeEventFilter(this);
    m_ritardo.stop();
    // An operation makes its calls one after the other: the box stays between two of them, and
    // goes once the program is back from the operation.
    QTimer::singleShot(0, this, [this] {
        if (m_livello == 0 && !m_rete.occupata())
            chiudiBox();
    });
}

void MdiAttesa::mostraBox() {
    if (m_box || m_livello == 0)
        return;
    // An operation that shows its own box needs no second one.
    const QWidgetList finestre = QApplication::topLevelWidgets();
    for (QWidget *w : finestre)
        if (qobject_cast<FrmAttendere *>(w) && w->isVisible())
            return;
    m_box = new FrmAttendere(m_cornice);
    m_box->setIntervallo(0, 0);
    m_box->setAnnullamento([this] { m_rete.annulla(); });
    m_box->show();
}

void MdiAttesa::chiudiBox() {
    if (!m_box)
        return;
    m_box->close();
    m_box->deleteLater();
    m_box = nullptr;
}

bool MdiAttesa::eventFilter(QObject *oggetto, QEvent *evento) {
    switch (evento->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        break;
    default:
        return false;
    }
    if (oggetto->isWindowType())
        return false; // handed on to a widget, and judged there
    if (auto *w = qobject_cast<QWidget *>(oggetto); w && qobject_cast<FrmAttendere *>(w->window()))
        return false;
    if (evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Escape)
        m_rete.annulla();
    return true;
}
