#include "archivio/frmgestione.h"

#include "archivio/scritturearchivio.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/guardia.h"
#include "piattaforma/tabellaarchivio.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmGestione::FrmGestione(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmGestione"_s);
    setWindowTitle(QString::fromUtf8(Titolo));

    auto *titolo = new QLabel(u"Gestione dell'Archivio"_s, this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.3);
    auto *suggerimento = new QLabel(u"Modificare i campi per correggere gli  errori"_s, this);
    suggerimento->setObjectName(u"lblSuggerimento"_s);
    suggerimento->setTextFormat(Qt::PlainText);
    auto *lblEsci = MdiStile::pulsanteEsci(this);

    QFont mono(u"Liberation Mono"_s);
    mono.setStyleHint(QFont::Monospace);
    const QStringList nomi{u"txtStagione"_s, u"txtConcorso"_s, u"txtColonna"_s};
    for (int i = 0; i < 3; ++i) {
        m_caselle[i] = new QLineEdit(this);
        m_caselle[i]->setObjectName(nomi.at(i));
    }
    m_caselle[0]->setFixedWidth(70);
    m_caselle[1]->setFixedWidth(70);
    m_caselle[2]->setFont(mono);
    m_caselle[2]->setMinimumWidth(190);

    auto *campi = new QGridLayout;
    campi->addWidget(new QLabel(u"Stagione"_s, this), 0, 0);
    campi->addWidget(m_caselle[0], 0, 1, Qt::AlignLeft);
    campi->addWidget(new QLabel(u"Concorso"_s, this), 1, 0);
    campi->addWidget(m_caselle[1], 1, 1, Qt::AlignLeft);
    campi->addWidget(new QLabel(u"Colonna"_s, this), 2, 0);
    campi->addWidget(m_caselle[2], 2, 1);

    auto *command1 = new QPushButton(u"CONFERMA E ESCI"_s, this);
    command1->setObjectName(u"Command1"_s);
    auto *cmdElimina = new QPushButton(u"ELIMINA COLONNA"_s, this);
    cmdElimina->setObjectName(u"cmdElimina"_s);
    connect(command1, &QPushButton::clicked, this, &FrmGestione::conferma);
    MdiTastiera::pulsantePredefinito(this, command1);
    connect(cmdElimina, &QPushButton::clicked, this, &FrmGestione::elimina);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addWidget(command1);
    pulsanti->addWidget(cmdElimina);

    auto *testa = new QHBoxLayout;
    testa->addWidget(titolo);
    testa->addStretch();
    testa->addWidget(lblEsci, 0, Qt::AlignTop);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 8, 10, 10);
    layout->addLayout(testa);
    layout->addWidget(suggerimento);
    layout->addSpacing(6);
    layout->addLayout(campi);
    layout->addSpacing(6);
    layout->addWidget(creaNavigazione());
    layout->addSpacing(6);
    layout->addLayout(pulsanti);

    // Open on the table, at its last row.
    TabellaArchivio &tabella = m_stato.tabellaArchivio();
    tabella.aggiorna();
    tabella.ultimo();
    m_posizione = tabella.inizio() ? -1 : tabella.posizione();
    mostra();
}

FrmGestione::~FrmGestione() = default;

QWidget *FrmGestione::creaNavigazione() {
    auto *barra = new QFrame(this);
    barra->setObjectName(u"dbArchivio"_s);
    barra->setFrameShape(QFrame::Panel);
    barra->setFrameShadow(QFrame::Sunken);
    auto *didascalia = new QLabel(u"Archivio Totocalcio"_s, barra);
    didascalia->setObjectName(u"lblDbArchivio"_s);
    didascalia->setAlignment(Qt::AlignCenter);
    struct Pulsante {
        const char *nome;
        const char *testo;
        const char *suggerimento;
        Movimento movimento;
    };
    constexpr Pulsante pulsanti[] = {
        {"dbPrimo", "|<", "Prima colonna", Movimento::Primo},
        {"dbPrecedente", "<", "Colonna precedente", Movimento::Precedente},
        {"dbSuccessivo", ">", "Colonna successiva", Movimento::Successivo},
        {"dbUltimo", ">|", "Ultima colonna", Movimento::Ultimo},
    };
    auto *l = new QHBoxLayout(barra);
    l->setContentsMargins(2, 2, 2, 2);
    l->setSpacing(1);
    for (const Pulsante &p : pulsanti) {
        auto *b = new QPushButton(QString::fromLatin1(p.testo), barra);
        b->setObjectName(QString::fromLatin1(p.nome));
        b->setToolTip(QString::fromLatin1(p.suggerimento));
        b->setFixedWidth(32);
        b->setAutoDefault(false);
        const Movimento m = p.movimento;
        connect(b, &QPushButton::clicked, this, [this, m] { muovi(m); });
        if (m == Movimento::Successivo)
            l->addWidget(didascalia, 1);
        l->addWidget(b);
    }
    return barra;
}

void FrmGestione::posiziona() {
    if (m_posizione < 0)
        throw ErroreEsecuzione(u"Archivio database: nessuna riga corrente."_s);
    m_stato.tabellaArchivio().vaiA(m_posizione);
}

void FrmGestione::mostra() {
    if (m_posizione >= 0) {
        const RigaArchivio r = m_stato.tabellaArchivio().corrente();
        for (int i = 0; i < 3; ++i)
            m_caselle[i]->setText(r[i]);
    } else {
        for (QLineEdit *c : m_caselle)
            c->clear();
    }
    for (int i = 0; i < 3; ++i)
        m_mostrati[i] = m_caselle[i]->text();
}

void FrmGestione::ripulisciCaselle() {
    // Blanks around what was typed would become fields of their own in the archive line.
    for (QLineEdit *casella : m_caselle)
        if (const QString pulito = casella->text().trimmed(); pulito != casella->text())
            casella->setText(pulito);
}

void FrmGestione::salvaCampiCambiati() {
    ripulisciCaselle();
    bool cambiato = false;
    for (int i = 0; i < 3; ++i)
        cambiato = cambiato || m_caselle[i]->text() != m_mostrati[i];
    if (!cambiato || m_posizione < 0)
        return;
    TabellaArchivio &tabella = m_stato.tabellaArchivio();
    // Only the bound fields change: the metrics are recomputed by "CONFERMA E ESCI" alone.
    RigaArchivio r = tabella.corrente();
    for (int i = 0; i < 3; ++i)
        r[i] = m_caselle[i]->text();
    tabella.modifica(r);
    for (int i = 0; i < 3; ++i)
        m_mostrati[i] = r[i];
}

void FrmGestione::muovi(Movimento movimento) {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        TabellaArchivio &tabella = m_stato.tabellaArchivio();
        if (m_posizione >= 0) {
            posiziona();
            salvaCampiCambiati();
        }
        const auto suRiga = [&tabella] { return !tabella.inizio() && !tabella.fine(); };
        switch (movimento) {
        case Movimento::Primo:
            tabella.primo();
            break;
        case Movimento::Ultimo:
            tabella.ultimo();
            break;
        case Movimento::Precedente:
            // Before the first row the bar stays on the first, as past the last on the last.
            if (suRiga()) {
                tabella.precedente();
                if (tabella.inizio())
                    tabella.primo();
            }
            break;
        case Movimento::Successivo:
            if (suRiga()) {
                tabella.successivo();
                if (tabella.fine())
                    tabella.ultimo();
            }
            break;
        }
        m_posizione = suRiga() ? tabella.posizione() : -1;
        mostra();
    });
}

void FrmGestione::conferma() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        Dialoghi &dialoghi = m_stato.dialoghi();
        QString nota;
        {
            QApplication::setOverrideCursor(Qt::WaitCursor);
            const auto cursore = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
            ripulisciCaselle();
            m_caselle[2]->setText(m_caselle[2]->text().toUpper());
            posiziona();
            nota = ScrittureArchivio::confermaModifica(m_stato, m_caselle[0]->text(),
                                                       m_caselle[1]->text(), m_caselle[2]->text());
            // This screen closes here too.
            riapriDopoModificaArchivio(m_stato, true);
        }
        annunciaModificaArchivio(dialoghi, Dialoghi::titoloApplicazione(),
                                 u"Modifiche effettuate."_s, nota);
    });
}

void FrmGestione::elimina() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        Dialoghi &dialoghi = m_stato.dialoghi();
        const QString titolo = Dialoghi::titoloApplicazione();
        if (!dialoghi.domanda(titolo, u"Confermi eliminazione colonna?"_s)) {
            dialoghi.informazione(titolo, u"Operazione annullata."_s);
            return;
        }
        posiziona();
        const QString nota = ScrittureArchivio::eliminaCorrente(m_stato);
        // The dashboard keeps the deleted contest until something refreshes it.
        riapriDopoModificaArchivio(m_stato, false);
        annunciaModificaArchivio(dialoghi, titolo, u"La colonna è stata eliminata dall'archivio."_s,
                                 nota);
    });
}
