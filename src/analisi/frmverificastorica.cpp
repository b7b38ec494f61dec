#include "analisi/frmverificastorica.h"

#include "analisi/colonne9.h"
#include "core/frmattendere.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/frmmenugriglie.h"

#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLegendMarker>
#include <QLineSeries>
#include <QListWidget>
#include <QPushButton>
#include <QScatterSeries>
#include <QSpinBox>
#include <QValueAxis>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Colonne = 6;
constexpr int Larghezze[Colonne] = {700, 900, 1000, 1500, 1700, 800};
const QColor ColorePresa(200, 240, 200);

QLabel *etichettaRiepilogo(const QString &nome, QWidget *genitore) {
    auto *l = new QLabel(genitore);
    l->setObjectName(nome);
    l->setTextFormat(Qt::PlainText);
    l->setWordWrap(true);
    return l;
}

} // namespace

FrmVerificaStorica::FrmVerificaStorica(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(1, Colonne, this))
    , m_lstCatena(new QListWidget(this))
    , m_txtConcorsi(new QSpinBox(this))
    , m_cmdAvvia(new QPushButton(u"Avvia la verifica"_s, this))
    , m_lblPrese(etichettaRiepilogo(u"lblPrese"_s, this))
    , m_lblMedia(etichettaRiepilogo(u"lblMedia"_s, this))
    , m_lblCaso(etichettaRiepilogo(u"lblCaso"_s, this))
    , m_lblGiudizio(etichettaRiepilogo(u"lblGiudizio"_s, this))
    , m_grafico(new QChartView(this)) {
    setObjectName(u"frmVerificaStorica"_s);
    setWindowTitle(QString::fromUtf8(Titolo));

    auto *titolo = new QLabel(QString::fromUtf8(Titolo), this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.15);

    // The chain and the contests to replay.
    auto *scelta = new QGroupBox(u"I filtri applicati"_s, this);
    m_lstCatena->setObjectName(u"lstCatena"_s);
    m_lstCatena->setToolTip(u"I passi dei filtri dell'analisi del 9, nell'ordine in cui sono "
                            "stati applicati dall'ultima inizializzazione"_s);
    m_lstCatena->setMaximumHeight(80);
    m_lstCatena->setMinimumWidth(260);
    const int massimo = VerificaStorica::massimo(stato.ColonneArchivio);
    m_txtConcorsi->setObjectName(u"txtConcorsi"_s);
    m_txtConcorsi->setRange(std::min(1, massimo), massimo);
    m_txtConcorsi->setValue(std::min(VerificaStorica::ConcorsiPredefiniti, massimo));
    m_txtConcorsi->setEnabled(massimo > 0);
    const QString spiegaConcorsi =
        u"Gli ultimi concorsi dell'archivio su cui rifare i filtri: per ciascuno frequenze e "
        "ritardi vengono solo dai concorsi precedenti. Ne restano sempre almeno %1 come storia."_s
            .arg(VerificaStorica::StoriaMinima);
    m_txtConcorsi->setToolTip(spiegaConcorsi);
    auto *lblConcorsi = new QLabel(u"Concorsi da verificare"_s, scelta);
    lblConcorsi->setToolTip(spiegaConcorsi);
    m_cmdAvvia->setObjectName(u"cmdAvvia"_s);
    m_cmdAvvia->setToolTip(u"Rifà i filtri su ciascuno dei concorsi scelti (Invio)"_s);
    m_cmdAvvia->setEnabled(massimo > 0);
    MdiStile::grassetto(m_cmdAvvia);
    connect(m_cmdAvvia, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { avvia(); }); });
    MdiTastiera::pulsantePredefinito(this, m_cmdAvvia);
    auto *ls = new QGridLayout(scelta);
    ls->addWidget(m_lstCatena, 0, 0, 1, 3);
    ls->addWidget(lblConcorsi, 1, 0);
    ls->addWidget(m_txtConcorsi, 1, 1);
    ls->addWidget(m_cmdAvvia, 1, 2);
    if (massimo == 0) {
        auto *poco = new QLabel(u"L'archivio ha troppo pochi concorsi: per una verifica ne "
                                "servono almeno %1."_s.arg(VerificaStorica::StoriaMinima + 1),
                                scelta);
        poco->setObjectName(u"lblPochiConcorsi"_s);
        poco->setWordWrap(true);
        ls->addWidget(poco, 2, 0, 1, 3);
    }

    auto *riepilogo = new QGroupBox(u"Riepilogo"_s, this);
    auto *lr = new QVBoxLayout(riepilogo);
    for (QLabel *l : {m_lblPrese, m_lblMedia, m_lblCaso, m_lblGiudizio}) {
        l->setMinimumWidth(300);
        lr->addWidget(l);
    }
    lr->addStretch();
    MdiStile::grassetto(m_lblGiudizio);
    m_lblPrese->setToolTip(u"In quanti dei concorsi verificati la colonna del 9 uscita era tra "
                           "quelle che i filtri avrebbero tenuto"_s);
    m_lblMedia->setToolTip(u"Quante colonne i filtri avrebbero tenuto, in media sui concorsi: "
                           "quante se ne sarebbero giocate"_s);
    m_lblGiudizio->setToolTip(
        u"Lo scarto tra le prese dei filtri e quelle attese a caso, misurato in deviazioni "
        "standard del caso: oltre 2 lo scarto difficilmente è dovuto alla fortuna"_s);
    m_lblCaso->setToolTip(
        u"La probabilità che un insieme di colonne scelte a caso, grande "
        "quanto quello tenuto dai filtri, contenga la colonna vincente: le "
        "colonne tenute diviso %1, in media sui concorsi."_s.arg(Colonne9::Numero));

    // The contests.
    Griglia &g = *m_griglia;
    g.setRigheFisse(1);
    const QStringList intestazioni{
        u"N."_s, u"Stagione"_s, u"Concorso"_s, u"Colonna del 9"_s, u"Colonne tenute"_s, u"Presa"_s};
    const QStringList suggerimenti{u"Il numero del concorso nell'archivio, dal primo"_s,
                                   u"La stagione del concorso"_s,
                                   u"Il numero del concorso nella stagione"_s,
                                   u"La colonna del 9 uscita nel concorso"_s,
                                   u"Quante colonne i filtri avrebbero tenuto prima del concorso"_s,
                                   u"Sì se la colonna uscita era tra quelle tenute"_s};
    for (int c = 0; c < Colonne; ++c) {
        g.setLarghezzaColonna(c, Larghezze[c]);
        g.setTesto(0, c, intestazioni.at(c));
        g.setSuggerimento(0, c,
                          suggerimenti.at(c) +
                              u"\nUn doppio clic su una cella, o un clic sull'intestazione, "
                              "ordina le righe: decrescente e crescente alternati."_s);
    }
    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"Griglia"_s);
    vista->setGriglia(m_griglia);
    vista->adattaLarghezza();
    vista->setMinimumHeight(160);
    vista->ordinaConDoppioClic(&m_ordine);
    FrmMenuGriglie::esportaConTastoDestro(stato, vista,
                                          u"Verifica storica dei filtri, alla data "_s);
    vista->setToolTip(u"Il tasto destro esporta la tabella in Excel"_s);

    m_grafico->setObjectName(u"graficoTenute"_s);
    m_grafico->setRenderHint(QPainter::Antialiasing);
    m_grafico->setMinimumSize(480, 230);
    m_grafico->setToolTip(u"Le colonne tenute concorso per concorso; i punti verdi sono i "
                          "concorsi in cui la colonna vincente era tra quelle tenute"_s);
    disegnaGrafico();

    // The chain and the summary side by side over the chart; the contests at the right.
    auto *sopra = new QHBoxLayout;
    sopra->addWidget(scelta, 1);
    sopra->addWidget(riepilogo, 1);
    auto *sinistra = new QVBoxLayout;
    sinistra->addLayout(sopra);
    sinistra->addWidget(m_grafico, 1);
    auto *corpo = new QHBoxLayout;
    corpo->addLayout(sinistra, 1);
    corpo->addWidget(vista);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->addWidget(titolo);
    layout->addLayout(corpo, 1);
    consegna({});
}

FrmVerificaStorica::~FrmVerificaStorica() = default;

void FrmVerificaStorica::consegna(const CatenaFiltri &catena) {
    m_catena = catena;
    m_lstCatena->clear();
    const QStringList passi = PassoFiltro::descrizioni(catena);
    for (qsizetype i = 0; i < passi.size(); ++i)
        m_lstCatena->addItem(catena.isEmpty() ? passi.at(i)
                                              : u"%1. %2"_s.arg(i + 1).arg(passi.at(i)));
    m_esito = {};
    mostra();
}

void FrmVerificaStorica::avvia() {
    const int quanti = m_txtConcorsi->value();
    if (quanti <= 0)
        return;
    // The shared waiting box: the frame rests, the windows keep painting, "Annulla" stops.
    FrmAttendere attesa(m_stato.registro() ? m_stato.registro()->finestra() : window());
    attesa.setIntervallo(0, quanti);
    bool annullata = false;
    attesa.setAnnullamento([&annullata] { annullata = true; });
    attesa.show();
    QApplication::processEvents();
    VerificaStorica::Esito esito =
        VerificaStorica::esegui(m_stato.ColonneArchivio, m_catena, quanti, [&](int fatti, int) {
            attesa.setValore(fatti);
            QApplication::processEvents();
            return !annullata;
        });
    attesa.close();
    // A replay stopped halfway shows nothing: what was on the screen stays.
    if (esito.annullata)
        return;
    m_esito = std::move(esito);
    mostra();
}

void FrmVerificaStorica::mostra() {
    {
        const auto blocco = m_griglia->inBlocco();
        Griglia &g = *m_griglia;
        g.setRighe(1);
        g.setRighe(int(m_esito.concorsi.size()) + 1);
        for (int r = 1; r < g.righe(); ++r) {
            const VerificaStorica::Concorso &c = m_esito.concorsi.at(r - 1);
            g.setTesto(r, 0, QString::number(c.progressivo));
            g.setTesto(r, 1, c.stagione);
            g.setTesto(r, 2, c.concorso);
            g.setTesto(r, 3, c.colonna);
            g.setTesto(r, 4, QString::number(c.tenute));
            g.setTesto(r, 5, c.presa ? u"Sì"_s : u"No"_s);
            for (int k = 0; k < Colonne; ++k) {
                g.setAllineamento(r, k, Griglia::Allineamento::CentroCentro);
                if (c.presa)
                    g.setSfondo(r, k, ColorePresa);
            }
        }
    }
    m_ordine.azzera();
    const bool vuoto = m_esito.concorsi.isEmpty();
    m_lblPrese->setText(vuoto ? u"Scegliere quanti concorsi verificare e avviare la verifica."_s
                              : VerificaStorica::testoPrese(m_esito));
    m_lblMedia->setText(vuoto ? QString() : VerificaStorica::testoMedia(m_esito));
    m_lblCaso->setText(vuoto ? QString() : VerificaStorica::testoCaso(m_esito));
    m_lblGiudizio->setText(VerificaStorica::testoGiudizio(m_esito));
    disegnaGrafico();
}

void FrmVerificaStorica::disegnaGrafico() {
    auto *grafico = new QChart;
    grafico->setTitle(u"Colonne tenute per concorso"_s);
    auto *tenute = new QLineSeries(grafico);
    tenute->setName(u"Colonne tenute"_s);
    auto *prese = new QScatterSeries(grafico);
    prese->setName(u"Vincente tenuta"_s);
    prese->setMarkerSize(7);
    prese->setColor(QColor(0, 140, 0));
    prese->setBorderColor(QColor(0, 100, 0));
    int massimo = 1;
    for (const VerificaStorica::Concorso &c : std::as_const(m_esito.concorsi)) {
        tenute->append(c.progressivo, c.tenute);
        if (c.presa)
            prese->append(c.progressivo, c.tenute);
        massimo = std::max(massimo, c.tenute);
    }
    grafico->addSeries(tenute);
    grafico->addSeries(prese);
    auto *asseX = new QValueAxis(grafico);
    asseX->setTitleText(u"Concorso"_s);
    asseX->setLabelFormat(u"%d"_s);
    if (!m_esito.concorsi.isEmpty())
        asseX->setRange(m_esito.concorsi.first().progressivo, m_esito.concorsi.last().progressivo);
    auto *asseY = new QValueAxis(grafico);
    asseY->setTitleText(u"Colonne"_s);
    asseY->setLabelFormat(u"%d"_s);
    asseY->setRange(0, massimo);
    asseY->applyNiceNumbers();
    grafico->addAxis(asseX, Qt::AlignBottom);
    grafico->addAxis(asseY, Qt::AlignLeft);
    for (QAbstractSeries *s :
         {static_cast<QAbstractSeries *>(tenute), static_cast<QAbstractSeries *>(prese)}) {
        s->attachAxis(asseX);
        s->attachAxis(asseY);
    }
    grafico->legend()->setAlignment(Qt::AlignBottom);
    QChart *vecchio = m_grafico->chart();
    m_grafico->setChart(grafico);
    delete vecchio;
}
