#include "piattaforma/filtrotasti.h"

#include <QKeyEvent>

FiltroTasti::FiltroTasti(QObject *campo, QString ammessi, bool cancella)
    : QObject(campo)
    , m_ammessi(std::move(ammessi))
    , m_cancella(cancella) {
    campo->installEventFilter(this);
}

bool FiltroTasti::eventFilter(QObject *oggetto, QEvent *evento) {
    if (evento->type() != QEvent::KeyPress)
        return QObject::eventFilter(oggetto, evento);
    const auto *tasto = static_cast<QKeyEvent *>(evento);
    if (tasto->key() == Qt::Key_Backspace)
        return !m_cancella;
    const QString testo = tasto->text();
    if (testo.isEmpty() || !testo.at(0).isPrint() ||
        tasto->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return QObject::eventFilter(oggetto, evento);
    return !m_ammessi.contains(testo.at(0));
}
