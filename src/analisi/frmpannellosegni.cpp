#include "analisi/frmpannellosegni.h"

#include "analisi/grigliepannello.h"
#include "analisi/stampapannello.h"
#include "analisi/statistichesegni.h"
#include "core/glossario.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/mditrascinamento.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/stampanteqt.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmanteprima.h"
#include "stampa/frmmenugriglie.h"

#include <QComboBox>
#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *didascalia(const QString &testo, QWidget *genitore, const QString &nome = {}) {
    auto *l = new QLabel(testo, genitore);
    if (!nome.isEmpty())
        l->setObjectName(nome);
    MdiStile::grassetto(l);
    return l;
}

} // namespace

FrmPannelloSegni::FrmPannelloSegni(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_terzine(new Griglia(GrigliePannello::RigheTerzine, 27, this))
    , m_cinquine(new Griglia(GrigliePannello::RigheCinquine, 243, this))
    , m_coppie(new Griglia(GrigliePannello::RigheCoppie, 9, this))
    , m_selezione(*m_terzine) {
    // Everything is computed here, once: the panel has no reload of its own.
    const StatisticheSegni::Figure figure =
        StatisticheSegni::calcola(stato.ColonneArchivio, stato.BaseColonne9);
    GrigliePannello::riempiTerzine(*m_terzine, figure);
    GrigliePannello::riempiCinquine(*m_cinquine, figure);
    GrigliePannello::riempiCoppie(*m_coppie, figure);

    setObjectName(u"frmPannelloSegni"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    MdiStile::senzaCornice(this);
    // The first screen of the program stands at the top left of the frame's area.
    setProperty(RegistroSchermi::PosizioneFissa, true);
    setStyleSheet(u"#lblTitolo { color: #1d3f72; }"
                  "#lblIndice { color: #8b0000; }"_s);

    auto *titolo = didascalia(QString::fromUtf8(Titolo).trimmed(), this, u"lblTitolo"_s);
    QFont fTitolo = titolo->font();
    fTitolo.setPointSizeF(fTitolo.pointSizeF() * 1.15);
    titolo->setFont(fTitolo);
    auto *lblIndice =
        didascalia(GrigliePannello::testoIndice(stato.ColonneArchivio), this, u"lblIndice"_s);
    lblIndice->setCursor(Qt::SizeAllCursor);
    // The panel has no title bar: it is moved by its background and by lblIndice.
    MdiTrascinamento::installa(this, {lblIndice});
    auto *lblEsci = MdiStile::pulsanteEsci(this);

    auto *vistaTerzine = creaVista(u"Griglia"_s, m_terzine);
    auto *vistaCoppie = creaVista(u"GrigliaCoppie"_s, m_coppie);
    auto *vistaCinquine = creaVista(u"GrigliaCinquine"_s, m_cinquine);
    connect(vistaTerzine, &VistaGriglia::clic, this, &FrmPannelloSegni::clicTerzine);
    // The right button hands a grid to the export: its first row of signs becomes the header.
    FrmMenuGriglie::esportaConTastoDestro(stato, vistaTerzine,
                                          u"Situazione delle 27 Terzine, alla data "_s);
    FrmMenuGriglie::esportaConTastoDestro(stato, vistaCinquine,
                                          u"Situazione delle 243 Cinquine, alla data "_s);
    FrmMenuGriglie::esportaConTastoDestro(stato, vistaCoppie,
                                          u"Situazione delle 9 Coppie finali, alla data "_s);

    auto *cmbStampa = new QComboBox(this);
    cmbStampa->setObjectName(u"cmbStampa"_s);
    cmbStampa->addItems({u"Terzine"_s, u"Cinquine"_s, u"Coppie"_s});
    cmbStampa->setCurrentIndex(0);
    auto *lblStampa = new QLabel(u"Opzione di stampa"_s, this);
    lblStampa->setObjectName(u"lblStampa"_s);
    auto *imgStampa = new QPushButton(style()->standardIcon(QStyle::SP_FileDialogDetailedView),
                                      u"Stampa"_s, this);
    imgStampa->setObjectName(u"imgStampa"_s);
    imgStampa->setCursor(Qt::PointingHandCursor);
    connect(imgStampa, &QPushButton::clicked, this, [this, cmbStampa] {
        eseguiProtetto(m_stato.dialoghi(), [&] { stampa(cmbStampa->currentText()); });
    });
    MdiTastiera::stampa(this, imgStampa);

    auto *testa = new QHBoxLayout;
    testa->addWidget(titolo);
    testa->addSpacing(24);
    testa->addWidget(lblIndice);
    testa->addStretch();
    testa->addWidget(lblEsci);

    auto *stampa = new QVBoxLayout;
    stampa->addWidget(lblStampa);
    stampa->addWidget(cmbStampa);
    stampa->addWidget(imgStampa);
    stampa->addStretch();

    auto *griglie = new QGridLayout;
    griglie->setHorizontalSpacing(16);
    griglie->setVerticalSpacing(3);
    auto *lblTerzine = didascalia(u"Le 27 Terzine del 9"_s, this, u"lblTerzine"_s);
    lblTerzine->setToolTip(Glossario::terzina(4));
    auto *lblCoppie = didascalia(u"Le Coppie finali (13-14)"_s, this, u"lblCoppie"_s);
    lblCoppie->setToolTip(Glossario::coppia());
    auto *lblCinquine =
        didascalia(u"Le Cinquine finali (Segni 10-11-12-13-14)"_s, this, u"lblCinquine"_s);
    lblCinquine->setToolTip(Glossario::cinquina());
    griglie->addWidget(lblTerzine, 0, 0);
    griglie->addWidget(vistaTerzine, 1, 0, 3, 1, Qt::AlignLeft | Qt::AlignTop);
    griglie->addWidget(lblCoppie, 0, 1);
    griglie->addWidget(vistaCoppie, 1, 1, Qt::AlignLeft | Qt::AlignTop);
    griglie->addLayout(stampa, 2, 1);
    griglie->setRowStretch(2, 1);
    griglie->setColumnStretch(1, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->setSpacing(4);
    layout->addLayout(testa);
    layout->addLayout(griglie);
    layout->addWidget(lblCinquine);
    layout->addWidget(vistaCinquine);
    vistaCinquine->setMaximumWidth(vistaTerzine->width() + 16 + 260);
}

FrmPannelloSegni::~FrmPannelloSegni() {
    // The marks die with the panel, and so do the groups of the system generator, which must
    // stay in step with them. While the frame closes there is nobody left to tell.
    m_stato.TerzineSistema = {};
    if (m_stato.registro())
        m_stato.registro()->avvisaSchermo(u"frmSistema"_s, "mostraTerzine");
}

VistaGriglia *FrmPannelloSegni::creaVista(const QString &nome, Griglia *griglia) {
    auto *vista = new VistaGriglia(this);
    vista->setObjectName(nome);
    vista->setGriglia(griglia);
    // The grid of the cinquine is too wide for any screen: it scrolls sideways.
    if (vista->larghezzaColonne() <= 1000) {
        vista->adattaA();
        return vista;
    }
    vista->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    vista->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    vista->setMinimumWidth(400);
    vista->setFixedHeight(vista->dimensioneEsatta().height() +
                          vista->horizontalScrollBar()->sizeHint().height());
    return vista;
}

void FrmPannelloSegni::clicTerzine(int riga, int colonna) {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        const SelezioneTerzine::Risultato r = m_selezione.clic(riga, colonna);
        if (r.esito == SelezioneTerzine::Esito::Nulla)
            return;
        // The generator of systems is where the chosen terzine go: an addition shows it, every
        // change reaches its grids and brings it in front of the panel.
        for (int g = 0; g < SelezioneTerzine::Gruppi; ++g)
            m_stato.TerzineSistema[std::size_t(g)] = m_selezione.terzine(g + 1);
        RegistroSchermi *registro = m_stato.registro();
        if (!registro)
            return;
        if (r.esito == SelezioneTerzine::Esito::Aggiunta ||
            registro->trovaSchermo(u"frmSistema"_s))
            registro->mostraSchermo(u"frmSistema"_s);
        registro->avvisaSchermo(u"frmSistema"_s, "mostraTerzine");
    });
}

void FrmPannelloSegni::stampa(const QString &scelta) {
    if (!m_stato.dialoghi().domanda(Dialoghi::titoloApplicazione(),
                                    u"Confermi la stampa delle "_s + scelta + u"?"_s))
        return;
    if (scelta == u"Cinquine"_s) {
        m_stato.OrientamentoPagina = u"verticale"_s;
        DocumentoPagine documento;
        StampaPannello::scriviCinquine(documento, *m_cinquine, EsportazioneExcel::oggi());
        FrmAnteprima::avvia(m_stato,
                            m_stato.registro() ? m_stato.registro()->finestra() : window());
        return;
    }
    const bool coppie = scelta == u"Coppie"_s;
    // The number 27 stands in the title of the coppie too, as it always has.
    const QString titolo =
        coppie ? u"Statistiche delle 27 Coppie finali."_s : u"Statistiche delle 27 Terzine."_s;
    StampanteQt stampante(m_stato.dialoghi(), m_stato.impostazioni(), m_stato.FileStampaPdf,
                          m_stato.paginaOrizzontale());
    stampante.setOrizzontale(false);
    stampante.setNomeDocumento(titolo);
    if (!stampante.scegliSeManca())
        return;
    StampaPannello::stampaGriglia(stampante.inizia(), coppie ? *m_coppie : *m_terzine, titolo,
                                  m_stato.ColonneArchivio.ultima()[ArchivioColonne::Concorso]);
    stampante.fine();
}
