// The manual update of the coupons as a user meets it: the three files read into their pages, a
// page typed, dated in its month view and applied to its own file alone, a blank coupon, Esci, a
// missing file; and the reading and writing of one page on their own.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "cornice/mdipannello.h"
#include "piattaforma/filedati.h"
#include "schedine/schedinamanuale.h"

#include <QAction>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::clic;
using StrumentiProva::contenuto;
using StrumentiProva::controllo;
using StrumentiProva::scriviSopra;

namespace {

const QString Nome = u"frmAggManual"_s;
const QStringList Schedine{u"SchedinaProssimoConcorso.txt"_s, u"SchedinaSabato.txt"_s,
                           u"SchedinaDomenica.txt"_s};
// What the manual update never touches.
const QStringList AltriFile{u"Picchetto.txt"_s,         u"PicchettoSabato.txt"_s,
                            u"PicchettoDomenica.txt"_s, u"Pronostico.txt"_s,
                            u"PronosticoSabato.txt"_s,  u"PronosticoDomenica.txt"_s};

QString lettera(int pagina) {
    return QString(QChar(u'A' + pagina));
}

QString pulsanteData(int pagina) {
    return pagina == 1 ? u"cmbDataB"_s : u"cmdData"_s + lettera(pagina);
}

// A coupon of the test: teams in mixed case, as a hand-made file may have them.
QStringList schedina(const QString &testa, const QString &sigla) {
    QStringList righe{testa};
    for (int k = 1; k <= 14; ++k)
        righe.append(u"%1-Casa %2 %1-ospite %2 %1-"_s.arg(k).arg(sigla));
    return righe;
}

QByteArray latin1(const QStringList &righe) {
    QByteArray b;
    for (const QString &r : righe)
        b += r.toLatin1() + "\r\n";
    return b;
}

QHash<QString, QByteArray> istantanea(const AmbienteProva &a) {
    QHash<QString, QByteArray> file;
    for (const QString &nome : Schedine + AltriFile)
        file.insert(nome, contenuto(a.file(nome)));
    return file;
}

QWidget *apri(AmbienteProva &a) {
    a.pannello().findChild<QAction *>(u"mnuAggManual"_s)->trigger();
    return a.pannello().trovaSchermo(Nome);
}

// A click on a day of the month on show, as a user picks it in the month view.
void clicGiorno(QCalendarWidget *mv, const QDate &data) {
    mv->setCurrentPage(data.year(), data.month());
    auto *vista = mv->findChild<QTableView *>();
    QVERIFY(vista);
    const QAbstractItemModel *m = vista->model();
    // Row 0 holds the names of the days. The month runs from the first cell "1" to the next one:
    // the days of the last month before it are all above 20.
    bool nelMese = false;
    for (int r = 1; r < m->rowCount(); ++r)
        for (int c = 0; c < m->columnCount(); ++c) {
            const QModelIndex i = m->index(r, c);
            nelMese = nelMese || m->data(i).toString() == u"1"_s;
            if (nelMese && m->data(i).toString() == QString::number(data.day())) {
                QTest::mouseClick(vista->viewport(), Qt::LeftButton, {},
                                  vista->visualRect(i).center());
                return;
            }
        }
    QFAIL("giorno assente dal calendario");
}

} // namespace

class TstAggManual : public QObject {
    Q_OBJECT

private slots:
    void paginePiene();
    void unaPaginaAllaVolta();
    void sceltaData_data();
    void sceltaData();
    void applica_data();
    void applica();
    void invioApplicaLaPagina();
    void schedinaVuota();
    void esciNonScrive_data();
    void esciNonScrive();
    void fileMancante_data();
    void fileMancante();
    void testoData_data();
    void testoData();
    void caricaEApplica();
    void trattinoNelNome();
    void rigaSenzaSquadre();
};

void TstAggManual::paginePiene() {
    AmbienteProva a;
    a.scrivi(Schedine[0], schedina(u"Concorso n. 17 del Mercoledì 09/12/2026 Ore 18:30"_s, u"a"_s));
    // Blanks beside the hyphens stay, but for the last team of the coupon.
    QStringList sabato = schedina(u"Concorso n. 16 del Sabato 05/12/2026 Ore 15:00"_s, u"b"_s);
    sabato[3] = u"3- Atalanta - Torino -"_s;
    sabato[14] = u"14- Cesena -  Catanzaro  "_s;
    a.scrivi(Schedine[1], sabato);
    // A day the list doesn't hold is kept as it stands.
    a.scrivi(Schedine[2], schedina(u"Concorso n. 15 del Festivo 29/11/2026 Ore 14:30"_s, u"c"_s));
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    QVERIFY(a.dialoghi.boxes.isEmpty());

    struct Atteso {
        const char *concorso, *giorno, *data, *ora, *sigla;
    };
    const Atteso attesi[3] = {{"17", "Mercoledì", "09/12/2026", "18:30", "a"},
                              {"16", "Sabato", "05/12/2026", "15:00", "b"},
                              {"15", "Festivo", "29/11/2026", "14:30", "c"}};
    for (int p = 0; p < 3; ++p) {
        const QString x = lettera(p);
        const Atteso &e = attesi[p];
        QCOMPARE(controllo<QLineEdit>(s, u"txtConcorso"_s + x)->text(),
                 QString::fromUtf8(e.concorso));
        auto *giorni = controllo<QComboBox>(s, u"cmbGiorni"_s + x);
        QCOMPARE(giorni->count(), 7);
        QCOMPARE(giorni->itemText(0), u"Lunedì"_s);
        QCOMPARE(giorni->itemText(6), u"Domenica"_s);
        QCOMPARE(giorni->currentText(), QString::fromUtf8(e.giorno));
        QCOMPARE(controllo<QLabel>(s, u"lblData"_s + x)->text(), QString::fromUtf8(e.data));
        QCOMPARE(controllo<QLineEdit>(s, u"mskOra"_s + x)->text(), QString::fromUtf8(e.ora));
        for (int k = 1; k <= 14; ++k) {
            if (p == 1 && (k == 3 || k == 14))
                continue;
            QCOMPARE(controllo<QLineEdit>(s, u"Squadra%1%2_1"_s.arg(x).arg(k))->text(),
                     u"Casa %1 %2"_s.arg(QString::fromUtf8(e.sigla)).arg(k));
            QCOMPARE(controllo<QLineEdit>(s, u"Squadra%1%2_2"_s.arg(x).arg(k))->text(),
                     u"ospite %1 %2"_s.arg(QString::fromUtf8(e.sigla)).arg(k));
        }
        // The month view waits, hidden, on today.
        auto *mv = controllo<QCalendarWidget>(s, u"mv"_s + x);
        QVERIFY(!mv->isVisibleTo(s));
        QCOMPARE(mv->selectedDate(), QDate::currentDate());
    }
    QCOMPARE(controllo<QLineEdit>(s, u"SquadraB3_1"_s)->text(), u" Atalanta "_s);
    QCOMPARE(controllo<QLineEdit>(s, u"SquadraB3_2"_s)->text(), u" Torino "_s);
    QCOMPARE(controllo<QLineEdit>(s, u"SquadraB14_1"_s)->text(), u" Cesena "_s);
    QCOMPARE(controllo<QLineEdit>(s, u"SquadraB14_2"_s)->text(), u"Catanzaro"_s);
    QCOMPARE(controllo<QPushButton>(s, u"cmdApplicaB"_s)->text(), u"Applica modifiche"_s);
    QCOMPARE(controllo<QPushButton>(s, u"cmdEsciC"_s)->text(), u"Esci"_s);
}

void TstAggManual::unaPaginaAllaVolta() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    const char *testi[3] = {"Infrasettimanale", "Sabato", "Domenica"};
    for (int p = 0; p < 3; ++p)
        QCOMPARE(controllo<QRadioButton>(s, u"opt"_s + lettera(p))->text(),
                 QString::fromUtf8(testi[p]));
    QVERIFY(controllo<QRadioButton>(s, u"optA"_s)->isChecked());
    // Round the three options and back to the first.
    for (int scelta : {0, 2, 1, 0}) {
        clic(controllo<QRadioButton>(s, u"opt"_s + lettera(scelta)));
        QVERIFY(controllo<QRadioButton>(s, u"opt"_s + lettera(scelta))->isChecked());
        for (int p = 0; p < 3; ++p)
            QCOMPARE(controllo<QWidget>(s, u"pic"_s + lettera(p))->isVisibleTo(s), p == scelta);
    }
    // The date button calls the month view and sends it away.
    auto *mv = controllo<QCalendarWidget>(s, u"mvA"_s);
    auto *cmdData = controllo<QPushButton>(s, u"cmdDataA"_s);
    clic(cmdData);
    QVERIFY(mv->isVisibleTo(s));
    AmbienteProva::fotografa(&a.pannello(), u"frmAggManual-calendario"_s);
    // It stands inside its page, under the heading, over the teams.
    QVERIFY(controllo<QWidget>(s, u"picA"_s)->rect().contains(mv->geometry()));
    QVERIFY(mv->geometry().top() >
            cmdData->mapTo(controllo<QWidget>(s, u"picA"_s), QPoint(0, cmdData->height() - 1)).y());
    clic(cmdData);
    QVERIFY(!mv->isVisibleTo(s));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstAggManual::sceltaData_data() {
    QTest::addColumn<int>("pagina");
    QTest::addColumn<QDate>("data");
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("giorno");
    // 5 March 2011 was a Saturday.
    QTest::newRow("A sabato") << 0 << QDate(2011, 3, 5) << u"05/03/2011"_s << u"Sabato"_s;
    QTest::newRow("B sabato") << 1 << QDate(2011, 3, 5) << u"05/03/2011"_s << u"Sabato"_s;
    QTest::newRow("C sabato") << 2 << QDate(2011, 3, 5) << u"5/3/2011"_s << u"Sabato"_s;
    QTest::newRow("A domenica") << 0 << QDate(2011, 3, 6) << u"06/03/2011"_s << u"Domenica"_s;
    QTest::newRow("B domenica") << 1 << QDate(2011, 3, 6) << u"06/03/2011"_s << u"Domenica"_s;
    QTest::newRow("C domenica") << 2 << QDate(2011, 3, 6) << u"6/3/2011"_s << u"Domenica"_s;
    QTest::newRow("A lunedì") << 0 << QDate(2011, 3, 7) << u"07/03/2011"_s << u"Lunedì"_s;
    QTest::newRow("C lunedì") << 2 << QDate(2011, 3, 7) << u"7/3/2011"_s << u"Lunedì"_s;
    QTest::newRow("B mercoledì") << 1 << QDate(2026, 12, 9) << u"09/12/2026"_s << u"Mercoledì"_s;
    QTest::newRow("C due cifre") << 2 << QDate(2026, 11, 29) << u"29/11/2026"_s << u"Domenica"_s;
    QTest::newRow("A venerdì") << 0 << QDate(2026, 10, 23) << u"23/10/2026"_s << u"Venerdì"_s;
}

void TstAggManual::sceltaData() {
    QFETCH(int, pagina);
    QFETCH(QDate, data);
    QFETCH(QString, testo);
    QFETCH(QString, giorno);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    const QString x = lettera(pagina);
    QStringList date;
    for (int p = 0; p < 3; ++p)
        date.append(controllo<QLabel>(s, u"lblData"_s + lettera(p))->text());
    clic(controllo<QRadioButton>(s, u"opt"_s + x));
    auto *mv = controllo<QCalendarWidget>(s, u"mv"_s + x);
    clic(controllo<QPushButton>(s, pulsanteData(pagina)));
    QVERIFY(mv->isVisible());
    clicGiorno(mv, data);
    QVERIFY(!mv->isVisibleTo(s));
    QVERIFY(!controllo<QPushButton>(s, pulsanteData(pagina))->isChecked());
    QCOMPARE(controllo<QLabel>(s, u"lblData"_s + x)->text(), testo);
    QCOMPARE(controllo<QComboBox>(s, u"cmbGiorni"_s + x)->currentText(), giorno);
    // The other pages keep their dates.
    for (int p = 0; p < 3; ++p)
        if (p != pagina)
            QCOMPARE(controllo<QLabel>(s, u"lblData"_s + lettera(p))->text(), date.at(p));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstAggManual::applica_data() {
    QTest::addColumn<int>("pagina");
    QTest::addColumn<QDate>("data");
    QTest::addColumn<QString>("testa");
    QTest::newRow("infrasettimanale")
        << 0 << QDate(2011, 3, 9) << u"Concorso n. 23 del Mercoledì 09/03/2011 Ore 20:45"_s;
    QTest::newRow("sabato") << 1 << QDate(2011, 3, 5)
                            << u"Concorso n. 23 del Sabato 05/03/2011 Ore 20:45"_s;
    QTest::newRow("domenica") << 2 << QDate(2011, 3, 6)
                              << u"Concorso n. 23 del Domenica 6/3/2011 Ore 20:45"_s;
}

void TstAggManual::applica() {
    QFETCH(int, pagina);
    QFETCH(QDate, data);
    QFETCH(QString, testa);
    AmbienteProva a;
    for (int p = 0; p < 3; ++p)
        a.scrivi(Schedine[p], schedina(u"Concorso n. 1%1 del Giovedì 01/01/2026 Ore 10:00"_s.arg(p),
                                       lettera(p).toLower()));
    QVERIFY(a.avvia());
    const auto prima = istantanea(a);
    QWidget *s = apri(a);
    QVERIFY(s);
    const QString x = lettera(pagina);
    clic(controllo<QRadioButton>(s, u"opt"_s + x));
    scriviSopra(controllo<QLineEdit>(s, u"txtConcorso"_s + x), u"23"_s);
    clic(controllo<QPushButton>(s, pulsanteData(pagina)));
    clicGiorno(controllo<QCalendarWidget>(s, u"mv"_s + x), data);
    scriviSopra(controllo<QLineEdit>(s, u"mskOra"_s + x), u"2045"_s);
    QCOMPARE(controllo<QLineEdit>(s, u"mskOra"_s + x)->text(), u"20:45"_s);
    scriviSopra(controllo<QLineEdit>(s, u"Squadra"_s + x + u"1_1"_s), u"Inter"_s);
    auto *ospite = controllo<QLineEdit>(s, u"Squadra"_s + x + u"1_2"_s);
    scriviSopra(ospite, u"milan "_s);
    QTest::sendKeyEvent(QTest::Click, ospite, Qt::Key_Agrave, u"à"_s, Qt::NoModifier);
    scriviSopra(controllo<QLineEdit>(s, u"Squadra"_s + x + u"7_2"_s), QString());
    AmbienteProva::fotografa(&a.pannello(), u"frmAggManual-"_s + x);
    clic(controllo<QPushButton>(s, u"cmdApplica"_s + x));

    QCOMPARE(a.dialoghi.testi(), QStringList{u"Modifiche effettuate."_s});
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    QCOMPARE(a.dialoghi.boxes.first().titolo, Dialoghi::titoloApplicazione());
    QTRY_VERIFY(!a.pannello().trovaSchermo(Nome));

    const QString sigla = lettera(pagina);
    QStringList attese{testa, u"1-INTER-MILAN À-"_s};
    for (int k = 2; k <= 14; ++k)
        attese.append(k == 7 ? u"7-CASA %1 7--"_s.arg(sigla)
                             : u"%1-CASA %2 %1-OSPITE %2 %1-"_s.arg(k).arg(sigla));
    QCOMPARE(contenuto(a.file(Schedine[pagina])), latin1(attese));
    // Nothing else is written.
    const auto dopo = istantanea(a);
    for (auto it = prima.cbegin(); it != prima.cend(); ++it)
        if (it.key() != Schedine[pagina])
            QVERIFY2(dopo.value(it.key()) == it.value(), qPrintable(it.key()));

    // Opened again, the page shows what was written.
    s = apri(a);
    QVERIFY(s);
    QCOMPARE(controllo<QLineEdit>(s, u"txtConcorso"_s + x)->text(), u"23"_s);
    QCOMPARE(controllo<QLabel>(s, u"lblData"_s + x)->text(), testa.section(u' ', 5, 5));
    QCOMPARE(controllo<QComboBox>(s, u"cmbGiorni"_s + x)->currentText(), testa.section(u' ', 4, 4));
    QCOMPARE(controllo<QLineEdit>(s, u"mskOra"_s + x)->text(), u"20:45"_s);
    QCOMPARE(controllo<QLineEdit>(s, u"Squadra"_s + x + u"1_2"_s)->text(), u"MILAN À"_s);
    QCOMPARE(controllo<QLineEdit>(s, u"Squadra"_s + x + u"7_2"_s)->text(), QString());
}

void TstAggManual::invioApplicaLaPagina() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    const auto prima = istantanea(a);
    QWidget *s = apri(a);
    QVERIFY(s);
    clic(controllo<QRadioButton>(s, u"optB"_s));
    auto *campo = controllo<QLineEdit>(s, u"SquadraB5_1"_s);
    scriviSopra(campo, u"nuova squadra"_s);
    QTest::keyClick(campo, Qt::Key_Return);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Modifiche effettuate."_s});
    QTRY_VERIFY(!a.pannello().trovaSchermo(Nome));
    QStringList sabato = FileDati::leggiRighe(a.file(u"SchedinaSabato.txt"_s));
    QCOMPARE(sabato.value(5), u"5-NUOVA SQUADRA-BOLOGNA FC 1909-"_s);
    // The delivered heading goes back as it came.
    QCOMPARE(sabato.value(0), u"Concorso n. 16 del Sabato 05/12/2026 Ore 15:00"_s);
    QCOMPARE(contenuto(a.file(Schedine[0])), prima.value(Schedine[0]));
    QCOMPARE(contenuto(a.file(Schedine[2])), prima.value(Schedine[2]));
}

void TstAggManual::schedinaVuota() {
    AmbienteProva a;
    // Reading stops at a "--" heading: the match lines below it are never read.
    a.scrivi(Schedine[2], schedina(u"Concorso n. -- del -- --/--/---- Ore --:--"_s, u"x"_s));
    QVERIFY(a.avvia());
    QWidget *s = apri(a);
    QVERIFY(s);
    clic(controllo<QRadioButton>(s, u"optC"_s));
    QCOMPARE(controllo<QLineEdit>(s, u"txtConcorsoC"_s)->text(), QString());
    QCOMPARE(controllo<QComboBox>(s, u"cmbGiorniC"_s)->currentText(), u"Lunedì"_s);
    QCOMPARE(controllo<QLabel>(s, u"lblDataC"_s)->text(), u"--/--/----"_s);
    QCOMPARE(controllo<QLineEdit>(s, u"mskOraC"_s)->text(), u":"_s);
    for (int k = 1; k <= 14; ++k)
        for (int lato = 1; lato <= 2; ++lato)
            QCOMPARE(controllo<QLineEdit>(s, u"SquadraC%1_%2"_s.arg(k).arg(lato))->text(),
                     QString());
    // The other pages are full.
    QCOMPARE(controllo<QLineEdit>(s, u"txtConcorsoB"_s)->text(), u"16"_s);
    AmbienteProva::fotografa(&a.pannello(), u"frmAggManual-vuota"_s);
    clic(controllo<QPushButton>(s, u"cmdApplicaC"_s));
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Modifiche effettuate."_s});
    QStringList attese{u"Concorso n.  del Lunedì --/--/---- Ore :"_s};
    for (int k = 1; k <= 14; ++k)
        attese.append(u"%1---"_s.arg(k));
    QCOMPARE(contenuto(a.file(Schedine[2])), latin1(attese));
    QTRY_VERIFY(!a.pannello().trovaSchermo(Nome));
    // Written so, the page opens again with its empty fields.
    s = apri(a);
    QVERIFY(s);
    QVERIFY(a.dialoghi.boxes.size() == 1);
    QCOMPARE(controllo<QLineEdit>(s, u"txtConcorsoC"_s)->text(), QString());
    QCOMPARE(controllo<QLabel>(s, u"lblDataC"_s)->text(), u"--/--/----"_s);
    QCOMPARE(controllo<QLineEdit>(s, u"SquadraC14_2"_s)->text(), QString());
}

void TstAggManual::esciNonScrive_data() {
    QTest::addColumn<int>("pagina");
    QTest::newRow("A") << 0;
    QTest::newRow("B") << 1;
    QTest::newRow("C") << 2;
}

void TstAggManual::esciNonScrive() {
    QFETCH(int, pagina);
    AmbienteProva a;
    QVERIFY(a.avvia());
    const auto prima = istantanea(a);
    QWidget *s = apri(a);
    QVERIFY(s);
    const QString x = lettera(pagina);
    clic(controllo<QRadioButton>(s, u"opt"_s + x));
    scriviSopra(controllo<QLineEdit>(s, u"txtConcorso"_s + x), u"99"_s);
    scriviSopra(controllo<QLineEdit>(s, u"Squadra"_s + x + u"2_1"_s), u"cambiata"_s);
    clic(controllo<QPushButton>(s, u"cmdEsci"_s + x));
    QTRY_VERIFY(!a.pannello().trovaSchermo(Nome));
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QCOMPARE(istantanea(a), prima);
}

void TstAggManual::fileMancante_data() {
    QTest::addColumn<QString>("file");
    for (const QString &f : Schedine)
        QTest::newRow(qPrintable(f)) << f;
}

void TstAggManual::fileMancante() {
    QFETCH(QString, file);
    AmbienteProva a;
    a.rimuovi(file);
    QVERIFY(a.avvia());
    a.dialoghi.svuota();
    const auto prima = istantanea(a);
    QVERIFY(!apri(a));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY2(a.dialoghi.boxes.first().testo.contains(file),
             qPrintable(a.dialoghi.boxes.first().testo));
    QCOMPARE(istantanea(a), prima);
    // The frame goes on: the entry opens the screen once the file is back.
    a.scrivi(file, schedina(u"Concorso n. 3 del Sabato 05/03/2011 Ore 15:00"_s, u"z"_s));
    QVERIFY(apri(a));
}

void TstAggManual::testoData_data() {
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QDate>("data");
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("giorno");
    QTest::newRow("A 5/3") << 0 << QDate(2011, 3, 5) << u"05/03/2011"_s << 5;
    QTest::newRow("B 5/3") << 1 << QDate(2011, 3, 5) << u"05/03/2011"_s << 5;
    QTest::newRow("C 5/3") << 2 << QDate(2011, 3, 5) << u"5/3/2011"_s << 5;
    QTest::newRow("C 31/12") << 2 << QDate(2023, 12, 31) << u"31/12/2023"_s << 6;
    QTest::newRow("A 31/12") << 0 << QDate(2023, 12, 31) << u"31/12/2023"_s << 6;
    QTest::newRow("B 1/1") << 1 << QDate(2024, 1, 1) << u"01/01/2024"_s << 0;
    QTest::newRow("C 1/10") << 2 << QDate(2024, 10, 1) << u"1/10/2024"_s << 1;
}

void TstAggManual::testoData() {
    QFETCH(int, tipo);
    QFETCH(QDate, data);
    QFETCH(QString, testo);
    QFETCH(int, giorno);
    QCOMPARE(SchedinaManuale::testoData(data, SchedinaManuale::tipo(tipo)), testo);
    QCOMPARE(SchedinaManuale::indiceGiorno(data), giorno);
}

void TstAggManual::caricaEApplica() {
    AmbienteProva a;
    SchedinaManuale::Pagina p;
    p.concorso = u"42"_s;
    p.giorno = u"Giovedì"_s;
    p.data = u"1/4/2027"_s;
    p.ora = u"21:00"_s;
    for (int k = 0; k < 14; ++k)
        p.squadre[std::size_t(k)] = {u"casa %1"_s.arg(k + 1), u"Ospite %1"_s.arg(k + 1)};
    for (int t = 0; t < 3; ++t) {
        const auto tipo = SchedinaManuale::tipo(t);
        SchedinaManuale::applica(a.cartella(), tipo, p);
        const QStringList righe = FileDati::leggiRighe(a.file(Schedine[t]));
        QCOMPARE(righe.size(), 15);
        QCOMPARE(righe.first(), u"Concorso n. 42 del Giovedì 1/4/2027 Ore 21:00"_s);
        QCOMPARE(righe.at(14), u"14-CASA 14-OSPITE 14-"_s);
        const SchedinaManuale::Pagina letta = SchedinaManuale::carica(a.cartella(), tipo);
        QCOMPARE(letta.concorso, p.concorso);
        QCOMPARE(letta.giorno, p.giorno);
        QCOMPARE(letta.data, p.data);
        QCOMPARE(letta.ora, p.ora);
        for (int k = 0; k < 14; ++k) {
            QCOMPARE(letta.squadre[std::size_t(k)][0], u"CASA %1"_s.arg(k + 1));
            QCOMPARE(letta.squadre[std::size_t(k)][1], u"OSPITE %1"_s.arg(k + 1));
        }
    }
    // Each kind has a file of its own.
    QVERIFY(SchedinaManuale::tipo(0) == FileSchedine::Tipo::Infrasettimanale);
    QVERIFY(SchedinaManuale::tipo(2) == FileSchedine::Tipo::Domenica);
}

void TstAggManual::trattinoNelNome() {
    AmbienteProva a;
    SchedinaManuale::Pagina p;
    p.concorso = u"1"_s;
    p.giorno = u"Sabato"_s;
    p.data = u"05/03/2011"_s;
    p.ora = u"15:00"_s;
    p.squadre[0] = {u"Pro-Vercelli"_s, u"Lecco"_s};
    SchedinaManuale::applica(a.cartella(), FileSchedine::Tipo::Sabato, p);
    QCOMPARE(FileDati::leggiRighe(a.file(u"SchedinaSabato.txt"_s)).value(1),
             u"1-PRO-VERCELLI-LECCO-"_s);
    // The "-" in the name shifts the pieces: the away team read back is the name's second half.
    const auto letta = SchedinaManuale::carica(a.cartella(), FileSchedine::Tipo::Sabato);
    QCOMPARE(letta.squadre[0][0], u"PRO"_s);
    QCOMPARE(letta.squadre[0][1], u"VERCELLI"_s);
    QCOMPARE(letta.squadre[1][0], QString());
}

void TstAggManual::rigaSenzaSquadre() {
    AmbienteProva a;
    QStringList righe = schedina(u"Concorso n. 2 del Sabato 05/03/2011 Ore 15:00"_s, u"s"_s);
    righe[4] = u"4 ROMA LAZIO"_s;
    a.scrivi(Schedine[1], righe);
    const QString testo = StrumentiProva::errore(
        [&] { SchedinaManuale::carica(a.cartella(), FileSchedine::Tipo::Sabato); });
    QVERIFY(!testo.isNull());
    QVERIFY2(testo.contains(u"4 ROMA LAZIO"_s), qPrintable(testo));
    // Opened from the menu, the fault is a box and no screen.
    QVERIFY(a.avvia());
    a.dialoghi.svuota();
    QVERIFY(!apri(a));
    QCOMPARE(a.dialoghi.testi(), QStringList{testo});
}

QTEST_MAIN(TstAggManual)
#include "tst_aggmanual.moc"
