#include "campionati/frmclassifiche.h"

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/mostraclassifica.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/mditrascinamento.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/stampanteqt.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/frmmenugriglie.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The groups over the columns of the table: a blank over the first three columns, then
// "Totali", "In casa" and "Fuori casa" over their six columns each. They follow the widths the
// user gives the columns.
QHBoxLayout *gruppi(QWidget *genitore, VistaGriglia *vista) {
    auto *riga = new QHBoxLayout;
    riga->setSpacing(0);
    riga->setContentsMargins(0, 0, 0, 0);
    auto *vuoto = new QWidget(genitore);
    riga->addWidget(vuoto);
    QList<QLabel *> etichette;
    for (int k = 0; k < 3; ++k) {
        auto *l = new QLabel(MostraClassifica::gruppi().at(k), genitore);
        l->setObjectName(u"lblGruppo(%1)"_s.arg(k));
        l->setAlignment(Qt::AlignCenter);
        MdiStile::grassetto(l);
        l->setStyleSheet(u"background: #dde3ee; border: 1px solid #b8c2d4;"_s);
        riga->addWidget(l);
        etichette.append(l);
    }
    riga->addStretch();
    const auto larghezze = [vista, vuoto, etichette] {
        const auto somma = [vista](int da, int a) {
            int larghezza = 0;
            for (int c = da; c < a; ++c)
                larghezza += vista->columnWidth(c);
            return larghezza;
        };
        vuoto->setFixedWidth(vista->frameWidth() + somma(0, 3));
        for (int k = 0; k < 3; ++k)
            etichette[k]->setFixedWidth(somma(3 + 6 * k, 9 + 6 * k));
    };
    larghezze();
    QObject::connect(vista->horizontalHeader(), &QHeaderView::sectionResized, vuoto, larghezze);
    return riga;
}

} // namespace

FrmClassifiche::FrmClassifiche(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(MostraClassifica::Righe, MostraClassifica::Colonne, this))
    , m_lblConcorso(new QLabel(this)) {
    setObjectName(u"frmClassifiche"_s);
    MdiStile::senzaCornice(this);

    const Leghe::Lega *lega = Leghe::perCodice(stato.LegaClassifica);
    setWindowTitle(u"Classifica"_s +
                   (lega ? u" - "_s + QString::fromLatin1(lega->nome) : QString()));
    // Only the English table puts "0" in place of an empty team of the match.
    if (lega && stato.LegaClassifica == u"Inghilterra"_s) {
        if (stato.SquadraCasa.isEmpty())
            stato.SquadraCasa = u"0"_s;
        if (stato.SquadraOspite.isEmpty())
            stato.SquadraOspite = u"0"_s;
    }
    FileCampionati::Classifica classifica;
    if (lega)
        classifica = FileCampionati::leggiClassifica(stato.PercorsoDati, *lega);
    MostraClassifica::riempi(*m_griglia, lega, classifica, stato.SquadraCasa, stato.SquadraOspite);
    // "Punti" in the font of the header would not fit its narrow column.
    m_griglia->setDimensioneCarattere(0, 2, 7);

    m_lblConcorso->setObjectName(u"lblConcorso"_s);
    m_lblConcorso->setText(classifica.intestazione);
    m_lblConcorso->setTextFormat(Qt::PlainText);
    MdiStile::titolo(m_lblConcorso, 1.1);
    m_lblConcorso->setCursor(Qt::SizeAllCursor);
    m_lblConcorso->setToolTip(u"La classifica com'è nel file del campionato"_s);
    auto *lblEsci = MdiStile::pulsanteEsci(this);

    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"Griglia"_s);
    vista->setGriglia(m_griglia);
    vista->adattaA();
    // A click on a header sorts the table by that column; the marks go with their teams. The
    // print and the export take the rows as they stand.
    m_ordine.setColonneTesto({1});
    vista->ordinaConClicIntestazione(&m_ordine);
    FrmMenuGriglie::esportaConTastoDestro(stato, vista, u"Classifica, alla data "_s);

    auto *imgStampa = new QPushButton(style()->standardIcon(QStyle::SP_FileDialogDetailedView),
                                      u"Stampa"_s, this);
    imgStampa->setObjectName(u"imgStampa"_s);
    imgStampa->setCursor(Qt::PointingHandCursor);
    imgStampa->setToolTip(u"Stampa la classifica (Ctrl+P)"_s);
    connect(imgStampa, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { stampa(); }); });
    MdiTastiera::stampa(this, imgStampa);

    auto *testa = new QHBoxLayout;
    testa->addWidget(m_lblConcorso, 1);
    testa->addWidget(imgStampa);
    testa->addWidget(lblEsci, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->setSpacing(4);
    layout->addLayout(testa);
    layout->addLayout(gruppi(this, vista));
    layout->addWidget(vista, 0, Qt::AlignLeft);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // The background and the heading move the window; the place is kept for the next table.
    auto *trascinamento = MdiTrascinamento::installa(this, {m_lblConcorso});
    connect(trascinamento, &MdiTrascinamento::spostata, this,
            [this](QPoint posizione) { m_stato.PosizioneClassifiche = posizione; });
    m_stato.ClassificaInMostra = true;
}

FrmClassifiche::~FrmClassifiche() {
    m_stato.ClassificaInMostra = false;
}

void FrmClassifiche::showEvent(QShowEvent *evento) {
    QWidget::showEvent(evento);
    if (!m_posizionata && m_stato.PosizioneClassifiche)
        MdiStile::finestraDi(this)->move(*m_stato.PosizioneClassifiche);
    m_posizionata = true;
}

void FrmClassifiche::stampa() {
    if (!m_stato.dialoghi().domanda(Dialoghi::titoloApplicazione(), u"Procedere con  la stampa?"_s))
        return;
    StampanteQt stampante(m_stato.dialoghi(), m_stato.impostazioni(), m_stato.FileStampaPdf, false);
    stampante.setOrizzontale(false);
    stampante.setNomeDocumento(u"Classifica"_s);
    if (!stampante.scegliSeManca())
        return;
    MostraClassifica::stampa(stampante.inizia(), *m_griglia, m_lblConcorso->text());
    stampante.fine();
}
