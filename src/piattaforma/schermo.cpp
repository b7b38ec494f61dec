#include "piattaforma/schermo.h"

#include <QGuiApplication>
#include <QScreen>

QSize Schermo::dimensioni() const {
    if (m_fissa.isValid())
        return m_fissa;
    if (const QScreen *schermo = QGuiApplication::primaryScreen())
        return schermo->size();
    return {1024, 768};
}
