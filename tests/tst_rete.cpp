// The download and the probe against a real HTTP server on loopback.
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"
#include "piattaforma/impostazioni.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

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

QTEST_GUILESS_MAIN(TstRete)
#include "tst_rete.moc"
