// The prize pools and quotas as a user meets them: every label and cell from its line of
// "Quote.txt", the heads and the red row of the 9, the refresh from a site on loopback and
// without any site, a missing file.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "core/mdistile.h"
#include "cornice/mdipannello.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/serverhttp.h"
#include "piattaforma/vistagriglia.h"
#include "schedine/frmquote.h"
#include "schedine/quote.h"

#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::contenuto;
using StrumentiProva::controllo;

namespace {

const QString Nome = u"frmQuote"_s;

// Where each line of the file is shown: a label, or a cell of a grid (row, column).
struct Posto {
    const char *controllo;
    int riga;
    int colonna;
    int linea;
};
constexpr Posto Posti[] = {
    {"lblConcorsoTotocalcio", -1, -1, 1}, {"lblMontepremiTotocalcio", -1, -1, 2},
    {"lblMontepremi9", -1, -1, 3},        {"lblCVTotocalcio", -1, -1, 4},
    {"GrigliaTotocalcio", 1, 1, 5},       {"GrigliaTotocalcio", 1, 2, 6},
    {"GrigliaTotocalcio", 2, 1, 7},       {"GrigliaTotocalcio", 2, 2, 8},
    {"GrigliaTotocalcio", 3, 1, 9},       {"GrigliaTotocalcio", 3, 2, 10},
    {"GrigliaTotocalcio", 4, 1, 11},      {"GrigliaTotocalcio", 4, 2, 12},
    {"lblConcorsoTotogol", -1, -1, 13},   {"lblMontepremiTotogol", -1, -1, 14},
    {"lblCVTotogol", -1, -1, 15},         {"grigliaTotogol", 1, 1, 16},
    {"grigliaTotogol", 1, 2, 17},         {"grigliaTotogol", 2, 1, 18},
    {"grigliaTotogol", 2, 2, 19},         {"grigliaTotogol", 3, 1, 20},
    {"grigliaTotogol", 3, 2, 21},         {"grigliaTotogol", 4, 1, 22},
    {"grigliaTotogol", 4, 2, 23},
};

QString mostrato(QWidget *s, const Posto &p) {
    const QString nome = QString::fromLatin1(p.controllo);
    if (p.riga < 0)
        return controllo<QLabel>(s, nome)->text();
    return controllo<VistaGriglia>(s, nome)->griglia()->testo(p.riga, p.colonna);
}

// Every text the screen shows: its labels and the cells of its grids.
QStringList testiMostrati(QWidget *s) {
    QStringList testi;
    for (QLabel *l : s->findChildren<QLabel *>())
        testi.append(l->text());
    for (VistaGriglia *v : s->findChildren<VistaGriglia *>())
        for (int r = 0; r < v->griglia()->righe(); ++r)
            for (int c = 0; c < v->griglia()->colonne(); ++c)
                testi.append(v->griglia()->testo(r, c));
    return testi;
}

// n lines, each its number with blanks on either side.
QStringList righe(int n) {
    QStringList v;
    for (int i = 1; i <= n; ++i)
        v.append(u"  valore %1   "_s.arg(i));
    return v;
}

QWidget *apri(AmbienteProva &a, const QString &voce = u"mnuQuote"_s) {
    QAction *azione = a.pannello().findChild<QAction *>(voce);
    if (!azione || !azione->isEnabled())
        return nullptr;
    azione->trigger();
    return a.pannello().trovaSchermo(Nome);
}

} // namespace

class TstQuote : public QObject {
    Q_OBJECT

private slots:
    void valoriDalFile_data();
    void valoriDalFile();
    void fileConsegnato();
    void leggiTieneVenticinqueValori();
    void intestazioniEColori();
    void aggiornaDalSito();
    void aggiornaSenzaSito();
    void fileMancante_data();
    void fileMancante();
    void fileSparitoPrimaDellaRicarica();
};

void TstQuote::valoriDalFile_data() {
    QTest::addColumn<int>("linee");
    QTest::newRow("30 righe") << 30;
    QTest::newRow("25 righe") << 25;
    QTest::newRow("23 righe") << 23;
    QTest::newRow("14 righe") << 14;
    QTest::newRow("5 righe") << 5;
    QTest::newRow("vuoto") << 0;
}

void TstQuote::valoriDalFile() {
    QFETCH(int, linee);
    AmbienteProva a;
    a.scrivi(u"Quote.txt"_s, righe(linee));
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    for (const Posto &p : Posti) {
        const QString atteso = p.linea <= linee ? u"valore %1"_s.arg(p.linea) : QString();
        QVERIFY2(mostrato(s, p) == atteso,
                 qPrintable(u"%1 (%2,%3): \"%4\", atteso \"%5\""_s.arg(
                     QString::fromLatin1(p.controllo), QString::number(p.riga),
                     QString::number(p.colonna), mostrato(s, p), atteso)));
    }
    // Lines 24 and on are never shown.
    const QStringList testi = testiMostrati(s);
    for (int n = 24; n <= 30; ++n)
        QVERIFY2(!testi.contains(u"valore %1"_s.arg(n)), qPrintable(QString::number(n)));
}

void TstQuote::fileConsegnato() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    QCOMPARE(controllo<QLabel>(s, u"lblConcorsoTotocalcio"_s)->text(), u"Concorso n. 14"_s);
    QCOMPARE(controllo<QLabel>(s, u"lblMontepremi9"_s)->text(), u"Euro 335.090,31"_s);
    QCOMPARE(controllo<QLabel>(s, u"lblCVTotocalcio"_s)->text(), u"12X221X2111111"_s);
    QCOMPARE(controllo<QLabel>(s, u"lblCVTotogol"_s)->text(), u"1 5 12 23 34 45 56 67"_s);
    const Griglia *g = controllo<VistaGriglia>(s, u"grigliaTotogol"_s)->griglia();
    QCOMPARE(g->testo(4, 0), u"4"_s);
    QCOMPARE(g->testo(4, 1), u"7509"_s);
    QCOMPARE(g->testo(4, 2), u"Euro 20,60"_s);
    AmbienteProva::fotografa(&a.pannello(), u"frmQuote"_s);
}

void TstQuote::leggiTieneVenticinqueValori() {
    QTemporaryDir dir;
    QStringList trenta = righe(30);
    trenta[3] = u"   "_s;
    FileDati::scriviRighe(dir.filePath(u"Quote.txt"_s), trenta);
    const QStringList dati = Quote::leggi(dir.path());
    QCOMPARE(dati.size(), 25);
    QCOMPARE(dati.first(), u"valore 1"_s);
    QCOMPARE(dati.at(3), QString());
    // Kept, though no control shows them.
    QCOMPARE(Quote::valore(dati, 24), u"valore 24"_s);
    QCOMPARE(Quote::valore(dati, 25), u"valore 25"_s);
    QCOMPARE(Quote::valore(dati, 26), QString());
    FileDati::scriviRighe(dir.filePath(u"Quote.txt"_s), righe(3));
    QCOMPARE(Quote::leggi(dir.path()).size(), 3);
    QCOMPARE(Quote::valore(Quote::leggi(dir.path()), 4), QString());
}

void TstQuote::intestazioniEColori() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // The toolbar button opens the same screen.
    QWidget *s = apri(a, u"TB(3)"_s);
    QVERIFY(s);
    QCOMPARE(controllo<QLabel>(s, u"Label8"_s)->text(), u"TOTOCALCIO"_s);
    QCOMPARE(controllo<QLabel>(s, u"Label9"_s)->text(), u"TOTOGOL"_s);
    QVERIFY(s->windowFlags().testFlag(Qt::FramelessWindowHint));
    const QStringList categorie[2] = {{u"14"_s, u"13"_s, u"12"_s, u"9"_s},
                                      {u"7"_s, u"6"_s, u"5"_s, u"4"_s}};
    const QString nomi[2] = {u"GrigliaTotocalcio"_s, u"grigliaTotogol"_s};
    const QColor rosso(255, 0, 0);
    for (int k = 0; k < 2; ++k) {
        auto *vista = controllo<VistaGriglia>(s, nomi[k]);
        const Griglia *g = vista->griglia();
        QCOMPARE(g->righe(), 5);
        QCOMPARE(g->colonne(), 3);
        QCOMPARE(g->righeFisse(), 1);
        QCOMPARE(g->testo(0, 0), u"Categoria"_s);
        QCOMPARE(g->testo(0, 1), u"Vincitori"_s);
        QCOMPARE(g->testo(0, 2), u"Quote"_s);
        for (int r = 1; r <= 4; ++r)
            QCOMPARE(g->testo(r, 0), categorie[k].at(r - 1));
        for (int r = 0; r < 5; ++r)
            for (int c = 0; c < 3; ++c) {
                QVERIFY(g->allineamento(r, c) == Griglia::Allineamento::CentroCentro);
                // Only the row of the 9 is red.
                QCOMPARE(g->colore(r, c) == rosso, k == 0 && r == 4);
            }
        // Every cell is in sight, with no scroll bar.
        QVERIFY(vista->size() == vista->dimensioneEsatta());
    }
    // The red X closes the screen.
    QTest::mouseClick(controllo<QPushButton>(s, u"lblEsci"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(Nome));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstQuote::aggiornaDalSito() {
    QTemporaryDir sito;
    ServerHttp server(sito.path());
    QVERIFY(server.avvia());
    // Padded with blanks, lines ended by LF and by CR LF, one line with blanks of its own.
    const QByteArray pagina = "   Concorso n. 20\nEuro 3.000.000,00\r\nEuro 400.000,00\n"
                              "1X21X21X21X21X\n0\r\nEuro 0,00\n   12   \nEuro 90.000,00\n"
                              "300\nEuro 1.200,00\n15\nEuro 9.000,00    ";
    server.imposta(u"/vespara/Quote.html"_s, pagina);
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.impostaSito(server.radice());
    QWidget *s = apri(a);
    QVERIFY(s);
    QWidget *finestra = MdiStile::finestraDi(s);
    finestra->move(finestra->pos() + QPoint(-30, 20));
    const QPoint dove = finestra->pos();
    server.svuotaRichieste();
    a.dialoghi.svuota();

    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    QCOMPARE(a.dialoghi.boxes.first().titolo, Dialoghi::titoloAggiornamenti());
    QCOMPARE(a.dialoghi.boxes.first().testo, u"Aggiornamento effettuato."_s);
    QStringList percorsi;
    for (const auto &r : server.richieste())
        percorsi.append(r.percorso);
    QVERIFY2(percorsi.contains(u"/vespara/Quote.html"_s), qPrintable(percorsi.join(u' ')));
    QCOMPARE(contenuto(a.file(u"Quote.txt"_s)),
             QByteArray("Concorso n. 20\r\nEuro 3.000.000,00\r\nEuro 400.000,00\r\n"
                        "1X21X21X21X21X\r\n0\r\nEuro 0,00\r\n   12   \r\nEuro 90.000,00\r\n"
                        "300\r\nEuro 1.200,00\r\n15\r\nEuro 9.000,00\r\n"));

    // The screen is opened anew where it stood, with the figures of the new file.
    QWidget *nuovo = nullptr;
    QTRY_VERIFY((nuovo = a.pannello().trovaSchermo(Nome)) && nuovo != s);
    QCOMPARE(MdiStile::finestraDi(nuovo)->pos(), dove);
    QCOMPARE(controllo<QLabel>(nuovo, u"lblConcorsoTotocalcio"_s)->text(), u"Concorso n. 20"_s);
    QCOMPARE(controllo<QLabel>(nuovo, u"lblMontepremi9"_s)->text(), u"Euro 400.000,00"_s);
    const Griglia *g = controllo<VistaGriglia>(nuovo, u"GrigliaTotocalcio"_s)->griglia();
    QCOMPARE(g->testo(2, 1), u"12"_s);
    QCOMPARE(g->testo(4, 2), u"Euro 9.000,00"_s);
    QCOMPARE(g->colore(4, 0), QColor(255, 0, 0));
    // The page had no Totogol: its places are empty.
    QCOMPARE(controllo<QLabel>(nuovo, u"lblConcorsoTotogol"_s)->text(), QString());
    QCOMPARE(controllo<VistaGriglia>(nuovo, u"grigliaTotogol"_s)->griglia()->testo(1, 1),
             QString());
    AmbienteProva::fotografa(&a.pannello(), u"frmQuote-aggiornata"_s);
    QTRY_COMPARE(a.pannello().area()->subWindowList().size(), 2);
}

void TstQuote::aggiornaSenzaSito() {
    // The site of the tests is a port where nothing listens.
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    // The file changes under the open screen: the reload shows it.
    a.scrivi(u"Quote.txt"_s, righe(20));
    const QByteArray prima = contenuto(a.file(u"Quote.txt"_s));
    a.dialoghi.svuota();
    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QCOMPARE(a.dialoghi.boxes.first().titolo, Dialoghi::titoloAggiornamenti());
    QCOMPARE(a.dialoghi.boxes.first().testo,
             u"Per utilizzare questa funzione è necessario essere collegati ad Internet."_s);
    QCOMPARE(contenuto(a.file(u"Quote.txt"_s)), prima);
    QWidget *nuovo = nullptr;
    QTRY_VERIFY((nuovo = a.pannello().trovaSchermo(Nome)) && nuovo != s);
    QCOMPARE(controllo<QLabel>(nuovo, u"lblConcorsoTotocalcio"_s)->text(), u"valore 1"_s);
    QCOMPARE(controllo<QLabel>(nuovo, u"lblCVTotogol"_s)->text(), u"valore 15"_s);
    QCOMPARE(controllo<VistaGriglia>(nuovo, u"grigliaTotogol"_s)->griglia()->testo(3, 1),
             u"valore 20"_s);
    QCOMPARE(controllo<VistaGriglia>(nuovo, u"grigliaTotogol"_s)->griglia()->testo(3, 2),
             QString());
}

void TstQuote::fileMancante_data() {
    QTest::addColumn<QString>("voce");
    QTest::newRow("menu") << u"mnuQuote"_s;
    QTest::newRow("barra") << u"TB(3)"_s;
}

void TstQuote::fileMancante() {
    QFETCH(QString, voce);
    AmbienteProva a;
    a.rimuovi(u"Quote.txt"_s);
    QVERIFY(a.avvia());
    a.dialoghi.svuota();
    QVERIFY(!apri(a, voce));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY2(a.dialoghi.boxes.first().testo.contains(u"Quote.txt"_s),
             qPrintable(a.dialoghi.boxes.first().testo));
    QVERIFY(!QFile::exists(a.file(u"Quote.txt"_s)));
}

void TstQuote::fileSparitoPrimaDellaRicarica() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    a.rimuovi(u"Quote.txt"_s);
    a.dialoghi.svuota();
    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);
    // No site, then the load that finds no file: two boxes, and the screen stays closed.
    QCOMPARE(a.dialoghi.boxes.size(), 2);
    QCOMPARE(a.dialoghi.boxes.at(0).testo,
             u"Per utilizzare questa funzione è necessario essere collegati ad Internet."_s);
    QCOMPARE(a.dialoghi.boxes.at(1).tipo, Dialoghi::Tipo::Critico);
    QVERIFY2(a.dialoghi.boxes.at(1).testo.contains(u"Quote.txt"_s),
             qPrintable(a.dialoghi.boxes.at(1).testo));
    QTRY_VERIFY(!a.pannello().trovaSchermo(Nome));
    // The frame goes on.
    a.scrivi(u"Quote.txt"_s, righe(2));
    s = apri(a);
    QVERIFY(s);
    QCOMPARE(controllo<QLabel>(s, u"lblMontepremiTotocalcio"_s)->text(), u"valore 2"_s);
}

QTEST_MAIN(TstQuote)
#include "tst_quote.moc"
