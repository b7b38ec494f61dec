#include "aggiornamenti/frmaltrigiochi.h"

#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmAltriGiochi::FrmAltriGiochi(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAltriGiochi"_s);
    setWindowTitle(QString::fromUtf16(Titolo));

    auto *titolo = new QLabel(u"Altri Giochi"_s, this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.4);
    auto *testo = new QLabel(u"Vespara è dedicato al Totocalcio e al \"9\". Sul sito di Vespara "
                             "trovi le novità e i programmi dedicati anche agli altri giochi."_s,
                             this);
    testo->setObjectName(u"lblTesto"_s);
    testo->setWordWrap(true);
    auto *lblSito = new QLabel(u"<a href=\"sito\">Visita il sito di Vespara</a>"_s, this);
    lblSito->setObjectName(u"lblSito"_s);
    lblSito->setTextFormat(Qt::RichText);
    lblSito->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    lblSito->setCursor(Qt::PointingHandCursor);
    MdiStile::grassetto(lblSito, 1.1);
    // The address is the site's root, whatever the link says: the program knows it.
    connect(lblSito, &QLabel::linkActivated, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { apriSito(); }); });

    auto *cmdEsci = new QPushButton(u"Chiudi"_s, this);
    cmdEsci->setObjectName(u"cmdEsci"_s);
    connect(cmdEsci, &QPushButton::clicked, this, &QWidget::close);
    // A page to read: Enter closes it, as the OK of a box.
    MdiTastiera::pulsantePredefinito(this, cmdEsci);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(cmdEsci);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 12);
    layout->addWidget(titolo);
    layout->addWidget(testo);
    layout->addSpacing(10);
    layout->addWidget(lblSito, 0, Qt::AlignHCenter);
    layout->addSpacing(10);
    layout->addLayout(pulsanti);
    setMinimumWidth(420);
}

FrmAltriGiochi::~FrmAltriGiochi() = default;

void FrmAltriGiochi::apriSito() {
    Rete &rete = m_stato.rete();
    Rete::Operazione operazione(rete);
    if (!rete.verificaConnessione()) {
        m_stato.dialoghi().informazione(
            Dialoghi::titoloAggiornamenti(),
            u"ATTENZIONE. Non sei connesso ad Internet! Impossibile accedere al sito."_s);
        return;
    }
    m_stato.dialoghi().apriConDesktop(rete.url(u"/"_s));
}
