// The offsets of the play slips for each printer in Vpprn.PRN, and the reading of a typed offset.
#include "core/numeritesto.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "stampa/calibrazionestampanti.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using Calibrazione = CalibrazioneStampanti;

namespace {

QByteArray contenuto(const QTemporaryDir &dir) {
    QFile f(dir.filePath(u"Vpprn.PRN"_s));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<assente>");
}

} // namespace

class TstCalibrazioneStampanti : public QObject {
    Q_OBJECT
private slots:
    void primoAvvio();
    void troppeStampanti();
    void scostamenti_data();
    void scostamenti();
    void rigaSenzaVirgole();
    void aggiornaScriveDieciRighe();
    void rileggeIlFileScritto();
    void fileDiUndiciRighe();
    void valoreReale_data();
    void valoreReale();
};

void TstCalibrazioneStampanti::primoAvvio() {
    QTemporaryDir dir;
    const Calibrazione::Tabella t =
        Calibrazione::crea(dir.path(), {u"Ufficio"_s, u"PDF"_s, u"Laser di casa"_s});
    QCOMPARE(contenuto(dir), QByteArray("Ufficio,0,0\r\nPDF,0,0\r\nLaser di casa,0,0\r\n"));
    QCOMPARE(t[0], u"Ufficio,0,0"_s);
    QCOMPARE(t[2], u"Laser di casa,0,0"_s);
    QVERIFY(t[3].isEmpty());
    // No printer: the file is made, empty.
    QTemporaryDir vuota;
    Calibrazione::crea(vuota.path(), {});
    QCOMPARE(contenuto(vuota), QByteArray());
}

void TstCalibrazioneStampanti::troppeStampanti() {
    QTemporaryDir dir;
    QStringList undici;
    for (int i = 1; i <= 11; ++i)
        undici.append(u"Stampante %1"_s.arg(i));
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Calibrazione::crea(dir.path(), undici));
    QVERIFY(!QFile::exists(dir.filePath(u"Vpprn.PRN"_s)));
    undici.removeLast();
    Calibrazione::crea(dir.path(), undici);
    QCOMPARE(contenuto(dir).count('\n'), 10);
}

void TstCalibrazioneStampanti::scostamenti_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<QString>("stampante");
    QTest::addColumn<QString>("x"); // "-" when no line matches
    QTest::addColumn<QString>("y");
    QTest::newRow("una riga") << QStringList{u"A,10,20"_s, u"B,1,2"_s} << u"B"_s << u"1"_s
                              << u"2"_s;
    QTest::newRow("vince l'ultima")
        << QStringList{u"A,10,20"_s, u"B,1,2"_s, u"A,30,-40"_s} << u"A"_s << u"30"_s << u"-40"_s;
    QTest::newRow("nessuna") << QStringList{u"A,10,20"_s} << u"C"_s << u"-"_s << u"-"_s;
    QTest::newRow("maiuscole diverse") << QStringList{u"A,10,20"_s} << u"a"_s << u"-"_s << u"-"_s;
    QTest::newRow("righe vuote saltate")
        << QStringList{QString(), u"A,5,6"_s, QString()} << u"A"_s << u"5"_s << u"6"_s;
    QTest::newRow("campi in più") << QStringList{u"A,1,2,3"_s} << u"A"_s << u"1"_s << u"2"_s;
    QTest::newRow("nome con una virgola non si trova")
        << QStringList{u"HP, piano 2,7,8"_s} << u"HP, piano 2"_s << u"-"_s << u"-"_s;
    QTest::newRow("riga rotta di un'altra stampante")
        << QStringList{u"A"_s, u"B,3,4"_s} << u"B"_s << u"3"_s << u"4"_s;
}

void TstCalibrazioneStampanti::scostamenti() {
    QFETCH(QStringList, righe);
    QFETCH(QString, stampante);
    QFETCH(QString, x);
    QFETCH(QString, y);
    Calibrazione::Tabella t;
    std::copy(righe.begin(), righe.end(), t.begin());
    const auto trovati = Calibrazione::scostamenti(t, stampante);
    QCOMPARE(trovati ? trovati->first : u"-"_s, x);
    QCOMPARE(trovati ? trovati->second : u"-"_s, y);
}

void TstCalibrazioneStampanti::rigaSenzaVirgole() {
    // The selected printer's line without two commas is a fault, not a guess.
    for (const QString &rotta : {u"A"_s, u"A,5"_s}) {
        Calibrazione::Tabella t{u"B,1,1"_s, rotta};
        QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Calibrazione::scostamenti(t, u"A"_s));
    }
}

void TstCalibrazioneStampanti::aggiornaScriveDieciRighe() {
    QTemporaryDir dir;
    Calibrazione::Tabella t = Calibrazione::crea(dir.path(), {u"A"_s, u"B"_s});
    Calibrazione::aggiorna(t, dir.path(), u"A"_s, u"12"_s, u"0"_s);
    QCOMPARE(contenuto(dir), QByteArray("A,12,0\r\nB,0,0\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"));
    // The X typed first writes with the old Y; the Y then writes again.
    Calibrazione::aggiorna(t, dir.path(), u"A"_s, u"12"_s, u"-7"_s);
    QCOMPARE(t[0], u"A,12,-7"_s);
    QCOMPARE(t[1], u"B,0,0"_s);
    // A printer without a line changes nothing, but the file is written whole.
    Calibrazione::aggiorna(t, dir.path(), u"Nuova"_s, u"1"_s, u"1"_s);
    QCOMPARE(contenuto(dir), QByteArray("A,12,-7\r\nB,0,0\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"));
}

void TstCalibrazioneStampanti::rileggeIlFileScritto() {
    QTemporaryDir dir;
    Calibrazione::Tabella t = Calibrazione::crea(dir.path(), {u"A"_s, u"B"_s, u"C"_s});
    Calibrazione::aggiorna(t, dir.path(), u"C"_s, u"4500"_s, u"0"_s);
    const Calibrazione::Tabella letta = Calibrazione::leggi(dir.path());
    QCOMPARE(letta, t);
    QCOMPARE(Calibrazione::scostamenti(letta, u"C"_s)->first, u"4500"_s);
}

void TstCalibrazioneStampanti::fileDiUndiciRighe() {
    QTemporaryDir dir;
    QStringList righe;
    for (int i = 1; i <= 11; ++i)
        righe.append(u"S%1,0,0"_s.arg(i));
    FileDati::scriviRighe(dir.filePath(u"Vpprn.PRN"_s), righe);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Calibrazione::leggi(dir.path()));
    // Missing: the reader says so (the screen takes that as the first start before reading).
    QTemporaryDir vuota;
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Calibrazione::leggi(vuota.path()));
}

void TstCalibrazioneStampanti::valoreReale_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<double>("valore");
    QTest::newRow("intero") << u"4500"_s << 4500.0;
    QTest::newRow("negativo") << u"-120"_s << -120.0;
    QTest::newRow("decimali") << u"12.5"_s << 12.5;
    QTest::newRow("blanks prima") << u"  7"_s << 7.0;
    QTest::newRow("testo dopo") << u"30abc"_s << 30.0;
    QTest::newRow("solo punto") << u".5"_s << 0.5;
    QTest::newRow("niente") << u"abc"_s << 0.0;
    QTest::newRow("vuoto") << QString() << 0.0;
    QTest::newRow("segno solo") << u"-"_s << 0.0;
    QTest::newRow("virgola non è decimale") << u"3,5"_s << 3.0;
    QTest::newRow("fuori misura") << QString(400, u'9') << 0.0;
}

void TstCalibrazioneStampanti::valoreReale() {
    QFETCH(QString, testo);
    QFETCH(double, valore);
    QCOMPARE(NumeriTesto::valoreReale(testo), valore);
}

QTEST_GUILESS_MAIN(TstCalibrazioneStampanti)
#include "tst_calibrazionestampanti.moc"
