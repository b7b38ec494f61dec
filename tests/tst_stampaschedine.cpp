// The marks of a run of play slips on the recorder, against positions worked out here from the
// slip's measures: box n at 3900 - 250·n twips, the box of the 9 at 130, the rows of the signs at
// 2850, 3100 and 3300 below the column, each column 720 + 0.15·i below the one before, from -750
// at the top of a slip.
#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/erroreesecuzione.h"
#include "stampa/dispositivodocumento.h"
#include "stampa/documentopagine.h"
#include "stampa/stampaschedine.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using Op = DispositivoRegistratore::Operazione;
using Ultime = std::array<QString, 5>;
Q_DECLARE_METATYPE(Ultime)

namespace {

struct Segno {
    double x;
    double y;
};

// The centres of the marks, after checking that each is six black circles of radii 60 to 10.
QList<Segno> segni(const DispositivoRegistratore &d) {
    QList<Segno> trovati;
    int cerchi = 0;
    for (const auto &c : d.chiamate) {
        if (c.operazione != Op::Cerchio)
            continue;
        const double raggioAtteso = 60 - 10 * (cerchi % 6);
        if (c.rettangolo.width() != raggioAtteso || c.colore != QColor(Qt::black) ||
            c.riempimento.isValid())
            return {}; // not a mark as the slip wants it
        if (cerchi % 6 == 0)
            trovati.append({c.rettangolo.x(), c.rettangolo.y()});
        else if (c.rettangolo.topLeft() !=
                 d.chiamate.at(&c - d.chiamate.data() - 1).rettangolo.topLeft())
            return {};
        ++cerchi;
    }
    return cerchi % 6 == 0 ? trovati : QList<Segno>{};
}

double casella(int n) {
    return 3900 - 250 * n;
}

bool vicino(double a, double b) {
    // The device gets 32-bit figures: a few thousandths of a twip.
    return std::abs(a - b) < 0.01;
}

QString tracciaPagine(const DispositivoRegistratore &d) {
    QString t;
    for (const auto &c : d.chiamate) {
        if (c.operazione == Op::Cerchio && t.endsWith(u'o'))
            continue;
        t += c.operazione == Op::Cerchio         ? u'o'
             : c.operazione == Op::NuovaPagina   ? u'N'
             : c.operazione == Op::FineDocumento ? u'F'
             : c.operazione == Op::SpessorePenna ? u'P'
                                                 : u'?';
    }
    return t;
}

StampaSchedine::Giocata giocata(int prima, int ultima,
                                Ultime ultime = {u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"1"_s}) {
    StampaSchedine::Giocata g;
    for (int i = 1; i <= 20; ++i)
        g.colonne.append(u"1X21X21X2"_s);
    g.prima = prima;
    g.ultima = ultima;
    g.ultime = ultime;
    return g;
}

} // namespace

class TstStampaSchedine : public QObject {
    Q_OBJECT
private slots:
    void controlli_data();
    void controlli();
    void primaColonna();
    void avanzamentoDelleColonne_data();
    void avanzamentoDelleColonne();
    void ultimeCaselle_data();
    void ultimeCaselle();
    void casellaDelNove();
    void scostamenti();
    void pagine_data();
    void pagine();
    void colonnaFuoriElenco();
    void cifreATrentaDueBit();
    void documentoDellAnteprima_data();
    void documentoDellAnteprima();
    void sagoma();
};

void TstStampaSchedine::controlli_data() {
    QTest::addColumn<QString>("da");
    QTest::addColumn<QString>("a");
    QTest::addColumn<Ultime>("ultime");
    QTest::addColumn<QString>("messaggio");
    const Ultime buone{u"1"_s, u"X"_s, u"2"_s, u"1X"_s, u"1X2"_s};
    QTest::newRow("tutto in ordine") << u"1"_s << u"8"_s << buone << QString();
    QTest::newRow("nessuna colonna")
        << u"0"_s << u"0"_s << buone << u"Attenzione! Non ci sono schedine da stampare."_s;
    QTest::newRow("lista vuota") << QString() << QString() << Ultime{}
                                 << u"Attenzione! Non ci sono schedine da stampare."_s;
    QTest::newRow("una casella vuota")
        << u"1"_s << u"8"_s << Ultime{u"1"_s, u"X"_s, QString(), u"1"_s, u"1"_s}
        << u"Attenzione! Inserire tutti siegni delle ultime 5 caselle."_s;
    QTest::newRow("casella 10 con 11")
        << u"1"_s << u"8"_s << Ultime{u"11"_s, u"X"_s, u"1"_s, u"1"_s, u"1"_s}
        << u"Attenzione! La casella 10 presenta segni uguali."_s;
    QTest::newRow("casella 14 con 1X1")
        << u"1"_s << u"8"_s << Ultime{u"1"_s, u"X"_s, u"1"_s, u"1"_s, u"1X1"_s}
        << u"Attenzione! La casella 14 presenta segni uguali."_s;
    QTest::newRow("xX passa") << u"1"_s << u"8"_s << Ultime{u"xX"_s, u"X"_s, u"1"_s, u"1"_s, u"1"_s}
                              << QString();
    QTest::newRow("la prima casella uguale vince sull'intervallo")
        << u"5"_s << u"2"_s << Ultime{u"1"_s, u"22"_s, u"1"_s, u"XX"_s, u"1"_s}
        << u"Attenzione! La casella 11 presenta segni uguali."_s;
    QTest::newRow("intervallo rovesciato")
        << u"5"_s << u"2"_s << buone << u"Attenzione. Correggere l'inervallo di stampa."_s;
    QTest::newRow("numeri a confronto, non testi") << u"9"_s << u"10"_s << buone << QString();
}

void TstStampaSchedine::controlli() {
    QFETCH(QString, da);
    QFETCH(QString, a);
    QFETCH(Ultime, ultime);
    QFETCH(QString, messaggio);
    QCOMPARE(StampaSchedine::controlla(da, a, ultime), messaggio);
}

void TstStampaSchedine::primaColonna() {
    // One column, the 9 off: 14 marks, the first column 750 - 720 - 0.15 above the slip's rows.
    DispositivoRegistratore d;
    StampaSchedine::Giocata g = giocata(1, 1, {u"1"_s, u"X"_s, u"2"_s, u"1"_s, u"X"_s});
    g.colonne = QStringList{u"1X2X21112 resto"_s};
    StampaSchedine::disegna(d, g);
    const QList<Segno> s = segni(d);
    QCOMPARE(s.size(), 14);
    const QString tutti = u"1X2X211121X21X"_s;
    const double colonna = -29.85;
    for (int n = 1; n <= 14; ++n) {
        const QChar c = tutti.at(n - 1);
        const double riga = c == u'1' ? 2850 : c == u'X' ? 3100 : 3300;
        QVERIFY2(vicino(s[n - 1].x, casella(n)), qPrintable(QString::number(n)));
        QVERIFY2(vicino(s[n - 1].y, colonna + riga), qPrintable(QString::number(s[n - 1].y)));
    }
    QCOMPARE(d.chiamate.first().operazione, Op::SpessorePenna);
    QCOMPARE(d.chiamate.first().rettangolo.width(), 2.0);
    QCOMPARE(tracciaPagine(d), u"PoF"_s);
}

void TstStampaSchedine::avanzamentoDelleColonne_data() {
    QTest::addColumn<int>("prima");
    QTest::addColumn<int>("ultima");
    QTest::addColumn<QList<double>>("righe"); // the Y of each column's box 1, sign "1"
    QTest::newRow("1 e 2") << 1 << 2 << QList<double>{-29.85 + 2850, 690.45 + 2850};
    QTest::newRow("5 da solo, in cima") << 5 << 5 << QList<double>{-750 + 720.75 + 2850};
    QTest::newRow("3-10: dopo l'8 una nuova schedina")
        << 3 << 10
        << QList<double>{-750 + 720.45 + 2850,
                         -750 + 720.45 + 720.6 + 2850,
                         -750 + 720.45 + 720.6 + 720.75 + 2850,
                         -750 + 720.45 + 720.6 + 720.75 + 720.9 + 2850,
                         -750 + 720.45 + 720.6 + 720.75 + 720.9 + 721.05 + 2850,
                         -750 + 720.45 + 720.6 + 720.75 + 720.9 + 721.05 + 721.2 + 2850,
                         -750 + 721.35 + 2850,
                         -750 + 721.35 + 721.5 + 2850};
}

void TstStampaSchedine::avanzamentoDelleColonne() {
    QFETCH(int, prima);
    QFETCH(int, ultima);
    QFETCH(QList<double>, righe);
    DispositivoRegistratore d;
    StampaSchedine::disegna(d, giocata(prima, ultima));
    const QList<Segno> s = segni(d);
    QCOMPARE(s.size(), 14 * righe.size());
    for (qsizetype k = 0; k < righe.size(); ++k) {
        QVERIFY(vicino(s[14 * k].x, casella(1)));
        QVERIFY2(vicino(s[14 * k].y, righe[k]),
                 qPrintable(u"%1: %2 invece di %3"_s.arg(k).arg(s[14 * k].y).arg(righe[k])));
    }
}

void TstStampaSchedine::ultimeCaselle_data() {
    QTest::addColumn<QString>("casella10");
    QTest::addColumn<QList<double>>("righe"); // the rows of the marks of box 10, in order
    QTest::newRow("1X2, tre segni") << u"1X2"_s << QList<double>{2850, 3100, 3300};
    QTest::newRow("xX, due volte la X") << u"xX"_s << QList<double>{3100, 3100};
    QTest::newRow("2x") << u"2x"_s << QList<double>{3300, 3100};
    QTest::newRow("j, nessun segno") << u"j"_s << QList<double>{};
    QTest::newRow("1j2") << u"1j2"_s << QList<double>{2850, 3300};
    QTest::newRow("quattro caratteri, niente") << u"1X2j"_s << QList<double>{};
}

void TstStampaSchedine::ultimeCaselle() {
    QFETCH(QString, casella10);
    QFETCH(QList<double>, righe);
    DispositivoRegistratore d;
    StampaSchedine::disegna(d, giocata(1, 1, {casella10, u"1"_s, u"1"_s, u"1"_s, u"1"_s}));
    QList<double> trovate;
    for (const Segno &s : segni(d))
        if (vicino(s.x, casella(10)))
            trovate.append(std::round((s.y + 29.85) * 100) / 100);
    QCOMPARE(trovate, righe);
}

void TstStampaSchedine::casellaDelNove() {
    // The 9 adds one mark, at the row of "1" of its box, 270 beyond box 14.
    for (const bool nove : {false, true}) {
        DispositivoRegistratore d;
        StampaSchedine::Giocata g = giocata(1, 1);
        g.nove = nove;
        StampaSchedine::disegna(d, g);
        const QList<Segno> s = segni(d);
        QCOMPARE(s.size(), nove ? 15 : 14);
        if (nove) {
            QVERIFY(vicino(s.last().x, 130));
            QVERIFY(vicino(s.last().y, -29.85 + 2850));
        }
    }
}

void TstStampaSchedine::scostamenti() {
    // The offsets move every mark; a lower-case sign among the nine draws nothing.
    DispositivoRegistratore d;
    StampaSchedine::Giocata g = giocata(1, 1);
    g.colonne = QStringList{u"x1111111X"_s};
    g.posX = 4500;
    g.posY = -120.5;
    StampaSchedine::disegna(d, g);
    const QList<Segno> s = segni(d);
    QCOMPARE(s.size(), 13);
    QVERIFY(vicino(s.first().x, casella(2) + 4500));
    QVERIFY(vicino(s.first().y, -29.85 + 2850 - 120.5));
    QVERIFY(vicino(s.at(7).y, -29.85 + 3100 - 120.5));
}

void TstStampaSchedine::pagine_data() {
    QTest::addColumn<int>("prima");
    QTest::addColumn<int>("ultima");
    QTest::addColumn<QString>("traccia");
    QTest::newRow("1-8: nuova pagina, poi la fine") << 1 << 8 << u"PoNF"_s;
    QTest::newRow("1-9") << 1 << 9 << u"PoNoF"_s;
    QTest::newRow("3-10") << 3 << 10 << u"PoNoF"_s;
    QTest::newRow("1-16") << 1 << 16 << u"PoNoNF"_s;
    QTest::newRow("nessuna colonna") << 3 << 2 << u"PF"_s;
}

void TstStampaSchedine::pagine() {
    QFETCH(int, prima);
    QFETCH(int, ultima);
    QFETCH(QString, traccia);
    DispositivoRegistratore d;
    StampaSchedine::disegna(d, giocata(prima, ultima));
    QCOMPARE(tracciaPagine(d), traccia);
}

void TstStampaSchedine::colonnaFuoriElenco() {
    DispositivoRegistratore d;
    StampaSchedine::Giocata g = giocata(19, 21);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, StampaSchedine::disegna(d, g));
    QVERIFY(d.conta(Op::FineDocumento) == 0);
    QCOMPARE(segni(d).size(), 28);
}

void TstStampaSchedine::cifreATrentaDueBit() {
    // Every centre reaches the device as a 32-bit figure: 2820.15 can't be one.
    DispositivoRegistratore d;
    StampaSchedine::disegna(d, giocata(1, 3, {u"1X2"_s, u"x"_s, u"2"_s, u"1"_s, u"X"_s}));
    const QList<Segno> s = segni(d);
    QVERIFY(!s.isEmpty());
    for (const Segno &m : s) {
        volatile float x = float(m.x);
        volatile float y = float(m.y);
        QCOMPARE(double(x), m.x);
        QCOMPARE(double(y), m.y);
    }
    QCOMPARE(s.first().y, double(2820.15f));
}

void TstStampaSchedine::documentoDellAnteprima_data() {
    QTest::addColumn<int>("prima");
    QTest::addColumn<int>("ultima");
    QTest::addColumn<int>("pagine");
    // A slip turned after its eighth column leaves no empty page behind.
    QTest::newRow("1-8") << 1 << 8 << 1;
    QTest::newRow("1-9") << 1 << 9 << 2;
    QTest::newRow("3-10") << 3 << 10 << 2;
    QTest::newRow("1-16") << 1 << 16 << 2;
    QTest::newRow("nessuna colonna") << 3 << 2 << 1;
}

void TstStampaSchedine::documentoDellAnteprima() {
    QFETCH(int, prima);
    QFETCH(int, ultima);
    QFETCH(int, pagine);
    const StampaSchedine::Giocata g =
        giocata(prima, ultima, {u"1X2"_s, u"x"_s, u"2"_s, u"1"_s, u"X"_s});
    DispositivoRegistratore diretto;
    StampaSchedine::disegna(diretto, g);
    DispositivoDocumento documento;
    StampaSchedine::disegna(documento, g);
    QCOMPARE(DocumentoPagine::contaPagine(documento.record()), pagine);
    // The records drawn again give the very marks of the run, page by page.
    DispositivoRegistratore ridisegnato;
    DocumentoPagine::stampaPagine(documento.record(), ridisegnato, 1, pagine);
    const QList<Segno> attesi = segni(diretto);
    const QList<Segno> trovati = segni(ridisegnato);
    QCOMPARE(trovati.size(), attesi.size());
    for (qsizetype i = 0; i < attesi.size(); ++i) {
        QCOMPARE(trovati.at(i).x, attesi.at(i).x);
        QCOMPARE(trovati.at(i).y, attesi.at(i).y);
    }
    QCOMPARE(ridisegnato.conta(Op::NuovaPagina), pagine - 1);
    for (const auto &c : ridisegnato.chiamate)
        if (c.operazione == Op::SpessorePenna)
            QCOMPARE(c.rettangolo.width(), 2.0);
}

void TstStampaSchedine::sagoma() {
    // Columns 3 to 10 with offsets: the first slip's outline starts at column 3's place and
    // goes on for 8 places; the second starts at column 9's.
    StampaSchedine::Giocata g = giocata(3, 10);
    g.posX = 40;
    g.posY = -25;
    DispositivoRegistratore d;
    StampaSchedine::disegna(d, g, true);
    QList<QPointF> anelli;
    int paginaAnelli = 0;
    for (const auto &c : d.chiamate) {
        if (c.operazione == Op::NuovaPagina)
            ++paginaAnelli;
        if (c.operazione == Op::Cerchio && c.colore != QColor(Qt::black)) {
            QCOMPARE(c.rettangolo.width(), 80.0);
            if (paginaAnelli == 0)
                anelli.append(c.rettangolo.topLeft());
        }
    }
    QCOMPARE(anelli.size(), 8 * 43);
    // Place 1: box 1 at its three rows, then box 2; the box of the 9 last, at the row of "1".
    double y = -750 + 720 + 0.15 * 3;
    QVERIFY(vicino(anelli.at(0).x(), casella(1) + 40));
    QVERIFY(vicino(anelli.at(0).y(), y + 2850 - 25));
    QVERIFY(vicino(anelli.at(2).y(), y + 3300 - 25));
    QVERIFY(vicino(anelli.at(3).x(), casella(2) + 40));
    QVERIFY(vicino(anelli.at(42).x(), 130 + 40));
    QVERIFY(vicino(anelli.at(42).y(), y + 2850 - 25));
    // Place 8 of the first slip, where column 10 would stand.
    for (int i = 4; i <= 10; ++i)
        y += 720 + 0.15 * i;
    QVERIFY(vicino(anelli.at(7 * 43).y(), y + 2850 - 25));
    // The marks themselves are the run's: the outline draws with the thin pen, then the pen of
    // the marks comes back.
    int spessoreMarche = 0;
    for (const auto &c : d.chiamate) {
        if (c.operazione == Op::SpessorePenna)
            spessoreMarche = int(c.rettangolo.width());
        if (c.operazione == Op::Cerchio && c.colore == QColor(Qt::black))
            QCOMPARE(spessoreMarche, 2);
    }
}

QTEST_GUILESS_MAIN(TstStampaSchedine)
#include "tst_stampaschedine.moc"
