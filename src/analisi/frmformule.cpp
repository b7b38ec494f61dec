#include "analisi/frmformule.h"

#include "analisi/statisticaformule.h"
#include "core/colonna.h"
#include "core/glossario.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/frmmenugriglie.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmFormule::FrmFormule(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(StatisticaFormule::Numero + 1, 4, this)) {
    setObjectName(u"frmFormule"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    riempi();

    auto *titolo = new QLabel(QString::fromUtf8(Titolo), this);
    titolo->setObjectName(u"lblTitolo"_s);
    MdiStile::titolo(titolo, 1.15);
    auto *vista = new VistaGriglia(this);
    vista->setObjectName(u"Griglia"_s);
    vista->setGriglia(m_griglia);
    vista->adattaLarghezza();
    vista->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    vista->ordinaConDoppioClic(&m_ordine);
    FrmMenuGriglie::esportaConTastoDestro(stato, vista, u"Riepilogo Formule, alla data "_s);
    // Twenty formulas in sight; the rest scroll, and a taller window shows them all.
    vista->setMinimumHeight(vista->dimensioneEsatta(20).height());
    vista->setMaximumHeight(vista->dimensioneEsatta().height());

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 10);
    layout->addWidget(titolo);
    layout->addWidget(vista, 1, Qt::AlignHCenter);
}

FrmFormule::~FrmFormule() = default;

void FrmFormule::riempi() {
    const auto blocco = m_griglia->inBlocco();
    Griglia &g = *m_griglia;
    g.setRigheFisse(1);
    g.setColonneFisse(0);
    static const QString Ordina =
        u"\nUn doppio clic su una cella, o un clic sull'intestazione, ordina le righe: "
        "decrescente e crescente alternati."_s;
    const QString intestazioni[4] = {u"Pos."_s, u"Formula"_s, u"Freq."_s, u"Rit."_s};
    const QString spiegazioni[4] = {
        u"Il numero della formula nell'elenco: dopo un ordinamento dice da quale riga viene "
        "ciascuna riga."_s,
        Glossario::formulaNove(),
        Glossario::sigla(u"Freq."_s, u"Frequenza: in quanti concorsi dell'archivio è uscita la "
                                     "formula (i concorsi di una formula fuori elenco non "
                                     "contano)."_s),
        Glossario::sigla(u"Rit."_s, Glossario::ritardo(u"della formula"_s,
                                                       u"il numero dei concorsi dell'archivio se "
                                                       "non è mai uscita"_s))};
    for (int c = 0; c < 4; ++c) {
        g.setLarghezzaColonna(c, Larghezze[c]);
        g.setTesto(0, c, intestazioni[c]);
        g.setSuggerimento(0, c, spiegazioni[c] + Ordina);
    }
    const StatisticaFormule::Figure f = StatisticaFormule::calcola(m_stato.ColonneArchivio);
    const QStringList &formule = Colonna::formule();
    for (int i = 1; i <= StatisticaFormule::Numero; ++i) {
        g.setTesto(i, 0, QString::number(i) + u')');
        g.setTesto(i, 1, formule.at(i - 1));
        g.setTesto(i, 2, QString::number(f[i - 1].frequenza));
        g.setTesto(i, 3, QString::number(f[i - 1].ritardo));
    }
    for (int r = 0; r < g.righe(); ++r)
        for (int c = 0; c < 4; ++c)
            g.setSfondo(r, c, Griglia::daBGR(Colori[c]));
}
