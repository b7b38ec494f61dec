#include "campionati/frmcampionato.h"

#include "campionati/aggiornamentocalendari.h"
#include "campionati/leghe.h"
#include "campionati/mdiopzioniserie.h"
#include "core/mdiclessidra.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"
#include "piattaforma/vistagriglia.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The largest round: Serie B's eleven matches after the date.
constexpr int RighePartite = 11;

} // namespace

FrmCampionato::FrmCampionato(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(RighePartite + 1, 2, this))
    , m_lstDate(new QListWidget(this))
    , m_lblGiornata(new QLabel(this))
    , m_barra(new QProgressBar(this)) {
    setObjectName(u"frmCampionato"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    preparaGriglia();
    bool mancanti = false;
    for (const Leghe::Lega &lega : Leghe::italiane())
        mancanti =
            mancanti || !FileDati::esiste(stato.PercorsoDati, Leghe::fileCalendarioDati(lega));
    caricaSerie(0);
    mostraGiornata(0);

    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"Griglia"_s);
    vista->setGriglia(m_griglia);
    vista->adattaA();

    m_lstDate->setObjectName(u"lstDate"_s);
    m_lstDate->setToolTip(u"Le giornate: un clic mostra le partite"_s);
    m_lstDate->setFixedWidth(230);
    // A click or a key that moves the list shows the round.
    connect(m_lstDate, &QListWidget::currentRowChanged, this, [this](int riga) {
        if (riga >= 0)
            mostraGiornata(riga);
    });
    m_lblGiornata->setObjectName(u"lblGiornata"_s);
    MdiStile::titolo(m_lblGiornata, 1.1);

    QGroupBox *serie = nullptr;
    auto *gruppo = MdiOpzioniSerie::crea(this, serie, [](int i) {
        return i < 2 ? u"Mostra il calendario"_s
                     : u"Calendario scaricato ma non ancora consultabile"_s;
    });
    connect(gruppo, &QButtonGroup::idClicked, this, [this, gruppo](int i) {
        eseguiProtetto(m_stato.dialoghi(), [&] {
            if (i >= 2) {
                // The Lega Pro calendars are kept but not shown: the list stays as it is.
                gruppo->button(m_serie)->setChecked(true);
                m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(),
                                                u"Non ancora disponibile."_s);
                return;
            }
            caricaSerie(i);
        });
    });

    auto *imgDownload =
        new QPushButton(style()->standardIcon(QStyle::SP_ArrowDown), u"Aggiorna calendari"_s, this);
    imgDownload->setObjectName(u"imgDownload"_s);
    imgDownload->setCursor(Qt::PointingHandCursor);
    imgDownload->setToolTip(u"Scarica dal sito i calendari di tutti i campionati"_s);
    connect(imgDownload, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { scarica(); }); });
    m_barra->setObjectName(u"Barra"_s);
    m_barra->setRange(0, int(Leghe::italiane().size()));
    m_barra->setVisible(false);

    auto *sinistra = new QVBoxLayout;
    sinistra->addWidget(serie);
    sinistra->addWidget(m_lstDate, 1);
    sinistra->addWidget(imgDownload);
    sinistra->addWidget(m_barra);
    auto *destra = new QVBoxLayout;
    destra->addWidget(m_lblGiornata);
    destra->addWidget(vista);
    destra->addStretch();
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(12);
    layout->addLayout(sinistra);
    layout->addLayout(destra);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // The warning comes once the screen stands on the desktop, and the screen opens all the same.
    if (mancanti)
        QTimer::singleShot(0, this, [this] {
            m_stato.dialoghi().critico(Dialoghi::titoloApplicazione(),
                                       QString::fromUtf8(DatiMancanti));
        });
}

FrmCampionato::~FrmCampionato() = default;

void FrmCampionato::preparaGriglia() {
    const auto blocco = m_griglia->inBlocco();
    Griglia &g = *m_griglia;
    g.setRigheFisse(1);
    g.setLarghezzaColonna(0, 500);
    g.setLarghezzaColonna(1, 7000);
    g.setTesto(0, 0, u"N."_s);
    g.setTesto(0, 1, u"Partita"_s);
    g.setAllineamentoColonna(0, Griglia::Allineamento::CentroCentro);
    for (int r = 1; r < g.righe(); ++r) {
        g.setAltezzaRiga(r, r == 1 ? 300 : 400);
        g.setTesto(r, 0, QString::number(r));
    }
}

void FrmCampionato::caricaSerie(int serie) {
    const Leghe::Lega &lega = Leghe::italiane()[std::size_t(serie)];
    m_calendario = FileCampionati::leggiCalendarioFinoAllaFine(m_stato.PercorsoDati, lega);
    m_serie = serie;
    preparaGriglia();
    m_lstDate->clear();
    for (const QStringList &giornata : std::as_const(m_calendario))
        m_lstDate->addItem(giornata.value(0));
}

void FrmCampionato::mostraGiornata(int indice) {
    if (indice < 0)
        return;
    if (QListWidgetItem *voce = m_lstDate->item(indice))
        m_lblGiornata->setText(voce->text());
    if (indice >= m_calendario.size())
        return;
    const QStringList &giornata = m_calendario.at(indice);
    const auto blocco = m_griglia->inBlocco();
    for (int r = 1; r < m_griglia->righe(); ++r) {
        // Each match ends in one character that is not shown.
        const QString partita = giornata.value(r);
        m_griglia->setTesto(r, 1, partita.left(std::max<qsizetype>(partita.size() - 1, 0)));
    }
}

void FrmCampionato::scarica() {
    Dialoghi &dialoghi = m_stato.dialoghi();
    const QString titolo = Dialoghi::titoloAggiornamenti();
    if (!dialoghi.domanda(titolo, QString::fromUtf8(AggiornamentoCalendari::Domanda)))
        return;
    Rete::Operazione operazione(m_stato.rete());
    if (!m_stato.rete().verificaConnessione()) {
        dialoghi.critico(
            titolo,
            u"Per utilizzare questa funzione, è necessario essere collegati ad Internet."_s);
        return;
    }
    AggiornamentoCalendari aggiornamento(m_stato);
    RiepilogoAggiornamento &riepilogo = aggiornamento.riepilogo();
    bool disponibile = true;
    {
        MdiClessidra clessidra;
        if (!riepilogo.esegui([&] { disponibile = aggiornamento.secondaDivisioneDisponibile(); })) {
            clessidra.rilascia();
            riepilogo.avvisa(dialoghi, m_stato.rete());
            return;
        }
    }
    if (!disponibile &&
        !dialoghi.domanda(titolo,
                          QString::fromUtf8(AggiornamentoCalendari::DomandaSecondaDivisione)))
        return;
    {
        MdiClessidra clessidra;
        m_barra->setValue(0);
        m_barra->setVisible(true);
        const auto nascondi = qScopeGuard([this] { m_barra->setVisible(false); });
        riepilogo.esegui([&] {
            aggiornamento.aggiorna([this](int fatte) {
                m_barra->setValue(fatte);
                QCoreApplication::processEvents();
            });
        });
    }
    // The series refreshed before a stop show at once; the box then says which were left.
    if (m_stato.rete().inChiusura())
        return;
    caricaSerie(m_serie);
    mostraGiornata(0);
    riepilogo.avvisa(dialoghi, m_stato.rete());
}
