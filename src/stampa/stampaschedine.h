#pragma once

#include <QColor>
#include <QPointF>
#include <QString>
#include <QStringList>

#include <array>

class DispositivoDisegno;

// The marks of a run of play slips: where each filled circle goes for a box, a sign and a column,
// the checks that come before a run, and the run itself on any drawing device (printer, PDF,
// preview, the recorder of the tests). Lengths are twips from the top left corner of the paper:
// the offsets of the printer are the only shift, the preview and the paper agree.
class StampaSchedine {
public:
    // The slip: 8 columns of 14 boxes and the box of the 9, each column a row of marks down the
    // page.
    static constexpr int ColonnePerSchedina = 8;
    static constexpr double InizioColonna = -750;
    static constexpr double PassoColonna = 720;
    static constexpr double CorrezioneColonna = 0.15;
    static constexpr double InizioCasella = 200;
    static constexpr double PassoCasella = 250;
    static constexpr double PassoNove = 270;
    static constexpr double OrigineX = 3700;
    static constexpr std::array<double, 3> RigaSegno{2850, 3100, 3300}; // "1", "X", "2"
    static constexpr std::array<double, 6> Raggi{60, 50, 40, 30, 20, 10};
    static constexpr int SpessorePenna = 2;
    // The faint outline of the boxes under the marks of the preview.
    static constexpr double RaggioSagoma = 80;
    static constexpr QColor ColoreSagoma{192, 192, 192};

    // What a run needs: the columns (ColonneStampa, column i at index i - 1), the interval, the
    // signs of boxes 10 to 14, the box of the 9, and the offsets of the printer.
    struct Giocata {
        QStringList colonne;
        int prima = 1;
        int ultima = 0;
        std::array<QString, 5> ultime;
        bool nove = false;
        double posX = 0;
        double posY = 0;
    };

    // The first four checks of a run, in their order: the message of the first that fails, or an
    // empty text. `da` and `a` are the texts of the interval's lists.
    static QString controlla(const QString &da, const QString &a,
                             const std::array<QString, 5> &ultime);

    // The column accumulator after the advance of column i, from `precedente` (InizioColonna at
    // the top of a slip).
    static double avanzaColonna(double precedente, int i) {
        return precedente + PassoColonna + CorrezioneColonna * i;
    }
    // The row of a sign ("1", "X", "2", exact) in a column, or -1.
    static int rigaDi(QStringView segno);

    // Draws the run: pen width, every mark of columns prima to ultima, a new page after every
    // column whose index is a multiple of 8, the end of the document. A column index outside the
    // list is a run-time fault (nothing more is drawn, and the document is not ended). With
    // `conSagoma` (the preview) each slip first gets the outline of its boxes.
    static void disegna(DispositivoDisegno &dispositivo, const Giocata &giocata,
                        bool conSagoma = false);
    // The outline of the boxes of a slip whose first column has that index: a faint ring where
    // each mark can go, in the 8 places of the slip, with the offsets of the run.
    static void sagoma(DispositivoDisegno &dispositivo, const Giocata &giocata, int primaColonna);
    // One mark: six concentric black circles at the point, as 32-bit figures.
    static void segno(DispositivoDisegno &dispositivo, double x, double y);
};
