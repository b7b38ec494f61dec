#include "schedine/frmschedina.h"

#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/mditrascinamento.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/filtrotasti.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/stampanteqt.h"
#include "piattaforma/vistagriglia.h"
#include "schedine/pronostico.h"
#include "stampa/frmmenugriglie.h"

#include <algorithm>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The place the coupons open at: left 0, top 1500 twips.
constexpr int AltoTwips = 1500;
// The narrowest prognosis boxes, in pixels.
constexpr int LarghezzaCasella = 90;

const QString DomandaCancella =
    u"Cancellare tutto il pronostico? Questa operazione non elimina definitivamente il "
    "pronostico. Alla prossima riapertura della finestra, verrà riproposto di nuovo il "
    "pronostico. Clicare su Sì per eliminiare definitivamente il pronostico."_s;

QLabel *intestazioneColonna(QWidget *genitore, const QString &testo, int larghezzaTwips,
                            const QString &suggerimento) {
    auto *l = new QLabel(testo, genitore);
    l->setAlignment(Qt::AlignCenter);
    l->setFixedWidth(Griglia::twipsInPixel(larghezzaTwips));
    l->setToolTip(suggerimento);
    MdiStile::grassetto(l, 0.9);
    return l;
}

QPushButton *pulsante(QWidget *genitore, const QString &nome, QStyle::StandardPixmap icona,
                      const QString &testo, const QString &suggerimento) {
    auto *b = new QPushButton(genitore->style()->standardIcon(icona), testo, genitore);
    b->setObjectName(nome);
    b->setCursor(Qt::PointingHandCursor);
    b->setToolTip(suggerimento);
    return b;
}

} // namespace

FrmSchedina::FrmSchedina(StatoProgramma &stato, RegistroSchermi &registro,
                         const SchedinaSettimana::Modello &modello, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_registro(registro)
    , m_modello(modello)
    , m_griglia(new Griglia(SchedinaSettimana::Righe, SchedinaSettimana::Colonne, this))
    , m_vista(new VistaGriglia(this))
    , m_titolo(new QLabel(this))
    , m_lblConcorso(new QLabel(u"--"_s, this)) {
    setObjectName(QString::fromLatin1(modello.nome));
    setWindowTitle(QString::fromUtf8(modello.titolo));
    setProperty(RegistroSchermi::PosizioneFissa, true);
    MdiStile::senzaCornice(this);

    // The three files, read before anything is shown: a fault leaves no screen half filled.
    const FileSchedine::Tipo tipo = modello.tipo;
    SchedinaSettimana::prepara(*m_griglia);
    const FileSchedine::Schedina schedina = FileSchedine::leggiSchedina(stato.PercorsoDati, tipo);
    const auto picchetto = FileSchedine::leggiPicchetto(stato.PercorsoDati, tipo);
    const QStringList pronostico = FileSchedine::leggiPronostico(stato.PercorsoDati, tipo);
    SchedinaSettimana::riempi(*m_griglia, schedina, picchetto);
    m_lblConcorso->setText(schedina.intestazione);

    // The Sunday coupon has its title in a label of its own.
    m_titolo->setObjectName(modello.risultati ? u"Label1"_s : u"lblTitolo"_s);
    m_titolo->setText(windowTitle().trimmed());
    MdiStile::titolo(m_titolo, 1.3);
    m_lblConcorso->setObjectName(u"lblConcorso"_s);
    m_lblConcorso->setTextFormat(Qt::PlainText);
    m_lblConcorso->setToolTip(u"Il concorso, il giorno e l'ora della schedina"_s);
    MdiStile::grassetto(m_lblConcorso, 1.1);
    m_lblConcorso->setStyleSheet(u"color: #c00000;"_s);
    auto *lblEsci = MdiStile::pulsanteEsci(this);

    m_vista->setObjectName(u"Griglia"_s);
    m_vista->setGriglia(m_griglia);
    m_vista->adattaA();
    m_vista->setToolTip(u"Un clic su una squadra mostra la classifica del suo campionato; il "
                        "tasto destro esporta la schedina in Excel"_s);
    m_vista->setCursor(Qt::PointingHandCursor);
    FrmMenuGriglie::esportaConTastoDestro(stato, m_vista, QString::fromUtf8(modello.esportazione));
    connect(m_vista, &VistaGriglia::clic, this, [this](int riga, int colonna) {
        eseguiProtetto(m_stato.dialoghi(), [&] { scegliSquadra(riga, colonna); });
    });

    // The heading of the boxes sets their width: "Tuo pronostico" wants more than a sign.
    auto *etichetta = new QLabel(QString::fromUtf8(modello.etichetta), this);
    etichetta->setObjectName(u"lblPronostico"_s);
    etichetta->setAlignment(Qt::AlignCenter);
    MdiStile::grassetto(etichetta, 0.9);
    const int larghezzaCasella = std::max(LarghezzaCasella, etichetta->sizeHint().width() + 8);
    etichetta->setFixedWidth(larghezzaCasella);

    // The boxes stand beside the rows of their matches.
    const int altezzaRiga = Griglia::twipsInPixel(SchedinaSettimana::AltezzaRiga);
    auto *caselle = new QVBoxLayout;
    caselle->setSpacing(0);
    caselle->setContentsMargins(0, m_vista->frameWidth(), 0, 0);
    // Only the Sunday coupon has the column of the results: the other two make no layout that
    // nothing would own.
    QVBoxLayout *risultati = nullptr;
    if (modello.risultati) {
        risultati = new QVBoxLayout;
        risultati->setSpacing(0);
        risultati->setContentsMargins(0, m_vista->frameWidth(), 0, 0);
    }
    for (int i = 1; i <= FileSchedine::Partite; ++i) {
        auto *t = new QLineEdit(this);
        t->setObjectName(u"txtPronostico(%1)"_s.arg(i));
        t->setFixedSize(larghezzaCasella, altezzaRiga);
        t->setAlignment(Qt::AlignCenter);
        t->setMaxLength(3);
        t->setToolTip(u"Il pronostico della partita %1: 1, X o 2, o due o tre segni per le "
                      "doppie e le triple"_s.arg(i));
        MdiStile::grassetto(t);
        new FiltroTasti(t, u"Xx12"_s, true);
        connect(t, &QLineEdit::textChanged, t, [t](const QString &testo) {
            const QString maiuscolo = testo.toUpper();
            if (maiuscolo != testo) {
                const int cursore = t->cursorPosition();
                t->setText(maiuscolo);
                t->setCursorPosition(cursore);
            }
        });
        caselle->addWidget(t);
        m_txtPronostico.append(t);
        if (modello.risultati) {
            auto *ris = new QLabel(this);
            ris->setObjectName(u"lblRis(%1)"_s.arg(i));
            ris->setFixedSize(larghezzaCasella, altezzaRiga);
            ris->setAlignment(Qt::AlignCenter);
            ris->setFrameShape(QFrame::StyledPanel);
            risultati->addWidget(ris);
        }
    }
    caselle->addStretch();
    if (risultati)
        risultati->addStretch();
    for (qsizetype k = 0; k < pronostico.size(); ++k)
        m_txtPronostico[k]->setText(pronostico.at(k));

    auto *image1 = pulsante(this, u"Image1"_s, QStyle::SP_DialogResetButton, u"Cancella"_s,
                            u"Svuota le caselle del pronostico"_s);
    auto *image2 = pulsante(this, u"Image2"_s, QStyle::SP_DialogSaveButton, u"Salva"_s,
                            u"Salva il pronostico: si riaprirà con la schedina (Invio)"_s);
    auto *imgStampa = pulsante(this, u"imgStampa"_s, QStyle::SP_FileDialogDetailedView, u"Stampa"_s,
                               u"Stampa la schedina e il pronostico (Ctrl+P)"_s);
    connect(image1, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { cancella(); }); });
    connect(image2, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { salva(); }); });
    connect(imgStampa, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { stampa(); }); });
    MdiTastiera::pulsantePredefinito(this, image2);
    MdiTastiera::stampa(this, imgStampa);

    // The heads of the columns, over the grid and the boxes.
    auto *teste = new QHBoxLayout;
    teste->setSpacing(0);
    teste->setContentsMargins(m_vista->frameWidth(), 0, 0, 0);
    teste->addWidget(intestazioneColonna(this, u"N."_s, 500, u"Il numero della partita"_s));
    teste->addWidget(intestazioneColonna(this, u"Casa"_s, 1600, u"La squadra di casa"_s));
    teste->addWidget(intestazioneColonna(this, u"Ospite"_s, 1600, u"La squadra ospite"_s));
    const QString picchetto1 = u"Il picchetto: la percentuale del pubblico che gioca "_s;
    teste->addWidget(intestazioneColonna(this, u"1"_s, 700, picchetto1 + u"1"_s));
    teste->addWidget(intestazioneColonna(this, u"X"_s, 700, picchetto1 + u"X"_s));
    teste->addWidget(intestazioneColonna(this, u"2"_s, 700, picchetto1 + u"2"_s));
    teste->addSpacing(m_vista->frameWidth() + 8);
    teste->addWidget(etichetta);
    if (modello.risultati) {
        teste->addSpacing(8);
        auto *lblRisultati =
            intestazioneColonna(this, u"Risultati"_s, Griglia::pixelInTwips(larghezzaCasella),
                                u"I risultati delle partite"_s);
        lblRisultati->setObjectName(u"lblRisultati"_s);
        teste->addWidget(lblRisultati);
    }
    teste->addStretch();

    auto *corpo = new QHBoxLayout;
    corpo->setSpacing(8);
    corpo->addWidget(m_vista, 0, Qt::AlignTop);
    corpo->addLayout(caselle);
    if (risultati)
        corpo->addLayout(risultati);
    corpo->addStretch();

    auto *testa = new QHBoxLayout;
    testa->addWidget(m_titolo);
    testa->addStretch();
    testa->addWidget(lblEsci, 0, Qt::AlignTop);
    auto *comandi = new QHBoxLayout;
    comandi->addStretch();
    comandi->addWidget(image1);
    comandi->addWidget(image2);
    comandi->addWidget(imgStampa);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->setSpacing(4);
    layout->addLayout(testa);
    layout->addWidget(m_lblConcorso);
    layout->addSpacing(4);
    layout->addLayout(teste);
    layout->addLayout(corpo);
    layout->addSpacing(6);
    layout->addLayout(comandi);
    // The coupon is shown whole: a larger window has nothing more to show.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    MdiTrascinamento::installa(this, {m_titolo, m_lblConcorso});
}

FrmSchedina::~FrmSchedina() {
    // No match stays chosen once the coupon is gone.
    m_stato.SquadraCasa = u"0"_s;
    m_stato.SquadraOspite = u"0"_s;
    m_stato.LegaClassifica.clear();
}

void FrmSchedina::showEvent(QShowEvent *evento) {
    QWidget::showEvent(evento);
    if (!m_posizionata)
        MdiStile::finestraDi(this)->move(0, Griglia::twipsInPixel(AltoTwips));
    m_posizionata = true;
}

QStringList FrmSchedina::caselle() const {
    QStringList testi;
    for (const QLineEdit *t : m_txtPronostico)
        testi.append(t->text());
    return testi;
}

void FrmSchedina::scegliSquadra(int riga, int colonna) {
    if (colonna != 1 && colonna != 2)
        return;
    const SchedinaSettimana::Scelta scelta = SchedinaSettimana::segnaPartita(*m_griglia, riga);
    m_stato.SquadraCasa = scelta.casa;
    m_stato.SquadraOspite = scelta.ospite;
    // The box first: the table then opens above the coupon, which keeps the box for the user's
    // return.
    if (scelta.partita >= 0)
        m_txtPronostico.at(scelta.partita)->setFocus();
    const QString lega = SchedinaSettimana::legaDi(m_stato.Squadre, scelta.casa);
    if (lega.isEmpty())
        return;
    m_stato.LegaClassifica = lega;
    m_registro.rimostraSchermo(u"frmClassifiche"_s);
    // Unless the user placed the tables somewhere, this one stands beside the coupon, or as far
    // to the right as the area lets it, covering as little of the coupon as it can.
    QWidget *tabella = m_registro.trovaSchermo(u"frmClassifiche"_s);
    if (!tabella || m_stato.PosizioneClassifiche)
        return;
    QWidget *finestra = MdiStile::finestraDi(tabella);
    if (!finestra->parentWidget())
        return;
    const QRect coupon = MdiStile::finestraDi(this)->geometry();
    const int x =
        std::min(coupon.right() + 1, finestra->parentWidget()->width() - finestra->width());
    finestra->move(std::max(0, x), coupon.top());
}

void FrmSchedina::cancella() {
    if (m_stato.dialoghi().domanda(Dialoghi::titoloApplicazione(), DomandaCancella)) {
        for (QLineEdit *t : std::as_const(m_txtPronostico))
            t->clear();
        FileSchedine::scriviPronostico(m_stato.PercorsoDati, m_modello.tipo,
                                       Pronostico::righe(caselle()));
        return;
    }
    for (QLineEdit *t : std::as_const(m_txtPronostico))
        t->clear();
}

void FrmSchedina::salva() {
    const QStringList testi = caselle();
    const Pronostico::Esito esito = Pronostico::controlla(testi);
    if (esito != Pronostico::Esito::Salvabile) {
        const QString messaggio = Pronostico::messaggio(esito);
        if (!messaggio.isEmpty())
            m_stato.dialoghi().avviso(Dialoghi::titoloApplicazione(), messaggio);
        return;
    }
    FileSchedine::scriviPronostico(m_stato.PercorsoDati, m_modello.tipo, Pronostico::righe(testi));
    m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(), Pronostico::messaggio(esito));
}

QString FrmSchedina::titoloStampa() const {
    // The Sunday coupon prints its title label, the others their caption.
    return m_modello.risultati ? m_titolo->text() : windowTitle();
}

void FrmSchedina::stampa() {
    if (!m_stato.dialoghi().domanda(Dialoghi::titoloApplicazione(), u"Procedere con  la stampa?"_s))
        return;
    StampanteQt stampante(m_stato.dialoghi(), m_stato.impostazioni(), m_stato.FileStampaPdf, false);
    stampante.setOrizzontale(false);
    stampante.setNomeDocumento(windowTitle().trimmed());
    if (!stampante.scegliSeManca())
        return;
    SchedinaSettimana::stampa(stampante.inizia(), *m_griglia, titoloStampa(), m_lblConcorso->text(),
                              caselle());
    stampante.fine();
}
