// The updates from the site, against a real HTTP server on loopback serving fixture pages: the
// full update, the repair of the archive, the partial updates, the quotas, the season and the
// foreign team lists, used as a user would through the frame; and their steps on their own.
#include "supporto/ambienteprova.h"
#include "supporto/gestorefinestreprova.h"
#include "supporto/strumentiprova.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/verificaversione.h"
#include "archivio/scritturearchivio.h"
#include "core/archivio.h"
#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "core/frmattendere.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"
#include "piattaforma/tabellaarchivio.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

using Tipo = Dialoghi::Tipo;

const QString NonCollegato =
    u"Per utilizzare questa funzione, è necessario essere collegati ad Internet."_s;
const QString NonCollegatoQuote =
    u"Per utilizzare questa funzione è necessario essere collegati ad Internet."_s;
const QString NonCollegatoStagione =
    u"Nessuna connessione Internet attiva. Impossibile aggiornare."_s;
const QString Effettuato = u"Aggiornamento effettuato."_s;

const QString Radice = u"/"_s;
const QString Versione = u"/Vespara/AggVer.html"_s;
const QString PaginaArchivio = u"/AggiornamentiVp/ColonneTotocalcio.htm"_s;
const QString Quote = u"/vespara/Quote.html"_s;
const QString Stagione = u"/vespara/Stagione2011-12.html"_s;

const QStringList Serie{u"A"_s, u"B"_s, u"C1A"_s, u"C1B"_s, u"C2A"_s, u"C2B"_s, u"C2C"_s};
const QStringList Straniere{u"Inghilterra"_s, u"Spagna"_s, u"Germania"_s,   u"Francia"_s,
                            u"Olanda"_s,      u"Scozia"_s, u"Portogallo"_s, u"Svizzera"_s,
                            u"Austria"_s,     u"Grecia"_s, u"Belgio"_s,     u"ArgentinaAp"_s};
const QStringList ListeStraniereVecchie{
    u"serieInghilterra.txt"_s, u"serieSpagna.txt"_s,   u"serieGermania.txt"_s,
    u"serieFrancia.txt"_s,     u"serieOlanda.txt"_s,   u"serieScozia.txt"_s,
    u"seriePortogallo.txt"_s,  u"serieSvizzera.txt"_s, u"serieAustria.txt"_s,
    u"serieGrecia.txt"_s,      u"serieBelgio.txt"_s,   u"serieArgentina.txt"_s};

// What the site holds: remote path -> local file that a step writes from it.
using Copia = QPair<QString, QString>;

QList<Copia> classifiche() {
    QList<Copia> v;
    for (const QString &s : Serie)
        v.append({u"/vespara/ClassifSerie%1.html"_s.arg(s), u"ClassifSerie%1.txt"_s.arg(s)});
    return v;
}

QList<Copia> schedine(const QString &infrasettimanale) {
    return {{u"/vespara/SchedinaProssimoConcorso.html"_s, infrasettimanale},
            {u"/vespara/SchedinaSabato.html"_s, u"SchedinaSabato.txt"_s},
            {u"/vespara/SchedinaDomenica.html"_s, u"SchedinaDomenica.txt"_s}};
}

QList<Copia> picchetti() {
    return {{u"/vespara/Picchetto.html"_s, u"Picchetto.txt"_s},
            {u"/vespara/PicchettoDomenica.html"_s, u"PicchettoDomenica.txt"_s},
            {u"/vespara/PicchettoSabato.html"_s, u"PicchettoSabato.txt"_s}};
}

QList<Copia> quote() {
    return {{Quote, u"Quote.txt"_s}};
}

QList<Copia> squadre(const QStringList &leghe) {
    QList<Copia> v;
    for (const QString &l : leghe)
        v.append({u"/vespara/Serie%1.txt"_s.arg(l), u"Serie%1.txt"_s.arg(l)});
    return v;
}

QStringList remoti(const QList<Copia> &copie) {
    QStringList v;
    for (const Copia &c : copie)
        v.append(c.first);
    return v;
}

// A fixture page: blanks around it, lines ended by LF and by CR LF, a Latin-1 letter, and its
// own name to tell it from the others.
QByteArray paginaProva(const QString &remoto) {
    return "   " + remoto.toLatin1() + "\nseconda riga di " + remoto.toLatin1() +
           "\r\ncitt\xe0 \xe0    ";
}

// What a step leaves of it in the data folder: trimmed, CR LF, Latin-1, one last line end.
QByteArray fileAtteso(const QString &remoto) {
    return remoto.toLatin1() + "\r\nseconda riga di " + remoto.toLatin1() + "\r\ncitt\xe0 \xe0\r\n";
}

// A port where nothing listens: taken, then let go.
quint16 portaLibera() {
    QTcpServer s;
    s.listen(QHostAddress::LocalHost, 0);
    return s.serverPort();
}

QByteArray leggi(const QString &percorso) {
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The site of the tests: every page of every update, in a folder of its own.
class Sito {
public:
    QTemporaryDir dir;
    ServerHttp server{dir.path()};

    Sito() {
        QList<Copia> tutte = classifiche() + quote() + schedine(QString()) + picchetti() +
                             squadre(Serie) + squadre(Straniere);
        for (const Copia &c : std::as_const(tutte))
            scrivi(c.first, paginaProva(c.first));
        scrivi(Versione, "  5.0.1  ");
        scrivi(Stagione, "  2011-2012  ");
        if (!server.avvia())
            qFatal("server di prova non avviato");
    }
    void scrivi(const QString &percorso, const QByteArray &contenuto) const {
        const QString file = dir.filePath(percorso.mid(1));
        QDir().mkpath(QFileInfo(file).path());
        QFile f(file);
        if (!f.open(QIODevice::WriteOnly) || f.write(contenuto) != contenuto.size())
            qFatal("pagina di prova non scritta: %s", qPrintable(percorso));
    }
    void archivio(const QStringList &righe) const {
        scrivi(PaginaArchivio,
               ScrittureArchivio::paginaArchivio(ArchivioColonne::daRighe(righe)).toLatin1());
    }
    QStringList percorsi() const {
        QStringList v;
        for (const auto &r : server.richieste())
            v.append(r.percorso);
        return v;
    }
};

QStringList archivioConsegnato() {
    return FileDati::leggiRighe(QDir(AmbienteProva::datiConsegnati()).filePath(u"Archivio.txt"_s));
}

// The program on a data folder of its own, talking to the test site.
class Banco {
public:
    AmbienteProva a;
    Sito sito;

    bool avvia(bool conSito = true) {
        // Old foreign lists, for the foreign update to replace and the others to leave alone.
        for (const QString &nome : ListeStraniereVecchie)
            a.scrivi(nome, {u"VECCHIA LISTA"_s});
        a.impostaSito(conSito ? sito.server.radice() : u"http://127.0.0.1:%1"_s.arg(portaLibera()));
        if (!a.avvia())
            return false;
        a.dialoghi.svuota();
        sito.server.svuotaRichieste();
        return true;
    }
    StatoProgramma &stato() const { return a.stato(); }
    // Opens a screen through its menu entry, or through the frame when it has none.
    QWidget *apri(const QString &voce, const QString &schermo) {
        if (voce.isEmpty()) {
            a.pannello().mostraSchermo(schermo);
        } else {
            QAction *azione = a.pannello().findChild<QAction *>(voce);
            if (!azione || !azione->isEnabled())
                return nullptr;
            azione->trigger();
        }
        return a.pannello().trovaSchermo(schermo);
    }
    void aziona(const QString &voce) {
        QAction *azione = a.pannello().findChild<QAction *>(voce);
        QVERIFY(azione && azione->isEnabled());
        azione->trigger();
    }
    bool aggiorna(const QString &voce, const QString &schermo) {
        QWidget *frm = apri(voce, schermo);
        if (!frm)
            return false;
        auto *cmd = frm->findChild<QPushButton *>(u"cmdAggiorna"_s);
        if (!cmd || cmd->text() != u"Aggiorna"_s)
            return false;
        AmbienteProva::fotografa(a.pannello().window(), schermo);
        QTest::mouseClick(cmd, Qt::LeftButton);
        return true;
    }
    bool aperto(const QString &schermo) const {
        return a.pannello().trovaSchermo(schermo) != nullptr;
    }
    QByteArray file(const QString &nome) const { return leggi(a.file(nome)); }
    // Every data file, by name (the tests keep the settings store in the same folder: it is no
    // data file).
    QMap<QString, QByteArray> cartella() const { return StrumentiProva::impronte(a.cartella()); }
    // The boxes as "kind|title|text".
    QStringList boxes() const {
        QStringList v;
        for (const auto &b : a.dialoghi.boxes)
            v.append(u"%1|%2|%3"_s.arg(int(b.tipo)).arg(b.titolo, b.testo));
        return v;
    }
    static QString box(Tipo tipo, const QString &testo) {
        return u"%1|%2|%3"_s.arg(int(tipo)).arg(Dialoghi::titoloAggiornamenti(), testo);
    }
    // The three copies of the archive agree, and hold these rows.
    QString disaccordo(const QStringList &attese) const {
        QStringList file = FileDati::leggiRighe(a.file(u"Archivio.txt"_s));
        const QList<RigaArchivio> tabella = stato().tabellaArchivio().tutte();
        const ArchivioColonne &memoria = stato().ColonneArchivio;
        if (file.size() != attese.size() || tabella.size() != attese.size() ||
            memoria.numero() != attese.size())
            return u"righe: attese %1, file %2, tabella %3, memoria %4"_s.arg(attese.size())
                .arg(file.size())
                .arg(tabella.size())
                .arg(memoria.numero());
        for (int i = 0; i < attese.size(); ++i) {
            const QStringList campi = attese.at(i).split(u' ');
            if (file.at(i).split(u' ').mid(0, 9) != campi ||
                QStringList(tabella.at(i).begin(), tabella.at(i).end()) != campi ||
                QStringList(memoria.riga(i).begin(), memoria.riga(i).end()) != campi)
                return u"riga %1: attesa \"%2\", file \"%3\""_s.arg(i).arg(attese.at(i),
                                                                           file.at(i));
        }
        return {};
    }
    // The requests for the pages of the updates, in order, with the probes where they must be:
    // the site may also hear from the frame's other checks (more probes, other pages), which are
    // no business of these tests.
    QString ordine(const QStringList &attese) const {
        const QStringList tutte = sito.percorsi();
        const QStringList conosciuti = QStringList{Radice, Versione, PaginaArchivio, Stagione} +
                                       remoti(classifiche() + quote() + schedine(QString()) +
                                              picchetti() + squadre(Serie) + squadre(Straniere));
        QStringList nostre;
        for (const QString &p : tutte)
            if (conosciuti.contains(p))
                nostre.append(p);
        QStringList senzaProbe = nostre;
        senzaProbe.removeAll(Radice);
        QStringList attesaSenzaProbe = attese;
        attesaSenzaProbe.removeAll(Radice);
        if (senzaProbe != attesaSenzaProbe)
            return u"richieste: %1"_s.arg(tutte.join(u", "_s));
        // Each expected probe lies between the downloads around it.
        QList<qsizetype> posizioni;
        for (qsizetype i = 0; i < nostre.size(); ++i)
            if (nostre.at(i) != Radice)
                posizioni.append(i);
        qsizetype fatti = 0;
        for (const QString &p : attese) {
            if (p != Radice) {
                ++fatti;
                continue;
            }
            const qsizetype da = fatti == 0 ? 0 : posizioni.at(fatti - 1) + 1;
            const qsizetype a = fatti < posizioni.size() ? posizioni.at(fatti) : nostre.size();
            if (!nostre.mid(da, a - da).contains(Radice))
                return u"probe mancante dopo %1 download: %2"_s.arg(fatti).arg(tutte.join(u", "_s));
        }
        return {};
    }
    QString fileScritti(const QList<Copia> &copie) const {
        for (const Copia &c : copie)
            if (file(c.second) != fileAtteso(c.first))
                return u"%1: \"%2\""_s.arg(c.second, QString::fromLatin1(file(c.second)));
        return {};
    }
};

QStringList senzaUltima(QStringList righe) {
    righe.removeLast();
    return righe;
}

} // namespace

class TstAggiornamentiSito : public QObject {
    Q_OBJECT

private slots:
    // The steps on their own.
    void togliBlank_data();
    void togliBlank();
    void righe_data();
    void righe();
    void righeArchivio_data();
    void righeArchivio();
    void daRicostruire_data();
    void daRicostruire();
    void paginaSenzaConcorsi();
    void copieInMemoria();
    void paginaRifiutataLasciaArchivio_data();
    void paginaRifiutataLasciaArchivio();

    // The screens and the actions of the frame.
    void completoSenzaNuoveColonne();
    void completoRicostruisce();
    void completoArchivioIllegibile();
    void riparazioneArchivi();
    void classificaMancante();
    void parziali_data();
    void parziali();
    void senzaServer_data();
    void senzaServer();
    void stagione_data();
    void stagione();
    void aggiornaQuote();
    void concorsiStranieri();

    // Updates stopped half-way: by the frame's close, by "Annulla", by a page that stalls.
    void interruzione_data();
    void interruzione();
    void verificaVersioneNonDuranteAggiornamento();
    void aggiornamentoDuranteLaVerifica();
};

void TstAggiornamentiSito::togliBlank_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("atteso");
    QTest::newRow("blank ai due lati") << u"   ab c  "_s << u"ab c"_s;
    QTest::newRow("solo blank") << u"     "_s << QString();
    QTest::newRow("vuoto") << QString() << QString();
    // Only blanks go: a page's line ends and tabs stay.
    QTest::newRow("a capo finale") << u"ab\n  "_s << u"ab\n"_s;
    QTest::newRow("tab") << u"\tab\t "_s << u"\tab\t"_s;
}

void TstAggiornamentiSito::togliBlank() {
    QFETCH(QString, testo);
    QFETCH(QString, atteso);
    QCOMPARE(Rete::togliBlank(testo), atteso);
}

void TstAggiornamentiSito::righe_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QStringList>("attese");
    QTest::newRow("una") << u"abc"_s << QStringList{u"abc"_s};
    QTest::newRow("LF e CR LF") << u"a\nb\r\nc"_s << QStringList{u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("a capo finale") << u"a\n"_s << QStringList{u"a"_s, QString()};
    QTest::newRow("vuoto") << QString() << QStringList{QString()};
    QTest::newRow("CR isolato resta") << u"a\rb"_s << QStringList{u"a\rb"_s};
}

void TstAggiornamentiSito::righe() {
    QFETCH(QString, testo);
    QFETCH(QStringList, attese);
    QCOMPARE(Rete::righe(testo), attese);
}

void TstAggiornamentiSito::righeArchivio_data() {
    QTest::addColumn<QString>("pagina");
    QTest::addColumn<QStringList>("attese");
    // The site's form: each field followed by a blank, so the last element is empty and the line
    // gets two blanks at its end; the loader still reads nine fields.
    QTest::newRow("forma del sito")
        << u"1 2013 1 1211121X11X1X1 9 3 2 10 3 3 \n2 2013 2 2111X221211XX2 6 3 5 8 3 4 \n"_s
        << QStringList{u"2013 1 1211121X11X1X1 9 3 2 10 3 3  "_s,
                       u"2013 2 2111X221211XX2 6 3 5 8 3 4  "_s};
    QTest::newRow("senza blank finale") << u"7 2013 1 1211121X11X1X1 9 3 2 10 3 3\n"_s
                                        << QStringList{u"2013 1 1211121X11X1X1 9 3 2 10 3 3 "_s};
    // What follows the last line end is no contest.
    QTest::newRow("ultima senza a capo")
        << u"1 a b c d e f g h i\n2 j k l m n o p q r"_s << QStringList{u"a b c d e f g h i "_s};
    QTest::newRow("CR LF") << u"1 a b c d e f g h i\r\n"_s << QStringList{u"a b c d e f g h i "_s};
    QTest::newRow("vuota") << QString() << QStringList();
}

void TstAggiornamentiSito::righeArchivio() {
    QFETCH(QString, pagina);
    QFETCH(QStringList, attese);
    const QStringList righe = AggiornamentiSito::righeArchivio(pagina.split(u'\n'));
    QCOMPARE(righe, attese);
    const ArchivioColonne letto = ArchivioColonne::daRighe(righe);
    QCOMPARE(letto.numero(), attese.size());
}

void TstAggiornamentiSito::daRicostruire_data() {
    QTest::addColumn<QString>("pagina");
    QTest::addColumn<int>("locali");
    QTest::addColumn<bool>("ricostruire");
    const QString tre = u"1 a\n2 b\n3 c d\n"_s;
    QTest::newRow("una in meno sul sito") << tre << 4 << false;
    QTest::newRow("tante quante") << tre << 3 << true;
    QTest::newRow("una in piu sul sito") << tre << 2 << true;
    // The progressive as a number: what follows the digits doesn't count, no digits count 0.
    QTest::newRow("numero seguito da lettere") << u"1 a\n12bis b\n"_s << 12 << true;
    QTest::newRow("non numerico") << u"1 a\nx b\n"_s << 1 << false;
    QTest::newRow("non numerico, archivio vuoto") << u"x b\n"_s << 0 << true;
    QTest::newRow("riga che inizia con blank") << u" 9 a\n"_s << 1 << false;
}

void TstAggiornamentiSito::daRicostruire() {
    QFETCH(QString, pagina);
    QFETCH(int, locali);
    QFETCH(bool, ricostruire);
    QCOMPARE(AggiornamentiSito::daRicostruire(pagina.split(u'\n'), locali), ricostruire);
}

void TstAggiornamentiSito::paginaSenzaConcorsi() {
    // An error page in one line has no line before its last piece.
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione,
                             AggiornamentiSito::daRicostruire({u"<html>Not Found</html>"_s}, 10));
    QCOMPARE(AggiornamentiSito::ultimaRiga({u"5 x y"_s, QString()}),
             (QStringList{u"5"_s, u"x"_s, u"y"_s}));
}

void TstAggiornamentiSito::copieInMemoria() {
    Banco b;
    QVERIFY(b.avvia());
    QByteArray lunga;
    for (int i = 1; i <= 30; ++i)
        lunga += "  riga " + QByteArray::number(i) + "  \n";
    b.sito.server.imposta(Quote, lunga);
    b.sito.server.imposta(u"/vespara/ClassifSerieB.html"_s, lunga);
    b.sito.server.imposta(u"/vespara/ClassifSerieC2C.html"_s, "  corta \n seconda");
    AggiornamentiSito sito(b.stato());
    QStringList attese;
    for (int i = 1; i <= 30; ++i)
        attese.append(u"riga %1"_s.arg(i));

    QCOMPARE(sito.caricaMontepremi(), attese.mid(0, 25));
    QCOMPARE(sito.aggiornaSerie(1), attese.mid(0, 21));
    QCOMPARE(sito.aggiornaSerie(6), (QStringList{u"corta"_s, u"seconda"_s}));
    QCOMPARE(sito.copie().quote, attese.mid(0, 25));
    QCOMPARE(sito.copie().classifiche[1], attese.mid(0, 21));
    QVERIFY(sito.copie().classifiche[0].isEmpty());
    // Only the leagues that were fetched are fresh.
    const auto &flag = b.stato().ClassificheAggiornate;
    QCOMPARE(std::count(flag.begin(), flag.end(), true), 2);
    QVERIFY(flag[1] && flag[6]);
    // The file keeps every line; the copy stops at its size.
    QCOMPARE(FileDati::leggiRighe(b.a.file(u"Quote.txt"_s)).size(), 31);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, sito.aggiornaSerie(7));
}

void TstAggiornamentiSito::paginaRifiutataLasciaArchivio_data() {
    QTest::addColumn<QByteArray>("pagina");
    QTest::newRow("riga corta") << QByteArray("1 2013 1 1211121X11X1X1 9 3 2 10 3 3 \n2 2013 2 \n");
    QTest::newRow("pagina d'errore") << QByteArray("<html>\n<body>Not Found</body>\n</html>\n");
    QTest::newRow("senza concorsi") << QByteArray("\n");
}

void TstAggiornamentiSito::paginaRifiutataLasciaArchivio() {
    QFETCH(QByteArray, pagina);
    Banco b;
    QVERIFY(b.avvia());
    b.sito.scrivi(PaginaArchivio, pagina);
    const auto prima = b.cartella();
    const int colonne = b.stato().NumeroColonne();
    AggiornamentiSito sito(b.stato());
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, sito.ricostruisciArchivio(sito.scaricaArchivio()));
    QCOMPARE(b.cartella(), prima);
    QCOMPARE(b.stato().NumeroColonne(), colonne);
}

void TstAggiornamentiSito::completoSenzaNuoveColonne() {
    Banco b;
    const QStringList locali = archivioConsegnato();
    b.sito.archivio(senzaUltima(locali));
    QVERIFY(b.avvia());
    QCOMPARE(b.stato().NumeroColonne(), locali.size());
    const QByteArray archivio = b.file(u"Archivio.txt"_s);
    const QByteArray tabella = b.file(u"archivio.db"_s);
    b.stato().RicalcolaColonne9 = false;
    QVERIFY(b.apri(u"mnuInserisci"_s, u"frmInserisci"_s));

    QVERIFY(b.aggiorna(u"mnuCampionatoItaliano"_s, u"frmInternet"_s));

    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione, Effettuato)});
    // The site has fewer contests: the archive is left as it is.
    QCOMPARE(b.file(u"Archivio.txt"_s), archivio);
    QCOMPARE(b.file(u"archivio.db"_s), tabella);
    QCOMPARE(b.disaccordo(locali), QString());
    QVERIFY(!b.stato().RicalcolaColonne9);
    // Every other file is the page's text, the coupon of midweek under both its names.
    QCOMPARE(b.fileScritti(classifiche() + quote() + schedine(u"SchedinaProssimoConcorso.txt"_s) +
                           schedine(u"SchedinaSchedinaProssimoConcorso.txt"_s) + picchetti()),
             QString());
    for (int i = 0; i < StatoProgramma::NumeroFlagAggiornamento; ++i)
        QCOMPARE(b.stato().ClassificheAggiornate[i], i < 7);
    // Screens closed, the panel open again, the frame usable and the cursor normal.
    QVERIFY(!b.aperto(u"frmInternet"_s));
    QVERIFY(!b.aperto(u"frmInserisci"_s));
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    QVERIFY(b.a.pannello().isEnabled());
    QCOMPARE(QApplication::overrideCursor(), nullptr);
    QTest::qWait(50);
    QVERIFY(!b.aperto(u"frmAttendere"_s));

    QCOMPARE(b.ordine(QStringList{Radice, Versione, PaginaArchivio} + remoti(classifiche()) +
                      remoti(quote()) + remoti(schedine(QString())) + remoti(picchetti()) +
                      remoti(schedine(QString())) + QStringList{Radice, Quote}),
             QString());
}

void TstAggiornamentiSito::completoRicostruisce() {
    Banco b;
    QStringList sulSito = archivioConsegnato();
    const QString nuova = Colonna::rigaArchivio(u"2026"_s, u"14"_s, u"1X21X21X21X21X"_s);
    QVERIFY(sulSito.last() != nuova);
    sulSito.last() = nuova;
    b.sito.archivio(sulSito);
    QVERIFY(b.avvia());
    QCOMPARE(b.stato().NumeroColonne(), sulSito.size());
    b.stato().RicalcolaColonne9 = false;

    QVERIFY(b.aggiorna(u"mnuCampionatoItaliano"_s, u"frmInternet"_s));

    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione, Effettuato)});
    const QStringList righe = FileDati::leggiRighe(b.a.file(u"Archivio.txt"_s));
    QCOMPARE(righe.size(), sulSito.size());
    for (int i = 0; i < righe.size(); ++i)
        QCOMPARE(righe.at(i), sulSito.at(i) + u"  "_s);
    QCOMPARE(b.disaccordo(sulSito), QString());
    // The full update leaves the recount of the 9 to whoever asks for it.
    QVERIFY(!b.stato().RicalcolaColonne9);
    QCOMPARE(b.a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text(),
             Colonna::lineaColonna(u"1X21X21X21X21X"_s));
    QCOMPARE(b.fileScritti(classifiche() + quote() + picchetti()), QString());
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
}

void TstAggiornamentiSito::completoArchivioIllegibile() {
    // The archive page is an error page: the update stops at once, before any file, and says so.
    Banco b;
    QVERIFY(b.avvia());
    const auto prima = b.cartella();
    QVERIFY(b.aggiorna(u"mnuCampionatoItaliano"_s, u"frmInternet"_s));
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.at(0).tipo, Tipo::Avviso);
    QCOMPARE(b.a.dialoghi.boxes.at(0).titolo, Dialoghi::titoloAggiornamenti());
    QVERIFY(b.a.dialoghi.boxes.at(0).testo.contains(u"archivio"_s));
    QVERIFY(b.a.dialoghi.boxes.at(0).testo.contains(
        u"Aggiornati: nessuno.\nLasciati come erano: Archivio.txt, ClassifSerieA.txt"_s));
    QCOMPARE(b.cartella(), prima);
    QVERIFY(b.aperto(u"frmInternet"_s));
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void TstAggiornamentiSito::riparazioneArchivi() {
    Banco b;
    const QStringList sulSito = senzaUltima(archivioConsegnato());
    b.sito.archivio(sulSito);
    QVERIFY(b.avvia());
    QVERIFY(b.apri(u"mnuInserisci"_s, u"frmInserisci"_s));

    QVERIFY(b.aggiorna(u"mnuSoloArchivi"_s, u"frmAggiornaSoloArchivi"_s));

    QCOMPARE(b.boxes(),
             QStringList{Banco::box(Tipo::Informazione, u"Gli archivi sono stati aggiornati."_s)});
    // Fewer contests on the site, rebuilt all the same.
    QCOMPARE(b.disaccordo(sulSito), QString());
    QCOMPARE(b.a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text(),
             Colonna::lineaColonna(sulSito.last().split(u' ').at(2)));
    QCOMPARE(b.fileScritti(quote()), QString());
    QVERIFY(!b.aperto(u"frmAggiornaSoloArchivi"_s));
    QVERIFY(!b.aperto(u"frmInserisci"_s));
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    QCOMPARE(b.ordine({Radice, PaginaArchivio, Radice, Quote}), QString());
    QVERIFY(!b.sito.percorsi().contains(Versione));
}

void TstAggiornamentiSito::classificaMancante() {
    Banco b;
    const QByteArray errore = "<html><head><title>404</title></head>\n"
                              "<body>Pagina non trovata</body></html>\n";
    b.sito.server.imposta(u"/vespara/ClassifSerieC1B.html"_s, errore, 404);
    QVERIFY(b.avvia());
    QVERIFY(b.aggiorna(u"mnuTutte"_s, u"frmAggiornaSoloClassifiche"_s));
    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione,
                                               u"Le classifiche sono state aggiornate."_s)});
    // What the site said is what the file holds, an error page too.
    QCOMPARE(b.file(u"ClassifSerieC1B.txt"_s),
             QByteArray("<html><head><title>404</title></head>\r\n"
                        "<body>Pagina non trovata</body></html>\r\n\r\n"));
    QList<Copia> altre = classifiche();
    altre.removeAt(3);
    QCOMPARE(b.fileScritti(altre), QString());
}

void TstAggiornamentiSito::parziali_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QList<Copia>>("copie");
    QTest::addColumn<QString>("finale");
    QTest::newRow("classifiche") << u"mnuTutte"_s << u"frmAggiornaSoloClassifiche"_s
                                 << classifiche() << u"Le classifiche sono state aggiornate."_s;
    QTest::newRow("schedine e montepremi")
        << u"mnuSoloSchedinaMontepremi"_s << u"frmAggiornaSoloSchedinaMontepremi"_s
        << quote() + schedine(u"SchedinaProssimoConcorso.txt"_s) + picchetti()
        << u"Le schedine sono state aggiornate."_s;
    QTest::newRow("picchetti") << QString() << u"frmAggiornaSoloPicchetto"_s << picchetti()
                               << u"I Picchetti sono stati aggiornati."_s;
    QTest::newRow("montepremi") << QString() << u"frmAggiornaSoloSchedinaProssimoConcorso"_s
                                << quote() << u"Il Montepremi e le Quote sono stati aggiornati."_s;
}

void TstAggiornamentiSito::parziali() {
    QFETCH(QString, voce);
    QFETCH(QString, schermo);
    QFETCH(QList<Copia>, copie);
    QFETCH(QString, finale);
    Banco b;
    QVERIFY(b.avvia());
    const QByteArray archivio = b.file(u"Archivio.txt"_s);
    QVERIFY(b.apri(u"mnuInserisci"_s, u"frmInserisci"_s));

    QVERIFY(b.aggiorna(voce, schermo));

    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione, finale)});
    QCOMPARE(b.fileScritti(copie), QString());
    QCOMPARE(b.ordine(QStringList{Radice} + remoti(copie)), QString());
    QCOMPARE(b.file(u"Archivio.txt"_s), archivio);
    QVERIFY(!b.aperto(schermo));
    QVERIFY(!b.aperto(u"frmInserisci"_s));
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void TstAggiornamentiSito::senzaServer_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("testo");
    const int critico = int(Tipo::Critico);
    QTest::newRow("completo") << u"mnuCampionatoItaliano"_s << u"frmInternet"_s << critico
                              << NonCollegato;
    QTest::newRow("archivi") << u"mnuSoloArchivi"_s << u"frmAggiornaSoloArchivi"_s << critico
                             << NonCollegato;
    QTest::newRow("classifiche") << u"mnuTutte"_s << u"frmAggiornaSoloClassifiche"_s << critico
                                 << NonCollegato;
    QTest::newRow("schedine") << u"mnuSoloSchedinaMontepremi"_s
                              << u"frmAggiornaSoloSchedinaMontepremi"_s << critico << NonCollegato;
    QTest::newRow("picchetti") << QString() << u"frmAggiornaSoloPicchetto"_s << critico
                               << NonCollegato;
    QTest::newRow("montepremi") << QString() << u"frmAggiornaSoloSchedinaProssimoConcorso"_s
                                << critico << NonCollegato;
    QTest::newRow("stranieri") << u"mnuAggiornaCampionatiStranieri"_s
                               << u"frmAggiornaConcorsiStranieri"_s << critico << NonCollegato;
    QTest::newRow("quote") << u"mnuAggQuote"_s << QString() << critico << NonCollegatoQuote;
    QTest::newRow("stagione") << u"mnuAggiornaCampionato"_s << QString() << int(Tipo::Informazione)
                              << NonCollegatoStagione;
}

void TstAggiornamentiSito::senzaServer() {
    QFETCH(QString, voce);
    QFETCH(QString, schermo);
    QFETCH(int, tipo);
    QFETCH(QString, testo);
    Banco b;
    QVERIFY(b.avvia(false));
    const auto prima = b.cartella();
    const auto flag = b.stato().ClassificheAggiornate;
    // A Yes ready for any question: none may come.
    b.a.dialoghi.risposte.enqueue(true);

    if (schermo.isEmpty())
        b.aziona(voce);
    else
        QVERIFY(b.aggiorna(voce, schermo));

    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo(tipo), testo)});
    QCOMPARE(b.a.dialoghi.risposte.size(), 1);
    QCOMPARE(b.cartella(), prima);
    QVERIFY(b.stato().ClassificheAggiornate == flag);
    QVERIFY(b.sito.percorsi().isEmpty());
    if (!schermo.isEmpty()) {
        QVERIFY(b.aperto(schermo));
        AmbienteProva::fotografa(&b.a.pannello(), schermo);
    }
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void TstAggiornamentiSito::stagione_data() {
    QTest::addColumn<bool>("risposta");
    QTest::newRow("Sì") << true;
    QTest::newRow("No") << false;
}

void TstAggiornamentiSito::stagione() {
    QFETCH(bool, risposta);
    Banco b;
    QVERIFY(b.avvia());
    const auto prima = b.cartella();
    b.a.dialoghi.risposte.enqueue(risposta);

    b.aziona(u"mnuAggiornaCampionato"_s);

    QStringList attesi{Banco::box(
        Tipo::Domanda, u"Questa funzionerà aggiornerà il programma alla Stagione 2011-2012"_s)};
    if (risposta)
        attesi.append(Banco::box(Tipo::Informazione, u"Aggiornamento Campionato effettuato."_s));
    QCOMPARE(b.boxes(), attesi);
    QCOMPARE(QApplication::overrideCursor(), nullptr);
    if (!risposta) {
        QCOMPARE(b.cartella(), prima);
        QCOMPARE(b.ordine({Radice, Stagione}), QString());
        return;
    }
    QCOMPARE(b.fileScritti(squadre(Serie)), QString());
    QCOMPARE(b.ordine(QStringList{Radice, Stagione} + remoti(squadre(Serie))), QString());
    // Only the Italian lists changed.
    auto dopo = b.cartella();
    for (const Copia &c : squadre(Serie)) {
        QVERIFY(prima.contains(c.second));
        dopo.remove(c.second);
        dopo.insert(c.second, prima.value(c.second));
    }
    QCOMPARE(dopo, prima);
}

void TstAggiornamentiSito::aggiornaQuote() {
    Banco b;
    QVERIFY(b.avvia());
    QVERIFY(b.apri(u"mnuInserisci"_s, u"frmInserisci"_s));
    b.aziona(u"mnuAggQuote"_s);
    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione, Effettuato)});
    QCOMPARE(b.fileScritti(quote()), QString());
    QCOMPARE(b.ordine({Radice, Quote}), QString());
    // No archive changed: the screens stay.
    QVERIFY(b.aperto(u"frmInserisci"_s));
}

void TstAggiornamentiSito::concorsiStranieri() {
    Banco b;
    QVERIFY(b.avvia());
    const auto prima = b.cartella();
    for (const QString &vecchia : ListeStraniereVecchie)
        QVERIFY(prima.contains(vecchia));

    QVERIFY(b.aggiorna(u"mnuAggiornaCampionatiStranieri"_s, u"frmAggiornaConcorsiStranieri"_s));

    QCOMPARE(b.boxes(),
             QStringList{Banco::box(
                 Tipo::Informazione,
                 u"Il programma è stato aggiornato correttamente per i Concorsi stranieri."_s)});
    // Each page goes to the league's own list, whatever the site calls it: Argentina's page is
    // SerieArgentinaAp.txt, its list serieArgentina.txt.
    QList<Copia> attese = squadre(Straniere);
    for (qsizetype i = 0; i < attese.size(); ++i)
        attese[i].second = ListeStraniereVecchie.at(i);
    QCOMPARE(b.fileScritti(attese), QString());
    QCOMPARE(b.ordine(QStringList{Radice} + remoti(attese)), QString());
    // The lists have their old names and the site's texts; the rest is as it was.
    auto dopo = b.cartella();
    for (const Copia &c : attese) {
        QVERIFY2(dopo.contains(c.second), qPrintable(c.second));
        dopo.remove(c.second);
    }
    auto resto = prima;
    for (const QString &vecchia : ListeStraniereVecchie)
        resto.remove(vecchia);
    QCOMPARE(dopo, resto);
    QVERIFY(!dopo.contains(u"SerieArgentinaAp.txt"_s));
    // This update leaves the screens open.
    QVERIFY(b.aperto(u"frmAggiornaConcorsiStranieri"_s));
}

namespace {

enum class Interruzione { Chiusura, Annulla, Stallo };

// Runs `azione` once the site has been asked for `percorso` (the page the update now waits for).
void quandoChiesta(ServerHttp &server, const QString &percorso, std::function<void()> azione) {
    auto *sorveglia = new QTimer;
    sorveglia->setInterval(20);
    QObject::connect(sorveglia, &QTimer::timeout, [&server, percorso, azione, sorveglia] {
        for (const auto &r : server.richieste())
            if (r.percorso == percorso) {
                sorveglia->stop();
                sorveglia->deleteLater();
                azione();
                return;
            }
    });
    sorveglia->start();
}

// The waiting box on show, the update's own or the one the frame puts up for a long wait.
FrmAttendere *boxDiAttesa() {
    const QWidgetList finestre = QApplication::topLevelWidgets();
    for (QWidget *w : finestre)
        if (auto *f = qobject_cast<FrmAttendere *>(w); f && f->isVisible())
            return f;
    return nullptr;
}

} // namespace

void TstAggiornamentiSito::interruzione_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<bool>("nuovoArchivio"); // the site has a new last contest
    QTest::addColumn<QString>("ferma");      // the page the update is waiting for
    QTest::addColumn<int>("come");
    QTest::addColumn<QStringList>("cambiati"); // the files written before it
    QTest::addColumn<QStringList>("previsti"); // the files the update set out to replace
    const QString completo = u"mnuCampionatoItaliano"_s;
    const QString frmInternet = u"frmInternet"_s;
    const QString riparazione = u"mnuSoloArchivi"_s;
    const QString frmRiparazione = u"frmAggiornaSoloArchivi"_s;
    const QString c1a = u"/vespara/ClassifSerieC1A.html"_s;
    const QStringList ab{u"ClassifSerieA.txt"_s, u"ClassifSerieB.txt"_s};
    const QStringList archivio{u"Archivio.txt"_s, u"ArchivioPrecedente.txt"_s, u"archivio.db"_s};
    const QStringList fileClassifiche = AggiornamentiSito::fileClassifiche();
    const QStringList tutti = fileClassifiche + AggiornamentiSito::fileSchedine();
    const QStringList conArchivio = QStringList{u"Archivio.txt"_s} + tutti;
    QTest::newRow("chiusura sulla classifica C1A")
        << completo << frmInternet << false << c1a << int(Interruzione::Chiusura) << ab << tutti;
    QTest::newRow("annulla sulla classifica C1A, archivio ricostruito")
        << completo << frmInternet << true << c1a << int(Interruzione::Annulla) << archivio + ab
        << conArchivio;
    QTest::newRow("classifica C1A interrotta a metà")
        << completo << frmInternet << false << c1a << int(Interruzione::Stallo) << ab << tutti;
    QTest::newRow("chiusura sulle quote")
        << completo << frmInternet << true << Quote << int(Interruzione::Chiusura)
        << archivio + fileClassifiche << conArchivio;
    QTest::newRow("chiusura sull'archivio")
        << completo << frmInternet << true << PaginaArchivio << int(Interruzione::Chiusura)
        << QStringList() << conArchivio;
    QTest::newRow("archivio interrotto a metà")
        << completo << frmInternet << true << PaginaArchivio << int(Interruzione::Stallo)
        << QStringList() << conArchivio;
    QTest::newRow("schedina della domenica interrotta a metà")
        << completo << frmInternet << false << u"/vespara/SchedinaDomenica.html"_s
        << int(Interruzione::Stallo)
        << fileClassifiche + QStringList{u"Quote.txt"_s, u"SchedinaSchedinaProssimoConcorso.txt"_s,
                                         u"SchedinaSabato.txt"_s}
        << tutti;
    QTest::newRow("chiusura durante la riparazione")
        << riparazione << frmRiparazione << true << PaginaArchivio << int(Interruzione::Chiusura)
        << QStringList() << QStringList{u"Archivio.txt"_s};
    // The foreign lists are replaced only all together.
    QTest::newRow("lista del Belgio interrotta a metà")
        << u"mnuAggiornaCampionatiStranieri"_s << u"frmAggiornaConcorsiStranieri"_s << false
        << u"/vespara/SerieBelgio.txt"_s << int(Interruzione::Stallo) << QStringList()
        << ListeStraniereVecchie;
    QTest::newRow("annulla durante la riparazione")
        << riparazione << frmRiparazione << true << PaginaArchivio << int(Interruzione::Annulla)
        << QStringList() << QStringList{u"Archivio.txt"_s};
    QTest::newRow("solo classifiche, C1A interrotta a metà")
        << u"mnuTutte"_s << u"frmAggiornaSoloClassifiche"_s << false << c1a
        << int(Interruzione::Stallo) << ab << fileClassifiche;
    QTest::newRow("solo schedine e picchetti, domenica interrotta a metà")
        << u"mnuSoloSchedinaMontepremi"_s << u"frmAggiornaSoloSchedinaMontepremi"_s << false
        << u"/vespara/SchedinaDomenica.html"_s << int(Interruzione::Stallo)
        << QStringList{u"Quote.txt"_s, u"SchedinaProssimoConcorso.txt"_s, u"SchedinaSabato.txt"_s}
        << AggiornamentiSito::fileSchedineEPicchetti();
    QTest::newRow("solo picchetti, annulla sul secondo")
        << QString() << u"frmAggiornaSoloPicchetto"_s << false
        << u"/vespara/PicchettoDomenica.html"_s << int(Interruzione::Annulla)
        << QStringList{u"Picchetto.txt"_s} << AggiornamentiSito::filePicchetti();
}

void TstAggiornamentiSito::interruzione() {
    QFETCH(QString, voce);
    QFETCH(QString, schermo);
    QFETCH(bool, nuovoArchivio);
    QFETCH(QString, ferma);
    QFETCH(int, come);
    QFETCH(QStringList, cambiati);
    QFETCH(QStringList, previsti);
    Banco b;
    QStringList sulSito = archivioConsegnato();
    if (nuovoArchivio)
        sulSito.last() = Colonna::rigaArchivio(u"2026"_s, u"14"_s, u"1X21X21X21X21X"_s);
    else
        sulSito = senzaUltima(sulSito);
    b.sito.archivio(sulSito);
    // The stopped page sends a piece of itself, then nothing more.
    const QByteArray pagina = leggi(b.sito.dir.filePath(ferma.mid(1)));
    b.sito.server.impostaADueTempi(ferma, pagina, int(pagina.size() / 2), -1);
    QVERIFY(b.avvia());
    const Interruzione modo = Interruzione(come);
    // A stall ends the transfer quickly; the others wait for the user long enough.
    b.stato().rete().setTempi(modo == Interruzione::Stallo ? Rete::Tempi{2000, 300, 5000, 2000}
                                                           : Rete::Tempi{2000, 20000, 30000, 2000});
    const auto prima = b.cartella();
    const QString colonnaPrima = b.a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text();
    bool azionato = modo == Interruzione::Stallo;
    quandoChiesta(b.sito.server, ferma, [&] {
        if (modo == Interruzione::Chiusura) {
            b.a.pannello().close();
            azionato = true;
        } else if (modo == Interruzione::Annulla) {
            // The user waits for the box, then presses its button.
            auto *attesa = new QTimer;
            attesa->setInterval(30);
            QObject::connect(attesa, &QTimer::timeout, [&, attesa] {
                if (FrmAttendere *box = boxDiAttesa()) {
                    attesa->stop();
                    attesa->deleteLater();
                    AmbienteProva::fotografa(box, u"attesa-"_s + schermo);
                    QTest::mouseClick(box->findChild<QPushButton *>(u"cmdAnnulla"_s),
                                      Qt::LeftButton);
                    azionato = true;
                }
            });
            attesa->start();
        }
    });
    QElapsedTimer tempo;
    tempo.start();
    QVERIFY(b.aggiorna(voce, schermo));
    QVERIFY(azionato);
    QVERIFY(tempo.elapsed() < 10000);

    // Nothing written after the stop, and no page that came in part.
    QStringList attesi = cambiati;
    attesi.sort();
    QCOMPARE(StrumentiProva::cambiati(prima, b.cartella()), attesi);
    // The site was not asked for anything past the stopped page.
    const QStringList chiesti = b.sito.percorsi();
    QCOMPARE(chiesti.mid(chiesti.indexOf(ferma) + 1)
                 .filter(QRegularExpression(u"^/(vespara|AggiornamentiVp)/"_s,
                                            QRegularExpression::CaseInsensitiveOption)),
             QStringList());
    QCOMPARE(QApplication::overrideCursor(), nullptr);
    QTRY_VERIFY(!boxDiAttesa());
    if (modo == Interruzione::Chiusura) {
        QCOMPARE(b.boxes(), QStringList());
    } else {
        // One warning of the network: why the update stopped, what it replaced, what it left.
        QCOMPARE(b.a.dialoghi.boxes.size(), 1);
        const DialoghiProva::Box box = b.a.dialoghi.boxes.first();
        QCOMPARE(box.tipo, Tipo::Avviso);
        QCOMPARE(box.titolo, Dialoghi::titoloAggiornamenti());
        const QString causa = modo == Interruzione::Stallo
                                  ? u"La pagina %1 del sito non è arrivata per intero."_s.arg(ferma)
                                  : u"L'aggiornamento è stato annullato."_s;
        QVERIFY2(box.testo.contains(causa), qPrintable(box.testo));
        QStringList aggiornati = cambiati;
        aggiornati.removeAll(u"ArchivioPrecedente.txt"_s);
        aggiornati.removeAll(u"archivio.db"_s);
        QStringList lasciati = previsti;
        for (const QString &f : std::as_const(aggiornati))
            lasciati.removeAll(f);
        const auto elenco = [](const QStringList &v) {
            return v.isEmpty() ? u"nessuno"_s : v.join(u", "_s);
        };
        QVERIFY2(box.testo.contains(u"Aggiornati: %1.\n"_s.arg(elenco(aggiornati))),
                 qPrintable(box.testo));
        QVERIFY2(box.testo.endsWith(u"Lasciati come erano: %1."_s.arg(elenco(lasciati))),
                 qPrintable(box.testo));
    }
    if (modo == Interruzione::Chiusura)
        return;
    // A rebuilt archive shows at once, though the update stopped after it.
    const bool ricostruito = cambiati.contains(u"Archivio.txt"_s);
    QCOMPARE(b.a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text(),
             ricostruito ? Colonna::lineaColonna(u"1X21X21X21X21X"_s) : colonnaPrima);
    if (ricostruito) {
        QCOMPARE(b.disaccordo(sulSito), QString());
        QVERIFY(b.aperto(u"frmPannelloSegni"_s));
        QVERIFY(!b.aperto(schermo));
    }
}

void TstAggiornamentiSito::verificaVersioneNonDuranteAggiornamento() {
    // A newer program is on the site: the check at an activation would ask. During an update it
    // must neither run nor ask; the next activation does.
    Banco b;
    b.sito.scrivi(u"/vespara/AggiornamentoProdotto5.html"_s, "9.0.0");
    b.sito.archivio(senzaUltima(archivioConsegnato()));
    b.sito.server.setRitardo(u"/vespara/ClassifSerieB.html"_s, 400);
    QVERIFY(b.avvia());
    // The check at the start is forgotten: only the update keeps the next one away.
    b.a.orologioDiProva();
    b.a.dialoghi.svuota();
    b.sito.server.svuotaRichieste();
    quandoChiesta(b.sito.server, u"/vespara/ClassifSerieB.html"_s,
                  [&b] { emit b.a.pannello().attivata(); });
    QVERIFY(b.aggiorna(u"mnuCampionatoItaliano"_s, u"frmInternet"_s));
    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione, Effettuato)});
    QVERIFY(!b.sito.percorsi().contains(u"/vespara/AggiornamentoProdotto5.html"_s));
    QTest::qWait(50);
    QVERIFY(!b.sito.percorsi().contains(u"/vespara/AggiornamentoProdotto5.html"_s));

    emit b.a.pannello().attivata();
    QTRY_COMPARE(b.a.dialoghi.boxes.size(), 2);
    QCOMPARE(b.a.dialoghi.boxes.last().tipo, Tipo::Domanda);
}

void TstAggiornamentiSito::aggiornamentoDuranteLaVerifica() {
    // A site that takes more than a second for each answer. The user comes back to the program
    // and starts the full update while the silent check waits for the site: the check gives way
    // without a word, and the update runs to its end as it would without it.
    Banco b;
    b.sito.scrivi(u"/vespara/AggiornamentoProdotto5.html"_s, "9.0.0");
    b.sito.archivio(senzaUltima(archivioConsegnato()));
    QVERIFY(b.avvia());
    b.a.orologioDiProva();
    b.a.dialoghi.svuota();
    GestoreFinestreProva gestore(&b.a.pannello());
    b.sito.server.setRitardo(1200);
    b.sito.server.svuotaRichieste();
    QVERIFY(gestore.tornaAlProgramma());
    QVERIFY(b.a.verificaVersione().inCorso());
    QTRY_VERIFY(b.sito.percorsi().contains(Radice));
    QVERIFY(b.a.verificaVersione().inCorso());
    QVERIFY(b.aggiorna(u"mnuCampionatoItaliano"_s, u"frmInternet"_s));
    QCOMPARE(b.boxes(), QStringList{Banco::box(Tipo::Informazione, Effettuato)});
    QVERIFY(!b.a.verificaVersione().inCorso());
    QCOMPARE(b.fileScritti(classifiche() + quote() + schedine(u"SchedinaProssimoConcorso.txt"_s) +
                           schedine(u"SchedinaSchedinaProssimoConcorso.txt"_s) + picchetti()),
             QString());
    QCOMPARE(b.ordine(QStringList{Radice, Versione, PaginaArchivio} + remoti(classifiche()) +
                      remoti(quote()) + remoti(schedine(QString())) + remoti(picchetti()) +
                      remoti(schedine(QString())) + QStringList{Radice, Quote}),
             QString());
    // The check asked for nothing past its probe, and the update's own waiting box, gone, starts
    // no other.
    QTest::qWait(100);
    QVERIFY(!b.sito.percorsi().contains(u"/vespara/AggiornamentoProdotto5.html"_s));
    QVERIFY(!b.a.verificaVersione().inCorso());
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QVERIFY(b.a.pannello().isEnabled());
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

QTEST_MAIN(TstAggiornamentiSito)
#include "tst_aggiornamentisito.moc"
