#include "core/frmattendere.h"
#include "core/mdistile.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmAttendere::FrmAttendere(QWidget *cornice)
    : QDialog(cornice,
              Qt::Dialog | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_cornice(cornice)
    , m_bar(new QProgressBar(this))
    , m_cmdAnnulla(new QPushButton(u"Annulla"_s, this)) {
    setObjectName(u"frmAttendere"_s);
    setWindowTitle(u"ATTENDERE. PREGO."_s);
    auto *testo = new QLabel(u"ATTENDERE. PREGO."_s, this);
    testo->setObjectName(u"lblAttendere"_s);
    testo->setAlignment(Qt::AlignCenter);
    MdiStile::grassetto(testo);
    m_bar->setObjectName(u"bar"_s);
    m_bar->setTextVisible(false);
    m_cmdAnnulla->setObjectName(u"cmdAnnulla"_s);
    m_cmdAnnulla->setToolTip(u"Interrompe l'operazione: i file non ancora scritti restano come "
                             "erano (Esc)"_s);
    m_cmdAnnulla->setAutoDefault(false);
    m_cmdAnnulla->hide();
    connect(m_cmdAnnulla, &QPushButton::clicked, this, &FrmAttendere::annulla);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(testo);
    layout->addWidget(m_bar);
    layout->addWidget(m_cmdAnnulla, 0, Qt::AlignHCenter);
    setFixedWidth(320);
    setFixedHeight(sizeHint().height());
}

void FrmAttendere::setAnnullamento(std::function<void()> annulla) {
    m_annulla = std::move(annulla);
    m_cmdAnnulla->setVisible(bool(m_annulla));
    m_cmdAnnulla->setEnabled(true);
    setFixedHeight(sizeHint().height());
}

void FrmAttendere::annulla() {
    if (!m_annulla || !m_cmdAnnulla->isEnabled())
        return;
    // Once is enough: the operation stops at its next step.
    m_cmdAnnulla->setEnabled(false);
    m_annulla();
}

void FrmAttendere::keyPressEvent(QKeyEvent *e) {
    if (e->key() == Qt::Key_Escape) {
        annulla();
        return;
    }
    QDialog::keyPressEvent(e);
}

void FrmAttendere::closeEvent(QCloseEvent *e) {
    if (e->spontaneous()) {
        annulla();
        e->ignore();
        return;
    }
    QDialog::closeEvent(e);
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
