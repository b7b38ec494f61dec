// The panel of the terzine, cinquine and coppie: its figures, its grids and the choice of the
// terzine of the system generator, clicked as a user would.
#include "supporto/ambienteprova.h"

#include "analisi/frmpannellosegni.h"
#include "analisi/grigliepannello.h"
#include "analisi/selezioneterzine.h"
#include "analisi/statistichesegni.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Four contests made by hand; the figures below are counted by hand from them.
//  j  column           1ª   2ª   cinquina coppia
//  1  111111111111XX   111  111  111XX    XX
//  2  XXX222111XXX12   XXX  222  XXX12    12
//  3  111XXX222111XX   111  XXX  111XX    XX
//  4  2221X1XX2X2X21   222  1X1  X2X21    21
ArchivioColonne archivioAMano() {
    return ArchivioColonne::daRighe({
        u"2011 1 111111111111XX 12 2 0 1 7 5"_s,
        u"2011 2 XXX222111XXX12 4 7 3 4 1 1"_s,
        u"2011 3 111XXX222111XX 6 5 3 4 1 1"_s,
        u"2011 4 2221X1XX2X2X21 3 5 6 11 2 1"_s,
    });
}

int somma(const auto &figure) {
    int s = 0;
    for (const auto &f : figure)
        s += f.frequenza;
    return s;
}

VistaGriglia *vistaTerzine(FrmPannelloSegni *p) {
    return p->findChild<VistaGriglia *>(u"Griglia"_s);
}

void clicca(VistaGriglia *v, int riga, int colonna) {
    const QRect r = v->visualRect(v->model()->index(riga, colonna));
    QVERIFY(!r.isEmpty());
    QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, r.center());
}

} // namespace

class TstPannelloSegni : public QObject {
    Q_OBJECT

private slots:
    void elenchiDegliSchemi();
    void figureAMano_data();
    void figureAMano();
    void coppieSoloNegliUltimiConcorsi();
    void limitiDellArchivio();
    void unaPassataComeLeScansioni_data();
    void unaPassataComeLeScansioni();
    void disposizioneDelleGriglie();
    void sulPannelloAperto();
    void selezioneDelleTerzine();
    void undicesimaTerzinaIgnorata();
};

void TstPannelloSegni::elenchiDegliSchemi() {
    const QStringList &t = StatisticheSegni::elencoTerzine();
    QCOMPARE(t.size(), 27);
    QCOMPARE(t.mid(0, 4), (QStringList{u"111"_s, u"11X"_s, u"112"_s, u"1X1"_s}));
    QCOMPARE(t.last(), u"222"_s);
    QCOMPARE(StatisticheSegni::elencoCinquine().size(), 243);
    QCOMPARE(StatisticheSegni::elencoCinquine().at(1), u"1111X"_s);
    QCOMPARE(StatisticheSegni::elencoCinquine().last(), u"22222"_s);
    QCOMPARE(StatisticheSegni::elencoCoppie(),
             (QStringList{u"11"_s, u"1X"_s, u"12"_s, u"X1"_s, u"XX"_s, u"X2"_s, u"21"_s, u"2X"_s,
                          u"22"_s}));
    // The index of a pattern is its place in the list.
    for (int i = 0; i < 243; ++i)
        QCOMPARE(StatisticheSegni::indice(StatisticheSegni::elencoCinquine().at(i)), i);
    QCOMPARE(StatisticheSegni::indice(u"1A2"), -1);
}

void TstPannelloSegni::figureAMano_data() {
    QTest::addColumn<int>("gruppo"); // 0-3 the terzine of that slice, 4 cinquine, 5 coppie
    QTest::addColumn<QString>("schema");
    QTest::addColumn<int>("ritardo");
    QTest::addColumn<int>("frequenza");
    QTest::newRow("1ª 111") << 0 << u"111"_s << 1 << 2;
    QTest::newRow("1ª XXX") << 0 << u"XXX"_s << 2 << 1;
    QTest::newRow("1ª 222 nell'ultimo") << 0 << u"222"_s << 0 << 1;
    QTest::newRow("1ª 11X mai uscita") << 0 << u"11X"_s << 4 << 0;
    QTest::newRow("2ª 1X1") << 1 << u"1X1"_s << 0 << 1;
    QTest::newRow("2ª 111") << 1 << u"111"_s << 3 << 1;
    QTest::newRow("3ª 111") << 2 << u"111"_s << 2 << 2;
    QTest::newRow("3ª XX2") << 2 << u"XX2"_s << 0 << 1;
    QTest::newRow("4ª X2X") << 3 << u"X2X"_s << 0 << 1;
    QTest::newRow("4ª 111") << 3 << u"111"_s << 1 << 2;
    QTest::newRow("cinquina 111XX") << 4 << u"111XX"_s << 1 << 2;
    QTest::newRow("cinquina XXX12") << 4 << u"XXX12"_s << 2 << 1;
    QTest::newRow("cinquina 22222 mai") << 4 << u"22222"_s << 4 << 0;
    // With a base of 2, the coppie look at contests 3 and 4 only.
    QTest::newRow("coppia XX") << 5 << u"XX"_s << 1 << 1;
    QTest::newRow("coppia 21") << 5 << u"21"_s << 0 << 1;
    QTest::newRow("coppia 12 fuori base") << 5 << u"12"_s << 2 << 0;
    QTest::newRow("coppia 11 mai") << 5 << u"11"_s << 2 << 0;
}

void TstPannelloSegni::figureAMano() {
    QFETCH(int, gruppo);
    QFETCH(QString, schema);
    QFETCH(int, ritardo);
    QFETCH(int, frequenza);
    const int i = StatisticheSegni::indice(schema);
    for (const auto &f : {StatisticheSegni::calcola(archivioAMano(), 2),
                          StatisticheSegni::calcolaConScansione(archivioAMano(), 2)}) {
        const StatisticheSegni::Figura figura = gruppo < 4    ? f.terzine[gruppo][i]
                                                : gruppo == 4 ? f.cinquine[i]
                                                              : f.coppie[i];
        QCOMPARE(figura.ritardo, ritardo);
        QCOMPARE(figura.frequenza, frequenza);
    }
}

void TstPannelloSegni::coppieSoloNegliUltimiConcorsi() {
    // 300 contests; the coppia "22" comes out only in contest 10, far before the last 205.
    QStringList righe;
    for (int j = 1; j <= 300; ++j)
        righe.append(
            u"2011 %1 1111111111111%2 0 0 0 0 0 0"_s.arg(j).arg(j == 10 ? u"2"_s : u"1"_s));
    const auto f = StatisticheSegni::calcola(ArchivioColonne::daRighe(righe), 205);
    const int doppio2 = StatisticheSegni::indice(u"12");
    QCOMPARE(f.coppie[doppio2].ritardo, 205);
    QCOMPARE(f.coppie[doppio2].frequenza, 0);
    QCOMPARE(f.coppie[StatisticheSegni::indice(u"11")].frequenza, 205);
    QCOMPARE(f.coppie[StatisticheSegni::indice(u"11")].ritardo, 0);
    // The cinquine see the whole archive.
    QCOMPARE(f.cinquine[StatisticheSegni::indice(u"11112")].frequenza, 1);
    QCOMPARE(f.cinquine[StatisticheSegni::indice(u"11112")].ritardo, 290);
}

void TstPannelloSegni::limitiDellArchivio() {
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, StatisticheSegni::calcola(archivioAMano(), 205));
    QVERIFY_THROWS_EXCEPTION(
        ErroreEsecuzione,
        StatisticheSegni::calcola(ArchivioColonne::daRighe(archivioSintetico(5001)), 205));
    StatisticheSegni::calcola(ArchivioColonne::daRighe(archivioSintetico(5000)), 205);
    StatisticheSegni::calcola(ArchivioColonne::daRighe(archivioSintetico(205)), 205);
}

void TstPannelloSegni::unaPassataComeLeScansioni_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::newRow("consegnato") << FileDati::leggiRighe(
        QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s));
    QTest::newRow("sintetico 5000") << archivioSintetico(5000, 11);
    QTest::newRow("sintetico 206") << archivioSintetico(206, 5);
    // Foreign characters and a short column match no pattern in either method.
    QStringList strane = archivioSintetico(300, 2);
    strane[100] = u"2012 1 1A2X11121X2XB2 0 0 0 0 0 0"_s;
    strane[299] = u"2012 2 1X21X 0 0 0 0 0 0"_s;
    QTest::newRow("caratteri estranei") << strane;
}

void TstPannelloSegni::unaPassataComeLeScansioni() {
    QFETCH(QStringList, righe);
    const ArchivioColonne archivio = ArchivioColonne::daRighe(righe);
    const auto veloce = StatisticheSegni::calcola(archivio, 205);
    QCOMPARE(veloce, StatisticheSegni::calcolaConScansione(archivio, 205));
    if (QTest::currentDataTag() != QByteArray("caratteri estranei")) {
        for (const auto &t : veloce.terzine)
            QCOMPARE(somma(t), archivio.numero());
        QCOMPARE(somma(veloce.cinquine), archivio.numero());
        QCOMPARE(somma(veloce.coppie), 205);
    }
}

void TstPannelloSegni::disposizioneDelleGriglie() {
    const auto f = StatisticheSegni::calcola(archivioAMano(), 2);
    Griglia g;
    GrigliePannello::riempiTerzine(g, f);
    QCOMPARE(g.righe(), 22);
    QCOMPARE(g.colonne(), 27);
    QCOMPARE(g.righeFisse(), 0);
    // Column 26 is the terzina "222": its signs from the top, then R and F of the four blocks.
    QCOMPARE(g.testo(0, 26) + g.testo(1, 26) + g.testo(2, 26), u"222"_s);
    QCOMPARE(g.testo(3, 26), u"------"_s);
    QCOMPARE(g.testo(4, 26), u"R"_s);
    QCOMPARE(g.sfondo(4, 26), QColor(0, 0, 255));
    QCOMPARE(g.colore(4, 26), QColor(Qt::white));
    QVERIFY(g.grassetto(4, 26));
    QCOMPARE(g.testo(5, 26), u"1ª"_s);
    QCOMPARE(g.sfondo(5, 26), QColor(224, 224, 224));
    QCOMPARE(g.testo(6, 26), u"0"_s); // 1ª delay
    QCOMPARE(g.colore(6, 26), QColor(0, 0, 255));
    QCOMPARE(g.testo(11, 26), u"4ª"_s);
    QCOMPARE(g.testo(12, 26), u"4"_s); // 4ª delay: never out
    QCOMPARE(g.testo(13, 26), u"F"_s);
    QCOMPARE(g.sfondo(13, 26), QColor(255, 0, 0));
    QCOMPARE(g.testo(15, 26), u"1"_s); // 1ª frequency
    QCOMPARE(g.colore(15, 26), QColor(255, 0, 0));
    QCOMPARE(g.testo(21, 26), u"0"_s);
    QCOMPARE(g.larghezzaColonna(0), 350);
    QCOMPARE(g.allineamento(10, 3), Griglia::Allineamento::CentroCentro);

    Griglia c;
    GrigliePannello::riempiCinquine(c, f);
    QCOMPARE(c.righe(), 10);
    QCOMPARE(c.colonne(), 243);
    QCOMPARE(c.larghezzaColonna(100), 550);
    const int i = StatisticheSegni::indice(u"111XX");
    QString segni;
    for (int r = 0; r < 5; ++r)
        segni += c.testo(r, i);
    QCOMPARE(segni, u"111XX"_s);
    QCOMPARE(c.testo(5, i), u"------"_s);
    QCOMPARE(c.testo(6, i), u"R"_s);
    QCOMPARE(c.testo(7, i), u"1"_s);
    QCOMPARE(c.testo(8, i), u"F"_s);
    QCOMPARE(c.testo(9, i), u"2"_s);

    Griglia p;
    GrigliePannello::riempiCoppie(p, f);
    QCOMPARE(p.righe(), 7);
    QCOMPARE(p.colonne(), 9);
    QCOMPARE(p.testo(0, 6) + p.testo(1, 6), u"21"_s);
    QCOMPARE(p.testo(4, 6), u"0"_s);
    QCOMPARE(p.testo(6, 6), u"1"_s);

    // What "R", "F" and the blocks stand for, on every cell that shows them.
    QCOMPARE(f.baseCoppie, 2);
    for (int col = 0; col < 27; ++col) {
        QVERIFY(g.suggerimento(4, col).startsWith(u"R = Ritardo: "_s));
        QVERIFY(g.suggerimento(13, col).startsWith(u"F = Frequenza: "_s));
    }
    QCOMPARE(g.suggerimento(11, 0), u"Ritardo nella 4ª terzina (partite 10-12)"_s);
    QCOMPARE(g.suggerimento(14, 0), u"Frequenza nella 1ª terzina (partite 1-3)"_s);
    QVERIFY(g.suggerimento(6, 26).isEmpty()); // a figure explains nothing
    QVERIFY(c.suggerimento(6, i).contains(u"cinquina nelle partite 10-14"_s));
    QVERIFY(c.suggerimento(8, i).startsWith(u"F = Frequenza: "_s));
    // The coppie are counted over the latest contests of the base.
    QVERIFY(p.suggerimento(3, 6).contains(u"2 se non è uscita negli ultimi 2 concorsi"_s));
    QVERIFY(p.suggerimento(5, 6).contains(u"in quanti degli ultimi 2 concorsi"_s));

    QCOMPARE(GrigliePannello::testoIndice(archivioAMano()),
             u"Stagione 2011/2011 - Concorso N. 4"_s);
}

void TstPannelloSegni::sulPannelloAperto() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *p = qobject_cast<FrmPannelloSegni *>(a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    QVERIFY(p);
    const RigaArchivio &ultima = a.stato().ColonneArchivio.ultima();
    QCOMPARE(p->findChild<QLabel *>(u"lblIndice"_s)->text(),
             u"Stagione %1/2011 - Concorso N. %2"_s.arg(ultima[0], ultima[1]));
    // The terzine of the latest contest show the delay 0 in their blocks.
    const QString colonna = ultima[2];
    for (int b = 1; b <= 4; ++b) {
        const int c = StatisticheSegni::indice(QStringView(colonna).mid(3 * (b - 1), 3));
        QCOMPARE(p->terzine().testo(GrigliePannello::rigaRitardo(b), c), u"0"_s);
    }
    QCOMPARE(p->cinquine().testo(7, StatisticheSegni::indice(QStringView(colonna).right(5))),
             u"0"_s);
    auto *cmb = p->findChild<QComboBox *>(u"cmbStampa"_s);
    QVERIFY(cmb);
    QCOMPARE(cmb->currentText(), u"Terzine"_s);
    QCOMPARE(cmb->count(), 3);
    AmbienteProva::fotografa(p->window(), u"pannello"_s);
}

void TstPannelloSegni::selezioneDelleTerzine() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *p = qobject_cast<FrmPannelloSegni *>(a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    QVERIFY(p);
    VistaGriglia *v = vistaTerzine(p);
    const Griglia &g = p->terzine();
    const SelezioneTerzine &s = p->selezione();
    const QColor rossoChiaro(255, 128, 128), ciano(192, 255, 255), giallo(192, 192, 0);

    // The delay of the 1ª block adds the terzina "11X" (column 1) to group 1.
    clicca(v, 6, 1);
    QCOMPARE(s.conta(1), 1);
    QCOMPARE(s.terzine(1), QStringList{u"11X"_s});
    QCOMPARE(g.sfondo(0, 1), rossoChiaro);
    QVERIFY(g.grassetto(0, 1));
    // The same cell again, a double click, and the frequency cell of the same block: no change.
    clicca(v, 6, 1);
    QTest::mouseDClick(v->viewport(), Qt::LeftButton, {},
                       v->visualRect(v->model()->index(6, 1)).center());
    clicca(v, 15, 1);
    QCOMPARE(s.conta(1), 1);
    // The same terzina may stand in group 2 as well (the 2ª block's frequency), and group 3.
    clicca(v, 17, 1);
    clicca(v, 10, 1);
    QCOMPARE(s.conta(2), 1);
    QCOMPARE(s.conta(3), 1);
    QCOMPARE(g.sfondo(1, 1), ciano);
    QCOMPARE(g.sfondo(2, 1), giallo);
    // The 4ª block, the labels, the rules and unmarked sign cells select nothing.
    for (const int riga : {12, 21, 4, 5, 13, 3, 0, 1, 2})
        clicca(v, riga, 20);
    QCOMPARE(s.conta(1) + s.conta(2) + s.conta(3), 3);
    for (int r = 0; r < 3; ++r)
        QCOMPARE(g.sfondo(r, 20), QColor());

    // A click on the marked sign of group 2 takes it out of group 2 only.
    clicca(v, 1, 1);
    QCOMPARE(s.conta(2), 0);
    QCOMPARE(s.conta(1), 1);
    QCOMPARE(s.conta(3), 1);
    QCOMPARE(g.sfondo(1, 1), QColor(Qt::white));
    QVERIFY(!g.grassetto(1, 1));
    QCOMPARE(g.sfondo(0, 1), rossoChiaro);
    // And it can be chosen again.
    clicca(v, 8, 1);
    QCOMPARE(s.terzine(2), QStringList{u"11X"_s});
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstPannelloSegni::undicesimaTerzinaIgnorata() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *p = qobject_cast<FrmPannelloSegni *>(a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    VistaGriglia *v = vistaTerzine(p);
    for (int c = 0; c < 11; ++c)
        clicca(v, 19, c); // frequency row of the 3ª block
    QCOMPARE(p->selezione().conta(3), 10);
    QCOMPARE(p->selezione().terzine(3), StatisticheSegni::elencoTerzine().mid(0, 10));
    QCOMPARE(p->terzine().sfondo(2, 10), QColor());
    // Taking one out makes room again, and the group keeps the order of the others.
    clicca(v, 2, 4);
    QCOMPARE(p->selezione().conta(3), 9);
    clicca(v, 10, 10);
    QCOMPARE(p->selezione().conta(3), 10);
    QStringList attese = StatisticheSegni::elencoTerzine().mid(0, 11);
    attese.removeAt(4);
    QCOMPARE(p->selezione().terzine(3), attese);
}

QTEST_MAIN(TstPannelloSegni)
#include "tst_pannellosegni.moc"
