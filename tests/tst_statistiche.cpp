// The figures of the statistics screens (the 14 signs, the cinquine never drawn, the formulas,
// the details of the last column) against counts made here by the plain definitions, on archives
// made by hand and on the delivered one; and the pages of the print of the cinquine.
#include "supporto/ambienteprova.h"
#include "supporto/archiviosintetico.h"
#include "supporto/strumentiprova.h"

#include "analisi/cinquinemai.h"
#include "analisi/dettagliultimacv.h"
#include "analisi/statisticaformule.h"
#include "analisi/statisticaquattordici.h"
#include "analisi/statistichesegni.h"
#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "piattaforma/filedati.h"
#include "stampa/documentopagine.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

namespace {

// Rows of an archive from their columns: season and contest numbers made up, 38 a year from the
// first season given, metrics as Colonna computes them.
ArchivioColonne archivio(const QStringList &colonne, int primoAnno = 2024) {
    QStringList righe;
    for (int i = 0; i < colonne.size(); ++i)
        righe.append(Colonna::rigaArchivio(QString::number(primoAnno + i / 38),
                                           QString::number(i % 38 + 1), colonne.at(i)));
    return ArchivioColonne::daRighe(righe);
}

ArchivioColonne consegnato() {
    return ArchivioColonne::daRighe(
        FileDati::leggiRighe(QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s)));
}

// The statistics of the 14 signs by their definitions, one cell at a time.
StatisticaQuattordici::Figure quattordiciContate(const ArchivioColonne &a, const QString &anno) {
    StatisticaQuattordici::Figure f;
    const int n = a.numero();
    for (int p = 1; p <= 14; ++p)
        for (int s = 0; s < 3; ++s) {
            const QChar segno = Colonna::segni().at(s).at(0);
            const auto uguale = [&](int j) {
                const QString &c = a.colonna(j - 1);
                return c.size() >= p && c.at(p - 1) == segno;
            };
            for (int j = 1; j <= n; ++j) {
                f.storiche[p - 1][s] += uguale(j);
                f.anno[p - 1][s] += uguale(j) && a.campo(j - 1, 0) == anno;
            }
            for (int j = n; j >= 1; --j)
                if (uguale(j)) {
                    f.ritardi[p - 1][s] = n - j;
                    break;
                }
        }
    return f;
}

// The cinquine missing from the contests primo..N, as a set of the texts that did come out.
QStringList cinquineMaiContate(const ArchivioColonne &a, int primo) {
    std::set<QString> uscite;
    for (int j = std::max(primo, 1); j <= a.numero(); ++j)
        uscite.insert(a.colonna(j - 1).right(5));
    QStringList mai;
    for (const QString &c : StatisticheSegni::elencoCinquine())
        if (!uscite.count(c))
            mai.append(c);
    return mai;
}

// The formula of a contest as the length of the nine signs less what remains without a sign.
QString formulaPerDifferenza(const QString &colonna) {
    const QString nove = colonna.left(9);
    QStringList termini;
    for (const QString &s : Colonna::segni())
        termini.append(QString::number(nove.size() - QString(nove).remove(s).size()));
    return termini.join(u'-');
}

StatisticaFormule::Figure formuleContate(const ArchivioColonne &a) {
    StatisticaFormule::Figure f;
    const int n = a.numero();
    for (int i = 0; i < StatisticaFormule::Numero; ++i) {
        const QString formula = Colonna::formule().at(i);
        f[i].ritardo = n;
        for (int j = n; j >= 1; --j)
            if (formulaPerDifferenza(a.colonna(j - 1)) == formula) {
                if (f[i].frequenza++ == 0)
                    f[i].ritardo = n - j;
            }
    }
    return f;
}

// The groups of the last column walked from contest N - 1 back, by their texts.
std::array<StatisticheSegni::Figura, 5> dettagliContati(const ArchivioColonne &a) {
    const int n = a.numero();
    const auto gruppo = [](const QString &c, int g) {
        return g < 4 ? c.mid(3 * g, 3) : c.right(2);
    };
    std::array<StatisticheSegni::Figura, 5> f;
    for (int g = 0; g < 5; ++g) {
        const QString cercato = gruppo(a.colonna(n - 1), g);
        f[g].ritardo = n;
        for (int j = n - 1; j >= 1; --j)
            if (gruppo(a.colonna(j - 1), g) == cercato && f[g].frequenza++ == 0)
                f[g].ritardo = n - j;
    }
    return f;
}

// Texts of a page document as they stand, one record a line: "y|text" for texts, "linea y" for
// rules, "pagina" where a page starts.
QStringList testiDelDocumento(const QList<RecordPagina> &record) {
    QStringList righe;
    for (const RecordPagina &r : record) {
        if (r.tipo == DocumentoPagine::TipoNuovaPagina)
            righe.append(u"pagina"_s);
        else if (r.tipo == DocumentoPagine::TipoTesto)
            righe.append(u"%1 %2|%3"_s.arg(r.x1 / 567.0, 0, 'f', 2)
                             .arg(r.y1 / 567.0, 0, 'f', 2)
                             .arg(r.testo));
        else if (r.tipo == DocumentoPagine::TipoLinea)
            righe.append(u"linea %1-%2 %3"_s.arg(r.x1 / 567.0, 0, 'f', 1)
                             .arg(r.x2 / 567.0, 0, 'f', 1)
                             .arg(r.y1 / 567.0, 0, 'f', 2));
    }
    return righe;
}

} // namespace

class TstStatistiche : public QObject {
    Q_OBJECT

private slots:
    void quattordiciAMano();
    void quattordiciComeLeDefinizioni_data();
    void quattordiciComeLeDefinizioni();
    void lineaDelConcorso();

    void cinquineSchermoEStampa();
    void cinquineComeLeDefinizioni_data();
    void cinquineComeLeDefinizioni();
    void cinquineOltreLaCapacita();
    void paginaDelleCinquine_data();
    void paginaDelleCinquine();

    void formuleAMano_data();
    void formuleAMano();
    void formuleComeLeDefinizioni_data();
    void formuleComeLeDefinizioni();

    void dettagliAMano();
    void dettagliComeLeDefinizioni_data();
    void dettagliComeLeDefinizioni();
};

void TstStatistiche::quattordiciAMano() {
    // 2024: "1" everywhere, then "X" everywhere; 2025: a run of 1X2, then "A" at position 2.
    const ArchivioColonne due = ArchivioColonne::daRighe({
        u"2024 1 11111111111111 14 0 0 0 7 7"_s,
        u"2024 2 XXXXXXXXXXXXXX 0 14 0 0 7 7"_s,
        u"2025 1 1X21X21X21X21X 5 5 4 13 0 0"_s,
        u"2025 2 1A2222222222XX 1 2 10 4 2 1"_s,
    });
    const auto f = StatisticaQuattordici::calcola(due, u"2025"_s);
    using T = std::array<int, 3>;
    // Position 1: 1, X, 1, 1.
    QCOMPARE(f.storiche[0], (T{3, 1, 0}));
    QCOMPARE(f.anno[0], (T{2, 0, 0}));
    QCOMPARE(f.ritardi[0], (T{0, 2, 0})); // "2" never drawn there: 0, as the last contest's sign
    // Position 2: 1, X, X, A; the foreign character adds to no sign.
    QCOMPARE(f.storiche[1], (T{1, 2, 0}));
    QCOMPARE(f.anno[1], (T{0, 1, 0}));
    QCOMPARE(f.ritardi[1], (T{3, 1, 0}));
    // Position 3: 1, X, 2, 2.
    QCOMPARE(f.storiche[2], (T{1, 1, 2}));
    QCOMPARE(f.ritardi[2], (T{3, 2, 0}));
    // Position 14: 1, X, X, X.
    QCOMPARE(f.storiche[13], (T{1, 3, 0}));
    QCOMPARE(f.ritardi[13], (T{3, 0, 0}));
    // A year without contests: block 2 is all zeros, the others as they were.
    const auto vuoto = StatisticaQuattordici::calcola(due, u"2026"_s);
    QCOMPARE(vuoto.anno, StatisticaQuattordici::Tabella{});
    QCOMPARE(vuoto.storiche, f.storiche);
    QCOMPARE(vuoto.ritardi, f.ritardi);
    // An empty archive: all zeros.
    QCOMPARE(StatisticaQuattordici::calcola(ArchivioColonne(), u"2025"_s),
             StatisticaQuattordici::Figure{});
}

void TstStatistiche::quattordiciComeLeDefinizioni_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<QString>("anno");
    QTest::newRow("consegnato, anno in corso")
        << FileDati::leggiRighe(QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s))
        << u"2026"_s;
    QTest::newRow("consegnato, anno passato")
        << FileDati::leggiRighe(QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s))
        << u"2013"_s;
    QTest::newRow("7000 concorsi") << archivioSintetico(7000, 7) << u"2100"_s;
    QTest::newRow("una riga") << QStringList{u"2026 1 1X2X2111X2X1X2 6 5 3 12 2 1"_s} << u"2026"_s;
}

void TstStatistiche::quattordiciComeLeDefinizioni() {
    QFETCH(QStringList, righe);
    QFETCH(QString, anno);
    const ArchivioColonne a = ArchivioColonne::daRighe(righe);
    const auto f = StatisticaQuattordici::calcola(a, anno);
    QCOMPARE(f, quattordiciContate(a, anno));
    // The three historic frequencies of a position add up to N on clean columns.
    for (int p = 0; p < 14; ++p)
        QCOMPARE(f.storiche[p][0] + f.storiche[p][1] + f.storiche[p][2], a.numero());
    // The signs of the last contest have the delay 0.
    const QString ultima = a.colonna(a.numero() - 1);
    for (int p = 0; p < 14; ++p)
        QCOMPARE(f.ritardi[p][Colonna::segni().indexOf(ultima.at(p))], 0);
}

void TstStatistiche::lineaDelConcorso() {
    QCOMPARE(StatisticaQuattordici::testoConcorso(ArchivioColonne()), u"--"_s);
    QCOMPARE(StatisticaQuattordici::testoConcorso(consegnato()),
             u"Stagione: 2026 Concorso n. 14"_s);
}

void TstStatistiche::cinquineSchermoEStampa() {
    // 300 contests: the first holds "2X2X2", which never comes again; the others repeat 11111
    // and 1111X. The screen looks at all of them, the print at the latest 205 only.
    QStringList colonne{u"111111111X2X2X"_s};
    colonne.append(u"11111111111111"_s);
    colonne.append(u"1111111111111X"_s);
    for (int i = 3; i < 300; ++i)
        colonne.append(i % 2 ? u"11111111111111"_s : u"1111111111111X"_s);
    const ArchivioColonne a = archivio(colonne);
    const QStringList schermo = CinquineMai::delloSchermo(a);
    const QStringList stampa = CinquineMai::dellaStampa(a, 205);
    QCOMPARE(schermo.size(), 240);
    QVERIFY(!schermo.contains(u"X2X2X"_s));
    QVERIFY(!schermo.contains(u"11111"_s));
    QCOMPARE(stampa.size(), 241);
    QVERIFY(stampa.contains(u"X2X2X"_s));
    // The lists keep the order of the 243.
    QCOMPARE(stampa.first(), u"11112"_s);
    QCOMPARE(stampa.last(), u"22222"_s);
    // A shorter archive than 205: the print stops at contest 1 and lists what the screen does.
    const ArchivioColonne corto = archivio(colonne.mid(0, 50));
    QCOMPARE(CinquineMai::dellaStampa(corto, 205), CinquineMai::delloSchermo(corto));
    // An empty archive lists all 243.
    QCOMPARE(CinquineMai::delloSchermo(ArchivioColonne()), StatisticheSegni::elencoCinquine());
}

void TstStatistiche::cinquineComeLeDefinizioni_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::newRow("consegnato") << FileDati::leggiRighe(
        QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s));
    QTest::newRow("5000 concorsi") << archivioSintetico(5000, 11);
    QTest::newRow("una riga") << QStringList{u"2026 1 1X2X2111X2X1X2 6 5 3 12 2 1"_s};
    // Every cinquina once, then a foreign sign at position 12 that matches none.
    QStringList tutte;
    for (const QString &c : StatisticheSegni::elencoCinquine())
        tutte.append(Colonna::rigaArchivio(u"2020"_s, u"1"_s, u"111111111"_s + c));
    tutte.append(u"2021 1 11111111111A11 0 0 0 0 0 0"_s);
    QTest::newRow("tutte uscite") << tutte;
}

void TstStatistiche::cinquineComeLeDefinizioni() {
    QFETCH(QStringList, righe);
    const ArchivioColonne a = ArchivioColonne::daRighe(righe);
    QCOMPARE(CinquineMai::delloSchermo(a), cinquineMaiContate(a, 1));
    QCOMPARE(CinquineMai::dellaStampa(a, 205), cinquineMaiContate(a, a.numero() - 204));
    if (QByteArray(QTest::currentDataTag()) == "tutte uscite") {
        QCOMPARE(CinquineMai::delloSchermo(a), QStringList());
        // The latest 205 contests hold 204 cinquine: 39 are missing there.
        QCOMPARE(CinquineMai::dellaStampa(a, 205).size(), 39);
    }
}

void TstStatistiche::cinquineOltreLaCapacita() {
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioSintetico(5001, 3));
    const QString e = StrumentiProva::errore([&] { CinquineMai::delloSchermo(a); });
    QCOMPARE(e, u"L'elenco delle cinquine mai uscite può esaminare al massimo 5000 concorsi: "
                "l'archivio ne ha 5001."_s);
    // The print looks at the latest contests only and has no such limit.
    QCOMPARE(CinquineMai::dellaStampa(a, 205), cinquineMaiContate(a, 5001 - 204));
}

void TstStatistiche::paginaDelleCinquine_data() {
    QTest::addColumn<int>("voci");
    QTest::addColumn<int>("pagine");
    QTest::newRow("una") << 1 << 1;
    QTest::newRow("64: la pagina piena") << 64 << 2;
    QTest::newRow("65") << 65 << 2;
    QTest::newRow("243") << 243 << 4;
}

void TstStatistiche::paginaDelleCinquine() {
    QFETCH(int, voci);
    QFETCH(int, pagine);
    QTemporaryDir dir;
    const QString file = dir.filePath(u"_$$_TEMP.TMP"_s);
    {
        DocumentoPagine d(file);
        CinquineMai::scriviStampa(d, StatisticheSegni::elencoCinquine().mid(0, voci),
                                  u"23/11/2026"_s);
    }
    const QList<RecordPagina> record = DocumentoPagine::leggi(file);
    QCOMPARE(DocumentoPagine::contaPagine(record), pagine);
    const QStringList testi = testiDelDocumento(record);
    const QStringList testa1{u"pagina"_s,
                             u"1.00 1.50|Vespara!"_s,
                             u"17.90 1.50|Le Cinquine"_s,
                             u"linea 1.0-20.0 2.00"_s,
                             u"8.00 1.50|Data: 23/11/2026"_s,
                             u"8.00 1.50|Data: 23/11/2026"_s};
    QCOMPARE(testi.mid(0, 6), testa1);
    QCOMPARE(testi.at(6), u"8.00 4.70|11111"_s);
    // The entries of a page: the 64th at 26.75 cm, over the foot line; then the foot.
    const int sullaPrima = std::min(voci, 64);
    QCOMPARE(testi.at(6 + sullaPrima - 1).section(u'|', 0, 0),
             u"8.00 %1"_s.arg(4.0 + 0.35 * (sullaPrima + 1), 0, 'f', 2));
    QCOMPARE(testi.mid(6 + sullaPrima, 2),
             (QStringList{u"linea 1.0-20.0 26.50"_s, u"1.00 26.60|Pagina 1"_s}));
    if (pagine > 1) {
        QCOMPARE(testi.mid(8 + sullaPrima, 3),
                 (QStringList{u"pagina"_s, u"1.00 1.50|Vespara!"_s,
                              u"17.90 1.50|Le Cinquine mai uscite"_s}));
    }
    QCOMPARE(testi.last(), u"1.00 26.60|Pagina %1"_s.arg(pagine));
    // The entries are the cinquine with nine blanks, in the fixed-pitch font, at size 10.
    for (const RecordPagina &r : record)
        if (r.tipo == DocumentoPagine::TipoTesto && r.x1 == 8.0f * 567.0f && r.y1 > 4.0f * 567) {
            QCOMPARE(r.font, u"Courier New"_s);
            QCOMPARE(r.dimensione, qint16(10));
            QCOMPARE(r.grassetto, qint16(0));
        }
    int entrate = 0;
    for (const QString &t : testi)
        entrate += t.startsWith(u"8.00 "_s) && !t.contains(u"Data"_s);
    QCOMPARE(entrate, voci);
}

void TstStatistiche::formuleAMano_data() {
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<int>("riga"); // from 0; -1: no row
    QTest::newRow("4-4-1") << u"1X1X1X1X2XXXXX"_s << int(Colonna::formule().indexOf(u"4-4-1"_s));
    QTest::newRow("9-0-0") << u"11111111122222"_s << 0;
    QTest::newRow("0-0-9") << u"22222222211111"_s << 2;
    QTest::newRow("0-4-5 fuori elenco") << u"XXXX22222111XX"_s << -1;
    QTest::newRow("carattere estraneo") << u"1X1X1X1A2XXXXX"_s << -1;
    QTest::newRow("minuscola") << u"1x1X1X1X2XXXXX"_s << -1;
    QTest::newRow("colonna corta") << u"1X1X1"_s << -1;
}

void TstStatistiche::formuleAMano() {
    QFETCH(QString, colonna);
    QFETCH(int, riga);
    // The contest stands between one of 0-9-0 and one of 9-0-0: their delays are 2 and 0.
    QStringList righe;
    for (const QString &c : {u"XXXXXXXXX11111"_s, colonna, u"11111111111111"_s})
        righe.append(u"2026 %1 %2 0 0 0 0 0 0"_s.arg(righe.size() + 1).arg(c));
    const ArchivioColonne a = ArchivioColonne::daRighe(righe);
    QCOMPARE(a.colonna(1), colonna);
    const StatisticaFormule::Figure f = StatisticaFormule::calcola(a);
    int somma = 0;
    for (int i = 0; i < StatisticaFormule::Numero; ++i) {
        somma += f[i].frequenza;
        const int attesa = (i == riga) + (i == 0) + (i == 1);
        QCOMPARE(f[i].frequenza, attesa);
        const int ritardo = i == 0 ? 0 : i == riga ? 1 : i == 1 ? 2 : 3;
        QCOMPARE(f[i].ritardo, ritardo); // never drawn: N
    }
    QCOMPARE(somma, riga >= 0 ? 3 : 2);
}

void TstStatistiche::formuleComeLeDefinizioni_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::newRow("consegnato") << FileDati::leggiRighe(
        QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s));
    QTest::newRow("7000 concorsi") << archivioSintetico(7000, 5);
    QTest::newRow("vuoto") << QStringList();
}

void TstStatistiche::formuleComeLeDefinizioni() {
    QFETCH(QStringList, righe);
    const ArchivioColonne a = ArchivioColonne::daRighe(righe);
    QCOMPARE(StatisticaFormule::calcola(a), formuleContate(a));
}

void TstStatistiche::dettagliAMano() {
    // The last two columns share the first terzina; the last coppia 21 came out only in the
    // first contest, more than 205 contests before.
    QStringList colonne{u"XXX111222X1X21"_s};
    for (int i = 1; i < 300; ++i)
        colonne.append(u"222222222222XX"_s);
    colonne.append(u"1X2XXX2221X2XX"_s);
    colonne.append(u"1X2111X1X1X121"_s);
    const ArchivioColonne a = archivio(colonne);
    const DettagliUltimaCV::Dettagli d = DettagliUltimaCV::calcola(a);
    const int n = a.numero();
    QCOMPARE(d.colonna, u"1X2111X1X1X121"_s);
    QCOMPARE(d.stagione, a.ultima()[0]);
    QCOMPARE(d.concorso, a.ultima()[1]);
    using G = DettagliUltimaCV::Gruppo;
    QCOMPARE(d.gruppi[0], (G{u"1 X 2"_s, {1, 1}}));
    QCOMPARE(d.gruppi[1], (G{u"1 1 1"_s, {n - 1, 1}}));
    QCOMPARE(d.gruppi[2], (G{u"X 1 X"_s, {n, 0}})); // never before: N and 0
    QCOMPARE(d.gruppi[3], (G{u"1 X 1"_s, {n, 0}}));
    QCOMPARE(d.gruppi[4], (G{u"2 1"_s, {n - 1, 1}})); // the whole archive, not the latest 205

    // One row: nothing stands before it, so every delay is N (1) and every frequency 0.
    const DettagliUltimaCV::Dettagli una = DettagliUltimaCV::calcola(archivio({colonne.last()}));
    for (const G &g : una.gruppi)
        QCOMPARE(g.figura, (StatisticheSegni::Figura{1, 0}));
    // A foreign sign in a group matches the same text before it.
    const DettagliUltimaCV::Dettagli estraneo =
        DettagliUltimaCV::calcola(archivio({u"1A2111111111XX"_s, u"1A2222222222XX"_s}));
    QCOMPARE(estraneo.gruppi[0], (G{u"1 A 2"_s, {1, 1}}));
    QVERIFY(!StrumentiProva::errore([] { DettagliUltimaCV::calcola(ArchivioColonne()); }).isNull());
}

void TstStatistiche::dettagliComeLeDefinizioni_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::newRow("consegnato") << FileDati::leggiRighe(
        QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s));
    QTest::newRow("7000 concorsi") << archivioSintetico(7000, 9);
}

void TstStatistiche::dettagliComeLeDefinizioni() {
    QFETCH(QStringList, righe);
    const ArchivioColonne a = ArchivioColonne::daRighe(righe);
    const DettagliUltimaCV::Dettagli d = DettagliUltimaCV::calcola(a);
    const auto attese = dettagliContati(a);
    for (int g = 0; g < 5; ++g)
        QCOMPARE(d.gruppi[g].figura, attese[g]);
}

QTEST_MAIN(TstStatistiche)
#include "tst_statistiche.moc"
