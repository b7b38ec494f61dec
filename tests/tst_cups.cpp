// Printing through a real CUPS queue: a cupsd of the test's own turns each job into a PDF that
// the test reads back.
#include "supporto/ambienteprova.h"
#include "supporto/cupsprivato.h"
#include "supporto/segnipdf.h"
#include "supporto/strumentiprova.h"

#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "stampa/calibrazionestampanti.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

CupsPrivato *cups = nullptr;
bool avviato = false;

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
    void schedineDalProgramma();
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

// The program itself: its screen lists the queue, and a run of nine columns printed there comes
// back as two slips with every mark in its place, counted from the queue's printable area.
void TestCups::schedineDalProgramma() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    const QStringList colonne{u"1X21X21X2"_s, u"X21X21X21"_s, u"21X21X21X"_s,
                              u"111XXX222"_s, u"XXX222111"_s, u"222111XXX"_s,
                              u"1122XX12X"_s, u"X1X2X1X2X"_s, u"2X1X21X12"_s};
    const std::array<QString, 5> ultime{u"1X2"_s, u"2"_s, u"x1"_s, u"X"_s, u"21"_s};
    a.stato().ColonneStampa = colonne;
    a.stato().PrimaColonnaStampa = 1;
    a.stato().UltimaColonnaStampa = 9;
    QWidget *frm = a.pannello().apriSchermo(u"frmStampa"_s);
    QVERIFY(frm);
    QCOMPARE(a.dialoghi.testi(), QStringList{CalibrazioneStampanti::messaggioPrimoAvvio()});
    a.dialoghi.svuota();
    auto *cmb = frm->findChild<QComboBox *>(u"cmbStampante"_s);
    QCOMPARE(cmb->currentText(), cups->nomeCoda());
    const auto scrivi = [frm](const QString &nome, const QString &testo) {
        StrumentiProva::scriviSopra(StrumentiProva::controllo<QLineEdit>(frm, nome), testo);
    };
    scrivi(u"txtPosX"_s, u"120"_s);
    scrivi(u"txtPosY"_s, u"-90"_s);
    for (int k = 0; k < 5; ++k)
        scrivi(u"txt%1"_s.arg(10 + k), ultime.at(k));
    QTest::mouseClick(frm->findChild<QPushButton *>(u"cmdStampa"_s), Qt::LeftButton);
    QVERIFY2(a.dialoghi.boxes.isEmpty(), qPrintable(a.dialoghi.testi().join(u'|')));
    QCOMPARE(a.dialoghi.dialoghiStampa, 1);

    const QString pdf = cups->attendiPdf(60000);
    QVERIFY2(!pdf.isEmpty(), qPrintable(cups->errore()));
    QCOMPARE(SegniPdf::paginePdf(SegniPdf::infoPdf(pdf)), 2);
    QTemporaryDir cartella;
    const QList<QImage> pagine = SegniPdf::pagine(pdf, cartella.path());
    QCOMPARE(pagine.size(), 2);
    // Where the queue's printable area starts on the sheet: the slips count from there.
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setPrinterName(cups->nomeCoda());
    stampante.setPageSize(QPageSize(QPageSize::A4));
    const QPointF origine = stampante.pageLayout().paintRect(QPageLayout::Point).topLeft() * 20;
    const auto attesi = SegniPdf::attesi(colonne, 1, 9, ultime, false, 120, -90);
    for (int p = 0; p < 2; ++p) {
        const QStringList problemi =
            SegniPdf::confronta(pagine.at(p), attesi.at(p), p + 1, origine);
        QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
    }
}

// The private cupsd comes first: libcups reads CUPS_SERVER once, when the application's print
// support first touches it.
int main(int argc, char *argv[]) {
    CupsPrivato server;
    avviato = server.avvia();
    cups = &server;
    QApplication app(argc, argv);
    TestCups prova;
    return QTest::qExec(&prova, argc, argv);
}

#include "tst_cups.moc"
