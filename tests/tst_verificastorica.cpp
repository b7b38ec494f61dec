// The historical check of a chain of filters: the chain kept by the workspace as it is applied
// and undone, the walk-forward replay held against the workspace itself run on the archive cut
// before each contest, no look-ahead, cancel, and the screen used as a user would.
#include "supporto/ambienteprova.h"
#include "supporto/letturaxlsx.h"
#include "supporto/strumentiprova.h"

#include "analisi/bancocolonne9.h"
#include "analisi/colonne9.h"
#include "analisi/frmcolonne9.h"
#include "analisi/frmverificastorica.h"
#include "analisi/verificastorica.h"
#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "core/frmattendere.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"

#include <QAction>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScatterSeries>
#include <QSet>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QXYSeries>

using namespace Qt::StringLiterals;

namespace {

// An archive of the given columns of the 9, each completed to 14 signs, 38 contests a season.
ArchivioColonne archivio(const QStringList &colonne9) {
    QStringList righe;
    for (qsizetype i = 0; i < colonne9.size(); ++i)
        righe.append(Colonna::rigaArchivio(QString::number(2000 + i / 38),
                                           QString::number(i % 38 + 1),
                                           colonne9.at(i) + u"1X21X"_s));
    return ArchivioColonne::daRighe(righe);
}

QStringList colonneDi(const ArchivioColonne &a) {
    QStringList c;
    for (int j = 0; j < a.numero(); ++j)
        c.append(a.colonna(j).left(9));
    return c;
}

// The chains the replay is held against the workspace with, as a user applies them.
void applicaCatena(BancoColonne9 &b, int quale) {
    switch (quale) {
    case 1:
        b.formula(u"4"_s, u"3"_s, u"2"_s);
        b.eliminaMaiUscite();
        break;
    case 2:
        b.eliminaFrequenza(u"0"_s);
        break;
    case 3:
        b.segnoFisso(u"1"_s, u"1"_s);
        b.conteggio(u"X"_s, u"2"_s);
        b.consecutivi(u"2"_s, u"2"_s, u"0"_s);
        break;
    case 4:
        b.segniDiversi(1);
        b.eliminaInCasella(u"2"_s, u"?"_s, u"5"_s);
        b.eliminaFrequenza(u"1"_s);
        break;
    case 5:
        b.consecutivi(u"1"_s, u"2"_s, u"1"_s);
        b.eliminaMaiUscite();
        b.terzineOmogenee();
        break;
    case 6:
        b.eliminaSegno(u"X"_s);
        b.tieni({0, 1, 2, 4, 8, 13, 26, 80, 242, 728}, u"Dieci colonne"_s);
        break;
    default:
        break;
    }
}

struct Banco {
    Griglia griglia;
    BancoColonne9 banco{griglia};
    explicit Banco(const ArchivioColonne &a) {
        banco.prepara();
        banco.carica(Colonne9::calcola(a));
    }
};

} // namespace

class TstVerificaStorica : public QObject {
    Q_OBJECT

private slots:
    void catenaDelBanco();
    void comeLoSpazioDiLavoro_data();
    void comeLoSpazioDiLavoro();
    void maiUsciteSenzaGuardareAvanti();
    void colonnaDelConcorsoNonContata();
    void catenaVuota();
    void limiti();
    void annullamento();
    void giudizio_data();
    void giudizio();
    void schermoComeUnUtente();
    void annullaLasciaLoSchermo();
};

void TstVerificaStorica::catenaDelBanco() {
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioSintetico(300, 7));
    Banco b(a);
    QVERIFY(b.banco.catena().isEmpty());
    QVERIFY(!b.banco.formula(u"4"_s, u"3"_s, u"2"_s));
    QVERIFY(!b.banco.segnoFisso(u"5"_s, u"X"_s));
    QCOMPARE(PassoFiltro::descrizioni(b.banco.catena()),
             (QStringList{u"Formula 4-3-2"_s, u"Segno fisso X in posizione 5"_s}));
    // A refused step adds nothing, but its snapshot is taken: the undo then changes nothing.
    QVERIFY(b.banco.formula(u"4"_s, u"4"_s, u"4"_s));
    QCOMPARE(b.banco.catena().size(), 2);
    b.banco.annulla();
    QCOMPARE(b.banco.catena().size(), 2);
    // A step, then its undo: the step is gone from the chain, and a second undo is the same.
    b.banco.eliminaMaiUscite();
    QCOMPARE(b.banco.catena().size(), 3);
    QCOMPARE(b.banco.catena().last().descrizione(), u"Elimina le mai uscite"_s);
    b.banco.annulla();
    b.banco.annulla();
    QCOMPARE(b.banco.catena().size(), 2);
    // "Ripristina tutto" starts a new chain; its undo brings back the grid and the chain.
    b.banco.eliminaMaiUscite();
    b.banco.carica(Colonne9::calcola(a));
    QVERIFY(b.banco.catena().isEmpty());
    b.banco.annulla();
    QCOMPARE(b.banco.catena().size(), 2);
    // No sign chosen in the consecutive signs: a renumbering, no step.
    b.banco.consecutivi(QString(), QString(), QString());
    QCOMPARE(b.banco.catena().size(), 2);
    // A system starts its chain with its own columns.
    QList<Colonne9::Statistica> sistema{{u"111111111"_s, QString(), u"-"_s},
                                        {u"1X1X1X1X1"_s, u"1"_s, u"3"_s}};
    b.banco.caricaSistema(sistema);
    QCOMPARE(PassoFiltro::descrizioni(b.banco.catena()),
             QStringList{u"Sistema integrale di 2 colonne"_s});
    QCOMPARE(PassoFiltro::descrizioni({}), QStringList{u"Nessun filtro"_s});
}

void TstVerificaStorica::comeLoSpazioDiLavoro_data() {
    QTest::addColumn<int>("catena");
    QTest::newRow("formula e mai uscite") << 1;
    QTest::newRow("cifra di frequenza") << 2;
    QTest::newRow("fisso, conteggio, consecutivi da eliminare") << 3;
    QTest::newRow("segni diversi, casella, cifra") << 4;
    QTest::newRow("consecutivi contati, mai uscite, omogenee") << 5;
    QTest::newRow("segno eliminato, insieme dato") << 6;
}

// For contests spread over the replay, the workspace itself is run on the archive cut just
// before the contest: it keeps as many columns as the replay says, and the drawn one exactly
// when the replay says so.
void TstVerificaStorica::comeLoSpazioDiLavoro() {
    QFETCH(int, catena);
    // Some columns come back, so hits happen.
    QStringList colonne = colonneDi(ArchivioColonne::daRighe(archivioSintetico(260, 11)));
    for (int j = 210; j < 260; j += 3)
        colonne[j] = colonne.at(j - 150);
    colonne[230] = u"111111111"_s;
    const ArchivioColonne a = archivio(colonne);
    Banco completo(a);
    applicaCatena(completo.banco, catena);
    const VerificaStorica::Esito e = VerificaStorica::esegui(a, completo.banco.catena(), 55);
    QCOMPARE(e.concorsi.size(), 55);
    QCOMPARE(e.concorsi.first().progressivo, 206);
    for (int j : {206, 213, 230, 231, 245, 259, 260}) {
        const VerificaStorica::Concorso &c = e.concorsi.at(j - 206);
        QCOMPARE(c.progressivo, j);
        QCOMPARE(c.colonna, colonne.at(j - 1));
        QStringList prima;
        for (int i = 0; i < j - 1; ++i)
            prima.append(colonne.at(i));
        Banco b(archivio(prima));
        applicaCatena(b.banco, catena);
        QCOMPARE(c.tenute, b.banco.totale());
        QCOMPARE(c.presa, b.banco.indici().contains(Colonne9::indice(colonne.at(j - 1))));
    }
    int prese = 0;
    for (const auto &c : e.concorsi)
        prese += c.presa;
    QCOMPARE(e.prese, prese);
}

// "Elimina le mai uscite" walking forward keeps the columns drawn before the contest: a hit is a
// column that came out earlier. Counted here with a plain set. In the archive as a whole every
// contest's own column was drawn, so the naive in-sample check would hit them all.
void TstVerificaStorica::maiUsciteSenzaGuardareAvanti() {
    QStringList colonne = colonneDi(ArchivioColonne::daRighe(archivioSintetico(320, 3)));
    for (int j = 250; j < 320; j += 2)
        colonne[j] = colonne.at(j - 40);
    const ArchivioColonne a = archivio(colonne);
    const VerificaStorica::Esito e =
        VerificaStorica::esegui(a, {PassoFiltro::eliminaMaiUscite()}, 100);
    QCOMPARE(e.concorsi.size(), 100);
    QSet<QString> viste;
    for (int i = 0; i < 220; ++i)
        viste.insert(colonne.at(i));
    int prese = 0;
    for (int k = 0; k < 100; ++k) {
        const QString c = colonne.at(220 + k);
        QCOMPARE(e.concorsi.at(k).tenute, viste.size());
        QCOMPARE(e.concorsi.at(k).presa, viste.contains(c));
        prese += viste.contains(c);
        viste.insert(c);
    }
    QCOMPARE(e.prese, prese);
    QVERIFY(prese >= 35 && prese < 100);

    // In sample: Rit. from the whole archive keeps every contest's column.
    Banco b(a);
    b.banco.eliminaMaiUscite();
    const QList<int> tenute = b.banco.indici();
    int inCampione = 0;
    for (int k = 0; k < 100; ++k)
        inCampione += tenute.contains(Colonne9::indice(colonne.at(220 + k)));
    QCOMPARE(inCampione, 100);
    QVERIFY(e.prese < inCampione);
}

// A column drawn for the first time has Freq. " 0" before its contest: the cipher 0 throws it
// out there; the next time it comes out its Freq. is " 1" and it stays.
void TstVerificaStorica::colonnaDelConcorsoNonContata() {
    QStringList colonne;
    for (int i = 0; i < 205; ++i)
        colonne.append(Colonne9::elenco().at(2 * i + 1));
    const QString nuova = u"2X2X2X2X2"_s;
    QVERIFY(!colonne.contains(nuova));
    colonne << nuova << nuova;
    const VerificaStorica::Esito e =
        VerificaStorica::esegui(archivio(colonne), {PassoFiltro::eliminaFrequenza(u"0"_s)}, 2);
    QCOMPARE(e.concorsi.size(), 2);
    QVERIFY(!e.concorsi.at(0).presa);
    QVERIFY(e.concorsi.at(1).presa);
    // Before the first: the 205 columns drawn once (" 1"); before the second, one more.
    QCOMPARE(e.concorsi.at(0).tenute, 205);
    QCOMPARE(e.concorsi.at(1).tenute, 206);
    QCOMPARE(e.prese, 1);
}

void TstVerificaStorica::catenaVuota() {
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioSintetico(400, 5));
    const VerificaStorica::Esito e = VerificaStorica::esegui(a, {}, 80);
    QCOMPARE(e.concorsi.size(), 80);
    QCOMPARE(e.prese, 80);
    for (const auto &c : e.concorsi) {
        QCOMPARE(c.tenute, Colonne9::Numero);
        QVERIFY(c.presa);
    }
    QCOMPARE(e.mediaTenute, double(Colonne9::Numero));
    QCOMPARE(e.probabilitaCaso, 1.0);
    QCOMPARE(VerificaStorica::testoGiudizio(e), u"La catena ha fatto quanto il caso."_s);
}

void TstVerificaStorica::limiti() {
    const ArchivioColonne corto = ArchivioColonne::daRighe(archivioSintetico(205, 1));
    QCOMPARE(VerificaStorica::massimo(corto), 0);
    QVERIFY(VerificaStorica::esegui(corto, {}, 10).concorsi.isEmpty());
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioSintetico(230, 1));
    QCOMPARE(VerificaStorica::massimo(a), 25);
    const VerificaStorica::Esito e = VerificaStorica::esegui(a, {}, 1000);
    QCOMPARE(e.concorsi.size(), 25);
    QCOMPARE(e.concorsi.first().progressivo, 206);
    QCOMPARE(e.concorsi.last().progressivo, 230);
    QCOMPARE(e.concorsi.last().stagione, a.campo(229, ArchivioColonne::Stagione));
    QCOMPARE(e.concorsi.last().concorso, a.campo(229, ArchivioColonne::Concorso));
    QVERIFY(VerificaStorica::esegui(a, {}, 0).concorsi.isEmpty());
}

void TstVerificaStorica::annullamento() {
    const ArchivioColonne a = ArchivioColonne::daRighe(archivioSintetico(400, 5));
    int chiamate = 0;
    const VerificaStorica::Esito e = VerificaStorica::esegui(
        a, {PassoFiltro::eliminaMaiUscite()}, 100, [&chiamate](int fatti, int totale) {
            ++chiamate;
            return totale == 100 && fatti < 10;
        });
    QVERIFY(e.annullata);
    QCOMPARE(chiamate, 2);
    QCOMPARE(e.concorsi.size(), 10);
}

void TstVerificaStorica::giudizio_data() {
    QTest::addColumn<QList<int>>("tenute");
    QTest::addColumn<QList<bool>>("prese");
    QTest::addColumn<QString>("atteso");
    // 20 contests with 984 columns each: chance hits one of them on average (0.05 each).
    const QList<int> pochi(20, 984);
    QList<bool> quattro(20, false);
    for (int i : {1, 5, 9, 13})
        quattro[i] = true;
    QTest::newRow("nettamente meglio") << pochi << quattro
                                       << u"La catena ha fatto nettamente meglio del caso "
                                          "(3,1 deviazioni standard)."_s;
    QList<bool> due(20, false);
    due[3] = due[7] = true;
    QTest::newRow("meglio, entro le oscillazioni")
        << pochi << due
        << u"La catena ha fatto meglio del caso, ma entro le oscillazioni del caso (1,0 "
           "deviazioni standard)."_s;
    // Half the universe each time, never hit: 10 expected.
    QTest::newRow("nettamente peggio") << QList<int>(20, 9841) << QList<bool>(20, false)
                                       << u"La catena ha fatto nettamente peggio del caso "
                                          "(4,5 deviazioni standard)."_s;
}

void TstVerificaStorica::giudizio() {
    QFETCH(QList<int>, tenute);
    QFETCH(QList<bool>, prese);
    QFETCH(QString, atteso);
    VerificaStorica::Esito e;
    double somma = 0;
    for (qsizetype i = 0; i < tenute.size(); ++i) {
        VerificaStorica::Concorso c;
        c.tenute = tenute.at(i);
        c.presa = prese.at(i);
        e.prese += c.presa;
        somma += c.tenute;
        e.concorsi.append(c);
    }
    e.mediaTenute = somma / double(tenute.size());
    e.probabilitaCaso = e.mediaTenute / Colonne9::Numero;
    QCOMPARE(VerificaStorica::testoGiudizio(e), atteso);
}

namespace {

void scegli(QWidget *schermo, const QString &nome, const QString &voce) {
    auto *c = StrumentiProva::controllo<QComboBox>(schermo, nome);
    const int i = c->findText(voce);
    c->setCurrentIndex(i);
    emit c->activated(i);
}

FrmVerificaStorica *apriVerifica(AmbienteProva &a, FrmColonne9 *frm) {
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(frm, u"cmdVerificaStorica"_s),
                      Qt::LeftButton);
    return qobject_cast<FrmVerificaStorica *>(a.pannello().trovaSchermo(u"frmVerificaStorica"_s));
}

} // namespace

void TstVerificaStorica::schermoComeUnUtente() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FrmColonne9 *frm = a.apriAnalisi9();
    QVERIFY(frm);
    // Formula 4-3-2, then the never drawn out.
    scegli(frm, u"cmb1"_s, u"4"_s);
    scegli(frm, u"cmbX"_s, u"3"_s);
    scegli(frm, u"cmb2"_s, u"2"_s);
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(frm, u"cmdOk"_s), Qt::LeftButton);
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(frm, u"cmdEliminaMaiUscite"_s),
                      Qt::LeftButton);
    QVERIFY(a.dialoghi.boxes.isEmpty());

    FrmVerificaStorica *v = apriVerifica(a, frm);
    QVERIFY(v);
    auto *lista = StrumentiProva::controllo<QListWidget>(v, u"lstCatena"_s);
    QCOMPARE(lista->count(), 2);
    QCOMPARE(lista->item(0)->text(), u"1. Formula 4-3-2"_s);
    QCOMPARE(lista->item(1)->text(), u"2. Elimina le mai uscite"_s);
    auto *concorsi = StrumentiProva::controllo<QSpinBox>(v, u"txtConcorsi"_s);
    QCOMPARE(concorsi->value(), 100);
    QCOMPARE(concorsi->maximum(), a.stato().NumeroColonne() - 205);
    concorsi->setValue(60);
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(v, u"cmdAvvia"_s), Qt::LeftButton);
    QVERIFY(QTest::qWaitForWindowActive(&a.pannello()));

    const VerificaStorica::Esito atteso = VerificaStorica::esegui(
        a.stato().ColonneArchivio, {PassoFiltro::formula(4, 3, 2), PassoFiltro::eliminaMaiUscite()},
        60);
    auto *vista = StrumentiProva::controllo<VistaGriglia>(v, u"Griglia"_s);
    const Griglia &g = *vista->griglia();
    QCOMPARE(g.righe(), 61);
    QCOMPARE(g.testo(0, 4), u"Colonne tenute"_s);
    for (int r = 1; r <= 60; ++r) {
        const auto &c = atteso.concorsi.at(r - 1);
        QCOMPARE(g.testo(r, 0), QString::number(c.progressivo));
        QCOMPARE(g.testo(r, 3), c.colonna);
        QCOMPARE(g.testo(r, 4), QString::number(c.tenute));
        QCOMPARE(g.testo(r, 5), c.presa ? u"Sì"_s : u"No"_s);
    }
    QCOMPARE(StrumentiProva::controllo<QLabel>(v, u"lblPrese"_s)->text(),
             VerificaStorica::testoPrese(atteso));
    QCOMPARE(StrumentiProva::controllo<QLabel>(v, u"lblCaso"_s)->text(),
             VerificaStorica::testoCaso(atteso));
    QVERIFY(!StrumentiProva::controllo<QLabel>(v, u"lblGiudizio"_s)->text().isEmpty());

    // The chart: one point a contest, the hits marked.
    auto *grafico = StrumentiProva::controllo<QChartView>(v, u"graficoTenute"_s);
    const QList<QAbstractSeries *> serie = grafico->chart()->series();
    QCOMPARE(serie.size(), 2);
    QCOMPARE(static_cast<QXYSeries *>(serie.at(0))->count(), 60);
    QCOMPARE(static_cast<QXYSeries *>(serie.at(1))->count(), atteso.prese);

    // Sorted by the kept columns, descending first.
    StrumentiProva::doppioClic(vista, 1, 4);
    for (int r = 2; r <= 60; ++r)
        QVERIFY(g.testo(r - 1, 4).toInt() >= g.testo(r, 4).toInt());

    // Exported with the right button.
    QTemporaryDir dir;
    StrumentiProva::clicDestro(vista, 1, 1);
    QVERIFY(QTest::qWaitFor([&a] {
        auto *m = a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s);
        return m && m->isVisible();
    }));
    const QString file = dir.filePath(u"verifica.xlsx"_s);
    a.dialoghi.fileDaSalvare.enqueue(file);
    a.pannello().findChild<QAction *>(u"mnuExcel"_s)->trigger();
    a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s)->hide();
    QVERIFY(QFile::exists(file));
    if (LetturaXlsx::lettoreDisponibile()) {
        const auto l = LetturaXlsx::leggi(file);
        QVERIFY(l);
        QCOMPARE(l->valori.value(u"A1"_s), u"Vespara - Verifica storica dei filtri, alla data "_s +
                                               QDate::currentDate().toString(u"dd/MM/yyyy"_s));
        // The rows as sorted: the kept columns as numbers, the column of the 9 as text.
        QCOMPARE(l->valori.value(u"E4"_s), g.testo(1, 4));
        QCOMPARE(l->tipi.value(u"E4"_s), u"n"_s);
        QCOMPARE(l->valori.value(u"D4"_s), g.testo(1, 3));
        QCOMPARE(l->tipi.value(u"D4"_s), u"s"_s);
    }
    AmbienteProva::fotografa(&a.pannello(), u"verificastorica"_s);

    // A new chain handed over clears the results of the old one.
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(frm, u"cmdPrec"_s), Qt::LeftButton);
    QCOMPARE(apriVerifica(a, frm), v);
    QCOMPARE(lista->count(), 1);
    QCOMPARE(g.righe(), 1);
}

void TstVerificaStorica::annullaLasciaLoSchermo() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FrmColonne9 *frm = a.apriAnalisi9();
    QVERIFY(frm);
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(frm, u"cmdEliminaMaiUscite"_s),
                      Qt::LeftButton);
    FrmVerificaStorica *v = apriVerifica(a, frm);
    QVERIFY(v);
    auto *concorsi = StrumentiProva::controllo<QSpinBox>(v, u"txtConcorsi"_s);
    concorsi->setValue(20);
    auto *avvia = StrumentiProva::controllo<QPushButton>(v, u"cmdAvvia"_s);
    QTest::mouseClick(avvia, Qt::LeftButton);
    QVERIFY(QTest::qWaitForWindowActive(&a.pannello()));
    const Griglia &g = *StrumentiProva::controllo<VistaGriglia>(v, u"Griglia"_s)->griglia();
    QCOMPARE(g.righe(), 21);
    const QString prese = StrumentiProva::controllo<QLabel>(v, u"lblPrese"_s)->text();

    // The whole archive asked for, and "Annulla" pressed in the waiting box at once.
    concorsi->setValue(concorsi->maximum());
    bool premuto = false;
    QTimer::singleShot(0, &a.pannello(), [&] {
        if (auto *attesa = a.pannello().findChild<FrmAttendere *>()) {
            QTest::mouseClick(StrumentiProva::controllo<QPushButton>(attesa, u"cmdAnnulla"_s),
                              Qt::LeftButton);
            premuto = true;
        }
    });
    QTest::mouseClick(avvia, Qt::LeftButton);
    QVERIFY(premuto);
    QVERIFY(QTest::qWaitForWindowActive(&a.pannello()));
    QVERIFY(a.pannello().isEnabled());
    QCOMPARE(g.righe(), 21);
    QCOMPARE(StrumentiProva::controllo<QLabel>(v, u"lblPrese"_s)->text(), prese);
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

QTEST_MAIN(TstVerificaStorica)
#include "tst_verificastorica.moc"
