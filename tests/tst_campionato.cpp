// The calendar screen as a user meets it: the rounds of Serie A and Serie B, the Lega Pro options
// that are not shown, the warning of a missing data file, and the refresh of the seven calendars
// from a site on loopback.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "campionati/aggiornamentocalendari.h"
#include "campionati/filecampionati.h"
#include "campionati/frmcampionato.h"
#include "campionati/leghe.h"
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
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::clic;
using StrumentiProva::controllo;

namespace {

const Leghe::Lega &lega(const char *codice) {
    return *Leghe::perCodice(QString::fromLatin1(codice));
}

FrmCampionato *apri(AmbienteProva &a) {
    a.pannello().findChild<QAction *>(u"mnuVisCampionato"_s)->trigger();
    return qobject_cast<FrmCampionato *>(a.pannello().trovaSchermo(u"frmCampionato"_s));
}

// A calendar text of `giornate` rounds of `partite` matches, named by round and match.
QStringList testo(int giornate, int partite, const QString &nome) {
    QStringList righe;
    for (int g = 1; g <= giornate; ++g) {
        righe << u"*"_s << u"%1 giornata %2"_s.arg(nome).arg(g);
        for (int p = 1; p <= partite; ++p)
            righe << u"%1 CASA%2-OSPITE%3"_s.arg(nome).arg(g).arg(p) + u"1"_s;
    }
    return righe;
}

quint16 portaLibera() {
    QTcpServer s;
    s.listen(QHostAddress::LocalHost);
    return s.serverPort();
}

} // namespace

class TstCampionato : public QObject {
    Q_OBJECT

private slots:
    void serieAConsegnata();
    void serieBELegaPro();
    void datoMancante();
    void partitaDiUnCarattere();
    void aggiornaCalendari();
    void secondaDivisioneNonDisponibile();
    void senzaSito();
    void interruzione_data();
    void interruzione();
};

void TstCampionato::serieAConsegnata() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    QCoreApplication::processEvents();
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QCOMPARE(s->windowTitle(), u" Il Calendario del  Campionato 2010 - 2011"_s);
    const FileCampionati::Calendario c = FileCampionati::leggiCalendario(a.cartella(), lega("A"));
    auto *lst = controllo<QListWidget>(s, u"lstDate"_s);
    QCOMPARE(lst->count(), 19);
    QCOMPARE(lst->item(0)->text(), c[0][0]);
    QVERIFY(c[0][0].startsWith(u"1ª Giornata - "_s));
    const Griglia &g = s->griglia();
    QCOMPARE(g.larghezzaColonna(1), 7000);
    QCOMPARE(g.altezzaRiga(1), 300);
    QCOMPARE(g.altezzaRiga(2), 400);
    QCOMPARE(g.testo(10, 0), u"10"_s);
    // The matches of round 1, each without its last character.
    QCOMPARE(g.testo(1, 1), c[0][1].chopped(1));
    QCOMPARE(g.testo(10, 1), c[0][10].chopped(1));
    QCOMPARE(g.testo(11, 1), QString());
    // A round picked in the list.
    lst->setCurrentRow(3);
    QCOMPARE(controllo<QLabel>(s, u"lblGiornata"_s)->text(), c[3][0]);
    QCOMPARE(g.testo(1, 1), c[3][1].chopped(1));
    AmbienteProva::fotografa(&a.pannello(), u"frmCampionato"_s);
}

void TstCampionato::serieBELegaPro() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    clic(controllo<QRadioButton>(s, u"optB"_s));
    auto *lst = controllo<QListWidget>(s, u"lstDate"_s);
    QCOMPARE(lst->count(), 21);
    const FileCampionati::Calendario c = FileCampionati::leggiCalendario(a.cartella(), lega("B"));
    lst->setCurrentRow(1);
    QCOMPARE(s->griglia().testo(10, 1), c[1][10].chopped(1));
    // A Lega Pro option says so, and the list stays on Serie B.
    clic(controllo<QRadioButton>(s, u"opt1A"_s));
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Non ancora disponibile."_s});
    QCOMPARE(a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Informazione);
    QCOMPARE(lst->count(), 21);
    QVERIFY(controllo<QRadioButton>(s, u"optB"_s)->isChecked());
    QCOMPARE(s->griglia().testo(10, 1), c[1][10].chopped(1));
}

void TstCampionato::datoMancante() {
    AmbienteProva a;
    a.rimuovi(Leghe::fileCalendarioDati(lega("C2B")));
    a.rimuovi(Leghe::fileCalendarioDati(lega("A")));
    QVERIFY(a.avvia());
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    QTRY_COMPARE(a.dialoghi.testi(), QStringList{QString::fromUtf8(FrmCampionato::DatiMancanti)});
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    // Serie A without its file: empty lines in the list and the grid.
    auto *lst = controllo<QListWidget>(s, u"lstDate"_s);
    QCOMPARE(lst->count(), 19);
    QCOMPARE(lst->item(0)->text(), QString());
    QCOMPARE(s->griglia().testo(1, 1), QString());
}

void TstCampionato::partitaDiUnCarattere() {
    AmbienteProva a;
    QStringList t = testo(19, 10, u"A"_s);
    t[3] = u"X"_s; // round 1, match 2: one character
    a.scrivi(Leghe::fileCalendarioTesto(lega("A")), t);
    QVERIFY(a.avvia());
    FileCampionati::ricreaCalendario(a.cartella(), lega("A"));
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    QCOMPARE(s->griglia().testo(1, 1), u"A CASA1-OSPITE1"_s);
    QCOMPARE(s->griglia().testo(2, 1), QString());
}

void TstCampionato::aggiornaCalendari() {
    QTemporaryDir dir;
    ServerHttp server(dir.path());
    const auto pagina = [&dir](const Leghe::Lega &l, const QStringList &righe) {
        const QString file = dir.filePath(AggiornamentoCalendari::pagina(l).mid(1));
        QDir().mkpath(QFileInfo(file).path());
        FileDati::scriviRighe(file, righe);
    };
    FileDati::scriviRighe(dir.filePath(u"index.html"_s), {u"Vespara"_s});
    for (const Leghe::Lega &l : Leghe::italiane())
        pagina(l, testo(l.giornate, l.stringheGiornata - 1, QString::fromLatin1(l.codice)));
    QVERIFY(server.avvia());
    AmbienteProva a;
    a.impostaSito(server.radice());
    QVERIFY(a.avvia());
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    server.svuotaRichieste();
    a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), QStringList{QString::fromUtf8(AggiornamentoCalendari::Domanda)});
    // The three of the second division first, then all seven in order.
    QStringList attesi;
    for (const char *c : {"C2A", "C2B", "C2C"})
        attesi.append(AggiornamentoCalendari::pagina(lega(c)));
    for (const Leghe::Lega &l : Leghe::italiane())
        attesi.append(AggiornamentoCalendari::pagina(l));
    QStringList chiesti;
    for (const auto &r : server.richieste())
        if (r.percorso != u"/"_s)
            chiesti.append(r.percorso);
    QCOMPARE(chiesti, attesi);
    for (const Leghe::Lega &l : Leghe::italiane()) {
        const FileCampionati::Calendario c = FileCampionati::leggiCalendario(a.cartella(), l);
        QCOMPARE(c.last().last(), u"%1 CASA%2-OSPITE%3"_s.arg(QString::fromLatin1(l.codice))
                                          .arg(l.giornate)
                                          .arg(l.stringheGiornata - 1) +
                                      u"1"_s);
    }
    QVERIFY(!controllo<QWidget>(s, u"Barra"_s)->isVisible());
    // The list shows the new Serie A.
    QCOMPARE(controllo<QListWidget>(s, u"lstDate"_s)->item(0)->text(), u"A giornata 1"_s);
}

void TstCampionato::secondaDivisioneNonDisponibile() {
    QTemporaryDir dir;
    ServerHttp server(dir.path());
    FileDati::scriviRighe(dir.filePath(u"index.html"_s), {u"Vespara"_s});
    // The page of C2B comes back empty: the user is asked, and stops there.
    server.imposta(AggiornamentoCalendari::pagina(lega("C2B")), QByteArray());
    QVERIFY(server.avvia());
    AmbienteProva a;
    a.impostaSito(server.radice());
    QVERIFY(a.avvia());
    const QByteArray prima =
        StrumentiProva::contenuto(a.file(Leghe::fileCalendarioDati(lega("A"))));
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    a.dialoghi.risposte.enqueue(true);
    a.dialoghi.risposte.enqueue(false);
    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(),
             (QStringList{QString::fromUtf8(AggiornamentoCalendari::Domanda),
                          QString::fromUtf8(AggiornamentoCalendari::DomandaSecondaDivisione)}));
    QCOMPARE(StrumentiProva::contenuto(a.file(Leghe::fileCalendarioDati(lega("A")))), prima);
}

void TstCampionato::senzaSito() {
    AmbienteProva a;
    a.impostaSito(u"http://127.0.0.1:%1"_s.arg(portaLibera()));
    QVERIFY(a.avvia());
    a.dialoghi.svuota();
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.boxes.size(), 2);
    QCOMPARE(a.dialoghi.boxes.last().testo,
             u"Per utilizzare questa funzione, è necessario essere collegati ad Internet."_s);
    QCOMPARE(a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Critico);
}

void TstCampionato::interruzione_data() {
    QTest::addColumn<QString>("ferma"); // the series whose page stops half-way
    QTest::addColumn<QStringList>("fatte");
    QTest::newRow("Serie B") << u"B"_s << QStringList{u"A"_s};
    QTest::newRow("C2B, nel controllo della seconda divisione") << u"C2B"_s << QStringList();
    QTest::newRow("C1B") << u"C1B"_s << QStringList{u"A"_s, u"B"_s, u"C1A"_s};
}

void TstCampionato::interruzione() {
    // A calendar page that stops half-way stops the refresh: the series before it are refreshed,
    // that series and the ones after it keep their text and data files byte for byte.
    QFETCH(QString, ferma);
    QFETCH(QStringList, fatte);
    QTemporaryDir dir;
    ServerHttp server(dir.path());
    FileDati::scriviRighe(dir.filePath(u"index.html"_s), {u"Vespara"_s});
    for (const Leghe::Lega &l : Leghe::italiane()) {
        const QString file = dir.filePath(AggiornamentoCalendari::pagina(l).mid(1));
        QDir().mkpath(QFileInfo(file).path());
        FileDati::scriviRighe(
            file, testo(l.giornate, l.stringheGiornata - 1, QString::fromLatin1(l.codice)));
    }
    const QString pagina = AggiornamentoCalendari::pagina(lega(ferma.toLatin1().constData()));
    const QByteArray corpo = StrumentiProva::contenuto(dir.filePath(pagina.mid(1)));
    server.impostaADueTempi(pagina, corpo, int(corpo.size() / 2), -1);
    QVERIFY(server.avvia());
    AmbienteProva a;
    a.impostaSito(server.radice());
    QVERIFY(a.avvia());
    a.stato().rete().setTempi(Rete::Tempi{2000, 300, 5000, 2000});
    FrmCampionato *s = apri(a);
    QVERIFY(s);
    a.dialoghi.svuota();
    const auto prima = StrumentiProva::impronte(a.cartella());
    a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(controllo<QPushButton>(s, u"imgDownload"_s), Qt::LeftButton);

    QStringList attesi;
    QStringList nomiFatti;
    QStringList nomiRimasti;
    for (const Leghe::Lega &l : Leghe::italiane()) {
        const QString nome = QString::fromLatin1(l.nome);
        if (!fatte.contains(QString::fromLatin1(l.codice))) {
            nomiRimasti.append(nome);
            continue;
        }
        nomiFatti.append(nome);
        for (const QString &f : {Leghe::fileCalendarioTesto(l), Leghe::fileCalendarioDati(l)})
            attesi.append(FileDati::percorso(a.cartella(), f).section(u'/', -1));
    }
    attesi.sort();
    QCOMPARE(StrumentiProva::cambiati(prima, StrumentiProva::impronte(a.cartella())), attesi);
    QCOMPARE(a.dialoghi.boxes.size(), 2);
    const DialoghiProva::Box box = a.dialoghi.boxes.last();
    QCOMPARE(box.tipo, Dialoghi::Tipo::Avviso);
    QCOMPARE(box.titolo, Dialoghi::titoloAggiornamenti());
    QVERIFY2(box.testo.contains(u"La pagina %1 del sito non è arrivata per intero."_s.arg(pagina)),
             qPrintable(box.testo));
    QVERIFY2(box.testo.endsWith(u"Aggiornati: %1.\nLasciati come erano: %2."_s.arg(
                 nomiFatti.isEmpty() ? u"nessuno"_s : nomiFatti.join(u", "_s),
                 nomiRimasti.join(u", "_s))),
             qPrintable(box.testo));
    QVERIFY(!controllo<QWidget>(s, u"Barra"_s)->isVisible());
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

QTEST_MAIN(TstCampionato)
#include "tst_campionato.moc"
