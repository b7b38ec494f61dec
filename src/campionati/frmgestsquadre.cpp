#include "campionati/frmgestsquadre.h"

#include "campionati/filecampionati.h"
#include "campionati/gestionesquadre.h"
#include "campionati/leghe.h"
#include "campionati/mdiopzioniserie.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = FileCampionati::MassimoSquadreItaliane;

// The seven options, in the order of the series.

} // namespace

FrmGestSquadre::FrmGestSquadre(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(Righe + 1, 2, this))
    , m_mskAnno(new QLineEdit(this))
    , m_lblNome(new QLabel(u"Inserisci il nuovo nome"_s, this))
    , m_txtNome(new QLineEdit(this))
    , m_cmdConferma(new QPushButton(u"Conferma"_s, this))
    , m_cmdAnnulla(new QPushButton(u"Annulla"_s, this)) {
    setObjectName(u"frmGestSquadre"_s);
    setWindowTitle(u" Gestione Squadre"_s);
    {
        const auto blocco = m_griglia->inBlocco();
        m_griglia->setRigheFisse(1);
        m_griglia->setLarghezzaColonna(0, 500);
        m_griglia->setLarghezzaColonna(1, 6000);
        m_griglia->setTesto(0, 0, u"N."_s);
        m_griglia->setTesto(0, 1, u"Squadra"_s);
        m_griglia->setSuggerimento(0, 1, u"Un clic su una squadra per cambiarne il nome"_s);
        m_griglia->setAllineamentoColonna(0, Griglia::Allineamento::CentroCentro);
        for (int r = 1; r <= Righe; ++r)
            m_griglia->setTesto(r, 0, QString::number(r));
    }
    m_mskAnno->setObjectName(u"mskAnno"_s);
    m_mskAnno->setInputMask(u"9999-9999"_s);
    m_mskAnno->setText(FileDati::leggiPrimaRiga(stato.percorsoFile(u"anno.txt"_s)));
    m_mskAnno->setToolTip(u"La stagione: due anni uniti da un trattino, come 2025-2026"_s);
    m_mskAnno->setFixedWidth(m_mskAnno->fontMetrics().horizontalAdvance(u"00000-00000"_s) + 12);
    carica(0);

    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"Griglia"_s);
    vista->setGriglia(m_griglia);
    vista->adattaA();
    connect(vista, &VistaGriglia::clic, this, [this](int riga, int) { scegliRiga(riga); });

    QGroupBox *serie = nullptr;
    auto *gruppo = MdiOpzioniSerie::crea(this, serie, [](int i) {
        return u"Mostra le squadre di %1"_s.arg(
            QString::fromLatin1(Leghe::italiane()[std::size_t(i)].nome));
    });
    connect(gruppo, &QButtonGroup::idClicked, this,
            [this](int i) { eseguiProtetto(m_stato.dialoghi(), [&] { carica(i); }); });

    m_lblNome->setObjectName(u"lblNome"_s);
    m_txtNome->setObjectName(u"txtNome"_s);
    m_txtNome->setToolTip(u"Il nome è scritto in maiuscolo"_s);
    // The name is upper case as it is typed.
    connect(m_txtNome, &QLineEdit::textEdited, this, [this](const QString &testo) {
        const int cursore = m_txtNome->cursorPosition();
        m_txtNome->setText(testo.toUpper());
        m_txtNome->setCursorPosition(cursore);
    });
    m_cmdConferma->setObjectName(u"cmdConferma"_s);
    m_cmdConferma->setToolTip(u"Scrive il nuovo nome nella riga scelta"_s);
    m_cmdAnnulla->setObjectName(u"cmdAnnulla"_s);
    m_cmdAnnulla->setToolTip(u"Lascia il nome com'era"_s);
    connect(m_cmdConferma, &QPushButton::clicked, this, &FrmGestSquadre::conferma);
    connect(m_cmdAnnulla, &QPushButton::clicked, this, [this] { mostraEditor(false); });
    auto *editor = new QWidget(this);
    editor->setObjectName(u"fraNome"_s);
    auto *righeEditor = new QGridLayout(editor);
    righeEditor->setContentsMargins(0, 0, 0, 0);
    righeEditor->addWidget(m_lblNome, 0, 0, 1, 2);
    righeEditor->addWidget(m_txtNome, 1, 0, 1, 2);
    righeEditor->addWidget(m_cmdConferma, 2, 0);
    righeEditor->addWidget(m_cmdAnnulla, 2, 1);
    MdiTastiera::pulsantePredefinito(editor, m_cmdConferma);
    mostraEditor(false);

    auto *cmdApplica = new QPushButton(u"Applica modifiche"_s, this);
    cmdApplica->setObjectName(u"cmdApplica"_s);
    cmdApplica->setToolTip(u"Scrive la stagione e le squadre della serie scelta"_s);
    connect(cmdApplica, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { applica(); }); });
    auto *cmdEsci = new QPushButton(u"Esci"_s, this);
    cmdEsci->setObjectName(u"cmdEsci"_s);
    cmdEsci->setToolTip(u"Chiude senza scrivere le modifiche non applicate"_s);
    connect(cmdEsci, &QPushButton::clicked, this, [this] { MdiStile::finestraDi(this)->close(); });

    auto *lblAnno = new QLabel(u"Stagione"_s, this);
    lblAnno->setObjectName(u"lblAnno"_s);
    auto *anno = new QHBoxLayout;
    anno->addWidget(lblAnno);
    anno->addWidget(m_mskAnno);
    anno->addStretch();

    auto *destra = new QVBoxLayout;
    destra->addLayout(anno);
    destra->addWidget(serie);
    destra->addWidget(editor);
    destra->addStretch();
    destra->addWidget(cmdApplica);
    destra->addWidget(cmdEsci);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(12);
    layout->addWidget(vista, 0, Qt::AlignTop);
    layout->addLayout(destra);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

FrmGestSquadre::~FrmGestSquadre() = default;

QString FrmGestSquadre::fileCorrente() const {
    return Leghe::fileSquadre(Leghe::italiane()[std::size_t(m_serie)]);
}

void FrmGestSquadre::carica(int serie) {
    const QStringList nomi =
        Leghe::leggiSquadre(m_stato.PercorsoDati, Leghe::italiane()[std::size_t(serie)]);
    m_serie = serie;
    const auto blocco = m_griglia->inBlocco();
    for (int r = 1; r <= Righe; ++r)
        m_griglia->setTesto(r, 1, nomi.value(r - 1));
    m_riga = -1;
    mostraEditor(false);
}

void FrmGestSquadre::scegliRiga(int riga) {
    if (riga < 1 || riga > Righe || m_griglia->testo(riga, 1).isEmpty())
        return;
    m_riga = riga;
    m_txtNome->setText(m_griglia->testo(riga, 1));
    mostraEditor(true);
    m_txtNome->setFocus();
    m_txtNome->selectAll();
}

void FrmGestSquadre::mostraEditor(bool visibile) {
    for (QWidget *w : {static_cast<QWidget *>(m_lblNome), static_cast<QWidget *>(m_txtNome),
                       static_cast<QWidget *>(m_cmdConferma), static_cast<QWidget *>(m_cmdAnnulla)})
        w->setVisible(visibile);
}

void FrmGestSquadre::conferma() {
    if (m_txtNome->text().isEmpty()) {
        m_stato.dialoghi().critico(Dialoghi::titoloApplicazione(),
                                   u"Attenzione! Inserire un nome valido per la squadra."_s);
        return;
    }
    if (m_riga >= 1)
        m_griglia->setTesto(m_riga, 1, m_txtNome->text());
    mostraEditor(false);
}

void FrmGestSquadre::applica() {
    const QString stagione = m_mskAnno->text();
    if (!GestioneSquadre::stagioneValida(stagione)) {
        m_stato.dialoghi().critico(Dialoghi::titoloApplicazione(),
                                   u"Attenzione! Le date del Campionato sono errate."_s);
        return;
    }
    FileDati::scriviRighe(m_stato.percorsoFile(u"anno.txt"_s), {stagione});
    m_stato.Stagione = stagione;
    if (m_stato.registro())
        m_stato.registro()->aggiornaTitolo();
    QStringList nomi;
    for (int r = 1; r <= Righe; ++r)
        nomi.append(m_griglia->testo(r, 1));
    const Leghe::Lega &lega = Leghe::italiane()[std::size_t(m_serie)];
    FileCampionati::scriviSquadreItaliane(m_stato.PercorsoDati, lega, nomi);
    m_stato.Squadre.insert(QString::fromLatin1(lega.codice),
                           Leghe::leggiSquadre(m_stato.PercorsoDati, lega));
    m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(), u"Modifiche effettuate."_s);
}
