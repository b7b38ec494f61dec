// The settings window, used as a user would through the frame: the address of the update site
// typed, tried against a site on loopback, against nothing and on disk, refused when it is no
// address, stored and used by the next update; and which root the program takes.
#include "supporto/ambienteprova.h"

#include "aggiornamenti/impostazionesito.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/filedati.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString SchermoImpostazioni = u"frmImpostazioni"_s;
const QString Bloccato = u"http://127.0.0.1:9"_s; // what AmbienteProva stores

// A port where nothing listens: taken, then let go.
quint16 portaLibera() {
    QTcpServer s;
    s.listen(QHostAddress::LocalHost, 0);
    return s.serverPort();
}

// The lines of a file, without the empty ones at its end: a page's last line end becomes an
// empty last line of the data file.
QString righeDi(const QString &file) {
    QStringList righe = FileDati::leggiRighe(file);
    while (!righe.isEmpty() && righe.last().isEmpty())
        righe.removeLast();
    return righe.join(u'\n');
}

template <typename T> T *controllo(QWidget *schermo, const QString &nome) {
    return schermo ? schermo->findChild<T *>(nome) : nullptr;
}

} // namespace

class TstImpostazioni : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void apertura_data();
    void apertura();
    void provaSitoCheRisponde();
    void provaSenzaSito();
    void provaCartella_data();
    void provaCartella();
    void indirizzoSbagliato_data();
    void indirizzoSbagliato();
    void okMemorizzaEUsa();
    void okVuotoTornaAlSitoInstallato();
    void annulla_data();
    void annulla();
    void aggiornamentoDaCartella();
    void precedenza_data();
    void precedenza();
    void indice_data();
    void indice();
    void fotografie_data();
    void fotografie();

private:
    // The settings window opened through its menu entry, on a started program.
    QWidget *apri(AmbienteProva &a) const;
    // Types `testo` in txtSito over what it held, as a user would.
    static void scrivi(QWidget *frm, const QString &testo);
    QString radiceSito() const { return QUrl::fromLocalFile(m_sito.path()).toString(); }

    QTemporaryDir m_cartella;
    QDir m_sito;      // the site the build's tool makes from the delivered data
    int m_pagine = 0; // its pages, less the two indexes
};

void TstImpostazioni::initTestCase() {
    // The site as a maintainer makes it, by the project's tool.
    const QString strumento =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../tools/creasitolocale"_s);
    QVERIFY2(QFileInfo(strumento).isExecutable(), qPrintable(strumento));
    QVERIFY(m_cartella.isValid());
    m_sito = QDir(m_cartella.filePath(u"sito"_s));
    QProcess processo;
    processo.start(strumento, {AmbienteProva::datiConsegnati(), m_sito.path()});
    QVERIFY(processo.waitForFinished(120000));
    QVERIFY2(processo.exitCode() == 0, processo.readAllStandardError().constData());
    for (QDirIterator it(m_sito.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        if (const QString nome = m_sito.relativeFilePath(it.next());
            nome != u"index.html"_s && nome != u"vespara/index.html"_s)
            ++m_pagine;
    QVERIFY(m_pagine > 50);
}

QWidget *TstImpostazioni::apri(AmbienteProva &a) const {
    QAction *voce = a.pannello().findChild<QAction *>(u"mnuImpostazioni"_s);
    if (!voce || !voce->isEnabled())
        return nullptr;
    voce->trigger();
    return a.pannello().trovaSchermo(SchermoImpostazioni);
}

void TstImpostazioni::scrivi(QWidget *frm, const QString &testo) {
    auto *txt = controllo<QLineEdit>(frm, u"txtSito"_s);
    QVERIFY(txt);
    txt->setFocus();
    txt->selectAll();
    if (testo.isEmpty())
        QTest::keyClick(txt, Qt::Key_Delete);
    else
        QTest::keyClicks(txt, testo);
    QCOMPARE(txt->text(), testo);
}

void TstImpostazioni::apertura_data() {
    QTest::addColumn<bool>("tasto");
    QTest::newRow("menu") << false;
    QTest::newRow("Ctrl+,") << true;
}

void TstImpostazioni::apertura() {
    QFETCH(bool, tasto);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QAction *voce = a.pannello().findChild<QAction *>(u"mnuImpostazioni"_s);
    QVERIFY(voce);
    QCOMPARE(voce->shortcut(), QKeySequence(u"Ctrl+,"_s));
    // At the end of "Info", after a separator.
    const QList<QAction *> info = a.pannello().findChild<QMenu *>(u"mnuInfo"_s)->actions();
    QCOMPARE(info.last(), voce);
    QVERIFY(info.at(info.size() - 2)->isSeparator());
    if (tasto)
        QTest::keyClick(&a.pannello(), Qt::Key_Comma, Qt::ControlModifier);
    else
        voce->trigger();
    QWidget *frm = a.pannello().trovaSchermo(SchermoImpostazioni);
    QVERIFY(frm);
    QCOMPARE(frm->windowTitle(), u"Impostazioni"_s);
    auto *txt = controllo<QLineEdit>(frm, u"txtSito"_s);
    QVERIFY(txt);
    // The address stored, and the focus on it.
    QCOMPARE(txt->text(), Bloccato);
    QTRY_COMPARE(QApplication::focusWidget(), txt);
    QCOMPARE(controllo<QPushButton>(frm, u"cmdProvaSito"_s)->text(), u"&Prova"_s);
    QCOMPARE(controllo<QPushButton>(frm, u"cmdOk"_s)->text(), u"OK"_s);
    QCOMPARE(controllo<QPushButton>(frm, u"cmdAnnulla"_s)->text(), u"Annulla"_s);
    QCOMPARE(controllo<QLabel>(frm, u"lblEsitoSito"_s)->text(), QString());
    // What an empty field stands for: the site that the build made beside the tests.
    QVERIFY(
        controllo<QLabel>(frm, u"lblSitoInstallato"_s)->text().endsWith(Rete::radiceInstallata()));
    QVERIFY(!controllo<QLabel>(frm, u"lblVariabileSito"_s));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstImpostazioni::provaSitoCheRisponde() {
    ServerHttp server(m_sito.path());
    QVERIFY(server.avvia());
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, server.radice());
    server.svuotaRichieste();
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdProvaSito"_s), Qt::LeftButton);
    QCOMPARE(
        controllo<QLabel>(frm, u"lblEsitoSito"_s)->text(),
        u"Il sito risponde: il suo indice (vespara/index.html) elenca %1 pagine."_s.arg(m_pagine));
    QStringList chiesti;
    for (const auto &r : server.richieste())
        chiesti.append(r.percorso);
    QCOMPARE(chiesti, (QStringList{u"/"_s, u"/vespara/index.html"_s}));
    // A try stores nothing, and the program's site stays as it was.
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(), Bloccato);
    QCOMPARE(a.stato().rete().radice(), Bloccato);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QVERIFY(a.pannello().trovaSchermo(SchermoImpostazioni));
}

void TstImpostazioni::provaSenzaSito() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    const QString radice = u"http://127.0.0.1:%1"_s.arg(portaLibera());
    scrivi(frm, radice);
    QElapsedTimer tempo;
    tempo.start();
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdProvaSito"_s), Qt::LeftButton);
    // A refused connection is an answer at once: nobody waits for the probe's time limit.
    QVERIFY(tempo.elapsed() < a.stato().rete().tempi().sonda);
    QCOMPARE(controllo<QLabel>(frm, u"lblEsitoSito"_s)->text(),
             u"Il sito %1 non risponde: controllare l'indirizzo e la connessione a Internet."_s.arg(
                 radice));
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(), Bloccato);
}

void TstImpostazioni::provaCartella_data() {
    QTest::addColumn<QString>("cartella"); // under the test's folder; "sito": the site
    QTest::addColumn<QString>("esito");    // "%1": the folder
    QTest::newRow("sito") << u"sito"_s
                          << u"Il sito risponde: il suo indice (vespara/index.html) elenca "
                             u"pagine."_s;
    QTest::newRow("cartella vuota")
        << u"vuota"_s << u"Nessun sito nella cartella %1: manca la sua pagina index.html."_s;
    QTest::newRow("cartella che non esiste")
        << u"non esiste"_s << u"Nessun sito nella cartella %1: manca la sua pagina index.html."_s;
    QTest::newRow("senza indice")
        << u"senza indice"_s
        << u"Il sito risponde, ma non ha l'indice delle pagine (vespara/index.html): forse non "
           u"è il sito degli aggiornamenti di Vespara."_s;
}

void TstImpostazioni::provaCartella() {
    QFETCH(QString, cartella);
    QFETCH(QString, esito);
    QDir(m_cartella.path()).mkpath(u"vuota"_s);
    QDir(m_cartella.path()).mkpath(u"senza indice"_s);
    FileDati::scriviRighe(m_cartella.filePath(u"senza indice/index.html"_s), {u"<p>Ciao</p>"_s});
    const QString percorso = m_cartella.filePath(cartella);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, QUrl::fromLocalFile(percorso).toString());
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdProvaSito"_s), Qt::LeftButton);
    if (cartella == u"sito"_s)
        esito.replace(u"elenca "_s, u"elenca %1 "_s.arg(m_pagine));
    QCOMPARE(controllo<QLabel>(frm, u"lblEsitoSito"_s)->text(), esito.arg(percorso));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstImpostazioni::indirizzoSbagliato_data() {
    QTest::addColumn<QString>("indirizzo");
    QTest::addColumn<QString>("parola");
    QTest::newRow("ftp") << u"ftp://www.esempio.it"_s << u"non comincia con http://"_s;
    QTest::newRow("senza schema") << u"www.esempio.it"_s << u"non comincia con http://"_s;
    QTest::newRow("malformato") << u"http://www.esem pio.it"_s << u"non è scritto correttamente"_s;
    QTest::newRow("senza nome") << u"https://"_s << u"manca il nome del sito"_s;
}

void TstImpostazioni::indirizzoSbagliato() {
    QFETCH(QString, indirizzo);
    QFETCH(QString, parola);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, indirizzo);
    // The try says what is wrong, without a box.
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdProvaSito"_s), Qt::LeftButton);
    const QString testo = controllo<QLabel>(frm, u"lblEsitoSito"_s)->text();
    QVERIFY2(testo.contains(parola) && testo.contains(indirizzo), qPrintable(testo));
    QVERIFY(a.dialoghi.boxes.isEmpty());
    // OK says it in a box, stores nothing and leaves the window open on the field.
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdOk"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.at(0).tipo, Dialoghi::Tipo::Avviso);
    QCOMPARE(a.dialoghi.boxes.at(0).titolo, u"Impostazioni"_s);
    QCOMPARE(a.dialoghi.boxes.at(0).testo, testo);
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(), Bloccato);
    QCOMPARE(a.stato().rete().radice(), Bloccato);
    QTest::qWait(20);
    QCOMPARE(a.pannello().trovaSchermo(SchermoImpostazioni), frm);
    QCOMPARE(QApplication::focusWidget(), controllo<QLineEdit>(frm, u"txtSito"_s));
}

void TstImpostazioni::okMemorizzaEUsa() {
    ServerHttp server(m_sito.path());
    QVERIFY(server.avvia());
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, u"  "_s + server.radice() + u" "_s);
    // Enter in the field is OK.
    QTest::keyClick(controllo<QLineEdit>(frm, u"txtSito"_s), Qt::Key_Return);
    QTRY_VERIFY(!a.pannello().trovaSchermo(SchermoImpostazioni));
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(), server.radice());
    QCOMPARE(a.stato().rete().radice(), server.radice());
    QCOMPARE(a.dialoghi.avvisiStato.last(), u"Sito degli aggiornamenti: %1"_s.arg(server.radice()));
    QVERIFY(a.dialoghi.boxes.isEmpty());

    // The next operation goes there, without a new start: the check of the version.
    server.svuotaRichieste();
    a.pannello().findChild<QAction *>(u"mnuAggiornamenti"_s)->trigger();
    QCOMPARE(a.dialoghi.testi(),
             QStringList{u"Non risulta alcuna versione più aggiornata per Vespara."_s});
    QStringList chiesti;
    for (const auto &r : server.richieste())
        chiesti.append(r.percorso);
    QCOMPARE(chiesti, (QStringList{u"/"_s, u"/vespara/AggiornamentoProdotto5.html"_s}));
    // And the window shows it at the next opening.
    frm = apri(a);
    QVERIFY(frm);
    QCOMPARE(controllo<QLineEdit>(frm, u"txtSito"_s)->text(), server.radice());
}

void TstImpostazioni::okVuotoTornaAlSitoInstallato() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, QString());
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdOk"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(SchermoImpostazioni));
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(), QString());
    // The site the build made is the program's installed site when run from the build folder.
    const QString installata = Rete::radiceInstallata();
    QVERIFY2(QUrl(installata).isLocalFile(), qPrintable(installata));
    QCOMPARE(a.stato().rete().radice(), installata);
    QVERIFY(a.stato().rete().verificaConnessione());
}

void TstImpostazioni::annulla_data() {
    QTest::addColumn<bool>("esc");
    QTest::newRow("Annulla") << false;
    QTest::newRow("Esc") << true;
}

void TstImpostazioni::annulla() {
    QFETCH(bool, esc);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, u"http://www.esempio.it"_s);
    if (esc)
        QTest::keyClick(controllo<QLineEdit>(frm, u"txtSito"_s), Qt::Key_Escape);
    else
        QTest::mouseClick(controllo<QPushButton>(frm, u"cmdAnnulla"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(SchermoImpostazioni));
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(), Bloccato);
    QCOMPARE(a.stato().rete().radice(), Bloccato);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    // Opened again, the window shows the stored address, not what was typed.
    frm = apri(a);
    QVERIFY(frm);
    QCOMPARE(controllo<QLineEdit>(frm, u"txtSito"_s)->text(), Bloccato);
}

void TstImpostazioni::aggiornamentoDaCartella() {
    // The data folder is a contest behind the site; the site is a folder, set in the window.
    AmbienteProva a;
    QStringList archivio = FileDati::leggiRighe(a.file(u"Archivio.txt"_s));
    const QStringList completo = archivio;
    archivio.removeLast();
    a.scrivi(u"Archivio.txt"_s, archivio);
    const QStringList pagine{u"ClassifSerieA.txt"_s, u"ClassifSerieC1B.txt"_s, u"Quote.txt"_s,
                             u"SchedinaDomenica.txt"_s, u"Picchetto.txt"_s};
    // The files the update writes differ from the pages before it: the update changes them.
    for (const QString &nome : pagine)
        a.scrivi(nome, {u"vecchio"_s});
    QVERIFY(a.avvia());
    QCOMPARE(a.stato().NumeroColonne(), archivio.size());
    a.stato().RicalcolaColonne9 = false;

    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, radiceSito());
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdOk"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(SchermoImpostazioni));
    a.dialoghi.svuota();

    a.pannello().findChild<QAction *>(u"mnuCampionatoItaliano"_s)->trigger();
    QWidget *internet = a.pannello().trovaSchermo(u"frmInternet"_s);
    QVERIFY(internet);
    QTest::mouseClick(controllo<QPushButton>(internet, u"cmdAggiorna"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Aggiornamento effettuato."_s});

    // The contest of the site is in the archive, in the file and in memory.
    QCOMPARE(a.stato().NumeroColonne(), completo.size());
    const QStringList dopo = FileDati::leggiRighe(a.file(u"Archivio.txt"_s));
    QCOMPARE(dopo.size(), completo.size());
    QCOMPARE(dopo.last().split(u' ', Qt::SkipEmptyParts).mid(0, 3),
             completo.last().split(u' ', Qt::SkipEmptyParts).mid(0, 3));
    // Each file is its page of the site.
    const QStringList remote{u"vespara/ClassifSerieA.html"_s, u"vespara/ClassifSerieC1B.html"_s,
                             u"vespara/Quote.html"_s, u"vespara/SchedinaDomenica.html"_s,
                             u"vespara/Picchetto.html"_s};
    for (int i = 0; i < pagine.size(); ++i)
        QCOMPARE(righeDi(a.file(pagine.at(i))), righeDi(m_sito.filePath(remote.at(i))));
}

void TstImpostazioni::precedenza_data() {
    QTest::addColumn<QString>("variabile");
    QTest::addColumn<QString>("impostazione");
    QTest::addColumn<QString>("attesa"); // empty: the installed site
    const QString env = u"http://127.0.0.1:1234"_s;
    const QString imp = u"http://127.0.0.1:5678"_s;
    QTest::newRow("sito installato") << QString() << QString() << QString();
    QTest::newRow("impostazione") << QString() << imp << imp;
    QTest::newRow("variabile") << env << imp << env;
}

void TstImpostazioni::precedenza() {
    QFETCH(QString, variabile);
    QFETCH(QString, impostazione);
    QFETCH(QString, attesa);
    if (attesa.isEmpty())
        attesa = Rete::radiceInstallata();
    AmbienteProva a;
    a.impostazioni().imposta(Impostazioni::RadiceSito, impostazione);
    if (!variabile.isEmpty())
        qputenv("VESPARA_SITO", variabile.toUtf8());
    const bool avviato = a.avvia();
    QWidget *frm = avviato ? apri(a) : nullptr;
    const QString radice = avviato ? a.stato().rete().radice() : QString();
    auto *nota = controllo<QLabel>(frm, u"lblVariabileSito"_s);
    // OK with another address: the environment still wins.
    if (frm) {
        scrivi(frm, u"http://www.esempio.it"_s);
        QTest::mouseClick(controllo<QPushButton>(frm, u"cmdOk"_s), Qt::LeftButton);
    }
    const QString dopo = avviato ? a.stato().rete().radice() : QString();
    qunsetenv("VESPARA_SITO");
    QVERIFY(frm);
    QCOMPARE(radice, attesa);
    QCOMPARE(a.impostazioni().valore(Impostazioni::RadiceSito).toString(),
             u"http://www.esempio.it"_s);
    QCOMPARE(dopo, variabile.isEmpty() ? u"http://www.esempio.it"_s : variabile);
    // The window says when the environment overrides it.
    QCOMPARE(nota != nullptr, !variabile.isEmpty());
    if (nota)
        QVERIFY(nota->text().contains(variabile));
}

void TstImpostazioni::indice_data() {
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("pagine");
    QTest::newRow("vuoto") << QString() << 0;
    QTest::newRow("due") << u"<li><a href=\"a.html\">a</a></li><li><A HREF='../b.htm'>b</A>"_s << 2;
    QTest::newRow("ripetute") << u"<a href=\"a.html\">a</a> <a class=\"x\" href=\"a.html\">"_s << 1;
    QTest::newRow("ancore") << u"<a href=\"#su\">su</a><a name=\"x\">x</a>"_s << 0;
}

void TstImpostazioni::indice() {
    QFETCH(QString, html);
    QFETCH(int, pagine);
    QCOMPARE(ImpostazioneSito::pagineIndice(html), pagine);
}

void TstImpostazioni::fotografie_data() {
    QTest::addColumn<QSize>("cornice");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TstImpostazioni::fotografie() {
    // The window at the frame's sizes of a small and of a large desktop, after a try: whole,
    // inside the area, nothing cut.
    QFETCH(QSize, cornice);
    ServerHttp server(m_sito.path());
    QVERIFY(server.avvia());
    AmbienteProva a(cornice);
    QVERIFY(a.avvia());
    a.pannello().resize(cornice);
    QWidget *frm = apri(a);
    QVERIFY(frm);
    scrivi(frm, server.radice());
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdProvaSito"_s), Qt::LeftButton);
    QVERIFY(controllo<QLabel>(frm, u"lblEsitoSito"_s)->text().startsWith(u"Il sito risponde"_s));
    QCoreApplication::processEvents();
    auto *area = a.pannello().findChild<QMdiArea *>(u"areaSchermi"_s);
    QMdiSubWindow *finestra = area->activeSubWindow();
    QVERIFY(finestra);
    QVERIFY(area->viewport()->rect().contains(finestra->geometry()));
    // Every label shows its whole text at the width it has.
    for (QLabel *l : frm->findChildren<QLabel *>())
        if (l->isVisible() && l->wordWrap())
            QVERIFY2(l->height() >= l->heightForWidth(l->width()), qPrintable(l->objectName()));
    AmbienteProva::fotografa(&a.pannello(),
                             u"frmImpostazioni-%1x%2"_s.arg(cornice.width()).arg(cornice.height()));
}

QTEST_MAIN(TstImpostazioni)
#include "tst_impostazioni.moc"
