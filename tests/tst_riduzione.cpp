// The reduction with a guarantee: the check `garantita` against a brute force on the texts of the
// columns, and every cover of the reducer checked by both, on random sets, on the full spaces of
// 4 to 7 signs and on the edge cases; the sizes reached on 4 and 5 signs; cancel, time limit and
// the order of the result.
#include "analisi/riduzionegaranzia.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Opzioni = RiduzioneGaranzia::Opzioni;
using Avanzamento = RiduzioneGaranzia::Avanzamento;

int potenza(int n) {
    int p = 1;
    for (int i = 0; i < n; ++i)
        p *= 3;
    return p;
}

// A column as the coupon writes it: the first sign is the most significant base-3 digit.
QString testo(int colonna, int segni) {
    QString t(segni, u'1');
    for (int i = segni - 1; i >= 0; --i, colonna /= 3)
        t[i] = u"1X2"[colonna % 3];
    return t;
}

int valore(const QString &t) {
    int v = 0;
    for (QChar c : t)
        v = v * 3 + int(u"1X2"_s.indexOf(c));
    return v;
}

int distanzaTesti(const QString &a, const QString &b) {
    int d = 0;
    for (int i = 0; i < a.size(); ++i)
        d += a.at(i) != b.at(i);
    return d;
}

// Every column within the radius of a kept one, and every kept one in the set: the texts
// compared pair by pair.
bool copreForzaBruta(const QList<int> &colonne, const QList<int> &tenute, int segni, int raggio) {
    for (int t : tenute)
        if (!colonne.contains(t))
            return false;
    for (int c : colonne) {
        bool coperta = false;
        for (int t : tenute)
            coperta = coperta || distanzaTesti(testo(c, segni), testo(t, segni)) <= raggio;
        if (!coperta)
            return false;
    }
    return true;
}

QList<int> spazio(int segni) {
    QList<int> tutte;
    for (int c = 0; c < potenza(segni); ++c)
        tutte.append(c);
    return tutte;
}

// A random set of distinct columns, in random order.
QList<int> casuali(int segni, int quante, quint32 seme) {
    QList<int> tutte = spazio(segni);
    QRandomGenerator caso(seme);
    std::shuffle(tutte.begin(), tutte.end(), caso);
    return tutte.mid(0, std::min<qsizetype>(quante, tutte.size()));
}

// The positions in `colonne` of the kept columns: increasing when they keep the input order.
QList<qsizetype> posti(const QList<int> &colonne, const QList<int> &tenute) {
    QList<qsizetype> p;
    for (int t : tenute)
        p.append(colonne.indexOf(t));
    return p;
}

void verificaCopertura(const QList<int> &colonne, const QList<int> &tenute, int segni, int raggio) {
    QVERIFY(RiduzioneGaranzia::garantita(colonne, tenute, segni, raggio));
    QVERIFY(copreForzaBruta(colonne, tenute, segni, raggio));
    const QList<qsizetype> p = posti(colonne, tenute);
    QVERIFY(!p.contains(-1));
    QVERIFY(std::is_sorted(p.begin(), p.end()));
    QCOMPARE(QSet<int>(tenute.begin(), tenute.end()).size(), tenute.size());
    QVERIFY(tenute.size() >= RiduzioneGaranzia::minimo(colonne, segni, raggio));
}

// How far past its time limit a reduction may end: the limit is looked at between steps, and a
// sanitizer build or a busy machine runs the steps several times slower.
constexpr int MargineMs = 5000;

Opzioni opzioni(int segni, int raggio, int limiteMs, quint32 seme = 1) {
    Opzioni o;
    o.segni = segni;
    o.raggio = raggio;
    o.limiteMs = limiteMs;
    o.seme = seme;
    return o;
}

} // namespace

class TstRiduzione : public QObject {
    Q_OBJECT

private slots:
    // The columns and their distance.
    void colonneInBaseTre_data();
    void colonneInBaseTre();
    void distanza_data();
    void distanza();

    // The check.
    void garantitaComeLaForzaBruta();
    void garantitaAMano_data();
    void garantitaAMano();
    void codiceDiHamming();
    void togliereUnaTenuta();

    // The floor.
    void minimo_data();
    void minimo();
    void minimoComeLaDefinizione();

    // The reducer.
    void suInsiemiCasuali_data();
    void suInsiemiCasuali();
    void spaziPieni_data();
    void spaziPieni();
    void raggiGrandi_data();
    void raggiGrandi();
    void misureRaggiunte_data();
    void misureRaggiunte();
    void sistemaFiltrato();
    void ordineDellInput();
    void stessoSemeStessoRisultato();

    // Edge cases.
    void casiLimite_data();
    void casiLimite();
    void argomentiNonValidi_data();
    void argomentiNonValidi();

    // Cancel, time limit, progress.
    void annullamento_data();
    void annullamento();
    void limiteDiTempo();
    void avanzamento();
};

void TstRiduzione::colonneInBaseTre_data() {
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<int>("atteso");
    QTest::newRow("111111111") << u"111111111"_s << 0;
    QTest::newRow("11111111X") << u"11111111X"_s << 1;
    QTest::newRow("111111112") << u"111111112"_s << 2;
    QTest::newRow("1111111X1") << u"1111111X1"_s << 3;
    QTest::newRow("X11111111") << u"X11111111"_s << 6561;
    QTest::newRow("222222222") << u"222222222"_s << 19682;
}

void TstRiduzione::colonneInBaseTre() {
    QFETCH(QString, colonna);
    QFETCH(int, atteso);
    QCOMPARE(valore(colonna), atteso);
    QCOMPARE(testo(atteso, 9), colonna);
}

void TstRiduzione::distanza_data() {
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("attesa");
    QTest::newRow("uguali") << u"1X21X21X2"_s << u"1X21X21X2"_s << 0;
    QTest::newRow("ultimo segno") << u"111111111"_s << u"11111111X"_s << 1;
    QTest::newRow("primo segno") << u"111111111"_s << u"211111111"_s << 1;
    QTest::newRow("X e 2") << u"XXXXXXXXX"_s << u"222222222"_s << 9;
    QTest::newRow("due") << u"1X2111111"_s << u"1221111X1"_s << 2;
    QTest::newRow("tre segni") << u"1X2"_s << u"2X1"_s << 2;
    QTest::newRow("un segno") << u"X"_s << u"2"_s << 1;
}

void TstRiduzione::distanza() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, attesa);
    const int segni = int(a.size());
    QCOMPARE(RiduzioneGaranzia::distanza(valore(a), valore(b), segni), attesa);
    QCOMPARE(RiduzioneGaranzia::distanza(valore(b), valore(a), segni), attesa);
}

void TstRiduzione::garantitaComeLaForzaBruta() {
    QRandomGenerator caso(11);
    int vere = 0;
    int falsi = 0;
    for (int prova = 0; prova < 600; ++prova) {
        const int segni = 1 + int(caso.bounded(5));
        const int raggio = int(caso.bounded(3));
        const QList<int> colonne =
            casuali(segni, 1 + int(caso.bounded(quint32(potenza(segni)))), caso.generate());
        QList<int> tenute;
        const int quante = int(caso.bounded(quint32(colonne.size() / 2 + 2)));
        for (int i = 0; i < quante; ++i)
            // Now and then a column that may be outside the set.
            tenute.append(caso.bounded(8) == 0 ? int(caso.bounded(quint32(potenza(segni))))
                                               : colonne.at(caso.bounded(int(colonne.size()))));
        const bool attesa = copreForzaBruta(colonne, tenute, segni, raggio);
        QCOMPARE(RiduzioneGaranzia::garantita(colonne, tenute, segni, raggio), attesa);
        ++(attesa ? vere : falsi);
    }
    // Both answers were asked for.
    QVERIFY(vere > 50);
    QVERIFY(falsi > 50);
}

void TstRiduzione::garantitaAMano_data() {
    QTest::addColumn<QStringList>("colonne");
    QTest::addColumn<QStringList>("tenute");
    QTest::addColumn<int>("raggio");
    QTest::addColumn<bool>("attesa");
    const QStringList tre = {u"111"_s, u"11X"_s, u"1X2"_s};
    QTest::newRow("coperte") << tre << QStringList{u"111"_s, u"1X2"_s} << 1 << true;
    QTest::newRow("una scoperta") << tre << QStringList{u"111"_s} << 1 << false;
    QTest::newRow("raggio 2") << tre << QStringList{u"111"_s} << 2 << true;
    QTest::newRow("raggio 0, tutte") << tre << tre << 0 << true;
    QTest::newRow("raggio 0, una meno") << tre << tre.mid(1) << 0 << false;
    QTest::newRow("tenuta fuori dall'insieme")
        << tre << QStringList{u"112"_s, u"1X2"_s} << 1 << false;
    QTest::newRow("nessuna tenuta") << tre << QStringList{} << 3 << false;
    QTest::newRow("insieme vuoto") << QStringList{} << QStringList{} << 1 << true;
    QTest::newRow("vuoto, tenuta estranea") << QStringList{} << QStringList{u"111"_s} << 1 << false;
}

void TstRiduzione::garantitaAMano() {
    QFETCH(QStringList, colonne);
    QFETCH(QStringList, tenute);
    QFETCH(int, raggio);
    QFETCH(bool, attesa);
    QList<int> c, t;
    for (const QString &s : colonne)
        c.append(valore(s));
    for (const QString &s : tenute)
        t.append(valore(s));
    QCOMPARE(RiduzioneGaranzia::garantita(c, t, 3, raggio), attesa);
    QCOMPARE(copreForzaBruta(c, t, 3, raggio), attesa);
}

// The ternary Hamming code of 4 signs, by its parity checks x2 + x3 + x4 = 0 and
// x1 + x3 + 2 x4 = 0 (mod 3): 9 columns, and the 81 columns each within 1 of exactly one of them.
void TstRiduzione::codiceDiHamming() {
    QList<int> codice;
    for (int c = 0; c < 81; ++c) {
        const QString t = testo(c, 4);
        int x[4];
        for (int i = 0; i < 4; ++i)
            x[i] = int(u"1X2"_s.indexOf(t.at(i)));
        if ((x[1] + x[2] + x[3]) % 3 == 0 && (x[0] + x[2] + 2 * x[3]) % 3 == 0)
            codice.append(c);
    }
    QCOMPARE(codice.size(), 9);
    const QList<int> tutte = spazio(4);
    QVERIFY(RiduzioneGaranzia::garantita(tutte, codice, 4, 1));
    for (int c : tutte) {
        int vicine = 0;
        for (int t : codice)
            vicine += RiduzioneGaranzia::distanza(c, t, 4) <= 1;
        QCOMPARE(vicine, 1);
    }
    for (int i = 0; i < codice.size(); ++i) {
        QList<int> meno = codice;
        meno.removeAt(i);
        QVERIFY(!RiduzioneGaranzia::garantita(tutte, meno, 4, 1));
        // The other codewords are 3 signs away from the one taken out.
        QVERIFY(!RiduzioneGaranzia::garantita(tutte, meno, 4, 2));
        QVERIFY(RiduzioneGaranzia::garantita(tutte, meno, 4, 3));
    }
    // Kept columns outside the set are no guarantee, even where they cover it.
    QVERIFY(!RiduzioneGaranzia::garantita(tutte.mid(0, 40), codice, 4, 1));
}

// A cover of the reducer stopped right after its greedy step keeps no column it could drop: the
// check must fail for each column taken away, on a set where that is true by the brute force.
void TstRiduzione::togliereUnaTenuta() {
    for (quint32 seme = 1; seme <= 4; ++seme) {
        const QList<int> colonne = casuali(5, 120, seme);
        const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(5, 1, 60000, seme),
                                                     [](const Avanzamento &) { return false; });
        QVERIFY(esito.annullata);
        verificaCopertura(colonne, esito.tenute, 5, 1);
        for (int i = 0; i < esito.tenute.size(); ++i) {
            QList<int> meno = esito.tenute;
            meno.removeAt(i);
            QVERIFY(!copreForzaBruta(colonne, meno, 5, 1));
            QVERIFY(!RiduzioneGaranzia::garantita(colonne, meno, 5, 1));
        }
        // With one column more, that column can go again.
        QList<int> conUnaInPiu = esito.tenute;
        for (int c : colonne)
            if (!conUnaInPiu.contains(c)) {
                conUnaInPiu.prepend(c);
                break;
            }
        QVERIFY(RiduzioneGaranzia::garantita(colonne, conUnaInPiu, 5, 1));
        QVERIFY(RiduzioneGaranzia::garantita(colonne, conUnaInPiu.mid(1), 5, 1));
    }
}

void TstRiduzione::minimo_data() {
    QTest::addColumn<QList<int>>("colonne");
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("raggio");
    QTest::addColumn<int>("atteso");
    QTest::newRow("spazio di 9, raggio 1") << spazio(9) << 9 << 1 << 1036;
    QTest::newRow("spazio di 9, raggio 2") << spazio(9) << 9 << 2 << 121;
    QTest::newRow("spazio di 4, raggio 1") << spazio(4) << 4 << 1 << 9;
    QTest::newRow("spazio di 8, raggio 1") << spazio(8) << 8 << 1 << 386;
    QTest::newRow("una colonna") << QList<int>{5} << 9 << 1 << 1;
    QTest::newRow("due lontane") << QList<int>{0, 19682} << 9 << 2 << 2;
    QTest::newRow("due vicine") << QList<int>{0, 1} << 9 << 1 << 1;
    QTest::newRow("raggio 0") << QList<int>{0, 1, 2} << 9 << 0 << 3;
    QTest::newRow("duplicati") << QList<int>{0, 0, 19682} << 9 << 0 << 2;
    QTest::newRow("vuoto") << QList<int>{} << 9 << 1 << 0;
    QTest::newRow("fuori intervallo") << QList<int>{0, 19683} << 9 << 1 << 0;
}

void TstRiduzione::minimo() {
    QFETCH(QList<int>, colonne);
    QFETCH(int, segni);
    QFETCH(int, raggio);
    QFETCH(int, atteso);
    QCOMPARE(RiduzioneGaranzia::minimo(colonne, segni, raggio), atteso);
}

// |S| over the largest ball within S, the ball counted column by column.
void TstRiduzione::minimoComeLaDefinizione() {
    QRandomGenerator caso(5);
    for (int prova = 0; prova < 60; ++prova) {
        const int segni = 2 + int(caso.bounded(6));
        const int raggio = 1 + int(caso.bounded(2));
        const QList<int> colonne =
            casuali(segni, 1 + int(caso.bounded(quint32(potenza(segni)))), caso.generate());
        int massima = 0;
        for (int a : colonne) {
            int palla = 0;
            for (int b : colonne)
                palla += distanzaTesti(testo(a, segni), testo(b, segni)) <= raggio;
            massima = std::max(massima, palla);
        }
        const int atteso = int((colonne.size() + massima - 1) / massima);
        QCOMPARE(RiduzioneGaranzia::minimo(colonne, segni, raggio), atteso);
    }
}

void TstRiduzione::suInsiemiCasuali_data() {
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("raggio");
    QTest::addColumn<int>("quante");
    QTest::addColumn<quint32>("seme");
    for (int segni = 5; segni <= 9; ++segni)
        for (int raggio = 1; raggio <= 2; ++raggio)
            for (quint32 seme = 1; seme <= 2; ++seme) {
                const int quante = std::min(potenza(segni) / 3, 700);
                QTest::addRow("%d segni, raggio %d, seme %u", segni, raggio, seme)
                    << segni << raggio << quante << seme;
            }
}

void TstRiduzione::suInsiemiCasuali() {
    QFETCH(int, segni);
    QFETCH(int, raggio);
    QFETCH(int, quante);
    QFETCH(quint32, seme);
    const QList<int> colonne = casuali(segni, quante, seme * 31 + quint32(segni));
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(segni, raggio, 300, seme));
    verificaCopertura(colonne, esito.tenute, segni, raggio);
    QVERIFY(esito.tenute.size() < colonne.size());
    QVERIFY(!esito.annullata);
}

void TstRiduzione::spaziPieni_data() {
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("raggio");
    QTest::addColumn<int>("limiteMs");
    for (int segni = 1; segni <= 7; ++segni)
        for (int raggio = 1; raggio <= 2; ++raggio)
            QTest::addRow("%d segni, raggio %d", segni, raggio)
                << segni << raggio << (segni >= 6 ? 1500 : 60000);
}

void TstRiduzione::spaziPieni() {
    QFETCH(int, segni);
    QFETCH(int, raggio);
    QFETCH(int, limiteMs);
    // The whole space listed backwards, so that the order of the result is the input's.
    QList<int> colonne = spazio(segni);
    std::reverse(colonne.begin(), colonne.end());
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(segni, raggio, limiteMs));
    verificaCopertura(colonne, esito.tenute, segni, raggio);
    QVERIFY(esito.trascorsiMs <= limiteMs + MargineMs);
}

// Radii whose balls don't fit in memory on large sets: the balls are computed when walked, the
// greedy step stops at the time limit keeping what it has not covered yet.
void TstRiduzione::raggiGrandi_data() {
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("raggio");
    QTest::addColumn<int>("quante");
    QTest::addColumn<int>("limiteMs");
    QTest::newRow("spazio di 7, raggio 3") << 7 << 3 << 2187 << 1000;
    QTest::newRow("spazio di 7, raggio 4") << 7 << 4 << 2187 << 1000;
    QTest::newRow("spazio di 9, raggio 3") << 9 << 3 << 19683 << 1500;
    QTest::newRow("spazio di 9, raggio 5") << 9 << 5 << 19683 << 1000;
    QTest::newRow("spazio di 9, raggio 8") << 9 << 8 << 19683 << 300;
    QTest::newRow("6000 colonne di 9, raggio 4") << 9 << 4 << 6000 << 1000;
    QTest::newRow("spazio di 8, raggio 6") << 8 << 6 << 6561 << 1000;
}

void TstRiduzione::raggiGrandi() {
    QFETCH(int, segni);
    QFETCH(int, raggio);
    QFETCH(int, quante);
    QFETCH(int, limiteMs);
    const QList<int> colonne = casuali(segni, quante, 8);
    QElapsedTimer orologio;
    orologio.start();
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(segni, raggio, limiteMs));
    QVERIFY(orologio.elapsed() < limiteMs + MargineMs);
    verificaCopertura(colonne, esito.tenute, segni, raggio);
}

// The best sizes known for the full spaces of 4 and 5 signs with radius 1 (9, the perfect
// Hamming code, and 27), reached within the time.
void TstRiduzione::misureRaggiunte_data() {
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("attesa");
    QTest::addColumn<quint32>("seme");
    for (quint32 seme = 1; seme <= 3; ++seme) {
        QTest::addRow("4 segni, seme %u", seme) << 4 << 9 << seme;
        QTest::addRow("5 segni, seme %u", seme) << 5 << 27 << seme;
    }
}

void TstRiduzione::misureRaggiunte() {
    QFETCH(int, segni);
    QFETCH(int, attesa);
    QFETCH(quint32, seme);
    const QList<int> colonne = spazio(segni);
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(segni, 1, 60000, seme));
    verificaCopertura(colonne, esito.tenute, segni, 1);
    QCOMPARE(esito.tenute.size(), attesa);
    QVERIFY(!esito.limiteRaggiunto);
    // 9 is the floor: the search stops there at once.
    if (segni == 4)
        QCOMPARE(RiduzioneGaranzia::minimo(colonne, 4, 1), 9);
}

// A system of the 9 after a filter on the formula: four 1, three X, two 2 or five 1, two X,
// two 2 (2016 columns).
void TstRiduzione::sistemaFiltrato() {
    QList<int> colonne;
    for (int c = 0; c < potenza(9); ++c) {
        const QString t = testo(c, 9);
        const int uno = int(t.count(u'1')), ics = int(t.count(u'X')), due = int(t.count(u'2'));
        if (due == 2 && ((uno == 4 && ics == 3) || (uno == 5 && ics == 2)))
            colonne.append(c);
    }
    QCOMPARE(colonne.size(), 2016);
    QElapsedTimer orologio;
    orologio.start();
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(9, 1, 60000));
    verificaCopertura(colonne, esito.tenute, 9, 1);
    QVERIFY(!esito.limiteRaggiunto);
    QVERIFY(orologio.elapsed() < 20000);
    QVERIFY(esito.tenute.size() < 2016 / 3);
}

void TstRiduzione::ordineDellInput() {
    const QList<int> colonne = casuali(6, 400, 77);
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(6, 1, 500));
    verificaCopertura(colonne, esito.tenute, 6, 1);
    // Duplicates count once, at their first place.
    QList<int> doppie = colonne + colonne;
    const auto conDoppie = RiduzioneGaranzia::riduci(doppie, opzioni(6, 1, 500));
    verificaCopertura(colonne, conDoppie.tenute, 6, 1);
}

void TstRiduzione::stessoSemeStessoRisultato() {
    const QList<int> colonne = casuali(7, 800, 3);
    const auto a = RiduzioneGaranzia::riduci(colonne, opzioni(7, 1, 60000, 9));
    const auto b = RiduzioneGaranzia::riduci(colonne, opzioni(7, 1, 60000, 9));
    QVERIFY(!a.limiteRaggiunto);
    QCOMPARE(a.tenute, b.tenute);
    QCOMPARE(a.iterazioni, b.iterazioni);
    verificaCopertura(colonne, a.tenute, 7, 1);
}

void TstRiduzione::casiLimite_data() {
    QTest::addColumn<QList<int>>("colonne");
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("raggio");
    QTest::addColumn<QList<int>>("attese");
    QTest::newRow("vuoto") << QList<int>{} << 9 << 1 << QList<int>{};
    QTest::newRow("una colonna") << QList<int>{42} << 9 << 1 << QList<int>{42};
    QTest::newRow("una colonna, raggio 0") << QList<int>{42} << 9 << 0 << QList<int>{42};
    QTest::newRow("raggio 0: tutte") << QList<int>{7, 3, 9, 3} << 9 << 0 << QList<int>{7, 3, 9};
    QTest::newRow("raggio pari ai segni") << QList<int>{8, 0, 26} << 3 << 3 << QList<int>{8};
    QTest::newRow("raggio oltre i segni") << QList<int>{8, 0, 26} << 3 << 7 << QList<int>{8};
    QTest::newRow("due vicine") << QList<int>{valore(u"111111111"_s), valore(u"11111111X"_s)} << 9
                                << 1 << QList<int>{valore(u"111111111"_s)};
    QTest::newRow("due lontane") << QList<int>{valore(u"22222222X"_s), valore(u"111111111"_s)} << 9
                                 << 2 << QList<int>{valore(u"22222222X"_s), valore(u"111111111"_s)};
    QTest::newRow("un segno") << QList<int>{0, 1, 2} << 1 << 1 << QList<int>{0};
}

void TstRiduzione::casiLimite() {
    QFETCH(QList<int>, colonne);
    QFETCH(int, segni);
    QFETCH(int, raggio);
    QFETCH(QList<int>, attese);
    const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(segni, raggio, 1000));
    QCOMPARE(esito.tenute, attese);
    QVERIFY(RiduzioneGaranzia::garantita(colonne, esito.tenute, segni, raggio));
    QVERIFY(!esito.annullata);
    QVERIFY(!esito.limiteRaggiunto);
}

void TstRiduzione::argomentiNonValidi_data() {
    QTest::addColumn<QList<int>>("colonne");
    QTest::addColumn<int>("segni");
    QTest::addColumn<int>("raggio");
    QTest::newRow("colonna oltre 3^9") << QList<int>{0, 19683} << 9 << 1;
    QTest::newRow("colonna negativa") << QList<int>{-1, 4} << 9 << 1;
    QTest::newRow("colonna oltre 3^4") << QList<int>{81} << 4 << 1;
    QTest::newRow("zero segni") << QList<int>{0} << 0 << 1;
    QTest::newRow("dieci segni") << QList<int>{0} << 10 << 1;
    QTest::newRow("raggio negativo") << QList<int>{0, 1} << 9 << -1;
}

void TstRiduzione::argomentiNonValidi() {
    QFETCH(QList<int>, colonne);
    QFETCH(int, segni);
    QFETCH(int, raggio);
    bool chiamato = false;
    const auto esito =
        RiduzioneGaranzia::riduci(colonne, opzioni(segni, raggio, 1000), [&](const Avanzamento &) {
            chiamato = true;
            return true;
        });
    QVERIFY(esito.tenute.isEmpty());
    QVERIFY(!chiamato);
    QVERIFY(!RiduzioneGaranzia::garantita(colonne, colonne, segni, raggio));
    QCOMPARE(RiduzioneGaranzia::minimo(colonne, segni, raggio), 0);
}

void TstRiduzione::annullamento_data() {
    QTest::addColumn<int>("segni");
    QTest::addColumn<bool>("pieno");
    QTest::addColumn<int>("chiamate");
    for (int chiamate = 1; chiamate <= 2; ++chiamate) {
        QTest::addRow("spazio di 7, alla chiamata %d", chiamate) << 7 << true << chiamate;
        QTest::addRow("spazio di 9, alla chiamata %d", chiamate) << 9 << true << chiamate;
        QTest::addRow("sottoinsieme di 8, alla chiamata %d", chiamate) << 8 << false << chiamate;
    }
}

void TstRiduzione::annullamento() {
    QFETCH(int, segni);
    QFETCH(bool, pieno);
    QFETCH(int, chiamate);
    const QList<int> colonne = pieno ? spazio(segni) : casuali(segni, 3000, 4);
    int fatte = 0;
    int primaMisura = -1;
    const auto esito =
        RiduzioneGaranzia::riduci(colonne, opzioni(segni, 1, 60000), [&](const Avanzamento &a) {
            if (primaMisura < 0)
                primaMisura = a.migliore;
            return ++fatte < chiamate;
        });
    QCOMPARE(fatte, chiamate);
    QVERIFY(esito.annullata);
    QVERIFY(!esito.limiteRaggiunto);
    QVERIFY(esito.tenute.size() <= primaMisura);
    if (chiamate == 1)
        QCOMPARE(esito.tenute.size(), primaMisura);
    QVERIFY(esito.trascorsiMs < 10000);
    QVERIFY(RiduzioneGaranzia::garantita(colonne, esito.tenute, segni, 1));
}

void TstRiduzione::limiteDiTempo() {
    const QList<int> colonne = spazio(9);
    for (int limite : {0, 200}) {
        QElapsedTimer orologio;
        orologio.start();
        const auto esito = RiduzioneGaranzia::riduci(colonne, opzioni(9, 1, limite));
        QVERIFY(esito.limiteRaggiunto);
        QVERIFY(!esito.annullata);
        QVERIFY(orologio.elapsed() < limite + MargineMs);
        QVERIFY(esito.migliorataMs <= esito.trascorsiMs);
        QVERIFY(RiduzioneGaranzia::garantita(colonne, esito.tenute, 9, 1));
    }
}

// Called at the end of the greedy step and then about every 50 ms, with figures that only grow
// better; the last best is the result.
void TstRiduzione::avanzamento() {
    const QList<int> colonne = spazio(9);
    QList<Avanzamento> avvisi;
    const auto esito =
        RiduzioneGaranzia::riduci(colonne, opzioni(9, 1, 600), [&](const Avanzamento &a) {
            avvisi.append(a);
            return true;
        });
    QVERIFY(esito.limiteRaggiunto);
    QVERIFY(avvisi.size() >= 3);
    QVERIFY(avvisi.size() <= 600 / 50 + 2);
    for (qsizetype i = 0; i < avvisi.size(); ++i) {
        QCOMPARE(avvisi.at(i).limiteMs, 600);
        if (i > 0) {
            QVERIFY(avvisi.at(i).migliore <= avvisi.at(i - 1).migliore);
            QVERIFY(avvisi.at(i).trascorsiMs >= avvisi.at(i - 1).trascorsiMs + 50);
        }
    }
    QVERIFY(esito.tenute.size() <= avvisi.last().migliore);
    QVERIFY(RiduzioneGaranzia::garantita(colonne, esito.tenute, 9, 1));
}

QTEST_GUILESS_MAIN(TstRiduzione)
#include "tst_riduzione.moc"
