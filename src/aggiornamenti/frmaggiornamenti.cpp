#include "aggiornamenti/frmaggiornamenti.h"

#include "aggiornamenti/versione.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmAggiornamenti::FrmAggiornamenti(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , terminaProgramma([] { QCoreApplication::quit(); })
    , m_stato(stato) {
    setObjectName(u"frmAggiornamenti"_s);
    setWindowTitle(QString::fromUtf16(Titolo));

    auto *titolo = new QLabel(u"E' disponibile un nuovo aggiornamento"_s, this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.3);
    m_lblVersione = new QLabel(u"Ver. "_s, this);
    m_lblVersione->setObjectName(u"lblVersione"_s);
    MdiStile::grassetto(m_lblVersione, 1.1);
    m_chkMostra = new QCheckBox(u"Avvisa sempre, quando ci sono aggiornamenti"_s, this);
    m_chkMostra->setObjectName(u"chkMostra"_s);
    m_chkMostra->setChecked(
        m_stato.impostazioni().valore(Impostazioni::MostraAggiornamenti).toBool());
    // The setting is an integer, as the check box's value.
    connect(m_chkMostra, &QCheckBox::clicked, this, [this](bool attiva) {
        m_stato.impostazioni().imposta(Impostazioni::MostraAggiornamenti, attiva ? 1 : 0);
    });

    auto *command1 = new QPushButton(u"Scarica"_s, this);
    command1->setObjectName(u"Command1"_s);
    MdiTastiera::pulsantePredefinito(this, command1);
    auto *command2 = new QPushButton(u"Annulla"_s, this);
    command2->setObjectName(u"Command2"_s);
    connect(command1, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { scarica(); }); });
    connect(command2, &QPushButton::clicked, this, &QWidget::close);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(command1);
    pulsanti->addWidget(command2);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 12);
    layout->addWidget(titolo, 0, Qt::AlignHCenter);
    layout->addWidget(m_lblVersione, 0, Qt::AlignHCenter);
    layout->addSpacing(8);
    layout->addWidget(m_chkMostra);
    layout->addSpacing(8);
    layout->addLayout(pulsanti);
}

FrmAggiornamenti::~FrmAggiornamenti() = default;

void FrmAggiornamenti::impostaVersione(const QString &versione) {
    m_lblVersione->setText(u"Ver. "_s + versione);
}

void FrmAggiornamenti::scarica() {
    m_stato.dialoghi().apriConDesktop(
        m_stato.rete().url(QString::fromUtf16(Versione::Installatore)));
    if (terminaProgramma)
        terminaProgramma();
}
