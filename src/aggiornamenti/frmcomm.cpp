#include "aggiornamenti/frmcomm.h"

#include "core/mdistile.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const char16_t *const NomiEtichette[Messaggi::NumeroCampi] = {
    u"lblData", u"lblTitolo", u"lblRiga1", u"lblRiga2", u"lblRiga3", u"lblRiga4", u"lblStaff"};

bool eLink(const QString &testo) {
    return testo.contains(u"www"_s);
}

// A caption such as "www.sito.it/pagina" has no scheme: the browser needs one.
QUrl indirizzoDi(const QString &testo) {
    const QString t = testo.trimmed();
    return QUrl(t.contains(u"://"_s) ? t : u"http://"_s + t);
}

} // namespace

FrmComm::FrmComm(StatoProgramma &stato, RegistroSchermi &pannello, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_pannello(pannello) {
    setObjectName(u"frmComm"_s);
    setWindowTitle(QString::fromUtf16(Titolo));

    auto *foglio = new QFrame(this);
    foglio->setObjectName(u"picMessaggio"_s);
    foglio->setFrameShape(QFrame::StyledPanel);
    foglio->setStyleSheet(u"#picMessaggio { background: #fffdf4; border: 1px solid #c9b98a; }"
                          "#picMessaggio QLabel { background: transparent; }"_s);
    for (int c = 0; c < Messaggi::NumeroCampi; ++c) {
        auto *l = new QLabel(foglio);
        l->setObjectName(QString::fromUtf16(NomiEtichette[c]));
        l->setTextFormat(Qt::PlainText);
        l->setWordWrap(true);
        m_etichette[c] = l;
    }
    m_etichette[Messaggi::Data]->setAlignment(Qt::AlignRight);
    m_etichette[Messaggi::Data]->setStyleSheet(u"color: #555;"_s);
    MdiStile::titolo(m_etichette[Messaggi::Titolo], 1.3);
    m_etichette[Messaggi::Staff]->setAlignment(Qt::AlignRight);
    QFont firma = m_etichette[Messaggi::Staff]->font();
    firma.setItalic(true);
    m_etichette[Messaggi::Staff]->setFont(firma);
    for (int c = Messaggi::Riga1; c <= Messaggi::Riga4; ++c)
        m_etichette[c]->installEventFilter(this);

    // The link page is read and kept; nothing of it is shown.
    m_lblLink = new QLabel(foglio);
    m_lblLink->setObjectName(u"lblLink"_s);

    m_imgNew = new QLabel(u"NUOVO"_s, foglio);
    m_imgNew->setObjectName(u"imgNew"_s);
    m_imgNew->setStyleSheet(u"background: #c62828; color: white; padding: 2px 6px;"
                            "border-radius: 3px; font-weight: bold;"_s);
    m_imgNew->hide();

    auto *testata = new QHBoxLayout;
    testata->addWidget(m_imgNew);
    testata->addStretch();
    testata->addWidget(m_etichette[Messaggi::Data]);
    auto *lf = new QVBoxLayout(foglio);
    lf->setContentsMargins(16, 12, 16, 12);
    lf->addLayout(testata);
    lf->addWidget(m_etichette[Messaggi::Titolo]);
    lf->addSpacing(6);
    for (int c = Messaggi::Riga1; c <= Messaggi::Riga4; ++c)
        lf->addWidget(m_etichette[c]);
    lf->addStretch();
    lf->addWidget(m_etichette[Messaggi::Staff]);
    lf->addWidget(m_lblLink);

    m_picNoConnessione = new QFrame(this);
    m_picNoConnessione->setObjectName(u"picNoConnessione"_s);
    m_picNoConnessione->setStyleSheet(u"#picNoConnessione { background: #fdecea; }"_s);
    auto *fallita = new QLabel(u"Connessione fallita!"_s, m_picNoConnessione);
    fallita->setObjectName(u"lblNoConnessione"_s);
    fallita->setStyleSheet(u"color: #c62828;"_s);
    MdiStile::grassetto(fallita);
    auto *lnc = new QHBoxLayout(m_picNoConnessione);
    lnc->addWidget(fallita, 0, Qt::AlignCenter);
    m_picNoConnessione->hide();

    m_cmdIndietro = new QPushButton(u"◄"_s, this);
    m_cmdIndietro->setObjectName(u"cmdIndietro"_s);
    m_cmdAvanti = new QPushButton(u"►"_s, this);
    m_cmdAvanti->setObjectName(u"cmdAvanti"_s);
    for (QPushButton *b : {m_cmdIndietro, m_cmdAvanti}) {
        b->setFixedWidth(40);
        b->hide();
    }
    auto *cmdApri = new QPushButton(u"Apri Archivio Comunicazioni"_s, this);
    cmdApri->setObjectName(u"cmdApri"_s);
    // Always at hand, so a screen opened without a connection can ask again.
    auto *cmdRiprova = new QPushButton(u"Riprova"_s, this);
    cmdRiprova->setObjectName(u"cmdRiprova"_s);
    auto *cmdEsci = new QPushButton(u"Esci"_s, this);
    cmdEsci->setObjectName(u"cmdEsci"_s);

    const auto protetto = [this](void (FrmComm::*azione)()) {
        return [this, azione] { eseguiProtetto(m_stato.dialoghi(), [&] { (this->*azione)(); }); };
    };
    connect(m_cmdIndietro, &QPushButton::clicked, this, protetto(&FrmComm::indietro));
    connect(m_cmdAvanti, &QPushButton::clicked, this, protetto(&FrmComm::avanti));
    connect(cmdApri, &QPushButton::clicked, this, protetto(&FrmComm::apriArchivio));
    connect(cmdRiprova, &QPushButton::clicked, this, protetto(&FrmComm::riprova));
    connect(cmdEsci, &QPushButton::clicked, this, &QWidget::close);

    auto *pulsanti = new QHBoxLayout;
    pulsanti->addWidget(m_cmdIndietro);
    pulsanti->addWidget(cmdApri);
    pulsanti->addWidget(m_cmdAvanti);
    pulsanti->addStretch();
    pulsanti->addWidget(cmdRiprova);
    pulsanti->addWidget(cmdEsci);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->addWidget(foglio, 1);
    layout->addWidget(m_picNoConnessione);
    layout->addLayout(pulsanti);
    resize(560, 360);
}

FrmComm::~FrmComm() = default;

void FrmComm::carica() {
    Rete &rete = m_stato.rete();
    Rete::Operazione operazione(rete);
    // Everything is read before anything changes, so a fault leaves frame and files alone.
    const Messaggi::Novita novita = Messaggi::controlla(rete, m_stato.PercorsoDati, false);
    QString link;
    ArchivioComunicazioni archivio;
    archivio.riempi(Messaggi::scaricaPagine(rete, &link));
    // Cancelled while loading: no screen, and new.dat as it was.
    if (rete.interrotta())
        throw ErroreEsecuzione::interruzione();

    m_nuovo = novita.nuovo;
    m_remoto = novita.remoto;
    m_imgNew->setVisible(m_nuovo);
    if (QPushButton *img = m_pannello.imgComm())
        img->setToolTip(u"Non ci sono nuovi messaggi."_s);
    applica(std::move(archivio), link);
}

void FrmComm::applica(ArchivioComunicazioni archivio, const QString &link) {
    // The file holds the site's number plus 2: the indicator comes back only for a number
    // beyond that.
    if (m_nuovo)
        Messaggi::scriviNumeroVisto(m_stato.PercorsoDati, m_remoto + 2);
    m_archivio = std::move(archivio);
    m_link = link;
    mostraCorrente();
    if (m_nuovo)
        m_pannello.fermaIndicatore();
}

void FrmComm::mostraCorrente() {
    for (QLabel *l : m_etichette)
        l->clear();
    if (m_archivio.ComunicazioneCorrente() < 1)
        return;
    const ArchivioComunicazioni::Comunicazione &r = m_archivio.corrente();
    for (int c = 0; c < Messaggi::NumeroCampi; ++c) {
        m_etichette[c]->setText(r[c]);
        // A line with an address is a link: the hand says so.
        if (c >= Messaggi::Riga1 && c <= Messaggi::Riga4) {
            if (eLink(r[c]))
                m_etichette[c]->setCursor(Qt::PointingHandCursor);
            else
                m_etichette[c]->unsetCursor();
        }
    }
}

void FrmComm::riprova() {
    Rete::Operazione operazione(m_stato.rete());
    if (!m_stato.rete().verificaConnessione()) {
        m_stato.dialoghi().informazione(
            Dialoghi::titoloAggiornamenti(),
            u"ATTENZIONE. Non sei connesso ad Internet! Impossibile ricevere comunicazioni."_s);
        m_picNoConnessione->show();
        return;
    }
    QString link;
    ArchivioComunicazioni archivio;
    archivio.riempi(Messaggi::scaricaPagine(m_stato.rete(), &link));
    if (m_stato.rete().interrotta())
        throw ErroreEsecuzione::interruzione();
    m_picNoConnessione->hide();
    applica(std::move(archivio), link);
}

void FrmComm::apriArchivio() {
    if (m_archivio.NumeroComunicazioni() <= 1)
        return;
    m_stato.dialoghi().informazione(
        Dialoghi::titoloAggiornamenti(),
        u"Utilizza i pulsanti in basso per visionare l'Archivio delle Comunicazione."_s);
    m_cmdIndietro->show();
    m_cmdAvanti->show();
}

void FrmComm::avanti() {
    if (!m_archivio.avanti()) {
        m_stato.dialoghi().informazione(Dialoghi::titoloAggiornamenti(),
                                        u"Non ci sono ulteriori comunicazioni."_s);
        return;
    }
    mostraCorrente();
}

void FrmComm::indietro() {
    if (!m_archivio.indietro()) {
        m_stato.dialoghi().informazione(Dialoghi::titoloAggiornamenti(),
                                        u"Non ci sono ulteriori comunicazioni."_s);
        return;
    }
    mostraCorrente();
}

void FrmComm::apriRiga(QLabel *riga) {
    const QString testo = riga->text();
    if (!eLink(testo))
        return;
    if (!m_stato.rete().verificaConnessione()) {
        m_stato.dialoghi().informazione(
            Dialoghi::titoloAggiornamenti(),
            u"ATTENZIONE. Non sei connesso ad Internet! Impossibile accedere alla pagina."_s);
        return;
    }
    m_stato.dialoghi().apriConDesktop(indirizzoDi(testo));
}

bool FrmComm::eventFilter(QObject *oggetto, QEvent *evento) {
    if (evento->type() == QEvent::MouseButtonRelease) {
        auto *riga = qobject_cast<QLabel *>(oggetto);
        const auto *mouse = static_cast<QMouseEvent *>(evento);
        if (riga && mouse->button() == Qt::LeftButton &&
            riga->rect().contains(mouse->position().toPoint())) {
            eseguiProtetto(m_stato.dialoghi(), [&] { apriRiga(riga); });
            return true;
        }
    }
    return QWidget::eventFilter(oggetto, evento);
}
