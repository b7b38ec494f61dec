// The outputs of the screens as a user meets them: the list of the 9 in the preview and on paper
// (a PDF file here), the pages and the zoom of the preview, the print of a range and its cancel,
// the export of the grids, the prints of the signs panel and of the archive.
#include "supporto/ambienteprova.h"

#include "analisi/frmcolonne9.h"
#include "analisi/frmpannellosegni.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/frmanteprima.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

template <typename T> T *cerca(QObject *in, const QString &nome) {
    T *w = in->findChild<T *>(nome);
    if (!w)
        qFatal("controllo assente: %s", qPrintable(nome));
    return w;
}

FrmAnteprima *anteprima() {
    const QWidgetList finestre = QApplication::topLevelWidgets();
    for (QWidget *w : finestre)
        if (w->objectName() == u"PrnPrv"_s && w->isVisible())
            return qobject_cast<FrmAnteprima *>(w);
    return nullptr;
}

// The pages of a PDF file, read by pdfinfo; -1 when it can't be read.
int paginePdf(const QString &file) {
    QProcess p;
    p.start(u"pdfinfo"_s, {file});
    if (!p.waitForFinished(20000))
        return -1;
    const auto m = QRegularExpression(u"Pages:\\s+(\\d+)"_s)
                       .match(QString::fromUtf8(p.readAllStandardOutput()));
    return m.hasMatch() ? m.captured(1).toInt() : -1;
}

void clicDestro(VistaGriglia *v, int riga, int colonna) {
    const QPoint punto = v->visualRect(v->model()->index(riga, colonna)).center();
    QTest::mousePress(v->viewport(), Qt::RightButton, {}, punto);
    QTest::mouseRelease(v->viewport(), Qt::RightButton, {}, punto);
}

// Works the print window (a modal dialog) when it comes up, as a user would.
void quandoAppareStampa(const std::function<void(QWidget *)> &azione) {
    auto *timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, azione] {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->objectName() == u"PrnPrn"_s && w->isVisible()) {
                timer->stop();
                timer->deleteLater();
                azione(w);
                return;
            }
    });
    timer->start();
}

class Banco {
public:
    AmbienteProva a;
    QTemporaryDir uscita;
    FrmColonne9 *frm = nullptr;

    QString pdf() const { return uscita.filePath(u"stampa.pdf"_s); }
    bool apriColonne9() {
        if (!a.avvia())
            return false;
        a.stato().FileStampaPdf = pdf();
        a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
        frm = qobject_cast<FrmColonne9 *>(a.pannello().trovaSchermo(u"frmColonne9"_s));
        if (!frm)
            return false;
        QTest::mouseClick(cerca<QPushButton>(frm, u"cmdAvvia"_s), Qt::LeftButton);
        return QTest::qWaitForWindowActive(&a.pannello());
    }
    // The list of the 1680 columns 3-3-3 in the preview, as the user asks for it.
    FrmAnteprima *anteprimaDi333() const {
        formula333();
        QTest::mouseClick(cerca<QPushButton>(frm, u"imgStampa"_s), Qt::LeftButton);
        return anteprima();
    }
    void formula333() const {
        for (const QString &nome : {u"cmb1"_s, u"cmbX"_s, u"cmb2"_s})
            cerca<QComboBox>(frm, nome)->setEditText(u"3"_s);
        QTest::mouseClick(cerca<QPushButton>(frm, u"cmdOk"_s), Qt::LeftButton);
    }
};

} // namespace

class TstAnteprima : public QObject {
    Q_OBJECT

private slots:
    void init() { QFile::remove(DocumentoPagine::percorsoPredefinito()); }
    void elencoDel9NellAnteprima();
    void stampaDiUnIntervalloInPdf();
    void domandaDaPaginaMaggiore();
    void annullaDuranteLaStampa_data();
    void annullaDuranteLaStampa();
    void esportazioneDelleColonne();
    void esportaDallAnteprima();
    void anteprimaVuotaEOrizzontale();
    void stampeDelPannello();
    void archivioStampatoEdEsportato();
};

void TstAnteprima::elencoDel9NellAnteprima() {
    Banco b;
    QVERIFY(b.apriColonne9());
    b.formula333();
    QCOMPARE(cerca<QLabel>(b.frm, u"lblTot"_s)->text(), u"1680"_s);
    QTest::mouseClick(cerca<QPushButton>(b.frm, u"imgStampa"_s), Qt::LeftButton);
    FrmAnteprima *p = anteprima();
    QVERIFY(p);
    // 1680 = 28 * 58 + 56.
    QCOMPARE(p->pagine(), 29);
    QCOMPARE(p->paginaMostrata(), 1);
    QCOMPARE(cerca<QComboBox>(p, u"ePag"_s)->count(), 29);
    const auto tasto = [p](const QString &chiave) { cerca<QAction>(p, chiave)->trigger(); };
    tasto(u"Prima"_s);
    tasto(u"Precedente"_s);
    QCOMPARE(p->paginaMostrata(), 1);
    tasto(u"Successiva"_s);
    QCOMPARE(p->paginaMostrata(), 2);
    tasto(u"Ultima"_s);
    QCOMPARE(p->paginaMostrata(), 29);
    tasto(u"Successiva"_s);
    QCOMPARE(p->paginaMostrata(), 29);
    // The zoom keeps the page shown; the sheet grows with it.
    auto *zVal = cerca<QComboBox>(p, u"zVal"_s);
    QWidget *foglio = cerca<QWidget>(p, u"Prv"_s);
    const int prima = foglio->width();
    tasto(u"Avanti"_s);
    QVERIFY(foglio->width() > prima);
    zVal->setCurrentIndex(0);
    QVERIFY(foglio->width() < prima);
    QCOMPARE(p->paginaMostrata(), 29);
    QCOMPARE(p->foglio(), QSizeF(11907, 16839.9));
    tasto(u"Prima"_s);
    zVal->setCurrentIndex(zVal->findData(100));
    AmbienteProva::fotografa(p, u"anteprima"_s);
    tasto(u"Info"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Vespara"_s});
    // The keys of every preview: PageDown/PageUp, End/Home turn the pages, Esc closes.
    QApplication::setActiveWindow(p);
    QTRY_COMPARE(QApplication::activeWindow(), p);
    QTest::keyClick(p, Qt::Key_PageDown);
    QCOMPARE(p->paginaMostrata(), 2);
    QTest::keyClick(p, Qt::Key_End);
    QCOMPARE(p->paginaMostrata(), 29);
    QTest::keyClick(p, Qt::Key_PageUp);
    QCOMPARE(p->paginaMostrata(), 28);
    QTest::keyClick(p, Qt::Key_Home);
    QCOMPARE(p->paginaMostrata(), 1);
    QTest::keyClick(p, Qt::Key_Escape);
    QTRY_VERIFY(!anteprima());
}

void TstAnteprima::stampaDiUnIntervalloInPdf() {
    if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QSKIP("pdfinfo (poppler-utils) non è installato");
    Banco b;
    QVERIFY(b.apriColonne9());
    FrmAnteprima *p = b.anteprimaDi333();
    QVERIFY(p);
    b.a.dialoghi.risposte.enqueue(true);
    bool vista = false;
    quandoAppareStampa([&vista](QWidget *w) {
        vista = true;
        QCOMPARE(cerca<QComboBox>(w, u"sPag"_s)->currentText(), u"1"_s);
        QCOMPARE(cerca<QComboBox>(w, u"ePag"_s)->currentText(), u"29"_s);
        cerca<QComboBox>(w, u"sPag"_s)->setCurrentIndex(1);
        cerca<QComboBox>(w, u"ePag"_s)->setCurrentIndex(2);
        QTest::mouseClick(cerca<QPushButton>(w, u"Command1"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    QVERIFY(vista);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{u"Vuoi effettuare la stampa\n\tda pagina 2\n\talla pagina 3?"_s});
    QCOMPARE(paginePdf(b.pdf()), 2);

    // The same pages on a picture: text stands where the list is (x 2.6 cm, y 4.7 cm).
    const QString prefisso = b.uscita.filePath(u"pagina"_s);
    QCOMPARE(QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-png"_s, u"-f"_s, u"1"_s,
                                               u"-l"_s, u"1"_s, b.pdf(), prefisso}),
             0);
    const QStringList png = QDir(b.uscita.path()).entryList({u"pagina*.png"_s});
    QCOMPARE(png.size(), 1);
    const QImage pagina(b.uscita.filePath(png.first()));
    QVERIFY(!pagina.isNull());
    int scuri = 0;
    // 50 dpi: 2.6 cm is 51 px, 4.7 cm 92 px; a band of rows below it.
    for (int y = 88; y < 140; ++y)
        for (int x = 50; x < 200; ++x)
            scuri += qGray(pagina.pixel(x, y)) < 128;
    QVERIFY2(scuri > 100, qPrintable(u"%1 punti scuri"_s.arg(scuri)));
    if (const QString foto = qEnvironmentVariable("VESPARA_FOTO"); !foto.isEmpty())
        pagina.save(QDir(foto).filePath(u"stampa-pdf.png"_s));
}

void TstAnteprima::domandaDaPaginaMaggiore() {
    Banco b;
    QVERIFY(b.apriColonne9());
    FrmAnteprima *p = b.anteprimaDi333();
    QVERIFY(p);
    // From page 3 to page 1: the question speaks of page 3 alone; No prints nothing.
    quandoAppareStampa([](QWidget *w) {
        cerca<QComboBox>(w, u"sPag"_s)->setCurrentIndex(2);
        cerca<QComboBox>(w, u"ePag"_s)->setCurrentIndex(0);
        QTest::mouseClick(cerca<QPushButton>(w, u"Command1"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Vuoi effettuare la stampa\ndella pagina 3?"_s});
    QVERIFY(!QFile::exists(b.pdf()));
    // "Seleziona la pagina visualizzata" takes the page of the preview for both ends.
    cerca<QAction>(p, u"Ultima"_s)->trigger();
    QString da, a;
    quandoAppareStampa([&da, &a](QWidget *w) {
        QTest::mouseClick(cerca<QPushButton>(w, u"Command4"_s), Qt::LeftButton);
        da = cerca<QComboBox>(w, u"sPag"_s)->currentText();
        a = cerca<QComboBox>(w, u"ePag"_s)->currentText();
        QTest::mouseClick(cerca<QPushButton>(w, u"Command2"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    QCOMPARE(da, u"29"_s);
    QCOMPARE(a, u"29"_s);
}

void TstAnteprima::annullaDuranteLaStampa_data() {
    // The button, or Esc: either stops the print at its next page.
    QTest::addColumn<bool>("esc");
    QTest::newRow("Annulla") << false;
    QTest::newRow("Esc") << true;
}

void TstAnteprima::annullaDuranteLaStampa() {
    QFETCH(bool, esc);
    if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QSKIP("pdfinfo (poppler-utils) non è installato");
    Banco b;
    QVERIFY(b.apriColonne9());
    FrmAnteprima *p = b.anteprimaDi333();
    QVERIFY(p);
    b.a.dialoghi.risposte.enqueue(true);
    // All 29 pages are asked for; "Annulla" is pressed as soon as the first page is out.
    quandoAppareStampa([esc](QWidget *w) {
        auto *annulla = new QTimer(w);
        annulla->setInterval(0);
        QObject::connect(annulla, &QTimer::timeout, [w, annulla, esc] {
            if (cerca<QProgressBar>(w, u"pBar"_s)->value() >= 1) {
                annulla->stop();
                if (esc)
                    QTest::keyClick(w, Qt::Key_Escape);
                else
                    QTest::mouseClick(cerca<QPushButton>(w, u"Command2"_s), Qt::LeftButton);
            }
        });
        annulla->start();
        QTest::mouseClick(cerca<QPushButton>(w, u"Command1"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    const int stampate = paginePdf(b.pdf());
    QVERIFY2(stampate >= 1 && stampate < 29, qPrintable(QString::number(stampate)));
}

void TstAnteprima::esportazioneDelleColonne() {
    Banco b;
    QVERIFY(b.apriColonne9());
    auto *v = cerca<VistaGriglia>(b.frm, u"Griglia"_s);
    Griglia &g = *v->griglia();
    const auto menuVisibile = [&b] {
        auto *m = b.a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s);
        return m && m->isVisible();
    };
    // The limit stands on the rows with the header: 1000 columns are refused, 999 pass.
    for (const int colonne : {19683, 1000}) {
        g.setRighe(colonne + 1);
        clicDestro(v, 1, 1);
        QCOMPARE(b.a.dialoghi.testi().last(),
                 u"Non si possono esportare in Excel più di 1000 colonne."_s);
        QCOMPARE(b.a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Avviso);
        QVERIFY(!menuVisibile());
    }
    b.a.dialoghi.svuota();
    g.setRighe(1000);
    clicDestro(v, 1, 1);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QTRY_VERIFY(menuVisibile());
    QCOMPARE(b.a.stato().RigheEsportazione, 999);
    QCOMPARE(b.a.stato().ColonneEsportazione, 4);
    QCOMPARE(b.a.stato().IntestazioniEsportazione.mid(0, 5),
             (QStringList{u"Pos."_s, u"Colonna del 9"_s, u"Freq."_s, u"Rit."_s, QString()}));
    QVERIFY(
        b.a.stato().TitoloEsportazione.startsWith(u"Le colonne del 9 da giocare, alla data "_s));
    const QString xlsx = b.uscita.filePath(u"colonne.xlsx"_s);
    b.a.dialoghi.fileDaSalvare.enqueue(xlsx);
    b.a.pannello().findChild<QAction *>(u"mnuExcel"_s)->trigger();
    QVERIFY(QFile::exists(xlsx));
    QCOMPARE(b.a.dialoghi.ultimoTitoloSalvataggio, u"Specifica il nome del file..."_s);
}

void TstAnteprima::esportaDallAnteprima() {
    Banco b;
    QVERIFY(b.apriColonne9());
    FrmAnteprima *p = b.anteprimaDi333();
    QVERIFY(p);
    cerca<QAction>(p, u"Esporta"_s)->trigger();
    QCOMPARE(b.a.dialoghi.aperti.size(), 1);
    QVERIFY(b.a.dialoghi.aperti.first().toLocalFile().endsWith(u".xlsx"_s));
    QVERIFY(QFile::exists(b.a.dialoghi.aperti.first().toLocalFile()));
}

void TstAnteprima::anteprimaVuotaEOrizzontale() {
    Banco b;
    QVERIFY(b.a.avvia());
    QTemporaryDir dir;
    // A file with no page: nothing to show.
    const QString vuoto = dir.filePath(u"_$$_TEMP.TMP"_s);
    QFile f(vuoto);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    QVERIFY(!FrmAnteprima::avvia(b.a.stato(), &b.a.pannello(), vuoto));
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().titolo, u"Anteprima non disponibile"_s);
    QCOMPARE(b.a.dialoghi.boxes.first().testo, u"Non ci sono pagine da stampare!"_s);
    // A landscape document: the sheet lies on its long side.
    {
        DocumentoPagine d(vuoto);
        d.nuovoDocumento();
        d.scriviTesto(1, 1, u"orizzontale"_s, u"Arial"_s, 10, false, 0);
        d.fineDocumento();
    }
    b.a.stato().OrientamentoPagina = u"orizzontale"_s;
    FrmAnteprima *p = FrmAnteprima::avvia(b.a.stato(), &b.a.pannello(), vuoto);
    QVERIFY(p);
    QCOMPARE(p->foglio(), QSizeF(16839.9, 11907));
    QVERIFY(cerca<QWidget>(p, u"Prv"_s)->width() > cerca<QWidget>(p, u"Prv"_s)->height());
}

void TstAnteprima::stampeDelPannello() {
    if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QSKIP("pdfinfo (poppler-utils) non è installato");
    Banco b;
    QVERIFY(b.a.avvia());
    b.a.stato().FileStampaPdf = b.pdf();
    auto *panel =
        qobject_cast<FrmPannelloSegni *>(b.a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    QVERIFY(panel);
    auto *imgStampa = cerca<QPushButton>(panel, u"imgStampa"_s);
    auto *cmbStampa = cerca<QComboBox>(panel, u"cmbStampa"_s);
    // No: nothing printed.
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{u"Confermi la stampa delle Terzine?"_s});
    QVERIFY(!QFile::exists(b.pdf()));
    // Yes: the grid of the terzine on one page.
    b.a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    QCOMPARE(paginePdf(b.pdf()), 1);
    if (const QString foto = qEnvironmentVariable("VESPARA_FOTO"); !foto.isEmpty())
        QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"60"_s, u"-png"_s, u"-singlefile"_s, b.pdf(),
                                          QDir(foto).filePath(u"stampa-terzine"_s)});
    // The cinquine go to the preview.
    cmbStampa->setCurrentIndex(1);
    b.a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.testi().last(), u"Confermi la stampa delle Cinquine?"_s);
    FrmAnteprima *p = anteprima();
    QVERIFY(p);
    QCOMPARE(p->pagine(), 5);
    p->close();
    // The right button on the cinquine: the first signs are the header, the nine rows below the
    // body.
    clicDestro(cerca<VistaGriglia>(panel, u"GrigliaCinquine"_s), 3, 0);
    QCOMPARE(b.a.stato().RigheEsportazione, 9);
    QCOMPARE(b.a.stato().ColonneEsportazione, 243);
    QCOMPARE(b.a.stato().IntestazioniEsportazione.at(0), u"1"_s);
    QCOMPARE(b.a.stato().IntestazioniEsportazione.at(242), u"2"_s);
    QVERIFY(
        b.a.stato().TitoloEsportazione.startsWith(u"Situazione delle 243 Cinquine, alla data "_s));
    clicDestro(cerca<VistaGriglia>(panel, u"GrigliaCoppie"_s), 3, 0);
    QCOMPARE(b.a.stato().RigheEsportazione, 6);
    QCOMPARE(b.a.stato().ColonneEsportazione, 9);
}

void TstAnteprima::archivioStampatoEdEsportato() {
    Banco b;
    QVERIFY(b.a.avvia());
    b.a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
    QWidget *frm = b.a.pannello().trovaSchermo(u"frmArchivio"_s);
    QVERIFY(frm);
    QTest::mouseClick(cerca<QPushButton>(frm, u"imgStampa"_s), Qt::LeftButton);
    FrmAnteprima *p = anteprima();
    QVERIFY(p);
    const int n = b.a.stato().NumeroColonne();
    QCOMPARE(p->pagine(), (n + 53) / 54);
    AmbienteProva::fotografa(p, u"anteprima-archivio"_s);
    p->close();
    clicDestro(cerca<VistaGriglia>(frm, u"Griglia"_s), 1, 1);
    QCOMPARE(b.a.stato().RigheEsportazione, n);
    QCOMPARE(b.a.stato().ColonneEsportazione, 9);
    QCOMPARE(b.a.stato().IntestazioniEsportazione.at(2), u"Colonna"_s);
}

QTEST_MAIN(TstAnteprima)
#include "tst_anteprima.moc"
