// Printing through a real CUPS queue: a cupsd of the test's own turns each job into a PDF that
// the test reads back.
#include "supporto/ambienteprova.h"
#include "supporto/cupsprivato.h"
#include "supporto/segnipdf.h"
#include "supporto/strumentiprova.h"

#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/stampanteqt.h"
#include "stampa/calibrazionestampanti.h"
#include "stampa/dispositivodocumento.h"
#include "stampa/documentopagine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

CupsPrivato *cups = nullptr;
bool avviato = false;
// A queue like most real printers: a driver that can't print 18 points at the sides and 36 at
// the top and bottom of the sheet.
const QString CodaConMargini = u"VesparaMargini"_s;

struct Cerchio {
    double x, y, raggio; // millimetres from the top left corner of the sheet
};
// Spread unevenly, so that a page turned, mirrored or shifted doesn't match.
const Cerchio Cerchi[] = {{40, 50, 12}, {150, 80, 10}, {95, 180, 15}, {60, 255, 8}};

// A job of `pagine` pages with a line of text on each.
bool stampa(const QString &titolo, int pagine) {
    QPrinter stampante;
    stampante.setPrinterName(cups->nomeCoda());
    stampante.setPageSize(QPageSize(QPageSize::A4));
    stampante.setDocName(titolo);
    QPainter p;
    if (!p.begin(&stampante))
        return false;
    for (int i = 1; i <= pagine; ++i) {
        if (i > 1 && !stampante.newPage())
            return false;
        p.drawText(100, 100, u"%1 pagina %2"_s.arg(titolo).arg(i));
    }
    return p.end();
}

// pdfinfo's report of a PDF file; empty when it can't be read.
QString infoPdf(const QString &file) {
    QProcess p;
    p.start(u"pdfinfo"_s, {file});
    if (!p.waitForFinished(30000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        return QString();
    return QString::fromLocal8Bit(p.readAllStandardOutput());
}

} // namespace

class TestCups : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void codaElencata();
    void cerchiStampati();
    void lavoriInOrdine();
    void schedineDalProgramma_data();
    void schedineDalProgramma();
    void schedineSuStampanteConMargini();
    void schedineSuPdfSceltoNelDialogo_data();
    void schedineSuPdfSceltoNelDialogo();
    void documentoDallAngoloDelFoglio();
};

void TestCups::initTestCase() {
    if (!avviato)
        QFAIL(qPrintable(u"Il cupsd privato non è partito: "_s + cups->errore()));
}

void TestCups::codaElencata() {
    const QStringList nomi = QPrinterInfo::availablePrinterNames();
    QVERIFY2(nomi.contains(cups->nomeCoda()), qPrintable(nomi.join(u", "_s)));
    QCOMPARE(QPrinterInfo::defaultPrinterName(), cups->nomeCoda());
    const QPrinterInfo info = QPrinterInfo::printerInfo(cups->nomeCoda());
    QVERIFY(!info.isNull());
    QVERIFY(info.supportedPageSizes().contains(QPageSize(QPageSize::A4)));
}

void TestCups::cerchiStampati() {
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setPrinterName(cups->nomeCoda());
    QCOMPARE(stampante.outputFormat(), QPrinter::NativeFormat);
    QVERIFY(stampante.isValid());
    stampante.setPageSize(QPageSize(QPageSize::A4));
    stampante.setPageOrientation(QPageLayout::Portrait);
    // Positions from the corner of the sheet, whatever margins the queue declares.
    stampante.setFullPage(true);
    stampante.setDocName(u"vespara-cerchi"_s);
    QPainter p;
    QVERIFY(p.begin(&stampante));
    const QRectF foglio = stampante.paperRect(QPrinter::DevicePixel);
    const double puntiMm = stampante.resolution() / 25.4;
    QVERIFY(std::abs(foglio.width() / puntiMm - 210) < 1);
    QVERIFY(std::abs(foglio.height() / puntiMm - 297) < 1);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    for (const Cerchio &c : Cerchi)
        p.drawEllipse(QPointF(c.x * puntiMm, c.y * puntiMm), c.raggio * puntiMm,
                      c.raggio * puntiMm);
    QVERIFY(p.end());

    const QString pdf = cups->attendiPdf(60000);
    if (pdf.isEmpty())
        QFAIL(qPrintable(cups->errore()));
    QVERIFY2(pdf.contains(u"vespara-cerchi"_s), qPrintable(pdf));

    const QString info = infoPdf(pdf);
    QVERIFY2(!info.isEmpty(), qPrintable(pdf));
    const auto pagine =
        QRegularExpression(u"^Pages:\\s+(\\d+)"_s, QRegularExpression::MultilineOption).match(info);
    QVERIFY2(pagine.hasMatch(), qPrintable(info));
    QCOMPARE(pagine.captured(1).toInt(), 1);
    const auto misura = QRegularExpression(u"^Page size:\\s+([\\d.]+) x ([\\d.]+) pts"_s,
                                           QRegularExpression::MultilineOption)
                            .match(info);
    QVERIFY2(misura.hasMatch(), qPrintable(info));
    QVERIFY2(std::abs(misura.captured(1).toDouble() - 595.3) < 2, qPrintable(info));
    QVERIFY2(std::abs(misura.captured(2).toDouble() - 841.9) < 2, qPrintable(info));

    // The page as the paper would show it, 100 pixels an inch in shades of grey.
    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());
    const QString base = cartella.filePath(u"pagina"_s);
    QCOMPARE(QProcess::execute(u"pdftoppm"_s,
                               {u"-r"_s, u"100"_s, u"-gray"_s, u"-singlefile"_s, pdf, base}),
             0);
    const QImage pagina = QImage(base + u".pgm"_s).convertToFormat(QImage::Format_Grayscale8);
    QVERIFY(!pagina.isNull());
    const double pixelMm = 100 / 25.4;
    QVERIFY2(std::abs(pagina.width() - 210 * pixelMm) <= 2,
             qPrintable(QString::number(pagina.width())));
    QVERIFY2(std::abs(pagina.height() - 297 * pixelMm) <= 2,
             qPrintable(QString::number(pagina.height())));

    // Well inside every circle all is black; away from all of them all is white. The edge, where
    // the rendering blends, is left out.
    constexpr int n = std::size(Cerchi);
    int dentro[n] = {}, neriDentro[n] = {};
    int neriFuori = 0, fuori = 0;
    for (int y = 0; y < pagina.height(); ++y) {
        const uchar *riga = pagina.constScanLine(y);
        for (int x = 0; x < pagina.width(); ++x) {
            const bool nero = riga[x] < 128;
            const double xMm = (x + 0.5) / pixelMm, yMm = (y + 0.5) / pixelMm;
            bool vicino = false;
            for (int i = 0; i < n; ++i) {
                const double d = std::hypot(xMm - Cerchi[i].x, yMm - Cerchi[i].y);
                if (d <= 0.8 * Cerchi[i].raggio) {
                    ++dentro[i];
                    neriDentro[i] += nero;
                }
                vicino = vicino || d <= Cerchi[i].raggio + 1.5;
            }
            if (!vicino) {
                ++fuori;
                neriFuori += nero;
            }
        }
    }
    for (int i = 0; i < n; ++i) {
        QVERIFY(dentro[i] > 100);
        QVERIFY2(
            neriDentro[i] == dentro[i],
            qPrintable(
                u"cerchio %1: %2 pixel neri su %3"_s.arg(i).arg(neriDentro[i]).arg(dentro[i])));
    }
    QVERIFY(fuori > pagina.width() * pagina.height() / 2);
    QCOMPARE(neriFuori, 0);
}

// Jobs printed one after the other come back one each, in their order, with their pages.
void TestCups::lavoriInOrdine() {
    QVERIFY(stampa(u"vespara-primo"_s, 1));
    QVERIFY(stampa(u"vespara-secondo"_s, 3));
    const QString primo = cups->attendiPdf(60000);
    QVERIFY2(primo.contains(u"vespara-primo"_s), qPrintable(primo + cups->errore()));
    const QString secondo = cups->attendiPdf(60000);
    QVERIFY2(secondo.contains(u"vespara-secondo"_s), qPrintable(secondo + cups->errore()));
    QVERIFY(infoPdf(primo).contains(
        QRegularExpression(u"^Pages:\\s+1$"_s, QRegularExpression::MultilineOption)));
    QVERIFY(infoPdf(secondo).contains(
        QRegularExpression(u"^Pages:\\s+3$"_s, QRegularExpression::MultilineOption)));
    // Nothing else was printed: no third file, and the wait says so.
    QVERIFY(cups->attendiPdf(1000).isEmpty());
    QVERIFY(cups->errore().contains(u"Nessun PDF"_s));
}

namespace {

// The slips of the program's screen: nine columns, the printer chosen in its list, the offsets
// and the last five boxes typed, "Stampa schedine" clicked; `nelDialogo` is what the user does in
// the print dialog. What went wrong, or an empty text.
const QStringList ColonneSchedine{u"1X21X21X2"_s, u"X21X21X21"_s, u"21X21X21X"_s,
                                  u"111XXX222"_s, u"XXX222111"_s, u"222111XXX"_s,
                                  u"1122XX12X"_s, u"X1X2X1X2X"_s, u"2X1X21X12"_s};
const std::array<QString, 5> UltimeSchedine{u"1X2"_s, u"2"_s, u"x1"_s, u"X"_s, u"21"_s};

QString stampaSchedine(AmbienteProva &a, const QString &coda, double posX, double posY,
                       std::function<void(QPrinter &)> nelDialogo = {}) {
    if (!a.avvia())
        return u"il programma non parte"_s;
    a.stato().ColonneStampa = ColonneSchedine;
    a.stato().PrimaColonnaStampa = 1;
    a.stato().UltimaColonnaStampa = 9;
    QWidget *frm = a.pannello().apriSchermo(u"frmStampa"_s);
    if (!frm)
        return u"frmStampa non si apre"_s;
    if (a.dialoghi.testi() != QStringList{CalibrazioneStampanti::messaggioPrimoAvvio()})
        return u"all'apertura: "_s + a.dialoghi.testi().join(u'|');
    a.dialoghi.svuota();
    // The queue chosen in the list of the screen: the print dialog opens on it.
    auto *cmb = StrumentiProva::controllo<QComboBox>(frm, u"cmbStampante"_s);
    const int voce = cmb->findText(coda);
    if (voce < 0)
        return u"%1 non è tra le stampanti"_s.arg(coda);
    cmb->setCurrentIndex(voce);
    emit cmb->activated(voce);
    const auto scrivi = [frm](const QString &nome, const QString &testo) {
        StrumentiProva::scriviSopra(StrumentiProva::controllo<QLineEdit>(frm, nome), testo);
    };
    scrivi(u"txtPosX"_s, QString::number(posX));
    scrivi(u"txtPosY"_s, QString::number(posY));
    for (int k = 0; k < 5; ++k)
        scrivi(u"txt%1"_s.arg(10 + k), UltimeSchedine.at(k));
    a.dialoghi.nelDialogoStampa = std::move(nelDialogo);
    QTest::mouseClick(StrumentiProva::controllo<QPushButton>(frm, u"cmdStampa"_s), Qt::LeftButton);
    if (!a.dialoghi.boxes.isEmpty())
        return a.dialoghi.testi().join(u'|');
    if (a.dialoghi.dialoghiStampa != 1)
        return u"%1 finestre di stampa"_s.arg(a.dialoghi.dialoghiStampa);
    return {};
}

// The two slips of that run in the PDF file, every mark where the slip's measures put it, counted
// from the corner of the sheet: the offsets are the only shift.
QStringList confrontaSchedine(const QString &pdf, double posX, double posY) {
    if (SegniPdf::paginePdf(SegniPdf::infoPdf(pdf)) != 2)
        return {u"%1 non ha due pagine"_s.arg(pdf)};
    QTemporaryDir cartella;
    const QList<QImage> pagine = SegniPdf::pagine(pdf, cartella.path());
    if (pagine.size() != 2)
        return {u"pdftoppm non ha reso le due pagine di %1"_s.arg(pdf)};
    const auto attesi = SegniPdf::attesi(ColonneSchedine, 1, 9, UltimeSchedine, false, posX, posY);
    if (const QString foto = qEnvironmentVariable("VESPARA_FOTO"); !foto.isEmpty()) {
        QDir().mkpath(foto);
        pagine.first().save(
            QDir(foto).filePath(u"schedine-cups-%1.png"_s.arg(QFileInfo(pdf).baseName())));
    }
    QStringList problemi;
    double scarto = 0;
    for (int p = 0; p < 2; ++p)
        problemi += SegniPdf::confronta(pagine.at(p), attesi.at(p), p + 1, &scarto);
    if (problemi.isEmpty())
        qInfo("scarto massimo: %.3f mm", scarto / SegniPdf::TwipsPerMm);
    return problemi;
}

} // namespace

// The program itself: its screen lists the queue, and a run of nine columns printed there comes
// back as two slips with every mark in its place on the sheet. The queue's page has margins (Qt's
// 10 points, though its driver can print the whole sheet): they must not move the marks.
void TestCups::schedineDalProgramma_data() {
    QTest::addColumn<double>("posX");
    QTest::addColumn<double>("posY");
    QTest::newRow("senza scostamenti") << 0.0 << 0.0;
    QTest::newRow("X 120, Y -90") << 120.0 << -90.0;
}

void TestCups::schedineDalProgramma() {
    QFETCH(double, posX);
    QFETCH(double, posY);
    AmbienteProva a;
    const QString errore = stampaSchedine(a, cups->nomeCoda(), posX, posY);
    QVERIFY2(errore.isEmpty(), qPrintable(errore));
    const QString pdf = cups->attendiPdf(60000);
    QVERIFY2(!pdf.isEmpty(), qPrintable(cups->errore()));
    const QStringList problemi = confrontaSchedine(pdf, posX, posY);
    QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
}

// A printer whose driver can't print the edges of the sheet: its printable area doesn't move the
// marks either (those that fall on the edges would be lost on paper, which the offsets are for).
void TestCups::schedineSuStampanteConMargini() {
    AmbienteProva a;
    const QString errore = stampaSchedine(a, CodaConMargini, 0, 0);
    QVERIFY2(errore.isEmpty(), qPrintable(errore));
    const QString pdf = cups->attendiPdf(60000);
    QVERIFY2(!pdf.isEmpty(), qPrintable(cups->errore()));
    const QStringList problemi = confrontaSchedine(pdf, 0, 0);
    QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
}

// The queue offered by the print dialog, and the user chooses there to print to a PDF file
// instead: the real dialog of Qt on the program's printer, the file's entry chosen and named, OK.
void TestCups::schedineSuPdfSceltoNelDialogo_data() {
    QTest::addColumn<QString>("coda");
    QTest::newRow("coda senza margini") << cups->nomeCoda();
    QTest::newRow("coda con margini") << CodaConMargini;
}

void TestCups::schedineSuPdfSceltoNelDialogo() {
    QFETCH(QString, coda);
    QTemporaryDir uscita;
    const QString file = uscita.filePath(u"schedine.pdf"_s);
    QString offerta;
    QPrinter::OutputFormat formato = QPrinter::NativeFormat;
    bool dialogoTrovato = false;
    AmbienteProva a;
    const QString errore = stampaSchedine(a, coda, 0, 0, [&](QPrinter &stampante) {
        offerta = stampante.printerName();
        QPrintDialog dialogo(&stampante);
        dialogo.show();
        auto *stampanti = dialogo.findChild<QComboBox *>(u"printers"_s);
        auto *nome = dialogo.findChild<QLineEdit *>(u"filename"_s);
        dialogoTrovato = stampanti && nome;
        if (!dialogoTrovato)
            return;
        // The entry of the PDF file is the last of the list of printers.
        stampanti->setCurrentIndex(stampanti->count() - 1);
        nome->setText(file);
        dialogo.accept();
        formato = stampante.outputFormat();
    });
    QVERIFY2(errore.isEmpty(), qPrintable(errore));
    QVERIFY2(dialogoTrovato,
             "la finestra di stampa di Qt non ha più i controlli printers e filename");
    QCOMPARE(offerta, coda);
    QCOMPARE(formato, QPrinter::PdfFormat);
    QVERIFY(QFile::exists(file));
    QCOMPARE(a.dialoghi.avvisiStato,
             QStringList{u"File salvato in "_s + QDir::toNativeSeparators(file)});
    // Nothing went to the queue.
    QVERIFY(cups->attendiPdf(1000).isEmpty());
    const QStringList problemi = confrontaSchedine(file, 0, 0);
    QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
}

// A page of the page documents (the reports, the lists of the preview) printed on the printer
// with unprintable edges: like the slips, it is laid out from the corner of the sheet.
void TestCups::documentoDallAngoloDelFoglio() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // A filled band of dark blue (colour 1) 2 to 5 inches from the left, 3 to 4 from the top.
    const QRectF banda(2880, 4320, 4320, 1440);
    DispositivoDocumento documento;
    documento.rettangolo(banda, QColor(), DocumentoPagine::colore(1));
    documento.fineDocumento();
    {
        StampanteQt stampante(a.dialoghi, a.impostazioni(), QString(), false);
        stampante.stampante().setPrinterName(CodaConMargini);
        stampante.setNomeDocumento(u"vespara-documento"_s);
        QVERIFY(stampante.controlla());
        DocumentoPagine::stampaPagine(documento.record(), stampante.inizia(), 1, 1);
        stampante.fine();
    }
    const QString pdf = cups->attendiPdf(60000);
    QVERIFY2(!pdf.isEmpty(), qPrintable(cups->errore()));
    QTemporaryDir cartella;
    const QList<QImage> pagine = SegniPdf::pagine(pdf, cartella.path());
    QCOMPARE(pagine.size(), 1);
    const QImage &pagina = pagine.first();
    QRect nero;
    for (int y = 0; y < pagina.height(); ++y) {
        const uchar *riga = pagina.constScanLine(y);
        for (int x = 0; x < pagina.width(); ++x)
            if (riga[x] < 128)
                nero = nero.united(QRect(x, y, 1, 1));
    }
    QVERIFY(!nero.isEmpty());
    // Each edge within 0.2 mm of its place, and a pixel for where the edge cuts it.
    const double pixel = SegniPdf::TwipsPerPollice / SegniPdf::Dpi;
    const double tolleranza = SegniPdf::Tolleranza + pixel;
    const QRectF trovata(nero.x() * pixel, nero.y() * pixel, nero.width() * pixel,
                         nero.height() * pixel);
    const auto mm = [](double t) { return QString::number(t / SegniPdf::TwipsPerMm, 'f', 2); };
    QVERIFY2(std::abs(trovata.left() - banda.left()) <= tolleranza &&
                 std::abs(trovata.top() - banda.top()) <= tolleranza &&
                 std::abs(trovata.right() - banda.right()) <= tolleranza &&
                 std::abs(trovata.bottom() - banda.bottom()) <= tolleranza,
             qPrintable(u"la banda va da %1, %2 a %3, %4 mm invece che da %5, %6 a %7, %8 mm"_s.arg(
                 mm(trovata.left()), mm(trovata.top()), mm(trovata.right()), mm(trovata.bottom()),
                 mm(banda.left()), mm(banda.top()), mm(banda.right()), mm(banda.bottom()))));
}

// The private cupsd comes first: libcups reads CUPS_SERVER once, when the application's print
// support first touches it.
int main(int argc, char *argv[]) {
    CupsPrivato server;
    avviato = server.avvia() && server.aggiungiCodaConMargini(CodaConMargini, {18, 36, 18, 36});
    cups = &server;
    QApplication app(argc, argv);
    TestCups prova;
    return QTest::qExec(&prova, argc, argv);
}

#include "tst_cups.moc"
