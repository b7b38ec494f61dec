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
    // lblEsci: the small red "X" of a screen without a title bar, which closes its window. Tab
    // reaches it, but it never takes the focus when the screen opens (a Space would close it).
    static QPushButton *pulsanteEsci(QWidget *schermo);
    // The control that takes the focus when the screen opens: its first field or its main
    // button. A screen that names none gets the first control of its tab order that is not
    // the close mark.
    static void primoControllo(QWidget *schermo, QWidget *controllo);
    // Puts the focus of a screen just opened on that control; the frame calls it once the
    // screen is shown. A control the screen focused while building itself keeps the focus.
    static void primoFuoco(QWidget *schermo);
    // The control primoFuoco chooses, null when the screen has nothing that takes the focus.
    static QWidget *controlloIniziale(QWidget *schermo);
    // The window a screen is shown in: its sub-window in the frame's area, or its own window.
    static QWidget *finestraDi(QWidget *schermo);
};
