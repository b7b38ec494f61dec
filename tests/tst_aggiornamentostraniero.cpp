// The foreign update as a user runs it, against a site on loopback: the question, the probe, the
// link pages then the pages, the files of each league, the run of all twelve and of one, and the
// league table that reads what the update wrote.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "campionati/filecampionati.h"
#include "campionati/frmaggstra.h"
#include "campionati/frmclassifiche.h"
#include "campionati/leghe.h"
#include "campionati/taglioclassifica.h"
#include "core/frmattendere.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using StrumentiProva::contenuto;

namespace {

// A table of the league with its own team names: "SPAGNA 1", "SPAGNA 2", ...
FileCampionati::Classifica tabella(const Leghe::Lega &lega, int squadre) {
    FileCampionati::Classifica c;
    for (int r = 1; r <= lega.righeClassifica; ++r) {
        FileCampionati::RigaClassifica riga;
        riga[0] = QString::number(r);
        if (r <= squadre) {
            riga[1] = u"%1 %2"_s.arg(QString::fromLatin1(lega.codice).toUpper()).arg(r);
            for (int k = 2; k < 21; ++k)
                riga[k] = QString::number(50 - r + k);
        }
        riga[9] = u"-"_s;
        riga[15] = u"-"_s;
        c.righe.append(riga);
    }
    return c;
}

// The site: for each league a link page with the address of its page, and the page.
class Sito {
public:
    QTemporaryDir dir;
    ServerHttp server{dir.path()};

    Sito() {
        scrivi(u"/index.html"_s, {u"Vespara"_s});
        for (const TaglioClassifica::Voce &v : TaglioClassifica::voci()) {
            const Leghe::Lega &lega = *Leghe::perCodice(QString::fromLatin1(v.codice));
            scrivi(QString::fromLatin1(v.paginaLink), {TaglioClassifica::percorsoPagina(v)});
            scrivi(TaglioClassifica::percorsoPagina(v),
                   TaglioClassifica::pagina(tabella(lega, lega.righeClassifica - 1), u"t"_s));
        }
        if (!server.avvia())
            qFatal("server di prova non avviato");
    }
    void scrivi(const QString &percorso, const QStringList &righe) const {
        const QString file = dir.filePath(percorso.mid(1));
        QDir().mkpath(QFileInfo(file).path());
        FileDati::scriviRighe(file, righe);
    }
    QStringList percorsi() const {
        QStringList v;
        for (const auto &r : server.richieste())
            if (r.percorso != u"/"_s)
                v.append(r.percorso);
        return v;
    }
};

quint16 portaLibera() {
    QTcpServer s;
    s.listen(QHostAddress::LocalHost);
    return s.serverPort();
}

// What frmAggStra shows, each time its text changes.
QStringList *testiVisti = nullptr;
void osservaFinestra() {
    auto *timer = new QTimer(qApp);
    timer->setInterval(1);
    QObject::connect(timer, &QTimer::timeout, [] {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (auto *f = qobject_cast<FrmAggStra *>(w);
                f && f->isVisible() && testiVisti &&
                (testiVisti->isEmpty() || testiVisti->last() != f->testo())) {
                testiVisti->append(f->testo());
                if (testiVisti->size() == 1)
                    AmbienteProva::fotografa(f, u"frmAggStra"_s);
            }
    });
    timer->start();
}

} // namespace

class TstAggiornamentoStraniero : public QObject {
    Q_OBJECT

private slots:
    void tutteLeDodici();
    void unaSola();
    void rispostaNo();
    void senzaSito();
    void paginaSenzaMarcatore();
    void interruzione_data();
    void interruzione();
};

void TstAggiornamentoStraniero::tutteLeDodici() {
    Sito sito;
    AmbienteProva a;
    a.impostaSito(sito.server.radice());
    QVERIFY(a.avvia());
    sito.server.svuotaRichieste();
    a.dialoghi.risposte.enqueue(true);
    QStringList visti;
    testiVisti = &visti;
    osservaFinestra();
    a.pannello().findChild<QAction *>(u"mnuCampionatiStranieri"_s)->trigger();
    testiVisti = nullptr;
    QCOMPARE(a.dialoghi.testi(),
             QStringList{u"Procedere con l'aggiornamento dei campionati stranieri?"_s});
    // The twelve link pages in alphabetical order, then the twelve pages in the order of the run.
    QStringList attesi;
    for (const char *nome : {"Argentina", "Austria", "Belgio", "Francia", "Germania", "Grecia",
                             "Inghilterra", "Olanda", "Portogallo", "Scozia", "Spagna", "Svizzera"})
        attesi.append(u"/vespara/link%1.html"_s.arg(QString::fromLatin1(nome)));
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci())
        attesi.append(TaglioClassifica::percorsoPagina(v));
    QCOMPARE(sito.percorsi(), attesi);
    // Every league's two files, each of exactly its rows; the working files are gone.
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci()) {
        const Leghe::Lega &lega = *Leghe::perCodice(QString::fromLatin1(v.codice));
        const FileCampionati::Classifica c = FileCampionati::leggiClassifica(a.cartella(), lega);
        QVERIFY2(c.intestazione.startsWith(QString::fromLatin1(v.intestazione)),
                 qPrintable(c.intestazione));
        QCOMPARE(c.righe, tabella(lega, lega.righeClassifica - 1).righe);
        const QStringList squadre = Leghe::leggiSquadre(a.cartella(), lega);
        QCOMPARE(squadre.size(), lega.righeClassifica);
        QCOMPARE(squadre.first(), c.righe.first()[1].toUpper());
        QVERIFY(!FileDati::esiste(a.cartella(), QString::fromLatin1(v.fileLavoro)));
    }
    // The window showed each league's progress in turn.
    QStringList progressi;
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci())
        progressi.append(QString::fromLatin1(v.progresso));
    QCOMPARE(visti, progressi);
    QVERIFY(a.dialoghi.boxes.size() == 1);
    // The league tables read what was written: Germania, its 18th row empty.
    a.pannello().findChild<QAction *>(u"mnuClassGermania"_s)->trigger();
    auto *s = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(s);
    QCOMPARE(s->griglia().testo(17, 1), u"GERMANIA 17"_s);
    QCOMPARE(s->griglia().testo(18, 1), QString());
    QVERIFY(s->findChild<QLabel *>(u"lblConcorso"_s)
                ->text()
                .startsWith(u"Campionato Francia - Aggiornata al "_s));
}

void TstAggiornamentoStraniero::unaSola() {
    Sito sito;
    AmbienteProva a;
    a.impostaSito(sito.server.radice());
    QVERIFY(a.avvia());
    const QByteArray spagna = contenuto(FileDati::percorso(a.cartella(), u"Classif-Spagna.txt"_s));
    sito.server.svuotaRichieste();
    a.dialoghi.risposte.enqueue(true);
    QStringList visti;
    testiVisti = &visti;
    osservaFinestra();
    a.pannello().findChild<QAction *>(u"mnuAustria"_s)->trigger();
    testiVisti = nullptr;
    QCOMPARE(sito.percorsi(),
             (QStringList{u"/vespara/linkAustria.html"_s, u"/vespara/estere/Austria.html"_s}));
    QCOMPARE(visti, QStringList{u"Austria"_s});
    const Leghe::Lega &austria = *Leghe::perCodice(u"Austria"_s);
    QCOMPARE(FileCampionati::leggiClassifica(a.cartella(), austria).righe.at(8)[1], u"AUSTRIA 9"_s);
    // Austria: 11 lines in the table file, 10 in the team list, the last one empty.
    QCOMPARE(
        FileDati::leggiRighe(FileDati::percorso(a.cartella(), u"Classif-austria.txt"_s)).size(),
        11);
    QCOMPARE(Leghe::leggiSquadre(a.cartella(), austria).last(), QString());
    // The other leagues are left as they were.
    QCOMPARE(contenuto(FileDati::percorso(a.cartella(), u"Classif-Spagna.txt"_s)), spagna);
}

void TstAggiornamentoStraniero::rispostaNo() {
    Sito sito;
    AmbienteProva a;
    a.impostaSito(sito.server.radice());
    QVERIFY(a.avvia());
    const QByteArray prima = contenuto(FileDati::percorso(a.cartella(), u"Classif-belgio.txt"_s));
    sito.server.svuotaRichieste();
    a.dialoghi.risposte.enqueue(false);
    a.pannello().findChild<QAction *>(u"mnuBelgio"_s)->trigger();
    QCOMPARE(sito.percorsi(), QStringList());
    QCOMPARE(sito.server.richieste().size(), 0);
    QCOMPARE(contenuto(FileDati::percorso(a.cartella(), u"Classif-belgio.txt"_s)), prima);
}

void TstAggiornamentoStraniero::senzaSito() {
    AmbienteProva a;
    a.impostaSito(u"http://127.0.0.1:%1"_s.arg(portaLibera()));
    QVERIFY(a.avvia());
    a.dialoghi.svuota();
    const QByteArray prima = contenuto(FileDati::percorso(a.cartella(), u"Classif-scozia.txt"_s));
    a.dialoghi.risposte.enqueue(true);
    a.pannello().findChild<QAction *>(u"mnuCampionatiStranieri"_s)->trigger();
    QCOMPARE(a.dialoghi.boxes.size(), 2);
    QCOMPARE(a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Critico);
    QCOMPARE(a.dialoghi.boxes.last().testo,
             u"Per utilizzare questa funzione, è necessario essere collegati ad Internet."_s);
    QCOMPARE(a.dialoghi.boxes.last().titolo, Dialoghi::titoloAggiornamenti());
    QCOMPARE(contenuto(FileDati::percorso(a.cartella(), u"Classif-scozia.txt"_s)), prima);
}

void TstAggiornamentoStraniero::paginaSenzaMarcatore() {
    // A page without the marker empties the league's table: the heading and empty rows.
    Sito sito;
    sito.scrivi(u"/vespara/estere/Scozia.html"_s, {u"<HTML>Pagina spostata</HTML>"_s});
    AmbienteProva a;
    a.impostaSito(sito.server.radice());
    QVERIFY(a.avvia());
    a.dialoghi.risposte.enqueue(true);
    a.pannello().findChild<QAction *>(u"mnuScozia"_s)->trigger();
    const Leghe::Lega &scozia = *Leghe::perCodice(u"Scozia"_s);
    const FileCampionati::Classifica c = FileCampionati::leggiClassifica(a.cartella(), scozia);
    QCOMPARE(c.righe.size(), 12);
    for (const FileCampionati::RigaClassifica &r : c.righe)
        QCOMPARE(r[1], QString());
    QCOMPARE(Leghe::leggiSquadre(a.cartella(), scozia), QStringList(12));
}

void TstAggiornamentoStraniero::interruzione_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("ferma");       // the page that stops half-way
    QTest::addColumn<bool>("annulla");        // the user presses "Annulla" instead
    QTest::addColumn<QStringList>("fatte");   // the leagues refreshed before it
    QTest::addColumn<QStringList>("rimaste"); // those left as they were
    QStringList ordine;
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci())
        ordine.append(TaglioClassifica::nome(v));
    const qsizetype spagna = ordine.indexOf(u"Spagna"_s);
    QTest::newRow("tutte, la Spagna si ferma")
        << u"mnuCampionatiStranieri"_s << u"/vespara/estere/Spagna.html"_s << false
        << ordine.first(spagna) << ordine.mid(spagna);
    QTest::newRow("tutte, annulla sulla Spagna")
        << u"mnuCampionatiStranieri"_s << u"/vespara/estere/Spagna.html"_s << true
        << ordine.first(spagna) << ordine.mid(spagna);
    QTest::newRow("tutte, un link si ferma")
        << u"mnuCampionatiStranieri"_s << u"/vespara/linkGrecia.html"_s << false << QStringList()
        << ordine;
    QTest::newRow("una sola, la pagina si ferma")
        << u"mnuAustria"_s << u"/vespara/estere/Austria.html"_s << false << QStringList()
        << QStringList{u"Austria"_s};
    QTest::newRow("una sola, il link si ferma")
        << u"mnuBelgio"_s << u"/vespara/linkBelgio.html"_s << false << QStringList()
        << QStringList{u"Belgio"_s};
}

void TstAggiornamentoStraniero::interruzione() {
    // A page that stops half-way (or "Annulla" while it comes) stops the run: the leagues before
    // it are refreshed, that league and every one after it keep their files byte for byte, and
    // the user is told which is which.
    QFETCH(QString, voce);
    QFETCH(QString, ferma);
    QFETCH(bool, annulla);
    QFETCH(QStringList, fatte);
    QFETCH(QStringList, rimaste);
    Sito sito;
    const QString file = sito.dir.filePath(ferma.mid(1));
    const QByteArray pagina = contenuto(file);
    sito.server.impostaADueTempi(ferma, pagina, int(pagina.size() / 2), -1);
    AmbienteProva a;
    a.impostaSito(sito.server.radice());
    QVERIFY(a.avvia());
    a.stato().rete().setTempi(annulla ? Rete::Tempi{2000, 20000, 30000, 2000}
                                      : Rete::Tempi{2000, 300, 5000, 2000});
    a.dialoghi.svuota();
    const auto prima = StrumentiProva::impronte(a.cartella());
    if (annulla) {
        // The user waits for the waiting box, then presses its button.
        auto *attesa = new QTimer;
        attesa->setInterval(30);
        QObject::connect(attesa, &QTimer::timeout, [attesa] {
            for (QWidget *w : QApplication::topLevelWidgets())
                if (auto *box = qobject_cast<FrmAttendere *>(w); box && box->isVisible()) {
                    attesa->stop();
                    attesa->deleteLater();
                    QTest::mouseClick(box->findChild<QPushButton *>(u"cmdAnnulla"_s),
                                      Qt::LeftButton);
                    return;
                }
        });
        attesa->start();
    }
    a.dialoghi.risposte.enqueue(true);
    a.pannello().findChild<QAction *>(voce)->trigger();

    QStringList attesi;
    for (const TaglioClassifica::Voce &v : TaglioClassifica::voci()) {
        if (!fatte.contains(TaglioClassifica::nome(v)))
            continue;
        const Leghe::Lega &lega = *Leghe::perCodice(QString::fromLatin1(v.codice));
        attesi << FileDati::percorso(a.cartella(), Leghe::fileClassifica(lega)).section(u'/', -1)
               << FileDati::percorso(a.cartella(), Leghe::fileSquadre(lega)).section(u'/', -1);
    }
    attesi.sort();
    QCOMPARE(StrumentiProva::cambiati(prima, StrumentiProva::impronte(a.cartella())), attesi);
    // The site was asked nothing past the page that stopped.
    const QStringList chiesti = sito.percorsi();
    QCOMPARE(chiesti.last(), ferma);
    QCOMPARE(a.dialoghi.boxes.size(), 2);
    const DialoghiProva::Box box = a.dialoghi.boxes.last();
    QCOMPARE(box.tipo, Dialoghi::Tipo::Avviso);
    QCOMPARE(box.titolo, Dialoghi::titoloAggiornamenti());
    QVERIFY2(box.testo.contains(
                 annulla ? u"L'aggiornamento è stato annullato."_s
                         : u"La pagina %1 del sito non è arrivata per intero."_s.arg(ferma)),
             qPrintable(box.testo));
    const auto elenco = [](const QStringList &v) {
        return v.isEmpty() ? u"nessuno"_s : v.join(u", "_s);
    };
    QVERIFY2(box.testo.contains(u"Aggiornati: %1.\nLasciati come erano: %2."_s.arg(
                 elenco(fatte), elenco(rimaste))),
             qPrintable(box.testo));
    QCOMPARE(QApplication::overrideCursor(), nullptr);
    for (QWidget *w : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<FrmAggStra *>(w) || !w->isVisible());
}

QTEST_MAIN(TstAggiornamentoStraniero)
#include "tst_aggiornamentostraniero.moc"
