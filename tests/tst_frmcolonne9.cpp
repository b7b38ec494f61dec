// The workspace of the 9 used as a user would: opened from the frame, started, narrowed with a
// chain of filters, undone, restored, sorted and searched.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "analisi/colonne9.h"
#include "analisi/frmcolonne9.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Banco {
public:
    AmbienteProva a;
    FrmColonne9 *frm = nullptr;

    bool apri() {
        if (!a.avvia())
            return false;
        a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
        frm = qobject_cast<FrmColonne9 *>(a.pannello().trovaSchermo(u"frmColonne9"_s));
        return frm != nullptr;
    }
    template <typename T> T *w(const QString &nome) const {
        T *trovato = frm->findChild<T *>(nome);
        if (!trovato)
            qFatal("controllo assente: %s", qPrintable(nome));
        return trovato;
    }
    void clic(const QString &nome) const {
        QTest::mouseClick(w<QPushButton>(nome), Qt::LeftButton);
    }
    // "Inizializzazione", and the frame back in the user's hands after the waiting box.
    bool inizializza() const {
        clic(u"cmdAvvia"_s);
        return QTest::qWaitForWindowActive(&a.pannello());
    }
    QString tot() const { return w<QLabel>(u"lblTot"_s)->text(); }
    Griglia &griglia() const { return *w<VistaGriglia>(u"Griglia"_s)->griglia(); }
    VistaGriglia *vista() const { return w<VistaGriglia>(u"Griglia"_s); }
    // A double click on a cell of the column, as in ordinamentoERicerca.
    void doppioClic(int riga, int colonna) const {
        VistaGriglia *v = vista();
        v->scrollTo(v->model()->index(riga, colonna));
        QTest::mouseDClick(v->viewport(), Qt::LeftButton, {},
                           v->visualRect(v->model()->index(riga, colonna)).center());
    }
    // A click on the header of the column, the frozen row at the top of the grid.
    void clicIntestazione(int colonna) const {
        QHeaderView *h = vista()->horizontalHeader();
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {},
                          QPoint(h->sectionViewportPosition(colonna) + h->sectionSize(colonna) / 2,
                                 h->height() / 2));
    }
    // The rows as they stand: every cell, row after row.
    QStringList righe() const {
        const Griglia &g = griglia();
        QStringList testi;
        testi.reserve(g.righe() * g.colonne());
        for (int r = 0; r < g.righe(); ++r)
            for (int c = 0; c < g.colonne(); ++c)
                testi.append(g.testo(r, c));
        return testi;
    }
    // The column whose order the header's arrow shows, with its direction; -1 when none.
    std::pair<int, Qt::SortOrder> freccia() const {
        const QHeaderView *h = vista()->horizontalHeader();
        if (!h->isSortIndicatorShown())
            return {-1, Qt::AscendingOrder};
        return {h->sortIndicatorSection(), h->sortIndicatorOrder()};
    }
    void scegli(const QString &nome, const QString &voce) const {
        QComboBox *c = w<QComboBox>(nome);
        const int i = c->findText(voce);
        c->setCurrentIndex(i);
        emit c->activated(i);
    }
    // Option buttons and check boxes answer a click on their mark, at the left.
    void spunta(const QString &nome) const { StrumentiProva::clic(w<QAbstractButton>(nome)); }
    void scrivi(const QString &nome, const QString &testo) const {
        QLineEdit *t = w<QLineEdit>(nome);
        t->setFocus();
        QTest::keyClicks(t, testo);
    }
};

} // namespace

class TstFrmColonne9 : public QObject {
    Q_OBJECT

private slots:
    void aperturaEInizializzazione();
    void catenaDiFiltriAnnullaERipristina();
    void consegnaAlleSchedine();
    void segniFissi();
    void validazioni();
    void ordinamentoERicerca();
    void intestazioneOrdinaComeIlDoppioClic();
    void frecciaDellOrdine();
    void filtriDeiTasti();
    void consecutiviConNove();
    void inizializzazioneVeloce();
};

void TstFrmColonne9::aperturaEInizializzazione() {
    Banco b;
    QVERIFY(b.apri());
    QCOMPARE(b.frm->windowTitle(), u"Analisi Statistiche del \"9\""_s);
    QCOMPARE(b.w<QPushButton>(u"cmdAvvia"_s)->text(), u"Inizializzazione"_s);
    QCOMPARE(b.tot(), u"0"_s);
    QVERIFY(!b.w<QPushButton>(u"cmdOk"_s)->isEnabled());
    QVERIFY(!b.w<QPushButton>(u"cmdPrec"_s)->isEnabled());
    QVERIFY(!b.w<QPushButton>(u"imgStampaSchedine"_s)->isEnabled());
    for (const QString &nome : {u"cmb1"_s, u"cmbCasella"_s, u"cmbConsX"_s, u"cmbPres2"_s})
        QCOMPARE(b.w<QComboBox>(nome)->currentText(), u"?"_s);

    QVERIFY(b.inizializza());
    QCOMPARE(b.tot(), u"19683"_s);
    QVERIFY(!b.w<QPushButton>(u"cmdAvvia"_s)->isEnabled());
    QVERIFY(b.w<QPushButton>(u"cmdOk"_s)->isEnabled());
    QVERIFY(b.w<QPushButton>(u"cmdRipristina"_s)->isEnabled());
    QVERIFY(!b.a.stato().RicalcolaColonne9);
    QVERIFY(b.a.pannello().isEnabled());
    Griglia &g = b.griglia();
    QCOMPARE(g.righe(), 19684);
    QCOMPARE(g.testo(0, 1), u"Colonna del 9"_s);
    QCOMPARE(g.testo(1, 0), u"1)"_s);
    QCOMPARE(g.testo(1, 1), u"111111111"_s);
    QCOMPARE(g.testo(28, 1), u"11111X111"_s);
    QCOMPARE(g.testo(19683, 0), u"19683)"_s);
    // The last contest's column of the 9 was drawn 0 contests ago.
    const QString ultima = b.a.stato().ColonneArchivio.ultima()[2].left(9);
    const int riga = Colonne9::indice(ultima) + 1;
    QCOMPARE(g.testo(riga, 3), u" 0"_s);
    QVERIFY(g.testo(riga, 2).startsWith(u' '));
    QCOMPARE(g.testo(1, 3), u"-"_s); // "111111111" never came out in the delivered archive
    QCOMPARE(b.a.stato().StatColonne9.size(), 19683);
    AmbienteProva::fotografa(b.a.pannello().window(), u"colonne9"_s);
}

void TstFrmColonne9::catenaDiFiltriAnnullaERipristina() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());

    // 3-3-3 leaves 1680 rows, numbered without the bracket.
    b.scegli(u"cmb1"_s, u"3"_s);
    b.scegli(u"cmbX"_s, u"3"_s);
    b.scegli(u"cmb2"_s, u"3"_s);
    b.clic(u"cmdOk"_s);
    QCOMPARE(b.tot(), u"1680"_s);
    QCOMPARE(b.griglia().testo(1, 0), u"1"_s);
    QVERIFY(b.w<QPushButton>(u"cmdPrec"_s)->isEnabled());

    // Then different signs in every terzina: 6 * 6 * 6 = 216 of them are 3-3-3.
    b.clic(u"cmdSegniDiversi"_s);
    QCOMPARE(b.tot(), u"216"_s);
    const QString primaDopoDiversi = b.griglia().testo(1, 1);
    QCOMPARE(primaDopoDiversi, u"1X21X21X2"_s);

    // Then no "2" in box 9.
    b.scegli(u"cmbEliminaSegno"_s, u"2"_s);
    b.scegli(u"cmbCasella"_s, u"9"_s);
    b.clic(u"cmdEliminaSegno"_s);
    QCOMPARE(b.tot(), u"144"_s);

    // One step back, twice: the grid before the last step.
    b.clic(u"cmdPrec"_s);
    QCOMPARE(b.tot(), u"216"_s);
    QCOMPARE(b.griglia().righe(), 217);
    b.clic(u"cmdPrec"_s);
    QCOMPARE(b.tot(), u"216"_s);
    QCOMPARE(b.griglia().testo(1, 1), primaDopoDiversi);

    // Restore all; the snapshot survives it.
    b.clic(u"cmdRipristina"_s);
    QCOMPARE(b.tot(), u"19683"_s);
    QCOMPARE(b.griglia().testo(19683, 0), u"19683)"_s);
    b.clic(u"cmdPrec"_s);
    QCOMPARE(b.tot(), u"216"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());

    // Homogeneous terzine of these: none has different signs and homogeneous terzine at once.
    b.clic(u"cmdTerzineOmogenee"_s);
    QCOMPARE(b.tot(), u"0"_s);
    QCOMPARE(b.griglia().righe(), 1);
    // Later steps run over nothing.
    b.clic(u"cmdEliminaMaiUscite"_s);
    b.scegli(u"cmbSegno"_s, u"1"_s);
    QCOMPARE(b.tot(), u"0"_s);
}

void TstFrmColonne9::consegnaAlleSchedine() {
    Banco b;
    QVERIFY(b.apri());
    b.a.stato().stampanti().imposta({u"Laser"_s});
    auto *img = b.w<QPushButton>(u"imgStampaSchedine"_s);
    // Nothing to hand over before the columns are there.
    QVERIFY(!img->isEnabled());
    QVERIFY(b.inizializza());
    QVERIFY(img->isEnabled());
    b.scegli(u"cmb1"_s, u"3"_s);
    b.scegli(u"cmbX"_s, u"3"_s);
    b.scegli(u"cmb2"_s, u"3"_s);
    b.clic(u"cmdOk"_s);
    b.clic(u"cmdSegniDiversi"_s);
    QCOMPARE(b.tot(), u"216"_s);
    // The grid in an order of its own: the hand-over takes the rows as they stand.
    b.clicIntestazione(2);
    const QString prima = b.griglia().testo(1, 1);
    const QString ultima = b.griglia().testo(216, 1);
    b.a.dialoghi.svuota();
    b.clic(u"imgStampaSchedine"_s);
    StatoProgramma &s = b.a.stato();
    QCOMPARE(s.ColonneStampa.size(), 216);
    QCOMPARE(s.ColonneStampa.first(), prima);
    QCOMPARE(s.ColonneStampa.last(), ultima);
    QCOMPARE(s.PrimaColonnaStampa, 1);
    QCOMPARE(int(s.UltimaColonnaStampa), 216);
    auto *stampa = b.a.pannello().trovaSchermo(u"frmStampa"_s);
    QVERIFY(stampa);
    QCOMPARE(stampa->findChild<QLabel *>(u"lblSistema"_s)->text(), u"216"_s);
    auto *cmbA = stampa->findChild<QComboBox *>(u"cmbA"_s);
    QCOMPARE(cmbA->count(), 216);
    QCOMPARE(cmbA->currentText(), u"1"_s);
    // The grid is left as it was.
    QCOMPARE(b.griglia().righe(), 217);
    QCOMPARE(b.griglia().testo(1, 1), prima);

    // Fewer columns handed over while the screen is open: its lists follow.
    b.scegli(u"cmbEliminaSegno"_s, u"2"_s);
    b.scegli(u"cmbCasella"_s, u"9"_s);
    b.clic(u"cmdEliminaSegno"_s);
    QCOMPARE(b.tot(), u"144"_s);
    b.clic(u"imgStampaSchedine"_s);
    QCOMPARE(b.a.pannello().trovaSchermo(u"frmStampa"_s), stampa);
    QCOMPARE(cmbA->count(), 144);
    QCOMPARE(stampa->findChild<QLabel *>(u"lblSistema"_s)->text(), u"144"_s);

    // A grid with no column left: the button rests.
    b.clic(u"cmdTerzineOmogenee"_s);
    QCOMPARE(b.tot(), u"0"_s);
    QVERIFY(!img->isEnabled());
}

void TstFrmColonne9::segniFissi() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    auto *chk = b.w<QCheckBox>(u"chkFiltra"_s);
    QVERIFY(!b.w<QWidget>(u"picFiltro"_s)->isVisibleTo(b.frm));
    b.spunta(u"chkFiltra"_s);
    QVERIFY(b.w<QWidget>(u"picFiltro"_s)->isVisibleTo(b.frm));
    QVERIFY(!chk->isEnabled());
    QVERIFY(b.w<QWidget>(u"picSegni"_s)->isEnabled());

    b.scrivi(u"txtFiltroPos"_s, u"1"_s);
    b.scrivi(u"txtFiltroSegno"_s, u"x"_s);
    b.clic(u"cmdFiltro"_s);
    QCOMPARE(b.tot(), u"6561"_s);
    QCOMPARE(b.griglia().testo(6561, 0), u"6561)"_s);
    QCOMPARE(b.w<QLabel>(u"lblSegni(1)"_s)->text(), u"X"_s);

    // The same sign again, then another sign at the same place.
    b.clic(u"cmdFiltro"_s);
    b.w<QLineEdit>(u"txtFiltroSegno"_s)->setText(u"2"_s);
    b.clic(u"cmdFiltro"_s);
    QCOMPARE(b.a.dialoghi.testi(), (QStringList{u"Il segno introdotto è già stato utilizzato."_s,
                                                u"La posizione 1 è già stata utilizzata."_s}));
    QCOMPARE(b.tot(), u"6561"_s);

    // Undo doesn't free the box; its "-" does.
    b.clic(u"cmdPrec"_s);
    QCOMPARE(b.w<QLabel>(u"lblSegni(1)"_s)->text(), u"X"_s);
    b.clic(u"lblEsci(1)"_s);
    QCOMPARE(b.w<QLabel>(u"lblSegni(1)"_s)->text(), u"?"_s);
    b.clic(u"cmdFiltro"_s);
    QCOMPARE(b.w<QLabel>(u"lblSegni(1)"_s)->text(), u"2"_s);

    b.clic(u"cmdRipristina"_s);
    QCOMPARE(b.w<QLabel>(u"lblSegni(1)"_s)->text(), u"?"_s);
    QVERIFY(chk->isEnabled());
    QVERIFY(!chk->isChecked());
    QVERIFY(!b.w<QWidget>(u"picSegni"_s)->isEnabled());
}

void TstFrmColonne9::validazioni() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    b.clic(u"cmdOk"_s); // all "?": sums to 0
    b.clic(u"cmdAvviaFiltro"_s);
    b.clic(u"cmdEliminaSegno"_s);
    b.clic(u"cmdFreq"_s);
    b.spunta(u"chkConsX"_s);
    b.clic(u"cmdCons"_s);
    b.clic(u"Command1"_s);
    QCOMPARE(b.a.dialoghi.testi(),
             (QStringList{u"La formula inserita è inesatta. La somma dei segni deve essere 9."_s,
                          u"Controllare i dati inseriti."_s, u"Controllare i dati inseriti."_s,
                          u"Controllare i dati inseriti."_s, u"Controllare i dati inseriti."_s,
                          u"Inserire una colonna per il '9' valida."_s}));
    QCOMPARE(b.a.dialoghi.boxes.at(1).tipo, Dialoghi::Tipo::Avviso);
    QCOMPARE(b.tot(), u"19683"_s);
}

void TstFrmColonne9::ordinamentoERicerca() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    VistaGriglia *v = b.w<VistaGriglia>(u"Griglia"_s);
    const auto doppioClic = [v](int riga, int colonna) {
        v->scrollTo(v->model()->index(riga, colonna));
        QTest::mouseDClick(v->viewport(), Qt::LeftButton, {},
                           v->visualRect(v->model()->index(riga, colonna)).center());
    };
    // Descending by Freq. first.
    doppioClic(1, 2);
    Griglia &g = b.griglia();
    const int massima = g.testo(1, 2).trimmed().toInt();
    QVERIFY(massima >= 1);
    QVERIFY(g.testo(2, 2).trimmed().toInt() <= massima);
    // Column 1 doesn't sort; then Rit. ascending, with "-" below every number.
    const QString prima = g.testo(1, 1);
    doppioClic(1, 1);
    QCOMPARE(g.testo(1, 1), prima);
    doppioClic(1, 3);
    QCOMPARE(g.testo(1, 3), u" 0"_s);
    QCOMPARE(g.testo(19683, 3), u"-"_s);

    // The search of the last drawn column, and of one never drawn.
    const QString ultima = b.a.stato().ColonneArchivio.ultima()[2].left(9);
    b.scrivi(u"txtColonna"_s, ultima.toLower());
    b.clic(u"Command1"_s);
    QCOMPARE(b.w<QLabel>(u"lblRit"_s)->text(), u"0"_s);
    QVERIFY(b.w<QLabel>(u"lblFreq"_s)->text().toInt() >= 1);
    b.w<QLineEdit>(u"txtColonna"_s)->setText(u"111111111"_s);
    b.clic(u"Command1"_s);
    QCOMPARE(b.w<QLabel>(u"lblFreq"_s)->text(), u"0"_s);
    QCOMPARE(b.w<QLabel>(u"lblRit"_s)->text(), QString::number(b.a.stato().NumeroColonne()));
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstFrmColonne9::intestazioneOrdinaComeIlDoppioClic() {
    // One workspace sorted by double clicks on the cells, one by clicks on the headers, the same
    // columns in the same sequence: the same rows in the same order after every sort, and the
    // same arrow on the header.
    Banco doppio;
    Banco intestazione;
    QVERIFY(doppio.apri());
    QVERIFY(doppio.inizializza());
    QVERIFY(intestazione.apri());
    QVERIFY(intestazione.inizializza());
    QVERIFY(intestazione.vista()->intestazioneCliccabile());
    QCOMPARE(intestazione.righe(), doppio.righe());
    QCOMPARE(intestazione.freccia().first, -1);
    const QStringList naturale = intestazione.righe();

    struct Passo {
        int colonna;
        int freccia; // the column the arrow stands on after it
        Qt::SortOrder verso;
    };
    // Descending first, then alternately whatever the column; column 1 never sorts.
    const Passo passi[] = {
        {2, 2, Qt::DescendingOrder}, {3, 3, Qt::AscendingOrder}, {1, 3, Qt::AscendingOrder},
        {0, 0, Qt::DescendingOrder}, {3, 3, Qt::AscendingOrder}, {2, 2, Qt::DescendingOrder},
        {1, 2, Qt::DescendingOrder}, {0, 0, Qt::AscendingOrder},
    };
    QStringList prima = naturale;
    for (const Passo &p : passi) {
        doppio.doppioClic(1, p.colonna);
        intestazione.clicIntestazione(p.colonna);
        const QStringList ora = intestazione.righe();
        QVERIFY2(ora == doppio.righe(), qPrintable(u"colonna %1"_s.arg(p.colonna)));
        QCOMPARE(ora != prima, p.colonna != 1);
        QCOMPARE(intestazione.freccia(), std::make_pair(p.freccia, p.verso));
        QCOMPARE(doppio.freccia(), std::make_pair(p.freccia, p.verso));
        prima = ora;
    }
    // "Pos." ascending: the order of the start, the numbers untouched.
    QCOMPARE(intestazione.righe(), naturale);
    QVERIFY(intestazione.a.dialoghi.boxes.isEmpty());
}

void TstFrmColonne9::frecciaDellOrdine() {
    // The arrow stays while the rows hold the order it shows, and goes when they don't.
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    const auto frecciaSu = [&b](int colonna, Qt::SortOrder verso) {
        return b.freccia() == std::make_pair(colonna, verso);
    };
    b.clicIntestazione(2);
    QVERIFY(frecciaSu(2, Qt::DescendingOrder));
    AmbienteProva::fotografa(b.a.pannello().window(), u"colonne9-ordinate"_s);
    // A filter keeps the order: 3-3-3, still by Freq. from the highest.
    b.scegli(u"cmb1"_s, u"3"_s);
    b.scegli(u"cmbX"_s, u"3"_s);
    b.scegli(u"cmb2"_s, u"3"_s);
    b.clic(u"cmdOk"_s);
    QCOMPARE(b.tot(), u"1680"_s);
    QVERIFY(frecciaSu(2, Qt::DescendingOrder));
    Griglia &g = b.griglia();
    for (int r = 2; r < g.righe(); ++r)
        QVERIFY(g.testo(r - 1, 2).trimmed().toInt() >= g.testo(r, 2).trimmed().toInt());
    b.clicIntestazione(3);
    QVERIFY(frecciaSu(3, Qt::AscendingOrder));
    // The undo brings back the rows before the filter, in the order they had then.
    b.clic(u"cmdPrec"_s);
    QCOMPARE(b.tot(), u"19683"_s);
    QVERIFY(frecciaSu(2, Qt::DescendingOrder));
    // Sorted by "Pos.", then a filter writes "Pos." anew: no arrow.
    b.clicIntestazione(0);
    QVERIFY(frecciaSu(0, Qt::DescendingOrder));
    b.clic(u"cmdSegniDiversi"_s);
    QCOMPARE(b.freccia().first, -1);
    b.clicIntestazione(3);
    QVERIFY(frecciaSu(3, Qt::AscendingOrder));
    // "Ripristina tutto" brings the universe in its own order.
    b.clic(u"cmdRipristina"_s);
    QCOMPARE(b.freccia().first, -1);
    QCOMPARE(g.testo(1, 1), u"111111111"_s);
}

void TstFrmColonne9::filtriDeiTasti() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    b.scrivi(u"txtColonna"_s, u"1a X2b"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtColonna"_s)->text(), u"1X2"_s);
    QTest::keyClick(b.w<QLineEdit>(u"txtColonna"_s), Qt::Key_Backspace);
    QCOMPARE(b.w<QLineEdit>(u"txtColonna"_s)->text(), u"1X"_s);

    b.scrivi(u"cmbFreq"_s, u"1x2"_s);
    QCOMPARE(b.w<QLineEdit>(u"cmbFreq"_s)->text(), u"12"_s);
    // Backspace is refused in the digit fields.
    QTest::keyClick(b.w<QLineEdit>(u"cmbFreq"_s), Qt::Key_Backspace);
    QCOMPARE(b.w<QLineEdit>(u"cmbFreq"_s)->text(), u"12"_s);
    // "12" equals no single character of a frequency: nothing goes.
    b.clic(u"cmdFreq"_s);
    QCOMPARE(b.tot(), u"19683"_s);

    b.spunta(u"chkFiltra"_s);
    b.scrivi(u"txtFiltroPos"_s, u"1"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtFiltroPos"_s)->text(), u"1"_s);
    b.scrivi(u"txtFiltroPos"_s, u"2"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtFiltroPos"_s)->text(), QString()); // "12" is no position
    b.scrivi(u"txtFiltroPos"_s, u"05"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtFiltroPos"_s)->text(), u"05"_s);
    b.scrivi(u"txtFiltroSegno"_s, u"x"_s);
    b.w<QLineEdit>(u"txtColonna"_s)->setFocus();
    QCOMPARE(b.w<QLineEdit>(u"txtFiltroSegno"_s)->text(), u"X"_s);
}

void TstFrmColonne9::consecutiviConNove() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    b.scegli(u"cmbConsX"_s, u"9"_s);
    QCOMPARE(b.w<QComboBox>(u"cmbCons1"_s)->currentText(), u"0"_s);
    QCOMPARE(b.w<QComboBox>(u"cmbCons2"_s)->currentText(), u"0"_s);
    QCOMPARE(b.w<QComboBox>(u"cmbConsX"_s)->currentText(), u"9"_s);
    // Exactly one run of nine "X": the one column "XXXXXXXXX".
    b.spunta(u"chkConsX"_s);
    b.scegli(u"cmbPresX"_s, u"1"_s);
    b.clic(u"cmdCons"_s);
    QCOMPARE(b.tot(), u"1"_s);
    QCOMPARE(b.griglia().testo(1, 1), u"XXXXXXXXX"_s);
    // The delete form with "1": every column with a run of two or more "1" goes.
    b.clic(u"cmdRipristina"_s);
    b.spunta(u"chkCons1"_s);
    b.scegli(u"cmbCons1"_s, u"2"_s);
    b.scegli(u"cmbPres1"_s, u"0"_s);
    b.clic(u"cmdCons"_s);
    // Columns of nine signs with no two "1" side by side: a(n) = 2a(n-1) + 2a(n-2), a(1)=3,
    // a(2)=8 gives 8 22 60 164 448 1224 3344 9136 for n = 2..9.
    QCOMPARE(b.tot(), u"9136"_s);
    QCOMPARE(b.griglia().testo(9136, 0), u"9136)"_s);
}

void TstFrmColonne9::inizializzazioneVeloce() {
    Banco b;
    QVERIFY(b.apri());
    QVERIFY(b.inizializza());
    b.scegli(u"cmbFiltroSegno"_s, u"2"_s);
    b.scegli(u"cmbSegnoPresente"_s, u"9"_s);
    b.clic(u"cmdAvviaFiltro"_s);
    QCOMPARE(b.tot(), u"1"_s);
    // Closing loses the grid, not the figures: the next opening offers the fast start.
    b.a.pannello().chiudiSchermi();
    b.a.pannello().findChild<QAction *>(u"mnuAnalisi9"_s)->trigger();
    b.frm = qobject_cast<FrmColonne9 *>(b.a.pannello().trovaSchermo(u"frmColonne9"_s));
    QVERIFY(b.frm);
    QCOMPARE(b.w<QPushButton>(u"cmdAvvia"_s)->text(), u"Inizializzazione veloce"_s);
    QCOMPARE(b.tot(), u"0"_s);
    QVERIFY(b.inizializza());
    QCOMPARE(b.tot(), u"19683"_s);
    QVERIFY(b.w<QPushButton>(u"cmdAvvia"_s)->isEnabled());
    QVERIFY(!b.w<QPushButton>(u"cmdPrec"_s)->isEnabled());
    QCOMPARE(b.griglia().testo(5, 0), u"5)"_s);
}

QTEST_MAIN(TstFrmColonne9)
#include "tst_frmcolonne9.moc"
