// The three screens that show and change the archive, used as a user would: the entry of a new
// column, the correction and deletion of a row, the browser; and the writing steps behind them.
#include "supporto/ambienteprova.h"

#include "archivio/frmarchivio.h"
#include "archivio/frmgestione.h"
#include "archivio/frminserisci.h"
#include "archivio/scritturearchivio.h"
#include "core/archivio.h"
#include "core/colonna.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/tabellaarchivio.h"
#include "piattaforma/vistagriglia.h"
#include "supporto/archiviosintetico.h"
#include "supporto/strumentiprova.h"

#include <QAction>
#include <QDate>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Penultima = u"2026 13 2221X1121X1XX2 5 4 5 9 4 3"_s;
const QString Ultima = u"2026 14 12X221X2111111 8 2 4 7 2 1"_s;
const QString NonValida = u"Inserire una colonna valida per il Totocalcio."_s;
const QString DomandaStagione =
    u"Stai inserendo una data diversa dalla stagione corrente. Procedere?"_s;
const QString DomandaConcorso =
    u"Stai inserendo un numero di concorso minore di quello dell'ultimo inserito. Procedere?"_s;

QString anno() {
    return QString::number(QDate::currentDate().year());
}

QStringList campi(const RigaArchivio &r) {
    return QStringList(r.begin(), r.end());
}

// The archive of the screen tests: 300 made-up contests, then two known ones. Some lines carry a
// trailing blank, as lines from the site do, and one line is a single blank (no record).
QStringList archivioDiProva() {
    QStringList righe = archivioSintetico(300);
    righe[9] += u' ';
    righe.insert(50, u" "_s);
    righe.append(Penultima + u' ');
    righe.append(Ultima);
    return righe;
}

class Banco {
public:
    AmbienteProva a;

    bool avvia(const QStringList &archivio = archivioDiProva()) {
        a.scrivi(u"Archivio.txt"_s, archivio);
        return a.avvia();
    }
    // Opens a screen through its menu entry or toolbar button.
    QWidget *apri(const QString &voce, const QString &schermo) {
        QAction *azione = a.pannello().findChild<QAction *>(voce);
        if (!azione || !azione->isEnabled())
            return nullptr;
        azione->trigger();
        return a.pannello().trovaSchermo(schermo);
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
    // Replaces the text of a box, as a user selecting it all and typing over it.
    void scrivi(QWidget *frm, const QString &nome, const QString &testo) const {
        QLineEdit *t = w<QLineEdit>(frm, nome);
        t->setFocus();
        t->selectAll();
        if (testo.isEmpty())
            QTest::keyClick(t, Qt::Key_Delete);
        else
            QTest::keyClicks(t, testo);
    }
    QString testo(QWidget *frm, const QString &nome) const {
        if (auto *t = frm->findChild<QLineEdit *>(nome))
            return t->text();
        return w<QLabel>(frm, nome)->text();
    }
    QString cruscotto(const QString &nome) const {
        return a.pannello().findChild<QLabel *>(nome)->text();
    }
    QStringList righeFile() const { return FileDati::leggiRighe(a.file(u"Archivio.txt"_s)); }
    QByteArray byteFile() const {
        QFile f(a.file(u"Archivio.txt"_s));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    bool aperto(const QString &schermo) const {
        return a.pannello().trovaSchermo(schermo) != nullptr;
    }
    // The three copies agree: the records of the file, the rows of the table, the memory.
    QString disaccordo() const {
        QStringList file = righeFile();
        file.removeAll(u" "_s);
        const QList<RigaArchivio> tabella = a.stato().tabellaArchivio().tutte();
        const ArchivioColonne &memoria = a.stato().ColonneArchivio;
        if (file.size() != tabella.size() || file.size() != memoria.numero())
            return u"righe: file %1, tabella %2, memoria %3"_s.arg(file.size())
                .arg(tabella.size())
                .arg(memoria.numero());
        for (int i = 0; i < file.size(); ++i) {
            const QStringList daFile = file.at(i).split(u' ').mid(0, 9);
            if (daFile != campi(tabella.at(i)) || daFile != campi(memoria.riga(i)))
                return u"riga %1: \"%2\" | \"%3\" | \"%4\""_s.arg(i).arg(
                    file.at(i), campi(tabella.at(i)).join(u' '), campi(memoria.riga(i)).join(u' '));
        }
        return {};
    }
};

} // namespace

class TstSchermiArchivio : public QObject {
    Q_OBJECT

private slots:
    // The writing steps on their own.
    void colonnaValida_data();
    void colonnaValida();
    void numero_data();
    void numero();
    void righeConNuova();
    void capacitaDelleRighe();
    void rigaCorretta();
    void paginaArchivio();

    // frmInserisci.
    void inserimentoCaricamento();
    void inserimentoValidazione_data();
    void inserimentoValidazione();
    void inserimentoDomande_data();
    void inserimentoDomande();
    void inserimentoConcorsoUguale();
    void inserimentoCompleto();
    void inserimentoAnnulla();
    void inserimentoOltreCapacita();

    // frmGestione.
    void gestioneApertura();
    void gestioneNavigazioneLegata();
    void gestioneModifica();
    void gestioneModificaColonna();
    void gestioneRigaPropria();
    void gestioneEliminaNo();
    void gestioneEliminaUltima();

    // What a writer must never lose or hide.
    void copiaPrecedenteAdOgniScrittura();
    void tabellaVecchiaRicostruitaAllAvvio();
    void gestioneTogliBlank();
    void inserimentoSuArchivioCheIlPannelloNonPrende();

    // frmArchivio.
    void archivioGriglia();
    void archivioCaricaDatabase();
    void archivioCreaHtm();
    void archivioOrdinatoDallIntestazione();
};

void TstSchermiArchivio::colonnaValida_data() {
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<bool>("valida");
    QTest::newRow("quattordici segni") << u"1121X22122112X"_s << true;
    QTest::newRow("solo 1") << u"11111111111111"_s << true;
    QTest::newRow("un solo segno fra lettere") << u"ABCDEFGHIJKLMX"_s << true;
    QTest::newRow("un 2 fra blank") << u"      2       "_s << true;
    QTest::newRow("tredici") << u"1121X22122112"_s << false;
    QTest::newRow("quindici") << u"1121X22122112X1"_s << false;
    QTest::newRow("vuota") << QString() << false;
    QTest::newRow("quattordici blank") << u"              "_s << false;
    QTest::newRow("lettere senza segni") << u"ABCDEFGHIJKLMN"_s << false;
    // The screen upper-cases first: a lower-case x alone is no sign here.
    QTest::newRow("x minuscola") << u"abcdefghijklmx"_s << false;
}

void TstSchermiArchivio::colonnaValida() {
    QFETCH(QString, colonna);
    QFETCH(bool, valida);
    QCOMPARE(ScrittureArchivio::colonnaValida(colonna), valida);
}

void TstSchermiArchivio::numero_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<qint64>("valore");
    QTest::newRow("numero") << u"38"_s << qint64(38);
    QTest::newRow("blank davanti") << u"  7"_s << qint64(7);
    QTest::newRow("seguito da lettere") << u"12bis"_s << qint64(12);
    QTest::newRow("lettere") << u"abc"_s << qint64(0);
    QTest::newRow("vuoto") << QString() << qint64(0);
    QTest::newRow("negativo") << u"-3"_s << qint64(-3);
}

void TstSchermiArchivio::numero() {
    QFETCH(QString, testo);
    QFETCH(qint64, valore);
    QCOMPARE(ScrittureArchivio::numero(testo), valore);
}

void TstSchermiArchivio::righeConNuova() {
    // Only a line of exactly one blank is no record; the others stay as they are.
    const QStringList file{u"a b"_s, u" "_s, u"c "_s, u"  "_s, u"d"_s};
    QCOMPARE(ScrittureArchivio::righeConNuova(file, u"e"_s),
             (QStringList{u"a b"_s, u"c "_s, u"  "_s, u"d"_s, u"e"_s}));
    QCOMPARE(ScrittureArchivio::righeConNuova({}, u"e"_s), QStringList{u"e"_s});
}

void TstSchermiArchivio::capacitaDelleRighe() {
    QStringList piene(ScrittureArchivio::CapacitaRighe - 1, u"r"_s);
    QCOMPARE(ScrittureArchivio::righeConNuova(piene, u"n"_s).size(), 7000);
    piene.append(u" "_s); // no record, so no place taken
    QCOMPARE(ScrittureArchivio::righeConNuova(piene, u"n"_s).size(), 7000);
    piene.append(u"r"_s);
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, ScrittureArchivio::righeConNuova(piene, u"n"_s));
}

void TstSchermiArchivio::rigaCorretta() {
    QCOMPARE(campi(ScrittureArchivio::rigaCorretta(u"1999"_s, u"7"_s, u"x1x1x1x1x1x1x1"_s)),
             (QStringList{u"1999"_s, u"7"_s, u"X1X1X1X1X1X1X1"_s, u"7"_s, u"7"_s, u"0"_s, u"13"_s,
                          u"0"_s, u"0"_s}));
    // No test of validity here: what is typed is kept.
    QCOMPARE(campi(ScrittureArchivio::rigaCorretta(u""_s, u"abc"_s, u"12"_s)),
             (QStringList{QString(), u"abc"_s, u"12"_s, u"1"_s, u"0"_s, u"1"_s, u"13"_s, u"0"_s,
                          u"0"_s}));
}

void TstSchermiArchivio::paginaArchivio() {
    const ArchivioColonne archivio = ArchivioColonne::daRighe(
        {u"2013 1 1211121X11X1X1 9 3 2 10 3 3"_s, u" "_s, u"2013 2 2111X221211XX2 6 3 5 8 3 4 "_s});
    QCOMPARE(ScrittureArchivio::paginaArchivio(archivio),
             u"1 2013 1 1211121X11X1X1 9 3 2 10 3 3 \n2 2013 2 2111X221211XX2 6 3 5 8 3 4 \n"_s);
    QCOMPARE(ScrittureArchivio::paginaArchivio(ArchivioColonne()), QString());
}

void TstSchermiArchivio::inserimentoCaricamento() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    QCOMPARE(frm->windowTitle(), u"Inserimento nuova colonna"_s);
    QCOMPARE(b.testo(frm, u"lblCV"_s), u"12X-221-X21-11111"_s);
    QCOMPARE(b.testo(frm, u"lblStagione"_s), u"2026"_s);
    QCOMPARE(b.testo(frm, u"lblConcorso"_s), u"14"_s);
    QCOMPARE(b.testo(frm, u"txtStagione"_s), anno());
    QCOMPARE(b.testo(frm, u"txtConcorso"_s), u"15"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), QString());
    QCOMPARE(b.w<QPushButton>(frm, u"cmdInserisci"_s)->text(), u"INSERISCI IN ARCHIVIO"_s);
    QCOMPARE(b.w<QPushButton>(frm, u"Command1"_s)->text(), u"ANNULLA"_s);
    auto *download = b.w<QPushButton>(frm, u"imgDownload"_s);
    QVERIFY(download->isEnabled());
    QCOMPARE(download->toolTip(),
             u"Preleva ultima colonna vincente da Internet,   se disponibile."_s);
    QStringList didascalie;
    for (const QLabel *l : frm->findChildren<QLabel *>())
        didascalie.append(l->text());
    QVERIFY(didascalie.contains(u"Es.: 1121X22122112X"_s));
    // The toolbar button opens the same screen (there is one of it).
    b.a.pannello().findChild<QAction *>(u"TB(1)"_s)->trigger();
    QCOMPARE(b.a.pannello().trovaSchermo(u"frmInserisci"_s), frm);
    AmbienteProva::fotografa(b.a.pannello().window(), u"inserisci"_s);
}

void TstSchermiArchivio::inserimentoValidazione_data() {
    QTest::addColumn<QString>("digitata");
    QTest::addColumn<QString>("nellaCasella"); // after the click
    QTest::addColumn<QString>("riga");         // the new line; empty when refused
    QTest::newRow("x minuscola") << u"12x12x12x12x12"_s << u"12X12X12X12X12"_s
                                 << u"12X12X12X12X12 5 4 5 13 2 0"_s;
    QTest::newRow("una x fra lettere")
        << u"abcdefghijklmx"_s << u"ABCDEFGHIJKLMX"_s << u"ABCDEFGHIJKLMX 0 1 0 13 0 0"_s;
    // What was typed is trimmed first: blanks would become fields of their own in the line.
    QTest::newRow("quattordici blank") << u"              "_s << QString() << QString();
    QTest::newRow("tredici segni e un blank")
        << u"1X21X22122112 "_s << u"1X21X22122112"_s << QString();
    QTest::newRow("blank intorno")
        << u"  1121x22122112X "_s << u"1121X22122112X"_s << u"1121X22122112X 6 2 6 9 2 4"_s;
    QTest::newRow("tredici segni") << u"1X21X21X21X21"_s << u"1X21X21X21X21"_s << QString();
    QTest::newRow("quindici segni") << u"1X21X21X21X21X2"_s << u"1X21X21X21X21X2"_s << QString();
    QTest::newRow("lettere senza segni") << u"abcdefghijklmn"_s << u"ABCDEFGHIJKLMN"_s << QString();
    QTest::newRow("vuota") << QString() << QString() << QString();
}

void TstSchermiArchivio::inserimentoValidazione() {
    QFETCH(QString, digitata);
    QFETCH(QString, nellaCasella);
    QFETCH(QString, riga);
    Banco b;
    QVERIFY(b.avvia());
    const QByteArray prima = b.byteFile();
    QWidget *frm = b.apri(u"TB(1)"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    b.scrivi(frm, u"txtColonna"_s, digitata);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), digitata);
    b.clic(frm, u"cmdInserisci"_s);
    if (riga.isEmpty()) {
        QCOMPARE(b.a.dialoghi.testi(), QStringList{NonValida});
        QCOMPARE(b.a.dialoghi.boxes.first().titolo, u"Vespara"_s);
        QCOMPARE(b.byteFile(), prima);
        QVERIFY(b.aperto(u"frmInserisci"_s));
        QCOMPARE(b.testo(frm, u"txtColonna"_s), nellaCasella);
        return;
    }
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Inserimento effettuato."_s});
    QCOMPARE(b.righeFile().last(), u"%1 15 %2"_s.arg(anno(), riga));
    QCOMPARE(b.disaccordo(), QString());
}

void TstSchermiArchivio::inserimentoDomande_data() {
    QTest::addColumn<QString>("casella");
    QTest::addColumn<QString>("valore");
    QTest::addColumn<QString>("domanda");
    QTest::addColumn<QString>("inizioRiga");
    QTest::newRow("altro anno") << u"txtStagione"_s << u"1999"_s << DomandaStagione
                                << u"1999 15 "_s;
    // The turn of the year: contest 1 after contest 14 asks.
    QTest::newRow("concorso minore")
        << u"txtConcorso"_s << u"1"_s << DomandaConcorso << anno() + u" 1 "_s;
    QTest::newRow("concorso non numerico")
        << u"txtConcorso"_s << u"bis"_s << DomandaConcorso << anno() + u" bis "_s;
}

void TstSchermiArchivio::inserimentoDomande() {
    QFETCH(QString, casella);
    QFETCH(QString, valore);
    QFETCH(QString, domanda);
    QFETCH(QString, inizioRiga);
    Banco b;
    QVERIFY(b.avvia());
    const QByteArray prima = b.byteFile();
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    b.scrivi(frm, casella, valore);
    b.scrivi(frm, u"txtColonna"_s, u"1121X22122112X"_s);

    // No: nothing is written and the screen stays.
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{domanda});
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Domanda);
    QCOMPARE(b.byteFile(), prima);
    QVERIFY(b.aperto(u"frmInserisci"_s));

    // Yes: written.
    b.a.dialoghi.svuota();
    b.a.dialoghi.risposte.enqueue(true);
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(b.a.dialoghi.testi(), (QStringList{domanda, u"Inserimento effettuato."_s}));
    QCOMPARE(b.righeFile().last(), inizioRiga + u"1121X22122112X 6 2 6 9 2 4"_s);
    QCOMPARE(b.disaccordo(), QString());
}

void TstSchermiArchivio::inserimentoConcorsoUguale() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    // The same number as the last contest passes without a question: a duplicate is possible.
    b.scrivi(frm, u"txtConcorso"_s, u"14"_s);
    b.scrivi(frm, u"txtColonna"_s, u"12X221X2111111"_s);
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Inserimento effettuato."_s});
    QCOMPARE(b.righeFile().last(), anno() + u" 14 12X221X2111111 8 2 4 7 2 1"_s);
}

void TstSchermiArchivio::inserimentoCompleto() {
    Banco b;
    QVERIFY(b.avvia());
    QStringList attese = b.righeFile();
    attese.removeAll(u" "_s);
    const int numero = b.a.stato().NumeroColonne();
    QCOMPARE(numero, 302);
    b.a.stato().RicalcolaColonne9 = false;
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    b.scrivi(frm, u"txtColonna"_s, u"12x12x12x12x12"_s);
    b.clic(frm, u"cmdInserisci"_s);

    // The file: every record as it was (the single-blank line gone), then the new one.
    attese.append(anno() + u" 15 12X12X12X12X12 5 4 5 13 2 0"_s);
    QCOMPARE(b.righeFile(), attese);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(b.a.stato().NumeroColonne(), numero + 1);
    QCOMPARE(b.a.stato().tabellaArchivio().conteggio(), numero + 1);
    QVERIFY(b.a.stato().RicalcolaColonne9);

    // The dashboard shows the new row; the screen is gone, the panel is open again.
    QCOMPARE(b.cruscotto(u"lblData"_s), u"Anno %1  n.15"_s.arg(anno()));
    QCOMPARE(b.cruscotto(u"lblDati"_s), u"Formula del 14: 5-4-5     Int.13  Simm.2  Paral.0"_s);
    QVERIFY(!b.aperto(u"frmInserisci"_s));
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Inserimento effettuato."_s});
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);

    // A further column needs the menu again, which proposes the next number.
    frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    QCOMPARE(b.testo(frm, u"txtConcorso"_s), u"16"_s);
    QCOMPARE(b.testo(frm, u"lblCV"_s), u"12X-12X-12X-12X12"_s);
}

void TstSchermiArchivio::inserimentoAnnulla() {
    Banco b;
    QVERIFY(b.avvia());
    const QByteArray prima = b.byteFile();
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    b.scrivi(frm, u"txtColonna"_s, u"1121X22122112X"_s);
    b.clic(frm, u"Command1"_s);
    QTRY_VERIFY(!b.aperto(u"frmInserisci"_s));
    QCOMPARE(b.byteFile(), prima);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.a.stato().NumeroColonne(), 302);
}

void TstSchermiArchivio::inserimentoOltreCapacita() {
    // 7000 contests: the line table is full, and the new one is a run-time fault. (The signs
    // panel can't take so many either: the start shows that and goes on.)
    Banco b;
    QVERIFY(b.avvia(archivioSintetico(ArchivioColonne::Capacita)));
    b.a.dialoghi.svuota();
    const QByteArray prima = b.byteFile();
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    b.scrivi(frm, u"txtColonna"_s, u"1121X22122112X"_s);
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(b.a.dialoghi.boxes.last().testo.contains(u"7000"_s));
    QCOMPARE(b.byteFile(), prima);
    QCOMPARE(b.a.stato().NumeroColonne(), 7000);
    QVERIFY(b.aperto(u"frmInserisci"_s));
}

void TstSchermiArchivio::gestioneApertura() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    QCOMPARE(frm->windowTitle(), u"Gestione Archivio"_s);
    // The waiting box came and went; the frame is back in the user's hands.
    QVERIFY(b.a.pannello().isEnabled());
    QVERIFY(!b.a.pannello().findChild<QDialog *>(u"frmAttendere"_s) ||
            !b.a.pannello().findChild<QDialog *>(u"frmAttendere"_s)->isVisible());
    QCOMPARE(b.testo(frm, u"txtStagione"_s), u"2026"_s);
    QCOMPARE(b.testo(frm, u"txtConcorso"_s), u"14"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), u"12X221X2111111"_s);
    QStringList didascalie;
    for (const QLabel *l : frm->findChildren<QLabel *>())
        didascalie.append(l->text());
    QVERIFY(didascalie.contains(u"Gestione dell'Archivio"_s));
    QVERIFY(didascalie.contains(u"Modificare i campi per correggere gli  errori"_s));
    QWidget *barra = b.w<QWidget>(frm, u"dbArchivio"_s);
    QStringList didascalieBarra;
    for (const QLabel *l : barra->findChildren<QLabel *>())
        didascalieBarra.append(l->text());
    QCOMPARE(didascalieBarra, QStringList{u"Archivio Totocalcio"_s});
    for (const QString &nome : {u"dbPrimo"_s, u"dbPrecedente"_s, u"dbSuccessivo"_s, u"dbUltimo"_s})
        QVERIFY(b.w<QPushButton>(barra, nome));
    QCOMPARE(b.w<QPushButton>(frm, u"Command1"_s)->text(), u"CONFERMA E ESCI"_s);
    QCOMPARE(b.w<QPushButton>(frm, u"cmdElimina"_s)->text(), u"ELIMINA COLONNA"_s);
    QCOMPARE(b.w<QPushButton>(frm, u"lblEsci"_s)->text(), u"X"_s);
    AmbienteProva::fotografa(b.a.pannello().window(), u"gestione"_s);
}

void TstSchermiArchivio::gestioneNavigazioneLegata() {
    Banco b;
    QVERIFY(b.avvia());
    const QByteArray prima = b.byteFile();
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    TabellaArchivio &tabella = b.a.stato().tabellaArchivio();

    // A change typed in a box reaches the row when the user moves away from it.
    b.scrivi(frm, u"txtStagione"_s, u"1999"_s);
    QCOMPARE(tabella.tutte().last()[0], u"2026"_s);
    b.clic(frm, u"dbPrecedente"_s);
    QCOMPARE(campi(tabella.tutte().last()), u"1999 14 12X221X2111111 8 2 4 7 2 1"_s.split(u' '));
    QCOMPARE(b.testo(frm, u"txtConcorso"_s), u"13"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), u"2221X1121X1XX2"_s);

    // Past the last row the bar stays on it; before the first, on the first.
    b.clic(frm, u"dbSuccessivo"_s);
    QCOMPARE(b.testo(frm, u"txtStagione"_s), u"1999"_s);
    b.clic(frm, u"dbSuccessivo"_s);
    QCOMPARE(b.testo(frm, u"txtConcorso"_s), u"14"_s);
    const RigaArchivio primaRiga = b.a.stato().ColonneArchivio.riga(0);
    b.clic(frm, u"dbPrimo"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), primaRiga[2]);
    b.clic(frm, u"dbPrecedente"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), primaRiga[2]);
    b.clic(frm, u"dbSuccessivo"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), b.a.stato().ColonneArchivio.riga(1)[2]);
    b.clic(frm, u"dbUltimo"_s);
    QCOMPARE(b.testo(frm, u"txtConcorso"_s), u"14"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());

    // "X" closes without writing the file.
    b.clic(frm, u"lblEsci"_s);
    QTRY_VERIFY(!b.aperto(u"frmGestione"_s));
    QCOMPARE(b.byteFile(), prima);
    QCOMPARE(b.a.stato().ColonneArchivio.ultima()[0], u"2026"_s);
}

void TstSchermiArchivio::gestioneModifica() {
    Banco b;
    QVERIFY(b.avvia());
    QStringList attese = b.righeFile();
    QVERIFY(attese.at(9).endsWith(u' '));
    QVERIFY(attese.at(attese.size() - 2).endsWith(u' '));
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    b.clic(frm, u"dbPrecedente"_s);
    b.scrivi(frm, u"txtStagione"_s, u"1999"_s);
    b.clic(frm, u"Command1"_s);

    // Every line written again from the table: no trailing blank left, no single-blank line.
    attese.removeAll(u" "_s);
    for (QString &riga : attese)
        if (riga.endsWith(u' '))
            riga.chop(1);
    attese[attese.size() - 2] = u"1999 13 2221X1121X1XX2 5 4 5 9 4 3"_s;
    QCOMPARE(b.righeFile(), attese);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Modifiche effettuate."_s});
    QVERIFY(!b.aperto(u"frmGestione"_s));
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    QCOMPARE(b.cruscotto(u"lblData"_s), u"Anno 2026  n.14"_s);
}

void TstSchermiArchivio::gestioneModificaColonna() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    b.scrivi(frm, u"txtColonna"_s, u"x1x1x1x1x1x1x1"_s);
    b.clic(frm, u"Command1"_s);
    // Upper case and new metrics, and the dashboard follows.
    QCOMPARE(b.righeFile().last(), u"2026 14 X1X1X1X1X1X1X1 7 7 0 13 0 0"_s);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(b.cruscotto(u"lblDati"_s), u"Formula del 14: 7-7-0     Int.13  Simm.0  Paral.0"_s);
}

void TstSchermiArchivio::gestioneRigaPropria() {
    // Another screen moving the same table doesn't change the row this screen edits.
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    b.clic(frm, u"dbPrimo"_s);
    const QString primaColonna = b.testo(frm, u"txtColonna"_s);
    QVERIFY(b.apri(u"mnuInserisci"_s, u"frmInserisci"_s)); // goes to the last row
    b.scrivi(frm, u"txtStagione"_s, u"1999"_s);
    b.clic(frm, u"Command1"_s);
    QCOMPARE(primaColonna, archivioSintetico(1).first().split(u' ').at(2));
    QCOMPARE(b.righeFile().first(), u"1999"_s + archivioSintetico(1).first().mid(4));
    QCOMPARE(b.righeFile().last(), Ultima);
}

void TstSchermiArchivio::gestioneEliminaNo() {
    Banco b;
    QVERIFY(b.avvia());
    const QByteArray prima = b.byteFile();
    const auto tabellaPrima = b.a.stato().tabellaArchivio().tutte();
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    b.clic(frm, u"cmdElimina"_s);
    QCOMPARE(b.a.dialoghi.testi(),
             (QStringList{u"Confermi eliminazione colonna?"_s, u"Operazione annullata."_s}));
    QCOMPARE(b.a.dialoghi.boxes.at(0).tipo, Dialoghi::Tipo::Domanda);
    QCOMPARE(b.byteFile(), prima);
    QCOMPARE(b.a.stato().tabellaArchivio().tutte(), tabellaPrima);
    QCOMPARE(b.a.stato().NumeroColonne(), 302);
    QVERIFY(b.aperto(u"frmGestione"_s));
}

void TstSchermiArchivio::gestioneEliminaUltima() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    QCOMPARE(b.cruscotto(u"lblData"_s), u"Anno 2026  n.14"_s);
    b.a.dialoghi.risposte.enqueue(true);
    b.clic(frm, u"cmdElimina"_s);
    QCOMPARE(b.a.dialoghi.testi(), (QStringList{u"Confermi eliminazione colonna?"_s,
                                                u"La colonna è stata eliminata dall'archivio."_s}));
    QCOMPARE(b.righeFile().size(), 301);
    QCOMPARE(b.righeFile().last(), Penultima);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(b.a.stato().NumeroColonne(), 301);
    QVERIFY(!b.aperto(u"frmGestione"_s));
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    // The dashboard is not refreshed after a deletion: it still shows the deleted contest.
    QCOMPARE(b.cruscotto(u"lblData"_s), u"Anno 2026  n.14"_s);

    // A new start shows the row before it.
    QVERIFY(b.a.avvia());
    QCOMPARE(b.cruscotto(u"lblData"_s), u"Anno 2026  n.13"_s);
    QCOMPARE(b.a.stato().NumeroColonne(), 301);
    QCOMPARE(b.disaccordo(), QString());
}

void TstSchermiArchivio::archivioGriglia() {
    Banco b;
    QVERIFY(b.avvia());
    auto *frm = qobject_cast<FrmArchivio *>(b.apri(u"mnuArchivio"_s, u"frmArchivio"_s));
    QVERIFY(frm);
    QCOMPARE(frm->windowTitle(), u"Archivio Colonne vincenti"_s);
    QCOMPARE(b.w<QLabel>(frm, u"Label1"_s)->text(), u"Colonne vincenti"_s);
    QCOMPARE(b.w<QPushButton>(frm, u"Command1"_s)->text(), u"carica database"_s);
    QCOMPARE(b.w<QPushButton>(frm, u"Command2"_s)->text(), u"Crea HTM"_s);
    QCOMPARE(b.w<QPushButton>(frm, u"imgStampa"_s)->toolTip(), u"Stampa"_s);
    Griglia &g = *b.w<VistaGriglia>(frm, u"Griglia"_s)->griglia();
    QCOMPARE(g.righe(), b.a.stato().NumeroColonne() + 1);
    QCOMPARE(g.colonne(), 9);
    QCOMPARE(g.righeFisse(), 1);
    QStringList intestazioni;
    for (int c = 0; c < 9; ++c)
        intestazioni.append(g.testo(0, c));
    QCOMPARE(intestazioni, (QStringList{u"Anno"_s, u"Num."_s, u"Colonna"_s, u"1"_s, u"X"_s, u"2"_s,
                                        u"Interr."_s, u"Simm."_s, u"Parall."_s}));
    QStringList ultima;
    QStringList prima;
    for (int c = 0; c < 9; ++c) {
        ultima.append(g.testo(g.righe() - 1, c));
        prima.append(g.testo(1, c));
    }
    QCOMPARE(ultima, Ultima.split(u' '));
    QCOMPARE(prima, archivioSintetico(1).first().split(u' '));
    for (int c = 0; c < 9; ++c)
        QCOMPARE(g.allineamento(5, c) == Griglia::Allineamento::CentroCentro, c >= 3 && c <= 5);
    AmbienteProva::fotografa(b.a.pannello().window(), u"archivio"_s);
}

void TstSchermiArchivio::archivioOrdinatoDallIntestazione() {
    Banco b;
    QVERIFY(b.avvia());
    auto *frm = qobject_cast<FrmArchivio *>(b.apri(u"mnuArchivio"_s, u"frmArchivio"_s));
    QVERIFY(frm);
    auto *vista = b.w<VistaGriglia>(frm, u"Griglia"_s);
    Griglia &g = *vista->griglia();
    const auto righe = [&g] {
        QList<QStringList> tutte;
        for (int r = 1; r < g.righe(); ++r) {
            QStringList riga;
            for (int c = 0; c < g.colonne(); ++c)
                riga.append(g.testo(r, c));
            tutte.append(riga);
        }
        return tutte;
    };
    const QList<QStringList> archivio = righe();
    QCOMPARE(archivio.size(), b.a.stato().NumeroColonne());
    const auto stesseRighe = [&archivio](QList<QStringList> altre) {
        QList<QStringList> ordinate = archivio;
        std::sort(ordinate.begin(), ordinate.end());
        std::sort(altre.begin(), altre.end());
        return ordinate == altre;
    };

    // "1": the most 1s first, then the fewest; the rows whole, none lost.
    StrumentiProva::clicIntestazione(vista, 3);
    QList<QStringList> ora = righe();
    QVERIFY(stesseRighe(ora));
    QVERIFY(ora != archivio);
    for (qsizetype i = 1; i < ora.size(); ++i)
        QVERIFY(ora[i - 1][3].toInt() >= ora[i][3].toInt());
    QCOMPARE(vista->colonnaOrdine(), 3);
    QCOMPARE(vista->versoOrdine(), Griglia::Verso::Decrescente);
    StrumentiProva::clicIntestazione(vista, 3);
    ora = righe();
    for (qsizetype i = 1; i < ora.size(); ++i)
        QVERIFY(ora[i - 1][3].toInt() <= ora[i][3].toInt());
    QCOMPARE(vista->versoOrdine(), Griglia::Verso::Crescente);

    // The column of the signs, as text.
    StrumentiProva::clicIntestazione(vista, 2);
    ora = righe();
    QVERIFY(stesseRighe(ora));
    for (qsizetype i = 1; i < ora.size(); ++i)
        QVERIFY(ora[i - 1][2] >= ora[i][2]); // signs and digits compare as plain characters

    // The export takes the rows as they stand on the screen.
    StrumentiProva::clicDestro(vista, 1, 1);
    QCOMPARE(b.a.stato().GrigliaEsportazione().testo(1, 2), ora[0][2]);
    QCOMPARE(b.a.stato().RigheEsportazione, archivio.size());
    QMenu *menu = b.a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s);
    QTRY_VERIFY(menu->isVisible());
    menu->hide();

    // Back: the year, then the contest, ascending, is the archive's own order.
    StrumentiProva::clicIntestazione(vista, 1); // ascending by now
    StrumentiProva::clicIntestazione(vista, 0); // descending
    StrumentiProva::clicIntestazione(vista, 0); // ascending
    QCOMPARE(vista->colonnaOrdine(), 0);
    QCOMPARE(vista->versoOrdine(), Griglia::Verso::Crescente);
    QCOMPARE(righe(), archivio);
    // The archive itself never moved.
    QCOMPARE(campi(b.a.stato().ColonneArchivio.riga(0)), archivio.first());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstSchermiArchivio::archivioCaricaDatabase() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuArchivio"_s, u"frmArchivio"_s);
    QVERIFY(frm);
    // A table gone astray: a row lost, one changed, one too many.
    TabellaArchivio &tabella = b.a.stato().tabellaArchivio();
    tabella.primo();
    tabella.elimina();
    tabella.ultimo();
    tabella.modifica({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s});
    tabella.aggiungi({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s, u"g"_s, u"h"_s, u"i"_s});
    QVERIFY(!b.disaccordo().isEmpty());
    const QByteArray prima = b.byteFile();
    b.clic(frm, u"Command1"_s);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(tabella.conteggio(), 302);
    QCOMPARE(b.byteFile(), prima);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstSchermiArchivio::archivioCreaHtm() {
    Banco b;
    QVERIFY(b.avvia());
    b.a.stato().ColonneArchivio = ArchivioColonne::daRighe(
        {u"2013 1 1211121X11X1X1 9 3 2 10 3 3 "_s, u"2013 2 2111X221211XX2 6 3 5 8 3 4"_s,
         u"2013 3 X1XX111X222X2X 4 6 4 8 2 1"_s});
    QWidget *frm = b.apri(u"mnuArchivio"_s, u"frmArchivio"_s);
    QVERIFY(frm);
    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());

    // Cancelled: nothing written, nothing said. The page is proposed under the name of the
    // site's archive page.
    b.clic(frm, u"Command2"_s);
    QCOMPARE(b.a.dialoghi.ultimoTitoloSalvataggio, u"Crea HTM"_s);
    QCOMPARE(b.a.dialoghi.ultimoFiltroSalvataggio, u"Pagina HTML (*.htm *.html)"_s);
    QCOMPARE(QFileInfo(b.a.dialoghi.ultimaPropostaSalvataggio).fileName(),
             u"ColonneTotocalcio.htm"_s);
    QVERIFY(QDir(cartella.path()).isEmpty());
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList());

    const QString percorso = cartella.filePath(u"archivio.htm"_s);
    b.a.dialoghi.fileDaSalvare.enqueue(percorso);
    b.clic(frm, u"Command2"_s);
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("1 2013 1 1211121X11X1X1 9 3 2 10 3 3 \n"
                                     "2 2013 2 2111X221211XX2 6 3 5 8 3 4 \n"
                                     "3 2013 3 X1XX111X222X2X 4 6 4 8 2 1 \n"));
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    // The status bar says where the page went; the next page is proposed in that folder.
    QCOMPARE(b.a.dialoghi.avvisiStato,
             QStringList{u"File salvato in "_s + QDir::toNativeSeparators(percorso)});
    b.clic(frm, u"Command2"_s);
    QCOMPARE(b.a.dialoghi.ultimaPropostaSalvataggio, cartella.filePath(u"ColonneTotocalcio.htm"_s));
}

QTEST_MAIN(TstSchermiArchivio)
void TstSchermiArchivio::copiaPrecedenteAdOgniScrittura() {
    Banco b;
    QVERIFY(b.avvia());
    const QString precedente = b.a.file(u"ArchivioPrecedente.txt"_s);
    QVERIFY(!QFile::exists(precedente));
    // The entry, the edit and the deletion each keep the file they replace.
    QByteArray prima = b.byteFile();
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    b.scrivi(frm, u"txtColonna"_s, u"1X21X21X21X21X"_s);
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(StrumentiProva::contenuto(precedente), prima);
    prima = b.byteFile();
    frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    b.scrivi(frm, u"txtConcorso"_s, u"99"_s);
    b.clic(frm, u"Command1"_s);
    QCOMPARE(StrumentiProva::contenuto(precedente), prima);
    prima = b.byteFile();
    b.a.dialoghi.risposte.enqueue(true);
    frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    b.clic(frm, u"cmdElimina"_s);
    QCOMPARE(StrumentiProva::contenuto(precedente), prima);
    QVERIFY(StrumentiProva::contenuto(precedente) != b.byteFile());
}

void TstSchermiArchivio::tabellaVecchiaRicostruitaAllAvvio() {
    // The table still holds an older archive (the file was restored by hand, or copied from
    // another computer): the file is the master, and nothing of the old table comes back.
    Banco b;
    const QStringList vecchio = archivioSintetico(250);
    {
        TabellaArchivio tabella(b.a.file(u"archivio.db"_s));
        tabella.ricostruisci(ArchivioColonne::daRighe(vecchio).righe());
    }
    QStringList nuovo = archivioSintetico(260);
    nuovo.last() = Ultima;
    QVERIFY(b.avvia(nuovo));
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(b.a.stato().tabellaArchivio().conteggio(), 260);

    // The entry screen and the edit screen show the file's last contest.
    QWidget *ins = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QCOMPARE(b.testo(ins, u"lblCV"_s), Colonna::colonnaRaggruppata(Ultima.split(u' ').at(2)));
    QCOMPARE(b.testo(ins, u"lblConcorso"_s), Ultima.split(u' ').at(1));
    b.clic(ins, u"Command1"_s);
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QCOMPARE(b.testo(frm, u"txtColonna"_s), Ultima.split(u' ').at(2));
    b.clic(frm, u"Command1"_s);
    QCOMPARE(b.righeFile(), nuovo);
    QCOMPARE(b.disaccordo(), QString());
}

void TstSchermiArchivio::gestioneTogliBlank() {
    Banco b;
    QVERIFY(b.avvia());
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    b.scrivi(frm, u"txtStagione"_s, u" 1999 "_s);
    b.scrivi(frm, u"txtColonna"_s, u"x1x1x1x1x1x1x1 "_s);
    b.clic(frm, u"Command1"_s);
    QCOMPARE(b.righeFile().last(), u"1999 14 X1X1X1X1X1X1X1 7 7 0 13 0 0"_s);
    QCOMPARE(b.disaccordo(), QString());
}

void TstSchermiArchivio::inserimentoSuArchivioCheIlPannelloNonPrende() {
    // 100 contests: too few for the signs panel. Its fault is shown, but the insertion is done
    // and says so, and the dashboard shows the new row.
    Banco b;
    QVERIFY(b.avvia(archivioSintetico(100)));
    b.a.dialoghi.svuota();
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    b.scrivi(frm, u"txtConcorso"_s, u"99999"_s);
    b.scrivi(frm, u"txtColonna"_s, u"1X21X21X21X21X"_s);
    b.clic(frm, u"cmdInserisci"_s);
    QCOMPARE(b.a.stato().NumeroColonne(), 101);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(b.a.dialoghi.boxes.size(), 2);
    QCOMPARE(b.a.dialoghi.boxes.at(0).tipo, Dialoghi::Tipo::Critico);
    QCOMPARE(b.a.dialoghi.boxes.at(1).testo, u"Inserimento effettuato."_s);
    QCOMPARE(b.cruscotto(u"lblData"_s), u"Anno %1  n.99999"_s.arg(anno()));
    QVERIFY(!b.aperto(u"frmInserisci"_s));
}

#include "tst_schermiarchivio.moc"
