// The outputs of the screens as a user meets them: the list of the 9 in the preview and on paper
// (a PDF file here), the pages and the zoom of the preview, the print of a range and its cancel,
// the print to a PDF file chosen in the print dialog, the export of the grids, the prints of the
// signs panel and of the archive, and the status bar of the frame saying where a file went.
#include "supporto/ambienteprova.h"
#include "supporto/anteprimaprova.h"
#include "supporto/strumentiprova.h"

#include "analisi/frmcolonne9.h"
#include "analisi/frmpannellosegni.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/griglia.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/frmanteprima.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPrinter>
#include <QPrinterInfo>
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

using AnteprimaProva::paginePdf;
using AnteprimaProva::quandoAppareStampa;

FrmAnteprima *anteprima() {
    return AnteprimaProva::aperta();
}

using StrumentiProva::clicDestro;

class Banco {
public:
    AmbienteProva a;
    QTemporaryDir uscita;
    FrmColonne9 *frm = nullptr;

    QString pdf() const { return uscita.filePath(u"stampa.pdf"_s); }
    // What the status bar of the frame says, and the note it would say after saving `file`.
    QString barraDiStato() const { return a.pannello().avvisoStato(); }
    static QString salvato(const QString &file) {
        return u"File salvato in "_s + QDir::toNativeSeparators(file);
    }
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
    void stampaSuFileSceltoNelDialogo();
    void stampaSenzaStampanti();
    void stampaNonRiuscitaNonDiceNulla();
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
    // The status bar of the frame says where the pages went.
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList{Banco::salvato(b.pdf())});
    QCOMPARE(b.barraDiStato(), Banco::salvato(b.pdf()));

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
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList());
    QCOMPARE(b.barraDiStato(), QString());
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
    // The pages printed before the cancel are in the file, and the status bar says where.
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList{Banco::salvato(b.pdf())});
}

void TstAnteprima::stampaSuFileSceltoNelDialogo() {
    if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QSKIP("pdfinfo (poppler-utils) non è installato");
    Banco b;
    QVERIFY(b.apriColonne9());
    // No file set by the program: the user chooses one in the print dialog.
    b.a.stato().FileStampaPdf.clear();
    const QString cartella = b.uscita.filePath(u"ultima"_s);
    QVERIFY(QDir().mkpath(cartella));
    b.a.impostazioni().imposta(Impostazioni::CartellaSalvataggi, cartella);
    FrmAnteprima *p = b.anteprimaDi333();
    QVERIFY(p);
    const QString scelto = b.uscita.filePath(u"scelta/colonne.pdf"_s);
    QVERIFY(QDir().mkpath(QFileInfo(scelto).absolutePath()));
    QString proposto;
    QString nomeLavoro;
    b.a.dialoghi.nelDialogoStampa = [&](QPrinter &stampante) {
        proposto = stampante.outputFileName();
        nomeLavoro = stampante.docName();
        // A cancelled dialog leaves the printer as it was.
        if (b.a.dialoghi.risposteStampa.isEmpty() || b.a.dialoghi.risposteStampa.head())
            stampante.setOutputFileName(scelto);
    };

    // "Stampante", then a cancel of the dialog: nothing chosen, nothing printed, nothing said.
    b.a.dialoghi.risposteStampa.enqueue(false);
    quandoAppareStampa([](QWidget *w) {
        QTest::mouseClick(cerca<QPushButton>(w, u"Command3"_s), Qt::LeftButton);
        QTest::mouseClick(cerca<QPushButton>(w, u"Command2"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 1);
    QVERIFY(!QFile::exists(scelto));
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList());

    // "Stampante", the PDF file named there, then "Stampa": the dialog isn't asked again.
    b.a.dialoghi.risposte.enqueue(true);
    quandoAppareStampa([](QWidget *w) {
        QTest::mouseClick(cerca<QPushButton>(w, u"Command3"_s), Qt::LeftButton);
        cerca<QComboBox>(w, u"ePag"_s)->setCurrentIndex(0);
        QTest::mouseClick(cerca<QPushButton>(w, u"Command1"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 2);
    QCOMPARE(paginePdf(scelto), 1);
    const QString oggi = QDate::currentDate().toString(u"dd-MM-yyyy"_s);
    QCOMPARE(nomeLavoro, u"Stampa Vespara, alla data "_s + oggi);
    // With no printer on the system the dialog opens on a PDF file named after the print, in
    // the folder of the last file saved.
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        QCOMPARE(proposto,
                 QDir(cartella).filePath(u"Stampa Vespara, alla data "_s + oggi + u".pdf"_s));
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList{Banco::salvato(scelto)});
    QCOMPARE(b.barraDiStato(), Banco::salvato(scelto));
    QCOMPARE(b.a.impostazioni().valore(Impostazioni::CartellaSalvataggi).toString(),
             QFileInfo(scelto).absolutePath());
    AmbienteProva::fotografa(&b.a.pannello(), u"cornice-file-salvato"_s);
}

void TstAnteprima::stampaSenzaStampanti() {
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("il sistema ha una stampante: la stampa andrebbe a quella");
    if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QSKIP("pdfinfo (poppler-utils) non è installato");
    Banco b;
    QVERIFY(b.a.avvia());
    b.a.impostazioni().imposta(Impostazioni::CartellaSalvataggi, b.uscita.path());
    auto *panel =
        qobject_cast<FrmPannelloSegni *>(b.a.pannello().trovaSchermo(u"frmPannelloSegni"_s));
    QVERIFY(panel);
    // The user confirms the dialog as it opens: the PDF file it proposes.
    const QString proposto = b.uscita.filePath(u"Statistiche delle 27 Terzine.pdf"_s);
    b.a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(cerca<QPushButton>(panel, u"imgStampa"_s), Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 1);
    QCOMPARE(paginePdf(proposto), 1);
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList{Banco::salvato(proposto)});
    QCOMPARE(b.barraDiStato(), Banco::salvato(proposto));
    // Cancelled: no file, no word.
    b.a.dialoghi.svuota();
    b.a.dialoghi.risposte.enqueue(true);
    b.a.dialoghi.risposteStampa.enqueue(false);
    cerca<QComboBox>(panel, u"cmbStampa"_s)->setCurrentIndex(2);
    QTest::mouseClick(cerca<QPushButton>(panel, u"imgStampa"_s), Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 2);
    QVERIFY(!QFile::exists(b.uscita.filePath(u"Statistiche delle 27 Coppie finali.pdf"_s)));
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList());
}

void TstAnteprima::stampaNonRiuscitaNonDiceNulla() {
    Banco b;
    QVERIFY(b.apriColonne9());
    // A file in a folder that isn't there: the print can't start.
    b.a.stato().FileStampaPdf = b.uscita.filePath(u"manca/stampa.pdf"_s);
    FrmAnteprima *p = b.anteprimaDi333();
    QVERIFY(p);
    b.a.dialoghi.risposte.enqueue(true);
    quandoAppareStampa([](QWidget *w) {
        QTest::mouseClick(cerca<QPushButton>(w, u"Command1"_s), Qt::LeftButton);
        // The fault leaves the print window open; the user closes it.
        if (w->isVisible())
            QTest::mouseClick(cerca<QPushButton>(w, u"Command2"_s), Qt::LeftButton);
    });
    cerca<QAction>(p, u"Stampa"_s)->trigger();
    QCOMPARE(b.a.dialoghi.boxes.size(), 2);
    QCOMPARE(b.a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Critico);
    QVERIFY2(b.a.dialoghi.boxes.last().testo.contains(u"Impossibile avviare la stampa"_s),
             qPrintable(b.a.dialoghi.boxes.last().testo));
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList());
    QCOMPARE(b.barraDiStato(), QString());
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
    // The name proposed is the title's, the date written with dashes.
    const QString proposto = QFileInfo(b.a.dialoghi.ultimaPropostaSalvataggio).fileName();
    QVERIFY2(QRegularExpression(
                 u"^Le colonne del 9 da giocare, alla data \\d\\d-\\d\\d-\\d{4}\\.xlsx$"_s)
                 .match(proposto)
                 .hasMatch(),
             qPrintable(proposto));
    // The status bar of the frame says where the workbook went.
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList{Banco::salvato(xlsx)});
    QCOMPARE(b.barraDiStato(), Banco::salvato(xlsx));
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
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList());
    // Yes: the grid of the terzine on one page, and the status bar says where it went.
    b.a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    QCOMPARE(paginePdf(b.pdf()), 1);
    QCOMPARE(b.a.dialoghi.avvisiStato, QStringList{Banco::salvato(b.pdf())});
    QCOMPARE(b.barraDiStato(), Banco::salvato(b.pdf()));
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
