// The download and the probe against a real HTTP server on loopback.
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Counts the waits that the frame would hear of.
class Osservatore : public Rete::Osservatore {
public:
    int attese = 0;
    void attesaIniziata() override { ++attese; }
    void attesaFinita() override {}
};

// What a call in the background handed back, and when.
struct Esito {
    std::optional<Rete::Pagina> pagina;
    std::optional<Rete::Esito> sonda;
};

} // namespace

class TstRete : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void paginaCortaRiempita();
    void paginaLungaTagliata();
    void errore404ComeTesto();
    void portaMortaDaBlank_data();
    void portaMortaDaBlank();
    void intestazioniDellaRichiesta();
    void tempoMassimo();
    void percorsiSenzaMaiuscole();
    void testoNonRiempito();
    void radiceDaUnSoloPosto_data();
    void radiceDaUnSoloPosto();
    void cartelleDelSitoInstallato();
    void indirizziDellaRadice_data();
    void indirizziDellaRadice();
    void paginaDaFile_data();
    void paginaDaFile();
    void sondaDiUnaCartella();
    void esitoDellaPagina_data();
    void esitoDellaPagina();
    void rispostaTardivaDopoIlRitorno();
    void annullaLAttesa();
    void operazioneNonAspettaDueVolte();
    void chiusuraFermaTutto();
    void sottofondo_data();
    void sottofondo();
    void sottofondoCedeAllUtente();
    void sottofondoNonPartePerUnAltro();
    void sottofondoChiusuraEContesto();

private:
    QTemporaryDir m_dir;
    // A site on disk, read through file: addresses.
    QTemporaryDir m_sitoFile;
    std::unique_ptr<ServerHttp> m_server;
    QString radiceFile() const { return QUrl::fromLocalFile(m_sitoFile.path()).toString(); }
    void scrivi(const QString &percorso, const QByteArray &contenuto) const {
        const QString file = m_dir.filePath(percorso);
        QDir().mkpath(QFileInfo(file).path());
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(contenuto);
    }
    // A port where nothing listens: taken, then let go.
    static quint16 portaLibera() {
        QTcpServer s;
        s.listen(QHostAddress::LocalHost, 0);
        return s.serverPort();
    }
};

void TstRete::initTestCase() {
    scrivi(u"vespara/Corta.html"_s, "abc");
    scrivi(u"Vespara/Accenti.html"_s, "Luned\xec");
    for (const auto &[percorso, contenuto] :
         {std::pair{"index.html", QByteArray("<html>radice</html>")},
          {"vespara/Corta.html", "abc"},
          {"Vespara/Accenti.html", "Luned\xec\r\n"},
          {"vespara/Lunga.html", QByteArray(Rete::LunghezzaPagina + 10, 'x')}}) {
        const QString file = m_sitoFile.filePath(QString::fromLatin1(percorso));
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(contenuto);
    }
    m_server = std::make_unique<ServerHttp>(m_dir.path());
    QVERIFY(m_server->avvia());
}

void TstRete::paginaCortaRiempita() {
    Rete rete(m_server->radice());
    const QString pagina = rete.scaricaPagina(u"/vespara/Corta.html"_s);
    QCOMPARE(pagina.size(), Rete::LunghezzaPagina);
    QVERIFY(pagina.startsWith(u"abc "_s));
    QCOMPARE(pagina.trimmed(), u"abc"_s);
    // Latin-1, as the site's files are.
    QCOMPARE(rete.scaricaPagina(u"/Vespara/Accenti.html"_s).trimmed(), u"Lunedì"_s);
}

void TstRete::paginaLungaTagliata() {
    QByteArray lunga(Rete::LunghezzaPagina + 12345, 'x');
    lunga[Rete::LunghezzaPagina - 1] = 'y';
    m_server->imposta(u"/lunga.html"_s, lunga);
    Rete rete(m_server->radice());
    const QString pagina = rete.scaricaPagina(u"/lunga.html"_s);
    QCOMPARE(pagina.size(), Rete::LunghezzaPagina);
    QCOMPARE(pagina.back(), QChar(u'y'));
    QVERIFY(!pagina.contains(u' '));
}

void TstRete::errore404ComeTesto() {
    Rete rete(m_server->radice());
    const QString pagina = rete.scaricaPagina(u"/vespara/NonCe.html"_s);
    QCOMPARE(pagina.size(), Rete::LunghezzaPagina);
    QVERIFY(pagina.contains(u"Not Found"_s));
    // The probe is true whenever an exchange completes, whatever its status.
    m_server->imposta(u"/"_s, "errore interno", 500);
    QVERIFY(rete.verificaConnessione());
    m_server->imposta(u"/"_s, "<html>ok</html>");
    QVERIFY(rete.verificaConnessione());
}

void TstRete::portaMortaDaBlank_data() {
    QTest::addColumn<QString>("radice");
    QTest::newRow("porta chiusa") << u"http://127.0.0.1:%1"_s.arg(portaLibera());
    QTest::newRow("indirizzo non valido") << u"http://[::1:bad"_s;
    QTest::newRow("schema sconosciuto") << u"gopher://127.0.0.1"_s;
}

void TstRete::portaMortaDaBlank() {
    QFETCH(QString, radice);
    Rete rete(radice);
    const QString pagina = rete.scaricaPagina(u"/vespara/Corta.html"_s);
    QCOMPARE(pagina.size(), Rete::LunghezzaPagina);
    QCOMPARE(pagina.trimmed(), QString());
    QVERIFY(!rete.verificaConnessione());
    QCOMPARE(rete.scaricaTesto(u"/vespara/Corta.html"_s), QString());
}

void TstRete::intestazioniDellaRichiesta() {
    m_server->svuotaRichieste();
    Rete rete(m_server->radice());
    rete.scaricaPagina(u"/vespara/Corta.html"_s);
    rete.scaricaPagina(u"/vespara/Corta.html"_s);
    QVERIFY(rete.verificaConnessione());
    const auto &richieste = m_server->richieste();
    QCOMPARE(richieste.size(), 3);
    // Both downloads reached the server: nothing came from a cache.
    QCOMPARE(richieste.at(0).percorso, u"/vespara/Corta.html"_s);
    QCOMPARE(richieste.at(1).percorso, u"/vespara/Corta.html"_s);
    QCOMPARE(richieste.at(2).percorso, u"/"_s);
    for (const auto &r : richieste) {
        QCOMPARE(r.metodo, u"GET"_s);
        QCOMPARE(r.intestazioni.value("user-agent"), QByteArray("API"));
        QCOMPARE(r.intestazioni.value("cache-control"), QByteArray("no-cache"));
    }
}

void TstRete::tempoMassimo() {
    ServerHttp lento(m_dir.path());
    QVERIFY(lento.avvia());
    lento.setRitardo(3000);
    Rete rete(lento.radice());
    rete.setTempi({300, 300, 300, 300});
    QElapsedTimer tempo;
    tempo.start();
    QCOMPARE(rete.scaricaPagina(u"/vespara/Corta.html"_s).trimmed(), QString());
    QVERIFY(!rete.verificaConnessione());
    // Both gave up long before the server answered.
    QVERIFY(tempo.elapsed() < 2500);
}

void TstRete::percorsiSenzaMaiuscole() {
    Rete rete(m_server->radice());
    QCOMPARE(rete.scaricaPagina(u"/VESPARA/corta.HTML"_s).trimmed(), u"abc"_s);
    QCOMPARE(rete.scaricaPagina(u"/vespara/../vespara/Corta.html"_s).trimmed().left(3), u"abc"_s);
}

void TstRete::testoNonRiempito() {
    Rete rete(m_server->radice() + u"/"_s);
    QCOMPARE(rete.scaricaTesto(u"vespara/Corta.html"_s), u"abc"_s);
    QCOMPARE(rete.url(u"/a/b.html"_s).toString(), m_server->radice() + u"/a/b.html"_s);
}

void TstRete::radiceDaUnSoloPosto_data() {
    QTest::addColumn<QString>("variabile");
    QTest::addColumn<QString>("impostazione");
    QTest::addColumn<bool>("installato");
    QTest::addColumn<QString>("attesa"); // "cartella": the installed folder's file: address
    const QString locale = u"http://127.0.0.1:%1"_s.arg(Rete::PortaSitoLocale);
    const QString env = u"http://127.0.0.1:1234"_s;
    const QString imp = u"http://esempio.invalid"_s;
    QTest::newRow("nulla") << QString() << QString() << false << locale;
    QTest::newRow("cartella") << QString() << QString() << true << u"cartella"_s;
    QTest::newRow("impostazione") << QString() << imp << true << imp;
    QTest::newRow("variabile") << env << imp << true << env;
    QTest::newRow("variabile senza impostazione") << env << QString() << true << env;
    QTest::newRow("impostazione senza cartella") << QString() << imp << false << imp;
}

void TstRete::radiceDaUnSoloPosto() {
    QFETCH(QString, variabile);
    QFETCH(QString, impostazione);
    QFETCH(bool, installato);
    QFETCH(QString, attesa);
    QTemporaryDir dir;
    Impostazioni impostazioni(dir.filePath(u"i.ini"_s));
    if (!impostazione.isEmpty())
        impostazioni.imposta(Impostazioni::RadiceSito, impostazione);
    // The first folder is no site (it has no root page): the second one is taken.
    const QString vuota = dir.filePath(u"vuota"_s);
    const QString sito = dir.filePath(u"sito installato"_s);
    QVERIFY(QDir().mkpath(vuota));
    if (installato) {
        QVERIFY(QDir().mkpath(sito));
        QFile pagina(QDir(sito).filePath(u"index.html"_s));
        QVERIFY(pagina.open(QIODevice::WriteOnly));
    }
    if (attesa == u"cartella"_s)
        attesa = QUrl::fromLocalFile(sito).toString();
    if (variabile.isEmpty())
        qunsetenv("VESPARA_SITO");
    else
        qputenv("VESPARA_SITO", variabile.toUtf8());
    const QString radice = Rete::radicePredefinita(impostazioni, {vuota, sito});
    qunsetenv("VESPARA_SITO");
    QCOMPARE(radice, attesa);
    if (installato && attesa != u"http://127.0.0.1:%1"_s.arg(Rete::PortaSitoLocale)) {
        // The folder's address reaches its pages, a blank in its name too.
        Rete rete(QUrl::fromLocalFile(sito).toString());
        QVERIFY(rete.verificaConnessione());
    }
}

void TstRete::cartelleDelSitoInstallato() {
    // Beside the executable first, as installed (<bin>/../share) and in a build folder, then the
    // data folders of the system.
    QTemporaryDir casa;
    const QByteArray prima = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(casa.path()));
    const QStringList cartelle = Rete::cartelleSitoInstallato();
    qputenv("XDG_DATA_HOME", prima);
    const QString bin = QCoreApplication::applicationDirPath();
    QVERIFY(cartelle.size() >= 3);
    QCOMPARE(cartelle.at(0), QDir::cleanPath(bin + u"/../share/vespara/sito"_s));
    QCOMPARE(cartelle.at(1), QDir::cleanPath(bin + u"/share/vespara/sito"_s));
    QCOMPARE(cartelle.at(2), QDir(casa.path()).filePath(u"vespara/sito"_s));
    // The tests run from the build folder, where the build made the site: a program started
    // from there without settings finds it.
    const QString costruito = QDir::cleanPath(bin + u"/../share/vespara/sito"_s);
    QVERIFY2(QFileInfo(costruito + u"/vespara/index.html"_s).isFile(), qPrintable(costruito));
    QCOMPARE(Rete::radiceInstallata(), QUrl::fromLocalFile(costruito).toString());
}

void TstRete::indirizziDellaRadice_data() {
    QTest::addColumn<QString>("radice");
    QTest::addColumn<QString>("errore"); // a word of the message, empty when accepted
    QTest::newRow("http") << u"http://127.0.0.1:8641"_s << QString();
    QTest::newRow("https con cartella") << u"https://www.esempio.it/vespara/"_s << QString();
    QTest::newRow("file") << u"file:///usr/share/vespara/sito"_s << QString();
    QTest::newRow("file con spazio") << u"file:///tmp/sito%20mio"_s << QString();
    QTest::newRow("file con spazio in chiaro") << u"file:///tmp/sito mio"_s << QString();
    QTest::newRow("maiuscole") << u"HTTP://www.esempio.it"_s << QString();
    QTest::newRow("ftp") << u"ftp://www.esempio.it"_s << u"non comincia"_s;
    QTest::newRow("senza schema") << u"www.esempio.it"_s << u"non comincia"_s;
    QTest::newRow("cartella senza schema") << u"/usr/share/vespara/sito"_s << u"non comincia"_s;
    QTest::newRow("senza host") << u"http://"_s << u"manca il nome"_s;
    QTest::newRow("spazio") << u"http://www.esem pio.it"_s << u"non è scritto"_s;
    QTest::newRow("porta sbagliata") << u"http://127.0.0.1:99999"_s << u"non è scritto"_s;
    QTest::newRow("domanda") << u"http://www.esempio.it/?a=1"_s << u"non può contenere"_s;
    QTest::newRow("file relativo") << u"file:sito"_s << u"questo computer"_s;
    QTest::newRow("file di un altro computer") << u"file://server/sito"_s << u"questo computer"_s;
}

void TstRete::indirizziDellaRadice() {
    QFETCH(QString, radice);
    QFETCH(QString, errore);
    const QString testo = Rete::erroreRadice(radice);
    if (errore.isEmpty()) {
        QCOMPARE(testo, QString());
    } else {
        QVERIFY2(testo.contains(errore), qPrintable(testo));
        QVERIFY2(testo.contains(radice), qPrintable(testo));
    }
}

void TstRete::paginaDaFile_data() {
    QTest::addColumn<QString>("percorso");
    QTest::addColumn<int>("esito");
    QTest::addColumn<QString>("testo"); // without the padding
    const int completa = int(Rete::Esito::Completa);
    QTest::newRow("pagina") << u"/vespara/Corta.html"_s << completa << u"abc"_s;
    // Latin-1 and the line end as they are, as from the web.
    QTest::newRow("latin-1") << u"Vespara/Accenti.html"_s << completa << u"Lunedì\r\n"_s;
    QTest::newRow("lunga") << u"/vespara/Lunga.html"_s << completa
                           << QString(Rete::LunghezzaPagina, u'x');
    QTest::newRow("radice") << u"/"_s << completa << u"<html>radice</html>"_s;
    QTest::newRow("mancante") << u"/vespara/NonCe.html"_s << int(Rete::Esito::Fallita) << QString();
    QTest::newRow("cartella") << u"/vespara"_s << int(Rete::Esito::Fallita) << QString();
}

void TstRete::paginaDaFile() {
    QFETCH(QString, percorso);
    QFETCH(int, esito);
    QFETCH(QString, testo);
    Rete rete(radiceFile());
    const Rete::Pagina pagina = rete.scarica(percorso);
    QCOMPARE(int(pagina.esito), esito);
    QCOMPARE(pagina.testo.size(), Rete::LunghezzaPagina);
    QCOMPARE(pagina.testo.left(testo.size()), testo);
    QCOMPARE(pagina.testo.mid(testo.size()).trimmed(), QString());
    QCOMPARE(rete.scaricaTesto(percorso), esito == int(Rete::Esito::Completa) ? testo : QString());
    // In the background the same.
    QObject contesto;
    std::optional<Rete::Pagina> sottofondo;
    rete.scaricaInSottofondo(percorso, &contesto,
                             [&sottofondo](const Rete::Pagina &p) { sottofondo = p; });
    QTRY_VERIFY(sottofondo);
    QCOMPARE(int(sottofondo->esito), esito);
    QCOMPARE(sottofondo->testo, pagina.testo);
}

void TstRete::sondaDiUnaCartella() {
    // The probe of a folder asks for its root page, and the folder's own address is its page.
    Rete rete(radiceFile() + u"/"_s);
    QCOMPARE(rete.url(u"/"_s), QUrl::fromLocalFile(m_sitoFile.filePath(u"index.html"_s)));
    QCOMPARE(rete.url(u"/vespara/"_s),
             QUrl::fromLocalFile(m_sitoFile.filePath(u"vespara/index.html"_s)));
    QVERIFY(rete.verificaConnessione());
    QObject contesto;
    std::optional<Rete::Esito> sonda;
    rete.verificaConnessioneInSottofondo(&contesto, [&sonda](Rete::Esito e) { sonda = e; });
    QTRY_VERIFY(sonda);
    QCOMPARE(*sonda, Rete::Esito::Completa);

    // A folder without it, or no folder at all, is no site.
    for (const QString &cartella :
         {m_sitoFile.filePath(u"vespara"_s), m_sitoFile.filePath(u"non esiste"_s)}) {
        Rete senza(QUrl::fromLocalFile(cartella).toString());
        QVERIFY(!senza.verificaConnessione());
        sonda.reset();
        senza.verificaConnessioneInSottofondo(&contesto, [&sonda](Rete::Esito e) { sonda = e; });
        QTRY_VERIFY(sonda);
        QCOMPARE(*sonda, Rete::Esito::Fallita);
    }
}

// Short waits, so that the stalls of the tests cost little.
constexpr Rete::Tempi TempiBrevi{2000, 300, 5000, 2000};

void TstRete::esitoDellaPagina_data() {
    QTest::addColumn<QString>("percorso");
    QTest::addColumn<int>("esito");
    QTest::addColumn<QString>("inizio"); // what the padded text starts with
    QTest::newRow("pagina") << u"/vespara/Corta.html"_s << int(Rete::Esito::Completa) << u"abc"_s;
    // An error page is a page that came whole: the updates store it, as they always have.
    QTest::newRow("404") << u"/vespara/NonCe.html"_s << int(Rete::Esito::Completa) << u"<html>"_s;
    QTest::newRow("sito muto") << u"/muto.html"_s << int(Rete::Esito::Fallita) << QString();
    QTest::newRow("interrotta a metà")
        << u"/meta.html"_s << int(Rete::Esito::Fallita) << u"prima metà"_s;
}

void TstRete::esitoDellaPagina() {
    QFETCH(QString, percorso);
    QFETCH(int, esito);
    QFETCH(QString, inizio);
    m_server->setRitardo(u"/muto.html"_s, -1);
    m_server->impostaADueTempi(u"/meta.html"_s, "prima met\xe0 seconda met\xe0", 11, -1);
    Rete rete(m_server->radice());
    rete.setTempi(TempiBrevi);
    QElapsedTimer tempo;
    tempo.start();
    const Rete::Pagina pagina = rete.scarica(percorso);
    QCOMPARE(int(pagina.esito), esito);
    QCOMPARE(pagina.testo.size(), Rete::LunghezzaPagina);
    QVERIFY2(pagina.testo.startsWith(inizio), qPrintable(pagina.testo.left(40)));
    if (inizio.isEmpty())
        QCOMPARE(pagina.testo.trimmed(), QString());
    // A stalled transfer ends at the stall's time, not at the page's.
    QVERIFY(tempo.elapsed() < 2000);
}

void TstRete::rispostaTardivaDopoIlRitorno() {
    // The rest of the page arrives after the download gave up and returned: nothing of the
    // finished call may run then (its handlers referred to a frame that is gone).
    // Here the page is full at its first piece, and the download returns at once; the rest comes
    // while the next download of the same event waits (Qt disposes of the first reply only back
    // in the outer loop), and lands where the first call's frame was.
    QTest::failOnWarning(QRegularExpression(u"QIODevice"_s));
    m_server->impostaADueTempi(u"/tardiva.html"_s, QByteArray(Rete::LunghezzaPagina + 300000, 'z'),
                               Rete::LunghezzaPagina, 100);
    m_server->setRitardo(u"/muto.html"_s, -1);
    Rete rete(m_server->radice());
    rete.setTempi(TempiBrevi);
    const Rete::Pagina pagina = rete.scarica(u"/tardiva.html"_s);
    QCOMPARE(pagina.esito, Rete::Esito::Completa);
    QCOMPARE(pagina.testo, QString(Rete::LunghezzaPagina, u'z'));
    const Rete::Pagina muta = rete.scarica(u"/muto.html"_s);
    QCOMPARE(muta.esito, Rete::Esito::Fallita);
    QCOMPARE(muta.testo.trimmed(), QString());
    QCOMPARE(rete.scaricaPagina(u"/vespara/Corta.html"_s).trimmed(), u"abc"_s);
}

void TstRete::annullaLAttesa() {
    m_server->setRitardo(u"/muto.html"_s, -1);
    Rete rete(m_server->radice());
    QTimer::singleShot(200, [&rete] { rete.annulla(); });
    QElapsedTimer tempo;
    tempo.start();
    QCOMPARE(rete.scarica(u"/muto.html"_s).esito, Rete::Esito::Annullata);
    QVERIFY(tempo.elapsed() < 2000);
    // A call of its own afterwards is not cancelled.
    QCOMPARE(rete.scarica(u"/vespara/Corta.html"_s).esito, Rete::Esito::Completa);

    // Within an operation, the cancel holds for the calls after it too.
    Rete::Operazione operazione(rete);
    QTimer::singleShot(200, [&rete] { rete.annulla(); });
    QCOMPARE(rete.scarica(u"/muto.html"_s).esito, Rete::Esito::Annullata);
    QVERIFY(rete.interrotta());
    m_server->svuotaRichieste();
    QCOMPARE(rete.scarica(u"/vespara/Corta.html"_s).esito, Rete::Esito::Annullata);
    QVERIFY(!rete.verificaConnessione());
    QVERIFY(m_server->richieste().isEmpty());
}

void TstRete::operazioneNonAspettaDueVolte() {
    m_server->setRitardo(u"/muto.html"_s, -1);
    Rete rete(m_server->radice());
    rete.setTempi(TempiBrevi);
    {
        Rete::Operazione operazione(rete);
        QCOMPARE(rete.scarica(u"/muto.html"_s).esito, Rete::Esito::Fallita);
        // The site did not answer: the rest of the operation does not wait for it again.
        m_server->svuotaRichieste();
        QElapsedTimer tempo;
        tempo.start();
        QCOMPARE(rete.scarica(u"/vespara/Corta.html"_s).esito, Rete::Esito::Fallita);
        QVERIFY(tempo.elapsed() < 100);
        QVERIFY(m_server->richieste().isEmpty());
        QVERIFY(!rete.interrotta());
    }
    // The next operation tries again.
    Rete::Operazione nuova(rete);
    QCOMPARE(rete.scarica(u"/vespara/Corta.html"_s).esito, Rete::Esito::Completa);
}

void TstRete::chiusuraFermaTutto() {
    m_server->setRitardo(u"/muto.html"_s, -1);
    Rete rete(m_server->radice());
    QTimer::singleShot(200, [&rete] { rete.chiudi(); });
    QCOMPARE(rete.scarica(u"/muto.html"_s).esito, Rete::Esito::Annullata);
    QVERIFY(rete.inChiusura());
    QVERIFY(rete.interrotta());
    m_server->svuotaRichieste();
    QCOMPARE(rete.scarica(u"/vespara/Corta.html"_s).esito, Rete::Esito::Annullata);
    QVERIFY(!rete.verificaConnessione());
    QCOMPARE(rete.scaricaTesto(u"/vespara/Corta.html"_s), QString());
    QVERIFY(m_server->richieste().isEmpty());
}

void TstRete::sottofondo_data() {
    QTest::addColumn<QString>("radice"); // empty: the test server
    QTest::addColumn<QString>("percorso");
    QTest::addColumn<int>("sonda");
    QTest::addColumn<int>("esito");
    QTest::addColumn<QString>("inizio");
    const int completa = int(Rete::Esito::Completa);
    const int fallita = int(Rete::Esito::Fallita);
    QTest::newRow("pagina") << QString() << u"/vespara/Corta.html"_s << completa << completa
                            << u"abc "_s;
    QTest::newRow("404") << QString() << u"/vespara/NonCe.html"_s << completa << completa
                         << u"<html>"_s;
    QTest::newRow("sito muto") << QString() << u"/muto.html"_s << completa << fallita << QString();
    QTest::newRow("interrotta a metà")
        << QString() << u"/meta.html"_s << completa << fallita << u"prima metà"_s;
    QTest::newRow("porta chiusa") << u"http://127.0.0.1:%1"_s.arg(portaLibera())
                                  << u"/vespara/Corta.html"_s << fallita << fallita << QString();
    QTest::newRow("indirizzo non valido")
        << u"http://[::1:bad"_s << u"/vespara/Corta.html"_s << fallita << fallita << QString();
}

void TstRete::sottofondo() {
    // The same answers as the calls that wait, within the same limits, but nothing waits for
    // them: the observer hears nothing and the network is not busy.
    QFETCH(QString, radice);
    QFETCH(QString, percorso);
    QFETCH(int, sonda);
    QFETCH(int, esito);
    QFETCH(QString, inizio);
    m_server->setRitardo(u"/muto.html"_s, -1);
    m_server->impostaADueTempi(u"/meta.html"_s, "prima met\xe0 seconda met\xe0", 11, -1);
    m_server->svuotaRichieste();
    Rete rete(radice.isEmpty() ? m_server->radice() : radice);
    rete.setTempi(TempiBrevi);
    Osservatore osservatore;
    rete.setOsservatore(&osservatore);
    QObject contesto;
    Esito e;
    QElapsedTimer tempo;
    tempo.start();
    rete.verificaConnessioneInSottofondo(&contesto, [&e](Rete::Esito s) { e.sonda = s; });
    rete.scaricaInSottofondo(percorso, &contesto, [&e](const Rete::Pagina &p) { e.pagina = p; });
    // Never from within the call, even when the address is no address.
    QVERIFY(!e.sonda && !e.pagina);
    QVERIFY(!rete.occupata());
    QTRY_VERIFY(e.sonda && e.pagina);
    QCOMPARE(int(*e.sonda), sonda);
    QCOMPARE(int(e.pagina->esito), esito);
    QCOMPARE(e.pagina->testo.size(), Rete::LunghezzaPagina);
    QVERIFY2(e.pagina->testo.startsWith(inizio), qPrintable(e.pagina->testo.left(40)));
    if (inizio.isEmpty())
        QCOMPARE(e.pagina->testo.trimmed(), QString());
    // A stall ends it at the stall's time.
    QVERIFY(tempo.elapsed() < 2000);
    QCOMPARE(osservatore.attese, 0);
    QVERIFY(!rete.inSottofondo());
    for (const auto &r : m_server->richieste())
        QCOMPARE(r.intestazioni.value("user-agent"), QByteArray("API"));
}

void TstRete::sottofondoCedeAllUtente() {
    // A background call that waits for a silent site gives way to the user's call at once: that
    // one runs as ever, and the background one ends as cancelled.
    m_server->setRitardo(u"/muto.html"_s, -1);
    Rete rete(m_server->radice());
    QObject contesto;
    Esito e;
    rete.scaricaInSottofondo(u"/muto.html"_s, &contesto,
                             [&e](const Rete::Pagina &p) { e.pagina = p; });
    QVERIFY(rete.inSottofondo());
    QTRY_VERIFY(m_server->richieste().size() > 0 &&
                m_server->richieste().last().percorso == u"/muto.html"_s);
    QElapsedTimer tempo;
    tempo.start();
    QCOMPARE(rete.scaricaPagina(u"/vespara/Corta.html"_s).trimmed(), u"abc"_s);
    QVERIFY(tempo.elapsed() < 2000);
    QVERIFY(!rete.inSottofondo());
    QTRY_VERIFY(e.pagina);
    QCOMPARE(e.pagina->esito, Rete::Esito::Annullata);
    QCOMPARE(e.pagina->testo.trimmed(), QString());

    // An operation that begins abandons it too, before its first call.
    e = {};
    rete.verificaConnessioneInSottofondo(&contesto, [&e](Rete::Esito s) { e.sonda = s; });
    QVERIFY(rete.inSottofondo());
    {
        Rete::Operazione operazione(rete);
        QVERIFY(!rete.inSottofondo());
    }
    QTRY_VERIFY(e.sonda);
    QCOMPARE(*e.sonda, Rete::Esito::Annullata);
}

void TstRete::sottofondoNonPartePerUnAltro() {
    // While the user's operation holds the network, a background call does not even start.
    Rete rete(m_server->radice());
    QObject contesto;
    Esito e;
    Rete::Operazione operazione(rete);
    m_server->svuotaRichieste();
    rete.scaricaInSottofondo(u"/vespara/Corta.html"_s, &contesto,
                             [&e](const Rete::Pagina &p) { e.pagina = p; });
    QVERIFY(!rete.inSottofondo());
    QTRY_VERIFY(e.pagina);
    QCOMPARE(e.pagina->esito, Rete::Esito::Annullata);
    QTest::qWait(50);
    QVERIFY(m_server->richieste().isEmpty());
}

void TstRete::sottofondoChiusuraEContesto() {
    m_server->setRitardo(u"/muto.html"_s, -1);
    Rete rete(m_server->radice());
    // The one who asked is gone: nobody hears the answer.
    bool sentita = false;
    {
        QObject contesto;
        rete.scaricaInSottofondo(u"/vespara/Corta.html"_s, &contesto,
                                 [&sentita](const Rete::Pagina &) { sentita = true; });
    }
    QTRY_VERIFY(!rete.inSottofondo());
    QTest::qWait(50);
    QVERIFY(!sentita);

    // The close abandons what is on its way, and nothing starts after it.
    QObject contesto;
    Esito e;
    rete.scaricaInSottofondo(u"/muto.html"_s, &contesto,
                             [&e](const Rete::Pagina &p) { e.pagina = p; });
    rete.chiudi();
    QVERIFY(!rete.inSottofondo());
    QTRY_VERIFY(e.pagina);
    QCOMPARE(e.pagina->esito, Rete::Esito::Annullata);
    rete.verificaConnessioneInSottofondo(&contesto, [&e](Rete::Esito s) { e.sonda = s; });
    QVERIFY(!rete.inSottofondo());
    QTRY_VERIFY(e.sonda);
    QCOMPARE(*e.sonda, Rete::Esito::Annullata);

    // A Rete that goes with a call on its way leaves nothing behind.
    auto altra = std::make_unique<Rete>(m_server->radice());
    altra->scaricaInSottofondo(u"/muto.html"_s, &contesto,
                               [&e](const Rete::Pagina &p) { e.pagina = p; });
    QTRY_VERIFY(m_server->richieste().size() > 0 &&
                m_server->richieste().last().percorso == u"/muto.html"_s);
    e = {};
    altra.reset();
    QTest::qWait(50);
    QVERIFY(!e.pagina);
}

QTEST_GUILESS_MAIN(TstRete)
#include "tst_rete.moc"
