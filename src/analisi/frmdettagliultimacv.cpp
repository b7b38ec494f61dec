#include "analisi/frmdettagliultimacv.h"

#include "analisi/dettagliultimacv.h"
#include "core/glossario.h"
#include "core/mdistile.h"
#include "core/mditrascinamento.h"
#include "core/statoprogramma.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *etichetta(QWidget *genitore, const QString &testo, const QString &nome = {}) {
    auto *l = new QLabel(testo, genitore);
    if (!nome.isEmpty())
        l->setObjectName(nome);
    return l;
}

// A value of the panel: bold, in a small sunken box.
QLabel *valore(QWidget *genitore, const QString &nome, const QString &testo) {
    auto *l = etichetta(genitore, testo, nome);
    MdiStile::grassetto(l);
    l->setFrameShape(QFrame::StyledPanel);
    l->setFrameShadow(QFrame::Sunken);
    l->setAlignment(Qt::AlignCenter);
    l->setMinimumWidth(54);
    l->setAutoFillBackground(true);
    l->setStyleSheet(u"background: white;"_s);
    return l;
}

} // namespace

FrmDettagliUltimaCV::FrmDettagliUltimaCV(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_griglia(new Griglia(1, 14, this)) {
    setObjectName(u"frmDettagliUltimaCV"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    MdiStile::senzaCornice(this);

    const ArchivioColonne &archivio = stato.ColonneArchivio;
    const bool vuoto = archivio.vuoto();
    const DettagliUltimaCV::Dettagli d =
        vuoto ? DettagliUltimaCV::Dettagli{} : DettagliUltimaCV::calcola(archivio);

    {
        const auto blocco = m_griglia->inBlocco();
        Griglia &g = *m_griglia;
        g.setRigheFisse(0);
        g.setColonneFisse(0);
        g.setAltezzaRighe(450);
        for (int i = 0; i < 14; ++i) {
            g.setLarghezzaColonna(i, LarghezzaCella);
            g.setAllineamento(0, i, Griglia::Allineamento::CentroCentro);
            g.setTesto(0, i, d.colonna.mid(i, 1));
            // The nine signs of the game stand in red.
            g.setColore(0, i, i < 9 ? QColor(255, 0, 0) : QColor(0, 0, 0));
            g.setGrassetto(0, i, true);
            g.setDimensioneCarattere(0, i, 14);
            g.setSuggerimento(0, i, u"Partita %1"_s.arg(i + 1));
        }
    }

    auto *label1 = etichetta(this, QString::fromUtf8(Titolo), u"Label1"_s);
    MdiStile::titolo(label1, 1.15);
    auto *lblEsci = MdiStile::pulsanteEsci(this);
    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"grigliaCV"_s);
    vista->setGriglia(m_griglia);
    vista->adattaA();

    const QString assente = u"--"_s;
    auto *lblStagione = valore(this, u"lblStagione"_s, vuoto ? assente : d.stagione);
    auto *lblConcorso = valore(this, u"lblConcorso"_s, vuoto ? assente : d.concorso);

    auto *testa = new QHBoxLayout;
    testa->addWidget(label1);
    testa->addStretch();
    testa->addWidget(lblEsci, 0, Qt::AlignTop);

    auto *concorso = new QHBoxLayout;
    concorso->addWidget(etichetta(this, u"Colonna vincente"_s, u"lblColonnaVincente"_s));
    concorso->addStretch();
    concorso->addWidget(etichetta(this, u"Stagione"_s, u"lblTestoStagione"_s));
    concorso->addWidget(lblStagione);
    concorso->addSpacing(10);
    concorso->addWidget(etichetta(this, u"Concorso"_s, u"lblTestoConcorso"_s));
    concorso->addWidget(lblConcorso);

    auto *label2 = etichetta(this, u"Prima dell'ultimo concorso"_s, u"Label2"_s);
    MdiStile::grassetto(label2);
    auto *eraCosi = etichetta(this, u"era così..."_s, u"lblEraCosi"_s);
    auto *gruppi = new QGridLayout;
    gruppi->setHorizontalSpacing(8);
    gruppi->setVerticalSpacing(4);
    gruppi->addWidget(label2, 0, 0, 1, 2);
    gruppi->addWidget(eraCosi, 0, 2, 1, 4);
    static const QString Nomi[5] = {u"Prima Terzina"_s, u"SecondaTerzina"_s, u"Terza Terzina"_s,
                                    u"Quarta Terzina"_s, u"Coppia finale"_s};
    static const QString Suffissi[5] = {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"Coppia"_s};
    for (int g = 0; g < 5; ++g) {
        const QString suffisso = Suffissi[g];
        const QString gruppo = g < 4 ? u"lblTerzina"_s + suffisso : u"lblCoppia"_s;
        const DettagliUltimaCV::Gruppo &dato = d.gruppi[g];
        const QString cosa = g < 4 ? u"terzina nelle "_s + Glossario::partiteTerzina(g + 1)
                                   : u"coppia nelle partite 13 e 14"_s;
        auto *segni = valore(this, gruppo, vuoto ? (g < 4 ? u"x x x"_s : u"x x"_s) : dato.segni);
        segni->setMinimumWidth(80);
        auto *rit = valore(this, u"lblRit"_s + suffisso,
                           vuoto ? assente : QString::number(dato.figura.ritardo));
        rit->setToolTip(u"Ritardo prima dell'ultimo concorso: quanti concorsi erano passati "
                        "dall'ultima uscita della %1 (1 se era uscita nel concorso precedente; il "
                        "numero dei concorsi dell'archivio se non era mai uscita)."_s.arg(cosa));
        auto *freq = valore(this, u"lblFreq"_s + suffisso,
                            vuoto ? assente : QString::number(dato.figura.frequenza));
        freq->setToolTip(u"Frequenza prima dell'ultimo concorso: in quanti concorsi era uscita la "
                         "%1."_s.arg(cosa));
        const int r = g + 1;
        gruppi->addWidget(etichetta(this, Nomi[g], u"lblNomeGruppo"_s + suffisso), r, 0);
        gruppi->addWidget(segni, r, 1);
        gruppi->addWidget(etichetta(this, u"Rit."_s), r, 2, Qt::AlignRight);
        gruppi->addWidget(rit, r, 3);
        gruppi->addWidget(etichetta(this, u"Freq."_s), r, 4, Qt::AlignRight);
        gruppi->addWidget(freq, r, 5);
    }
    auto *pannello = new QFrame(this);
    pannello->setObjectName(u"fraPannello"_s);
    pannello->setFrameShape(QFrame::StyledPanel);
    pannello->setLayout(gruppi);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->setSpacing(6);
    layout->addLayout(testa);
    layout->addLayout(concorso);
    layout->addWidget(vista, 0, Qt::AlignHCenter);
    layout->addSpacing(4);
    layout->addWidget(pannello);
    // Nothing on the screen has more to show in a larger window.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    // The screen has no title bar: its background, the grid and the two headings move it.
    MdiTrascinamento::installa(this, {vista->viewport(), label1, label2, pannello});
}

FrmDettagliUltimaCV::~FrmDettagliUltimaCV() = default;
