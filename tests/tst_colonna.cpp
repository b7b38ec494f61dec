#include "core/colonna.h"
#include "core/indicecolonna.h"

#include <QRandomGenerator>
#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// "a-b-c" into its three terms; a malformed entry gives no terms.
QList<int> termini(const QString &formula) {
    const QStringList parti = formula.split(u'-');
    QList<int> numeri;
    for (const QString &p : parti) {
        bool ok = false;
        const int n = p.toInt(&ok);
        if (!ok)
            return {};
        numeri.append(n);
    }
    return numeri;
}

} // namespace

class TestColonna : public QObject {
    Q_OBJECT

private slots:
    void tabelleFisse();
    void indiceColonna_data();
    void indiceColonna();
    void indiceColonnaNonValido_data();
    void indiceColonnaNonValido();
    void formuleCampioni_data();
    void formuleCampioni();
    void formuleInsieme();
    void formuleOrdine();

    void metriche_data();
    void metriche();
    void formulaNove_data();
    void formulaNove();
    void rigaArchivio_data();
    void rigaArchivio();

    void testiDellaRiga_data();
    void testiDellaRiga();
    void lineaQuattordiciNonRicalcola();
};

void TestColonna::tabelleFisse() {
    QCOMPARE(Colonna::segni(), (QStringList{u"1"_s, u"X"_s, u"2"_s}));
    QCOMPARE(Colonna::giorniSettimana(),
             (QStringList{u"Lunedì"_s, u"Martedì"_s, u"Mercoledì"_s, u"Giovedì"_s, u"Venerdì"_s,
                          u"Sabato"_s, u"Domenica"_s}));
    // The accent is the single Latin-1 letter, not a base letter plus a combining mark.
    QCOMPARE(Colonna::giorniSettimana().at(0).size(), 6);
    QCOMPARE(Colonna::giorniSettimana().at(0).back(), QChar(0xEC));
}

void TestColonna::formuleCampioni_data() {
    QTest::addColumn<int>("indice");
    QTest::addColumn<QString>("formula");

    QTest::newRow("prima") << 0 << u"9-0-0"_s;
    QTest::newRow("seconda") << 1 << u"0-9-0"_s;
    QTest::newRow("terza") << 2 << u"0-0-9"_s;
    // Each first term opens at second term 0 and closes at 9 - first.
    QTest::newRow("apre 1") << 3 << u"1-0-8"_s;
    QTest::newRow("dopo 1-0-8") << 4 << u"1-1-7"_s;
    QTest::newRow("chiude 1") << 11 << u"1-8-0"_s;
    QTest::newRow("apre 2") << 12 << u"2-0-7"_s;
    QTest::newRow("chiude 2") << 19 << u"2-7-0"_s;
    QTest::newRow("apre 3") << 20 << u"3-0-6"_s;
    QTest::newRow("chiude 3") << 26 << u"3-6-0"_s;
    QTest::newRow("apre 4") << 27 << u"4-0-5"_s;
    QTest::newRow("chiude 4") << 32 << u"4-5-0"_s;
    QTest::newRow("apre 5") << 33 << u"5-0-4"_s;
    QTest::newRow("chiude 5") << 37 << u"5-4-0"_s;
    QTest::newRow("apre 6") << 38 << u"6-0-3"_s;
    QTest::newRow("chiude 6") << 41 << u"6-3-0"_s;
    QTest::newRow("apre 7") << 42 << u"7-0-2"_s;
    QTest::newRow("chiude 7") << 44 << u"7-2-0"_s;
    QTest::newRow("penultima") << 45 << u"8-0-1"_s;
    QTest::newRow("ultima") << 46 << u"8-1-0"_s;
}

void TestColonna::formuleCampioni() {
    QFETCH(int, indice);
    QFETCH(QString, formula);

    const QStringList &f = Colonna::formule();
    QCOMPARE(f.size(), 47);
    QCOMPARE(f.at(indice), formula);
}

void TestColonna::formuleInsieme() {
    const QStringList &f = Colonna::formule();
    QCOMPARE(f.size(), 47);

    const QSet<QString> insieme(f.cbegin(), f.cend());
    QCOMPARE(insieme.size(), f.size()); // no duplicates

    for (const QString &formula : f) {
        const QList<int> t = termini(formula);
        QVERIFY2(t.size() == 3, qPrintable(formula));
        QVERIFY2(t[0] >= 0 && t[1] >= 0 && t[2] >= 0, qPrintable(formula));
        QVERIFY2(t[0] + t[1] + t[2] == 9, qPrintable(formula));
    }

    // Of the formulas with no "1" only the two pure ones are kept.
    for (int x = 0; x <= 9; ++x) {
        const QString formula = u"0-%1-%2"_s.arg(x).arg(9 - x);
        QCOMPARE(insieme.contains(formula), x == 0 || x == 9);
    }
    QVERIFY(!insieme.contains(u"0-4-5"_s));
    // Every formula with at least one "1" is there.
    for (int uno = 1; uno <= 9; ++uno)
        for (int x = 0; x <= 9 - uno; ++x)
            QVERIFY2(insieme.contains(u"%1-%2-%3"_s.arg(uno).arg(x).arg(9 - uno - x)),
                     qPrintable(u"%1-%2"_s.arg(uno).arg(x)));
}

void TestColonna::formuleOrdine() {
    // After the three pure formulas, first term then second term strictly ascending.
    const QStringList &f = Colonna::formule();
    QCOMPARE(f.size(), 47);
    for (qsizetype i = 4; i < f.size(); ++i) {
        const QList<int> prima = termini(f.at(i - 1));
        const QList<int> dopo = termini(f.at(i));
        QCOMPARE(prima.size(), 3);
        QCOMPARE(dopo.size(), 3);
        const bool crescente =
            prima[0] < dopo[0] || (prima[0] == dopo[0] && dopo[1] == prima[1] + 1);
        QVERIFY2(crescente, qPrintable(f.at(i - 1) + u" -> "_s + f.at(i)));
        if (prima[0] < dopo[0]) {
            QCOMPARE(dopo[0], prima[0] + 1);
            QCOMPARE(dopo[1], 0);
            QCOMPARE(prima[2], 0); // the previous group ended at second term 9 - first
        }
    }
}

// Hand-counted metrics of columns that each push one rule to its edge.
void TestColonna::metriche_data() {
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<int>("uno");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("due");
    QTest::addColumn<int>("interruzioni");
    QTest::addColumn<int>("simmetrie");
    QTest::addColumn<int>("parallele");
    QTest::addColumn<QString>("nove");

    QTest::newRow("esempio") << u"1121X22122112X"_s << 6 << 2 << 6 << 9 << 2 << 4 << u"4-1-4"_s;
    QTest::newRow("tutti 1") << u"11111111111111"_s << 14 << 0 << 0 << 0 << 7 << 7 << u"9-0-0"_s;
    QTest::newRow("tutti X") << u"XXXXXXXXXXXXXX"_s << 0 << 14 << 0 << 0 << 7 << 7 << u"0-9-0"_s;
    QTest::newRow("tutti 2") << u"22222222222222"_s << 0 << 0 << 14 << 0 << 7 << 7 << u"0-0-9"_s;
    QTest::newRow("alterna 1X") << u"1X1X1X1X1X1X1X"_s << 7 << 7 << 0 << 13 << 0 << 0 << u"5-4-0"_s;
    QTest::newRow("nove 1 poi X") << u"111111111XXXXX"_s << 9 << 5 << 0 << 1 << 2 << 2
                                  << u"9-0-0"_s;
    QTest::newRow("ciclo 12X") << u"12X12X12X12X12"_s << 5 << 4 << 5 << 13 << 2 << 0 << u"3-3-3"_s;
    QTest::newRow("senza simmetrie")
        << u"22X1122X1X2211"_s << 5 << 3 << 6 << 8 << 0 << 1 << u"3-2-4"_s;
    QTest::newRow("palindroma") << u"1X22X1221X22X1"_s << 4 << 4 << 6 << 10 << 7 << 1 << u"3-2-4"_s;
    QTest::newRow("ripete 7") << u"21X12XX21X12XX"_s << 4 << 6 << 4 << 11 << 1 << 7 << u"3-3-3"_s;
    // Lower case is read as upper case, in the counts and in the comparisons.
    QTest::newRow("x minuscole") << u"1121x22122112x"_s << 6 << 2 << 6 << 9 << 2 << 4 << u"4-1-4"_s;
    QTest::newRow("X e x mescolate")
        << u"xXxXxXxXxXxXxX"_s << 0 << 14 << 0 << 0 << 7 << 7 << u"0-9-0"_s;
    // A foreign character counts in no term but differs from every sign.
    QTest::newRow("A in 3, esempio")
        << u"11A1X22122112X"_s << 6 << 2 << 5 << 9 << 2 << 3 << u"4-1-3"_s;
    QTest::newRow("A in 3, tutti 1")
        << u"11A11111111111"_s << 13 << 0 << 0 << 2 << 6 << 6 << u"8-0-0"_s;
}

void TestColonna::metriche() {
    QFETCH(QString, colonna);
    QFETCH(int, uno);
    QFETCH(int, x);
    QFETCH(int, due);
    QFETCH(int, interruzioni);
    QFETCH(int, simmetrie);
    QFETCH(int, parallele);

    const MetricheColonna m = Colonna::metriche(colonna);
    QCOMPARE(m.uno, uno);
    QCOMPARE(m.x, x);
    QCOMPARE(m.due, due);
    QCOMPARE(m.interruzioni, interruzioni);
    QCOMPARE(m.simmetrie, simmetrie);
    QCOMPARE(m.parallele, parallele);
    // The record order of the six fields.
    const std::array<int, 6> attesi{uno, x, due, interruzioni, simmetrie, parallele};
    QVERIFY(m.comeVettore() == attesi);
}

void TestColonna::formulaNove_data() {
    metriche_data();
}

void TestColonna::formulaNove() {
    QFETCH(QString, colonna);
    QFETCH(QString, nove);

    QCOMPARE(Colonna::formulaNove(colonna), nove);
    QCOMPARE(Colonna::lineaNove(colonna), u"Formula del 9: "_s + nove);
}

void TestColonna::rigaArchivio_data() {
    QTest::addColumn<QString>("stagione");
    QTest::addColumn<QString>("concorso");
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<QString>("riga");

    QTest::newRow("esempio") << u"2011"_s << u"34"_s << u"1121x22122112X"_s
                             << u"2011 34 1121X22122112X 6 2 6 9 2 4"_s;
    QTest::newRow("numeri a due cifre")
        << u"1998"_s << u"1"_s << u"11111111111111"_s << u"1998 1 11111111111111 14 0 0 0 7 7"_s;
    QTest::newRow("tredici interruzioni")
        << u"2023"_s << u"40"_s << u"1x1x1x1x1x1x1x"_s << u"2023 40 1X1X1X1X1X1X1X 7 7 0 13 0 0"_s;
    QTest::newRow("carattere estraneo")
        << u"2020"_s << u"7"_s << u"11a1X22122112X"_s << u"2020 7 11A1X22122112X 6 2 5 9 2 3"_s;
}

void TestColonna::rigaArchivio() {
    QFETCH(QString, stagione);
    QFETCH(QString, concorso);
    QFETCH(QString, colonna);
    QFETCH(QString, riga);

    const QString letta = Colonna::rigaArchivio(stagione, concorso, colonna);
    QCOMPARE(letta, riga);
    QCOMPARE(letta.split(u' ').size(), 9);
}

void TestColonna::testiDellaRiga_data() {
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<QString>("linea");
    QTest::addColumn<QString>("raggruppata");

    QTest::newRow("esempio") << u"1121X22122112X"_s
                             << u"1   1   2   1   X   2   2   1   2   2   1   1   2   X"_s
                             << u"112-1X2-212-2112X"_s;
    QTest::newRow("tutti 2") << u"22222222222222"_s
                             << u"2   2   2   2   2   2   2   2   2   2   2   2   2   2"_s
                             << u"222-222-222-22222"_s;
    QTest::newRow("ciclo 12X") << u"12X12X12X12X12"_s
                               << u"1   2   X   1   2   X   1   2   X   1   2   X   1   2"_s
                               << u"12X-12X-12X-12X12"_s;
}

void TestColonna::testiDellaRiga() {
    QFETCH(QString, colonna);
    QFETCH(QString, linea);
    QFETCH(QString, raggruppata);

    QCOMPARE(Colonna::lineaColonna(colonna), linea);
    QCOMPARE(Colonna::lineaColonna(colonna).size(), 14 * 4 - 3); // no blanks after the last sign
    QCOMPARE(Colonna::colonnaRaggruppata(colonna), raggruppata);
    QCOMPARE(Colonna::lineaConcorso(u"2011"_s, u"34"_s), u"Anno 2011  n.34"_s);
    QCOMPARE(Colonna::lineaConcorso(u"1999"_s, u"5"_s), u"Anno 1999  n.5"_s);
}

void TestColonna::lineaQuattordiciNonRicalcola() {
    // The stored fields disagree with the column on purpose: the line shows what is stored.
    const QStringList campi{u"2011"_s, u"34"_s, u"1121X22122112X"_s, u"7"_s, u"1"_s, u"6"_s, u"3"_s,
                            u"5"_s,    u"0"_s};
    QCOMPARE(Colonna::lineaQuattordici(campi),
             u"Formula del 14: 7-1-6     Int.3  Simm.5  Paral.0"_s);

    const QStringList esatti{
        u"2011"_s, u"34"_s, u"1121X22122112X"_s, u"6"_s, u"2"_s, u"6"_s, u"9"_s, u"2"_s, u"4"_s};
    QCOMPARE(Colonna::lineaQuattordici(esatti),
             u"Formula del 14: 6-2-6     Int.9  Simm.2  Paral.4"_s);
    QCOMPARE(Colonna::lineaQuattordici({u"2000"_s, u"12"_s, u"22222222222222"_s, u"0"_s, u"0"_s,
                                        u"14"_s, u"0"_s, u"7"_s, u"7"_s}),
             u"Formula del 14: 0-0-14     Int.0  Simm.7  Paral.7"_s);
}

void TestColonna::indiceColonna_data() {
    QTest::addColumn<int>("n");
    for (int n = 1; n <= IndiceColonna::SegniMassimi; ++n)
        QTest::newRow(qPrintable(u"%1 segni"_s.arg(n))) << n;
}

void TestColonna::indiceColonna() {
    // Against the plain reading of a column: the sum of each sign's digit times its place value,
    // on the first and last columns and on random ones; and the index order is the order of
    // the texts over 1 < X < 2.
    QFETCH(int, n);
    const std::uint32_t numero = IndiceColonna::colonne(n);
    std::uint32_t atteso = 1;
    for (int i = 0; i < n; ++i)
        atteso *= 3;
    QCOMPARE(numero, atteso);
    auto ordine = [](QString t) { return t.replace(u'X', u'A').replace(u'2', u'B'); };
    QRandomGenerator caso(quint32(n) * 7919u);
    QString precedente;
    std::uint32_t indicePrecedente = 0;
    for (int prova = 0; prova < 200; ++prova) {
        const std::uint32_t indice = prova == 0   ? 0
                                     : prova == 1 ? numero - 1
                                                  : caso.bounded(numero);
        const QString t = IndiceColonna::testo(indice, n);
        QCOMPARE(t.size(), n);
        std::uint32_t somma = 0;
        for (const QChar c : t) {
            const int d = QStringLiteral("1X2").indexOf(c);
            QVERIFY(d >= 0);
            somma = somma * 3 + std::uint32_t(d);
        }
        QCOMPARE(somma, indice);
        QCOMPARE(IndiceColonna::daTesto(t), int(indice));
        if (prova > 1)
            QCOMPARE(ordine(precedente) < ordine(t), indicePrecedente < indice);
        precedente = t;
        indicePrecedente = indice;
    }
}

void TestColonna::indiceColonnaNonValido_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("indice");
    QTest::newRow("vuoto") << QString() << 0;
    QTest::newRow("minuscola") << u"11x"_s << -1;
    QTest::newRow("zero") << u"1102"_s << -1;
    QTest::newRow("spazio") << u"1 2"_s << -1;
    QTest::newRow("trattino") << u"-"_s << -1;
    QTest::newRow("14 segni") << u"22222222222222"_s << 4782968;
    QTest::newRow("15 segni") << u"111111111111111"_s << -1;
}

void TestColonna::indiceColonnaNonValido() {
    QFETCH(QString, testo);
    QFETCH(int, indice);
    QCOMPARE(IndiceColonna::daTesto(testo), indice);
}

QTEST_APPLESS_MAIN(TestColonna)
#include "tst_colonna.moc"
