#pragma once

#include <QString>

#include <functional>

class QButtonGroup;
class QGroupBox;
class QWidget;

// The options of the seven Italian series (optA, optB, opt1A, opt1B, opt2A, opt2B, opt2C, named by
// their leagues) in a box "Campionato", the first chosen: the calendar and the teams editor pick
// a series with them.
class MdiOpzioniSerie {
public:
    // The group's ids are the series' places in Leghe::italiane(); `suggerimento` gives each
    // option its tool tip.
    static QButtonGroup *crea(QWidget *schermo, QGroupBox *&riquadro,
                              const std::function<QString(int)> &suggerimento);
};
