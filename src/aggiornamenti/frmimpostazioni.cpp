#include "aggiornamenti/frmimpostazioni.h"

#include "aggiornamenti/impostazionesito.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *nota(const QString &nome, const QString &testo, QWidget *genitore) {
    auto *l = new QLabel(testo, genitore);
    l->setObjectName(nome);
    l->setWordWrap(true);
    // The addresses in it can be copied; the focus stays with the field and the buttons.
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    l->setFocusPolicy(Qt::NoFocus);
    return l;
}

} // namespace

FrmImpostazioni::FrmImpostazioni(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmImpostazioni"_s);
    setWindowTitle(QString::fromUtf16(Titolo));

    auto *titolo = new QLabel(u"Sito degli aggiornamenti"_s, this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.2);
    auto *spiegazione =
        nota(u"lblSpiegazione"_s,
             u"Da questo sito Vespara scarica archivio, classifiche, schedine, picchetti, quote "
             u"e comunicazioni. L'indirizzo è quello di un sito web (http:// o https://) oppure "
             u"di una cartella di questo computer (file://)."_s,
             this);
    const QString predefinita = Rete::radiceInstallata();
    auto *installato =
        nota(u"lblSitoInstallato"_s,
             (QUrl(predefinita).isLocalFile()
                  ? u"Con il campo vuoto Vespara usa il sito installato con il programma: %1"_s
                  : u"Con il campo vuoto Vespara usa l'indirizzo predefinito: %1"_s)
                 .arg(predefinita),
             this);

    auto *lblSito = new QLabel(u"&Indirizzo:"_s, this);
    lblSito->setObjectName(u"lblSito"_s);
    m_txtSito = new QLineEdit(ImpostazioneSito::memorizzato(m_stato), this);
    m_txtSito->setObjectName(u"txtSito"_s);
    m_txtSito->setMinimumWidth(420);
    m_txtSito->setPlaceholderText(predefinita);
    m_txtSito->setClearButtonEnabled(true);
    lblSito->setBuddy(m_txtSito);
    auto *cmdProvaSito = new QPushButton(u"&Prova"_s, this);
    cmdProvaSito->setObjectName(u"cmdProvaSito"_s);
    cmdProvaSito->setToolTip(u"Prova il collegamento con l'indirizzo scritto, senza salvarlo."_s);
    m_lblEsitoSito = nota(u"lblEsitoSito"_s, QString(), this);
    // The result of a try keeps its room, so that the window does not jump.
    m_lblEsitoSito->setMinimumHeight(2 * m_lblEsitoSito->fontMetrics().lineSpacing());
    m_lblEsitoSito->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto *campi = new QGridLayout;
    campi->addWidget(lblSito, 0, 0);
    campi->addWidget(m_txtSito, 0, 1);
    campi->addWidget(cmdProvaSito, 0, 2);
    campi->addWidget(m_lblEsitoSito, 1, 1, 1, 2);
    campi->setColumnStretch(1, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 12);
    layout->addWidget(titolo);
    layout->addWidget(spiegazione);
    layout->addSpacing(6);
    layout->addLayout(campi);
    layout->addWidget(installato);
    // The environment wins over the field: say so rather than let the user wonder.
    if (const QString variabile = qEnvironmentVariable("VESPARA_SITO"); !variabile.isEmpty())
        layout->addWidget(nota(u"lblVariabileSito"_s,
                               u"Finché la variabile d'ambiente VESPARA_SITO è impostata, "
                               u"Vespara usa il suo indirizzo (%1) e non questo."_s.arg(variabile),
                               this));

    auto *cmdOk = new QPushButton(u"OK"_s, this);
    cmdOk->setObjectName(u"cmdOk"_s);
    MdiTastiera::pulsantePredefinito(this, cmdOk);
    auto *cmdAnnulla = new QPushButton(u"Annulla"_s, this);
    cmdAnnulla->setObjectName(u"cmdAnnulla"_s);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(cmdOk);
    pulsanti->addWidget(cmdAnnulla);
    layout->addSpacing(6);
    layout->addLayout(pulsanti);

    connect(cmdProvaSito, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { prova(); }); });
    connect(cmdOk, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { conferma(); }); });
    connect(cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    // Esc leaves the window as Annulla does, as in any settings window.
    auto *esc = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    esc->setContext(Qt::WidgetWithChildrenShortcut);
    connect(esc, &QShortcut::activated, this, &QWidget::close);

    m_txtSito->setFocus();
}

FrmImpostazioni::~FrmImpostazioni() = default;

void FrmImpostazioni::prova() {
    // An empty field tries the site it stands for.
    const QString scritto = m_txtSito->text().trimmed();
    const QString radice = scritto.isEmpty() ? Rete::radiceInstallata() : scritto;
    if (const QString errore = Rete::erroreRadice(radice); !errore.isEmpty()) {
        m_lblEsitoSito->setText(errore);
        return;
    }
    m_lblEsitoSito->setText(u"Prova in corso…"_s);
    const ImpostazioneSito::Prova esito = ImpostazioneSito::prova(m_stato.rete(), radice);
    m_lblEsitoSito->setText(ImpostazioneSito::esito(esito, radice));
}

void FrmImpostazioni::conferma() {
    if (const QString errore = ImpostazioneSito::memorizza(m_stato, m_txtSito->text());
        !errore.isEmpty()) {
        m_stato.dialoghi().avviso(QString::fromUtf16(Titolo), errore);
        m_txtSito->setFocus();
        m_txtSito->selectAll();
        return;
    }
    m_stato.dialoghi().avvisoStato(u"Sito degli aggiornamenti: %1"_s.arg(m_stato.rete().radice()));
    close();
}
