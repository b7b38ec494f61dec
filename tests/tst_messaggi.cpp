// The talk with the update site that is not an update of the data: the check for a newer
// program, the messages of the staff, the message to the staff, the release notes, the small
// network screens. Against a real HTTP server on loopback, screens used as a user would.
#include "supporto/ambienteprova.h"
#include "supporto/gestorefinestreprova.h"

#include "aggiornamenti/frmaggiornamenti.h"
#include "aggiornamenti/frmcomm.h"
#include "aggiornamenti/frminviamessaggio.h"
#include "aggiornamenti/mdiaggiornamenti.h"
#include "aggiornamenti/messaggi.h"
#include "aggiornamenti/verificaversione.h"
#include "aggiornamenti/versione.h"
#include "core/frmattendere.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/dialoghiqt.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString TitoloRete = u"Aggiornamenti Vespara"_s;
const QString Domanda = QString::fromUtf16(MdiAggiornamenti::DomandaAggiornamento);
const QString NessunaConnessione = u"Nessuna connessione Internet attiva."_s;

// The messages of the fixture site: three of them, the last with an address in its second line.
struct Sito {
    QByteArray numero = "7\r\n";
    QByteArray data = "01/09/2025-15/10/2025-20/11/2025\r\n";
    QByteArray titolo = "Benvenuti-Le quote-Novit\xe0 di stagione\r\n";
    QByteArray riga1 = "Prima riga A-Prima riga B-Prima riga C";
    QByteArray riga2 = "Seconda A-Seconda B-www.vespara.example/novita";
    QByteArray riga3 = "Terza A-Terza B-Terza C";
    QByteArray riga4 = "Quarta A-Quarta B-Quarta C";
    QByteArray staff = "Lo Staff-Lo Staff-Lo Staff di Vespara";
    QByteArray link = "http://www.vespara.example";
};

class Banco {
public:
    AmbienteProva a;
    QTemporaryDir dir;
    ServerHttp server{dir.path()};

    // With the site up, or with nothing listening where the program looks for it. The silent
    // check goes by the test's clock from then on.
    bool avvia(bool conSito = true) {
        if (conSito) {
            if (!server.avvia())
                return false;
            a.impostaSito(server.radice());
        }
        if (!a.avvia())
            return false;
        a.orologioDiProva();
        return true;
    }
    void pubblica(const Sito &s = Sito()) {
        const QString c = u"/comunicazioniVp/"_s;
        server.imposta(c + u"new.htm"_s, s.numero);
        server.imposta(c + u"data.htm"_s, s.data);
        server.imposta(c + u"titolo.htm"_s, s.titolo);
        server.imposta(c + u"riga1.htm"_s, s.riga1);
        server.imposta(c + u"riga2.htm"_s, s.riga2);
        server.imposta(c + u"riga3.htm"_s, s.riga3);
        server.imposta(c + u"riga4.htm"_s, s.riga4);
        server.imposta(c + u"staff.htm"_s, s.staff);
        server.imposta(c + u"link.htm"_s, s.link);
    }
    void versione(const QByteArray &v) {
        server.imposta(u"/vespara/AggiornamentoProdotto5.html"_s, v);
    }

    MdiPannello &pannello() const { return a.pannello(); }
    VerificaVersione &verifica() const { return a.verificaVersione(); }
    // The user back to the frame a minute after the last check, and the check done.
    void attiva() {
        a.avanzaOrologio(VerificaVersione::IntervalloMs);
        emit a.pannello().attivata();
        QVERIFY(QTest::qWaitFor([this] { return !verifica().inCorso(); }));
    }
    int verificheFatte() const {
        return int(percorsiChiesti().count(QString::fromUtf16(Versione::Pagina)));
    }
    void menu(const QString &voce) {
        QAction *azione = a.pannello().findChild<QAction *>(voce);
        QVERIFY2(azione && azione->isEnabled(), qPrintable(voce));
        azione->trigger();
    }
    QWidget *schermo(const QString &nome) const { return a.pannello().trovaSchermo(nome); }
    // The site's messages published, `visto` in new.dat, the program started and frmComm opened
    // from the menu; nullptr when any of it failed.
    QWidget *apriComunicazioni(const QString &visto) {
        pubblica();
        a.scrivi(u"new.dat"_s, {visto});
        if (!avvia())
            return nullptr;
        menu(u"mnuComunicazioni"_s);
        return schermo(u"frmComm"_s);
    }
    template <typename T> T *w(QWidget *frm, const QString &nome) const {
        T *trovato = frm ? frm->findChild<T *>(nome) : nullptr;
        if (!trovato)
            qFatal("controllo assente: %s", qPrintable(nome));
        return trovato;
    }
    void clic(QWidget *frm, const QString &nome) const {
        QTest::mouseClick(w<QPushButton>(frm, nome), Qt::LeftButton);
    }
    QString testo(QWidget *frm, const QString &nome) const { return w<QLabel>(frm, nome)->text(); }
    bool lampeggia() const { return a.pannello().findChild<QTimer *>(u"Timer1"_s)->isActive(); }
    QString suggerimento() const { return a.pannello().imgComm()->toolTip(); }
    QStringList visto() const { return FileDati::leggiRighe(a.file(u"new.dat"_s)); }
    QStringList percorsiChiesti() const {
        QStringList p;
        for (const auto &r : server.richieste())
            p.append(r.percorso);
        return p;
    }
    // Name, size and bytes of every file of the data folder.
    QStringList impronta() const {
        QStringList righe;
        const QDir d(a.cartella());
        const QStringList nomi = d.entryList(QDir::Files, QDir::Name);
        for (const QString &nome : nomi) {
            QFile f(d.filePath(nome));
            if (!f.open(QIODevice::ReadOnly))
                continue;
            righe.append(nome + u' ' + QString::fromLatin1(f.readAll().toHex().left(64)) + u' ' +
                         QString::number(f.size()));
        }
        return righe;
    }
};

} // namespace

class TstMessaggi : public QObject {
    Q_OBJECT

private slots:
    // The logic on its own.
    void confrontoVersioni_data();
    void confrontoVersioni();
    void numeroDiUnTesto_data();
    void numeroDiUnTesto();
    void pezziDiUnaPagina();
    void archivioComunicazioni();
    void archivioPagineCorte();
    void archivioOltreCapacita();

    // The check for a newer program.
    void attivazioneStessaVersione();
    void attivazioneVersioneNuova();
    void attivazioneRifiutataTorna();
    void attivazioneSenzaRientro();
    void menuVerifica_data();
    void menuVerifica();
    void menuSenzaLimite();
    void verificaCedeIlTurno();
    void avvioAspettaIlProgrammaLibero();
    void avvioSuSitoLento();
    void sitoLentoUnaSolaVerifica();
    void attivazioniDelProgramma();
    void domandaLasciataSeOccupato();

    // The messages.
    void avvioMessaggioNuovo();
    void avvioNessunMessaggioNuovo();
    void avvioSenzaFileVisto();
    void apriComunicazioniNuove();
    void apriComunicazioniNonNuove();
    void apriComunicazioniSenzaFileVisto();
    void apriComunicazioniPagineSbagliate();
    void navigazione();
    void unaSolaComunicazione();
    void rigaConIndirizzo();
    void indicatoreConSitoMuto();
    void indicatoreApreComunicazioni();
    void riprova();

    // The other screens.
    void inviaMessaggio();
    void inviaMessaggioAnnulla();
    void inviaMessaggioSitoCartella();
    void noteDiRilascio();
    void noteDiRilascioAllAvvio();
    void altriGiochiESito();
    void prelievoUltimaColonna();

    // Nothing listening: every action ends in its box, and nothing is written.
    void senzaSito();
};

void TstMessaggi::confrontoVersioni_data() {
    QTest::addColumn<QString>("pagina");
    QTest::addColumn<QString>("programma");
    QTest::addColumn<bool>("nuova");
    QTest::newRow("stessa") << u"5.0.0"_s << u"5.0.0"_s << false;
    QTest::newRow("maggiore") << u"6.0.0"_s << u"5.9.9"_s << true;
    QTest::newRow("minore piu alta ma maggiore bassa") << u"4.9.9"_s << u"5.0.0"_s << false;
    QTest::newRow("minore") << u"5.1.0"_s << u"5.0.0"_s << true;
    QTest::newRow("revisione") << u"5.0.1"_s << u"5.0.0"_s << true;
    QTest::newRow("revisione con maggiore bassa") << u"4.5.9"_s << u"5.0.0"_s << false;
    QTest::newRow("revisione con minore bassa") << u"5.0.9"_s << u"5.1.0"_s << false;
    QTest::newRow("vecchia") << u"4.0.0"_s << u"5.0.0"_s << false;
    QTest::newRow("solo maggiore") << u"6"_s << u"5.0.0"_s << true;
    QTest::newRow("due elementi") << u"5.1"_s << u"5.0.0"_s << true;
    QTest::newRow("elemento non numerico") << u"5.x.1"_s << u"5.0.0"_s << true;
    QTest::newRow("elementi oltre il terzo") << u"5.0.0.9"_s << u"5.0.0"_s << false;
    QTest::newRow("fuori dai 16 bit") << u"70000.0.0"_s << u"5.0.0"_s << false;
    QTest::newRow("vuota") << QString() << u"5.0.0"_s << false;
    QTest::newRow("pagina di errore")
        << u"<html><title>404 Not Found</title></html>"_s << u"5.0.0"_s << false;
}

void TstMessaggi::confrontoVersioni() {
    QFETCH(QString, pagina);
    QFETCH(QString, programma);
    QFETCH(bool, nuova);
    QCOMPARE(Versione::piuRecente(pagina, Versione::leggi(programma)), nuova);
}

void TstMessaggi::numeroDiUnTesto_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("numero");
    QTest::newRow("semplice") << u"7"_s << 7;
    QTest::newRow("con fine riga") << u"12\r\n"_s << 12;
    QTest::newRow("con blank") << u"  9  "_s << 9;
    QTest::newRow("cifre poi testo") << u"15abc"_s << 15;
    QTest::newRow("testo") << u"abc"_s << 0;
    QTest::newRow("vuoto") << QString() << 0;
}

void TstMessaggi::numeroDiUnTesto() {
    QFETCH(QString, testo);
    QFETCH(int, numero);
    QCOMPARE(Messaggi::numero(testo), numero);
}

void TstMessaggi::pezziDiUnaPagina() {
    QCOMPARE(Messaggi::pezzi(u"a-b-c\r\n"_s), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    // A "-" inside a text makes two pieces of it.
    QCOMPARE(Messaggi::pezzi(u"Roma-Lazio 2-1"_s), (QStringList{u"Roma"_s, u"Lazio 2"_s, u"1"_s}));
    QCOMPARE(Messaggi::pezzi(QString()), QStringList{QString()});
    QCOMPARE(Messaggi::pagina(Messaggi::Riga3), u"/comunicazioniVp/riga3.htm"_s);
}

void TstMessaggi::archivioComunicazioni() {
    ArchivioComunicazioni archivio;
    QCOMPARE(archivio.NumeroComunicazioni(), 0);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, archivio.corrente());
    Messaggi::Pagine pagine{u"d1-d2-d3"_s, u"t1-t2-t3"_s, u"a-b-c"_s,   u"a-b-c"_s,
                            u"a-b-c"_s,    u"a-b-c-d"_s,  u"s1-s2-s3"_s};
    archivio.riempi(pagine);
    QCOMPARE(archivio.NumeroComunicazioni(), 3);
    QCOMPARE(archivio.ComunicazioneCorrente(), 3);
    QCOMPARE(archivio.corrente()[Messaggi::Titolo], u"t3"_s);
    QCOMPARE(archivio.comunicazione(1)[Messaggi::Staff], u"s1"_s);
    QVERIFY(!archivio.avanti());
    QCOMPARE(archivio.ComunicazioneCorrente(), 3);
    QVERIFY(archivio.indietro());
    QVERIFY(archivio.indietro());
    QCOMPARE(archivio.corrente()[Messaggi::Data], u"d1"_s);
    QVERIFY(!archivio.indietro());
    QCOMPARE(archivio.ComunicazioneCorrente(), 1);
    QVERIFY(archivio.avanti());
    QCOMPARE(archivio.corrente()[Messaggi::Riga4], u"b"_s);
    // Filled again, it starts anew: no record is added twice.
    archivio.riempi(pagine);
    QCOMPARE(archivio.NumeroComunicazioni(), 3);
}

void TstMessaggi::archivioPagineCorte() {
    ArchivioComunicazioni archivio;
    archivio.riempi({u"d1"_s, u"t1"_s, u""_s, u""_s, u""_s, u""_s, u"s1"_s});
    QCOMPARE(archivio.NumeroComunicazioni(), 1);
    // riga2.htm has one piece less than data.htm: a fault, and the archive stays as it was.
    const Messaggi::Pagine corte{u"d1-d2"_s, u"t1-t2"_s, u"a-b"_s, u"a"_s,
                                 u"a-b"_s,   u"a-b"_s,   u"s-s"_s};
    try {
        archivio.riempi(corte);
        QFAIL("nessun errore");
    } catch (const ErroreEsecuzione &e) {
        QVERIFY(e.testo().contains(u"riga2.htm"_s));
    }
    QCOMPARE(archivio.NumeroComunicazioni(), 1);
    QCOMPARE(archivio.corrente()[Messaggi::Data], u"d1"_s);
}

void TstMessaggi::archivioOltreCapacita() {
    const auto pagine = [](int n) {
        QStringList pezzi;
        for (int i = 0; i < n; ++i)
            pezzi.append(QString::number(i));
        const QString p = pezzi.join(u'-');
        return Messaggi::Pagine{p, p, p, p, p, p, p};
    };
    ArchivioComunicazioni archivio;
    archivio.riempi(pagine(ArchivioComunicazioni::Capacita));
    QCOMPARE(archivio.NumeroComunicazioni(), 1000);
    QCOMPARE(archivio.corrente()[Messaggi::Titolo], u"999"_s);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, archivio.riempi(pagine(1001)));
    QCOMPARE(archivio.NumeroComunicazioni(), 1000);
}

void TstMessaggi::attivazioneStessaVersione() {
    Banco b;
    b.versione("5.0.0\r\n");
    QVERIFY(b.avvia());
    b.a.dialoghi.svuota();
    b.server.svuotaRichieste();
    b.attiva();
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    // It did ask the site: the probe, then the page.
    QCOMPARE(b.percorsiChiesti(), (QStringList{u"/"_s, u"/vespara/AggiornamentoProdotto5.html"_s}));
}

void TstMessaggi::attivazioneVersioneNuova() {
    Banco b;
    b.versione("5.1.0");
    QVERIFY(b.avvia());
    // The start already offered it once (the frame became active); answer this one.
    b.a.dialoghi.svuota();
    b.a.dialoghi.risposte.enqueue(true);
    b.attiva();
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Domanda);
    QCOMPARE(b.a.dialoghi.boxes.first().titolo, TitoloRete);
    QCOMPARE(b.a.dialoghi.boxes.first().testo, Domanda);
    auto *frm = qobject_cast<FrmAggiornamenti *>(b.schermo(u"frmAggiornamenti"_s));
    QVERIFY(frm);
    QCOMPARE(b.testo(frm, u"lblVersione"_s), u"Ver. 5.1.0"_s);
    QVERIFY(b.testo(frm, u"lblTitolo"_s).contains(u"E' disponibile un nuovo aggiornamento"_s));
    AmbienteProva::fotografa(&b.pannello(), u"aggiornamenti"_s);

    // While the offer is on show, coming back to the frame doesn't ask again.
    b.attiva();
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);

    // The check box follows the setting and stores what it shows.
    auto *chk = b.w<QCheckBox>(frm, u"chkMostra"_s);
    QCOMPARE(chk->text(), u"Avvisa sempre, quando ci sono aggiornamenti"_s);
    QVERIFY(chk->isChecked());
    QTest::mouseClick(chk, Qt::LeftButton);
    QCOMPARE(b.a.stato().impostazioni().valore(Impostazioni::MostraAggiornamenti).toInt(), 0);
    QTest::mouseClick(chk, Qt::LeftButton);
    QCOMPARE(b.a.stato().impostazioni().valore(Impostazioni::MostraAggiornamenti).toInt(), 1);

    bool terminato = false;
    frm->terminaProgramma = [&terminato] { terminato = true; };
    b.clic(frm, u"Command1"_s);
    QCOMPARE(b.a.dialoghi.aperti,
             QList<QUrl>{QUrl(b.server.radice() + u"/vespara/aggVespara-500.exe"_s)});
    QVERIFY(terminato);

    // A screen opened again with the setting off shows it off.
    b.a.stato().impostazioni().imposta(Impostazioni::MostraAggiornamenti, 0);
    b.clic(frm, u"Command2"_s);
    QTRY_VERIFY(!b.schermo(u"frmAggiornamenti"_s));
    b.pannello().mostraSchermo(u"frmAggiornamenti"_s);
    QVERIFY(!b.w<QCheckBox>(b.schermo(u"frmAggiornamenti"_s), u"chkMostra"_s)->isChecked());
}

void TstMessaggi::attivazioneRifiutataTorna() {
    Banco b;
    b.versione("6.0.0");
    QVERIFY(b.avvia());
    b.a.dialoghi.svuota();
    b.attiva();
    b.attiva();
    QCOMPARE(b.a.dialoghi.testi(), (QStringList{Domanda, Domanda}));
    QVERIFY(!b.schermo(u"frmAggiornamenti"_s));
}

void TstMessaggi::attivazioneSenzaRientro() {
    Banco b;
    b.versione("5.0.1");
    QVERIFY(b.avvia());
    b.a.dialoghi.svuota();
    b.server.svuotaRichieste();
    // The frame becomes active again, even a minute later, while the first check still waits for
    // the site.
    b.server.setRitardo(300);
    b.a.avanzaOrologio(VerificaVersione::IntervalloMs);
    emit b.pannello().attivata();
    QVERIFY(b.verifica().inCorso());
    QTest::qWait(50);
    b.a.avanzaOrologio(VerificaVersione::IntervalloMs);
    emit b.pannello().attivata();
    QTRY_VERIFY(!b.verifica().inCorso());
    QCOMPARE(b.a.dialoghi.testi(), QStringList{Domanda});
    QCOMPARE(b.percorsiChiesti(), (QStringList{u"/"_s, u"/vespara/AggiornamentoProdotto5.html"_s}));
}

void TstMessaggi::verificaCedeIlTurno() {
    // The check on its own, on a Rete of its own.
    QTemporaryDir dir;
    ServerHttp server(dir.path());
    QVERIFY(server.avvia());
    const QString pagina = QString::fromUtf16(Versione::Pagina);
    server.imposta(pagina, "5.0.1\r\n");
    server.setRitardo(u"/"_s, 200);
    Rete rete(server.radice());
    rete.setTempi({2000, 1000, 5000, 2000});
    bool libera = false;
    QStringList offerte;
    VerificaVersione verifica(
        rete, [&libera] { return libera; },
        [&offerte](const QString &versione) { offerte.append(versione); });
    qint64 ora = 1000;
    verifica.setOrologio([&ora] { return ora; });

    // The program is not free: no check, and its turn is not spent.
    QVERIFY(!verifica.attivazione());
    libera = true;
    QVERIFY(verifica.attivazione());
    QVERIFY(!verifica.attivazione());
    // The user's own call while the check waits for the probe: it runs, and the check gives way.
    QTRY_COMPARE(server.richieste().size(), 1);
    QCOMPARE(rete.scaricaPagina(pagina).trimmed(), u"5.0.1"_s);
    QTRY_VERIFY(!verifica.inCorso());
    QVERIFY(offerte.isEmpty());
    // A check abandoned is a check not made: the next activation makes it, at the same time.
    QVERIFY(verifica.attivazione());
    QTRY_VERIFY(!verifica.inCorso());
    QCOMPARE(offerte, QStringList{u"5.0.1"_s});
    ora += VerificaVersione::IntervalloMs - 1;
    QVERIFY(!verifica.attivazione());
    ora += 1;
    // The answer comes while the program is busy: no question, the next check asks it.
    QVERIFY(verifica.attivazione());
    libera = false;
    QTRY_VERIFY(!verifica.inCorso());
    QCOMPARE(offerte.size(), 1);
    // A page that came in part is no version.
    libera = true;
    ora += VerificaVersione::IntervalloMs;
    server.impostaADueTempi(pagina, "6.0.0", 1, -1);
    QVERIFY(verifica.attivazione());
    QTRY_VERIFY(!verifica.inCorso());
    QCOMPARE(offerte.size(), 1);
    // Offline: nothing either.
    rete.setRadice(u"http://127.0.0.1:9"_s);
    ora += VerificaVersione::IntervalloMs;
    QVERIFY(verifica.attivazione());
    QTRY_VERIFY(!verifica.inCorso());
    QCOMPARE(offerte.size(), 1);
}

void TstMessaggi::avvioAspettaIlProgrammaLibero() {
    // The start's own check is put off, not dropped, while the program is busy.
    QTemporaryDir dir;
    ServerHttp server(dir.path());
    QVERIFY(server.avvia());
    server.imposta(QString::fromUtf16(Versione::Pagina), "5.0.1");
    Rete rete(server.radice());
    bool libera = false;
    QStringList offerte;
    VerificaVersione verifica(
        rete, [&libera] { return libera; },
        [&offerte](const QString &versione) { offerte.append(versione); });
    verifica.avvio();
    QVERIFY(verifica.avvioInAttesa());
    QTest::qWait(300);
    QVERIFY(!verifica.inCorso());
    QVERIFY(server.richieste().isEmpty());
    libera = true;
    QTRY_VERIFY(!verifica.avvioInAttesa());
    QTRY_VERIFY(!verifica.inCorso());
    QCOMPARE(offerte, QStringList{u"5.0.1"_s});
    QCOMPARE(server.richieste().size(), 2);
    // Made once: the start does not make it again, nor does an activation within the minute.
    verifica.avvio();
    QVERIFY(!verifica.avvioInAttesa());
    QVERIFY(!verifica.attivazione());
    QCOMPARE(server.richieste().size(), 2);
}

void TstMessaggi::avvioSuSitoLento() {
    // At the start the messages keep a slow site busy long enough for the waiting box: the
    // check of the version comes after them, once, in silence.
    Banco b;
    b.versione("5.0.0");
    b.server.setRitardo(1200);
    bool boxDiAttesa = false;
    QTimer guarda;
    QObject::connect(&guarda, &QTimer::timeout, [&boxDiAttesa] {
        const QWidgetList finestre = QApplication::topLevelWidgets();
        for (QWidget *w : finestre)
            boxDiAttesa = boxDiAttesa || (qobject_cast<FrmAttendere *>(w) && w->isVisible());
    });
    guarda.start(20);
    QVERIFY(b.avvia());
    guarda.stop();
    QVERIFY(boxDiAttesa);
    QCOMPARE(b.verificheFatte(), 1);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QTest::qWait(200);
    QCOMPARE(b.verificheFatte(), 1);
    QVERIFY(!b.verifica().inCorso());
}

void TstMessaggi::menuSenzaLimite() {
    // The silent check has just asked the site; the menu asks again at once, under the
    // hourglass.
    Banco b;
    b.versione("5.0.0");
    QVERIFY(b.avvia());
    b.a.dialoghi.svuota();
    b.server.svuotaRichieste();
    b.attiva();
    QCOMPARE(b.verificheFatte(), 1);
    b.server.setRitardo(200);
    bool clessidra = false;
    QTimer guarda;
    QObject::connect(&guarda, &QTimer::timeout, [&clessidra] {
        clessidra = clessidra || (QGuiApplication::overrideCursor() &&
                                  QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor);
    });
    guarda.start(20);
    b.menu(u"mnuAggiornamenti"_s);
    guarda.stop();
    QVERIFY(clessidra);
    QCOMPARE(b.verificheFatte(), 2);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{u"Non risulta alcuna versione più aggiornata per Vespara."_s});
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TstMessaggi::sitoLentoUnaSolaVerifica() {
    // A site that takes more than a second for each answer, and the frame left alone after the
    // user came back to it: the check asks the site once, shows nothing and holds nothing up.
    Banco b;
    b.versione("5.0.0");
    QVERIFY(b.avvia());
    GestoreFinestreProva gestore(&b.pannello());
    b.a.dialoghi.svuota();
    b.server.svuotaRichieste();
    b.server.setRitardo(1200);
    QVERIFY(gestore.tornaAlProgramma());
    bool boxDiAttesa = false;
    bool clessidra = false;
    QElapsedTimer tempo;
    tempo.start();
    while (tempo.elapsed() < 9000) {
        QTest::qWait(25);
        const QWidgetList finestre = QApplication::topLevelWidgets();
        for (QWidget *w : finestre)
            boxDiAttesa = boxDiAttesa || (qobject_cast<FrmAttendere *>(w) && w->isVisible());
        clessidra = clessidra || QApplication::overrideCursor();
    }
    QVERIFY(!boxDiAttesa);
    QVERIFY(!clessidra);
    QCOMPARE(b.percorsiChiesti(), (QStringList{u"/"_s, u"/vespara/AggiornamentoProdotto5.html"_s}));
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QVERIFY(b.pannello().isActiveWindow());
}

void TstMessaggi::attivazioniDelProgramma() {
    // Only the user's coming back from another application starts the check, and at most once a
    // minute; the program's own windows and boxes that hand the focus back to the frame don't.
    Banco b;
    b.versione("5.0.0");
    QVERIFY(b.avvia());
    GestoreFinestreProva gestore(&b.pannello());
    b.a.dialoghi.svuota();
    b.server.svuotaRichieste();
    QVERIFY(gestore.tornaAlProgramma());
    QVERIFY(b.verifica().inCorso());
    QTRY_VERIFY(!b.verifica().inCorso());
    QCOMPARE(b.verificheFatte(), 1);

    // A minute later, a dialog of the program and a box come and go.
    b.a.avanzaOrologio(VerificaVersione::IntervalloMs);
    b.menu(u"TB(7)"_s);
    QWidget *invia = b.schermo(u"frmInviaMessaggio"_s);
    QVERIFY(invia);
    QTRY_VERIFY(invia->isActiveWindow());
    b.clic(invia, u"cmdAnnulla"_s);
    QTRY_VERIFY(b.pannello().isActiveWindow());
    QVERIFY(!b.verifica().inCorso());
    DialoghiQt dialoghi;
    dialoghi.setGenitore(&b.pannello());
    bool chiusa = false;
    QTimer::singleShot(50, &b.pannello(), [&chiusa] {
        if (auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            box->reject();
            chiusa = true;
        }
    });
    dialoghi.informazione(u"Vespara"_s, u"Prova"_s);
    QVERIFY(chiusa);
    QTRY_VERIFY(b.pannello().isActiveWindow());
    QCOMPARE(gestore.restituzioni(), 2);
    QVERIFY(!b.verifica().inCorso());
    QTest::qWait(50);
    QCOMPARE(b.verificheFatte(), 1);

    // Back from another application: the minute has passed, it asks.
    QVERIFY(gestore.tornaAlProgramma());
    QVERIFY(b.verifica().inCorso());
    QTRY_VERIFY(!b.verifica().inCorso());
    QCOMPARE(b.verificheFatte(), 2);
    // Back again within the minute: no.
    b.a.avanzaOrologio(VerificaVersione::IntervalloMs - 1);
    QVERIFY(gestore.tornaAlProgramma());
    QVERIFY(!b.verifica().inCorso());
    // And once the minute is full, yes.
    b.a.avanzaOrologio(1);
    QVERIFY(gestore.tornaAlProgramma());
    QVERIFY(b.verifica().inCorso());
    QTRY_VERIFY(!b.verifica().inCorso());
    QCOMPARE(b.verificheFatte(), 3);
    QCOMPARE(b.percorsiChiesti().count(u"/"_s), 3);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstMessaggi::domandaLasciataSeOccupato() {
    // The answer comes while a dialog of the user is up: the question is left for the next
    // check, which asks it.
    Banco b;
    b.versione("5.0.1");
    QVERIFY(b.avvia());
    b.a.dialoghi.svuota();
    b.server.svuotaRichieste();
    b.server.setRitardo(u"/vespara/AggiornamentoProdotto5.html"_s, 300);
    b.a.avanzaOrologio(VerificaVersione::IntervalloMs);
    emit b.pannello().attivata();
    QVERIFY(b.verifica().inCorso());
    QTRY_COMPARE(b.verificheFatte(), 1);
    b.menu(u"TB(7)"_s);
    QWidget *invia = b.schermo(u"frmInviaMessaggio"_s);
    QVERIFY(invia);
    QCOMPARE(QApplication::activeModalWidget(), invia);
    QVERIFY(b.verifica().inCorso());
    QTRY_VERIFY(!b.verifica().inCorso());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    b.clic(invia, u"cmdAnnulla"_s);
    QTRY_VERIFY(!b.schermo(u"frmInviaMessaggio"_s));
    b.server.setRitardo(u"/vespara/AggiornamentoProdotto5.html"_s, 0);
    b.attiva();
    QCOMPARE(b.a.dialoghi.testi(), QStringList{Domanda});
    QCOMPARE(b.verificheFatte(), 2);
}

void TstMessaggi::menuVerifica_data() {
    QTest::addColumn<bool>("conSito");
    QTest::addColumn<QByteArray>("versione");
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("testo");
    QTest::newRow("senza connessione")
        << false << QByteArray() << int(Dialoghi::Tipo::Critico)
        << u"Impossibile verificare se è presente on-line una versione più aggiornata per "
           "Vespara. Nessuna connessione Internet trovata."_s;
    QTest::newRow("stessa") << true << QByteArray("5.0.0") << int(Dialoghi::Tipo::Informazione)
                            << u"Non risulta alcuna versione più aggiornata per Vespara."_s;
    QTest::newRow("vecchia") << true << QByteArray("4.9.9") << int(Dialoghi::Tipo::Informazione)
                             << u"Non risulta alcuna versione più aggiornata per Vespara."_s;
    QTest::newRow("pagina vuota") << true << QByteArray("   \r\n")
                                  << int(Dialoghi::Tipo::Informazione)
                                  << u"Non risulta alcuna versione più aggiornata per Vespara."_s;
    QTest::newRow("nuova") << true << QByteArray("5.0.2") << int(Dialoghi::Tipo::Domanda)
                           << Domanda;
}

void TstMessaggi::menuVerifica() {
    QFETCH(bool, conSito);
    QFETCH(QByteArray, versione);
    QFETCH(int, tipo);
    QFETCH(QString, testo);
    Banco b;
    b.versione(versione);
    QVERIFY(b.avvia(conSito));
    b.a.dialoghi.svuota();
    b.menu(u"mnuAggiornamenti"_s);
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(int(b.a.dialoghi.boxes.first().tipo), tipo);
    QCOMPARE(b.a.dialoghi.boxes.first().titolo, TitoloRete);
    QCOMPARE(b.a.dialoghi.boxes.first().testo, testo);
    // The answer was No: nothing opens, and the hourglass is gone.
    QVERIFY(!b.schermo(u"frmAggiornamenti"_s));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TstMessaggi::avvioMessaggioNuovo() {
    Banco b;
    b.pubblica();
    b.a.scrivi(u"new.dat"_s, {u"6"_s});
    QVERIFY(b.avvia());
    QVERIFY(b.lampeggia());
    QCOMPARE(b.suggerimento(), u"Nuovo messaggio: Novità di stagione"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    // The start-up reads; only the screen writes.
    QCOMPARE(b.visto(), QStringList{u"6"_s});
}

void TstMessaggi::avvioNessunMessaggioNuovo() {
    Banco b;
    b.pubblica();
    b.a.scrivi(u"new.dat"_s, {u"7"_s});
    QVERIFY(b.avvia());
    QVERIFY(!b.lampeggia());
    QCOMPARE(b.suggerimento(), u"Non ci sono nuovi messaggi."_s);
    QVERIFY(!b.percorsiChiesti().contains(u"/comunicazioniVp/titolo.htm"_s));
}

void TstMessaggi::avvioSenzaFileVisto() {
    Banco b;
    Sito s;
    s.numero = "1";
    b.pubblica(s);
    b.a.rimuovi(u"new.dat"_s);
    QVERIFY(b.avvia());
    QVERIFY(b.lampeggia());
    QCOMPARE(b.suggerimento(), u"Nuovo messaggio: Novità di stagione"_s);
    QVERIFY(!QFile::exists(b.a.file(u"new.dat"_s)));
}

void TstMessaggi::apriComunicazioniNuove() {
    Banco b;
    b.pubblica();
    b.a.scrivi(u"new.dat"_s, {u"6"_s});
    QVERIFY(b.avvia());
    QVERIFY(b.lampeggia());
    b.server.svuotaRichieste();
    b.menu(u"mnuComunicazioni"_s);
    auto *frm = qobject_cast<FrmComm *>(b.schermo(u"frmComm"_s));
    QVERIFY(frm);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    // The probe, the number, the seven pages in their order, the link page.
    const QString c = u"/comunicazioniVp/"_s;
    QCOMPARE(b.percorsiChiesti(),
             (QStringList{u"/"_s, c + u"new.htm"_s, c + u"data.htm"_s, c + u"titolo.htm"_s,
                          c + u"riga1.htm"_s, c + u"riga2.htm"_s, c + u"riga3.htm"_s,
                          c + u"riga4.htm"_s, c + u"staff.htm"_s, c + u"link.htm"_s}));
    // The file holds the site's number plus 2, and the indicator is at rest.
    QCOMPARE(b.visto(), QStringList{u"9"_s});
    QVERIFY(!b.lampeggia());
    QCOMPARE(b.suggerimento(), u"Non ci sono nuovi messaggi."_s);
    QVERIFY(b.w<QLabel>(frm, u"imgNew"_s)->isVisible());
    // The last message is on show.
    QCOMPARE(frm->archivio().NumeroComunicazioni(), 3);
    QCOMPARE(frm->archivio().ComunicazioneCorrente(), 3);
    QCOMPARE(b.testo(frm, u"lblData"_s), u"20/11/2025"_s);
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Novità di stagione"_s);
    QCOMPARE(b.testo(frm, u"lblRiga1"_s), u"Prima riga C"_s);
    QCOMPARE(b.testo(frm, u"lblRiga2"_s), u"www.vespara.example/novita"_s);
    QCOMPARE(b.testo(frm, u"lblRiga3"_s), u"Terza C"_s);
    QCOMPARE(b.testo(frm, u"lblRiga4"_s), u"Quarta C"_s);
    QCOMPARE(b.testo(frm, u"lblStaff"_s), u"Lo Staff di Vespara"_s);
    QCOMPARE(b.testo(frm, u"lblLink"_s), QString());
    QVERIFY(!b.w<QPushButton>(frm, u"cmdAvanti"_s)->isVisible());
    QVERIFY(!b.w<QPushButton>(frm, u"cmdIndietro"_s)->isVisible());
    QVERIFY(!b.w<QFrame>(frm, u"picNoConnessione"_s)->isVisible());
    QCOMPARE(b.w<QPushButton>(frm, u"cmdApri"_s)->text(), u"Apri Archivio Comunicazioni"_s);
    AmbienteProva::fotografa(&b.pannello(), u"comunicazioni"_s);

    // Seen: the next start finds nothing new, though the site's number is above the old one.
    b.clic(frm, u"cmdEsci"_s);
    QTRY_VERIFY(!b.schermo(u"frmComm"_s));
    MdiAggiornamenti::controllaMessaggi(b.pannello());
    QVERIFY(!b.lampeggia());
}

void TstMessaggi::apriComunicazioniNonNuove() {
    Banco b;
    QWidget *frm = b.apriComunicazioni(u"7"_s);
    QVERIFY(frm);
    QVERIFY(!b.w<QLabel>(frm, u"imgNew"_s)->isVisible());
    QCOMPARE(b.visto(), QStringList{u"7"_s});
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Novità di stagione"_s);
}

void TstMessaggi::apriComunicazioniSenzaFileVisto() {
    Banco b;
    b.pubblica();
    b.a.rimuovi(u"new.dat"_s);
    QVERIFY(b.avvia());
    QVERIFY(b.lampeggia());
    b.menu(u"mnuComunicazioni"_s);
    // The screen needs the file: a fault of the file layer, and no screen.
    QVERIFY(!b.schermo(u"frmComm"_s));
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(b.a.dialoghi.boxes.first().testo.contains(u"new.dat"_s));
    QVERIFY(!QFile::exists(b.a.file(u"new.dat"_s)));
    QVERIFY(b.lampeggia());
}

void TstMessaggi::apriComunicazioniPagineSbagliate() {
    Banco b;
    Sito s;
    s.staff = "Lo Staff-Lo Staff";
    b.pubblica(s);
    b.a.scrivi(u"new.dat"_s, {u"6"_s});
    QVERIFY(b.avvia());
    b.menu(u"mnuComunicazioni"_s);
    QVERIFY(!b.schermo(u"frmComm"_s));
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(b.a.dialoghi.boxes.first().testo.contains(u"staff.htm"_s));
    // Nothing of the opening happened.
    QCOMPARE(b.visto(), QStringList{u"6"_s});
    QVERIFY(b.lampeggia());
    QCOMPARE(b.suggerimento(), u"Nuovo messaggio: Novità di stagione"_s);
}

void TstMessaggi::navigazione() {
    Banco b;
    QWidget *frm = b.apriComunicazioni(u"7"_s);
    QVERIFY(frm);
    const QString fine = u"Non ci sono ulteriori comunicazioni."_s;

    b.clic(frm, u"cmdApri"_s);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{
                 u"Utilizza i pulsanti in basso per visionare l'Archivio delle Comunicazione."_s});
    QVERIFY(b.w<QPushButton>(frm, u"cmdAvanti"_s)->isVisible());
    QVERIFY(b.w<QPushButton>(frm, u"cmdIndietro"_s)->isVisible());
    b.a.dialoghi.svuota();

    b.clic(frm, u"cmdAvanti"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{fine});
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Novità di stagione"_s);
    b.a.dialoghi.svuota();

    b.clic(frm, u"cmdIndietro"_s);
    QCOMPARE(b.testo(frm, u"lblData"_s), u"15/10/2025"_s);
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Le quote"_s);
    QCOMPARE(b.testo(frm, u"lblRiga2"_s), u"Seconda B"_s);
    QCOMPARE(b.testo(frm, u"lblStaff"_s), u"Lo Staff"_s);
    b.clic(frm, u"cmdIndietro"_s);
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Benvenuti"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    b.clic(frm, u"cmdIndietro"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{fine});
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Benvenuti"_s);
    b.a.dialoghi.svuota();
    b.clic(frm, u"cmdAvanti"_s);
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Le quote"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstMessaggi::unaSolaComunicazione() {
    Banco b;
    Sito s;
    s.data = "01/09/2025";
    s.titolo = "Benvenuti";
    s.riga1 = "Uno";
    s.riga2 = "Due";
    s.riga3 = "";
    s.riga4 = "";
    s.staff = "Lo Staff";
    b.pubblica(s);
    b.a.scrivi(u"new.dat"_s, {u"7"_s});
    QVERIFY(b.avvia());
    b.menu(u"mnuComunicazioni"_s);
    QWidget *frm = b.schermo(u"frmComm"_s);
    QVERIFY(frm);
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Benvenuti"_s);
    b.clic(frm, u"cmdApri"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QVERIFY(!b.w<QPushButton>(frm, u"cmdAvanti"_s)->isVisible());
    QVERIFY(!b.w<QPushButton>(frm, u"cmdIndietro"_s)->isVisible());
}

void TstMessaggi::rigaConIndirizzo() {
    Banco b;
    QWidget *frm = b.apriComunicazioni(u"7"_s);
    QVERIFY(frm);
    auto *riga2 = b.w<QLabel>(frm, u"lblRiga2"_s);
    auto *riga1 = b.w<QLabel>(frm, u"lblRiga1"_s);
    QCOMPARE(riga2->cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(riga1->cursor().shape() != Qt::PointingHandCursor);

    // A line without an address does nothing.
    QTest::mouseClick(riga1, Qt::LeftButton);
    QVERIFY(b.a.dialoghi.aperti.isEmpty());
    QTest::mouseClick(riga2, Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.aperti, QList<QUrl>{QUrl(u"http://www.vespara.example/novita"_s)});
    QVERIFY(b.a.dialoghi.boxes.isEmpty());

    // The connection gone: the box, and nothing opened.
    b.a.impostaSito(u"http://127.0.0.1:9"_s);
    QTest::mouseClick(riga2, Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.aperti.size(), 1);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{
                 u"ATTENZIONE. Non sei connesso ad Internet! Impossibile accedere alla pagina."_s});
    QCOMPARE(b.a.dialoghi.boxes.first().titolo, TitoloRete);

    // Back one message: its lines have no address, the hand goes.
    b.clic(frm, u"cmdApri"_s);
    b.clic(frm, u"cmdIndietro"_s);
    QVERIFY(riga2->cursor().shape() != Qt::PointingHandCursor);
}

void TstMessaggi::indicatoreApreComunicazioni() {
    Banco b;
    b.pubblica();
    b.a.scrivi(u"new.dat"_s, {u"6"_s});
    QVERIFY(b.avvia());
    QTest::mouseClick(b.pannello().imgComm(), Qt::LeftButton);
    QVERIFY(b.schermo(u"frmComm"_s));
    QCOMPARE(b.visto(), QStringList{u"9"_s});
    QVERIFY(!b.lampeggia());
}

void TstMessaggi::riprova() {
    Banco b;
    QWidget *frm = b.apriComunicazioni(u"7"_s);
    QVERIFY(frm);
    auto *pic = b.w<QFrame>(frm, u"picNoConnessione"_s);

    b.a.impostaSito(u"http://127.0.0.1:9"_s);
    b.clic(frm, u"cmdRiprova"_s);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{u"ATTENZIONE. Non sei connesso ad Internet! Impossibile ricevere "
                         "comunicazioni."_s});
    QVERIFY(pic->isVisible());
    QCOMPARE(b.w<QLabel>(pic, u"lblNoConnessione"_s)->text(), u"Connessione fallita!"_s);
    // The messages already read stay on show.
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Novità di stagione"_s);

    // The site is back, with one more message: the pages are read again, none twice.
    b.a.dialoghi.svuota();
    b.a.impostaSito(b.server.radice());
    Sito s;
    s.data += "-01/12/2025";
    s.titolo = "Benvenuti-Le quote-Novit\xe0 di stagione-Auguri";
    s.riga1 += "-x";
    s.riga2 += "-x";
    s.riga3 += "-x";
    s.riga4 += "-x";
    s.staff += "-Lo Staff";
    b.pubblica(s);
    b.clic(frm, u"cmdRiprova"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QVERIFY(!pic->isVisible());
    auto *comm = qobject_cast<FrmComm *>(frm);
    QCOMPARE(comm->archivio().NumeroComunicazioni(), 4);
    QCOMPARE(b.testo(frm, u"lblTitolo"_s), u"Auguri"_s);
    QCOMPARE(b.visto(), QStringList{u"7"_s});
}

void TstMessaggi::inviaMessaggio() {
    Banco b;
    QVERIFY(b.avvia());
    b.menu(u"TB(7)"_s);
    auto *frm = qobject_cast<QDialog *>(b.schermo(u"frmInviaMessaggio"_s));
    QVERIFY(frm);
    QVERIFY(frm->isModal());
    QCOMPARE(b.testo(frm, u"lblCodice"_s), u"--"_s);
    QTest::keyClicks(b.w<QLineEdit>(frm, u"txtNome"_s), u"Mario Rossi"_s);
    QTest::keyClicks(b.w<QLineEdit>(frm, u"txtMail"_s), u"mario@esempio.it"_s);
    QTest::keyClicks(b.w<QLineEdit>(frm, u"txtMessaggio"_s), u"Ciao&grazie=1+2 #3"_s);
    b.server.svuotaRichieste();
    b.clic(frm, u"cmdInvia"_s);
    // The fields as typed: "&", "=", "+" and "@" are not escaped; the blanks travel as %20 and
    // "#" as %23, since a request line can't carry them as they are.
    QCOMPARE(b.percorsiChiesti(),
             (QStringList{u"/"_s, u"/invia-messaggio-vp.asp?Codice=--&Nome=Mario%20Rossi"
                                  "&Mail=mario@esempio.it&Messaggio=Ciao&grazie=1+2%20%233"_s}));
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Invio effettuato con successo. Lo Staff ti "
                                               "risponderà il più presto possibile."_s});
    QCOMPARE(b.a.dialoghi.boxes.first().titolo, TitoloRete);
    QTRY_VERIFY(!b.schermo(u"frmInviaMessaggio"_s));
}

void TstMessaggi::inviaMessaggioAnnulla() {
    Banco b;
    QVERIFY(b.avvia());
    b.menu(u"TB(7)"_s);
    QWidget *frm = b.schermo(u"frmInviaMessaggio"_s);
    QVERIFY(frm);
    b.server.svuotaRichieste();
    b.clic(frm, u"cmdAnnulla"_s);
    QTRY_VERIFY(!b.schermo(u"frmInviaMessaggio"_s));
    QVERIFY(b.server.richieste().isEmpty());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstMessaggi::inviaMessaggioSitoCartella() {
    // The installed site is a folder: nothing would read the message, and the user is told so.
    Banco b;
    QVERIFY(b.avvia());
    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());
    b.a.impostaSito(QUrl::fromLocalFile(cartella.path()).toString());
    b.menu(u"TB(7)"_s);
    QWidget *frm = b.schermo(u"frmInviaMessaggio"_s);
    QVERIFY(frm);
    QTest::keyClicks(b.w<QLineEdit>(frm, u"txtMessaggio"_s), u"Ciao"_s);
    b.server.svuotaRichieste();
    b.clic(frm, u"cmdInvia"_s);
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QVERIFY(b.a.dialoghi.testi().constFirst().startsWith(
        u"Il sito degli aggiornamenti è una cartella di questo computer"_s));
    QVERIFY(b.server.richieste().isEmpty());
    QVERIFY(b.schermo(u"frmInviaMessaggio"_s));
    b.clic(frm, u"cmdAnnulla"_s);
    QTRY_VERIFY(!b.schermo(u"frmInviaMessaggio"_s));
}

void TstMessaggi::noteDiRilascio() {
    Banco b;
    b.server.imposta(u"/vespara/release.asp"_s,
                     "<html><body><h1>Novit\xe0 della versione 5</h1>"
                     "<p>Il pannello delle terzine pi\xf9 veloce.</p></body></html>");
    QVERIFY(b.avvia());
    QVERIFY(!b.schermo(u"frmRelease"_s));
    b.menu(u"mnuNovita"_s);
    QWidget *frm = b.schermo(u"frmRelease"_s);
    QVERIFY(frm);
    auto *browser = b.w<QTextBrowser>(frm, u"WebBrowser1"_s);
    QVERIFY(browser->isReadOnly());
    // Read once the screen is on show.
    QTRY_VERIFY(browser->toPlainText().contains(u"Novità della versione 5"_s));
    QVERIFY(browser->toPlainText().contains(u"Il pannello delle terzine più veloce."_s));
    QVERIFY(!browser->toPlainText().contains(u"<h1>"_s));
}

void TstMessaggi::noteDiRilascioAllAvvio() {
    Banco b;
    b.server.imposta(u"/vespara/release.asp"_s, "<p>Note di prova</p>");
    b.a.rimuovi(u"450.txt"_s);
    QVERIFY(b.avvia());
    QWidget *frm = b.schermo(u"frmRelease"_s);
    QVERIFY(frm);
    QTRY_VERIFY(
        b.w<QTextBrowser>(frm, u"WebBrowser1"_s)->toPlainText().contains(u"Note di prova"_s));
    QVERIFY(QFile::exists(b.a.file(u"450.txt"_s)));
}

void TstMessaggi::altriGiochiESito() {
    Banco b;
    QVERIFY(b.avvia());
    b.menu(u"mnuLotto"_s);
    QWidget *frm = b.schermo(u"frmAltriGiochi"_s);
    QVERIFY(frm);
    emit b.w<QLabel>(frm, u"lblSito"_s)->linkActivated(u"sito"_s);
    QCOMPARE(b.a.dialoghi.aperti, QList<QUrl>{QUrl(b.server.radice() + u"/"_s)});
    b.menu(u"TB(8)"_s);
    QCOMPARE(b.a.dialoghi.aperti.size(), 2);
    QCOMPARE(b.a.dialoghi.aperti.last(), QUrl(b.server.radice() + u"/vespara/"_s));
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstMessaggi::prelievoUltimaColonna() {
    Banco b;
    b.server.imposta(u"/vespara/UltimaCV.html"_s, "1X21X21X21X21X\r\n");
    QVERIFY(b.avvia());
    b.menu(u"mnuInserisci"_s);
    QWidget *frm = b.schermo(u"frmInserisci"_s);
    QVERIFY(frm);
    auto *download = b.w<QPushButton>(frm, u"imgDownload"_s);
    QVERIFY(download->isEnabled());
    const int prima = b.a.stato().NumeroColonne();
    b.clic(frm, u"imgDownload"_s);
    QCOMPARE(b.w<QLineEdit>(frm, u"txtColonna"_s)->text(), u"1X21X21X21X21X"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Inserimento effettuato."_s});
    QCOMPARE(b.a.stato().NumeroColonne(), prima + 1);
    QCOMPARE(b.a.stato().ColonneArchivio.ultima()[ArchivioColonne::ColonnaCampo],
             u"1X21X21X21X21X"_s);
}

void TstMessaggi::senzaSito() {
    Banco b;
    b.a.scrivi(u"new.dat"_s, {u"3"_s});
    QVERIFY(b.avvia(false));
    QCOMPARE(b.suggerimento(), u"Connessione non attiva."_s);
    QVERIFY(!b.lampeggia());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    const QStringList impronta = b.impronta();

    struct Atteso {
        Dialoghi::Tipo tipo;
        QString testo;
    };
    const auto ultimo = [&b](const Atteso &atteso) {
        QCOMPARE(b.a.dialoghi.boxes.size(), 1);
        QCOMPARE(b.a.dialoghi.boxes.first().tipo, atteso.tipo);
        QCOMPARE(b.a.dialoghi.boxes.first().titolo, TitoloRete);
        QCOMPARE(b.a.dialoghi.boxes.first().testo, atteso.testo);
        b.a.dialoghi.svuota();
    };

    b.attiva();
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    b.menu(u"mnuAggiornamenti"_s);
    ultimo({Dialoghi::Tipo::Critico,
            u"Impossibile verificare se è presente on-line una versione più aggiornata per "
            "Vespara. Nessuna connessione Internet trovata."_s});
    b.menu(u"mnuComunicazioni"_s);
    ultimo({Dialoghi::Tipo::Critico,
            u"Nessuna connessione Internet attiva. Impossibile continuare."_s});
    QVERIFY(!b.schermo(u"frmComm"_s));
    b.menu(u"TB(8)"_s);
    ultimo({Dialoghi::Tipo::Critico, NessunaConnessione});

    b.menu(u"mnuLotto"_s);
    emit b.w<QLabel>(b.schermo(u"frmAltriGiochi"_s), u"lblSito"_s)->linkActivated(u"sito"_s);
    ultimo({Dialoghi::Tipo::Informazione,
            u"ATTENZIONE. Non sei connesso ad Internet! Impossibile accedere al sito."_s});

    b.menu(u"TB(7)"_s);
    QWidget *invia = b.schermo(u"frmInviaMessaggio"_s);
    QTest::keyClicks(b.w<QLineEdit>(invia, u"txtMessaggio"_s), u"Ciao"_s);
    b.clic(invia, u"cmdInvia"_s);
    ultimo({Dialoghi::Tipo::Informazione,
            u"Errore. Non sei connesso ad Internet! Impossibile inviare il messaggio."_s});
    QVERIFY(b.schermo(u"frmInviaMessaggio"_s));
    b.clic(invia, u"cmdAnnulla"_s);
    QTRY_VERIFY(!b.schermo(u"frmInviaMessaggio"_s));

    b.menu(u"mnuInserisci"_s);
    QWidget *inserisci = b.schermo(u"frmInserisci"_s);
    b.clic(inserisci, u"imgDownload"_s);
    ultimo({Dialoghi::Tipo::Critico, NessunaConnessione});
    QCOMPARE(b.w<QLineEdit>(inserisci, u"txtColonna"_s)->text(), QString());

    b.menu(u"mnuNovita"_s);
    QTRY_VERIFY(b.w<QTextBrowser>(b.schermo(u"frmRelease"_s), u"WebBrowser1"_s)
                    ->toPlainText()
                    .contains(u"Impossibile leggere le novità"_s));
    QVERIFY(b.a.dialoghi.boxes.isEmpty());

    // The indicator opens the screen as it is: empty labels, nothing new.
    QTest::mouseClick(b.pannello().imgComm(), Qt::LeftButton);
    QWidget *comm = b.schermo(u"frmComm"_s);
    QVERIFY(comm);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.testo(comm, u"lblTitolo"_s), QString());
    QVERIFY(!b.w<QLabel>(comm, u"imgNew"_s)->isVisible());
    b.clic(comm, u"cmdRiprova"_s);
    ultimo({Dialoghi::Tipo::Informazione,
            u"ATTENZIONE. Non sei connesso ad Internet! Impossibile ricevere comunicazioni."_s});
    QVERIFY(b.w<QFrame>(comm, u"picNoConnessione"_s)->isVisible());

    QVERIFY(b.a.dialoghi.aperti.isEmpty());
    QCOMPARE(b.impronta(), impronta);
    QCOMPARE(b.visto(), QStringList{u"3"_s});
}

void TstMessaggi::indicatoreConSitoMuto() {
    // The site took the connection and went silent: the envelope waits once for the stall, not
    // once for each of its nine pages.
    Banco b;
    b.pubblica();
    QVERIFY(b.avvia());
    b.a.stato().rete().setTempi({2000, 300, 5000, 2000});
    b.server.setRitardo(-1);
    b.server.svuotaRichieste();
    b.a.dialoghi.svuota();
    QElapsedTimer tempo;
    tempo.start();
    QTest::mouseClick(b.pannello().imgComm(), Qt::LeftButton);
    QVERIFY2(tempo.elapsed() < 2000, qPrintable(QString::number(tempo.elapsed())));
    QCOMPARE(b.server.richieste().size(), 1);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

QTEST_MAIN(TstMessaggi)
#include "tst_messaggi.moc"
