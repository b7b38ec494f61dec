#include "aggiornamenti/frminviamessaggio.h"

#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmInviaMessaggio::FrmInviaMessaggio(StatoProgramma &stato, QWidget *genitore)
    : QDialog(genitore)
    , m_stato(stato) {
    setObjectName(u"frmInviaMessaggio"_s);
    setWindowTitle(QString::fromUtf16(Titolo));
    setModal(true);

    auto *intestazione = new QLabel(
        u"Scrivi allo Staff di Vespara: ti risponderemo all'indirizzo indicato."_s, this);
    intestazione->setObjectName(u"lblIntestazione"_s);
    intestazione->setWordWrap(true);

    m_lblCodice = new QLabel(u"--"_s, this);
    m_lblCodice->setObjectName(u"lblCodice"_s);
    MdiStile::grassetto(m_lblCodice);
    m_txtNome = new QLineEdit(this);
    m_txtNome->setObjectName(u"txtNome"_s);
    m_txtMail = new QLineEdit(this);
    m_txtMail->setObjectName(u"txtMail"_s);
    m_txtMessaggio = new QLineEdit(this);
    m_txtMessaggio->setObjectName(u"txtMessaggio"_s);
    m_txtMessaggio->setMinimumWidth(360);

    auto *campi = new QGridLayout;
    campi->addWidget(new QLabel(u"Codice Utente"_s, this), 0, 0);
    campi->addWidget(m_lblCodice, 0, 1);
    campi->addWidget(new QLabel(u"Nome"_s, this), 1, 0);
    campi->addWidget(m_txtNome, 1, 1);
    campi->addWidget(new QLabel(u"E-mail"_s, this), 2, 0);
    campi->addWidget(m_txtMail, 2, 1);
    campi->addWidget(new QLabel(u"Messaggio"_s, this), 3, 0);
    campi->addWidget(m_txtMessaggio, 3, 1);
    campi->setColumnStretch(1, 1);

    auto *cmdInvia = new QPushButton(u"Invia"_s, this);
    cmdInvia->setObjectName(u"cmdInvia"_s);
    cmdInvia->setDefault(true);
    auto *cmdAnnulla = new QPushButton(u"Annulla"_s, this);
    cmdAnnulla->setObjectName(u"cmdAnnulla"_s);
    connect(cmdInvia, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { invia(); }); });
    connect(cmdAnnulla, &QPushButton::clicked, this, &QDialog::reject);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(cmdInvia);
    pulsanti->addWidget(cmdAnnulla);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(intestazione);
    layout->addLayout(campi);
    layout->addLayout(pulsanti);
}

FrmInviaMessaggio::~FrmInviaMessaggio() = default;

QString FrmInviaMessaggio::percorsoRichiesta(const QString &codice, const QString &nome,
                                             const QString &mail, const QString &messaggio) {
    QString percorso = u"/invia-messaggio-vp.asp?Codice="_s + codice + u"&Nome="_s + nome +
                       u"&Mail="_s + mail + u"&Messaggio="_s + messaggio;
    // A "#" would end the request there and lose the rest of the message.
    percorso.replace(u'#', u"%23"_s);
    return percorso;
}

void FrmInviaMessaggio::invia() {
    Rete &rete = m_stato.rete();
    // A site that is a folder of this computer (the one installed with the program) has no one
    // to read the message: saying it was sent would mislead the user.
    if (const QUrl radice(rete.radice()); radice.isLocalFile()) {
        m_stato.dialoghi().informazione(
            Dialoghi::titoloAggiornamenti(),
            u"Il sito degli aggiornamenti è una cartella di questo computer (%1): il messaggio non "
            "può essere inviato. Per scrivere allo Staff indicare l'indirizzo del sito web in "
            "Info > Impostazioni…."_s.arg(QDir::toNativeSeparators(radice.toLocalFile())));
        return;
    }
    Rete::Operazione operazione(rete);
    if (!rete.verificaConnessione()) {
        m_stato.dialoghi().informazione(
            Dialoghi::titoloAggiornamenti(),
            u"Errore. Non sei connesso ad Internet! Impossibile inviare il messaggio."_s);
        return;
    }
    // What the site answers is not read.
    rete.scaricaTesto(percorsoRichiesta(m_lblCodice->text(), m_txtNome->text(), m_txtMail->text(),
                                        m_txtMessaggio->text()));
    m_stato.dialoghi().informazione(
        Dialoghi::titoloAggiornamenti(),
        u"Invio effettuato con successo. Lo Staff ti risponderà il più presto possibile."_s);
    accept();
}
