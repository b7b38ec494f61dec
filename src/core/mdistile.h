#pragma once

class QPushButton;
class QWidget;

// The look shared by the screens: one place for what they would otherwise each repeat.
class MdiStile {
public:
    // The widget's own font in bold, scaled by `scala`.
    static void grassetto(QWidget *widget, double scala = 1.0);
    // A heading of a screen: bold, scaled, in the program's blue.
    static void titolo(QWidget *widget, double scala = 1.0);
    // A screen without a title bar of its own (it is moved by MdiTrascinamento), on the light
    // background of the program's panels.
    static void senzaCornice(QWidget *schermo);
    // lblEsci: the small red "X" of a screen without a title bar, which closes its window.
    static QPushButton *pulsanteEsci(QWidget *schermo);
    // The window a screen is shown in: its sub-window in the frame's area, or its own window.
    static QWidget *finestraDi(QWidget *schermo);
};
