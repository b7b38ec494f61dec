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

QRect Schermo::areaDisponibile(const QScreen *schermo) const {
    if (m_fissa.isValid())
        return {QPoint(0, 0), m_fissa};
    if (!schermo)
        schermo = QGuiApplication::primaryScreen();
    if (schermo)
        return schermo->availableGeometry();
    return {0, 0, 1024, 768};
}
