#pragma once

#include <QKeySequence>

class QAbstractButton;
class QAction;
class QPushButton;
class QWidget;

// The keyboard of the screens, the same on every one of them as in any desktop program: Enter
// clicks the button of the obvious action, Ctrl+P prints. A screen calls these while it builds
// its controls. The screens are plain widgets in the frame's area, where QPushButton's default
// button (a QDialog's own) does nothing: these give them the same behaviour. Dialogs keep Qt's.
class MdiTastiera {
public:
    // Enter (Return, or Enter of the keypad) pressed anywhere inside `ambito` clicks `pulsante`,
    // drawn as the default button. `ambito` is a screen, or a part of one (a field, or a group of
    // fields with their button): the innermost part holding the focus wins. Enter stays with a
    // focused widget that takes it: a push button clicks itself, a multi-line editor breaks the
    // line, a widget marked by tieneInvio keeps it. A disabled or hidden button clicks nothing.
    static void pulsantePredefinito(QWidget *ambito, QPushButton *pulsante);
    // Marks a widget that has a use of its own for Enter (a grid that opens its row, say): there
    // Enter never reaches a default button.
    static void tieneInvio(QWidget *widget);

    // The print key, Ctrl+P.
    static QKeySequence tastoStampa() { return QKeySequence(QKeySequence::Print); }
    // Ctrl+P with the focus on `schermo` or inside it clicks `pulsante`, so two open screens
    // never print each other's. The action is named "azioneStampa".
    static QAction *stampa(QWidget *schermo, QAbstractButton *pulsante);
    // The same key for an action of the screen's own (the preview's "Stampa").
    static void stampa(QWidget *schermo, QAction *azione);

    // Ctrl+Z with the focus on `schermo` or inside it clicks `pulsante`, the screen's command that
    // takes back its last step. A field keeps the key while it has typing of its own to undo. The
    // action is named "azioneAnnulla". Called once the screen's fields are built.
    static QAction *annulla(QWidget *schermo, QAbstractButton *pulsante);
};
