// The download and the probe against a real HTTP server on loopback.
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

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
    void radiceDaUnSoloPosto();
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
    std::unique_ptr<ServerHttp> m_server;
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

void TstRete::radiceDaUnSoloPosto() {
    QTemporaryDir dir;
    Impostazioni impostazioni(dir.filePath(u"i.ini"_s));
    qunsetenv("VESPARA_SITO");
    QCOMPARE(Rete::radicePredefinita(impostazioni),
             u"http://127.0.0.1:%1"_s.arg(Rete::PortaSitoLocale));
    impostazioni.imposta(Impostazioni::RadiceSito, u"http://esempio.invalid"_s);
    QCOMPARE(Rete::radicePredefinita(impostazioni), u"http://esempio.invalid"_s);
    qputenv("VESPARA_SITO", "http://127.0.0.1:1234");
    QCOMPARE(Rete::radicePredefinita(impostazioni), u"http://127.0.0.1:1234"_s);
    qunsetenv("VESPARA_SITO");
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
