// The cutting of the foreign tables out of their pages, on pages built here: the marker line, the
// rows and cells, the team names, the faults of an oversize page, and the two files written.
#include "supporto/strumentiprova.h"

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/taglioclassifica.h"
#include "piattaforma/filedati.h"

#include <QDateTime>
#include <QLocale>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::contenuto;
using StrumentiProva::errore;

namespace {

// A row of the page: the team, then its cells, each opened by a tag of width 20.
QString rigaPagina(const QString &squadra, const QStringList &celle) {
    QString riga = squadra + u"</TD>"_s;
    for (const QString &c : celle)
        riga += u" <TD align=center width=20>"_s + c + u"</TD>"_s;
    return riga;
}

QStringList celle(int riga, int quante = TaglioClassifica::CelleNumeriche) {
    QStringList c;
    for (int k = 1; k <= quante; ++k)
        c.append(QString::number(riga * 100 + k));
    return c;
}

// A page with the table on its marker line, between other lines.
QStringList pagina(const QStringList &righe, const QString &marcatore = u"lbRigheClassifica"_s) {
    QString linea = u"<TABLE id=\""_s + marcatore + u"\"><TR><TD>"_s;
    for (const QString &r : righe)
        linea += u"&nbsp;"_s + r;
    return {u"<HTML><BODY>"_s, u"lbRighe senza marcatore"_s, linea, u"</BODY></HTML>"_s};
}

QStringList righe(int n) {
    QStringList r;
    for (int i = 1; i <= n; ++i)
        r.append(rigaPagina(u"Squadra %1"_s.arg(i), celle(i)));
    return r;
}

const QDateTime Adesso(QDate(2026, 11, 23), QTime(18, 5));

} // namespace

class TstTaglioClassifica : public QObject {
    Q_OBJECT

private slots:
    void voci();
    void venti();
    void nomiECelle();
    void senzaMarcatore_data();
    void senzaMarcatore();
    void guasti_data();
    void guasti();
    void fileScrittiAustria();
    void intestazioneDellaGermania();
    void paginaDelSitoTagliata();
};

void TstTaglioClassifica::voci() {
    QCOMPARE(TaglioClassifica::voci().size(), std::size_t(12));
    QCOMPARE(QString::fromLatin1(TaglioClassifica::voci().front().progresso),
             u"1/12 (Inghilterra)"_s);
    QCOMPARE(QString::fromLatin1(TaglioClassifica::voci().back().progresso), u"12/12 (Belgio)"_s);
    // Every league of the cut is a foreign league of the program, each once.
    QSet<QString> codici;
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci()) {
        const Leghe::Lega *l = Leghe::perCodice(QString::fromLatin1(v.codice));
        QVERIFY(l && !l->italiana);
        codici.insert(QString::fromLatin1(v.codice));
    }
    QCOMPARE(codici.size(), 12);
}

void TstTaglioClassifica::venti() {
    const QList<TaglioClassifica::Riga> t = TaglioClassifica::taglia(pagina(righe(20)), 20);
    QCOMPARE(t.size(), 20);
    QCOMPARE(t[0][0], u"Squadra 1"_s);
    QCOMPARE(t[0][1], u"101"_s);
    QCOMPARE(t[19][0], u"Squadra 20"_s);
    QCOMPARE(t[19][17], u"2017"_s);
    // The table file's row: position, team, the seven cells, "-", five, "-", five.
    const FileCampionati::Classifica c =
        TaglioClassifica::classifica(t, *TaglioClassifica::perCodice(u"Spagna"_s), Adesso);
    QCOMPARE(QStringList(c.righe[1].begin(), c.righe[1].end()).join(u' '),
             u"2 Squadra 2 201 202 203 204 205 206 207 - 208 209 210 211 212 - 213 214 215 216 "
             "217"_s);
}

void TstTaglioClassifica::nomiECelle() {
    const QStringList r{
        // A team of two words is kept whole; a cell with a text after a blank keeps its number.
        rigaPagina(u"Real Madrid"_s, QStringList{u"30 pt"_s} + celle(1, 16)),
        // A row that starts with a blank has no team, but its numbers.
        rigaPagina(u" Senza nome"_s, celle(2)),
        // A cell of another width gives nothing; the cells after it move up.
        u"Betis</TD> <TD width=30>9</TD> <TD width=20>7</TD>"_s,
        // A row without "</TD>": the whole row is the team.
        u"Solo nome"_s,
    };
    const QList<TaglioClassifica::Riga> t = TaglioClassifica::taglia(pagina(r), 20);
    QCOMPARE(t[0][0], u"Real Madrid"_s);
    QCOMPARE(t[0][1], u"30"_s);
    QCOMPARE(t[0][17], u"116"_s);
    QCOMPARE(t[1][0], QString());
    QCOMPARE(t[1][1], u"201"_s);
    QCOMPARE(t[2][0], u"Betis"_s);
    QCOMPARE(t[2][1], u"7"_s);
    QCOMPARE(t[2][2], QString());
    QCOMPARE(t[3][0], u"Solo nome"_s);
    QCOMPARE(t[4], TaglioClassifica::Riga{});
}

void TstTaglioClassifica::senzaMarcatore_data() {
    QTest::addColumn<QStringList>("pagina");
    QTest::newRow("pagina vuota") << QStringList();
    QTest::newRow("marcatore in altre maiuscole") << pagina(righe(20), u"LBRIGHECLASSIFICA"_s);
    QTest::newRow("nessun marcatore") << QStringList{u"<HTML>Pagina non trovata</HTML>"_s};
}

void TstTaglioClassifica::senzaMarcatore() {
    QFETCH(QStringList, pagina);
    // The empty table: the rows are written all the same, with nothing but their place.
    const QList<TaglioClassifica::Riga> t = TaglioClassifica::taglia(pagina, 12);
    QCOMPARE(t, QList<TaglioClassifica::Riga>(12));
    const FileCampionati::Classifica c =
        TaglioClassifica::classifica(t, *TaglioClassifica::perCodice(u"Scozia"_s), Adesso);
    QCOMPARE(QStringList(c.righe[11].begin(), c.righe[11].end()).join(u'\t'),
             u"12\t\t\t\t\t\t\t\t\t-\t\t\t\t\t\t-\t\t\t\t\t"_s);
}

void TstTaglioClassifica::guasti_data() {
    QTest::addColumn<QStringList>("pagina");
    QTest::addColumn<QString>("guasto");
    QStringList lunga = pagina(righe(10));
    while (lunga.size() < 3001)
        lunga.append(QString());
    QTest::newRow("3001 righe")
        << lunga << u"La pagina della classifica ha 3001 righe: se ne leggono al massimo 3000."_s;
    QTest::newRow("3000 righe") << lunga.mid(0, 3000) << QString();
    QTest::newRow("11 righe per 10")
        << pagina(righe(11))
        << u"La pagina della classifica ha 11 righe: la classifica ne ha 10."_s;
    QTest::newRow("18 numeri") << pagina({rigaPagina(u"A"_s, celle(1, 18))})
                               << u"La riga 1 della pagina della classifica ha 18 numeri: ne può "
                                  "avere 17."_s;
}

void TstTaglioClassifica::guasti() {
    QFETCH(QStringList, pagina);
    QFETCH(QString, guasto);
    QCOMPARE(errore([&] { TaglioClassifica::taglia(pagina, 10); }), guasto);
}

void TstTaglioClassifica::fileScrittiAustria() {
    QTemporaryDir dir;
    const Leghe::Lega &austria = *Leghe::perCodice(u"Austria"_s);
    const TaglioClassifica::Voce &voce = *TaglioClassifica::perCodice(u"Austria"_s);
    // An old table with more rows and an old list stand in the way: both are replaced whole.
    FileDati::scriviRighe(dir.filePath(u"classif-Austria.txt"_s), QStringList(30, u"x"_s));
    QStringList nomi = righe(9);
    nomi.append(rigaPagina(u"Sturm Graz"_s, celle(10)));
    TaglioClassifica::scrivi(dir.path(), austria, voce,
                             TaglioClassifica::taglia(pagina(nomi), austria.righeClassifica),
                             Adesso);
    const QStringList tabella = FileDati::leggiRighe(dir.filePath(u"classif-Austria.txt"_s));
    QCOMPARE(tabella.size(), 11);
    QCOMPARE(tabella.first(), u"Campionato Austria - Aggiornata al "_s +
                                  QLocale::system().toString(Adesso, QLocale::ShortFormat));
    QVERIFY(tabella.at(10).startsWith(u"10\tSturm Graz\t1001\t"_s));
    const QStringList squadre = FileDati::leggiRighe(dir.filePath(u"serieAustria.txt"_s));
    QCOMPARE(squadre.size(), 10);
    QCOMPARE(squadre.first(), u"SQUADRA 1"_s);
    QCOMPARE(squadre.last(), u"STURM GRAZ"_s);
    // What the updater wrote, the league tables read.
    QCOMPARE(FileCampionati::leggiClassifica(dir.path(), austria).righe.at(9)[1], u"Sturm Graz"_s);
}

void TstTaglioClassifica::intestazioneDellaGermania() {
    const FileCampionati::Classifica c =
        TaglioClassifica::classifica(TaglioClassifica::taglia(pagina(righe(18)), 18),
                                     *TaglioClassifica::perCodice(u"Germania"_s), Adesso);
    QVERIFY(c.intestazione.startsWith(u"Campionato Francia - Aggiornata al "_s));
    QCOMPARE(c.righe.size(), 18);
}

void TstTaglioClassifica::paginaDelSitoTagliata() {
    // The page the local site makes of a table gives the table back through the cut: teams,
    // figures, and the empty rows of a league with fewer teams.
    const Leghe::Lega &francia = *Leghe::perCodice(u"Francia"_s);
    FileCampionati::Classifica c{u"Campionato Francia"_s, {}};
    for (int r = 1; r <= 20; ++r) {
        FileCampionati::RigaClassifica riga;
        riga[0] = QString::number(r);
        if (r <= 18) {
            riga[1] = r == 3 ? u"OLYMPIQUE DE MARSEILLE"_s : u"SQUADRA %1"_s.arg(r);
            for (int k = 2; k < 21; ++k)
                riga[k] = QString::number(r * 100 + k);
        }
        riga[9] = u"-"_s;
        riga[15] = u"-"_s;
        c.righe.append(riga);
    }
    const TaglioClassifica::Voce &voce = *TaglioClassifica::perCodice(u"Francia"_s);
    const FileCampionati::Classifica tagliata = TaglioClassifica::classifica(
        TaglioClassifica::taglia(TaglioClassifica::pagina(c, u"Classifica Francia"_s),
                                 francia.righeClassifica),
        voce, Adesso);
    QCOMPARE(tagliata.righe, c.righe);
    QCOMPARE(TaglioClassifica::percorsoPagina(voce), u"/vespara/estere/Francia.html"_s);
}

QTEST_MAIN(TstTaglioClassifica)
#include "tst_taglioclassifica.moc"
