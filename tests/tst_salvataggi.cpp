// Saving files: the name proposed from a title, the folder remembered from the last save, the note
// "File salvato in ..." and the status bar of the frame that shows it.
#include "supporto/ambienteprova.h"

#include "cornice/mdipannello.h"
#include "cornice/mdiprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/dialoghiqt.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// The folder where a save is proposed when none is remembered.
QString cartellaIniziale() {
    const QString documenti = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return !documenti.isEmpty() && QFileInfo(documenti).isDir() ? documenti : QDir::homePath();
}

} // namespace

class TstSalvataggi : public QObject {
    Q_OBJECT

private slots:
    void nomeFile_data();
    void nomeFile();
    void propostaFile_data();
    void propostaFile();
    void fileSalvato();
    void avvisiSulDesktop();
    void barraDiStatoDellaCornice();
    void corniceChiusaNonRiceveAvvisi();
};

void TstSalvataggi::nomeFile_data() {
    QTest::addColumn<QString>("titolo");
    QTest::addColumn<QString>("suffisso");
    QTest::addColumn<QString>("nome");

    QTest::newRow("titolo con la data") << u"Riepilogo Formule, alla data 23/11/2026"_s << u"xlsx"_s
                                        << u"Riepilogo Formule, alla data 23-11-2026.xlsx"_s;
    QTest::newRow("caratteri vietati")
        << u"a\\b:c*d?e\"f<g>h|i"_s << u"xlsx"_s << u"a-b-c-d-e-f-g-h-i.xlsx"_s;
    QTest::newRow("punto e spazi ai bordi") << u"  Statistiche delle 27 Terzine.  "_s << u"pdf"_s
                                            << u"Statistiche delle 27 Terzine.pdf"_s;
    QTest::newRow("punto iniziale") << u".nascosto"_s << u"pdf"_s << u"nascosto.pdf"_s;
    QTest::newRow("tabulazioni e righe")
        << u"riga\tuno\r\ndue"_s << u"xlsx"_s << u"riga uno due.xlsx"_s;
    QTest::newRow("spazi ripetuti") << u"Le   Cinquine"_s << u"pdf"_s << u"Le Cinquine.pdf"_s;
    QTest::newRow("accenti") << u"Lunedì è già qui"_s << u"xlsx"_s << u"Lunedì è già qui.xlsx"_s;
    QTest::newRow("vuoto") << QString() << u"xlsx"_s << u"Vespara.xlsx"_s;
    QTest::newRow("solo punti e spazi") << u" . .. "_s << u"xlsx"_s << u"Vespara.xlsx"_s;
    QTest::newRow("solo barre") << u"//"_s << u"xlsx"_s << u"--.xlsx"_s;
    QTest::newRow("nome di dispositivo") << u"CON"_s << u"xlsx"_s << u"CON_.xlsx"_s;
    QTest::newRow("nome di dispositivo minuscolo") << u"lpt1"_s << u"pdf"_s << u"lpt1_.pdf"_s;
    QTest::newRow("nome di dispositivo con un punto")
        << u"aux.dati"_s << u"xlsx"_s << u"aux_.dati.xlsx"_s;
    QTest::newRow("non è un dispositivo") << u"COM10"_s << u"xlsx"_s << u"COM10.xlsx"_s;
    QTest::newRow("troppo lungo") << QString(150, u'a') << u"xlsx"_s
                                  << QString(100, u'a') + u".xlsx"_s;
    QTest::newRow("tagliato su uno spazio") << QString(99, u'a') + u" "_s + QString(10, u'b')
                                            << u"pdf"_s << QString(99, u'a') + u".pdf"_s;
}

void TstSalvataggi::nomeFile() {
    QFETCH(QString, titolo);
    QFETCH(QString, suffisso);
    QFETCH(QString, nome);
    QCOMPARE(Dialoghi::nomeFile(titolo, suffisso), nome);
}

void TstSalvataggi::propostaFile_data() {
    QTest::addColumn<QString>("ricordata"); // relative to a scratch folder; "" for none
    QTest::addColumn<bool>("esiste");
    QTest::addColumn<bool>("inQuella");

    QTest::newRow("nessuna cartella ricordata") << QString() << false << false;
    QTest::newRow("cartella ricordata") << u"ultima"_s << true << true;
    QTest::newRow("cartella ricordata che non c'è più") << u"sparita"_s << false << false;
    QTest::newRow("un file al posto della cartella") << u"file"_s << false << false;
}

void TstSalvataggi::propostaFile() {
    QFETCH(QString, ricordata);
    QFETCH(bool, esiste);
    QFETCH(bool, inQuella);
    QTemporaryDir dir;
    Impostazioni impostazioni(dir.filePath(u"i.ini"_s));
    const QString cartella = dir.filePath(ricordata);
    if (!ricordata.isEmpty()) {
        if (esiste)
            QVERIFY(QDir().mkpath(cartella));
        else if (ricordata == u"file"_s)
            QVERIFY(QFile(cartella).open(QIODevice::WriteOnly));
        impostazioni.imposta(Impostazioni::CartellaSalvataggi, cartella);
    }
    const QString nome = u"Situazione delle 27 Terzine, alla data 01-02-2024.xlsx"_s;
    const QString proposta = Dialoghi::propostaFile(impostazioni, nome);
    QCOMPARE(proposta, QDir(inQuella ? cartella : cartellaIniziale()).filePath(nome));

    // The save dialog of the program opens on that proposal.
    DialoghiProva dialoghi;
    dialoghi.fileDaSalvare.enqueue(dir.filePath(u"scelto.xlsx"_s));
    QCOMPARE(dialoghi.salvaFile(impostazioni, u"Titolo"_s, u"Filtro (*.xlsx)"_s, nome),
             dir.filePath(u"scelto.xlsx"_s));
    QCOMPARE(dialoghi.ultimaPropostaSalvataggio, proposta);
    QCOMPARE(dialoghi.ultimoTitoloSalvataggio, u"Titolo"_s);
    QCOMPARE(dialoghi.ultimoFiltroSalvataggio, u"Filtro (*.xlsx)"_s);
    // Choosing is not saving: the folder is remembered only once the file is written.
    QCOMPARE(impostazioni.valore(Impostazioni::CartellaSalvataggi).toString(),
             ricordata.isEmpty() ? QString() : cartella);
}

void TstSalvataggi::fileSalvato() {
    QTemporaryDir dir;
    Impostazioni impostazioni(dir.filePath(u"i.ini"_s));
    DialoghiProva dialoghi;
    const QString file = dir.filePath(u"uscita/tabella.xlsx"_s);
    dialoghi.fileSalvato(impostazioni, file);
    QCOMPARE(dialoghi.avvisiStato,
             QStringList{u"File salvato in "_s + QDir::toNativeSeparators(file)});
    QCOMPARE(Dialoghi::testoFileSalvato(file), dialoghi.avvisiStato.first());
    QCOMPARE(impostazioni.valore(Impostazioni::CartellaSalvataggi).toString(),
             dir.filePath(u"uscita"_s));
    QVERIFY(dialoghi.boxes.isEmpty());
    dialoghi.svuota();
    QCOMPARE(dialoghi.avvisiStato, QStringList());
}

void TstSalvataggi::avvisiSulDesktop() {
    DialoghiQt dialoghi;
    // Without a handler the note goes nowhere.
    dialoghi.avvisoStato(u"nessuno"_s);
    QStringList ricevuti;
    dialoghi.setGestoreStato([&ricevuti](const QString &testo) { ricevuti.append(testo); });
    dialoghi.avvisoStato(u"File salvato in /tmp/a.xlsx"_s);
    QCOMPARE(ricevuti, QStringList{u"File salvato in /tmp/a.xlsx"_s});
    // Once the program is closing, nothing more is said.
    dialoghi.silenzia();
    dialoghi.avvisoStato(u"tardi"_s);
    QCOMPARE(ricevuti, QStringList{u"File salvato in /tmp/a.xlsx"_s});
}

void TstSalvataggi::barraDiStatoDellaCornice() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &cornice = a.pannello();
    auto *barra = cornice.findChild<QStatusBar *>(u"BarraStato"_s);
    QVERIFY(barra);
    QCOMPARE(barra, cornice.statusBar());
    QVERIFY(barra->isVisible());
    auto *lblAvviso = barra->findChild<QLabel *>(u"lblAvviso"_s);
    QVERIFY(lblAvviso);
    QCOMPARE(lblAvviso->text(), QString());
    // The dashboard stays where it is, above the screens.
    QWidget *cruscotto = cornice.findChild<QWidget *>(u"picUltima"_s);
    QVERIFY(cruscotto);
    QVERIFY(!barra->isAncestorOf(cruscotto));

    const QString nota = Dialoghi::testoFileSalvato(a.cartella() + u"/Le Cinquine.pdf"_s);
    a.dialoghi.avvisoStato(nota);
    QCOMPARE(lblAvviso->text(), nota);
    QCOMPARE(cornice.avvisoStato(), nota);
    QVERIFY(lblAvviso->isVisible());
    QVERIFY(cruscotto->isVisible());
    QCOMPARE(a.dialoghi.avvisiStato, QStringList{nota});
    AmbienteProva::fotografa(&cornice, u"cornice-barra-di-stato"_s);
    // The status tip of a menu entry passes over the note without wiping it.
    QStatusTipEvent suggerimento(u"Visualizza archivio"_s);
    QCoreApplication::sendEvent(&cornice, &suggerimento);
    QStatusTipEvent fine{QString()};
    QCoreApplication::sendEvent(&cornice, &fine);
    QCOMPARE(cornice.avvisoStato(), nota);
    // A later note takes the place of the earlier one.
    a.dialoghi.avvisoStato(u"File salvato in /altro.xlsx"_s);
    QCOMPARE(cornice.avvisoStato(), u"File salvato in /altro.xlsx"_s);
    // After a while the note goes.
    auto *scadenza = cornice.findChild<QTimer *>(u"tmrAvviso"_s);
    QVERIFY(scadenza);
    QVERIFY(scadenza->isActive());
    QCOMPARE(scadenza->interval(), MdiPannello::DurataAvvisoStato);
    scadenza->start(1);
    QTRY_COMPARE(cornice.avvisoStato(), QString());
}

void TstSalvataggi::corniceChiusaNonRiceveAvvisi() {
    QTemporaryDir dir;
    DialoghiProva dialoghi;
    Impostazioni impostazioni(dir.filePath(u"i.ini"_s));
    Schermo schermo;
    {
        MdiProgramma programma(dir.path(), dialoghi, impostazioni, schermo);
        dialoghi.avvisoStato(u"prima"_s);
        QCOMPARE(programma.pannello().avvisoStato(), u"prima"_s);
    }
    // The frame is gone and took its handler along: the note is only recorded.
    dialoghi.avvisoStato(u"dopo"_s);
    QCOMPARE(dialoghi.avvisiStato, (QStringList{u"prima"_s, u"dopo"_s}));
}

QTEST_MAIN(TstSalvataggi)
#include "tst_salvataggi.moc"
