#include "analisi/frmstatsegni.h"

#include "analisi/statisticaquattordici.h"
#include "core/colonna.h"
#include "core/mdistile.h"
#include "core/mditrascinamento.h"
#include "core/statoprogramma.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/frmmenugriglie.h"

#include <QDate>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Colonne = 10;
constexpr int LarghezzaPosizione = 500;
constexpr int LarghezzaBlocco = 1800;

// A grid shown whole.
VistaGriglia *vistaFissa(QWidget *genitore, const QString &nome, Griglia *griglia) {
    auto *vista = new VistaGriglia(genitore);
    vista->setObjectName(nome);
    vista->setGriglia(griglia);
    vista->adattaA();
    return vista;
}

} // namespace

FrmStatSegni::FrmStatSegni(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_titoli(new Griglia(1, 4, this))
    , m_griglia(new Griglia(15, Colonne, this)) {
    setObjectName(u"frmStatSegni"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    MdiStile::senzaCornice(this);

    preparaTitoli();
    riempi();

    auto *titolo = new QLabel(QString::fromUtf8(Titolo), this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.15);
    auto *lblConcorso =
        new QLabel(StatisticaQuattordici::testoConcorso(stato.ColonneArchivio), this);
    lblConcorso->setObjectName(u"lblConcorso"_s);
    MdiStile::grassetto(lblConcorso);
    lblConcorso->setToolTip(u"L'ultimo concorso dell'archivio"_s);
    auto *lblEsci = MdiStile::pulsanteEsci(this);

    auto *vistaTitoli = vistaFissa(this, u"GrigliaTitoli"_s, m_titoli);
    auto *vista = vistaFissa(this, u"Griglia"_s, m_griglia);
    vista->ordinaConDoppioClic(&m_ordine);
    FrmMenuGriglie::esportaConTastoDestro(stato, vista,
                                          u"La Statistica dei 14 segni, alla data "_s);

    auto *testa = new QHBoxLayout;
    testa->addWidget(titolo);
    testa->addStretch();
    testa->addWidget(lblEsci, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->setSpacing(4);
    layout->addLayout(testa);
    layout->addWidget(lblConcorso);
    layout->addSpacing(4);
    layout->addWidget(vistaTitoli, 0, Qt::AlignLeft);
    layout->addWidget(vista, 0, Qt::AlignLeft);
    // Both grids are shown whole: a larger window has nothing more to show.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    // A press on the background moves the screen: it has no title bar of its own.
    MdiTrascinamento::installa(this, {titolo, lblConcorso});
}

FrmStatSegni::~FrmStatSegni() = default;

void FrmStatSegni::preparaTitoli() {
    const auto blocco = m_titoli->inBlocco();
    Griglia &g = *m_titoli;
    g.setRigheFisse(0);
    g.setColonneFisse(0);
    g.setAltezzaRighe(600);
    static const QString Titoli[3] = {u"FREQUENZE ST."_s, u"FREQUENZE ATT."_s, u"RITARDI"_s};
    static const QString Spiegazioni[3] = {
        u"Quante volte il segno è uscito in quella posizione in tutto l'archivio"_s,
        u"Quante volte il segno è uscito in quella posizione nei concorsi dell'anno in corso"_s,
        u"Da quanti concorsi il segno non esce in quella posizione (0 anche se non è mai "
        "uscito)"_s};
    g.setLarghezzaColonna(0, LarghezzaPosizione);
    g.setSfondo(0, 0, Griglia::daBGR(ColorePosizione));
    for (int b = 0; b < 3; ++b) {
        const int c = b + 1;
        g.setLarghezzaColonna(c, LarghezzaBlocco);
        g.setAllineamentoColonna(c, Griglia::Allineamento::CentroCentro);
        g.setTesto(0, c, Titoli[b]);
        g.setSfondo(0, c, Griglia::daBGR(ColoriBlocchi[b]));
        g.setGrassetto(0, c, true);
        g.setDimensioneCarattere(0, c, 9);
        g.setSuggerimento(0, c, Spiegazioni[b]);
    }
}

void FrmStatSegni::riempi() {
    const auto blocco = m_griglia->inBlocco();
    Griglia &g = *m_griglia;
    g.setRigheFisse(1);
    g.setColonneFisse(0);
    g.setAltezzaRighe(300);
    const QStringList &segni = Colonna::segni();
    g.setTesto(0, 0, u"Pos."_s);
    g.setSuggerimento(0, 0,
                      u"La posizione della partita nella schedina: dopo un ordinamento dice da "
                      "quale posizione viene ciascuna riga."_s);
    g.setLarghezzaColonna(0, LarghezzaPosizione);
    g.setAllineamentoColonna(0, Griglia::Allineamento::CentroCentro);
    for (int c = 1; c < Colonne; ++c) {
        g.setLarghezzaColonna(c, LarghezzaBlocco / 3);
        g.setAllineamentoColonna(c, Griglia::Allineamento::CentroCentro);
        g.setTesto(0, c, segni.at((c - 1) % 3));
    }
    const StatisticaQuattordici::Figure f = StatisticaQuattordici::calcola(
        m_stato.ColonneArchivio, QString::number(QDate::currentDate().year()));
    const StatisticaQuattordici::Tabella *blocchi[3] = {&f.storiche, &f.anno, &f.ritardi};
    for (int p = 1; p <= 14; ++p) {
        g.setTesto(p, 0, QString::number(p));
        for (int b = 0; b < 3; ++b)
            for (int s = 0; s < 3; ++s)
                g.setTesto(p, 1 + 3 * b + s, QString::number((*blocchi[b])[p - 1][s]));
    }
    for (int r = 0; r < g.righe(); ++r) {
        g.setSfondo(r, 0, Griglia::daBGR(ColorePosizione));
        for (int c = 1; c < Colonne; ++c)
            g.setSfondo(r, c, Griglia::daBGR(ColoriBlocchi[(c - 1) / 3]));
    }
    static const QString Ordina =
        u"\nUn doppio clic su una cella, o un clic sull'intestazione, ordina le righe: "
        "decrescente e crescente alternati."_s;
    for (int c = 1; c < Colonne; ++c) {
        const QString segno = segni.at((c - 1) % 3);
        static const QString Spiegazioni[3] = {
            u"Frequenza storica: in quanti concorsi dell'archivio il segno %1 è uscito in quella "
            "posizione."_s,
            u"Frequenza attuale: in quanti concorsi dell'anno in corso il segno %1 è uscito in "
            "quella posizione."_s,
            u"Ritardo: quanti concorsi sono passati dall'ultima uscita del segno %1 in quella "
            "posizione (0 se è uscito nell'ultimo concorso, e anche se non è mai uscito)."_s};
        g.setSuggerimento(0, c, Spiegazioni[(c - 1) / 3].arg(segno) + Ordina);
    }
}
