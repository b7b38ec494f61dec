#pragma once

#include <QSize>

// The size of the user's screen in pixels. Tests set it, so that the start-up warnings about
// small screens can be checked on any machine.
class Schermo {
public:
    QSize dimensioni() const;
    void imposta(QSize dimensioni) { m_fissa = dimensioni; }

private:
    QSize m_fissa;
};
