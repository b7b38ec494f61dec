#include "analisi/frmcinquinemai.h"

#include "analisi/cinquinemai.h"
#include "core/glossario.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/mditrascinamento.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmanteprima.h"
#include "stampa/frmmenugriglie.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmCinquineMai::FrmCinquineMai(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(1, 2, this)) {
    setObjectName(u"frmCinquineMai"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    MdiStile::senzaCornice(this);
    riempi();

    auto *titolo = new QLabel(QString::fromUtf8(Titolo), this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.15);
    titolo->setToolTip(Glossario::cinquina());
    auto *lblEsci = MdiStile::pulsanteEsci(this);
    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"Griglia"_s);
    vista->setGriglia(m_griglia);
    vista->adattaLarghezza();
    vista->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    vista->setMinimumHeight(vista->dimensioneEsatta(20).height());
    FrmMenuGriglie::esportaConTastoDestro(stato, vista,
                                          u"Situazione delle Cinquine mai uscite, alla data "_s);

    auto *imgStampa = new QPushButton(style()->standardIcon(QStyle::SP_FileDialogDetailedView),
                                      u"Stampa"_s, this);
    imgStampa->setObjectName(u"imgStampa"_s);
    imgStampa->setCursor(Qt::PointingHandCursor);
    imgStampa->setToolTip(u"Stampa le cinquine non uscite negli ultimi %1 concorsi (Ctrl+P)"_s.arg(
        stato.BaseColonne9));
    connect(imgStampa, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { stampa(); }); });
    MdiTastiera::stampa(this, imgStampa);

    auto *testa = new QHBoxLayout;
    testa->addWidget(titolo);
    testa->addStretch();
    testa->addWidget(lblEsci, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->setSpacing(6);
    layout->addLayout(testa);
    layout->addWidget(vista, 1, Qt::AlignHCenter);
    layout->addWidget(imgStampa, 0, Qt::AlignHCenter);
    // Any press of the left button on the grid or on the background moves the screen, which has
    // no title bar of its own.
    MdiTrascinamento::installa(this, {titolo, vista->viewport()});
}

FrmCinquineMai::~FrmCinquineMai() = default;

void FrmCinquineMai::riempi() {
    const QStringList mai = CinquineMai::delloSchermo(m_stato.ColonneArchivio);
    const auto blocco = m_griglia->inBlocco();
    Griglia &g = *m_griglia;
    g.setRigheFisse(1);
    g.setColonneFisse(0);
    g.setRighe(int(mai.size()) + 1);
    g.setLarghezzaColonna(0, 500);
    g.setLarghezzaColonna(1, 1000);
    g.setTesto(0, 0, u"Ind."_s);
    g.setSuggerimento(0, 0, u"Il numero della cinquina nell'elenco di quelle mai uscite"_s);
    g.setTesto(0, 1, u"Cinquina"_s);
    g.setSuggerimento(0, 1,
                      u"I segni delle partite 10-14 che non sono mai usciti insieme in tutto "
                      "l'archivio"_s);
    g.setAllineamentoColonna(1, Griglia::Allineamento::SinistraCentro);
    for (int n = 1; n <= mai.size(); ++n) {
        g.setTesto(n, 0, QString::number(n));
        g.setTesto(n, 1, mai.at(n - 1));
    }
}

void FrmCinquineMai::stampa() {
    m_stato.OrientamentoPagina = u"verticale"_s;
    {
        DocumentoPagine documento;
        CinquineMai::scriviStampa(
            documento, CinquineMai::dellaStampa(m_stato.ColonneArchivio, m_stato.BaseColonne9),
            EsportazioneExcel::oggi());
    }
    FrmAnteprima::avvia(m_stato, m_stato.registro() ? m_stato.registro()->finestra() : window());
}
