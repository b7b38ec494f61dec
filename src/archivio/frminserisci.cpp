#include "archivio/frminserisci.h"

#include "archivio/scritturearchivio.h"
#include "core/colonna.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QDate>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString annoCorrente() {
    return QString::number(QDate::currentDate().year());
}

QLabel *valore(const QString &nome, QWidget *genitore) {
    auto *l = new QLabel(genitore);
    l->setObjectName(nome);
    MdiStile::grassetto(l);
    return l;
}

} // namespace

FrmInserisci::FrmInserisci(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmInserisci"_s);
    setWindowTitle(QString::fromUtf8(Titolo));

    QFont mono(u"Liberation Mono"_s);
    mono.setStyleHint(QFont::Monospace);

    auto *ultima = new QGroupBox(u"Ultima colonna vincente inserita"_s, this);
    m_lblStagione = valore(u"lblStagione"_s, ultima);
    m_lblConcorso = valore(u"lblConcorso"_s, ultima);
    m_lblCV = valore(u"lblCV"_s, ultima);
    m_lblCV->setFont(mono);
    MdiStile::titolo(m_lblCV, 1.3);
    auto *lu = new QGridLayout(ultima);
    lu->addWidget(new QLabel(u"Stagione"_s, ultima), 0, 0);
    lu->addWidget(m_lblStagione, 0, 1);
    lu->addWidget(new QLabel(u"Concorso"_s, ultima), 0, 2);
    lu->addWidget(m_lblConcorso, 0, 3);
    lu->addWidget(m_lblCV, 1, 0, 1, 4, Qt::AlignCenter);
    lu->setColumnStretch(1, 1);
    lu->setColumnStretch(3, 1);

    m_txtStagione = new QLineEdit(this);
    m_txtStagione->setObjectName(u"txtStagione"_s);
    m_txtConcorso = new QLineEdit(this);
    m_txtConcorso->setObjectName(u"txtConcorso"_s);
    for (QLineEdit *t : {m_txtStagione, m_txtConcorso})
        t->setFixedWidth(70);
    m_txtColonna = new QLineEdit(this);
    m_txtColonna->setObjectName(u"txtColonna"_s);
    m_txtColonna->setFont(mono);
    m_txtColonna->setMinimumWidth(190);

    auto *imgDownload = new QPushButton(this);
    imgDownload->setObjectName(u"imgDownload"_s);
    imgDownload->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    imgDownload->setToolTip(u"Preleva ultima colonna vincente da Internet,   se disponibile."_s);
    connect(imgDownload, &QPushButton::clicked, this, &FrmInserisci::scaricaUltima);

    auto *esempio = new QLabel(u"Es.: 1121X22122112X"_s, this);
    esempio->setObjectName(u"lblEsempio"_s);
    esempio->setStyleSheet(u"color: #555;"_s);

    auto *campi = new QGridLayout;
    campi->addWidget(new QLabel(u"Stagione"_s, this), 0, 0);
    campi->addWidget(m_txtStagione, 0, 1, Qt::AlignLeft);
    campi->addWidget(new QLabel(u"Concorso"_s, this), 1, 0);
    campi->addWidget(m_txtConcorso, 1, 1, Qt::AlignLeft);
    campi->addWidget(new QLabel(u"Colonna"_s, this), 2, 0);
    campi->addWidget(m_txtColonna, 2, 1);
    campi->addWidget(imgDownload, 2, 2);
    campi->addWidget(esempio, 3, 1);

    auto *cmdInserisci = new QPushButton(u"INSERISCI IN ARCHIVIO"_s, this);
    cmdInserisci->setObjectName(u"cmdInserisci"_s);
    MdiTastiera::pulsantePredefinito(this, cmdInserisci);
    auto *command1 = new QPushButton(u"ANNULLA"_s, this);
    command1->setObjectName(u"Command1"_s);
    connect(cmdInserisci, &QPushButton::clicked, this, &FrmInserisci::inserisci);
    connect(command1, &QPushButton::clicked, this, &QWidget::close);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addWidget(cmdInserisci);
    pulsanti->addWidget(command1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->addWidget(ultima);
    layout->addSpacing(6);
    layout->addLayout(campi);
    layout->addSpacing(6);
    layout->addLayout(pulsanti);

    carica();
    m_txtColonna->setFocus();
}

FrmInserisci::~FrmInserisci() = default;

void FrmInserisci::carica() {
    // Everything shown comes from one copy, the memory, loaded from the master file (the table
    // holds the same rows since the start-up check).
    const RigaArchivio &ultima = m_stato.ColonneArchivio.ultima();
    m_lblCV->setText(Colonna::colonnaRaggruppata(ultima[ArchivioColonne::ColonnaCampo]));
    m_txtStagione->setText(annoCorrente());
    m_lblStagione->setText(ultima[ArchivioColonne::Stagione]);
    m_lblConcorso->setText(ultima[ArchivioColonne::Concorso]);
    // The next contest is proposed, also across the turn of the year.
    m_txtConcorso->setText(
        QString::number(ScrittureArchivio::numero(ultima[ArchivioColonne::Concorso]) + 1));
}

void FrmInserisci::inserisci() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        Dialoghi &dialoghi = m_stato.dialoghi();
        const QString titolo = Dialoghi::titoloApplicazione();
        // Blanks around what was typed would become fields of their own in the archive line.
        for (QLineEdit *casella : {m_txtStagione, m_txtConcorso, m_txtColonna})
            casella->setText(casella->text().trimmed());
        m_txtColonna->setText(m_txtColonna->text().toUpper());
        const QString colonna = m_txtColonna->text();
        if (!ScrittureArchivio::colonnaValida(colonna)) {
            dialoghi.informazione(titolo, u"Inserire una colonna valida per il Totocalcio."_s);
            return;
        }
        if (m_txtStagione->text() != annoCorrente() &&
            !dialoghi.domanda(
                titolo, u"Stai inserendo una data diversa dalla stagione corrente. Procedere?"_s))
            return;
        const QString ultimoConcorso = m_stato.ColonneArchivio.ultima()[ArchivioColonne::Concorso];
        if (ScrittureArchivio::numero(ultimoConcorso) >
                ScrittureArchivio::numero(m_txtConcorso->text()) &&
            !dialoghi.domanda(titolo, u"Stai inserendo un numero di concorso minore di quello "
                                      "dell'ultimo inserito. Procedere?"_s))
            return;
        const QString nota = ScrittureArchivio::inserisci(m_stato, m_txtStagione->text(),
                                                          m_txtConcorso->text(), colonna);
        // This screen closes here too: only the box is left to show.
        riapriDopoModificaArchivio(m_stato, true);
        annunciaModificaArchivio(dialoghi, titolo, u"Inserimento effettuato."_s, nota);
    });
}

void FrmInserisci::scaricaUltima() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        Rete &rete = m_stato.rete();
        Rete::Operazione operazione(rete);
        if (!rete.verificaConnessione()) {
            m_stato.dialoghi().critico(Dialoghi::titoloAggiornamenti(),
                                       u"Nessuna connessione Internet attiva."_s);
            return;
        }
        // The page comes padded: the check of the insertion must see the 14 signs alone. A
        // cancelled download leaves what the user typed.
        const Rete::Pagina pagina = rete.scarica(u"/vespara/UltimaCV.html"_s);
        if (pagina.esito != Rete::Esito::Annullata)
            m_txtColonna->setText(pagina.testo.trimmed());
    });
}
