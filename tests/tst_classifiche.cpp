// The league tables: the marking of the two teams of the match (whole names in an Italian series,
// the first word in a foreign league, with its odd readings), the grid as the table file gives
// it, and the screen as a user meets it: opened from the menu, printed to PDF, exported, moved.
#include "supporto/ambienteprova.h"
#include "supporto/anteprimaprova.h"
#include "supporto/letturaxlsx.h"
#include "supporto/strumentiprova.h"

#include "campionati/filecampionati.h"
#include "campionati/frmclassifiche.h"
#include "campionati/leghe.h"
#include "campionati/mostraclassifica.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::controllo;

namespace {

const Leghe::Lega &lega(const char *codice) {
    return *Leghe::perCodice(QString::fromLatin1(codice));
}

// A table of `righe` teams named by the list, figures made up.
FileCampionati::Classifica tabella(const QStringList &squadre) {
    FileCampionati::Classifica c{u"Campionato - Aggiornata al 22/11/2026 18:00"_s, {}};
    for (int r = 1; r <= squadre.size(); ++r) {
        FileCampionati::RigaClassifica campi;
        for (int k = 0; k < FileCampionati::CampiRiga; ++k)
            campi[k] = QString::number(40 - r + k);
        campi[0] = QString::number(r);
        campi[1] = squadre.at(r - 1);
        c.righe.append(campi);
    }
    return c;
}

QStringList nomi(int n, const QString &prefisso) {
    QStringList l;
    for (int i = 1; i <= n; ++i)
        l.append(u"%1 %2"_s.arg(prefisso).arg(i));
    return l;
}

// The rows of the grid marked as a team of the match.
QList<int> segnate(const Griglia &g) {
    QList<int> righe;
    for (int r = 1; r < g.righe(); ++r)
        if (g.colore(r, 0) == Griglia::daBGR(MostraClassifica::TestoSegnata))
            righe.append(r);
    return righe;
}

} // namespace

class TstClassifiche : public QObject {
    Q_OBJECT

private slots:
    void segnata_data();
    void segnata();
    void grigliaDellaClassifica();
    void legaSconosciuta();
    void stampaCentrata();
    void dalMenuConLeSquadre();
    void straniereDalMenu();
    void fileMancante();
    void stampaInPdfEdEsportazione();
    void spostataERicordata();
    void ordinataDallIntestazione();
    void colonnaAllargata();
};

void TstClassifiche::segnata_data() {
    QTest::addColumn<QString>("codice");
    QTest::addColumn<QString>("squadra");
    QTest::addColumn<QString>("casa");
    QTest::addColumn<QString>("ospite");
    QTest::addColumn<bool>("atteso");
    QTest::newRow("italiana, stesso nome") << u"A"_s << u"INTER"_s << u"INTER"_s << u"0"_s << true;
    QTest::newRow("italiana, maiuscole diverse")
        << u"A"_s << u"Inter"_s << u"0"_s << u"iNTER"_s << true;
    QTest::newRow("italiana, nome intero")
        << u"A"_s << u"INTER"_s << u"INTER MILANO"_s << u"0"_s << false;
    QTest::newRow("italiana, spazi contano")
        << u"B"_s << u"BARI "_s << u"BARI"_s << u"0"_s << false;
    QTest::newRow("straniera, prima parola in maiuscolo")
        << u"Spagna"_s << u"Real Madrid"_s << u" REAL SOCIEDAD "_s << u"0"_s << true;
    QTest::newRow("straniera, parola in minuscolo")
        << u"Spagna"_s << u"REAL MADRID"_s << u"Real"_s << u"Betis"_s << false;
    QTest::newRow("straniera, parola dentro il nome")
        << u"Germania"_s << u"BORUSSIA DORTMUND"_s << u"0"_s << u"DORTMUND"_s << true;
    QTest::newRow("straniera, \"0\" in un nome")
        << u"Germania"_s << u"1899 HOFFENHEIM"_s << u"0"_s << u"0"_s << false;
    QTest::newRow("straniera, \"0\" nel nome")
        << u"Germania"_s << u"FC 04 SCHALKE"_s << u"0"_s << u"0"_s << true;
    QTest::newRow("straniera, nome vuoto: tutte")
        << u"Olanda"_s << u"AJAX"_s << QString() << u"0"_s << true;
    QTest::newRow("straniera, nome vuoto, squadra vuota")
        << u"Olanda"_s << QString() << QString() << u"0"_s << false;
}

void TstClassifiche::segnata() {
    QFETCH(QString, codice);
    QFETCH(QString, squadra);
    QFETCH(QString, casa);
    QFETCH(QString, ospite);
    QFETCH(bool, atteso);
    QCOMPARE(MostraClassifica::segnata(*Leghe::perCodice(codice), squadra, casa, ospite), atteso);
}

void TstClassifiche::grigliaDellaClassifica() {
    // Germania: 18 rows filled, the rest of the grid plain.
    Griglia g;
    const FileCampionati::Classifica c = tabella(nomi(18, u"SQUADRA"_s));
    MostraClassifica::riempi(g, &lega("Germania"), c, u"0"_s, u"SQUADRA"_s);
    QCOMPARE(g.righe(), 23);
    QCOMPARE(g.colonne(), 21);
    QCOMPARE(g.righeFisse(), 1);
    QCOMPARE(g.testo(0, 0), u"Pos."_s);
    QCOMPARE(g.testo(0, 20), u"RS"_s);
    QCOMPARE(g.larghezzaColonna(0), 400);
    QCOMPARE(g.larghezzaColonna(1), 1800);
    QCOMPARE(g.larghezzaColonna(20), 400);
    QCOMPARE(g.testo(18, 1), u"SQUADRA 18"_s);
    QCOMPARE(g.testo(18, 20), c.righe.at(17)[20]);
    QCOMPARE(g.sfondo(18, 1), QColor(255, 224, 192));
    QCOMPARE(g.sfondo(18, 2), QColor(255, 0, 0));
    QCOMPARE(g.colore(18, 2), QColor(255, 255, 255));
    QVERIFY(g.grassetto(18, 2));
    QCOMPARE(g.dimensioneCarattere(18, 2), 10.0);
    QCOMPARE(g.allineamento(18, 0), Griglia::Allineamento::CentroCentro);
    QVERIFY(g.allineamento(18, 1) != Griglia::Allineamento::CentroCentro);
    for (int r = 19; r < 23; ++r) {
        QCOMPARE(g.testo(r, 1), QString());
        QVERIFY(!g.sfondo(r, 1).isValid());
        QVERIFY(!g.sfondo(r, 2).isValid());
    }
    // Every team holds the word "SQUADRA": all 18 marked, in blue and bold, the points white.
    QCOMPARE(segnate(g).size(), 18);
    QCOMPARE(g.colore(5, 7), QColor(0, 0, 255));
    QVERIFY(g.grassetto(5, 7));
    QCOMPARE(g.colore(5, 2), QColor(255, 255, 255));
    // An Italian series marks the two whole names.
    MostraClassifica::riempi(g, &lega("A"), tabella(nomi(20, u"SQUADRA"_s)), u"squadra 3"_s,
                             u"SQUADRA 17"_s);
    QCOMPARE(segnate(g), (QList<int>{3, 17}));
    // A table file longer than the league: only its rows.
    MostraClassifica::riempi(g, &lega("Austria"), tabella(nomi(10, u"A"_s)), u"0"_s, u"0"_s);
    QCOMPARE(g.testo(10, 1), u"A 10"_s);
    QCOMPARE(g.testo(11, 1), QString());
}

void TstClassifiche::legaSconosciuta() {
    Griglia g;
    MostraClassifica::riempi(g, nullptr, {}, u"0"_s, u"0"_s);
    QCOMPARE(g.righe(), 23);
    for (int r = 1; r < 23; ++r)
        QCOMPARE(g.testo(r, 1), QString());
}

void TstClassifiche::stampaCentrata() {
    Griglia g;
    MostraClassifica::riempi(g, &lega("B"), tabella(nomi(22, u"B"_s)), u"0"_s, u"0"_s);
    DispositivoRegistratore d;
    MostraClassifica::stampa(d, g, u"Serie B - giornata 14"_s);
    QStringList testi;
    QRectF area;
    for (const auto &c : d.chiamate) {
        if (c.operazione == DispositivoRegistratore::Operazione::Testo)
            testi.append(c.testo);
        if (c.operazione == DispositivoRegistratore::Operazione::TestoInRettangolo ||
            c.operazione == DispositivoRegistratore::Operazione::Rettangolo)
            area = area.isNull() ? c.rettangolo : area.united(c.rettangolo);
    }
    QCOMPARE(testi.mid(0, 2), (QStringList{u"Programma Vespara"_s, u"Serie B - giornata 14"_s}));
    // Rows 0 to 21: the 22nd team of Serie B stays off the page, as it always did.
    bool ventiduesima = false, ventunesima = false;
    for (const auto &c : d.chiamate) {
        ventiduesima = ventiduesima || c.testo == u"B 22"_s;
        ventunesima = ventunesima || c.testo == u"B 21"_s;
    }
    QVERIFY(ventunesima);
    QVERIFY(!ventiduesima);
    const QSizeF pagina = d.dimensionePagina();
    QVERIFY(qAbs(area.center().x() - pagina.width() / 2) < 30);
    QVERIFY(qAbs(area.center().y() - pagina.height() / 2) < 30);
}

void TstClassifiche::dalMenuConLeSquadre() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FileCampionati::scriviClassifica(a.cartella(), lega("A"), tabella(nomi(20, u"SQUADRA"_s)));
    a.stato().SquadraCasa = u"Squadra 2"_s;
    a.stato().SquadraOspite = u"SQUADRA 20"_s;
    QAction *voce = a.pannello().findChild<QAction *>(u"mnuSerieA"_s);
    QVERIFY(voce && voce->isEnabled());
    voce->trigger();
    auto *s = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(s);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QCOMPARE(a.stato().LegaClassifica, u"A"_s);
    QVERIFY(a.stato().ClassificaInMostra);
    QCOMPARE(controllo<QLabel>(s, u"lblConcorso"_s)->text(),
             u"Campionato - Aggiornata al 22/11/2026 18:00"_s);
    QCOMPARE(segnate(s->griglia()), (QList<int>{2, 20}));
    // Another league from the menu takes the place of the table on show.
    FileCampionati::scriviClassifica(a.cartella(), lega("B"), tabella(nomi(22, u"B"_s)));
    a.pannello().findChild<QAction *>(u"mnuSerieB"_s)->trigger();
    auto *b = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(b);
    QVERIFY(b != s);
    QCOMPARE(b->griglia().testo(22, 1), u"B 22"_s);
    QCOMPARE(segnate(b->griglia()), QList<int>());
    AmbienteProva::fotografa(&a.pannello(), u"frmClassifiche"_s);
    QTest::mouseClick(controllo<QPushButton>(b, u"lblEsci"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QTRY_VERIFY(!a.stato().ClassificaInMostra);
}

void TstClassifiche::straniereDalMenu() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // The updater writes "classif-Inghilterra.txt"; the screen finds it.
    QStringList squadre{u"ARSENAL"_s, u"MAN CITY"_s, u"LIVERPOOL"_s, u"FULHAM 0"_s};
    for (char c = 'A'; c < 'A' + 16; ++c)
        squadre.append(u"CLUB "_s + QChar::fromLatin1(c));
    FileDati::scriviRighe(a.file(u"classif-Inghilterra.txt"_s),
                          FileCampionati::righeDaClassifica(tabella(squadre)));
    a.stato().SquadraCasa = QString();
    a.stato().SquadraOspite = u"Liverpool"_s;
    a.pannello().findChild<QAction *>(u"mnuClassInghilterra"_s)->trigger();
    auto *s = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(s);
    // England alone puts "0" for an empty team: the team with a 0 in its name is marked, and
    // "Liverpool" in mixed case marks nothing.
    QCOMPARE(a.stato().SquadraCasa, u"0"_s);
    QCOMPARE(segnate(s->griglia()), QList<int>{4});
}

void TstClassifiche::fileMancante() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.rimuovi(u"Classif-scozia.txt"_s);
    a.pannello().findChild<QAction *>(u"mnuClassScozia"_s)->trigger();
    QVERIFY(!a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"Classif-scozia.txt"_s));
    QVERIFY(!a.stato().ClassificaInMostra);
}

void TstClassifiche::stampaInPdfEdEsportazione() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QTemporaryDir uscita;
    a.stato().FileStampaPdf = uscita.filePath(u"classifica.pdf"_s);
    FileCampionati::scriviClassifica(a.cartella(), lega("Austria"), tabella(nomi(10, u"A"_s)));
    a.pannello().findChild<QAction *>(u"mnuClassAustria"_s)->trigger();
    auto *s = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(s);
    auto *imgStampa = controllo<QPushButton>(s, u"imgStampa"_s);
    // No: nothing printed.
    a.dialoghi.risposte.enqueue(false);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Procedere con  la stampa?"_s});
    QVERIFY(!QFile::exists(a.stato().FileStampaPdf));
    a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    if (!QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QCOMPARE(AnteprimaProva::paginePdf(a.stato().FileStampaPdf), 1);
    else
        QVERIFY(QFile::exists(a.stato().FileStampaPdf));

    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    StrumentiProva::clicDestro(vista, 1, 1);
    QTRY_VERIFY(a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s)->isVisible());
    QVERIFY(a.stato().TitoloEsportazione.startsWith(u"Classifica, alla data "_s));
    QCOMPARE(a.stato().RigheEsportazione, 22);
    QCOMPARE(a.stato().ColonneEsportazione, 21);
    const QString xlsx = uscita.filePath(u"classifica.xlsx"_s);
    a.dialoghi.fileDaSalvare.enqueue(xlsx);
    a.pannello().findChild<QAction *>(u"mnuExcel"_s)->trigger();
    a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s)->hide();
    QVERIFY(QFile::exists(xlsx));
    if (!LetturaXlsx::lettoreDisponibile())
        QSKIP("python3 con openpyxl non disponibile: il foglio non si rilegge");
    const auto l = LetturaXlsx::leggi(xlsx);
    QVERIFY(l);
    QCOMPARE(l->valori.value(u"B4"_s), u"A 1"_s);
    QCOMPARE(l->valori.value(u"B13"_s), u"A 10"_s);
    QCOMPARE(l->tipi.value(u"C4"_s), u"n"_s);
}

void TstClassifiche::spostataERicordata() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FileCampionati::scriviClassifica(a.cartella(), lega("A"), tabella(nomi(20, u"S"_s)));
    a.pannello().findChild<QAction *>(u"mnuSerieA"_s)->trigger();
    QWidget *s = a.pannello().trovaSchermo(u"frmClassifiche"_s);
    QVERIFY(s);
    auto *lbl = controllo<QLabel>(s, u"lblConcorso"_s);
    QWidget *finestra = MdiStile::finestraDi(s);
    const QPoint prima = finestra->pos();
    const QPoint da(5, 5);
    QTest::mousePress(lbl, Qt::LeftButton, {}, da);
    QMouseEvent muovi(QEvent::MouseMove, QPointF(da + QPoint(-20, 15)),
                      QPointF(lbl->mapToGlobal(da + QPoint(-20, 15))), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(lbl, &muovi);
    QTest::mouseRelease(lbl, Qt::LeftButton, {}, da + QPoint(-20, 15));
    QCOMPARE(finestra->pos(), prima + QPoint(-20, 15));
    QCOMPARE(a.stato().PosizioneClassifiche, std::optional<QPoint>(prima + QPoint(-20, 15)));
    // The next table opens where the last one was left.
    a.pannello().findChild<QAction *>(u"mnuSerieA"_s)->trigger();
    QWidget *nuova = a.pannello().trovaSchermo(u"frmClassifiche"_s);
    QVERIFY(nuova && nuova != s);
    QCOMPARE(MdiStile::finestraDi(nuova)->pos(), prima + QPoint(-20, 15));
}

void TstClassifiche::ordinataDallIntestazione() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QTemporaryDir uscita;
    a.stato().FileStampaPdf = uscita.filePath(u"classifica.pdf"_s);
    // Six teams and four rows without one in the table of a league of ten; the rest of the
    // grid is empty.
    const QStringList squadre{u"JUVENTUS"_s, u"ATALANTA"_s,      u"ROMA"_s,
                              u"BOLOGNA"_s,  u"HELLAS VERONA"_s, u"ÉLITE"_s};
    FileCampionati::Classifica c = tabella(squadre + QStringList(4));
    const QStringList punti{u"80"_s, u"75"_s, u"81"_s, u"40"_s, u"75"_s, u"3"_s};
    for (int i = 0; i < squadre.size(); ++i)
        c.righe[i][2] = punti[i];
    for (qsizetype i = squadre.size(); i < c.righe.size(); ++i)
        for (int k = 2; k < FileCampionati::CampiRiga; ++k)
            c.righe[i][k].clear();
    FileCampionati::scriviClassifica(a.cartella(), lega("Austria"), c);
    a.stato().SquadraCasa = u"ROMA"_s;
    a.stato().SquadraOspite = u"BOLOGNA"_s;
    a.pannello().findChild<QAction *>(u"mnuClassAustria"_s)->trigger();
    auto *s = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY2(s, qPrintable(a.dialoghi.testi().join(u'|')));
    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    const Griglia &g = s->griglia();
    const auto colonna = [&g](int c) {
        QStringList testi;
        for (int r = 1; r < g.righe(); ++r)
            if (!g.testo(r, 1).isEmpty())
                testi.append(g.testo(r, c));
        return testi;
    };
    const auto nomiSegnati = [&g] {
        QStringList nomi;
        for (const int r : segnate(g))
            nomi.append(g.testo(r, 1));
        return nomi;
    };
    QCOMPARE(colonna(1), squadre);
    QCOMPARE(nomiSegnati(), (QStringList{u"ROMA"_s, u"BOLOGNA"_s}));

    // By the team: names in order, accents beside their plain letters; descending first, as
    // every sort of the program; the marks go with their teams, and the empty rows stay below.
    StrumentiProva::clicIntestazione(vista, 1);
    QCOMPARE(colonna(1), (QStringList{u"ROMA"_s, u"JUVENTUS"_s, u"HELLAS VERONA"_s, u"ÉLITE"_s,
                                      u"BOLOGNA"_s, u"ATALANTA"_s}));
    QCOMPARE(nomiSegnati(), (QStringList{u"ROMA"_s, u"BOLOGNA"_s}));
    QCOMPARE(g.sfondo(1, 1), Griglia::daBGR(MostraClassifica::SfondoSquadra));
    QCOMPARE(g.sfondo(1, 2), Griglia::daBGR(MostraClassifica::SfondoPunti));
    for (int r = squadre.size() + 1; r < g.righe(); ++r)
        QVERIFY(g.testo(r, 1).isEmpty());
    QCOMPARE(g.testo(squadre.size() + 1, 0), u"7"_s); // the rows without a team, in their order
    StrumentiProva::clicIntestazione(vista, 1);
    QCOMPARE(colonna(1), (QStringList{u"ATALANTA"_s, u"BOLOGNA"_s, u"ÉLITE"_s, u"HELLAS VERONA"_s,
                                      u"JUVENTUS"_s, u"ROMA"_s}));
    QCOMPARE(vista->colonnaOrdine(), 1);
    QCOMPARE(vista->versoOrdine(), Griglia::Verso::Crescente);
    QCOMPARE(nomiSegnati(), (QStringList{u"BOLOGNA"_s, u"ROMA"_s}));

    // By the points, as numbers: equal points keep the order they stood in.
    StrumentiProva::clicIntestazione(vista, 2);
    QCOMPARE(colonna(2), (QStringList{u"81"_s, u"80"_s, u"75"_s, u"75"_s, u"40"_s, u"3"_s}));
    QCOMPARE(colonna(1), (QStringList{u"ROMA"_s, u"JUVENTUS"_s, u"ATALANTA"_s, u"HELLAS VERONA"_s,
                                      u"BOLOGNA"_s, u"ÉLITE"_s}));

    // The print takes the table as it stands now.
    DispositivoRegistratore registratore;
    MostraClassifica::stampa(registratore, g, u"Titolo"_s);
    const QString stampato = registratore.testi().join(u'|');
    QVERIFY(stampato.indexOf(u"ROMA"_s) < stampato.indexOf(u"JUVENTUS"_s));
    QVERIFY(stampato.indexOf(u"JUVENTUS"_s) < stampato.indexOf(u"ATALANTA"_s));

    // Back to the table of the file: the position, ascending.
    StrumentiProva::clicIntestazione(vista, 0);
    QCOMPARE(vista->versoOrdine(), Griglia::Verso::Crescente);
    QCOMPARE(colonna(1), squadre);
    QCOMPARE(nomiSegnati(), (QStringList{u"ROMA"_s, u"BOLOGNA"_s}));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstClassifiche::colonnaAllargata() {
    // A long name becomes readable: the column of the teams widened by its edge, or fitted by a
    // double click there; the groups above follow their columns, and the window takes the table.
    AmbienteProva a(QSize(1024, 768));
    QVERIFY(a.avvia());
    const QString lunga = u"FC INTERNAZIONALE MILANO"_s;
    QStringList squadre = nomi(20, u"SQUADRA"_s);
    squadre[3] = lunga;
    FileCampionati::scriviClassifica(a.cartella(), lega("A"), tabella(squadre));
    a.stato().SquadraCasa = lunga;
    a.pannello().findChild<QAction *>(u"mnuSerieA"_s)->trigger();
    auto *s = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(s);
    QCoreApplication::processEvents();
    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    auto *totali = controllo<QLabel>(s, u"lblGruppo(0)"_s);
    QFont grassetto = vista->font();
    grassetto.setBold(true);
    const int testo = QFontMetrics(grassetto).horizontalAdvance(lunga);
    QCOMPARE(vista->columnWidth(1), 120);
    QVERIFY(vista->columnWidth(1) < testo);
    const int larghezzaVista = vista->width();
    const int xTotali = totali->mapTo(s, QPoint(0, 0)).x();
    const int xTabella = vista->mapTo(s, QPoint(0, 0)).x();
    QCOMPARE(xTotali - xTabella, vista->frameWidth() + vista->columnWidth(0) +
                                     vista->columnWidth(1) + vista->columnWidth(2));

    StrumentiProva::trascinaBordo(vista, 1, 60);
    QCOMPARE(vista->columnWidth(1), 180);
    QCOMPARE(s->griglia().larghezzaColonna(1), 1800); // the print keeps its widths
    QTRY_COMPARE(vista->width(), larghezzaVista + 60);
    QTRY_COMPARE(totali->mapTo(s, QPoint(0, 0)).x(), xTotali + 60);
    QCOMPARE(controllo<QLabel>(s, u"lblGruppo(2)"_s)->width(),
             6 * vista->columnWidth(15)); // the last group, six columns of their own width

    StrumentiProva::doppioClicBordo(vista, 1);
    QVERIFY2(vista->columnWidth(1) >= testo && vista->columnWidth(1) <= testo + 24,
             qPrintable(u"%1 per %2"_s.arg(vista->columnWidth(1)).arg(testo)));
    QCoreApplication::processEvents();
    // The sub-window grew with the screen, within the area: nothing of the table scrolls away.
    auto *scorrimento = qobject_cast<QScrollArea *>(s->parentWidget()->parentWidget());
    QVERIFY(scorrimento);
    QTRY_VERIFY(scorrimento->viewport()->width() >= s->width());
    QWidget *finestra = MdiStile::finestraDi(s);
    QVERIFY(a.pannello().area()->viewport()->rect().contains(finestra->geometry()));
    AmbienteProva::fotografa(&a.pannello(), u"frmClassifiche-colonna-allargata"_s);
}

QTEST_MAIN(TstClassifiche)
#include "tst_classifiche.moc"
