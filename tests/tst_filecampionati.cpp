// The files of the leagues, each reader against its writer: the description of the 19 leagues,
// the league tables, the team lists and the calendars (text and binary records, byte for byte),
// names found without regard to case, and every fault leaving the files as they were.
#include "supporto/strumentiprova.h"

#include "campionati/classificacalcolata.h"
#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/partitereali.h"
#include "piattaforma/filedati.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::contenuto;
using StrumentiProva::errore;

namespace {

const Leghe::Lega &lega(const char *codice) {
    const Leghe::Lega *l = Leghe::perCodice(QString::fromLatin1(codice));
    if (!l)
        qFatal("lega assente: %s", codice);
    return *l;
}

// A row of a table with every field told apart: "r.k".
FileCampionati::RigaClassifica riga(int r) {
    FileCampionati::RigaClassifica campi;
    for (int k = 0; k < FileCampionati::CampiRiga; ++k)
        campi[k] = u"%1.%2"_s.arg(r).arg(k);
    campi[1] = u"Squadra %1"_s.arg(r);
    return campi;
}

FileCampionati::Classifica classifica(int righe) {
    FileCampionati::Classifica c{u"Campionato Spagna - Aggiornata al 23/11/2026 18:00"_s, {}};
    for (int r = 1; r <= righe; ++r)
        c.righe.append(riga(r));
    return c;
}

QByteArray latino(const QString &testo) {
    return testo.toLatin1();
}

// A string of the binary calendar as the file holds it.
QByteArray record(const QByteArray &testo) {
    QByteArray b;
    b.append(char(testo.size() & 0xFF));
    b.append(char(testo.size() >> 8));
    return b + testo;
}

} // namespace

class TstFileCampionati : public QObject {
    Q_OBJECT

private slots:
    void descrizioneDelleLeghe();
    void classificaRilettaUguale();
    void classificaDaRighe_data();
    void classificaDaRighe();
    void classificaTroppoLungaNonScrive();
    void nomiSenzaMaiuscole();
    void squadre();
    void calendarioDaTesto();
    void calendarioOltreILimite_data();
    void calendarioOltreILimite();
    void calendarioBinarioByteAByte();
    void codaDelVecchioFile();
    void binarioTroppoCorto();
    void risultatiEsteri_data();
    void risultatiEsteri();
    void classificaCalcolata();
};

void TstFileCampionati::descrizioneDelleLeghe() {
    QCOMPARE(Leghe::tutte().size(), std::size_t(19));
    QCOMPARE(Leghe::italiane().size(), std::size_t(7));
    int righe = 0;
    for (const Leghe::Lega &l : Leghe::tutte()) {
        QCOMPARE(Leghe::perCodice(QString::fromLatin1(l.codice)), &l);
        QCOMPARE(l.italiana, l.calendario != nullptr);
        righe += l.righeClassifica;
    }
    QCOMPARE(righe, 20 + 22 + 5 * 18 + 20 + 20 + 18 + 20 + 18 + 12 + 16 + 10 + 10 + 16 + 16 + 20);
    QCOMPARE(Leghe::perCodice(u"X"_s), nullptr);
    QCOMPARE(Leghe::fileCalendarioDati(lega("B")), u"Calendario2011-2012-SerieB.dat"_s);
    QCOMPARE(lega("B").giornate, 21);
    QCOMPARE(lega("B").stringheGiornata, 12);
    QCOMPARE(lega("C2C").giornate, 34);
    QCOMPARE(Leghe::fileClassifica(lega("Scozia")), u"Classif-scozia.txt"_s);
    QCOMPARE(Leghe::fileSquadre(lega("ArgentinaAp")), u"serieArgentina.txt"_s);
}

void TstFileCampionati::classificaRilettaUguale() {
    QTemporaryDir dir;
    const FileCampionati::Classifica c = classifica(20);
    FileCampionati::scriviClassifica(dir.path(), lega("Spagna"), c);
    QCOMPARE(FileCampionati::leggiClassifica(dir.path(), lega("Spagna")), c);
    // The file as it stands: the heading, then the 21 fields of each row joined by a tab.
    const QByteArray byte = contenuto(dir.filePath(u"Classif-Spagna.txt"_s));
    QVERIFY(byte.startsWith("Campionato Spagna - Aggiornata al 23/11/2026 18:00\r\n1.0\tSquadra "
                            "1\t1.2\t1.3\t1.4\t1.5\t1.6\t1.7\t1.8\t1.9\t1.10\t1.11\t1.12\t1.13\t1."
                            "14\t1.15\t1.16\t1.17\t1.18\t1.19\t1.20\r\n2.0\t"));
    QVERIFY(byte.endsWith("\t20.20\r\n"));
    QCOMPARE(byte.count("\r\n"), 21);
}

void TstFileCampionati::classificaDaRighe_data() {
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<int>("numero");
    QTest::addColumn<QString>("guasto"); // empty: read
    const QStringList buone = FileCampionati::righeDaClassifica(classifica(10));
    QTest::newRow("Austria, 10 righe") << buone << 10 << QString();
    QTest::newRow("righe dopo la classifica ignorate")
        << buone + QStringList{u"altro"_s, QString()} << 10 << QString();
    QTest::newRow("una riga in meno")
        << buone.mid(0, 10) << 10 << u"La classifica ha 9 righe di squadre: ne servono 10."_s;
    QTest::newRow("file vuoto") << QStringList() << 10
                                << u"La classifica ha 0 righe di squadre: ne servono 10."_s;
    QStringList corta = buone;
    corta[4] = corta[4].section(u'\t', 0, 19);
    QTest::newRow("20 campi") << corta << 10
                              << u"La riga 5 della classifica ha 20 campi: ne servono 21."_s;
    QStringList lunga = buone;
    lunga[4] += u"\textra"_s;
    QTest::newRow("22 campi: il ventiduesimo ignorato") << lunga << 10 << QString();
}

void TstFileCampionati::classificaDaRighe() {
    QFETCH(QStringList, righe);
    QFETCH(int, numero);
    QFETCH(QString, guasto);
    FileCampionati::Classifica letta;
    const QString e = errore([&] { letta = FileCampionati::classificaDaRighe(righe, numero); });
    QCOMPARE(e, guasto);
    if (guasto.isEmpty()) {
        QCOMPARE(letta.intestazione, righe.first());
        QCOMPARE(letta.righe.size(), numero);
        QCOMPARE(letta.righe.last()[20], u"10.20"_s);
    }
}

void TstFileCampionati::classificaTroppoLungaNonScrive() {
    QTemporaryDir dir;
    FileCampionati::scriviClassifica(dir.path(), lega("Austria"), classifica(10));
    const QByteArray prima = contenuto(dir.filePath(u"Classif-austria.txt"_s));
    QCOMPARE(errore([&] {
                 FileCampionati::scriviClassifica(dir.path(), lega("Austria"), classifica(11));
             }),
             u"La classifica Austria ha 11 righe: ne può tenere 10."_s);
    QCOMPARE(contenuto(dir.filePath(u"Classif-austria.txt"_s)), prima);
    // A table file shorter than its league stops the reader, which names the file.
    FileDati::scriviRighe(dir.filePath(u"Classif-austria.txt"_s),
                          FileCampionati::righeDaClassifica(classifica(9)));
    QCOMPARE(errore([&] { FileCampionati::leggiClassifica(dir.path(), lega("Austria")); }),
             u"Classif-austria.txt: La classifica ha 9 righe di squadre: ne servono 10."_s);
}

void TstFileCampionati::nomiSenzaMaiuscole() {
    // The foreign updater writes "classif-Francia.txt", the reader asks for "Classif-francia.txt":
    // one file, found in either spelling, and rewritten under the name it has.
    QTemporaryDir dir;
    const FileCampionati::Classifica c = classifica(20);
    FileDati::scriviRighe(dir.filePath(u"classif-Francia.txt"_s),
                          FileCampionati::righeDaClassifica(c));
    QCOMPARE(FileCampionati::leggiClassifica(dir.path(), lega("Francia")), c);
    FileCampionati::scriviClassifica(dir.path(), lega("Francia"), classifica(3));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{u"classif-Francia.txt"_s});
    FileDati::scriviRighe(dir.filePath(u"SERIEARGENTINA.TXT"_s), {u"BOCA"_s});
    QCOMPARE(Leghe::leggiSquadre(dir.path(), lega("ArgentinaAp")), QStringList{u"BOCA"_s});
}

void TstFileCampionati::squadre() {
    QTemporaryDir dir;
    FileCampionati::scriviSquadreItaliane(dir.path(), lega("A"),
                                          {u"Inter"_s, QString(), u"Città di Castello"_s});
    QCOMPARE(contenuto(dir.filePath(u"SerieA.txt"_s)),
             QByteArray("Inter\r\n") + latino(u"Città di Castello\r\n"_s));
    QStringList ventidue;
    for (int i = 1; i <= 22; ++i)
        ventidue.append(u"Squadra %1"_s.arg(i));
    QCOMPARE(
        errore([&] { FileCampionati::scriviSquadreItaliane(dir.path(), lega("A"), ventidue); }),
        u"L'elenco delle squadre di Serie A ha 22 nomi: ne può tenere 21."_s);
    QCOMPARE(Leghe::leggiSquadre(dir.path(), lega("A")),
             (QStringList{u"Inter"_s, u"Città di Castello"_s}));
    // Foreign lists: the league's rows, upper case, empty lines where a team is missing.
    FileCampionati::scriviSquadreStraniere(dir.path(), lega("Austria"),
                                           {u"Rapid Wien"_s, QString(), u"Sturm"_s});
    QCOMPARE(contenuto(dir.filePath(u"serieAustria.txt"_s)),
             QByteArray("RAPID WIEN\r\n\r\nSTURM\r\n") + QByteArray("\r\n").repeated(7));
    QCOMPARE(errore([&] {
                 FileCampionati::scriviSquadreStraniere(dir.path(), lega("Austria"),
                                                        ventidue.mid(0, 11));
             }),
             u"L'elenco delle squadre di Austria ha 11 nomi: ne può tenere 10."_s);
    QCOMPARE(Leghe::leggiSquadre(dir.path(), lega("Austria")).size(), 10);
}

void TstFileCampionati::calendarioDaTesto() {
    // The first line is no "*": it opens round 1 all the same. Lines are trimmed; a line of
    // blanks is an empty string of its round.
    const QStringList testo{u" 28/08/2011 "_s, u"Inter-Milan 1"_s, u"*"_s, u"04/09/2011"_s,
                            u"   "_s,          u"Roma-Lazio X"_s,  u"*"_s, u"*"_s,
                            u"11/09/2011"_s};
    const FileCampionati::Calendario c = FileCampionati::calendarioDaTesto(testo, lega("A"));
    QCOMPARE(c.size(), 19);
    for (const QStringList &g : c)
        QCOMPARE(g.size(), 11);
    QCOMPARE(c[0].mid(0, 3), (QStringList{u"28/08/2011"_s, u"Inter-Milan 1"_s, QString()}));
    QCOMPARE(c[1].mid(0, 3), (QStringList{u"04/09/2011"_s, QString(), u"Roma-Lazio X"_s}));
    // Two "*" in a row open one round only.
    QCOMPARE(c[2].first(), u"11/09/2011"_s);
    QCOMPARE(c[3], QStringList(11));
    // A line " * " is no opener: it is a string.
    QCOMPARE(FileCampionati::calendarioDaTesto({u"*"_s, u"d"_s, u" * "_s}, lega("A"))[0][1],
             u"*"_s);
    QVERIFY(!errore([] { FileCampionati::calendarioDaTesto({}, lega("Spagna")); }).isNull());
}

void TstFileCampionati::calendarioOltreILimite_data() {
    QTest::addColumn<QString>("codice");
    QTest::addColumn<int>("giornate");
    QTest::addColumn<int>("stringhe");
    QTest::addColumn<QString>("guasto");
    QTest::newRow("Serie A piena") << u"A"_s << 19 << 11 << QString();
    QTest::newRow("Serie A, 20 giornate")
        << u"A"_s << 20 << 11 << u"Il calendario di Serie A ha più di 19 giornate."_s;
    QTest::newRow("Serie A, 12 righe")
        << u"A"_s << 1 << 12 << u"La giornata 1 del calendario di Serie A ha più di 11 righe."_s;
    QTest::newRow("Serie B piena") << u"B"_s << 21 << 12 << QString();
    QTest::newRow("C1A, 35 giornate")
        << u"C1A"_s << 35 << 1
        << u"Il calendario di Lega Pro Div. 1 Gir. A ha più di 34 giornate."_s;
}

void TstFileCampionati::calendarioOltreILimite() {
    QFETCH(QString, codice);
    QFETCH(int, giornate);
    QFETCH(int, stringhe);
    QFETCH(QString, guasto);
    QStringList testo;
    for (int g = 1; g <= giornate; ++g) {
        testo.append(u"*"_s);
        for (int s = 1; s <= stringhe; ++s)
            testo.append(u"g%1 s%2"_s.arg(g).arg(s));
    }
    QTemporaryDir dir;
    const Leghe::Lega &l = *Leghe::perCodice(codice);
    FileDati::scriviRighe(dir.filePath(Leghe::fileCalendarioTesto(l)), testo);
    const QString e = errore([&] { FileCampionati::ricreaCalendario(dir.path(), l); });
    QCOMPARE(e, guasto);
    // A calendar beyond its caps writes nothing.
    QCOMPARE(QFile::exists(dir.filePath(Leghe::fileCalendarioDati(l))), guasto.isEmpty());
    if (guasto.isEmpty())
        QCOMPARE(FileCampionati::leggiCalendario(dir.path(), l).last().last(),
                 u"g%1 s%2"_s.arg(giornate).arg(stringhe));
}

void TstFileCampionati::calendarioBinarioByteAByte() {
    QTemporaryDir dir;
    const Leghe::Lega &a = lega("A");
    FileDati::scriviRighe(dir.filePath(u"calendario2011-2012-seriea.TXT"_s),
                          {u"*"_s, u"28/08/2011"_s, u"Città-Inter 2"_s, u"*"_s, u"04/09/2011"_s});
    const FileCampionati::Calendario c = FileCampionati::ricreaCalendario(dir.path(), a);
    // 19 rounds of 11 strings: each a 16-bit little-endian length and its Latin-1 bytes.
    QByteArray atteso = record("28/08/2011") + record(latino(u"Città-Inter 2"_s));
    atteso += record({}).repeated(9);
    atteso += record("04/09/2011") + record({}).repeated(10);
    atteso += record({}).repeated(17 * 11);
    // The text file was found under another case; the data file takes the name of the series.
    QCOMPARE(contenuto(dir.filePath(u"Calendario2011-2012-SerieA.dat"_s)), atteso);
    QCOMPARE(FileCampionati::leggiCalendario(dir.path(), a), c);
    QCOMPARE(FileCampionati::decodificaCalendario(FileCampionati::codificaCalendario(c), a), c);
    // A string of more than 255 bytes keeps its high length byte.
    FileCampionati::Calendario lungo = c;
    lungo[18][10] = QString(300, u'x');
    const QByteArray b = FileCampionati::codificaCalendario(lungo);
    QCOMPARE(b.mid(b.size() - 302, 2), QByteArray("\x2c\x01", 2));
    QCOMPARE(FileCampionati::decodificaCalendario(b, a), lungo);
}

void TstFileCampionati::codaDelVecchioFile() {
    QTemporaryDir dir;
    const Leghe::Lega &a = lega("A");
    FileDati::scriviRighe(dir.filePath(Leghe::fileCalendarioTesto(a)), {u"28/08/2011"_s});
    const QString dat = dir.filePath(Leghe::fileCalendarioDati(a));
    const QByteArray nuovo =
        FileCampionati::codificaCalendario(FileCampionati::calendarioDaTesto({u"28/08/2011"_s}, a));
    // A longer old file keeps its tail beyond the new records.
    const QByteArray vecchio = QByteArray(nuovo.size(), 'z') + "CODA DEL VECCHIO FILE";
    QVERIFY(StrumentiProva::scriviGrezzo(dat, vecchio));
    FileCampionati::ricreaCalendario(dir.path(), a);
    QCOMPARE(contenuto(dat), nuovo + "CODA DEL VECCHIO FILE");
    QCOMPARE(FileCampionati::leggiCalendario(dir.path(), a)[0][0], u"28/08/2011"_s);
    // A shorter old file is covered whole.
    QVERIFY(StrumentiProva::scriviGrezzo(dat, "corto"));
    FileCampionati::ricreaCalendario(dir.path(), a);
    QCOMPARE(contenuto(dat), nuovo);
}

void TstFileCampionati::binarioTroppoCorto() {
    const Leghe::Lega &a = lega("A");
    const QByteArray pieno =
        FileCampionati::codificaCalendario(FileCampionati::calendarioDaTesto({u"28/08/2011"_s}, a));
    for (const qsizetype taglio : {qsizetype(0), qsizetype(1), qsizetype(5), pieno.size() - 1})
        QCOMPARE(errore([&] { FileCampionati::decodificaCalendario(pieno.left(taglio), a); }),
                 u"Il file Calendario2011-2012-SerieA.dat è troppo corto per le 19 giornate del "
                 "calendario."_s);
    // A length that runs past the end of the file.
    QByteArray oltre = pieno;
    oltre[1] = char(0x7F);
    QVERIFY(!errore([&] { FileCampionati::decodificaCalendario(oltre, a); }).isNull());
    QTemporaryDir dir;
    QVERIFY(!errore([&] { FileCampionati::leggiCalendario(dir.path(), a); }).isNull());
}

void TstFileCampionati::risultatiEsteri_data() {
    QTest::addColumn<QString>("riga");
    QTest::addColumn<QString>("guasto"); // empty: read
    QTest::newRow("anno solare") << u"2025;ArgentinaAp;1;2025-01-23;Tigre;Vélez;3;0"_s << QString();
    QTest::newRow("stagione estera")
        << u"2025-26;Spagna;1;2025-08-15;Girona;Rayo;1;3"_s << QString();
    QTest::newRow("stagione di tre anni")
        << u"2025-27;Spagna;1;2025-08-15;Girona;Rayo;1;3"_s << u"stagione non valida"_s;
    QTest::newRow("anno di tre cifre")
        << u"202;Spagna;1;2025-08-15;Girona;Rayo;1;3"_s << u"stagione non valida"_s;
    QTest::newRow("lega sconosciuta")
        << u"2025-26;Lussemburgo;1;2025-08-15;A;B;1;3"_s << u"lega sconosciuta"_s;
}

void TstFileCampionati::risultatiEsteri() {
    QFETCH(QString, riga);
    QFETCH(QString, guasto);
    QTemporaryDir dir;
    const QString file = dir.filePath(u"partite.csv"_s);
    QFile f(file);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write((PartiteReali::intestazione() + u'\n' + riga + u'\n').toUtf8());
    f.close();
    const QString e = errore([&] { PartiteReali::leggi(file); });
    if (guasto.isEmpty())
        QCOMPARE(e, QString());
    else
        QVERIFY2(e.contains(guasto), qPrintable(e));
}

void TstFileCampionati::classificaCalcolata() {
    // Three matches: ALFA a win and a draw away, BETA one win by three goals, SÜDTIROL a draw.
    const auto partita = [](const char *casa, const char *ospite, int gc, int go) {
        PartiteReali::Partita p;
        p.stagione = u"2025-26"_s;
        p.lega = u"Austria"_s;
        p.data = QDate(2025, 8, 1);
        p.casa = QString::fromUtf8(casa);
        p.ospite = QString::fromUtf8(ospite);
        p.golCasa = gc;
        p.golOspite = go;
        return p;
    };
    const QList<PartiteReali::Partita> partite{partita("Alfa", "Gamma", 1, 0),
                                               partita("Beta", "Gamma", 3, 0),
                                               partita("Südtirol", "Alfa", 0, 0)};
    const ClassificaCalcolata::Risultato r =
        ClassificaCalcolata::calcola(partite, u"2025-26"_s, u"Austria"_s);
    QCOMPARE(r.partite, 3);
    const QList<FileCampionati::RigaClassifica> righe =
        ClassificaCalcolata::righe(r.squadre, lega("Austria").righeClassifica);
    QCOMPARE(righe.size(), 10);
    const auto testo = [](const FileCampionati::RigaClassifica &r) {
        return QStringList(r.begin(), r.end()).join(u' ');
    };
    QCOMPARE(testo(righe[0]), u"1 ALFA 4 2 1 1 0 1 0 1 1 0 0 1 0 1 0 1 0 0 0"_s);
    QCOMPARE(testo(righe[1]), u"2 BETA 3 1 1 0 0 3 0 1 1 0 0 3 0 0 0 0 0 0 0"_s);
    QCOMPARE(testo(righe[2]), u"3 SÜDTIROL 1 1 0 1 0 0 0 1 0 1 0 0 0 0 0 0 0 0 0"_s);
    // The rows without a team: their position and the two "-", as the foreign updater writes.
    QCOMPARE(righe[9][0], u"10"_s);
    QCOMPARE(righe[9][9], u"-"_s);
    QCOMPARE(righe[9][15], u"-"_s);
    QCOMPARE(righe[9][1], QString());
}

QTEST_MAIN(TstFileCampionati)
#include "tst_filecampionati.moc"
