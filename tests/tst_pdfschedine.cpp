// The play slips printed to a PDF file as a user does it: the screen opened from the frame, the
// offsets and the last five boxes typed, the 9 checked, "Stampa schedine" clicked. The pages are
// rendered by pdftoppm and every dark spot on them is matched to a mark worked out here from the
// slip's measures: box n at 3900 - 250·n twips, the box of the 9 at 130, the rows of the signs at
// 2850, 3100 and 3300 below the column, each column 720 + 0.15·i below the one before, from -750
// at the top of a slip, a new slip after every eighth column.
#include "supporto/ambienteprova.h"

#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/stampanti.h"

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

namespace {

constexpr double Dpi = 150;
constexpr double TwipsPerPollice = 1440;
constexpr double TwipsPerMm = TwipsPerPollice / 25.4;
// How far a mark's centre may stand from its place: half a millimetre.
constexpr double Tolleranza = 0.5 * TwipsPerMm;

// Nine columns that put each of the three signs in every one of the nine boxes.
const QStringList Colonne{u"1X21X21X2"_s, u"X21X21X21"_s, u"21X21X21X"_s,
                          u"111XXX222"_s, u"XXX222111"_s, u"222111XXX"_s,
                          u"1122XX12X"_s, u"X1X2X1X2X"_s, u"2X1X21X12"_s};
// What is typed in boxes 10 to 14: three signs, a lower-case x, two signs in reverse order.
const std::array<QString, 5> Ultime{u"1X2"_s, u"2"_s, u"x1"_s, u"X"_s, u"21"_s};
constexpr double PosX = 120;
constexpr double PosY = -90;

struct Segno {
    double x = 0; // twips from the page's left edge
    double y = 0; // twips from its top edge
    QString nome; // column, box and sign, for the messages
};

// The row of a sign, in twips below its column's line; -1 for anything else.
double riga(QChar segno) {
    if (segno == u'1')
        return 2850;
    if (segno == u'X')
        return 3100;
    if (segno == u'2')
        return 3300;
    return -1;
}

// The marks of a run of columns prima..ultima, slip after slip.
QList<QList<Segno>> attesi(const QStringList &colonne, int prima, int ultima,
                           const std::array<QString, 5> &ultime, bool nove, double dx, double dy) {
    QList<QList<Segno>> pagine(1);
    double colonnaY = -750;
    for (int i = prima; i <= ultima; ++i) {
        colonnaY += 720 + 0.15 * i;
        const auto marca = [&](int casella, double x, QChar segno) {
            pagine.last().append(
                {x + dx, dy + colonnaY + riga(segno),
                 u"colonna %1, casella %2, segno %3"_s.arg(i).arg(casella).arg(segno)});
        };
        const QString &c = colonne.at(i - 1);
        for (int n = 1; n <= 9; ++n)
            marca(n, 3900 - 250 * n, c.at(n - 1));
        for (int n = 10; n <= 14; ++n)
            for (const QChar s : ultime.at(n - 10))
                marca(n, 3900 - 250 * n, s.toUpper());
        if (nove)
            marca(15, 130, u'1');
        if (i % 8 == 0 && i < ultima) {
            pagine.append(QList<Segno>());
            colonnaY = -750;
        }
    }
    return pagine;
}

// A spot of ink on the rendered page: its pixels, centre and extent.
struct Macchia {
    QList<QPoint> punti;
    double x = 0; // twips
    double y = 0;
    QRect riquadro;
};

double twips(double pixel) {
    // The centre of pixel k is k + 0.5 pixels from the edge.
    return (pixel + 0.5) * TwipsPerPollice / Dpi;
}

QString mm(double t) {
    return QString::number(t / TwipsPerMm, 'f', 2);
}

// The connected spots (8 neighbours) of the pixels darker than the paper.
QList<Macchia> macchie(const QImage &pagina) {
    const int w = pagina.width();
    const int h = pagina.height();
    QList<bool> visto(qsizetype(w) * h, false);
    const auto inchiostro = [&](int x, int y) { return qGray(pagina.pixel(x, y)) < 192; };
    QList<Macchia> trovate;
    for (int y0 = 0; y0 < h; ++y0)
        for (int x0 = 0; x0 < w; ++x0) {
            if (visto[qsizetype(y0) * w + x0] || !inchiostro(x0, y0))
                continue;
            Macchia m;
            QList<QPoint> coda{{x0, y0}};
            visto[qsizetype(y0) * w + x0] = true;
            while (!coda.isEmpty()) {
                const QPoint p = coda.takeLast();
                m.punti.append(p);
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx) {
                        const int x = p.x() + dx;
                        const int y = p.y() + dy;
                        if (x < 0 || y < 0 || x >= w || y >= h || visto[qsizetype(y) * w + x])
                            continue;
                        visto[qsizetype(y) * w + x] = true;
                        if (inchiostro(x, y))
                            coda.append({x, y});
                    }
            }
            double sx = 0;
            double sy = 0;
            QRect r(m.punti.first(), QSize(1, 1));
            for (const QPoint &p : std::as_const(m.punti)) {
                sx += p.x();
                sy += p.y();
                r = r.united(QRect(p, QSize(1, 1)));
            }
            m.x = twips(sx / m.punti.size());
            m.y = twips(sy / m.punti.size());
            m.riquadro = r;
            trovate.append(m);
        }
    return trovate;
}

// The problems of a page: marks missing or misplaced, spots that are no mark, marks that are not
// filled round dots of about 2.3 mm (radius 60 twips and half a pen of 2 dots at 300 dpi).
QStringList confronta(const QImage &pagina, const QList<Segno> &segni, int numero) {
    QStringList problemi;
    QList<Macchia> trovate = macchie(pagina);
    const QString dove = u"pagina %1: "_s.arg(numero);
    if (trovate.size() != segni.size())
        problemi.append(dove +
                        u"%1 macchie invece di %2 segni"_s.arg(trovate.size()).arg(segni.size()));
    QList<bool> usata(trovate.size(), false);
    const double diametro = 2 * (60 + 2.0 / 300 * TwipsPerPollice / 2) / TwipsPerPollice * Dpi;
    for (const Segno &s : segni) {
        qsizetype migliore = -1;
        double distanza = 0;
        for (qsizetype k = 0; k < trovate.size(); ++k) {
            if (usata[k])
                continue;
            const double d = std::hypot(trovate[k].x - s.x, trovate[k].y - s.y);
            if (migliore < 0 || d < distanza) {
                migliore = k;
                distanza = d;
            }
        }
        if (migliore < 0 || distanza > Tolleranza) {
            problemi.append(
                dove + u"manca il segno (%1) a x %2 mm, y %3 mm"_s.arg(s.nome, mm(s.x), mm(s.y)) +
                (migliore < 0 ? QString()
                              : u"; la macchia più vicina è a %1 mm"_s.arg(mm(distanza))));
            continue;
        }
        usata[migliore] = true;
        const Macchia &m = trovate[migliore];
        // Round and of the size of a mark: as wide as tall, within a pixel and a half.
        if (std::abs(m.riquadro.width() - diametro) > 1.5 ||
            std::abs(m.riquadro.height() - diametro) > 1.5)
            problemi.append(dove + u"il segno (%1) misura %2 x %3 pixel invece di %4"_s.arg(s.nome)
                                       .arg(m.riquadro.width())
                                       .arg(m.riquadro.height())
                                       .arg(diametro, 0, 'f', 1));
        // Filled: every pixel from 0.25 mm to 0.8 mm of its centre is dark. The innermost circle
        // (radius 10 twips, a pen of 9.6) leaves a hole of 0.09 mm at the very centre, which at
        // this resolution may lighten the pixel there.
        const double cx = m.x / TwipsPerPollice * Dpi - 0.5;
        const double cy = m.y / TwipsPerPollice * Dpi - 0.5;
        const double raggio = 0.8 / 25.4 * Dpi;
        const double foro = 0.25 / 25.4 * Dpi;
        int chiari = 0;
        for (int y = int(cy - raggio) - 1; y <= int(cy + raggio) + 1; ++y)
            for (int x = int(cx - raggio) - 1; x <= int(cx + raggio) + 1; ++x) {
                const double d = std::hypot(x - cx, y - cy);
                if (d >= foro && d <= raggio && qGray(pagina.pixel(x, y)) >= 128)
                    ++chiari;
            }
        if (chiari > 0)
            problemi.append(
                dove +
                u"il segno (%1) non è pieno: %2 pixel chiari intorno al centro"_s.arg(s.nome).arg(chiari));
    }
    for (qsizetype k = 0; k < trovate.size(); ++k)
        if (!usata[k])
            problemi.append(dove + u"macchia di troppo a x %1 mm, y %2 mm (%3 pixel)"_s
                                       .arg(mm(trovate[k].x), mm(trovate[k].y))
                                       .arg(trovate[k].punti.size()));
    return problemi;
}

// What pdfinfo says of a file: "Pages" and "Page size".
QString infoPdf(const QString &file) {
    QProcess p;
    p.start(u"pdfinfo"_s, {file});
    if (!p.waitForFinished(30000))
        return {};
    return QString::fromUtf8(p.readAllStandardOutput());
}

int paginePdf(const QString &info) {
    const auto m = QRegularExpression(u"Pages:\\s+(\\d+)"_s).match(info);
    return m.hasMatch() ? m.captured(1).toInt() : -1;
}

// The pages of the file as grey pictures at 150 dpi.
QList<QImage> pagine(const QString &file, const QString &cartella) {
    const QString prefisso = QDir(cartella).filePath(u"pagina"_s);
    if (QProcess::execute(u"pdftoppm"_s, {u"-r"_s, QString::number(Dpi), u"-gray"_s, u"-png"_s,
                                          file, prefisso}) != 0)
        return {};
    QList<QImage> immagini;
    const QStringList png = QDir(cartella).entryList({u"pagina*.png"_s}, QDir::Files, QDir::Name);
    for (const QString &nome : png)
        immagini.append(
            QImage(QDir(cartella).filePath(nome)).convertToFormat(QImage::Format_Grayscale8));
    return immagini;
}

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
        T *trovato = frm->findChild<T *>(nome);
        if (!trovato)
            qFatal("controllo assente: %s", qPrintable(nome));
        return trovato;
    }
    // The field emptied and the text typed key by key.
    void scrivi(const QString &nome, const QString &testo) const {
        QLineEdit *t = w<QLineEdit>(nome);
        t->setFocus();
        t->selectAll();
        QTest::keyClick(t, Qt::Key_Delete);
        QTest::keyClicks(t, testo);
    }
    // Offsets, the last five boxes, the 9, as the run of these tests wants them.
    void compila() const {
        scrivi(u"txtPosX"_s, QString::number(PosX));
        scrivi(u"txtPosY"_s, QString::number(PosY));
        for (int k = 0; k < 5; ++k)
            scrivi(u"txt%1"_s.arg(10 + k), Ultime.at(k));
        QAbstractButton *nove = w<QCheckBox>(u"chk9"_s);
        QTest::mouseClick(nove, Qt::LeftButton, {}, QPoint(8, nove->height() / 2));
    }
    void stampa() const { QTest::mouseClick(w<QPushButton>(u"cmdStampa"_s), Qt::LeftButton); }
    // The files of the output folder, hidden ones too.
    QStringList file() const {
        return QDir(uscita.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

bool strumenti() {
    return !QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty() &&
           !QStandardPaths::findExecutable(u"pdftoppm"_s).isEmpty();
}

} // namespace

class TstPdfSchedine : public QObject {
    Q_OBJECT

private slots:
    void noveColonneSuDueSchedine();
    void ottoColonneUnaSchedina();
    void guastoAMetaNonLasciaFile_data();
    void guastoAMetaNonLasciaFile();

private:
    // The run of the first `ultima` columns to the PDF file, every page checked mark by mark.
    void stampaEConfronta(int ultima, int pagineAttese);
};

void TstPdfSchedine::stampaEConfronta(int ultima, int pagineAttese) {
    QVERIFY2(strumenti(), "pdfinfo e pdftoppm (poppler-utils) servono a questa prova");
    Banco b;
    QVERIFY(b.apri(Colonne.first(ultima), ultima));
    // The first start of the screen on a data folder explains the offsets.
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    b.compila();
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
    // A4 at 150 dpi: the file gives it in whole points, pdftoppm rounds up to whole pixels.
    for (const QImage &f : figure)
        QVERIFY2(std::abs(f.width() - 210 / 25.4 * Dpi) <= 1.5 &&
                     std::abs(f.height() - 297 / 25.4 * Dpi) <= 1.5,
                 qPrintable(u"%1 x %2"_s.arg(f.width()).arg(f.height())));
    if (const QString foto = qEnvironmentVariable("VESPARA_FOTO"); !foto.isEmpty()) {
        QDir().mkpath(foto);
        figure.first().save(QDir(foto).filePath(u"schedine-pdf-%1.png"_s.arg(ultima)));
    }
    const QList<QList<Segno>> segni = attesi(Colonne, 1, ultima, Ultime, true, PosX, PosY);
    QCOMPARE(segni.size(), pagineAttese);
    QStringList problemi;
    for (int p = 0; p < pagineAttese; ++p)
        problemi += confronta(figure.at(p), segni.at(p), p + 1);
    QVERIFY2(problemi.isEmpty(), qPrintable(problemi.join(u'\n')));
}

void TstPdfSchedine::noveColonneSuDueSchedine() {
    // 8 columns of 19 marks on the first slip (9 signs, 3 + 1 + 2 + 1 + 2 typed, the 9), the
    // ninth on the second.
    stampaEConfronta(9, 2);
}

void TstPdfSchedine::ottoColonneUnaSchedina() {
    // The slip is turned after its eighth column: with nothing more to print no sheet follows.
    stampaEConfronta(8, 1);
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
