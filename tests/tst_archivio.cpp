// The archive in its three copies: the text file, the SQLite table and the memory table.
#include "supporto/ambienteprova.h"

#include "core/archivio.h"
#include "core/archiviocolonne.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"
#include "piattaforma/filedati.h"
#include "piattaforma/tabellaarchivio.h"
#include "supporto/strumentiprova.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

RigaArchivio riga(const QString &testo) {
    const QStringList campi = testo.split(u' ');
    RigaArchivio r;
    for (int i = 0; i < 9; ++i)
        r[i] = campi.value(i);
    return r;
}

QList<RigaArchivio> comeLista(const ArchivioColonne &a) {
    QList<RigaArchivio> l;
    for (int i = 0; i < a.numero(); ++i)
        l.append(a.riga(i));
    return l;
}

// A state on a temporary data folder with its own table.
struct Banco {
    QTemporaryDir dir;
    DialoghiProva dialoghi;
    Impostazioni impostazioni{dir.filePath(u"impostazioni.ini"_s)};
    Schermo schermo;
    StatoProgramma stato{dialoghi, impostazioni, schermo};
    Banco() {
        stato.PercorsoDati = dir.path();
        stato.apriTabellaArchivio();
    }
    void scriviArchivio(const QStringList &righe) const {
        FileDati::scriviRighe(dir.filePath(u"Archivio.txt"_s), righe);
    }
};

} // namespace

class TstArchivio : public QObject {
    Q_OBJECT

private slots:
    void letturaDelleRighe_data();
    void letturaDelleRighe();
    void rigaConMenoDiNoveCampi();
    void capacitaDiSettemilaRighe();
    void ricostruzioneAllineaLeTreCopie();
    void ricostruzioneConRigaErrataNonTocca();
    void navigazioneDellaTabella();
    void eliminaESuccessivoSvuotano();
    void tabellaSopravviveAllaRiapertura();
    void scritturaDalleRighe();
    void tabellaDanneggiata_data();
    void tabellaDanneggiata();
    void accantonataAlPostoDellaVecchia();
    void tabellaInMemoria();
    void sostituisciControllaLeRighePrima();
    void sostituisciRitrovaIlFile();
};

void TstArchivio::letturaDelleRighe_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<int>("numero");
    QTest::addColumn<QString>("ultimaColonna");
    QTest::addColumn<QString>("ultimoCampo");

    const QString a = u"2011 33 1121X22122112X 6 2 6 9 2 4"_s;
    const QString b = u"2011 34 111111111XXXXX 9 5 0 1 1 2"_s;
    QTest::newRow("senza blank finale") << QStringList{a, b} << 2 << u"111111111XXXXX"_s << u"2"_s;
    // A row from the update site ends in one blank: the tenth, empty element is ignored.
    QTest::newRow("con blank finale")
        << QStringList{a + u" "_s, b + u" "_s} << 2 << u"111111111XXXXX"_s << u"2"_s;
    QTest::newRow("forme miste") << QStringList{a + u" "_s, b} << 2 << u"111111111XXXXX"_s
                                 << u"2"_s;
    // A line of a single blank is no record and leaves no hole.
    QTest::newRow("riga di un blank")
        << QStringList{a, u" "_s, b} << 2 << u"111111111XXXXX"_s << u"2"_s;
    QTest::newRow("blank in coda")
        << QStringList{a, b, u" "_s} << 2 << u"111111111XXXXX"_s << u"2"_s;
    QTest::newRow("campi oltre il nono")
        << QStringList{a + u" extra altro"_s} << 1 << u"1121X22122112X"_s << u"4"_s;
    QTest::newRow("file vuoto") << QStringList{} << 0 << QString() << QString();
}

void TstArchivio::letturaDelleRighe() {
    QFETCH(QStringList, righe);
    QFETCH(int, numero);
    QFETCH(QString, ultimaColonna);
    QFETCH(QString, ultimoCampo);
    Banco b;
    b.scriviArchivio(righe);
    Archivio::caricaMemoria(b.stato);
    QCOMPARE(b.stato.NumeroColonne(), numero);
    if (numero == 0)
        return;
    QCOMPARE(b.stato.ColonneArchivio.ultima()[2], ultimaColonna);
    QCOMPARE(b.stato.ColonneArchivio.ultima()[8], ultimoCampo);
    QCOMPARE(b.stato.ColonneArchivio.riga(0)[0], u"2011"_s);
}

void TstArchivio::rigaConMenoDiNoveCampi() {
    const QStringList righe{u"2011 33 1121X22122112X 6 2 6 9 2 4"_s,
                            u"2011 34 111111111XXXXX 9 5 0 1 1"_s};
    try {
        ArchivioColonne::daRighe(righe);
        QFAIL("una riga di otto campi è stata accettata");
    } catch (const ErroreEsecuzione &e) {
        QVERIFY(e.testo().contains(u"riga 2"_s));
    }
    // Two blanks in a row give an empty field, not a missing one.
    QCOMPARE(ArchivioColonne::daRighe({u"2011 34 111111111XXXXX 9 5 0  1 1"_s}).numero(), 1);
}

void TstArchivio::capacitaDiSettemilaRighe() {
    QCOMPARE(ArchivioColonne::daRighe(archivioSintetico(7000)).numero(), 7000);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, ArchivioColonne::daRighe(archivioSintetico(7001)));
    // Lines of a single blank don't count against the capacity.
    QStringList conVuote = archivioSintetico(7000);
    conVuote.insert(10, u" "_s);
    conVuote.append(u" "_s);
    QCOMPARE(ArchivioColonne::daRighe(conVuote).numero(), 7000);
}

void TstArchivio::ricostruzioneAllineaLeTreCopie() {
    Banco b;
    QStringList righe = archivioSintetico(300, 7);
    righe[5] += u" "_s; // a row from the site
    righe.insert(9, u" "_s);
    b.scriviArchivio(righe);
    b.stato.tabellaArchivio().aggiungi(riga(u"1999 1 11111111111111 14 0 0 0 7 7"_s));
    Archivio::ricostruisci(b.stato);

    righe.removeAt(9);
    QCOMPARE(b.stato.NumeroColonne(), 300);
    const QList<RigaArchivio> tabella = b.stato.tabellaArchivio().tutte();
    QCOMPARE(tabella, comeLista(b.stato.ColonneArchivio));
    for (int i = 0; i < righe.size(); ++i) {
        const QStringList campi = righe.at(i).trimmed().split(u' ');
        QCOMPARE(QStringList(tabella.at(i).begin(), tabella.at(i).end()), campi);
    }
    QCOMPARE(b.stato.tabellaArchivio().conteggio(), 300);
}

void TstArchivio::ricostruzioneConRigaErrataNonTocca() {
    Banco b;
    b.scriviArchivio(archivioSintetico(20));
    Archivio::ricostruisci(b.stato);
    const QList<RigaArchivio> prima = b.stato.tabellaArchivio().tutte();

    QStringList errate = archivioSintetico(25, 3);
    errate[17] = u"2012 5 1X2"_s;
    b.scriviArchivio(errate);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Archivio::ricostruisci(b.stato));
    QCOMPARE(b.stato.tabellaArchivio().tutte(), prima);
    QCOMPARE(comeLista(b.stato.ColonneArchivio), prima);
}

void TstArchivio::navigazioneDellaTabella() {
    Banco b;
    TabellaArchivio &t = b.stato.tabellaArchivio();
    QVERIFY(t.creata());
    QVERIFY(t.fine());
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, t.corrente());
    t.aggiungi(riga(u"2011 1 1XXXXXXXXXXXX2 1 12 1 2 0 1"_s));
    t.aggiungi(riga(u"2011 2 22222222222222 0 0 14 0 7 7"_s));
    t.aggiungi(riga(u"2011 3 11111111111111 14 0 0 0 7 7"_s));
    t.aggiorna();
    QCOMPARE(t.conteggio(), 3);
    QCOMPARE(t.corrente()[1], u"1"_s);
    t.ultimo();
    QCOMPARE(t.corrente()[1], u"3"_s);
    t.precedente();
    QCOMPARE(t.corrente()[1], u"2"_s);

    // Edit of the current row, then delete it: the next move goes on to the row after it.
    RigaArchivio r = t.corrente();
    r[0] = u"2010"_s;
    t.modifica(r);
    QCOMPARE(t.corrente()[0], u"2010"_s);
    t.elimina();
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, t.corrente());
    t.successivo();
    QCOMPARE(t.corrente()[1], u"3"_s);
    t.successivo();
    QVERIFY(t.fine());
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, t.successivo());

    // Rows keep the order they were added in, also after a deletion in the middle.
    t.aggiungi(riga(u"2011 4 1X21X21X21X21X 5 5 4 13 2 0"_s));
    t.aggiorna();
    QStringList concorsi;
    for (t.primo(); !t.fine(); t.successivo())
        concorsi.append(t.corrente()[1]);
    QCOMPARE(concorsi, (QStringList{u"1"_s, u"3"_s, u"4"_s}));
}

void TstArchivio::eliminaESuccessivoSvuotano() {
    Banco b;
    TabellaArchivio &t = b.stato.tabellaArchivio();
    for (const QString &l : archivioSintetico(12))
        t.aggiungi(riga(l));
    t.aggiorna();
    // The way the archive has always been emptied: delete, then move next, until the end.
    for (t.primo(); !t.fine(); t.successivo())
        t.elimina();
    t.aggiorna();
    QCOMPARE(t.conteggio(), 0);
    QVERIFY(t.tutte().isEmpty());
}

void TstArchivio::tabellaSopravviveAllaRiapertura() {
    QTemporaryDir dir;
    const QString percorso = dir.filePath(u"archivio.db"_s);
    {
        TabellaArchivio t(percorso);
        QVERIFY(t.creata());
        t.ricostruisci(ArchivioColonne::daRighe(archivioSintetico(5)).righe());
    }
    TabellaArchivio t(percorso);
    QVERIFY(!t.creata());
    QCOMPARE(t.conteggio(), 5);
    t.ultimo();
    QCOMPARE(t.corrente()[2], ArchivioColonne::daRighe(archivioSintetico(5)).ultima()[2]);
}

void TstArchivio::scritturaDalleRighe() {
    // The memory table written back gives the lines without trailing blanks.
    const QStringList righe = archivioSintetico(4);
    QStringList conBlank;
    for (const QString &r : righe)
        conBlank.append(r + u" "_s);
    QCOMPARE(ArchivioColonne::daRighe(conBlank).comeRighe(), righe);
}

void TstArchivio::tabellaDanneggiata_data() {
    QTest::addColumn<QString>("guasto");
    QTest::addColumn<QString>("causa");
    const QString danneggiato = u"il file è danneggiato o non è un database"_s;
    QTest::newRow("byte casuali") << u"casuali"_s << danneggiato;
    QTest::newRow("file troncato") << u"troncato"_s << danneggiato;
    QTest::newRow("una pagina guasta") << u"pagina"_s << danneggiato;
    QTest::newRow("una cartella al suo posto")
        << u"cartella"_s << u"al suo posto c'è una cartella"_s;
}

void TstArchivio::tabellaDanneggiata() {
    // What start-up finds: the opening or the check reads whole and says why it can't.
    QFETCH(QString, guasto);
    QFETCH(QString, causa);
    QTemporaryDir dir;
    const QString percorso = dir.filePath(u"archivio.db"_s);
    {
        TabellaArchivio t(percorso);
        t.ricostruisci(ArchivioColonne::daRighe(archivioSintetico(300)).righe());
    }
    QRandomGenerator g(3);
    QByteArray casuali(8192, '\0');
    for (char &c : casuali)
        c = char(g.bounded(256));
    if (guasto == u"casuali"_s) {
        QVERIFY(StrumentiProva::scriviGrezzo(percorso, casuali));
    } else if (guasto == u"troncato"_s) {
        QVERIFY(QFile::resize(percorso, QFileInfo(percorso).size() / 2));
    } else if (guasto == u"pagina"_s) {
        QFile f(percorso);
        QVERIFY(f.open(QIODevice::ReadWrite) && f.seek(2 * 4096));
        QCOMPARE(f.write(casuali.left(4096)), 4096);
    } else {
        QVERIFY(QFile::remove(percorso));
        QVERIFY(QDir().mkdir(percorso));
    }
    try {
        TabellaArchivio t(percorso);
        t.verifica();
        QFAIL("una tabella guasta si è letta tutta");
    } catch (const ErroriFile::Errore &e) {
        QVERIFY(e.danno());
        QVERIFY2(e.testo().contains(QDir::toNativeSeparators(percorso) + u": "_s + causa),
                 qPrintable(e.testo()));
    }
}

void TstArchivio::accantonataAlPostoDellaVecchia() {
    QTemporaryDir dir;
    const QString percorso = dir.filePath(u"archivio.db"_s);
    const QString accantonato = dir.filePath(u"archivio-danneggiato.db"_s);
    QCOMPARE(TabellaArchivio::percorsoAccantonato(percorso), accantonato);
    // An older copy (a folder, with a journal of its own) and a journal beside the file.
    QVERIFY(QDir().mkpath(accantonato + u"/dentro"_s));
    QVERIFY(StrumentiProva::scriviGrezzo(accantonato + u"-journal"_s, "vecchio giornale"));
    QVERIFY(StrumentiProva::scriviGrezzo(percorso, "guasto"));
    QVERIFY(StrumentiProva::scriviGrezzo(percorso + u"-journal"_s, "giornale"));
    TabellaArchivio::accantona(percorso);
    QVERIFY(!QFileInfo::exists(percorso));
    QVERIFY(!QFileInfo::exists(percorso + u"-journal"_s));
    QCOMPARE(StrumentiProva::contenuto(accantonato), QByteArray("guasto"));
    QCOMPARE(StrumentiProva::contenuto(accantonato + u"-journal"_s), QByteArray("giornale"));
    // A new table takes the place without playing back the old journal.
    TabellaArchivio nuova(percorso);
    QVERIFY(nuova.creata());
    QVERIFY(nuova.verifica().isEmpty());
}

void TstArchivio::tabellaInMemoria() {
    QTemporaryDir dir;
    const QString percorso = dir.filePath(u"archivio.db"_s);
    TabellaArchivio t(percorso, TabellaArchivio::Luogo::Memoria);
    QVERIFY(t.inMemoria());
    QCOMPARE(t.percorso(), percorso);
    const QList<RigaArchivio> righe = ArchivioColonne::daRighe(archivioSintetico(20)).righe();
    t.ricostruisci(righe);
    QCOMPARE(t.verifica(), righe);
    t.ultimo();
    QCOMPARE(t.ordineCorrente(), 19);
    QCOMPARE(t.corrente(), righe.last());
    // Nothing on the disk.
    QVERIFY(QDir(dir.path()).isEmpty());
}

void TstArchivio::sostituisciControllaLeRighePrima() {
    Banco b;
    b.scriviArchivio(archivioSintetico(30));
    Archivio::ricostruisci(b.stato);
    const QByteArray prima = StrumentiProva::contenuto(b.dir.filePath(u"Archivio.txt"_s));
    const QList<RigaArchivio> tabella = b.stato.tabellaArchivio().tutte();
    QStringList errate = archivioSintetico(31);
    errate[7] = u"2000 8 1X2"_s;
    const QString testo = StrumentiProva::errore([&] { Archivio::sostituisci(b.stato, errate); });
    QVERIFY2(testo.contains(u"riga 8"_s), qPrintable(testo));
    QCOMPARE(StrumentiProva::contenuto(b.dir.filePath(u"Archivio.txt"_s)), prima);
    QVERIFY(!QFileInfo::exists(b.dir.filePath(u"ArchivioPrecedente.txt"_s)));
    QCOMPARE(b.stato.tabellaArchivio().tutte(), tabella);
    QCOMPARE(comeLista(b.stato.ColonneArchivio), tabella);

    // Whole lines go to all three, the old file kept as the previous generation.
    QCOMPARE(Archivio::sostituisci(b.stato, archivioSintetico(31)), QString());
    QCOMPARE(b.stato.NumeroColonne(), 31);
    QCOMPARE(b.stato.tabellaArchivio().tutte(), comeLista(b.stato.ColonneArchivio));
    QCOMPARE(StrumentiProva::contenuto(b.dir.filePath(u"ArchivioPrecedente.txt"_s)), prima);
}

void TstArchivio::sostituisciRitrovaIlFile() {
    // A table in memory stands in for a file that could not be had; the next write makes the
    // file again and uses it.
    Banco b;
    const QString db = b.dir.filePath(u"archivio.db"_s);
    b.stato.usaTabellaArchivio(
        std::make_unique<TabellaArchivio>(db, TabellaArchivio::Luogo::Memoria));
    QVERIFY(QFile::remove(db));
    b.scriviArchivio(archivioSintetico(10));
    QCOMPARE(Archivio::sostituisci(b.stato, archivioSintetico(12)), QString());
    QVERIFY(!b.stato.tabellaArchivio().inMemoria());
    TabellaArchivio file(db);
    QCOMPARE(file.verifica(), comeLista(b.stato.ColonneArchivio));
}

QTEST_MAIN(TstArchivio)
#include "tst_archivio.moc"
