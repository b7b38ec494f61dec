// The play slips printed to a PDF file as a user does it: the screen opened from the frame, the
// offsets and the last five boxes typed, the 9 checked, "Stampa schedine" clicked. The pages are
// rendered by pdftoppm and every dark spot on them is matched to a mark worked out here from the
// slip's measures: box n at 3900 - 250·n twips, the box of the 9 at 130, the rows of the signs at
// 2850, 3100 and 3300 below the column, each column 720 + 0.15·i below the one before, from -750
// at the top of a slip, a new slip after every eighth column. Every place is counted from the
// corner of the sheet, the offsets the only shift, and the preview of the same run shows each mark
// where the paper has it.
#include "supporto/ambienteprova.h"
#include "supporto/segnipdf.h"
#include "supporto/strumentiprova.h"

#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/stampanti.h"
#include "stampa/frmanteprima.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

using namespace SegniPdf;

namespace {

// Nine columns that put each of the three signs in every one of the nine boxes.
const QStringList Colonne{u"1X21X21X2"_s, u"X21X21X21"_s, u"21X21X21X"_s,
                          u"111XXX222"_s, u"XXX222111"_s, u"222111XXX"_s,
                          u"1122XX12X"_s, u"X1X2X1X2X"_s, u"2X1X21X12"_s};
// What is typed in boxes 10 to 14: three signs, a lower-case x, two signs in reverse order.
const std::array<QString, 5> Ultime{u"1X2"_s, u"2"_s, u"x1"_s, u"X"_s, u"21"_s};

class Banco {
public:
    AmbienteProva a;
    QTemporaryDir uscita;
    QWidget *frm = nullptr;

    QString pdf() const { return uscita.filePath(u"schedine.pdf"_s); }

    // The program started with one printer, the columns handed over, the screen opened.
    bool apri(const QStringList &colonne, int ultima) {
        if (!a.avvia())
            return false;
        a.stato().stampanti().imposta({u"Stampante di prova"_s});
        a.stato().FileStampaPdf = pdf();
        a.stato().ColonneStampa = colonne;
        a.stato().PrimaColonnaStampa = 1;
        a.stato().UltimaColonnaStampa = qint16(ultima);
        a.dialoghi.svuota();
        frm = a.pannello().apriSchermo(u"frmStampa"_s);
        return frm != nullptr;
    }
    template <typename T> T *w(const QString &nome) const {
        return StrumentiProva::controllo<T>(frm, nome);
    }
    void scrivi(const QString &nome, const QString &testo) const {
        StrumentiProva::scriviSopra(w<QLineEdit>(nome), testo);
    }
    // Offsets, the last five boxes, the 9, as the run of these tests wants them.
    void compila(double posX = 120, double posY = -90) const {
        scrivi(u"txtPosX"_s, QString::number(posX));
        scrivi(u"txtPosY"_s, QString::number(posY));
        for (int k = 0; k < 5; ++k)
            scrivi(u"txt%1"_s.arg(10 + k), Ultime.at(k));
        StrumentiProva::clic(w<QCheckBox>(u"chk9"_s));
    }
    void stampa() const { QTest::mouseClick(w<QPushButton>(u"cmdStampa"_s), Qt::LeftButton); }
    // The files of the output folder, hidden ones too.
    QStringList file() const {
        return QDir(uscita.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

} // namespace

class TstPdfSchedine : public QObject {
    Q_OBJECT

private slots:
    void noveColonneSuDueSchedine_data();
    void noveColonneSuDueSchedine();
    void ottoColonneUnaSchedina();
    void guastoAMetaNonLasciaFile_data();
    void guastoAMetaNonLasciaFile();

private:
    // The run of the first `ultima` columns to the PDF file with those offsets, every page checked
    // mark by mark against the slip's measures and against the preview of the same run.
    void stampaEConfronta(int ultima, int pagineAttese, double posX, double posY);
};

void TstPdfSchedine::stampaEConfronta(int ultima, int pagineAttese, double posX, double posY) {
    QVERIFY2(strumenti(), "pdfinfo e pdftoppm (poppler-utils) servono a questa prova");
    Banco b;
    QVERIFY(b.apri(Colonne.first(ultima), ultima));
    // The first start of the screen on a data folder explains the offsets.
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    b.compila(posX, posY);
    QCOMPARE(b.w<QLineEdit>(u"txt12"_s)->text(), u"x1"_s);
    QVERIFY(b.w<QCheckBox>(u"chk9"_s)->isChecked());
    AmbienteProva::fotografa(&b.a.pannello(), u"schedine-%1"_s.arg(ultima));
    b.a.dialoghi.svuota();
    b.stampa();
    QVERIFY2(b.a.dialoghi.boxes.isEmpty(), qPrintable(b.a.dialoghi.testi().join(u'\n')));
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 1);
    QVERIFY(QFile::exists(b.pdf()));
    QVERIFY2(b.file() == QStringList{u"schedine.pdf"_s}, qPrintable(b.file().join(u", "_s)));

    const QString info = infoPdf(b.pdf());
    QCOMPARE(paginePdf(info), pagineAttese);
    QVERIFY2(info.contains(u"(A4)"_s), qPrintable(info));

    QTemporaryDir immagini;
    const QList<QImage> figure = pagine(b.pdf(), immagini.path());
    QCOMPARE(figure.size(), pagineAttese);
    // A4 at Dpi: the file gives it in whole points, pdftoppm rounds up to whole pixels.
    for (const QImage &f : figure)
        QVERIFY2(std::abs(f.width() - 210 / 25.4 * Dpi) <= 1.5 &&
                     std::abs(f.height() - 297 / 25.4 * Dpi) <= 1.5,
                 qPrintable(u"%1 x %2"_s.arg(f.width()).arg(f.height())));
    if (const QString foto = qEnvironmentVariable("VESPARA_FOTO"); !foto.isEmpty()) {
        QDir().mkpath(foto);
        figure.first().save(QDir(foto).filePath(u"schedine-pdf-%1.png"_s.arg(ultima)));
    }
    const QList<QList<Segno>> segni = attesi(Colonne, 1, ultima, Ultime, true, posX, posY);
    QCOMPARE(segni.size(), pagineAttese);
    QStringList problemi;
    double scarto = 0;
    for (int p = 0; p < pagineAttese; ++p)
        problemi += confronta(figure.at(p), segni.at(p), p + 1, &scarto);
    QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
    qInfo("scarto massimo dalla misura della schedina: %.3f mm", scarto / TwipsPerMm);

    // "Anteprima schedine" on the same run: the marks it draws are those of the paper.
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QTest::mouseClick(b.w<QPushButton>(u"cmdAnteprima"_s), Qt::LeftButton);
    QVERIFY2(b.a.dialoghi.boxes.isEmpty(), qPrintable(b.a.dialoghi.testi().join(u'\n')));
    auto *anteprima = b.a.pannello().findChild<FrmAnteprima *>();
    QVERIFY(anteprima);
    const QList<QList<Segno>> mostrati = inAnteprima(anteprima->record());
    anteprima->close();
    QCOMPARE(mostrati.size(), pagineAttese);
    scarto = 0;
    for (int p = 0; p < pagineAttese; ++p)
        problemi += confronta(figure.at(p), mostrati.at(p), p + 1, &scarto);
    QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
    qInfo("scarto massimo dall'anteprima: %.3f mm", scarto / TwipsPerMm);
}

void TstPdfSchedine::noveColonneSuDueSchedine_data() {
    QTest::addColumn<double>("posX");
    QTest::addColumn<double>("posY");
    // With no offsets the marks stand exactly where the slip's measures put them on the sheet.
    QTest::newRow("senza scostamenti") << 0.0 << 0.0;
    QTest::newRow("X 120, Y -90") << 120.0 << -90.0;
    QTest::newRow("X 4500 del caricamento centrale") << 4500.0 << 0.0;
}

void TstPdfSchedine::noveColonneSuDueSchedine() {
    QFETCH(double, posX);
    QFETCH(double, posY);
    // 8 columns of 19 marks on the first slip (9 signs, 3 + 1 + 2 + 1 + 2 typed, the 9), the
    // ninth on the second.
    stampaEConfronta(9, 2, posX, posY);
}

void TstPdfSchedine::ottoColonneUnaSchedina() {
    // The slip is turned after its eighth column: with nothing more to print no sheet follows.
    stampaEConfronta(8, 1, 120, -90);
}

void TstPdfSchedine::guastoAMetaNonLasciaFile_data() {
    QTest::addColumn<bool>("precedente");
    QTest::newRow("nessun file") << false;
    QTest::newRow("un file di prima") << true;
}

void TstPdfSchedine::guastoAMetaNonLasciaFile() {
    QFETCH(bool, precedente);
    // 12 columns announced, 10 handed over: the run stops at the eleventh, past the first slip.
    Banco b;
    QStringList colonne = Colonne;
    colonne.append(u"1X21X21X2"_s);
    QVERIFY(b.apri(colonne, 12));
    const QByteArray vecchio = "%PDF-1.4 una stampa di prima\n";
    if (precedente) {
        QFile f(b.pdf());
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(vecchio);
    }
    b.compila();
    b.a.dialoghi.svuota();
    b.stampa();
    QVERIFY2(b.a.dialoghi.boxes.isEmpty(), qPrintable(b.a.dialoghi.testi().join(u'\n')));
    // The run got past the print dialog, and said nothing of a file written.
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 1);
    QVERIFY(b.a.dialoghi.avvisiStato.isEmpty());
    if (precedente) {
        QFile f(b.pdf());
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), vecchio);
    } else {
        QVERIFY(!QFile::exists(b.pdf()));
    }
    // Nor a temporary ".vespara-*.pdf" beside it.
    const QStringList restano = precedente ? QStringList{u"schedine.pdf"_s} : QStringList{};
    QVERIFY2(b.file() == restano, qPrintable(b.file().join(u", "_s)));
}

QTEST_MAIN(TstPdfSchedine)
#include "tst_pdfschedine.moc"
