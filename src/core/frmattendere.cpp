#include "core/frmattendere.h"
#include "core/mdistile.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmAttendere::FrmAttendere(QWidget *cornice)
    : QDialog(cornice,
              Qt::Dialog | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_cornice(cornice)
    , m_bar(new QProgressBar(this)) {
    setObjectName(u"frmAttendere"_s);
    setWindowTitle(u"ATTENDERE. PREGO."_s);
    auto *testo = new QLabel(u"ATTENDERE. PREGO."_s, this);
    testo->setObjectName(u"lblAttendere"_s);
    testo->setAlignment(Qt::AlignCenter);
    MdiStile::grassetto(testo);
    m_bar->setObjectName(u"bar"_s);
    m_bar->setTextVisible(false);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(testo);
    layout->addWidget(m_bar);
    setFixedSize(320, 90);
}

FrmAttendere::~FrmAttendere() {
    abilitaCornice(true);
}

void FrmAttendere::setIntervallo(int minimo, int massimo) {
    m_bar->setRange(minimo, massimo);
}

void FrmAttendere::setValore(int valore) {
    m_bar->setValue(valore);
}

void FrmAttendere::abilitaCornice(bool abilita) {
    if (m_cornice)
        m_cornice->setEnabled(abilita);
    // The box is the frame's child: keep it usable while the frame is disabled.
    setEnabled(true);
}

void FrmAttendere::showEvent(QShowEvent *e) {
    abilitaCornice(false);
    QDialog::showEvent(e);
    QApplication::processEvents();
}

void FrmAttendere::hideEvent(QHideEvent *e) {
    abilitaCornice(true);
    QDialog::hideEvent(e);
    // The work is done: the frame takes the keyboard back, once this box is gone.
    if (m_cornice)
        QTimer::singleShot(0, m_cornice, [cornice = m_cornice] { cornice->activateWindow(); });
}
