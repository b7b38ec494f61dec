#include "schedine/frmquote.h"

#include "core/mdiclessidra.h"
#include "core/mdistile.h"
#include "core/mditrascinamento.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = 5;
constexpr int Colonne = 3;
constexpr int Larghezze[Colonne] = {1100, 1200, 2100};

// A grid of categories: the heads and the names of the four categories, every cell centred.
Griglia *nuovaGriglia(QObject *genitore, const std::array<Quote::Categoria, 4> &categorie) {
    auto *g = new Griglia(Righe, Colonne, genitore);
    const auto blocco = g->inBlocco();
    g->setRigheFisse(1);
    g->setAltezzaRighe(300);
    static const QString Teste[Colonne] = {u"Categoria"_s, u"Vincitori"_s, u"Quote"_s};
    for (int c = 0; c < Colonne; ++c) {
        g->setLarghezzaColonna(c, Larghezze[c]);
        g->setAllineamentoColonna(c, Griglia::Allineamento::CentroCentro);
        g->setTesto(0, c, Teste[c]);
    }
    for (int r = 1; r < Righe; ++r)
        g->setTesto(r, 0, QString::fromLatin1(categorie[std::size_t(r - 1)].nome));
    return g;
}

VistaGriglia *vista(QWidget *genitore, const QString &nome, Griglia *griglia) {
    auto *v = new VistaGriglia(genitore);
    v->setObjectName(nome);
    v->setGriglia(griglia);
    v->adattaA();
    return v;
}

QLabel *etichetta(QWidget *genitore, const QString &nome, const QString &testo = {}) {
    auto *l = new QLabel(testo, genitore);
    l->setObjectName(nome);
    l->setTextFormat(Qt::PlainText);
    return l;
}

} // namespace

FrmQuote::FrmQuote(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_totocalcio(nuovaGriglia(this, Quote::CategorieTotocalcio))
    , m_totogol(nuovaGriglia(this, Quote::CategorieTotogol)) {
    setObjectName(u"frmQuote"_s);
    setWindowTitle(u"Le Quote"_s);
    MdiStile::senzaCornice(this);

    auto *label8 = etichetta(this, u"Label8"_s, u"TOTOCALCIO"_s);
    auto *label9 = etichetta(this, u"Label9"_s, u"TOTOGOL"_s);
    for (QLabel *l : {label8, label9}) {
        MdiStile::titolo(l, 1.4);
        l->setCursor(Qt::SizeAllCursor);
    }
    auto *lblConcorsoTotocalcio = etichetta(this, u"lblConcorsoTotocalcio"_s);
    auto *lblConcorsoTotogol = etichetta(this, u"lblConcorsoTotogol"_s);
    for (QLabel *l : {lblConcorsoTotocalcio, lblConcorsoTotogol}) {
        MdiStile::grassetto(l, 1.1);
        l->setToolTip(u"L'ultimo concorso di cui il file delle quote ha i risultati"_s);
    }
    auto *lblMontepremiTotocalcio = etichetta(this, u"lblMontepremiTotocalcio"_s);
    auto *lblMontepremi9 = etichetta(this, u"lblMontepremi9"_s);
    auto *lblCVTotocalcio = etichetta(this, u"lblCVTotocalcio"_s);
    auto *lblMontepremiTotogol = etichetta(this, u"lblMontepremiTotogol"_s);
    auto *lblCVTotogol = etichetta(this, u"lblCVTotogol"_s);
    for (QLabel *l : {lblMontepremiTotocalcio, lblMontepremi9, lblCVTotocalcio,
                      lblMontepremiTotogol, lblCVTotogol})
        MdiStile::grassetto(l);
    m_valori = {{
        {lblConcorsoTotocalcio, Quote::ConcorsoTotocalcio},
        {lblMontepremiTotocalcio, Quote::MontepremiTotocalcio},
        {lblMontepremi9, Quote::Montepremi9},
        {lblCVTotocalcio, Quote::ColonnaTotocalcio},
        {lblConcorsoTotogol, Quote::ConcorsoTotogol},
        {lblMontepremiTotogol, Quote::MontepremiTotogol},
        {lblCVTotogol, Quote::ColonnaTotogol},
    }};

    carica();

    auto *imgDownload =
        new QPushButton(style()->standardIcon(QStyle::SP_ArrowDown), u"Aggiorna le quote"_s, this);
    imgDownload->setObjectName(u"imgDownload"_s);
    imgDownload->setCursor(Qt::PointingHandCursor);
    imgDownload->setToolTip(u"Scarica dal sito di Vespara le ultime quote e le mostra"_s);
    connect(imgDownload, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { aggiorna(); }); });
    auto *lblEsci = MdiStile::pulsanteEsci(this);

    // The two games side by side, their rows level, so that the grids stand on one line.
    auto *giochi = new QGridLayout;
    giochi->setHorizontalSpacing(8);
    giochi->setVerticalSpacing(6);
    const auto didascalia = [this](const QString &nome, const QString &testo) {
        return etichetta(this, nome, testo);
    };
    giochi->addWidget(label8, 0, 0, 1, 2);
    giochi->addWidget(lblConcorsoTotocalcio, 1, 0, 1, 2);
    giochi->addWidget(didascalia(u"lblTestoMontepremiTotocalcio"_s, u"Montepremi"_s), 2, 0);
    giochi->addWidget(lblMontepremiTotocalcio, 2, 1);
    auto *testo9 = didascalia(u"lblTestoMontepremi9"_s, u"Montepremi \"9\""_s);
    giochi->addWidget(testo9, 3, 0);
    giochi->addWidget(lblMontepremi9, 3, 1);
    giochi->addWidget(didascalia(u"lblTestoCVTotocalcio"_s, u"Colonna vincente"_s), 4, 0);
    giochi->addWidget(lblCVTotocalcio, 4, 1);
    giochi->addWidget(vista(this, u"GrigliaTotocalcio"_s, m_totocalcio), 5, 0, 1, 2,
                      Qt::AlignLeft | Qt::AlignTop);
    giochi->setColumnMinimumWidth(2, 30);
    giochi->addWidget(label9, 0, 3, 1, 2);
    giochi->addWidget(lblConcorsoTotogol, 1, 3, 1, 2);
    giochi->addWidget(didascalia(u"lblTestoMontepremiTotogol"_s, u"Montepremi"_s), 2, 3);
    giochi->addWidget(lblMontepremiTotogol, 2, 4);
    giochi->addWidget(didascalia(u"lblTestoCVTotogol"_s, u"Colonna vincente"_s), 4, 3);
    giochi->addWidget(lblCVTotogol, 4, 4);
    giochi->addWidget(vista(this, u"grigliaTotogol"_s, m_totogol), 5, 3, 1, 2,
                      Qt::AlignLeft | Qt::AlignTop);
    giochi->setRowMinimumHeight(3, lblMontepremi9->sizeHint().height());

    auto *testa = new QHBoxLayout;
    testa->addWidget(imgDownload);
    testa->addStretch();
    testa->addWidget(lblEsci, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 6, 12, 12);
    layout->setSpacing(8);
    layout->addLayout(testa);
    layout->addLayout(giochi);
    // Both grids are shown whole: a larger window has nothing more to show.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    // A press on the background or on the names of the games moves the screen.
    MdiTrascinamento::installa(this, {label8, label9});
}

FrmQuote::~FrmQuote() = default;

void FrmQuote::carica() {
    const QStringList dati = Quote::leggi(m_stato.PercorsoDati);
    for (const Valore &v : m_valori)
        v.etichetta->setText(Quote::valore(dati, v.riga));
    const auto riempi = [&dati](Griglia &g, const std::array<Quote::Categoria, 4> &categorie) {
        const auto blocco = g.inBlocco();
        for (int r = 1; r < Righe; ++r) {
            const int riga = categorie[std::size_t(r - 1)].vincitori;
            g.setTesto(r, 1, Quote::valore(dati, riga));
            g.setTesto(r, 2, Quote::valore(dati, riga + 1));
        }
    };
    riempi(*m_totocalcio, Quote::CategorieTotocalcio);
    riempi(*m_totogol, Quote::CategorieTotogol);
    // The game of the 9 stands out among the Totocalcio's categories.
    for (int c = 0; c < Colonne; ++c)
        m_totocalcio->setColore(Quote::RigaDel9, c, QColor(255, 0, 0));
}

void FrmQuote::aggiorna() {
    bool aggiornate = false;
    {
        MdiClessidra clessidra;
        aggiornate = Quote::aggiorna(m_stato).has_value();
    }
    const QString titolo = Dialoghi::titoloAggiornamenti();
    if (aggiornate)
        m_stato.dialoghi().informazione(titolo, QString::fromUtf8(Quote::Aggiornate));
    else
        m_stato.dialoghi().critico(titolo, QString::fromUtf8(Quote::SenzaConnessione));
    // The screen opens anew, where it stood, and its load shows the file as it is now.
    RegistroSchermi *registro = m_stato.registro();
    if (!registro) {
        carica();
        return;
    }
    const QPoint dove = MdiStile::finestraDi(this)->pos();
    const QString nome = objectName();
    // From here on this screen is on its way out.
    registro->rimostraSchermo(nome);
    if (QWidget *nuovo = registro->trovaSchermo(nome))
        MdiStile::finestraDi(nuovo)->move(dove);
}
