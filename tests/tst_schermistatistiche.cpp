// The statistics screens as a user meets them: opened from the menu and the toolbar, their grids
// and labels on the delivered archive, sorted by a double click, exported (the workbook read
// back), the cinquine printed to a PDF file through the preview, moved by their background, and
// the faults and the empty archive.
#include "supporto/ambienteprova.h"
#include "supporto/anteprimaprova.h"
#include "supporto/letturaxlsx.h"
#include "supporto/strumentiprova.h"

#include "analisi/cinquinemai.h"
#include "analisi/dettagliultimacv.h"
#include "analisi/frmcinquinemai.h"
#include "analisi/frmdettagliultimacv.h"
#include "analisi/frmformule.h"
#include "analisi/frmstatsegni.h"
#include "analisi/statisticaformule.h"
#include "analisi/statisticaquattordici.h"
#include "core/colonna.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/frmanteprima.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::controllo;

namespace {

template <typename T> T *apri(AmbienteProva &a, const QString &azione, const QString &nome) {
    a.pannello().findChild<QAction *>(azione)->trigger();
    return qobject_cast<T *>(a.pannello().trovaSchermo(nome));
}

QStringList colonna(const Griglia &g, int c) {
    QStringList celle;
    for (int r = 1; r < g.righe(); ++r)
        celle.append(g.testo(r, c));
    return celle;
}

bool menuVisibile(AmbienteProva &a) {
    auto *m = a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s);
    return m && m->isVisible();
}

// The grid handed to the export with the right button and written to a workbook: its cells as
// a spreadsheet reads them back.
std::optional<LetturaXlsx::Lettura> esporta(AmbienteProva &a, VistaGriglia *vista,
                                            const QString &file) {
    StrumentiProva::clicDestro(vista, 1, 1);
    if (!QTest::qWaitFor([&a] { return menuVisibile(a); }))
        return std::nullopt;
    a.dialoghi.fileDaSalvare.enqueue(file);
    a.pannello().findChild<QAction *>(u"mnuExcel"_s)->trigger();
    a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s)->hide();
    if (!LetturaXlsx::lettoreDisponibile())
        return LetturaXlsx::Lettura{};
    return LetturaXlsx::leggi(file);
}

QString oggi() {
    return QDate::currentDate().toString(u"dd/MM/yyyy"_s);
}

} // namespace

class TstSchermiStatistiche : public QObject {
    Q_OBJECT

private slots:
    void apertiDalMenu_data();
    void apertiDalMenu();
    void statisticaDei14Segni();
    void statisticaOrdinataEdEsportata();
    void formuleOrdinateEdEsportate();
    void cinquineEStampaInPdf();
    void cinquineOltreLaCapacita();
    void dettagliDellUltimaColonna();
    void archivioVuoto();
    void trascinatiDalloSfondo_data();
    void trascinatiDalloSfondo();
    void fotografie();
};

void TstSchermiStatistiche::apertiDalMenu_data() {
    QTest::addColumn<QString>("azione");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QString>("titolo");
    QTest::addColumn<bool>("senzaCornice");
    QTest::newRow("mnuStatSegni") << u"mnuStatSegni"_s << u"frmStatSegni"_s
                                  << u"Statistica dei 14 segni"_s << true;
    QTest::newRow("TB(5)") << u"TB(5)"_s << u"frmStatSegni"_s << u"Statistica dei 14 segni"_s
                           << true;
    QTest::newRow("mnuCinquineMai")
        << u"mnuCinquineMai"_s << u"frmCinquineMai"_s << u"Le Cinquine mai uscite"_s << true;
    QTest::newRow("mnuFormule") << u"mnuFormule"_s << u"frmFormule"_s << u"Le Formule derivate"_s
                                << false;
    QTest::newRow("mnuDettagliCV") << u"mnuDettagliCV"_s << u"frmDettagliUltimaCV"_s
                                   << u"Dettagli Ultima Colonna Vincente"_s << true;
}

void TstSchermiStatistiche::apertiDalMenu() {
    QFETCH(QString, azione);
    QFETCH(QString, schermo);
    QFETCH(QString, titolo);
    QFETCH(bool, senzaCornice);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QAction *voce = a.pannello().findChild<QAction *>(azione);
    QVERIFY(voce);
    QVERIFY(voce->isEnabled());
    voce->trigger();
    QWidget *s = a.pannello().trovaSchermo(schermo);
    QVERIFY(s);
    QCOMPARE(s->windowTitle(), titolo);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QWidget *finestra = MdiStile::finestraDi(s);
    QCOMPARE(bool(finestra->windowFlags() & Qt::FramelessWindowHint), senzaCornice);
    // The screens without a title bar close with their lblEsci.
    if (senzaCornice) {
        QPointer<QWidget> vivo(s);
        QTest::mouseClick(controllo<QPushButton>(s, u"lblEsci"_s), Qt::LeftButton);
        QTRY_VERIFY(!vivo || !a.pannello().trovaSchermo(schermo));
    }
}

void TstSchermiStatistiche::statisticaDei14Segni() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *s = apri<FrmStatSegni>(a, u"mnuStatSegni"_s, u"frmStatSegni"_s);
    QVERIFY(s);
    const Griglia &g = s->griglia();
    QCOMPARE(g.righe(), 15);
    QCOMPARE(g.colonne(), 10);
    QCOMPARE(g.righeFisse(), 1);
    QCOMPARE(colonna(g, 0).first(), u"1"_s);
    QCOMPARE(colonna(g, 0).last(), u"14"_s);
    const QStringList testata{u"Pos."_s, u"1"_s, u"X"_s, u"2"_s, u"1"_s,
                              u"X"_s,    u"2"_s, u"1"_s, u"X"_s, u"2"_s};
    for (int c = 0; c < 10; ++c) {
        QCOMPARE(g.testo(0, c), testata.at(c));
        QCOMPARE(g.allineamento(5, c), Griglia::Allineamento::CentroCentro);
    }
    QCOMPARE(g.altezzaRighe(), 300);
    // The figures of the year of today, as the system clock says.
    const StatisticaQuattordici::Figure f = StatisticaQuattordici::calcola(
        a.stato().ColonneArchivio, QString::number(QDate::currentDate().year()));
    for (int p = 1; p <= 14; ++p)
        for (int k = 0; k < 3; ++k) {
            QCOMPARE(g.testo(p, 1 + k), QString::number(f.storiche[p - 1][k]));
            QCOMPARE(g.testo(p, 4 + k), QString::number(f.anno[p - 1][k]));
            QCOMPARE(g.testo(p, 7 + k), QString::number(f.ritardi[p - 1][k]));
        }
    // Back colours: pale yellow, pink, peach, pale cyan (blue-green-red C0FFFF, C0C0FF, C0E0FF,
    // FFFFC0).
    const QColor colori[4] = {QColor(255, 255, 192), QColor(255, 192, 192), QColor(255, 224, 192),
                              QColor(192, 255, 255)};
    for (int c = 0; c < 10; ++c)
        for (int r : {0, 7, 14})
            QCOMPARE(g.sfondo(r, c), colori[c == 0 ? 0 : 1 + (c - 1) / 3]);
    // The title grid above it.
    auto *vistaTitoli = controllo<VistaGriglia>(s, u"GrigliaTitoli"_s);
    const Griglia &t = *vistaTitoli->griglia();
    QCOMPARE(t.righe(), 1);
    QCOMPARE(t.altezzaRighe(), 600);
    const int larghezze[4] = {500, 1800, 1800, 1800};
    const QString titoli[4] = {QString(), u"FREQUENZE ST."_s, u"FREQUENZE ATT."_s, u"RITARDI"_s};
    for (int c = 0; c < 4; ++c) {
        QCOMPARE(t.larghezzaColonna(c), larghezze[c]);
        QCOMPARE(t.testo(0, c), titoli[c]);
        QCOMPARE(t.sfondo(0, c), colori[c]);
    }
    int blocco = 0;
    for (int c = 1; c <= 3; ++c)
        blocco += g.larghezzaColonna(c);
    QCOMPARE(blocco, 1800);
    QCOMPARE(g.larghezzaColonna(0), 500);
    const RigaArchivio &ultima = a.stato().ColonneArchivio.ultima();
    QCOMPARE(controllo<QLabel>(s, u"lblConcorso"_s)->text(),
             u"Stagione: %1 Concorso n. %2"_s.arg(ultima[0], ultima[1]));
    QVERIFY(!g.suggerimento(0, 7).isEmpty());
}

void TstSchermiStatistiche::statisticaOrdinataEdEsportata() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *s = apri<FrmStatSegni>(a, u"mnuStatSegni"_s, u"frmStatSegni"_s);
    QVERIFY(s);
    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    const Griglia &g = s->griglia();
    const QStringList ritardi = colonna(g, 8);
    const QStringList storiche = colonna(g, 1);
    // Descending first, then ascending, whole rows moving: "Pos." says where each came from.
    StrumentiProva::doppioClic(vista, 3, 8);
    QStringList discesa = colonna(g, 8);
    for (int r = 1; r < discesa.size(); ++r)
        QVERIFY(discesa.at(r - 1).toInt() >= discesa.at(r).toInt());
    for (int r = 1; r <= 14; ++r) {
        const int da = g.testo(r, 0).toInt();
        QCOMPARE(g.testo(r, 8), ritardi.at(da - 1));
        QCOMPARE(g.testo(r, 1), storiche.at(da - 1));
    }
    QCOMPARE(vista->colonnaOrdine(), 8);
    StrumentiProva::doppioClic(vista, 3, 8);
    const QStringList salita = colonna(g, 8);
    for (int r = 1; r < salita.size(); ++r)
        QVERIFY(salita.at(r - 1).toInt() <= salita.at(r).toInt());
    // "Pos." sorts too: descending, as the toggle stands after two sorts.
    StrumentiProva::doppioClic(vista, 1, 0);
    QCOMPARE(g.testo(1, 0), u"14"_s);

    QTemporaryDir dir;
    const auto l = esporta(a, vista, dir.filePath(u"segni.xlsx"_s));
    QCOMPARE(a.stato().TitoloEsportazione, u"La Statistica dei 14 segni, alla data "_s + oggi());
    QCOMPARE(a.stato().RigheEsportazione, 14);
    QCOMPARE(a.stato().ColonneEsportazione, 10);
    QVERIFY(l);
    if (!LetturaXlsx::lettoreDisponibile())
        QSKIP("python3 con openpyxl non disponibile: il foglio non si rilegge");
    QCOMPARE(l->valori.value(u"A1"_s),
             u"Vespara - La Statistica dei 14 segni, alla data "_s + oggi());
    QCOMPARE(l->valori.value(u"A4"_s), u"14"_s);
    QCOMPARE(l->tipi.value(u"A4"_s), u"n"_s);
    QCOMPARE(l->valori.value(u"I17"_s), g.testo(14, 8));
    QCOMPARE(l->tipi.value(u"I17"_s), u"n"_s);
}

void TstSchermiStatistiche::formuleOrdinateEdEsportate() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *s = apri<FrmFormule>(a, u"mnuFormule"_s, u"frmFormule"_s);
    QVERIFY(s);
    const Griglia &g = s->griglia();
    QCOMPARE(g.righe(), 48);
    QCOMPARE(g.colonne(), 4);
    const QStringList testata{u"Pos."_s, u"Formula"_s, u"Freq."_s, u"Rit."_s};
    const int larghezze[4] = {500, 800, 800, 800};
    const QColor colori[4] = {QColor(255, 255, 192), QColor(255, 192, 128), QColor(255, 192, 192),
                              QColor(192, 255, 255)};
    for (int c = 0; c < 4; ++c) {
        QCOMPARE(g.testo(0, c), testata.at(c));
        QCOMPARE(g.larghezzaColonna(c), larghezze[c]);
        QCOMPARE(g.sfondo(30, c), colori[c]);
    }
    const StatisticaFormule::Figure f = StatisticaFormule::calcola(a.stato().ColonneArchivio);
    for (int i = 1; i <= 47; ++i) {
        QCOMPARE(g.testo(i, 0), u"%1)"_s.arg(i));
        QCOMPARE(g.testo(i, 1), Colonna::formule().at(i - 1));
        QCOMPARE(g.testo(i, 2), QString::number(f[i - 1].frequenza));
        QCOMPARE(g.testo(i, 3), QString::number(f[i - 1].ritardo));
    }
    // The formula of the last contest has the delay 0.
    const int ultima = int(Colonna::formule().indexOf(Colonna::formulaNove(
        a.stato().ColonneArchivio.colonna(a.stato().ColonneArchivio.numero() - 1))));
    QVERIFY(ultima >= 0);
    QCOMPARE(g.testo(ultima + 1, 3), u"0"_s);

    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    StrumentiProva::doppioClic(vista, 5, 2);
    for (int r = 2; r < 48; ++r)
        QVERIFY(g.testo(r - 1, 2).toInt() >= g.testo(r, 2).toInt());
    for (int r = 1; r < 48; ++r) {
        const int da = g.testo(r, 0).chopped(1).toInt();
        QCOMPARE(g.testo(r, 1), Colonna::formule().at(da - 1));
    }
    QTemporaryDir dir;
    const auto l = esporta(a, vista, dir.filePath(u"formule.xlsx"_s));
    QCOMPARE(a.stato().TitoloEsportazione, u"Riepilogo Formule, alla data "_s + oggi());
    QCOMPARE(a.stato().RigheEsportazione, 47);
    QVERIFY(l);
    if (!LetturaXlsx::lettoreDisponibile())
        QSKIP("python3 con openpyxl non disponibile: il foglio non si rilegge");
    QCOMPARE(l->valori.value(u"A1"_s), u"Vespara - Riepilogo Formule, alla data "_s + oggi());
    QCOMPARE(l->valori.value(u"B4"_s), g.testo(1, 1));
    QCOMPARE(l->valori.value(u"C4"_s), g.testo(1, 2));
    QCOMPARE(l->tipi.value(u"C4"_s), u"n"_s);
}

void TstSchermiStatistiche::cinquineEStampaInPdf() {
    if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QSKIP("pdfinfo (poppler-utils) non è installato");
    AmbienteProva a;
    QVERIFY(a.avvia());
    QTemporaryDir uscita;
    a.stato().FileStampaPdf = uscita.filePath(u"cinquine.pdf"_s);
    auto *s = apri<FrmCinquineMai>(a, u"mnuCinquineMai"_s, u"frmCinquineMai"_s);
    QVERIFY(s);
    const Griglia &g = s->griglia();
    const QStringList mai = CinquineMai::delloSchermo(a.stato().ColonneArchivio);
    QCOMPARE(g.righe(), mai.size() + 1);
    QCOMPARE(g.testo(0, 0), u"Ind."_s);
    QCOMPARE(g.testo(0, 1), u"Cinquina"_s);
    QCOMPARE(g.larghezzaColonna(0), 500);
    QCOMPARE(g.larghezzaColonna(1), 1000);
    QCOMPARE(colonna(g, 1), mai);
    for (int n = 1; n < g.righe(); ++n)
        QCOMPARE(g.testo(n, 0), QString::number(n));
    QCOMPARE(g.allineamento(1, 1), Griglia::Allineamento::SinistraCentro);

    // The print lists the cinquine missing from the latest 205 contests: more than the screen.
    const QStringList stampate = CinquineMai::dellaStampa(a.stato().ColonneArchivio, 205);
    QVERIFY(stampate.size() > mai.size());
    QTest::mouseClick(controllo<QPushButton>(s, u"imgStampa"_s), Qt::LeftButton);
    FrmAnteprima *p = AnteprimaProva::aperta();
    QVERIFY(p);
    const int pagine = int((stampate.size() + 1 + 63) / 64);
    QCOMPARE(p->pagine(), pagine);
    QCOMPARE(a.stato().OrientamentoPagina, u"verticale"_s);
    a.dialoghi.risposte.enqueue(true);
    bool vista = false;
    AnteprimaProva::quandoAppareStampa([&vista](QWidget *w) {
        vista = true;
        QTest::mouseClick(controllo<QPushButton>(w, u"Command1"_s), Qt::LeftButton);
    });
    controllo<QAction>(p, u"Stampa"_s)->trigger();
    QVERIFY(vista);
    QCOMPARE(AnteprimaProva::paginePdf(a.stato().FileStampaPdf), pagine);
    AmbienteProva::fotografa(p, u"cinquine-anteprima"_s);
    p->close();
}

void TstSchermiStatistiche::cinquineOltreLaCapacita() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.stato().ColonneArchivio = ArchivioColonne::daRighe(archivioSintetico(5001, 2));
    a.pannello().findChild<QAction *>(u"mnuCinquineMai"_s)->trigger();
    QVERIFY(!a.pannello().trovaSchermo(u"frmCinquineMai"_s));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"5000"_s));
    // The program goes on: the other screens open on the same archive.
    a.pannello().findChild<QAction *>(u"mnuFormule"_s)->trigger();
    QVERIFY(a.pannello().trovaSchermo(u"frmFormule"_s));
    a.pannello().findChild<QAction *>(u"mnuDettagliCV"_s)->trigger();
    QVERIFY(a.pannello().trovaSchermo(u"frmDettagliUltimaCV"_s));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
}

void TstSchermiStatistiche::dettagliDellUltimaColonna() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *s = apri<FrmDettagliUltimaCV>(a, u"mnuDettagliCV"_s, u"frmDettagliUltimaCV"_s);
    QVERIFY(s);
    const ArchivioColonne &archivio = a.stato().ColonneArchivio;
    const RigaArchivio &ultima = archivio.ultima();
    QCOMPARE(controllo<QLabel>(s, u"lblStagione"_s)->text(), ultima[0]);
    QCOMPARE(controllo<QLabel>(s, u"lblConcorso"_s)->text(), ultima[1]);
    const Griglia &g = s->grigliaCV();
    QCOMPARE(g.righe(), 1);
    QCOMPARE(g.colonne(), 14);
    for (int i = 0; i < 14; ++i) {
        QCOMPARE(g.testo(0, i), ultima[2].mid(i, 1));
        QCOMPARE(g.colore(0, i), i < 9 ? QColor(255, 0, 0) : QColor(0, 0, 0));
        QCOMPARE(g.allineamento(0, i), Griglia::Allineamento::CentroCentro);
    }
    const DettagliUltimaCV::Dettagli d = DettagliUltimaCV::calcola(archivio);
    const QString suffissi[5] = {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"Coppia"_s};
    for (int k = 0; k < 5; ++k) {
        const QString gruppo = k < 4 ? u"lblTerzina"_s + suffissi[k] : u"lblCoppia"_s;
        QCOMPARE(controllo<QLabel>(s, gruppo)->text(), d.gruppi[k].segni);
        QCOMPARE(controllo<QLabel>(s, u"lblRit"_s + suffissi[k])->text(),
                 QString::number(d.gruppi[k].figura.ritardo));
        QCOMPARE(controllo<QLabel>(s, u"lblFreq"_s + suffissi[k])->text(),
                 QString::number(d.gruppi[k].figura.frequenza));
    }
    const QString terzina1 =
        ultima[2].left(1) + u' ' + ultima[2].mid(1, 1) + u' ' + ultima[2].mid(2, 1);
    QCOMPARE(controllo<QLabel>(s, u"lblTerzina1"_s)->text(), terzina1);
    for (const QString &testo :
         {u"Colonna vincente"_s, u"Stagione"_s, u"Concorso"_s, u"Prima Terzina"_s,
          u"SecondaTerzina"_s, u"Terza Terzina"_s, u"Quarta Terzina"_s, u"Coppia finale"_s,
          u"Prima dell'ultimo concorso"_s, u"era così..."_s}) {
        bool trovato = false;
        for (const QLabel *l : s->findChildren<QLabel *>())
            trovato = trovato || l->text() == testo;
        QVERIFY2(trovato, qPrintable(testo));
    }
}

void TstSchermiStatistiche::archivioVuoto() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().chiudiSchermi();
    a.stato().ColonneArchivio = ArchivioColonne();
    auto *segni = apri<FrmStatSegni>(a, u"mnuStatSegni"_s, u"frmStatSegni"_s);
    QVERIFY(segni);
    QCOMPARE(controllo<QLabel>(segni, u"lblConcorso"_s)->text(), u"--"_s);
    QCOMPARE(segni->griglia().testo(1, 1), u"0"_s);
    auto *cinquine = apri<FrmCinquineMai>(a, u"mnuCinquineMai"_s, u"frmCinquineMai"_s);
    QVERIFY(cinquine);
    QCOMPARE(cinquine->griglia().righe(), 244);
    auto *formule = apri<FrmFormule>(a, u"mnuFormule"_s, u"frmFormule"_s);
    QVERIFY(formule);
    QCOMPARE(colonna(formule->griglia(), 2), QStringList(47, u"0"_s));
    QCOMPARE(colonna(formule->griglia(), 3), QStringList(47, u"0"_s));
    auto *dettagli = apri<FrmDettagliUltimaCV>(a, u"mnuDettagliCV"_s, u"frmDettagliUltimaCV"_s);
    QVERIFY(dettagli);
    QCOMPARE(controllo<QLabel>(dettagli, u"lblStagione"_s)->text(), u"--"_s);
    QCOMPARE(controllo<QLabel>(dettagli, u"lblConcorso"_s)->text(), u"--"_s);
    QCOMPARE(controllo<QLabel>(dettagli, u"lblRit1"_s)->text(), u"--"_s);
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstSchermiStatistiche::trascinatiDalloSfondo_data() {
    QTest::addColumn<QString>("azione");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QString>("presa"); // the control pressed; empty: the background
    QTest::newRow("segni, sfondo") << u"mnuStatSegni"_s << u"frmStatSegni"_s << QString();
    QTest::newRow("cinquine, griglia")
        << u"mnuCinquineMai"_s << u"frmCinquineMai"_s << u"Griglia"_s;
    QTest::newRow("dettagli, Label1")
        << u"mnuDettagliCV"_s << u"frmDettagliUltimaCV"_s << u"Label1"_s;
    QTest::newRow("dettagli, grigliaCV")
        << u"mnuDettagliCV"_s << u"frmDettagliUltimaCV"_s << u"grigliaCV"_s;
}

void TstSchermiStatistiche::trascinatiDalloSfondo() {
    QFETCH(QString, azione);
    QFETCH(QString, schermo);
    QFETCH(QString, presa);
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(azione)->trigger();
    QWidget *s = a.pannello().trovaSchermo(schermo);
    QVERIFY(s);
    QWidget *finestra = MdiStile::finestraDi(s);
    QWidget *bersaglio = s;
    if (!presa.isEmpty()) {
        bersaglio = controllo<QWidget>(s, presa);
        if (auto *v = qobject_cast<VistaGriglia *>(bersaglio))
            bersaglio = v->viewport();
    }
    const QPoint da(bersaglio == s ? 4 : bersaglio->width() / 2, 4);
    const QPoint prima = finestra->pos();
    QTest::mousePress(bersaglio, Qt::LeftButton, {}, da);
    QMouseEvent muovi(QEvent::MouseMove, QPointF(da + QPoint(30, 20)),
                      QPointF(bersaglio->mapToGlobal(da + QPoint(30, 20))), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bersaglio, &muovi);
    QTest::mouseRelease(bersaglio, Qt::LeftButton, {}, da + QPoint(30, 20));
    QCOMPARE(finestra->pos(), prima + QPoint(30, 20));
}

void TstSchermiStatistiche::fotografie() {
    // Pictures of the four screens at 1280×800, when VESPARA_FOTO names a folder.
    if (qEnvironmentVariableIsEmpty("VESPARA_FOTO"))
        QSKIP("VESPARA_FOTO non è impostata");
    AmbienteProva a(QSize(1280, 800));
    QVERIFY(a.avvia());
    a.pannello().showNormal();
    a.pannello().resize(1280, 800);
    for (const auto &[azione, nome] : {std::pair{u"mnuStatSegni"_s, u"frmStatSegni"_s},
                                       std::pair{u"mnuCinquineMai"_s, u"frmCinquineMai"_s},
                                       std::pair{u"mnuFormule"_s, u"frmFormule"_s},
                                       std::pair{u"mnuDettagliCV"_s, u"frmDettagliUltimaCV"_s}}) {
        a.pannello().chiudiSchermi();
        a.pannello().findChild<QAction *>(azione)->trigger();
        QCoreApplication::processEvents();
        QVERIFY(a.pannello().trovaSchermo(nome));
        AmbienteProva::fotografa(&a.pannello(), nome);
    }
}

QTEST_MAIN(TstSchermiStatistiche)
#include "tst_schermistatistiche.moc"
