#include "core/mdiclessidra.h"

#include <QApplication>

MdiClessidra::MdiClessidra() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void MdiClessidra::rilascia() {
    if (m_attiva)
        QApplication::restoreOverrideCursor();
    m_attiva = false;
}
