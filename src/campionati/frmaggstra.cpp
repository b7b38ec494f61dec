#include "campionati/frmaggstra.h"

#include "core/mdistile.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmAggStra::FrmAggStra(QWidget *cornice)
    : QWidget(cornice, Qt::Tool | Qt::WindowStaysOnTopHint | Qt::FramelessWindowHint)
    , m_lblCont(new QLabel(this)) {
    setObjectName(u"frmAggStra"_s);
    setWindowTitle(u"Campionati Stranieri"_s);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(u"FrmAggStra { background: #eef1f6; border: 2px solid #1d3f72; }"_s);
    auto *titolo = new QLabel(u"Campionati Stranieri"_s, this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.2);
    auto *corso = new QLabel(u"Aggiornamento in corso..."_s, this);
    corso->setObjectName(u"lblCorso"_s);
    m_lblCont->setObjectName(u"lblCont"_s);
    MdiStile::grassetto(m_lblCont);
    m_lblCont->setMinimumWidth(200);
    m_lblCont->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 16);
    layout->addWidget(titolo, 0, Qt::AlignHCenter);
    layout->addWidget(corso, 0, Qt::AlignHCenter);
    layout->addWidget(m_lblCont, 0, Qt::AlignHCenter);
    adjustSize();
    // 1500 twips (100 pixels) above the middle of the screen.
    if (const QScreen *schermo = cornice ? cornice->screen() : QApplication::primaryScreen()) {
        const QRect area = schermo->availableGeometry();
        move(area.center() - QPoint(width() / 2, height() / 2 + 100));
    }
}

void FrmAggStra::setTesto(const QString &testo) {
    m_lblCont->setText(testo);
    m_lblCont->repaint();
    QApplication::processEvents();
}

QString FrmAggStra::testo() const {
    return m_lblCont->text();
}
