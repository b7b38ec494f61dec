// The frame as a user meets it: start-up on a data folder, the dashboard, the warnings of a small
// screen, the season reminder, the menu and the registry of screens.
#include "supporto/ambienteprova.h"

#include "archivio/scritturearchivio.h"
#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "core/frmattendere.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "cornice/frmguida.h"
#include "cornice/mdiavvio.h"
#include "cornice/mdipannello.h"
#include "cornice/mdiprogramma.h"
#include "cornice/mdiscorrimento.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/serverhttp.h"
#include "piattaforma/tabellaarchivio.h"
#include "supporto/archiviosintetico.h"
#include "supporto/strumentiprova.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

QString testoEtichetta(MdiPannello &p, const QString &nome) {
    auto *l = p.findChild<QLabel *>(nome);
    return l ? l->text() : u"<assente: %1>"_s.arg(nome);
}

// Answers frmAvviso as a user would, when it comes up; counts how often it did.
struct RispostaAvviso {
    int volte = 0;
    QString risoluzione;
    QString messaggio;
    QTimer timer;
    RispostaAvviso() {
        timer.setInterval(20);
        QObject::connect(&timer, &QTimer::timeout, [this] {
            for (QWidget *w : QApplication::topLevelWidgets()) {
                if (w->objectName() != u"frmAvviso"_s || !w->isVisible())
                    continue;
                ++volte;
                risoluzione = w->findChild<QLabel *>(u"lblRis"_s)->text();
                messaggio = w->findChild<QLabel *>(u"lblMsg"_s)->text();
                QTest::mouseClick(w->findChild<QPushButton *>(u"cmdProcedi"_s), Qt::LeftButton);
            }
        });
        timer.start();
    }
};

} // namespace

class TstCornice : public QObject {
    Q_OBJECT

private slots:
    void cruscottoDellUltimaColonna();
    void avvisiDelloSchermo_data();
    void avvisiDelloSchermo();
    void promemoriaStagioneUnaVolta();
    void fileDelleNoteDiRilascio();
    void primoAvvioRiempieLaCartella();
    void squadreStraniereFinoAlPrimoErrore();
    void archivioOltreLaCapacita();
    void archivioIlleggibileAllAvvio_data();
    void archivioIlleggibileAllAvvio();
    void cartellaNuovaOgniVoceSiApre();
    void laCorniceNonAspettaIlSito();
    void tastiDellaGuidaEDellUscita();
    void geometriaRicordata();
    void chiusoDalSuoPulsanteSenzaCornice_data();
    void chiusoDalSuoPulsanteSenzaCornice();
    void didascalieDelMenu_data();
    void didascalieDelMenu();
    void vociAbilitate_data();
    void vociAbilitate();
    void guidaECredits();
    void registroDegliSchermi();
    void guastoInUnEventoDiventaUnBox();
    void indicatoreDeiMessaggi();
    void attesaDisabilitaLaCornice();
    void centratura();
};

void TstCornice::cruscottoDellUltimaColonna() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // The last line of the delivered archive, read here on its own.
    const QStringList righe = FileDati::leggiRighe(a.file(u"Archivio.txt"_s));
    const QStringList campi = righe.last().split(u' ');
    QCOMPARE(a.stato().NumeroColonne(), righe.size());
    const QString colonna = campi.at(2);
    QString attesa;
    for (const QChar c : colonna)
        attesa += QString(c) + u"   "_s;
    attesa.chop(3);
    QCOMPARE(testoEtichetta(a.pannello(), u"lblColonna"_s), attesa);
    QCOMPARE(testoEtichetta(a.pannello(), u"lblData"_s),
             u"Anno %1  n.%2"_s.arg(campi.at(0), campi.at(1)));
    QCOMPARE(testoEtichetta(a.pannello(), u"lblDati9"_s),
             u"Formula del 9: "_s + Colonna::formulaNove(colonna));
    QCOMPARE(testoEtichetta(a.pannello(), u"lblDati"_s),
             u"Formula del 14: %1-%2-%3     Int.%4  Simm.%5  Paral.%6"_s.arg(
                 campi.at(3), campi.at(4), campi.at(5), campi.at(6), campi.at(7), campi.at(8)));
    QCOMPARE(a.pannello().windowTitle(), u"Vespara! ® | Versione 5.0.0 | Stagione 2025-2026"_s);
    // The test site is a port where nothing listens: the message check found no connection.
    QCOMPARE(a.pannello().findChild<QPushButton *>(u"imgComm"_s)->toolTip(),
             u"Connessione non attiva."_s);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    // The panel of the signs is the first child screen.
    const auto finestre = a.pannello().area()->subWindowList();
    QCOMPARE(finestre.size(), 1);
    QCOMPARE(MdiScorrimento::schermoDi(finestre.first())->objectName(), u"frmPannelloSegni"_s);
    QCOMPARE(a.stato().BaseColonne9, 205);
    QVERIFY(a.stato().RicalcolaColonne9);
    QCOMPARE(a.stato().Formule.size(), 47);
    QCOMPARE(a.stato().Squadre.value(u"A"_s).size(), 20);
    AmbienteProva::fotografa(&a.pannello(), u"cornice"_s);
}

void TstCornice::avvisiDelloSchermo_data() {
    QTest::addColumn<int>("larghezza");
    QTest::addColumn<int>("altezza");
    QTest::addColumn<bool>("primoAvviso");
    QTest::addColumn<bool>("frmAvviso");
    QTest::newRow("1024: nessun avviso") << 1024 << 768 << false << false;
    QTest::newRow("1023: solo il primo") << 1023 << 768 << true << false;
    QTest::newRow("1000: solo il primo") << 1000 << 700 << true << false;
    QTest::newRow("800: entrambi") << 800 << 600 << true << true;
    QTest::newRow("640: entrambi") << 640 << 480 << true << true;
    QTest::newRow("1920: nessun avviso") << 1920 << 1080 << false << false;
}

void TstCornice::avvisiDelloSchermo() {
    QFETCH(int, larghezza);
    QFETCH(int, altezza);
    QFETCH(bool, primoAvviso);
    QFETCH(bool, frmAvviso);
    AmbienteProva a(QSize(larghezza, altezza));
    RispostaAvviso risposta;
    QVERIFY(a.avvia());
    const QStringList attesi =
        primoAvviso ? QStringList{QString::fromUtf8(MdiAvvio::AvvisoRisoluzione)} : QStringList{};
    QCOMPARE(a.dialoghi.testi(), attesi);
    if (primoAvviso)
        QVERIFY(a.dialoghi.testi().first().contains(u"delprogramma"_s));
    QCOMPARE(risposta.volte, frmAvviso ? 1 : 0);
    if (frmAvviso) {
        QCOMPARE(risposta.risoluzione, u"La tua Risoluzione è %1x%2"_s.arg(larghezza).arg(altezza));
        QVERIFY(risposta.messaggio.startsWith(u"La risoluzione del tuo schermo è insufficiente"_s));
    }
    // The start goes on in every case.
    QCOMPARE(a.pannello().area()->subWindowList().size(), 1);
}

void TstCornice::promemoriaStagioneUnaVolta() {
    AmbienteProva a;
    a.rimuovi(u"year.txt"_s);
    QVERIFY(a.avvia());
    QCOMPARE(a.dialoghi.testi(), QStringList{QString::fromUtf8(MdiAvvio::PromemoriaStagione)});
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    QCOMPARE(FileDati::leggiRighe(a.file(u"anno.txt"_s)), QStringList{u"2011-2012"_s});
    QVERIFY(QFile::exists(a.file(u"year.txt"_s)));
    // The caption was set before the reminder rewrote the season.
    QVERIFY(a.pannello().windowTitle().endsWith(u"Stagione 2025-2026"_s));

    a.dialoghi.svuota();
    QVERIFY(a.avvia());
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QVERIFY(a.pannello().windowTitle().endsWith(u"Stagione 2011-2012"_s));
}

void TstCornice::fileDelleNoteDiRilascio() {
    AmbienteProva a;
    a.scrivi(u"420.txt"_s, {u"x"_s});
    a.scrivi(u"421.TXT"_s, {u"x"_s});
    a.rimuovi(u"450.txt"_s);
    QVERIFY(a.avvia());
    QVERIFY(!QFile::exists(a.file(u"420.txt"_s)));
    QVERIFY(!QFile::exists(a.file(u"421.txt"_s)));
    QVERIFY(QFile::exists(a.file(u"450.txt"_s)));
}

void TstCornice::primoAvvioRiempieLaCartella() {
    AmbienteProva a;
    const QStringList consegnati = QDir(AmbienteProva::datiConsegnati()).entryList(QDir::Files);
    for (const QString &nome : consegnati)
        a.rimuovi(nome);
    // A file the user already had stays as it is.
    a.scrivi(u"serieinghilterra.txt"_s, {u"ARSENAL"_s});
    QVERIFY(a.avvia());
    for (const QString &nome : consegnati) {
        if (nome == u"serieInghilterra.txt"_s)
            continue;
        QFile copia(a.file(nome));
        QFile originale(QDir(AmbienteProva::datiConsegnati()).filePath(nome));
        QVERIFY2(copia.open(QIODevice::ReadOnly) && originale.open(QIODevice::ReadOnly),
                 qPrintable(nome));
        QCOMPARE(copia.readAll(), originale.readAll());
    }
    QVERIFY(QFile::exists(a.file(u"archivio.db"_s)));
    QCOMPARE(a.stato().Squadre.value(u"Inghilterra"_s), QStringList{u"ARSENAL"_s});
    QCOMPARE(FileDati::leggiRighe(FileDati::percorso(a.cartella(), u"serieInghilterra.txt"_s)),
             QStringList{u"ARSENAL"_s});
    // The new table was filled from the archive file.
    QCOMPARE(a.stato().NumeroColonne(), FileDati::leggiRighe(a.file(u"Archivio.txt"_s)).size());
}

void TstCornice::squadreStraniereFinoAlPrimoErrore() {
    AmbienteProva a;
    a.scrivi(u"serieInghilterra.txt"_s, {u"ARSENAL"_s, u"CHELSEA"_s});
    a.scrivi(u"serieSpagna.txt"_s, {u"BARCELONA"_s});
    // serieGermania.txt is missing: the lists after it stay empty, though Francia is there.
    a.rimuovi(u"serieGermania.txt"_s);
    a.scrivi(u"serieFrancia.txt"_s, {u"LILLE"_s});
    QVERIFY(a.avvia());
    QCOMPARE(a.stato().Squadre.value(u"Inghilterra"_s).size(), 2);
    QCOMPARE(a.stato().Squadre.value(u"Spagna"_s), QStringList{u"BARCELONA"_s});
    QVERIFY(a.stato().Squadre.value(u"Germania"_s).isEmpty());
    QVERIFY(a.stato().Squadre.value(u"Francia"_s).isEmpty());
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstCornice::archivioOltreLaCapacita() {
    AmbienteProva a;
    a.scrivi(u"Archivio.txt"_s, archivioSintetico(7001));
    // The program starts all the same, without an archive, so that the repair can be run.
    QVERIFY(a.avvia());
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"7000"_s));
    QCOMPARE(a.stato().NumeroColonne(), 0);
    QVERIFY(!a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    QVERIFY(a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text().isEmpty());
    QVERIFY(a.pannello().findChild<QAction *>(u"mnuSoloArchivi"_s)->isEnabled());
}

// Every entry of the menu, with the caption it has always shown.
void TstCornice::didascalieDelMenu_data() {
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("didascalia");
    QTest::addColumn<QString>("menu");
    const auto riga = [](const char *nome, const char *didascalia, const char *menu) {
        QTest::newRow(nome) << QString::fromUtf8(nome) << QString::fromUtf8(didascalia)
                            << QString::fromUtf8(menu);
    };
    riga("mnuGestione", "Gestione archivi", "");
    riga("mnuArchivio", "Visualizza archivio", "mnuGestione");
    riga("mnuInserisci", "Inserisci colonna", "mnuGestione");
    riga("mnuModifica", "Modifica archivio", "mnuGestione");
    riga("mnuSchedina", "Pronostici && Schedine", "");
    riga("mnuProssimoConcorso", "Schedina infrasettimanale", "mnuSchedina");
    riga("mnuSchedinaSabato", "Schedina del Sabato", "mnuSchedina");
    riga("mnuSchedinaDomenica", "Schedina della Domenica", "mnuSchedina");
    riga("mnuAggManual", "Aggiorna manualmente", "mnuSchedina");
    riga("mnuQuote", "Le Quote", "mnuSchedina");
    riga("mnuFunzioni", "Funzioni", "");
    riga("mnuPannelloSegni", "Le Terzine e La cinquina", "mnuFunzioni");
    riga("mnuCinquineMai", "Le Cinquine mai uscite", "mnuFunzioni");
    riga("mnuDettagliCV", "Dettagli ultima CV", "mnuFunzioni");
    riga("mnuAnalisi9", "Analisi del \"9\"", "mnuFunzioni");
    riga("mnuStatSegni", "Statistica dei 14 segni", "mnuFunzioni");
    riga("mnuFormule", "Formule derivate", "mnuFunzioni");
    riga("mnuCampionato", "Campionato", "");
    riga("mnuVisCampionato", "Visualizza campionato", "mnuCampionato");
    riga("mnuGestisciSquadre", "Gestisci squadre", "mnuCampionato");
    riga("mnuAggiornaCampionato", "Aggiorna campionato 2011-2012", "mnuCampionato");
    riga("mnuAggiornaCampionatiStranieri", "Aggiorna Campionati Stranieri", "mnuCampionato");
    riga("mnuInternet", "Aggiorna da Internet", "");
    riga("mnuTutto", "Tutto", "mnuInternet");
    riga("mnuCampionatoItaliano", "Campionato italiano", "mnuTutto");
    riga("mnuCampionatiStranieri", "Campionati stranieri", "mnuTutto");
    riga("mnuPartiStraniere", "Parti", "mnuInternet");
    riga("mnuSoloArchivi", "Solo Archivi (Aggiorna/Ripara)", "mnuPartiStraniere");
    riga("mnuSoloClassifiche", "Solo Classifiche", "mnuPartiStraniere");
    riga("mnuTutte", "Campionato italiano", "mnuSoloClassifiche");
    riga("mnuParti", "Straniere per parti", "mnuSoloClassifiche");
    riga("mnuInghilterra", "Inghilterra", "mnuParti");
    riga("mnuSpagna", "Spagna", "mnuParti");
    riga("mnuGermania", "Germania", "mnuParti");
    riga("mnuFrancia", "Francia", "mnuParti");
    riga("mnuOlanda", "Olanda", "mnuParti");
    riga("mnuScozia", "Scozia", "mnuParti");
    riga("mnuPortogallo", "Portogallo", "mnuParti");
    riga("mnuSvizzera", "Svizzera", "mnuParti");
    riga("mnuAustria", "Austria", "mnuParti");
    riga("mnuGrecia", "Grecia", "mnuParti");
    riga("mnuBelgio", "Belgio", "mnuParti");
    riga("mnuArgentinaAp", "Argentina Ap", "mnuParti");
    riga("mnuSoloSchedinaMontepremi", "Solo Schedine e Picchetti", "mnuPartiStraniere");
    riga("mnuAggQuote", "Quote", "mnuPartiStraniere");
    riga("mnuClassifiche", "Classifiche", "");
    riga("mnuSerieA", "Serie A", "mnuClassifiche");
    riga("mnuSerieB", "Serie B", "mnuClassifiche");
    riga("mnuSerieC1A", "Serie C1A", "mnuClassifiche");
    riga("mnuSerieC1B", "Serie C1B", "mnuClassifiche");
    riga("mnuSerieC2A", "Serie C2A", "mnuClassifiche");
    riga("mnuSerieC2B", "Serie C2B", "mnuClassifiche");
    riga("mnuSerieC2C", "Serie C2C", "mnuClassifiche");
    riga("mnuClassInghilterra", "Inghilterra", "mnuClassifiche");
    riga("mnuClassSpagna", "Spagna", "mnuClassifiche");
    riga("mnuClassGermania", "Germania", "mnuClassifiche");
    riga("mnuClassFrancia", "Francia", "mnuClassifiche");
    riga("mnuClassOlanda", "Olanda", "mnuClassifiche");
    riga("mnuClassScozia", "Scozia", "mnuClassifiche");
    riga("mnuClassPortogallo", "Portogallo", "mnuClassifiche");
    riga("mnuClassSvizzera", "Svizzera", "mnuClassifiche");
    riga("mnuClassAustria", "Austria", "mnuClassifiche");
    riga("mnuClassGrecia", "Grecia", "mnuClassifiche");
    riga("mnuClassBelgio", "Belgio", "mnuClassifiche");
    riga("mnuClassArgentinaAp", "Argentina Ap", "mnuClassifiche");
    riga("mnuFinestre", "Finestre", "");
    riga("mnuSovrapponi", "Sovrapponi", "mnuFinestre");
    riga("mnuAffianca", "Affianca", "mnuFinestre");
    riga("mnuChiudiTutte", "Chiudi tutte", "mnuFinestre");
    riga("mnuInfo", "Info", "");
    riga("mnuCredits", "Credits", "mnuInfo");
    riga("mnuInformazioni", "Informazioni su Vespara", "mnuInfo");
    riga("mnuAggiornamenti", "Verifica Aggiornamenti", "mnuInfo");
    riga("mnuComunicazioni", "Comunicazioni OnLine", "mnuInfo");
    riga("mnuGuida", "Guida in linea", "mnuInfo");
    riga("mnuNovita", "Le Novità di questa Versione", "mnuInfo");
    riga("mnuLotto", "Altri Giochi", "mnuInfo");
    riga("mnuImpostazioni", "Impostazioni…", "mnuInfo");
    riga("mnuEsci", "Esci", "");
}

void TstCornice::didascalieDelMenu() {
    QFETCH(QString, nome);
    QFETCH(QString, didascalia);
    QFETCH(QString, menu);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QAction *azione = a.pannello().findChild<QAction *>(nome);
    QVERIFY2(azione, qPrintable(nome));
    // The caption may carry the mark of its access key; what the menu shows is the same.
    QCOMPARE(StrumentiProva::testoMostrato(azione->text()),
             StrumentiProva::testoMostrato(didascalia));
    // Where the entry stands: under its submenu, or on the menu bar itself.
    QWidget *contenitore = menu.isEmpty() ? static_cast<QWidget *>(a.pannello().menuBar())
                                          : a.pannello().findChild<QMenu *>(menu);
    QVERIFY2(contenitore, qPrintable(menu));
    QVERIFY(contenitore->actions().contains(azione));
}

void TstCornice::vociAbilitate_data() {
    QTest::addColumn<QString>("nome");
    QTest::addColumn<bool>("abilitata");
    for (const char *nome : {"mnuPannelloSegni",
                             "mnuAnalisi9",
                             "mnuInserisci",
                             "mnuModifica",
                             "mnuArchivio",
                             "mnuCredits",
                             "mnuInformazioni",
                             "mnuGuida",
                             "mnuEsci",
                             "mnuComunicazioni",
                             "mnuCampionatoItaliano",
                             "mnuSoloArchivi",
                             "mnuAggQuote",
                             "mnuAggManual",
                             "mnuQuote",
                             "mnuNovita",
                             "mnuImpostazioni",
                             "mnuSchedinaDomenica",
                             "mnuSchedinaSabato",
                             "mnuProssimoConcorso",
                             "TB(1)",
                             "TB(2)",
                             "TB(3)",
                             "TB(4)",
                             "TB(7)",
                             "TB(8)",
                             "TB(9)",
                             "TB(10)",
                             "mnuSistema",
                             "TB(11)"})
        QTest::newRow(nome) << QString::fromUtf8(nome) << true;
}

void TstCornice::vociAbilitate() {
    QFETCH(QString, nome);
    QFETCH(bool, abilitata);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QAction *azione = a.pannello().findChild<QAction *>(nome);
    QVERIFY2(azione, qPrintable(nome));
    QCOMPARE(azione->isEnabled(), abilitata);
}

void TstCornice::guidaECredits() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // The guide opens in a window of its own, on the page of the screen in use: at the start,
    // the signs panel.
    a.pannello().findChild<QAction *>(u"mnuGuida"_s)->trigger();
    FrmGuida *guida = a.pannello().finestraGuida();
    QVERIFY(guida);
    QVERIFY(guida->isVisible());
    QCOMPARE(guida->paginaCorrente(), u"pannellosegni.html"_s);
    guida->close();
    a.pannello().chiudiSchermi();
    QCoreApplication::processEvents();
    a.pannello().findChild<QAction *>(u"TB(9)"_s)->trigger();
    QCOMPARE(a.pannello().finestraGuida(), guida);
    QVERIFY(guida->isVisible());
    QCOMPARE(guida->paginaCorrente(), u"cornice.html"_s);
    QVERIFY(a.dialoghi.aperti.isEmpty());
    guida->close();

    a.pannello().findChild<QAction *>(u"mnuInformazioni"_s)->trigger();
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().titolo, u"Informazioni su Vespara"_s);
    for (const QString &parte :
         {QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()),
          u"GPL-3.0-or-later"_s, u"Non è l'archivio ufficiale dei concorsi del Totocalcio."_s})
        QVERIFY2(a.dialoghi.boxes.first().testo.contains(parte), qPrintable(parte));
    a.dialoghi.svuota();
    a.pannello().findChild<QAction *>(u"mnuCredits"_s)->trigger();
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"GPL-3.0-or-later"_s));
}

void TstCornice::registroDegliSchermi() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    QWidget *primo = p.trovaSchermo(u"frmPannelloSegni"_s);
    QVERIFY(primo);
    // Opening it again shows the same screen.
    p.findChild<QAction *>(u"mnuPannelloSegni"_s)->trigger();
    QCOMPARE(p.trovaSchermo(u"frmPannelloSegni"_s), primo);
    QCOMPARE(p.area()->subWindowList().size(), 1);

    // After a change of the archive: every screen closed, the panel opened anew, at once.
    QPointer<QWidget> vecchio(primo);
    riapriDopoModificaArchivio(a.stato(), true);
    QWidget *nuovo = p.trovaSchermo(u"frmPannelloSegni"_s);
    QVERIFY(nuovo);
    QVERIFY(nuovo != primo);
    QCOMPARE(p.area()->subWindowList().size(), 1);
    QTRY_VERIFY(vecchio.isNull());
}

void TstCornice::guastoInUnEventoDiventaUnBox() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // An entry whose event meets a run-time fault: the box, and the program goes on.
    a.pannello().registraAzione(
        u"mnuLotto"_s, [] { throw ErroreEsecuzione(u"Il file Prova.txt è troppo corto."_s); });
    QAction *voce = a.pannello().findChild<QAction *>(u"mnuLotto"_s);
    QVERIFY(voce->isEnabled());
    voce->trigger();
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QCOMPARE(a.dialoghi.boxes.first().testo, u"Il file Prova.txt è troppo corto."_s);
    QVERIFY(a.pannello().isVisible());
    // The panel of a too small archive is such a fault too.
    a.scrivi(u"Archivio.txt"_s, archivioSintetico(100));
    a.dialoghi.svuota();
    QVERIFY(a.avvia());
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"205"_s));
    QVERIFY(a.pannello().area()->subWindowList().isEmpty());
    QCOMPARE(a.stato().NumeroColonne(), 100);
}

void TstCornice::indicatoreDeiMessaggi() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *img = a.pannello().findChild<QPushButton *>(u"imgComm"_s);
    auto *timer = a.pannello().findChild<QTimer *>(u"Timer1"_s);
    QVERIFY(img && timer);
    QVERIFY(!timer->isActive());
    const auto immagine = [&](const QString &nome) {
        return a.pannello().findChild<QLabel *>(nome)->pixmap().toImage();
    };
    const auto mostrata = [&] { return img->icon().pixmap(32, 32).toImage(); };
    QCOMPARE(mostrata(), immagine(u"pic0"_s));
    a.pannello().avviaIndicatore();
    QVERIFY(timer->isActive());
    // The ticks show pic1, pic2, pic3 in turn, and again from pic1.
    for (const QString &nome : {u"pic1"_s, u"pic2"_s, u"pic3"_s, u"pic1"_s})
        QTRY_VERIFY_WITH_TIMEOUT(mostrata() == immagine(nome), 3000);
    a.pannello().fermaIndicatore();
    QVERIFY(!timer->isActive());
    QCOMPARE(mostrata(), immagine(u"pic0"_s));
}

void TstCornice::attesaDisabilitaLaCornice() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    {
        FrmAttendere attesa(&a.pannello());
        attesa.setIntervallo(0, 10);
        attesa.show();
        QVERIFY(!a.pannello().isEnabled());
        QVERIFY(attesa.isEnabled());
        QCOMPARE(attesa.windowTitle(), u"ATTENDERE. PREGO."_s);
        attesa.setValore(4);
        QCOMPARE(attesa.findChild<QProgressBar *>(u"bar"_s)->value(), 4);
        attesa.close();
        QVERIFY(a.pannello().isEnabled());
        attesa.show();
        QVERIFY(!a.pannello().isEnabled());
    }
    // Destroyed while up: the frame is usable again all the same.
    QVERIFY(a.pannello().isEnabled());
}

void TstCornice::centratura() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *schermo = a.pannello().trovaSchermo(u"frmPannelloSegni"_s);
    QWidget *finestra = MdiStile::finestraDi(schermo);
    QVERIFY(qobject_cast<QMdiSubWindow *>(finestra));
    finestra->move(0, 0);
    a.pannello().centraSchermo(schermo);
    const QSize area = a.pannello().area()->viewport()->size();
    QVERIFY(qAbs(finestra->x() - (area.width() - finestra->width()) / 2) <= 1);
    QVERIFY(finestra->y() >= 0);

    QWidget contenitore;
    contenitore.resize(400, 300);
    auto *controllo = new QLabel(u"prova"_s, &contenitore);
    controllo->resize(100, 50);
    MdiPannello::centraControllo(controllo);
    QCOMPARE(controllo->pos(), QPoint(150, 125));
}

QTEST_MAIN(TstCornice)
void TstCornice::archivioIlleggibileAllAvvio_data() {
    QTest::addColumn<bool>("conCopia");
    QTest::addColumn<bool>("risposta");
    QTest::newRow("copia precedente ripristinata") << true << true;
    QTest::newRow("copia precedente rifiutata") << true << false;
    QTest::newRow("senza copia precedente") << false << false;
}

void TstCornice::archivioIlleggibileAllAvvio() {
    QFETCH(bool, conCopia);
    QFETCH(bool, risposta);
    AmbienteProva a;
    const QStringList buono = archivioSintetico(300);
    QStringList guasto = archivioSintetico(301);
    guasto[2] = u"2011 3 1X21X21X21X21X"_s; // a line edited by hand: three fields
    a.scrivi(u"Archivio.txt"_s, guasto);
    const QByteArray byteGuasto = StrumentiProva::contenuto(a.file(u"Archivio.txt"_s));
    if (conCopia)
        a.scrivi(u"ArchivioPrecedente.txt"_s, buono);
    a.dialoghi.risposte.enqueue(risposta);
    // Locked out no more: the program starts in every case.
    QVERIFY(a.avvia());
    QVERIFY(!a.dialoghi.boxes.isEmpty());
    const DialoghiProva::Box primo = a.dialoghi.boxes.first();
    QVERIFY2(primo.testo.contains(u"riga 3"_s), qPrintable(primo.testo));
    QCOMPARE(primo.tipo, conCopia ? Dialoghi::Tipo::Domanda : Dialoghi::Tipo::Critico);
    if (risposta) {
        QCOMPARE(a.dialoghi.boxes.size(), 1);
        QCOMPARE(a.stato().NumeroColonne(), 300);
        QCOMPARE(FileDati::leggiRighe(a.file(u"Archivio.txt"_s)), buono);
        QCOMPARE(StrumentiProva::contenuto(a.file(u"ArchivioDanneggiato.txt"_s)), byteGuasto);
        QCOMPARE(a.stato().tabellaArchivio().conteggio(), 300);
        QVERIFY(a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
        return;
    }
    // Without the archive: nothing written, the dashboard empty, and the repair at hand.
    QCOMPARE(a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(a.dialoghi.boxes.last().testo.contains(u"Solo Archivi (Aggiorna/Ripara)"_s));
    QCOMPARE(a.stato().NumeroColonne(), 0);
    QCOMPARE(StrumentiProva::contenuto(a.file(u"Archivio.txt"_s)), byteGuasto);
    QVERIFY(a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text().isEmpty());

    // The repair from the site brings the archive back.
    QTemporaryDir sito;
    ScrittureArchivio::scriviPaginaArchivio(sito.filePath(u"ColonneTotocalcio.htm"_s),
                                            ArchivioColonne::daRighe(buono));
    QDir(sito.path()).mkdir(u"AggiornamentiVp"_s);
    QFile::rename(sito.filePath(u"ColonneTotocalcio.htm"_s),
                  sito.filePath(u"AggiornamentiVp/ColonneTotocalcio.htm"_s));
    ServerHttp server(sito.path());
    QVERIFY(server.avvia());
    a.impostaSito(server.radice());
    a.dialoghi.svuota();
    a.pannello().findChild<QAction *>(u"mnuSoloArchivi"_s)->trigger();
    QWidget *frm = a.pannello().trovaSchermo(u"frmAggiornaSoloArchivi"_s);
    QVERIFY(frm);
    QTest::mouseClick(frm->findChild<QPushButton *>(u"cmdAggiorna"_s), Qt::LeftButton);
    QCOMPARE(a.stato().NumeroColonne(), 300);
    QCOMPARE(a.stato().tabellaArchivio().conteggio(), 300);
    QVERIFY(a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    QVERIFY(!a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text().isEmpty());
    // The unreadable file is kept, and the previous generation (if any) is not replaced by it.
    QCOMPARE(StrumentiProva::contenuto(a.file(u"ArchivioDanneggiato.txt"_s)), byteGuasto);
    if (conCopia)
        QCOMPARE(FileDati::leggiRighe(a.file(u"ArchivioPrecedente.txt"_s)), buono);
}

void TstCornice::cartellaNuovaOgniVoceSiApre() {
    // A data folder filled on the first start, the site up with its messages: no menu entry, no
    // toolbar button and not the envelope ends in a file's error.
    AmbienteProva a;
    const QStringList nomi = QDir(a.cartella()).entryList(QDir::Files);
    for (const QString &nome : nomi)
        if (nome != u"impostazioni.ini"_s)
            a.rimuovi(nome);
    QTemporaryDir sito;
    QDir(sito.path()).mkdir(u"comunicazioniVp"_s);
    const auto pagina = [&sito](const QString &nome, const QByteArray &testo) {
        QVERIFY(StrumentiProva::scriviGrezzo(sito.filePath(u"comunicazioniVp/"_s + nome), testo));
    };
    pagina(u"new.htm"_s, "3");
    for (const QString &nome : {u"data.htm"_s, u"titolo.htm"_s, u"riga1.htm"_s, u"riga2.htm"_s,
                                u"riga3.htm"_s, u"riga4.htm"_s, u"staff.htm"_s})
        pagina(nome, "a-b-c");
    pagina(u"link.htm"_s, "");
    ServerHttp server(sito.path());
    QVERIFY(server.avvia());
    a.impostaSito(server.radice());
    QVERIFY(a.avvia());
    QVERIFY(QFile::exists(a.file(u"new.dat"_s)));
    QTRY_VERIFY(a.pannello().imgComm()->toolTip().startsWith(u"Nuovo messaggio"_s));

    QStringList voci;
    const QList<QAction *> azioni = a.pannello().findChildren<QAction *>();
    for (QAction *azione : azioni) {
        const QString nome = azione->objectName();
        if (!azione->isEnabled() || azione->menu() || nome.isEmpty() || nome == u"mnuEsci"_s ||
            nome == u"TB(10)"_s)
            continue;
        voci.append(nome);
        azione->trigger();
        QTest::qWait(5);
    }
    QVERIFY(voci.contains(u"mnuComunicazioni"_s));
    QTest::mouseClick(a.pannello().imgComm(), Qt::LeftButton);
    QTest::qWait(20);
    for (const DialoghiProva::Box &box : std::as_const(a.dialoghi.boxes))
        QVERIFY2(!box.testo.contains(u"file"_s, Qt::CaseInsensitive), qPrintable(box.testo));
    QVERIFY(a.pannello().trovaSchermo(u"frmComm"_s));
}

void TstCornice::laCorniceNonAspettaIlSito() {
    // A site that takes the connection and never answers: the frame is up at once, and the
    // messages and the release notes are asked for only then.
    AmbienteProva a;
    QTemporaryDir sito;
    ServerHttp server(sito.path());
    server.setRitardo(-1);
    QVERIFY(server.avvia());
    a.impostaSito(server.radice());
    a.rimuovi(u"450.txt"_s);
    MdiProgramma programma(a.cartella(), a.dialoghi, a.impostazioni(), a.schermo);
    QElapsedTimer tempo;
    tempo.start();
    QVERIFY(programma.avvia());
    QVERIFY(tempo.elapsed() < 1000);
    QVERIFY(server.richieste().isEmpty());
    // Once in the event loop the program asks; closing the frame ends the wait at once.
    qsizetype chieste = -1;
    QTimer::singleShot(300, &programma.pannello(), [&] {
        chieste = server.richieste().size();
        programma.pannello().close();
    });
    programma.pannello().show();
    tempo.restart();
    QTRY_VERIFY(chieste >= 0);
    QVERIFY(chieste > 0);
    QVERIFY2(tempo.elapsed() < 2000, qPrintable(QString::number(tempo.elapsed())));
    QCOMPARE(programma.pannello().imgComm()->toolTip(), u"Connessione non attiva."_s);
    QVERIFY(!programma.pannello().trovaSchermo(u"frmRelease"_s));
}

void TstCornice::chiusoDalSuoPulsanteSenzaCornice_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QString>("pulsante");
    QTest::newRow("inserimento, ANNULLA")
        << u"mnuInserisci"_s << u"frmInserisci"_s << u"Command1"_s;
    QTest::newRow("gestione, X") << u"mnuModifica"_s << u"frmGestione"_s << u"lblEsci"_s;
    QTest::newRow("novità, Chiudi") << u"mnuNovita"_s << u"frmRelease"_s << u"cmdChiudi"_s;
    QTest::newRow("aggiornamento, Chiudi")
        << u"mnuCampionatoItaliano"_s << u"frmInternet"_s << u"cmdChiudi"_s;
}

void TstCornice::chiusoDalSuoPulsanteSenzaCornice() {
    // A screen closed by its own button takes its sub-window along: no empty frame is left.
    QFETCH(QString, voce);
    QFETCH(QString, schermo);
    QFETCH(QString, pulsante);
    AmbienteProva a;
    QVERIFY(a.avvia());
    const qsizetype prima = a.pannello().area()->subWindowList().size();
    a.pannello().findChild<QAction *>(voce)->trigger();
    QWidget *frm = a.pannello().trovaSchermo(schermo);
    QVERIFY(frm);
    QCOMPARE(a.pannello().area()->subWindowList().size(), prima + 1);
    QTest::mouseClick(frm->findChild<QPushButton *>(pulsante), Qt::LeftButton);
    QTRY_COMPARE(a.pannello().area()->subWindowList().size(), prima);
    QVERIFY(!a.pannello().trovaSchermo(schermo));
}

void TstCornice::tastiDellaGuidaEDellUscita() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QSignalSpy chiusa(&a.pannello(), &MdiPannello::chiusa);
    QTest::keyClick(&a.pannello(), Qt::Key_F1);
    QVERIFY(a.pannello().finestraGuida());
    QVERIFY(a.pannello().finestraGuida()->isVisible());
    QCOMPARE(chiusa.size(), 0);
    QTest::keyClick(&a.pannello(), Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(chiusa.size(), 1);
    QVERIFY(!a.pannello().isVisible());
    // The guide goes with the program.
    QVERIFY(!a.pannello().finestraGuida()->isVisible());
}

void TstCornice::geometriaRicordata() {
    AmbienteProva a;
    {
        MdiProgramma primo(a.cartella(), a.dialoghi, a.impostazioni(), a.schermo);
        QVERIFY(primo.avvia());
        primo.pannello().mostra();
        // The first time the frame opens maximised.
        QVERIFY(primo.pannello().isMaximized());
        primo.pannello().showNormal();
        primo.pannello().setGeometry(60, 50, 1200, 760);
        QTRY_COMPARE(primo.pannello().size(), QSize(1200, 760));
        // Kept as it changes: closing the frame saves nothing.
        QTRY_COMPARE(a.impostazioni().valore(Impostazioni::GeometriaCornice).toByteArray(),
                     primo.pannello().saveGeometry());
        primo.pannello().close();
    }
    MdiProgramma secondo(a.cartella(), a.dialoghi, a.impostazioni(), a.schermo);
    QVERIFY(secondo.avvia());
    secondo.pannello().mostra();
    QVERIFY(!secondo.pannello().isMaximized());
    QTRY_COMPARE(secondo.pannello().size(), QSize(1200, 760));
    secondo.pannello().close();
}

#include "tst_cornice.moc"
