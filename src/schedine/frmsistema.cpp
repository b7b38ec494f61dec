#include "schedine/frmsistema.h"

#include "analisi/selezioneterzine.h"
#include "core/mdiclessidra.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"
#include "schedine/sistemaintegrale.h"

#include <algorithm>

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmSistema::FrmSistema(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmSistema"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    // It works beside the signs panel, which is wide: at the right of the area, and in front of
    // the panel after each choice made there.
    setProperty(RegistroSchermi::PosizioneFissa, true);

    auto *lblIstruzioni = new QLabel(u"Seleziona le terzine nel pannello delle Terzine."_s, this);
    lblIstruzioni->setObjectName(u"lblIstruzioni"_s);
    MdiStile::grassetto(lblIstruzioni);
    lblIstruzioni->setWordWrap(true);

    auto *gruppi = new QGridLayout;
    gruppi->setHorizontalSpacing(10);
    gruppi->setVerticalSpacing(4);
    static const char *const Blocchi[] = {"1ª", "2ª", "3ª"};
    for (int g = 1; g <= SistemaIntegrale::Gruppi; ++g) {
        auto *etichetta = new QLabel(u"%1° Gruppo"_s.arg(g), this);
        etichetta->setObjectName(u"lblGruppo%1"_s.arg(g));
        MdiStile::grassetto(etichetta);
        // The colour of the group's marks in the panel.
        const QColor colore = SelezioneTerzine::coloreGruppo(g);
        etichetta->setStyleSheet(
            u"QLabel { background: %1; padding: 2px 6px; }"_s.arg(colore.name()));
        etichetta->setToolTip(
            u"Le terzine scelte sul ritardo o sulla frequenza della %1 terzina "
            "del pannello: dieci al più"_s.arg(QString::fromUtf8(Blocchi[g - 1])));
        auto *griglia = new Griglia(3, SistemaIntegrale::TerzinePerGruppo, this);
        SistemaIntegrale::prepara(*griglia);
        m_griglie[std::size_t(g - 1)] = griglia;
        auto *vista = new VistaGriglia(this);
        vista->setObjectName(u"Griglia%1"_s.arg(g));
        vista->setGriglia(griglia);
        vista->adattaA();
        vista->setToolTip(u"Una terzina per colonna, dall'alto il primo segno"_s);
        gruppi->addWidget(etichetta, 2 * (g - 1), 0, Qt::AlignLeft);
        gruppi->addWidget(vista, 2 * (g - 1) + 1, 0, Qt::AlignLeft);
    }

    auto *cmdGenera = new QPushButton(u"Genera sistema integrale"_s, this);
    cmdGenera->setObjectName(u"cmdGenera"_s);
    cmdGenera->setToolTip(u"Aggiunge all'elenco ogni combinazione di una terzina per gruppo "
                          "(Invio)"_s);
    connect(cmdGenera, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { genera(); }); });
    MdiTastiera::pulsantePredefinito(this, cmdGenera);

    auto *cmdTrasferisci = new QPushButton(u"Trasferisci per l'analisi e  la stampa"_s, this);
    cmdTrasferisci->setObjectName(u"cmdTrasferisci"_s);
    cmdTrasferisci->setToolTip(u"Porta le colonne generate nell'analisi del \"9\", con frequenza "
                               "e ritardo nell'archivio, per i filtri e la stampa delle "
                               "schedine"_s);
    connect(cmdTrasferisci, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { trasferisci(); }); });

    m_lstSistema = new QListWidget(this);
    m_lstSistema->setObjectName(u"lstSistema"_s);
    m_lstSistema->setUniformItemSizes(true);
    m_lstSistema->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_lstSistema->setToolTip(u"Le colonne generate, una per riga: le tre terzine unite da \"-\""_s);
    m_lstSistema->setMinimumHeight(m_lstSistema->fontMetrics().height() * 6);

    auto *lblColonne = new QLabel(u"Colonne generate"_s, this);
    lblColonne->setObjectName(u"lblColonne"_s);
    m_lblTot = new QLabel(u"0"_s, this);
    m_lblTot->setObjectName(u"lblTot"_s);
    m_lblTot->setToolTip(u"Le colonne dell'ultima generazione"_s);
    MdiStile::grassetto(m_lblTot);
    auto *totale = new QHBoxLayout;
    totale->addWidget(lblColonne);
    totale->addWidget(m_lblTot);
    totale->addStretch();

    // One narrow column, so that it leaves most of the signs panel in sight even on a small
    // screen.
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->addWidget(lblIstruzioni);
    layout->addLayout(gruppi);
    layout->addSpacing(4);
    layout->addWidget(cmdGenera);
    layout->addWidget(cmdTrasferisci);
    layout->addWidget(m_lstSistema, 1);
    layout->addLayout(totale);

    mostraTerzine();
    // The terzine are chosen in the signs panel: it opens with this screen.
    if (RegistroSchermi *registro = m_stato.registro())
        registro->mostraSchermo(u"frmPannelloSegni"_s);
}

FrmSistema::~FrmSistema() = default;

void FrmSistema::showEvent(QShowEvent *evento) {
    QWidget::showEvent(evento);
    if (m_posizionata)
        return;
    m_posizionata = true;
    QWidget *finestra = MdiStile::finestraDi(this);
    if (const QWidget *area = finestra->parentWidget(); area && finestra != this)
        finestra->move(std::max(0, area->width() - finestra->width()), 0);
}

void FrmSistema::mostraTerzine() {
    for (int g = 0; g < SistemaIntegrale::Gruppi; ++g)
        SistemaIntegrale::riempi(*m_griglie[std::size_t(g)],
                                 m_stato.TerzineSistema[std::size_t(g)]);
}

void FrmSistema::genera() {
    SistemaIntegrale::Terzine gruppi;
    for (int g = 0; g < SistemaIntegrale::Gruppi; ++g)
        gruppi[std::size_t(g)] = SistemaIntegrale::terzine(*m_griglie[std::size_t(g)]);
    MdiClessidra clessidra;
    // The list keeps what it holds: a second press adds another run.
    m_lstSistema->addItems(SistemaIntegrale::genera(gruppi));
    m_lblTot->setText(QString::number(SistemaIntegrale::totale(gruppi)));
}

void FrmSistema::trasferisci() {
    if (m_lstSistema->count() == 0)
        return;
    QStringList righe;
    righe.reserve(m_lstSistema->count());
    for (int i = 0; i < m_lstSistema->count(); ++i)
        righe.append(m_lstSistema->item(i)->text());
    {
        MdiClessidra clessidra;
        m_stato.TabellaSistema =
            SistemaIntegrale::tabella(righe, m_lblTot->text(), m_stato.ColonneArchivio);
    }
    RegistroSchermi *registro = m_stato.registro();
    if (!registro)
        return;
    registro->mostraSchermo(u"frmColonne9"_s);
    if (!registro->avvisaSchermo(u"frmColonne9"_s, "caricaSistema"))
        throw ErroreEsecuzione(u"L'analisi del \"9\" non si è aperta: il sistema non è stato "
                               "trasferito."_s);
}
