#include "supporto/segnipdf.h"

#include "piattaforma/dispositivoregistratore.h"
#include "stampa/documentopagine.h"
#include "stampa/stampaschedine.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace SegniPdf {

namespace {

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

double twips(double pixel) {
    // The centre of pixel k is k + 0.5 pixels from the edge.
    return (pixel + 0.5) * TwipsPerPollice / Dpi;
}

QString mm(double t) {
    return QString::number(t / TwipsPerMm, 'f', 2);
}

// The connected spots (8 neighbours) of the pixels darker than the paper.
} // namespace

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

QList<QList<Segno>> inAnteprima(const QList<RecordPagina> &record) {
    QList<QList<Segno>> pagine;
    const int n = DocumentoPagine::contaPagine(record);
    for (int p = 1; p <= n; ++p) {
        DispositivoRegistratore registratore;
        DocumentoPagine::disegnaPagina(record, p, registratore);
        QList<Segno> segni;
        for (const auto &c : std::as_const(registratore.chiamate))
            if (c.operazione == DispositivoRegistratore::Operazione::Cerchio &&
                c.colore == QColor(Qt::black) &&
                c.rettangolo.width() == StampaSchedine::Raggi.front())
                segni.append({c.rettangolo.x(), c.rettangolo.y(),
                              u"segno %1 dell'anteprima"_s.arg(segni.size() + 1)});
        pagine.append(segni);
    }
    return pagine;
}

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
QStringList confronta(const QImage &pagina, const QList<Segno> &segni, int numero, double *scarto) {
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
                (migliore < 0
                     ? QString()
                     : u"; la macchia più vicina è a %1 mm, a x %2 mm, y %3 mm"_s.arg(
                           mm(distanza), mm(trovate[migliore].x), mm(trovate[migliore].y))));
            continue;
        }
        usata[migliore] = true;
        if (scarto)
            *scarto = std::max(*scarto, distanza);
        const Macchia &m = trovate[migliore];
        // Round and of the size of a mark, 2.3 mm across: the blended pixels of the edge count as
        // ink and a printer's filters may blur it a little more, so up to 0.3 mm wider and 0.13
        // narrower (a ring of 50 or 70 twips is 0.35 mm off).
        const auto misura = [&](int lato) {
            return lato >= diametro - 0.13 / 25.4 * Dpi && lato <= diametro + 0.3 / 25.4 * Dpi;
        };
        if (!misura(m.riquadro.width()) || !misura(m.riquadro.height()))
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
                u"il segno (%1) non è pieno: %2 pixel chiari intorno al centro"_s.arg(s.nome).arg(
                    chiari));
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

// The pages of the file as grey pictures at Dpi.
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

bool strumenti() {
    return !QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty() &&
           !QStandardPaths::findExecutable(u"pdftoppm"_s).isEmpty();
}

} // namespace SegniPdf
