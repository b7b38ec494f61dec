// The builder of the local update site (tools/creasitolocale), run as a user runs it: on the
// delivered data folder, then on a small table of results written here, then on bad input.

#include "campionati/classificacalcolata.h"
#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/taglioclassifica.h"
#include "core/colonna.h"
#include "piattaforma/filedati.h"

#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const auto Versione = u"%1.%2.%3"_s.arg(VESPARA_VERSIONE_MAGGIORE)
                          .arg(VESPARA_VERSIONE_MINORE)
                          .arg(VESPARA_REVISIONE);

QString strumento(const QString &nome = u"creasitolocale"_s) {
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../tools/"_s + nome);
}

struct Esito {
    int codice = -1;
    QString uscita;
    QString errori;
};

Esito esegui(const QStringList &argomenti, const QString &nome = u"creasitolocale"_s) {
    QProcess processo;
    processo.start(strumento(nome), argomenti);
    Esito esito;
    if (!processo.waitForFinished(120000) || processo.exitStatus() != QProcess::NormalExit)
        return esito;
    esito.codice = processo.exitCode();
    esito.uscita = QString::fromLocal8Bit(processo.readAllStandardOutput());
    esito.errori = QString::fromLocal8Bit(processo.readAllStandardError());
    return esito;
}

QByteArray byteDi(const QString &file) {
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TstSitoLocale : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void paginaArchivio();
    void calendari_data();
    void calendari();
    void pagineStraniere_data();
    void pagineStraniere();
    void schedine_data();
    void schedine();
    void schedineDiverse();
    void quote();
    void ultimaColonna();
    void comunicazioni();
    void versioni();
    void classificheSenzaRisultati_data();
    void classificheSenzaRisultati();
    void listeSquadre_data();
    void listeSquadre();
    void paginaNovita();
    void indici();
    void classificheDaRisultati_data();
    void classificheDaRisultati();
    void ingressoSbagliato_data();
    void ingressoSbagliato();
    void usoDelServer_data();
    void usoDelServer();

private:
    QString pagina(const QString &nome) const { return m_sito.filePath(nome); }
    QStringList righe(const QString &nome) const { return FileDati::leggiRighe(pagina(nome)); }
    QStringList squadre(int lega) const;

    QDir m_dati;
    QTemporaryDir m_cartella;
    QDir m_sito;
    QStringList m_archivio; // the records of Archivio.txt, as they stand
    QString m_ultimaColonna;
    int m_ultimoConcorso = 0;
};

void TstSitoLocale::initTestCase() {
    if (!QFileInfo(strumento()).isExecutable())
        QFAIL(qPrintable(u"Lo strumento creasitolocale non si trova in %1: compilarlo con "
                         u"cmake --build prima di questa prova."_s.arg(strumento())));
    m_dati = QDir(QString::fromUtf8(VESPARA_DATI_CONSEGNATI));
    QVERIFY(m_cartella.isValid());
    m_sito = QDir(m_cartella.filePath(u"sito"_s));

    const Esito esito = esegui({m_dati.path(), m_sito.path()});
    QVERIFY2(esito.codice == 0, qPrintable(esito.errori));
    QVERIFY(esito.uscita.contains(u"ColonneTotocalcio.htm"_s));

    for (const QString &riga : FileDati::leggiRighe(m_dati.filePath(u"Archivio.txt"_s)))
        if (riga != u" "_s)
            m_archivio.append(riga);
    QVERIFY(!m_archivio.isEmpty());
    const QStringList ultima = m_archivio.last().split(u' ', Qt::SkipEmptyParts);
    m_ultimoConcorso = ultima.at(1).toInt();
    m_ultimaColonna = ultima.at(2);
}

QStringList TstSitoLocale::squadre(int lega) const {
    QStringList nomi;
    const QString file = FileDati::percorso(
        m_dati.path(), QString::fromLatin1(Leghe::tutte()[size_t(lega)].fileSquadre));
    for (const QString &nome : FileDati::leggiRighe(file))
        if (!nome.trimmed().isEmpty())
            nomi.append(nome.trimmed().toUpper());
    return nomi;
}

void TstSitoLocale::paginaArchivio() {
    const QByteArray byte = byteDi(pagina(u"AggiornamentiVp/ColonneTotocalcio.htm"_s));
    QVERIFY(!byte.contains('\r'));
    QVERIFY(byte.endsWith('\n'));
    QStringList linee = QString::fromLatin1(byte).split(u'\n');
    QCOMPARE(linee.takeLast(), QString());
    QCOMPARE(linee.size(), m_archivio.size());
    for (int i = 0; i < linee.size(); ++i) {
        const QStringList campi = linee.at(i).split(u' ');
        const QStringList attesi = m_archivio.at(i).split(u' ', Qt::SkipEmptyParts).mid(0, 9);
        const QString dove = u"riga %1: \"%2\""_s.arg(i + 1).arg(linee.at(i));
        QVERIFY2(campi.size() == 10, qPrintable(dove));
        QVERIFY2(campi.first() == QString::number(i + 1), qPrintable(dove));
        QVERIFY2(campi.mid(1) == attesi, qPrintable(dove));
    }
}

void TstSitoLocale::schedine_data() {
    QTest::addColumn<QString>("schedina");
    QTest::addColumn<QString>("picchetto");
    QTest::addColumn<int>("scarto");
    QTest::addColumn<int>("giorno");
    QTest::newRow("domenica") << u"vespara/SchedinaDomenica.html"_s
                              << u"vespara/PicchettoDomenica.html"_s << 1 << int(Qt::Sunday);
    QTest::newRow("sabato") << u"vespara/SchedinaSabato.html"_s << u"vespara/PicchettoSabato.html"_s
                            << 2 << int(Qt::Saturday);
    QTest::newRow("infrasettimanale") << u"vespara/SchedinaProssimoConcorso.html"_s
                                      << u"vespara/Picchetto.html"_s << 3 << int(Qt::Wednesday);
}

void TstSitoLocale::schedine() {
    QFETCH(QString, schedina);
    QFETCH(QString, picchetto);
    QFETCH(int, scarto);
    QFETCH(int, giorno);

    const QStringList linee = righe(schedina);
    QCOMPARE(linee.size(), 15);
    static const QRegularExpression testa(
        u"^Concorso n\\. ([0-9]+) del (\\S+) ([0-9]{2}/[0-9]{2}/[0-9]{4}) Ore [0-2][0-9]:[0-5][0-9]$"_s);
    const auto t = testa.match(linee.first());
    QVERIFY2(t.hasMatch(), qPrintable(linee.first()));
    QCOMPARE(t.captured(1).toInt(), m_ultimoConcorso + scarto);
    const QDate data = QDate::fromString(t.captured(3), u"dd/MM/yyyy"_s);
    QVERIFY(data.isValid());
    QCOMPARE(data.dayOfWeek(), giorno);
    QCOMPARE(t.captured(2), Colonna::giorniSettimana().at(giorno - 1));
    // In the coming days (a day of slack for a run across midnight).
    QVERIFY2(data >= QDate::currentDate() && data <= QDate::currentDate().addDays(22),
             qPrintable(t.captured(3)));

    const QStringList serieA = squadre(0);
    const QStringList serieB = squadre(1);
    const QStringList percentuali = righe(picchetto);
    QCOMPARE(percentuali.size(), 15);
    QVERIFY(!percentuali.first().isEmpty());
    QSet<QString> viste;
    for (int k = 1; k <= 14; ++k) {
        const QStringList pezzi = linee.at(k).split(u'-');
        const QString dove = u"%1, riga %2: \"%3\""_s.arg(schedina).arg(k + 1).arg(linee.at(k));
        QVERIFY2(pezzi.size() == 4 && pezzi.at(3).isEmpty(), qPrintable(dove));
        QVERIFY2(pezzi.at(0) == QString::number(k), qPrintable(dove));
        const QStringList &lega = k <= 10 ? serieA : serieB;
        for (int i : {1, 2}) {
            QVERIFY2(lega.contains(pezzi.at(i)), qPrintable(dove));
            QVERIFY2(pezzi.at(i) == pezzi.at(i).toUpper(), qPrintable(dove));
            QVERIFY2(!viste.contains(pezzi.at(i)), qPrintable(dove + u": squadra ripetuta"_s));
            viste.insert(pezzi.at(i));
        }

        const QStringList p = percentuali.at(k).split(u'-');
        const QString doveP =
            u"%1, riga %2: \"%3\""_s.arg(picchetto).arg(k + 1).arg(percentuali.at(k));
        QVERIFY2(p.size() == 6, qPrintable(doveP));
        QVERIFY2(p.mid(0, 3) == pezzi.mid(0, 3), qPrintable(doveP));
        int somma = 0;
        for (int i = 3; i < 6; ++i) {
            bool ok = false;
            const int v = p.at(i).toInt(&ok);
            QVERIFY2(ok && v >= 0 && v <= 100, qPrintable(doveP));
            somma += v;
        }
        QVERIFY2(somma == 100, qPrintable(doveP));
    }
}

void TstSitoLocale::schedineDiverse() {
    // No match is offered twice over the three coupons.
    QSet<QString> incontri;
    for (const QString &nome :
         {u"SchedinaDomenica"_s, u"SchedinaSabato"_s, u"SchedinaProssimoConcorso"_s}) {
        const QStringList linee = righe(u"vespara/%1.html"_s.arg(nome));
        QCOMPARE(linee.size(), 15);
        for (int k = 1; k <= 14; ++k) {
            QStringList coppia = linee.at(k).split(u'-').mid(1, 2);
            coppia.sort();
            const QString chiave = coppia.join(u'|');
            QVERIFY2(!incontri.contains(chiave), qPrintable(nome + u": "_s + linee.at(k)));
            incontri.insert(chiave);
        }
    }
}

void TstSitoLocale::quote() {
    const QStringList linee = righe(u"vespara/Quote.html"_s);
    QCOMPARE(linee.size(), 25);
    QCOMPARE(linee.at(0), u"Concorso n. %1"_s.arg(m_ultimoConcorso));
    QCOMPARE(linee.at(3), m_ultimaColonna);
    QCOMPARE(linee.at(14), u"1 5 12 23 34 45 56 67"_s);
    QVERIFY(linee.at(12).startsWith(u"Concorso n. "_s));
    QCOMPARE(linee.at(23), QString());
    QCOMPARE(linee.at(24), QString());
    static const QRegularExpression somma(u"^Euro [1-9][0-9]{0,2}(\\.[0-9]{3})*,[0-9]{2}$"_s);
    static const QRegularExpression numero(u"^[0-9]+$"_s);
    // Lines 2, 3, 14 are pools; from 5 to 12 and from 16 to 23, winners then quota.
    for (int riga : {2, 3, 14})
        QVERIFY2(somma.match(linee.at(riga - 1)).hasMatch(), qPrintable(linee.at(riga - 1)));
    for (int primo : {5, 16})
        for (int riga = primo; riga < primo + 8; riga += 2) {
            QVERIFY2(numero.match(linee.at(riga - 1)).hasMatch(), qPrintable(linee.at(riga - 1)));
            QVERIFY2(somma.match(linee.at(riga)).hasMatch(), qPrintable(linee.at(riga)));
        }
}

void TstSitoLocale::ultimaColonna() {
    QCOMPARE(byteDi(pagina(u"vespara/UltimaCV.html"_s)), m_ultimaColonna.toLatin1());
    QCOMPARE(m_ultimaColonna.size(), 14);
}

void TstSitoLocale::comunicazioni() {
    bool ok = false;
    const int ultimo =
        QString::fromLatin1(byteDi(pagina(u"comunicazioniVp/new.htm"_s))).trimmed().toInt(&ok);
    QVERIFY(ok && ultimo > 0);

    const QString dati = QString::fromLatin1(byteDi(pagina(u"comunicazioniVp/data.htm"_s)));
    const QStringList date = dati.split(u'-');
    QVERIFY(date.size() >= 1);
    for (const QString &d : date)
        QVERIFY2(QDate::fromString(d, u"dd/MM/yyyy"_s).isValid(), qPrintable(d));
    for (const QString &nome :
         {u"titolo"_s, u"riga1"_s, u"riga2"_s, u"riga3"_s, u"riga4"_s, u"staff"_s}) {
        const QString testo =
            QString::fromLatin1(byteDi(pagina(u"comunicazioniVp/%1.htm"_s.arg(nome))));
        QVERIFY2(testo.split(u'-').size() == date.size(), qPrintable(nome + u": "_s + testo));
        QVERIFY2(!testo.contains(u'\n'), qPrintable(nome));
    }
    const QString collegamento = QString::fromLatin1(byteDi(pagina(u"comunicazioniVp/link.htm"_s)));
    QVERIFY(!collegamento.isEmpty() && !collegamento.contains(u'-'));
}

void TstSitoLocale::versioni() {
    QCOMPARE(Versione, u"5.0.0"_s);
    // The program splits this page on "." and reads each piece as a number: no line end.
    QCOMPARE(QString::fromLatin1(byteDi(pagina(u"vespara/AggiornamentoProdotto5.html"_s))),
             Versione);
    QCOMPARE(righe(u"Vespara/AggVer.html"_s), QStringList{Versione});
    QCOMPARE(righe(u"vespara/Stagione2011-12.html"_s),
             QStringList{FileDati::leggiPrimaRiga(m_dati.filePath(u"anno.txt"_s))});
}

void TstSitoLocale::classificheSenzaRisultati_data() {
    QTest::addColumn<int>("lega");
    for (int i = 0; i < int(Leghe::italiane().size()); ++i)
        QTest::newRow(Leghe::italiane()[size_t(i)].codice) << i;
}

void TstSitoLocale::classificheSenzaRisultati() {
    QFETCH(int, lega);
    const Leghe::Lega &l = Leghe::italiane()[size_t(lega)];
    const QString codice = QString::fromLatin1(l.codice);
    // Without results the site serves the delivered folder's own table, as it stands, and the
    // program reads it as a table of the league.
    QVERIFY(FileDati::esiste(m_dati.path(), Leghe::fileClassifica(l)));
    const QString pagina = this->pagina(u"vespara/ClassifSerie%1.html"_s.arg(codice));
    QCOMPARE(byteDi(pagina), byteDi(FileDati::percorso(m_dati.path(), Leghe::fileClassifica(l))));
    const FileCampionati::Classifica letta =
        FileCampionati::classificaDaRighe(FileDati::leggiRighe(pagina), l.righeClassifica);
    QVERIFY2(letta.intestazione.startsWith(u"Campionato Serie %1 - "_s.arg(codice)),
             qPrintable(letta.intestazione));
    // Teams of the league's list, as many as its rows hold.
    const QStringList nomi = squadre(lega);
    int inTabella = 0;
    for (const FileCampionati::RigaClassifica &r : letta.righe)
        if (!r[1].isEmpty()) {
            ++inTabella;
            QVERIFY2(nomi.contains(r[1]), qPrintable(r[1]));
        }
    QCOMPARE(inTabella, std::min<int>(int(nomi.size()), l.righeClassifica));
}

void TstSitoLocale::calendari_data() {
    QTest::addColumn<QString>("codice");
    for (const Leghe::Lega &l : Leghe::italiane())
        QTest::newRow(l.codice) << QString::fromLatin1(l.codice);
}

void TstSitoLocale::calendari() {
    // Without results the site serves the data folder's calendar texts, which the program turns
    // into its data files.
    QFETCH(QString, codice);
    const Leghe::Lega &lega = *Leghe::perCodice(codice);
    const QString pagina =
        this->pagina(u"vespara/"_s + QString::fromLatin1(lega.calendario) + u".html"_s);
    QCOMPARE(byteDi(pagina),
             byteDi(FileDati::percorso(m_dati.path(), Leghe::fileCalendarioTesto(lega))));
    const FileCampionati::Calendario c =
        FileCampionati::calendarioDaTesto(FileDati::leggiRighe(pagina), lega);
    QCOMPARE(c.size(), lega.giornate);
    QVERIFY(!c.first().first().isEmpty());
}

void TstSitoLocale::pagineStraniere_data() {
    QTest::addColumn<QString>("codice");
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci())
        QTest::newRow(v.codice) << QString::fromLatin1(v.codice);
}

void TstSitoLocale::pagineStraniere() {
    QFETCH(QString, codice);
    const TaglioClassifica::Voce &voce = *TaglioClassifica::perCodice(codice);
    const Leghe::Lega &lega = *Leghe::perCodice(codice);
    // The link page holds the address of the page; the page cuts to the data folder's table.
    const QString percorso = TaglioClassifica::percorsoPagina(voce);
    QCOMPARE(righe(QString::fromLatin1(voce.paginaLink).mid(1)), QStringList{percorso});
    const FileCampionati::Classifica tagliata = TaglioClassifica::classifica(
        TaglioClassifica::taglia(righe(percorso.mid(1)), lega.righeClassifica), voce,
        QDateTime::currentDateTime());
    QCOMPARE(tagliata.righe, FileCampionati::leggiClassifica(m_dati.path(), lega).righe);
}

void TstSitoLocale::listeSquadre_data() {
    QTest::addColumn<QString>("pagina");
    QTest::addColumn<QString>("origine");
    for (const Leghe::Lega &l : Leghe::italiane())
        QTest::newRow(l.fileSquadre)
            << QString::fromLatin1(l.fileSquadre) << QString::fromLatin1(l.fileSquadre);
    for (const Leghe::Lega &l : Leghe::straniere())
        QTest::newRow(l.codice) << u"Serie%1.txt"_s.arg(QString::fromLatin1(l.codice))
                                << QString::fromLatin1(l.fileSquadre);
}

void TstSitoLocale::listeSquadre() {
    QFETCH(QString, pagina);
    QFETCH(QString, origine);
    const QString file = this->pagina(u"vespara/"_s + pagina);
    QVERIFY2(QFileInfo(file).isFile(), qPrintable(file));
    const QByteArray attesi = FileDati::esiste(m_dati.path(), origine)
                                  ? byteDi(FileDati::percorso(m_dati.path(), origine))
                                  : QByteArray();
    QCOMPARE(byteDi(file), attesi);
}

void TstSitoLocale::paginaNovita() {
    const QByteArray byte = byteDi(pagina(u"vespara/release.asp"_s));
    // Latin-1 on the wire: "à" is one byte.
    QVERIFY(byte.contains("Le novit\xe0 di Vespara 5.0.0"));
    QVERIFY(byte.contains("iso-8859-1"));
    QVERIFY(QFileInfo(pagina(u"vespara/index.html"_s)).size() > 0);
}

void TstSitoLocale::indici() {
    // The index links every other page of the folder once, by a path relative to itself; the
    // root page links the index.
    QStringList file;
    for (QDirIterator it(m_sito.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        file.append(m_sito.relativeFilePath(it.next()));
    file.removeOne(u"index.html"_s);
    file.removeOne(u"vespara/index.html"_s);
    const QString indice = QString::fromLatin1(byteDi(pagina(u"vespara/index.html"_s)));
    static const QRegularExpression link(u"<a href=\"([^\"]+)\">"_s);
    QStringList collegati;
    for (auto it = link.globalMatch(indice); it.hasNext();)
        collegati.append(QDir::cleanPath(
            m_sito.relativeFilePath(m_sito.filePath(u"vespara/"_s + it.next().captured(1)))));
    file.sort();
    collegati.sort();
    QCOMPARE(collegati, file);
    QVERIFY(indice.contains(u"Le %1 pagine"_s.arg(file.size())));
    QVERIFY(byteDi(pagina(u"index.html"_s)).contains("<a href=\"vespara/index.html\">"));
}

void TstSitoLocale::classificheDaRisultati_data() {
    QTest::addColumn<QString>("pagina");
    QTest::addColumn<QStringList>("attese");

    // Serie A: GAMMA and ALFA tie on points, GAMMA has the better goal difference; EPSILON and
    // ZETA tie on everything but the name; ETA and SÜDTIROL have the same difference as them and
    // fewer goals. The match of 2024-25 counts for nothing here.
    const auto riga = [](const QStringList &campi) { return campi.join(u'\t'); };
    QTest::newRow("A") << u"ClassifSerieA.html"_s
                       << QStringList{
                              u"Campionato Serie A - Classifica aggiornata al 07/09/2025"_s,
                              riga({u"1"_s, u"GAMMA"_s, u"3"_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s,
                                    u"3"_s, u"0"_s,     u"1"_s, u"1"_s, u"0"_s, u"0"_s, u"3"_s,
                                    u"0"_s, u"0"_s,     u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}),
                              riga({u"2"_s, u"ALFA"_s, u"3"_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s,
                                    u"1"_s, u"0"_s,    u"1"_s, u"1"_s, u"0"_s, u"0"_s, u"1"_s,
                                    u"0"_s, u"0"_s,    u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}),
                              riga({u"3"_s, u"EPSILON"_s, u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s,
                                    u"2"_s, u"2"_s,       u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"2"_s,
                                    u"2"_s, u"0"_s,       u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}),
                              riga({u"4"_s, u"ZETA"_s, u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s,
                                    u"2"_s, u"2"_s,    u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s,
                                    u"0"_s, u"1"_s,    u"0"_s, u"1"_s, u"0"_s, u"2"_s, u"2"_s}),
                              riga({u"5"_s, u"ETA"_s, u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s,
                                    u"0"_s, u"0"_s,   u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s,
                                    u"0"_s, u"1"_s,   u"0"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s}),
                              riga({u"6"_s, u"SÜDTIROL"_s, u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s,
                                    u"0"_s, u"0"_s,        u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s,
                                    u"0"_s, u"0"_s,        u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}),
                              riga({u"7"_s, u"BETA"_s, u"1"_s, u"2"_s, u"0"_s, u"1"_s, u"1"_s,
                                    u"2"_s, u"3"_s,    u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"2"_s,
                                    u"2"_s, u"1"_s,    u"0"_s, u"0"_s, u"1"_s, u"0"_s, u"1"_s}),
                              riga({u"8"_s, u"DELTA"_s, u"1"_s, u"2"_s, u"0"_s, u"1"_s, u"1"_s,
                                    u"2"_s, u"5"_s,     u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s,
                                    u"0"_s, u"2"_s,     u"0"_s, u"1"_s, u"1"_s, u"2"_s, u"5"_s}),
                          };
    QTest::newRow("B") << u"ClassifSerieB.html"_s
                       << QStringList{
                              u"Campionato Serie B - Classifica aggiornata al 23/08/2025"_s,
                              riga({u"1"_s, u"OSPITE B"_s, u"3"_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s,
                                    u"4"_s, u"1"_s,        u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s,
                                    u"0"_s, u"1"_s,        u"1"_s, u"0"_s, u"0"_s, u"4"_s, u"1"_s}),
                              riga({u"2"_s, u"CASA B"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s, u"1"_s,
                                    u"1"_s, u"4"_s,      u"1"_s, u"0"_s, u"0"_s, u"1"_s, u"1"_s,
                                    u"4"_s, u"0"_s,      u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}),
                          };
    QTest::newRow("C2B") << u"ClassifSerieC2B.html"_s
                         << QStringList{u"Campionato Serie C2B - Nessuna squadra in classifica"_s};
}

void TstSitoLocale::classificheDaRisultati() {
    QFETCH(QString, pagina);
    QFETCH(QStringList, attese);
    // The page holds exactly the league's rows: empty ones after the teams.
    const Leghe::Lega &lega =
        *Leghe::perCodice(pagina.section(u'.', 0, 0).mid(QStringLiteral("ClassifSerie").size()));
    for (qsizetype r = attese.size(); r <= lega.righeClassifica; ++r) {
        const FileCampionati::RigaClassifica vuota = ClassificaCalcolata::rigaVuota(int(r));
        attese.append(QStringList(vuota.begin(), vuota.end()).join(u'\t'));
    }

    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());
    QStringList partite{u"stagione;lega;giornata;data;casa;ospite;gol_casa;gol_ospite"_s,
                        u"2025-26;A;1;2025-08-30;Alfa;Beta;1;0"_s,
                        u"2025-26;A;1;2025-08-30;Gamma;Delta;3;0"_s,
                        u"2025-26;A;2;2025-09-07;Beta;Delta;2;2"_s,
                        u"2025-26;A;2;2025-09-06;Epsilon;Zeta;2;2"_s,
                        u"2025-26;A;2;2025-09-06;Südtirol;Eta;0;0"_s,
                        u"2024-25;A;1;2024-08-30;Alfa;Gamma;9;0"_s,
                        u"2025-26;B;1;2025-08-23;Casa B;Ospite B;1;4"_s,
                        u"2024-25;CB;1;2024-09-01;Uno;Due;0;1"_s,
                        u"2024-25;CC;1;2024-09-01;Tre;Quattro;0;1"_s};
    // Twenty teams in group A: the table keeps the first 18.
    for (int i = 1; i <= 20; i += 2)
        partite.append(
            u"2024-25;CA;1;2024-09-01;Squadra %1;Squadra %2;2;0"_s.arg(i, 2, 10, QChar(u'0'))
                .arg(i + 1, 2, 10, QChar(u'0')));
    const QString csv = cartella.filePath(u"partite.csv"_s);
    {
        QFile f(csv);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(partite.join(u'\n').toUtf8() + '\n');
    }
    const QString sito = cartella.filePath(u"sito"_s);
    const Esito esito = esegui({m_dati.path(), sito, csv});
    QVERIFY2(esito.codice == 0, qPrintable(esito.errori));
    QCOMPARE(FileDati::leggiRighe(QDir(sito).filePath(u"vespara/"_s + pagina)), attese);

    const QStringList gironeA =
        FileDati::leggiRighe(QDir(sito).filePath(u"vespara/ClassifSerieC1A.html"_s));
    QCOMPARE(gironeA.size(), 19);
    for (int i = 1; i <= 10; ++i)
        QCOMPARE(gironeA.at(i).split(u'\t').value(2), u"3"_s);
}

void TstSitoLocale::ingressoSbagliato_data() {
    QTest::addColumn<QString>("caso");
    QTest::addColumn<int>("codice");
    QTest::addColumn<QString>("messaggio");
    QTest::newRow("argomenti") << u"argomenti"_s << 2 << u"Uso: creasitolocale"_s;
    QTest::newRow("cartella dati assente") << u"assente"_s << 1 << u"non esiste"_s;
    QTest::newRow("cartella dati senza archivio") << u"vuota"_s << 1 << u"Archivio.txt"_s;
    QTest::newRow("risultati senza intestazione") << u"intestazione"_s << 1 << u"intestazione"_s;
    QTest::newRow("risultati senza Serie C") << u"senzaserieC"_s << 1 << u"Nessuna partita"_s;
    QTest::newRow("punteggio non valido") << u"punteggio"_s << 1 << u"punteggio non valido"_s;
}

void TstSitoLocale::ingressoSbagliato() {
    QFETCH(QString, caso);
    QFETCH(int, codice);
    QFETCH(QString, messaggio);

    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());
    const QString sito = cartella.filePath(u"sito"_s);
    const QString csv = cartella.filePath(u"partite.csv"_s);
    const auto scriviCsv = [&csv](const QByteArray &testo) {
        QFile f(csv);
        return f.open(QIODevice::WriteOnly) && f.write(testo) == testo.size();
    };
    const QByteArray intestazione = "stagione;lega;giornata;data;casa;ospite;gol_casa;gol_ospite\n";
    QStringList argomenti;
    if (caso == u"argomenti"_s) {
        argomenti = {m_dati.path()};
    } else if (caso == u"assente"_s) {
        argomenti = {cartella.filePath(u"nessuna"_s), sito};
    } else if (caso == u"vuota"_s) {
        argomenti = {cartella.path(), sito};
    } else if (caso == u"intestazione"_s) {
        QVERIFY(scriviCsv("2025-26;A;1;2025-08-30;Alfa;Beta;1;0\n"));
        argomenti = {m_dati.path(), sito, csv};
    } else if (caso == u"senzaserieC"_s) {
        QVERIFY(scriviCsv(intestazione + "2025-26;A;1;2025-08-30;Alfa;Beta;1;0\n"
                                         "2025-26;B;1;2025-08-30;Gamma;Delta;1;0\n"));
        argomenti = {m_dati.path(), sito, csv};
    } else {
        QVERIFY(scriviCsv(intestazione + "2025-26;A;1;2025-08-30;Alfa;Beta;uno;0\n"));
        argomenti = {m_dati.path(), sito, csv};
    }
    const Esito esito = esegui(argomenti);
    QCOMPARE(esito.codice, codice);
    QVERIFY2(esito.errori.contains(messaggio), qPrintable(esito.errori));
    // Bad input leaves no half-built site behind.
    QVERIFY(!QFileInfo::exists(sito));
}

QTEST_GUILESS_MAIN(TstSitoLocale)
void TstSitoLocale::usoDelServer_data() {
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<int>("codice");
    // "--help" is no folder to serve: the usage, on the standard output.
    QTest::newRow("--help") << QStringList{u"--help"_s} << 0;
    QTest::newRow("-h") << QStringList{u"-h"_s} << 0;
    QTest::newRow("nessun argomento") << QStringList() << 2;
    QTest::newRow("troppi argomenti") << QStringList{u"a"_s, u"1"_s, u"2"_s} << 2;
}

void TstSitoLocale::usoDelServer() {
    QFETCH(QStringList, argomenti);
    QFETCH(int, codice);
    const Esito e = esegui(argomenti, u"sitolocale"_s);
    QCOMPARE(e.codice, codice);
    const QString testo = codice == 0 ? e.uscita : e.errori;
    QVERIFY2(testo.startsWith(u"Uso: sitolocale <cartella del sito> [porta]"_s), qPrintable(testo));
    QVERIFY(testo.contains(u"8641"_s));
}

#include "tst_sitolocale.moc"
