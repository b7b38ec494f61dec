#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

#include <array>

struct RecordPagina;

// The play slips read back from a PDF file: the marks worked out from the slip's measures (box n
// at 3900 - 250·n twips, the box of the 9 at 130, the rows of the signs at 2850, 3100 and 3300
// below the column, each column 720 + 0.15·i below the one before, from -750 at the top of a slip,
// a new slip after every eighth column), the pages rendered by pdftoppm, and the dark spots on
// them matched one to one with the marks.
namespace SegniPdf {

// Fine enough that a mark's centre is found within a few hundredths of a millimetre.
constexpr double Dpi = 300;
constexpr double TwipsPerPollice = 1440;
constexpr double TwipsPerMm = TwipsPerPollice / 25.4;
// How far a mark's centre may stand from its place on the sheet: 0.2 mm, less than a tenth of
// the mark's width.
constexpr double Tolleranza = 0.2 * TwipsPerMm;

struct Segno {
    double x = 0; // twips from the paper's left edge
    double y = 0; // twips from its top edge
    QString nome; // column, box and sign, for the messages
};

// The marks of a run of columns prima..ultima, slip after slip, with the offsets dx, dy.
QList<QList<Segno>> attesi(const QStringList &colonne, int prima, int ultima,
                           const std::array<QString, 5> &ultime, bool nove, double dx, double dy);

// The marks that the preview draws from the records of a run of slips, page after page: the
// centres of the black rings of 60 twips, as the pages are drawn on the recording device.
QList<QList<Segno>> inAnteprima(const QList<RecordPagina> &record);

// A spot of ink on the rendered page: its pixels, centre and extent.
struct Macchia {
    QList<QPoint> punti;
    double x = 0; // twips
    double y = 0;
    QRect riquadro;
};
QList<Macchia> macchie(const QImage &pagina);

// The problems of a page (numero, for the messages): marks missing or misplaced, spots that are
// no mark, marks that are not filled round dots of about 2.3 mm. Every place is measured from the
// corner of the sheet, with no allowance for a printer's margins. `scarto`, when given, takes the
// greatest distance in twips of a mark found from its place.
QStringList confronta(const QImage &pagina, const QList<Segno> &segni, int numero,
                      double *scarto = nullptr);

// What pdfinfo says of a file, and its pages (-1 when unreadable).
QString infoPdf(const QString &file);
int paginePdf(const QString &info);
// The pages of the file as grey pictures at Dpi, rendered into `cartella`.
QList<QImage> pagine(const QString &file, const QString &cartella);
// Whether pdfinfo and pdftoppm are there.
bool strumenti();

} // namespace SegniPdf
