#include "supporto/strumentiprova.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"
#include "piattaforma/filedati.h"

#include <QDir>
#include <QFile>
#include <QSqlError>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;

namespace {

using namespace StrumentiProva;

} // namespace

class TestFileDati : public QObject {
    Q_OBJECT

private slots:
    void scriviByte_data();
    void scriviByte();
    void scriviSostituisceTutto();
    void leggiRighe_data();
    void leggiRighe();
    void andataERitorno();
    void leggiFileMancante();
    void leggiPrimaRiga_data();
    void leggiPrimaRiga();
    void percorso_data();
    void percorso();
    void esiste();
    void scriviInCartellaMancante();
    void scriviSottoUnFile();
    void scritturaFallitaLasciaIlVecchio();
    void elimina();
    void sostituisci_data();
    void sostituisci();
    void causeDiSqlite_data();
    void causeDiSqlite();
    void testoDellaCausa();
};

void TestFileDati::scriviByte_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<QByteArray>("byte");

    QTest::newRow("Lunedì") << QStringList{u"Lunedì"_s} << QByteArray::fromHex("4C756E6564EC0D0A");
    QTest::newRow("nessuna riga") << QStringList{} << QByteArray();
    QTest::newRow("una riga vuota") << QStringList{QString()} << QByteArray("\r\n");
    QTest::newRow("vuota in mezzo")
        << QStringList{u"a"_s, QString(), u"b"_s} << QByteArray("a\r\n\r\nb\r\n");
    QTest::newRow("accenti") << QStringList{u"città è già"_s, u"Mercoledì"_s}
                             << QByteArray("citt\xE0 \xE8 gi\xE0\r\nMercoled\xEC\r\n");
    QTest::newRow("riga d'archivio") << QStringList{u"2011 34 1121X22122112X 6 2 6 9 2 4"_s}
                                     << QByteArray("2011 34 1121X22122112X 6 2 6 9 2 4\r\n");
}

void TestFileDati::scriviByte() {
    QFETCH(QStringList, righe);
    QFETCH(QByteArray, byte);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Prova.txt"_s);
    FileDati::scriviRighe(percorso, righe);
    QVERIFY(QFile::exists(percorso));
    QCOMPARE(contenuto(percorso), byte);
}

void TestFileDati::scriviSostituisceTutto() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Prova.txt"_s);
    QVERIFY(scriviGrezzo(percorso, QByteArray(500, 'z')));

    FileDati::scriviRighe(percorso, {u"corta"_s});
    QCOMPARE(contenuto(percorso), QByteArray("corta\r\n"));
    FileDati::scriviRighe(percorso, {});
    QCOMPARE(contenuto(percorso), QByteArray());
    // Nothing else is left in the folder (no temporary copy).
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"Prova.txt"_s});
}

void TestFileDati::leggiRighe_data() {
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<QStringList>("righe");

    QTest::newRow("CR LF") << QByteArray("uno\r\ndue\r\n") << QStringList{u"uno"_s, u"due"_s};
    QTest::newRow("solo LF") << QByteArray("uno\ndue\n") << QStringList{u"uno"_s, u"due"_s};
    QTest::newRow("ultima senza fine")
        << QByteArray("uno\r\ndue") << QStringList{u"uno"_s, u"due"_s};
    QTest::newRow("LF senza fine") << QByteArray("uno\ndue") << QStringList{u"uno"_s, u"due"_s};
    QTest::newRow("fini mescolate")
        << QByteArray("a\nb\r\nc") << QStringList{u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("vuota in mezzo")
        << QByteArray("a\r\n\r\nb\r\n") << QStringList{u"a"_s, QString(), u"b"_s};
    QTest::newRow("vuota in mezzo, LF")
        << QByteArray("a\n\nb\n") << QStringList{u"a"_s, QString(), u"b"_s};
    QTest::newRow("à da E0") << QByteArray("\xE0\r\n") << QStringList{u"à"_s};
    QTest::newRow("Lunedì") << QByteArray::fromHex("4C756E6564EC0D0A") << QStringList{u"Lunedì"_s};
    QTest::newRow("blank conservati") << QByteArray("  a b  \r\n") << QStringList{u"  a b  "_s};
    QTest::newRow("file vuoto") << QByteArray() << QStringList{};
    QTest::newRow("una sola riga vuota") << QByteArray("\r\n") << QStringList{QString()};
}

void TestFileDati::leggiRighe() {
    QFETCH(QByteArray, byte);
    QFETCH(QStringList, righe);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Prova.txt"_s);
    QVERIFY(scriviGrezzo(percorso, byte));

    const QStringList lette = FileDati::leggiRighe(percorso);
    QCOMPARE(lette, righe);
    for (const QString &riga : lette) {
        QVERIFY(!riga.contains(u'\r'));
        QVERIFY(!riga.contains(u'\n'));
    }
}

void TestFileDati::andataERitorno() {
    // Every printable Latin-1 letter above ASCII goes out as its own byte and comes back.
    QString alte;
    QByteArray attesi;
    for (int c = 0xA0; c <= 0xFF; ++c) {
        alte += QChar(c);
        attesi += char(c);
    }
    const QStringList righe{u"Giovedì"_s, alte, QString(), u"fine"_s};

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Prova.txt"_s);
    FileDati::scriviRighe(percorso, righe);
    QCOMPARE(contenuto(percorso),
             QByteArray("Gioved\xEC\r\n") + attesi + QByteArray("\r\n\r\nfine\r\n"));
    QCOMPARE(FileDati::leggiRighe(percorso), righe);
}

void TestFileDati::leggiFileMancante() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Mancante-xyz.txt"_s);

    const QString testo = errore([&] { FileDati::leggiRighe(percorso); });
    QVERIFY2(!testo.isNull(), "nessun errore per un file mancante");
    QVERIFY2(testo.contains(u"Mancante-xyz.txt"_s), qPrintable(testo));
    QVERIFY2(testo.contains(u": il file non esiste."_s), qPrintable(testo));
    // The system's words only as a detail, after the cause.
    QVERIFY2(!testo.section(u"(dettaglio:"_s, 0, 0).contains(u"No such file"_s), qPrintable(testo));

    const QString testoPrima = errore([&] { FileDati::leggiPrimaRiga(percorso); });
    QVERIFY2(!testoPrima.isNull(), "nessun errore per un file mancante");
    QVERIFY2(testoPrima.contains(u"Mancante-xyz.txt"_s), qPrintable(testoPrima));
}

void TestFileDati::leggiPrimaRiga_data() {
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<QString>("riga");

    QTest::newRow("file vuoto") << QByteArray() << QString();
    QTest::newRow("due righe") << QByteArray("prima\r\nseconda\r\n") << u"prima"_s;
    QTest::newRow("senza fine") << QByteArray("sola") << u"sola"_s;
    QTest::newRow("prima vuota") << QByteArray("\r\nseconda\r\n") << QString();
    QTest::newRow("accento") << QByteArray("Venerd\xEC\n") << u"Venerdì"_s;
}

void TestFileDati::leggiPrimaRiga() {
    QFETCH(QByteArray, byte);
    QFETCH(QString, riga);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Prova.txt"_s);
    QVERIFY(scriviGrezzo(percorso, byte));
    const QString letta = FileDati::leggiPrimaRiga(percorso);
    QCOMPARE(letta, riga);
    QVERIFY(letta.isEmpty() == riga.isEmpty());
}

void TestFileDati::percorso_data() {
    QTest::addColumn<QStringList>("presenti");
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("trovato");

    QTest::newRow("maiuscole diverse") << QStringList{u"Classif-francia.txt"_s}
                                       << u"classif-Francia.txt"_s << u"Classif-francia.txt"_s;
    QTest::newRow("tutto maiuscolo")
        << QStringList{u"ARCHIVIO.TXT"_s, u"Altro.txt"_s} << u"Archivio.txt"_s << u"ARCHIVIO.TXT"_s;
    QTest::newRow("uguale") << QStringList{u"Archivio.txt"_s} << u"Archivio.txt"_s
                            << u"Archivio.txt"_s;
    QTest::newRow("nessuno") << QStringList{u"Altro.txt"_s} << u"Nuovo.txt"_s << u"Nuovo.txt"_s;
    QTest::newRow("cartella vuota") << QStringList{} << u"Nuovo.txt"_s << u"Nuovo.txt"_s;
    QTest::newRow("solo un nome simile")
        << QStringList{u"classif-francia.txt.bak"_s, u"classif-francia.tx"_s}
        << u"Classif-Francia.txt"_s << u"Classif-Francia.txt"_s;
}

void TestFileDati::percorso() {
    QFETCH(QStringList, presenti);
    QFETCH(QString, nome);
    QFETCH(QString, trovato);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    for (const QString &p : presenti)
        QVERIFY(scriviGrezzo(dir.filePath(p), "x\r\n"));

    const QString risposta = FileDati::percorso(dir.path(), nome);
    QCOMPARE(QFileInfo(risposta).fileName(), trovato);
    QCOMPARE(QFileInfo(risposta).absolutePath(), QFileInfo(dir.path()).absoluteFilePath());
}

void TestFileDati::esiste() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(scriviGrezzo(dir.filePath(u"Classif-francia.txt"_s), "x\r\n"));

    QVERIFY(FileDati::esiste(dir.path(), u"Classif-francia.txt"_s));
    QVERIFY(FileDati::esiste(dir.path(), u"classif-Francia.txt"_s));
    QVERIFY(FileDati::esiste(dir.path(), u"CLASSIF-FRANCIA.TXT"_s));
    QVERIFY(!FileDati::esiste(dir.path(), u"Classif-Italia.txt"_s));
    QVERIFY(!FileDati::esiste(dir.path(), u"Classif-francia"_s));
    QVERIFY(!FileDati::esiste(dir.filePath(u"manca"_s), u"Classif-francia.txt"_s));
}

void TestFileDati::scriviInCartellaMancante() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString cartella = dir.filePath(u"manca"_s);
    const QString percorso = cartella + u"/Archivio.txt"_s;

    const QString testo = errore([&] { FileDati::scriviRighe(percorso, {u"riga"_s}); });
    QVERIFY2(!testo.isNull(), "nessun errore scrivendo in una cartella mancante");
    QVERIFY2(testo.contains(u"Archivio.txt"_s), qPrintable(testo));
    QVERIFY2(testo.contains(u": la cartella non esiste."_s), qPrintable(testo));
    QVERIFY(!QFileInfo::exists(cartella));
    QVERIFY(QDir(dir.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void TestFileDati::scriviSottoUnFile() {
    // The parent of the target is a regular file: this fails for root too.
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString blocco = dir.filePath(u"Blocco.txt"_s);
    const QByteArray vecchio("vecchio\r\ncontenuto\r\n");
    QVERIFY(scriviGrezzo(blocco, vecchio));

    const QString testo =
        errore([&] { FileDati::scriviRighe(blocco + u"/Archivio.txt"_s, {u"nuova"_s}); });
    QVERIFY2(!testo.isNull(), "nessun errore scrivendo sotto un file");
    QVERIFY2(testo.contains(u"Archivio.txt"_s), qPrintable(testo));
    QVERIFY2(testo.contains(u": la cartella non esiste."_s), qPrintable(testo));
    QVERIFY(QFileInfo(blocco).isFile());
    QCOMPARE(contenuto(blocco), vecchio);
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{u"Blocco.txt"_s});
}

void TestFileDati::scritturaFallitaLasciaIlVecchio() {
#ifdef Q_OS_UNIX
    // A write that stops halfway, for any user: a file size limit below the new content. The old
    // file must stay whole and no half-written copy may be left beside it.
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Archivio.txt"_s);
    const QByteArray vecchio("2011 34 1121X22122112X 6 2 6 9 2 4\r\n");
    QVERIFY(scriviGrezzo(percorso, vecchio));

    QStringList molte;
    for (int i = 0; i < 4000; ++i)
        molte.append(u"2011 34 1121X22122112X 6 2 6 9 2 4"_s);

    rlimit prima{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &prima), 0);
    rlimit stretto = prima;
    stretto.rlim_cur = 4096;
    const auto gestore = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &stretto), 0);
    const QString testo = errore([&] { FileDati::scriviRighe(percorso, molte); });
    setrlimit(RLIMIT_FSIZE, &prima);
    std::signal(SIGXFSZ, gestore);

    QVERIFY2(!testo.isNull(), "nessun errore per una scrittura interrotta");
    QVERIFY2(testo.contains(u"Archivio.txt"_s), qPrintable(testo));
    QCOMPARE(contenuto(percorso), vecchio);
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{u"Archivio.txt"_s});

    // With the limit lifted the same write goes through whole.
    FileDati::scriviRighe(percorso, molte);
    QCOMPARE(FileDati::leggiRighe(percorso), molte);
#else
    QSKIP("Serve un limite alla dimensione dei file (solo Unix).");
#endif
}

void TestFileDati::elimina() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"Prova.txt"_s);

    QVERIFY2(errore([&] { FileDati::elimina(percorso); }).isNull(),
             "un file mancante non è un errore");
    QVERIFY(scriviGrezzo(percorso, "x\r\n"));
    QVERIFY(scriviGrezzo(dir.filePath(u"Resta.txt"_s), "y\r\n"));
    FileDati::elimina(percorso);
    QVERIFY(!QFileInfo::exists(percorso));
    QVERIFY(QFileInfo::exists(dir.filePath(u"Resta.txt"_s)));
    QVERIFY2(errore([&] { FileDati::elimina(percorso); }).isNull(), "seconda eliminazione");
}

void TestFileDati::sostituisci_data() {
    QTest::addColumn<QStringList>("presenti");
    QTest::addColumn<QStringList>("restano");
    const QString nome = u"serieBelgio.txt"_s;
    QTest::newRow("nessuno") << QStringList{} << QStringList{nome};
    QTest::newRow("stesso nome") << QStringList{nome} << QStringList{nome};
    QTest::newRow("altre maiuscole")
        << QStringList{u"SerieBelgio.txt"_s, u"SERIEBELGIO.TXT"_s} << QStringList{nome};
    QTest::newRow("nomi solo simili")
        << QStringList{u"serieBelgio.txt.bak"_s, u"SerieBelgio"_s}
        << QStringList{u"SerieBelgio"_s, nome, u"serieBelgio.txt.bak"_s};
}

void TestFileDati::sostituisci() {
    QFETCH(QStringList, presenti);
    QFETCH(QStringList, restano);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    for (const QString &p : presenti)
        QVERIFY(scriviGrezzo(dir.filePath(p), "vecchia\r\n"));
    FileDati::sostituisci(dir.path(), u"serieBelgio.txt"_s, {u"NUOVA"_s, u"LISTA"_s});
    QDir d(dir.path());
    d.setSorting(QDir::Name | QDir::IgnoreCase);
    QStringList attesi = restano;
    attesi.sort(Qt::CaseInsensitive);
    QCOMPARE(d.entryList(QDir::Files), attesi);
    QCOMPARE(contenuto(dir.filePath(u"serieBelgio.txt"_s)), QByteArray("NUOVA\r\nLISTA\r\n"));
}

void TestFileDati::causeDiSqlite_data() {
    QTest::addColumn<QString>("codice"); // SQLite's result code, as Qt hands it on
    QTest::addColumn<QString>("causa");
    QTest::newRow("SQLITE_FULL") << u"13"_s << u"il disco è pieno"_s;
    QTest::newRow("SQLITE_BUSY") << u"5"_s << u"il file è in uso da un altro programma"_s;
    QTest::newRow("SQLITE_LOCKED") << u"6"_s << u"il file è in uso da un altro programma"_s;
    QTest::newRow("SQLITE_CORRUPT") << u"11"_s << u"il file è danneggiato o non è un database"_s;
    QTest::newRow("SQLITE_NOTADB") << u"26"_s << u"il file è danneggiato o non è un database"_s;
    QTest::newRow("SQLITE_READONLY") << u"8"_s << u"il file è di sola lettura"_s;
    // An extended code counts by its low byte (SQLITE_READONLY_DBMOVED).
    QTest::newRow("SQLITE_READONLY esteso") << u"1032"_s << u"il file è di sola lettura"_s;
    QTest::newRow("SQLITE_CANTOPEN") << u"14"_s << u"il file non si può aprire"_s;
    QTest::newRow("SQLITE_ERROR") << u"1"_s << u"il sistema non ha completato l'operazione"_s;
    QTest::newRow("nessun codice") << QString() << u"il sistema non ha completato l'operazione"_s;
}

void TestFileDati::causeDiSqlite() {
    QFETCH(QString, codice);
    QFETCH(QString, causa);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString percorso = dir.filePath(u"archivio.db"_s);
    QVERIFY(scriviGrezzo(percorso, "x"));
    const QSqlError errore(u"driver text"_s, u"database text"_s, QSqlError::StatementError, codice);
    QCOMPARE(ErroriFile::descrizione(ErroriFile::causaSqlite(percorso, errore)), causa);
    // A folder in place of the file, whatever SQLite could not open.
    QVERIFY(QFile::remove(percorso));
    QVERIFY(QDir().mkdir(percorso));
    if (codice == u"14"_s)
        QCOMPARE(ErroriFile::causaSqlite(percorso, errore), ErroriFile::Causa::CartellaAlPosto);
}

void TestFileDati::testoDellaCausa() {
    const QString percorso = u"/dati/Quote.txt"_s;
    QCOMPARE(ErroriFile::testo(u"scrivere"_s, percorso, ErroriFile::Causa::DiscoPieno,
                               u"No space left on device"_s),
             u"Impossibile scrivere il file %1: il disco è pieno. (dettaglio: No space left on "
             "device)"_s.arg(QDir::toNativeSeparators(percorso)));
    // A detail that says nothing is left out.
    for (const QString &vuoto : {QString(), u"Unknown error"_s, u"  "_s})
        QCOMPARE(
            ErroriFile::testo(u"leggere"_s, percorso, ErroriFile::Causa::Sconosciuta, vuoto),
            u"Impossibile leggere il file %1: il sistema non ha completato l'operazione."_s.arg(
                QDir::toNativeSeparators(percorso)));
    // No cause is "unknown": each has its own words.
    QStringList parole;
    for (int c = 0; c <= int(ErroriFile::Causa::Sconosciuta); ++c) {
        const QString d = ErroriFile::descrizione(ErroriFile::Causa(c));
        QVERIFY2(!d.contains(u"sconosciut"_s, Qt::CaseInsensitive), qPrintable(d));
        QVERIFY2(!parole.contains(d), qPrintable(d));
        parole.append(d);
    }
}

QTEST_APPLESS_MAIN(TestFileDati)
#include "tst_filedati.moc"
