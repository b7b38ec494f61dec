// The workspace of the 9 without its window: the universe of the columns, their Freq. and Rit.,
// the search, CountOccurrences and every step of the bench on a real Griglia. Expected figures
// come from hand counts or from plain counts written here, never from the code under test.
#include "supporto/ambienteprova.h"
#include "supporto/archiviosintetico.h"

#include "analisi/bancocolonne9.h"
#include "analisi/colonne9.h"
#include "core/archiviocolonne.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"

#include <QDir>
#include <QElapsedTimer>
#include <QHash>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

// Which columns of the universe a step should keep, in the test's own words.
using Criterio = std::function<bool(const QString &colonna)>;
Q_DECLARE_METATYPE(Criterio)

namespace {

using Statistiche = QList<Colonne9::Statistica>;
using Contenuto = QList<QStringList>;

constexpr int Universo = 19683;
const QString Controllare = u"Controllare i dati inseriti."_s;
const QString FormulaInesatta =
    u"La formula inserita è inesatta. La somma dei segni deve essere 9."_s;

// The 3^9 columns counted in base 3 by hand, first sign most significant.
const QStringList &universoMio() {
    static const QStringList tabella = [] {
        const QChar segni[3] = {u'1', u'X', u'2'};
        QStringList t;
        for (int i = 0; i < Universo; ++i) {
            QString c(9, u'?');
            int v = i;
            for (int p = 8; p >= 0; --p) {
                c[p] = segni[v % 3];
                v /= 3;
            }
            t.append(c);
        }
        return t;
    }();
    return tabella;
}

const QHash<QString, int> &posizioneMia() {
    static const QHash<QString, int> h = [] {
        QHash<QString, int> t;
        for (int i = 0; i < Universo; ++i)
            t.insert(universoMio().at(i), i);
        return t;
    }();
    return h;
}

QStringList filtrato(const QStringList &colonne, const Criterio &resta) {
    QStringList t;
    for (const QString &c : colonne)
        if (resta(c))
            t.append(c);
    return t;
}

int conta(const QString &c, QChar s) {
    return int(c.count(s));
}

// The maximal runs of one sign: start (from 1) and length.
struct Corsa {
    int inizio;
    int lunghezza;
};
QList<Corsa> corse(const QString &c, QChar s) {
    QList<Corsa> t;
    for (int i = 0; i < c.size();) {
        if (c.at(i) != s) {
            ++i;
            continue;
        }
        int j = i;
        while (j < c.size() && c.at(j) == s)
            ++j;
        t.append({i + 1, j - i});
        i = j;
    }
    return t;
}

// Count form of "Segni consecutivi", read as runs: a run longer than C spoils the row, runs
// shorter than C are not seen, and the runs of exactly C must be T.
bool restaConteggioConsecutivi(const QString &c, QChar s, int lunghezza, int presenze) {
    if (lunghezza < 1)
        return false;
    const int obiettivo = presenze <= 1 ? 1 : presenze;
    int esatte = 0;
    for (const Corsa &r : corse(c, s)) {
        if (r.lunghezza > lunghezza)
            return false;
        if (r.lunghezza == lunghezza)
            ++esatte;
    }
    return esatte == obiettivo;
}

// Delete form, sign "1": a run of C or more ones whose last C start at position 1..8.
bool vaViaUno(const QString &c, int lunghezza) {
    if (lunghezza < 1)
        return false;
    for (const Corsa &r : corse(c, u'1')) {
        const int fine = r.inizio + r.lunghezza - 1;
        if (r.lunghezza >= lunghezza && fine - lunghezza + 1 <= 8)
            return true;
    }
    return false;
}

// Delete form, "X" and "2": the first run long enough decides, and only if it is exactly C.
bool vaViaXoDue(const QString &c, QChar s, int lunghezza) {
    if (lunghezza < 1)
        return false;
    for (const Corsa &r : corse(c, s))
        if (r.lunghezza >= lunghezza)
            return r.lunghezza == lunghezza;
    return false;
}

bool diversa(QStringView terzina) {
    return terzina.count(u'1') == 1 && terzina.count(u'X') == 1 && terzina.count(u'2') == 1;
}

bool omogenea(const QString &c) {
    for (int t = 0; t < 3; ++t)
        if (c.at(3 * t) != c.at(3 * t + 1) || c.at(3 * t) != c.at(3 * t + 2))
            return false;
    return true;
}

QString rigaArchivio(int j, const QString &colonna) {
    return u"2013 %1 %2 0 0 0 0 0 0"_s.arg(j).arg(colonna);
}

QStringList archivioDiColonne(const QStringList &colonne) {
    QStringList righe;
    for (int j = 1; j <= colonne.size(); ++j)
        righe.append(rigaArchivio(j, colonne.at(j - 1)));
    return righe;
}

// Freq. and Rit. of every column by a plain count over the lines, with the texts written here.
Statistiche contaAMano(const QStringList &righe) {
    QList<int> frequenza(Universo, 0);
    QList<int> ultimo(Universo, 0);
    int n = 0;
    for (const QString &r : righe) {
        if (r == u" "_s)
            continue;
        ++n;
        const QString nove = r.split(u' ').at(2).left(9);
        const auto i = posizioneMia().constFind(nove);
        if (i != posizioneMia().constEnd()) {
            ++frequenza[*i];
            ultimo[*i] = n;
        }
    }
    Statistiche t;
    for (int i = 0; i < Universo; ++i) {
        const QString f = u" "_s + QString::number(frequenza[i]);
        const QString r = frequenza[i] == 0 ? u"-"_s : u" "_s + QString::number(n - ultimo[i]);
        t.append({universoMio().at(i), f, r});
    }
    return t;
}

// First difference of two tables, for a readable failure.
QString differenza(const Statistiche &a, const Statistiche &b) {
    if (a.size() != b.size())
        return u"righe %1 contro %2"_s.arg(a.size()).arg(b.size());
    for (int i = 0; i < a.size(); ++i)
        if (a.at(i) != b.at(i))
            return u"riga %1: [%2|%3|%4] contro [%5|%6|%7]"_s.arg(i).arg(a[i][0], a[i][1], a[i][2],
                                                                         b[i][0], b[i][1], b[i][2]);
    return {};
}

Contenuto contenuto(const Griglia &g) {
    Contenuto t;
    for (int r = 0; r < g.righe(); ++r) {
        QStringList riga;
        for (int c = 0; c < g.colonne(); ++c)
            riga.append(g.testo(r, c));
        t.append(riga);
    }
    return t;
}

QString differenza(const Contenuto &a, const Contenuto &b) {
    if (a.size() != b.size())
        return u"righe %1 contro %2"_s.arg(a.size()).arg(b.size());
    for (int i = 0; i < a.size(); ++i)
        if (a.at(i) != b.at(i))
            return u"riga %1: [%2] contro [%3]"_s.arg(i).arg(a[i].join(u'|'), b[i].join(u'|'));
    return {};
}

QStringList colonna(const Griglia &g, int c) {
    QStringList t;
    for (int r = 1; r < g.righe(); ++r)
        t.append(g.testo(r, c));
    return t;
}

// "Pos." counts 1.. in the grid's order, with or without the parenthesis.
QString posizioniErrate(const Griglia &g, bool parentesi) {
    for (int r = 1; r < g.righe(); ++r) {
        const QString atteso = QString::number(r) + (parentesi ? u")"_s : QString());
        if (g.testo(r, 0) != atteso)
            return u"riga %1: \"%2\" invece di \"%3\""_s.arg(r).arg(g.testo(r, 0), atteso);
    }
    return {};
}

bool intestazioneIntatta(const Griglia &g) {
    return g.righe() >= 1 && g.testo(0, 0) == u"Pos."_s && g.testo(0, 1) == u"Colonna del 9"_s &&
           g.testo(0, 2) == u"Freq."_s && g.testo(0, 3) == u"Rit."_s;
}

// The grid as the screen holds it before a test writes its own rows.
void riempi(Griglia &g, const Contenuto &righe) {
    g.setRighe(1 + int(righe.size()));
    for (int i = 0; i < righe.size(); ++i)
        for (int c = 0; c < 4; ++c)
            g.setTesto(i + 1, c, righe[i][c]);
}

BancoColonne9::Esito esegui(BancoColonne9 &b, const QString &passo, const QString &a,
                            const QString &x, const QString &d) {
    if (passo == u"formula"_s)
        return b.formula(a, x, d);
    if (passo == u"segnoFisso"_s)
        return b.segnoFisso(a, x);
    if (passo == u"conteggio"_s)
        return b.conteggio(a, x);
    if (passo == u"segniDiversi"_s) {
        b.segniDiversi(a.toInt());
        return std::nullopt;
    }
    if (passo == u"eliminaSegno"_s) {
        b.eliminaSegno(a);
        return std::nullopt;
    }
    if (passo == u"eliminaInCasella"_s)
        return b.eliminaInCasella(a, x, d);
    if (passo == u"eliminaFrequenza"_s)
        return b.eliminaFrequenza(a);
    if (passo == u"eliminaMaiUscite"_s) {
        b.eliminaMaiUscite();
        return std::nullopt;
    }
    if (passo == u"terzineOmogenee"_s) {
        b.terzineOmogenee();
        return std::nullopt;
    }
    if (passo == u"consecutivi"_s)
        return b.consecutivi(a, x, d);
    qFatal("passo sconosciuto");
}

QString descrivi(const BancoColonne9::Esito &e) {
    return e ? u"%1: %2"_s.arg(int(e->tipo)).arg(e->testo) : u"nessun messaggio"_s;
}

} // namespace

class TstColonne9 : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    // The universe.
    void voci_data();
    void voci();
    void universoIntero();
    void indiceNonValido_data();
    void indiceNonValido();

    // Freq. and Rit.
    void testoNumero_data();
    void testoNumero();
    void calcoloAMano_data();
    void calcoloAMano();
    void calcoloSuArchivioConsegnato();
    void calcoloSuArchivioSintetico();
    void avanzamento();

    // Search.
    void ricercaValida_data();
    void ricercaValida();
    void cerca_data();
    void cerca();

    // CountOccurrences and the homogeneous terzine.
    void countOccurrences_data();
    void countOccurrences();
    void elencoTerzineOmogenee();

    // The bench.
    void grigliaPreparata();
    void filtroSullUniverso_data();
    void filtroSullUniverso();
    void formulaRifiutata_data();
    void formulaRifiutata();
    void segnoFissoRifiutato_data();
    void segnoFissoRifiutato();
    void caselleDeiSegniFissi();
    void rifiutiPrimaDellIstantanea_data();
    void rifiutiPrimaDellIstantanea();
    void eliminaFrequenza_data();
    void eliminaFrequenza();
    void omogeneeDopoNoveZeroZero();
    void consecutiviSuUnaRiga_data();
    void consecutiviSuUnaRiga();
    void consecutiviSenzaSegno();

    // The protocol of a step.
    void ordineConservato();
    void annulla_data();
    void annulla();
    void annullaDopoRipristina();
    void annullaNonLiberaLeCaselle();
    void passiSuGrigliaVuota_data();
    void passiSuGrigliaVuota();
    void senzaIstantaneaPrimaDelPrimoPasso();

    // Sort.
    void ordinaAMano();
    void ordinaSullUniverso();
    void ordineCheSiTiene();
    void intestazioniSpiegate();

private:
    // A bench on the universe figured against the delivered archive.
    void caricaUniverso(BancoColonne9 &b) const { b.carica(m_statistiche); }

    QStringList m_righeConsegnate;
    ArchivioColonne m_consegnato;
    Statistiche m_statistiche;  // by the code, to fill the grid
    Statistiche m_mie;          // by hand, to check it
    QHash<QString, int> m_riga; // column → index in m_mie
};

void TstColonne9::initTestCase() {
    m_righeConsegnate =
        FileDati::leggiRighe(QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s));
    QVERIFY(m_righeConsegnate.size() > 100);
    m_consegnato = ArchivioColonne::daRighe(m_righeConsegnate);
    m_statistiche = Colonne9::calcola(m_consegnato);
    m_mie = contaAMano(m_righeConsegnate);
    for (int i = 0; i < m_mie.size(); ++i)
        m_riga.insert(m_mie[i][0], i);
}

// --- the universe

void TstColonne9::voci_data() {
    QTest::addColumn<int>("voce");
    QTest::addColumn<QString>("testo");
    QTest::newRow("1") << 1 << u"111111111"_s;
    QTest::newRow("2") << 2 << u"11111111X"_s;
    QTest::newRow("3") << 3 << u"111111112"_s;
    QTest::newRow("4") << 4 << u"1111111X1"_s;
    QTest::newRow("27") << 27 << u"111111222"_s;
    QTest::newRow("28") << 28 << u"11111X111"_s;
    QTest::newRow("19683") << 19683 << u"222222222"_s;
}

void TstColonne9::voci() {
    QFETCH(int, voce);
    QFETCH(QString, testo);
    QCOMPARE(Colonne9::elenco().at(voce - 1), testo);
    QCOMPARE(Colonne9::indice(testo), voce - 1);
}

void TstColonne9::universoIntero() {
    const QStringList &e = Colonne9::elenco();
    QCOMPARE(Colonne9::Numero, Universo);
    QCOMPARE(e.size(), Universo);
    QCOMPARE(e, universoMio());
    for (int i = 0; i < e.size(); ++i)
        if (Colonne9::indice(e.at(i)) != i)
            QFAIL(qPrintable(u"indice(%1) non è %2"_s.arg(e.at(i)).arg(i)));
}

void TstColonne9::indiceNonValido_data() {
    QTest::addColumn<QString>("testo");
    QTest::newRow("minuscola") << u"11111111x"_s;
    QTest::newRow("otto segni") << u"11111111"_s;
    QTest::newRow("dieci segni") << u"1111111111"_s;
    QTest::newRow("vuoto") << QString();
    QTest::newRow("lettera") << u"1111A1111"_s;
    QTest::newRow("cifra 0") << u"111101111"_s;
    QTest::newRow("punto di domanda") << u"?????????"_s;
}

void TstColonne9::indiceNonValido() {
    QFETCH(QString, testo);
    QCOMPARE(Colonne9::indice(testo), -1);
}

// --- Freq. and Rit.

void TstColonne9::testoNumero_data() {
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("testo");
    QTest::newRow("0") << 0 << u" 0"_s;
    QTest::newRow("1") << 1 << u" 1"_s;
    QTest::newRow("12") << 12 << u" 12"_s;
    QTest::newRow("7000") << 7000 << u" 7000"_s;
}

void TstColonne9::testoNumero() {
    QFETCH(int, n);
    QFETCH(QString, testo);
    QCOMPARE(Colonne9::testoNumero(n), testo);
}

void TstColonne9::calcoloAMano_data() {
    QTest::addColumn<QStringList>("colonne"); // contest 1, 2, ...
    QTest::addColumn<QStringList>("attese");  // "column|Freq.|Rit."
    QTest::addColumn<int>("uscite");          // columns with a Freq. other than " 0"

    const QStringList dodici(12, u"1X21X21X2XXXXX"_s);
    QTest::newRow("concorsi 3 e N")
        << QStringList{u"XXXXXXXXX11111"_s, u"2222222221XXXX"_s, u"11111111122222"_s,
                       u"1X21X21X2XXXXX"_s, u"111111111XXXXX"_s}
        << QStringList{u"111111111| 2| 0"_s, u"XXXXXXXXX| 1| 4"_s, u"222222222| 1| 3"_s,
                       u"1X21X21X2| 1| 1"_s, u"11111111X| 0|-"_s,  u"111111112| 0|-"_s}
        << 4;
    QTest::newRow("due cifre") << (QStringList{u"XXXXXXXXX11111"_s} + dodici +
                                   QStringList{u"22222222211111"_s, u"111111111XXXXX"_s})
                               << QStringList{u"1X21X21X2| 12| 2"_s, u"XXXXXXXXX| 1| 14"_s,
                                              u"222222222| 1| 1"_s, u"111111111| 1| 0"_s}
                               << 4;
    QTest::newRow("archivio vuoto")
        << QStringList() << QStringList{u"111111111| 0|-"_s, u"222222222| 0|-"_s} << 0;
    // The lower-case contest still counts as a contest: "111111111" is one contest old.
    QTest::newRow("colonna minuscola")
        << QStringList{u"111111111XXXXX"_s, u"11111111x11111"_s, u"XXXXXXXXX11111"_s}
        << QStringList{u"111111111| 1| 2"_s, u"11111111X| 0|-"_s, u"XXXXXXXXX| 1| 0"_s} << 2;
    QTest::newRow("carattere estraneo")
        << QStringList{u"1111A111122222"_s, u"111111111XXXXX"_s, u"X1X1X1X1%222XX"_s}
        << QStringList{u"111111111| 1| 1"_s, u"1111X1111| 0|-"_s, u"X1X1X1X11| 0|-"_s,
                       u"X1X1X1X12| 0|-"_s}
        << 1;
    QTest::newRow("colonna corta") << QStringList{u"11111111"_s, u"2222222222222"_s}
                                   << QStringList{u"111111111| 0|-"_s, u"222222222| 1| 0"_s} << 1;
}

void TstColonne9::calcoloAMano() {
    QFETCH(QStringList, colonne);
    QFETCH(QStringList, attese);
    QFETCH(int, uscite);
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioDiColonne(colonne));
    QCOMPARE(a.numero(), colonne.size());
    const Statistiche s = Colonne9::calcola(a);
    const Statistiche r = Colonne9::calcolaConConfronti(a);
    QVERIFY2(differenza(s, r).isEmpty(), qPrintable(differenza(s, r)));
    QCOMPARE(s.size(), Universo);

    for (const QString &attesa : attese) {
        const QStringList p = attesa.split(u'|');
        const int i = universoMio().indexOf(p[0]);
        QVERIFY(i >= 0);
        QCOMPARE(s[i][0], p[0]);
        QCOMPARE(s[i][1], p[1]);
        QCOMPARE(s[i][2], p[2]);
    }
    int contate = 0;
    for (int i = 0; i < Universo; ++i) {
        QCOMPARE(s[i][0], universoMio().at(i));
        if (s[i][1] == u" 0"_s)
            QCOMPARE(s[i][2], u"-"_s);
        else
            ++contate;
    }
    QCOMPARE(contate, uscite);
}

void TstColonne9::calcoloSuArchivioConsegnato() {
    QCOMPARE(m_consegnato.numero(),
             m_righeConsegnate.size() - int(m_righeConsegnate.count(u" "_s)));
    const Statistiche r = Colonne9::calcolaConConfronti(m_consegnato);
    QVERIFY2(differenza(m_statistiche, r).isEmpty(), qPrintable(differenza(m_statistiche, r)));
    QVERIFY2(differenza(m_statistiche, m_mie).isEmpty(),
             qPrintable(differenza(m_statistiche, m_mie)));
    // The delivered archive has something drawn, or the check above proves little.
    QVERIFY(std::count_if(m_mie.cbegin(), m_mie.cend(),
                          [](const auto &s) { return s[2] != u"-"_s; }) > 100);
}

void TstColonne9::calcoloSuArchivioSintetico() {
    const QStringList righe = archivioSintetico(ArchivioColonne::Capacita, 9);
    const ArchivioColonne a = ArchivioColonne::daRighe(righe);
    QCOMPARE(a.numero(), 7000);
    const Statistiche s = Colonne9::calcola(a);
    QElapsedTimer t;
    t.start();
    const Statistiche r = Colonne9::calcolaConConfronti(a);
    qInfo("calcolaConConfronti su 7000 concorsi: %lld ms", t.elapsed());
    QVERIFY2(differenza(s, r).isEmpty(), qPrintable(differenza(s, r)));
    const Statistiche mie = contaAMano(righe);
    QVERIFY2(differenza(s, mie).isEmpty(), qPrintable(differenza(s, mie)));
}

void TstColonne9::avanzamento() {
    QList<int> visti;
    Colonne9::calcola(m_consegnato, [&visti](int n) { visti.append(n); });
    QVERIFY(!visti.isEmpty());
    QCOMPARE(visti.last(), Universo);
    for (int i = 0; i < visti.size(); ++i) {
        QVERIFY(visti[i] >= 1 && visti[i] <= Universo);
        if (i > 0)
            QVERIFY(visti[i] >= visti[i - 1]);
    }
    // Without a callback nothing is asked of it.
    QCOMPARE(Colonne9::calcola(m_consegnato).size(), Universo);
}

// --- search

void TstColonne9::ricercaValida_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<bool>("valida");
    QTest::newRow("nove segni") << u"1X21X21X2"_s << true;
    QTest::newRow("minuscola") << u"1x21x21x2"_s << true;
    QTest::newRow("solo x minuscole") << u"xxxxxxxxx"_s << true;
    QTest::newRow("un segno e lettere") << u"1AAAAAAAA"_s << true;
    QTest::newRow("nessun segno") << u"AAAAAAAAA"_s << false;
    QTest::newRow("punti di domanda") << u"?????????"_s << false;
    QTest::newRow("spazi") << u"         "_s << false;
    QTest::newRow("otto") << u"11111111"_s << false;
    QTest::newRow("dieci") << u"1111111111"_s << false;
    QTest::newRow("vuoto") << QString() << false;
}

void TstColonne9::ricercaValida() {
    QFETCH(QString, testo);
    QFETCH(bool, valida);
    QCOMPARE(Colonne9::ricercaValida(testo), valida);
}

void TstColonne9::cerca_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("frequenza");
    QTest::addColumn<int>("ritardo");
    // The archive of the test: 16 contests (see below).
    QTest::newRow("concorsi 3 e N") << u"111111111"_s << 2 << 0;
    QTest::newRow("dodici volte") << u"1X21X21X2"_s << 12 << 1;
    QTest::newRow("minuscola cercata") << u"1x21x21x2"_s << 12 << 1;
    QTest::newRow("primo concorso") << u"XXXXXXXXX"_s << 1 << 15;
    QTest::newRow("mai uscita") << u"222222222"_s << 0 << 16;
    // A lower-case column of the archive matches nothing, however it is searched.
    QTest::newRow("minuscola in archivio") << u"2222X2222"_s << 0 << 16;
    QTest::newRow("minuscola in archivio, cercata minuscola") << u"2222x2222"_s << 0 << 16;
}

void TstColonne9::cerca() {
    QFETCH(QString, testo);
    QFETCH(int, frequenza);
    QFETCH(int, ritardo);
    QStringList colonne{u"XXXXXXXXX11111"_s, u"2222x22221XXXX"_s, u"11111111122222"_s};
    colonne += QStringList(11, u"1X21X21X2XXXXX"_s); // 4 to 14
    colonne.append(u"1X21X21X2"_s);                  // 15, exactly nine signs
    colonne.append(u"111111111XXXXX"_s);             // 16
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioDiColonne(colonne));
    QCOMPARE(a.numero(), 16);
    const Colonne9::Ricerca r = Colonne9::cerca(a, testo);
    QCOMPARE(r.frequenza, frequenza);
    QCOMPARE(r.ritardo, ritardo);
}

// --- CountOccurrences

void TstColonne9::countOccurrences_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("modello");
    QTest::addColumn<bool>("esito");
    QTest::addColumn<int>("conta");
    QTest::newRow("corsa lunga in testa") << u"111X11122"_s << u"11"_s << false << 1;
    QTest::newRow("due corse esatte") << u"11X11X222"_s << u"11"_s << true << 2;
    QTest::newRow("nessuna") << u"1X1X1X1X1"_s << u"11"_s << false << 0;
    QTest::newRow("corsa lunga dopo una esatta") << u"11X111XXX"_s << u"11"_s << false << 2;
    QTest::newRow("fine in 9") << u"2222222XX"_s << u"XX"_s << true << 1;
    QTest::newRow("tutta la colonna") << u"111111111"_s << u"111111111"_s << true << 1;
    QTest::newRow("tutta la colonna, modello corto") << u"111111111"_s << u"11"_s << false << 1;
    QTest::newRow("quattro singoli") << u"X2X2X2X2X"_s << u"2"_s << true << 4;
    QTest::newRow("tre corse di tre") << u"111X11122"_s << u"111"_s << true << 2;
    // Only the first sign of the pattern is looked at after it.
    QTest::newRow("modello misto") << u"12X12X12X"_s << u"12X"_s << false << 1;
    QTest::newRow("modello misto seguito da altro") << u"12XX12X22"_s << u"12X"_s << true << 2;
    QTest::newRow("modello vuoto") << u"111111111"_s << QString() << false << 0;
    QTest::newRow("modello vuoto su testo vuoto") << QString() << QString() << false << 0;
}

void TstColonne9::countOccurrences() {
    QFETCH(QString, testo);
    QFETCH(QString, modello);
    QFETCH(bool, esito);
    QFETCH(int, conta);
    const Colonne9::Presenze p = Colonne9::countOccurrences(testo, modello);
    QCOMPARE(p.esito, esito);
    QCOMPARE(p.conta, conta);
}

void TstColonne9::elencoTerzineOmogenee() {
    const QStringList &t = Colonne9::terzineOmogenee();
    QCOMPARE(t.size(), 27);
    QCOMPARE(t.mid(0, 10),
             (QStringList{u"111111111"_s, u"111111XXX"_s, u"111111222"_s, u"111XXX111"_s,
                          u"111XXXXXX"_s, u"111XXX222"_s, u"111222111"_s, u"111222XXX"_s,
                          u"111222222"_s, u"XXX111111"_s}));
    QCOMPARE(t.last(), u"222222222"_s);
    // In universe order, and exactly the homogeneous ones.
    QCOMPARE(t, filtrato(universoMio(), omogenea));
}

// --- the bench

void TstColonne9::grigliaPreparata() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    QCOMPARE(g.colonne(), 4);
    QCOMPARE(g.righeFisse(), 1);
    QCOMPARE(g.righe(), 1);
    QVERIFY(intestazioneIntatta(g));
    QCOMPARE(g.larghezzaColonna(0), 750);
    QCOMPARE(g.larghezzaColonna(1), 1500);
    QCOMPARE(g.larghezzaColonna(2), 600);
    QCOMPARE(g.larghezzaColonna(3), 600);
    QCOMPARE(b.totale(), 0);
    for (const QString &s : b.segniFissi())
        QCOMPARE(s, u"?"_s);

    caricaUniverso(b);
    QCOMPARE(g.righe(), 19684);
    QCOMPARE(b.totale(), Universo);
    QVERIFY(intestazioneIntatta(g));
    QCOMPARE(colonna(g, 1), universoMio());
    const QString errate = posizioniErrate(g, true);
    QVERIFY2(errate.isEmpty(), qPrintable(errate));
    for (int r = 1; r < g.righe(); ++r)
        if (g.testo(r, 2) != m_mie[r - 1][1] || g.testo(r, 3) != m_mie[r - 1][2])
            QFAIL(qPrintable(u"riga %1 diversa dal conteggio a mano"_s.arg(r)));
}

void TstColonne9::filtroSullUniverso_data() {
    QTest::addColumn<QString>("passo");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("c");
    QTest::addColumn<int>("atteso"); // counted by hand; -1: only the plain count below
    QTest::addColumn<Criterio>("resta");
    QTest::addColumn<bool>("parentesi");

    const auto formula = [](int u, int x, int d) {
        return Criterio([=](const QString &c) {
            return conta(c, u'1') == u && conta(c, u'X') == x && conta(c, u'2') == d;
        });
    };
    const auto inPosizione = [](int p, QChar s) {
        return Criterio([=](const QString &c) { return c.at(p - 1) == s; });
    };
    const auto volte = [](QChar s, int n) {
        return Criterio([=](const QString &c) { return conta(c, s) == n; });
    };
    const Criterio tutte = [](const QString &) { return true; };
    const Criterio nessuna = [](const QString &) { return false; };

    const QString f = u"formula"_s;
    QTest::newRow("formula 9-0-0")
        << f << u"9"_s << u"0"_s << u"0"_s << 1 << formula(9, 0, 0) << false;
    QTest::newRow("formula 0-0-9")
        << f << u"0"_s << u"0"_s << u"9"_s << 1 << formula(0, 0, 9) << false;
    QTest::newRow("formula 0-9-0")
        << f << u"0"_s << u"9"_s << u"0"_s << 1 << formula(0, 9, 0) << false;
    QTest::newRow("formula 3-3-3")
        << f << u"3"_s << u"3"_s << u"3"_s << 1680 << formula(3, 3, 3) << false;
    QTest::newRow("formula 4-1-4")
        << f << u"4"_s << u"1"_s << u"4"_s << 630 << formula(4, 1, 4) << false;
    QTest::newRow("formula 9-?-?")
        << f << u"9"_s << u"?"_s << u"?"_s << 1 << formula(9, 0, 0) << false;
    QTest::newRow("formula con spazi")
        << f << u" 4"_s << u" 1"_s << u" 4"_s << 630 << formula(4, 1, 4) << false;

    const QString sf = u"segnoFisso"_s;
    QTest::newRow("fisso 1 X") << sf << u"1"_s << u"X"_s << QString() << 6561
                               << inPosizione(1, u'X') << true;
    QTest::newRow("fisso 9 2") << sf << u"9"_s << u"2"_s << QString() << 6561
                               << inPosizione(9, u'2') << true;
    QTest::newRow("fisso 5 1") << sf << u"5"_s << u"1"_s << QString() << 6561
                               << inPosizione(5, u'1') << true;

    const QString cg = u"conteggio"_s;
    QTest::newRow("1 presente 9") << cg << u"1"_s << u"9"_s << QString() << 1 << volte(u'1', 9)
                                  << false;
    QTest::newRow("X presente 9") << cg << u"X"_s << u"9"_s << QString() << 1 << volte(u'X', 9)
                                  << false;
    QTest::newRow("X presente 0") << cg << u"X"_s << u"0"_s << QString() << 512 << volte(u'X', 0)
                                  << false;
    // C(9,3) * 2^6 = 84 * 64.
    QTest::newRow("2 presente 3") << cg << u"2"_s << u"3"_s << QString() << 5376 << volte(u'2', 3)
                                  << false;
    QTest::newRow("1 presente ?") << cg << u"1"_s << u"?"_s << QString() << 512 << volte(u'1', 0)
                                  << false;
    QTest::newRow("? presente 3") << cg << u"?"_s << u"3"_s << QString() << 0 << nessuna << false;
    QTest::newRow("? presente 0") << cg << u"?"_s << u"0"_s << QString() << Universo << tutte
                                  << false;

    const QString sd = u"segniDiversi"_s;
    for (int t = 1; t <= 3; ++t)
        QTest::addRow("segni diversi %d", t)
            << sd << QString::number(t) << QString() << QString() << 4374
            << Criterio(
                   [t](const QString &c) { return diversa(QStringView(c).mid(3 * (t - 1), 3)); })
            << false;
    QTest::newRow("segni diversi tutte")
        << sd << u"4"_s << QString() << QString() << 216 << Criterio([](const QString &c) {
               return diversa(QStringView(c).mid(0, 3)) && diversa(QStringView(c).mid(3, 3)) &&
                      diversa(QStringView(c).mid(6, 3));
           })
        << false;

    const QString es = u"eliminaSegno"_s;
    QTest::newRow("elimina 2") << es << u"2"_s << QString() << QString() << 512 << volte(u'2', 0)
                               << false;
    QTest::newRow("elimina 1") << es << u"1"_s << QString() << QString() << 512 << volte(u'1', 0)
                               << false;
    QTest::newRow("elimina X") << es << u"X"_s << QString() << QString() << 512 << volte(u'X', 0)
                               << false;
    QTest::newRow("elimina ?") << es << u"?"_s << QString() << QString() << Universo << tutte
                               << false;

    // 2 * 3^8 rows have another sign in the box.
    const QString ec = u"eliminaInCasella"_s;
    const auto nonIn = [](int p, QChar s) {
        return Criterio([=](const QString &c) { return c.at(p - 1) != s; });
    };
    QTest::newRow("casella 5 senza 1")
        << ec << u"1"_s << u"?"_s << u"5"_s << 13122 << nonIn(5, u'1') << false;
    QTest::newRow("casella 9 senza X")
        << ec << u"X"_s << u"1"_s << u"9"_s << 13122 << nonIn(9, u'X') << false;
    QTest::newRow("casella 1 senza 2")
        << ec << u"2"_s << u"2"_s << u"1"_s << 13122 << nonIn(1, u'2') << false;
    QTest::newRow("casella 3 segno ?")
        << ec << u"?"_s << u"1"_s << u"3"_s << Universo << tutte << false;

    // Against the Freq. counted by hand from the delivered archive.
    const auto senzaCifra = [this](const QString &cifra) {
        return Criterio([this, cifra](const QString &c) {
            const QString freq = m_mie[m_riga.value(c)][1];
            for (const QChar ch : freq)
                if (QString(ch) == cifra)
                    return false;
            return true;
        });
    };
    const QString ef = u"eliminaFrequenza"_s;
    QTest::newRow("frequenza 0") << ef << u"0"_s << QString() << QString() << -1
                                 << senzaCifra(u"0"_s) << false;
    QTest::newRow("frequenza 1") << ef << u"1"_s << QString() << QString() << -1
                                 << senzaCifra(u"1"_s) << false;
    QTest::newRow("frequenza 12") << ef << u"12"_s << QString() << QString() << Universo << tutte
                                  << false;
    QTest::newRow("mai uscite") << u"eliminaMaiUscite"_s << QString() << QString() << QString()
                                << -1 << Criterio([this](const QString &c) {
                                       return m_mie[m_riga.value(c)][1] != u" 0"_s;
                                   })
                                << false;
    QTest::newRow("terzine omogenee") << u"terzineOmogenee"_s << QString() << QString() << QString()
                                      << 27 << Criterio(omogenea) << false;

    const QString cs = u"consecutivi"_s;
    const auto conteggio = [](QChar s, int lunghezza, int presenze) {
        return Criterio(
            [=](const QString &c) { return restaConteggioConsecutivi(c, s, lunghezza, presenze); });
    };
    const auto cancella = [](QChar s, int lunghezza) {
        return Criterio([=](const QString &c) {
            return s == u'1' ? !vaViaUno(c, lunghezza) : !vaViaXoDue(c, s, lunghezza);
        });
    };
    QTest::newRow("cons 1 9 1") << cs << u"1"_s << u"9"_s << u"1"_s << 1 << conteggio(u'1', 9, 1)
                                << false;
    // Eight ones at 1..8 or 2..9, the ninth sign X or 2.
    QTest::newRow("cons 1 8 1") << cs << u"1"_s << u"8"_s << u"1"_s << 4 << conteggio(u'1', 8, 1)
                                << false;
    QTest::newRow("cons 1 2 1") << cs << u"1"_s << u"2"_s << u"1"_s << -1 << conteggio(u'1', 2, 1)
                                << false;
    QTest::newRow("cons 1 2 2") << cs << u"1"_s << u"2"_s << u"2"_s << -1 << conteggio(u'1', 2, 2)
                                << false;
    QTest::newRow("cons X 3 1") << cs << u"X"_s << u"3"_s << u"1"_s << -1 << conteggio(u'X', 3, 1)
                                << false;
    QTest::newRow("cons 2 1 3") << cs << u"2"_s << u"1"_s << u"3"_s << -1 << conteggio(u'2', 1, 3)
                                << false;
    QTest::newRow("cons X 2 ' 0'")
        << cs << u"X"_s << u"2"_s << u" 0"_s << -1 << conteggio(u'X', 2, 0) << false;
    QTest::newRow("cons 1 0 1") << cs << u"1"_s << u"0"_s << u"1"_s << 0 << nessuna << false;
    // Runs longer than the nine signs, typed in the box: nothing matches, and no pattern of a
    // gigabyte is built to find that out.
    QTest::newRow("cons 1 10 1") << cs << u"1"_s << u"10"_s << u"1"_s << 0 << conteggio(u'1', 10, 1)
                                 << false;
    QTest::newRow("cons X 999999999 2")
        << cs << u"X"_s << u"999999999"_s << u"2"_s << 0 << conteggio(u'X', 999999999, 2) << false;
    QTest::newRow("elimina cons 2 999999999") << cs << u"2"_s << u"999999999"_s << u"0"_s
                                              << Universo << cancella(u'2', 999999999) << true;
    QTest::newRow("elimina cons 1 99999999999999")
        << cs << u"1"_s << u"99999999999999"_s << u"0"_s << Universo << cancella(u'1', 1000000000)
        << true;
    QTest::newRow("elimina cons 1 9")
        << cs << u"1"_s << u"9"_s << u"0"_s << Universo - 1 << cancella(u'1', 9) << true;
    // Runs of eight or nine ones: 1..8, 2..9 (two signs each for the other place) and all nine.
    QTest::newRow("elimina cons 1 8")
        << cs << u"1"_s << u"8"_s << u"0"_s << Universo - 5 << cancella(u'1', 8) << true;
    // Exactly eight X first: at 1..8 or 2..9; "XXXXXXXXX" stays (its first run is longer).
    QTest::newRow("elimina cons X 8")
        << cs << u"X"_s << u"8"_s << u"0"_s << Universo - 4 << cancella(u'X', 8) << true;
    // The ones stay only as a run that ends at 9 or not at all: 512 + (2^8 + ... + 2 + 1).
    QTest::newRow("elimina cons 1 1")
        << cs << u"1"_s << u"1"_s << u"0"_s << 1023 << cancella(u'1', 1) << true;
    QTest::newRow("elimina cons 1 2")
        << cs << u"1"_s << u"2"_s << u"0"_s << -1 << cancella(u'1', 2) << true;
    QTest::newRow("elimina cons X 2")
        << cs << u"X"_s << u"2"_s << u"0"_s << -1 << cancella(u'X', 2) << true;
    QTest::newRow("elimina cons 2 3")
        << cs << u"2"_s << u"3"_s << u"0"_s << -1 << cancella(u'2', 3) << true;
    QTest::newRow("elimina cons X 1")
        << cs << u"X"_s << u"1"_s << u"0"_s << -1 << cancella(u'X', 1) << true;
    QTest::newRow("elimina cons 1 0")
        << cs << u"1"_s << u"0"_s << u"0"_s << Universo << tutte << true;
}

void TstColonne9::filtroSullUniverso() {
    QFETCH(QString, passo);
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, c);
    QFETCH(int, atteso);
    QFETCH(Criterio, resta);
    QFETCH(bool, parentesi);

    Griglia g;
    BancoColonne9 banco(g);
    banco.prepara();
    caricaUniverso(banco);
    const BancoColonne9::Esito e = esegui(banco, passo, a, b, c);
    QVERIFY2(!e, qPrintable(descrivi(e)));

    const QStringList attese = filtrato(universoMio(), resta);
    if (atteso >= 0)
        QCOMPARE(attese.size(), atteso); // the hand figure and the plain count agree
    QCOMPARE(banco.totale(), attese.size());
    QCOMPARE(g.righe(), attese.size() + 1);
    QVERIFY(intestazioneIntatta(g));
    QCOMPARE(colonna(g, 1), attese);
    const QString errate = posizioniErrate(g, parentesi);
    QVERIFY2(errate.isEmpty(), qPrintable(errate));
    // Rows go whole: Freq. and Rit. stay with their column.
    for (int r = 1; r < g.righe(); ++r) {
        const auto &s = m_mie[m_riga.value(g.testo(r, 1))];
        if (g.testo(r, 2) != s[1] || g.testo(r, 3) != s[2])
            QFAIL(qPrintable(u"riga %1: Freq./Rit. non della colonna %2"_s.arg(r).arg(s[0])));
    }
    // The snapshot is the whole universe.
    QVERIFY(banco.conIstantanea());
    QCOMPARE(banco.righeIstantanea(), Universo);
}

void TstColonne9::formulaRifiutata_data() {
    QTest::addColumn<QString>("uno");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("due");
    QTest::newRow("? ? ?") << u"?"_s << u"?"_s << u"?"_s;
    QTest::newRow("somma 8") << u"3"_s << u"3"_s << u"2"_s;
    QTest::newRow("somma 10") << u"9"_s << u"1"_s << u"0"_s;
    QTest::newRow("4 4 ?") << u"4"_s << u"4"_s << u"?"_s;
    QTest::newRow("vuote") << QString() << QString() << QString();
    QTest::newRow("lettere") << u"a"_s << u"b"_s << u"c"_s;
}

// The snapshot comes first: a refused formula replaces it though the grid stays as it was.
void TstColonne9::formulaRifiutata() {
    QFETCH(QString, uno);
    QFETCH(QString, x);
    QFETCH(QString, due);
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    b.segniDiversi(4);
    QCOMPARE(b.righeIstantanea(), Universo);
    const Contenuto prima = contenuto(g);
    QCOMPARE(prima.size(), 217);

    const BancoColonne9::Esito e = b.formula(uno, x, due);
    QVERIFY(e);
    QCOMPARE(int(e->tipo), int(Dialoghi::Tipo::Informazione));
    QCOMPARE(e->testo, FormulaInesatta);
    QVERIFY2(differenza(contenuto(g), prima).isEmpty(),
             qPrintable(differenza(contenuto(g), prima)));
    QCOMPARE(b.righeIstantanea(), 216);
    b.annulla();
    QVERIFY2(differenza(contenuto(g), prima).isEmpty(),
             qPrintable(differenza(contenuto(g), prima)));
}

void TstColonne9::segnoFissoRifiutato_data() {
    QTest::addColumn<QString>("posizione");
    QTest::addColumn<QString>("segno");
    QTest::addColumn<QString>("testo");
    const QString posizione = u"Attenzione. Inserire una posizione valida (tra 1 e 9)."_s;
    const QString segno = u"Attenzione. Inserire un segno valido (1,X,2)."_s;
    // Box 1 holds "X" when these run.
    QTest::newRow("posizione 0") << u"0"_s << u"1"_s << posizione;
    QTest::newRow("posizione 10") << u"10"_s << u"1"_s << posizione;
    QTest::newRow("posizione ?") << u"?"_s << u"1"_s << posizione;
    QTest::newRow("posizione vuota") << QString() << u"1"_s << posizione;
    QTest::newRow("posizione -3") << u"-3"_s << u"1"_s << posizione;
    QTest::newRow("posizione e segno errati") << u"0"_s << u"7"_s << posizione;
    QTest::newRow("segno 3") << u"5"_s << u"3"_s << segno;
    QTest::newRow("segno ?") << u"5"_s << u"?"_s << segno;
    QTest::newRow("segno vuoto") << u"5"_s << QString() << segno;
    QTest::newRow("segno A") << u"5"_s << u"A"_s << segno;
    QTest::newRow("stesso segno") << u"1"_s << u"X"_s
                                  << u"Il segno introdotto è già stato utilizzato."_s;
    QTest::newRow("altro segno") << u"1"_s << u"2"_s << u"La posizione 1 è già stata utilizzata."_s;
    QTest::newRow("altro segno, posizione con spazio")
        << u" 1"_s << u"1"_s << u"La posizione  1 è già stata utilizzata."_s;
}

void TstColonne9::segnoFissoRifiutato() {
    QFETCH(QString, posizione);
    QFETCH(QString, segno);
    QFETCH(QString, testo);
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    QVERIFY(!b.segnoFisso(u"1"_s, u"X"_s));
    b.segniDiversi(4); // 72 rows, the snapshot is the 6561 of the fixed sign
    QCOMPARE(b.totale(), 72);
    QCOMPARE(b.righeIstantanea(), 6561);
    const Contenuto prima = contenuto(g);
    const auto caselle = b.segniFissi();

    const BancoColonne9::Esito e = b.segnoFisso(posizione, segno);
    QVERIFY(e);
    QCOMPARE(e->testo, testo);
    QVERIFY2(differenza(contenuto(g), prima).isEmpty(),
             qPrintable(differenza(contenuto(g), prima)));
    QCOMPARE(b.segniFissi(), caselle);
    // Snapshot first, here too.
    QCOMPARE(b.righeIstantanea(), 72);
}

void TstColonne9::caselleDeiSegniFissi() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    QVERIFY(!b.segnoFisso(u"1"_s, u"X"_s));
    QCOMPARE(b.segniFissi()[0], u"X"_s);
    QVERIFY(!b.segnoFisso(u"9"_s, u"2"_s));
    QCOMPARE(b.totale(), 2187);
    QCOMPARE(colonna(g, 1), filtrato(universoMio(), [](const QString &c) {
                 return c.startsWith(u'X') && c.endsWith(u'2');
             }));
    QVERIFY(posizioniErrate(g, true).isEmpty());
    QCOMPARE(b.segniFissi()[8], u"2"_s);
    for (int p = 1; p <= 7; ++p)
        QCOMPARE(b.segniFissi()[p], u"?"_s);

    // A freed box takes a sign again; the rows already gone stay gone.
    b.liberaSegno(1);
    QCOMPARE(b.segniFissi()[0], u"?"_s);
    QVERIFY(!b.segnoFisso(u"1"_s, u"2"_s));
    QCOMPARE(b.totale(), 0);
    QCOMPARE(b.segniFissi()[0], u"2"_s);

    // Ripristina frees all nine.
    caricaUniverso(b);
    for (const QString &s : b.segniFissi())
        QCOMPARE(s, u"?"_s);
    QVERIFY(!b.segnoFisso(u"9"_s, u"1"_s));
    QCOMPARE(b.totale(), 6561);
}

void TstColonne9::rifiutiPrimaDellIstantanea_data() {
    QTest::addColumn<QString>("passo");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("c");
    const QString q = u"?"_s;
    QTest::newRow("conteggio ? ?") << u"conteggio"_s << q << q << QString();
    QTest::newRow("casella ? ? 5") << u"eliminaInCasella"_s << q << q << u"5"_s;
    QTest::newRow("casella ? ? ?") << u"eliminaInCasella"_s << q << q << q;
    QTest::newRow("casella 1 X ?") << u"eliminaInCasella"_s << u"1"_s << u"X"_s << q;
    QTest::newRow("casella 1 ? ?") << u"eliminaInCasella"_s << u"1"_s << q << q;
    QTest::newRow("consecutivi 1 ? 1") << u"consecutivi"_s << u"1"_s << q << u"1"_s;
    QTest::newRow("consecutivi X 2 ?") << u"consecutivi"_s << u"X"_s << u"2"_s << q;
    QTest::newRow("consecutivi 2 ? 0") << u"consecutivi"_s << u"2"_s << q << u"0"_s;
    QTest::newRow("consecutivi 1 ? ?") << u"consecutivi"_s << u"1"_s << q << q;
}

// Validated before the snapshot: the grid and the snapshot both stay.
void TstColonne9::rifiutiPrimaDellIstantanea() {
    QFETCH(QString, passo);
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, c);
    Griglia g;
    BancoColonne9 banco(g);
    banco.prepara();
    caricaUniverso(banco);
    banco.segniDiversi(4);
    const Contenuto prima = contenuto(g);

    const BancoColonne9::Esito e = esegui(banco, passo, a, b, c);
    QVERIFY(e);
    QCOMPARE(int(e->tipo), int(Dialoghi::Tipo::Avviso));
    QCOMPARE(e->testo, Controllare);
    QVERIFY2(differenza(contenuto(g), prima).isEmpty(),
             qPrintable(differenza(contenuto(g), prima)));
    QCOMPARE(banco.righeIstantanea(), Universo);
    banco.annulla();
    QCOMPARE(banco.totale(), Universo);
}

void TstColonne9::eliminaFrequenza_data() {
    QTest::addColumn<QString>("cifra");
    QTest::addColumn<QStringList>("restano"); // Freq. of the rows left, in order
    QTest::newRow("1") << u"1"_s << QStringList{u" 0"_s, u" 2"_s, u" 20"_s, u" 3"_s};
    QTest::newRow("0") << u"0"_s
                       << QStringList{u" 1"_s, u" 11"_s, u" 21"_s, u" 2"_s, u" 12"_s, u" 3"_s};
    QTest::newRow("2") << u"2"_s << QStringList{u" 0"_s, u" 1"_s, u" 10"_s, u" 11"_s, u" 3"_s};
    QTest::newRow("12 (due caratteri)")
        << u"12"_s << QStringList{u" 0"_s, u" 1"_s,  u" 10"_s, u" 11"_s, u" 21"_s,
                                  u" 2"_s, u" 12"_s, u" 20"_s, u" 3"_s};
    // The leading blank is a character of every Freq. text.
    QTest::newRow("spazio") << u" "_s << QStringList();
    QTest::newRow("9") << u"9"_s << QStringList{u" 0"_s, u" 1"_s,  u" 10"_s, u" 11"_s, u" 21"_s,
                                                u" 2"_s, u" 12"_s, u" 20"_s, u" 3"_s};
}

void TstColonne9::eliminaFrequenza() {
    QFETCH(QString, cifra);
    QFETCH(QStringList, restano);
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    const QStringList freq{u" 0"_s, u" 1"_s,  u" 10"_s, u" 11"_s, u" 21"_s,
                           u" 2"_s, u" 12"_s, u" 20"_s, u" 3"_s};
    Contenuto righe;
    for (int i = 0; i < freq.size(); ++i)
        righe.append({QString::number(i + 1) + u')', universoMio().at(i * 7), freq[i],
                      freq[i] == u" 0"_s ? u"-"_s : u" 4"_s});
    riempi(g, righe);

    const BancoColonne9::Esito e = b.eliminaFrequenza(cifra);
    QVERIFY2(!e, qPrintable(descrivi(e)));
    QCOMPARE(colonna(g, 2), restano);
    QVERIFY(posizioniErrate(g, false).isEmpty());
    // Columns travel with their Freq.
    for (int r = 1; r < g.righe(); ++r)
        QCOMPARE(g.testo(r, 1), universoMio().at(7 * int(freq.indexOf(g.testo(r, 2)))));

    // An empty text is refused before the snapshot.
    const Contenuto dopo = contenuto(g);
    const BancoColonne9::Esito vuoto = b.eliminaFrequenza(QString());
    QVERIFY(vuoto);
    QCOMPARE(vuoto->testo, Controllare);
    QVERIFY(differenza(contenuto(g), dopo).isEmpty());
    QCOMPARE(b.righeIstantanea(), int(freq.size()));
}

void TstColonne9::omogeneeDopoNoveZeroZero() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    b.terzineOmogenee();
    QCOMPARE(b.totale(), 27);
    QCOMPARE(colonna(g, 1), filtrato(universoMio(), omogenea));

    caricaUniverso(b);
    QVERIFY(!b.formula(u"9"_s, u"0"_s, u"0"_s));
    QCOMPARE(colonna(g, 1), QStringList{u"111111111"_s});
    b.terzineOmogenee();
    QCOMPARE(b.totale(), 1);
    QCOMPARE(g.testo(1, 0), u"1"_s);
    QCOMPARE(g.testo(1, 1), u"111111111"_s);
}

void TstColonne9::consecutiviSuUnaRiga_data() {
    QTest::addColumn<QString>("riga");
    QTest::addColumn<QString>("segno");
    QTest::addColumn<QString>("consecutivi");
    QTest::addColumn<QString>("presenze");
    QTest::addColumn<bool>("resta");
    // Count form.
    QTest::newRow("11X11X222 1 2 1: due corse")
        << u"11X11X222"_s << u"1"_s << u"2"_s << u"1"_s << false;
    QTest::newRow("11X11X222 1 2 2") << u"11X11X222"_s << u"1"_s << u"2"_s << u"2"_s << true;
    QTest::newRow("111XX2222 1 2 1: corsa lunga")
        << u"111XX2222"_s << u"1"_s << u"2"_s << u"1"_s << false;
    QTest::newRow("111X11122 1 3 1") << u"111X11122"_s << u"1"_s << u"3"_s << u"1"_s << false;
    QTest::newRow("111X11122 1 3 2") << u"111X11122"_s << u"1"_s << u"3"_s << u"2"_s << true;
    QTest::newRow("XXX1XXX12 X 3 1") << u"XXX1XXX12"_s << u"X"_s << u"3"_s << u"1"_s << false;
    QTest::newRow("XXX1XXX12 X 3 2") << u"XXX1XXX12"_s << u"X"_s << u"3"_s << u"2"_s << true;
    QTest::newRow("1X21X1XX1 2 1 1") << u"1X21X1XX1"_s << u"2"_s << u"1"_s << u"1"_s << true;
    // P that is not "0" but reads 0 counts as 1.
    QTest::newRow("1X21X1XX1 2 1 ' 0'") << u"1X21X1XX1"_s << u"2"_s << u"1"_s << u" 0"_s << true;
    QTest::newRow("1X21X1XX1 2 1 2") << u"1X21X1XX1"_s << u"2"_s << u"1"_s << u"2"_s << false;
    QTest::newRow("2222222XX X 2 1: fine in 9")
        << u"2222222XX"_s << u"X"_s << u"2"_s << u"1"_s << true;
    QTest::newRow("111111111 1 0 1: modello vuoto")
        << u"111111111"_s << u"1"_s << u"0"_s << u"1"_s << false;
    // Delete form.
    QTest::newRow("111XX2222 cancella 1 2: coda")
        << u"111XX2222"_s << u"1"_s << u"2"_s << u"0"_s << false;
    QTest::newRow("11X11X222 cancella 1 2")
        << u"11X11X222"_s << u"1"_s << u"2"_s << u"0"_s << false;
    QTest::newRow("1X1X1X1X1 cancella 1 2") << u"1X1X1X1X1"_s << u"1"_s << u"2"_s << u"0"_s << true;
    QTest::newRow("XXXXXXX1X cancella 1 1")
        << u"XXXXXXX1X"_s << u"1"_s << u"1"_s << u"0"_s << false;
    // k stops at 8: a lone run of ones ending at 9 is never found with C = 1.
    QTest::newRow("XXXXXXX11 cancella 1 1") << u"XXXXXXX11"_s << u"1"_s << u"1"_s << u"0"_s << true;
    QTest::newRow("XXXXXX111 cancella 1 3")
        << u"XXXXXX111"_s << u"1"_s << u"3"_s << u"0"_s << false;
    QTest::newRow("XXX11XX22 cancella X 2: prima corsa lunga")
        << u"XXX11XX22"_s << u"X"_s << u"2"_s << u"0"_s << true;
    QTest::newRow("11XX1XXX2 cancella X 2")
        << u"11XX1XXX2"_s << u"X"_s << u"2"_s << u"0"_s << false;
    QTest::newRow("XXXXXX222 cancella 2 3: fine in 9")
        << u"XXXXXX222"_s << u"2"_s << u"3"_s << u"0"_s << false;
    QTest::newRow("XXXXXX222 cancella 2 2") << u"XXXXXX222"_s << u"2"_s << u"2"_s << u"0"_s << true;
    QTest::newRow("1X1X1X1X1 cancella X 2") << u"1X1X1X1X1"_s << u"X"_s << u"2"_s << u"0"_s << true;
    QTest::newRow("111111111 cancella 1 0: modello vuoto")
        << u"111111111"_s << u"1"_s << u"0"_s << u"0"_s << true;
}

void TstColonne9::consecutiviSuUnaRiga() {
    QFETCH(QString, riga);
    QFETCH(QString, segno);
    QFETCH(QString, consecutivi);
    QFETCH(QString, presenze);
    QFETCH(bool, resta);
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    // Two rows around the one under test that the step keeps whatever it is.
    const QString prima = u"?????????"_s, dopo = u"---------"_s;
    riempi(g, {{u"1)"_s, prima, u" 0"_s, u"-"_s},
               {u"2)"_s, riga, u" 3"_s, u" 8"_s},
               {u"3)"_s, dopo, u" 1"_s, u" 0"_s}});
    const bool cancella = presenze == u"0"_s;
    // The count form keeps only rows it finds: the fillers go there.
    const BancoColonne9::Esito e = b.consecutivi(segno, consecutivi, presenze);
    QVERIFY2(!e, qPrintable(descrivi(e)));
    QStringList attese;
    if (cancella)
        attese.append(prima);
    if (resta)
        attese.append(riga);
    if (cancella)
        attese.append(dopo);
    QCOMPARE(colonna(g, 1), attese);
    const QString errate = posizioniErrate(g, cancella);
    QVERIFY2(errate.isEmpty(), qPrintable(errate));
    if (resta) {
        const int r = int(attese.indexOf(riga)) + 1;
        QCOMPARE(g.testo(r, 2), u" 3"_s);
        QCOMPARE(g.testo(r, 3), u" 8"_s);
    }
    QCOMPARE(b.righeIstantanea(), 3);
}

void TstColonne9::consecutiviSenzaSegno() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    QVERIFY(!b.formula(u"3"_s, u"3"_s, u"3"_s));
    const Contenuto prima = contenuto(g);
    QVERIFY(posizioniErrate(g, false).isEmpty());

    const BancoColonne9::Esito e = b.consecutivi(QString(), u"?"_s, u"?"_s);
    QVERIFY2(!e, qPrintable(descrivi(e)));
    QVERIFY(posizioniErrate(g, true).isEmpty());
    const Contenuto dopo = contenuto(g);
    QCOMPARE(dopo.size(), prima.size());
    for (int r = 0; r < dopo.size(); ++r)
        QCOMPARE(dopo[r].mid(1), prima[r].mid(1));
    // No snapshot: undo still goes back to the universe.
    QCOMPARE(b.righeIstantanea(), Universo);
    b.annulla();
    QCOMPARE(b.totale(), Universo);
}

// --- protocol

// Kept rows keep the grid's present order, whatever it is.
void TstColonne9::ordineConservato() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    b.ordina(2); // Freq., descending
    const QStringList ordinate = colonna(g, 1);
    QVERIFY(ordinate != universoMio());
    const Criterio tutteDiverse = [](const QString &c) {
        return diversa(QStringView(c).mid(0, 3)) && diversa(QStringView(c).mid(3, 3)) &&
               diversa(QStringView(c).mid(6, 3));
    };
    b.segniDiversi(4);
    QCOMPARE(colonna(g, 1), filtrato(ordinate, tutteDiverse));
    QVERIFY(posizioniErrate(g, false).isEmpty());

    // The delete form removes rows in place.
    caricaUniverso(b);
    b.ordina(3);
    const QStringList perRitardo = colonna(g, 1);
    QVERIFY(!b.consecutivi(u"X"_s, u"2"_s, u"0"_s));
    QCOMPARE(colonna(g, 1),
             filtrato(perRitardo, [](const QString &c) { return !vaViaXoDue(c, u'X', 2); }));
    QVERIFY(posizioniErrate(g, true).isEmpty());
}

void TstColonne9::annulla_data() {
    QTest::addColumn<QString>("passo");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("c");
    QTest::newRow("formula") << u"formula"_s << u"5"_s << u"2"_s << u"2"_s;
    QTest::newRow("formula rifiutata") << u"formula"_s << u"5"_s << u"2"_s << u"1"_s;
    QTest::newRow("segno fisso") << u"segnoFisso"_s << u"4"_s << u"X"_s << QString();
    QTest::newRow("conteggio") << u"conteggio"_s << u"2"_s << u"2"_s << QString();
    QTest::newRow("segni diversi") << u"segniDiversi"_s << u"2"_s << QString() << QString();
    QTest::newRow("elimina segno") << u"eliminaSegno"_s << u"X"_s << QString() << QString();
    QTest::newRow("elimina in casella") << u"eliminaInCasella"_s << u"1"_s << u"?"_s << u"9"_s;
    QTest::newRow("frequenza") << u"eliminaFrequenza"_s << u"0"_s << QString() << QString();
    QTest::newRow("mai uscite") << u"eliminaMaiUscite"_s << QString() << QString() << QString();
    QTest::newRow("omogenee") << u"terzineOmogenee"_s << QString() << QString() << QString();
    QTest::newRow("consecutivi") << u"consecutivi"_s << u"1"_s << u"2"_s << u"1"_s;
    QTest::newRow("consecutivi, cancella") << u"consecutivi"_s << u"1"_s << u"2"_s << u"0"_s;
}

// The previous grid comes back exactly, "Pos." texts included, and a second undo the same.
void TstColonne9::annulla() {
    QFETCH(QString, passo);
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, c);
    Griglia g;
    BancoColonne9 banco(g);
    banco.prepara();
    caricaUniverso(banco);
    QVERIFY(!banco.conteggio(u"1"_s, u"3"_s)); // bare "Pos."
    const Contenuto prima = contenuto(g);
    QCOMPARE(prima.size(), 84 * 64 + 1);

    esegui(banco, passo, a, b, c);
    banco.annulla();
    QVERIFY2(differenza(contenuto(g), prima).isEmpty(),
             qPrintable(differenza(contenuto(g), prima)));
    banco.annulla();
    QVERIFY2(differenza(contenuto(g), prima).isEmpty(),
             qPrintable(differenza(contenuto(g), prima)));
    QCOMPARE(banco.totale(), 84 * 64);
}

void TstColonne9::annullaDopoRipristina() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    QVERIFY(!b.conteggio(u"1"_s, u"3"_s));
    const Contenuto primaDellUltimo = contenuto(g);
    QVERIFY(!b.segnoFisso(u"1"_s, u"X"_s));
    QVERIFY(b.totale() < int(primaDellUltimo.size()) - 1);

    caricaUniverso(b); // Ripristina
    QCOMPARE(b.totale(), Universo);
    QVERIFY(b.conIstantanea());
    QCOMPARE(b.righeIstantanea(), 84 * 64);
    for (const QString &s : b.segniFissi())
        QCOMPARE(s, u"?"_s);
    b.annulla();
    QVERIFY2(differenza(contenuto(g), primaDellUltimo).isEmpty(),
             qPrintable(differenza(contenuto(g), primaDellUltimo)));
}

void TstColonne9::annullaNonLiberaLeCaselle() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    const Contenuto universo = contenuto(g);
    QVERIFY(!b.segnoFisso(u"3"_s, u"2"_s));
    QCOMPARE(b.totale(), 6561);
    b.annulla();
    QVERIFY(differenza(contenuto(g), universo).isEmpty());
    QCOMPARE(b.segniFissi()[2], u"2"_s);
    const BancoColonne9::Esito e = b.segnoFisso(u"3"_s, u"2"_s);
    QVERIFY(e);
    QCOMPARE(e->testo, u"Il segno introdotto è già stato utilizzato."_s);
    const BancoColonne9::Esito altro = b.segnoFisso(u"3"_s, u"1"_s);
    QVERIFY(altro);
    QCOMPARE(altro->testo, u"La posizione 3 è già stata utilizzata."_s);
    QCOMPARE(b.totale(), Universo);
}

void TstColonne9::passiSuGrigliaVuota_data() {
    QTest::addColumn<bool>("dopoFiltri"); // emptied by filters, or never loaded
    QTest::newRow("svuotata dai filtri") << true;
    QTest::newRow("mai caricata") << false;
}

void TstColonne9::passiSuGrigliaVuota() {
    QFETCH(bool, dopoFiltri);
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    if (dopoFiltri) {
        caricaUniverso(b);
        QVERIFY(!b.formula(u"9"_s, u"0"_s, u"0"_s));
        QVERIFY(!b.segnoFisso(u"1"_s, u"X"_s));
        QCOMPARE(b.totale(), 0);
        QCOMPARE(g.righe(), 1);
        QVERIFY(intestazioneIntatta(g));
    }
    const QList<QStringList> passi{
        {u"formula"_s, u"3"_s, u"3"_s, u"3"_s},     {u"segnoFisso"_s, u"5"_s, u"1"_s, {}},
        {u"conteggio"_s, u"1"_s, u"2"_s, {}},       {u"segniDiversi"_s, u"4"_s, {}, {}},
        {u"eliminaSegno"_s, u"2"_s, {}, {}},        {u"eliminaInCasella"_s, u"1"_s, u"?"_s, u"2"_s},
        {u"eliminaFrequenza"_s, u"0"_s, {}, {}},    {u"eliminaMaiUscite"_s, {}, {}, {}},
        {u"terzineOmogenee"_s, {}, {}, {}},         {u"consecutivi"_s, u"1"_s, u"2"_s, u"1"_s},
        {u"consecutivi"_s, u"X"_s, u"2"_s, u"0"_s}, {u"consecutivi"_s, {}, u"?"_s, u"?"_s},
    };
    for (const QStringList &p : passi) {
        BancoColonne9::Esito e;
        QVERIFY_THROWS_NO_EXCEPTION(e = esegui(b, p[0], p[1], p[2], p[3]));
        QVERIFY2(!e, qPrintable(p[0] + u": "_s + descrivi(e)));
        QCOMPARE(b.totale(), 0);
        QCOMPARE(g.righe(), 1);
        QVERIFY2(intestazioneIntatta(g), qPrintable(p[0]));
    }
    QVERIFY_THROWS_NO_EXCEPTION(b.ordina(2));
    QVERIFY_THROWS_NO_EXCEPTION(b.ordina(3));
    QVERIFY_THROWS_NO_EXCEPTION(b.annulla());
    QCOMPARE(b.totale(), 0);
    QVERIFY(intestazioneIntatta(g));
    QCOMPARE(b.righeIstantanea(), 0);
}

void TstColonne9::senzaIstantaneaPrimaDelPrimoPasso() {
    Griglia g;
    BancoColonne9 b(g);
    QVERIFY(!b.conIstantanea());
    b.prepara();
    QVERIFY(!b.conIstantanea());
    caricaUniverso(b);
    QVERIFY(!b.conIstantanea());
    // Refused before the snapshot: still none.
    QVERIFY(b.conteggio(u"?"_s, u"?"_s));
    QVERIFY(b.eliminaFrequenza(QString()));
    QVERIFY(!b.consecutivi(QString(), u"?"_s, u"?"_s));
    QVERIFY(!b.conIstantanea());
    // The formula takes it before its check.
    QVERIFY(b.formula(u"?"_s, u"?"_s, u"?"_s));
    QVERIFY(b.conIstantanea());
    QCOMPARE(b.righeIstantanea(), Universo);
}

// --- sort

void TstColonne9::ordinaAMano() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    const Contenuto righe{
        {u"1)"_s, u"AAAAAAAAA"_s, u" 3"_s, u" 50"_s}, {u"2)"_s, u"BBBBBBBBB"_s, u" 0"_s, u"-"_s},
        {u"3)"_s, u"CCCCCCCCC"_s, u" 12"_s, u" 0"_s}, {u"4)"_s, u"DDDDDDDDD"_s, u" 1"_s, u" 40"_s},
        {u"5)"_s, u"EEEEEEEEE"_s, u" 0"_s, u"-"_s},   {u"6)"_s, u"FFFFFFFFF"_s, u" 2"_s, u" 7"_s},
    };
    riempi(g, righe);
    const auto ordine = [&g] {
        QString s;
        for (int r = 1; r < g.righe(); ++r)
            s += g.testo(r, 1).at(0);
        return s;
    };
    const auto righeIntere = [&g, &righe] {
        for (int r = 1; r < g.righe(); ++r) {
            const int i = g.testo(r, 1).at(0).unicode() - u'A';
            if (contenuto(g).at(r) != righe.at(i))
                return false;
        }
        return true;
    };

    b.ordina(1);
    QCOMPARE(ordine(), u"ABCDEF"_s);
    b.ordina(2); // descending first
    QCOMPARE(ordine(), u"CAFDBE"_s);
    QVERIFY(righeIntere());
    b.ordina(3); // then ascending, on another column; "-" below
    QCOMPARE(ordine(), u"CFDABE"_s);
    b.ordina(1); // nothing, and the direction does not move
    b.ordina(3); // descending; "-" still below
    QCOMPARE(ordine(), u"ADFCBE"_s);
    QVERIFY(righeIntere());
    b.ordina(0); // "Pos." kept its texts: ascending gives the first order back
    QCOMPARE(ordine(), u"ABCDEF"_s);
    QVERIFY(differenza(contenuto(g),
                       Contenuto{{u"Pos."_s, u"Colonna del 9"_s, u"Freq."_s, u"Rit."_s}} + righe)
                .isEmpty());
}

void TstColonne9::ordinaSullUniverso() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    caricaUniverso(b);
    const Contenuto universo = contenuto(g);
    b.ordina(1);
    QVERIFY(differenza(contenuto(g), universo).isEmpty());

    const int trattini = int(
        std::count_if(m_mie.cbegin(), m_mie.cend(), [](const auto &s) { return s[2] == u"-"_s; }));
    QVERIFY(trattini > 0 && trattini < Universo);
    for (const bool decrescente : {true, false}) {
        b.ordina(3);
        const Contenuto ora = contenuto(g);
        QCOMPARE(ora.size(), universo.size());
        // Each row whole, "Pos." included: it moved, it was not renumbered.
        for (int r = 1; r < ora.size(); ++r) {
            const int i = posizioneMia().value(ora[r][1]);
            if (ora[r] != universo[i + 1])
                QFAIL(qPrintable(u"riga %1 cambiata nell'ordinamento"_s.arg(r)));
        }
        const int numeri = Universo - trattini;
        for (int r = 1; r <= numeri; ++r) {
            QVERIFY2(ora[r][3] != u"-"_s, qPrintable(u"riga %1"_s.arg(r)));
            if (r > 1) {
                const int p = ora[r - 1][3].trimmed().toInt(), q = ora[r][3].trimmed().toInt();
                QVERIFY2(decrescente ? p >= q : p <= q, qPrintable(u"riga %1"_s.arg(r)));
            }
        }
        for (int r = numeri + 1; r < ora.size(); ++r)
            QCOMPARE(ora[r][3], u"-"_s);
    }
}

void TstColonne9::ordineCheSiTiene() {
    // The column the rows stand sorted by, as the header shows it, through a user's session.
    using V = Griglia::Verso;
    using O = BancoColonne9::Ordine;
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    QVERIFY(!b.ordine());
    caricaUniverso(b);
    QVERIFY(!b.ordine());
    b.ordina(2);
    QCOMPARE(b.ordine(), O({2, V::Decrescente}));
    b.ordina(1); // column 1 never sorts: the order shown stays
    QCOMPARE(b.ordine(), O({2, V::Decrescente}));
    // A step keeps the order of the rows, and so the mark.
    QVERIFY(!b.formula(u"3"_s, u"3"_s, u"3"_s));
    QCOMPARE(b.ordine(), O({2, V::Decrescente}));
    b.ordina(3);
    QCOMPARE(b.ordine(), O({3, V::Crescente}));
    // The undo brings back the rows of the snapshot, in the order they had.
    b.annulla();
    QCOMPARE(b.ordine(), O({2, V::Decrescente}));
    QCOMPARE(g.suggerimento(0, 2), BancoColonne9::suggerimentiIntestazioni().at(2));
    b.ordina(0);
    QCOMPARE(b.ordine(), O({0, V::Decrescente}));
    b.ordina(0);
    QCOMPARE(b.ordine(), O({0, V::Crescente}));
    // The step numbers "Pos." anew from 1: the sort by "Pos." no longer holds.
    b.segniDiversi(4);
    QVERIFY(!b.ordine());
    b.ordina(2);
    QCOMPARE(b.ordine(), O({2, V::Decrescente}));
    b.consecutivi(QString(), QString(), QString()); // the renumbering alone
    QCOMPARE(b.ordine(), O({2, V::Decrescente}));
    b.ordina(0);
    b.consecutivi(QString(), QString(), QString());
    QVERIFY(!b.ordine());
    b.ordina(3);
    QVERIFY(b.ordine());
    // "Ripristina tutto" and "Inizializzazione" load the universe in its own order.
    caricaUniverso(b);
    QVERIFY(!b.ordine());
}

void TstColonne9::intestazioniSpiegate() {
    Griglia g;
    BancoColonne9 b(g);
    b.prepara();
    const QStringList &testi = BancoColonne9::suggerimentiIntestazioni();
    QCOMPARE(testi.size(), BancoColonne9::Colonne);
    for (int c = 0; c < BancoColonne9::Colonne; ++c)
        QCOMPARE(g.suggerimento(0, c), testi.at(c));
    QVERIFY(testi.at(0).startsWith(u"Pos. = Posizione"_s));
    QVERIFY(testi.at(1).contains(u"non si ordina"_s));
    QVERIFY(testi.at(2).startsWith(u"Freq. = Frequenza"_s));
    QVERIFY(testi.at(3).startsWith(u"Rit. = Ritardo"_s));
    // Only the columns that sort say so.
    for (const int c : {0, 2, 3})
        QVERIFY(testi.at(c).contains(u"ordina le righe"_s));
    QVERIFY(!testi.at(1).contains(u"ordina le righe"_s));
    // The body has none of its own.
    caricaUniverso(b);
    QVERIFY(g.suggerimento(1, 2).isEmpty());
    QCOMPARE(g.suggerimento(0, 3), testi.at(3));
}

QTEST_GUILESS_MAIN(TstColonne9)
#include "tst_colonne9.moc"
