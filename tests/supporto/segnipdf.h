#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QStringList>

#include <array>

// The play slips read back from a PDF file: the marks worked out from the slip's measures (box n
// at 3900 - 250·n twips, the box of the 9 at 130, the rows of the signs at 2850, 3100 and 3300
// below the column, each column 720 + 0.15·i below the one before, from -750 at the top of a slip,
// a new slip after every eighth column), the pages rendered by pdftoppm, and the dark spots on
// them matched one to one with the marks.
namespace SegniPdf {

constexpr double Dpi = 150;
constexpr double TwipsPerPollice = 1440;
constexpr double TwipsPerMm = TwipsPerPollice / 25.4;
// How far a mark's centre may stand from its place: half a millimetre.
constexpr double Tolleranza = 0.5 * TwipsPerMm;

struct Segno {
    double x = 0; // twips from the page's left edge
    double y = 0; // twips from its top edge
    QString nome; // column, box and sign, for the messages
};

// The marks of a run of columns prima..ultima, slip after slip, with the offsets dx, dy.
QList<QList<Segno>> attesi(const QStringList &colonne, int prima, int ultima,
                           const std::array<QString, 5> &ultime, bool nove, double dx, double dy);

// A spot of ink on the rendered page: its pixels, centre and extent.
struct Macchia {
    QList<QPoint> punti;
    double x = 0; // twips
    double y = 0;
    QRect riquadro;
};
QList<Macchia> macchie(const QImage &pagina);

// The problems of a page (numero, for the messages): marks missing or misplaced, spots that are
// no mark, marks that are not filled round dots of about 2.3 mm. `origine` is where the page's
// coordinates start on the sheet (the corner of a printer's printable area), in twips.
QStringList confronta(const QImage &pagina, const QList<Segno> &segni, int numero,
                      QPointF origine = {});

// What pdfinfo says of a file, and its pages (-1 when unreadable).
QString infoPdf(const QString &file);
int paginePdf(const QString &info);
// The pages of the file as grey pictures at Dpi, rendered into `cartella`.
QList<QImage> pagine(const QString &file, const QString &cartella);
// Whether pdfinfo and pdftoppm are there.
bool strumenti();

} // namespace SegniPdf
