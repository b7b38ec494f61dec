// The integral system of the 9: the combinations of the chosen terzine counted by hand, their
// figures in a hand-made archive, and the screen used as a user would, from the terzine clicked
// in the signs panel to the workspace of the 9 and the play slips.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "analisi/colonne9.h"
#include "analisi/frmcolonne9.h"
#include "analisi/frmpannellosegni.h"
#include "analisi/frmriduzione.h"
#include "analisi/passofiltro.h"
#include "analisi/riduzionegaranzia.h"
#include "analisi/statistichesegni.h"
#include "core/archiviocolonne.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "schedine/frmsistema.h"
#include "schedine/sistemaintegrale.h"

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Rows of delay of the 1ª, 2ª and 3ª terzina in the panel's grid: a click there adds the terzina
// of the column to group 1, 2 or 3.
constexpr int RigaGruppo[] = {6, 8, 10};

FrmPannelloSegni *pannelloSegni(AmbienteProva &a) {
    return qobject_cast<FrmPannelloSegni *>(a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
}

FrmSistema *sistema(AmbienteProva &a) {
    return qobject_cast<FrmSistema *>(a.pannello().trovaSchermo(u"frmSistema"_s));
}

// A click on the terzina `terzina` in the row of its group, as the user chooses it.
void scegli(AmbienteProva &a, int gruppo, const QString &terzina) {
    FrmPannelloSegni *p = pannelloSegni(a);
    QVERIFY(p);
    auto *v = p->findChild<VistaGriglia *>(u"Griglia"_s);
    const QModelIndex i =
        v->model()->index(RigaGruppo[gruppo - 1], StatisticheSegni::indice(terzina));
    v->scrollTo(i);
    QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, v->visualRect(i).center());
}

void clic(QWidget *schermo, const QString &nome) {
    auto *b = schermo->findChild<QPushButton *>(nome);
    QVERIFY2(b, qPrintable(nome));
    QVERIFY(b->isEnabled());
    QTest::mouseClick(b, Qt::LeftButton);
}

QStringList voci(const QListWidget *lista) {
    QStringList testi;
    for (int i = 0; i < lista->count(); ++i)
        testi.append(lista->item(i)->text());
    return testi;
}

// The indices of the columns a grid of the workspace holds, top to bottom.
QList<int> indiciDi(const Griglia &g) {
    QList<int> v;
    for (int r = 1; r < g.righe(); ++r)
        v.append(Colonne9::indice(g.testo(r, 1)));
    return v;
}

// Whether every column of `tutte` has at least 9 - raggio signs equal to a column of `tenute`,
// counted sign by sign on the texts.
bool copreConISegni(const QList<int> &tutte, const QList<int> &tenute, int raggio) {
    const QStringList &elenco = Colonne9::elenco();
    for (int c : tutte) {
        bool coperta = false;
        for (int k : tenute) {
            int diversi = 0;
            for (int p = 0; p < 9; ++p)
                diversi += elenco.at(c).at(p) != elenco.at(k).at(p);
            coperta = coperta || diversi <= raggio;
        }
        if (!coperta)
            return false;
    }
    return true;
}

// The reduction window of the workspace, opened by its button.
FrmRiduzione *apriRiduzione(QWidget *analisi) {
    clic(analisi, u"cmdRiduci"_s);
    return analisi->findChild<FrmRiduzione *>(u"frmRiduzione"_s);
}

} // namespace

class TstSistema : public QObject {
    Q_OBJECT

private slots:
    void genera_data();
    void genera();
    void grigliaDelGruppo();
    void frequenzaERitardo();
    void piuGenerazioniNonSiTrasferiscono();
    void terzineDalPannello();
    void generaDueVolte();
    void trasferimentoAllAnalisi();
    void secondaGenerazioneNelBox();
    void dalMenuEDallaBarra();
    void sistemaRidottoAlleSchedine();
    void riduzioneInterrotta();
    void riduzioneSetteSuNove();
};

void TstSistema::genera_data() {
    QTest::addColumn<QStringList>("g1");
    QTest::addColumn<QStringList>("g2");
    QTest::addColumn<QStringList>("g3");
    QTest::addColumn<QStringList>("attese"); // the first lines, by hand
    QTest::addColumn<int>("totale");

    QTest::newRow("1x1x1") << QStringList{u"1X2"_s} << QStringList{u"XXX"_s}
                           << QStringList{u"221"_s} << QStringList{u"1X2-XXX-221"_s} << 1;
    QTest::newRow("2x1x3, la terza piu' veloce")
        << QStringList{u"222"_s, u"111"_s} << QStringList{u"X1X"_s}
        << QStringList{u"2X1"_s, u"111"_s, u"12X"_s}
        << QStringList{u"222-X1X-2X1"_s, u"222-X1X-111"_s, u"222-X1X-12X"_s,
                       u"111-X1X-2X1"_s, u"111-X1X-111"_s, u"111-X1X-12X"_s}
        << 6;
    QTest::newRow("un gruppo vuoto")
        << QStringList{u"111"_s} << QStringList{} << QStringList{u"222"_s} << QStringList{} << 0;
    QTest::newRow("tutti vuoti") << QStringList{} << QStringList{} << QStringList{} << QStringList{}
                                 << 0;
    // Ten terzine a group, in an order of selection that is not the panel's.
    QStringList dieci = StatisticheSegni::elencoTerzine().mid(5, 10);
    std::reverse(dieci.begin(), dieci.end());
    QTest::newRow("10x10x10") << dieci << dieci << dieci
                              << QStringList{dieci[0] + u'-' + dieci[0] + u'-' + dieci[0],
                                             dieci[0] + u'-' + dieci[0] + u'-' + dieci[1]}
                              << 1000;
}

void TstSistema::genera() {
    QFETCH(QStringList, g1);
    QFETCH(QStringList, g2);
    QFETCH(QStringList, g3);
    QFETCH(QStringList, attese);
    QFETCH(int, totale);

    const SistemaIntegrale::Terzine gruppi{g1, g2, g3};
    const QStringList righe = SistemaIntegrale::genera(gruppi);
    QCOMPARE(SistemaIntegrale::totale(gruppi), totale);
    QCOMPARE(righe.size(), totale);
    QCOMPARE(righe.mid(0, attese.size()), attese);
    // Line a·|g2|·|g3| + b·|g3| + d joins terzina a, b and d; no line twice.
    for (qsizetype i = 0; i < righe.size(); ++i) {
        const qsizetype d = i % g3.size();
        const qsizetype b = (i / g3.size()) % g2.size();
        const qsizetype a = i / (g3.size() * g2.size());
        QCOMPARE(righe.at(i), g1.at(a) + u'-' + g2.at(b) + u'-' + g3.at(d));
    }
    QCOMPARE(QSet<QString>(righe.cbegin(), righe.cend()).size(), righe.size());
}

void TstSistema::grigliaDelGruppo() {
    Griglia g;
    SistemaIntegrale::prepara(g);
    QCOMPARE(g.righe(), 3);
    QCOMPARE(g.colonne(), 10);
    QCOMPARE(g.righeFisse(), 0);
    SistemaIntegrale::riempi(g, {u"1X2"_s, u"222"_s, u"X11"_s, u"21X"_s});
    QCOMPARE(g.testo(0, 0), u"1"_s);
    QCOMPARE(g.testo(1, 0), u"X"_s);
    QCOMPARE(g.testo(2, 0), u"2"_s);
    QCOMPARE(SistemaIntegrale::terzine(g), (QStringList{u"1X2"_s, u"222"_s, u"X11"_s, u"21X"_s}));
    // A smaller group leaves no trace of the larger one.
    SistemaIntegrale::riempi(g, {u"X11"_s});
    QCOMPARE(SistemaIntegrale::terzine(g), QStringList{u"X11"_s});
    for (int c = 1; c < 10; ++c)
        for (int r = 0; r < 3; ++r)
            QVERIFY(g.testo(r, c).isEmpty());
    QCOMPARE(g.allineamento(2, 9), Griglia::Allineamento::CentroCentro);
}

void TstSistema::frequenzaERitardo() {
    // Six contests; only the first nine signs count.
    //  j  column           its 9
    //  1  1X21X21X2111XX   1X21X21X2
    //  2  222222222111XX   222222222
    //  3  1X21X21X2222X2   1X21X21X2
    //  4  11111111111111   111111111
    //  5  222222222XXXXX   222222222
    //  6  X2XX2XX2X12X21   X2XX2XX2X
    const ArchivioColonne archivio = ArchivioColonne::daRighe({
        u"2011 1 1X21X21X2111XX 1 1 1 1 1 1"_s,
        u"2011 2 222222222111XX 1 1 1 1 1 1"_s,
        u"2011 3 1X21X21X2222X2 1 1 1 1 1 1"_s,
        u"2011 4 11111111111111 1 1 1 1 1 1"_s,
        u"2011 5 222222222XXXXX 1 1 1 1 1 1"_s,
        u"2011 6 X2XX2XX2X12X21 1 1 1 1 1 1"_s,
    });
    const QStringList righe{u"1X2-1X2-1X2"_s, u"222-222-222"_s, u"X2X-X2X-X2X"_s, u"2X1-2X1-2X1"_s,
                            u"111-111-111"_s};
    const QList<SistemaIntegrale::Riga> t = SistemaIntegrale::tabella(righe, u"5"_s, archivio);
    QCOMPARE(t.size(), 5);
    QCOMPARE(t.at(0), (SistemaIntegrale::Riga{u"1X21X21X2"_s, u"2"_s, u"3"_s}));
    QCOMPARE(t.at(1), (SistemaIntegrale::Riga{u"222222222"_s, u"2"_s, u"1"_s}));
    QCOMPARE(t.at(2), (SistemaIntegrale::Riga{u"X2XX2XX2X"_s, u"1"_s, u"0"_s}));
    // Never drawn: no frequency, the delay "-".
    QCOMPARE(t.at(3), (SistemaIntegrale::Riga{u"2X12X12X1"_s, QString(), u"-"_s}));
    QCOMPARE(t.at(4), (SistemaIntegrale::Riga{u"111111111"_s, u"1"_s, u"2"_s}));
    // The same figures as the search of one column, the plain walk of the archive.
    for (const SistemaIntegrale::Riga &r : t) {
        const Colonne9::Ricerca c = Colonne9::cerca(archivio, r[0]);
        QCOMPARE(r[1].toInt(), c.frequenza);
        if (c.frequenza > 0)
            QCOMPARE(r[2].toInt(), c.ritardo);
    }
}

void TstSistema::piuGenerazioniNonSiTrasferiscono() {
    const ArchivioColonne archivio =
        ArchivioColonne::daRighe({u"2011 1 1X21X21X2111XX 1 1 1 1 1 1"_s});
    QStringList righe{u"111-111-111"_s, u"222-222-222"_s, u"111-111-111"_s};
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, SistemaIntegrale::tabella(righe, u"2"_s, archivio));
    QCOMPARE(SistemaIntegrale::tabella(righe, u"3"_s, archivio).size(), 3);
    QVERIFY(SistemaIntegrale::tabella({}, u"0"_s, archivio).isEmpty());
}

void TstSistema::terzineDalPannello() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QVERIFY(pannelloSegni(a));
    QVERIFY(!sistema(a));
    // The first terzina chosen opens the generator, its grid filled from the left.
    scegli(a, 1, u"1X2"_s);
    FrmSistema *s = sistema(a);
    QVERIFY(s);
    QCOMPARE(SistemaIntegrale::terzine(s->griglia(1)), QStringList{u"1X2"_s});
    scegli(a, 1, u"222"_s);
    scegli(a, 1, u"X11"_s);
    scegli(a, 2, u"1X2"_s);
    scegli(a, 3, u"XXX"_s);
    QCOMPARE(SistemaIntegrale::terzine(s->griglia(1)), (QStringList{u"1X2"_s, u"222"_s, u"X11"_s}));
    QCOMPARE(SistemaIntegrale::terzine(s->griglia(2)), QStringList{u"1X2"_s});
    QCOMPARE(SistemaIntegrale::terzine(s->griglia(3)), QStringList{u"XXX"_s});
    // A click on the marked sign of group 1 ("222", the sign cell of row 0) takes it out: the
    // grid closes up.
    {
        auto *v = pannelloSegni(a)->findChild<VistaGriglia *>(u"Griglia"_s);
        const QModelIndex i = v->model()->index(0, StatisticheSegni::indice(u"222"_s));
        v->scrollTo(i);
        QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, v->visualRect(i).center());
    }
    QCOMPARE(SistemaIntegrale::terzine(s->griglia(1)), (QStringList{u"1X2"_s, u"X11"_s}));
    QVERIFY(s->griglia(1).testo(0, 2).isEmpty());
    QCOMPARE(a.stato().TerzineSistema[0], (QStringList{u"1X2"_s, u"X11"_s}));
    AmbienteProva::fotografa(&a.pannello(), u"sistema-pannello"_s);

    // The panel closed takes its marks away, and the generator's grids follow.
    QMdiSubWindow *finestra = nullptr;
    for (QMdiSubWindow *f : a.pannello().findChildren<QMdiSubWindow *>())
        if (f->isAncestorOf(pannelloSegni(a)))
            finestra = f;
    QVERIFY(finestra);
    finestra->close();
    QTRY_VERIFY(!pannelloSegni(a));
    QTRY_VERIFY(SistemaIntegrale::terzine(s->griglia(1)).isEmpty());
    QVERIFY(SistemaIntegrale::terzine(s->griglia(3)).isEmpty());
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstSistema::generaDueVolte() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    for (const QString &t : {u"111"_s, u"222"_s})
        scegli(a, 1, t);
    for (const QString &t : {u"XXX"_s, u"X12"_s, u"21X"_s})
        scegli(a, 2, t);
    scegli(a, 3, u"1X2"_s);
    FrmSistema *s = sistema(a);
    QVERIFY(s);
    auto *lista = s->findChild<QListWidget *>(u"lstSistema"_s);
    auto *lblTot = s->findChild<QLabel *>(u"lblTot"_s);
    clic(s, u"cmdGenera"_s);
    const QStringList prima{u"111-XXX-1X2"_s, u"111-X12-1X2"_s, u"111-21X-1X2"_s,
                            u"222-XXX-1X2"_s, u"222-X12-1X2"_s, u"222-21X-1X2"_s};
    QCOMPARE(voci(lista), prima);
    QCOMPARE(lblTot->text(), u"6"_s);
    // A second press adds a run; the total is that of the last press.
    scegli(a, 3, u"222"_s);
    clic(s, u"cmdGenera"_s);
    QCOMPARE(lista->count(), 6 + 12);
    QCOMPARE(voci(lista).mid(0, 6), prima);
    QCOMPARE(lista->item(6)->text(), u"111-XXX-1X2"_s);
    QCOMPARE(lista->item(7)->text(), u"111-XXX-222"_s);
    QCOMPARE(lblTot->text(), u"12"_s);
    // A group left empty generates nothing.
    FrmSistema vuoto(a.stato());
    vuoto.show();
    a.stato().TerzineSistema = {};
    vuoto.mostraTerzine();
    clic(&vuoto, u"cmdGenera"_s);
    QCOMPARE(vuoto.findChild<QListWidget *>(u"lstSistema"_s)->count(), 0);
    QCOMPARE(vuoto.findChild<QLabel *>(u"lblTot"_s)->text(), u"0"_s);
    // And an empty list transfers nothing.
    clic(&vuoto, u"cmdTrasferisci"_s);
    QVERIFY(!a.pannello().trovaSchermo(u"frmColonne9"_s));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstSistema::trasferimentoAllAnalisi() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    StatoProgramma &stato = a.stato();
    stato.stampanti().imposta({u"Laser"_s});
    // The terzine of the latest winning column, and two others a group.
    const QString ultima = stato.ColonneArchivio.ultima()[ArchivioColonne::ColonnaCampo].left(9);
    QStringList gruppi[3];
    for (int g = 0; g < 3; ++g) {
        gruppi[g] = QStringList{ultima.mid(3 * g, 3)};
        for (const QString &t : {u"111"_s, u"X2X"_s, u"2X1"_s})
            if (!gruppi[g].contains(t) && gruppi[g].size() < 3)
                gruppi[g].append(t);
        for (const QString &t : std::as_const(gruppi[g]))
            scegli(a, g + 1, t);
    }
    FrmSistema *s = sistema(a);
    QVERIFY(s);
    clic(s, u"cmdGenera"_s);
    QCOMPARE(s->findChild<QLabel *>(u"lblTot"_s)->text(), u"27"_s);
    clic(s, u"cmdTrasferisci"_s);
    QVERIFY(a.dialoghi.boxes.isEmpty());

    QWidget *analisi = a.pannello().trovaSchermo(u"frmColonne9"_s);
    QVERIFY(analisi);
    const Griglia &g = *analisi->findChild<VistaGriglia *>(u"Griglia"_s)->griglia();
    QCOMPARE(g.righe(), 28);
    QCOMPARE(analisi->findChild<QLabel *>(u"lblTot"_s)->text(), u"27"_s);
    QCOMPARE(g.testo(1, 0), u"1)"_s);
    QCOMPARE(g.testo(27, 0), u"27)"_s);
    QCOMPARE(g.testo(1, 1), gruppi[0][0] + gruppi[1][0] + gruppi[2][0]);
    QCOMPARE(g.testo(1, 1), ultima);
    QCOMPARE(g.testo(2, 1), gruppi[0][0] + gruppi[1][0] + gruppi[2][1]);
    QCOMPARE(g.allineamento(5, 1), Griglia::Allineamento::SinistraCentro);
    int maiUscite = 0;
    for (int r = 1; r < g.righe(); ++r) {
        const Colonne9::Ricerca c = Colonne9::cerca(stato.ColonneArchivio, g.testo(r, 1));
        QCOMPARE(g.testo(r, 2), c.frequenza == 0 ? QString() : QString::number(c.frequenza));
        QCOMPARE(g.testo(r, 3), c.frequenza == 0 ? u"-"_s : QString::number(c.ritardo));
        maiUscite += c.frequenza == 0;
    }
    QCOMPARE(g.testo(1, 3), u"0"_s);
    // The filters take the system on; the start is off.
    QVERIFY(!analisi->findChild<QPushButton *>(u"cmdAvvia"_s)->isEnabled());
    for (const QString &nome :
         {u"cmdRipristina"_s, u"cmdOk"_s, u"cmdAvviaFiltro"_s, u"cmdSegniDiversi"_s, u"Command1"_s,
          u"cmdFreq"_s, u"cmdEliminaMaiUscite"_s, u"cmdEliminaSegno"_s, u"cmdCons"_s,
          u"cmdTerzineOmogenee"_s})
        QVERIFY2(analisi->findChild<QWidget *>(nome)->isEnabled(), qPrintable(nome));
    clic(analisi, u"cmdEliminaMaiUscite"_s);
    QCOMPARE(analisi->findChild<QLabel *>(u"lblTot"_s)->text(), QString::number(27 - maiUscite));
    AmbienteProva::fotografa(&a.pannello(), u"sistema-analisi"_s);
    // One step back, and on to the play slips.
    clic(analisi, u"cmdPrec"_s);
    QCOMPARE(g.righe(), 28);
    clic(analisi, u"imgStampaSchedine"_s);
    QCOMPARE(stato.ColonneStampa.size(), 27);
    QCOMPARE(stato.ColonneStampa.first().left(9), ultima);
    QWidget *stampa = a.pannello().trovaSchermo(u"frmStampa"_s);
    QVERIFY(stampa);
    QCOMPARE(stampa->findChild<QLabel *>(u"lblSistema"_s)->text(), u"27"_s);
}

void TstSistema::secondaGenerazioneNelBox() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // The workspace with the whole universe in it.
    QWidget *analisi = a.apriAnalisi9();
    QVERIFY(analisi);
    const Griglia &g = *analisi->findChild<VistaGriglia *>(u"Griglia"_s)->griglia();
    QTRY_COMPARE(g.righe(), Colonne9::Numero + 1);

    a.pannello().findChild<QAction *>(u"mnuPannelloSegni"_s)->trigger();
    scegli(a, 1, u"111"_s);
    scegli(a, 2, u"111"_s);
    scegli(a, 3, u"111"_s);
    scegli(a, 3, u"222"_s);
    FrmSistema *s = sistema(a);
    QVERIFY(s);
    clic(s, u"cmdGenera"_s);
    clic(s, u"cmdGenera"_s);
    QCOMPARE(s->findChild<QListWidget *>(u"lstSistema"_s)->count(), 4);
    a.dialoghi.svuota();
    clic(s, u"cmdTrasferisci"_s);
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"4 colonne"_s));
    // The workspace is as it was.
    QCOMPARE(g.righe(), Colonne9::Numero + 1);
    QCOMPARE(analisi->findChild<QLabel *>(u"lblTot"_s)->text(), QString::number(Colonne9::Numero));
    QCOMPARE(g.testo(1, 1), u"111111111"_s);
}

void TstSistema::dalMenuEDallaBarra() {
    for (const QString &voce : {u"mnuSistema"_s, u"TB(11)"_s}) {
        AmbienteProva a;
        QVERIFY(a.avvia());
        a.pannello().chiudiSchermi();
        QTRY_VERIFY(!pannelloSegni(a));
        auto *azione = a.pannello().findChild<QAction *>(voce);
        QVERIFY2(azione && azione->isEnabled(), qPrintable(voce));
        azione->trigger();
        FrmSistema *s = sistema(a);
        QVERIFY(s);
        QCOMPARE(s->windowTitle(), u" Sviluppo Sistema Integrale"_s);
        // The screen brings the panel where the terzine are chosen.
        QVERIFY(pannelloSegni(a));
        QCOMPARE(s->findChild<QPushButton *>(u"cmdTrasferisci"_s)->text(),
                 u"Trasferisci per l'analisi e  la stampa"_s);
        QCOMPARE(s->findChild<QLabel *>(u"lblIstruzioni"_s)->text(),
                 u"Seleziona le terzine nel pannello delle Terzine."_s);
        QVERIFY(a.dialoghi.boxes.isEmpty());
    }
}

// The whole road: terzine clicked in the panel, the system generated and transferred, narrowed
// by a filter, reduced with the guarantee of 8 out of 9, undone, reduced again and handed to the
// play slips.
void TstSistema::sistemaRidottoAlleSchedine() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.stato().stampanti().imposta({u"Laser"_s});
    const QStringList terzine{u"111"_s, u"11X"_s, u"1X2"_s, u"X12"_s, u"222"_s};
    for (int g = 1; g <= 3; ++g)
        for (const QString &t : terzine)
            scegli(a, g, t);
    FrmSistema *s = sistema(a);
    QVERIFY(s);
    clic(s, u"cmdGenera"_s);
    QCOMPARE(s->findChild<QLabel *>(u"lblTot"_s)->text(), u"125"_s);
    clic(s, u"cmdTrasferisci"_s);
    QWidget *analisi = a.pannello().trovaSchermo(u"frmColonne9"_s);
    QVERIFY(analisi);
    const Griglia &g = *analisi->findChild<VistaGriglia *>(u"Griglia"_s)->griglia();
    QCOMPARE(g.righe(), 126);
    // No "2" in the ninth box.
    auto *segno = analisi->findChild<QComboBox *>(u"cmbEliminaSegno"_s);
    segno->setCurrentIndex(segno->findText(u"2"_s));
    auto *casella = analisi->findChild<QComboBox *>(u"cmbCasella"_s);
    casella->setCurrentIndex(casella->findText(u"9"_s));
    clic(analisi, u"cmdEliminaSegno"_s);
    QCOMPARE(g.righe(), 51);
    const QList<int> filtrate = indiciDi(g);

    FrmRiduzione *r = apriRiduzione(analisi);
    QVERIFY(r);
    QVERIFY(r->isVisible());
    QCOMPARE(r->findChild<QLabel *>(u"lblPrima"_s)->text(), u"Colonne da ridurre: 50"_s);
    QVERIFY(r->findChild<QRadioButton *>(u"optGaranzia8"_s)->isChecked());
    r->findChild<QSpinBox *>(u"txtLimite"_s)->setValue(5);
    clic(r, u"cmdRiduci"_s);
    QVERIFY(!r->inCorso());
    const QList<int> ridotte = indiciDi(g);
    QVERIFY2(ridotte.size() < 25, qPrintable(QString::number(ridotte.size())));
    QVERIFY(RiduzioneGaranzia::garantita(filtrate, ridotte, 9, 1));
    QVERIFY(copreConISegni(filtrate, ridotte, 1));
    for (int c : ridotte)
        QVERIFY(filtrate.contains(c));
    QCOMPARE(analisi->findChild<QLabel *>(u"lblTot"_s)->text(), QString::number(ridotte.size()));
    const QString esito = r->findChild<QLabel *>(u"lblEsito"_s)->text();
    QVERIFY2(esito.startsWith(u"Colonne prima: 50. Colonne dopo: %1 ("_s.arg(ridotte.size())),
             qPrintable(esito));
    QVERIFY(esito.contains(u"Garanzia 8 su 9 verificata"_s));
    AmbienteProva::fotografa(r, u"frmRiduzione"_s);
    clic(r, u"cmdChiudi"_s);
    QTRY_VERIFY(!analisi->findChild<FrmRiduzione *>(u"frmRiduzione"_s));
    auto *frm = qobject_cast<FrmColonne9 *>(analisi);
    QVERIFY(frm);
    QCOMPARE(
        PassoFiltro::descrizioni(frm->banco().catena()),
        (QStringList{u"Sistema integrale di 125 colonne"_s, u"Elimina il segno 2 in casella 9"_s,
                     u"Riduzione con garanzia 8 su 9: %1 colonne"_s.arg(ridotte.size())}));

    // The undo brings back the 50 columns, as after any filter.
    clic(analisi, u"cmdPrec"_s);
    QCOMPARE(indiciDi(g), filtrate);
    QCOMPARE(frm->banco().catena().size(), 2);

    // Reduced again, and on to the slips.
    r = apriRiduzione(analisi);
    QVERIFY(r);
    r->findChild<QSpinBox *>(u"txtLimite"_s)->setValue(5);
    clic(r, u"cmdRiduci"_s);
    clic(r, u"cmdChiudi"_s);
    const QList<int> ancora = indiciDi(g);
    QVERIFY(RiduzioneGaranzia::garantita(filtrate, ancora, 9, 1));
    QCOMPARE(a.dialoghi.testi().join(u"|"_s), QString());
    clic(analisi, u"imgStampaSchedine"_s);
    QCOMPARE(a.stato().ColonneStampa.size(), ancora.size());
    QWidget *stampa = a.pannello().trovaSchermo(u"frmStampa"_s);
    QVERIFY(stampa);
    QCOMPARE(stampa->findChild<QLabel *>(u"lblSistema"_s)->text(), QString::number(ancora.size()));
}

// The whole universe reduced with a long limit and stopped at once: the best reduction found so
// far replaces the grid, and it holds.
void TstSistema::riduzioneInterrotta() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *analisi = a.apriAnalisi9();
    QVERIFY(analisi);
    const Griglia &g = *analisi->findChild<VistaGriglia *>(u"Griglia"_s)->griglia();
    const QList<int> universo = indiciDi(g);
    QCOMPARE(universo.size(), Colonne9::Numero);

    FrmRiduzione *r = apriRiduzione(analisi);
    QVERIFY(r);
    r->findChild<QSpinBox *>(u"txtLimite"_s)->setValue(600);
    // Stopped at the first look the search gives the window.
    bool interrotta = false;
    QTimer guarda;
    guarda.setInterval(5);
    QObject::connect(&guarda, &QTimer::timeout, r, [&] {
        if (r->inCorso() && !interrotta) {
            clic(r, u"cmdInterrompi"_s);
            interrotta = true;
        }
    });
    guarda.start();
    QElapsedTimer tempo;
    tempo.start();
    clic(r, u"cmdRiduci"_s);
    QVERIFY(interrotta);
    QVERIFY(tempo.elapsed() < 30000);
    const QList<int> ridotte = indiciDi(g);
    QCOMPARE(a.dialoghi.testi().join(u"|"_s), QString());
    QVERIFY(ridotte.size() < 2000);
    QVERIFY(RiduzioneGaranzia::garantita(universo, ridotte, 9, 1));
    QVERIFY(r->findChild<QLabel *>(u"lblEsito"_s)->text().contains(u"Ricerca interrotta"_s));
    // Esc closes the window once the search is over.
    QTest::keyClick(r, Qt::Key_Escape);
    QTRY_VERIFY(!analisi->findChild<FrmRiduzione *>(u"frmRiduzione"_s));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

// The guarantee of 7 out of 9 on the columns with "1" fixed in the first three boxes (729):
// fewer columns than with 8 out of 9, each column within two signs of a kept one.
void TstSistema::riduzioneSetteSuNove() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FrmColonne9 *analisi = a.apriAnalisi9();
    QVERIFY(analisi);
    for (const QString &pos : {u"1"_s, u"2"_s, u"3"_s})
        QVERIFY(!analisi->banco().segnoFisso(pos, u"1"_s));
    const Griglia &g = *analisi->findChild<VistaGriglia *>(u"Griglia"_s)->griglia();
    QCOMPARE(g.righe(), 730);
    const QList<int> fisse = indiciDi(g);
    FrmRiduzione *r = apriRiduzione(analisi);
    QVERIFY(r);
    StrumentiProva::clic(r->findChild<QRadioButton *>(u"optGaranzia7"_s));
    QCOMPARE(r->garanzia(), u"7 su 9"_s);
    r->findChild<QSpinBox *>(u"txtLimite"_s)->setValue(5);
    clic(r, u"cmdRiduci"_s);
    const QList<int> sette = indiciDi(g);
    QVERIFY(RiduzioneGaranzia::garantita(fisse, sette, 9, 2));
    QVERIFY(copreConISegni(fisse, sette, 2));
    QVERIFY(!RiduzioneGaranzia::garantita(fisse, sette, 9, 1));
    QVERIFY2(sette.size() <= 81, qPrintable(QString::number(sette.size())));
    QCOMPARE(analisi->banco().catena().last().descrizione(),
             u"Riduzione con garanzia 7 su 9: %1 colonne"_s.arg(sette.size()));
}

QTEST_MAIN(TstSistema)
#include "tst_sistema.moc"
