#pragma once

#include <QRect>
#include <QSize>

class QScreen;

// The size of the user's screen in pixels. Tests set it, so that the start-up warnings about
// small screens and the first size of the frame can be checked on any machine.
class Schermo {
public:
    QSize dimensioni() const;
    // The part of a screen that windows may take (the desktop's panels left out); the primary
    // screen when none is named. A size set by a test is all available, from the origin.
    QRect areaDisponibile(const QScreen *schermo = nullptr) const;
    void imposta(QSize dimensioni) { m_fissa = dimensioni; }

private:
    QSize m_fissa;
};
