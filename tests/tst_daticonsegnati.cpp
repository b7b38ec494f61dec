// The delivered data folder as committed: the archive built from real league results, the team
// lists, the coupons and quotas of the week and the marker files that the first start copies
// into a new data folder.

#include "campionati/leghe.h"
#include "core/colonna.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "schedine/fileschedine.h"
#include "schedine/quote.h"
#include "schedine/schedinasettimana.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

Q_DECLARE_METATYPE(FileSchedine::Tipo)

using namespace Qt::StringLiterals;

class TestDatiConsegnati : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void fineRigheEByte();
    void righeArchivio();
    void numerazioneConcorsi();
    void concorsiVerificati_data();
    void concorsiVerificati();
    void listeSquadre_data();
    void listeSquadre();
    void fileSegnaposto_data();
    void fileSegnaposto();
    void schedine_data();
    void schedine();
    void quote();

private:
    QString percorso(const QString &nome) const { return m_cartella.filePath(nome); }

    QDir m_cartella;
    QByteArray m_byteArchivio;
    QStringList m_righe;
};

void TestDatiConsegnati::initTestCase() {
    m_cartella = QDir(QString::fromUtf8(VESPARA_DATI_CONSEGNATI));
    QFile file(percorso(u"Archivio.txt"_s));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    m_byteArchivio = file.readAll();
    m_righe = FileDati::leggiRighe(file.fileName());
    // 487 contests when written: 13 seasons of 38 rounds, less the 7 rounds of 2025-26 that
    // have no Serie B round yet.
    QVERIFY2(m_righe.size() >= 300 && m_righe.size() <= 500,
             qPrintable(u"%1 righe"_s.arg(m_righe.size())));
}

void TestDatiConsegnati::fineRigheEByte() {
    QVERIFY(m_byteArchivio.endsWith("\r\n"));
    for (qsizetype i = 0; i < m_byteArchivio.size(); ++i) {
        const auto b = static_cast<unsigned char>(m_byteArchivio.at(i));
        QVERIFY2(b <= 0x7F, qPrintable(u"byte %1 alla posizione %2"_s.arg(b).arg(i)));
        if (b == '\n')
            QVERIFY2(i > 0 && m_byteArchivio.at(i - 1) == '\r',
                     qPrintable(u"LF senza CR alla posizione %1"_s.arg(i)));
        if (b == '\r')
            QVERIFY2(i + 1 < m_byteArchivio.size() && m_byteArchivio.at(i + 1) == '\n',
                     qPrintable(u"CR senza LF alla posizione %1"_s.arg(i)));
    }
}

void TestDatiConsegnati::righeArchivio() {
    static const QRegularExpression forma(
        u"^[0-9]{4} [0-9]+ [1X2]{14} [0-9]+ [0-9]+ [0-9]+ [0-9]+ [0-9]+ [0-9]+$"_s);
    for (int n = 0; n < m_righe.size(); ++n) {
        const QString &riga = m_righe.at(n);
        const QString dove = u"riga %1: \"%2\""_s.arg(n + 1).arg(riga);
        QVERIFY2(forma.match(riga).hasMatch(), qPrintable(dove));
        const QStringList campi = riga.split(u' ');
        QCOMPARE(campi.size(), 9);

        const MetricheColonna attese = Colonna::metriche(campi.at(2));
        const auto vettore = attese.comeVettore();
        for (int i = 0; i < 6; ++i)
            QVERIFY2(campi.at(3 + i).toInt() == vettore.at(i),
                     qPrintable(dove + u", campo %1"_s.arg(4 + i)));
        QVERIFY2(campi.at(3).toInt() + campi.at(4).toInt() + campi.at(5).toInt() == 14,
                 qPrintable(dove));
    }
}

void TestDatiConsegnati::numerazioneConcorsi() {
    int annoPrecedente = 0;
    int concorsoPrecedente = 0;
    for (int n = 0; n < m_righe.size(); ++n) {
        const QStringList campi = m_righe.at(n).split(u' ');
        const QString dove = u"riga %1: \"%2\""_s.arg(n + 1).arg(m_righe.at(n));
        const int anno = campi.value(0).toInt();
        const int concorso = campi.value(1).toInt();
        QVERIFY2(anno >= 2013 && anno <= 2026, qPrintable(dove));
        QVERIFY2(anno >= annoPrecedente, qPrintable(dove));
        const int atteso = anno == annoPrecedente ? concorsoPrecedente + 1 : 1;
        QVERIFY2(concorso == atteso, qPrintable(dove + u", atteso concorso %1"_s.arg(atteso)));
        annoPrecedente = anno;
        concorsoPrecedente = concorso;
    }
}

void TestDatiConsegnati::concorsiVerificati_data() {
    QTest::addColumn<QString>("stagione");
    QTest::addColumn<QString>("concorso");
    QTest::addColumn<QString>("colonna");

    // Serie A 2013-14 round 1 (10 matches), then Serie B 2013-14 round 1 (first 4 by date):
    //  1 Hellas Verona-AC Milan 2-1, 2 Sampdoria-Juventus 0-1, 1 Inter-Genoa CFC 2-0,
    //  1 Cagliari Calcio-Atalanta 2-1, 1 Lazio Roma-Udinese Calcio 2-1, 2 AS Livorno-AS Roma 0-2,
    //  1 SSC Napoli-Bologna FC 3-0, X Parma FC-Chievo Verona 0-0, 1 Torino FC-Sassuolo Calcio 2-0,
    //  1 ACF Fiorentina-Calcio Catania 2-1; X Reggina Calcio-AS Bari 0-0 (23 Aug),
    //  1 AS Avellino-Novara Calcio 2-1, X Brescia Calcio-Virtus Lanciano 2-2,
    //  1 Empoli FC-Latina Calcio 3-1.
    QTest::newRow("2013-14 giornata 1") << u"2013"_s << u"1"_s << u"1211121X11X1X1"_s;

    // Serie A 2019-20 round 29, the twelfth round begun in 2020 (rounds 18 to 28 before it).
    // The source dates its 1-2 July 2020 matches 2019; in true date order:
    //  30 Jun: 2 Torino FC-Lazio Roma 1-2, 2 Genoa CFC-Juventus 1-3;
    //  1 Jul: 1 Inter-Brescia Calcio 6-0, X Bologna FC-Cagliari Calcio 1-1,
    //  X SPAL 2013 Ferrara-AC Milan 2-2, 1 Hellas Verona-Parma Calcio 1913 3-2,
    //  2 US Lecce-Sampdoria 1-2, 2 ACF Fiorentina-Sassuolo Calcio 1-3;
    //  2 Jul: 1 Atalanta-SSC Napoli 2-0, 2 AS Roma-Udinese Calcio 0-2.
    // Serie B 2019-20 round 29, first 4: 1 Spezia Calcio-Empoli FC 1-0 (19 Jun),
    //  X FC Crotone-Chievo Verona 1-1, 2 AS Livorno-AS Cittadella 0-2,
    //  X Trapani Calcio-Frosinone Calcio 0-0 (20 Jun).
    QTest::newRow("2019-20 giornata 29") << u"2020"_s << u"12"_s << u"221XX122121X2X"_s;
}

void TestDatiConsegnati::concorsiVerificati() {
    QFETCH(QString, stagione);
    QFETCH(QString, concorso);
    QFETCH(QString, colonna);

    const QString inizio = stagione + u" "_s + concorso + u" "_s;
    const auto trovata = std::find_if(m_righe.cbegin(), m_righe.cend(),
                                      [&inizio](const QString &r) { return r.startsWith(inizio); });
    QVERIFY2(trovata != m_righe.cend(), qPrintable(inizio));
    QCOMPARE(trovata->split(u' ').value(2), colonna);
}

void TestDatiConsegnati::listeSquadre_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("numero");
    QTest::addColumn<QString>("squadra");

    // One team each list must hold; the accented ones prove the file is Latin-1, not UTF-8.
    QTest::newRow("Serie A") << u"SerieA.txt"_s << 20 << u"FC INTERNAZIONALE MILANO"_s;
    QTest::newRow("Serie B") << u"SerieB.txt"_s << 20 << u"FC SÜDTIROL"_s;
    QTest::newRow("Serie C girone A") << u"SerieC1A.txt"_s << 20 << u"FERALPISALÒ"_s;
    QTest::newRow("Serie C girone B") << u"SerieC1B.txt"_s << 20 << u"SEF TORRES 1903"_s;
    QTest::newRow("Serie C girone C") << u"SerieC2A.txt"_s << 18 << u"TEAM ALTAMURA"_s;
    QTest::newRow("vuoto C2B") << u"SerieC2B.txt"_s << 0 << QString();
    QTest::newRow("vuoto C2C") << u"SerieC2C.txt"_s << 0 << QString();
}

void TestDatiConsegnati::listeSquadre() {
    QFETCH(QString, file);
    QFETCH(int, numero);
    QFETCH(QString, squadra);

    QVERIFY2(QFile::exists(percorso(file)), qPrintable(file));
    const QStringList righe = FileDati::leggiRighe(percorso(file));
    QCOMPARE(righe.size(), numero);
    for (const QString &nome : righe) {
        QVERIFY(!nome.trimmed().isEmpty());
        QCOMPARE(nome, nome.toUpper());
    }
    // Strictly increasing: sorted and without repeats.
    QVERIFY(std::adjacent_find(righe.cbegin(), righe.cend(),
                               [](const QString &a, const QString &b) { return !(a < b); }) ==
            righe.cend());
    if (!squadra.isEmpty())
        QVERIFY2(righe.contains(squadra), qPrintable(squadra));
}

void TestDatiConsegnati::fileSegnaposto_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("primaRiga");

    // Only anno.txt is read for its text; the other two need only exist.
    QTest::newRow("anno") << u"anno.txt"_s << u"2025-2026"_s;
    QTest::newRow("year") << u"year.txt"_s << QString();
    QTest::newRow("450") << u"450.txt"_s << QString();
}

void TestDatiConsegnati::fileSegnaposto() {
    QFETCH(QString, file);
    QFETCH(QString, primaRiga);

    QVERIFY2(QFile::exists(percorso(file)), qPrintable(file));
    if (!primaRiga.isEmpty())
        QCOMPARE(FileDati::leggiPrimaRiga(percorso(file)), primaRiga);
}

void TestDatiConsegnati::schedine_data() {
    QTest::addColumn<FileSchedine::Tipo>("tipo");
    QTest::newRow("infrasettimanale") << FileSchedine::Tipo::Infrasettimanale;
    QTest::newRow("sabato") << FileSchedine::Tipo::Sabato;
    QTest::newRow("domenica") << FileSchedine::Tipo::Domenica;
}

// A fresh install opens every coupon screen without a file error, and a click on any team of a
// coupon finds the table of its league.
void TestDatiConsegnati::schedine() {
    QFETCH(FileSchedine::Tipo, tipo);
    const QString cartella = m_cartella.path();
    try {
        const FileSchedine::Schedina schedina = FileSchedine::leggiSchedina(cartella, tipo);
        QVERIFY(FileSchedine::leggiIntestazione(schedina.intestazione).has_value());
        QCOMPARE(schedina.partite.size(), FileSchedine::Partite);
        const auto picchetto = FileSchedine::leggiPicchetto(cartella, tipo);
        QCOMPARE(FileSchedine::leggiPronostico(cartella, tipo).size(), FileSchedine::Partite);

        QHash<QString, QStringList> squadre;
        for (const Leghe::Lega &lega : Leghe::tutte())
            squadre.insert(QString::fromLatin1(lega.codice), Leghe::leggiSquadre(cartella, lega));
        for (int k = 0; k < FileSchedine::Partite; ++k) {
            const QStringList &pezzi = schedina.partite.at(k);
            QCOMPARE(pezzi.size(), 4);
            QCOMPARE(pezzi.at(0), QString::number(k + 1));
            for (int i : {1, 2})
                QVERIFY2(!SchedinaSettimana::legaDi(squadre, pezzi.at(i)).isEmpty(),
                         qPrintable(pezzi.at(i)));
            for (const QString &percentuale : picchetto[std::size_t(k)])
                QVERIFY2(percentuale.toInt() > 0, qPrintable(pezzi.join(u'-')));
        }
    } catch (const ErroreEsecuzione &e) {
        QFAIL(e.what());
    }
}

void TestDatiConsegnati::quote() {
    try {
        const QStringList valori = Quote::leggi(m_cartella.path());
        QCOMPARE(valori.size(), Quote::Valori);
        QVERIFY(valori.at(Quote::ConcorsoTotocalcio - 1).startsWith(u"Concorso n. "_s));
    } catch (const ErroreEsecuzione &e) {
        QFAIL(e.what());
    }
}

QTEST_GUILESS_MAIN(TestDatiConsegnati)
#include "tst_daticonsegnati.moc"
